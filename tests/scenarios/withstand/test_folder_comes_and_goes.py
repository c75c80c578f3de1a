"""The data folder goes and comes back between any two steps, and the clock jumps: the link tells, and nothing is lost."""
import itertools
import random

import trouble
from station import (BARS, BLANK, DELETE, ENTER, ESC, F10, FORGOTTEN, GREEN, INSERT, LOST, RED, Folder, inside, fresh_register,
                     launches, sounds, stamp)

SAVE = [("focus", {"control": "TxtCampo(0)"}), ("set", {"control": "TxtCampo(0)", "text": None}), ("key", {"code": ENTER}),
        ("focus", {"control": "TxtCampo(1)"}), ("set", {"control": "TxtCampo(1)", "text": None}), ("key", {"code": ENTER}),
        ("key", {"code": INSERT}), ("answer", {"button": "yes"})]
SAVE_NEEDS = (2, 6, 7)  # calling the number up, asking, and writing look at the data
RETIRE = SAVE[:3] + [("key", {"code": DELETE}), ("answer", {"button": "yes"})]
RETIRE_NEEDS = (2, 3, 4)
ENTRY = stamp("08:00", "20/11/2026")
HOUR_IN_TICKS = 7200


class ComesAndGoes:
    """At either gate: `door` is its number."""

    def setUp(self):
        super().setUp()
        self.data, self.elsewhere = self.folder.shared, self.root / "elsewhere"

    def go(self):
        self.data.rename(self.elsewhere)

    def come(self):
        self.assertFalse(self.data.exists(), "the station made a data folder of its own")
        self.elsewhere.rename(self.data)

    def gate(self):
        """A running gate on self.data: the main gate in whose folder it lies, or a connected one."""
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*(inside(n, ENTRY, f"IN{n}") for n in range(501, 801))))
        main = self.running(self.folder)
        if self.door == "01":
            return main
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.data}\r\n".encode())
        return self.running(second)

    def steps(self, gate, steps, texts, before):
        texts = iter(texts)
        for number, (operation, fields) in enumerate(steps):
            before(number)
            if "text" in fields:
                fields = {**fields, "text": next(texts)}
            gate.attempt(operation, **fields)
        before(len(steps))

    def back_to_work(self, gate):
        self.settle(gate)
        gate.advance(10000)
        gate.advance(3000)
        self.assertBars(gate, GREEN)
        self.settle(gate)

    def absences(self, steps):
        """Every pair of boundaries between steps, with and without time for the station to notice."""
        pairs = itertools.combinations(range(len(steps) + 1), 2)
        return [(gone, back, wait) for (gone, back), wait in itertools.product(pairs, (0, 13000))]

    def absent(self, gate, gone, back, wait):
        def before(step):
            if step == gone:
                self.go()
            if step == back:
                self.come()
            if step in (gone, back) and wait:
                gate.advance(wait)
                self.assertBars(gate, RED if step == gone else GREEN)
        return before

    def test_a_save_is_whole_or_not_there(self):
        gate = self.gate()
        for number, (gone, back, wait) in enumerate(self.absences(SAVE), start=1):
            with self.subTest(gone=gone, back=back, wait=wait):
                plate = f"S{number}"
                self.steps(gate, SAVE, (str(number), plate), self.absent(gate, gone, back, wait))
                self.back_to_work(gate)
                slot = self.folder.slot(number)
                if any(gone <= step < back for step in SAVE_NEEDS):
                    self.assertEqual(slot, BLANK._replace(Posicion=number))
                else:
                    self.assertEqual((slot.EnUso, slot.NumeroFicha, slot.Placa, slot.MarcaSalida, slot.PorteriaEntrada),
                                     (-1, f"{number:04}", plate, "??", self.door))
        self.legal(self.folder)
        self.assertEqual(self.folder.history(), [])

    def test_who_is_inside_leaves_or_stays(self):
        gate = self.gate()
        left = 0
        for number, (gone, back, wait) in enumerate(self.absences(RETIRE), start=501):
            with self.subTest(gone=gone, back=back, wait=wait):
                before = self.folder.slot(number)
                self.steps(gate, RETIRE, (str(number),), self.absent(gate, gone, back, wait))
                self.back_to_work(gate)
                rows = self.folder.history()
                if any(gone <= step < back for step in RETIRE_NEEDS):
                    self.assertEqual(self.folder.slot(number), before)
                else:
                    left += 1
                    self.assertEqual((rows[-1].Placa, rows[-1].PorteriaSalida), (f"IN{number}", self.door))
                    self.assertEqual(self.folder.slot(number).EnUso, 0)
                self.assertEqual(len(rows), left)
        self.legal(self.folder)

    def test_the_link_tells(self):
        gate = self.gate()
        self.assertBars(gate, GREEN)
        self.go()
        gone = gate.advance(10000)
        self.assertIn(LOST, sounds(gone))
        self.assertBars(gate, RED)
        self.assertEqual((gate.caption("LblFechaEnt"), gate.shown("LblIndicador(0)")), ("CONECTANDO... ", False))
        timers = gate.get("TmrConexion", "TmrHoraFecha", "TmrMonitor")
        self.assertEqual([timers[0]["Interval"]] + [timer["Enabled"] for timer in timers[1:]], [3000, False, False])
        self.assertEqual(sounds(gate.advance(9000)).count(LOST), 3)
        self.assertEqual(launches(gate.key(F10)), ["Notepad.exe Objetos\\Servidor.INI"])
        self.come()
        self.assertNotIn(LOST, sounds(gate.advance(3000)))
        self.assertBars(gate, GREEN)
        timers = gate.get("TmrConexion", "TmrHoraFecha", "TmrMonitor")
        self.assertEqual([timers[0]["Interval"]] + [timer["Enabled"] for timer in timers[1:]], [10000, True, True])
        self.assertTrue(gate.shown("LblIndicador(0)"))

    def test_closing_without_the_folder(self):
        gate = self.gate()
        self.go()
        self.assertTrue(self.try_close(gate))
        self.come()
        self.legal(self.folder)

    def test_the_clock_jumps_in_a_save(self):
        gate = self.gate()
        jumps = itertools.product(range(len(SAVE)), ("2026-11-19 09:30:00", "2026-11-20 23:59:59", "2027-01-01 00:00:00"))
        for number, (at, now) in enumerate(jumps, start=1):
            with self.subTest(at=at, now=now):
                gate.clock("2026-11-20 14:00:00")
                self.steps(gate, SAVE, (str(number), f"J{number}"), lambda step: gate.clock(now) if step == at else None)
                day, time = now.split()
                year, month, day = day.split("-")
                slot = self.folder.slot(number)
                self.assertEqual((slot.EnUso, slot.Placa, slot.MarcaEntrada),
                                 (-1, f"J{number}", stamp(time[:5], f"{day}/{month}/{year}")))
                gate.advance(1000)

    def test_the_clock_jumps_in_a_departure(self):
        # The question was asked at 14:00. More than a minute from that, either way, is too late; one minute is not.
        stale = {"2026-11-20 13:00:00": True, "2026-11-20 13:58:59": True, "2026-11-20 13:59:00": False,
                 "2026-11-20 14:01:59": False, "2026-11-20 14:02:00": True, "2026-11-21 14:00:00": True}
        gate = self.gate()
        left = 0
        for number, (at, now) in enumerate(itertools.product(range(len(RETIRE)), stale), start=501):
            with self.subTest(at=at, now=now):
                gate.clock("2026-11-20 14:00:00")
                self.steps(gate, RETIRE, (str(number),), lambda step: gate.clock(now) if step == at else None)
                asked_before = at == len(RETIRE) - 1
                if asked_before and stale[now]:
                    self.assertIn(FORGOTTEN, sounds(gate.reply))
                    self.assertEqual(self.folder.slot(number), inside(number, ENTRY, f"IN{number}"))
                else:
                    left += 1
                    self.assertEqual(self.folder.slot(number).EnUso, 0)
                self.assertEqual(len(self.folder.history()), left)
                self.settle(gate)

    def test_who_came_in_tomorrow_can_leave_today(self):
        gate = self.gate()
        gate.clock("2026-11-21 14:00:00")
        self.assertTrue(self.try_save(gate, 5, "AHEAD"))
        gate.clock("2026-11-20 14:00:00")
        gate.advance(30000)
        self.assertTrue(self.try_retire(gate, 5))
        row, = self.folder.history()
        self.assertEqual((row.Placa, row.MarcaEntrada, row.MarcaSalida),
                         ("AHEAD", stamp("14:00", "21/11/2026"), stamp("14:00", "20/11/2026")))

    def test_an_hour_in_which_the_folder_changes_at_every_tick(self):
        """Here or away at each half second: a work that finds it at its own three moments is done, any other is not."""
        dice = random.Random(8)
        gate = self.gate()
        here, present, departed, number = True, {}, {}, 0
        for tick in range(HOUR_IN_TICKS):
            (self.go if here else self.come)()
            here = not here
            gate.advance(500)
            if tick % 60 != dice.randrange(60):
                continue
            number += 1
            if dice.random() < 0.5:
                self.steps(gate, SAVE, (str(number), f"H{number}"), lambda step: None)
                (present if here else {})[number] = f"H{number}"
            else:
                self.steps(gate, RETIRE, (str(500 + number),), lambda step: None)
                (departed if here else {})[500 + number] = f"IN{500 + number}"
            self.settle(gate)
        if not here:
            self.come()
        gate.advance(10000)
        gate.advance(3000)
        self.assertEqual([bar["BackColor"] for bar in gate.get(*BARS)], [GREEN] * 3)
        self.legal(self.folder)
        self.assertEqual([row.Placa for row in self.folder.history()], list(departed.values()))
        found = {slot.Posicion: slot.Placa for slot in self.rows(self.folder, "ACT") if slot.EnUso}
        stayed = {n: f"IN{n}" for n in range(501, 801) if n not in departed}
        self.assertEqual(found, {**present, **stayed})
        self.assertGreater(min(len(present), len(departed)), 10)


class MainGate(ComesAndGoes, trouble.Trouble):
    door = "01"


class LinkedMainGate(ComesAndGoes, trouble.Trouble):
    """Its Multimedia is a link to a folder on a mount. While the mount is away, its mount point is an empty folder."""
    door = "01"

    def setUp(self):
        super().setUp()
        self.point = self.root / "mount"
        self.data = self.point / "Multimedia"
        self.data.mkdir(parents=True)
        self.folder.path.mkdir()
        self.folder.shared.symlink_to(self.data)

    def come(self):
        self.assertEqual(list(self.point.iterdir()), [], "the station made something where the mount belongs")
        self.assertTrue(self.folder.shared.is_symlink())
        super().come()

    def registers(self):
        return {file.name: file.read_bytes() for file in self.data.iterdir() if file.is_file()}

    def test_starting_without_the_mount(self):
        self.assertTrue(self.try_save(self.gate(), 900, "BEFORE"))
        before = self.registers()
        self.assertIn("Vintoral.HST", before)
        self.go()
        gate = self.running(self.folder)
        self.assertIsNone(gate.box)
        self.assertEqual(gate.state("NumeroPorteria"), "01")
        self.assertBars(gate, RED)
        self.assertEqual((gate.caption("LblFechaEnt"), gate.shown("LblIndicador(0)")), ("CONECTANDO... ", False))
        self.assertEqual(sounds(gate.advance(6000)), [LOST, LOST])
        self.assertEqual(launches(gate.key(F10)), ["Notepad.exe Objetos\\Servidor.INI"])
        self.assertFalse(self.try_save(gate, 12, "NOWHERE"))
        self.settle(gate)
        self.come()
        gate.advance(3000)
        self.assertBars(gate, GREEN)
        self.assertEqual(self.registers(), before)
        self.assertTrue(self.try_save(gate, 12, "LATE"))
        self.assertTrue(self.try_retire(gate, 900))
        self.assertEqual((self.folder.slot(12).Placa, [row.Placa for row in self.folder.history()]), ("LATE", ["BEFORE"]))

    def test_a_folder_of_another_spelling_does_not_take_its_place(self):
        self.folder.write("MULTIMEDIA/keep", b"an old copy")
        self.go()
        gate = self.running(self.folder)
        self.assertBars(gate, RED)
        self.assertEqual([file.name for file in (self.folder / "MULTIMEDIA").iterdir()], ["keep"])

    def test_an_empty_folder_behind_the_link_is_a_new_house(self):
        self.assertEqual(list(self.data.iterdir()), [])
        gate = self.running(self.folder)
        self.assertBars(gate, GREEN)
        self.assertEqual((self.data / "Vintoral.ACT").read_bytes(), fresh_register())
        self.assertTrue(self.folder.shared.is_symlink())

    def test_a_register_that_cannot_be_looked_at_is_not_made_anew(self):
        """Its name is there and leads nowhere for the moment."""
        gate = self.gate()
        self.assertTrue(self.try_close(gate))
        register = self.data / "Vintoral.ACT"
        register.rename(self.elsewhere)
        register.symlink_to(self.root / "nowhere")
        gate = self.running(self.folder)
        self.assertIsNone(gate.box)
        self.assertBars(gate, RED)
        self.assertTrue(register.is_symlink())
        self.assertFalse((self.root / "nowhere").exists())
        self.elsewhere.rename(register)
        gate.advance(3000)
        self.assertBars(gate, GREEN)
        self.assertEqual(self.folder.slot(501).Placa, "IN501")


class ConnectedGate(ComesAndGoes, trouble.Trouble):
    door = "02"

    def test_starting_without_the_folder(self):
        self.running(self.folder)
        self.go()
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.data}\r\n".encode())
        gate = self.running(second)
        self.assertBars(gate, RED)
        self.assertEqual(sounds(gate.reply), [])  # the reply to the look at the bars
        self.assertEqual(sounds(gate.advance(6000)), [LOST, LOST])
        self.come()
        gate.advance(3000)
        self.assertBars(gate, GREEN)
        self.assertTrue(self.try_save(gate, 12, "LATE"))
        self.assertEqual((self.folder.slot(12).Placa, self.folder.slot(12).PorteriaEntrada), ("LATE", "02"))


if __name__ == "__main__":
    trouble.station.main()
