"""A driver killed with SIGKILL at random moments, while it saves, retires and closes in a stream.

The reply to the "yes" of a confirmation is the confirmation: what was answered so before the kill is on disk and whole
after it. Each run works on the files that the runs before it left.
"""
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time

import trouble
from station import BLANK, CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, ENTER, INSERT, RECORD, Ficha, stamp

# Real syncs make the moments between two writes long enough to be hit.
tempfile.tempdir = None

RUNS = int(os.environ.get("VINTORAL_KILLS", "500"))
SEED = 20261120
PAGE = 4096
NUMBERS = range(1, 41)  # several slots lie across a page of the file


class Stream:
    """The lines of one run, and which reply confirms which piece of work."""

    def __init__(self, dice, run, inside, folder):
        self.dice, self.folder = dice, folder
        self.minute = f"{run // 60 % 24:02}:{run % 60:02}"
        self.date = f"{1 + run // 1440:02}/12/2026"
        self.lines, self.work = [], []
        self.inside = dict(inside)
        self.plates = 0
        self.run = run

    def add(self, operation, **fields):
        self.lines.append(json.dumps({"op": operation, **fields}))

    def start(self):
        day, month, year = self.date.split("/")
        self.add("start", dir=str(self.folder.path), now=f"{year}-{month}-{day} {self.minute}:00",
                 desktop=str(self.folder.path.with_name("desktop")))
        self.add("advance", ms=3000)

    def call_up(self, number):
        self.add("focus", control="TxtCampo(0)")
        self.add("type", text=str(number))
        self.add("key", code=ENTER)

    def confirm(self, key, kind, number, plate):
        self.add("key", code=key)
        self.add("answer", button="yes")
        self.work.append((len(self.lines), kind, number, plate))

    def one(self):
        free = [number for number in NUMBERS if number not in self.inside]
        if free and (not self.inside or self.dice.random() < 0.5):
            number = self.dice.choice(free)
            self.plates += 1
            plate = f"R{self.run}N{self.plates}"
            self.call_up(number)
            self.add("set", control="TxtCampo(1)", text=plate)
            self.confirm(INSERT, "save", number, plate)
            self.inside[number] = plate
        else:
            number = self.dice.choice(sorted(self.inside))
            self.call_up(number)
            self.confirm(DELETE, "retire", number, self.inside.pop(number))

    def close(self):
        self.add("close")
        self.add("answer", button="yes")

    def saved(self, number, plate):
        now = stamp(self.minute, self.date)
        return BLANK._replace(EnUso=-1, MarcaEntrada=now, MarcaSalida="??", NumeroFicha=f"{number:04}", Placa=plate,
                              Categoria="AUTOMOVIL", PorteriaEntrada="01", PorteriaSalida="??", Posicion=number)

    def retired(self, slot):
        return slot._replace(EnUso=0, MarcaSalida=stamp(self.minute, self.date), PorteriaSalida="01")


def same(ficha):
    """A ficha without the two values that belong to users and prices, which other tests judge."""
    return ficha._replace(UsuarioPuntos=0, ValorCobrado=0)


class Killed(trouble.Trouble):
    def setUp(self):
        super().setUp()
        (self.root / "desktop").mkdir()
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"))
            self.answer_all(gate, "ok")
            # The state of the screen is written at an end: a gate that never came to one shows nobody until it saves.
            gate.do("close")
            gate.do("answer", button="yes")

    def slots(self):
        data = (self.folder / "Multimedia/Vintoral.ACT").read_bytes()
        return {number: same(Ficha.decode(data[(number - 1) * RECORD.size:number * RECORD.size])) for number in range(1, 1002)}

    def stream(self, run, dice, slots):
        inside = {number: ficha.Placa for number, ficha in slots.items() if ficha.EnUso}
        stream = Stream(dice, run, inside, self.folder)
        stream.start()
        stream.add("view")
        for _ in range(2):
            for _ in range(6):
                stream.one()
            stream.close()
            stream.start()
        return stream

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

    def expected(self, stream, slots, history, replies):
        """Slots and history by what was confirmed, and the piece of work that was under way."""
        for confirmation, kind, number, plate in stream.work:
            if len(replies) < confirmation:
                return kind, number, plate
            if kind == "save":
                slots[number] = stream.saved(number, plate)
            else:
                slots[number] = stream.retired(slots[number])
                history.append(slots[number]._replace(EnUso=-1, Posicion=len(history) + 1))
        return None

    def restart_if_cut(self):
        """A kill between two pages of the file cuts a row there; the station that starts next takes it away."""
        length = (self.folder / "Multimedia/Vintoral.HST").stat().st_size
        if length % RECORD.size == 0:
            return
        self.assertEqual(length % PAGE, 0, f"HST has {length} bytes")
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"))
            gate.do("advance", ms=3000)

    def torn(self, number, before, after):
        """The slot when the kill hit between two pages of the file: nobody was told that it had been written."""
        first = (number - 1) * RECORD.size
        border = (first // PAGE + 1) * PAGE - first
        cut = RECORD.size if border >= RECORD.size else border
        return same(Ficha.decode(after.encode()[:cut] + before.encode()[cut:]))

    def put_back(self, number, ficha):
        with open(self.folder / "Multimedia/Vintoral.ACT", "r+b") as act:
            act.seek((number - 1) * RECORD.size)
            act.write(ficha.encode())

    def judge(self, stream, slots, history, replies):
        for number, reply in enumerate(replies):
            self.assertTrue(reply["ok"], f"{stream.lines[number]} gave {reply}")
        boxes = {(reply["waiting"] or {}).get("box", {}).get("title") for reply in replies} - {None}
        self.assertLessEqual(boxes, {CONFIRM_SAVE["title"], CONFIRM_RETIRE["title"], "Vintoral - Cerrar Aplicación"})
        if len(replies) > 2:  # the restarted station itself sees who is inside
            shown = {int(row["NumeroFicha"]): row["Placa"].strip() for row in replies[2]["view"]}
            self.assertEqual(shown, {number: ficha.Placa for number, ficha in slots.items() if ficha.EnUso})

        under_way = self.expected(stream, slots, history, replies)
        self.restart_if_cut()
        self.legal(self.folder)
        found = self.slots()
        rows = [same(row) for row in self.rows(self.folder)]
        if under_way:
            kind, number, plate = under_way
            before = slots[number]
            after = stream.saved(number, plate) if kind == "save" else stream.retired(before)
            if found[number] not in (before, after):
                self.assertEqual(found[number], self.torn(number, before, after), "a record is neither old nor new")
                self.put_back(number, before)
                found[number] = before
            slots[number] = found[number]
            row = after._replace(EnUso=-1, Posicion=len(history) + 1)
            if kind == "retire" and found[number] == after and len(rows) > len(history):
                history.append(row)
        self.assertEqual(found, slots)
        self.assertEqual(rows, history)

    def test_what_was_confirmed_survives(self):
        dice = random.Random(SEED)
        slots, history = self.slots(), [same(row) for row in self.rows(self.folder)]
        confirmed = cut_short = 0
        for run in range(RUNS):
            stream = self.stream(run, dice, slots)
            at_reply = dice.randrange(len(stream.lines))
            # Most pieces of work take less than a millisecond; some runs wait long enough to die in a later one.
            pause = dice.choice((0.0, dice.uniform(0, 0.001), dice.uniform(0, 0.01)))
            replies = self.run_and_kill(stream, at_reply, pause)
            try:
                self.judge(stream, slots, history, replies)
            except AssertionError as failure:
                raise AssertionError(f"run {run}, killed after {len(replies)} replies: {failure}") from failure
            confirmed += sum(len(replies) >= work[0] for work in stream.work)
            cut_short += len(replies) < len(stream.lines)
        # The test tries what it says: kills in mid-stream, with much confirmed before them.
        self.assertGreater(cut_short, RUNS * 2 // 3)
        self.assertGreater(confirmed, RUNS * 2)
        print(f"{RUNS} runs, {cut_short} killed before their end, {confirmed} confirmed pieces of work", file=sys.stderr)


if __name__ == "__main__":
    trouble.station.main()
