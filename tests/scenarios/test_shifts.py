#!/usr/bin/env python3
"""Shifts and the history at a gate: what a beginning marks, what the reports of a shift and of a day tell of, the reset."""
import photos
from reports import (F8, LINE, PAGE, PRINTER, RULE, SHIFT_BEGUN, SHIFT_ENDED, SHOW_PAGE, TODAY, YESTERDAY, ReportDay, gone,
                     history)
from sales import BLANK_LINE, EXT, LINE as SALE, XTR, SalesDay, line, read_line, sales_file
from slips import printed
from station import BLANK, CLICK, ESC, MIXED_LENGTH, RECORD, Ficha, inside, launches, lines, main, read_mixed, sounds, stamp

TOMORROW = "21/11/2026"
HISTORY, SHIFT = 0, 1  # of CmdMenu
WITHOUT, IN_A_SHIFT = ["HISTORIAL DÍA", "COMENZAR TURNO"], ["HISTORIAL TURNO", "TERMINAR TURNO"]  # their captions
RESET = "  Reiniciar Historial"

END = {"title": "Vintoral - Terminar Turno", "icon": "question", "buttons": ["yes", "no", "cancel"],
       "text": "¿Desea imprimir también el turno de trabajo en formato tiquete?"}
END_SUMMARY = {**END, "text": "¿Desea imprimir sólo un resumen del turno de trabajo?"}
OF_HISTORY = {**END, "title": "Vintoral - Imprimir Historial",
              "text": "¿Desea imprimir también el historial en formato tiquete?"}
OF_HISTORY_SUMMARY = {**OF_HISTORY, "text": "¿Desea imprimir sólo un resumen del historial?"}
RESET_QUESTION = {"title": "Vintoral - Reiniciar Historial", "icon": "exclamation", "buttons": ["yes", "no"], "default": "no",
                  "text": "¿Desea realmente comenzar un nuevo historial?"}
RESET_WARNING = {"title": "Vintoral - ADVERTENCIA", "icon": "critical", "buttons": ["yes", "no"], "default": "no",
                 "text": "Está a punto de reiniciar el historial actual.\r\n¿Desea continuar?"}


class Shift(ReportDay, SalesDay):
    ROWS = (gone(2, 1, ("10:00", YESTERDAY), "BEFORE1", 100), gone(3, 2, ("09:15", TODAY), "BEFORE2", 200))
    INSIDE = tuple(inside(number, stamp("13:00", TODAY), f"IN{number}") for number in range(11, 19))

    def gate(self, *rows, sold=(), **more):
        self.folder.write(EXT, sales_file(*sold))
        self.folder.write(XTR, lines("MINUTO = 200", "CAFE = 500"))
        self.folder.write("Recursos/Vintoral.EMP", lines("AUTOMOVIL", "1H = 6000", "17H = 500", "", "MOTOCICLETA", "1H = 3000"))
        return self.day(*(rows or self.ROWS), **{"fichas": self.INSIDE, **more})

    def marks(self, register="HST"):
        """The flags of a register's rows, from its first record."""
        data = (self.folder / f"Multimedia/Vintoral.{register}").read_bytes()
        return [Ficha.decode(data[at:at + RECORD.size]).InicioTurno for at in range(0, len(data), RECORD.size)]

    def sale_marks(self, count):
        data = self.list()
        return [read_line(data[n * SALE:(n + 1) * SALE]).mark for n in range(count)]

    def log(self):
        data = (self.folder / "Recursos/Vintoral.FDR").read_bytes()
        return read_mixed(data[MIXED_LENGTH:2 * MIXED_LENGTH])[3] // 10000

    def captions(self, station):
        return station.captions("Form5.CmdMenu(0)", "Form5.CmdMenu(1)")

    def end_shift(self, station, *answers):
        """The reply in which it is over; the menu stays open."""
        return self.report(station, SHIFT, (END, END_SUMMARY), answers)

    def ask_history(self, station, *answers):
        return self.report(station, HISTORY, (OF_HISTORY, OF_HISTORY_SUMMARY), answers)

    def report(self, station, button, questions, answers):
        reply = self.menu(station, button)
        for question, answer in zip(questions, answers):
            self.assertBox(station, question)
            reply = station.answer(answer)
        self.assertEqual(reply["waiting"], {"form": "Form5"})
        return reply

    def assertShift(self, station, on):
        self.assertEqual(station.shown("ImgIndicador(1)"), on)
        station.key(F8)
        self.assertEqual(self.captions(station), IN_A_SHIFT if on else WITHOUT)
        station.key(ESC)


class Beginning(Shift):
    def test_marks_what_was_last_of_each_register(self):
        old = line("CAFE", 2, 500, 900)
        station = self.gate(sold=(old, line("MINUTO", 1, 200, 800)))
        first = BLANK._replace(MarcaEntrada="x")
        self.folder.write("Multimedia/Vintoral.NSR", first.encode() + self.ROWS[0].encode())
        self.folder.write("Multimedia/Vintoral.CRD", self.ROWS[0].encode() + self.ROWS[1].encode())
        self.assertEqual([self.marks(name) for name in ("HST", "NSR", "CRD")], [[0, 0, 0], [0, 0], [0, 0]])
        before = (self.folder / self.HISTORY).read_bytes()
        sales = self.list()
        reply = self.begin_shift(station)
        self.assertEqual(sounds(reply), [SHIFT_BEGUN])
        self.assertEqual([self.marks(name) for name in ("HST", "NSR", "CRD")], [[0, 0, -1], [0, -1], [0, -1]])
        self.assertEqual(self.sale_marks(2), [-1, 0])
        self.assertEqual(self.list()[SALE:], sales[SALE:])
        self.assertEqual((self.folder / self.HISTORY).read_bytes()[:-RECORD.size], before[:-RECORD.size])
        self.assertEqual(self.folder.history()[-1], self.ROWS[1]._replace(Posicion=3, InicioTurno=-1))
        self.assertEqual(station.state("MarcaTurno"), "14:00  (20/11/2026)")
        self.assertEqual(self.log(), 122)
        self.assertNotIn("Form5", station.state("forms"))
        self.assertShift(station, True)

    def test_a_history_of_one_blank_record_has_that_one_marked(self):
        station = self.day()
        self.assertEqual(self.marks(), [0])
        self.begin_shift(station)
        self.assertEqual(self.marks(), [-1])

    def test_points_without_a_record_stay_empty(self):
        station = self.gate()
        self.folder.write("Multimedia/Vintoral.CRD", b"")
        self.begin_shift(station)
        self.assertEqual((self.folder / "Multimedia/Vintoral.CRD").read_bytes(), b"")
        self.assertEqual(self.marks(), [0, 0, -1])

    def test_each_missing_file_is_passed_over_by_itself(self):
        names = ("Multimedia/Vintoral.HST", "Multimedia/Vintoral.NSR", "Multimedia/Vintoral.CRD", EXT)
        for missing in names:
            with self.subTest(missing=missing):
                station = self.gate(sold=(line("CAFE", 2, 500, 900),))
                for name in names[1:3]:
                    self.folder.write(name, BLANK.encode() + self.ROWS[0].encode())
                (self.folder / missing).unlink()
                self.begin_shift(station)
                self.assertFalse((self.folder / missing).exists())
                marked = [self.marks(name[-3:])[-1] for name in names[:3] if name != missing]
                marked += [self.sale_marks(1)[0]] if missing != EXT else []
                self.assertEqual(marked, [-1] * 3)
                self.assertShift(station, True)
                station.end()

    def test_files_that_are_read_only_are_marked_too(self):
        station = self.gate(sold=(line("CAFE", 2, 500, 900),))
        (self.folder / EXT).chmod(0o444)
        self.begin_shift(station)
        self.assertEqual(self.sale_marks(1), [-1])

    def test_a_sale_stands_above_the_mark(self):
        station = self.gate(sold=(line("CAFE", 2, 500, 900),))
        self.begin_shift(station)
        self.sell(station, (0, 3))
        self.sell(station, (1, 1))
        data = self.list()
        self.assertEqual([read_line(data[at:at + SALE])[1:3] for at in range(0, 3 * SALE, SALE)],
                         [("CAFE".ljust(15), 0), ("MINUTO".ljust(15), 0), ("CAFE".ljust(15), -1)])

    def test_a_list_without_a_sale_is_marked_at_its_blank_first_record(self):
        station = self.gate()
        self.begin_shift(station)
        self.assertEqual(self.sale_marks(2), [-1, 0])
        self.assertEqual(self.list()[SALE:2 * SALE], BLANK_LINE)

    def test_closing_the_program_ends_it_and_leaves_the_flags(self):
        station = self.gate()
        self.begin_shift(station)
        station.close()
        again = self.running()
        self.assertShift(again, False)
        self.assertEqual(self.marks(), [0, 0, -1])


class End(Shift):
    def test_reports_what_left_in_it(self):
        station = self.gate()
        self.begin_shift(station)
        for number in (11, 12):
            station.retire(number)
        reply = self.end_shift(station)  # paper is off: nothing is asked
        self.assertEqual((sounds(reply), launches(reply), printed(reply)), ([CLICK, SHIFT_ENDED], [SHOW_PAGE], []))
        page = self.page()
        self.assertEqual((page.title, page.plates()), ("Vintoral - TURNO DE TRABAJO P01", ["IN12", "IN11"]))
        self.assertEqual(page.total()[0], "2 Registro(s)")
        now = stamp("14:00", TODAY)
        self.assertEqual([row[0] for row in page.rows[-5:]], ["", now, now, "", "2 Registro(s)"])
        self.assertEqual(self.captions(station), WITHOUT)
        self.assertEqual(self.log(), 123)
        station.key(ESC)
        self.assertFalse((self.folder / PAGE).exists(), "a report goes with its menu")
        self.assertShift(station, False)
        self.assertEqual(self.marks(), [0, 0, -1, 0, 0])

    def test_what_is_asked_while_paper_is_on(self):
        ways = {("no",): (1, None), ("yes", "no"): (1, "Vintoral   TURNO DE TRABAJO P01"),
                ("yes", "yes"): (1, "Vintoral  RESUMEN TURNO.TRA P01"), ("cancel",): (0, None), ("yes", "cancel"): (0, None)}
        station = self.gate(tickets=True)
        for answers, (pages, first) in ways.items():
            with self.subTest(answers=answers):
                self.begin_shift(station)
                reply = self.end_shift(station, *answers)
                self.assertEqual(len(launches(reply)), pages)
                self.assertEqual((self.folder / PAGE).exists(), pages == 1)
                self.assertEqual([text.splitlines()[0] for _, text in printed(reply)], [first] if first else [])
                self.assertEqual(sounds(reply), [CLICK] * pages + [SHIFT_ENDED])
                self.assertEqual(self.captions(station), WITHOUT)
                station.key(ESC)
                self.assertShift(station, False)

    def test_the_next_shift_begins_behind_the_latest_mark(self):
        station = self.gate()
        self.begin_shift(station)
        station.retire(11)
        self.end_shift(station)
        station.key(ESC)
        station.retire(12)
        self.begin_shift(station)
        self.assertEqual(self.marks(), [0, 0, -1, 0, -1])
        station.retire(13)
        self.end_shift(station)
        self.assertEqual(self.page().plates(), ["IN13"])

    def test_a_shift_over_two_days_has_two_subtotals(self):
        station = self.gate(tickets=True)
        self.begin_shift(station)
        station.retire(11)
        station.clock("2026-11-21 06:00:00")
        station.retire(12)
        station.retire(13)
        # In at 13:00: one hour, and two of seventeen.
        reply = self.end_shift(station, "yes", "no")
        page = self.page()
        self.assertEqual([row[2][8:18] for row in page.fichas()], [TOMORROW, TOMORROW, TODAY])
        self.assertEqual([row[8] for row in page.fichas()], ["500.00", "500.00", "6000.00"])
        self.assertEqual(page.subtotals(), ["$ 1000.00", "$ 6000.00"])
        self.assertEqual(page.total(), ("3 Registro(s)", "$ 7000.00"))
        slip = printed(reply)[0][1].splitlines()
        self.assertEqual(slip[:6], ["Vintoral   TURNO DE TRABAJO P01", "INICIO -->  14:00  (20/11/2026)",
                                    " FINAL -->  06:00  (21/11/2026)", RULE, "SALID CATEGORIA TIEMPO    VALOR", RULE])
        self.assertEqual([text for text in slip if text.startswith("(")], ["(21/11/2026)", "(20/11/2026)"])

    def test_the_other_gate_has_a_shift_of_its_own(self):
        station = self.gate()
        other = type(self.folder)(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second = self.running(other)
        self.begin_shift(station)
        second.retire(11)
        station.retire(12)
        self.assertFalse(second.shown("ImgIndicador(1)"))
        self.end_shift(station)
        self.assertEqual(self.page().plates(), ["IN12", "IN11"], "the history is one")


class HistoryOfTheDay(Shift):
    def test_of_the_last_day_in_the_file(self):
        station = self.gate(*self.ROWS[:1], gone(3, 3, ("11:30", YESTERDAY), "ALSO", 50, "MOTOCICLETA"))
        reply = self.ask_history(station, "yes", "no")
        self.assertEqual((launches(reply), sounds(reply)), ([SHOW_PAGE], [CLICK]))
        page = self.page()
        self.assertEqual((page.title, page.plates()), ("Vintoral - HISTORIAL DÍA P01", ["ALSO", "BEFORE1"]))
        self.assertEqual(page.subtotals(), ["$ 150.00"])
        self.assertEqual(page.total(), ("2 Registro(s)", "$ 150.00"))
        self.assertEqual(page.rows[-2], [""] * 14)
        self.assertEqual(page.rows[-3], [""] * 14)
        self.assertEqual(printed(reply), [(PRINTER, "\n".join([
            "Vintoral      HISTORIAL DÍA P01", "HORA/FECHA  14:00  (20/11/2026)", RULE, "SALID CATEGORIA TIEMPO    VALOR", RULE,
            "(19/11/2026)", "11:30 MOTOCICLE 01H00M    50.00", "10:00 AUTOMOVIL 01H00M   100.00",
            "                       $ 150.00", LINE, "2 Registro(s)", "                 TOTAL $ 150.00", "\n", RULE,
            "Vintoral  RESUMEN HISTO.DÍA P01", "HORA/FECHA  14:00  (20/11/2026)", RULE, "      CATEGORIA   CANT    VALOR", RULE,
            "AUTOMOVIL            1   100.00", "MOTOCICLETA          1    50.00", LINE, "2 Registro(s)",
            "                 TOTAL $ 150.00", "\n\n\n."]) + "\n")])

    def test_no_and_cancel(self):
        station = self.gate()
        reply = self.ask_history(station, "no")
        self.assertEqual((launches(reply), printed(reply)), ([SHOW_PAGE], []))
        station.key(ESC)
        for answers in (("cancel",), ("yes", "cancel")):
            reply = self.ask_history(station, *answers)
            self.assertEqual(reply["events"], [])
            self.assertFalse((self.folder / PAGE).exists())
            station.key(ESC)

    def test_during_a_shift_it_is_that_of_the_shift(self):
        station = self.gate()
        self.begin_shift(station)
        reply = self.ask_history(station, "no")
        page = self.page()
        self.assertEqual((page.title, page.plates()), ("Vintoral - TURNO DE TRABAJO P01", []))
        self.assertEqual(page.total(), ("0 Registro(s)", "$ 0.00"))
        self.assertEqual(self.captions(station), IN_A_SHIFT)

    def test_a_record_not_in_use_counts_and_has_no_row(self):
        station = self.gate(gone(2, 1, ("10:00", TODAY), "A", 100), gone(3, 2, ("10:30", TODAY), "FREE", 77, EnUso=0),
                            gone(4, 3, ("11:00", TODAY), "B", 20))
        self.ask_history(station, "no")
        self.assertEqual((self.page().plates(), self.page().total()), (["B", "A"], ("3 Registro(s)", "$ 120.00")))

    def test_an_empty_history(self):
        station = self.day()
        self.ask_history(station, "no")
        page = self.page()
        self.assertEqual((page.plates(), page.total(), page.heads[0]), ([], ("0 Registro(s)", "$ 0.00"), "HORA ENTRADA"))

    def test_without_a_history_nothing_is_done(self):
        station = self.gate()
        (self.folder / self.HISTORY).unlink()
        self.assertEqual(self.ask_history(station, "yes", "no")["events"], [])
        self.assertFalse((self.folder / PAGE).exists())

    def test_the_view_is_left_alone(self):
        station = self.gate()
        before = self.found(station)
        self.assertEqual(len(before), len(self.INSIDE))
        self.ask_history(station, "no")
        self.assertEqual(self.found(station), before)


class Reset(Shift):
    def setUp(self):
        super().setUp()
        for name in ("HST/000002", "HST/000003", "DTL/BEFORE10001/0001-1", "ACT/000011"):
            self.folder.write(f"Multimedia/Imágenes {name}.jpg", photos.photo())

    def photos(self):
        return sorted(str(file.relative_to(self.folder.shared)) for file in self.folder.shared.rglob("*.jpg"))

    def reset(self, station, *answers):
        self.menu(station)
        reply = station.do("select", control="Form5.LstMenu", text=RESET)
        for question, answer in zip((RESET_QUESTION, RESET_WARNING), answers):
            self.assertBox(station, question)
            reply = station.answer(answer)
        self.assertEqual(reply["waiting"], {"form": "Form5"})
        return reply

    def test_no_at_either_question_leaves_all(self):
        station = self.gate()
        before = self.folder.all_bytes()
        for answers in (("no",), ("yes", "no")):
            reply = self.reset(station, *answers)
            self.assertEqual(reply["events"], [])
            self.assertEqual(self.folder.all_bytes(), before)
            station.key(ESC)

    def test_yes_twice_begins_a_new_history(self):
        station = self.gate()
        registers = {name: (self.folder / f"Multimedia/Vintoral.{name}").read_bytes() for name in ("ACT", "NSR", "CRD", "USR")
                     if (self.folder / f"Multimedia/Vintoral.{name}").exists()}
        self.assertEqual((len(self.folder.history()), len(self.photos())), (2, 4))
        (self.folder / self.HISTORY).chmod(0o444)
        reply = self.reset(station, "yes", "yes")
        self.assertEqual(sounds(reply), ["Sonidos\\Vintoral-3.wav"])
        self.assertEqual((self.folder / self.HISTORY).read_bytes(), BLANK.encode())
        station.advance(1000)
        self.assertEqual(self.photos(), ["Imágenes ACT/000011.jpg"])
        for kind in ("HST", "DTL"):
            self.assertEqual(list((self.folder.shared / f"Imágenes {kind}").iterdir()), [])
        for name, data in registers.items():
            self.assertEqual((self.folder / f"Multimedia/Vintoral.{name}").read_bytes(), data)
        station.key(ESC)
        station.retire(11)
        self.assertEqual([row.Posicion for row in self.folder.history()], [2])
        self.assertTrue((self.folder.shared / "Imágenes HST/000002.jpg").exists())

    def test_a_connected_gate_resets_its_own_copy_alone(self):
        self.gate()
        other = type(self.folder)(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second = self.running(other)
        shared = (self.folder / self.HISTORY).read_bytes()
        own = other / self.HISTORY
        if own.exists():
            own.unlink()
        self.menu(second)
        reply = second.do("select", control="Form5.LstMenu", text=RESET)
        self.assertEqual((reply["waiting"], reply["events"]), ({"form": "Form5"}, []))
        other.write(self.HISTORY, history(*self.ROWS))
        second.do("select", control="Form5.LstMenu", text=RESET)
        second.answer("yes")
        second.answer("yes")
        self.assertEqual(own.read_bytes(), BLANK.encode())
        self.assertEqual((self.folder / self.HISTORY).read_bytes(), shared)


if __name__ == "__main__":
    main()
