"""Gates that save and retire at random on one folder, all at once, while things happen to it; and the books of what they did.

An operation counts as confirmed when the station goes back to idle without a beep. One that it did not confirm is done again
when the bars are green, as an operator would. Whatever was confirmed must be there at the end, once.
"""
import collections
import contextlib
import os
import random
import re
import sys
import threading
import time

import mounted
import trouble
from station import CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, GREEN, INSERT, RECORD, USER, kinds

SEED = int(os.environ.get("VINTORAL_SEED", "2026"))
# For all that the gates have to do while nothing moves for a while.
DAY_SECONDS = 150
# Each gate hands out numbers of its own.
NUMBERS = {1: range(1, 61), 2: range(501, 561), 3: range(701, 761)}
# From 14:00 on; the clocks of gates whose bars are red run ahead of the others'.
ENTRY = re.compile(r"14:\d\d  \(20/11/2026\)")
# So long a gate that could not do its work waits before it looks again.
PAUSE_SECONDS = 0.25

Done = collections.namedtuple("Done", "kind number plate door seconds tries")


class Books:
    """Who is inside for all that the gates know, and all that was confirmed."""

    def __init__(self):
        self.lock = threading.Lock()
        self.free_of = {}  # number: the free numbers of the gate that hands it out
        self.inside = {}  # plate: number, of those who wait for a gate to send them out
        self.done = []
        self.refused = 0
        self.one_yes = contextlib.nullcontext()  # or a lock, where the gates can take none of their own

    def note(self, done):
        with self.lock:
            self.done.append(done)
            self.refused += done.tries - 1

    def put(self, number, plate):
        with self.lock:
            self.inside[plate] = number

    def take_one(self, dice):
        """Somebody who is inside, for one gate alone to send out; None when nobody is."""
        with self.lock:
            if not self.inside:
                return None
            plate = dice.choice(sorted(self.inside))
            return self.inside.pop(plate), plate

    def of(self, kind):
        return {entry.plate: entry for entry in self.done if entry.kind == kind}

    def seconds(self, since=0):
        return sorted(entry.seconds for entry in self.done[since:])


class Hand(threading.Thread):
    """The operator of one gate: `turns` operations, in an order of its own."""

    rest_seconds = 0.0  # at most, behind each operation

    def __init__(self, day, gate, door, numbers, books, turns):
        super().__init__(name=f"gate of {numbers[0]}")
        self.day, self.gate, self.door, self.books, self.turns = day, gate, door, books, turns
        self.free, self.first = list(numbers), numbers[0]
        books.free_of.update((number, self.free) for number in numbers)
        self.dice = random.Random(f"{SEED} {self.first}")
        self.failure = None
        self.stop = threading.Event()
        self.seen_red = False
        self.slowest = 0.0

    def run(self):
        try:
            for turn in range(self.turns):
                if self.stop.is_set():
                    break
                self.one(turn)
                self.stop.wait(self.dice.random() * self.rest_seconds)
        except BaseException as failure:  # noqa: B902  a thread's failure is the test's
            self.failure = failure

    def one(self, turn):
        leaver = self.books.take_one(self.dice) if not self.free or self.dice.random() < 0.5 else None
        if leaver:
            self.until_done("retire", *leaver, self.retire)
            return self.books.free_of[leaver[0]].append(leaver[0])
        if not self.free:
            return time.sleep(0.05)  # all of ours wait to be sent out by another gate
        number, plate = self.free.pop(self.dice.randrange(len(self.free))), f"G{self.first}T{turn}"
        self.until_done("save", number, plate, self.save)
        self.books.put(number, plate)

    def until_done(self, kind, number, plate, operation):
        tries, slowest = 0, 0.0  # of this one
        while True:
            tries += 1
            began = time.monotonic()
            confirmed = operation(number, plate)
            slowest = max(slowest, time.monotonic() - began)
            self.slowest = max(self.slowest, slowest)
            if confirmed:
                return self.books.note(Done(kind, number, plate, self.door, slowest, tries))
            if self.stop.is_set():
                raise TimeoutError(f"{kind} of {plate} was not confirmed in {tries} tries")
            self.wait_for_green()

    def wait_for_green(self):
        while not self.stop.is_set():
            self.gate.advance(3000)
            if self.gate.get("LblConexion(0)")["BackColor"] == GREEN:
                return
            self.seen_red = True
            self.stop.wait(PAUSE_SECONDS)

    # ---- What the hands do; each says whether the station confirmed it ----

    def save(self, number, plate):
        found = self.day.try_call_up(self.gate, number)
        if found == "inside" and self.gate.caption("LblCampo(1)").strip() == plate:
            self.day.settle(self.gate)
            return True  # it was written, though the station could not be sure of it
        if found != "new":
            self.day.settle(self.gate)
            return False
        self.gate.set("TxtCampo(1)", plate)
        self.gate.key(INSERT)
        return self.confirm(CONFIRM_SAVE)

    def retire(self, number, plate):
        on_display = self.gate.get("TxtCampo(0)")["Locked"]
        if not on_display and self.day.try_call_up(self.gate, number) != "inside":
            self.day.settle(self.gate)
            return False
        self.gate.key(DELETE)
        return self.confirm(CONFIRM_RETIRE)

    def confirm(self, question):
        box = self.gate.box
        if box is None or box["title"] != question["title"]:
            self.day.settle(self.gate)
            return False
        with self.books.one_yes:
            self.gate.answer("yes")
        beeped = "beep" in kinds(self.gate.reply)
        self.day.answer_all(self.gate)
        return not beeped and not self.gate.get("TxtCampo(0)")["Locked"]


class Crew:
    """Of a day on which all of self.gates (number: station) work at once; the gate of number 1 is the main one."""

    def begin(self, turns, rest_seconds=0.0, one_yes=None):
        self.books = Books()
        if one_yes:
            self.books.one_yes = one_yes
        self.hands = [Hand(self, gate, "01" if number == 1 else "02", NUMBERS[number], self.books, turns)
                      for number, gate in self.gates.items()]
        self.addCleanup(self.hands_off)
        for hand in self.hands:
            hand.rest_seconds = rest_seconds
            hand.start()

    def hands_off(self):
        for hand in self.hands:
            hand.stop.set()
        for hand in self.hands:
            hand.join()

    def until(self, count, seconds=DAY_SECONDS):
        """That many operations are confirmed."""
        def met():
            self.raise_failure()
            return len(self.books.done) >= count
        mounted.wait_for(f"{count} operations", met, seconds)

    def raise_failure(self):
        for hand in self.hands:
            if hand.failure:
                raise hand.failure

    def work_ends(self, seconds=DAY_SECONDS):
        """All have done their work; says what it took."""
        limit = time.monotonic() + seconds
        for hand in self.hands:
            hand.join(max(0, limit - time.monotonic()))
        self.hands_off()
        self.raise_failure()
        print(f"{self._testMethodName}: {self.figures()}", file=sys.stderr)

    def figures(self):
        seconds = self.books.seconds()
        median, late, longest = [1000 * percentile(seconds, share) for share in (0.5, 0.99, 1)]
        return (f"{len(seconds)} operations, {self.books.refused} refused and done again; median {median:.1f} ms, "
                f"99th percentile {late:.1f} ms, longest {longest:.1f} ms")


def percentile(values, share):
    return values[min(len(values) - 1, int(len(values) * share))]


def check(day, books, data):
    """The registers against the books: whole, each confirmed operation there once, rows numbered without a gap."""
    acts, rows = (data / "Vintoral.ACT").read_bytes(), rows_of(day, data)
    day.assertEqual(len(acts), 1001 * RECORD.size)
    saved, retired = books.of("save"), books.of("retire")
    day.assertEqual(collections.Counter(row.Placa for row in rows), collections.Counter(retired.keys()))
    day.assertEqual([row.Posicion for row in rows], list(range(2, len(rows) + 2)))
    for row in rows:
        out = retired[row.Placa]
        day.assertRegex(row.MarcaEntrada, ENTRY)
        day.assertEqual((row.EnUso, row.NumeroFicha, row.PorteriaEntrada, row.PorteriaSalida),
                        (-1, f"{out.number:04}", saved[row.Placa].door, out.door))
    slots = [trouble.decoded(acts[at:at + RECORD.size]) for at in range(0, 1000 * RECORD.size, RECORD.size)]
    day.assertEqual({slot.Placa: slot.Posicion for slot in slots if slot.EnUso},
                    {plate: entry.number for plate, entry in saved.items() if plate not in retired})
    users = (data / "Vintoral.USR").read_bytes()
    plates = [users[at:at + 20].decode().strip() for at in range(0, len(users), USER.size)]
    day.assertEqual(set(plates) - {""}, set(saved), "every plate is a user")


def rows_of(day, data):
    """The rows of the history behind its blank first record."""
    history = (data / "Vintoral.HST").read_bytes()
    day.assertEqual(len(history) % RECORD.size, 0)
    return [trouble.decoded(history[at:at + RECORD.size]) for at in range(RECORD.size, len(history), RECORD.size)]
