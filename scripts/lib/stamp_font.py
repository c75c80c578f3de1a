#!/usr/bin/env python3
"""stamp_font.py: the letters that are stamped on photos, as the header src/camera/LetraSello.h, on standard output.

Drawn once from Liberation Mono Bold (SIL Open Font License) at 11 pixels, without grey levels, and kept in the tree:
the same photo gives the same bytes on every machine, whatever fonts it has.
"""
import sys

import freetype

FONT = "/usr/share/fonts/truetype/liberation/LiberationMono-Bold.ttf"
LETTERS = " ()/0123456789:ABCDEFGHIJKLMNOPQRSTUVWXYZ"
SIZE = 11
WIDTH, HEIGHT = 7, 9
# Of the 9 rows one lies above the capitals and one below the line they stand on, for the brackets and the Q.
BASELINE = 8


def rows_of(face, letter):
    """The rows of a letter, top first; the leftmost pixel is the highest of WIDTH bits."""
    face.load_char(letter, freetype.FT_LOAD_RENDER | freetype.FT_LOAD_TARGET_MONO)
    glyph, bitmap = face.glyph, face.glyph.bitmap
    rows = [0] * HEIGHT
    for y in range(bitmap.rows):
        for x in range(bitmap.width):
            lit = bitmap.buffer[y * bitmap.pitch + x // 8] & (0x80 >> x % 8)
            row, column = BASELINE - glyph.bitmap_top + y, glyph.bitmap_left + x
            if lit and 0 <= row < HEIGHT and 0 <= column < WIDTH:
                rows[row] |= 1 << (WIDTH - 1 - column)
    return rows


def main():
    face = freetype.Face(FONT)
    face.set_pixel_sizes(0, SIZE)
    print("""// The letters that are stamped on photos, made by scripts/lib/stamp_font.py: don't edit by hand.
//
// Drawn from Liberation Mono Bold, (c) 2012 Red Hat, Inc., SIL Open Font License 1.1.
#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace vintoral::letra_sello {

inline constexpr int kWidth = %d;   ///< pixels, the gap to the next letter included
inline constexpr int kHeight = %d;  ///< pixels

inline constexpr std::string_view kLetters = "%s";

/// For each letter its rows, top first; the leftmost pixel is the highest of kWidth bits.
// clang-format off
inline constexpr std::array<std::array<std::uint8_t, kHeight>, kLetters.size()> kRows = {{""" % (WIDTH, HEIGHT, LETTERS))
    for letter in LETTERS:
        print("    {%s},  // %s" % (", ".join(f"0x{row:02X}" for row in rows_of(face, letter)), letter.replace(" ", "blank")))
    print("""}};
// clang-format on

}  // namespace vintoral::letra_sello""")
    return 0


sys.exit(main())
