"""Photos that are no pictures, or too large, or not to be had: the grid shows its numbers, and work goes on."""
import os
import random
import struct
import threading
import time
import zlib

import trouble
from station import stamp
from trouble import some

import photos
from grid import CELLS, F2, F3, TODAY, GridDay, numbered, photo_inside, photo_outside

SEED = 4711
MIB = 1024  # in the KiB of /proc
SANITIZED = "VINTORAL_EVERY" in os.environ  # where memory tells nothing


def png():
    def chunk(kind, body):
        return struct.pack(">I", len(body)) + kind + body + struct.pack(">I", zlib.crc32(kind + body))
    return (b"\x89PNG\r\n\x1a\n" + chunk(b"IHDR", struct.pack(">IIBBBBB", 1, 1, 8, 0, 0, 0, 0))
            + chunk(b"IDAT", zlib.compress(b"\0\x80")) + chunk(b"IEND", b""))


def bmp():
    return b"BM" + struct.pack("<IIIIiiHHIIiiII", 58, 0, 54, 40, 1, 1, 1, 24, 0, 4, 0, 0, 0, 0) + b"\x80\x80\x80\0"


OTHERS = {
    "PNG": png(),
    "GIF": b"GIF89a\1\0\1\0\x80\0\0\0\0\0\xff\xff\xff,\0\0\0\0\1\0\1\0\0\2\2D\1\0;",
    "BMP": bmp(),
    "HTML": "<!DOCTYPE html><title>Sesión vencida</title>".encode(),
    "nothing": b"",
    "zeros": bytes(4096),
    "start of a photo": b"\xff\xd8",
}


class Photos(GridDay, trouble.Trouble):
    def redraw(self, gate):
        """A monitor on and off: the grid reads all its photos twice."""
        gate.key(F2)
        gate.key(F2)

    def pictures(self, gate):
        return [cell["Picture"] for cell in gate.get(*CELLS) if cell["Visible"]]

    def assertDeleted(self, gate, damaged):
        """Fifty at a time in the cells behind the first, whose photo is whole: each is deleted, its cell blank."""
        for at in range(0, len(damaged), 49):
            some_ = damaged[at:at + 49]
            for number, data in enumerate(some_, start=2):
                self.folder.write(photo_inside(number), data)
            self.redraw(gate)
            self.assertEqual(self.pictures(gate), [True] + [False] * 49)
            left = [len(data) for number, data in enumerate(some_, start=2) if (self.folder / photo_inside(number)).exists()]
            self.assertEqual(left, [])
        self.assertTrue((self.folder / photo_inside(1)).exists())

    def fifty(self):
        self.photograph(photo_inside(1))
        gate = self.gate(*numbered(50))
        self.assertEqual(self.pictures(gate), [True] + [False] * 49)
        return gate

    def peak(self, gate):
        """The most memory that the driver ever had, in KiB."""
        with open(f"/proc/{gate.process.pid}/status", encoding="ascii") as status:
            return next(int(line.split()[1]) for line in status if line.startswith("VmHWM"))


class Damaged(Photos):
    def test_cut_at_any_byte(self):
        gate = self.fifty()
        for whole in (photos.photo(), photos.photo(33, 17, photos.PROGRESSIVE, components=3)):
            self.assertDeleted(gate, [whole[:length] for length in some(range(len(whole)))])
            self.folder.write(photo_inside(2), whole)
            self.redraw(gate)
            self.assertEqual(self.pictures(gate), [True, True] + [False] * 48)
            (self.folder / photo_inside(2)).unlink()

    def test_of_another_format(self):
        self.assertDeleted(self.fifty(), list(OTHERS.values()))

    def test_fewer_blocks_than_it_says(self):
        self.assertDeleted(self.fifty(), [photos.photo(80, 80, blocks=blocks) for blocks in (0, 1, 50, 95)])

    def test_scrambled(self):
        """Some of the noise is still a picture; what is none is deleted, and nothing else is touched."""
        gate, dice = self.fifty(), random.Random(SEED)
        whole = photos.photo(40, 30, photos.PROGRESSIVE, components=3)
        kept = deleted = 0
        rounds = some(range(20))
        for _ in rounds:
            for number in range(2, 51):
                data = bytearray(whole)
                for _ in range(dice.randrange(1, 20)):
                    data[dice.randrange(len(data))] = dice.randrange(256)
                self.folder.write(photo_inside(number), bytes(data))
            self.redraw(gate)
            shown = self.pictures(gate)
            there = [(self.folder / photo_inside(number)).exists() for number in range(1, 51)]
            self.assertTrue(shown[0])
            self.assertEqual([number for number, (seen, file) in enumerate(zip(shown, there), start=1) if seen and not file],
                             [])
            kept, deleted = kept + sum(there), deleted + 50 - sum(there)
        self.assertGreater(min(kept, deleted), len(rounds), "all but the first photo were of one kind")

    def test_of_who_has_left(self):
        gate = self.gate(history=[(8, stamp("13:00", TODAY))])
        self.folder.write(photo_outside(2), b"no photo")
        gate.key(F3)
        self.assertEqual((self.cells(gate), (self.folder / photo_outside(2)).exists()), (["0008"], False))


class Large(Photos):
    def decoded(self, data, most):
        """Whether the grid shows it, which never deletes it; at most so many MiB are taken for it."""
        gate = self.gate(*numbered(2))
        self.photograph(photo_inside(2))
        self.redraw(gate)
        before = self.peak(gate)
        self.folder.write(photo_inside(1), data)
        self.redraw(gate)
        if not SANITIZED:
            self.assertLess(self.peak(gate) - before, most * MIB)
        self.assertEqual((self.folder / photo_inside(1)).read_bytes(), data)
        self.assertTrue(self.pictures(gate)[1])
        gate.save(7)
        return self.pictures(gate)[0]

    def test_forty_megapixels(self):
        self.assertTrue(self.decoded(photos.photo(8000, 5000, components=3), 16))

    def test_forty_megapixels_in_passes(self):
        """All of whose coefficients stand in memory before the first pixel."""
        self.assertTrue(self.decoded(photos.photo(8000, 5000, photos.PROGRESSIVE, components=3), 256))

    def test_a_claim_of_sixty_megapixels(self):
        for frame in (photos.BASELINE, photos.PROGRESSIVE):
            with self.subTest(frame=frame):
                self.assertFalse(self.decoded(photos.photo(10000, 6000, frame, components=3, blocks=8), 8))

    def test_a_claim_of_all_that_the_format_can_say(self):
        self.assertFalse(self.decoded(photos.photo(65500, 65500, photos.PROGRESSIVE, components=3, blocks=8), 8))

    def test_a_file_longer_than_any_picture(self):
        gate = self.gate(*numbered(1))
        before = self.peak(gate)
        with open(self.folder.write(photo_inside(1), photos.photo()), "r+b") as file:
            file.truncate(8 << 30)
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0001"])
        self.assertTrue((self.folder / photo_inside(1)).exists())
        if not SANITIZED:
            self.assertLess(self.peak(gate) - before, 8 * MIB)


class NotToBeHad(Photos):
    def test_a_folder_under_its_name(self):
        gate = self.gate(*numbered(2))
        (self.folder / photo_inside(1)).mkdir(parents=True)
        self.photograph(photo_inside(2))
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0001", "0002*"])
        self.hover(gate, "ImgFicha(0)")
        self.assertEqual(gate.caption("LblWebCamMsg"), "SIN IMAGEN")
        self.assertTrue((self.folder / photo_inside(1)).is_dir())

    def test_a_queue_under_its_name(self):
        gate = self.gate(*numbered(1))
        os.mkfifo(self.folder / photo_inside(1))
        began = time.monotonic()
        self.redraw(gate)
        self.assertLess(time.monotonic() - began, 10)
        self.assertEqual(self.cells(gate), ["0001"])

    def test_the_folder_gone_and_back(self):
        self.photograph(photo_inside(1), photo_inside(2))
        gate = self.gate(*numbered(3))
        photos_ = (self.folder / photo_inside(1)).parent
        away = photos_.rename(self.root / "away")
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0001", "0002", "0003"])
        self.hover(gate, "ImgFicha(1)")
        self.assertEqual(gate.caption("LblWebCamMsg"), "SIN IMAGEN")
        self.leave(gate)
        gate.save(7)
        gate.retire(1)
        away.rename(photos_)
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0002*", "0003", "0007"])

    def test_one_that_must_not_be_read(self):
        """A user who may not read a photo does not delete it, whole or damaged."""
        if os.getuid() == 0:
            self.become_nobody()
        self.photograph(photo_inside(1))
        self.folder.write(photo_inside(2), b"damaged")
        self.prepare(*numbered(2))
        for number in (1, 2):
            (self.folder / photo_inside(number)).chmod(0o000)
        (self.root / "P01-desktop").mkdir()
        for folder in (self.folder.path, self.root / "P01-desktop"):
            self.give_away(folder)
        gate = self.running()
        self.assertEqual(self.cells(gate), ["0001", "0002"])
        self.hover(gate, "ImgFicha(0)")
        self.leave(gate)
        for number in (1, 2):
            self.assertTrue((self.folder / photo_inside(number)).exists())
            (self.folder / photo_inside(number)).chmod(0o444)
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0001*", "0002"])
        self.assertFalse((self.folder / photo_inside(2)).exists())


class BeingWritten(Photos):
    def test_half_a_photo_waits_for_its_other_half(self):
        gate, whole = self.gate(*numbered(2)), photos.photo(40, 30)
        with open(self.folder.write(photo_inside(1), b""), "wb", buffering=0) as file:
            for piece in (whole[:1], whole[1:100], whole[100:-1]):
                self.redraw(gate)
                self.assertEqual(self.cells(gate), ["0001", "0002"])
                file.write(piece)
            self.redraw(gate)
            self.assertEqual(self.cells(gate), ["0001", "0002"])
            file.write(whole[-1:])
        self.redraw(gate)
        self.assertEqual(self.cells(gate), ["0001*", "0002"])
        self.assertEqual((self.folder / photo_inside(1)).read_bytes(), whole)

    def test_half_a_photo_that_its_writer_gives_up(self):
        gate = self.gate(*numbered(2))
        with open(self.folder.write(photo_inside(1), b""), "wb", buffering=0) as file:
            file.write(photos.photo()[:80])
            self.redraw(gate)
            self.assertTrue((self.folder / photo_inside(1)).exists())
        self.redraw(gate)
        self.assertFalse((self.folder / photo_inside(1)).exists())

    def test_no_whole_photo_is_ever_lost(self):
        """Photos written in pieces, at any moment of a draw: a damaged file that becomes whole stays."""
        gate, dice = self.gate(*numbered(50)), random.Random(SEED)
        whole, numbers, over = photos.photo(40, 30), list(range(1, 51)), threading.Event()

        def write_all():
            for number in numbers * 4:
                with open(self.folder.path / photo_inside(number), "wb", buffering=0) as file:
                    cut = dice.randrange(len(whole))
                    file.write(whole[:cut])
                    time.sleep(dice.random() / 200)
                    file.write(whole[cut:])
            over.set()

        writer = threading.Thread(target=write_all)
        writer.start()
        draws = 0
        while not over.is_set():
            self.redraw(gate)
            draws += 2
        writer.join()
        self.assertGreater(draws, 5)
        self.assertEqual([number for number in numbers
                          if not (self.folder / photo_inside(number)).exists()], [])
        self.redraw(gate)
        self.assertEqual(self.pictures(gate), [True] * 50)


if __name__ == "__main__":
    trouble.station.main()
