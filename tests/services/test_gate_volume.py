"""The script of the manual, on the machines that it is for: what it tells, what it leaves alone, and what it mends."""
import os
import pty

import mounted  # first: it knows where the rest of the tests' own modules are
import crew
import machines
import trouble
import volume
from station import GREEN, RED

TURNS = 30


class Script(crew.Crew, volume.Site):
    def test_the_main_gate_starts_without_its_mount(self):
        main = self.open_gate(1)
        self.assertTrue(self.try_save(main, 7, "BEFORE"))
        self.assertTrue(self.try_close(main))
        machine = self.site[1]
        machine.run("umount", volume.MOUNT)
        main = self.open_gate(1)
        self.assertBars(main, RED)
        self.assertFalse(self.try_save(main, 8, "NOWHERE"))
        self.settle(main)
        self.assertEqual(list(machine.path(volume.MOUNT).iterdir()), [])
        self.mount(machine)
        main.advance(3000)
        self.assertBars(main, GREEN)
        self.assertTrue(self.try_save(main, 8, "AFTER"))
        self.assertTrue(self.try_retire(main, 7))
        self.assertEqual([row.Placa for row in crew.rows_of(self, self.data)], ["BEFORE"])
        self.assertEqual(self.volume(1, "--yes", "make", *volume.NAMES.values()).splitlines()[0], "Nothing is left to do.")

    def asked(self, answer, expected):
        """What "make" says on the third machine to somebody at a terminal who gives this answer."""
        ours, its = pty.openpty()
        os.write(ours, f"{answer}\n".encode())
        try:
            return self.volume(3, "make", *volume.NAMES.values(), expected=expected, stdin=its)
        finally:
            os.close(ours)
            os.close(its)

    def test_the_script_tells_what_is_wrong(self):
        self.assertIn("All three copies are whole", self.volume(2, "check"))
        self.site[1].run("gluster", "--mode=script", "volume", "set", "porterias", "performance.quick-read", "on")
        said = self.volume(2, "check", expected=1)
        self.assertIn("performance.quick-read has to be off and is on", said)
        self.assertIn("Nothing was done.", self.asked("n", 2))
        self.assertIn("has to be off and is on", self.volume(2, "check", expected=1))
        made = self.asked("y", 0)
        self.assertEqual(made.splitlines()[:2], ["This will be done:", "  - set performance.quick-read off"])
        self.assertIn("All three copies are whole", self.volume(2, "check"))

        machine = self.site[3]
        machine.run("umount", volume.MOUNT)
        said = "The volume is not mounted at /mnt/porterias"
        self.assertIn(said, self.volume(3, "check", expected=1))
        machine.run("mkdir", "/mnt/elsewhere")
        machine.run("mount", "-t", "glusterfs", f"{machine.name}:/porterias", "/mnt/elsewhere")
        self.assertIn(said, self.volume(3, "check", expected=1))
        machine.run("umount", "/mnt/elsewhere")
        machine.run("mount", "-t", "glusterfs", "-o", "entry-timeout=0", f"{machine.name}:/porterias", volume.MOUNT)
        said = self.volume(3, "check", expected=1)
        self.assertIn("mounted without direct-io-mode=enable", said)
        self.assertNotIn("without entry-timeout=0", said)

        # The options stand before the command or behind it.
        self.assertIn("Nobody is there to ask", self.volume(1, "--volume", "second", "make", *volume.NAMES.values(),
                                                            "--folder", "/srv/second", expected=2))
        self.assertIn("There is no volume second", self.volume(1, "check", "--volume", "second", expected=2))
        self.assertIn("Three different machines", self.volume(1, "make", "porteria1", "porteria2", "porteria2", expected=2))
        self.assertIn("does not know the name nowhere", self.volume(1, "make", "porteria1", "porteria2", "nowhere", expected=2))
        self.assertIn("alone", self.volume(1, "make", "porteria2", "porteria3", "localhost", expected=2))
        machine.kill("glusterd --no-daemon")
        self.assertIn("systemctl enable --now glusterd", self.volume(3, "state", expected=2))
        self.assertIn("machine porteria3: AWAY", self.volume(1, "state"))
        machine.start_glusterd()
        machine.run("umount", volume.MOUNT)
        self.mount(machine)

    def test_the_script_leaves_what_is_there(self):
        """Copies of an earlier volume, machines that work, and what somebody wrote into a mount point."""
        said = self.volume(1, "--yes", "--volume", "second", "make", *volume.NAMES.values(), expected=2)
        self.assertIn("/srv/porterias is not empty here", said)
        said = self.volume(1, "--yes", "make", *volume.NAMES.values(), "--folder", "/srv/second", expected=2)
        self.assertIn("lies elsewhere: porteria1:/srv/porterias", said)
        self.assertIn("gate-volume replace", said)

        for old, new, why in (("porteria1", "porteria3", "porteria1 is this machine"),
                              ("porteria3", "porteria2", "porteria3 answers, so it is not dead"),
                              ("porteria33", "porteria4", "porteria33 has no copy of porterias"),
                              ("porteria33", "porteria3", "Nothing is left to do")):
            expected = 0 if why.startswith("Nothing") else 2
            self.assertIn(why, self.volume(1, "--yes", "replace", old, new, expected=expected))
        self.assertIn("All three copies are whole", self.volume(1, "check"))

        machine = self.site[3]
        machine.run("umount", volume.MOUNT)
        machine.run("mkdir", f"{volume.MOUNT}/Multimedia")
        self.assertIn("/mnt/porterias is not empty", self.volume(3, "mount", expected=2))
        machine.run("rmdir", f"{volume.MOUNT}/Multimedia")
        again = machine.run("flock", "/run/vintoral-gate-volume.lock", volume.GATE_VOLUME, "mount", check=False)
        self.assertIn("being mounted already", again.stderr)
        self.mount(machine)


class ADeadMachine(crew.Crew, volume.Site):
    names = {**volume.NAMES, 4: "porteria4"}

    def test_another_takes_its_place(self):
        """It never comes back: the gates work on, and a new machine gets its copy."""
        self.open_gate(1)
        self.open_gate(2)
        self.begin(TURNS)
        self.until(20)
        self.site[3].power_off()
        self.work_ends()
        self.assertIn("copy porteria3:/srv/porterias: DOWN", self.volume(1, "state"))
        replace = "--yes", "replace", "porteria3"
        self.kill_copy(2)
        self.assertIn("a machine is replaced while both others work", self.volume(1, *replace, "porteria4", expected=2))
        self.come_back(2)
        self.assertIn("porteria2 has a copy already", self.volume(1, *replace, "porteria2", expected=2))
        self.assertIn("another name and another address", self.volume(1, *replace, "192.0.2.3", expected=2))
        said = self.volume(1, *replace, "porteria4")
        self.assertIn("forget porteria3", said)
        self.assertEqual(self.volume(1, *replace, "porteria4"), "Nothing is left to do.\n")
        self.holders = [1, 2, 4]
        self.assertCopiesEqual()
        crew.check(self, self.books, self.site[4].home / volume.COPY.strip("/") / "Multimedia")
        self.assertNotIn("porteria3", self.volume(1, "state"))


if __name__ == "__main__":
    machines.separate("glusterd", "gluster", "glusterfs", "ip")
    trouble.station.main()
