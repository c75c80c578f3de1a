"""The bar code font: made again it is the same, and the program's own table has its measures.

Runs on the system's Python, which is the one that has fontTools.
"""
import re
import shutil
import subprocess
import unittest

from fontTools.ttLib import TTFont

from house import PROJECT, HouseTest

FONT = PROJECT / "data/fonts/Vintoral.ttf"
CHARACTERS = "0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ-. $/+%*"


def measures(name):
    """The numbers of one of the tables of types: advance, ascent and line pitch, in sizes of the type."""
    source = (PROJECT / "src/platform/PrintDocument.cpp").read_text()
    table = re.search(rf"TypeMeasures {name}\{{(.*?)\}}", source)[1]
    return [float(a) / float(b or 1) for a, b in re.findall(r"([\d.]+)(?: / (\d+))?", table)]


class BarsFont(HouseTest):
    def setUp(self):
        super().setUp()
        self.font = TTFont(FONT)
        self.em = self.font["head"].unitsPerEm
        self.codes = self.font.getBestCmap()

    def lines(self, character):
        """The bars of a character: pairs of left and right edge, from left to right."""
        glyph = self.font["glyf"][self.codes[ord(character)]]
        points = [x for x, _ in glyph.getCoordinates(self.font["glyf"])[0]]
        # Each bar is a contour of four corners.
        corners = [points[i:i + 4] for i in range(0, len(points), 4)]
        return sorted((min(bar), max(bar)) for bar in corners)

    def test_made_again_it_is_the_same(self):
        script = self.root / "make-code39-font"
        shutil.copy(PROJECT / "data/fonts/make-code39-font", script)
        subprocess.run([script], check=True)
        self.assertEqual((self.root / "Vintoral.ttf").read_bytes(), FONT.read_bytes())

    def test_the_program_has_its_measures(self):
        head = self.font["hhea"]
        advances = {advance for advance, _ in self.font["hmtx"].metrics.values()}
        self.assertEqual(len(advances), 1)
        pitch = head.ascent - head.descent + head.lineGap
        self.assertEqual([value / self.em for value in (*advances, head.ascent, pitch)], measures("kBarras"))

    def test_its_name_is_the_one_that_slips_ask_for(self):
        header = (PROJECT / "src/platform/PrintDocument.h").read_text()
        self.assertEqual(self.font["name"].getDebugName(1), re.search(r'kBarras = "(.*)"', header)[1])

    def test_every_character_is_one_of_code_39(self):
        advance = self.font["hmtx"][self.codes[ord("*")]][0]
        seen = set()
        for character in CHARACTERS:
            bars = self.lines(character)
            self.assertEqual(len(bars), 5, character)
            edges = [edge for bar in bars for edge in bar] + [advance]
            widths = [right - left for left, right in zip(edges, edges[1:])]
            self.assertEqual(edges[0], 0)
            narrow = min(widths)
            self.assertEqual(sorted(widths[:9]), [narrow] * 6 + [2 * narrow] * 3, character)
            self.assertEqual(widths[9], narrow, "the gap")
            seen.add(tuple(widths))
            self.assertEqual(self.codes[ord(character)], self.codes[ord(character.lower())])
        self.assertEqual(len(seen), len(CHARACTERS))

    def test_twelve_characters_fit_a_slip(self):
        column, bar = measures("kTexto")[0], 3 * measures("kBarras")[0]
        quiet = 10 * 3 * min(right - left for left, right in self.lines("*")) / self.em
        end = 2 * column + 14 * bar
        self.assertLessEqual(end + quiet, 31 * column)
        self.assertLessEqual(quiet, 2 * column)
        glyph = self.font["glyf"][self.codes[ord("*")]]
        height = 3 * (glyph.yMax - glyph.yMin) / self.em
        self.assertGreaterEqual(height, 0.15 * 14 * bar)
        self.assertGreaterEqual(height * 10.5 / 72 * 25.4, 5)


unittest.main()
