"""The real program on the offscreen platform, asked to end by the system: it closes as if the operator had closed it."""
import os
import pathlib
import signal
import subprocess
import tempfile
import time
import unittest

STATION = os.environ["VINTORAL_STATION"]


class End(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.home = pathlib.Path(folder.name)
        self.folder = self.home / "Vintoral"
        (self.folder / "Recursos").mkdir(parents=True)
        (self.folder / "Recursos/Vintoral.RLD").touch()  # starts beside a station that runs on this machine

    def start(self, until):
        """Starts the station and returns once it has made the file `until`."""
        environment = os.environ | {"HOME": str(self.home), "QT_QPA_PLATFORM": "offscreen"}
        station = subprocess.Popen([STATION], cwd=self.folder, env=environment, stderr=subprocess.DEVNULL)
        self.addCleanup(lambda: station.poll() is None and (station.kill() or station.wait()))
        end = time.monotonic() + 30
        while not until.exists():
            self.assertIsNone(station.poll())
            self.assertLess(time.monotonic(), end)
            time.sleep(0.01)
        return station

    def test_each_signal(self):
        entry = self.home / "Desktop/Vintoral.desktop"
        dat = self.folder / "Recursos/Vintoral.DAT"
        made_last = self.folder / "Recursos/Vintoral.XTR"
        with self.subTest("under the welcome, before anything is loaded"):
            station = self.start(entry)
            station.send_signal(signal.SIGTERM)
            self.assertEqual(station.wait(20), 0)
            self.assertFalse(dat.exists())
        for number in (signal.SIGTERM, signal.SIGINT, signal.SIGHUP):
            with self.subTest(number.name):
                made_last.unlink(missing_ok=True)
                station = self.start(made_last)
                station.send_signal(number)
                self.assertEqual(station.wait(20), 0)
                self.assertTrue(dat.exists())
                dat.unlink()


unittest.main()
