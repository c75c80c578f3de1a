"""Folders of photos that are gone, in the way, closed to writing or on a full disk: the fichas go on, photos are whole or none."""
import os
import random

import trouble
from trouble import PAGE
from station import ACT_LENGTH, CAMERA, CONTROL, ENTER, INSERT

from cameras import ACT, DTL, HST, INI, USR, A, CameraDay, bmp, is_whole, numbered

BROWN, GREEN = (90, 60, 30), (20, 110, 40)
FOLDERS = (ACT, HST, USR, INI, DTL)
SEED = 4711


class Trouble(CameraDay, trouble.Trouble):
    def one_day(self, gate, number, plate):
        """A ficha with an additional photo comes in and leaves; it does both whatever becomes of its photos."""
        gate.call_up(number)
        gate.set("TxtCampo(1)", plate)
        gate.focus("TxtCampo(1)")
        gate.key(ENTER)
        gate.key(A, CONTROL)
        gate.advance(1000)
        gate.key(INSERT)
        gate.answer("yes")
        self.assertIsNone(gate.reply["waiting"])
        self.assertEqual((self.folder.slot(number).EnUso, self.folder.slot(number).Placa), (-1, plate))
        rows = len(self.folder.history())
        gate.retire(number)
        self.assertIsNone(gate.reply["waiting"])
        self.assertEqual([row.Placa for row in self.folder.history()[rows:]], [plate])

    def assertWorks(self, gate, number, plate):
        """Entry photo, additional one and exit photo, all of them."""
        self.film(gate, GREEN)
        before = self.there(HST, DTL)
        self.one_day(gate, number, plate)
        new = sorted(set(self.there(HST, DTL)) - set(before))
        self.assertEqual([name.rsplit("/", 1)[1] for name in new if name.endswith(".jpg")],
                         [f"{number:04}-1.jpg", f"{len(self.folder.history()) + 1:06}.jpg"])
        self.assertTrue(is_whole((self.folder / numbered(HST, len(self.folder.history()) + 1)).read_bytes()))

    def stray(self):
        return [str(path) for path in self.folder.shared.rglob("*") if path.name.startswith(".") or "nuevo" in path.name]


class Gone(Trouble):
    def test_each_alone_and_back(self):
        gate = self.filming(BROWN)
        for number, name in enumerate(FOLDERS, start=1):
            with self.subTest(folder=name):
                away = (self.folder / name).rename(self.root / "away")
                self.one_day(gate, number, f"GONE{number}")
                if (self.folder / name).exists():  # made anew
                    (self.folder / name).rename(self.root / f"new{number}")
                away.rename(self.folder / name)
                self.assertWorks(gate, 100 + number, f"BACK{number}")

    def test_all_at_once(self):
        gate = self.filming(BROWN)
        for name in FOLDERS:
            (self.folder / name).rmdir()
        self.one_day(gate, 7, "ABC")
        gate.close()
        gate = self.filming(BROWN)
        self.assertWorks(gate, 8, "DEF")

    def test_files_in_their_place(self):
        gate = self.filming(BROWN)
        for name in FOLDERS:
            (self.folder / name).rmdir()
            self.folder.write(name, b"in the way")
        self.one_day(gate, 7, "ABC")
        self.assertEqual([(self.folder / name).read_bytes() for name in FOLDERS], [b"in the way"] * 5)

    def test_folders_in_the_place_of_photos(self):
        names = [numbered(ACT, 7), numbered(HST, 2), numbered(USR, 1), numbered(INI, 1), f"{DTL}/ABC0007/0007-1.jpg"]
        for name in names:
            self.folder.write(f"{name}/inner.txt", b"kept")
        gate = self.filming(BROWN)
        self.one_day(gate, 7, "ABC")
        for name in names[:4]:
            self.assertEqual((self.folder / name / "inner.txt").read_bytes(), b"kept")
        self.assertWorks(gate, 8, "DEF")


class ReadOnly(Trouble):
    def gate(self):
        if os.getuid() == 0:
            self.become_nobody()
        (self.root / "P01-desktop").mkdir()
        for name in FOLDERS:
            (self.folder / name).mkdir(parents=True)
        for path in (self.folder.path, self.root / "P01-desktop"):
            self.give_away(path)
        return self.filming(BROWN)

    def test_and_open_again(self):
        gate = self.gate()
        for name in FOLDERS:
            (self.folder / name).chmod(0o555)
        self.one_day(gate, 7, "ABC")
        self.assertEqual(self.there(), [])
        for name in FOLDERS:
            (self.folder / name).chmod(0o755)
        self.assertWorks(gate, 8, "DEF")

    def test_what_lies_there_stays(self):
        """A photo that can't be deleted is still there, and the ficha has left all the same."""
        gate = self.gate()
        gate.save(7, "ABC")
        before = self.there()
        self.assertEqual(before, ["ACT/000007.jpg", "INI/000001.jpg", "USR/000001.jpg"])
        for name in FOLDERS:
            (self.folder / name).chmod(0o555)
        gate.retire(7)
        self.assertEqual((self.there(), len(self.folder.history())), (before, 1))
        for name in FOLDERS:
            (self.folder / name).chmod(0o755)

    def test_files_that_are_marked_so(self):
        gate = self.gate()
        gate.save(7, "ABC")
        (self.folder / numbered(ACT, 7)).chmod(0o444)
        (self.folder / numbered(USR, 1)).chmod(0o444)
        gate.retire(7)
        self.assertEqual(self.there(ACT), [])
        self.film(gate, GREEN)
        self.remember_faces(gate)
        gate.save(8, "ABC")
        self.assertColor(self.color(numbered(USR, 1)), GREEN)


class FullDisk(trouble.SmallDisk, Trouble):
    PAGES = 512

    def busy(self):
        """A frame without any even ground: its photo takes many pages."""
        dice = random.Random(SEED)
        return bmp(320, 240, lambda x, y: dice.randbytes(3))

    def photos(self):
        """The names of all photos, of which none may be cut."""
        names = [name for name in self.there() if name.endswith(".jpg")]
        cut = [name for name in names if not is_whole((self.folder / f"Multimedia/Imágenes {name}").read_bytes())]
        self.assertEqual((cut, self.stray()), ([], []))
        return names

    def room_of_a_photo(self, gate):
        gate.save(999)
        length = (self.folder / numbered(ACT, 999)).stat().st_size
        gate.retire(999)
        (self.folder / numbered(HST, 2)).unlink()
        self.assertGreater(length, 5 * PAGE)
        return -(-length // PAGE)

    def test_any_room_at_the_entrance(self):
        """From none to enough for the additional photo, that of the entrance and the two of the user."""
        gate = self.running()
        gate.do("camera", name=CAMERA, frame=self.frame(self.busy()))
        size = self.room_of_a_photo(gate)
        seen = set()
        for room in range(0, 4 * size + 8, max(1, size // 5)):
            with self.subTest(room=room):
                self.fill(room)
                gate.fill(7, "ABC")
                gate.key(A, CONTROL)
                gate.advance(1000)
                gate.key(INSERT)
                self.answer_all(gate)
                seen.add(len(self.photos()))
                self.legal(self.folder, ACT_LENGTH)
                (self.disk / "filler").unlink()
                self.settle(gate)
                if self.folder.slot(7).EnUso:
                    gate.retire(7)
                self.assertFalse(self.folder.slot(7).EnUso)
                self.wipe()
        self.assertTrue({0, 1, 4} <= seen, seen)
        self.assertWorks(gate, 8, "DEF")

    def wipe(self):
        self.photos()
        for path in self.folder.shared.rglob("*.jpg"):
            path.unlink()
        for path in (self.folder / DTL).iterdir():
            path.rmdir()
        (self.folder / "Multimedia/Vintoral.USR").unlink(missing_ok=True)

    def test_any_room_at_the_exit(self):
        gate = self.running()
        gate.do("camera", name=CAMERA, frame=self.frame(self.busy()))
        size = self.room_of_a_photo(gate)
        seen = set()
        for room in range(0, size + 4):
            with self.subTest(room=room):
                gate.save(7)
                rows = len(self.folder.history())
                self.fill(room)
                gate.retire(7)
                self.answer_all(gate)
                self.photos()
                self.legal(self.folder, ACT_LENGTH)
                self.assertEqual(len(self.folder.history()), rows + 1)
                photo = numbered(HST, rows + 2)
                written = (self.folder / photo).exists()
                seen.add(written)
                # Without room for another one, the only photo of this stay is left where it is.
                self.assertEqual(self.there(ACT), [] if written else ["ACT/000007.jpg"])
                (self.disk / "filler").unlink()
                self.wipe()
        self.assertEqual(seen, {True, False})


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
