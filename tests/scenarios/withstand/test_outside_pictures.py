"""An outside program's folder that holds anything: pictures come in, nothing else is moved, read through or waited for."""
import os
import time

import trouble
from station import ALT, CONTROL, INSERT

import photos
from cameras import ACT, DTL, USR, W, CameraDay, jpeg, numbered

GREEN, RED = (20, 110, 40), (120, 20, 20)
MANY = 10_000 if "VINTORAL_EVERY" not in os.environ else 1_000
SECONDS = 20  # for a folder that no gate sees in its life


class OutsidePictures(CameraDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        self.left = self.root / "Camera Roll"
        self.left.mkdir()
        self.outside = self.root / "outside"
        self.outside.mkdir()

    def gate(self):
        return self.running(cameras=[], pictures=str(self.root))

    def save(self, gate, number, plate):
        began = time.monotonic()
        self.assertTrue(self.try_save(gate, number, plate))
        return time.monotonic() - began

    def test_links(self):
        """To a picture, to a folder, to nothing, to itself: a link stays where it is, and so does what it leads to."""
        (self.outside / "picture.jpg").write_bytes(jpeg(RED))
        (self.outside / "folder").mkdir()
        (self.outside / "folder/inner.jpg").write_bytes(jpeg(RED))
        links = {"a.jpg": self.outside / "picture.jpg", "b.jpg": self.outside / "folder", "c.jpg": self.outside / "missing",
                 "d.jpg": self.left / "d.jpg", "y.jpg": self.folder / "Multimedia/Vintoral.ACT", "z.jpg": "/dev/zero"}
        for name, target in links.items():
            (self.left / name).symlink_to(target)
        (self.left / "m.jpg").write_bytes(jpeg(GREEN))
        gate = self.gate()
        self.save(gate, 7, "ABC")
        self.assertEqual(sorted(os.listdir(self.left)), sorted(links))
        self.assertTrue(all((self.left / name).is_symlink() for name in links))
        self.assertEqual(sorted(path.name for path in self.outside.rglob("*")), ["folder", "inner.jpg", "picture.jpg"])
        self.assertEqual(self.there(ACT, DTL), ["ACT/000007.jpg", "DTL/ABC0007", "DTL/ABC0007/0007-0.jpg"])
        self.assertColor(self.color(numbered(ACT, 7)), GREEN)

    def test_nothing_but_links(self):
        (self.outside / "picture.jpg").write_bytes(jpeg(RED))
        (self.left / "a.jpg").symlink_to(self.outside / "picture.jpg")
        gate = self.gate()
        self.save(gate, 7, "ABC")
        self.assertEqual(self.there(), [])
        self.assertTrue((self.outside / "picture.jpg").exists())

    def test_no_pictures(self):
        """Queues and folders with the name of a picture, and other files."""
        os.mkfifo(self.left / "queue.jpg")
        (self.left / "folder.jpg").mkdir()
        for name in ("film.mp4", "picture.jpg.part", "jpg", ".jpg.swp", "thumbs.db"):
            (self.left / name).write_bytes(b"other")
        before = sorted(os.listdir(self.left))
        gate = self.gate()
        self.assertLess(self.save(gate, 7, "ABC"), SECONDS)
        self.assertEqual((sorted(os.listdir(self.left)), self.there()), (before, []))

    def test_names_that_no_station_writes(self):
        """Bytes that are no text, blanks, another case, the longest name: a picture is a picture."""
        names = [b"\xff\xfe.jpg", " b .JPG".encode(), "ñandú.jpeg".encode(), b"n" * 251 + b".jpg"]
        for name in names:
            with open(os.path.join(os.fsencode(self.left), name), "wb") as file:
                file.write(jpeg(GREEN))
        gate = self.gate()
        self.save(gate, 7, "ABC")
        left = os.listdir(os.fsencode(self.left))
        self.assertEqual(self.there(ACT), ["ACT/000007.jpg"])
        taken = [name for name in self.there(DTL) if name.endswith(".jpg")]
        self.assertEqual(len(taken) + len(left), len(names))
        self.assertGreaterEqual(len(taken), 3)

    def test_files_named_as_pictures(self):
        """They come in as the program left them; the grid finds out, and work goes on."""
        for name, data in (("a.jpg", b""), ("b.jpg", b"no picture"), ("c.jpg", bytes(1 << 20))):
            (self.left / name).write_bytes(data)
        gate = self.gate()
        self.save(gate, 7, "ABC")
        self.assertEqual(os.listdir(self.left), [])
        gate.key(113)
        gate.key(113)
        self.assertFalse(gate.get("ImgFicha(0)")["Picture"])
        (self.left / "d.jpg").write_bytes(jpeg(GREEN))
        self.save(gate, 8, "DEF")
        self.assertColor(self.color(numbered(ACT, 8)), GREEN)

    def test_forty_megapixels(self):
        data = photos.photo(8000, 5000, components=3)
        (self.left / "a.jpg").write_bytes(data)
        gate = self.gate()
        self.assertLess(self.save(gate, 7, "ABC"), SECONDS)
        self.assertEqual((self.folder / numbered(ACT, 7)).read_bytes(), data)
        self.assertEqual((self.folder / numbered(USR, 1)).read_bytes(), data)
        gate.call_up(7)
        self.assertTrue(gate.get("Picture2")["Picture"])

    def test_ten_thousand(self):
        for number in range(MANY):
            (self.left / f"{number:05}.jpg").write_bytes(b"%d" % number)
        # The last one is shown in the grid, which deletes what is no picture.
        last = jpeg(GREEN)
        (self.left / f"{MANY - 1:05}.jpg").write_bytes(last)
        gate = self.gate()
        self.assertLess(self.save(gate, 7, "ABC"), SECONDS)
        self.assertEqual((os.listdir(self.left), len(list((self.folder / DTL / "ABC0007").iterdir()))), ([], MANY))
        for name, number in (("0007-1", 0), (f"0007-{MANY - 1}", MANY - 2)):
            self.assertEqual((self.folder / DTL / f"ABC0007/{name}.jpg").read_bytes(), b"%d" % number)
        self.assertEqual((self.folder / DTL / "ABC0007/0007-0.jpg").read_bytes(), last)
        self.assertEqual((self.folder / numbered(ACT, 7)).read_bytes(), last)
        self.assertEqual(self.folder.slot(7).EnUso, -1)

    def test_the_folder_goes_under_the_question(self):
        (self.left / "a.jpg").write_bytes(jpeg(GREEN))
        gate = self.gate()
        gate.fill(7, "ABC")
        gate.key(INSERT)
        self.left.rename(self.root / "away")
        gate.answer("yes")
        self.assertEqual((self.folder.slot(7).EnUso, self.there()), (-1, []))
        (self.root / "away").rename(self.left)
        self.save(gate, 8, "DEF")
        self.assertColor(self.color(numbered(ACT, 8)), GREEN)

    def test_a_folder_that_must_not_be_changed(self):
        """Its pictures are read but can't be moved: they are nobody's, or each further ficha would have the same one."""
        if os.getuid() == 0:
            self.become_nobody()
        (self.left / "a.jpg").write_bytes(jpeg(GREEN))
        self.left.chmod(0o555)
        (self.root / "P01-desktop").mkdir()
        self.folder.path.mkdir()
        self.give_away(self.folder.path)
        self.give_away(self.root / "P01-desktop")
        gate = self.gate()
        self.save(gate, 7, "ABC")
        self.left.chmod(0o755)
        self.assertEqual((self.folder.slot(7).EnUso, (self.folder / numbered(ACT, 7)).exists()), (-1, False))
        self.assertEqual(os.listdir(self.left), ["a.jpg"])

    def test_with_a_camera_it_is_not_looked_at(self):
        (self.left / "a.jpg").write_bytes(jpeg(GREEN))
        gate = self.filming(RED, pictures=str(self.root))
        self.save(gate, 7, "ABC")
        self.assertColor(self.color(numbered(ACT, 7)), RED)
        self.assertEqual(os.listdir(self.left), ["a.jpg"])
        gate.key(W, CONTROL | ALT)
        self.save(gate, 8, "DEF")
        self.assertColor(self.color(numbered(ACT, 8)), GREEN)


if __name__ == "__main__":
    trouble.station.main()
