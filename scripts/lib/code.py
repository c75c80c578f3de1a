#!/usr/bin/env python3
"""code.py FILE NUMBER: the code of the ticket of that ficha, as the register of codes has it.

A slot has 54 bytes, the code first; docs/file-formats.md gives the layout.
"""
import sys

SLOT = 54
with open(sys.argv[1], "rb") as register:
    register.seek((int(sys.argv[2]) - 1) * SLOT)
    print(register.read(50).decode("cp1252").strip())
