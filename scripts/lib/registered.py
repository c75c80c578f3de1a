#!/usr/bin/env python3
"""registered.py FILE: puts the register of users there, with one who is known by her plate and has earned points.

A user has 124 bytes, little-endian; docs/file-formats.md gives the layout.
"""
import struct
import sys

USER = ("GHT502", "MARTA", "ORDÓÑEZ", "6015550199", "MOTO ROJA", "MOTOCICLETA")
POINTS = 1240

with open(sys.argv[1], "wb") as register:
    for field in USER:
        register.write(field.encode("cp1252").ljust(20))
    register.write(struct.pack("<i", POINTS))
