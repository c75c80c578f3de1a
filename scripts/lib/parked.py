#!/usr/bin/env python3
"""parked.py FILE [COUNT]: puts into a register of the fichas inside one that came in two and a half hours ago, or COUNT,
at most the 1000 that a register holds.

A slot has 188 bytes, little-endian; docs/file-formats.md gives the layout.
"""
import datetime
import struct
import sys

SLOT, SLOTS = 188, 1000
NUMBER, OTHERS = 7, 31
MINUTES = 150
KNOWN = ("KLM483", "CARMEN", "IBÁÑEZ", "6015550147", "LLAVES EN CAJA", "AUTOMOVIL")


def text(value, width):
    return value.encode("cp1252")[:width].ljust(width)


def parked(number, minutes, fields):
    came = datetime.datetime.now() - datetime.timedelta(minutes=minutes)
    stamp = came.strftime("%H:%M  (%d/%m/%Y)")
    return (
        struct.pack("<h", -1)
        + text(stamp, 20)
        + text("??", 20)
        + text(f"{number:04d}", 4)
        + b"".join(text(field, 20) for field in fields)
        + text("01", 2)
        + text("??", 2)
        + struct.pack("<iqhi", number, 0, 0, 0)
    )


def others(count):
    numbers = [number for number in (*range(OTHERS, SLOTS + 1), *range(1, OTHERS)) if number != NUMBER]
    for i in range(count):
        plate = f"{chr(65 + i % 26)}{chr(75 + i % 11)}T{120 + 37 * i % 880}"
        yield numbers[i], MINUTES - 5 * i % MINUTES, (plate, "", "", "", "", "MOTOCICLETA" if i % 3 == 0 else "AUTOMOVIL")


count = int(sys.argv[2]) if len(sys.argv) > 2 else 1
with open(sys.argv[1], "r+b") as register:
    for number, minutes, fields in [(NUMBER, MINUTES, KNOWN), *others(count - 1)]:
        register.seek((number - 1) * SLOT)
        register.write(parked(number, minutes, fields))
