"""A gate without a camera of its own: what an outside program leaves in its folder comes in with the next ficha."""
import os

from cameras import ACT, ALT, APP, CONTROL, DTL, HST, INI, OFF, USR, W, CameraDay, jpeg, numbered
from station import CAMERA, ESC, INSERT, RIGHT, Folder, kinds, launches, main, sounds, user

COLORS = [(200, 20, 20), (20, 200, 20), (20, 20, 200), (180, 180, 20)]
STORED = (90, 60, 30)


class OutsideDay(CameraDay):
    def setUp(self):
        super().setUp()
        self.left = self.root / "Camera Roll"

    def leave(self, *names, folder=None):
        """The outside program leaves these pictures, each of a colour of its own."""
        folder = folder or self.left
        folder.mkdir(exist_ok=True)
        for name, color in zip(names, COLORS):
            (folder / name).write_bytes(jpeg(color))

    def gate(self, **options):
        return self.running(cameras=[], pictures=str(self.root), **options)

    def known(self, memory=False, **options):
        """A gate where ABC, the first of two users, has a photo."""
        self.folder.write(numbered(USR, 1), jpeg(STORED))
        gate = self.with_fichas(users=[user("ABC"), user("LAST")], cameras=[], pictures=str(self.root), **options)
        if memory:
            self.remember_faces(gate)
        return gate

    def waiting(self):
        return sorted(os.listdir(self.left))


class Settings(OutsideDay):
    def configured(self, text):
        self.folder.write(APP, text)
        return self.gate()

    def paths(self, gate):
        state = gate.state()
        return state["RutaAppCamera"], state["RutaFotosApp"]

    def test_by_default(self):
        self.leave()
        gate = self.gate()
        self.assertEqual(self.paths(gate), (f"{self.folder.path}\\Objetos\\AppCamera.lnk", f"{self.root}\\Camera Roll"))
        self.assertEqual(launches(gate.click("PctAppCamera")), [f"Explorer.exe {self.folder.path}\\Objetos\\AppCamera.lnk"])
        self.left.rmdir()
        reply = gate.click("PctAppCamera")
        self.assertEqual((kinds(reply), launches(reply)), (["beep"], []))

    def test_what_the_file_says(self):
        other = self.root / "Señales"
        other.mkdir()
        gate = self.configured(f"[DIRAPP]\r\n  shell:cámara  \r\n[DIRPIC]\r\n {other} \r\n".encode())
        self.assertEqual(self.paths(gate), ("shell:cámara", str(other)))
        self.assertEqual(launches(gate.click("PctAppCamera")), ["Explorer.exe shell:cámara"])
        self.leave("1.jpg", folder=other)
        gate.save(7, "abc")
        self.assertColor(self.color(numbered(ACT, 7)), COLORS[0])

    def test_each_falls_back_alone(self):
        default = f"{self.folder.path}\\Objetos\\AppCamera.lnk", f"{self.root}\\Camera Roll"
        missing = str(self.root / "missing")
        for text, expected in ((f"[DIRAPP]\r\nx.lnk\r\n[DIRPIC]\r\n{missing}\r\n", ("x.lnk", default[1])),
                               (f"[DIRAPP]\r\n\r\n[DIRPIC]\r\n{self.root}\r\n", (default[0], str(self.root))),
                               ("[DIRAPP]\r\nx.lnk", ("x.lnk", default[1])), ("", default), ("[DIRAPP]\n\n[DIRPIC]", default)):
            with self.subTest(text=text):
                gate = self.configured(text.encode())
                self.assertEqual(self.paths(gate), expected)
                self.assertEqual((self.folder / APP).read_bytes(), text.encode())
                gate.end()


class Importing(OutsideDay):
    def test_nothing_there(self):
        for step in (lambda: None, self.leave):
            step()
            gate = self.gate()
            self.assertEqual(sounds(gate.save(7, "abc")), [])
            self.assertEqual((self.folder.slot(7).EnUso, self.there(), gate.state("RutaFotoFicha")), (-1, [], ""))
            gate.retire(7)
            gate.end()
            (self.folder / "Multimedia/Vintoral.USR").unlink()

    def test_one_is_the_main_picture(self):
        gate = self.gate()
        self.leave("a.jpg")
        data = (self.left / "a.jpg").read_bytes()
        gate.fill(7, "abc")
        gate.key(INSERT)
        self.assertEqual(self.waiting(), ["a.jpg"])
        self.assertEqual(sounds(gate.answer("yes")), [])
        self.assertEqual(self.there(), ["ACT/000007.jpg", "DTL/ABC0007", "DTL/ABC0007/0007-0.jpg", "INI/000001.jpg",
                                        "USR/000001.jpg"])
        for name in self.there():
            if name.endswith(".jpg"):
                self.assertEqual((self.folder / f"Multimedia/Imágenes {name}").read_bytes(), data, name)
        self.assertEqual(self.waiting(), [])
        self.assertTrue(gate.state("RutaFotoFicha").endswith("Imágenes ACT\\000007.jpg"))

    def test_three(self):
        """All but the last are additional; the list has its own order."""
        gate = self.gate()
        self.leave("b.JPG", "A.jpg", "c.jpeg")
        gate.save(7, "abc")
        self.assertEqual(self.there(), ["ACT/000007.jpg", "DTL/ABC0007", "DTL/ABC0007/0007-0.jpg", "DTL/ABC0007/0007-1.jpg",
                                        "DTL/ABC0007/0007-2.jpg", "INI/000001.jpg", "USR/000001.jpg"])
        for name, color in (("0", COLORS[2]), ("1", COLORS[1]), ("2", COLORS[0])):
            self.assertColor(self.color(f"{DTL}/ABC0007/0007-{name}.jpg"), color)
        self.assertColor(self.color(numbered(ACT, 7)), COLORS[2])
        self.assertEqual(self.waiting(), [])

    def test_no_leaves_them(self):
        gate = self.gate()
        self.leave("a.jpg")
        gate.fill(7, "abc")
        gate.key(INSERT)
        gate.answer("no")
        self.assertEqual((self.waiting(), self.there()), (["a.jpg"], []))

    def test_a_known_user_comes_in_under_his_photo(self):
        for count in (1, 3):
            with self.subTest(count=count):
                gate = self.known()
                self.leave(*("a.jpg", "b.jpg", "c.jpg")[:count])
                gate.save(7, "abc")
                self.assertColor(self.color(numbered(ACT, 7)), STORED)
                self.assertColor(self.color(numbered(USR, 1)), STORED)
                self.assertEqual(self.there(DTL, INI), ["DTL/ABC0007", *(f"DTL/ABC0007/0007-{number}.jpg"
                                                                         for number in range(1, count + 1))])
                self.assertColor(self.color(f"{DTL}/ABC0007/0007-{count}.jpg"), COLORS[count - 1])
                gate.retire(7)
                gate.end()
                for path in (self.folder / DTL).iterdir():
                    path.rename(self.root / f"past{count}")
                (self.folder / "Multimedia/Vintoral.HST").unlink()

    def test_with_faces_remembered_by_the_new_one(self):
        gate = self.known(memory=True)
        self.leave("a.jpg", "b.jpg")
        gate.save(7, "abc")
        self.assertColor(self.color(numbered(ACT, 7)), COLORS[1])
        self.assertColor(self.color(numbered(USR, 1)), COLORS[1])
        self.assertEqual(self.there(DTL), ["DTL/ABC0007", "DTL/ABC0007/0007-0.jpg", "DTL/ABC0007/0007-1.jpg"])

    def test_what_is_no_picture_stays(self):
        gate = self.gate()
        self.leave("a.jpg")
        (self.left / "film.mp4").write_bytes(b"film")
        (self.left / "thumbs.db").write_bytes(b"")
        (self.left / "folder.jpg").mkdir()
        (self.left / "folder.jpg/inner.jpg").write_bytes(b"inner")
        gate.save(7, "abc")
        self.assertEqual(self.waiting(), ["film.mp4", "folder.jpg", "thumbs.db"])
        self.assertTrue((self.left / "folder.jpg/inner.jpg").exists())
        self.assertEqual(self.there(ACT, DTL), ["ACT/000007.jpg", "DTL/ABC0007", "DTL/ABC0007/0007-0.jpg"])

    def test_a_connected_gate_keeps_the_further_ones_in_its_own_folder(self):
        """The main picture lies where every gate finds it."""
        main_gate = self.running()
        second = self.second_gate(cameras=[], pictures=str(self.root))
        self.leave("a.jpg", "b.jpg")
        second.save(507, "abc")
        self.assertEqual(self.there(ACT, DTL), ["ACT/000507.jpg"])
        own = Folder(self.root / "P02") / DTL
        self.assertEqual(sorted(path.name for path in own.rglob("*.jpg")), ["0507-0.jpg", "0507-1.jpg"])
        self.assertTrue(main_gate.get("ImgFicha(0)") is not None)


class Afterwards(OutsideDay):
    def came_in(self, *names):
        gate = self.gate()
        self.leave(*names)
        gate.save(7, "abc")
        return gate

    def test_they_are_turned_over(self):
        gate = self.came_in("a.jpg", "b.jpg", "c.jpg")
        gate.call_up(7)
        self.assertEqual((gate.state("NumeroFotos"), gate.shown("ImgIndicador(3)")), (2, True))
        self.assertEqual([gate.shown(name) for name in ("Picture2", "PctAppCamera")], [True, False])
        gate.key(RIGHT)
        self.assertTrue(gate.get("Picture2")["Picture"])
        gate.key(ESC)
        self.assertEqual([gate.shown(name) for name in ("Picture1", "Picture2", "PctAppCamera")], [False, False, True])

    def test_a_row_of_them_gets_its_final_name(self):
        gate = self.came_in("a.jpg", "b.jpg")
        gate.clock("2026-11-20 15:30:00")
        gate.advance(500)
        gate.retire(7)
        named = "DTL/ABC P01 20-11-2026 153000"
        self.assertEqual(self.there(DTL, HST), [named, f"{named}/0007-0.jpg", f"{named}/0007-1.jpg"])

    def test_the_copy_of_the_main_picture_alone_goes(self):
        gate = self.came_in("a.jpg")
        self.assertEqual(self.there(DTL), ["DTL/ABC0007", "DTL/ABC0007/0007-0.jpg"])
        gate.retire(7)
        self.assertEqual(self.there(DTL, HST), [])

    def test_a_camera_that_comes_takes_over(self):
        gate = self.came_in("a.jpg")
        gate.do("devices", cameras=[CAMERA])
        gate.advance(10000)
        self.assertFalse(gate.shown(OFF))
        self.film(gate, STORED)
        self.leave("b.jpg")
        gate.save(8, "def")
        self.assertColor(self.color(numbered(ACT, 8)), STORED)
        self.assertEqual(self.waiting(), ["b.jpg"])
        gate.key(W, CONTROL | ALT)
        gate.save(9, "ghi")
        self.assertColor(self.color(numbered(ACT, 9)), COLORS[0])
        self.assertEqual(self.waiting(), [])


if __name__ == "__main__":
    main()
