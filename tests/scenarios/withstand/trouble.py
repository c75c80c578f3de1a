"""What the tests of damage and failure share: where they put their files, mounts of their own, and the laws of the files."""
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1]))

import station  # noqa: E402  (found through the line above)

# Thousands of short days: in memory, where a synced write costs nothing. Damage looks the same there.
if os.access("/dev/shm", os.W_OK):
    tempfile.tempdir = "/dev/shm"

PAGE = os.sysconf("SC_PAGE_SIZE")
MIXED_RECORDS = 16
LEGAL_MULTIPLE = {"ACT": 188, "HST": 188, "NSR": 188, "CRD": 188, "USR": 124, "LBL": 132}


def own_mounts(*more):
    """Runs this program again with mounts of its own, which end with it; returns in that second run.

    `more` are further kinds of separation of unshare(1). A user who is not root gets them inside a user namespace.
    """
    if os.environ.get("VINTORAL_OWN_MOUNTS") == "1":
        return
    root = [] if os.geteuid() == 0 else ["--map-root-user"]
    command = ["unshare", *root, "--mount", "--propagation", "private", *more, "--",
               sys.executable, "-B", *sys.argv]
    os.execvpe("unshare", command, {**os.environ, "VINTORAL_OWN_MOUNTS": "1"})


def mount(*arguments):
    subprocess.run(["mount", *arguments], check=True)


def unmount(path):
    subprocess.run(["umount", "--lazy", str(path)], check=False, stderr=subprocess.DEVNULL)


def some(lengths):
    """All of them, or where the sanitizers make each day long, every so manieth."""
    return list(lengths)[::int(os.environ.get("VINTORAL_EVERY", "1"))]


def scrambled(data, dice, rounds):
    """Damage of each kind once a round: all of it noise, or a few bytes, or a piece moved, or too much of it."""
    for _ in rounds:
        yield dice.randbytes(len(data))
        few = bytearray(data)
        for _ in range(dice.randrange(1, 40)):
            few[dice.randrange(len(few))] = dice.randrange(256)
        yield bytes(few)
        at = dice.randrange(len(data))
        yield data[at:] + data[:at]
        yield data + dice.randbytes(dice.randrange(1, 1000))


class Trouble(station.DrivenDay):
    """A driven day on which things go wrong: operations may be refused, but every one is answered, and soon."""

    def legal(self, folder, act_length=station.ACT_LENGTH, state=MIXED_RECORDS * station.MIXED_LENGTH):
        """Asserts that every register present has a length that its records can give."""
        for name, size in LEGAL_MULTIPLE.items():
            file = folder / f"Multimedia/Vintoral.{name}"
            if file.exists():
                self.assertEqual(file.stat().st_size % size, 0, f"{name} has {file.stat().st_size} bytes")
        if act_length is not None:
            self.assertEqual((folder / "Multimedia/Vintoral.ACT").stat().st_size, act_length)
        labels = folder / "Multimedia/Vintoral.LBL"
        if labels.exists():
            self.assertEqual(labels.stat().st_size, station.LABELS.size)
        screen = folder / "Recursos/Vintoral.DAT"
        if state is not None and screen.exists():
            self.assertEqual(screen.stat().st_size, state)

    def answer_all(self, gate, button="yes"):
        """Answers whatever boxes stand there, the confirming way; a station may not ask for ever."""
        for _ in range(6):
            if not gate.reply["waiting"]:
                return gate.reply
            buttons = gate.reply["waiting"]["box"]["buttons"]
            gate.do("answer", button=button if button in buttons else buttons[0])
        self.fail(f"boxes without end: {gate.reply}")

    def ended(self, gate):
        return any(event["event"] == "end" for event in gate.reply["events"])

    def settle(self, gate):
        """Back to the idle screen, from wherever the station stands."""
        self.answer_all(gate, "no")
        gate.key(station.ESC)
        gate.key(station.ESC)

    def try_call_up(self, gate, number):
        """Calls a number up; "new", "inside", or None when the screen shows neither."""
        gate.focus("TxtCampo(0)")
        gate.set("TxtCampo(0)", str(number))
        gate.enter()
        save, retire = gate.get("PctBoton(5)", "PctBoton(6)")
        return "new" if save["Visible"] else "inside" if retire["Visible"] else None

    def try_save(self, gate, number, plate):
        """Saves as far as the station goes along; True when it took the answer to its confirmation and is idle again."""
        if self.try_call_up(gate, number) != "new":
            self.settle(gate)
            return False
        gate.set("TxtCampo(1)", plate)
        gate.key(station.INSERT)
        return self._confirm(gate, station.CONFIRM_SAVE)

    def try_retire(self, gate, number):
        if self.try_call_up(gate, number) != "inside":
            self.settle(gate)
            return False
        gate.key(station.DELETE)
        return self._confirm(gate, station.CONFIRM_RETIRE)

    def _confirm(self, gate, expected):
        asked = gate.box is not None and gate.box["title"] == expected["title"]
        self.answer_all(gate)
        idle = not gate.get("TxtCampo(0)")["Locked"]
        if not idle:
            self.settle(gate)
        return asked and idle

    def try_close(self, gate):
        gate.do("close")
        self.answer_all(gate)
        if gate.reply["events"] and self.ended(gate):
            return True
        return False

    def rows(self, folder, register="HST"):
        """The whole rows of a register of fichas, whatever stands behind them."""
        data = (folder / f"Multimedia/Vintoral.{register}").read_bytes()
        whole = len(data) // station.RECORD.size * station.RECORD.size
        return [decoded(data[at:at + station.RECORD.size]) for at in range(0, whole, station.RECORD.size)]

    def row(self, folder, register, number):
        with open(folder / f"Multimedia/Vintoral.{register}", "rb") as file:
            file.seek((number - 1) * station.RECORD.size)
            return decoded(file.read(station.RECORD.size))

    def become_nobody(self):
        """The next drivers have a user id of their own, through a wrapper that the client starts as any other program."""
        wrapper = self.root / "as-nobody"
        program = self.root / "driver"  # where nobody can reach it
        shutil.copy(station.driver(), program)
        wrapper.write_text(f"#!/bin/sh\nexec setpriv --reuid=65534 --regid=65534 --clear-groups {program}\n")
        wrapper.chmod(0o755)
        self.root.chmod(0o755)
        given = os.environ["VINTORAL_DRIVER"]
        self.addCleanup(os.environ.__setitem__, "VINTORAL_DRIVER", given)
        os.environ["VINTORAL_DRIVER"] = str(wrapper)

    def give_away(self, path):
        if os.getuid() != 0:
            return
        for entry in [path, *pathlib.Path(path).rglob("*")]:
            os.chown(entry, 65534, 65534)


def decoded(record):
    """A record as it stands, each byte a character: damage holds bytes that Windows-1252 has no character for."""
    return station.Ficha(*(value.decode("latin-1").rstrip(" ") if isinstance(value, bytes) else value
                           for value in station.RECORD.unpack(record)))


def copy_station(source, target):
    """A fresh copy of a station's folder in place of the one at `target`."""
    if target.exists():
        shutil.rmtree(target)
    shutil.copytree(source, target)
    return station.Folder(target)


class SmallDisk(Trouble):
    """Days at a gate whose disk has so many pages and no more; a station takes about 60 of them."""
    PAGES = 256

    def setUp(self):
        super().setUp()
        self.disk = self.root / "disk"
        self.disk.mkdir()
        mount("-t", "tmpfs", "-o", f"size={self.PAGES * PAGE}", "tmpfs", str(self.disk))
        self.addCleanup(unmount, self.disk)
        self.folder = station.Folder(self.disk / "P01")

    def fill(self, leave=0):
        """Takes all pages of the disk but `leave`."""
        with open(self.disk / "filler", "ab", buffering=0) as filler:
            filler.truncate(0)
            free = os.statvfs(self.disk).f_bavail
            os.posix_fallocate(filler.fileno(), 0, (free - leave) * PAGE)
        self.assertEqual(os.statvfs(self.disk).f_bavail, leave)

    def empty(self):
        (self.disk / "filler").unlink(missing_ok=True)
