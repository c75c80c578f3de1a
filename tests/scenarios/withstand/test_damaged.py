"""Every register cut at every length, scrambled, replaced or read-only: the station starts, works and closes.

Whatever the damage, every operation is answered; and what the damage did not touch is still right: a ficha that is saved
or retired lands where the layouts say, and fichas beside it keep their bytes.
"""
import os
import stat

import trouble
from damage import DamagedFolder
from station import (ACT_LENGTH, BLANK, RECORD, Folder, ansi, fresh_register, inside, lines, mixed, mixed_value, screen_state,
                     stamp, user)
from trouble import some

ENTRY = stamp("08:15", "20/11/2026")
LEFT = stamp("09:15", "20/11/2026")
INSIDE = (2, 3, 999, 1000)
BARCODE = "barcode mode"

ACT, HST, NSR, CRD, USR, LBL = (f"Multimedia/Vintoral.{name}" for name in ("ACT", "HST", "NSR", "CRD", "USR", "LBL"))
DAT, DVS, EMP, XTR, RJE = (f"Recursos/Vintoral.{name}" for name in ("DAT", "DVS", "EMP", "XTR", "RJE"))
SERVER = "Objetos/Servidor.INI"


def departed(row, plate):
    return inside(row, ENTRY, plate)._replace(MarcaSalida=LEFT, PorteriaSalida="01", Posicion=row, ValorCobrado=6000 * 10000)


def intact():
    """The files of a station that has been at work, by name."""
    history = [BLANK] + [departed(row, f"GONE{row}") for row in (2, 3, 4)]
    return {
        ACT: fresh_register(*(inside(number, ENTRY, f"IN{number}") for number in INSIDE)),
        HST: b"".join(ficha.encode() for ficha in history),
        NSR: b"".join(ficha.encode() for ficha in history[:2]),
        CRD: b"".join(ficha.encode() for ficha in history[1:3]),
        USR: user("U1", "ANA", points=7) + user("U2", "LUIS", "ROA", "555", "VIP", "MOTO", 12),
        LBL: b"".join(ansi(text, 20) for text in ("NUMERO FICHA", "PLACA", "NOMBRE", "APELLIDO", "TELEFONO", "NOTA"))
             + b"\0\0" + b"\xff\xff" * 5,
        # A monitor that is on and has no minutes yet: closing stores the ones that it was given.
        DAT: screen_state(mixed(1, 0, 0, 30 * 10000, 0, 20), mixed(None, None),
                          [mixed("ABCDEFGHIJKL", "MNOPQRSTUVWX")] * 14),
        DVS: b"$\r\n",
        EMP: lines(" ", " AUTOMOVIL", " 1H = 6000", " ", " MOTO"),
        XTR: lines(" FOTOCOPIA = 100", " AGUA = 5000"),
        RJE: lines(" ", " 120 = 1000"),
    }


def strange_values():
    """State files whose self-describing fields lie about themselves."""
    for body in (b"\x08\x00\xff\x7f", b"\x08\x00\xff\xff", b"\x08\x00\x29\x00" + b"A" * 41, b"\x63\x00", b"\x02\x00\xff\x7f\x02",
                 mixed_value(-1) + mixed_value(-1) + b"\xff" * 14, mixed_value(3) + mixed_value("X" * 22), b"\x08\x00\x2a\x00" * 11):
        yield screen_state(body.ljust(46, b"\xee")[:46], body.ljust(46, b"\xdd")[:46], [body.ljust(46, b"\xcc")[:46]] * 14)


class Damaged(DamagedFolder):
    def intact(self):
        return intact()

    def day(self, folder):
        """Start, see, save number 7, retire number 2, close: the saving and the retiring, whether each was taken."""
        self.start(self.gate, folder)
        self.answer_all(self.gate, "ok")
        if self.ended(self.gate):
            return None
        self.gate.advance(3000)
        self.gate.do("view")
        self.gate.advance(8000)
        if not self.gate.get("TxtCampo(0)")["Enabled"]:
            # A damaged screen state may have turned the barcode mode on, in which no number is typed.
            self.assertTrue(self.try_close(self.gate))
            return BARCODE
        saved = self.try_save(self.gate, 7, "NEW7")
        self.try_call_up(self.gate, 3)
        self.gate.advance(1000)
        self.settle(self.gate)
        retired = self.try_retire(self.gate, 2)
        self.gate.state()
        self.assertTrue(self.try_close(self.gate), "the station does not close")
        return saved, retired

    def assertSaved(self, folder):
        slot = self.row(folder, "ACT", 7)
        self.assertEqual((slot.EnUso, slot.NumeroFicha, slot.Placa, slot.MarcaEntrada, slot.PorteriaSalida),
                         (-1, "0007", "NEW7", stamp("14:00", "20/11/2026"), "??"))

    def assertRetired(self, folder, row):
        slot, last = self.row(folder, "ACT", 2), self.row(folder, "HST", row)
        self.assertEqual((slot.EnUso, slot.PorteriaSalida, slot.MarcaSalida), (0, "01", stamp("14:00", "20/11/2026")))
        self.assertEqual((last.EnUso, last.NumeroFicha, last.Placa, last.MarcaEntrada, last.PorteriaSalida, last.Posicion),
                         (-1, "0002", "IN2", ENTRY, "01", row))

    def assertUsualDay(self, name, data, row=5, act_length=ACT_LENGTH):
        """With `name` holding `data`, the rest of the files serve as if nothing had happened."""
        folder = self.fresh()
        folder.write(name, data)
        self.assertEqual(self.day(folder), (True, True))
        self.assertSaved(folder)
        self.assertRetired(folder, row)
        self.assertEqual(self.row(folder, "ACT", 999), inside(999, ENTRY, "IN999"))
        self.assertEqual((folder / HST).stat().st_size, row * RECORD.size)
        self.assertEqual((folder / ACT).stat().st_size, act_length)
        self.assertClosed(folder, name, data)

    def assertClosed(self, folder, name, data):
        """Labels and screen state have their length; what followed them in a file that was too long is left there."""
        for register, length in ((LBL, 132), (DAT, 16 * 46)):
            had = len(data) if register == name else 0
            self.assertEqual((folder / register).stat().st_size, max(length, had))

    # ---- Settings and registers that hold no ficha inside: nothing that they hold may stop the day ----

    def whole_day_whatever(self, name, scrambled=True):
        data = intact()[name]
        for length in some(range(len(data))):
            with self.subTest(cut=length):
                self.assertUsualDay(name, data[:length])
        if not scrambled:
            return
        for number, bad in enumerate(self.scrambled(data)):
            with self.subTest(scrambled=number):
                self.assertUsualDay(name, bad)

    def test_users(self):
        self.whole_day_whatever(USR)

    def test_labels(self):
        self.whole_day_whatever(LBL)

    def test_screen_state(self):
        self.whole_day_whatever(DAT, scrambled=False)
        usual = 0
        damages = [*strange_values(), *self.scrambled(intact()[DAT])]
        for number, bad in enumerate(damages):
            with self.subTest(scrambled=number):
                folder = self.fresh()
                folder.write(DAT, bad)
                day = self.day(folder)
                self.assertClosed(folder, DAT, bad)
                self.legal(folder, state=None)
                if day != BARCODE:
                    self.assertEqual(day, (True, True))
                    self.assertSaved(folder)
                    self.assertRetired(folder, 5)
                    usual += 1
        self.assertGreater(usual, len(damages) // 3)

    def test_currency(self):
        self.whole_day_whatever(DVS)

    def test_tariffs(self):
        self.whole_day_whatever(EMP)

    def test_extras(self):
        self.whole_day_whatever(XTR)

    def test_prepaid(self):
        self.whole_day_whatever(RJE)

    def test_first_fichas_of_users(self):
        self.whole_day_whatever(NSR)

    def test_movements(self):
        self.whole_day_whatever(CRD)

    # ---- The history: a departure lands behind the last whole row ----

    def test_history_cut(self):
        data = intact()[HST]
        for length in some(range(len(data))):
            with self.subTest(cut=length):
                whole = length // RECORD.size
                self.assertUsualDay(HST, data[:length], row=whole + 1)
                kept = (self.folder / HST).read_bytes()[:whole * RECORD.size]
                self.assertEqual(kept, data[:whole * RECORD.size])

    def test_history_scrambled(self):
        for number, bad in enumerate(self.scrambled(intact()[HST])):
            with self.subTest(scrambled=number):
                whole = len(bad) // RECORD.size
                self.assertUsualDay(HST, bad, row=whole + 1)
                self.assertEqual((self.folder / HST).read_bytes()[:whole * RECORD.size], bad[:whole * RECORD.size])

    # ---- Who is inside ----

    def test_register_cut(self):
        data = intact()[ACT]
        size = RECORD.size
        ends = [*range(0, 3 * size), *range(999 * size, len(data))]
        samples = [self.dice.randrange(3 * size, 999 * size) for _ in range(300)]
        for length in some(ends + samples):
            with self.subTest(cut=length):
                folder = self.fresh()
                folder.write(ACT, data[:length])
                saved, retired = self.day(folder)
                self.assertTrue(saved)
                self.assertSaved(folder)
                if length >= 2 * size:
                    self.assertTrue(retired)
                    self.assertRetired(folder, 5)
                # The file holds what it held, and the slot that was written.
                self.assertEqual((folder / ACT).stat().st_size, max(length, 7 * size))
                if length >= 3 * size:
                    self.assertEqual(self.row(folder, "ACT", 3), inside(3, ENTRY, "IN3"))
                kept = (folder / ACT).read_bytes()
                self.assertEqual(kept[7 * size:length], data[7 * size:length])

    def test_register_scrambled(self):
        clean = intact()[ACT]
        for number, bad in enumerate(self.scrambled(clean)):
            with self.subTest(scrambled=number):
                folder = self.fresh()
                folder.write(ACT, bad)
                before = self.rows(folder, "ACT")
                saved, retired = self.day(folder)
                self.assertEqual(saved, not before[6].EnUso)
                self.assertEqual(retired, before[1].EnUso != 0)
                after = self.rows(folder, "ACT")
                changed = [i + 1 for i, (old, new) in enumerate(zip(before, after)) if old != new]
                self.assertEqual(changed, [n for n, done in ((2, retired), (7, saved)) if done])
                self.assertEqual((folder / ACT).stat().st_size, len(bad))
                self.assertEqual((folder / HST).stat().st_size, (5 if retired else 4) * RECORD.size)

    # ---- The path of the shared folder ----

    def test_server(self):
        second = self.root / "P02"
        shared = self.fresh().shared
        text = f"{shared}/Añejo/..\r\n".encode()
        (shared / "Añejo").mkdir(exist_ok=True)
        for bad in [text[:length] for length in range(len(text))] + list(self.scrambled(text)):
            with self.subTest(line=bad):
                folder = trouble.copy_station(self.original, second)
                folder.write(SERVER, bad)
                day = self.day(folder)
                self.assertIsNotNone(day)
                # The data that it finds, its own or the shared ones, stay legal; the line stays as the operator left it.
                self.legal(folder)
                self.legal(Folder(self.folder.path))
                self.assertEqual((folder / SERVER).read_bytes(), bad)
        folder = trouble.copy_station(self.original, second)
        folder.write(SERVER, text)
        self.fresh()
        (shared / "Añejo").mkdir(exist_ok=True)
        self.assertEqual(self.day(folder), (True, True))
        self.assertEqual(self.row(self.folder, "ACT", 7).PorteriaEntrada, "02")

    # ---- What stands where a file should be, and what can't be written ----

    def test_a_folder_where_a_file_should_be(self):
        for name in intact():
            with self.subTest(name=name):
                folder = self.fresh()
                (folder / name).unlink()
                (folder / name).mkdir()
                day = self.day(folder)
                if day is not None and name != ACT:
                    self.assertTrue(day[0])
                    self.assertSaved(folder)
                if name == HST:
                    self.notLost(folder)

    def notLost(self, folder):
        """Number 2 is still inside, or its departure is in the history."""
        rows = self.rows(folder) if (folder / HST).is_file() else []
        left = any(row.Placa == "IN2" for row in rows)
        self.assertTrue(left or self.row(folder, "ACT", 2) == inside(2, ENTRY, "IN2"), "number 2 is nowhere")

    def test_mounted_read_only(self):
        for name in [*intact(), "Multimedia", "Recursos", "Objetos", "."]:
            with self.subTest(name=name):
                folder = self.fresh()
                target = str(folder / name)
                before = folder.all_bytes()
                trouble.mount("--bind", target, target)
                try:
                    trouble.mount("-o", "remount,bind,ro", target)
                    day = self.day(folder)
                finally:
                    trouble.unmount(target)
                self.assertIsNotNone(day, "all that a start needs is there")
                self.legal(folder)
                self.notLost(folder)
                after = folder.all_bytes()
                frozen = [file for file in before if name == "." or file == name or file.startswith(name + "/")]
                self.assertEqual([file for file in frozen if after[file] != before[file]], [])
                if name not in (ACT, "Multimedia", "."):
                    self.assertSaved(folder)
                if name not in (ACT, HST, "Multimedia", "."):
                    self.assertEqual(day, (True, True))
                    self.assertRetired(folder, 5)

    def test_marked_read_only(self):
        """As the owner who is not root: screen state and labels lose their mark, a register keeps it and its bytes."""
        if os.getuid() == 0:
            self.become_nobody()
            self.gate = self.process()
        for name in intact():
            with self.subTest(name=name):
                folder = self.fresh()
                self.give_away(folder.path)
                os.chmod(folder / name, stat.S_IRUSR | stat.S_IRGRP | stat.S_IROTH)
                before = (folder / name).read_bytes()
                day = self.day(folder)
                self.assertIsNotNone(day)
                self.legal(folder)
                self.notLost(folder)
                if name == DAT:
                    self.assertNotEqual((folder / DAT).read_bytes(), before)
                else:
                    self.assertEqual((folder / name).read_bytes(), before)
                os.chmod(folder / name, stat.S_IRUSR | stat.S_IWUSR)
                if name not in (ACT, HST):
                    self.assertEqual(day, (True, True))
                    self.assertRetired(folder, 5)

    def test_nothing_can_be_written_and_nothing_is_there(self):
        """The two ways a first start ends when its folder takes no files."""
        folder = Folder(self.root / "empty")
        folder.path.mkdir()
        trouble.mount("--bind", str(folder.path), str(folder.path))
        try:
            trouble.mount("-o", "remount,bind,ro", str(folder.path))
            reply = self.start(self.gate, folder)
            self.assertEqual(self.gate.box, {"title": "Vintoral - Imposible Continuar",
                                             "text": f"La carpeta '{folder.path}' está protegida contra escritura.",
                                             "icon": "critical", "buttons": ["ok"], "default": "ok"}, reply)
            self.gate.answer("ok")
            self.assertTrue(self.ended(self.gate))
            self.assertFalse(self.gate.attempt("view")["ok"])
        finally:
            trouble.unmount(folder.path)
        self.assertEqual(folder.all_bytes(), {})


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
