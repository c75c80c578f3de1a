"""Plates that no file name may hold: their photos get a folder that is found again, and nothing beside it is touched."""
import os

import trouble
from station import ALT, CONTROL, DELETE, ENTER, ESC, INSERT

from cameras import DTL, MORE, W, CameraDay, jpeg

BROWN = (90, 60, 30)
# The folder of ficha 7, worked out by hand: capitals, no blanks at the ends, an underscore for what can't be in a name. What
# is no text at all does not get into the field.
PLATES = {"/": "_0007", "\\": "_0007", ":": "_0007", "*": "_0007", "?": "_0007", "..": "..0007", ".": ".0007",
          "a/../../b": "A_.._.._B0007", "..\\..\\b": ".._.._B0007", "../": ".._0007", "/etc/x": "_ETC_X0007",
          "blank ": "BLANK0007", " blank": "BLANK0007", 'a"<>|b': "A____B0007", "c:\\x": "C__X0007", "~": "~0007",
          "tab\tbed": "TABBED0007", "a\u0001b": "AB0007", "$(x)`": "$(X)`0007", "ñ€": "Ñ€0007", "車": None,
          "..." + "/" * 17: "..." + "_" * 17 + "0007"}


class Plates(CameraDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        # Where a plate that leads upwards would come out, and what it would find there.
        for way in ("", "Multimedia/", "Multimedia/Imágenes DTL/A/", "Multimedia/Imágenes DTL/", "Multimedia/Imágenes ACT/"):
            for name in ("B0007", "0007", "X0007", "etc/X0007", "b0007"):
                self.folder.write(f"{way}{name}/0007-1.jpg", b"canary")
                self.folder.write(f"{way}{name}/0007-0.jpg", b"canary")

    def tree(self):
        """All below the test's folder: a file by its bytes, a folder by None, but for what a station writes every day."""
        found = {}
        for folder, folders, files in os.walk(self.root):
            for name in folders:
                found[os.path.relpath(os.path.join(folder, name), self.root)] = None
            for name in files:
                path = os.path.join(folder, name)
                with open(path, "rb") as file:
                    found[os.path.relpath(path, self.root)] = file.read()
        return {path: data for path, data in found.items() if not self.is_daily(path)}

    @staticmethod
    def is_daily(path):
        registers = path.startswith("P01/Multimedia/Vintoral.") or path.startswith("P01/Recursos/Vintoral.")
        photos = any(path.startswith(f"P01/Multimedia/Imágenes {name}/0000") for name in ("ACT", "HST", "USR", "INI"))
        return registers or photos or path in ("stderr", "P01/Objetos/Retencion.INI") or path.startswith("frame")

    def changed(self, before):
        """The paths below the folder of additional photos that came or went since; nothing else may."""
        after, base = self.tree(), f"P01/{DTL}/"
        paths = {path for path in before.keys() | after.keys() if before.get(path, 0) != after.get(path, 0)}
        self.assertEqual([path for path in paths if not path.startswith(base)], [])
        return sorted(path.removeprefix(base) for path in paths)

    def typed(self, gate, plate):
        gate.call_up(7)
        gate.set("TxtCampo(1)", plate)
        gate.focus("TxtCampo(1)")
        gate.key(ENTER)

    def assertOneFolder(self, changed, name, *files):
        if name is None:  # a letter that a plate can't hold may be any other
            name = changed[0].split("/")[0]
        self.assertEqual(changed, [name, *(f"{name}/{file}" for file in files)])
        return name

    def test_from_the_form_to_the_history(self):
        for plate, name in PLATES.items():
            with self.subTest(plate=plate):
                gate = self.filming(BROWN)
                before = self.tree()
                self.typed(gate, plate)
                self.another(gate)
                self.assertOneFolder(self.changed(before), name, "0007-1.jpg")
                gate.key(ESC)
                self.assertEqual(self.changed(before), [])
                self.typed(gate, plate)
                self.another(gate)
                self.another(gate)
                gate.key(INSERT)
                gate.answer("yes")
                found = self.assertOneFolder(self.changed(before), name, "0007-1.jpg", "0007-2.jpg")
                gate.clock("2026-11-20 15:00:00")
                gate.advance(500)
                gate.call_up(7)
                self.assertEqual((gate.shown(MORE), gate.state("NumeroFotos")), (True, 2))
                gate.key(DELETE)
                gate.answer("yes")
                final = found.removesuffix("0007") + " P01 20-11-2026 150000"
                self.assertOneFolder(self.changed(before), final, "0007-1.jpg", "0007-2.jpg")
                gate.end()
                self.clean(final)

    def clean(self, final):
        for file in (self.folder / DTL / final).iterdir():
            file.unlink()
        (self.folder / DTL / final).rmdir()
        (self.folder / "Multimedia/Vintoral.USR").unlink(missing_ok=True)

    def test_pictures_of_an_outside_program(self):
        for plate, name in PLATES.items():
            with self.subTest(plate=plate):
                left = self.root / "Camera Roll"
                left.mkdir(exist_ok=True)
                gate = self.running(cameras=[], pictures=str(self.root))
                before = self.tree()
                for file in ("a.jpg", "b.jpg"):
                    (left / file).write_bytes(jpeg(BROWN))
                self.typed(gate, plate)
                gate.key(INSERT)
                gate.answer("yes")
                found = self.assertOneFolder(self.changed(before), name, "0007-0.jpg", "0007-1.jpg")
                gate.clock("2026-11-20 15:00:00")
                gate.advance(500)
                gate.retire(7)
                final = found.removesuffix("0007") + " P01 20-11-2026 150000"
                self.assertOneFolder(self.changed(before), final, "0007-0.jpg", "0007-1.jpg")
                gate.end()
                self.clean(final)

    def test_escape_at_a_folder_that_is_a_link(self):
        """Whoever can write to the shared folder can put a link under a ficha's name: what it leads to stays."""
        outside = self.root / "outside"
        outside.mkdir()
        for name in ("0007-1.jpg", "0007-0.jpg", "kept.txt"):
            (outside / name).write_bytes(b"kept")
        (self.folder / DTL / "ABC0007").symlink_to(outside)
        gate = self.filming(BROWN)
        self.typed(gate, "abc")
        self.another(gate)
        gate.key(ESC)
        self.assertEqual(sorted(os.listdir(outside)), ["0007-0.jpg", "0007-1.jpg", "kept.txt"])

    def test_a_ficha_with_a_link_leaves(self):
        outside = self.root / "outside"
        outside.mkdir()
        (outside / "0007-0.jpg").write_bytes(b"kept")
        (self.folder / DTL / "ABC0007").symlink_to(outside)
        gate = self.running()
        gate.save(7, "abc")
        gate.key(W, CONTROL | ALT)
        gate.retire(7)
        self.assertEqual((outside / "0007-0.jpg").read_bytes(), b"kept")


if __name__ == "__main__":
    trouble.station.main()
