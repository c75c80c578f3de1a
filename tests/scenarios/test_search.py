#!/usr/bin/env python3
"""Searches of records as the operator makes them: the criteria, what is found, and what opening and closing do to a monitor."""
from reports import (F5, NOTHING_FOUND, PAGE, SEARCH_FOUND, SEARCH_OFF, SEARCH_ON, SHOW_PAGE, TEXT, TODAY, YESTERDAY, Page,
                     ReportDay, gone)
from station import BACKSPACE, CLICK, ENTER, ESC, F1, Folder, inside, launches, main, sounds, stamp

START = ["00:00", TODAY, "23:59", TODAY, "", "", "", "", "", "", ""]
EMPTY_PAGE = "0 ( 1/1 )  "
BUTTONS = [f"PctBoton({button})" for button in (4, 7, 8, 9)]
LIGHTS = [f"PctBuscar({light})" for light in (0, 1, 2, 4)]

# Monday the 16th and Tuesday the 17th.
MONDAY, TUESDAY = "16/11/2026", "17/11/2026"


class Search(ReportDay):
    """A gate with a history of three days, and two fichas inside."""

    ROWS = (gone(2, 31, ("10:00", "18/11/2026"), "OLD", 1000), gone(3, 7, ("23:59", YESTERDAY), "LATE", 2000),
            gone(4, 70, ("09:15", TODAY), "ANA1", 1500, Nombre="JUAN", Apellido="RUIZ"),
            gone(5, 12, ("13:45", TODAY), "BOB2", 500, "MOTOCICLETA", Nombre="ANA", Observacion="CASCO ROJO"))
    INSIDE = (inside(5, stamp("08:00", TODAY), "IN5", Nombre="SUSANA"), inside(9, stamp("22:00", YESTERDAY), "IN9"))

    def searching(self, *rows, **more):
        station = self.day(*(rows or self.ROWS), **{"fichas": self.INSIDE, **more})
        self.open_search(station)
        return station

    def assertNothingFound(self, station):
        self.assertBox(station, NOTHING_FOUND)
        reply = station.answer("ok")
        self.assertIsNone(reply["waiting"])
        self.assertEqual(self.found(station), [])
        self.assertFalse(station.shown("ImgFicha(0)"))
        self.assertEqual(launches(reply), [])

    def pressed(self, station):
        return [button["BorderStyle"] for button in station.get(*BUTTONS)]


class Criteria(Search):
    def test_start_values_find_todays_exits(self):
        station = self.searching()
        self.assertEqual(self.criteria(station), START)
        reply = self.search(station)
        self.assertEqual(self.found(station), ["BOB2", "ANA1"])
        self.assertEqual((sounds(reply), launches(reply)), ([SEARCH_FOUND, CLICK], [SHOW_PAGE]))
        self.assertEqual(station.captions("ImgFicha(0)", "ImgFicha(1)", "LblInfo(0)"), ["0012", "0070", "2 ( 1/1 )  "])
        self.assertEqual(station.state("active"), "Form1")

    def test_with_active_ones_those_of_today_stand_first(self):
        station = self.searching()
        self.search(station, active=True)
        self.assertEqual(self.found(station), ["IN5", "BOB2", "ANA1"])
        self.search(station, b1=YESTERDAY)
        self.assertEqual(self.found(station), ["IN5", "IN9", "BOB2", "ANA1", "LATE"])

    def test_a_number_finds_its_ficha_alone(self):
        station = self.searching()
        station.set("Form2.TxtCampo(1)", YESTERDAY)
        station.focus("Form2.TxtCampo(4)")
        station.type("7")
        for _ in range(6):
            station.enter()
        self.assertEqual(self.found(station), ["LATE"])
        self.assertEqual(station.do("view")["view"][0]["NumeroFicha"], "0007")

    def test_a_part_of_a_name_in_any_case(self):
        station = self.searching()
        station.focus("Form2.TxtCampo(6)")
        station.type("an")
        self.assertEqual(station.text("Form2.TxtCampo(6)"), "AN")
        self.search(station, active=True)
        self.assertEqual([record["Nombre"].strip() for record in station.do("view")["view"]], ["SUSANA", "ANA", "JUAN"])

    def test_each_box_looks_in_its_own_field(self):
        fields = {"b5": "PLACA", "b6": "NOMBRE", "b7": "APELL", "b8": "TELEF", "b9": "OBSER"}
        row = gone(2, 4, ("10:00", TODAY), "xPLACAx", Nombre="xnombre", Apellido="APELLx", Telefono="telef",
                   Observacion=" obser ")
        station = self.searching(row)
        for box, text in fields.items():
            with self.subTest(box=box):
                self.search(station, **{box: text})
                self.assertEqual(self.found(station), ["xPLACAx"])
                for other in fields.keys() - {box}:
                    station.key(ESC)
                    station.focus("Form2.TxtCampo(4)")
                    station.key(ESC)
                    self.search(station, **{other: text})
                    self.assertNothingFound(station)
                station.focus("Form2.TxtCampo(4)")
                station.key(ESC)

    def test_a_category_is_chosen_whole(self):
        station = self.searching(*self.ROWS, gone(6, 3, ("13:50", TODAY), "LOWER", category="motocicleta"))
        station.do("select", control="Form2.CboTarifa", text="MOTOCICLETA")
        self.search(station)
        self.assertEqual(self.found(station), ["LOWER", "BOB2"])
        station.do("select", control="Form2.CboTarifa", text="VISITANTE")
        self.search(station)
        self.assertNothingFound(station)

    def test_a_night_between_two_days_is_no_range(self):
        rows = gone(2, 1, ("23:00", MONDAY), "NIGHT"), gone(3, 2, ("05:00", TUESDAY), "MORNING")
        station = self.searching(*rows)
        self.search(station, b0="22:00", b1=MONDAY, b2="06:00", b3=TUESDAY)
        self.assertNothingFound(station)
        self.search(station, b0="00:00", b2="23:59")
        self.assertEqual(self.found(station), ["MORNING", "NIGHT"])
        self.search(station, b0="22:00")
        self.assertEqual(self.found(station), ["NIGHT"])

    def test_the_edges_of_the_range_belong_to_it(self):
        station = self.searching()
        self.search(station, b0="09:15", b2="13:45")
        self.assertEqual(self.found(station), ["BOB2", "ANA1"])
        self.search(station, b0="09:16", b2="13:45")
        self.assertEqual(self.found(station), ["BOB2"])
        self.search(station, b0="09:15", b2="13:44")
        self.assertEqual(self.found(station), ["ANA1"])

    def test_a_date_that_is_none_finds_nothing(self):
        station = self.searching()
        for box, text in (("b1", ""), ("b3", ""), ("b1", "AYER"), ("b3", "31/02/2026"), ("b0", ""), ("b2", "24:00"),
                          ("b1", "20/11/26")):
            with self.subTest(box=box, text=text):
                self.search(station)
                self.assertEqual(self.found(station), ["BOB2", "ANA1"])
                station.focus("Form2.TxtCampo(4)")
                self.search(station, active=True, **{box: text})
                self.assertNothingFound(station)
                station.focus("Form2.TxtCampo(4)")
                station.key(ESC)
                station.do("check", control="Form2.ChkFichas", value=0)

    def test_the_way_back_ends_at_the_first_older_day(self):
        station = self.searching(gone(2, 1, ("10:00", TODAY), "HIDDEN"), gone(3, 2, ("10:00", YESTERDAY), "OLDER"),
                                 gone(4, 3, ("10:00", "??"), "NODATE"), gone(5, 4, ("11:00", TODAY), "NEWEST"))
        self.search(station)
        self.assertEqual(self.found(station), ["NEWEST"])

    def test_record_1_is_none_whatever_it_holds(self):
        station = self.searching(self.ROWS[2])
        data = (self.folder / self.HISTORY).read_bytes()
        self.folder.write(self.HISTORY, gone(1, 1, ("10:00", TODAY), "FIRST").encode() + data[188:])
        self.search(station)
        self.assertEqual(self.found(station), ["ANA1"])


class Nothing(Search):
    def test_is_said_once_and_leaves_the_grid_empty(self):
        station = self.searching()
        self.search(station)
        self.assertTrue(station.shown("ImgFicha(1)"))
        station.key(ESC)  # what the main screen has: the search stays
        station.focus("Form2.TxtCampo(4)")
        station.key(ESC)
        before = station.caption("LblInfo(0)")
        self.assertEqual(before, EMPTY_PAGE)
        self.search(station, b5="NOBODY")
        self.assertBox(station, NOTHING_FOUND)
        self.assertFalse(station.shown("ImgFicha(0)"))
        self.assertNothingFound(station)
        self.assertEqual(station.caption("LblInfo(0)"), before)

    def test_an_empty_history_has_nothing(self):
        station = self.day(fichas=self.INSIDE)
        self.open_search(station)
        self.search(station)
        self.assertNothingFound(station)
        self.search(station, active=True)
        self.assertEqual(self.found(station), ["IN5"])

    def test_without_a_history_the_active_ones_are_searched(self):
        station = self.searching()
        (self.folder / self.HISTORY).unlink()
        self.search(station, active=True)
        self.assertEqual(self.found(station), ["IN5"])

    def test_without_the_folder_the_link_is_looked_at(self):
        station = self.searching()
        self.search(station)
        self.folder.shared.rename(self.root / "elsewhere")
        reply = self.search(station, b5="ANA")
        self.assertIsNone(reply["waiting"])
        self.assertEqual(self.found(station), ["BOB2", "ANA1"], "what was found before")
        self.assertLess(station.get("TmrConexion")["Interval"], 3000)
        (self.root / "elsewhere").rename(self.folder.shared)
        self.search(station)
        self.assertEqual(self.found(station), ["ANA1"])


class Keys(Search):
    def test_enter_walks_through_the_boxes_and_starts(self):
        station = self.searching()
        for box in range(4, 9):
            self.assertEqual(station.focused(), f"Form2.TxtCampo({box})")
            station.enter()
        self.assertEqual(station.focused(), "Form2.TxtCampo(9)")
        station.enter()
        self.assertEqual(self.found(station), ["BOB2", "ANA1"])
        station.focus("Form2.TxtCampo(4)")
        self.assertEqual(station.focused(), "Form2.TxtCampo(4)")

    def test_a_number_outside_its_range_is_cleared(self):
        station = self.searching()
        for typed, left, focus in (("0", "", 4), ("0000", "", 4), ("9999", "9999", 5), ("1", "1", 5), ("", "", 5)):
            with self.subTest(typed=typed):
                station.focus("Form2.TxtCampo(4)")
                station.set("Form2.TxtCampo(4)", "")
                station.type(typed)
                station.enter()
                self.assertEqual((station.text("Form2.TxtCampo(4)"), station.focused()), (left, f"Form2.TxtCampo({focus})"))

    def test_the_number_takes_digits_and_backspace(self):
        station = self.searching()
        reply = station.type("1a-2 ")
        self.assertEqual([event["event"] for event in reply["events"]], ["beep"] * 3)
        station.key(BACKSPACE)
        self.assertEqual(station.text("Form2.TxtCampo(4)"), "1")

    def test_a_change_in_the_middle_keeps_the_caret(self):
        station = self.searching()
        station.focus("Form2.TxtCampo(5)")
        station.type("abcd")
        station.key(37)
        station.key(37)
        station.type("ñ")
        box = station.get("Form2.TxtCampo(5)")
        self.assertEqual((box["Text"], box["SelStart"]), ("ABÑCD", 3))

    def test_both_ways_of_clearing(self):
        station = self.searching()
        for clear in (lambda: station.key(ESC), lambda: station.click("Form2.PctBoton(1)")):
            self.search(station, active=True, b1=YESTERDAY, b0="01:00", b5="IN")
            self.assertEqual(self.found(station), ["IN5", "IN9"])
            station.focus("Form2.TxtCampo(5)")
            reply = clear()
            self.assertEqual(sounds(reply), [CLICK])
            self.assertEqual(self.criteria(station), START)
            self.assertEqual(self.found(station), [])
            self.assertFalse(station.shown("ImgFicha(0)"))
            self.assertEqual(station.caption("LblInfo(0)"), EMPTY_PAGE)
            self.assertEqual(station.focused(), "Form2.TxtCampo(4)")

    def test_the_button_starts_it_too(self):
        station = self.searching()
        reply = station.click("Form2.PctBoton(0)")
        self.assertEqual(sounds(reply), [SEARCH_FOUND, CLICK])
        self.assertEqual(self.found(station), ["BOB2", "ANA1"])

    def test_the_help_line(self):
        station = self.searching()
        banner = station.caption("LblAyuda")
        for button, text in ((0, "Iniciar Búsqueda"), (1, "<ESC> Limpiar Campos")):
            station.do("hover", control=f"Form2.PctBoton({button})")
            self.assertEqual((station.caption("LblAyuda"), station.shown("Form2.PctSeleccion")), (text, True))
            station.do("hover", control="Form2")
            self.assertEqual((station.caption("LblAyuda"), station.shown("Form2.PctSeleccion")), (banner, False))


class Closing(Search):
    CLOSERS = ("key", "box", "main")

    def close_search(self, station, how):
        if how == "box":
            return station.do("unload", form="Form2")
        station.focus("TxtCampo(0)" if how == "main" else "Form2.TxtCampo(4)")
        return station.key(F5)

    def test_a_search_takes_the_place_of_a_monitor_and_gives_it_back(self):
        for monitor, how in zip((1, 2, 3), self.CLOSERS):
            with self.subTest(monitor=monitor):
                station = self.day(*self.ROWS, fichas=self.INSIDE)
                station.key(F1 + monitor - 1)
                text = station.text("CboMinutos")
                pressed, lights = self.pressed(station), [station.shown(light) for light in LIGHTS]
                self.assertEqual(pressed, [0] + [int(n == monitor) for n in (1, 2, 3)])
                self.assertEqual(sounds(self.open_search(station)), [SEARCH_ON])
                self.assertEqual(self.pressed(station), [1, 0, 0, 0])
                self.assertEqual([station.shown(light) for light in LIGHTS], [False, False, False, True])
                minutes = station.get("CboMinutos")
                self.assertEqual((minutes["Text"].strip(), minutes["Enabled"]), ("P01 MONITOR", False))
                self.assertTrue(minutes["Text"].startswith("  "))
                self.search(station)
                self.assertTrue((self.folder / PAGE).exists())
                (self.folder / PAGE).chmod(0o444)
                self.folder.write(TEXT, b"of the menu").chmod(0o444)
                self.assertEqual(sounds(self.close_search(station, how))[-1], SEARCH_OFF)
                self.assertNotIn("Form2", station.state("forms"))
                self.assertEqual(self.pressed(station), pressed)
                self.assertEqual([station.shown(light) for light in LIGHTS], lights)
                minutes = station.get("CboMinutos")
                self.assertEqual((minutes["Text"], minutes["Enabled"]), (text, True))
                self.assertEqual([timer["Enabled"] for timer in station.get("TmrHorario", "TmrMonitor")], [True, True])
                self.assertFalse((self.folder / PAGE).exists() or (self.folder / TEXT).exists())

    def test_without_a_monitor_those_inside_are_shown_again(self):
        station = self.searching()
        self.search(station)
        self.assertEqual(self.found(station), ["BOB2", "ANA1"])
        self.assertEqual(sounds(self.close_search(station, "key")), [SEARCH_OFF])
        self.assertEqual(self.found(station), ["IN5", "IN9"])
        self.assertEqual(self.pressed(station), [0, 0, 0, 0])
        self.assertEqual([station.shown(button) for button in BUTTONS], [True] * 4)

    def test_the_next_search_begins_with_its_start_values(self):
        station = self.searching()
        self.search(station, active=True, b1=YESTERDAY, b5="X")
        station.answer("ok")
        self.close_search(station, "key")
        self.open_search(station)
        self.assertEqual(self.criteria(station), START)
        self.assertEqual(station.get("Form2.ChkFichas")["Value"], 0)


class Work(Search):
    """Vehicles come and go while a search is open."""

    def test_what_comes_and_goes_is_found_without_a_word(self):
        station = self.searching()
        self.search(station, active=True)
        self.assertEqual(self.found(station), ["IN5", "BOB2", "ANA1"])
        reply = station.save(3, "NEW3")
        self.assertEqual((launches(reply), SEARCH_FOUND in sounds(reply), reply["waiting"]), ([], False, None))
        self.assertEqual(self.found(station), ["NEW3", "IN5", "BOB2", "ANA1"])
        reply = station.retire(5)
        self.assertEqual((launches(reply), SEARCH_FOUND in sounds(reply), reply["waiting"]), ([], False, None))
        self.assertEqual(self.found(station), ["NEW3", "IN5", "BOB2", "ANA1"])
        view = station.do("view")["view"]
        self.assertEqual([record["PorteriaSalida"].strip() for record in view], ["??", "01", "01", "01"])

    def test_another_gate_reports_what_this_one_has_written(self):
        station = self.searching()
        self.search(station)
        other = Folder(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second = self.running(other)
        self.open_search(second)
        self.search(second, active=True)
        self.assertEqual(self.found(second), ["IN5", "BOB2", "ANA1"])
        page = Page((other / PAGE).read_bytes())
        self.assertEqual((page.title, page.plates()), ("Vintoral - BÚSQUEDA P02", ["IN5", "BOB2", "ANA1"]))
        self.assertEqual(self.page().plates(), ["BOB2", "ANA1"])


if __name__ == "__main__":
    main()
