"""The five timers on a clock that the test turns: stay and fare, forgotten fichas, clock watch, grid refresh."""
from station import CLICK, DELETE, ESC, FORGOTTEN, DrivenDay, Folder, fresh_register, inside, kinds, main, sounds, stamp

TODAY = "20/11/2026"


class ClockTick(DrivenDay):
    def test_twice_a_second(self):
        station = self.running(now="2026-11-20 13:59:56")
        station.advance(499)
        self.assertEqual(station.caption("LblFechaEnt"), "")
        station.advance(1)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("13:59", TODAY))

    def test_the_value_is_shown_with_the_ficha(self):
        station = self.with_fichas(inside(9, stamp("11:30", TODAY)))
        station.call_up(9)
        self.assertEqual(station.captions("LblFechaEnt", "LblFechaSal", "LblInfo(1)", "LblValor"),
                         [stamp("11:30", TODAY), stamp("14:00", TODAY), "02H 30M ", "$ 15000.00"])
        self.assertTrue(station.shown("LblValor"))

    def test_the_value_stands_frozen(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY)))
        station.call_up(9)
        station.advance(119000)
        self.assertEqual(station.captions("LblFechaSal", "LblInfo(1)", "LblValor"),
                         [stamp("14:00", TODAY), "37M ", "$ 3700.00"])

    def test_a_category_without_price_is_computed_again_at_each_tick(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY), category="VISITANTE"))
        station.call_up(9)
        station.advance(180000)
        self.assertEqual(station.captions("LblFechaSal", "LblInfo(1)"), [stamp("14:03", TODAY), "40M "])
        self.assertFalse(station.shown("LblValor"))
        self.assertFalse(station.shown("TxtEfectivo"))
        self.assertOnDisplay(station, 9)

    def test_a_category_that_no_tariff_has_shows_the_stay_and_the_exit(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY), category="CAMION"))
        station.call_up(9)
        self.assertEqual(station.captions("LblFechaSal", "LblInfo(1)"), [stamp("14:00", TODAY), "37M "])
        self.assertFalse(station.shown("LblValor"))

    def test_an_entry_in_the_future_has_no_stay(self):
        station = self.with_fichas(inside(9, stamp("14:01", TODAY)))
        station.call_up(9)
        self.assertEqual(station.captions("LblInfo(1)", "LblValor"), ["??", "$ 0.00"])

    def test_the_currency_symbol_stands_before_the_value(self):
        self.folder.write("Recursos/Vintoral.DVS", "€\r\n".encode("cp1252"))
        station = self.with_fichas(inside(9, stamp("13:59", TODAY)))
        station.call_up(9)
        self.assertEqual(station.caption("LblValor"), "€ 100.00")

    def test_the_grid_holds_still_while_a_ficha_is_worked_on(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        enabled = []
        for number in (7, 9):
            station.call_up(number)
            station.advance(500)
            enabled.append(station.get("TmrMonitor")["Enabled"])
            station.key(ESC)
            station.advance(500)
            enabled.append(station.get("TmrMonitor")["Enabled"])
        self.assertEqual(enabled, [False, True, False, True])


class CashLine(DrivenDay):
    def paying(self, entry="11:30"):
        station = self.with_fichas(inside(9, stamp(entry, TODAY)))
        station.call_up(9)
        station.advance(500)
        return station

    def change(self, station, cash):
        station.set("TxtEfectivo", cash)
        station.advance(500)
        return station.caption("LblCambio")

    def test_it_comes_with_the_tick_after_the_value(self):
        station = self.with_fichas(inside(9, stamp("11:30", TODAY)))
        station.call_up(9)
        self.assertEqual([station.shown("TxtEfectivo"), station.shown("LblCambio")], [False, False])
        station.advance(500)
        self.assertEqual([station.shown("TxtEfectivo"), station.shown("LblCambio")], [True, True])
        self.assertEqual(station.focused(), "TxtEfectivo")
        cash = station.get("TxtEfectivo")
        self.assertEqual((cash["Text"], cash["SelStart"], cash["SelLength"]), ("0", 0, 1))

    def test_typing_replaces_the_nought(self):
        station = self.paying()
        station.type("20000")
        station.advance(500)
        self.assertEqual(station.text("TxtEfectivo"), "20000")
        self.assertEqual(station.caption("LblCambio"), "5000")

    def test_cash_below_the_value_shows_no_change(self):
        station = self.paying()
        self.assertEqual(self.change(station, "14999"), "")
        self.assertEqual(self.change(station, "14999,99"), "")

    def test_cash_equal_to_the_value_shows_nought(self):
        self.assertEqual(self.change(self.paying(), "15000"), "0")

    def test_comma_and_point_are_the_decimal_mark(self):
        # 10 the minute, one minute: a value of 10.
        station = self.with_tariff("AUTO", "1M = 10*", fichas=[inside(9, stamp("13:59", TODAY), category="AUTO")])
        station.call_up(9)
        station.advance(500)
        self.assertEqual(self.change(station, "12,5"), "2.5")
        self.assertEqual(self.change(station, "12.5"), "2.5")
        self.assertEqual(self.change(station, "12,345"), "2.35")

    def test_the_change_follows_the_text(self):
        station = self.paying()
        station.type("16000")
        station.advance(500)
        station.type("0")
        self.assertEqual(station.caption("LblCambio"), "1000")
        station.advance(500)
        self.assertEqual(station.caption("LblCambio"), "145000")

    def test_what_the_field_takes(self):
        station = self.paying()
        self.assertEqual(kinds(station.type("1,5.2")), [])
        self.assertEqual(station.text("TxtEfectivo"), "1,5.2")
        self.assertEqual(kinds(station.type("a-$ ")), ["beep"] * 4)
        self.assertEqual(kinds(station.type("".join(map(chr, (1, 2, 3, 6, 9, 20, 23, 24, 27))))), [])
        self.assertEqual(kinds(station.type("\x08\x08")), [])
        self.assertEqual(station.text("TxtEfectivo"), "1,5")

    def test_cash_beyond_all_money_stops_nothing(self):
        station = self.paying()
        self.change(station, "9" * 40)
        self.assertEqual(self.change(station, "16000"), "1000")

    def test_text_without_a_number_counts_as_nought(self):
        station = self.paying()
        self.assertEqual(self.change(station, ""), "")
        self.assertEqual(self.change(station, ",,"), "")

    def test_delete_and_escape_are_commands_and_type_nothing(self):
        station = self.paying()
        self.assertEqual(kinds(station.key(DELETE)), [])
        self.assertEqual(station.text("TxtEfectivo"), "0")
        station.answer("no")
        station.call_up(9)
        station.advance(500)
        self.assertEqual(kinds(station.key(ESC)), ["sound"])
        self.assertIdle(station)

    def test_enter_retires(self):
        station = self.paying()
        station.enter()
        self.assertEqual(station.box["title"], "Vintoral - Confirmar Ficha")
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].ValorCobrado, 150000000)

    def test_the_focus_comes_back_to_the_cash(self):
        station = self.paying()
        station.click("LblInfo(0)")
        station.advance(500)
        self.assertEqual(station.focused(), "TxtEfectivo")


class Forgotten(DrivenDay):
    def test_after_two_minutes_the_screen_is_idle_again(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY), "ABC900"))
        before = self.folder.all_bytes()
        station.call_up(9)
        station.advance(120000)
        self.assertOnDisplay(station, 9)
        reply = station.advance(1000)
        self.assertEqual(sounds(reply), [CLICK, FORGOTTEN])
        self.assertIdle(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_the_time_counts_from_the_minute_on_the_screen(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        station.advance(50000)
        station.call_up(9)
        station.advance(70000)
        self.assertOnDisplay(station, 9)
        station.advance(1000)
        self.assertIdle(station)

    def test_a_ficha_without_price_is_never_forgotten(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY), category="VISITANTE"))
        station.call_up(9)
        self.assertEqual(sounds(station.advance(600000)), [])
        self.assertOnDisplay(station, 9)

    def test_a_new_ficha_is_never_forgotten(self):
        station = self.running()
        station.fill(7, "abc")
        self.assertEqual(sounds(station.advance(600000)), [])
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])

    def test_without_the_link_it_stays(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        station.call_up(9)
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        station.advance(300000)
        self.assertOnDisplay(station, 9)

    def test_a_jump_of_the_clock_counts(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        station.call_up(9)
        station.clock("2026-11-20 15:00:00")
        self.assertEqual(sounds(station.advance(500)), [CLICK, FORGOTTEN])
        self.assertIdle(station)


class ClockWatch(DrivenDay):
    def test_the_base_follows_every_tick(self):
        station = self.running()
        seen = []
        for _ in range(3):
            station.advance(20000)
            seen.append(station.state("BaseReloj"))
        self.assertEqual(seen, ["20/11/2026 14:00", "20/11/2026 14:00", "20/11/2026 14:01"])

    def test_it_follows_a_jump(self):
        station = self.running()
        station.clock("2026-11-20 15:10:00")
        self.assertEqual(station.state("BaseReloj"), "20/11/2026 14:00")
        station.advance(500)
        self.assertEqual(station.state("BaseReloj"), "20/11/2026 15:10")

    def test_a_jump_back_leaves_a_working_station(self):
        station = self.running()
        station.clock("2026-11-19 09:00:00")
        station.advance(1000)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("09:00", "19/11/2026"))
        station.save(7, "abc")
        self.assertEqual(self.folder.slot(7).MarcaEntrada, stamp("09:00", "19/11/2026"))

    def test_run_time_counts_the_changes_of_the_minute(self):
        station = self.running(now="2026-11-20 13:59:57")
        # The three seconds of connecting have passed one full minute already.
        before = station.state("TiempoEjecucion")
        station.advance(59500)
        self.assertEqual(station.state("TiempoEjecucion"), before)
        station.advance(500)
        self.assertEqual(station.state("TiempoEjecucion"), before + 1)
        station.advance(600000)
        self.assertEqual(station.state("TiempoEjecucion"), before + 11)

    def test_it_counts_under_a_box_too(self):
        station = self.running()
        before = station.state("TiempoEjecucion")
        station.call_up(7)
        station.key(45)
        station.advance(120000)
        self.assertEqual(station.state("TiempoEjecucion"), before + 2)


class GridRefresh(DrivenDay):
    def grow(self, folder, number):
        with open(folder.shared / "Vintoral.ACT", "r+b") as file:
            file.seek((number - 1) * 188)
            file.write(inside(number, stamp("13:00", TODAY)).encode())

    def test_a_main_gate_without_a_monitor_does_not_look(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        before = station.caption("LblInfo(0)")
        self.grow(self.folder, 10)
        station.advance(60000)
        self.assertEqual(station.caption("LblInfo(0)"), before)

    def test_a_connected_gate_looks_every_seven_seconds(self):
        main_gate = Folder(self.root / "main")
        main_gate.write("Multimedia/Vintoral.ACT", fresh_register())
        self.folder.write("Objetos/Servidor.INI", f"{main_gate.shared}\r\n".encode())
        station = self.running()
        self.grow(main_gate, 10)
        station.advance(6999)
        self.assertEqual(station.caption("LblInfo(0)"), "0 ( 1/1 )  ")
        station.advance(1)
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")
        self.grow(main_gate, 11)
        station.advance(7000)
        self.assertEqual(station.caption("LblInfo(0)"), "2 ( 1/1 )  ")

    def test_a_connected_gate_does_not_look_while_a_ficha_is_typed(self):
        main_gate = Folder(self.root / "main")
        main_gate.write("Multimedia/Vintoral.ACT", fresh_register())
        self.folder.write("Objetos/Servidor.INI", f"{main_gate.shared}\r\n".encode())
        station = self.running()
        station.call_up(7)
        self.grow(main_gate, 10)
        station.advance(60000)
        self.assertEqual(station.caption("LblInfo(0)"), "0 ( 1/1 )  ")
        station.key(ESC)
        station.advance(7500)
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")

    def test_the_count_of_the_view_in_pages_of_fifty(self):
        for count, shown in ((50, "50 ( 1/1 )  "), (51, "51 ( 1/2 )  "), (1000, "1000 ( 1/20 )  ")):
            with self.subTest(count=count):
                self.folder.write("Recursos/Vintoral.DAT", b"\2\0\0\0\2\0\0\0".ljust(46, b"\0") * 16)
                station = self.with_fichas(*[inside(n, stamp("13:00", TODAY)) for n in range(1, count + 1)])
                self.assertEqual(station.caption("LblInfo(0)"), shown)


if __name__ == "__main__":
    main()
