"""A folder whose files are damaged one after the other, each time from the same good ones."""
import random

import trouble
from station import Folder

SEED = 4711
SCRAMBLES = 15


class DamagedFolder(trouble.Trouble):
    """What a folder holds is told by `intact()`: bytes by name."""

    def intact(self):
        raise NotImplementedError

    def setUp(self):
        super().setUp()
        self.dice = random.Random(SEED)
        self.gate = self.process()
        self.original = self.root / "original"
        for name, data in self.intact().items():
            Folder(self.original).write(name, data)
        (self.root / "P01-desktop").mkdir()
        # All that a first start adds is there already, so that each of the many starts does only what the day needs.
        self.start(self.gate, Folder(self.original))
        self.answer_all(self.gate, "ok")
        for name, data in self.intact().items():
            self.assertEqual((self.original / name).read_bytes(), data, f"a start changed {name}")
        self.files = Folder(self.original).all_bytes()

    def fresh(self):
        """The folder with all its files as they were; made anew only where something else than files changed."""
        kept = self.folder.all_bytes() if self.folder.path.exists() else {}
        if set(kept) != set(self.files):
            return trouble.copy_station(self.original, self.folder.path)
        for name, data in self.files.items():
            if kept[name] != data:
                self.folder.write(name, data)
        return self.folder

    def scrambled(self, data):
        return trouble.scrambled(data, self.dice, range(SCRAMBLES))
