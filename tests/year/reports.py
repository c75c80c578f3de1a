"""The reports of a driven year as operators take them: each is compared with the account line by line, and its total kept."""
import collections
import re
from decimal import Decimal

import expected_fichas as fichas
import expected_sales as sales
from hands import expect, texts_printed
from ledger import since_mark, stamp
from pages import read_page

HISTORY, SHIFT, SUMS, DETAIL, NEWCOMERS, POINTS = range(6)  # buttons of the menu
LIST_YES, SUMMARY_YES = ("yes", "no"), ("yes", "yes")
ROWS_OF_POINTS = 10946  # that a page of them holds at most

TOTAL = re.compile(r" *TOTAL \$ (\d+\.\d\d)")
SUMMED = re.compile(r"([^*].{14})([ \d]{6}\d)( *\d+\.\d\d)")  # category, count in 7 columns, sum in 9


def filled(lines):
    """Without the lines that only move the paper."""
    return [line.rstrip() for line in lines if line.strip()]


def page_total(page):
    """What the page itself gives as its total, which its days must add up to."""
    total = Decimal(page.rows[-1][8].removeprefix("$ "))
    days = sum(Decimal(row[8].removeprefix("$ ")) for row in page.rows[:-1] if not row[0] and row[8])
    stays = sum(Decimal(row[8]) for row in page.rows[:-1] if row[0] and row[8] not in ("", "??"))
    expect((days, stays), (total, total), "days and stays of a page")
    return total


def last_total(lines):
    return Decimal(TOTAL.fullmatch(lines[-2]).group(1))


class Reports:
    def __init__(self, gates, tills, ledger):
        self.gates, self.tills, self.ledger = gates, tills, ledger
        self.sums = collections.Counter()  # by kind of report
        self.categories = collections.Counter()
        self.turn = 0

    def expect_page(self, gate, data, title, expected, heads=fichas.STAY_HEADS):
        page = read_page(data)
        expect((page.title, page.heads), (f"{title}{gate.number}", heads), "a page")
        expect_same(page.rows, expected, f"{page.title} at {gate.now}")
        return page

    def expect_slip(self, printed, expected, gate):
        expect(len(printed), 1, f"slips of P{gate.number} at {gate.now}")
        lines = filled(printed[0])
        expect_same(lines, [line.rstrip() for line in expected], f"slip of P{gate.number} at {gate.now}")
        return lines

    # ---- Shifts ----

    def begin_shift(self, gate):
        gate.menu(SHIFT)
        self.ledger.begin_shift(self.tills[gate.number], gate.now)

    def end_shift(self, gate):
        """What was sold and who was new first, then the end with page and slip; list and summary take turns."""
        till = self.tills[gate.number]
        if not till.shift:
            return
        self.of_articles(gate)
        self.of_points(gate)
        self.turn += 1
        answers = SUMMARY_YES if self.turn % 2 else LIST_YES
        replies = gate.menu(SHIFT, answers)
        gate.launched(replies, "Explorer.exe Recursos\\Vintoral.HTML")
        left, period = self.ledger.left_in_shift(), [stamp(till.shift), stamp(gate.now)]
        page = self.expect_page(gate, gate.page(), "TURNO DE TRABAJO P", fichas.page_rows(left, period))
        gate.close_menu()
        slip = fichas.slip(left, f"Vintoral   TURNO DE TRABAJO P{gate.number}", f"Vintoral  RESUMEN TURNO.TRA P{gate.number}",
                           [f"INICIO -->  {period[0]}", f" FINAL -->  {period[1]}"], "SALID", answers is LIST_YES)
        lines = self.expect_slip(texts_printed(replies), slip, gate)
        expect(last_total(lines), page_total(page), "total of slip and page")
        self.sums[f"shifts of P{gate.number}"] += last_total(lines)
        till.shift = None

    # ---- Days ----

    def close_day(self, gate):
        """At a gate without a shift: the day's history, all articles still listed, and who is inside."""
        replies = gate.menu(HISTORY, SUMMARY_YES if self.turn % 3 else LIST_YES)
        day = self.ledger.left_last_day()
        now = stamp(gate.now)
        page = self.expect_page(gate, gate.page(), "HISTORIAL DÍA P", fichas.page_rows(day, []))
        gate.close_menu()
        slip = fichas.slip(day, f"Vintoral      HISTORIAL DÍA P{gate.number}", f"Vintoral  RESUMEN HISTO.DÍA P{gate.number}",
                           [f"HORA/FECHA  {now}"], "SALID", not self.turn % 3)
        lines = self.expect_slip(texts_printed(replies), slip, gate)
        expect(last_total(lines), page_total(page), "total of slip and page")
        self.sums["days"] += last_total(lines)
        self.add_categories(lines)
        self.of_articles(gate)
        self.of_state(gate)

    def add_categories(self, lines):
        for line in lines[lines.index("      CATEGORIA   CANT    VALOR"):]:
            found = SUMMED.fullmatch(line)
            if found:
                self.categories[found.group(1).strip()] += Decimal(found.group(3))

    def of_state(self, gate):
        gate.refresh()
        inside = [self.ledger.inside[number] for number in sorted(self.ledger.inside)]
        if not inside:
            return
        data, printed = gate.state_report()
        now = stamp(gate.now)
        self.expect_page(gate, data, "ESTADO P", fichas.page_rows(inside, [now]))
        slip = fichas.slip(inside, f"Vintoral             ESTADO P{gate.number}", f"Vintoral     RESUMEN ESTADO P{gate.number}",
                           [f"HORA/FECHA  {now}"], "ENTRA", True)
        self.expect_slip(printed, slip, gate)

    # ---- Articles, points, new users ----

    def of_articles(self, gate):
        till = self.tills[gate.number]
        sold = list(since_mark(till.sales, till.shift))
        for button, written in ((SUMS, sales.sums), (DETAIL, sales.detail)):
            gate.launched(gate.menu(button), "Notepad.exe Recursos\\Vintoral.RGT")
            lines = filled(gate.slip_file().split("\r\n"))
            gate.close_menu()
            expect_same(lines, [line.rstrip() for line in written(till, sold, gate.now)], f"articles of P{gate.number} at {gate.now}")
            if button == SUMS:
                self.add_sales(gate, till, lines)

    def add_sales(self, gate, till, lines):
        """A shift's sums together; out of a shift those of today, which come first."""
        totals = [Decimal(found.group(1)) for found in map(TOTAL.fullmatch, lines) if found]
        if till.shift:
            self.sums[f"articles in shifts of P{gate.number}"] += sum(totals)
        elif f" ({gate.now:%d/%m/%Y})" in lines:
            self.sums[f"articles by day at P{gate.number}"] += totals[0]

    def of_points(self, gate):
        in_shift = bool(self.tills[gate.number].shift)
        for button, title, register, cells, heads in (
                (NEWCOMERS, "NUEVOS P", self.ledger.newcomers, fichas.new_cells, fichas.NEW_HEADS),
                (POINTS, "PUNTOS P", self.ledger.movements, fichas.point_cells, fichas.POINT_HEADS)):
            gate.launched(gate.menu(button), "Explorer.exe Recursos\\Vintoral.HTML")
            page = read_page(gate.page())
            gate.close_menu()
            listed = list(since_mark(reversed(register[-ROWS_OF_POINTS:]), in_shift))
            expect((page.title, page.heads), (f"{title}{gate.number}", heads), "a page")
            expect_same([row for row in page.rows if row[0] and any(row[1:])], [cells(one) for one in listed], f"{page.title} at {gate.now}")
            if button == POINTS:
                counted = [row[1] for row in page.rows if not row[0] and row[1]]
                expect(counted, fichas.counts_by_day(listed) or counted[:1], f"counts of {page.title}")

    # ---- The whole history ----

    def of_the_history(self, gate):
        """A search over all days of it."""
        left = self.ledger.history[::-1]
        if not left:
            return
        first, last = left[-1].exit, gate.now
        page = self.expect_page(gate, gate.search(first, last), "BÚSQUEDA P", fichas.page_rows(
            left, [stamp(gate.now), f"00:00  ({first:%d/%m/%Y})", f"23:59  ({last:%d/%m/%Y})"]))
        self.sums["searches"] += page_total(page)

    def begin_anew(self, one, two):
        """History and lists of sales start from nothing."""
        one.menu_row("Reiniciar Historial", ("yes", "yes"))
        self.ledger.history.clear()
        for gate in (one, two):
            gate.menu_row("Reiniciar Contador de Extras", ("yes", "yes"))
            self.tills[gate.number].sales.clear()

    def close_year(self):
        """What is left to compare when all is done."""
        import closing
        closing.compare(self)


def expect_same(found, expected, what):
    """Two lists; only where they part is told."""
    if found == expected:
        return
    at = next((n for n, (one, other) in enumerate(zip(found, expected)) if one != other), min(len(found), len(expected)))
    expect((len(found), found[at:at + 2]), (len(expected), expected[at:at + 2]), f"{what}, from {at} on")
