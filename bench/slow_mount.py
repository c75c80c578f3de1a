"""How long a key waits while a page of the grid fills, on a share that takes 1 ms for each operation: at most 150 ms, p99.

The share is bindfs, held back before each of its answers. Run it as root, or where users may make namespaces:
python3 bench/slow_mount.py build/release/bin/vintoral-window-bench
"""
import os
import pathlib
import subprocess
import sys
import unittest

TESTS = pathlib.Path(__file__).resolve().parent.parent / "tests"
sys.path[:0] = [str(TESTS / "services"), str(TESTS / "scenarios")]
import mounted  # noqa: E402
from grid import GridDay, numbered, photo_inside  # noqa: E402
from station import Folder, mixed, screen_state  # noqa: E402

PAGE = 50
HOLD_BACK = r"""
#define _GNU_SOURCE
#include <dlfcn.h>
#include <sys/uio.h>
#include <time.h>
ssize_t writev(int file, const struct iovec* parts, int count) {
  const struct timespec pause = {0, 1000000};
  nanosleep(&pause, 0);
  return ((ssize_t (*)(int, const struct iovec*, int))dlsym(RTLD_NEXT, "writev"))(file, parts, count);
}
"""


class SlowShare(GridDay):
    def share(self):
        """A mount of the data folder; its answers leave bindfs by writev."""
        library, point = self.root / "hold-back.so", self.root / "share"
        subprocess.run(["cc", "-x", "c", "-shared", "-fPIC", "-o", library, "-"], input=HOLD_BACK.encode(), check=True)
        point.mkdir()
        process = subprocess.Popen(["bindfs", "-f", str(self.folder.shared), str(point)],
                                   env={**os.environ, "LD_PRELOAD": str(library)})
        self.addCleanup(process.wait)
        self.addCleanup(process.kill)
        self.addCleanup(subprocess.run, ["umount", "--lazy", str(point)], check=False)
        mounted.wait_for("mount of bindfs", lambda: os.path.ismount(point))
        return point

    def test_keys_while_pages_fill(self):
        """Two pages, so that each is read anew; the window's own home, so that nothing of this machine's is touched."""
        self.photograph(*map(photo_inside, range(1, 2 * PAGE + 1)))
        self.prepare(*numbered(2 * PAGE))
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.share()}\r\n".encode())
        second.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0)))
        second.write("Recursos/Vintoral.RLD", b"")  # starts beside a station that runs on this machine
        home, run = self.root / "home", self.root / "run"
        (home / "Desktop").mkdir(parents=True)
        (home / "Desktop" / "Vintoral.desktop").write_text("[Desktop Entry]\n")
        run.mkdir(mode=0o700)
        environment = {**os.environ, "HOME": str(home), "XDG_RUNTIME_DIR": str(run), "QT_QPA_PLATFORM": "offscreen"}
        bench = os.environ["VINTORAL_WINDOW_BENCH"]
        subprocess.run([bench, "--slow-pages", str(second.path)], env=environment, timeout=300, check=True)


if __name__ == "__main__":
    if len(sys.argv) > 1:  # once more without it, in mounts of its own
        os.environ["VINTORAL_WINDOW_BENCH"] = os.path.abspath(sys.argv.pop(1))
    mounted.separate()
    unittest.main()
