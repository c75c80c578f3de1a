"""The same day of three gates on a local disk, on a Samba share and on a volume of three copies: how long an operation takes.

An operation is all from the number to the idle screen. figures.py [--operations N] [--folder DIR]; scripts/gate-days runs it.
At the end it prints the table of docs/performance.md.
"""
import argparse
import os
import sys
import tempfile
import threading
import time

import mounted
import crew
import machines
import share
import trouble
import volume
from station import Folder

REST_SECONDS = 0.2
LOOK_SECONDS = 3
HEAD = "| day | operations | median (save, retire) | 99th percentile | longest | busy before |\n" + "| --- " * 6 + "|"
rows = []


def busy_seconds():
    """What all processors of this machine have worked since it was started."""
    with open("/proc/stat", encoding="ascii") as file:
        user, nice, system, _, _, *others = [int(word) for word in file.readline().split()[1:9]]
    return (user + nice + system + sum(others)) / os.sysconf("SC_CLK_TCK")


def busy_processors():
    """How many of them other work keeps busy, as long as the day has not begun."""
    before = busy_seconds()
    time.sleep(LOOK_SECONDS)
    return (busy_seconds() - before) / LOOK_SECONDS


def told(seconds):
    return f"{1000 * seconds:.1f} ms" if seconds < 1 else f"{seconds:.2f} s"


class Day(crew.Crew):
    operations = 2000

    def start_work(self, one_yes=None):
        self.busy = busy_processors()
        self.begin(self.operations // len(self.gates) + 1, REST_SECONDS, one_yes)

    def until_share(self, share_of_all):
        self.until(int(self.operations * share_of_all), 600)

    def finish(self, data):
        self.work_ends(900)
        crew.check(self, self.books, data)
        rows.append(self.row())

    def row(self):
        def median(kind):
            return crew.percentile(sorted(entry.seconds for entry in self.books.done if entry.kind == kind), 0.5)
        seconds = self.books.seconds()
        middle, late, longest = [told(crew.percentile(seconds, share_of_all)) for share_of_all in (0.5, 0.99, 1)]
        return (f"| {self.shortDescription()} | {len(seconds)} | {middle} ({told(median('save'))}, {told(median('retire'))}) "
                f"| {late} | {longest} | {self.busy:.1f} |")


class Disk(Day, trouble.Trouble):
    def test_on_a_disk_of_this_machine(self):
        """local disk"""
        self.gates = {1: self.running(self.folder)}
        for number in (2, 3):
            other = Folder(self.root / f"P0{number}")
            other.write("Objetos/Servidor.INI", f"{self.folder.shared}\n".encode())
            self.gates[number] = self.running(other)
        self.start_work()
        self.finish(self.folder.shared)


class Samba(Day, share.SharedSite):
    def test_on_a_share_whose_server_dies(self):
        """Samba, by way of smbnetfs; `smbd` killed and started again in the middle"""
        self.start_work(threading.Lock())
        self.until_share(0.5)
        self.break_off()
        time.sleep(5)
        self.come_back()
        self.finish(self.folder.shared)


class Volume(Day, volume.Site):
    def test_on_a_volume(self):
        """volume, nothing failing"""
        self.open_all()
        self.start_work()
        self.finish(self.data)
        self.assertCopiesEqual()

    def test_on_a_volume_alone(self):
        """volume, one gate alone, nothing failing"""
        self.open_gate(1)
        self.operations //= 4
        self.start_work()
        self.finish(self.data)
        self.assertCopiesEqual()

    def test_on_a_volume_whose_copies_die(self):
        """volume; one copy killed, two at once, two others, one, and then a machine without a word; each comes back"""
        self.open_all()
        self.start_work()
        for step, copies in enumerate(((3,), (2, 3), (1, 2), (2,)), start=1):
            self.until_share(step * 0.15)
            for number in copies:
                self.kill_copy(number)
            time.sleep(5)
            for number in copies:
                self.come_back(number)
            self.heal()
        self.until_share(0.7)
        self.assertTrue(all(hand.is_alive() for hand in self.hands), "too few operations for all that is to fail")
        self.site[3].cut_off()
        time.sleep(30)
        self.site[3].plug_in()
        self.finish(self.data)
        self.assertCopiesEqual()


if __name__ == "__main__":
    parser = argparse.ArgumentParser()
    parser.add_argument("--operations", type=int, default=Day.operations)
    parser.add_argument("--folder", default="/var/tmp", help="on the disk to be measured")
    options, rest = parser.parse_known_args()
    machines.separate("glusterd", "gluster", "glusterfs", "ip", "smbd", "smbnetfs")
    Day.operations, tempfile.tempdir = options.operations, options.folder
    sys.argv[1:] = rest
    try:
        trouble.station.main()
    finally:
        print(HEAD, *rows, sep="\n")
