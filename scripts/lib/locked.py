#!/usr/bin/env python3
"""Writes a list of sales with a lock of functions behind it: locked.py FILE PASSWORD FUNCTION..., each by its number."""
import struct
import sys


def record(first, second):
    """A record of 46 bytes: two texts, no mark, 0, -1, 0."""
    texts = b"".join(struct.pack("<hh", 8, len(text)) + text.encode("ascii") for text in (first, second))
    return (texts + struct.pack("<hqhh", 0, 0, -1, 0)).ljust(46, b"\0")


file, password, *functions = sys.argv[1:]
selection = "".join("1" if str(number) in functions else "0" for number in range(1, 18))
with open(file, "wb") as sales:
    sales.write(record(" " * 9, " " * 15) * 5000 + record(password, selection))
