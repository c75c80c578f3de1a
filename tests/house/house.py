"""What the tests of the scripts share: a temporary tree, and running one script of the project on it."""
import pathlib
import subprocess
import tempfile
import unittest

PROJECT = pathlib.Path(__file__).resolve().parents[2]


class HouseTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vintoral-house-")
        self.addCleanup(folder.cleanup)
        self.root = pathlib.Path(folder.name)

    def write(self, path, text, executable=False):
        file = self.root / path
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_text(text, encoding="utf-8")
        if executable:
            file.chmod(0o755)
        return file

    def run_command(self, *command, **options):
        return subprocess.run([str(part) for part in command], capture_output=True, text=True, **options)

    def run_script(self, name, *arguments, **options):
        return self.run_command(PROJECT / "scripts" / name, *arguments, **options)
