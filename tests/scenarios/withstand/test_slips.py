"""The invoice log on a disk that is full, as long as years make it, and under a station that is killed while it grows."""
import json
import os
import random
import signal
import time
import unittest

import trouble
from slips import INVOICE, invoice, number_in, printed
from station import DELETE, Folder, fresh_register, inside, mixed, screen_state, stamp

ENTRY = stamp("13:00", "20/11/2026")
HFC, FTA = "Recursos/Vintoral.HFC", "Recursos/Vintoral.FTA"
LONG = 100 << 20
KILLS = int(os.environ.get("VINTORAL_KILLS", "500")) // 20
SEED = 20261122


def long_log(length):
    """Nowhere like itself, so that a piece that is missing or stands elsewhere shows."""
    piece = random.Random(SEED).randbytes(1 << 20)
    return b"".join(piece[at:] + piece[:at] for at in range(length >> 20))


class Invoices(trouble.Trouble):
    def gate(self, log):
        self.folder.write(FTA, invoice())
        self.folder.write(HFC, log)
        self.folder.write("Recursos/Vintoral.DAT", screen_state(screen=mixed(0, 1)))
        self.folder.write("Multimedia/Vintoral.ACT",
                          fresh_register(*(inside(number, ENTRY, f"P{number}") for number in range(1, 6))))
        return self.running(printers=["Tira80"])

    def assertNothingStray(self):
        names = [file.name for file in (self.folder / "Recursos").iterdir()]
        self.assertEqual([name for name in names if name.startswith(".") or "nuevo" in name], [])


class FullDisk(Invoices):
    def test_a_log_that_finds_no_room_stays_as_it_was(self):
        disk = self.root / "disk"
        disk.mkdir()
        trouble.mount("-t", "tmpfs", "-o", f"size={6 << 20}", "tmpfs", str(disk))
        self.addCleanup(trouble.unmount, disk)
        self.folder = Folder(disk / "P01")
        old = long_log(4 << 20)
        station = self.gate(old)
        reply = station.retire(3)
        (_, text), = printed(reply)
        self.assertIn("TOTAL $ 6000.00\n", text)
        self.assertIsNone(reply["waiting"])
        self.assertEqual((self.folder / HFC).read_bytes(), old)
        self.assertNothingStray()
        self.assertEqual([row.Placa for row in self.folder.history()], ["P3"])
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 42)
        # With room again the next one is written.
        self.folder.write(HFC, b"corto")
        station.retire(4)
        self.assertTrue((self.folder / HFC).read_bytes().endswith(b"\r\ncorto\r\n"))


class LongLog(Invoices):
    def test_it_grows_at_its_top_and_is_never_in_memory(self):
        old = long_log(LONG)
        station = self.gate(old)
        station.retire(3)
        new = (self.folder / HFC).read_bytes()
        self.assertTrue(new.startswith(b"\r\n\r\n\r\nCABEZA\r\nNo.FACTURA  42 "))
        self.assertLess(len(new) - len(old), 2000)
        self.assertTrue(new.endswith(old + b"\r\n"))
        with open(f"/proc/{station.process.pid}/status", encoding="ascii") as status:
            peak = next(int(line.split()[1]) for line in status if line.startswith("VmHWM:"))
        if "VINTORAL_EVERY" not in os.environ:  # the sanitizers take memory of their own
            self.assertLess(peak, 24 << 10, "kilobytes")

    def test_killed_while_it_grows(self):
        dice = random.Random(SEED)
        old = long_log(LONG)
        for kill in range(KILLS):
            with self.subTest(kill=kill):
                station = self.gate(old)
                station.call_up(3)
                station.key(DELETE)
                station.send_line(json.dumps({"op": "answer", "button": "yes"}).encode())
                time.sleep(dice.random() * 0.12)
                station.process.send_signal(signal.SIGKILL)
                station.process.wait()
                log = (self.folder / HFC).read_bytes()
                if log != old:
                    self.assertTrue(log.endswith(b"PIE" + b"\r\n" * 6 + old + b"\r\n"))
                    self.assertTrue(log.startswith(b"\r\n\r\n\r\nCABEZA\r\nNo.FACTURA  42 "))
                data = (self.folder / FTA).read_bytes()
                self.assertEqual(len(data), INVOICE.size)
                self.assertIn(number_in(data), (41, 42))
                self.assertNothingStray()


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
