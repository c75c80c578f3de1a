"""Tickets by bar code: the generator, its code on paper and in the register, and the scan that finds the ficha again."""
import re

from slips import printed
from station import (ACT_LENGTH, CONFIRM_RETIRE, DELETE, ENTER, ESC, HOME, INSERT, RETIRED, ROWS, DrivenDay, Folder, inside,
                     kinds, main, sounds, stamp)
from tickets import (CODE, CODES, GENERATED, LIMIT_OF_CODES, LIMIT_OF_FICHAS, PALE, TicketDay, code_record, codes_file, in_bars,
                     pass_record)

TODAY = "20/11/2026"
ENTRY = stamp("13:00", TODAY)
KNOWN = "ABCDEFGHIJ12"
PRINTER = {"printers": ["Laser"], "printer": "Laser"}
CDB, CFR = "Multimedia/Vintoral.CDB", "Multimedia/Vintoral.CFR"


def taken(numbers):
    return [inside(number, ENTRY, f"P{number}") for number in numbers]


class Register(DrivenDay):
    def test_a_first_start_makes_a_thousand_blank_records(self):
        self.running()
        self.assertEqual((self.folder / CDB).read_bytes(), b" " * (54 * 1000))

    def test_a_later_start_leaves_it_alone(self):
        data = codes_file(s7=KNOWN)
        self.folder.write(CDB, data)
        self.running()
        self.assertEqual((self.folder / CDB).read_bytes(), data)

    def test_a_connected_gate_makes_one_at_home_too(self):
        self.running()
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        self.running(second)
        self.assertEqual((second / CDB).read_bytes(), b" " * (54 * 1000))


class Generator(TicketDay):
    def assertNewTicket(self, station, number):
        self.assertEqual((station.text("TxtCampo(0)"), station.focused()), (str(number), "TxtCampo(1)"))
        self.assertRegex(station.text("TxtBarCode"), "^[0-9A-Z]{12}$")
        self.assertEqual((station.text("TxtMaxEntrada"), station.get("LstModEntrada")["ListIndex"]), ("1", 0))
        self.assertEqual(station.get("LstModEntrada")["List"], ["ENT(S)", "DIA(S)"])
        boxes = station.get("TxtMaxEntrada", "LstModEntrada")
        self.assertEqual([(box["Visible"], box["Enabled"]) for box in boxes], [(True, True)] * 2)
        self.assertEqual([station.shown(name) for name in ("TxtBarCodeOK", "PctBoton(5)", "PctBoton(6)")], [True, True, False])

    def test_home_opens_the_form_of_a_new_ticket(self):
        station = self.gate()
        self.assertNothingRead(station)
        self.assertEqual(sounds(station.key(HOME)), [GENERATED])
        self.assertNewTicket(station, 1)

    def test_the_button_of_the_codes_does_the_same(self):
        station = self.gate(*taken([1, 2]))
        self.assertEqual(sounds(station.click("CmdBarCode")), [GENERATED])
        self.assertNewTicket(station, 3)

    def test_without_barcode_mode_it_gives_a_number_and_no_code(self):
        station = self.gate(*taken([1]), barcodes=False)
        self.assertEqual(sounds(station.click("CmdNumeroFicha")), [GENERATED])
        self.assertEqual((station.text("TxtCampo(0)"), station.focused()), ("2", "TxtCampo(1)"))
        self.assertEqual([station.shown(name) for name in ("TxtBarCode", "TxtBarCodeOK", "TxtMaxEntrada", "LstModEntrada")],
                         [False] * 4)
        station.set("TxtCampo(1)", "abc")
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual((self.folder.slot(2).Placa, self.books.codes()), ("ABC", {}))

    def test_home_in_number_mode(self):
        station = self.gate(*taken([1, 2, 4]), barcodes=False)
        self.assertEqual(sounds(station.key(HOME)), [GENERATED])
        self.assertEqual(station.text("TxtCampo(0)"), "3")

    def test_without_tickets_home_does_nothing(self):
        station = self.running()
        self.assertEqual((kinds(station.key(HOME)), station.text("TxtCampo(0)")), ([], ""))

    def test_on_a_form_the_buttons_beep_and_home_is_silent(self):
        for barcodes, button in ((True, "CmdBarCode"), (False, "CmdNumeroFicha")):
            with self.subTest(barcodes=barcodes):
                station = self.gate(barcodes=barcodes)
                station.key(HOME)
                code = station.text("TxtBarCode")
                self.assertEqual(kinds(station.key(HOME)), [])
                self.assertEqual(station.focused(), "TxtCampo(1)")
                self.assertEqual(kinds(station.click(button)), ["beep"])
                self.assertIsNone(station.focused())  # the tool bar
                self.assertEqual((station.text("TxtCampo(0)"), station.text("TxtBarCode")), ("1", code))
                station.end()

    def test_on_a_ficha_inside_too(self):
        station = self.gate(*taken([9]), barcodes=False)
        station.call_up(9)
        self.assertEqual(kinds(station.click("CmdNumeroFicha")), ["beep"])
        self.assertEqual(kinds(station.key(HOME)), [])
        self.assertOnDisplay(station, 9)

    def test_without_the_register_nothing_happens(self):
        station = self.gate()
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        self.assertEqual(kinds(station.key(HOME)), [])
        self.assertNothingRead(station)

    def test_half_a_code_in_the_box_gives_way_to_the_new_one(self):
        station = self.gate()
        station.type("AB3")
        station.key(HOME)
        self.assertNewTicket(station, 1)

    def test_escape_throws_the_ticket_away(self):
        station = self.gate()
        before = self.folder.all_bytes()
        station.key(HOME)
        station.set("TxtCampo(1)", "abc")
        station.key(ESC)
        self.assertNothingRead(station)
        self.assertEqual(self.folder.all_bytes(), before)


class EndOfTheNumbers(TicketDay):
    def test_the_last_number_of_all_is_taken(self):
        station = self.gate(*taken(range(1, 1000)))
        station.key(HOME)
        self.assertEqual(station.text("TxtCampo(0)"), "1000")

    def test_the_box_of_the_codes(self):
        station = self.gate(*taken(range(1, 1001)))
        reply = station.key(HOME)
        self.assertBox(station, LIMIT_OF_CODES)
        self.assertEqual(sounds(reply), [])
        station.answer("ok")
        self.assertFalse(station.shown("PctBoton(5)"))
        self.assertEqual((station.text("TxtCampo(0)"), station.text("TxtBarCode")), ("", ""))

    def test_the_box_of_the_numbers(self):
        station = self.gate(*taken(range(1, 1001)), barcodes=False)
        for ask in (lambda: station.key(HOME), lambda: station.click("CmdNumeroFicha")):
            ask()
            self.assertBox(station, LIMIT_OF_FICHAS)
            station.answer("ok")
            self.assertEqual(station.focused(), "TxtCampo(0)")
            self.assertIdle(station)

    def test_after_the_box_the_reader_goes_on(self):
        station = self.gate(*taken(range(1, 1001)))
        self.folder.write(CDB, codes_file(s33=KNOWN))
        station.click("CmdBarCode")
        station.answer("ok")
        self.scan(station, KNOWN)
        self.assertEqual(station.caption("LblCampo(1)"), "P33")

    def test_the_second_gate_begins_at_501(self):
        self.gate(*taken([501, 502]))
        station = self.second_gate()
        station.key(HOME)
        self.assertEqual(station.text("TxtCampo(0)"), "503")

    def test_the_second_gate_gets_1000_and_then_nothing_though_lower_numbers_are_free(self):
        self.gate(*taken(range(501, 1000)))
        station = self.second_gate()
        self.ticket(station, "last")
        self.assertEqual(self.folder.slot(1000).Placa, "LAST")
        station.key(HOME)
        self.assertBox(station, LIMIT_OF_CODES)
        self.assertEqual(self.folder.slot(1).EnUso, 0)


class Codes(TicketDay):
    def drawn(self, seed, **files):
        """The codes of three tickets of a gate with this seed."""
        folder = Folder(self.root / f"S{seed}{len(files)}")
        for name, data in files.items():
            folder.write(f"Multimedia/Vintoral.{name}", data)
        with self.gate(folder=folder, seed=seed) as station:
            found = []
            for _ in range(3):
                station.key(HOME)
                found.append(station.text("TxtBarCode"))
                station.key(ESC)
        return found

    def test_the_same_seed_draws_the_same_and_another_seed_others(self):
        first = self.drawn(11)
        self.assertEqual(len(set(first)), 3)
        with self.subTest("again"):
            (self.root / "S110").rename(self.root / "old")
            self.assertEqual(self.drawn(11), first)
        self.assertEqual(set(first) & set(self.drawn(12)), set())

    def test_digits_and_letters_in_like_parts(self):
        station = self.gate(seed=5)
        drawn = ""
        for _ in range(60):
            station.key(HOME)
            drawn += station.text("TxtBarCode")
            station.key(ESC)
        self.assertTrue(re.fullmatch("[0-9A-Z]{720}", drawn))
        self.assertEqual(len(set(drawn)), 36)
        digits = sum(character.isdigit() for character in drawn)
        self.assertTrue(300 < digits < 420, digits)  # 360, and more than four times the spread of 13.4

    def test_a_code_that_somebody_has_is_drawn_again(self):
        first, second, third = self.drawn(11)
        # One belongs to a ficha inside, in small letters; another one to a pass.
        held = {"CDB": codes_file(s400=first.lower()), "CFR": pass_record() + pass_record(second, "PASS", left=3)}
        again = self.drawn(11, **held)
        self.assertEqual(again[0], third)
        self.assertEqual(set(again) & {first, second}, set())


class Road(TicketDay):
    def test_from_home_to_the_exit_by_the_printed_ticket(self):
        station = self.gate(**PRINTER)
        station.key(HOME)
        code = station.text("TxtBarCode")
        station.set("TxtCampo(1)", "abc123")
        station.key(INSERT)
        self.assertEqual(self.books.codes(), {})  # nothing before the answer
        reply = station.answer("yes")
        on_paper, = in_bars(reply)
        self.assertEqual(on_paper, f"*{code}*")
        (_, text), = printed(reply)
        self.assertNotIn("VALIDO", text)
        self.assertEqual(self.books.codes(), {1: (code, "0001")})
        self.assertEqual((self.folder / CDB).stat().st_size, CODE.size * CODES)
        self.assertFalse((self.folder / CFR).exists())  # one entry is no pass
        self.assertNothingRead(station)

        station.advance(30 * 60000)
        self.scan(station, on_paper.strip("*"))
        self.assertOnDisplay(station, 1)
        self.assertEqual(station.captions(*ROWS)[:2], ["0001", "ABC123"])
        mark = station.get("TxtBarCodeOK")
        self.assertEqual((mark["Visible"], mark["BackColor"]), (True, PALE))
        station.key(DELETE)
        self.assertBox(station, CONFIRM_RETIRE)
        self.assertEqual(self.books.codes(), {1: (code, "0001")})
        self.assertEqual(sounds(station.answer("yes")), [RETIRED])
        self.assertEqual((self.books.codes(), self.folder.slot(1).EnUso), ({}, 0))
        row, = self.folder.history()
        # Half an hour of a car: 100 each minute.
        self.assertEqual((row.Placa, row.ValorCobrado, row.PorteriaSalida), ("ABC123", 3000 * 10000, "01"))
        self.assertNothingRead(station)

        self.scan(station, code)
        self.assertFalse(station.shown("PctBoton(6)"))
        station.advance(1000)
        self.assertNothingRead(station)

    def test_straight_from_the_switch_with_its_box_and_voice(self):
        station = self.with_tickets()
        self.assertFalse(station.shown("CmdBarCode"))
        self.assertEqual(sounds(self.switch_barcodes(station)), ["ABRiL\\ABRiL-7.wav"])
        code = self.ticket(station, "abc")
        self.assertEqual(self.books.codes(), {1: (code, "0001")})
        self.assertEqual(sounds(self.switch_barcodes(station)), ["ABRiL\\ABRiL-8.wav"])
        self.assertEqual(station.focused(), "TxtCampo(0)")
        station.retire(1)  # by its number: the code goes all the same
        self.assertEqual((self.books.codes(), len(self.folder.history())), ({}, 1))

    def test_each_ticket_finds_its_own_ficha(self):
        station = self.gate()
        codes = [self.ticket(station, plate) for plate in ("aaa", "bbb", "ccc")]
        self.assertEqual(self.books.codes(), {n: (code, f"{n:04}") for n, code in enumerate(codes, start=1)})
        self.leave(station, codes[1])
        self.assertEqual([row.Placa for row in self.folder.history()], ["BBB"])
        self.assertEqual(sorted(self.books.codes()), [1, 3])
        again = self.ticket(station, "ddd")  # the number is free again, the code another one
        self.assertEqual(self.books.codes()[2], (again, "0002"))
        self.assertNotEqual(again, codes[1])

    def test_no_at_the_question_and_a_second_try(self):
        station = self.gate()
        station.key(HOME)
        code = station.text("TxtBarCode")
        station.set("TxtCampo(1)", "abc")
        station.key(INSERT)
        station.answer("no")
        self.assertEqual((self.books.codes(), station.text("TxtBarCode")), ({}, code))
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.books.codes(), {1: (code, "0001")})

    def test_no_at_the_exit_leaves_the_code(self):
        station = self.gate()
        code = self.ticket(station, "abc")
        self.scan(station, code)
        station.key(DELETE)
        station.answer("no")
        self.assertEqual(self.books.codes(), {1: (code, "0001")})
        self.assertNothingRead(station)
        self.leave(station, code)
        self.assertEqual(self.books.codes(), {})

    def test_in_at_one_gate_and_out_at_the_other(self):
        one, two = self.gate(), self.second_gate()
        code = self.ticket(two, "abc")
        self.assertEqual(self.books.codes(), {501: (code, "0501")})
        self.leave(one, code)
        row, = self.folder.history()
        self.assertEqual((row.Placa, row.PorteriaEntrada, row.PorteriaSalida), ("ABC", "02", "01"))
        self.assertEqual(self.books.codes(), {})

    def test_a_slot_taken_meanwhile_keeps_its_own_code(self):
        one = self.gate()
        one.key(HOME)
        one.set("TxtCampo(1)", "mine")
        theirs = inside(1, ENTRY, "THEIRS", PorteriaEntrada="02")
        with open(self.folder.shared / "Vintoral.ACT", "r+b") as file:
            file.write(theirs.encode())
        with open(self.folder / CDB, "r+b") as file:
            file.write(code_record(KNOWN, "0001"))
        one.key(INSERT)
        self.assertIsNone(one.reply["waiting"])
        self.assertEqual((self.folder.slot(1), self.books.codes()), (theirs, {1: (KNOWN, "0001")}))

    def test_without_the_register_of_codes_a_ticket_still_enters(self):
        station = self.gate(**PRINTER)
        (self.folder / CDB).unlink()
        code = self.ticket(station, "abc")
        self.assertEqual(in_bars(station.reply), [f"*{code}*"])
        self.assertEqual(self.folder.slot(1).Placa, "ABC")
        self.assertFalse((self.folder / CDB).exists())
        self.scan(station, code)
        self.assertFalse(station.shown("PctBoton(6)"))
        self.assertEqual((self.folder.shared / "Vintoral.ACT").stat().st_size, ACT_LENGTH)


class Reader(TicketDay):
    """Whatever a reader adds or the operator has done before, the same ticket finds the same ficha."""

    def setUp(self):
        super().setUp()
        self.station = self.gate(*taken([7]))
        self.folder.write(CDB, codes_file(s7=KNOWN))

    def assertFound(self):
        self.assertOnDisplay(self.station, 7)
        self.assertEqual(self.station.caption("LblCampo(1)"), "P7")

    def test_at_the_speeds_of_readers_and_of_a_hand(self):
        for gap in (0, 1, 5, 49, 60, 300, 900):
            with self.subTest(gap=gap):
                self.scan(self.station, KNOWN, gap)
                self.assertFound()
                self.station.key(ESC)

    def test_in_small_letters(self):
        self.scan(self.station, KNOWN.lower())
        self.assertFound()

    def test_small_letters_in_the_register(self):
        self.folder.write(CDB, codes_file(s7=KNOWN.lower()))
        self.scan(self.station, KNOWN)
        self.assertFound()

    def test_with_enter_behind_it(self):
        for pause in (0, 30):
            with self.subTest(pause=pause):
                self.scan(self.station, KNOWN)
                self.station.advance(pause)
                reply = self.station.key(ENTER)
                self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
                self.assertFound()
                self.station.key(ESC)

    def test_an_enter_of_the_hand_asks_for_the_exit(self):
        self.scan(self.station, KNOWN)
        self.station.advance(1000)  # the cash line has the focus
        self.assertEqual(self.station.focused(), "TxtEfectivo")
        self.station.key(ENTER)
        self.assertBox(self.station, CONFIRM_RETIRE)

    def test_with_the_focus_elsewhere(self):
        for field in ("TxtCampo(1)", "TxtCampo(2)", "TxtCampo(5)", "CboTarifa(1)"):
            with self.subTest(field=field):
                self.station.focus(field)
                self.assertEqual(self.station.focused(), field)
                self.scan(self.station, KNOWN, enter=True)
                self.assertFound()
                self.station.key(ESC)

    def test_what_the_operator_had_typed_before_stays(self):
        unknown = "Z" * 11 + "9"  # so nothing clears the screen
        self.station.focus("TxtCampo(2)")
        self.station.type("LUIS")
        self.station.advance(200)
        self.scan(self.station, unknown)
        self.assertEqual((self.station.text("TxtCampo(2)"), self.station.text("TxtBarCode")), ("LUIS", unknown))
        self.station.do("select", control="CboTarifa(1)", text="BICICLETA")
        self.station.focus("CboTarifa(1)")
        self.scan(self.station, unknown[::-1])
        self.assertEqual((self.station.text("CboTarifa(1)"), self.station.text("TxtBarCode")), ("BICICLETA", unknown[::-1]))

    def test_typing_by_hand_in_a_field_is_no_code(self):
        self.station.focus("TxtCampo(2)")
        self.scan(self.station, KNOWN, gap=50)
        self.assertEqual((self.station.text("TxtCampo(2)"), self.station.text("TxtBarCode")), (KNOWN, ""))

    def test_with_the_focus_in_the_tool_bar(self):
        self.station.key(HOME)
        self.station.click("CmdBarCode")  # beeps, and leaves the focus there
        self.assertIsNone(self.station.focused())
        self.station.key(ESC)
        self.scan(self.station, KNOWN)
        self.assertFound()

    def test_an_unknown_code_stands_for_a_second(self):
        self.scan(self.station, "ZZZZZZZZZZZ9")
        self.station.advance(999)
        self.assertEqual((self.station.text("TxtBarCode"), self.station.shown("TxtBarCodeOK")), ("ZZZZZZZZZZZ9", False))
        self.station.advance(1)
        self.assertNothingRead(self.station)

    def test_the_next_code_replaces_an_unknown_one(self):
        self.scan(self.station, "ZZZZZZZZZZZ9")
        self.station.advance(300)
        self.assertEqual(self.station.text("TxtBarCode"), "ZZZZZZZZZZZ9")
        self.scan(self.station, KNOWN)
        self.assertFound()

    def test_other_lengths_find_nobody(self):
        self.folder.write(CDB, codes_file(s7=KNOWN, s8=KNOWN[:11], s9=KNOWN + "3"))
        for code in (KNOWN[:11], KNOWN + "3"):
            with self.subTest(code=code):
                self.station.set("TxtBarCode", code)
                self.assertFalse(self.station.shown("PctBoton(6)"))
                self.assertEqual(self.station.text("TxtBarCode"), code)
                self.station.advance(1000)
                self.assertNothingRead(self.station)

    def test_pasted_as_a_whole(self):
        self.station.set("TxtBarCode", KNOWN)
        self.assertFound()

    def test_the_first_record_with_a_code_counts(self):
        self.folder.write("Multimedia/Vintoral.CDB", codes_file(s7=KNOWN, s500=KNOWN))
        self.scan(self.station, KNOWN)
        self.assertFound()

    def test_the_number_beside_the_code_names_the_ficha(self):
        records = [code_record()] * CODES
        records[899] = code_record(KNOWN, "7")
        self.folder.write("Multimedia/Vintoral.CDB", b"".join(records))
        self.scan(self.station, KNOWN)
        self.assertFound()

    def test_a_number_that_leads_nowhere(self):
        for number in ("1001", "0", "-7", "XYZ", "9999"):
            with self.subTest(number=number):
                self.folder.write("Multimedia/Vintoral.CDB", code_record(KNOWN, number) + code_record() * 999)
                self.scan(self.station, KNOWN)
                self.assertEqual([self.station.shown(name) for name in ("PctBoton(5)", "PctBoton(6)", "TxtBarCodeOK")],
                                 [False] * 3)
                self.station.advance(1000)
                self.assertNothingRead(self.station)

    def test_a_code_whose_slot_is_free_opens_the_form_of_that_number(self):
        """As its number would; the power went while somebody left."""
        self.folder.write(CDB, codes_file(s8=KNOWN))
        before = self.folder.all_bytes()
        self.scan(self.station, KNOWN)
        self.assertEqual((self.station.text("TxtCampo(0)"), self.station.shown("PctBoton(5)")), ("0008", True))
        self.assertFalse(self.station.shown("TxtMaxEntrada"))
        self.station.key(ESC)
        self.assertNothingRead(self.station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_two_scans_one_after_the_other_show_the_first(self):
        """What is read while a ficha is on display reaches no field that would lose it."""
        self.scan(self.station, KNOWN)
        self.scan(self.station, "ZZZZZZZZZZZ9")
        self.assertFound()


class ValidityBoxes(TicketDay):
    def setUp(self):
        super().setUp()
        self.station = self.gate()
        self.station.key(HOME)

    def test_its_text_is_selected_when_the_focus_comes(self):
        self.station.set("TxtMaxEntrada", "12")
        self.station.focus("TxtMaxEntrada")
        box = self.station.get("TxtMaxEntrada")
        self.assertEqual((box["SelStart"], box["SelLength"]), (0, 2))
        self.station.type("30")
        self.assertEqual(self.station.text("TxtMaxEntrada"), "30")

    def test_three_characters_at_most(self):
        self.station.focus("TxtMaxEntrada")
        self.station.type("1234")
        self.assertEqual(self.station.text("TxtMaxEntrada"), "123")

    def test_what_it_lets_through(self):
        self.station.focus("TxtMaxEntrada")
        self.assertEqual(kinds(self.station.type("1,.")), [])
        self.assertEqual(self.station.text("TxtMaxEntrada"), "1,.")
        self.station.key(8)
        self.assertEqual(self.station.text("TxtMaxEntrada"), "1,")
        for character in "aZ-+ ñ":
            self.assertEqual(kinds(self.station.type(character)), ["beep"], character)
        for code in (1, 2, 3, 6, 20, 23, 24):
            self.assertEqual(kinds(self.station.type(chr(code))), [], code)
        self.assertEqual(self.station.text("TxtMaxEntrada"), "1,")

    def test_enter_is_dropped(self):
        self.station.focus("TxtMaxEntrada")
        self.assertEqual(kinds(self.station.key(ENTER)), [])
        self.assertEqual((self.station.text("TxtMaxEntrada"), self.station.focused()), ("1", "TxtMaxEntrada"))

    def test_gone_with_the_ticket(self):
        self.station.set("TxtMaxEntrada", "5")
        self.station.key(ESC)
        self.assertNothingRead(self.station)
        self.station.key(HOME)
        self.assertEqual(self.station.text("TxtMaxEntrada"), "1")


if __name__ == "__main__":
    main()
