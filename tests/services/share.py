"""A real Samba server on a folder, and a mount of it."""
import os
import signal
import socket

import mounted
import trouble
from station import GREEN, Folder

PORT = 445  # of a network of the test's own, in which nothing else listens

SERVER = """
[global]
  server role = standalone server
  interfaces = 127.0.0.1
  bind interfaces only = yes
  smb ports = {port}
  disable netbios = yes
  map to guest = bad user
  guest account = {user}
  load printers = no
  disable spoolss = yes
  printcap name = /dev/null
  smb2 leases = no
  private dir = {own}/private
  lock directory = {own}/lock
  state directory = {own}/state
  cache directory = {own}/cache
  pid directory = {own}/pid
  ncalrpc dir = {own}/ncalrpc
  log file = {own}/log

[Multimedia]
  path = {share}
  read only = no
  guest ok = yes
  force user = {user}
  oplocks = no
  level2 oplocks = no
"""

CLIENT = """
[global]
  disable netbios = yes
  name resolve order = host
  client min protocol = SMB2
"""

# Bounds how long a server that has gone holds an operation up, and looks again soon.
MOUNT = """
include "smbnetfs.auth"
use_libsecret "false"
smb_query_browsers "false"
time_step 1
smb_timeout 2000
max_retry_count 1
"""


class Share(mounted.Launching):
    """Of a day whose self.folder.shared it serves."""

    def mount(self):
        """Serves self.folder.shared; the path behind the mount."""
        self.own = self.root / "samba"
        for name in ("private", "lock", "state", "cache", "pid", "ncalrpc"):
            (self.own / name).mkdir(parents=True)
        (self.own / "smb.conf").write_text(SERVER.format(port=PORT, own=self.own, share=self.folder.shared, user="root"))
        self.come_back()

        home = self.root / "home"
        (home / ".smb").mkdir(parents=True)
        for name, text in (("smb.conf", CLIENT), ("smbnetfs.conf", MOUNT), ("smbnetfs.auth", 'auth "nobody" "nobody"\n')):
            file = home / ".smb" / name
            file.write_text(text)
            file.chmod(0o600)  # smbnetfs reads no settings that others can read
        point = self.root / "Portería"
        point.mkdir()
        log = self.enterContext(open(self.root / "smbnetfs.log", "ab"))
        # Nothing of the data is kept on this side: the other gate writes them too.
        fresh = "direct_io,attr_timeout=0,entry_timeout=0,negative_timeout=0"
        self.launch("smbnetfs", str(point), "-f", "-o", fresh, stdout=log, stderr=log, env={**os.environ, "HOME": str(home)})
        self.addCleanup(trouble.unmount, point)
        mounted.wait_for("mount of smbnetfs", lambda: os.path.ismount(point))
        return point / "127.0.0.1" / "Multimedia"

    def break_off(self):
        """Kills the server with the children that serve its connections."""
        os.killpg(self.server.pid, signal.SIGKILL)
        self.server.wait()

    def come_back(self):
        log = self.enterContext(open(self.own / "smbd.log", "ab"))
        self.server = self.launch("smbd", "--foreground", "--no-process-group", "--debug-stdout",
                                  f"--configfile={self.own / 'smb.conf'}", stdout=log, stderr=log)
        mounted.wait_for("Samba server", self.listening)

    def listening(self):
        with socket.socket() as probe:
            return probe.connect_ex(("127.0.0.1", PORT)) == 0


class SharedSite(Share, trouble.Trouble):
    """Three gates: the main one in the folder itself, the others behind the mount."""

    def setUp(self):
        super().setUp()
        self.folder.shared.mkdir(parents=True)
        self.gates = {1: self.running(self.folder)}
        path = self.mount()
        mounted.wait_for("register behind the mount", (path / "Vintoral.ACT").is_file)
        for number in (2, 3):
            other = Folder(self.root / f"P0{number}")
            other.write("Objetos/Servidor.INI", f"{path}\n".encode())
            self.gates[number] = self.running(other)
            self.assertBars(self.gates[number], GREEN)
