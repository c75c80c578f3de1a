"""The second gate works through a real Samba server, which is killed and comes back."""
import os

import mounted
import share
import trouble

DISK = 1 << 20  # of the shared folder: a station's data take a fifth


class Samba(share.Share, mounted.MountedFolder, trouble.Trouble):
    def prepare_data(self, folder):
        trouble.mount("-t", "tmpfs", "-o", f"size={DISK}", "tmpfs", str(folder))
        self.addCleanup(trouble.unmount, folder)

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
