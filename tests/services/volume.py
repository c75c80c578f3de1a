"""A site of three gates on a GlusterFS volume of three copies, made as the manual says, each gate on a machine of its own."""
import hashlib
import os
import pathlib
import shlex
import shutil
import tempfile
import time

import machines
import mounted
import trouble
from station import GREEN, Folder

GATE_VOLUME = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "gate-volume"
NAMES = {1: "porteria1", 2: "porteria2", 3: "porteria3"}
MOUNT, COPY = "/mnt/porterias", "/srv/porterias"
# As long as a copy that is back may take until it holds what the others do.
HEAL_SECONDS = 100
# What the volume says a machine that went silent may hold an operation up: as long as a lock that it had is kept for it, then
# as long as its copy is waited for; and as much as the rest of the operation takes. A gate that is alone waits for two copies.
LOCK_SECONDS, COPY_SECONDS, REST_SECONDS = 4, 5, 3
LONGEST_SECONDS = LOCK_SECONDS + COPY_SECONDS + REST_SECONDS
ALONE_SECONDS = 2 * COPY_SECONDS + REST_SECONDS
# A program that says nothing is found out by the second ping, and one gate may come to it only after another that had the lock.
PING_SECONDS = 5
HUNG_SECONDS = 4 * PING_SECONDS + REST_SECONDS


class Site(trouble.Trouble):
    """Days on a site that is made once for all tests of a class, each of which leaves it whole; the data are new for each.

    After a failure every test gets a site of its own.
    """

    names = NAMES  # of all machines; the volume is made on the first three
    site, home = None, None

    def setUp(self):
        super().setUp()
        self.gates = {}
        self.holders = list(NAMES)  # the machines that have a copy
        if self.site is None:
            self.make_site()
        else:
            self.heal()
        self.data = self.site[1].path(f"{MOUNT}/Multimedia")
        self.clear_away()

    def make_site(self):
        kind = type(self)
        kind.home = pathlib.Path(tempfile.mkdtemp(prefix="vintoral-site-"))
        kind.site = machines.site(kind.home, self.names)
        for machine in self.site.values():
            machine.start_glusterd()
        self.volume(1, "--yes", "make", *NAMES.values())
        for number in NAMES:
            self.write_fstab(self.site[number])
            self.mount(self.site[number])

    def clear_away(self):
        """What the test before has left: its data and its stations."""
        for machine in self.site.values():
            shutil.rmtree(machine.home / "Vintoral")
            (machine.home / "Vintoral").mkdir()
        if self.data.exists():
            shutil.rmtree(self.data)
        self.data.mkdir()
        self.data.chmod(0o777)

    @classmethod
    def end_site(cls):
        if cls.home:
            for machine in (cls.site or {}).values():
                machine.end()
            shutil.rmtree(cls.home, ignore_errors=True)
        cls.site, cls.home = None, None

    @classmethod
    def tearDownClass(cls):
        cls.end_site()
        super().tearDownClass()

    def run(self, result=None):
        done = super().run(result)
        if done and not done.wasSuccessful():
            self.end_site()
        return done

    # ---- The volume ----

    def volume(self, number, *arguments, expected=0, **more):
        """scripts/gate-volume on one machine; what it printed."""
        done = self.site[number].run(GATE_VOLUME, *arguments, seconds=200, check=False, **more)
        self.assertEqual(done.returncode, expected, f"{arguments}: {done.stdout}{done.stderr}")
        return done.stdout + done.stderr

    def write_fstab(self, machine):
        """The line that the script gives for this machine."""
        said = self.volume(machine.number, "--yes", "make", *NAMES.values())
        line, = [line for line in said.splitlines() if " glusterfs " in line]
        (machine.home / "fstab").write_text(line + "\n")

    def mount(self, machine):
        self.assertIn("Mounting", self.volume(machine.number, "mount"))
        self.assertEqual(self.volume(machine.number, "mount"), "")

    def heal(self):
        """Until the script says that all is in order."""
        limit = time.monotonic() + HEAL_SECONDS
        while (done := self.site[1].run(GATE_VOLUME, "check", seconds=200, check=False)).returncode != 0:
            self.assertLess(time.monotonic(), limit, done.stdout + done.stderr)
            time.sleep(0.5)

    def contents(self, machine):
        """What its copy holds: each file with what it says."""
        folder = machine.home / COPY.strip("/")
        return {str(file.relative_to(folder)): hashlib.sha256(file.read_bytes()).hexdigest()
                for file in folder.rglob("*") if file.is_file() and ".glusterfs" not in file.parts}

    def assertCopiesEqual(self):
        self.heal()
        first, second, third = [self.contents(self.site[number]) for number in self.holders]
        self.assertIn("Multimedia/Vintoral.HST", first)
        self.assertEqual(first, second)
        self.assertEqual(first, third)

    def kill_copy(self, number):
        """Its program dies, and the service that would start it again."""
        machine = self.site[number]
        self.assertEqual(machine.kill("glusterd --no-daemon"), 1)
        self.assertEqual(machine.kill("glusterfsd"), 1)

    def come_back(self, number):
        self.site[number].start_glusterd()

    # ---- The gates ----

    def open_gate(self, number):
        """A station on the machine of this number; the first one is the main gate, whose data are a link."""
        folder = Folder(self.site[number].home / "Vintoral")
        if number == 1:
            link = folder.shared
            if not link.is_symlink():
                link.symlink_to(f"{MOUNT}/Multimedia")
        else:
            folder.write("Objetos/Servidor.INI", f"{MOUNT}/Multimedia\n".encode())
        self.gates[number] = self.running_in(self.site[number], folder)
        return self.gates[number]

    def running_in(self, machine, folder):
        wrapper = machine.home / "driver"
        wrapper.write_text(f"#!/bin/sh\nexec {shlex.join(machine.inside(os.environ['VINTORAL_DRIVER']))}\n")
        wrapper.chmod(0o755)
        given = os.environ["VINTORAL_DRIVER"]
        os.environ["VINTORAL_DRIVER"] = str(wrapper)
        try:
            return self.running(folder)
        finally:
            os.environ["VINTORAL_DRIVER"] = given

    def open_all(self):
        gates = [self.open_gate(number) for number in self.site]
        for gate in gates:
            self.assertBars(gate, GREEN)
        return gates
