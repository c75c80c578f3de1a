"""The driven year: two gates, their traffic, and an account beside them. Everything that a gate shows or writes is compared
with the account as it comes up; the totals of all reports are kept and must agree at the end."""
import datetime
import random

import closing
from agenda import REPORT_SECOND, Agenda
from comings import Comings
from ledger import Ledger, Till
from gate_reports import Reports
from setting import last_invoice, restart, set_up
from traffic import DAY, GATES, OPENING, Traffic, reads_codes

FIRST_DAY = datetime.datetime(2026, 1, 1)


class Year:
    """`root`: an empty folder. `patience`: as of a gate, behind the first `whole` days, which pass moment by moment."""

    def __init__(self, root, days, seed, patience=None, whole=0, vehicles=300, sales=60):
        self.days, self.patience, self.whole = days, patience, whole
        self.agenda = Agenda(self.day(days))
        self.traffic = Traffic(random.Random(seed), vehicles, sales)
        self.ledger = Ledger()
        self.tills = {gate: Till(gate, last_invoice(gate)) for gate in GATES}
        self.comings = Comings(self.traffic, self.agenda, self.ledger, self.tills)
        self.gates = set_up(root, seed, OPENING - datetime.timedelta(minutes=2))
        self.one, self.two = self.gates["01"], self.gates["02"]
        self.reports = Reports(self.tills, self.ledger)

    @staticmethod
    def day(number):
        return FIRST_DAY + number * DAY

    def end(self):
        for gate in self.gates.values():
            gate.end()

    # ---- The days ----

    def run(self, after_day=lambda days: None):
        """`after_day` hears how many days are over."""
        for number in range(self.days):
            self.plan(self.day(number))
            self.one.patience = self.two.patience = None if number < self.whole else self.patience
            for moment, number_of_gate, action, what in self.agenda.until(self.day(number + 1)):
                gate = self.gates[number_of_gate]
                gate.until(moment)
                action(gate, *what)
            after_day(number + 1)
        closing.compare(self.gates, self.tills, self.ledger, self.reports)

    def plan(self, day):
        """Everything of a day that doesn't follow from something else."""
        self.agenda.forget_before(day)
        for count, action in ((self.traffic.vehicles, self.comings.arrive), (self.traffic.sales, self.comings.sell)):
            for moment in self.traffic.moments(day, count):
                if moment > OPENING:
                    self.agenda.at(moment, self.traffic.gate(), action)
        for hour, change in ((6, self.morning), (14, self.afternoon), (22, self.night)):
            self.agenda.put(day.replace(hour=hour, second=REPORT_SECOND), "01", change)
        self.agenda.put(day.replace(hour=23, minute=59, second=REPORT_SECOND), "02", self.midnight)

    # ---- Their fixed points ----

    def morning(self, one):
        """Both gates begin, and change between numbers and codes at the weekend."""
        self.two.until(one.now)
        self.reports.end_shift(one)
        for gate in (one, self.two):
            if gate.codes != reads_codes(gate.number, gate.now + datetime.timedelta(minutes=2)):
                gate.switch_codes()
            self.reports.begin_shift(gate)

    def afternoon(self, one):
        self.two.until(one.now)
        self.reports.of_shift_so_far(self.two)
        self.reports.end_shift(one)
        self.reports.begin_shift(one)

    def night(self, one):
        """The second gate works without a shift until the morning."""
        self.two.until(one.now)
        self.reports.end_shift(one)
        self.reports.end_shift(self.two)
        self.reports.begin_shift(one)

    def midnight(self, two):
        self.one.until(two.now)
        self.reports.close_day(two)
        last = two.now + DAY >= self.agenda.end
        if last or self.begins_anew(two.now):
            self.reports.end_shift(self.one)
            self.reports.of_the_history(self.one)
        if self.begins_anew(two.now) and not last:
            self.reports.begin_anew(self.one)  # the other gate's list of sales fills up and loses its oldest lines
            self.reports.begin_shift(self.one)
        if two.now.day in (5, 15):
            for gate in (self.one, two):
                self.reports.reprice(gate)
        if two.now.weekday() == 6:
            self.reports.of_registers(two)  # out of a shift: as many rows as a page holds
            restart(two, self.traffic.rng.randrange(2**31))  # its codes must not come again

    @staticmethod
    def begins_anew(now):
        """The history is wiped twice in a quarter."""
        return (now - FIRST_DAY).days % 90 in (9, 19)
