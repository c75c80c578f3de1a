"""The same day of three gates on a local disk, on a Samba share and on a volume of three copies: how long an operation takes.

An operation is all from the number to the idle screen. figures.py [--operations N] [--folder DIR]; scripts/gate-days runs it.
"""
import argparse
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


class Day(crew.Crew):
    operations = 2000

    def start_work(self, one_yes=None):
        self.begin(self.operations // 3 + 1, REST_SECONDS, one_yes)

    def until_share(self, share_of_all):
        self.until(int(self.operations * share_of_all), 600)

    def finish(self, data):
        self.work_ends(900)
        crew.check(self, self.books, data)
        for kind in ("save", "retire"):
            seconds = sorted(entry.seconds for entry in self.books.done if entry.kind == kind)
            print(f"  {kind}: median {1000 * crew.percentile(seconds, 0.5):.1f} ms", file=sys.stderr)


class Disk(Day, trouble.Trouble):
    def test_on_a_disk_of_this_machine(self):
        self.gates = {1: self.running(self.folder)}
        for number in (2, 3):
            other = Folder(self.root / f"P0{number}")
            other.write("Objetos/Servidor.INI", f"{self.folder.shared}\n".encode())
            self.gates[number] = self.running(other)
        self.start_work()
        self.finish(self.folder.shared)


class Samba(Day, share.SharedSite):
    def test_on_a_share_whose_server_dies(self):
        self.start_work(threading.Lock())
        self.until_share(0.5)
        self.break_off()
        time.sleep(5)
        self.come_back()
        self.finish(self.folder.shared)


class Volume(Day, volume.Site):
    def test_on_a_volume(self):
        self.open_all()
        self.start_work()
        self.finish(self.data)
        self.assertCopiesEqual()

    def test_on_a_volume_whose_copies_die(self):
        """One copy, then two at once, then a machine without a word; each comes back."""
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
    trouble.station.main()
