"""The reports of a driven year as operators take them: each is compared with the account line by line, and its total kept."""
import collections
import re
from decimal import Decimal

import desk
import expected_fichas as fichas
import expected_sales as sales
import tariff
from checks import expect, expect_same, filled
from expected_fichas import stamp
from ledger import since_mark
from pages import read_page

LIST, SUMMARY = ("yes", "no"), ("yes", "yes")  # answers to the questions about a slip
ROWS_OF_REGISTERS = 10946  # of points or new users, that a page holds at most

TOTAL = re.compile(r" *TOTAL \$ (\d+\.\d\d)")
SUMMED = re.compile(r"([^*].{14})([ \d]{6}\d)( *\d+\.\d\d)")  # category, count in 7 columns, sum in 9


def totals_in(lines):
    return [Decimal(found.group(1)) for found in map(TOTAL.fullmatch, lines) if found]


def amount(cell):
    return Decimal(cell.removeprefix("$ "))


def total_of(page):
    """What the page itself gives as its total, which its days and its stays must add up to."""
    *rows, last = page.rows
    days = sum((amount(row[8]) for row in rows if not row[0] and row[8]), Decimal(0))
    stays = sum((amount(row[8]) for row in rows if row[0] and row[8] not in ("", "??")), Decimal(0))
    expect((days, stays), (amount(last[8]),) * 2, f"days and stays of {page.title}")
    return days


class Reports:
    def __init__(self, tills, ledger):
        self.tills, self.ledger = tills, ledger
        self.sums = collections.Counter()  # by kind of report
        self.categories = collections.Counter()  # of the days' summaries
        self.turn = 0

    def expect_page(self, gate, data, title, expected, heads=fichas.STAY_HEADS):
        page = read_page(data)
        expect((page.title, page.heads), (f"{title}{gate.number}", heads), "a page")
        expect_same(page.rows, expected, f"{page.title} at {gate.now}")
        return page

    def expect_slip(self, gate, papers, expected):
        expect(len(papers), 1, f"slips of P{gate.number} at {gate.now}")
        lines = filled(papers[0])
        expect_same(lines, filled(expected), f"slip of P{gate.number} at {gate.now}")
        return lines

    def keep(self, kind, page, lines):
        expect(totals_in(lines)[-1], total_of(page), "the total of a slip and that of its page")
        self.sums[kind] += totals_in(lines)[-1]

    # ---- Shifts ----

    def begin_shift(self, gate):
        desk.begin_shift(gate)
        self.ledger.begin_shift(self.tills[gate.number], gate.now)

    def end_shift(self, gate):
        """The sums of what was sold first, then the end with page and slip; list and summary, articles and users take turns."""
        till, number = self.tills[gate.number], gate.number
        if not till.shift:
            return
        self.turn += 1
        self.of_articles(gate, desk.SUMS)
        if self.turn % 4 < 2:
            self.of_articles(gate, desk.DETAIL)
        else:
            self.of_registers(gate)
        answers = SUMMARY if self.turn % 2 else LIST
        data, papers = desk.page_by_menu(gate, desk.SHIFT, *answers)
        page = self.expect_page_of_shift(gate, data)
        lines = self.expect_slip(gate, papers, fichas.slip(
            self.ledger.left_in_shift(), f"Vintoral   TURNO DE TRABAJO P{number}", f"Vintoral  RESUMEN TURNO.TRA P{number}",
            [f"INICIO -->  {stamp(till.shift)}", f" FINAL -->  {stamp(gate.now)}"], "SALID", answers is LIST))
        self.keep(f"shifts of P{number}", page, lines)
        till.shift = None

    def expect_page_of_shift(self, gate, data):
        period = [stamp(self.tills[gate.number].shift), stamp(gate.now)]
        return self.expect_page(gate, data, "TURNO DE TRABAJO P", fichas.page_rows(self.ledger.left_in_shift(), period))

    def of_shift_so_far(self, gate):
        """Without ending it."""
        data, papers = desk.page_by_menu(gate, desk.HISTORY, "no")
        self.expect_page_of_shift(gate, data)
        expect(papers, [], "slips that nobody asked for")

    # ---- Days ----

    def close_day(self, gate):
        """At a gate without a shift: the day's history, all articles still listed, and who is inside."""
        answers = SUMMARY if gate.now.day % 3 else LIST
        data, papers = desk.page_by_menu(gate, desk.HISTORY, *answers)
        day, number = self.ledger.left_last_day(), gate.number
        page = self.expect_page(gate, data, "HISTORIAL DÍA P", fichas.page_rows(day, []))
        lines = self.expect_slip(gate, papers, fichas.slip(
            day, f"Vintoral      HISTORIAL DÍA P{number}", f"Vintoral  RESUMEN HISTO.DÍA P{number}",
            [f"HORA/FECHA  {stamp(gate.now)}"], "SALID", answers is LIST))
        self.keep("days", page, lines)
        for line in lines[lines.index("      CATEGORIA   CANT    VALOR"):]:
            if found := SUMMED.fullmatch(line):
                self.categories[found.group(1).strip()] += Decimal(found.group(3))
        self.of_articles(gate, desk.SUMS)
        self.of_articles(gate, desk.DETAIL)
        self.of_state(gate)

    def of_state(self, gate):
        inside = [self.ledger.inside[number] for number in sorted(self.ledger.inside)]
        if not inside:
            return  # which beeps, and writes nothing
        data, papers = desk.state_report(gate)
        now = stamp(gate.now)
        self.expect_page(gate, data, "ESTADO P", fichas.page_rows(inside, [now]))
        self.expect_slip(gate, papers, fichas.slip(
            inside, f"Vintoral             ESTADO P{gate.number}", f"Vintoral     RESUMEN ESTADO P{gate.number}",
            [f"HORA/FECHA  {now}"], "ENTRA", True))

    # ---- Articles, points, new users ----

    def of_articles(self, gate, button, again=False):
        """`again`: the totals have been kept already."""
        till = self.tills[gate.number]
        sold = list(since_mark(till.sales, till.shift))
        expected = sales.sums if button == desk.SUMS else sales.detail
        lines = filled(desk.text_by_menu(gate, button).split("\r\n"))
        expect_same(lines, filled(expected(till, sold, gate.now)), f"articles of P{gate.number} at {gate.now}")
        if button == desk.SUMS and not again:
            self.keep_articles(gate, till, lines)

    def keep_articles(self, gate, till, lines):
        """Of a shift the sums of its days together; out of a shift those of today, which come first."""
        if till.shift:
            self.sums[f"articles in shifts of P{gate.number}"] += sum(totals_in(lines))
        elif f" ({gate.now:%d/%m/%Y})" in lines:
            self.sums[f"articles by day at P{gate.number}"] += totals_in(lines)[0]

    def of_registers(self, gate):
        in_shift = self.tills[gate.number].shift
        for button, title, register, cells, heads in (
                (desk.NEWCOMERS, "NUEVOS P", self.ledger.newcomers, fichas.new_cells, fichas.NEW_HEADS),
                (desk.POINTS, "PUNTOS P", self.ledger.movements, fichas.point_cells, fichas.POINT_HEADS)):
            data, _ = desk.page_by_menu(gate, button)
            page = read_page(data)
            listed = list(since_mark(reversed(register[-ROWS_OF_REGISTERS:]), in_shift))
            expect((page.title, page.heads), (f"{title}{gate.number}", heads), "a page")
            expect_same([row for row in page.rows if row[0] and any(row[1:])], [cells(one) for one in listed],
                        f"{page.title} at {gate.now}")
            if button == desk.POINTS and listed:
                counts = [row[1] for row in page.rows if not row[0] and row[1]]
                expect_same(counts, fichas.counts_by_day(listed), f"counts of {page.title}")

    # ---- The whole history ----

    def of_the_history(self, gate):
        """A search over all days of it."""
        left = self.ledger.history[::-1]
        if not left:
            return
        first, last = left[-1].exit, gate.now
        page = self.expect_page(gate, desk.search(gate, first, last), "BÚSQUEDA P", fichas.page_rows(
            left, [stamp(gate.now), f"00:00  ({first:%d/%m/%Y})", f"23:59  ({last:%d/%m/%Y})"]))
        self.sums["searches"] += total_of(page)

    def reprice(self, gate):
        """Lists of days that are over show the prices of now, and the total that was paid."""
        till = self.tills[gate.number]
        till.reprice()
        desk.reprice(gate, tariff.price_list(gate.number, till.risen))
        self.of_articles(gate, desk.SUMS, again=True)

    def begin_anew(self, gate):
        """The history, and the gate's list of sales, start from nothing."""
        desk.press_row(gate, "Reiniciar Historial", "yes", "yes")
        self.ledger.history.clear()
        desk.press_row(gate, "Reiniciar Contador de Extras", "yes", "yes")
        self.tills[gate.number].sales.clear()
