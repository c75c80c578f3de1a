"""What the days before a camera share: the frames that it films, the photos on disk, and what is stamped on them.

Frames are written and photos are read without the program: bitmaps by hand, JPEG by djpeg.
"""
import pathlib
import struct
import subprocess

from station import ALT, CAMERA, CONTROL, DrivenDay, Folder

TODAY = "20/11/2026"
TAKEN, KNOWN = "Sonidos\\Vintoral-2.wav", "Sonidos\\Vintoral-4.wav"
A, M, W, X = ord("A"), ord("M"), ord("W"), ord("X")
OFF, MEMORY, MORE = "ImgIndicador(4)", "ImgIndicador(2)", "ImgIndicador(3)"

WIDTH, HEIGHT = 320, 240
LETTER, INK_HEIGHT, EDGE = 7, 9, 1  # pixels of a stamp's letter, without the edge around it
ENTRY_AT, EXIT_AT, ENTRY_BESIDE_EXIT_AT = (3, 0), (5, 13), (5, 2)
# What the quality of a photo leaves of a colour, and of what stands beside a sharp edge in the same block.
CLOSE, BLURRED = 4, 24
BLOCK = 8

ACT, HST, USR, INI, DTL = (f"Multimedia/Imágenes {name}" for name in ("ACT", "HST", "USR", "INI", "DTL"))
WCM, APP, RED_CAMERAS, KEPT = ("Recursos/Vintoral.WCM", "Objetos/AppCamera.INI", "Objetos/Camaras.INI",
                               "Recursos/Vintoral.CFG")


def numbered(folder, number):
    return f"{folder}/{number:06}.jpg"


def bmp(width, height, pixel):
    """A bitmap of 24 bits; `pixel(x, y)` gives red, green and blue."""
    rows = b"".join(b"".join(bytes(pixel(x, y)[::-1]) for x in range(width)).ljust(-(-width * 3 // 4) * 4, b"\0")
                    for y in reversed(range(height)))
    return (b"BM" + struct.pack("<IIIIiiHHIIiiII", 54 + len(rows), 0, 54, 40, width, height, 1, 24, 0, len(rows), 0, 0, 0, 0)
            + rows)


def plain(color, width=32, height=24):
    """A frame of one colour: it looks the same at any size."""
    return bmp(width, height, lambda x, y: color)


def jpeg(color, width=32, height=24):
    """A picture as another program leaves it."""
    return squeeze(b"P6\n%d %d\n255\n" % (width, height) + bytes(color) * (width * height))


def squeeze(ppm):
    return subprocess.run(["cjpeg", "-quality", "95", "-sample", "1x1"], input=ppm, stdout=subprocess.PIPE, check=True).stdout


def is_whole(data):
    """A photo that djpeg reads to its end without a word."""
    read = subprocess.run(["djpeg", "-pnm"], input=data, stdout=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
    return read.returncode == 0 and read.stderr == b""


class Photo:
    """A photo that was read from its file."""

    def __init__(self, data):
        ppm = subprocess.run(["djpeg", "-pnm"], input=data, stdout=subprocess.PIPE, check=True).stdout
        kind, size, most, self.pixels = ppm.split(b"\n", 3)
        assert (kind, most) == (b"P6", b"255"), (kind, most)
        self.width, self.height = map(int, size.split())

    def at(self, x, y):
        return tuple(self.pixels[(y * self.width + x) * 3:][:3])

    def middle(self):
        return self.at(self.width // 2, self.height // 2)

    def lit(self, x, y):
        """Ink of a stamp: white, on a ground that no test makes lighter than half."""
        return min(self.at(x, y)) > 170

    def cells(self, place, count):
        """The ink of so many letters of the stamp at `place`, each as its rows of pixels."""
        left, top = place[0] + EDGE, place[1] + EDGE
        return [tuple(tuple(self.lit(left + LETTER * letter + x, top + y) for x in range(LETTER)) for y in range(INK_HEIGHT))
                for letter in range(count)]


def markers(data):
    """The segments of a JPEG file up to its scan: (marker, body)."""
    assert data[:2] == b"\xff\xd8" and data[-2:] == b"\xff\xd9", "no whole JPEG file"
    found, at = [], 2
    while not found or found[-1][0] != 0xDA:
        assert data[at] == 0xFF, f"no marker at {at}"
        length = struct.unpack_from(">H", data, at + 2)[0]
        found.append((data[at + 1], data[at + 4:at + 2 + length]))
        at += 2 + length
    return found


def box(place, text):
    """The pixels that a stamp may paint: left, top, right and bottom, the last two outside."""
    return place[0], place[1], place[0] + LETTER * len(text) + 2 * EDGE, place[1] + INK_HEIGHT + 2 * EDGE


def blocks_around(left, top, right, bottom):
    """The same, up to the edges of the blocks that the encoder sees as one."""
    return left // BLOCK * BLOCK, top // BLOCK * BLOCK, -(-right // BLOCK) * BLOCK, -(-bottom // BLOCK) * BLOCK


def within(x, y, area):
    return area[0] <= x < area[2] and area[1] <= y < area[3]


class CameraDay(DrivenDay):
    def frame(self, data, kind="bmp"):
        """A file of its own for a frame."""
        self.frames = getattr(self, "frames", 0) + 1
        path = self.root / f"frame{self.frames}.{kind}"
        path.write_bytes(data)
        return str(path)

    def film(self, station, color, camera=CAMERA):
        """From here on that colour stands before the camera."""
        station.do("camera", name=camera, frame=self.frame(plain(color)))

    def filming(self, color=(90, 60, 30), **options):
        station = self.running(**options)
        self.film(station, color)
        return station

    def remember_faces(self, station):
        self.assertFalse(station.shown(MEMORY))
        station.key(M, CONTROL | ALT)
        self.assertTrue(station.shown(MEMORY))

    def another(self, station, color=None):
        """One additional photo; the reply in which it is over."""
        if color:
            self.film(station, color)
        first = station.key(A, CONTROL)
        self.assertEqual(first["waiting"], {"wait": 1000})
        station.advance(1000)
        self.assertIsNone(station.reply["waiting"])
        return first

    def second_gate(self, **options):
        folder = Folder(self.root / "P02")
        folder.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        return self.running(folder, **options)

    # ---- What is on disk ----

    def photo(self, name):
        return Photo((self.folder / name).read_bytes())

    def color(self, name):
        return self.photo(name).middle()

    def there(self, *folders):
        """The names of all that stands in these folders of photos, with what is in them; by default in all five."""
        found = []
        for name in folders or (ACT, HST, USR, INI, DTL):
            base = self.folder / name
            found += [f"{pathlib.PurePath(name).name.split()[1]}/{path.relative_to(base)}" for path in base.rglob("*")]
        return sorted(found)

    # ---- What is asserted of it ----

    def assertColor(self, seen, expected, tolerance=CLOSE):
        self.assertLessEqual(max(abs(a - b) for a, b in zip(seen, expected)), tolerance, f"{seen} is not {expected}")

    def assertPlain(self, name, color):
        """A photo of that colour everywhere, with nothing stamped on it."""
        photo = self.photo(name)
        self.assertEqual((photo.width, photo.height), (WIDTH, HEIGHT))
        self.assertRowsPlain(photo, range(HEIGHT), color)

    def assertRowsPlain(self, photo, rows, color):
        pixels = photo.pixels[rows.start * WIDTH * 3:rows.stop * WIDTH * 3]
        channels = [pixels[channel::3] for channel in range(3)]
        self.assertColor([min(channel) for channel in channels], color)
        self.assertColor([max(channel) for channel in channels], color)

    def assertStamped(self, name, color, *stamps):
        """A photo of that dark colour with these stamps, (place, text), and nothing else on it."""
        photo = self.photo(name)
        self.assertEqual((photo.width, photo.height), (WIDTH, HEIGHT))
        areas = [box(place, text) for place, text in stamps]
        blurred = max(blocks_around(*area)[3] for area in areas)
        self.assertRowsPlain(photo, range(blurred, HEIGHT), color)
        for y in range(blurred):
            for x in range(WIDTH):
                if not any(within(x, y, area) for area in areas):
                    beside = any(within(x, y, blocks_around(*area)) for area in areas)
                    self.assertColor(photo.at(x, y), color, BLURRED if beside else CLOSE)
        self.assertReads([cell for place, text in stamps for cell in photo.cells(place, len(text))],
                         "".join(text for _, text in stamps))
        for place, text in stamps:
            self.assertEdged(photo, place, text)

    def assertReads(self, cells, text):
        """The same letter has the same shape wherever it stands, another letter another one, and a blank none."""
        shapes = dict(zip(text, cells))
        self.assertEqual(cells, [shapes[letter] for letter in text])
        self.assertEqual(len(set(shapes.values())), len(shapes), "two letters look the same")
        for letter, shape in shapes.items():
            self.assertEqual(any(map(any, shape)), letter != " ", f"'{letter}'")

    def assertEdged(self, photo, place, text):
        """Dark pixels right beside the ink of every letter."""
        for letter, cell in zip(range(len(text)), photo.cells(place, len(text))):
            if text[letter] == " ":
                continue
            y = next(row for row in range(INK_HEIGHT) if any(cell[row]))
            x = cell[y].index(True)
            above = photo.at(place[0] + EDGE + LETTER * letter + x, place[1] + EDGE + y - 1)
            self.assertLess(max(above), 60, f"above '{text[letter]}'")
