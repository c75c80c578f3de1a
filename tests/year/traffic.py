"""The seeded traffic of a driven year: who comes when, how long they stay, what they buy, and in which mode a gate works."""
import collections
import datetime

import tariff

GATES = ("01", "02")
DAY = datetime.timedelta(days=1)
OPENING = datetime.datetime(2026, 1, 1, 6, 1)  # nobody comes before

# When vehicles come, by hour of the day.
HOURS = (2, 1, 1, 1, 2, 6, 14, 24, 26, 20, 16, 15, 17, 18, 17, 15, 15, 18, 20, 16, 12, 9, 6, 4)
# How long they stay: share, shortest and longest in minutes.
STAYS = ((6, 0, 5), (34, 5, 75), (34, 60, 320), (18, 300, 900), (6, 900, 1700), (2, 1440, 4 * 1440))
CATEGORY_WEIGHTS = (46, 20, 9, 8, 6, 1, 6, 4)
NAMES = ("ANA", "JOSÉ", "MARÍA", "LUIS", "SOFÍA", "IVÁN", "BELÉN", "")
SURNAMES = ("NUÑEZ", "RUIZ", "PEÑA", "GÓMEZ", "DÍAZ <B>", "LÓPEZ & HIJOS", "")
REMARKS = ("", "", "", "CASCO", 'RAYÓN "IZQ"', "SIN LLAVES")
REGULARS = 400

# A pass: mode of LstModEntrada, and for how many entries or days.
PASSES = ((0, 2), (0, 3), (0, 5), (1, 2), (1, 5), (1, 30))

Arrival = collections.namedtuple("Arrival", "plate texts category")


def reads_codes(gate, moment):
    """P02 gives tickets with codes from Monday's first shift to Saturday's, P01 at the weekend."""
    weekend = (moment - datetime.timedelta(hours=6, minutes=1)).weekday() >= 5
    return (gate == "01") == weekend


def other(gate):
    return "02" if gate == "01" else "01"


class Traffic:
    def __init__(self, rng, vehicles, sales):
        self.rng = rng
        self.vehicles, self.sales = vehicles, sales
        self.plates = 0
        self.regulars = [self.stranger() for _ in range(REGULARS)]
        self.newest = self.stranger()  # who was never here before his last visit, and may come again at once

    def stranger(self):
        """Somebody who was never here."""
        self.plates += 1
        letters = "".join(self.rng.choice("ABCDEFGHJKLMNÑPQRSTUVWXYZ") for _ in range(3))
        telephone = f"3{self.rng.randrange(10**9):09}"
        texts = (self.rng.choice(NAMES), self.rng.choice(SURNAMES), telephone, self.rng.choice(REMARKS))
        return Arrival(f"{letters}{self.plates:04}", texts, self.category())

    def category(self):
        return self.rng.choices(tariff.CATEGORIES, CATEGORY_WEIGHTS)[0]

    def chance(self, percent):
        return self.rng.random() * 100 < percent

    def somebody(self):
        """Who stands at the gate: mostly one who is known, sometimes under another category than the last time."""
        draw = self.rng.random()
        if draw < 0.04:
            return Arrival("", ("", "", "", ""), self.category())
        if draw < 0.12:
            self.newest = self.stranger()
            return self.newest
        if draw < 0.15:
            return self.newest
        one = self.rng.choice(self.regulars)
        return one._replace(category=self.category()) if draw > 0.95 else one

    def stay(self):
        _, shortest, longest = self.rng.choices(STAYS, [share for share, *_ in STAYS])[0]
        return datetime.timedelta(minutes=self.rng.randint(shortest, longest))

    def moments(self, day, usual):
        """About so many minutes of a day, as busy as its hours are."""
        count = round(usual * self.rng.uniform(0.85, 1.15))
        for hour in self.rng.choices(range(24), HOURS, k=count):
            yield day + datetime.timedelta(hours=hour, minutes=self.rng.randrange(60))

    def gate(self):
        return "01" if self.rng.random() < 0.55 else "02"

    def basket(self, gate):
        """Articles and quantities of a sale, in the order of the list."""
        names = [name for name, _ in tariff.ARTICLES[gate]]
        chosen = self.rng.sample(names, self.rng.choice((1, 1, 1, 2, 3)))
        return [(name, self.rng.randint(1, 12)) for name in names if name in chosen]
