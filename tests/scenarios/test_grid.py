"""Days at the grid: its pages and photos, the pointer over it, the three monitors, the counter of a category."""
from grid import (COUNTED, F1, F2, F3, MONITOR_OFF, MONITOR_ON, PAGE_DOWN, PAGE_UP, POINTED, TODAY, YESTERDAY, GridDay, numbered,
                  photo_inside, photo_outside)
from station import (CLICK, CONTROL, DELETE, ESC, FIELDS, LIGHT_ORANGE, RETIRED, ROWS, inside, main, mixed, read_mixed,
                     screen_state, sounds, stamp)

IDLE_TEXT = " " * 11 + "P01 MONITOR"
MONITORS = ["PctBoton(7)", "PctBoton(8)", "PctBoton(9)"]
LIGHTS = [f"PctBuscar({light})" for light in range(5)]


class Pages(GridDay):
    def test_an_empty_house(self):
        station = self.gate()
        self.assertEqual((self.cells(station), self.page(station)), ([], "0 ( 1/1 )  "))
        for key in (PAGE_DOWN, PAGE_UP):
            self.assertEqual(sounds(station.key(key)), [CLICK])
            self.assertEqual((self.page(station), station.state("InicioPagina")), ("0 ( 1/1 )  ", 1))

    def test_fifty_one_are_two_pages(self):
        station = self.gate(*numbered(51))
        first = [f"{number:04}" for number in range(1, 51)]
        seen = []
        for key in (PAGE_DOWN, PAGE_DOWN, PAGE_UP, PAGE_UP):
            seen.append((self.cells(station), self.page(station)))
            self.assertEqual(sounds(station.key(key)), [CLICK])
        one, two = (first, "51 ( 1/2 )  "), (["0051"], "51 ( 2/2 )  ")
        self.assertEqual(seen, [one, two, two, one])

    def test_turning_a_page_leads_back_to_the_number(self):
        station = self.gate(*numbered(51))
        for button in ("PctBoton(2)", "PctBoton(1)"):
            station.focus("TxtCampo(3)")
            station.click(button)
            self.assertEqual(station.focused(), "TxtCampo(0)")

    def test_a_ficha_on_display_is_retired_from_any_page(self):
        for number in (2, 51):
            with self.subTest(number=number):
                station = self.gate(*numbered(51))
                station.call_up(number)
                station.key(PAGE_DOWN)
                self.assertOnDisplay(station, number)
                self.assertTrue(station.shown("ShpCelda"))
                station.key(DELETE)
                station.answer("yes")
                self.assertEqual([row.Posicion for row in self.folder.history()], [2])
                self.assertEqual(self.folder.slot(number).EnUso, 0)
                station.end()

    def test_a_page_that_another_gate_empties_steps_back(self):
        one, two = self.gate(*numbered(51)), self.second_gate()
        two.key(PAGE_DOWN)
        self.assertEqual((self.cells(two), self.page(two)), (["0051"], "51 ( 2/2 )  "))
        one.retire(51)
        self.assertEqual(self.page(one), "50 ( 1/1 )  ")
        self.assertEqual(self.page(two), "51 ( 2/2 )  ")
        two.advance(7000)
        self.assertEqual(self.page(two), "50 ( 1/1 )  ")
        self.assertEqual((len(self.cells(two)), self.cells(two)[-1]), (50, "0050"))

    def test_saving_and_retiring_redraw_the_page(self):
        station = self.gate(*numbered(2))
        station.save(7)
        self.assertEqual(self.cells(station), ["0001", "0002", "0007"])
        station.retire(1)
        self.assertEqual(self.cells(station), ["0002", "0007"])


class Photos(GridDay):
    def test_each_cell_has_the_photo_of_its_ficha(self):
        self.photograph(photo_inside(1), photo_inside(3), photo_inside(51))
        station = self.gate(*numbered(52))
        self.assertEqual(self.cells(station)[:4], ["0001*", "0002", "0003*", "0004"])
        station.key(PAGE_DOWN)
        self.assertEqual(self.cells(station), ["0051*", "0052"])

    def test_who_has_left_has_his_photo_in_the_other_folder(self):
        self.photograph(photo_inside(2), photo_inside(5), photo_outside(2))
        station = self.gate(history=[(5, stamp("13:00", TODAY)), (6, stamp("13:10", TODAY))])
        station.key(F3)
        self.assertEqual(self.cells(station), ["0006", "0005*"])

    def test_a_damaged_one_is_deleted_at_the_first_draw(self):
        self.photograph(photo_inside(1), photo_inside(2))
        damaged = self.folder.write(photo_inside(3), b"\xff\xd8 was a photo")
        damaged.chmod(0o444)
        station = self.gate(*numbered(3))
        self.assertEqual(self.cells(station), ["0001*", "0002*", "0003"])
        self.assertEqual([(self.folder / photo_inside(number)).exists() for number in (1, 2, 3)], [True, True, False])
        self.hover(station, "ImgFicha(2)")
        self.assertEqual(station.caption("LblWebCamMsg"), "SIN IMAGEN")

    def test_one_that_comes_later_is_seen_at_the_next_look(self):
        self.gate(*numbered(2))
        two = self.second_gate()
        self.assertEqual(self.cells(two), ["0001", "0002"])
        self.photograph(photo_inside(2))
        two.advance(7000)
        self.assertEqual(self.cells(two), ["0001", "0002*"])


class Pointer(GridDay):
    def setUp(self):
        super().setUp()
        ana = inside(4, stamp("13:30", TODAY), "ABC123", "MOTOCICLETA", Nombre="ANA", Apellido="RUIZ", Telefono="555",
                     Observacion="ROJO")
        self.photograph(photo_inside(4))
        self.station = self.gate(inside(2, stamp("13:00", TODAY), "XYZ"), ana)

    def assertShowsAna(self):
        station = self.station
        self.assertEqual(station.captions(*ROWS), ["0004", "ABC123", "ANA", "RUIZ", "555", "ROJO"])
        self.assertEqual(station.captions("LblFechaEnt", "LblFechaSal"), [stamp("13:30", TODAY), "??"])
        self.assertEqual(station.text("CboTarifa(0)"), "MOTOCICLETA")
        self.assertEqual([station.shown(control) for control in (*FIELDS, "CboTarifa(1)", "Picture1", "LblWebCamMsg")],
                         [False] * 9)
        self.assertTrue(station.get("Picture2")["Picture"] and station.shown("Picture2"))
        self.assertFalse(station.shown("TxtBarCodeOK"))
        self.assertNotIn(LIGHT_ORANGE, [row["BackColor"] for row in station.get(*ROWS)])
        self.assertEqual(self.pointed(station), ("2", True))

    def colours(self):
        return [stamp_["BackColor"] for stamp_ in self.station.get("LblFechaEnt", "LblFechaSal")]

    def test_over_a_cell_its_record_is_shown_and_the_clock_stands(self):
        self.station.advance(500)
        self.assertEqual(self.station.caption("LblFechaEnt"), stamp("14:00", TODAY))
        self.hover(self.station, "ImgFicha(1)")
        self.assertShowsAna()
        self.station.advance(180000)
        self.assertShowsAna()
        stay = self.station.state()
        self.assertEqual((stay["DiasEstadia"], stay["HorasEstadia"], stay["MinutosEstadia"]), (0, 0, 30))

    def test_away_from_the_grid_the_screen_is_idle_and_the_clock_runs(self):
        idle = self.colours()
        for away in ("Form1", "FraFicha", "PctFicha", "PctBoton(3)", "LblCampo(0)"):
            with self.subTest(away=away):
                self.station.focus("TxtCampo(3)")
                self.hover(self.station, "ImgFicha(1)")
                self.assertShowsAna()
                self.assertNotEqual(self.colours(), idle)
                self.hover(self.station, away)
                self.assertEqual(self.colours(), idle)
                self.assertEntryFace(self.station)
                self.assertEqual([row["BackColor"] for row in self.station.get(*ROWS)], [LIGHT_ORANGE] * 6)
                self.assertEqual([self.station.shown(name) for name in ("Picture1", "Picture2")], [True, False])
        self.station.advance(500)
        self.assertEqual(self.station.caption("LblFechaEnt"), stamp("14:00", TODAY))

    def test_from_cell_to_cell(self):
        self.hover(self.station, "ImgFicha(1)")
        self.hover(self.station, "ImgFicha(0)")
        self.assertEqual(self.station.captions("LblCampo(0)", "LblCampo(1)", "LblCampo(2)", "LblWebCamMsg"),
                         ["0002", "XYZ", "", "SIN IMAGEN"])
        self.assertEqual([self.station.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")],
                         [True, False, True])
        self.hover(self.station, "ImgFicha(1)")
        self.assertShowsAna()

    def test_behind_the_last_record_there_is_nothing(self):
        self.hover(self.station, "ImgFicha(2)")
        self.assertEntryFace(self.station)

    def test_a_ficha_that_is_typed_or_on_display_is_not_disturbed(self):
        for number, shown in ((7, ""), (2, "0002")):
            with self.subTest(number=number):
                self.station.call_up(number)
                focus = self.station.focused()
                self.hover(self.station, "ImgFicha(1)")
                self.assertEqual((self.station.caption("LblCampo(0)"), self.station.get("PctFicha")["Tag"]), (shown, "0"))
                self.leave(self.station)
                self.assertEqual((self.station.text("TxtCampo(0)"), self.station.focused()), (str(number), focus))
                self.station.key(ESC)

    def test_a_click_calls_up_who_is_inside(self):
        reply = self.station.click("ImgFicha(1)")
        self.assertIn(POINTED, sounds(reply))
        self.assertOnDisplay(self.station, 4)
        self.station.key(DELETE)
        self.assertIn(RETIRED, sounds(self.station.answer("yes")))
        self.assertEqual([row.Placa for row in self.folder.history()], ["ABC123"])
        self.assertEqual(self.cells(self.station), ["0002"])

    def test_a_click_with_a_ficha_under_way_cancels_it(self):
        for number in (7, 2):
            with self.subTest(number=number):
                self.station.call_up(number)
                self.station.click("ImgFicha(1)")
                self.assertEntryFace(self.station)
        self.assertEqual(self.folder.history(), [])

    def test_a_click_on_who_has_left_since_opens_the_form(self):
        """The grid is a copy: what a click does is decided by the register."""
        two = self.second_gate()
        two.retire(4)
        self.assertEqual(self.cells(self.station), ["0002", "0004*"])
        self.station.click("ImgFicha(1)")
        self.assertEqual([self.station.shown(f"PctBoton({button})") for button in (5, 6)], [True, False])
        self.assertEqual(self.station.text("TxtCampo(0)"), "4")

    def test_a_typed_number_is_looked_up_by_a_click_on_a_row(self):
        self.station.type("4")
        self.station.click("LblCampo(2)")
        self.assertOnDisplay(self.station, 4)
        self.station.key(ESC)
        for typed in ("", "0", "1001"):
            self.station.set("TxtCampo(0)", typed)
            self.station.click("LblCampo(2)")
            self.assertEqual([self.station.shown(f"PctBoton({button})") for button in (5, 6)], [False, False])

    def test_typing_goes_on_where_it_was(self):
        self.station.type("1")
        self.hover(self.station, "ImgFicha(1)")
        self.station.type("2")
        self.assertEqual((self.station.text("TxtCampo(0)"), self.station.shown("TxtCampo(0)")), ("12", True))
        self.assertEqual(self.pointed(self.station), ("0", False))

    def test_the_other_gate_fills_and_empties_the_cell_under_the_pointer(self):
        two = self.second_gate()
        self.hover(two, "ImgFicha(1)")
        self.assertEqual(two.caption("LblCampo(0)"), "0004")
        self.station.save(3, "NEW3")
        two.advance(7000)
        self.assertEqual(two.captions("LblCampo(0)", "LblCampo(1)"), ["0003", "NEW3"])
        self.station.retire(2)
        self.station.retire(3)
        two.advance(7000)
        self.assertEqual(self.cells(two), ["0004*"])
        self.assertEntryFace(two)

    def test_in_barcode_mode_the_code_box_takes_the_focus_again(self):
        self.station.close()
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-1)))
        station = self.running()
        self.switch_barcodes(station)
        station.focus("TxtCampo(3)")
        self.hover(station, "ImgFicha(1)")
        self.assertTrue(station.shown("TxtBarCodeOK"))
        self.leave(station)
        self.assertEqual((station.shown("TxtBarCodeOK"), station.text("TxtBarCode"), station.focused()),
                         (False, "", "TxtBarCode"))
        self.assertFalse(station.get("TxtCampo(0)")["Enabled"])

    def test_the_second_page_counts_on(self):
        self.station.close()
        station = self.gate(*numbered(52))
        station.key(PAGE_DOWN)
        self.hover(station, "ImgFicha(1)")
        self.assertEqual((station.caption("LblCampo(0)"), station.get("PctFicha")["Tag"]), ("0052", "52"))


class Monitors(GridDay):
    """At 14:00, with the fifteen minutes that stand first in the list: since 13:45."""

    def switched(self, station):
        """The minutes' box, and what the buttons and lights say."""
        box, *buttons = station.get("CboMinutos", *MONITORS)
        return (box["Text"], box["Enabled"], box["Tag"], [button["BorderStyle"] for button in buttons],
                [station.shown(light) for light in LIGHTS])

    OFF = (IDLE_TEXT, False, "0", [0, 0, 0], [False] * 5)

    def test_who_has_come_in_lately(self):
        station = self.gate(inside(1, stamp("13:44", TODAY)), inside(2, stamp("13:45", TODAY)),
                            inside(3, stamp("14:00", TODAY)), inside(4, stamp("13:59", YESTERDAY)))
        self.assertEqual(self.switched(station), self.OFF)
        self.assertEqual(sounds(station.key(F1)), [MONITOR_ON])
        self.assertEqual(self.switched(station),
                         ("15 Min. ATRAS", True, "1", [1, 0, 0], [True, False, False, False, False]))
        self.assertEqual((self.cells(station), self.page(station)), (["0002", "0003"], "2 ( 1/1 )  "))
        self.assertIsNone(station.focused())

    def test_who_has_been_in_for_long(self):
        station = self.gate(inside(1, stamp("13:44", TODAY)), inside(2, stamp("13:45", TODAY)),
                            inside(3, stamp("13:46", TODAY)), inside(4, stamp("10:00", YESTERDAY)))
        station.key(F2)
        self.assertEqual(self.switched(station),
                         ("15 Min. ADENTRO", True, "2", [0, 1, 0], [False, True, False, False, False]))
        self.assertEqual(self.cells(station), ["0001", "0002"])

    def test_who_has_been_out_for_long_the_latest_first(self):
        station = self.gate(history=[(3, stamp("13:40", TODAY)), (2, stamp("13:45", TODAY)), (1, stamp("13:55", TODAY))])
        station.key(F3)
        self.assertEqual(self.switched(station),
                         ("15 Min. AFUERA", True, "3", [0, 0, 1], [False, False, True, False, False]))
        self.assertEqual(self.cells(station), ["0002", "0003"])

    def test_left_five_and_twenty_minutes_ago(self):
        station = self.gate(history=[(8, stamp("13:40", TODAY)), (9, stamp("13:55", TODAY))])
        station.key(F3)
        self.assertEqual(self.cells(station), ["0008"])
        station.advance(10 * 60000 - 1)
        self.assertEqual(self.cells(station), ["0008"])
        station.advance(7000)
        self.assertEqual(self.cells(station), ["0009", "0008"])

    def test_an_exit_of_yesterday_ends_the_walk(self):
        station = self.gate(history=[(1, stamp("12:00", TODAY)), (2, stamp("12:30", YESTERDAY)), (3, stamp("13:00", TODAY))])
        station.key(F3)
        self.assertEqual(self.cells(station), ["0003"])

    def test_over_who_has_left_the_pointer_shows_the_exit(self):
        self.photograph(photo_outside(2))
        station = self.gate(history=[(8, stamp("13:40", TODAY))])
        station.key(F3)
        self.hover(station, "ImgFicha(0)")
        self.assertEqual(station.captions("LblCampo(0)", "LblFechaEnt", "LblFechaSal"),
                         ["0008", stamp("08:00", TODAY), stamp("13:40", TODAY)])
        self.assertTrue(station.get("Picture2")["Picture"])
        # Number 8 is free: a click on its departure must not take it for the ficha.
        station.click("ImgFicha(0)")
        self.assertEqual([station.shown(f"PctBoton({button})") for button in (5, 6)], [False, False])

    def test_the_same_key_again_shows_all(self):
        station = self.gate(inside(1, stamp("10:00", TODAY)))
        for key in (F1, F2, F3):
            with self.subTest(key=key):
                station.key(key)
                self.assertNotEqual(self.switched(station), self.OFF)
                self.assertEqual(sounds(station.key(key)), [MONITOR_OFF])
                self.assertEqual(self.switched(station), self.OFF)
                self.assertEqual(self.cells(station), ["0001"])

    def test_a_change_from_one_to_another_says_nothing(self):
        station = self.gate(inside(1, stamp("10:00", TODAY)), inside(2, stamp("13:50", TODAY)))
        station.key(F1)
        self.assertEqual(self.cells(station), ["0002"])
        self.assertEqual(sounds(station.key(F2)), [])
        self.assertEqual(self.switched(station)[2:4], ("2", [0, 1, 0]))
        self.assertEqual(self.cells(station), ["0001"])
        station.click("PctBoton(9)")
        self.assertEqual((self.switched(station)[2:4], self.cells(station)), (("3", [0, 0, 1]), []))

    def test_other_minutes_at_once(self):
        station = self.gate(inside(1, stamp("13:10", TODAY)), inside(2, stamp("13:30", TODAY)))
        station.key(F1)
        self.assertEqual(self.cells(station), [])
        station.do("select", control="CboMinutos", text="30 Minutos")
        self.assertEqual((station.text("CboMinutos"), self.cells(station)), ("30 Min. ATRAS", ["0002"]))
        station.focus("CboMinutos")
        station.type("5x0")
        self.assertEqual(station.text("CboMinutos"), "50")
        station.enter()
        self.assertEqual((station.text("CboMinutos"), self.cells(station)), ("50 Min. ATRAS", ["0001", "0002"]))

    def test_each_has_minutes_of_its_own(self):
        station = self.gate()
        for key, minutes in ((F1, "30 Minutos"), (F2, "60 Minutos"), (F3, "180 Minutos")):
            station.key(key)
            station.do("select", control="CboMinutos", text=minutes)
        texts = []
        for key in (F1, F2, F3):
            station.key(key)
            texts.append(station.text("CboMinutos"))
        self.assertEqual(texts, ["30 Min. ATRAS", "60 Min. ADENTRO", "180 Min. AFUERA"])

    def test_a_switch_leads_to_the_first_page(self):
        station = self.gate(*numbered(51, "13:50"))
        station.key(PAGE_DOWN)
        self.assertEqual(station.state("InicioPagina"), 51)
        station.key(F1)
        self.assertEqual((station.state("InicioPagina"), self.page(station)), (1, "51 ( 1/2 )  "))

    def test_a_switch_clears_a_ficha_under_way(self):
        station = self.gate(*numbered(2))
        station.call_up(2)
        station.key(F2)
        self.assertEqual([station.shown(f"PctBoton({button})") for button in (5, 6)], [False, False])
        self.assertEqual(station.captions(*ROWS), [""] * 6)

    def test_a_main_gate_looks_every_seven_seconds_while_one_is_on(self):
        one, two = self.gate(), self.second_gate()
        two.save(501)
        one.advance(60000)
        self.assertEqual(self.cells(one), [])
        one.key(F1)
        self.assertEqual(self.cells(one), ["0501"])
        two.save(502)
        one.advance(7000)
        self.assertEqual(self.cells(one), ["0501", "0502"])

    def test_who_came_in_lately_ages_out(self):
        station = self.gate(inside(1, stamp("13:46", TODAY)))
        station.key(F1)
        station.advance(60000)
        self.assertEqual(self.cells(station), ["0001"])
        station.advance(67000)
        self.assertEqual(self.cells(station), [])

    def test_work_goes_on_under_a_monitor(self):
        station = self.gate(inside(9, stamp("13:30", TODAY)))
        station.key(F3)
        station.save(7, "abc")
        station.retire(9)
        self.assertEqual((self.folder.slot(7).EnUso, self.cells(station)), (-1, []))
        self.assertEqual(self.switched(station)[2:4], ("3", [0, 0, 1]))
        station.advance(15 * 60000 + 7000)
        self.assertEqual(self.cells(station), ["0009"])

    def test_one_that_was_on_at_closing_comes_back_with_its_minutes(self):
        station = self.gate(inside(1, stamp("12:25", TODAY)), inside(2, stamp("12:35", TODAY)))
        station.key(F3)
        station.do("select", control="CboMinutos", text="45 Minutos")
        station.key(F2)
        station.focus("CboMinutos")
        station.type("90")
        station.enter()
        station.close()
        stored = read_mixed((self.folder / "Recursos/Vintoral.DAT").read_bytes()[:46])
        self.assertEqual(stored, (2, 0, 0, 450000, 0, 90))
        again = self.running()
        self.assertEqual(self.switched(again),
                         ("90 Min. ADENTRO", True, "2", [0, 1, 0], [False, True, False, False, False]))
        self.assertEqual(self.cells(again), ["0001"])
        again.key(F3)
        self.assertEqual(again.text("CboMinutos"), "45 Min. AFUERA")

    def test_each_gate_has_a_monitor_of_its_own(self):
        one = self.gate(inside(1, stamp("10:00", TODAY)), inside(2, stamp("13:50", TODAY)))
        two = self.second_gate()
        two.key(F1)
        one.key(F2)
        for gate in (one, two):
            gate.advance(7000)
        self.assertEqual((self.cells(one), self.cells(two)), (["0001"], ["0002"]))
        two.key(F1)
        self.assertEqual(two.text("CboMinutos"), " " * 11 + "P02 MONITOR")


class Counter(GridDay):
    def counted(self, station, reply):
        self.assertEqual(sounds(reply), [COUNTED])
        self.assertEqual(reply["waiting"], {"wait": 2000})
        return station.caption("LblInfo(4)")

    def setUp(self):
        super().setUp()
        self.entry = stamp("10:00", TODAY)

    def test_two_seconds_of_the_category_of_the_list(self):
        station = self.gate(inside(1, self.entry), inside(2, self.entry, category="MOTOCICLETA"),
                            inside(3, self.entry, category="Automovil"), inside(4, self.entry, category="AUTOMOVIL 2"))
        station.do("select", control="CboTarifa(1)", text="AUTOMOVIL")
        self.assertEqual(self.counted(station, station.key(67, CONTROL)), "2")
        reply = station.advance(1999)
        self.assertEqual((reply["waiting"], station.caption("LblInfo(4)")), ({"wait": 1}, "2"))
        reply = station.advance(1)
        self.assertEqual((reply["waiting"], station.caption("LblInfo(4)")), (None, ""))

    def test_a_click_on_its_icon_counts_too(self):
        station = self.gate(inside(1, self.entry, category="MOTOCICLETA"))
        station.do("select", control="CboTarifa(1)", text="MOTOCICLETA")
        self.assertEqual(self.counted(station, station.click("ImgContador")), "1")
        station.advance(5000)
        self.assertEqual(station.caption("LblInfo(4)"), "")

    def test_the_category_of_the_ficha_on_display(self):
        station = self.gate(inside(1, self.entry), inside(2, self.entry, category="MOTOCICLETA"), inside(3, self.entry))
        station.do("select", control="CboTarifa(1)", text="AUTOMOVIL")
        station.call_up(2)
        self.assertEqual(self.counted(station, station.key(67, CONTROL)), "1")
        station.advance(2000)
        self.assertOnDisplay(station, 2)

    def test_the_category_under_the_pointer(self):
        station = self.gate(inside(1, self.entry), inside(2, self.entry, category="MOTOCICLETA"), inside(3, self.entry))
        self.hover(station, "ImgFicha(1)")
        self.assertEqual(self.counted(station, station.key(67, CONTROL)), "1")

    def test_it_counts_what_the_monitor_lists(self):
        station = self.gate(inside(1, self.entry), inside(2, stamp("13:50", TODAY)))
        station.key(F1)
        station.do("select", control="CboTarifa(1)", text="AUTOMOVIL")
        self.assertEqual(self.counted(station, station.key(67, CONTROL)), "1")

    def test_work_goes_on_while_it_is_shown(self):
        station = self.gate()
        station.key(67, CONTROL)
        station.save(7, "abc")
        self.assertEqual((self.folder.slot(7).Placa, station.caption("LblInfo(4)")), ("ABC", "0"))
        station.advance(2000)
        self.assertEqual(station.caption("LblInfo(4)"), "")
        self.assertIdle(station)


if __name__ == "__main__":
    main()
