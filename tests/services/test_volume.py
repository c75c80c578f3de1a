"""Three gates work at random on a volume of three copies, made by the script of the manual, while machines and mounts fail."""
import os
import signal
import time

import mounted  # first: it knows where the rest of the tests' own modules are
import bad_road
import crew
import lock
import machines
import trouble
import volume

TURNS = 30


def taken(file):
    try:
        lock.append(file)
    except BlockingIOError:
        return False
    return True


class Volume(crew.Crew, volume.Site):
    def end(self):
        """All have done their work: the books and the three copies agree."""
        self.work_ends()
        crew.check(self, self.books, self.data)
        self.assertCopiesEqual()
        for machine in self.site.values():
            crew.check(self, self.books, machine.home / volume.COPY.strip("/") / "Multimedia")

    def assertAllRed(self):
        """No gate confirms anything, and each says that it has no folder."""
        count = len(self.books.done)
        mounted.wait_for("red bars at all gates", lambda: all(hand.seen_red for hand in self.hands), 60)
        # What was on its way is done or refused by now; nothing follows.
        before = len(self.books.done)
        self.assertLessEqual(before - count, 3)
        time.sleep(3)
        self.assertEqual(len(self.books.done), before, "a gate confirms without its folder")

    def assertLockHoldsBetweenMounts(self):
        """The append lock of a gate keeps another from its own, on another mount, until it is given back."""
        files = [open(self.site[number].path(f"{volume.MOUNT}/Multimedia/Vintoral.HST"), "r+b") for number in (1, 2)]
        for file in files:
            self.addCleanup(file.close)
        for first, second in (files, files[::-1]) * 10:
            lock.append(first)
            with self.assertRaises(BlockingIOError):
                lock.append(second)
            lock.give_back(first)
            lock.append(second)
            lock.give_back(second)

    def test_a_copy_dies_and_heals(self):
        self.open_all()
        self.assertLockHoldsBetweenMounts()
        self.begin(TURNS)
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
        """The wires of the third gate's machine are pulled: the others go on after the time-out, it does not, until it is back.

        It has the append lock in that moment, so that they wait for the lock and then for the copy.
        """
        self.open_all()
        self.begin(TURNS)
        self.until(20)
        machine = self.site[3]
        with open(machine.path(f"{volume.MOUNT}/Multimedia/Vintoral.HST"), "r+b") as file:
            mounted.wait_for("lock at the third gate", lambda: taken(file))
            time.sleep(0.5)  # for the others to come to where they want it
            self.addCleanup(machine.plug_in)
            machine.cut_off()
            done = len(self.books.done)
        # Closed, which takes its time: the gate of that machine is not to wait for it.
        self.until(done + TURNS // 2)
        mounted.wait_for("red bars at the gate that is alone", lambda: self.hands[2].seen_red, 60)
        machine.plug_in()
        self.end()
        *slowest, alone = [hand.slowest for hand in self.hands]
        self.assertLess(max(slowest), volume.LONGEST_SECONDS, slowest)
        self.assertGreater(max(slowest), volume.COPY_SECONDS - 1, "nobody noticed")
        self.assertLess(alone, volume.ALONE_SECONDS, "it asks two copies, one after the other")
        self.assertEqual([hand.seen_red for hand in self.hands[:2]], [False] * 2)

    def test_a_copy_says_nothing(self):
        """Its machine is there and acknowledges all that is sent; its program stands still."""
        self.open_all()
        self.begin(TURNS)
        self.until(20)
        program, = self.site[3].processes("glusterfsd")
        os.kill(program, signal.SIGSTOP)
        self.until(20 + TURNS)
        os.kill(program, signal.SIGCONT)
        self.end()
        slowest = [hand.slowest for hand in self.hands]
        self.assertLess(max(slowest), volume.HUNG_SECONDS, slowest)
        self.assertGreater(max(slowest), volume.PING_SECONDS - 1, "nobody noticed")
        self.assertEqual([hand.seen_red for hand in self.hands], [False] * 3)

    def test_no_majority(self):
        self.open_all()
        self.begin(TURNS)
        self.until(20)
        self.kill_copy(2)
        self.kill_copy(3)
        self.assertAllRed()
        self.come_back(2)
        self.come_back(3)
        self.end()

    def test_a_mount_dies(self):
        self.open_all()
        self.begin(TURNS)
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
        self.assertEqual(machine.kill("--process-name fuse"), 1)
        self.assertIn("has died", self.volume(1, "mount"))
        self.assertIn("All three copies are whole", self.volume(1, "check"))

    def test_a_bad_road(self):
        self.open_all()
        self.begin(TURNS // 3)
        self.until(6)
        road = bad_road.BadRoad(self.site, crew.SEED, lost=0.02, delay_seconds=0.004)
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
