"""Passes of entries and of days: made with a ticket, entering by themselves, spent, run out, and their records used again."""
import json

from slips import printed
from station import (CONFIRM_SAVE, ESC, HOME, INSERT, fresh_register, inside, kinds, main, sounds, stamp, user)
from tickets import (DAYS, ENTRIES, GENERATED, LIMIT_OF_CODES, PASS, Pass, TicketDay, in_bars, pass_record)

PRINTER = {"printers": ["Laser"], "printer": "Laser"}
CFR, CDB = "Multimedia/Vintoral.CFR", "Multimedia/Vintoral.CDB"
KNOWN = "ABCDEFGHIJ12"
TODAY = "20/11/2026"
FIRST = "2026-12-01 08:00:00"  # the day on which passes of days are used first
FIRST_STAMP = stamp("08:00", "01/12/2026")


class PassDay(TicketDay):
    def holding(self, *passes, **options):
        """A gate, and these records in CFR."""
        self.folder.write(CFR, b"".join(passes))
        return self.gate(**options)

    def come_back(self, station, code):
        """A scan of a pass that is outside, up to the question; what the boxes of validity show."""
        self.assertEqual(sounds(self.scan(station, code)), [GENERATED])
        self.assertEqual((station.reply["waiting"], station.shown("PctBoton(5)")), ({"wait": 1000}, True))
        shown = self.validity(station)
        station.advance(999)
        self.assertIsNone(station.box)
        station.advance(1)
        self.assertBox(station, CONFIRM_SAVE)
        return shown

    def validity(self, station):
        number, unit = station.get("TxtMaxEntrada", "LstModEntrada")
        self.assertEqual([box["Visible"] for box in (number, unit)], [True, True])
        self.assertEqual(number["Enabled"], unit["Enabled"])
        return number["Text"], unit["ListIndex"], number["Enabled"]

    def assertRefused(self, station, code):
        """Nothing but the text, which goes after its second."""
        reply = self.scan(station, code)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual([station.shown(name) for name in ("PctBoton(5)", "PctBoton(6)", "TxtBarCodeOK", "TxtMaxEntrada")],
                         [False] * 4)
        self.assertEqual(station.text("TxtBarCode"), code)
        station.advance(1000)
        self.assertNothingRead(station)

    def enter_and_leave(self, station, code):
        shown = self.come_back(station, code)
        station.answer("yes")
        self.assertNothingRead(station)
        self.leave(station, code)
        return shown


class Entries(PassDay):
    def test_three_entries_and_no_fourth(self):
        station = self.gate(**PRINTER)
        code = self.ticket(station, "abc123", validity="3", category="MOTOCICLETA")
        (_, text), = printed(station.reply)
        self.assertIn(" " * 7 + "VALIDO 3 ENTRADAS\n", text)  # (16 - 1) / 2 blanks
        self.assertEqual(in_bars(station.reply), [f"*{code}*"])
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record(code, "ABC123", left=2))
        self.leave(station, code)
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record(code, "ABC123", left=2))

        self.assertEqual(self.come_back(station, code), ("2", ENTRIES, False))
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)", "CboTarifa(1)"), ["1", "ABC123", "MOTOCICLETA"])
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record(code, "ABC123", left=2))  # before the answer
        reply = station.answer("yes")
        self.assertEqual(printed(reply), [])  # he has his ticket
        self.assertNothingRead(station)
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record(code, "ABC123", left=1))
        self.assertEqual(self.books.codes(), {1: (code, "0001")})
        self.assertEqual((self.folder.slot(1).Placa, self.folder.slot(1).EnUso), ("ABC123", -1))
        self.leave(station, code)
        self.assertEqual(self.books.codes(), {})

        self.assertEqual(self.enter_and_leave(station, code), ("1", ENTRIES, False))
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record("", "ABC123", left=1))

        self.assertRefused(station, code)
        self.assertEqual([row.Placa for row in self.folder.history()], ["ABC123"] * 3)
        self.assertEqual(len(self.books.users()), 1)

    def test_one_entry_makes_no_register_of_passes(self):
        station = self.gate()
        code = self.ticket(station, "abc", validity="1")
        self.leave(station, code)
        self.assertFalse((self.folder / CFR).exists())
        self.assertRefused(station, code)

    def test_the_last_entry_stays_known_as_long_as_he_is_inside(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=1))
        self.come_back(station, KNOWN)
        station.answer("yes")
        self.assertEqual(self.books.passes(), [Pass("", "ABC", ENTRIES, "", 1)])
        self.assertEqual(self.books.codes(), {1: (KNOWN, "0001")})
        self.leave(station, KNOWN)
        self.assertRefused(station, KNOWN)

    def test_inside_the_pass_is_not_looked_at(self):
        station = self.gate()
        code = self.ticket(station, "abc", validity="5")
        before = (self.folder / CFR).read_bytes()
        self.scan(station, code)
        self.assertOnDisplay(station, 1)
        self.assertFalse(station.shown("TxtMaxEntrada"))
        station.key(ESC)
        self.assertEqual((self.folder / CFR).read_bytes(), before)

    def test_what_counts_as_a_number_of_entries(self):
        left = {"0": None, "": None, "1": None, "1.5": None, "1,9": None, ".": None, "2": 1, "2.9": 1, "002": 1, "999": 998}
        for typed, expected in left.items():
            with self.subTest(typed=typed):
                with self.gate() as station:
                    code = self.ticket(station, "abc" + typed, validity=typed)
                    self.assertEqual(self.folder.slot(1).EnUso, -1)
                    found = [record.RestantesPase for record in self.books.passes()]
                    self.assertEqual(found, [] if expected is None else [expected])
                    self.leave(station, code)
                (self.folder / CFR).unlink(missing_ok=True)

    def test_in_number_mode_nothing_is_a_pass(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2), barcodes=False)
        before = (self.folder / CFR).read_bytes()
        station.save(1, "abc")
        station.retire(1)
        self.assertEqual((self.folder / CFR).read_bytes(), before)


class Days(PassDay):
    def on(self, station, day, hour="08:00"):
        station.clock(f"2026-12-{day:02} {hour}:00")
        station.advance(1000)

    def made(self, days, **options):
        """A pass of so many days, used first on the 1st, its holder outside again."""
        station = self.gate(now="2026-12-01 07:59:57", **options)
        code = self.ticket(station, "abc", validity=days, mode=DAYS)
        self.made_reply = station.reply
        self.leave(station, code)
        return station, code

    def test_thirty_days(self):
        station, code = self.made("30", **PRINTER)
        (_, text), = printed(self.made_reply)
        self.assertIn("VALIDO 30 DIA(S)   (30/12/2026)\n", text)
        record = pass_record(code, "ABC", DAYS, FIRST_STAMP, 29)
        self.assertEqual((self.folder / CFR).read_bytes(), record)
        for day, left in ((1, "30"), (10, "21"), (30, "1")):
            with self.subTest(day=day):
                self.on(station, day, "23:58")
                self.assertEqual(self.enter_and_leave(station, code), (left, DAYS, False))
                self.assertEqual((self.folder / CFR).read_bytes(), record)
        self.on(station, 31, "00:00")
        self.assertRefused(station, code)
        self.assertEqual((self.folder / CFR).read_bytes(), pass_record("", "ABC", DAYS, FIRST_STAMP, 29))
        self.on(station, 10)
        self.assertRefused(station, code)  # freed is freed

    def test_one_day(self):
        station, code = self.made("1")
        record = pass_record(code, "ABC", DAYS, FIRST_STAMP, 0)
        self.assertEqual((self.folder / CFR).read_bytes(), record)
        self.on(station, 1, "23:58")
        self.assertEqual(self.enter_and_leave(station, code), ("1", DAYS, False))
        self.assertEqual((self.folder / CFR).read_bytes(), record)
        self.on(station, 2, "00:00")
        self.assertRefused(station, code)
        self.assertEqual(self.books.passes()[0].CodigoPase, "")

    def test_no_days_make_no_pass(self):
        station, code = self.made("0")
        self.assertFalse((self.folder / CFR).exists())
        self.assertRefused(station, code)

    def test_calendar_days_across_months_and_a_leap_day(self):
        date = stamp("23:59", "28/02/2028")
        station = self.holding(pass_record(KNOWN, "ABC", DAYS, date, 29), now="2028-03-01 00:00:00")
        # The 29th of February and the 1st of March: d = 2, 28 of 30 are left.
        self.assertEqual(self.come_back(station, KNOWN), ("28", DAYS, False))

    def test_a_date_in_the_future_counts_by_its_distance(self):
        date = stamp("08:00", "25/11/2026")
        station = self.holding(pass_record(KNOWN, "ABC", DAYS, date, 29), pass_record(KNOWN[::-1], "DEF", DAYS, date, 4))
        self.assertEqual(self.come_back(station, KNOWN), ("25", DAYS, False))  # d = 5
        station.answer("no")
        station.key(ESC)
        self.assertRefused(station, KNOWN[::-1])
        self.assertEqual([record.CodigoPase for record in self.books.passes()], [KNOWN, ""])

    def test_inside_over_its_last_day_he_can_leave(self):
        station, code = self.made("1")
        self.come_back(station, code)
        station.answer("yes")
        self.on(station, 5)
        self.leave(station, code)
        self.assertEqual([row.Placa for row in self.folder.history()], ["ABC"] * 2)

    def test_only_the_date_of_the_stamp_is_read(self):
        date = "??:??  (" + TODAY + ")"
        station = self.holding(pass_record(KNOWN, "ABC", DAYS, date, 3))
        self.assertEqual(self.come_back(station, KNOWN), ("4", DAYS, False))

    def test_days_whose_date_is_none_are_worth_nothing_and_stay(self):
        for date in ("", "08:00  (31/02/2026)", "XXXXXXXXXXXXXXXXXXXX", "08:00  (20.11.2026)"):
            with self.subTest(date=date):
                record = pass_record(KNOWN, "ABC", DAYS, date, 30)
                with self.holding(record) as station:
                    self.assertRefused(station, KNOWN)
                self.assertEqual((self.folder / CFR).read_bytes(), record)


class ComingBack(PassDay):
    def test_no_keeps_the_form_and_spends_nothing(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        before = self.folder.all_bytes()
        self.come_back(station, KNOWN)
        station.answer("no")
        self.assertEqual((station.texts("TxtCampo(0)", "TxtCampo(1)"), station.focused()), (["1", "ABC"], "TxtCampo(2)"))
        self.assertEqual(self.folder.all_bytes(), before)
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual((self.books.passes()[0].RestantesPase, self.folder.slot(1).EnUso), (1, -1))

    def test_escape_spends_nothing_and_the_next_ticket_is_no_pass(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        self.come_back(station, KNOWN)
        station.answer("no")
        station.key(ESC)
        self.assertNothingRead(station)
        code = self.ticket(station, "def")
        self.assertNotEqual(code, KNOWN)
        self.assertEqual(self.books.passes(), [Pass(KNOWN, "ABC", ENTRIES, "", 2)])
        self.leave(station, code)
        station.key(HOME)
        self.assertEqual(self.validity(station), ("1", ENTRIES, True))

    def test_escape_within_the_second(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        before = self.folder.all_bytes()
        self.scan(station, KNOWN)
        station.advance(500)
        station.key(ESC)
        station.advance(2000)
        self.assertIsNone(station.reply["waiting"])
        self.assertNothingRead(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_saved_by_hand_within_the_second_it_is_asked_once(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=3))
        self.scan(station, KNOWN)
        station.advance(300)
        station.key(INSERT)
        station.answer("yes")
        station.advance(2000)
        self.assertIsNone(station.reply["waiting"])
        self.assertEqual(self.books.passes()[0].RestantesPase, 2)
        self.assertEqual((self.folder.slot(1).EnUso, self.folder.slot(2).EnUso), (-1, 0))

    def test_with_enter_behind_the_code(self):
        for pause in (0, 30):
            with self.subTest(pause=pause):
                with self.holding(pass_record(KNOWN, "ABC", left=2)) as station:
                    self.scan(station, KNOWN)
                    station.advance(pause)
                    station.enter()
                    self.assertIsNone(station.box)
                    station.advance(1000 - pause)
                    self.assertBox(station, CONFIRM_SAVE)
                    self.assertEqual(station.text("TxtCampo(1)"), "ABC")

    def test_in_small_letters(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        self.come_back(station, KNOWN.lower())
        station.answer("yes")
        self.assertEqual(self.books.passes(), [Pass(KNOWN, "ABC", ENTRIES, "", 1)])
        self.leave(station, KNOWN)
        self.assertEqual(len(self.folder.history()), 1)

    def test_a_known_user_comes_in_the_category_of_his_last_save(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2),
                               users=[user("ABC", "ANA", "ROA", "555", "VIP", "ACCESO MES AUTO", 40)])
        self.come_back(station, KNOWN)
        self.assertEqual(station.texts(*(f"TxtCampo({i})" for i in range(2, 6)), "CboTarifa(1)"),
                         ["ANA", "ROA", "555", "VIP", "ACCESO MES AUTO"])
        station.answer("yes")
        slot = self.folder.slot(1)
        self.assertEqual((slot.Nombre, slot.Categoria, slot.UsuarioPuntos), ("ANA", "ACCESO MES AUTO", 1))

    def test_a_plate_that_is_inside_with_another_ticket(self):
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(inside(9, stamp("13:00", TODAY), "ABC")))
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        before = self.folder.all_bytes()
        self.scan(station, KNOWN)
        station.advance(1000)
        self.assertBox(station, {"title": "Vintoral - Ingreso Denegado",
                                 "text": "La información digitada ya se encuentra en uso por la ficha 0009."})
        station.answer("ok")
        self.assertNothingRead(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_with_no_number_free(self):
        self.folder.write("Multimedia/Vintoral.ACT",
                          fresh_register(*(inside(n, stamp("13:00", TODAY), f"P{n}") for n in range(1, 1001))))
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        self.scan(station, KNOWN)
        self.assertBox(station, LIMIT_OF_CODES)
        station.answer("ok")
        station.advance(3000)
        self.assertNothingRead(station)
        self.assertEqual(self.books.passes(), [Pass(KNOWN, "ABC", ENTRIES, "", 2)])

    def test_without_a_register_of_passes(self):
        self.assertRefused(self.gate(), KNOWN)
        self.assertFalse((self.folder / CFR).exists())

    def test_without_a_register_of_codes_nothing_is_read(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=2))
        (self.folder / CDB).unlink()
        self.assertRefused(station, KNOWN)

    def test_the_first_pass_of_a_code_counts(self):
        station = self.holding(pass_record(), pass_record(KNOWN, "ONE", left=5), pass_record(KNOWN, "TWO", left=9))
        self.assertEqual(self.come_back(station, KNOWN), ("5", ENTRIES, False))
        station.answer("yes")
        self.assertEqual([record.RestantesPase for record in self.books.passes()], [0, 4, 9])

    def test_no_entries_left_is_worth_nothing_and_stays(self):
        for left in (0, -1, -32768):
            with self.subTest(left=left):
                record = pass_record(KNOWN, "ABC", left=left)
                with self.holding(record) as station:
                    self.assertRefused(station, KNOWN)
                self.assertEqual((self.folder / CFR).read_bytes(), record)

    def test_any_other_mode_counts_days(self):
        for mode in (2, 255):
            with self.subTest(mode=mode):
                record = pass_record(KNOWN, "ABC", mode, stamp("08:00", TODAY), 9)
                with self.holding(record) as station:
                    self.assertEqual(self.come_back(station, KNOWN), ("10", DAYS, False))
                    station.answer("yes")
                    self.assertEqual((self.folder / CFR).read_bytes(), record)
                    self.leave(station, KNOWN)

    def test_all_that_the_counter_holds(self):
        station = self.holding(pass_record(KNOWN, "ABC", left=32767))
        self.assertEqual(self.come_back(station, KNOWN), ("32767", ENTRIES, False))
        station.answer("yes")
        self.assertEqual(self.books.passes()[0].RestantesPase, 32766)

    def test_a_pass_without_a_plate(self):
        station = self.gate()
        code = self.ticket(station, "", validity="2")
        self.assertEqual(self.books.passes(), [Pass(code, "", ENTRIES, "", 1)])
        self.leave(station, code)
        self.enter_and_leave(station, code)
        self.assertEqual((self.books.passes()[0].CodigoPase, self.books.users()), ("", []))


class Places(PassDay):
    OTHER = "000000000000"

    def test_behind_the_last_one(self):
        station = self.holding(pass_record(self.OTHER, "X", left=3), pass_record(self.OTHER[:-1] + "1", "Y", left=3))
        code = self.ticket(station, "abc", validity="4")
        self.assertEqual([record.CodigoPase for record in self.books.passes()], [self.OTHER, self.OTHER[:-1] + "1", code])

    def test_the_first_free_one(self):
        old = pass_record("", "OLD", DAYS, FIRST_STAMP, 9)
        station = self.holding(pass_record(self.OTHER, "X", left=3), old, old)
        code = self.ticket(station, "abc", validity="4")
        self.assertEqual((self.folder / CFR).read_bytes(),
                         pass_record(self.OTHER, "X", left=3) + pass_record(code, "ABC", left=3) + old)

    def test_over_a_torn_end(self):
        station = self.holding(pass_record(self.OTHER, "X", left=3), pass_record("TORN", "Y", left=3)[:60])
        code = self.ticket(station, "abc", validity="4")
        self.assertEqual([record.CodigoPase for record in self.books.passes()], [self.OTHER, code])
        self.assertEqual((self.folder / CFR).stat().st_size, 2 * PASS.size)

    def test_a_foreign_code_of_another_length_keeps_its_record(self):
        station = self.holding(pass_record("SHORT", "X", left=3), pass_record("A" * 50, "Y", left=3))
        code = self.ticket(station, "abc", validity="4")
        self.assertEqual([record.CodigoPase for record in self.books.passes()], ["SHORT", "A" * 50, code])


class TwoGates(PassDay):
    def test_a_pass_of_one_gate_is_good_at_the_other(self):
        one, two = self.gate(), self.second_gate()
        code = self.ticket(one, "abc", validity="3")
        self.leave(two, code)
        self.assertEqual(self.enter_and_leave(two, code), ("2", ENTRIES, False))
        self.assertEqual(self.enter_and_leave(one, code), ("1", ENTRIES, False))
        self.assertEqual([row.PorteriaEntrada for row in self.folder.history()], ["01", "02", "01"])
        self.assertRefused(two, code)

    def test_the_last_entry_shown_at_both_is_taken_once(self):
        one = self.holding(pass_record(KNOWN, "", left=1))  # without a plate nothing else tells that he is inside
        two = self.second_gate()
        self.come_back(one, KNOWN)
        self.come_back(two, KNOWN)
        one.answer("yes")
        before = self.folder.all_bytes()
        reply = two.answer("yes")
        self.assertEqual((kinds(reply), reply["waiting"]), (["beep"], None))
        self.assertNothingRead(two)
        self.assertEqual(self.folder.all_bytes(), before)
        self.assertEqual((self.folder.slot(1).EnUso, self.folder.slot(501).EnUso), (-1, 0))

    def test_two_entries_shown_at_both_are_both_taken(self):
        one = self.holding(pass_record(KNOWN, "", left=2))
        two = self.second_gate()
        self.assertEqual(self.come_back(one, KNOWN)[0], "2")
        self.assertEqual(self.come_back(two, KNOWN)[0], "2")
        one.answer("yes")
        two.answer("yes")
        self.assertEqual((self.folder.slot(1).EnUso, self.folder.slot(501).EnUso), (-1, -1))
        self.assertEqual(self.books.passes()[0].CodigoPase, "")

    def test_passes_made_at_once_get_a_record_each(self):
        one, two = self.gate(), self.second_gate()
        for round_ in range(1, 6):
            for gate, door in ((one, "A"), (two, "B")):
                gate.key(HOME)
                gate.set("TxtCampo(1)", f"{door}{round_}")
                gate.set("TxtMaxEntrada", "9")
                gate.key(INSERT)
            for gate in (one, two):  # both on their way before either is read
                gate.send_line(b'{"op":"answer","button":"yes"}')
            for gate in (one, two):
                gate.reply = json.loads(gate.read_line())
        self.assertEqual(sorted(record.PlacaPase for record in self.books.passes()),
                         sorted(f"{door}{n}" for door in "AB" for n in range(1, 6)))
        self.assertEqual({record.CodigoPase for record in self.books.passes()},
                         {code for code, _ in self.books.codes().values()})

    def test_one_that_another_gate_freed_and_gave_away_is_left_alone(self):
        """It runs out of days at one gate while the other has it on the screen, and somebody takes its record."""
        one = self.holding(pass_record(KNOWN, "ABC", left=1))
        self.come_back(one, KNOWN)
        theirs = pass_record("999999999999", "THEIRS", left=7)
        self.folder.write(CFR, theirs)
        reply = one.answer("yes")
        self.assertEqual(kinds(reply), ["beep"])
        self.assertEqual(((self.folder / CFR).read_bytes(), self.folder.slot(1).EnUso), (theirs, 0))


if __name__ == "__main__":
    main()
