"""A driver killed with SIGKILL while it logs: the log has its thousand records, each of them whole."""
import json
import os
import random
import subprocess
import sys
import tempfile
import threading
import time

import trouble
from station import read_mixed

# The moments between two pages of a file are longer on a disk than in memory.
tempfile.tempdir = None

RUNS = int(os.environ.get("VINTORAL_KILLS", "500")) // 5
SEED = 20261122
RECORDS, LENGTH = 1000, 46
SHIFT_ALT = 5


class KilledInTheLog(trouble.Trouble):
    def lines(self, run):
        """A start, then events, minutes and new days in a stream."""
        day = 1 + run // 12
        lines = [{"op": "start", "dir": str(self.folder.path), "now": f"2027-01-{day:02} {run % 12:02}:00:00",
                  "desktop": str(self.root / "desktop"), "cameras": ["CAMARA"]},
                 {"op": "advance", "ms": 3000}]
        for turn in range(60):
            lines += [{"op": "key", "code": 87, "mask": SHIFT_ALT}, {"op": "advance", "ms": 60000},
                      {"op": "clock", "now": f"2027-{2 + turn % 10:02}-{day:02} 23:59:59"}, {"op": "advance", "ms": 1000}]
        return [json.dumps(line) for line in lines]

    def run_and_kill(self, lines, pause):
        with open(self.root / "stderr", "ab") as errors:
            process = subprocess.Popen([trouble.station.driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors)
        watch = threading.Timer(30, process.kill)
        watch.start()
        try:
            process.stdin.write(("\n".join(lines) + "\n").encode())
            process.stdin.flush()
            process.stdout.readline()
            time.sleep(pause)
            process.kill()
            return 1 + len([line for line in process.stdout.readlines() if line.endswith(b"\n")])
        finally:
            watch.cancel()
            process.kill()
            process.wait()
            process.stdin.close()
            process.stdout.close()

    def judge(self, before):
        """Each record is blank or one that a station writes; what was there before has come down, whole."""
        data = (self.folder / "Recursos/Vintoral.FDR").read_bytes()
        self.assertEqual(len(data), RECORDS * LENGTH)
        places = [data[at:at + LENGTH] for at in range(0, len(data), LENGTH)]
        for number, place in enumerate(places, start=1):
            when, running, mark, amount, hour, minute = read_mixed(place)
            self.assertRegex(when, r"^\d\d/\d\d/\d{4}  \d\d:\d\d$", number)
            self.assertRegex(running, r"^\d\d:\d\d$", number)
            self.assertIn(amount, {code * 10000 for code in (10, 111, 124, 125)}, number)
            self.assertEqual(mark, 0)
            self.assertEqual(hour == -1, minute == -1)
            self.assertEqual(place[44:], b"\0\0")
        if before:
            old = before[1:40]  # the day's own record goes on changing
            self.assertTrue(any(places[at:at + len(old)] == old for at in range(len(places) - len(old))),
                            "what stood there before is not there any more")
        return places

    def test_a_kill_costs_the_entry_alone(self):
        (self.root / "desktop").mkdir()
        (self.root / "desktop" / "Vintoral.desktop").touch()
        dice = random.Random(SEED)
        before, cut_short = None, 0
        for run in range(RUNS):
            lines = self.lines(run)
            replies = self.run_and_kill(lines, dice.uniform(0, 0.03))
            cut_short += replies < len(lines)
            if (self.folder / "Recursos/Vintoral.FDR").exists():
                places = self.judge(before)
                before = places if len(set(places[:40])) == 40 else None
        self.assertGreater(cut_short, RUNS * 2 // 3)
        print(f"{RUNS} runs, {cut_short} killed before their end", file=sys.stderr)


if __name__ == "__main__":
    trouble.station.main()
