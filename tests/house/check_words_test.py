"""scripts/check-words finds pointers to texts outside the repository, in tracked files alone."""
import unittest

from house import HouseTest


class CheckWords(HouseTest):
    def setUp(self):
        super().setUp()
        self.run_command("git", "init", "-q", self.root)

    def check(self, text):
        self.write("docs/a.md", text + "\n")
        self.run_command("git", "-C", self.root, "add", "docs/a.md")
        return self.run_script("check-words", self.root)

    def test_pointers(self):
        for text in ["see sp_ec.md", "as The Sp_ecification says", "Pa_rt 3.2", "cat ../sh_ared/x", "closes is_sue 2"]:
            text = text.replace("_", "")  # written apart, so that this file may be checked like any other
            with self.subTest(text):
                result = self.check("one\n" + text)
                self.assertEqual(result.returncode, 1)
                self.assertIn("docs/a.md:2:" + text, result.stdout)

    def test_plain_text(self):
        for text in ["part of the station", "special.md", "issues", "version 3.2", "a shared folder"]:
            with self.subTest(text):
                self.assertEqual(self.check(text).returncode, 0)

    def test_untracked(self):
        self.write("notes.md", "Pa" "rt 1.1\n")
        self.assertEqual(self.check("plain").returncode, 0)


unittest.main()
