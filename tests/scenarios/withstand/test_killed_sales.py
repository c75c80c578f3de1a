"""A driver killed with SIGKILL while it sells: the list is that before a sale or that after it, with all lines of the sale.

The reply to REGISTRAR is the confirmation. Each sale has a quantity of its own, and three lines.
"""
import json
import os
import random
import subprocess
import tempfile
import time

import trouble
from sales import EXT, F7, LINE, LIST, LOCK, XTR, SalesDay, line, sales_file, sold_lines
from station import driver, lines

# Real syncs make the moments of a write long enough to be hit.
tempfile.tempdir = None

RUNS = int(os.environ.get("VINTORAL_KILLS", "300"))
SALES = 4  # of a run at most
SEED = 20261122
ROWS = ((0, "MINUTO", 200), (1, "CAFE", 5000), (2, "CASCO MOTO", 120_000))
MOST = 999
START = 2  # replies before the first sale
STEPS = 8  # operations of one: the key, three ticks, three quantities, the button


def sale(number):
    """The lines of sale `number`, as they come to stand in the list."""
    quantity = (number - 1) % MOST + 1
    return b"".join(line(article, quantity, price, 1400) for _, article, price in ROWS)


def operations(number):
    quantity = str((number - 1) % MOST + 1)
    yield {"op": "key", "code": F7}
    for row, _, _ in ROWS:
        yield {"op": "tick", "control": "Form4.LstArticulo", "index": row, "value": 1}
        yield {"op": "set", "control": f"Form4.CboCantidad({row})", "text": quantity}
    yield {"op": "click", "control": "Form4.CmdRegistrar"}


class Killed(SalesDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        (self.root / "desktop").mkdir()
        self.folder.write(XTR, lines("MINUTO = 200", "CAFE = 5000", "CASCO MOTO = 120000"))
        self.folder.write(EXT, sales_file())
        self.errors = self.enterContext(open(self.root / "stderr", "ab"))
        station = self.running()
        station.end()

    def run_and_kill(self, first, dice):
        """Sells from sale `first` on and is killed; how many sales were confirmed."""
        stream = [{"op": "start", "dir": str(self.folder.path), "now": "2026-11-20 14:00:00", "cameras": ["CAMARA"],
                   "desktop": str(self.root / "P01-desktop")}, {"op": "advance", "ms": 3000}]
        for number in range(first, first + SALES):
            stream += operations(number)
        process = subprocess.Popen([driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self.errors)
        try:
            process.stdin.write(("\n".join(map(json.dumps, stream)) + "\n").encode())
            process.stdin.flush()
            # Up to the last word before some sale is written, and a moment into it.
            before = START + dice.randrange(SALES) * STEPS + STEPS - 1
            replies = [process.stdout.readline() for _ in range(before)]
            time.sleep(dice.random() * 0.02)
            process.kill()
            replies += process.stdout.readlines()
        finally:
            process.kill()
            process.wait()
            process.stdin.close()
            process.stdout.close()
        whole = [json.loads(reply) for reply in replies if reply.endswith(b"\n")]
        self.assertTrue(all(reply["ok"] for reply in whole), [reply for reply in whole if not reply["ok"]])
        return max(0, len(whole) - START) // STEPS

    def test_the_list_is_whole_and_no_confirmed_sale_is_lost(self):
        dice = random.Random(SEED)
        number, cut, expected = 1, 0, b""
        for run in range(RUNS):
            with self.subTest(run=run):
                confirmed = self.run_and_kill(number, dice)
                for done in range(number, number + confirmed):
                    expected = sale(done) + expected
                number += confirmed
                data = self.list()
                self.assertEqual((len(data), data[LIST:]), (LIST + LINE, LOCK))
                if confirmed < SALES and data.startswith(sale(number) + expected[:1000 * LINE]):
                    # On disk, and killed before anybody was told.
                    expected, number, cut = sale(number) + expected, number + 1, cut + 1
                expected = expected[:LIST]
                self.assertEqual(data[:len(expected)], expected)
                self.assertEqual(len(sold_lines(data)), min(len(expected), LIST) // LINE)
        # Kills have found sales at work: some were cut before their confirmation, and some after their writing.
        self.assertGreater(cut, 0)
        self.assertGreater(number, RUNS // 2)
        print(f"{RUNS} kills, {number - 1} sales, {cut} of them written and not confirmed")


if __name__ == "__main__":
    trouble.station.main()
