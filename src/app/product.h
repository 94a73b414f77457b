// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#pragma once

/// The identity of the program. Name and version are those of the project, in CMakeLists.txt.
namespace product {

inline constexpr char name[] = PELMORA_NAME;
inline constexpr char version[] = PELMORA_VERSION;
inline constexpr char rightsYear[] = "2014";
/// Stated as is, whatever the build: it names the edition, not the machine it was compiled for.
inline constexpr char bitWidth[] = "32";

/// Organisation name and domain at once; decides where the settings are kept.
inline constexpr char organisation[] = "pelmora.example";
/// Names the desktop entry, the metainfo and the icons.
inline constexpr char applicationId[] = "example.pelmora.Pelmora";

inline constexpr char rightsHolder[] = "The Pelmora Developers";
inline constexpr char postalAddress[] = "1 Example Street, 00000 Example Town";
inline constexpr char webAddress[] = "https://www.pelmora.example/";
inline constexpr char mailAddress[] = "contact@pelmora.example";

inline constexpr char userGuideFile[] = "pelmora-user-guide.pdf";

} // namespace product
