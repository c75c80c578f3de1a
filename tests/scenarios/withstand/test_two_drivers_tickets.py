"""Two gates that hand out tickets, take passes, register users and let them out again at random, both at once.

Afterwards the books must agree: each user is there once, each ficha carries its own user's number, points are the sum of the
stays, no entry of a pass was taken twice, and codes stand for those who are inside alone. VINTORAL_TURNS is the number of
operations of both gates together.
"""
import collections
import datetime
import json
import os
import random
import sys
import tempfile
import threading

import trouble
from station import CONFIRM_RETIRE, CONFIRM_SAVE, CONTROL, DELETE, ESC, HOME, INSERT, SHIFT, RECORD, Ficha
from tickets import CODE, DAYS, ENTRIES, PASS, USER, TicketDay, earned

# Real syncs make the moments between two writes long enough for the other gate to come between.
tempfile.tempdir = None

SEED = 20261120
TURNS = int(os.environ.get("VINTORAL_TURNS", "6000"))
FIRST_MOMENT = datetime.datetime(2026, 11, 20, 14, 0)
ONCE = "ONCE"
FULL = 60  # fichas inside, from which a gate rather lets out
LATEST = 3
MANY_DAYS = 300  # more than the test lasts: such a pass is never freed
VALIDITIES = (ENTRIES, 1), (ENTRIES, 1), (ENTRIES, 2), (ENTRIES, 3), (ENTRIES, 6), (DAYS, MANY_DAYS)
SHARED_PLATES = [f"SHARED{n}" for n in range(40)]

Entry = collections.namedtuple("Entry", "slot code plate")
Exit = collections.namedtuple("Exit", "slot code plate cleared")


class Town:
    """What both gates know of each other, which is what drivers carry in their hands: tickets, and where they stand."""

    def __init__(self):
        self.lock = threading.Lock()
        self.minutes = 0
        self.inside = []  # (code, plate) of fichas that no gate is letting out
        self.granted = {}  # code of a pass: (mode, number, plate)

    def moment(self, dice):
        with self.lock:
            self.minutes += dice.choice((0, 0, 1, 7, 20))
            return FIRST_MOMENT + datetime.timedelta(minutes=self.minutes)

    def entered(self, code, plate):
        with self.lock:
            self.inside.append((code, plate))

    def grant(self, code, granted):
        with self.lock:
            self.granted[code] = granted

    def lead_out(self, dice):
        with self.lock:
            return self.inside.pop(dice.randrange(len(self.inside))) if self.inside else None

    def crowded(self):
        with self.lock:
            return len(self.inside) > FULL

    def some_pass(self, dice):
        with self.lock:
            latest = list(self.granted)[-LATEST:]  # so that both gates often read the same one
            return dice.choice(latest) if latest else None


class Gate:
    """One gate's operator, who does what comes."""

    def __init__(self, day, station, door, town, turns):
        self.day, self.station, self.door, self.town = day, station, door, town
        self.dice = random.Random(f"{SEED} {door}")
        self.turns = turns
        self.entries, self.exits = [], []
        self.refused = collections.Counter()
        self.failure = None
        self.own = 0

    def run(self):
        try:
            for _ in range(self.turns):
                self.turn()
        except BaseException as failure:  # noqa: B902  a thread's failure is the test's
            self.failure = failure

    def look_at_the_clock(self):
        self.station.clock(self.town.moment(self.dice).strftime("%Y-%m-%d %H:%M:00"))

    def turn(self):
        kind = self.dice.random()
        self.look_at_the_clock()
        if self.town.crowded() or kind < 0.45:
            asked = self.lead_out()
        elif kind < 0.65:
            asked = self.take_pass(self.town.some_pass(self.dice))
        else:
            plate = self.plate()
            asked = self.hand_out(plate, VALIDITIES[0] if ONCE in plate else self.dice.choice(VALIDITIES))
        if asked:
            self.station.answer("yes")
            asked()

    # Each of these goes as far as the station's question and returns what is to be noted after the yes, or nothing
    # where the station has asked nothing.

    def question(self, expected, note):
        if self.station.box["title"] == expected["title"]:
            return note
        self.day.assertEqual(self.station.box["title"], "Vintoral - Ingreso Denegado")
        self.station.answer("ok")
        self.refused["plate inside"] += 1
        return None

    def hand_out(self, plate, validity):
        station = self.station
        station.key(HOME)
        code, slot = station.texts("TxtBarCode", "TxtCampo(0)")
        self.day.assertRegex(code, "^[0-9A-Z]{12}$")
        station.set("TxtCampo(1)", plate)
        mode, number = validity
        station.do("select", control="LstModEntrada", index=mode)
        station.set("TxtMaxEntrada", str(number))
        station.key(INSERT)

        def note():
            self.done()
            if validity != VALIDITIES[0]:
                self.town.grant(code, (mode, number, plate))
            self.entered(slot, code, plate)
        return self.question(CONFIRM_SAVE, note)

    def take_pass(self, code):
        station = self.station
        if code is None:
            return None
        station.set("TxtBarCode", code)
        if station.shown("PctBoton(6)"):
            self.refused["inside"] += 1
            station.key(ESC)
            return None
        if not station.shown("PctBoton(5)"):
            self.refused["spent"] += 1
            station.advance(1000)
            return None
        slot, plate = station.texts("TxtCampo(0)", "TxtCampo(1)")
        station.advance(1000)
        if station.box is None:
            # The code was still that of a ficha inside, and its slot was free when the station came to it.
            self.day.assertFalse(station.shown("TxtMaxEntrada"))
            self.refused["leaving just now"] += 1
            station.key(ESC)
            return None

        def note():
            if self.done():
                self.entered(slot, code, plate)
            else:
                self.refused["taken meanwhile"] += 1
        return self.question(CONFIRM_SAVE, note)

    def lead_out(self):
        led = self.town.lead_out(self.dice)
        if led is None:
            return None
        self.look_at_the_clock()  # he may have come in since
        return self.let_out(*led)

    def let_out(self, code, plate):
        station = self.station
        station.set("TxtBarCode", code)
        self.day.assertTrue(station.shown("PctBoton(6)"), f"{plate} with {code} is not found at the exit")
        number, shown = station.captions("LblCampo(0)", "LblCampo(1)")
        self.day.assertEqual(shown, plate)
        cleared = ONCE in plate and self.dice.random() < 0.3 and self.clear()
        station.key(DELETE)

        def note():
            self.day.assertTrue(self.done(), f"{plate} can't leave by {self.door}")
            self.exits.append(Exit(int(number), code, plate, cleared))
        return self.question(CONFIRM_RETIRE, note)

    def clear(self):
        self.station.key(ord("R"), CONTROL | SHIFT)
        if not self.station.box:
            return False  # there are no points
        self.station.answer("yes")
        return True

    def done(self):
        """Whether the station has done what it asked for."""
        reply = self.station.reply
        self.day.assertEqual((reply["ok"], reply["waiting"]), (True, None))
        return not any(event["event"] == "beep" for event in reply["events"])

    def entered(self, slot, code, plate):
        self.entries.append(Entry(int(slot), code, plate))
        self.town.entered(code, plate)

    def plate(self):
        """A plate that both gates may register at the same moment, one of this gate's own, none, or one that comes without
        passes and so is inside once at a time."""
        kind = self.dice.random()
        if kind < 0.5:
            return self.dice.choice(SHARED_PLATES)
        if kind < 0.55:
            return ""
        self.own += 1
        return f"{self.door}OWN{self.own}" if kind < 0.8 else f"{self.door}{ONCE}{self.own % 7}"


class TwoGates(TicketDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        self.town = Town()
        stations = self.gate(seed=1), self.second_gate(seed=2)
        self.gates = [Gate(self, station, door, self.town, TURNS // 2) for station, door in zip(stations, ("01", "02"))]

    def test_each_as_fast_as_it_can(self):
        threads = [threading.Thread(target=gate.run) for gate in self.gates]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join(550)
            self.assertFalse(thread.is_alive(), "a gate hangs")
        for gate in self.gates:
            if gate.failure:
                raise gate.failure
        self.assertBooks()
        # The days were busy ones at both gates, and met each other's work.
        self.assertGreater(min(len(gate.entries) + len(gate.exits) for gate in self.gates), TURNS // 3)
        self.assertGreater(min(self.refused[why] for why in ("plate inside", "inside", "spent")), 0)
        self.assertGreater(sum(exit_.cleared for exit_ in self.exits), 0)

    def at_once(self, *notes):
        """Yes at both gates: both answers are on their way before either is read."""
        for gate in self.gates:
            gate.station.send_line(b'{"op":"answer","button":"yes"}')
        for gate in self.gates:
            gate.station.reply = json.loads(gate.station.read_line())
        for note in notes:
            note()

    def test_answers_at_the_same_moment(self):
        two = self.gates[1]
        rounds = TURNS // 12
        for number in range(rounds):
            same = number % 2 == 0
            plates = [f"R{number}"] * 2 if same else [f"R{number}A", f"R{number}B"]
            self.at_once(*(gate.hand_out(plate, (ENTRIES, 2)) for gate, plate in zip(self.gates, plates)))
            codes = [gate.entries[-1].code for gate in self.gates]
            with self.town.lock:
                self.town.minutes += 15  # a point for each stay, at least
            for gate in self.gates:
                gate.look_at_the_clock()
            self.at_once(*(gate.let_out(code, plate) for gate, code, plate in zip(self.gates, codes, plates)))
            # One entry is left of the first one's pass, and both gates have it on the screen.
            self.at_once(*(gate.take_pass(codes[0]) for gate in self.gates))
            note = two.let_out(codes[0], plates[0])
            two.station.answer("yes")
            note()
        self.assertBooks()
        self.assertEqual(self.refused["taken meanwhile"], rounds)

    @property
    def entries(self):
        return [entry for gate in self.gates for entry in gate.entries]

    @property
    def exits(self):
        return [exit_ for gate in self.gates for exit_ in gate.exits]

    @property
    def refused(self):
        return sum((gate.refused for gate in self.gates), collections.Counter())

    def assertBooks(self):
        self.assertWholeFiles()
        self.assertUsersOnce()
        self.assertInsideIsWhoEntered()
        self.assertEntriesOfPasses()
        self.assertMovements()
        self.assertPoints()
        print(f"{len(self.entries)} entries, {len(self.exits)} exits, refused {dict(self.refused)}; "
              f"{len(self.books.users())} users, {len(self.books.passes())} records of passes, "
              f"{self.town.minutes // 1440} days", file=sys.stderr)

    def assertWholeFiles(self):
        self.legal(self.folder)
        for name, size in (("CDB", CODE.size), ("CFR", PASS.size), ("USR", USER.size), ("NSR", RECORD.size)):
            self.assertEqual((self.folder.shared / f"Vintoral.{name}").stat().st_size % size, 0, name)
        self.assertEqual((self.folder.shared / "Vintoral.CDB").stat().st_size, 1000 * CODE.size)

    def assertUsersOnce(self):
        users = [record.Placa for record in self.books.users()]
        self.assertEqual(sorted(users), sorted({entry.plate for entry in self.entries} - {""}))
        first = self.books.first_fichas()
        self.assertEqual([(ficha.Placa, ficha.UsuarioPuntos) for ficha in first],
                         [(plate, number) for number, plate in enumerate(users, start=1)])

    def slots(self):
        data = (self.folder.shared / "Vintoral.ACT").read_bytes()
        return [Ficha.decode(data[at:at + RECORD.size]) for at in range(0, 1000 * RECORD.size, RECORD.size)]

    def assertInsideIsWhoEntered(self):
        users = [record.Placa for record in self.books.users()]
        inside = [slot for slot in self.slots() if slot.EnUso]
        for slot in inside:
            self.assertEqual(users[slot.UsuarioPuntos - 1] if slot.Placa else slot.UsuarioPuntos, slot.Placa or 0)
        expected = collections.Counter((e.slot, e.code, e.plate) for e in self.entries)
        expected.subtract((e.slot, e.code, e.plate) for e in self.exits)
        codes = self.books.codes()
        found = collections.Counter((slot.Posicion, codes.get(slot.Posicion, ("", ""))[0], slot.Placa) for slot in inside)
        self.assertEqual(found, +expected)
        self.assertEqual({number: record[1] for number, record in codes.items()},
                         {slot.Posicion: f"{slot.Posicion:04}" for slot in inside})

    def assertEntriesOfPasses(self):
        taken = collections.Counter(entry.code for entry in self.entries)
        standing = {record.CodigoPase: record for record in self.books.passes() if record.CodigoPase}
        self.assertLessEqual(set(standing), set(self.town.granted))
        for code, (mode, number, plate) in self.town.granted.items():
            record = standing.get(code)
            if mode == DAYS:
                self.assertEqual((record.PlacaPase, record.ModoPase, record.RestantesPase), (plate, DAYS, number - 1))
            elif taken[code] < number:
                self.assertEqual((record.PlacaPase, record.ModoPase), (plate, ENTRIES))
                self.assertEqual(record.RestantesPase, number - taken[code])
            else:
                self.assertEqual((taken[code], record), (number, None), f"a pass of {number} entries")

    def assertMovements(self):
        """A row of the history for each exit, and of the movements where somebody is the user."""
        rows = self.folder.history()
        self.assertEqual([row.Posicion for row in rows], list(range(2, len(rows) + 2)))
        self.assertEqual(collections.Counter((int(row.NumeroFicha), row.Placa) for row in rows),
                         collections.Counter((exit_.slot, exit_.plate) for exit_ in self.exits))
        def stay(row):  # all but the points, which one of two departures at once learns from the other
            return row._replace(UsuarioPuntos=0)
        self.assertEqual(sorted(map(stay, self.books.movements()), key=lambda row: row.Posicion),
                         [stay(row) for row in rows if row.Placa])

    def assertPoints(self):
        moved = collections.defaultdict(list)
        for row in self.books.movements():
            moved[row.Placa].append((row.UsuarioPuntos, earned(row), (row.NumeroFicha, row.MarcaEntrada)))
        cleared = collections.Counter(exit_.plate for exit_ in self.exits if exit_.cleared)
        stored = {record.Placa: record.Puntos for record in self.books.users()}
        for plate, points in stored.items():
            with self.subTest(plate=plate):
                if ONCE in plate:
                    self.assertCleared(points, moved[plate], cleared[plate])
                else:
                    self.assertAddUp(points, moved[plate])
        self.assertLessEqual(set(moved), set(stored))
        self.assertGreater(sum(stored.values()), 0)

    def assertAddUp(self, points, rows):
        """Each movement adds its stay to the one before; two gates at once may have written theirs the other way round.

        A ficha that both gates retire at the same moment has two rows, and earns with one of them.
        """
        total, fichas = 0, collections.Counter(ficha for _, _, ficha in rows)
        for after, stay, ficha in sorted(rows, key=lambda row: (row[0], row[1] == 0)):
            self.assertIn(after - total, {stay, 0} if fichas[ficha] > 1 else {stay})
            total = after
        self.assertEqual(points, total)

    def assertCleared(self, points, rows, times):
        """The same where departures came one after the other; points that would have been there are gone so many times."""
        total = gone = 0
        for after, stay, _ in rows:
            total += stay
            if after == 0 and total > 0:
                total, gone = 0, gone + 1
            self.assertEqual(after, total)
        self.assertEqual((points, gone), (total, times))


if __name__ == "__main__":
    trouble.station.main()
