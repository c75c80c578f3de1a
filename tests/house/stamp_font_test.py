"""The letters of the stamps: made again from the type they are the same, and no row has more than its pixels.

Runs on the system's Python, which is the one that has FreeType's module.
"""
import re
import subprocess
import unittest

from house import PROJECT, HouseTest

HEADER = PROJECT / "src/camera/LetraSello.h"


class StampFont(HouseTest):
    def test_made_again_it_is_the_same(self):
        made = subprocess.run(["/usr/bin/python3", "-B", PROJECT / "scripts/lib/stamp_font.py"], capture_output=True, text=True)
        self.assertEqual(made.returncode, 0, made.stderr)
        self.assertEqual(made.stdout, HEADER.read_text())

    def test_every_letter_that_a_stamp_needs_is_there_and_no_two_are_alike(self):
        rows = re.findall(r"\{((?:0x[0-9A-F]{2}(?:, )?){9})\},  // (\S+)", HEADER.read_text())
        letters = dict((name, bits) for bits, name in rows)
        self.assertEqual(set(letters), set("0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZ:/()") | {"blank"})
        self.assertEqual(len(set(letters.values())), len(letters))
        for name, bits in letters.items():
            self.assertTrue(all(int(row, 16) < 0x80 for row in bits.split(", ")), name)


if __name__ == "__main__":
    unittest.main()
