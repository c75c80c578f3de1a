"""Two stations on one folder: what one does reaches the other through the files alone."""
import threading

from station import DELETE, GREEN, INSERT, DrivenDay, Folder, inside, kinds, main, stamp

TODAY = "20/11/2026"


class TwoGates(DrivenDay):
    def gates(self, *fichas):
        one = self.with_fichas(*fichas)
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        two = self.running(second)
        self.assertBars(two, GREEN)
        return one, two


class Saving(TwoGates):
    def test_each_gate_signs_its_entries(self):
        one, two = self.gates()
        one.save(7)
        two.save(501)
        self.assertEqual((self.folder.slot(7).PorteriaEntrada, self.folder.slot(501).PorteriaEntrada), ("01", "02"))

    def test_a_number_taken_at_the_other_gate_is_shown(self):
        one, two = self.gates()
        two.save(7, "abc", "ana")
        one.call_up(7)
        self.assertEqual(one.captions("LblCampo(0)", "LblCampo(1)", "LblCampo(2)"), ["0007", "ABC", "ANA"])

    def test_a_plate_inside_at_the_other_gate_is_refused(self):
        one, two = self.gates()
        two.save(7, "abc")
        one.fill(8, "abc")
        one.key(INSERT)
        self.assertEqual(one.box["title"], "Vintoral - Ingreso Denegado")
        self.assertIn("la ficha 0007.", one.box["text"])

    def test_a_number_taken_while_the_form_was_open_is_left_alone(self):
        one, two = self.gates()
        one.fill(7, "mine")
        two.save(7, "theirs")
        reply = one.key(INSERT)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(self.folder.slot(7).Placa, "THEIRS")
        self.assertIdle(one)

    def test_a_number_taken_under_the_question_is_left_alone(self):
        one, two = self.gates()
        one.fill(7, "first")
        two.fill(7, "second")
        one.key(INSERT)
        two.key(INSERT)
        one.answer("yes")
        two.answer("yes")
        slot = self.folder.slot(7)
        self.assertEqual((slot.Placa, slot.PorteriaEntrada, slot.EnUso), ("FIRST", "01", -1))
        self.assertEqual((self.folder.shared / "Vintoral.ACT").stat().st_size, 188188)
        self.assertIdle(two)
        # Nobody came in with the second plate, so it is no user either.
        self.assertEqual((self.folder.shared / "Vintoral.USR").stat().st_size, 124)

    def test_the_connected_gate_writes_nothing_at_home(self):
        one, two = self.gates()
        home = Folder(self.root / "P02")
        before = (home.shared / "Vintoral.ACT").read_bytes(), (home.shared / "Vintoral.HST").read_bytes()
        two.save(7)
        two.retire(7)
        self.assertEqual(((home.shared / "Vintoral.ACT").read_bytes(), (home.shared / "Vintoral.HST").read_bytes()), before)
        self.assertEqual([row.PorteriaSalida for row in self.folder.history()], ["02"])


class Retiring(TwoGates):
    def test_in_at_one_gate_and_out_at_the_other(self):
        one, two = self.gates()
        one.save(7, "", category="MOTOCICLETA")
        two.clock("2026-11-20 15:20:00")
        two.retire(7)
        row, = self.folder.history()
        # 1 hour 20 minutes: 2000 and the step of 32 minutes, 1000.
        self.assertEqual((row.PorteriaEntrada, row.PorteriaSalida, row.ValorCobrado), ("01", "02", 30000000))

    def test_the_same_ficha_at_both_gates_gives_two_rows(self):
        one, two = self.gates(inside(9, stamp("13:23", TODAY)))
        for gate in (one, two):
            gate.call_up(9)
            gate.key(DELETE)
        one.answer("yes")
        two.answer("yes")
        slot = self.folder.slot(9)
        # The second gate finds the slot free, leaves it, and writes what it read there.
        self.assertEqual((slot.EnUso, slot.PorteriaSalida), (0, "01"))
        self.assertEqual([(row.NumeroFicha, row.Posicion, row.EnUso, row.PorteriaSalida, row.ValorCobrado)
                          for row in self.folder.history()],
                         [("0009", 2, -1, "01", 37000000), ("0009", 3, -1, "01", 37000000)])

    def test_a_ficha_retired_at_the_other_gate_opens_the_form(self):
        one, two = self.gates(inside(9, stamp("13:23", TODAY)))
        two.retire(9)
        one.call_up(9)
        self.assertTrue(one.shown("PctBoton(5)"))

    def test_rows_of_both_gates_stand_one_behind_the_other(self):
        one, two = self.gates(*[inside(n, stamp("13:59", TODAY)) for n in range(1, 41)])
        failures = []

        def work(gate, numbers):
            try:
                for number in numbers:
                    gate.retire(number)
            except Exception as failure:  # told by the test, not by the thread
                failures.append(failure)

        threads = [threading.Thread(target=work, args=(one, range(1, 21))),
                   threading.Thread(target=work, args=(two, range(21, 41)))]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(failures, [])
        rows = self.folder.history()
        self.assertEqual(sorted(row.NumeroFicha for row in rows), [f"{n:04}" for n in range(1, 41)])
        self.assertEqual([row.Posicion for row in rows], list(range(2, 42)))


class Grid(TwoGates):
    def test_the_connected_gate_is_at_most_seven_seconds_behind(self):
        one, two = self.gates()
        for number, count in ((7, "1 ( 1/1 )  "), (8, "2 ( 1/1 )  ")):
            one.save(number)
            two.advance(7000)
            self.assertEqual(two.caption("LblInfo(0)"), count)
        one.retire(7)
        two.advance(7000)
        self.assertEqual(two.caption("LblInfo(0)"), "1 ( 1/1 )  ")

    def test_the_main_gate_sees_it_at_its_own_next_work(self):
        one, two = self.gates()
        two.save(501)
        one.advance(60000)
        self.assertEqual(one.caption("LblInfo(0)"), "0 ( 1/1 )  ")
        one.save(1)
        self.assertEqual(one.caption("LblInfo(0)"), "2 ( 1/1 )  ")

    def test_a_gate_that_vanishes_leaves_nothing_behind(self):
        one, two = self.gates()
        two.fill(7, "abc")
        two.key(INSERT)
        two.end()
        self.assertEqual(self.folder.slot(7).EnUso, 0)
        one.save(7, "abc")
        one.retire(7)
        self.assertEqual(len(self.folder.history()), 1)


class MainGateGone(TwoGates):
    def test_the_connected_gate_waits_and_comes_back(self):
        one, two = self.gates()
        one.close()
        self.folder.shared.rename(self.root / "away")
        two.advance(10000)
        self.assertEqual(two.caption("LblFechaEnt"), "CONECTANDO... ")
        (self.root / "away").rename(self.folder.shared)
        two.advance(3000)
        self.assertBars(two, GREEN)
        two.save(7)
        self.assertEqual(self.folder.slot(7).PorteriaEntrada, "02")


if __name__ == "__main__":
    main()
