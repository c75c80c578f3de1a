"""Registers that are cut or scrambled, and what searches and reports make of them: pages stay pages, texts show as they
stand, and no sum is wrong. What a report has to say is worked out here a second time, from the bytes."""
import datetime
import random
import re

import trouble
from reports import F4, PAGE, RULE, SHOW_PAGE, SHOW_TEXT, TEXT, TODAY, YESTERDAY, Page, ReportDay, gone, history
from sales import EXT, LINE as SALE, LIST, XTR, line, sales_file
from slips import printed
from station import BLANK, ESC, RECORD, launches, lines, stamp
from trouble import decoded, some

SEED = 712
MOST, LEAST = 2**63 - 1, -2**63
ERROR = "¡ERROR!"
ANY_DAY = {"b1": "01/01/0001", "b3": "31/12/9999"}
HISTORY, SUMS, LIST_OF_SALES, USERS, POINTS = 0, 2, 3, 4, 5  # of CmdMenu


def money(raw):
    """Ten-thousandths as money is shown: two decimals, halves away from zero; what leaves the range is no sum."""
    if not LEAST <= raw <= MOST:
        return ERROR
    cents = (abs(raw) + 50) // 100
    return f"{'-' if raw < 0 and cents else ''}{cents // 100}.{cents % 100:02}"


class Sum:
    """Adds up and, once out of its range, stays there."""

    def __init__(self, raw=0):
        self.raw = raw

    def add(self, raw):
        if self.raw is not None:
            self.raw = None if raw is None or not LEAST <= self.raw + raw <= MOST else self.raw + raw

    def __str__(self):
        return "$ " + (ERROR if self.raw is None else money(self.raw))


def whole(data):
    return [decoded(data[at:at + RECORD.size]) for at in range(0, len(data) - RECORD.size + 1, RECORD.size)]


def clean(text):
    """As a cell shows it: `decoded` has taken the blanks behind it."""
    return text.strip(" ")


def padded(text):
    return text.ljust(20)


def in_view(text):
    """As the driver tells a text: bytes that are no characters of Windows-1252 are question marks here."""
    return text.encode("latin-1").decode("cp1252", "replace").encode("cp1252", "replace")


def is_stamp(text):
    text = padded(text)
    if not re.fullmatch(r"([01][0-9]|2[0-3]):[0-5][0-9]", text[:5]):
        return False
    date = re.fullmatch(r" *([0-9]{1,2})/([0-9]{1,2})/([0-9]{4})", text[8:18])
    try:
        return bool(date and datetime.date(int(date[3]), int(date[2]), int(date[1])))
    except ValueError:
        return False


class Report:
    """What the history report tells of: plates, subtotals, count and total."""

    def __init__(self, data, shift):
        records = whole(data)
        self.plates, self.subtotals, self.count, self.total = [], [], 0, Sum()
        day, before = Sum(), None
        for number in range(len(records), 0, -1):
            record = records[number - 1]
            date = padded(record.MarcaSalida)[8:18]
            other = before is not None and date != before
            end = number == 1 or (shift and record.InicioTurno != 0)
            if other or end:
                self.subtotals.append(str(day))
                self.total.add(day.raw)
                day = Sum()
            if end or (other and not shift):
                break
            before = date
            self.count += 1
            if record.EnUso == 0:
                continue
            self.plates.append(clean(record.Placa))
            if record.PorteriaSalida != "??":
                day.add(record.ValorCobrado)


class Damage(trouble.Trouble, ReportDay):
    ROWS = (gone(2, 1, ("10:00", YESTERDAY), "<B>&1", 100), gone(3, 2, ("09:15", TODAY), "TWO", 200, InicioTurno=-1),
            gone(4, 3, ("10:15", TODAY), "THREE", 300, Nombre='"&lt;'), gone(5, 4, ("11:15", TODAY), "FOUR", 400))

    def gate(self, *rows, shift=False, **more):
        self.folder.write(EXT, sales_file(line("CAFE", 1, 5, 900)))
        self.folder.write(XTR, lines("CAFE = 5", "TE = 4"))
        gate = self.day(*(rows or self.ROWS), **more)
        if shift:
            self.begin_shift(gate)
        return gate

    def raw_page(self, encoding="latin-1"):
        return Page((self.folder / PAGE).read_bytes(), encoding)

    def history_report(self, gate, *answers):
        self.menu(gate, HISTORY)
        for answer in answers:
            gate.answer(answer)
        reply = gate.reply
        page = self.raw_page() if (self.folder / PAGE).exists() else None
        gate.key(ESC)
        self.assertIsNone(gate.reply["waiting"])
        return reply, page

    def assertTells(self, gate, data, shift):
        """The report of this history is made, and says what it should."""
        self.folder.write(self.HISTORY, data)
        reply, page = self.history_report(gate, "yes", "no")
        expected = Report(data, shift)
        self.assertEqual(launches(reply), [SHOW_PAGE])
        width = len(page.heads)
        self.assertEqual({len(row) for row in page.rows}, {width})
        foot = 5 if shift else 2
        self.assertEqual(len(page.rows), len(expected.plates) + 2 * len(expected.subtotals) + foot)
        self.assertEqual(page.rows[-1][0], f"{expected.count} Registro(s)")
        self.assertEqual(page.rows[-1][8], str(expected.total).replace("¡", "\xa1"))
        body = page.rows[:-foot]
        shown = [row[9] for row in body if row[6]]  # a row of a ficha always has something under IMAGEN
        self.assertEqual(shown, expected.plates)
        self.assertEqual([row[8] for row in body if not row[6] and row[8]], expected.subtotals)
        slip = printed(reply)[0][1].splitlines()
        self.assertIn(f"{expected.count} Registro(s)", slip)
        self.assertTrue(any(text.endswith(f"TOTAL {expected.total}") for text in slip), slip[-8:])

    def scrambled(self, data, rounds=40):
        return trouble.scrambled(data, random.Random(SEED), some(range(rounds)))


class History(Damage):
    def test_cut_anywhere(self):
        data = history(*self.ROWS)
        for shift in (False, True):
            gate = self.gate(shift=shift)
            for length in some(range(len(data) + 1)):
                with self.subTest(shift=shift, length=length):
                    self.assertTells(gate, data[:length], shift)
            gate.end()

    def test_scrambled(self):
        data = history(*self.ROWS)
        for shift in (False, True):
            gate = self.gate(shift=shift)
            for number, damaged in enumerate(self.scrambled(data)):
                with self.subTest(shift=shift, number=number):
                    self.assertTells(gate, damaged, shift)
            gate.end()

    def test_days_out_of_order_and_stamps_that_are_none(self):
        dice = random.Random(SEED)
        dates = (TODAY, YESTERDAY, "31/02/2026", "00/00/0000", "99/99/9999", "??", "", "2026-11-20")
        for shift in (False, True):
            gate = self.gate(shift=shift)
            for turn in some(range(60)):
                rows = [gone(0, n, ("10:00", TODAY), f"P{n}", n, MarcaSalida=f"10:00  ({dice.choice(dates)})"[:20],
                             EnUso=dice.choice((-1, -1, 0, 1)), PorteriaSalida=dice.choice(("01", "??", "", "02")),
                             InicioTurno=dice.choice((0, 0, 0, -1, 7))) for n in range(1, 12)]
                with self.subTest(shift=shift, turn=turn):
                    self.assertTells(gate, history(*rows), shift)
            gate.end()

    def test_values_at_both_ends_of_their_range(self):
        ends = (MOST, LEAST, MOST - 1, 1, -1, 0, MOST // 2, LEAST // 2, 49, 50, -50)
        dice = random.Random(SEED)
        for shift in (False, True):
            gate = self.gate(shift=shift)
            for turn in some(range(60)):
                rows = [gone(0, n, ("10:00", dice.choice((TODAY, YESTERDAY))), f"P{n}", MarcaSalida=stamp("10:00", TODAY))
                        ._replace(ValorCobrado=dice.choice(ends)) for n in range(1, 2 + turn % 5)]
                with self.subTest(shift=shift, turn=turn):
                    self.assertTells(gate, history(*rows), shift)
            gate.end()

    def test_a_sum_stops_at_the_end_of_money_and_says_so(self):
        most = gone(2, 1, ("10:00", TODAY), "MOST")._replace(ValorCobrado=MOST)
        gate = self.gate(gone(2, 0, ("09:00", YESTERDAY), "OLD"), most, tickets=True)
        reply, page = self.history_report(gate, "yes", "no")
        self.assertEqual(page.rows[-1][8], "$ 922337203685477.58")
        self.folder.write(self.HISTORY, history(most, gone(3, 2, ("11:00", TODAY), "ONE")._replace(ValorCobrado=1)))
        reply, page = self.history_report(gate, "yes", "no")
        self.assertEqual((page.rows[-1][8], page.subtotals()), (f"$ {ERROR}", [f"$ {ERROR}"]))
        slip = printed(reply)[0][1].splitlines()
        self.assertEqual(slip.count("                TOTAL $ ¡ERROR!"), 2)
        self.assertIn("AUTOMOVIL            2  ¡ERROR!", slip)

    def test_every_byte_in_every_text(self):
        """Thirteen rows whose fields hold all bytes between them: shown as they stand, on pages and in the view."""
        gate = self.gate()
        texts = [bytes(range(start, min(start + 20, 256))).ljust(20) for start in range(0, 256, 20)]
        fields = ("Placa", "Nombre", "Apellido", "Telefono", "Observacion", "Categoria")
        rows = []
        for number in range(len(texts)):
            odd = {name: texts[(number + place) % len(texts)] for place, name in enumerate(fields)}
            rows.append(gone(number + 2, number, ("10:00", TODAY), "", 1)._replace(**odd).encode())
        data = BLANK.encode() + b"".join(rows)
        self.assertTells(gate, data, False)
        self.menu(gate, HISTORY)
        gate.answer("no")
        shown = self.raw_page()
        gate.key(ESC)
        self.open_search(gate)
        self.search(gate, **ANY_DAY)
        searched = self.raw_page()
        for page in (shown, searched):
            rows_shown = [row for row in page.rows if row[6]]
            for number, row in enumerate(reversed(rows_shown)):
                expected = [clean(texts[(number + place) % len(texts)].decode("latin-1")) for place in range(6)]
                self.assertEqual([*row[9:], row[5]], expected)
        for cell in range(len(rows_shown)):
            gate.do("hover", control=f"ImgFicha({cell})")
            gate.key(F4)
            self.answer_all(gate, "no")
            sheet = self.raw_page()
            number = len(texts) - 1 - cell
            for place in range(5):
                self.assertIn(" : " + clean(texts[(number + place) % len(texts)].decode("latin-1")), sheet.text)

    def test_what_is_found_in_a_damaged_history(self):
        data = history(*self.ROWS)
        gate = self.gate()
        self.open_search(gate)
        variants = [data[:length] for length in some(range(len(data) + 1))] + list(self.scrambled(data))
        for number, damaged in enumerate(variants):
            with self.subTest(number=number):
                self.folder.write(self.HISTORY, damaged)
                gate.focus("Form2.TxtCampo(4)")
                self.search(gate, **ANY_DAY)
                expected = [clean(record.Placa) for record in reversed(whole(damaged)[1:]) if is_stamp(record.MarcaSalida)]
                if expected:
                    self.assertEqual(launches(gate.reply), [SHOW_PAGE])
                    self.assertEqual(self.raw_page().heads[0], "HORA ENTRADA")
                else:
                    self.assertEqual(gate.box["text"], "No se encontró ninguna coincidencia.")
                    gate.answer("ok")
                found = [record["Placa"].strip(" ") for record in gate.do("view")["view"]]
                self.assertEqual([text.encode("cp1252", "replace") for text in found], [in_view(text) for text in expected])


class Documents(Damage):
    def test_users_and_points_cut_and_scrambled(self):
        data = b"".join(row.encode() for row in (BLANK, *self.ROWS))
        for shift in (False, True):
            gate = self.gate(shift=shift)
            for button, name in ((USERS, "NSR"), (POINTS, "CRD")):
                cuts = [data[:length] for length in some(range(len(data) + 1))]
                for number, damaged in enumerate([*cuts, *self.scrambled(data, 20)]):
                    with self.subTest(shift=shift, name=name, number=number):
                        self.folder.write(f"Multimedia/Vintoral.{name}", damaged)
                        self.assertEqual(launches(self.menu(gate, button)), [SHOW_PAGE])
                        page = self.raw_page()
                        self.assertEqual({len(row) for row in page.rows}, {9})
                        photo = page.heads.index("IMAGEN")
                        self.assertEqual([row[photo - 2] for row in page.rows if row[photo]], self.plates(damaged, shift, name))
                        gate.key(ESC)
            gate.end()

    def plates(self, data, shift, name):
        plates = []
        for number, record in reversed(list(enumerate(whole(data), start=1))):
            if shift and record.InicioTurno != 0:
                break
            blank = data[:RECORD.size] == BLANK.encode()
            if number > 1 or (name == "CRD" and not blank):
                plates.append(clean(record.Placa))
        return plates


class Sales(Damage):
    """The texts of the extras: of any bytes, a text that comes to its end."""

    def assertTexts(self, gate):
        for button, title in ((SUMS, "EXTRAS P01"), (LIST_OF_SALES, "DETALLE EXTRAS P01")):
            reply = self.menu(gate, button)
            self.assertEqual((launches(reply), reply["waiting"]), ([SHOW_TEXT], {"form": "Form5"}))
            text = (self.folder / TEXT).read_bytes().decode("latin-1")
            self.assertTrue(text.startswith("\r\n Vintoral") and text.endswith("\r\n\r\n"))
            self.assertIn(title, text.split("\r\n")[1])
            self.assertEqual([row for row in text.split("\r\n")[:7] if RULE in row], [f" {RULE}"] * 2)
            gate.key(ESC)
        return text

    def test_cut_anywhere(self):
        sold = [line("CAFE", n, 5, 900 + n) for n in range(1, 4)]
        data = sales_file(*sold)
        gate = self.gate()
        for length in some([*range(4 * SALE), *range(LIST - 2, len(data) + 1)]):
            with self.subTest(length=length):
                self.folder.write(EXT, data[:length])
                text = self.assertTexts(gate)
                told = min(length // SALE, 3)
                self.assertEqual([row[:6] for row in text.split("\r\n") if re.match(r" \d\d:", row)],
                                 [f" 09:0{n}" for n in range(1, told + 1)])

    def test_scrambled(self):
        data = sales_file(*[line("CAFE", n, 5, 900 + n) for n in range(1, 30)])
        gate = self.gate()
        for number, damaged in enumerate(self.scrambled(data[:40 * SALE], 25)):
            with self.subTest(number=number):
                self.folder.write(EXT, damaged + data[40 * SALE:])
                self.assertTexts(gate)
        self.folder.write(EXT, random.Random(SEED).randbytes(len(data)))
        self.assertTexts(gate)

    def test_values_and_quantities_at_the_ends_of_their_range(self):
        gate = self.gate()

        def sold(quantity, raw):
            data = bytearray(line("CAFE", quantity, 0, 900))
            at = 4 + 8 + 4 + 15 + 2
            data[at:at + 8] = raw.to_bytes(8, "little", signed=True)
            return bytes(data)

        for sales, total in (([sold(1, MOST)], "922337203685477.58"), ([sold(2, MOST)], ERROR), ([sold(-1, LEAST)], ERROR),
                             ([sold(32767, MOST // 32767)], money(32767 * (MOST // 32767))),
                             ([sold(1, MOST), sold(1, 10000)], ERROR), ([sold(1, MOST), sold(1, 10000), sold(1, LEAST)], ERROR), ([sold(1, LEAST)], "-922337203685477.58"),
                             ([sold(-32768, 10000)], "-32768.00")):
            with self.subTest(total=total):
                self.folder.write(EXT, sales_file(*sales))
                for button in (SUMS, LIST_OF_SALES):
                    self.menu(gate, button)
                    text = (self.folder / TEXT).read_bytes().decode("cp1252").split("\r\n")
                    self.assertIn(f"TOTAL $ {total}", [row.strip() for row in text])
                    gate.key(ESC)


if __name__ == "__main__":
    trouble.station.main()
