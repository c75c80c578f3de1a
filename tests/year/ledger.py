"""The account of a driven year, kept by hand beside the gates: who is inside, who left and what he paid, users and their
points, articles sold, invoices. It never asks the station; the tests compare the two."""
import collections
import dataclasses
import datetime
from decimal import Decimal

import tariff
from expected_sales import invoice_lines

LIST_OF_SALES = 5000  # lines that a gate keeps


def whole_minute(moment):
    return moment.replace(second=0, microsecond=0)


@dataclasses.dataclass
class User:
    number: int
    texts: tuple  # name, surname, telephone, remark
    category: str
    points: int = 0


@dataclasses.dataclass
class Ficha:
    """A stay. `mark` is set on the one that was the last in its register when a shift began."""
    number: int
    plate: str
    texts: tuple
    category: str
    gate_in: str
    entry: datetime.datetime
    user: User | None = None
    code: str = ""
    gate_out: str = ""
    exit: datetime.datetime | None = None
    value: Decimal = Decimal(0)
    points: int = 0
    mark: bool = False

    @property
    def stay(self):
        return tariff.stay_between(self.entry, self.exit)

    @property
    def priced(self):
        """Does the screen show a value for the stay."""
        return tariff.has_price(self.category, self.stay)


@dataclasses.dataclass
class Sale:
    """One line of a gate's list of sales."""
    article: str
    quantity: int
    price: Decimal
    moment: datetime.datetime
    mark: bool = False

    @property
    def value(self):
        return tariff.cents(self.quantity * self.price)


@dataclasses.dataclass
class Pass:
    """A ticket for several entries or days; `left` counts entries still to come, or days with the first one."""
    code: str
    plate: str
    by_days: bool
    left: int
    first: datetime.date

    def left_on(self, day):
        """Entries, or days with this one."""
        return self.left - (day - self.first).days if self.by_days else self.left

    def admits(self, day):
        return self.left_on(day) > 0


class Till:
    """What one gate keeps for itself: articles sold, newest first, and invoices, oldest first."""

    def __init__(self, gate, last_invoice):
        self.gate = gate
        self.prices, self.risen = tariff.unit_prices(gate), False
        self.sales = collections.deque(maxlen=LIST_OF_SALES)
        self.sold = Decimal(0)  # whatever became of the list
        self.invoice_number = last_invoice
        self.invoices, self.invoiced = [], Decimal(0)
        self.shift = None  # when it began

    def reprice(self):
        """What was sold keeps what was paid."""
        self.risen = not self.risen
        self.prices = tariff.unit_prices(self.gate, self.risen)

    def sell(self, sold, moment):
        """The lines of one sale: the first article ends up as the newest."""
        lines = [Sale(article, quantity, self.prices[article], whole_minute(moment)) for article, quantity in sold]
        self.sales.extendleft(reversed(lines))
        self.sold += sum(line.value for line in lines)
        return lines

    def invoice(self, moment, value, detail, percent):
        """The lines of the next one."""
        self.invoice_number += 1
        self.invoiced += value
        self.invoices.append(invoice_lines(self.gate, self.invoice_number, moment, value, detail, percent))
        return self.invoices[-1]


def since_mark(newest_first, in_shift):
    """What a report lists: in a shift only what came behind the last mark."""
    for one in newest_first:
        if in_shift and one.mark:
            return
        yield one


class Ledger:
    """What the gates share."""

    def __init__(self):
        self.inside = {}
        self.users = {}
        self.history = []  # fichas that left, oldest first, since the history was begun anew
        self.newcomers = []  # by user: the ficha of his first visit
        self.movements = []  # of points, oldest first
        self.passes = {}
        self.taken = collections.Counter()  # for stays by category, whatever became of the history
        self.gone = 0

    def number_of(self, plate):
        """Of the ficha inside with this plate, if there is one."""
        return next((n for n, ficha in self.inside.items() if plate and ficha.plate == plate), None)

    def lowest_free(self, gate):
        return next(n for n in range(1 if gate == "01" else 501, 1001) if n not in self.inside)

    def enter(self, ficha):
        """A ficha comes in; its user is told by its plate."""
        ficha.user = self.user_of(ficha) if ficha.plate else None
        self.inside[ficha.number] = ficha
        if ficha.user and ficha.user.number == len(self.users):
            # The newest user's row is written again at each of his visits.
            del self.newcomers[ficha.user.number - 1:]
            self.newcomers.append(dataclasses.replace(ficha))

    def user_of(self, ficha):
        user = self.users.setdefault(ficha.plate, User(len(self.users) + 1, ficha.texts, ficha.category))
        user.texts, user.category = ficha.texts, ficha.category
        return user

    def quote(self, ficha, moment, points_cleared=False):
        """Fills in how the ficha would leave now: its value and the points it would have then."""
        ficha.exit = whole_minute(moment)
        ficha.value = tariff.price(ficha.category, ficha.stay)
        earlier = ficha.user.points if ficha.user else 0
        ficha.points = 0 if points_cleared else earlier + tariff.points(ficha.stay)

    def leave(self, ficha, gate):
        """As quoted."""
        del self.inside[ficha.number]
        ficha.gate_out = gate
        self.taken[ficha.category] += ficha.value
        self.gone += 1
        self.history.append(ficha)
        if ficha.user:
            ficha.user.points = ficha.points
            self.movements.append(dataclasses.replace(ficha))

    def begin_shift(self, till, moment):
        for register in (self.history, self.newcomers, self.movements):
            if register:
                register[-1].mark = True
        if till.sales:
            till.sales[0].mark = True
        till.shift = whole_minute(moment)

    def left_in_shift(self):
        return list(since_mark(reversed(self.history), True))

    def left_last_day(self):
        """Newest first, as long as the day is that of the last one."""
        day = []
        for ficha in reversed(self.history):
            if ficha.exit.date() != self.history[-1].exit.date():
                break
            day.append(ficha)
        return day
