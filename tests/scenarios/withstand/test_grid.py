"""The grid with more than it was made for, and with another gate's haste under its pointer."""
import os
import random

import trouble
from station import CLICK, CONTROL, DELETE, ESC, GREEN, INSERT, RECORD, inside, sounds, stamp

from grid import F1, F2, F3, PAGE_DOWN, PAGE_UP, TODAY, GridDay, left, numbered, photo_inside

SEED = 4711
STEPS = 1500 // int(os.environ.get("VINTORAL_EVERY", "1"))


class Many(GridDay):
    def test_a_thousand_inside_each_with_a_photo(self):
        self.photograph(*map(photo_inside, range(1, 1001)))
        station = self.gate(*numbered(1000))
        seen = []
        for page in range(1, 21):
            self.assertEqual(self.page(station), f"1000 ( {page}/20 )  ")
            seen += self.cells(station)
            station.key(PAGE_DOWN)
        self.assertEqual(seen, [f"{number:04}*" for number in range(1, 1001)])
        self.hover(station, "ImgFicha(49)")
        self.assertEqual((station.caption("LblCampo(0)"), station.shown("Picture2")), ("1000", True))
        self.leave(station)
        station.retire(1000)
        self.assertEqual(self.page(station), "999 ( 20/20 )  ")

    def test_the_end_of_ten_million_rows(self):
        station = self.gate(inside(9, stamp("13:00", TODAY)))
        rows = 10_000_000
        with open(self.folder.shared / "Vintoral.HST", "r+b") as history:
            history.truncate((rows - 200) * RECORD.size)
            history.seek(0, os.SEEK_END)
            for number in range(1, 201):
                history.write(left(number, stamp("13:30", TODAY), rows - 200 + number).encode())
        station.key(F3)
        self.assertEqual(self.page(station), "200 ( 1/4 )  ")
        self.assertEqual(self.cells(station)[::49], ["0200", "0151"])
        station.advance(7000)
        self.hover(station, "ImgFicha(0)")
        self.assertEqual(station.captions("LblCampo(0)", "LblFechaSal"), ["0200", stamp("13:30", TODAY)])
        self.leave(station)
        station.retire(9)
        self.assertEqual(self.folder.record("HST", rows + 1).NumeroFicha, "0009")
        station.advance(16 * 60000)
        self.assertEqual((self.page(station), self.cells(station)[:2]), ("201 ( 1/5 )  ", ["0009", "0200"]))

    def test_a_history_that_is_all_of_today(self):
        history = [(row % 1000 + 1, stamp("13:30", TODAY)) for row in range(30_000)]
        station = self.gate(history=history)
        station.key(F3)
        self.assertEqual(self.page(station), "30000 ( 1/600 )  ")
        for _ in range(600):
            station.key(PAGE_DOWN)
        self.assertEqual((self.page(station), self.cells(station)[-1]), ("30000 ( 600/600 )  ", "0001"))


class UnderThePointer(GridDay):
    def test_a_page_runs_empty(self):
        self.photograph(photo_inside(1), photo_inside(51))
        one, two = self.gate(*numbered(51)), self.second_gate()
        two.key(PAGE_DOWN)
        self.hover(two, "ImgFicha(0)")
        self.assertEqual(two.caption("LblCampo(0)"), "0051")
        one.retire(51)
        self.assertEqual(sounds(two.advance(7000)), [CLICK])
        # The pointer rests where it was, and there is another ficha now.
        self.assertEqual((self.page(two), two.caption("LblCampo(0)")), ("50 ( 1/1 )  ", "0001"))
        self.leave(two)
        self.assertEntryFace(two)

    def test_a_house_runs_empty(self):
        one, two = self.gate(*numbered(1)), self.second_gate()
        self.hover(two, "ImgFicha(0)")
        one.retire(1)
        two.advance(7000)
        self.assertEqual((self.page(two), self.cells(two)), ("0 ( 1/1 )  ", []))
        self.assertEntryFace(two)

    def test_the_ficha_leaves_between_pointing_and_clicking(self):
        one, two = self.gate(*numbered(2)), self.second_gate()
        self.hover(two, "ImgFicha(1)")
        one.retire(2)
        two.click("ImgFicha(1)")
        self.assertEqual([two.shown(f"PctBoton({button})") for button in (5, 6)], [True, False])
        two.key(ESC)
        self.assertEqual(len(self.folder.history()), 1)

    def test_the_folder_goes_and_comes(self):
        self.gate(*numbered(2))
        two = self.second_gate()
        self.hover(two, "ImgFicha(1)")
        away = self.folder.shared.rename(self.root / "away")
        two.advance(60000)
        self.assertEqual(two.caption("LblCampo(0)"), "0002")
        two.click("ImgFicha(1)")
        self.assertFalse(two.shown("PctBoton(6)"))
        self.leave(two)
        self.assertEqual(two.caption("LblFechaEnt"), "CONECTANDO... ")
        away.rename(self.folder.shared)
        two.advance(3000)
        self.assertBars(two, GREEN)
        two.key(ESC)
        self.hover(two, "ImgFicha(1)")
        self.leave(two)
        two.advance(500)
        self.assertEqual(two.caption("LblFechaEnt"), stamp("14:01", TODAY))

    def test_numbers_and_stamps_that_say_nothing(self):
        odd = [dict(NumeroFicha=""), dict(NumeroFicha="ABCD"), dict(NumeroFicha="-001"), dict(NumeroFicha="9999"),
               dict(MarcaEntrada=""), dict(MarcaEntrada="99:99  (99/99/9999)"), dict(MarcaEntrada="?" * 20),
               dict(Categoria="\xff" * 20)]
        fichas = [inside(number, stamp("13:00", TODAY))._replace(**more) for number, more in enumerate(odd, start=1)]
        station = self.gate(*fichas)
        places = (0, -1, -2147483648, 2147483647, 1001)
        with open(self.folder.shared / "Vintoral.ACT", "r+b") as register:
            for slot, place in enumerate(places, start=20):
                register.seek((slot - 1) * RECORD.size)
                register.write(inside(slot, stamp("13:00", TODAY), Posicion=place).encode())
        for key in (F1, F1, F2, F2):
            station.key(key)
        self.assertEqual(len(self.cells(station)), len(odd) + len(places))
        for cell in range(len(odd) + len(places)):
            self.hover(station, f"ImgFicha({cell})")
            self.assertEqual(self.pointed(station), (str(cell + 1), True))
            station.click(f"ImgFicha({cell})")
            if station.box:  # a number that none of the slots has: who is meant may be printed
                station.answer("cancel")
            station.key(ESC)
        self.assertEntryFace(station)


class Haste(GridDay, trouble.Trouble):
    def hands(self, dice, gate):
        """One of the things that an operator does, at random."""
        cell = f"ImgFicha({dice.randrange(8)})"
        return dice.choice([
            lambda: self.hover(gate, cell), lambda: self.hover(gate, cell), lambda: self.leave(gate),
            lambda: gate.attempt("click", control=cell), lambda: gate.key(dice.choice([PAGE_UP, PAGE_DOWN])),
            lambda: gate.key(dice.choice([F1, F2, F3])), lambda: gate.key(ESC), lambda: gate.key(67, CONTROL),
            lambda: gate.type(str(dice.randrange(1, 70))), lambda: gate.enter(),
            lambda: gate.key(INSERT), lambda: gate.key(DELETE), lambda: gate.advance(dice.choice([100, 2500, 7000, 130000])),
            lambda: self.photograph(photo_inside(dice.randrange(1, 70))), lambda: self.pass_gate(gate, dice.randrange(1, 70)),
        ])

    def pass_gate(self, gate, number):
        """In or out, whichever it takes."""
        gate.key(ESC)
        gate.call_up(number)
        gate.key(INSERT)
        if not gate.box:
            gate.key(DELETE)

    def pass_boxes(self, dice, gate):
        while gate.box:
            gate.answer(dice.choice(gate.box["buttons"]))
        if gate.reply["waiting"]:
            gate.advance(2000)

    def test_two_gates_at_random(self):
        dice = random.Random(SEED)
        gates = [self.gate(*numbered(60)), self.second_gate()]
        for _ in range(STEPS):
            gate = dice.choice(gates)
            self.hands(dice, gate)()
            self.pass_boxes(dice, gate)
        self.assertGreater(len(self.folder.history()), 10 if STEPS > 1000 else 0)
        self.legal(self.folder)
        for gate in gates:
            self.leave(gate)
            for key in (F1, F2, F3):
                if gate.get(f"PctBoton({7 + key - F1})")["BorderStyle"]:
                    gate.key(key)
            gate.key(ESC)
            self.assertIdle(gate)
        # Any one more entry: both show who is inside now, and nobody else.
        gates[0].save(999)
        gates[1].advance(7500)  # a ficha that was on display has held its grid until the clock ticks
        there = [ficha.NumeroFicha for ficha in self.rows(self.folder, "ACT") if ficha.PorteriaSalida == "??"]
        for gate in gates:
            self.assertEqual(self.page(gate).split()[0], str(len(there)))
            for _ in range(20):
                gate.key(PAGE_UP)
            self.assertEqual([cell.rstrip("*") for cell in self.cells(gate)], there[:50])


if __name__ == "__main__":
    trouble.station.main()
