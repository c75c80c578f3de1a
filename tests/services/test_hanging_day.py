"""A day of two gates under keys, once on a folder that never hangs and once on one that hangs again and again.

Both days are typed from one script, in a time of their own. On the second day an operation on the folder is made to hang
in the middle of what a key or a tick does; the next keys are typed all the same, and then the folder goes on. At the end
every file of both gates holds the same bytes as after the day without a hang, and what the script says that was done.

Alone, with more hangs or another script: python3 test_hanging_day.py --hangs 500 --seed 3
"""
import argparse
import collections
import json
import os
import pathlib
import random
import select
import shutil
import subprocess
import sys
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))

import mounted  # noqa: E402  (found through the line above)
import trouble  # noqa: E402
from hanging import OPERATIONS, HangingFolder, skip_without_fuse  # noqa: E402
from sales import EXT, sold_lines  # noqa: E402
from station import RECORD, Folder, lines  # noqa: E402

HANGS = int(os.environ.get("VINTORAL_HANGS", "100"))
SEED = int(os.environ.get("VINTORAL_SEED", "1"))
# Whatever goes well is answered sooner, under the sanitizers too.
PATIENCE_SECONDS = 60
SETTLES_MS = 30_000
# Of what the gates said on standard error, when a day goes wrong.
TOLD = 12_000
# So long does the station get to come to where it is to hang.
REACHES_MS = 4
# So often what has hung least is to hang: a rename comes seldom.
RAREST = 0.25
# From so many hangs on there is one of each kind.
MANY = 100
# One in so many hangs lasts until the window says that the station is late.
LATE_EVERY, LATE_SECONDS = 25, 0.4
# The most keys that are typed while one operation hangs, and until one does.
IN_FLIGHT, ON_THE_WAY = 12, 30
# While one gate hangs, time goes on at the other one, once in so many hangs.
OTHER_EVERY = 4
# A piece of work has so many operations of a kind, more or less: where in it the hang is.
DEEPEST = {"open": 10, "read": 12, "write": 5, "sync": 4, "rename": 1, "lock": 3, "directory": 2, "stat": 40}
# Between two keys of a hand; a reader is faster than 50 ms.
HAND_MS = (60, 240)
# The longest pause of a gate, in which its timers tick.
PAUSE_MS = 12_000
STARTED_MS = 8_000

Key = collections.namedtuple("Key", "gate at name text alt")
Pause = collections.namedtuple("Pause", "gate at")
Armed = collections.namedtuple("Armed", "gate operation")
# What may not be typed while the station hangs stands between two of these: Esc takes back what it finds waiting.
Settled = collections.namedtuple("Settled", "gate")


class Script:
    """What two pairs of hands do, and what must have come of it: worked out from the script alone."""

    def __init__(self, seed, pieces):
        self.dice = random.Random(seed)
        self.steps, self.history = [], []
        self.inside, self.sold = {}, ([], [])
        self.now = STARTED_MS
        self.shift = [False, False]
        self.plates = 0
        gate = 0
        for _ in range(pieces):
            if self.dice.random() < 0.3:
                gate = 1 - gate
            self._piece(gate)
        for gate in (0, 1):
            self.steps.append(Pause(gate, self.now))

    # ---- Hands ----

    def _key(self, gate, name, text="", alt=False):
        self.now += self.dice.randint(*HAND_MS)
        self.steps.append(Key(gate, self.now, name, text, alt))

    def _type(self, gate, text):
        for character in text:
            self._key(gate, "Space" if character == " " else character, character)

    def _enter(self, gate):
        self._key(gate, "Return", "\r")

    def _answer(self, gate, yes):
        if yes and self.dice.random() < 0.3:
            return self._enter(gate)
        self._key(gate, "S" if yes else "N", "s" if yes else "n", alt=True)

    def _escape(self, gate):
        self.steps.append(Settled(gate))
        self._key(gate, "Escape", "\x1b")
        self.steps.append(Settled(gate))

    # ---- Pieces of work ----

    def _piece(self, gate):
        if self.dice.random() < 0.2:
            self.now += self.dice.randrange(PAUSE_MS)
            self.steps.append(Pause(gate, self.now))
        leave = [self._retire] * 6 if self.inside else []
        self.dice.choice([self._save] * 6 + leave + [self._wrong, self._monitor, self._monitor, self._sell, self._shift,
                                                     self._refuse, self._escape_in_the_middle])(gate)

    def _fill(self, gate):
        number = self.dice.choice([n for n in range(1, 1001) if n not in self.inside])
        self.plates += 1
        texts = [f"P{self.plates:05}"] + [self._word() for _ in range(self.dice.randrange(1, 5))]
        self._type(gate, str(number))
        self._enter(gate)
        for text in texts:
            self._type(gate, text)
            self._enter(gate)
        return number, texts

    def _word(self):
        return "".join(self.dice.choice("ABCDEFGHIJKLMNOPRSTUVXYZ 0123456789") for _ in range(self.dice.randrange(2, 20))).strip() or "X"

    def _save(self, gate):
        number, texts = self._fill(gate)
        self._key(gate, "Insert")
        self._answer(gate, True)
        self.inside[number] = texts, gate

    def _refuse(self, gate):
        self._fill(gate)
        self._key(gate, "Insert")
        self._answer(gate, False)
        self._escape(gate)

    def _escape_in_the_middle(self, gate):
        self._fill(gate)
        self._escape(gate)

    def _retire(self, gate):
        number = self.dice.choice(sorted(self.inside))
        self._type(gate, str(number))
        self._enter(gate)
        self._type(gate, str(self.dice.randrange(1, 50) * 1000))
        self._key(gate, "Delete")
        self._answer(gate, True)
        texts, entry = self.inside.pop(number)
        self.history.append((number, texts, entry, gate))

    def _wrong(self, gate):
        self._type(gate, self.dice.choice(["0", "1001", "9999", "00"]))
        self._enter(gate)
        self._escape(gate)

    def _monitor(self, gate):
        self._key(gate, self.dice.choice(["F1", "F2", "F3"]))

    def _sell(self, gate):
        amount = self.dice.randrange(2, 10)
        self._key(gate, "F7")
        for name, text in (("Down", ""), ("Space", " "), (str(amount), str(amount)), ("Return", "\r"), ("Return", "\r")):
            self._key(gate, name, text)
        self.sold[gate].insert(0, ("CAFE", amount))

    def _shift(self, gate):
        if self.shift[gate]:
            return  # its end makes a report, whose name has a time of the machine's in it
        self.shift[gate] = True
        self._key(gate, "F8")
        for _ in range(2):
            self._key(gate, "Tab", "\t")
        self._enter(gate)


class TypedGate:
    """One typed-gate process. Its clock stands until it is told to go on."""

    def __init__(self, folder, home, seed, errors):
        environment = {name: value for name, value in os.environ.items() if not name.startswith("XDG_")}
        self.process = subprocess.Popen([os.environ["VINTORAL_TYPED_GATE"], str(seed)], cwd=folder,
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors,
                                        env={**environment, "HOME": str(home), "XDG_RUNTIME_DIR": str(home)})
        self.state, self.was_late = None, False

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        self.process.stdin.close()
        self.process.stdout.close()

    def do(self, what, **fields):
        self.process.stdin.write(json.dumps({"do": what, **fields}).encode() + b"\n")
        self.process.stdin.flush()
        if not select.select([self.process.stdout], [], [], PATIENCE_SECONDS)[0]:
            raise TimeoutError(f"no answer to {what} {fields}")
        answer = self.process.stdout.readline()
        if not answer:
            raise EOFError(f"the gate ended with {self.process.wait()} at {what} {fields}")
        self.state = json.loads(answer)
        if not self.state["ok"]:
            raise AssertionError(f"{what} {fields}: {self.state['error']}")
        self.was_late |= self.state["late"]
        return self.state

    def settle(self, within=SETTLES_MS):
        return self.do("settle", within=within)["settled"]

    def step(self, step):
        """Types it, or lets time pass; nothing is waited for."""
        if isinstance(step, Pause):
            return self.do("time", at=step.at)["passed"]
        self.do("key", at=step.at, key=step.name, text=step.text, alt=step.alt)
        return True


class HangingDay(trouble.Trouble):
    def setUp(self):
        super().setUp()
        self.source = self.root / "data"
        self.hung = collections.Counter()
        self.in_flight = 0

    # ---- One day ----

    def lay_out(self):
        """Both gates' folders behind the mounts, as they are before the first start."""
        shutil.rmtree(self.source, ignore_errors=True)
        self.source.mkdir()
        for name in ("P01", "P02"):
            folder = Folder(self.source / name)
            # Two stations of one user on one machine.
            folder.write("Recursos/Vintoral.RLD", b"")
            folder.write("Recursos/Vintoral.EMP", lines("AUTOMOVIL", "1H = 6000"))
            folder.write("Recursos/Vintoral.XTR", lines("MINUTO = 200", "CAFE = 5000"))
        folder.write("Objetos/Servidor.INI", f"{self.root}/point1/P01/Multimedia\r\n".encode())
        home = self.root / "home"
        shutil.rmtree(home, ignore_errors=True)
        (home / "Desktop").mkdir(parents=True)
        (home / "Desktop/Vintoral.desktop").write_text("[Desktop Entry]\n")
        return home

    def day(self, script, hangs):
        """Every file of the day's end by its path; `hangs` of the operations hang."""
        home = self.lay_out()
        with (HangingFolder(self.source, self.made("point0")) as first,
              HangingFolder(self.source, self.made("point1")) as second,
              open(self.root / "stderr", "ab") as errors):
            self.folders = first, second
            self.gates = [TypedGate(folder.point / name, home, seed, errors)
                          for seed, (folder, name) in enumerate(zip(self.folders, ("P01", "P02")))]
            try:
                self.open_gates()
                self.type_all(script, hangs)
                self.close_gates()
            except Exception:
                print((self.root / "stderr").read_text(errors="replace")[-TOLD:], file=sys.stderr)
                raise
            finally:
                for folder in self.folders:
                    folder.go()
                for gate in self.gates:
                    gate.end()
        return {str(file.relative_to(self.source)): file.read_bytes() for file in sorted(self.source.rglob("*"))
                if file.is_file()}

    def made(self, name):
        (self.root / name).mkdir(exist_ok=True)
        return self.root / name

    def rest(self, gate):
        self.assertTrue(gate.settle(), f"the station does not come to rest: {gate.state}")
        self.assertEqual(gate.state["behind"], 0)

    def open_gates(self):
        for gate in self.gates:
            self.rest(gate)
            gate.do("time", at=STARTED_MS)
            self.rest(gate)
            self.assertEqual((gate.state["form"], gate.state["box"]), ("Form1", None))

    def close_gates(self):
        for gate in reversed(self.gates):
            gate.do("close")
            self.rest(gate)
            self.assertEqual(gate.state["box"], "¿Desea realmente salir del programa?")
            gate.step(Key(None, self.end + 100, "S", "s", True))
            try:
                gate.settle()
                self.assertTrue(gate.state["ended"], gate.state)
            except EOFError:
                pass  # it was gone before it could say so
            self.assertEqual(gate.process.wait(PATIENCE_SECONDS), 0)

    def type_all(self, script, hangs):
        self.end = script.now
        dice = random.Random(script.now)
        steps, at, armed, tries = script.steps, 0, None, 0
        while at < len(steps):
            step = steps[at]
            at += 1
            if isinstance(step, Settled):
                continue
            if armed is None and sum(self.hung.values()) < hangs:
                armed, tries = self.arm(step.gate, dice), 0
            if armed is None or armed.gate != step.gate:
                self.one(step)
                continue
            self.gates[step.gate].step(step)
            tries += 1
            if self.comes_to_hang(self.gates[step.gate], self.folders[step.gate]):
                at = self.hang(armed, steps, at, dice)
                armed = None
            elif tries > ON_THE_WAY:
                self.folders[step.gate].go()
                armed = None
        for folder in self.folders:
            folder.go()

    def one(self, step):
        gate = self.gates[step.gate]
        gate.step(step)
        self.rest(gate)

    # ---- One hang ----

    def arm(self, gate, dice):
        rarest = min(OPERATIONS, key=lambda operation: self.hung[operation])
        operation = rarest if dice.random() < RAREST else dice.choice(OPERATIONS)
        self.folders[gate].hang(operation, after=dice.randint(1, DEEPEST[operation]))
        return Armed(gate, operation)

    def hang(self, armed, steps, at, dice):
        """Types on while the station hangs, and lets it go on; where in the steps that has come to."""
        gate, folder = self.gates[armed.gate], self.folders[armed.gate]
        begun, waiting = at - 1, folder.waiting()
        at = self.fly(gate, steps, at, dice)
        self.hung[armed.operation] += 1
        if sum(self.hung.values()) % OTHER_EVERY == 0:
            self.one(Pause(1 - armed.gate, steps[at - 1].at))
        if sum(self.hung.values()) % LATE_EVERY == 0:
            time.sleep(LATE_SECONDS)
            gate.do("state")
        folder.go()
        try:
            self.rest(gate)
        except AssertionError as failure:
            typed = " ".join(f"{getattr(step, 'name', 'pause')}@{step.at}" for step in steps[begun:at])
            raise AssertionError(f"{waiting} at gate {armed.gate + 1}, {typed}: {failure}") from failure
        if isinstance(steps[at - 1], Pause):
            self.one(steps[at - 1])  # whose time stood
        return at

    def comes_to_hang(self, gate, folder):
        """Until the station hangs, or is at rest again without."""
        limit = time.monotonic() + PATIENCE_SECONDS
        while time.monotonic() < limit:
            if folder.waiting():
                return True
            if gate.settle(REACHES_MS):
                return False
        self.fail(f"the station neither hangs nor comes to rest: {gate.state}, {folder.state()}")

    def fly(self, gate, steps, at, dice):
        """Types on while the station hangs, as far as these hands go on."""
        hands = steps[at - 1].gate
        for _ in range(dice.randrange(IN_FLIGHT + 1)):
            if at == len(steps) or not isinstance(steps[at], Key) or steps[at].gate != hands:
                break
            gate.step(steps[at])
            self.in_flight += 1
            at += 1
        return at

    # ---- The days ----

    def assertDone(self, script):
        """What the registers hold is what was typed."""
        folder = Folder(self.source / "P01")
        self.legal(folder)
        slots = {slot.Posicion: slot for slot in self.rows(folder, "ACT") if slot.EnUso}
        self.assertEqual({number: self.texts(slot) for number, slot in slots.items()},
                         {number: (texts, gate) for number, (texts, gate) in script.inside.items()})
        self.assertEqual([(int(row.NumeroFicha), *self.texts(row), int(row.PorteriaSalida) - 1) for row in folder.history()],
                         [(number, texts, entry, gate) for number, texts, entry, gate in script.history])
        for gate, name in enumerate(("P01", "P02")):
            sales = sold_lines((self.source / name / EXT).read_bytes())
            self.assertEqual([(sale.article.strip(), sale.quantity) for sale in sales], script.sold[gate])

    def texts(self, ficha):
        texts = [ficha.Placa, ficha.Nombre, ficha.Apellido, ficha.Telefono, ficha.Observacion]
        return [text for text in texts if text], int(ficha.PorteriaEntrada) - 1

    def test_the_same_bytes_with_and_without_hangs(self):
        script = Script(SEED, pieces=max(40, HANGS * 4))
        began = time.monotonic()
        calm = self.day(script, 0)
        self.assertDone(script)
        self.assertEqual(sum(self.hung.values()), 0)
        calm_seconds, began = time.monotonic() - began, time.monotonic()
        wild = self.day(script, HANGS)
        seconds = time.monotonic() - began
        keys = sum(isinstance(step, Key) for step in script.steps)
        hung = dict(sorted(self.hung.items()))
        print(f"seed {SEED}: {keys} keys, {sum(self.hung.values())} hangs {hung}, {self.in_flight} keys typed "
              f"during them; {calm_seconds:.1f} s without, {seconds:.1f} s with", file=sys.stderr)
        self.assertEqual(sorted(calm), sorted(wild))
        self.assertEqual([difference(name, calm[name], wild[name]) for name in calm if calm[name] != wild[name]], [])
        self.assertDone(script)
        self.assertEqual(sum(self.hung.values()), HANGS)
        if HANGS >= MANY:
            self.assertEqual(set(self.hung), set(OPERATIONS))
        self.assertTrue(any(gate.was_late for gate in self.gates), "no hang was long enough to be told of")


def difference(name, one, other):
    """Where two files begin to differ, with what stands there in each."""
    at = next((at for at, (a, b) in enumerate(zip(one, other)) if a != b), min(len(one), len(other)))
    row = at - at % RECORD.size
    return name, at, one[row:row + RECORD.size], other[row:row + RECORD.size]


def options():
    global HANGS, SEED
    parser = argparse.ArgumentParser()
    parser.add_argument("--hangs", type=int, default=HANGS)
    parser.add_argument("--seed", type=int, default=SEED)
    given, rest = parser.parse_known_args()
    HANGS, SEED = given.hangs, given.seed
    sys.argv[1:] = rest


if __name__ == "__main__":
    skip_without_fuse()
    mounted.separate()
    options()
    trouble.station.unittest.main()
