"""A driver killed with SIGKILL at random moments of its work with tickets, passes and users.

The reply to the yes of a question is the confirmation. After each kill a fresh driver starts on what is there, and nothing
may be half: no user without a plate, no ficha with somebody else's number, no pass with part of a code that counts, and all
that was confirmed is whole.
"""
import collections
import datetime
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time

import trouble
from station import (ACT_LENGTH, BLANK, CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, HOME, INSERT, RECORD, Ficha, fresh_register,
                     inside, mixed, screen_state, stamp)
from tickets import CODE, PASS, USER, Books, TicketDay, earned, pass_record

# Real syncs make the moments between two writes long enough to be hit.
tempfile.tempdir = None

RUNS = int(os.environ.get("VINTORAL_KILLS", "150"))
SEED = 20261122
PAGE = 4096
EXIT_GATE_AT = 168  # in a slot: entering and leaving both write it anew
OLD_PASSES = 95
FREE_PASSES = (*range(41, 48), *range(85, 92))  # about records 45 and 89, whose codes lie across pages
OLD_FICHAS = range(1, 71)  # the work goes on about slot 76, whose code and number lie in two pages
PLATES = 60
MINUTES_BETWEEN = 7  # runs, so that stays of some runs earn points

Work = collections.namedtuple("Work", "reply kind plate code validity")


class Stream:
    """The lines of one run: codes are drawn by the station, so the reader pastes what an earlier reply told."""

    def __init__(self, run, dice, folder, passes, inside):
        self.run, self.dice, self.folder = run, dice, folder
        self.lines, self.work = [], []
        self.passes, self.inside = list(passes), list(inside)

    def add(self, operation, **fields):
        self.lines.append(json.dumps({"op": operation, **fields}))

    def start(self):
        now = datetime.datetime(2026, 12, 1) + datetime.timedelta(minutes=MINUTES_BETWEEN * self.run)
        self.add("start", dir=str(self.folder.path), now=now.strftime("%Y-%m-%d %H:%M:00"), seed=self.run + 1,
                 desktop=str(self.folder.path.with_name("desktop")))
        self.add("advance", ms=3000)

    def confirm(self, key, kind, plate, code=None, validity=1):
        """`code` of a ticket that is known already."""
        self.add("key", code=key)
        self.answer_yes(kind, plate, code, validity)

    def answer_yes(self, kind, plate, code, validity):
        self.add("answer", button="yes")
        self.work.append(Work(len(self.lines), kind, plate, code, validity))

    def new_ticket(self):
        """A plate of some that come again and again, some of them with a pass of two entries."""
        plate = f"P{self.dice.randrange(PLATES)}"
        if any(plate == taken for _, taken in self.inside):
            return
        self.add("key", code=HOME)
        self.add("set", control="TxtCampo(1)", text=plate)
        validity = self.dice.choice((1, 2, 3))
        self.add("set", control="TxtMaxEntrada", text=str(validity))
        self.confirm(INSERT, "save", plate, validity=validity)
        self.inside.append((None, plate))

    def leave(self):
        known = [(code, plate) for code, plate in self.inside if code]
        if not known:
            return
        code, plate = self.dice.choice(known)
        self.inside.remove((code, plate))
        self.add("set", control="TxtBarCode", text=code)
        self.confirm(DELETE, "retire", plate, code)

    def come_back(self):
        free = [one for one in self.passes if not any(one[1] == plate for _, plate in self.inside)]
        if not free:
            return
        code, plate = self.dice.choice(free)
        self.passes.remove((code, plate))
        self.add("set", control="TxtBarCode", text=code)
        self.add("advance", ms=1000)  # up to the question
        self.answer_yes("save", plate, code, None)
        self.inside.append((code, plate))

    def some_work(self):
        for _ in range(14):
            self.dice.choice((self.new_ticket, self.leave, self.leave, self.come_back))()


class Before:
    """What a run began with, and what its replies have confirmed: `under_way` is the piece of work that was cut, or None."""

    def __init__(self, folder, slots):
        books = Books(folder)
        self.act = (folder / "Multimedia/Vintoral.ACT").read_bytes()
        self.codes = books.codes()
        self.inside = {slot.Placa: self.codes[slot.Posicion][0] for slot in slots if slot.EnUso and slot.Placa}
        self.passes = passes_by_code(books)
        self.points = {record.Placa: record.Puntos for record in books.users()}
        self.rows, self.movements = len(folder.history()), len(books.movements())

    def usable(self):
        """Codes and plates of passes of which a plate has one alone."""
        plates = collections.Counter(record.PlacaPase for record in self.passes.values())
        return [(code, record.PlacaPase) for code, record in self.passes.items()
                if record.PlacaPase.startswith("P") and plates[record.PlacaPase] == 1]

    def judge(self, work, replies):
        cut = [piece for piece in work if len(replies) < piece.reply]
        self.under_way = cut[0] if cut else None
        self.confirmed = [piece for piece in work if len(replies) >= piece.reply]

    @property
    def cut_plate(self):
        return self.under_way.plate if self.under_way else None


def passes_by_code(books):
    """The passes that a scan can find."""
    return {record.CodigoPase: record for record in books.passes() if len(record.CodigoPase) == 12}


def old_passes():
    return b"".join(pass_record("" if n in FREE_PASSES else f"OLD{n:09}", f"OLDPLATE{n}", left=2)
                    for n in range(1, OLD_PASSES + 1))


def old_fichas():
    """Who is inside all the time, without plates: they are nobody's fichas."""
    return fresh_register(*(inside(n, stamp("08:00", "20/11/2026")) for n in OLD_FICHAS))


class Killed(TicketDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        (self.root / "desktop").mkdir()
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-1), mixed(None, None, mark=-1)))
        self.folder.write("Multimedia/Vintoral.CFR", old_passes())
        self.folder.write("Multimedia/Vintoral.ACT", old_fichas())
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"))
            self.answer_all(gate, "ok")
            self.assertTrue(self.try_close(gate))

    def slots(self):
        data = (self.folder / "Multimedia/Vintoral.ACT").read_bytes()
        return [Ficha.decode(data[at:at + RECORD.size]) for at in range(0, 1000 * RECORD.size, RECORD.size)]

    def run_and_kill(self, stream, at_reply, pause):
        """Sends all lines at once; kills `pause` seconds after the reply `at_reply`. The replies that had arrived."""
        with open(self.root / "stderr", "ab") as errors:
            process = subprocess.Popen([trouble.station.driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                       stderr=errors)
        watch = threading.Timer(30, process.kill)
        watch.start()
        try:
            process.stdin.write(("\n".join(stream.lines) + "\n").encode())
            process.stdin.flush()
            arrived = [process.stdout.readline() for _ in range(at_reply)]
            time.sleep(pause)
            if process.poll() is not None and len(arrived) < len(stream.lines):
                self.fail(f"the driver ended by itself: {(self.root / 'stderr').read_text()[-4000:]}")
            process.kill()
            arrived += process.stdout.readlines()
        finally:
            watch.cancel()
            process.kill()
            process.wait()
            process.stdin.close()
            process.stdout.close()
        return [json.loads(line) for line in arrived if line.endswith(b"\n")]

    def fresh_start(self):
        """A driver that starts on what the kill left, sees its data and closes."""
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"))
            gate.do("advance", ms=3000)
            self.assertNothingRead(gate)
            shown = {int(row["NumeroFicha"]): row["Placa"] for row in gate.do("view")["view"]}
            self.assertTrue(self.try_close(gate))
        return shown

    # ---- What holds whatever happened ----

    def assertLengths(self):
        """Whole records, but for one that the kill cut where a page ends; the history has been mended by the start."""
        for name, size in (("USR", USER.size), ("NSR", RECORD.size), ("CRD", RECORD.size), ("CFR", PASS.size)):
            length = (self.folder / f"Multimedia/Vintoral.{name}").stat().st_size
            self.assertIn(0, (length % size, length % PAGE), f"{name} has {length} bytes")
        self.assertEqual((self.folder / "Multimedia/Vintoral.HST").stat().st_size % RECORD.size, 0)
        self.assertEqual((self.folder / "Multimedia/Vintoral.ACT").stat().st_size, ACT_LENGTH)
        self.assertEqual((self.folder / "Multimedia/Vintoral.CDB").stat().st_size, 1000 * CODE.size)

    def put_back_halves(self, before):
        """A slot whose first page alone was written, as it was: nobody was told that it had changed."""
        act = self.folder / "Multimedia/Vintoral.ACT"
        data = bytearray(act.read_bytes())
        for at in range(0, 1000 * RECORD.size, RECORD.size):
            border = (at // PAGE + 1) * PAGE - at
            old, new = before.act[at:at + RECORD.size], data[at:at + RECORD.size]
            if border <= EXIT_GATE_AT and old[:border] != new[:border] and old[border:] == new[border:]:
                data[at:at + RECORD.size] = old
        act.write_bytes(data)

    def assertNothingHalf(self, slots):
        books = Books(self.folder)
        users = [record.Placa for record in books.users()]
        self.assertNotIn("", users)
        self.assertEqual(len(set(users)), len(users), "a user is there twice")
        for plate in users:
            self.assertRegex(plate, "^P[0-9]{1,2}$")
        for slot in slots:
            if slot.EnUso and slot.Placa:
                self.assertEqual(users[slot.UsuarioPuntos - 1], slot.Placa)
        for number, ficha in enumerate(books.first_fichas(), start=1):
            if ficha.Placa and number <= len(users):
                self.assertEqual((ficha.Placa, ficha.UsuarioPuntos), (users[number - 1], number))
        self.assertPasses(books)

    def assertPasses(self, books):
        """A code is none, a whole one, or the part of one that lies before or behind the end of a page and opens nothing."""
        for number, record in enumerate(books.passes()):
            at = number * PASS.size
            whole = len(record.CodigoPase) == 12 and " " not in record.CodigoPase
            if record.CodigoPase and not whole:
                self.assertNotEqual(at // PAGE, (at + 11) // PAGE, f"half a code in {record}")

    # ---- What was confirmed, and what was not begun ----

    def assertConfirmed(self, before, slots):
        """Who is inside: the last confirmed word on each plate, but for the one whose work was cut."""
        found = collections.Counter(slot.Placa for slot in slots if slot.EnUso and slot.Placa)
        self.assertLessEqual(max(found.values(), default=1), 1)
        expected = set(before.inside)
        for piece in before.confirmed:
            (expected.add if piece.kind == "save" else expected.discard)(piece.plate)
        self.assertEqual(set(found) - {before.cut_plate}, expected - {before.cut_plate})

    def assertCodes(self, before, slots):
        """Each ficha inside has its code, and no code stands without one."""
        codes = Books(self.folder).codes()
        for slot in slots:
            if slot.Placa == before.cut_plate or slot.Posicion in OLD_FICHAS:
                continue
            code = codes.get(slot.Posicion)
            if slot.EnUso:
                self.assertIsNotNone(code, f"{slot.Placa} has no code")
                self.assertRegex(code[0], "^[0-9A-Z]{12}$")
                self.assertEqual(code[1], slot.NumeroFicha)
            else:
                self.assertIsNone(code, f"a code without a ficha at {slot.Posicion}")

    def assertPassesOf(self, before, slots):
        """An entry less for each that came back, a record for each new pass, and all others as they were."""
        codes = Books(self.folder).codes()
        by_plate = {slot.Placa: codes.get(slot.Posicion, ("",))[0] for slot in slots if slot.EnUso and slot.Placa}
        left = {code: record.RestantesPase for code, record in before.passes.items()}
        for piece in before.confirmed:
            if piece.kind == "save" and piece.code:
                left[piece.code] -= 1
            elif piece.kind == "save" and piece.validity > 1:
                left[by_plate[piece.plate]] = piece.validity - 1
        found = {code: record.RestantesPase for code, record in passes_by_code(Books(self.folder)).items()}
        expected = {code: number for code, number in left.items() if number > 0}
        if before.under_way and before.under_way.kind == "save":
            self.assertCutPass(before.under_way, found, expected)
        self.assertEqual(found, expected)

    def assertCutPass(self, piece, found, expected):
        """The pass of the work that was cut is as before or as after; its difference is taken away."""
        if piece.code:
            now, then = found.pop(piece.code, 0), expected.pop(piece.code)
            self.assertIn(now, (then, then - 1))
        else:
            new = set(found) - set(expected)
            self.assertLessEqual(len(new), 1 if piece.validity > 1 else 0)
            for code in new:
                self.assertEqual(found.pop(code), piece.validity - 1)

    def assertPoints(self, before):
        """What was earned in this run by a confirmed departure is in USR and in CRD, once."""
        books, rows = Books(self.folder), self.folder.history()[before.rows:]
        stays = collections.defaultdict(list)
        for row in rows:
            stays[row.Placa].append(earned(row))
        moved = collections.defaultdict(list)
        for row in books.movements()[before.movements:]:
            moved[row.Placa].append(row.UsuarioPuntos)
        departed = collections.Counter(piece.plate for piece in before.confirmed if piece.kind == "retire")
        for record in books.users():
            plate, had = record.Placa, before.points.get(record.Placa, 0)
            if plate == before.cut_plate:
                # Row, points, movement: each only behind the one before it.
                self.assertIn(record.Puntos, (had + sum(stays[plate]), had + sum(stays[plate][:-1])))
                self.assertLessEqual(len(moved[plate]), len(stays[plate]))
                continue
            self.assertEqual((len(stays[plate]), len(moved[plate])), (departed[plate], departed[plate]), plate)
            self.assertEqual(record.Puntos, had + sum(stays[plate]), plate)
            if moved[plate]:
                self.assertEqual(moved[plate][-1], record.Puntos)

    def judge(self, stream, replies, before):
        for number, reply in enumerate(replies):
            self.assertTrue(reply["ok"], f"{stream.lines[number]} gave {reply}")
        boxes = {(reply["waiting"] or {}).get("box", {}).get("title") for reply in replies} - {None}
        self.assertLessEqual(boxes, {CONFIRM_SAVE["title"], CONFIRM_RETIRE["title"]})
        before.judge(stream.work, replies)
        shown = self.fresh_start()
        self.assertLengths()
        seen = self.slots()
        if before.under_way:
            self.put_back_halves(before)
        slots = self.slots()
        if slots == seen:
            self.assertEqual(shown, {slot.Posicion: slot.Placa for slot in slots if slot.EnUso})
        self.assertNothingHalf(slots)
        self.assertConfirmed(before, slots)
        self.assertCodes(before, slots)
        self.assertPassesOf(before, slots)
        self.assertPoints(before)
        return slots

    def repair(self, slots, under_way):
        """What an operator does with the ficha that he was not told of: its number, its plate, and out."""
        codes = Books(self.folder).codes()
        for slot in slots:
            stray = slot.Posicion in codes and not slot.EnUso
            if not stray and (slot.Placa != under_way or not slot.EnUso):
                continue
            with open(self.folder / "Multimedia/Vintoral.ACT", "r+b") as act:
                act.seek((slot.Posicion - 1) * RECORD.size)
                act.write(BLANK._replace(Posicion=slot.Posicion).encode())
            with open(self.folder / "Multimedia/Vintoral.CDB", "r+b") as cdb:
                cdb.seek((slot.Posicion - 1) * CODE.size)
                cdb.write(b" " * CODE.size)

    def test_nothing_is_half(self):
        dice = random.Random(SEED)
        confirmed = cut_short = cut_writes = 0
        for run in range(RUNS):
            before = Before(self.folder, self.slots())
            stream = Stream(run, dice, self.folder, before.usable(), [(code, plate) for plate, code in before.inside.items()])
            stream.start()
            stream.some_work()
            at_reply = dice.randrange(len(stream.lines))
            pause = dice.choice((0.0, dice.uniform(0, 0.001), dice.uniform(0, 0.01)))
            replies = self.run_and_kill(stream, at_reply, pause)
            try:
                slots = self.judge(stream, replies, before)
            except AssertionError as failure:
                raise AssertionError(f"run {run}, killed after {len(replies)} replies: {failure}") from failure
            confirmed += len(before.confirmed)
            cut_short += len(replies) < len(stream.lines)
            cut_writes += bool(before.under_way) and [slot for slot in slots if slot.Placa == before.cut_plate] != []
            self.repair(slots, before.cut_plate)
        books = Books(self.folder)
        print(f"{RUNS} runs, {cut_short} killed before their end, {confirmed} confirmed pieces of work, {cut_writes} under way "
              f"whose plate stands in a slot; {len(books.users())} users, {len(books.movements())} movements, "
              f"{len(books.passes())} records of passes", file=sys.stderr)
        self.assertGreater(cut_short, RUNS * 2 // 3)
        self.assertGreater(confirmed, RUNS * 2)
        self.assertGreater(len(books.users()), min(RUNS, PLATES) // 2)
        self.assertGreater(sum(record.Puntos for record in books.users()), 0)


if __name__ == "__main__":
    trouble.station.main()
