"""Tariff tables and fares: worked examples asked of the tables, and the same stays on the screen."""
import datetime

from station import CONTROL, ESC, DrivenDay, ansi, inside, lines, main, sounds, stamp, user

NOON = datetime.datetime(2026, 11, 20, 14, 0)

# category, days, hours, minutes, value; None where the category has no price for the stay.
WORKED = [
    ("AUTOMOVIL", 0, 0, 0, "0.00"), ("AUTOMOVIL", 0, 0, 37, "3700.00"), ("AUTOMOVIL", 0, 2, 30, "15000.00"),
    ("AUTOMOVIL", 0, 4, 59, "29900.00"), ("AUTOMOVIL", 0, 5, 0, "30000.00"), ("AUTOMOVIL", 0, 7, 45, "30000.00"),
    ("AUTOMOVIL", 1, 2, 30, "45000.00"), ("AUTOMOVIL", 2, 0, 0, "60000.00"),
    ("MOTOCICLETA", 0, 0, 0, "0.00"), ("MOTOCICLETA", 0, 0, 3, "2000.00"), ("MOTOCICLETA", 0, 1, 2, "2000.00"),
    ("MOTOCICLETA", 0, 1, 20, "3000.00"), ("MOTOCICLETA", 0, 1, 59, "3500.00"), ("MOTOCICLETA", 0, 6, 10, "10000.00"),
    ("MOTOCICLETA", 3, 0, 1, "32000.00"), ("BICICLETA", 0, 0, 20, "600.00"), ("BICICLETA", 0, 1, 20, "800.00"),
    ("COMPRA MES AUTO", 0, 0, 0, "300000.00"), ("COMPRA MES AUTO", 5, 7, 31, "300000.00"),
    ("LAVADO AUTOMOVIL", 0, 3, 1, "50000.00"), ("VISITANTE", 0, 2, 0, None)]


def entry_before(days, hours, minutes):
    return NOON - datetime.timedelta(days=days, hours=hours, minutes=minutes)


class DefaultFiles(DrivenDay):
    def records(self, name):
        data = (self.folder / f"Recursos/Vintoral.{name}").read_bytes()
        return [data[at:at + 100] for at in range(0, len(data), 100)]

    def test_the_tariff(self):
        self.running()
        records = self.records("EMP")
        self.assertEqual(len(records), 66)
        for number, text in ((1, " "), (2, " AUTOMOVIL"), (3, " 1M = 100*"), (9, " 23H = 30000**"), (10, " 1D = 30000*"),
                             (11, " "), (13, " 1M = 0**"), (19, " 1H = 2000"), (28, " 1M = 10**"), (35, " 1D = 3000*"),
                             (37, " COMPRA MES AUTO"), (38, " 0M = 300000"), (53, " 0M = 50000"),
                             (65, " AGENTE INMOBILIARIO"), (66, " ")):
            with self.subTest(record=number):
                self.assertEqual(records[number - 1], ansi(text, 100))

    def test_extras_and_prepaid_cards(self):
        self.running()
        self.assertEqual(b"".join(self.records("XTR")), lines(
            " ", " MINUTO CELULAR = 200", " FOTOCOPIA = 100", " TARJETA PREPAGO = 10000", " CASCO MOTO = 120000",
            " ALARMA MOTO = 50000", " AMBIENTADOR LIQ = 20000", " CERA BRILLANTE = 50000", " BATERIA AUTO = 350000",
            " BOTELLA AGUA = 5000", " CAFE COLOMBIANO = 5000"))
        self.assertEqual(b"".join(self.records("RJE")), lines(
            " ", " MINUTOS CARGA (Max. 1439) = VALOR", " ", " 120 = 1000", " 180 = 2000", " 240 = 3000", " 300 = 4000",
            " 360 = 5000"))

    def test_a_file_that_cannot_be_made_leaves_the_later_ones_unmade(self):
        self.folder.write("Recursos/Vintoral.XTR/x", b"")
        self.running()
        self.assertTrue((self.folder / "Recursos/Vintoral.EMP").is_file())
        self.assertFalse((self.folder / "Recursos/Vintoral.RJE").exists())

    def test_each_gate_has_a_tariff_of_its_own(self):
        self.running()
        self.assertFalse(list(self.folder.shared.glob("*.EMP")))


class Tables(DrivenDay):
    def test_how_the_lines_enter_the_tables(self):
        self.folder.write("Recursos/Vintoral.XTR", lines("", " Casco de moto con visera = 120000 "))
        self.folder.write("Recursos/Vintoral.RJE", lines(" 120 = mil "))
        station = self.with_tariff("  auto  ", " 1m = 100* ", "", "abcdefghijklmnopqrstuvwxyz")
        state = station.state()
        self.assertEqual([line.rstrip() for line in state["TablaTarifas"]],
                         ["AUTO", "1M = 100*", "", "ABCDEFGHIJKLMNOPQRST"])
        self.assertEqual([line.rstrip() for line in state["TablaExtras"]], ["", "CASCO DE MOTO CON VISERA = 120000"])
        self.assertEqual([line.rstrip() for line in state["TablaPrepago"]], [" 120 = mil"])
        self.assertEqual(station.get("CboTarifa(1)")["List"], ["AUTO", "ABCDEFGHIJKLMNOPQRST"])

    def test_an_empty_tariff_has_no_categories(self):
        self.folder.write("Recursos/Vintoral.EMP", b"")
        station = self.running()
        self.assertEqual(station.state("TablaTarifas"), [])
        self.assertEqual((station.get("CboTarifa(1)")["List"], station.text("CboTarifa(1)")), ([], ""))
        station.save(7, "", "ana")
        self.assertEqual(self.folder.slot(7).Categoria, "")

    def test_a_torn_last_record_is_no_line(self):
        self.folder.write("Recursos/Vintoral.EMP", lines("AUTO", "1M = 100*") + b"MOTO" + b" " * 95)
        self.assertEqual(self.running().get("CboTarifa(1)")["List"], ["AUTO"])

    def test_the_first_category_is_chosen(self):
        station = self.running()
        self.assertEqual((station.text("CboTarifa(1)"), station.get("CboTarifa(1)")["ListIndex"]), ("AUTOMOVIL", 0))


class Fares(DrivenDay):
    def fare(self, station, category, days=0, hours=0, minutes=0):
        return station.do("fare", category=category, entry=entry_before(days, hours, minutes).strftime("%d/%m/%Y %H:%M:%S"),
                          exit=NOON.strftime("%d/%m/%Y %H:%M:%S"))["fare"]

    def assertFare(self, tariff, category, stay, value):
        """`stay` as (days, hours, minutes)."""
        station = self.with_tariff(*tariff)
        self.assertEqual(self.fare(station, category, *stay)["value"], value)
        station.end()

    def test_worked_examples(self):
        station = self.running()
        for category, days, hours, minutes, value in WORKED:
            with self.subTest(category=category, stay=(days, hours, minutes)):
                fare = self.fare(station, category, days, hours, minutes)
                self.assertEqual((fare["value"], fare["shown"]), (value or "0.00", value is not None))
                self.assertEqual((fare["days"], fare["hours"], fare["minutes"]), (days, hours, minutes))

    def test_stay_texts(self):
        station = self.running()
        for stay, text in (((1, 2, 30), "01D 02H 30M "), ((0, 2, 5), "02H 05M "), ((0, 0, 37), "37M "),
                           ((0, 0, 0), "00M "), ((120, 0, 1), "120D 00H 01M "), ((1, 0, 0), "01D 00H 00M ")):
            with self.subTest(stay=stay):
                self.assertEqual(self.fare(station, "AUTOMOVIL", *stay)["stay"], text)

    def test_seconds_do_not_make_a_minute(self):
        fare = self.running().do("fare", category="AUTOMOVIL", entry="20/11/2026 14:00:00", exit="20/11/2026 14:00:40")["fare"]
        self.assertEqual((fare["stay"], fare["value"]), ("00M ", "0.00"))

    def test_the_day_comes_first_in_a_date(self):
        fare = self.running().do("fare", category="AUTOMOVIL", entry="01/02/2026 14:00:00", exit="02/02/2026 14:00:00")["fare"]
        self.assertEqual((fare["days"], fare["value"]), (1, "30000.00"))

    def test_a_leap_day(self):
        fare = self.running().do("fare", category="AUTOMOVIL", entry="28/02/2028 14:00:00", exit="01/03/2028 14:00:00")["fare"]
        self.assertEqual((fare["days"], fare["value"]), (2, "60000.00"))

    def test_an_entry_after_the_exit_or_no_date_has_no_stay(self):
        station = self.running()
        for entry in ("20/11/2026 14:01:00", "31/02/2026 10:00:00", "", "??"):
            with self.subTest(entry=entry):
                fare = station.do("fare", category="AUTOMOVIL", entry=entry, exit="20/11/2026 14:00:00")["fare"]
                self.assertEqual((fare["stay"], fare["days"], fare["hours"], fare["minutes"], fare["value"]),
                                 ("??", 0, 0, 0, "0.00"))

    def test_clocks_that_change_in_the_night_do_not_change_a_stay(self):
        """A stay is measured between two readings of a wall clock, wherever the station stands."""
        station = self.process({"TZ": "America/New_York"})
        self.start(station, now="2026-03-08 12:00:00")
        station.answer("ok")
        fare = station.do("fare", category="AUTOMOVIL", entry="08/03/2026 01:30:00", exit="08/03/2026 03:30:00")["fare"]
        self.assertEqual(fare["stay"], "02H 00M ")

    def test_points_are_the_quarters_of_an_hour(self):
        station = self.running()
        for stay, points in (((0, 0, 14), 0), ((0, 0, 15), 1), ((1, 2, 47), 107), ((2, 0, 0), 192)):
            with self.subTest(stay=stay):
                self.assertEqual(self.fare(station, "AUTOMOVIL", *stay)["points"], points)

    def test_a_minute_rule_without_star_is_charged_on_whole_hours(self):
        self.assertFare(["X", "15M = 500", "1H = 2000"], "X", (0, 1, 0), "2500.00")

    def test_past_the_last_minute_rule_its_value_stays(self):
        self.assertFare(["X", "10M = 300", "30M = 800"], "X", (0, 0, 45), "800.00")

    def test_past_the_last_hour_rule_the_minutes_stay(self):
        self.assertFare(["X", "1M = 10*", "1H = 2000", "2H = 4000"], "X", (0, 9, 7), "4070.00")

    def test_two_stars_in_the_first_hour_rule_are_no_price_for_each_hour(self):
        self.assertFare(["X", "1H = 600**", "4H = 1500"], "X", (0, 3, 0), "1500.00")

    def test_one_star_is_a_price_for_each_hour(self):
        self.assertFare(["X", "1H = 600*"], "X", (0, 3, 0), "1800.00")

    def test_a_decimal_comma(self):
        self.assertFare(["X", "1M = 12,50*"], "X", (0, 0, 3), "37.50")
        self.assertFare(["X", "1M = 0,335*"], "X", (0, 0, 1), "0.34")

    def test_small_letters_without_blanks_are_the_same_rule(self):
        self.assertFare(["x", "1h=6000"], "X", (0, 1, 0), "6000.00")

    def test_a_category_is_found_without_its_blanks_and_in_any_case(self):
        station = self.running()
        for category in ("automovil", " AUTOMOVIL  "):
            with self.subTest(category=category):
                self.assertEqual(self.fare(station, category, 0, 1, 0)["value"], "6000.00")

    def test_the_first_of_two_heads_wins(self):
        self.assertFare(["X", "1M = 1*", "", "X", "1M = 2*"], "X", (0, 0, 5), "5.00")

    def test_a_blank_line_ends_a_category(self):
        self.assertFare(["X", "1M = 1*", "", "1H = 1000"], "X", (0, 1, 5), "5.00")

    def test_stars_past_the_twentieth_character_are_lost(self):
        # What is left is a step of 100 that five minutes run past, no longer 100 for each minute.
        self.assertFare(["X", "1M = 000000100      *"], "X", (0, 0, 5), "100.00")

    def test_a_line_without_a_unit_never_applies(self):
        station = self.with_tariff("X", "5 = 700")
        fare = self.fare(station, "X", 0, 0, 5)
        self.assertEqual((fare["value"], fare["shown"]), ("0.00", False))

    def test_an_unknown_category_has_no_value(self):
        fare = self.fare(self.running(), "CAMION", 0, 1, 0)
        self.assertEqual((fare["value"], fare["shown"]), ("0.00", False))


class OnTheScreen(DrivenDay):
    def test_worked_examples(self):
        fichas = [inside(number, stamp(entry.strftime("%H:%M"), entry.strftime("%d/%m/%Y")), category=category)
                  for number, (category, entry) in enumerate(((row[0], entry_before(*row[1:4])) for row in WORKED), start=1)]
        station = self.with_fichas(*fichas)
        for number, (category, days, hours, minutes, value) in enumerate(WORKED, start=1):
            with self.subTest(category=category, stay=(days, hours, minutes)):
                station.call_up(number)
                self.assertEqual(station.shown("LblValor"), value is not None)
                if value is not None:
                    self.assertEqual(station.caption("LblValor"), f"$ {value}")
                station.key(ESC)

    def test_a_stay_that_passes_on_the_clock(self):
        station = self.running()
        station.save(7, "", category="MOTOCICLETA")
        station.advance(80 * 60000)
        station.call_up(7)
        self.assertEqual(station.captions("LblInfo(1)", "LblValor"), ["01H 20M ", "$ 3000.00"])

    def test_the_first_minute_past_a_day_counts_as_an_hour_and_shows_the_true_stay(self):
        station = self.with_fichas(inside(7, stamp("13:59", "17/11/2026"), category="MOTOCICLETA"))
        station.call_up(7)
        self.assertEqual(station.captions("LblInfo(1)", "LblValor"), ["03D 00H 01M ", "$ 32000.00"])
        self.assertEqual([station.state(name) for name in ("DiasEstadia", "HorasEstadia", "MinutosEstadia")], [3, 1, 0])

    def test_a_changed_file_waits_for_the_next_start(self):
        station = self.with_fichas(inside(7, stamp("13:00", "20/11/2026")))
        self.folder.write("Recursos/Vintoral.EMP", lines("AUTOMOVIL", "1H = 1"))
        station.call_up(7)
        self.assertEqual(station.caption("LblValor"), "$ 6000.00")
        station.end()
        station = self.running()
        station.call_up(7)
        self.assertEqual(station.caption("LblValor"), "$ 1.00")


class TheDialog(DrivenDay):
    """Ctrl+T: the operator edits the tables while the gate is held."""

    def opened(self):
        station = self.running()
        reply = station.key(ord("T"), CONTROL)
        self.assertEqual(reply["waiting"], {"form": "Form6"})
        self.assertEqual(sounds(reply), ["Sonidos\\Vintoral-5.wav"])
        return station

    def test_it_holds_the_main_screen(self):
        station = self.opened()
        state = station.state()
        self.assertEqual((state["active"], state["forms"], state["focus"]),
                         ("Form6", ["Form1", "Form6"], "Form6.TxtTarifas(0)"))
        for operation, fields in (("click", {"control": "PctBoton(11)"}), ("focus", {"control": "TxtCampo(1)"}),
                                  ("set", {"control": "Form1.TxtCampo(0)", "text": "7"}), ("close", {}),
                                  ("unload", {"form": "Form1"}), ("hover", {"control": "Form1"})):
            with self.subTest(operation):
                reply = station.attempt(operation, **fields)
                self.assertFalse(reply["ok"])
                self.assertIn("Form1", reply["error"])
                self.assertEqual((reply["waiting"], reply["events"]), ({"form": "Form6"}, []))

    def test_a_new_tariff_prices_at_once_and_after_a_restart(self):
        station = self.opened()
        station.set("Form6.TxtTarifas(0)", "auto\n 1h=700")
        self.assertEqual(station.text("Form6.TxtTarifas(0)"), "auto\r\n 1h=700")
        self.assertEqual(station.get("Form6.TxtTarifas(0)")["Tag"], "1")
        reply = station.click("Form6.CmdFuncion(1)")
        self.assertIsNone(reply["waiting"])
        self.assertEqual(station.state("forms"), ["Form1"])
        fare = {"category": "AUTO", "entry": "20/11/2026 10:00:00", "exit": "20/11/2026 11:00:00"}
        self.assertEqual(station.do("fare", **fare)["fare"]["value"], "700.00")
        self.assertEqual((self.folder / "Recursos/Vintoral.EMP").read_bytes(), lines("AUTO", "1H=700"))
        station.close()
        again = self.running()
        self.assertEqual(again.do("fare", **fare)["fare"]["value"], "700.00")
        self.assertEqual(again.get("CboTarifa(1)")["List"], ["AUTO"])

    def test_nothing_is_kept_by_esc_by_cancel_and_by_the_close_box(self):
        station = self.opened()
        before = self.folder.all_bytes()
        for leave in (lambda: station.key(ESC), lambda: station.click("Form6.CmdFuncion(0)"),
                      lambda: station.do("unload", form="Form6")):
            station.set("Form6.TxtTarifas(0)", "NADA")
            station.set("Form6.TxtMoneda", "X")
            self.assertIsNone(leave()["waiting"])
            self.assertEqual(self.folder.all_bytes(), before)
            self.assertEqual(station.state("Moneda"), "$")
            station.key(ord("T"), CONTROL)

    def test_the_gate_lives_on_behind_it(self):
        station = self.opened()
        station.advance(60_000)
        self.assertEqual(station.get("LblFechaEnt")["Caption"], "14:01  (20/11/2026)")
        station.type("X")
        self.assertTrue(station.text("Form6.TxtTarifas(0)").startswith("X\r\nAUTOMOVIL\r\n"))

    def test_a_form_that_is_not_loaded(self):
        station = self.running()
        for operation, fields in (("unload", {"form": "Form6"}), ("click", {"control": "Form6.CmdFuncion(0)"})):
            reply = station.attempt(operation, **fields)
            self.assertFalse(reply["ok"])
            self.assertIn("Form6", reply["error"])


class Points(DrivenDay):
    """A stay of two hours and a half earns ten points."""

    def shown(self, points):
        station = self.with_fichas(inside(7, stamp("11:30", "20/11/2026"), "AAA111", UsuarioPuntos=1),
                                   users=[user("AAA111", points=points)])
        station.call_up(7)
        self.assertEqual([station.shown(f"LblPuntos({i})") for i in (0, 1)], [True, True])
        result = station.caption("LblPuntos(1)"), station.state("PuntosAcumulados")
        station.end()
        return result

    def test_they_add_to_those_of_the_user(self):
        self.assertEqual(self.shown(100), ("110", 100))

    def test_the_highest_sum_is_kept(self):
        self.assertEqual(self.shown(999989), ("999999", 999989))

    def test_one_more_starts_again_with_those_of_the_stay(self):
        self.assertEqual(self.shown(999990), ("10", 0))

    def test_without_a_user_they_are_shown_too(self):
        station = self.with_fichas(inside(7, stamp("11:30", "20/11/2026")))
        station.call_up(7)
        self.assertEqual(station.caption("LblPuntos(1)"), "10")


if __name__ == "__main__":
    main()
