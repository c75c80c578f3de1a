"""Photos as the folders of a station hold them: whole JPEG files of one shade, written here without any library.

A picture of one shade has nothing but zeros in its blocks, so a table needs one code, of one bit, and a picture of any
size is made at once.
"""
import struct

BLOCK = 8
BASELINE, PROGRESSIVE = 0xC0, 0xC2
ONE_CODE = bytes([1] + [0] * 16)  # one code of one bit, for 0: no difference, or the end of a block


def segment(marker, body):
    return bytes([0xFF, marker]) + struct.pack(">H", len(body) + 2) + body


def scan(components, first, last, bits):
    """The coefficients from `first` to `last` of all blocks of these components, in that many bits, all of them zero."""
    named = b"".join(bytes([component, 0x00]) for component in components)
    header = segment(0xDA, bytes([len(components)]) + named + bytes([first, last, 0]))
    return header + bytes(bits // 8) + (bytes([0xFF >> bits % 8]) if bits % 8 else b"")


def photo(width=16, height=12, frame=BASELINE, components=1, blocks=None):
    """A whole photo, grey or of three components; with fewer blocks a component than its size needs a damaged one."""
    if blocks is None:
        blocks = -(-width // BLOCK) * -(-height // BLOCK)
    tables = segment(0xDB, b"\0" + b"\1" * 64) + segment(0xC4, b"\x00" + ONE_CODE + b"\x10" + ONE_CODE)
    names = range(1, components + 1)
    size = segment(frame, struct.pack(">BHHB", 8, height, width, components)
                   + b"".join(bytes([name, 0x11, 0]) for name in names))
    if frame == PROGRESSIVE:
        scans = scan(names, 0, 0, components * blocks) + b"".join(scan([name], 1, 63, blocks) for name in names)
    else:
        scans = scan(names, 0, 63, 2 * components * blocks)
    return b"\xff\xd8" + tables + size + scans + b"\xff\xd9"
