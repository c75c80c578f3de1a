"""Sales into a list that is cut or scrambled, that may not be written, and on a disk that is full."""
import os
import random
import stat

import trouble
from sales import BLANK_LINE, EXT, LINE, LINES, LIST, LOCK, SalesDay, line, sales_file

SEED = 20261122
NEW = line("CAFE", 2, 5000, 1400)
FULL = sales_file(*(line("GOMA", n % 999 + 1, n, 900) for n in range(LINES)))


class Sales(SalesDay, trouble.Trouble):
    def sell_one(self, station):
        """A sale that no failure may hold up."""
        reply = self.sell(station, (1, 2))
        self.assertIsNone(reply["waiting"])
        self.assertNotIn("Form4", station.state("forms"))

    def assertUnrecorded(self, station, before):
        """Nobody is told on the screen; standard error has a line."""
        told = (self.root / "stderr").stat().st_size
        self.sell_one(station)
        self.assertEqual(self.list(), before)
        self.assertIn(b"Vintoral.EXT", (self.root / "stderr").read_bytes()[told:])

    def assertNothingStray(self):
        self.assertEqual([file.name for file in (self.folder / "Recursos").iterdir() if file.name.startswith(".")], [])


class Damaged(Sales):
    def test_cut_anywhere(self):
        station = self.selling()
        lengths = {*range(1, 3 * LINE + 2), *range(LIST - LINE - 2, len(FULL) + 1),
                   *random.Random(SEED).sample(range(len(FULL)), 100)}
        for length in trouble.some(sorted(lengths)):
            with self.subTest(length=length):
                self.folder.write(EXT, FULL[:length])
                self.sell_one(station)
                whole = min(length, LIST) // LINE
                if length < LIST and length % LINE == LINE - 1:
                    whole += 1  # nothing but the byte left over is missing
                kept = FULL[:min(whole, LINES - 1) * LINE]
                blank = BLANK_LINE * (LINES - 1 - len(kept) // LINE)
                self.assertEqual(self.list(), NEW + kept + blank + FULL[LIST:length])

    def test_scrambled(self):
        station = self.selling()
        dice = random.Random(SEED)
        for round in trouble.some(range(60)):
            with self.subTest(round=round):
                noise = dice.randbytes(dice.choice((len(FULL), LIST, dice.randrange(1, len(FULL) + 1000))))
                self.folder.write(EXT, noise)
                self.sell_one(station)
                data = self.list()
                self.assertEqual(len(data), max(LIST, len(noise)))
                self.assertEqual(data[:LINE], NEW)
                whole = min(len(noise) // LINE, LINES - 1) * LINE
                self.assertEqual(data[LINE:LINE + whole], noise[:whole])
                self.assertEqual(data[LIST:], noise[LIST:])

    def test_a_folder_in_its_place(self):
        station = self.selling()
        (self.folder / EXT).unlink(missing_ok=True)
        (self.folder / EXT).mkdir()
        self.sell_one(station)
        self.assertEqual(list((self.folder / EXT).iterdir()), [])

    def test_a_list_that_is_a_link_stays_one(self):
        elsewhere = self.root / "elsewhere"
        elsewhere.write_bytes(FULL)
        station = self.selling()
        (self.folder / EXT).unlink(missing_ok=True)
        (self.folder / EXT).symlink_to(elsewhere)
        self.sell_one(station)
        self.assertTrue((self.folder / EXT).is_symlink())
        self.assertEqual(elsewhere.read_bytes(), NEW + FULL[:LIST - LINE] + LOCK)


class ReadOnly(Sales):
    def test_a_mark_that_can_be_cleared_is_cleared(self):
        station = self.selling()
        os.chmod(self.folder.write(EXT, FULL), stat.S_IRUSR)
        self.sell_one(station)
        self.assertEqual(self.list(), NEW + FULL[:LIST - LINE] + LOCK)

    def test_mounted_read_only(self):
        self.folder.write(EXT, FULL)
        target = str(self.folder / EXT)
        station = self.selling()
        trouble.mount("--bind", target, target)
        try:
            trouble.mount("-o", "remount,bind,ro", target)
            self.assertUnrecorded(station, FULL)
        finally:
            trouble.unmount(target)
        self.sell_one(station)
        self.assertEqual(self.list()[:2 * LINE], NEW + FULL[:LINE])

    def test_a_list_of_somebody_else(self):
        if os.getuid() != 0:
            self.skipTest("needs root")
        self.become_nobody()
        station = self.selling_as_nobody()
        os.chown(self.folder.write(EXT, FULL), 0, 0)
        os.chmod(self.folder / EXT, 0o644)
        self.assertUnrecorded(station, FULL)
        os.chmod(self.folder / EXT, 0o600)  # not even read
        self.assertUnrecorded(station, FULL)

    def selling_as_nobody(self):
        self.folder.write(EXT, FULL)
        (self.root / "P01-desktop").mkdir()
        self.give_away(self.root)
        station = self.selling()
        return station


class FullDisk(trouble.SmallDisk, Sales):
    PAGES = 512

    def test_without_room_the_list_stays_and_with_room_it_grows(self):
        self.folder.write(EXT, FULL)
        station = self.selling()
        needed = -(-len(FULL) // trouble.PAGE)
        for room in (0, 1, needed // 2, needed - 1):
            with self.subTest(room=room):
                self.fill(leave=room)
                self.assertUnrecorded(station, FULL)
                self.assertNothingStray()
        self.empty()
        self.sell_one(station)
        self.assertEqual(self.list(), NEW + FULL[:LIST - LINE] + LOCK)
        self.assertNothingStray()

    def test_a_list_that_is_not_there_yet(self):
        station = self.selling()
        (self.folder / EXT).unlink(missing_ok=True)
        self.fill()
        self.sell_one(station)
        self.assertFalse((self.folder / EXT).exists())
        self.empty()
        self.sell_one(station)
        self.assertEqual(self.list(), NEW + BLANK_LINE * (LINES - 1))


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
