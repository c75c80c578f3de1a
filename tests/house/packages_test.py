"""scripts/lib/packages.sh says what it installs, asks the network for nothing else, and uses sudo only when needed.

Package manager, sudo and id are little programs in a folder of the test that write down how they were called.
"""
import os
import re
import unittest

from house import PROJECT, HouseTest


class Packages(HouseTest):
    def setUp(self):
        super().setUp()
        self.program("apt-get", 'echo "apt-get $*" >>"$LOG"; case "$*" in *update*) [ ! -e "$BROKEN" ] || '
                     '{ rm "$BROKEN"; exit 100; };; *install*) shift 6; for p; do echo "$p" >>"$INSTALLED"; done;; esac')
        self.program("dpkg-query", 'for p; do :; done; grep -qx "$p" "$INSTALLED" && printf installed')
        self.program("sudo", 'echo "sudo" >>"$LOG"; exec "$@"')
        self.program("sleep", "exit 0")
        self.user(0)
        self.installed = self.write("installed", "g++\ncmake\n")
        self.log = self.write("log", "")

    def program(self, name, script):
        self.write("bin/" + name, "#!/bin/sh\n" + script + "\n", executable=True)

    def user(self, number):
        self.program("id", f"echo {number}")

    def install(self, *groups, listed="[build]\ng++ # compiler\ncmake\n[test]\nsox  # sound\n"):
        self.write("scripts/packages.txt", "# head\n\n" + listed)
        script = self.write("scripts/lib/packages.sh", (PROJECT / "scripts/lib/packages.sh").read_text())
        environment = os.environ | {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "LOG": str(self.log),
                                    "INSTALLED": str(self.installed), "BROKEN": str(self.root / "broken")}
        return self.run_command("bash", "-euo", "pipefail", "-c", f'source {script}; packages_install {" ".join(groups)}',
                                env=environment)

    def test_nothing_missing(self):
        result = self.install("build")
        self.assertEqual((result.returncode, result.stdout, self.log.read_text()), (0, "", ""))

    def test_missing_is_said_and_installed_once(self):
        result = self.install("build", "test")
        self.assertEqual(result.returncode, 0, result.stderr)
        self.assertIn("sox", result.stdout)
        self.assertNotIn("g++", result.stdout)
        calls = self.log.read_text().splitlines()
        self.assertEqual(len(calls), 2)
        self.assertIn("update", calls[0])
        self.assertTrue(calls[1].endswith("install -y --no-install-recommends sox"))
        self.assertEqual(self.install("build", "test").stdout, "")
        self.assertEqual(len(self.log.read_text().splitlines()), 2)

    def test_sudo_for_others_than_root(self):
        self.user(1000)
        self.assertEqual(self.install("test").returncode, 0)
        self.assertEqual(self.log.read_text().count("sudo"), 2)

    def test_update_is_tried_twice(self):
        self.write("broken", "")
        self.assertEqual(self.install("test").returncode, 0)
        self.assertEqual(self.log.read_text().count("update"), 2)

    def test_what_can_not_be_installed_fails(self):
        self.program("apt-get", "exit 0")
        result = self.install("test")
        self.assertEqual(result.returncode, 1)
        self.assertIn("sox", result.stderr)

    def test_the_list_itself(self):
        text = (PROJECT / "scripts/packages.txt").read_text()
        names = [line.split("#")[0].strip() for line in text.splitlines()]
        names = [name for name in names if name and not name.startswith("[")]
        self.assertEqual(len(names), len(set(names)))
        for name in names:
            self.assertRegex(name, re.compile(r"^[a-z0-9][a-z0-9.+-]+$"))


unittest.main()
