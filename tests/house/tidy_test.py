"""scripts/lib/tidy asks clang-tidy about what changed, and about nothing that passed before."""
import json
import os
import shutil
import unittest

from house import PROJECT, HouseTest


class Tidy(HouseTest):
    def setUp(self):
        super().setUp()
        self.write("bin/clang-tidy", '#!/bin/sh\n[ "$1" = --version ] && exit\nfor file; do :; done\n'
                   'echo "$file" >>"$LOG"\n! grep -n BAD "$file"\n', executable=True)
        self.log = self.write("log", "")
        self.make("one")

    def make(self, tree):
        self.write(f"{tree}/.clang-tidy", "Checks: all\n")
        self.write(f"{tree}/src/common/A.cpp", '#include "common/A.h"\n')
        self.write(f"{tree}/src/common/A.h", '#include "B.h"\n')
        self.write(f"{tree}/src/common/B.h", "")
        self.write(f"{tree}/src/common/C.cpp", "")
        (self.root / tree / "scripts/lib").mkdir(parents=True)
        shutil.copy(PROJECT / "scripts/lib/tidy", self.root / tree / "scripts/lib/tidy")
        sources = [str(self.root / tree / "src/common" / name) for name in ("A.cpp", "C.cpp")]
        self.write(f"{tree}/build/dev/compile_commands.json",
                   json.dumps([{"file": source, "command": f"c++ -I{self.root}/{tree}/src {source}"} for source in sources]))

    def tidy(self, tree="one"):
        """Runs over both sources; gives the exit status and the names that clang-tidy was asked about."""
        self.log.write_text("")
        environment = os.environ | {"PATH": f"{self.root}/bin:{os.environ['PATH']}", "LOG": str(self.log),
                                    "XDG_CACHE_HOME": str(self.root / "cache")}
        result = self.run_command(self.root / tree / "scripts/lib/tidy", "src/common/A.cpp", "src/common/C.cpp",
                                  cwd=self.root / tree, env=environment)
        return result.returncode, sorted(line.rsplit("/", 1)[1] for line in self.log.read_text().splitlines())

    def test_what_passed_is_not_asked_again(self):
        self.assertEqual(self.tidy(), (0, ["A.cpp", "C.cpp"]))
        self.assertEqual(self.tidy(), (0, []))

    def test_header_behind_a_header(self):
        self.tidy()
        self.write("one/src/common/B.h", "int b;\n")
        self.assertEqual(self.tidy(), (0, ["A.cpp"]))

    def test_other_rules(self):
        self.tidy()
        self.write("one/.clang-tidy", "Checks: more\n")
        self.assertEqual(self.tidy(), (0, ["A.cpp", "C.cpp"]))

    def test_failure_is_told_each_time(self):
        self.write("one/src/common/C.cpp", "BAD\n")
        self.assertEqual(self.tidy(), (1, ["A.cpp", "C.cpp"]))
        self.assertEqual(self.tidy(), (1, ["C.cpp"]))

    def test_another_copy_of_the_tree(self):
        self.tidy()
        self.make("two")
        self.assertEqual(self.tidy("two"), (0, []))


unittest.main()
