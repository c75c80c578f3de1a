"""Retiring a ficha: the cash, the question, the settled value, what is written, and what stops it."""
from station import (CLICK, CONFIRM_RETIRE, DELETE, ESC, FORGOTTEN, RETIRED, DrivenDay, inside, kinds, main, sounds,
                     stamp)

TODAY = "20/11/2026"
ENTRY = stamp("13:23", TODAY)  # 37 minutes before the station is ready: 3700


class Retiring(DrivenDay):
    def display(self, *more, **fields):
        station = self.with_fichas(inside(9, ENTRY, "", **fields), *more)
        station.call_up(9)
        return station

    def test_the_question(self):
        station = self.display()
        self.assertEqual(kinds(station.key(DELETE)), [])
        self.assertBox(station, {**CONFIRM_RETIRE, "default": "yes"})

    def test_yes_frees_the_slot_and_writes_history(self):
        station = self.display(Nombre="ANA", Observacion="CASCO", PorteriaEntrada="02")
        station.key(DELETE)
        reply = station.answer("yes")
        self.assertEqual((sounds(reply), reply["waiting"]), ([RETIRED], None))
        left = inside(9, ENTRY, Nombre="ANA", Observacion="CASCO", PorteriaEntrada="02", EnUso=0, PorteriaSalida="01",
                      MarcaSalida=stamp("14:00", TODAY))
        self.assertEqual(self.folder.slot(9), left)
        self.assertEqual(self.folder.history(), [left._replace(EnUso=-1, Posicion=2, ValorCobrado=37000000)])
        self.assertIdle(station)
        self.assertEqual(station.caption("LblInfo(0)"), "0 ( 1/1 )  ")
        self.assertTrue(station.get("TmrHoraFecha")["Enabled"])
        self.assertEqual(station.state("TextoSalida").rstrip(), stamp("14:00", TODAY))

    def test_the_clock_runs_again(self):
        station = self.display()
        station.key(DELETE)
        station.answer("yes")
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:00", TODAY))

    def test_no_is_escape_and_touches_no_file(self):
        station = self.display()
        before = self.folder.all_bytes()
        station.key(DELETE)
        self.assertEqual(sounds(station.answer("no")), [CLICK])
        self.assertIdle(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_each_departure_is_a_row_behind_the_others(self):
        station = self.display(inside(10, ENTRY), inside(11, ENTRY, category="MOTOCICLETA"))
        station.key(ESC)
        for number in (11, 9, 10):
            station.retire(number)
        # A motorcycle's first hour is 2000.
        self.assertEqual([(row.NumeroFicha, row.Posicion, row.ValorCobrado) for row in self.folder.history()],
                         [("0011", 2, 20000000), ("0009", 3, 37000000), ("0010", 4, 37000000)])

    def test_a_category_without_price(self):
        station = self.display(category="VISITANTE")
        station.advance(5000)
        self.assertEqual([station.shown("LblValor"), station.shown("TxtEfectivo")], [False, False])
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].ValorCobrado, 0)
        self.assertEqual(self.folder.slot(9).EnUso, 0)

    def test_a_ficha_without_a_user_has_no_points_in_history(self):
        station = self.display()
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].UsuarioPuntos, 0)
        self.assertFalse((self.folder.shared / "Vintoral.USR").exists())
        self.assertEqual((self.folder.shared / "Vintoral.CRD").stat().st_size, 0)

    def test_too_little_cash_does_not_stop_it(self):
        station = self.display()
        station.advance(500)
        station.type("100")
        station.advance(500)
        self.assertEqual(station.caption("LblCambio"), "")
        station.enter()
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].ValorCobrado, 37000000)

    def test_the_button_retires(self):
        station = self.display()
        station.click("PctBoton(6)")
        station.answer("yes")
        self.assertEqual(len(self.folder.history()), 1)

    def test_the_number_is_free_again(self):
        station = self.display()
        station.key(DELETE)
        station.answer("yes")
        station.save(9, "", "luis")
        self.assertEqual((self.folder.slot(9).EnUso, self.folder.slot(9).Nombre), (-1, "LUIS"))

    def test_delete_in_the_form_of_a_new_ficha_retires_nothing(self):
        station = self.display()
        station.key(ESC)
        station.call_up(7)
        self.assertIsNone(station.key(DELETE)["waiting"])
        self.assertEqual(self.folder.history(), [])


class Settling(DrivenDay):
    """The value is computed afresh for the question, and the box accepts or cancels what it shows."""

    def display(self, wait):
        station = self.with_fichas(inside(9, ENTRY))
        station.call_up(9)
        station.advance(wait)
        return station

    def test_a_minute_that_passed_on_the_screen_is_charged(self):
        station = self.display(70000)
        self.assertEqual(station.caption("LblValor"), "$ 3700.00")
        station.key(DELETE)
        self.assertEqual(station.captions("LblFechaSal", "LblInfo(1)", "LblValor"),
                         [stamp("14:01", TODAY), "38M ", "$ 3800.00"])
        station.answer("yes")
        row, = self.folder.history()
        self.assertEqual((row.MarcaSalida, row.ValorCobrado), (stamp("14:01", TODAY), 38000000))

    def test_a_minute_that_turns_under_the_question_is_not(self):
        station = self.display(50000)
        station.key(DELETE)
        station.advance(20000)
        station.answer("yes")
        row, = self.folder.history()
        self.assertEqual((row.MarcaSalida, row.ValorCobrado), (stamp("14:00", TODAY), 37000000))
        self.assertEqual(self.folder.slot(9).MarcaSalida, stamp("14:00", TODAY))

    def test_answered_in_the_next_minute_it_counts(self):
        station = self.display(1000)
        station.key(DELETE)
        station.advance(118500)
        self.assertEqual(sounds(station.answer("yes")), [RETIRED])
        self.assertEqual(len(self.folder.history()), 1)

    def test_answered_two_minutes_on_it_does_not(self):
        """The clock is set on rather than let run, so that nothing but the answer looks at the time."""
        station = self.display(1000)
        before = self.folder.all_bytes()
        station.key(DELETE)
        station.clock("2026-11-20 14:02:00")
        self.assertEqual(sounds(station.answer("yes")), [CLICK, FORGOTTEN])
        self.assertIdle(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_a_clock_set_back_under_the_question_cancels_too(self):
        station = self.display(1000)
        station.key(DELETE)
        station.clock("2026-11-20 13:58:59")
        self.assertEqual(sounds(station.answer("yes")), [CLICK, FORGOTTEN])
        self.assertEqual(self.folder.history(), [])

    def test_a_ficha_that_went_idle_under_the_question_is_not_retired(self):
        # A Yes that does nothing is told by the same sound once more.
        for button, heard in (("yes", [CLICK, FORGOTTEN]), ("no", [CLICK])):
            with self.subTest(button=button):
                station = self.display(1000)
                before = self.folder.all_bytes()
                station.key(DELETE)
                self.assertEqual(sounds(station.advance(130000)), [CLICK, FORGOTTEN])
                self.assertBox(station, CONFIRM_RETIRE)
                self.assertEqual(sounds(station.answer(button)), heard)
                self.assertIdle(station)
                self.assertEqual(self.folder.all_bytes(), before)
                station.save(8)
                self.assertEqual(self.folder.slot(8).EnUso, -1)
                station.end()

    def test_a_ficha_without_price_settles_too(self):
        station = self.with_fichas(inside(9, ENTRY, category="VISITANTE"))
        station.call_up(9)
        station.key(DELETE)
        station.advance(300000)
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].MarcaSalida, stamp("14:05", TODAY))


class Elsewhere(DrivenDay):
    """What another gate or the network did meanwhile."""

    def display(self):
        station = self.with_fichas(inside(9, ENTRY))
        station.call_up(9)
        return station

    def write_slot(self, ficha):
        with open(self.folder.shared / "Vintoral.ACT", "r+b") as file:
            file.seek((ficha.Posicion - 1) * 188)
            file.write(ficha.encode())

    def test_a_slot_freed_elsewhere_is_not_touched_and_still_gets_a_row(self):
        station = self.display()
        station.key(DELETE)
        freed = inside(9, ENTRY, EnUso=0, PorteriaSalida="02", MarcaSalida=stamp("13:59", TODAY))
        self.write_slot(freed)
        station.answer("yes")
        self.assertEqual(self.folder.slot(9), freed)
        self.assertEqual(self.folder.history(), [freed._replace(EnUso=-1, Posicion=2, ValorCobrado=37000000)])

    def test_the_slot_is_read_again_at_the_answer(self):
        station = self.display()
        station.key(DELETE)
        self.write_slot(inside(9, ENTRY, Nombre="NUEVO"))
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].Nombre, "NUEVO")

    def test_act_that_is_gone_stops_it_silently(self):
        station = self.display()
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        reply = station.key(DELETE)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.assertOnDisplay(station, 9)
        (self.root / "away").rename(self.folder.shared / "Vintoral.ACT")
        station.advance(100)
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(len(self.folder.history()), 1)

    def test_history_that_is_gone_makes_the_link_look(self):
        station = self.display()
        (self.folder.shared / "Vintoral.HST").unlink()
        station.key(DELETE)
        reply = station.answer("yes")
        self.assertEqual(sounds(reply), [RETIRED])
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.assertEqual(self.folder.slot(9).EnUso, 0)
        self.assertFalse((self.folder.shared / "Vintoral.HST").exists())
        self.assertIdle(station)

    def test_a_folder_that_goes_under_the_question_harms_nothing(self):
        station = self.display()
        station.key(DELETE)
        self.folder.shared.rename(self.root / "away")
        self.assertIsNone(station.answer("yes")["waiting"])
        (self.root / "away").rename(self.folder.shared)
        station.advance(20000)
        self.assertEqual((self.folder.shared / "Vintoral.ACT").stat().st_size, 188188)
        # Presence and money go together: it is still inside, or it has left and been charged.
        self.assertIn((self.folder.slot(9).EnUso, len(self.folder.history())), [(-1, 0), (0, 1)])
        station.key(ESC)
        station.save(8)
        self.assertEqual(self.folder.slot(8).EnUso, -1)


if __name__ == "__main__":
    main()
