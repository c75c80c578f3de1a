"""The driven year: two gates, their traffic, and an account beside them. Everything that a gate shows or writes is compared
with the account as it comes up; the totals of all reports are gathered and must agree at the end."""
import datetime
import heapq
import itertools
import random

import expected_sales as sales
import tariff
from hands import Gate, expect
from ledger import Ficha, Ledger, Pass, Till
from reports import Reports
from setting import last_invoice, set_up
from traffic import DAY, GATES, PASSES, Traffic, reads_codes

# What happens in a minute happens at these seconds, so that no work of one gate runs into the next minute; shifts change and
# reports are taken behind all of it.
TRAFFIC_SECONDS, REPORT_SECOND = (0, 15, 30), 50


def even_change(rng, value):
    """Cash for this value, as typed, with the mark that this hand uses."""
    given = value + rng.choice((0, 0, 500, 5000)) + rng.choice((tariff.number("0"), tariff.number("0.5")))
    return given, str(given).replace(".", rng.choice(",."))


class Year:
    """`root`: an empty folder. `patience`: as of a gate."""

    def __init__(self, root, days, seed, vehicles=300, sold=60, patience=None, first=datetime.datetime(2026, 1, 1),
                 errors=None):
        self.days, self.first = days, first
        self.rng = random.Random(seed)
        self.traffic = Traffic(self.rng, vehicles, sold)
        self.ledger = Ledger()
        self.tills = {gate: Till(gate, last_invoice=last_invoice(gate)) for gate in GATES}
        self.agenda, self.order = [], itertools.count()
        self.minutes = {}
        self.seed = seed
        self.gates = set_up(root, seed, first.replace(hour=5, minute=59), patience, errors)
        self.reports = Reports(self.gates, self.tills, self.ledger)

    # ---- The agenda ----

    def at(self, moment, gate, action, *what):
        """Puts a piece of work of a gate into the next free seconds from that minute on."""
        moment = moment.replace(second=0, microsecond=0)
        while self.minutes.get((moment, gate), 0) >= len(TRAFFIC_SECONDS):
            moment += datetime.timedelta(minutes=1)
        taken = self.minutes.get((moment, gate), 0)
        self.minutes[moment, gate] = taken + 1
        self.put(moment.replace(second=TRAFFIC_SECONDS[taken]), gate, action, *what)

    def put(self, moment, gate, action, *what):
        if moment < self.end:
            heapq.heappush(self.agenda, (moment, next(self.order), gate, action, what))

    @property
    def end(self):
        return self.first + self.days * DAY

    def plan(self, day):
        """Everything of a day that doesn't follow from something else."""
        opening = self.first.replace(hour=6, minute=1)
        self.minutes = {key: count for key, count in self.minutes.items() if key[0] >= day}
        for moment in self.traffic.moments(day, self.traffic.about(self.traffic.vehicles)):
            if moment >= opening:
                self.at(moment, self.traffic.gate(), self.arrive)
        for moment in self.traffic.moments(day, self.traffic.about(self.traffic.sales)):
            if moment >= opening:
                self.at(moment, self.traffic.gate(), self.sell)
        for hour, change in ((6, self.morning), (14, self.afternoon), (22, self.night)):
            self.put(day.replace(hour=hour, second=REPORT_SECOND), "01", change)
        self.put(day.replace(hour=23, minute=59, second=REPORT_SECOND), "02", self.midnight)

    def run(self):
        for number in range(self.days):
            day = self.first + number * DAY
            self.plan(day)
            while self.agenda and self.agenda[0][0] < day + DAY:
                moment, _, gate, action, what = heapq.heappop(self.agenda)
                self.gates[gate].until(moment)
                action(self.gates[gate], *what)
        self.reports.close_year()

    # ---- Vehicles ----

    def arrive(self, gate):
        one = self.traffic.somebody()
        ficha = Ficha(self.free_number(gate), one.plate, one.texts, one.category, gate.number, gate.now)
        if self.ledger.is_inside(one.plate):
            inside = next(n for n, other in self.ledger.inside.items() if other.plate == one.plate)
            return gate.refuse_plate(ficha, inside)
        known = self.ledger.users.get(one.plate)
        offered = known and (known.texts, known.category)
        if self.traffic.chance(1):
            return gate.enter(ficha, offered, answer="no")
        validity = self.rng.choice(PASSES) if gate.codes and one.plate and self.traffic.chance(8) else None
        ficha.code = gate.enter(ficha, offered, validity)
        if validity:
            self.ledger.passes[ficha.code] = Pass(ficha.code, ficha.plate, validity[0] == 1, validity[1], gate.now.date())
        self.let_in(ficha)

    def free_number(self, gate):
        """The generator gives the lowest one; where the operator takes a token, it is any that lies there."""
        if gate.codes:
            return self.ledger.lowest_free(gate.number)
        half = range(1, 501) if gate.number == "01" else range(501, 1001)
        return next(n for n in iter(lambda: self.rng.choice(half), None) if n not in self.ledger.inside)

    def let_in(self, ficha):
        ficha.entry = ficha.entry.replace(second=0)
        held = self.ledger.passes.get(ficha.code)
        if held and not held.by_days:
            held.left -= 1
        self.ledger.enter(ficha)
        self.will_leave(ficha, ficha.entry + self.traffic.stay())

    def will_leave(self, ficha, moment):
        """By a gate that can read what he has: a ticket's number can be typed, a token has no code."""
        gate = self.traffic.gate()
        if not ficha.code and reads_codes(gate, moment):
            gate = "02" if gate == "01" else "01"
        self.at(max(moment, self.gates[gate].now + datetime.timedelta(minutes=1)), gate, self.depart, ficha)

    def depart(self, gate, ficha):
        if gate.codes and not ficha.code:  # the mode has changed while he drove up
            return self.will_leave(ficha, gate.now + datetime.timedelta(minutes=1))
        clear = bool(ficha.user) and self.traffic.chance(2)
        self.ledger.quote(ficha, gate.now)
        clear = clear and ficha.points > 0
        self.ledger.quote(ficha, gate.now, clear)
        invoice = ficha.priced and self.traffic.chance(8)
        cash = even_change(self.rng, ficha.value) if ficha.priced and self.traffic.chance(15) else None
        answer = "no" if self.traffic.chance(1) else "yes"
        copies = 2 if invoice and answer == "yes" and gate.number == "02" else 1
        printed, change = gate.leave(ficha, answer, invoice, cash and cash[1], clear, copies)
        if cash:
            expect(change, f"{(cash[0] - ficha.value).normalize():f}", f"the change of {ficha}")
        if answer == "no":
            ficha.exit = None
            return self.will_leave(ficha, gate.now + datetime.timedelta(minutes=3))
        if invoice:
            self.invoice_stay(gate, ficha, cash, printed, copies)
        else:
            expect(printed, [], "paper without an invoice")
        self.ledger.leave(ficha, gate.number)
        self.may_come_back(ficha)

    def may_come_back(self, ficha):
        held = self.ledger.passes.get(ficha.code)
        if held:
            pause = datetime.timedelta(minutes=self.rng.choice((40, 300, 1300, 1400, 4000)))
            back = ficha.exit + pause
            gate = next(gate for gate in GATES if reads_codes(gate, back))
            self.at(back, gate, self.come_back, held)

    def come_back(self, gate, held):
        if not gate.codes or self.ledger.is_inside(held.plate):
            return
        user = self.ledger.users[held.plate]
        ficha = Ficha(self.ledger.lowest_free(gate.number), held.plate, user.texts, user.category, gate.number, gate.now, code=held.code)
        today = gate.now.date()
        if not held.admits(today):
            del self.ledger.passes[held.code]
            return gate.come_back(ficha, None)
        gate.come_back(ficha, held.left - (today - held.first).days if held.by_days else held.left)
        self.let_in(ficha)

    # ---- Money ----

    def invoice_stay(self, gate, ficha, cash, printed, copies):
        till = self.tills[gate.number]
        detail = sales.stay_detail(ficha, with_points=gate.number == "01")
        lines = sales.invoice(gate.number, till.next_invoice(), ficha.exit, ficha.value, detail, sales.STAY_TAX)
        till.invoices.append(("stay", ficha.value, lines))
        paper = sales.on_paper(lines, cash and cash[0], cash and cash[0] - ficha.value)
        self.expect_paper(printed, [paper] * copies)

    def expect_paper(self, printed, expected):
        expect([[line.rstrip() for line in lines if line] for lines in printed],
               [[line.rstrip() for line in lines] for lines in expected], "an invoice on paper")

    def sell(self, gate):
        till = self.tills[gate.number]
        basket, invoice = self.traffic.basket(gate.number), self.traffic.chance(20)
        copies = 2 if invoice and gate.number == "02" else 1
        lines = till.sell(basket, gate.now)
        printed = gate.sell(basket, invoice, copies)
        if not invoice:
            return expect(printed, [], "paper without an invoice")
        value = sales.value_of(lines)
        text = sales.invoice(gate.number, till.next_invoice(), lines[0].moment, value, sales.sale_detail(lines), sales.SALE_TAX)
        till.invoices.append(("sale", value, text))
        self.expect_paper(printed, [sales.on_paper(text, None, None)] * copies)

    # ---- The day's fixed points ----

    def morning(self, gate):
        one, two = self.gates["01"], self.gates["02"]
        two.until(one.now)
        self.reports.end_shift(one)
        for each in (one, two):
            if each.codes != reads_codes(each.number, each.now + datetime.timedelta(minutes=2)):
                each.switch_codes()
        self.reports.begin_shift(one)
        self.reports.begin_shift(two)

    def afternoon(self, gate):
        self.reports.end_shift(gate)
        self.reports.begin_shift(gate)

    def night(self, gate):
        two = self.gates["02"]
        two.until(gate.now)
        self.reports.end_shift(gate)
        self.reports.end_shift(two)
        self.reports.begin_shift(gate)

    def midnight(self, gate):
        one = self.gates["01"]
        one.until(gate.now)
        self.reports.close_day(gate)
        last = gate.now + DAY >= self.end
        if last or self.begins_anew(gate.now):
            self.reports.end_shift(one)
            self.reports.of_the_history(one)
            if not last:
                self.reports.begin_anew(one, gate)
                self.reports.begin_shift(one)

    def begins_anew(self, now):
        """The history is wiped twice in a quarter."""
        return (now.date() - self.first.date()).days % 90 in (9, 19)
