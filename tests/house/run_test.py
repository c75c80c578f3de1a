"""scripts/run starts the station in its folder on a screen of its own, and ends everything that it started.

The build is a stand-in that leaves a little program as the station; screen, window manager and VNC are the real ones.
"""
import os
import pathlib
import re
import shutil
import signal
import subprocess
import time
import unittest

from house import PROJECT, HouseTest

STATION = """#!/bin/sh
pwd >"$HOME/where"
echo "$DISPLAY" >"$HOME/display"
xdpyinfo >/dev/null || echo unseen >"$HOME/display"
exec sleep 60
"""


def children_of(pid):
    return [int(child) for child in pathlib.Path(f"/proc/{pid}/task/{pid}/children").read_text().split()]


def alive(pid):
    try:
        return pathlib.Path(f"/proc/{pid}/stat").read_text().split()[2] != "Z"
    except OSError:
        return False


def listeners(port):
    """The addresses, as the kernel writes them, on which something listens at this port."""
    tables = [pathlib.Path(f"/proc/net/{name}") for name in ("tcp", "tcp6")]
    rows = [line.split() for table in tables if table.exists() for line in table.read_text().splitlines()[1:]]
    ends = [row[1].split(":") for row in rows if row[3] == "0A"]
    return [address for address, number in ends if int(number, 16) == port]


class Run(HouseTest):
    def setUp(self):
        super().setUp()
        shutil.copytree(PROJECT / "scripts", self.root / "scripts")
        self.write("scripts/packages.txt", "")
        self.write("bin/cmake", "#!/bin/sh\n", executable=True)
        self.write("build/release/bin/vintoral", STATION, executable=True)
        self.write("data/sounds/Vintoral-1.wav", "")
        (self.root / "home").mkdir()

    def start(self):
        environment = {name: value for name, value in os.environ.items() if name not in ("DISPLAY", "WAYLAND_DISPLAY")}
        environment |= {"HOME": str(self.root / "home"), "PATH": f"{self.root}/bin:{os.environ['PATH']}"}
        # Python hands an ignored Ctrl-C down only if it ignores it itself, so the script can be interrupted.
        run = subprocess.Popen([self.root / "scripts/run"], env=environment, stdout=subprocess.PIPE,
                               stderr=subprocess.STDOUT, text=True)
        self.addCleanup(run.stdout.close)
        self.addCleanup(lambda: run.poll() is None and (run.terminate() or run.wait(20)))
        said = ""
        for line in run.stdout:
            said += line
            if "Ctrl-C ends it" in line:
                return run, said
        self.fail(said)

    def wait_for(self, condition, seconds=15):
        end = time.monotonic() + seconds
        while not condition():
            self.assertLess(time.monotonic(), end)
            time.sleep(0.05)

    def test_from_start_to_interrupt(self):
        run, said = self.start()
        home = self.root / "home"
        self.wait_for(lambda: (home / "display").exists())
        self.assertEqual((home / "where").read_text().strip(), str(home / "Vintoral"))
        self.assertRegex((home / "display").read_text(), r"^:\d+$")
        self.assertTrue((home / "Vintoral/Sonidos/Vintoral-1.wav").exists())

        port = int(re.search(r"localhost:(\d+)", said)[1])
        self.assertEqual(listeners(port), ["0100007F"])

        started = children_of(run.pid)
        self.assertEqual(len(started), 4)
        run.send_signal(signal.SIGINT)
        self.assertEqual(run.wait(20), 130)
        self.wait_for(lambda: not any(alive(pid) for pid in started))

    def test_station_that_ends_by_itself(self):
        self.write("build/release/bin/vintoral", "#!/bin/sh\nexit 3\n", executable=True)
        run, _ = self.start()
        self.assertEqual(run.wait(20), 3)


unittest.main()
