"""How often a saving and a departure ask something of the folder: on a server each time is a trip that the queue waits for.

The folder is a mount that counts, and that remembers nothing of names or rights, as that of a volume.
"""
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))

import mounted  # noqa: E402  (found through the line above)
import trouble  # noqa: E402
from hanging import HangingFolder, skip_without_fuse  # noqa: E402
from station import DELETE, GREEN, INSERT, Folder  # noqa: E402

INSIDE = 10

# What the kernel asks on the way to a file: the rights of the mount, the data folder's name and rights, the file's name and rights.
FILE = 5
# To a photo that is missing: folder and rights of its folder besides, and no rights of its own.
PHOTO = 6
# The photos of the grid: their folder once, then its rights and a name for each.
GRID, CELL = 4, 2


class Trips(trouble.Trouble):
    def setUp(self):
        super().setUp()
        main = self.running()
        for number in range(1, INSIDE + 1):
            main.save(number, f"IN{number}")
        (self.root / "point").mkdir()
        self.counting = self.enterContext(HangingFolder(self.folder.path, self.root / "point"))
        other = Folder(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.root / 'point/Multimedia'}\r\n".encode())
        self.gate = self.running(other)
        self.assertBars(self.gate, GREEN)
        self.save(501, "WARM")  # makes what is still missing
        self.retire(501)

    def save(self, number, plate):
        self.assertEqual(self.try_call_up(self.gate, number), "new")
        self.gate.set("TxtCampo(1)", plate)
        self.gate.key(INSERT)
        self.gate.answer("yes")
        self.assertTrue(self.folder.slot(number).EnUso)

    def retire(self, number):
        self.assertEqual(self.try_call_up(self.gate, number), "inside")
        self.gate.key(DELETE)
        self.gate.answer("yes")
        self.assertFalse(self.folder.slot(number).EnUso)

    def assertTrips(self, work, **most):
        before = self.counting.counts()
        work()
        trips = {kind: count - before[kind] for kind, count in self.counting.counts().items()}
        self.assertGreater(trips["write"], 0, "the mount doesn't count")
        for kind, count in trips.items():
            self.assertLessEqual(count, most.get(kind, 0), f"{kind} of {trips}")

    def test_a_saving_and_a_departure(self):
        # Neither slot nor row lies across two pages, which would take a write more.
        # A new plate. Opened: ACT for the slot, for who is inside, for the slot before and behind the question, to write it, for the
        # grid; USR to look for the plate, to add it; NSR. ACT as a whole takes two reads.
        opened, lengths = 9, 4  # USR twice, NSR, ACT
        looks = 2 * FILE + opened * FILE + lengths + PHOTO + GRID + CELL * (INSIDE + 1)
        self.assertTrips(lambda: self.save(503, "NEW"), open=opened, read=8, write=3, sync=3, lock=2, stat=looks)
        # Opened: ACT for the slot, behind the question, to free it, for the grid; HST for its room and for the row; CDB; USR for the
        # points to show, those of the row, and to add them; CRD. The photos of the ficha twice, of its details, user and row.
        opened, lengths = 11, 5  # HST three times, USR, CRD
        looks = 2 * FILE + opened * FILE + lengths + 5 * PHOTO + GRID + CELL * INSIDE
        self.assertTrips(lambda: self.retire(503), open=opened, read=9, write=4, sync=4, lock=6, stat=looks)


if __name__ == "__main__":
    skip_without_fuse()
    mounted.separate()
    trouble.station.main()
