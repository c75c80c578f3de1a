"""The second gate works through a FUSE file system, which is unmounted, killed, and stands still for a while."""
import os
import signal
import subprocess
import threading
import time

import lock
import mounted
import trouble
from station import CONFIRM_RETIRE, DELETE


class Fuse(mounted.MountedFolder, trouble.Trouble):
    def mount(self):
        self.point = self.root / "Portería"
        self.point.mkdir()
        self.addCleanup(trouble.unmount, self.point)
        self.come_back()
        return self.point

    def come_back(self):
        log = self.enterContext(open(self.root / "bindfs.log", "ab"))
        self.file_system = self.launch("bindfs", "-f", str(self.folder.shared), str(self.point), stdout=log, stderr=log)
        mounted.wait_for("mount of bindfs", lambda: os.path.ismount(self.point))

    def break_off(self):
        """Takes the mount away under the files that are open."""
        subprocess.run(["umount", "--lazy", str(self.point)], check=True)

    def test_a_departure_waits_for_a_folder_that_stands_still(self):
        """A network that hangs: the operation waits with it, and is carried out when it goes on."""
        self.assertTrue(self.try_save(self.second, 501, "SLOW"))
        self.asked(self.second, 501, DELETE, CONFIRM_RETIRE)
        self.file_system.send_signal(signal.SIGSTOP)
        again = threading.Timer(2, self.file_system.send_signal, (signal.SIGCONT,))
        again.start()
        self.addCleanup(again.join)
        began = time.monotonic()
        self.second.answer("yes")
        self.assertGreater(time.monotonic() - began, 1)
        self.assertEqual([row.Placa for row in self.folder.history()], ["SLOW"])
        self.assertEqual(self.inside(), {})

    def test_a_departure_waits_for_the_gate_that_writes_its_row(self):
        """Longer than on a disk: whoever has the lock may be waiting for the server itself."""
        held_seconds = 2
        self.assertTrue(self.try_save(self.second, 501, "WAITS"))
        self.asked(self.second, 501, DELETE, CONFIRM_RETIRE)
        with open(self.point / "Vintoral.HST", "r+b") as other:
            lock.append(other)
            again = threading.Timer(held_seconds, other.close)
            again.start()
            began = time.monotonic()
            self.second.answer("yes")
            again.join()
        self.assertGreater(time.monotonic() - began, held_seconds - 0.1)
        self.assertEqual([row.Placa for row in self.folder.history()], ["WAITS"])


class KilledFuse(Fuse):
    def break_off(self):
        """The file system dies and leaves its mount behind, which answers with errors."""
        self.file_system.kill()
        self.file_system.wait()
        mounted.wait_for("end of what the kernel remembers", lambda: not os.path.exists(self.point / "Vintoral.ACT"))

    def come_back(self):
        subprocess.run(["umount", "--lazy", str(self.point)], check=False, stderr=subprocess.DEVNULL)
        super().come_back()


if __name__ == "__main__":
    mounted.separate()
    trouble.station.main()
