"""What is heard: the real program plays into a PulseAudio server of its own, whose null sink is recorded."""
import array
import itertools
import math
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import time
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]
STATION = os.environ["VINTORAL_STATION"]
RATE = 22050
FRAME = RATE // 100  # a hundredth of a second
STEP = FRAME // 10


def loudness(samples):
    """Of a hundredth of a second from each thousandth on, as root mean square."""
    sums = [0, *itertools.accumulate(sample * sample for sample in samples)]
    return [math.sqrt((sums[at + FRAME] - sums[at]) / FRAME) for at in range(0, len(samples) - FRAME + 1, STEP)]


def likeness(one, other):
    """Of two courses of equal length, 1 for the same shape."""
    mean_one, mean_other = sum(one) / len(one), sum(other) / len(other)
    product = sum((a - mean_one) * (b - mean_other) for a, b in zip(one, other))
    return product / math.sqrt(sum((a - mean_one) ** 2 for a in one) * sum((b - mean_other) ** 2 for b in other) or 1)


def audible(course):
    """How many thousandths of a second of it can be heard."""
    return sum(loud > max(course) / 100 for loud in course)


def recording(number):
    """A second: a tenth of silence, the sound, silence."""
    command = ["sox", PROJECT / f"data/sounds/Vintoral-{number}.wav", "-t", "s16", "-r", str(RATE), "-c", "1", "-",
               "pad", "0.1", "1", "trim", "0", "1"]
    return loudness(array.array("h", subprocess.run(command, check=True, capture_output=True).stdout))


def place(heard, wanted):
    """How alike they are where they are most alike, and where that is."""
    places = range(0, len(heard) - len(wanted) + 1, 2)
    return max((likeness(heard[at:at + len(wanted)], wanted), at) for at in places)


class Heard(unittest.TestCase):
    def setUp(self):
        root = tempfile.TemporaryDirectory()
        self.addCleanup(root.cleanup)
        self.root = pathlib.Path(root.name)
        self.folder = self.root / "Vintoral"
        (self.folder / "Recursos").mkdir(parents=True)
        (self.folder / "Recursos/Vintoral.RLD").touch()  # starts beside a station that runs on this machine
        (self.root / "Desktop").mkdir()
        (self.root / "Desktop/Vintoral.desktop").write_text("")  # no welcome to answer
        self.socket = self.root / "sound.socket"
        self.environment = os.environ | {"HOME": str(self.root), "XDG_RUNTIME_DIR": str(self.root),
                                         "PULSE_SERVER": f"unix:{self.socket}", "QT_QPA_PLATFORM": "offscreen"}
        self.server = self.launch(
            "pulseaudio", "-n", "--daemonize=no", "--use-pid-file=no", "--exit-idle-time=-1",
            "-L", f"module-native-protocol-unix socket={self.socket} auth-anonymous=1",
            "-L", f"module-null-sink sink_name=gate rate={RATE} channels=1")
        self.wait_for(lambda: self.ask("info").returncode == 0)

    def launch(self, *command, **more):
        process = subprocess.Popen(command, cwd=self.folder, env=self.environment, stdin=subprocess.DEVNULL,
                                   stderr=subprocess.DEVNULL, **more)

        def end():
            process.send_signal(signal.SIGCONT)
            process.kill()
            process.wait()
        self.addCleanup(end)
        return process

    def ask(self, *question):
        return subprocess.run(["pactl", *question], env=self.environment, capture_output=True, text=True, check=False)

    def wait_for(self, met, seconds=20):
        limit = time.monotonic() + seconds
        while not met():
            self.assertLess(time.monotonic(), limit)
            time.sleep(0.05)

    def recorded(self, play):
        """The samples that reach the sink while `play` runs and for two seconds more."""
        raw = self.root / "recorded"
        with open(raw, "wb") as file:
            recorder = self.launch("parec", "-d", "gate.monitor", "--format=s16le", f"--rate={RATE}", "--channels=1",
                                   "--latency-msec=20", stdout=file)
            self.wait_for(lambda: raw.stat().st_size > 0)
            play()
            length = raw.stat().st_size + 2 * 2 * RATE
            self.wait_for(lambda: raw.stat().st_size > length)
            recorder.terminate()
            recorder.wait()
        samples = array.array("h")
        samples.frombytes(raw.read_bytes()[:raw.stat().st_size // 2 * 2])
        return samples

    def start(self):
        """The station, as far as the file that it makes right before its first sound is asked for."""
        shutil.rmtree(self.folder / "Recursos", ignore_errors=True)
        subprocess.run([PROJECT / "scripts/install-data", self.folder], check=True)
        station = self.launch(STATION)
        self.wait_for((self.folder / "Recursos/Vintoral.XTR").exists)
        return station

    def test_the_start_is_heard_as_it_was_recorded(self):
        heard, wanted = loudness(self.recorded(self.start)), recording(1)
        alike, at = place(heard, wanted)
        self.assertGreater(alike, 0.8)
        # Alike may be any short sound: this one is as loud and as long.
        self.assertAlmostEqual(max(heard) / max(wanted), 1, delta=0.2)
        self.assertAlmostEqual(audible(heard) / audible(wanted), 1, delta=0.2)
        # Once, and nothing else.
        self.assertLess(max(heard[:at] + heard[at + len(wanted):]), max(wanted) / 20)

    def test_a_device_that_hangs_delays_nothing(self):
        self.server.send_signal(signal.SIGSTOP)
        station = self.start()
        time.sleep(1)  # by now the first sound hangs in the device
        began = time.monotonic()
        station.terminate()
        self.assertEqual(station.wait(20), 0)
        self.assertLess(time.monotonic() - began, 2)
        self.assertTrue((self.folder / "Recursos/Vintoral.DAT").exists())

    def test_a_station_without_a_sound_server_runs(self):
        self.server.kill()
        self.server.wait()
        station = self.start()
        time.sleep(1)
        self.assertIsNone(station.poll())
        station.terminate()
        self.assertEqual(station.wait(20), 0)


unittest.main()
