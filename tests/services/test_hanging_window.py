"""The real program on a real screen while its data folder hangs: it says so, paints, keeps what is typed, and can be closed.

With VINTORAL_PICTURES in the environment, the folder that the picture of the line goes to.
"""
import os
import pathlib
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

sys.path[:0] = [str(pathlib.Path(__file__).resolve().parents[1] / name) for name in ("support", "scenarios")]

import mounted  # noqa: E402  (found through the line above)
import screen  # noqa: E402
import trouble  # noqa: E402
from hanging import HangingFolder, skip_without_fuse  # noqa: E402
from screen import COVER, HEIGHT, PIXEL, WIDTH, Screen, changes  # noqa: E402
from station import Folder  # noqa: E402

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PROGRAM = os.environ["VINTORAL_STATION"]
HANG_SECONDS = 30
GONE_SECONDS = 2
LINK_SECONDS = 4  # until the bars of the link are green
COVERS = 20
POINTER, CARET = 24, 2  # pixels that they are wide at the most
BUTTON = (180, 27)  # search
NUMBER, OTHER = 7, 12
COVER_PIXEL = COVER.to_bytes(PIXEL, "little")


class HangingWindow(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory(prefix="vintoral-window-")))
        self.screen = self.enterContext(Screen(self.root / "screen"))
        (self.screen.home / "Desktop/Vintoral.desktop").write_text("")  # no welcome to answer
        self.station = self.screen.home / "Vintoral"
        for name in ("Multimedia", "Recursos"):
            (self.station / name).mkdir(parents=True)
        (self.station / "Recursos/Vintoral.RLD").touch()  # starts beside a station that runs on this machine
        subprocess.run([PROJECT / "scripts/install-data", self.station], check=True)
        # As it is on the disk behind, whatever hangs.
        self.behind = Folder(self.root / "behind")
        self.behind.shared.mkdir(parents=True)
        self.hanging = self.enterContext(HangingFolder(self.behind.shared, self.station / "Multimedia"))
        self.start()

    def start(self):
        """Up to the idle screen, its link green."""
        self.program = self.screen.launch(PROGRAM, cwd=self.station)
        self.screen.wait(lambda: self.screen.shows("^Vintoral"), "window")
        self.screen.point(0, HEIGHT - 1)
        time.sleep(LINK_SECONDS)

    # ---- Hands ----

    def asked(self, number, plate):
        """Up to the question whether it is to be saved."""
        self.screen.type(str(number), plate)
        self.question("Insert")

    def question(self, key):
        """Up to the one that the key asks."""
        self.screen.keys(key)
        self.screen.wait(lambda: self.screen.shows("Confirmar"), "question")
        time.sleep(0.2)

    def confirm(self, key):
        self.question(key)
        self.screen.keys("Return")

    def save(self, number, plate):
        self.asked(number, plate)
        self.screen.keys("Return")
        self.screen.wait(lambda: self.plate(number) == plate.upper(), f"{number} in the register")
        self.screen.wait(lambda: not self.screen.shows("Confirmar"), "end of the question")
        time.sleep(1)

    def type_ahead(self):
        """All of the next vehicle behind its number, with the answer to the question that will come."""
        self.screen.type("xyz789")
        self.screen.keys("Insert", "Return")

    def hang(self):
        """The station waits in the folder, for what is known of the next vehicle; returns the screen before."""
        self.screen.type_only(str(OTHER))
        time.sleep(0.3)
        before = self.screen.rows()
        self.hanging.hang("any")
        self.screen.keys("Return")
        self.hanging.wait_until_waiting()
        return before

    def late(self):
        """And the operator has been told; the screen before, and the place of the line."""
        before = self.hang()
        return before, self.until_line(before)

    def close_window(self):
        """Seconds until the question is there."""
        began = time.monotonic()
        self.screen.keys("alt+F4")
        self.screen.wait(lambda: self.screen.shows("Cerrar"), "question before the end", 3)
        return time.monotonic() - began

    def say_yes(self):
        """To the question before the end; and the program is gone in time."""
        began = time.monotonic()
        self.screen.keys("alt+s")
        self.gone(began)

    def hangs_at(self, key, register):
        """What the key does is confirmed, and hangs at its write of the register."""
        before = self.screen.rows()
        self.hanging.hang("write", path=f"Vintoral.{register}")
        self.confirm(key)
        self.hanging.wait_until_waiting("write")
        self.until_line(before)

    # ---- Eyes ----

    def plate(self, number):
        """Of who is inside under that number; None: nobody."""
        slot = self.behind.slot(number)
        return slot.Placa if slot.EnUso else None

    def changed(self, before):
        """Where the screen is another one now, but for the pointer in the lower left corner, and the caret, which blinks."""
        boxes = changes(before, self.screen.rows())
        return [box for box in boxes if (box[0] > POINTER or box[1] < HEIGHT - POINTER) and box[2] - box[0] > CARET]

    def aside_from_the_clock(self, before):
        """What has changed elsewhere than in the two times of the stay."""
        return [box for box in self.changed(before) if not (box[2] < WIDTH / 3 and HEIGHT / 2 < box[3] < 2 * HEIGHT / 3)]

    def until_line(self, before):
        """The rectangle of the line over the grid, as soon as it stands there."""
        line = []

        def stands():
            line[:] = [box for box in self.changed(before) if box[2] - box[0] > WIDTH / 3]
            return bool(line)
        self.screen.wait(stands, "line over the grid", 3)
        return line[0]

    def elsewhere(self, before, line):
        """What has changed that is neither the line nor the bars of the link, at the right end of the head."""
        return [box for box in self.changed(before)
                if not (line[0] <= box[0] and line[1] <= box[1] and box[2] <= line[2] and box[3] <= line[3])
                and not (box[0] > WIDTH - 60 and box[3] < 60)]

    def whole(self):
        """The registers have lengths that records can give, and hold what was confirmed."""
        for name, size in trouble.LEGAL_MULTIPLE.items():
            file = self.behind.shared / f"Vintoral.{name}"
            if file.exists():
                self.assertEqual(file.stat().st_size % size, 0, name)
        self.assertEqual(self.plate(NUMBER), "ABC123")

    def gone(self, began):
        """The program ends by itself, in time."""
        self.assertEqual(self.program.wait(3 * GONE_SECONDS), 0)
        took = time.monotonic() - began
        print(f"{self.id()}: gone {took:.2f} s after the answer", file=sys.stderr)
        self.assertLess(took, GONE_SECONDS)
        self.whole()

    # ---- The days ----

    def test_half_a_minute(self):
        """It says what it waits for, paints, keeps what is typed, and serves it in the end."""
        self.save(NUMBER, "abc123")
        pointer = self.screen.cursor()
        before = self.hang()
        self.screen.wait(lambda: self.screen.cursor() != pointer, "hourglass", 1)
        began = time.monotonic()
        self.assertEqual(self.changed(before), [], "so early nothing but the pointer tells")
        line = self.until_line(before)
        self.assertLess(time.monotonic() - began, 1.5)
        self.type_ahead()
        self.assertEqual(self.elsewhere(before, line), [], "nothing moves, and what is kept is not shown as done")
        self.covered(before, line)
        self.tooltip()
        time.sleep(max(0.0, began + HANG_SECONDS - time.monotonic()))
        self.assertIsNone(self.plate(OTHER))
        self.assertNotEqual(self.screen.cursor(), pointer)
        self.hanging.go()
        self.screen.wait(lambda: self.plate(OTHER) == "XYZ789", "the next vehicle in the register", 5)
        self.screen.wait(lambda: line not in self.changed(before), "end of the line", 2)
        self.screen.wait(lambda: self.screen.cursor() == pointer, "pointer of before", 1)
        self.whole()

    def covered(self, before, line):
        """Uncovered, it is again what it was, over and over, and at once."""
        below = slice(line[3] + 1, HEIGHT - POINTER)
        hidden = [COVER_PIXEL * WIDTH] * len(before[below])
        times = []
        for _ in range(COVERS):
            self.screen.cover_all()
            self.screen.wait(lambda: self.screen.rows()[below] == hidden, "cover")
            self.screen.uncover()
            times.append(self.screen.wait(lambda: self.screen.rows()[below] == before[below], "repaint", 1))
            self.assertEqual(self.elsewhere(before, line), [])
        times.sort()
        print(f"repainted after {1000 * times[COVERS // 2]:.0f} ms, at most {1000 * times[-1]:.0f}", file=sys.stderr)

    def tooltip(self):
        """A button says what it does, and is silent again."""
        before = self.screen.rows()

        def said():
            return any(BUTTON[1] < box[3] < 100 and box[2] - box[0] > 150 for box in self.changed(before))
        for step in range(3):  # a pointer that comes by leaps shows nothing
            self.screen.point(BUTTON[0] + step, BUTTON[1])
            time.sleep(0.1)
        self.screen.wait(said, "tooltip", 3)
        self.screen.point(0, HEIGHT - 1)
        self.screen.wait(lambda: not said(), "end of the tooltip", 3)

    def test_esc_throws_away(self):
        self.save(NUMBER, "abc123")
        self.late()
        self.type_ahead()
        self.screen.keys("Escape")
        # What is typed from now on counts: the plate of the number that is looked for.
        self.screen.type("new456")
        self.screen.keys("Insert", "Return")
        self.hanging.go()
        self.screen.wait(lambda: self.plate(OTHER), "vehicle in the register", 5)
        self.assertEqual(self.plate(OTHER), "NEW456")
        self.whole()

    def test_a_save_that_fails_in_the_end(self):
        """The vehicle is not inside, nor on the screen as if it were; typed once more it comes in."""
        idle = self.screen.rows()
        self.screen.type(str(NUMBER), "abc123")
        self.hangs_at("Insert", "ACT")
        self.assertNotEqual(self.changed(idle), [])
        self.hanging.go("EIO")
        self.screen.wait(lambda: not self.aside_from_the_clock(idle), "idle screen", 3)
        self.assertIsNone(self.plate(NUMBER))
        self.save(NUMBER, "abc123")
        self.assertNotEqual(self.aside_from_the_clock(idle), [], "the grid shows who is inside")
        self.whole()

    def test_a_retiring_that_fails_in_the_end(self):
        """It stays inside, and on the screen; and it leaves once."""
        self.save(NUMBER, "abc123")
        self.screen.type(str(NUMBER))
        time.sleep(1)
        shown = self.screen.rows()
        self.hangs_at("Delete", "HST")
        self.assertIsNone(self.plate(NUMBER), "the slot is free before its row is written")
        self.hanging.go("EIO")
        self.screen.wait(lambda: self.plate(NUMBER) == "ABC123", "vehicle inside again", 3)
        self.screen.wait(lambda: not self.aside_from_the_clock(shown), "ficha on the screen", 3)
        self.assertEqual([row.Placa for row in self.behind.history()], [])
        self.confirm("Delete")
        self.screen.wait(lambda: self.plate(NUMBER) is None and self.behind.history(), "its row", 5)
        self.assertEqual([row.Placa for row in self.behind.history()], ["ABC123"])

    def test_closed_while_it_hangs(self):
        """In the middle of a save, with keys kept; after a No it goes on as before."""
        self.save(NUMBER, "abc123")
        self.asked(OTHER, "xyz789")
        before = self.screen.rows()
        self.hanging.hang("write", path="Vintoral.ACT")
        self.screen.keys("Return")
        self.hanging.wait_until_waiting("write")
        self.until_line(before)
        self.type_ahead()
        self.assertLess(self.close_window(), 1)
        time.sleep(0.3)
        self.assertTrue(self.screen.shows("Cerrar"), "what was typed before does not answer it")
        self.screen.keys("alt+n")
        self.screen.wait(lambda: not self.screen.shows("Cerrar"), "end of the question", 1)
        time.sleep(2)
        self.assertIsNone(self.program.poll())
        self.close_window()
        self.say_yes()
        self.assertIsNone(self.plate(OTHER), "what hung was not confirmed")

    def test_closed_at_once(self):
        """The folder has just begun to hang, and the station does not know."""
        self.save(NUMBER, "abc123")
        self.hanging.hang("any")
        self.close_window()
        self.say_yes()

    def test_closed_in_the_first_moment(self):
        """The pointer is no hourglass yet, and the station will not come to its own question."""
        self.save(NUMBER, "abc123")
        self.hang()
        self.assertLess(self.close_window(), 1)
        self.say_yes()

    def test_closed_from_a_dialog(self):
        """A modal dialog keeps clicks from the main window, and can't close while the station hangs."""
        self.save(NUMBER, "abc123")
        before = self.screen.rows()
        self.screen.keys("ctrl+t")
        self.screen.wait(lambda: any(box[2] - box[0] > WIDTH / 3 for box in self.changed(before)), "dialog")
        self.hanging.hang("any")
        self.hanging.wait_until_waiting()  # the link watch looks every ten seconds
        time.sleep(0.5)
        self.assertLess(self.close_window(), 1)
        self.say_yes()

    def test_hangs_from_the_start(self):
        """There is a window all the same: it says why, and can be closed."""
        self.save(NUMBER, "abc123")
        self.program.terminate()
        self.assertEqual(self.program.wait(3 * GONE_SECONDS), 0)
        self.hanging.hang("any")
        self.program = self.screen.launch(PROGRAM, cwd=self.station)
        self.screen.wait(lambda: self.screen.shows("^Vintoral"), "window", 4)
        self.assertLess(self.close_window(), 1)
        self.say_yes()

    def test_the_session_ends(self):
        self.save(NUMBER, "abc123")
        for told in (True, False):
            with self.subTest("it hangs for long" if told else "it has just begun"):
                if told:
                    self.late()
                else:
                    self.hanging.go()
                    self.start()
                    self.hang()
                began = time.monotonic()
                self.program.send_signal(signal.SIGTERM)
                self.gone(began)

    def test_killed(self):
        self.save(NUMBER, "abc123")
        before = self.screen.rows()
        self.asked(OTHER, "xyz789")
        self.hanging.hang("write", path="Vintoral.ACT")
        self.screen.keys("Return")
        self.hanging.wait_until_waiting("write")
        self.program.kill()
        self.assertEqual(self.program.wait(GONE_SECONDS), -signal.SIGKILL)
        mounted.wait_for("end of what it waited in", lambda: not self.hanging.waiting(), GONE_SECONDS)
        self.hanging.go()
        self.whole()
        self.assertIsNone(self.plate(OTHER))
        self.start()
        # The grid, with its count, is filled by the first save: no screen state was kept.
        self.assertEqual([box for box in self.aside_from_the_clock(before) if box[3] > HEIGHT / 4], [])
        self.save(OTHER, "xyz789")
        self.whole()

    @unittest.skipUnless("VINTORAL_PICTURES" in os.environ, "only for whoever wants the picture")
    def test_picture(self):
        subprocess.run([PROJECT / "scripts/lib/parked.py", self.behind.shared / "Vintoral.ACT", "24"], check=True)
        photos = self.behind.shared / "Imágenes ACT"
        views = sorted((PROJECT / "data/wallpapers").glob("*.jpg"))
        for number in (7, *range(31, 51)):
            shutil.copy(views[number % len(views)], photos / f"{number:06}.jpg")
        self.screen.keys("F2", "F2")
        self.screen.point(WIDTH // 2, 3 * HEIGHT // 4)  # with the hourglass in sight
        time.sleep(2)
        self.late()
        time.sleep(3.3)
        self.screen.picture(pathlib.Path(os.environ["VINTORAL_PICTURES"]) / "esperando.png")


if __name__ == "__main__":
    skip_without_fuse()
    mounted.separate()
    screen.separate()
    unittest.main()
