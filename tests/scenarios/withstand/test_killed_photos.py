"""A driver killed with SIGKILL while photos are written: none is cut, none is another vehicle's, what was confirmed has its own."""
import json
import os
import random
import subprocess
import tempfile
import time

import trouble
from station import CAMERA, CONTROL, DELETE, ENTER, INSERT, driver

from cameras import A, ACT, DTL, HST, INI, USR, CameraDay, bmp, is_whole, numbered

# Real files, so that a kill finds moments between them.
tempfile.tempdir = None

RUNS = int(os.environ.get("VINTORAL_KILLS", "500")) // 5
SEED = 20261122
NUMBERS = range(1, 9)
FRAMES, LEVELS, STEP, DARKEST = 64, 4, 60, 30
SPAN = 0.004  # seconds: a few photos


def color_of(count):
    return tuple(DARKEST + STEP * (count // LEVELS ** place % LEVELS) for place in range(3))


def count_of(color):
    return sum((channel - DARKEST + STEP // 2) // STEP * LEVELS ** place for place, channel in enumerate(color))


def speckled(count, dice):
    """A frame of that colour in the middle, with an edge that makes its photo long enough to be cut."""
    def pixel(x, y):
        middle = 60 <= x < 100 and 45 <= y < 75
        return color_of(count) if middle else dice.randbytes(3)
    return bmp(160, 120, pixel)


class Stream:
    """The lines of one run; after which reply which ficha is inside with its photo."""

    def __init__(self, root, inside, first):
        self.root, self.inside, self.count = root, dict(inside), first
        self.lines, self.confirmed = [], []
        self.add("start", dir=str(root / "P01"), now="2026-11-20 13:59:57", desktop=str(root / "desktop"), cameras=[CAMERA])
        self.add("advance", ms=3000)

    def add(self, operation, **fields):
        self.lines.append(json.dumps({"op": operation, **fields}))

    def come_in(self, number, more):
        self.count += 1
        self.add("camera", name=CAMERA, frame=str(self.root / f"frame{self.count % FRAMES}.bmp"))
        self.call_up(number)
        self.add("set", control="TxtCampo(1)", text=f"N{self.count}")
        if more:
            self.add("key", code=A, mask=CONTROL)
            self.add("advance", ms=1000)
        self.add("key", code=INSERT)
        self.add("answer", button="yes")
        self.inside[number] = self.count
        self.confirmed.append((len(self.lines), number, self.count))

    def go_out(self, number):
        self.call_up(number)
        self.add("key", code=DELETE)
        self.add("answer", button="yes")
        self.inside.pop(number)
        self.confirmed.append((len(self.lines), number, None))

    def call_up(self, number):
        self.add("focus", control="TxtCampo(0)")
        self.add("type", text=str(number))
        self.add("key", code=ENTER)


class KilledPhotos(CameraDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        (self.root / "desktop").mkdir()
        self.seen = set()
        dice = random.Random(SEED)
        for count in range(FRAMES):
            (self.root / f"frame{count}.bmp").write_bytes(speckled(count, dice))
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"))
            self.answer_all(gate, "ok")

    def stream(self, dice, first):
        inside = {slot.Posicion: slot.Placa for slot in self.rows(self.folder, "ACT") if slot.EnUso}
        stream = Stream(self.root, inside, first)
        for _ in range(8):
            number = dice.choice(NUMBERS)
            if number in stream.inside:
                stream.go_out(number)
            else:
                stream.come_in(number, dice.random() < 0.5)
        return stream

    def run_and_kill(self, stream, at_reply, pause):
        """Kills `pause` seconds after the reply `at_reply`; how many replies had arrived."""
        with open(self.root / "stderr", "ab") as errors:
            process = subprocess.Popen([driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors)
        with process:
            process.stdin.write(("\n".join(stream.lines) + "\n").encode())
            process.stdin.flush()
            arrived = [process.stdout.readline() for _ in range(at_reply)]
            time.sleep(pause)
            process.kill()
            arrived += [line for line in process.stdout.readlines() if line.endswith(b"\n")]
        refused = [line for line in arrived if not json.loads(line)["ok"]]
        self.assertEqual(refused, [])
        return len(arrived)

    def assertNoneCut(self):
        """Of those that are new since the last look."""
        for folder in (ACT, HST, USR, INI, DTL):
            for path in (self.folder / folder).rglob("*.jpg"):
                status = path.stat()
                mark = status.st_ino, status.st_mtime_ns, status.st_size
                if mark not in self.seen:
                    self.assertTrue(is_whole(path.read_bytes()), f"{path} is cut")
                    self.seen.add(mark)

    def judge(self, stream, replies):
        self.assertNoneCut()
        last = {number: count for after, number, count in stream.confirmed if replies >= after}
        under_way = next((number for after, number, _ in stream.confirmed if replies < after), None)
        for slot in self.rows(self.folder, "ACT"):
            photo = self.folder / numbered(ACT, slot.Posicion)
            if not slot.EnUso or slot.Posicion == under_way:
                continue
            if last.get(slot.Posicion) is not None:
                self.assertTrue(photo.exists(), f"{slot.Placa} was confirmed and has no photo")
            if photo.exists():
                self.assertEqual(count_of(self.color(numbered(ACT, slot.Posicion))), int(slot.Placa[1:]) % FRAMES)

    def test_none_is_cut(self):
        dice, count, cut_short = random.Random(SEED), 0, 0
        for run in range(RUNS):
            stream = self.stream(dice, count)
            count = stream.count
            replies = self.run_and_kill(stream, dice.randrange(len(stream.lines)), dice.uniform(0, SPAN))
            cut_short += replies < len(stream.lines)
            with self.subTest(run=run, replies=replies):
                self.judge(stream, replies)
        self.assertGreater(cut_short, RUNS // 2)
        self.assertGreater(len(self.seen), RUNS)


if __name__ == "__main__":
    trouble.station.main()
