"""A disk that fills to its last byte at some moment of the day: what was confirmed stays, and nothing is half written."""
import ctypes
import itertools
import unittest

import trouble
from trouble import PAGE
from station import (ACT_LENGTH, BLANK, CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, INSERT, RECORD, Folder, fresh_register, inside,
                     stamp)

ENTRY = stamp("08:00", "20/11/2026")
KEEP_SIZE, PUNCH_HOLE = 1, 2
LIBC = ctypes.CDLL(None, use_errno=True)


def make_sparse(path, at, length):
    """Gives the pages there back to the disk, as tools that copy sparsely do; they read as zeros."""
    with open(path, "r+b") as file:
        if LIBC.fallocate(file.fileno(), KEEP_SIZE | PUNCH_HOLE, ctypes.c_long(at), ctypes.c_long(length)) != 0:
            raise OSError(ctypes.get_errno(), "can't punch a hole")


class FullDisk(trouble.SmallDisk):
    def gate(self, *fichas):
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*fichas))
        gate = self.running()
        self.grow_history_to_the_end_of_its_pages()
        return gate

    def grow_history_to_the_end_of_its_pages(self):
        """A history whose next row begins in one page and ends in another, so that the row needs a page of the disk."""
        rows = next(n for n in itertools.count(1) if n * RECORD.size // PAGE != (n + 1) * RECORD.size // PAGE)
        row = inside(1, ENTRY, "OLD")._replace(MarcaSalida=ENTRY, PorteriaSalida="01")
        self.folder.write("Multimedia/Vintoral.HST",
                          BLANK.encode() + b"".join(row._replace(Posicion=n).encode() for n in range(2, rows + 1)))
        self.old = rows - 1

    def assertNothingStray(self):
        """No half-made file stands beside the others."""
        names = [file.name for file in (*self.folder.shared.iterdir(), *(self.folder / "Recursos").iterdir(),
                                        *(self.folder / "Objetos").iterdir())]
        self.assertEqual([name for name in names if name.startswith(".") or "tmp" in name or "nuevo" in name], [])

    def test_a_start_with_any_room(self):
        """With room for so many pages and no more, a first start ends with its box or runs; later starts heal it."""
        ran = ended = 0
        for room in range(0, 70):
            with self.subTest(room=room):
                folder = Folder(self.disk / f"G{room}")
                folder.path.mkdir()
                self.fill(leave=room)
                with self.process() as gate:
                    self.start(gate, folder)
                    if gate.box["title"] == "Vintoral - BIENVENIDO":
                        gate.answer("ok")
                    if gate.box is not None:
                        self.assertEqual((gate.box["title"], gate.box["icon"]), ("Vintoral - Imposible Continuar", "critical"))
                        gate.answer("ok")
                        self.assertTrue(self.ended(gate))
                        ended += 1
                    else:
                        ran += 1
                        gate.advance(3000)
                        self.assertBars(gate, 0xC0FFC0)
                        self.assertEqual((folder / "Multimedia/Vintoral.ACT").stat().st_size, ACT_LENGTH)
                        self.assertTrue(self.try_close(gate))
                self.empty()
                with self.process() as gate:
                    self.start(gate, folder)
                    self.answer_all(gate, "ok")
                    gate.advance(3000)
                    self.assertEqual((folder / "Multimedia/Vintoral.ACT").read_bytes(), fresh_register())
                    self.assertTrue(self.try_save(gate, 9, "HEALED"))
                    self.assertTrue(self.try_retire(gate, 9))
                    self.assertEqual([row.Placa for row in folder.history()], ["HEALED"])
                    self.assertTrue(self.try_close(gate))
                    self.legal(folder)
                    self.assertEqual((folder / "Recursos/Vintoral.DAT").stat().st_size, 16 * 46)
                for file in sorted(folder.path.rglob("*"), reverse=True):
                    file.rmdir() if file.is_dir() else file.unlink()
        self.assertGreater(ran, 5)
        self.assertGreater(ended, 5)

    def test_full_before_any_step_of_a_departure(self):
        steps = ("call up", "ask", "answer")
        for number, full_at in enumerate(steps, start=11):
            with self.subTest(full_at=full_at):
                gate = self.gate(inside(number, ENTRY, f"IN{number}"))
                with gate:
                    for step in steps:
                        if step == full_at:
                            self.fill()
                        if step == "call up":
                            gate.call_up(number)
                        elif step == "ask":
                            gate.key(DELETE)
                            self.assertBox(gate, CONFIRM_RETIRE)
                        else:
                            gate.answer("yes")
                    self.assertEqual(self.folder.slot(number), inside(number, ENTRY, f"IN{number}"))
                    self.assertEqual(len(self.folder.history()), self.old)
                    self.assertOnDisplay(gate, number)  # so the operator sees that it is not done
                    self.empty()
                    gate.key(DELETE)
                    gate.answer("yes")
                    self.assertIdle(gate)
                rows = self.folder.history()
                self.assertEqual((len(rows), rows[-1].Placa), (self.old + 1, f"IN{number}"))
                self.assertEqual(self.folder.slot(number).EnUso, 0)
                self.legal(self.folder)

    def test_departures_until_no_row_fits(self):
        """Room for one more page of history: rows go there until it is full, and the others stay inside."""
        numbers = range(100, 140)
        gate = self.gate(*(inside(number, ENTRY, f"IN{number}") for number in numbers))
        self.fill(leave=1)
        taken = [number for number in numbers if self.try_retire(gate, number)]
        rows = self.folder.history()[self.old:]
        self.assertEqual([row.Placa for row in rows], [f"IN{number}" for number in taken])
        fits = ((self.old + 1) * RECORD.size // PAGE + 2) * PAGE // RECORD.size - (self.old + 1)
        self.assertEqual(len(taken), fits)
        for number in numbers:
            self.assertEqual(self.folder.slot(number).EnUso, 0 if number in taken else -1)

    def test_a_save_on_a_full_disk_is_made(self):
        """A slot has its place since the register was made."""
        gate = self.gate()
        self.fill()
        for number in (1, 22, 500, 1000):
            self.assertTrue(self.try_save(gate, number, f"S{number}"))
            self.assertEqual((self.folder.slot(number).EnUso, self.folder.slot(number).Placa), (-1, f"S{number}"))
        self.legal(self.folder)

    def test_a_save_into_a_hole_is_whole_or_not_there(self):
        """Slots of a sparse register, the ones that lie across the edge of a hole among them."""
        across = [at // RECORD.size + 1 for at in range(PAGE, 40 * PAGE, PAGE) if at % RECORD.size]
        for number in across[:12]:
            for hole_before in (True, False):
                with self.subTest(number=number, hole_before=hole_before):
                    self.empty()
                    gate = self.gate()
                    edge = number * RECORD.size // PAGE * PAGE
                    make_sparse(self.folder.shared / "Vintoral.ACT", edge - PAGE if hole_before else edge, PAGE)
                    before = (self.folder.shared / "Vintoral.ACT").read_bytes()
                    self.fill()
                    with gate:
                        gate.fill(number, "HOLE")
                        gate.key(INSERT)
                        self.assertBox(gate, CONFIRM_SAVE)
                        gate.answer("yes")
                    after = (self.folder.shared / "Vintoral.ACT").read_bytes()
                    self.assertEqual(after, before, "something was written where no whole record fits")

    def test_closing_keeps_labels_and_screen_state(self):
        """What closing stores on a full disk is the old or the new, and the next start reads it."""
        for store in ("none", "LBL", "DAT", "both"):
            with self.subTest(missing=store):
                self.empty()
                with self.gate() as gate:
                    self.assertTrue(self.try_close(gate))
                labels, screen = self.folder / "Multimedia/Vintoral.LBL", self.folder / "Recursos/Vintoral.DAT"
                old = labels.read_bytes(), screen.read_bytes()
                if store in ("LBL", "both"):
                    labels.unlink()
                if store in ("DAT", "both"):
                    screen.unlink()
                with self.running() as gate:
                    self.fill()
                    self.assertTrue(self.try_close(gate))
                for file, data, name in zip((labels, screen), old, ("LBL", "DAT")):
                    # One that was not there yet may have got its name, and no room.
                    self.assertIn(file.read_bytes(), (data, b"") if store in (name, "both") else (data,))
                self.assertNothingStray()
                self.empty()
                with self.running() as gate:
                    self.assertTrue(self.try_close(gate))
                self.assertEqual((labels.read_bytes(), screen.read_bytes()), old)

    def test_two_gates_on_the_last_rows(self):
        """Room for some rows, which two gates use up between them: each row is one ficha that left, all others stay."""
        numbers = range(200, 240)
        first = self.gate(*(inside(number, ENTRY, f"IN{number}") for number in numbers))
        other = Folder(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second = self.running(other)
        self.fill(leave=1)
        taken = [number for number in numbers if self.try_retire((first, second)[number % 2], number)]
        rows = self.folder.history()[self.old:]
        self.assertEqual([row.Placa for row in rows], [f"IN{number}" for number in taken])
        self.assertEqual([number for number in numbers if self.folder.slot(number).EnUso == 0], taken)
        self.assertLess(len(taken), len(numbers))


if __name__ == "__main__":
    trouble.own_mounts()
    unittest.TestCase.maxDiff = 300
    trouble.station.main()
