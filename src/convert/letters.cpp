// SPDX-FileCopyrightText: 2026 The Pelmora Developers
// SPDX-License-Identifier: MIT

#include "convert/letters.h"

#include <algorithm>
#include <array>

namespace convert {

namespace {

struct Nearest
{
    char32_t letter;
    const char* text;
};

/// In the order of the letters.
constexpr std::array<Nearest, 198> table = {
    {{0x0110, "D"},  {0x0111, "d"},    {0x0126, "H"},    {0x0127, "h"},   {0x0131, "i"},
     {0x0138, "k"},  {0x0141, "L"},    {0x0142, "l"},    {0x014A, "N"},   {0x014B, "n"},
     {0x0166, "T"},  {0x0167, "t"},    {0x017F, "s"},    {0x0180, "b"},   {0x0181, "B"},
     {0x0186, "O"},  {0x018F, "A"},    {0x0190, "E"},    {0x0197, "I"},   {0x01B5, "Z"},
     {0x01B6, "z"},  {0x0237, "j"},    {0x0254, "o"},    {0x0259, "a"},   {0x025B, "e"},
     {0x0268, "i"},  {0x0391, "A"},    {0x0392, "B"},    {0x0393, "G"},   {0x0394, "D"},
     {0x0395, "E"},  {0x0396, "Z"},    {0x0397, "E"},    {0x0398, "Th"},  {0x0399, "I"},
     {0x039A, "K"},  {0x039B, "L"},    {0x039C, "M"},    {0x039D, "N"},   {0x039E, "X"},
     {0x039F, "O"},  {0x03A0, "P"},    {0x03A1, "R"},    {0x03A3, "S"},   {0x03A4, "T"},
     {0x03A5, "Y"},  {0x03A6, "Ph"},   {0x03A7, "Ch"},   {0x03A8, "Ps"},  {0x03A9, "O"},
     {0x03B1, "a"},  {0x03B2, "b"},    {0x03B3, "g"},    {0x03B4, "d"},   {0x03B5, "e"},
     {0x03B6, "z"},  {0x03B7, "e"},    {0x03B8, "th"},   {0x03B9, "i"},   {0x03BA, "k"},
     {0x03BB, "l"},  {0x03BC, "m"},    {0x03BD, "n"},    {0x03BE, "x"},   {0x03BF, "o"},
     {0x03C0, "p"},  {0x03C1, "r"},    {0x03C2, "s"},    {0x03C3, "s"},   {0x03C4, "t"},
     {0x03C5, "y"},  {0x03C6, "ph"},   {0x03C7, "ch"},   {0x03C8, "ps"},  {0x03C9, "o"},
     {0x03D1, "th"}, {0x03D5, "ph"},   {0x03F5, "e"},    {0x0401, "Yo"},  {0x0402, "Dj"},
     {0x0403, "G"},  {0x0404, "Ye"},   {0x0405, "Dz"},   {0x0406, "I"},   {0x0407, "Yi"},
     {0x0408, "J"},  {0x0409, "Lj"},   {0x040A, "Nj"},   {0x040B, "C"},   {0x040C, "K"},
     {0x040E, "U"},  {0x040F, "Dz"},   {0x0410, "A"},    {0x0411, "B"},   {0x0412, "V"},
     {0x0413, "G"},  {0x0414, "D"},    {0x0415, "E"},    {0x0416, "Zh"},  {0x0417, "Z"},
     {0x0418, "I"},  {0x0419, "J"},    {0x041A, "K"},    {0x041B, "L"},   {0x041C, "M"},
     {0x041D, "N"},  {0x041E, "O"},    {0x041F, "P"},    {0x0420, "R"},   {0x0421, "S"},
     {0x0422, "T"},  {0x0423, "U"},    {0x0424, "F"},    {0x0425, "Kh"},  {0x0426, "Ts"},
     {0x0427, "Ch"}, {0x0428, "Sh"},   {0x0429, "Shch"}, {0x042A, ""},    {0x042B, "Y"},
     {0x042C, ""},   {0x042D, "E"},    {0x042E, "Yu"},   {0x042F, "Ya"},  {0x0430, "a"},
     {0x0431, "b"},  {0x0432, "v"},    {0x0433, "g"},    {0x0434, "d"},   {0x0435, "e"},
     {0x0436, "zh"}, {0x0437, "z"},    {0x0438, "i"},    {0x0439, "j"},   {0x043A, "k"},
     {0x043B, "l"},  {0x043C, "m"},    {0x043D, "n"},    {0x043E, "o"},   {0x043F, "p"},
     {0x0440, "r"},  {0x0441, "s"},    {0x0442, "t"},    {0x0443, "u"},   {0x0444, "f"},
     {0x0445, "kh"}, {0x0446, "ts"},   {0x0447, "ch"},   {0x0448, "sh"},  {0x0449, "shch"},
     {0x044A, ""},   {0x044B, "y"},    {0x044C, ""},     {0x044D, "e"},   {0x044E, "yu"},
     {0x044F, "ya"}, {0x0451, "yo"},   {0x0452, "dj"},   {0x0453, "g"},   {0x0454, "ye"},
     {0x0455, "dz"}, {0x0456, "i"},    {0x0457, "yi"},   {0x0458, "j"},   {0x0459, "lj"},
     {0x045A, "nj"}, {0x045B, "c"},    {0x045C, "k"},    {0x045E, "u"},   {0x045F, "dz"},
     {0x0490, "G"},  {0x0491, "g"},    {0x1E9E, "SS"},   {0x2002, " "},   {0x2003, " "},
     {0x2007, " "},  {0x2009, " "},    {0x2010, "-"},    {0x2011, "-"},   {0x2012, "-"},
     {0x2015, "-"},  {0x202F, " "},    {0x2032, "'"},    {0x2033, "\""},  {0x2044, "/"},
     {0x2116, "No"}, {0x2190, "<-"},   {0x2192, "->"},   {0x2211, "sum"}, {0x2212, "-"},
     {0x2215, "/"},  {0x221A, "sqrt"}, {0x221E, "inf"},  {0x2248, "~"},   {0x2260, "!="},
     {0x2264, "<="}, {0x2265, ">="},   {0x3000, " "}}};

} // namespace

const char* nearestLetters(char32_t letter)
{
    const auto found = std::lower_bound(
        table.begin(), table.end(), letter,
        [](const Nearest& entry, char32_t wanted) { return entry.letter < wanted; });
    return found != table.end() && found->letter == letter ? found->text : nullptr;
}

} // namespace convert
