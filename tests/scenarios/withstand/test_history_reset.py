"""The reset of the history where it can't be done, and one that is killed on the way: a history and its photos go together."""
import os
import random
import tempfile
import time

import trouble
import photos  # noqa: E402  (trouble has told where the scenarios are)
from reports import TODAY, ReportDay, gone
from station import BLANK, kinds, sounds

SEED = 62
PHOTOS = 40  # of each folder
RUNS = int(os.environ.get("VINTORAL_KILLS", "300")) // 6
RESET = "Sonidos\\Vintoral-3.wav"


class Reset(trouble.Trouble, ReportDay):
    def prepare(self):
        """A folder with a history, a photo of each row, and more photos of each."""
        picture = photos.photo()
        for row in range(2, PHOTOS + 2):
            self.folder.write(f"Multimedia/Imágenes HST/{row:06}.jpg", picture)
            self.folder.write(f"Multimedia/Imágenes DTL/OUT{row}0001/0001-1.jpg", picture)
        self.folder.write("Multimedia/Imágenes ACT/000001.jpg", picture)
        return [gone(row, 1, ("10:00", TODAY), f"OUT{row}", 1) for row in range(2, PHOTOS + 2)]

    def left(self, kind):
        return len(list((self.folder.shared / f"Imágenes {kind}").rglob("*.jpg")))

    def out_of_sight(self, kind):
        return self.folder.shared / f"Imágenes {kind} (borrar)"

    def reset(self, gate):
        self.menu(gate)
        gate.do("select", control="Form5.LstMenu", text="  Reiniciar Historial")
        gate.answer("yes")
        return gate.answer("yes")


class Refused(Reset):
    def test_a_history_that_stays_keeps_its_photos(self):
        rows = self.prepare()
        self.day(*rows).end()
        (self.root / "P01-desktop").chmod(0o777)
        self.become_nobody()
        self.give_away(self.folder.path)
        gate = self.running()
        before = self.folder.all_bytes()
        self.folder.shared.chmod(0o555)
        self.addCleanup(self.folder.shared.chmod, 0o755)
        reply = self.reset(gate)
        self.assertEqual((kinds(reply), reply["waiting"]), (["beep"], {"form": "Form5"}))
        self.assertEqual(self.folder.all_bytes(), before)
        self.folder.shared.chmod(0o755)
        gate.do("select", control="Form5.LstMenu", text="  Reiniciar Historial")
        gate.answer("yes")
        self.assertEqual(sounds(gate.answer("yes")), [RESET])
        self.assertEqual((self.folder / self.HISTORY).read_bytes(), BLANK.encode())


class Killed(Reset):
    def test_what_is_left_is_cleared_by_the_next(self):
        """Killed somewhere behind the last word: the next start has a history, and its reset leaves nothing behind."""
        dice = random.Random(SEED)
        halves = untouched = 0
        for run in range(RUNS):
            with self.subTest(run=run):
                rows = self.prepare()
                gate = self.day(*rows)
                self.menu(gate)
                gate.do("select", control="Form5.LstMenu", text="  Reiniciar Historial")
                gate.answer("yes")
                gate.send_line(b'{"op":"answer","button":"yes"}')
                time.sleep(max(0.0, dice.random() * 0.004 - 0.001))
                gate.process.kill()
                gate.end()
                file = self.folder / self.HISTORY
                size = file.stat().st_size if file.exists() else 0
                if size == len(BLANK.encode()) * (len(rows) + 1):
                    # Not begun: all is as it was.
                    untouched += 1
                    self.assertEqual((self.left("HST"), self.left("DTL")), (PHOTOS, PHOTOS))
                else:
                    self.assertIn(size, (0, len(BLANK.encode())))
                    halves += any(self.left(kind) or self.out_of_sight(kind).exists() for kind in ("HST", "DTL"))
                gate = self.running()
                self.assertEqual(sounds(self.reset(gate)), [RESET])
                self.assertEqual(file.read_bytes(), BLANK.encode())
                self.assertEqual((self.left("HST"), self.left("DTL"), self.left("ACT")), (0, 0, 1))
                gate.key(27)
                gate.close()
                self.assertEqual([kind for kind in ("HST", "DTL") if self.out_of_sight(kind).exists()], [])
                gate.end()
        self.assertGreater(halves, 0, "no kill has found a reset at work")
        print(f"{RUNS} kills: {untouched} before a reset, {halves} in the middle of one")


if __name__ == "__main__":
    # Real deletions take long enough to be hit.
    tempfile.tempdir = None
    trouble.station.main()
