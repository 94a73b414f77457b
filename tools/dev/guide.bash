# SPDX-FileCopyrightText: 2026 The Pelmora Developers
# SPDX-License-Identifier: MIT
#
# Makes the PDF of the user guide.
#
# usage: ./dev guide
#
# From docs/user-guide.md and the pictures in docs/images, which ./dev pictures makes anew. Fails when a picture is
# missing. The program built in the same folder opens this PDF as its online help.

need build
preset=$(default_preset)
build "$preset" guide
echo "The guide is build/$preset/docs/pelmora-user-guide.pdf"
