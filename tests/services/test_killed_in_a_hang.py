"""A gate killed while an operation on its data folder hangs, at each such operation of a save and of a departure.

The folder is a mount that both gates work on, and that hangs on command. What was confirmed before is there afterwards,
all registers are whole, and the piece of work that hung has been done or has not, wholly: so the other gate finds it
when the folder goes on, and so does the killed gate when it starts again.
"""
import collections
import json
import os
import pathlib
import select
import signal
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))

import mounted  # noqa: E402  (found through the line above)
import trouble  # noqa: E402
from hanging import PATIENCE_SECONDS, HangingFolder, skip_without_fuse  # noqa: E402
from station import (BLANK, CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, ENTER, FREE_SLOTS, INSERT, Folder,  # noqa: E402
                     screen_state, stamp)

# Real syncs, as at a gate.
tempfile.tempdir = None

NOW = stamp("14:00", "20/11/2026")
SIGNALS = (signal.SIGKILL, signal.SIGTERM)
# A process that has been killed must not seem to live on.
MOMENT_SECONDS = 2
# A piece of work asks for names some 100 times and reads some ten times; it changes something some ten times. It renames
# nothing.
STEP = collections.defaultdict(lambda: 1, {"stat": 6, "open": 2})
# Each gate has its own numbers for new fichas.
NUMBERS = (7, 507)


def same(ficha):
    """A ficha without the two values that belong to users and prices, which other tests judge."""
    return ficha._replace(UsuarioPuntos=0, ValorCobrado=0)


class KilledInAHang(trouble.Trouble):
    def setUp(self):
        super().setUp()
        for name in ("data", "point"):
            (self.root / name).mkdir()
        self.hanging = self.enterContext(HangingFolder(self.root / "data", self.root / "point"))
        folders = Folder(self.root / "point/P01"), Folder(self.root / "P02")
        folders[1].write("Objetos/Servidor.INI", f"{folders[0].shared}\r\n".encode())
        self.folders = folders
        for folder in folders:
            folder.write("Recursos/Vintoral.DAT", screen_state())  # so that a start shows who is inside
        # As it is on the disk behind, whatever hangs.
        self.folder = Folder(self.root / "data/P01")
        self.gates = [self.running(folder) for folder in folders]
        self.assertEqual([gate.state("NumeroPorteria") for gate in self.gates], ["01", "02"])
        self.slots = {number: same(ficha) for number, ficha in enumerate(self.rows(self.folder, "ACT"), start=1)}
        self.history = []
        self.outcomes = collections.Counter()
        self.runs = 0
        # Somebody who stays inside all day, and somebody who left, by either gate.
        for door, gate in enumerate(self.gates):
            for offset, plate in ((1, f"STAYS{door}"), (2, f"LEFT{door}")):
                self.assertTrue(self.try_save(gate, NUMBERS[door] + offset, plate))
                self.slots[NUMBERS[door] + offset] = self.saved(NUMBERS[door] + offset, plate, door)
            self.leave(gate, NUMBERS[door] + 2, door)
        self.judge_all()

    # ---- What the registers must hold ----

    def saved(self, number, plate, door):
        return BLANK._replace(EnUso=-1, MarcaEntrada=NOW, MarcaSalida="??", NumeroFicha=f"{number:04}", Placa=plate,
                              Categoria="AUTOMOVIL", PorteriaEntrada=f"0{door + 1}", PorteriaSalida="??", Posicion=number)

    def retired(self, slot, door):
        return slot._replace(EnUso=0, MarcaSalida=NOW, PorteriaSalida=f"0{door + 1}")

    def row_of(self, slot):
        return slot._replace(EnUso=-1, Posicion=len(self.history) + 2)

    def leave(self, gate, number, door):
        self.assertTrue(self.try_retire(gate, number), f"{number} can't leave by gate {door + 1}")
        self.slots[number] = self.retired(self.slots[number], door)
        self.history.append(self.row_of(self.slots[number]))

    def found(self):
        slots = {number: same(ficha) for number, ficha in enumerate(self.rows(self.folder, "ACT"), start=1)}
        return slots, [same(row) for row in self.folder.history()]

    def judge_all(self):
        self.legal(self.folder)
        slots, rows = self.found()
        self.assertEqual(len(slots), FREE_SLOTS + 1)
        self.assertEqual((slots, rows), (self.slots, self.history))

    def judge_work(self, number, after, kind, confirmed):
        """The slot and the rows as the kill left them: what was done of the piece of work becomes what is expected."""
        before = self.slots[number]
        self.assertNotEqual(before, after)
        slots, rows = self.found()
        self.assertIn(slots[number], [after] if confirmed else [before, after])
        done = slots[number] == after
        self.slots[number] = slots[number]
        if kind == "retire" and done and (confirmed or len(rows) > len(self.history)):
            self.history.append(self.row_of(after))
        self.outcomes[kind, "confirmed" if confirmed else "done" if done else "not done"] += 1
        self.judge_all()

    # ---- One kill ----

    def prepared(self, kind, door, plate):
        """What the gate's slot will hold when the work is done; who is to leave has come in by then."""
        number = NUMBERS[door]
        if kind == "save":
            return self.saved(number, plate, door)
        self.assertTrue(self.try_save(self.gates[door], number, plate))
        self.slots[number] = self.saved(number, plate, door)
        return self.retired(self.slots[number], door)

    def work(self, kind, number, plate):
        """The lines of the work, from the number on; the answer to the last one is the confirmation."""
        yield {"op": "focus", "control": "TxtCampo(0)"}
        yield {"op": "set", "control": "TxtCampo(0)", "text": str(number)}
        yield {"op": "key", "code": ENTER}
        if kind == "save":
            yield {"op": "set", "control": "TxtCampo(1)", "text": plate}
        yield {"op": "key", "code": INSERT if kind == "save" else DELETE}
        yield {"op": "answer", "button": "yes"}

    def waits(self, gate, operation, replies):
        """Until the operation hangs, or until the gate has given so many replies; what it said, and whether it hangs."""
        said = b""
        limit = time.monotonic() + PATIENCE_SECONDS
        while not self.hanging.waiting() and said.count(b"\n") < replies:
            self.assertLess(time.monotonic(), limit, f"neither an answer nor a wait in {operation}")
            if select.select([gate.process.stdout], [], [], 0.001)[0]:
                said += os.read(gate.process.stdout.fileno(), 1 << 16)
        hung = {name for name, _ in self.hanging.waiting()}
        self.assertLessEqual(hung, {operation})
        return said, bool(hung)

    def killed(self, gate, with_signal):
        """Ends the gate where it hangs; what it had still said."""
        began = time.monotonic()
        gate.process.send_signal(with_signal)
        self.assertEqual(gate.process.wait(MOMENT_SECONDS), -with_signal)
        self.assertLess(time.monotonic() - began, MOMENT_SECONDS)
        said = gate.process.stdout.read()
        gate.end()
        return said

    def assertReplies(self, said, box):
        """Each whole reply went as asked, with no box but the question; how many there are."""
        replies = [json.loads(line) for line in said.splitlines(keepends=True) if line.endswith(b"\n")]
        for reply in replies:
            self.assertTrue(reply["ok"], reply)
            self.assertIn((reply["waiting"] or {}).get("box", {}).get("title"), (None, box["title"]))
        return len(replies)

    def one(self, kind, operation, at, door, with_signal):
        """False when the piece of work has no such operation."""
        self.runs += 1
        gate, other, number = self.gates[door], self.gates[1 - door], NUMBERS[door]
        plate = f"R{self.runs}"
        after = self.prepared(kind, door, plate)
        lines = list(self.work(kind, number, plate))
        self.hanging.hang(operation, after=at)
        for line in lines:
            gate.send_line(json.dumps(line).encode())
        said, hung = self.waits(gate, operation, len(lines))
        said += self.killed(gate, with_signal)
        confirmed = self.assertReplies(said, CONFIRM_SAVE if kind == "save" else CONFIRM_RETIRE) == len(lines)
        self.assertTrue(hung or confirmed)
        mounted.wait_for("end of what the killed one waited in", lambda: not self.hanging.waiting(), MOMENT_SECONDS)
        self.hanging.go()
        self.judge_work(number, after, kind, confirmed)
        self.starts_again(door)
        if self.slots[number].EnUso:
            self.leave(other, number, 1 - door)  # the other gate goes on with it
        self.judge_all()
        return hung

    def starts_again(self, door):
        gate = self.gates[door] = self.running(self.folders[door])
        self.judge_all()
        shown = {int(row["NumeroFicha"]): row["Placa"].strip() for row in gate.do("view")["view"]}
        self.assertEqual(shown, {number: slot.Placa for number, slot in self.slots.items() if slot.EnUso})

    def each_place(self, kind, operation):
        """Kills at the first such operation of the work, at the next ones, and until there is none any more."""
        places = 0
        for door in range(len(self.gates)):
            at = 1
            while True:
                place = f"{kind} at gate {door + 1}, {operation} {at}"
                try:
                    hung = self.one(kind, operation, at, door, SIGNALS[self.runs % len(SIGNALS)])
                except AssertionError as failure:
                    raise AssertionError(f"{place}: {failure}") from failure
                if not hung:
                    break
                places += 1
                at += STEP[operation]
        return places

    def kills(self, kind, least):
        """`least` names how many places each operation must have at the least, so that no kill is left out unseen."""
        places = {operation: self.each_place(kind, operation) for operation in least}
        print(f"{kind}: {self.runs} kills, {places}, {dict(self.outcomes)}", file=sys.stderr)
        for operation, number in least.items():
            self.assertGreaterEqual(places[operation], number, operation)
        for outcome in ("not done", "done", "confirmed"):
            self.assertGreater(self.outcomes[kind, outcome], 0, outcome)

    def test_a_save(self):
        self.kills("save", {"open": 8, "read": 8, "write": 4, "sync": 4, "lock": 4, "directory": 4, "stat": 16})

    def test_a_departure(self):
        self.kills("retire", {"open": 8, "read": 8, "write": 8, "sync": 6, "lock": 8, "directory": 2, "stat": 16})


if __name__ == "__main__":
    skip_without_fuse()
    mounted.separate()
    trouble.station.main()
