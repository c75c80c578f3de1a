"""The second gate works through a real Samba server, which is killed and comes back."""
import os
import signal
import socket

import mounted
import trouble

PORT = 445  # of a network of the test's own, in which nothing else listens
DISK = 1 << 20  # of the shared folder: a station's data take a fifth

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


class Samba(mounted.MountedFolder, trouble.Trouble):
    def prepare_data(self, folder):
        trouble.mount("-t", "tmpfs", "-o", f"size={DISK}", "tmpfs", str(folder))
        self.addCleanup(trouble.unmount, folder)

    def mount(self):
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

    def test_departures_until_the_servers_disk_is_full(self):
        """Each ficha is either still inside or in the history, though this mount can't set room aside for a row."""
        numbers = range(501, 541)
        for number in numbers:
            self.assertTrue(self.try_save(self.second, number, f"N{number}"))
        with open(self.folder.shared / "filler", "wb") as filler:
            stats = os.statvfs(self.folder.shared)
            os.posix_fallocate(filler.fileno(), 0, stats.f_bavail * stats.f_frsize)
        taken = [number for number in numbers if self.try_retire(self.second, number)]
        rows = [row.Placa for row in self.rows(self.folder)[1:]]
        self.assertEqual(rows, [f"N{number}" for number in taken])
        self.assertEqual(sorted(self.inside()), [number for number in numbers if number not in taken])
        self.assertLess(len(taken), len(numbers))
        os.unlink(self.folder.shared / "filler")
        for number in sorted(self.inside()):
            self.assertTrue(self.try_retire(self.second, number))
        self.assertEqual(sorted(row.Placa for row in self.folder.history()), [f"N{number}" for number in numbers])
        self.legal(self.folder)


if __name__ == "__main__":
    mounted.separate()
    trouble.station.main()
