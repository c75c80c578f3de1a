"""Vehicles and sales of a driven year: each at a gate and, beside it, in the account."""
import datetime

import desk
import expected_sales as sales
import hands
import tariff
from agenda import MINUTE
from checks import expect, expect_same, filled
from ledger import Ficha, Pass
from traffic import GATES, PASSES, other, reads_codes

# Until a pass is shown again, in minutes.
PAUSES = (40, 300, 1300, 1400, 4000)


class Comings:
    def __init__(self, traffic, agenda, ledger, tills):
        self.traffic, self.agenda, self.ledger, self.tills = traffic, agenda, ledger, tills
        self.rng = traffic.rng

    # ---- In ----

    def arrive(self, gate):
        one = self.traffic.somebody()
        ficha = Ficha(self.free_number(gate), *one, gate.number, gate.now.replace(second=0))
        inside = self.ledger.number_of(one.plate)
        if inside:
            hands.refuse(gate, ficha, inside)
        elif self.traffic.chance(1):
            hands.enter(gate, ficha, self.ledger.users.get(one.plate), answer="no")
        else:
            self.take_in(gate, ficha)

    def take_in(self, gate, ficha):
        """With a pass for some of those whose plate it can name."""
        validity = self.rng.choice(PASSES) if gate.codes and ficha.plate and self.traffic.chance(8) else None
        ficha.code = hands.enter(gate, ficha, self.ledger.users.get(ficha.plate), validity)
        if validity:
            mode, granted = validity
            self.ledger.passes[ficha.code] = Pass(ficha.code, ficha.plate, mode == 1, granted, gate.now.date())
        self.let_in(ficha)

    def free_number(self, gate):
        """The generator gives the lowest one; where the operator takes a token, it is any that lies there."""
        if gate.codes:
            return self.ledger.lowest_free(gate.number)
        number = self.rng.randint(1, 500) + (500 if gate.number == "02" else 0)
        return number if number not in self.ledger.inside else self.free_number(gate)

    def let_in(self, ficha):
        held = self.ledger.passes.get(ficha.code)
        if held and not held.by_days:
            held.left -= 1
        self.ledger.enter(ficha)
        self.will_leave(ficha, ficha.entry + self.traffic.stay())

    def come_back(self, gate, held):
        if not gate.codes or self.ledger.number_of(held.plate):
            return
        today = gate.now.date()
        if not held.admits(today):
            del self.ledger.passes[held.code]
            return hands.refuse_pass(gate, held.code)
        user = self.ledger.users[held.plate]
        ficha = Ficha(self.ledger.lowest_free(gate.number), held.plate, user.texts, user.category, gate.number,
                      gate.now.replace(second=0), code=held.code)
        hands.come_back(gate, ficha, held.left_on(today))
        self.let_in(ficha)

    # ---- Out ----

    def will_leave(self, ficha, moment):
        """By a gate that can read what he has: a ticket's number can be typed, a token has no code."""
        gate = self.traffic.gate()
        if not ficha.code and reads_codes(gate, moment):
            gate = other(gate)
        self.agenda.at(moment, gate, self.depart, ficha)

    def depart(self, gate, ficha):
        if gate.codes and not ficha.code:  # the mode has changed while he drove up
            return self.will_leave(ficha, gate.now + MINUTE)
        self.ledger.quote(ficha, gate.now)
        clear = ficha.points > 0 and bool(ficha.user) and self.traffic.chance(2)
        self.ledger.quote(ficha, gate.now, clear)
        cash = self.cash_for(ficha.value) if ficha.priced and self.traffic.chance(15) else None
        invoice = ficha.priced and self.traffic.chance(8)
        if self.traffic.chance(1):
            self.drive_out(gate, ficha, "no", invoice, cash, clear)
            return self.will_leave(ficha, gate.now + 3 * MINUTE)
        papers = self.drive_out(gate, ficha, "yes", invoice, cash, clear)
        self.expect_papers(papers, self.invoice_of_stay(gate, ficha, cash and cash[0]) if invoice else [])
        self.ledger.leave(ficha, gate.number)
        self.may_come_back(ficha)

    @staticmethod
    def drive_out(gate, ficha, answer, invoice, cash, clear):
        """Up to the answer; the documents that were printed."""
        papers, change = hands.leave(gate, ficha, answer, invoice, cash and cash[1], clear)
        if cash:
            expect(change, f"{(cash[0] - ficha.value).normalize():f}", f"the change of {ficha}")
        return papers

    def cash_for(self, value):
        """What is handed over, and how this operator types it."""
        given = value + self.rng.choice((0, 500, 5000)) + self.rng.choice((tariff.number("0"), tariff.number("0.5")))
        return given, str(given).replace(".", self.rng.choice(",."))

    def may_come_back(self, ficha):
        held = self.ledger.passes.get(ficha.code)
        if not held:
            return
        back = ficha.exit + datetime.timedelta(minutes=self.rng.choice(PAUSES))
        gate = next(gate for gate in GATES if reads_codes(gate, back))
        self.agenda.at(back, gate, self.come_back, held)

    # ---- Money ----

    def invoice_of_stay(self, gate, ficha, given):
        detail = sales.stay_detail(ficha, with_points=gate.number == "01")
        lines = self.tills[gate.number].invoice(ficha.exit, ficha.value, detail, sales.STAY_TAX)
        return [sales.on_paper(lines, given, given and given - ficha.value)] * gate.copies(True)

    def sell(self, gate):
        till = self.tills[gate.number]
        basket, invoice = self.traffic.basket(gate.number), self.traffic.chance(20)
        lines = till.sell(basket, gate.now)
        papers = desk.sell(gate, basket, invoice)
        expected = []
        if invoice:
            text = till.invoice(lines[0].moment, sales.value_of(lines), sales.sale_detail(lines), sales.SALE_TAX)
            expected = [sales.on_paper(text, None, None)] * gate.copies(True)
        self.expect_papers(papers, expected)

    @staticmethod
    def expect_papers(found, expected):
        expect(len(found), len(expected), "papers")
        for one, other_one in zip(found, expected):
            expect_same(filled(one), filled(other_one), "an invoice on paper")
