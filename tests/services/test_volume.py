"""Three gates work at random on a volume of three copies, made by the script of the manual, while machines and mounts fail."""
import os
import sys
import time

import bad_road
import crew
import machines
import mounted
import trouble
import volume
from station import GREEN, RED

SEED = int(os.environ.get("VINTORAL_SEED", "2026"))
TURNS = 30
# For all that the gates have to do while nothing moves for a while.
DAY_SECONDS = 150
NUMBERS = {1: range(1, 61), 2: range(501, 561), 3: range(701, 761)}


class Volume(volume.Site):
    def begin(self, turns=TURNS):
        """All gates at work, each by a hand of its own."""
        self.books = crew.Books()
        self.hands = [crew.Hand(self, gate, "01" if number == 1 else "02", NUMBERS[number], self.books, turns, SEED)
                      for number, gate in self.gates.items()]
        self.addCleanup(self.hands_off)
        for hand in self.hands:
            hand.start()

    def hands_off(self):
        for hand in self.hands:
            hand.stop.set()
        for hand in self.hands:
            hand.join()

    def until(self, count):
        """That many operations are confirmed."""
        def met():
            failures = [hand.failure for hand in self.hands if hand.failure]
            if failures:
                raise failures[0]
            return len(self.books.done) >= count
        mounted.wait_for(f"{count} operations", met, DAY_SECONDS)

    def end(self):
        """All have done their work: the books and the three copies agree."""
        limit = time.monotonic() + DAY_SECONDS
        for hand in self.hands:
            hand.join(max(0, limit - time.monotonic()))
        self.hands_off()
        for hand in self.hands:
            if hand.failure:
                raise hand.failure
        self.assertEqual([hand.is_alive() for hand in self.hands], [False] * 3)
        crew.check(self, self.books, self.data)
        self.assertCopiesEqual()
        for machine in self.site.values():
            crew.check(self, self.books, machine.home / volume.COPY.strip("/") / "Multimedia")
        seconds = self.books.seconds()
        print(f"{self._testMethodName}: {len(seconds)} operations, {self.books.refused} refused, median "
              f"{crew.percentile(seconds, 0.5):.3f} s, longest {seconds[-1]:.3f} s", file=sys.stderr)

    def kill_copy(self, number):
        """Its program dies, and the service that would start it again."""
        machine = self.site[number]
        self.assertEqual(machine.kill("glusterd --no-daemon"), 1)
        self.assertEqual(machine.kill("glusterfsd"), 1)

    def come_back(self, number):
        self.site[number].start_glusterd()

    def assertAllRed(self):
        """No gate confirms anything, and each says that it has no folder."""
        count = len(self.books.done)
        mounted.wait_for("red bars at all gates", lambda: all(hand.seen_red for hand in self.hands), 60)
        # What was on its way is done or refused by now; nothing follows.
        before = len(self.books.done)
        self.assertLessEqual(before - count, 3)
        time.sleep(3)
        self.assertEqual(len(self.books.done), before, "a gate confirms without its folder")

    def test_a_copy_dies_and_heals(self):
        self.open_all()
        self.begin()
        self.until(20)
        self.kill_copy(3)
        self.assertIn("DOWN", self.volume(1, "state"))
        self.assertIn("is not there", self.volume(2, "check", expected=1))
        self.until(50)
        self.come_back(3)
        self.end()
        self.assertNotIn("DOWN", self.volume(1, "state"))
        self.assertEqual([hand.seen_red for hand in self.hands], [False] * 3, "two copies are enough for all gates")

    def test_a_machine_vanishes_without_a_word(self):
        """The wires of the third gate's machine are pulled: the others go on after the time-out, it does not, until it is back."""
        self.open_all()
        self.begin()
        self.until(20)
        self.site[3].cut_off()
        self.until(20 + TURNS)
        mounted.wait_for("red bars at the gate that is alone", lambda: self.hands[2].seen_red, 60)
        self.site[3].plug_in()
        self.end()
        longest = self.books.seconds()[-1]
        self.assertLess(longest, 2 * volume.LONGEST_SECONDS)
        self.assertEqual([hand.seen_red for hand in self.hands[:2]], [False] * 2)

    def test_no_majority(self):
        self.open_all()
        self.begin()
        self.until(20)
        self.kill_copy(2)
        self.kill_copy(3)
        self.assertAllRed()
        self.come_back(2)
        self.come_back(3)
        self.end()

    def test_a_mount_dies(self):
        self.open_all()
        self.begin()
        self.until(20)
        machine = self.site[1]
        self.assertEqual(machine.kill("--process-name fuse"), 1)
        mounted.wait_for("red bars at the main gate", lambda: self.hands[0].seen_red)
        self.until(40)
        machine.run("umount", "--lazy", volume.MOUNT)
        self.data = self.site[2].path(f"{volume.MOUNT}/Multimedia")
        # The mount point is an empty folder now: the main gate makes nothing in it.
        time.sleep(2)
        self.assertEqual(list(machine.path(volume.MOUNT).iterdir()), [])
        self.mount(machine)
        self.end()
        self.assertEqual([hand.seen_red for hand in self.hands], [True, False, False])

    def test_a_bad_road(self):
        self.open_all()
        self.begin(TURNS // 3)
        self.until(6)
        road = bad_road.BadRoad(self.site, SEED, lost=0.02, delay_seconds=0.004)
        self.addCleanup(road.over.set)
        road.start()
        before = len(self.books.done)
        self.until(before + TURNS // 2)
        road.end()
        self.end()
        self.assertGreater(road.count, 1000)
        self.assertGreater(road.dropped, 10)


if __name__ == "__main__":
    machines.separate("glusterd", "gluster", "glusterfs", "ip")
    trouble.station.main()
