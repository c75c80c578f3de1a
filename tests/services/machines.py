"""Machines of a site, each a set of namespaces: a network, mounts and a name of its own, joined by a wire from each to each.

Nothing of this machine's own is touched: what they start and mount lives in them, and all of it ends with this program.
"""
import contextlib
import glob
import os
import pathlib
import signal
import subprocess
import sys
import tempfile

import mounted
import trouble

ADDRESS = "192.0.2.{}"  # of those that are kept for documentation: no machine outside can have one
SKIPPED = 77  # what CTest is told for a test that this machine can't do
# What glusterd starts a dozen times before it answers, for seconds of processor time: a part of it that nobody here uses.
UNUSED_PART = "/usr/lib/*/glusterfs/gsyncd"
IN_ITS_PLACE = '#!/bin/sh\n[ "$1" != --version ] || echo gsyncd\n'
# Of a machine that has died the services learn after seconds, not after half a minute.
SETTINGS = "/etc/glusterfs/glusterd.vol"
SOON = {"transport.socket.keepalive-time": 2, "transport.socket.keepalive-interval": 1, "transport.socket.keepalive-count": 2,
        "transport.tcp-user-timeout": 4}


def separate(*programs):
    """As mounted.separate, with a PID and a network namespace; where that can't be had it says so and ends.

    A program that is missing is no reason to skip: scripts/test installs them all.
    """
    missing = [program for program in programs if not any(
        os.access(pathlib.Path(folder) / program, os.X_OK) for folder in os.environ["PATH"].split(":") + ["/usr/sbin", "/sbin"])]
    if missing:
        sys.exit(f"These programs are missing: {', '.join(missing)}")
    if os.environ.get("VINTORAL_OWN_MOUNTS") == "1":
        mounted.separate()
        return gather_the_dead()
    if os.geteuid() != 0:
        skip("GlusterFS marks its files with attributes that only root may set")
    for device in ("/dev/fuse", "/dev/net/tun"):
        with or_skip(f"{device} can't be had here"):
            os.close(os.open(device, os.O_RDWR))
    with or_skip("GlusterFS marks its files with attributes that can't be had here"), tempfile.NamedTemporaryFile() as marked:
        os.setxattr(marked.name, "trusted.vintoral", b"")
    tried = subprocess.run(["unshare", "--net", "--mount", "--uts", "--pid", "--fork", "ip", "link", "add", "try0", "type", "veth"],
                           capture_output=True, text=True, check=False)
    if tried.returncode != 0:
        skip(f"no namespaces with wires between them here: {tried.stderr.strip()}")
    return mounted.separate()


def gather_the_dead():
    """Goes on in a child; this process, the first of its namespace, only takes note of what ends in it.

    A service that has been killed would otherwise be looked upon as running: its number is still in use.
    """
    child = os.fork()
    if child == 0:
        return
    while True:
        ended, status = os.wait()
        if ended == child:
            sys.exit(os.waitstatus_to_exitcode(status) % 256)


@contextlib.contextmanager
def or_skip(what):
    try:
        yield
    except OSError as why:
        skip(f"{what}: {why}")


def skip(why):
    print(f"SKIPPED: {why}", file=sys.stderr)
    sys.exit(SKIPPED)


class Machine:
    """One of them. Its folder `home` holds what a machine's own disk would: /srv, /var/lib/glusterd, the logs, /etc/hosts."""

    def __init__(self, number, home, names):
        self.number, self.home, self.names = number, home, names
        self.name, self.address = names[number], ADDRESS.format(number)
        self.glusterd = None
        self.keeper = subprocess.Popen(
            ["unshare", "--net", "--mount", "--uts", "--propagation", "private", "--", "sleep", "infinity"],
            stdin=subprocess.DEVNULL)
        mounted.wait_for(self.name, self._apart)
        self._furnish()

    def _apart(self):
        return pathlib.Path(f"/proc/{self.keeper.pid}/comm").read_text().strip() == "sleep"

    def _furnish(self):
        for name in ("srv", "glusterd", "log", "Vintoral"):
            (self.home / name).mkdir(parents=True)
        (self.home / "hosts").write_text("127.0.0.1 localhost\n" + "".join(
            f"{ADDRESS.format(number)} {name}\n" for number, name in self.names.items()))
        (self.home / "fstab").write_text("")
        for source, target in (("srv", "/srv"), ("glusterd", "/var/lib/glusterd"), ("log", "/var/log/glusterfs"),
                               ("hosts", "/etc/hosts"), ("fstab", "/etc/fstab")):
            self.run("mount", "--bind", self.home / source, target)
        self._furnish_the_service()
        for place in ("/run", "/mnt"):
            self.run("mount", "-t", "tmpfs", "-o", "mode=755", "tmpfs", place)
        self.run("mkdir", "/run/gluster")
        self.run("hostname", self.name)
        self.run("ip", "link", "set", "lo", "up")
        self.run("ip", "address", "add", f"{self.address}/32", "dev", "lo")

    def _furnish_the_service(self):
        stand_in = self.home / "gsyncd"
        stand_in.write_text(IN_ITS_PLACE)
        stand_in.chmod(0o755)
        for unused in glob.glob(UNUSED_PART):
            self.run("mount", "--bind", stand_in, unused)
        own = [line for line in pathlib.Path(SETTINGS).read_text().splitlines() if not any(name in line for name in SOON)]
        soon = [f"    option {name} {value}" for name, value in SOON.items()]
        at = own.index("end-volume")
        (self.home / "glusterd.vol").write_text("\n".join([*own[:at], *soon, *own[at:], ""]))
        self.run("mount", "--bind", self.home / "glusterd.vol", SETTINGS)

    def inside(self, *command):
        """A command line that runs in this machine."""
        return ["nsenter", f"--target={self.keeper.pid}", "--net", "--mount", "--uts", "--", *map(str, command)]

    def run(self, *command, seconds=60, check=True, **more):
        done = subprocess.run(self.inside(*command), capture_output=True, text=True, timeout=seconds, check=False,
                              **{"stdin": subprocess.DEVNULL, **more})
        if check and done.returncode != 0:
            raise RuntimeError(f"{self.name}: {' '.join(map(str, command))}: {done.stdout}{done.stderr}")
        return done

    def path(self, path):
        """A path of this machine as this program sees it."""
        return pathlib.Path(f"/proc/{self.keeper.pid}/root{path}")

    # ---- What runs in it ----

    def processes(self, word=""):
        """The ids of its programs, those whose command line has `word`."""
        own = os.readlink(f"/proc/{self.keeper.pid}/ns/net")
        found = []
        for entry in pathlib.Path("/proc").iterdir():
            try:
                if entry.name.isdigit() and os.readlink(entry / "ns/net") == own and int(entry.name) != self.keeper.pid:
                    if word in (entry / "cmdline").read_text().replace("\0", " "):
                        found.append(int(entry.name))
            except OSError:
                pass  # it has just ended
        return found

    def kill(self, word):
        """Ends its programs whose command line has `word`, at once and without their doing; how many."""
        found = self.processes(word)
        for number in found:
            os.kill(number, signal.SIGKILL)
        mounted.wait_for(f"end of {word}", lambda: not set(found) & set(self.processes(word)))
        return len(found)

    def start_glusterd(self):
        if self.glusterd:
            self.glusterd.wait()  # the one that was killed
        log = open(self.home / "log/glusterd.out", "ab")
        self.glusterd = subprocess.Popen(self.inside("glusterd", "--no-daemon", "--log-level", "WARNING"),
                                         stdin=subprocess.DEVNULL, stdout=log, stderr=log)
        log.close()
        mounted.wait_for(f"glusterd of {self.name}", lambda: self.run("gluster", "pool", "list", check=False).returncode == 0, 60)

    def cut_off(self):
        """Pulls all its wires at once: the others hear nothing more of it, not even that it has gone."""
        self.run("sh", "-c", "; ".join(f"ip link set {wire(self.number, other)} down" for other in self.names if other != self.number))

    def plug_in(self):
        for other in self.names:
            if other != self.number:
                self.run("ip", "link", "set", wire(self.number, other), "up")
                self.run("ip", "route", "replace", ADDRESS.format(other), "dev", wire(self.number, other), "src", self.address)

    def power_off(self):
        self.cut_off()
        self.kill("")
        self.run("umount", "--recursive", "--lazy", "/mnt/porterias", check=False)
        self.run("sh", "-c", "rm -rf /run/*; mkdir /run/gluster")

    def end(self):
        try:
            self.kill("")
        finally:
            for process in (self.glusterd, self.keeper):
                if process:
                    process.kill()
                    process.wait()


def wire(one, other):
    return f"wire{one}{other}"


def site(root, names):
    """A machine for each of `names` (number: name), wired together."""
    machines = {number: Machine(number, root / name, names) for number, name in names.items()}
    for one in machines:
        for other in machines:
            if one < other:
                subprocess.run(["ip", "link", "add", wire(one, other), "netns", str(machines[one].keeper.pid), "type", "veth",
                                "peer", "name", wire(other, one), "netns", str(machines[other].keeper.pid)], check=True)
    for machine in machines.values():
        machine.plug_in()
    return machines
