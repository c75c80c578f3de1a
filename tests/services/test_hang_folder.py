"""The folder that hangs on command is, until it is told to, the folder behind it; and then it hangs as it was told."""
import contextlib
import ctypes
import errno
import fcntl
import os
import pathlib
import random
import select
import signal
import socket
import struct
import subprocess
import sys
import tempfile
import threading
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "support"))

import mounted  # noqa: E402  (found through the line above)
from hanging import OPERATIONS, HangingFolder, skip_without_fuse  # noqa: E402

# Long enough for a thread to reach an operation, and for a killed process to be gone.
MOMENT_SECONDS = 2
LIBC = ctypes.CDLL(None, use_errno=True)
RENAME_NOREPLACE = 1
AT_FDCWD = -100

# Done in a process of its own, which can be killed while it hangs.
DOES = {
    "open": "os.open('old', os.O_RDONLY)",
    "read": "os.pread(file, 10, 0)",
    "write": "os.pwrite(file, b'NEW', 0)",
    "sync": "os.fdatasync(file)",
    "rename": "os.rename('old', 'new')",
    "lock": "fcntl.flock(file, fcntl.LOCK_EX)",
    "directory": "os.mkdir('made')",
    "stat": "os.stat('old')",
}


def noreplace(old, new):
    if LIBC.renameat2(AT_FDCWD, os.fsencode(old), AT_FDCWD, os.fsencode(new), RENAME_NOREPLACE) != 0:
        raise OSError(ctypes.get_errno(), "renameat2")


def own_lock(file, kind, start, length, command=fcntl.F_OFD_SETLK):
    """A lock that belongs to the open file."""
    fcntl.fcntl(file, command, struct.pack("hhqqi4x", kind, os.SEEK_SET, start, length, 0))


class Case(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="vintoral-hang-")
        self.addCleanup(temporary.cleanup)
        self.root = pathlib.Path(temporary.name).resolve()
        self.source = self.root / "source"
        self.source.mkdir()
        self.folder = self.mount("point")
        self.point = self.folder.point

    def mount(self, name):
        (self.root / name).mkdir()
        return self.enterContext(HangingFolder(self.source, self.root / name))

    def opened(self, path, flags=os.O_RDWR):
        file = os.open(path, flags)
        self.addCleanup(os.close, file)
        return file

    def child(self, does):
        """A process that has `old` open as `file`; it does it when it is told to, and says before and after that it did."""
        self.folder.go()
        code = (f"import fcntl, os, signal, sys, time\nos.chdir({str(self.point)!r})\nfile = os.open('old', os.O_RDWR)\n"
                f"signal.signal(signal.SIGUSR1, lambda *_: None)\n"
                f"print('ready', flush=True)\nsys.stdin.readline()\n"
                f"try:\n    {does}\n    print('done', flush=True)\n"
                f"except OSError as error:\n    print(os.strerror(error.errno), flush=True)\n"
                f"time.sleep(60)")
        process = subprocess.Popen([sys.executable, "-c", code], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
        for done in (process.stdin.close, process.stdout.close, process.wait, process.kill):
            self.addCleanup(done)
        self.assertEqual(process.stdout.readline(), "ready\n")
        return process

    def tell(self, process):
        process.stdin.write("\n")
        process.stdin.flush()

    def said(self, process, seconds):
        """What the process says next; "" where it says nothing for so long."""
        ready, _, _ = select.select([process.stdout], [], [], seconds)
        return process.stdout.readline().strip() if ready else ""

    def assertFails(self, error, does, *arguments):
        with self.assertRaises(OSError) as caught:
            does(*arguments)
        self.assertEqual(errno.errorcode[caught.exception.errno], errno.errorcode[error])


class PassesThrough(Case):
    def test_bytes_both_ways(self):
        data = random.Random(1).randbytes(3_000_001)
        (self.source / "from").write_bytes(data)
        self.assertEqual((self.point / "from").read_bytes(), data)
        (self.point / "to").write_bytes(data[::-1])
        self.assertEqual((self.source / "to").read_bytes(), data[::-1])

    def test_a_change_behind_it_is_seen_at_once(self):
        (self.source / "file").write_bytes(b"before")
        file = self.opened(self.point / "file", os.O_RDONLY)
        self.assertEqual(os.pread(file, 100, 0), b"before")
        self.assertFalse((self.point / "later").exists())
        (self.source / "file").write_bytes(b"after it")
        (self.source / "later").write_bytes(b"")
        self.assertEqual((os.pread(file, 100, 0), os.fstat(file).st_size), (b"after it", 8))
        self.assertTrue((self.point / "later").exists())

    def test_writes_at_places_and_at_the_end(self):
        (self.source / "file").write_bytes(b"0123456789")
        file = self.opened(self.point / "file")
        os.pwrite(file, b"xy", 4)
        end = self.opened(self.point / "file", os.O_WRONLY | os.O_APPEND)
        with open(self.source / "file", "ab") as behind:
            behind.write(b"AB")
        os.write(end, b"CD")
        self.assertEqual((self.source / "file").read_bytes(), b"0123xy6789ABCD")
        os.ftruncate(file, 3)
        self.assertEqual((self.source / "file").read_bytes(), b"012")
        os.truncate(self.point / "file", 5)
        self.assertEqual((self.source / "file").read_bytes(), b"012\0\0")
        os.posix_fallocate(file, 0, 9000)
        self.assertEqual((self.source / "file").stat().st_size, 9000)
        (self.point / "file").write_bytes(b"cut")
        self.assertEqual((self.source / "file").read_bytes(), b"cut")
        os.fsync(file)
        os.fdatasync(file)

    def test_names(self):
        (self.point / "one").write_bytes(b"1")
        (self.point / "two").write_bytes(b"2")
        self.assertFails(errno.EEXIST, noreplace, self.point / "one", self.point / "two")
        noreplace(self.point / "one", self.point / "three")
        os.rename(self.point / "three", self.point / "two")
        self.assertEqual({path.name: path.read_bytes() for path in self.source.iterdir()}, {"two": b"1"})
        os.link(self.point / "two", self.point / "linked")
        os.symlink("two", self.point / "symbolic")
        self.assertEqual((os.readlink(self.source / "symbolic"), (self.point / "symbolic").read_bytes()), ("two", b"1"))
        self.assertEqual((self.source / "linked").stat().st_nlink, 2)
        os.unlink(self.point / "linked")
        self.assertFails(errno.ENOENT, os.stat, self.point / "linked")
        self.assertEqual((self.source / "two").stat().st_nlink, 1)

    def test_folders(self):
        (self.point / "a/b").mkdir(parents=True)
        names = {f"file {number} ñ" for number in range(2000)}
        for name in names:
            (self.source / "a/b" / name).write_bytes(b"")
        self.assertEqual(set(os.listdir(self.point / "a/b")), names)
        self.assertFails(errno.ENOTEMPTY, os.rmdir, self.point / "a/b")
        for name in names:
            (self.point / "a/b" / name).unlink()
        os.rename(self.point / "a", self.point / "z")
        os.rmdir(self.point / "z/b")
        self.assertEqual([str(path.relative_to(self.source)) for path in self.source.rglob("*")], ["z"])
        opened = self.opened(self.point / "z", os.O_RDONLY)
        os.fsync(opened)

    def test_what_is_known_of_a_file(self):
        (self.source / "file").write_bytes(b"123")
        os.chmod(self.point / "file", 0o640)
        os.utime(self.point / "file", ns=(1_000_000_007, 2_000_000_009))
        behind, here = os.stat(self.source / "file"), os.stat(self.point / "file")
        self.assertEqual((oct(behind.st_mode), behind.st_atime_ns, behind.st_mtime_ns),
                         ("0o100640", 1_000_000_007, 2_000_000_009))
        for name in ("st_ino", "st_mode", "st_nlink", "st_uid", "st_gid", "st_size", "st_blocks", "st_mtime_ns", "st_ctime_ns"):
            self.assertEqual(getattr(here, name), getattr(behind, name), name)
        [entry] = os.scandir(self.point)
        self.assertEqual(entry.inode(), behind.st_ino)
        self.assertEqual(os.statvfs(self.point).f_blocks, os.statvfs(self.source).f_blocks)

    def test_an_open_file_outlives_its_name(self):
        (self.source / "file").write_bytes(b"old")
        (self.source / "new").write_bytes(b"newer")
        file = self.opened(self.point / "file")
        os.rename(self.point / "new", self.point / "file")
        self.assertEqual((os.pread(file, 9, 0), os.fstat(file).st_nlink), (b"old", 0))
        self.assertNotEqual(os.fstat(file).st_ino, os.stat(self.point / "file").st_ino)
        self.assertEqual(os.listdir(self.source), ["file"])

    def test_a_file_belongs_to_who_made_it(self):
        if os.geteuid() != 0:
            self.skipTest("needs root")
        for path in (self.root, self.source):
            path.chmod(0o777)
        subprocess.run(["setpriv", "--reuid=65534", "--regid=65533", "--clear-groups", "sh", "-c",
                        "umask 027; echo x >file; mkdir folder"], cwd=self.point, check=True)
        for name, mode in (("file", 0o640), ("folder", 0o750)):
            behind = os.stat(self.source / name)
            self.assertEqual((behind.st_uid, behind.st_gid, behind.st_mode & 0o777), (65534, 65533, mode))


class Locks(Case):
    """Locks exclude whoever comes another way: by a second mount, or right at the source."""

    def setUp(self):
        super().setUp()
        (self.source / "old").write_bytes(b"0123456789")
        self.here = self.opened(self.point / "old")
        others = [self.mount("other").point, self.source, self.point]
        self.others = [self.opened(path / "old") for path in others]

    def test_locks_of_open_files(self):
        for far in (0, 1 << 62):
            own_lock(self.here, fcntl.F_WRLCK, far, 1)
            for other in self.others:
                self.assertFails(errno.EAGAIN, own_lock, other, fcntl.F_WRLCK, far, 1)
                own_lock(other, fcntl.F_WRLCK, far + 1, 1)
                own_lock(other, fcntl.F_UNLCK, far + 1, 1)
            own_lock(self.here, fcntl.F_UNLCK, far, 1)
            for other in self.others:
                own_lock(other, fcntl.F_WRLCK, far, 1)
                self.assertFails(errno.EAGAIN, own_lock, self.here, fcntl.F_RDLCK, far, 1)
                own_lock(other, fcntl.F_UNLCK, far, 1)

    def test_a_shared_lock_lets_others_share(self):
        own_lock(self.here, fcntl.F_RDLCK, 0, 1)
        for other in self.others:
            own_lock(other, fcntl.F_RDLCK, 0, 1)
        self.assertFails(errno.EAGAIN, own_lock, self.here, fcntl.F_WRLCK, 0, 1)

    def test_a_lock_ends_with_the_last_copy_of_its_file(self):
        file = os.open(self.point / "old", os.O_RDWR)
        own_lock(file, fcntl.F_WRLCK, 0, 1)
        copy = os.dup(file)
        os.close(file)
        for other in self.others:
            self.assertFails(errno.EAGAIN, own_lock, other, fcntl.F_WRLCK, 0, 1)
        os.close(copy)
        mounted.wait_for("end of the lock", lambda: self.gets(self.others[1]), MOMENT_SECONDS)

    def gets(self, file):
        with contextlib.suppress(BlockingIOError):
            own_lock(file, fcntl.F_WRLCK, 0, 1)
            return True

    def test_locks_of_processes(self):
        fcntl.lockf(self.here, fcntl.LOCK_EX | fcntl.LOCK_NB, 4, 0)
        again = os.open(self.point / "old", os.O_RDWR)
        fcntl.lockf(again, fcntl.LOCK_EX | fcntl.LOCK_NB, 4, 0)  # its own does not stand in a process's way
        self.assertFails(errno.EAGAIN, own_lock, self.others[0], fcntl.F_WRLCK, 3, 1)
        os.close(again)  # any close of the file ends all locks of the process
        own_lock(self.others[0], fcntl.F_WRLCK, 3, 1)
        self.assertFails(errno.EAGAIN, fcntl.lockf, self.here, fcntl.LOCK_EX | fcntl.LOCK_NB, 4, 0)

    def test_asking_who_holds_it(self):
        question = struct.pack("hhqqi4x", fcntl.F_WRLCK, os.SEEK_SET, 0, 10, 0)
        self.assertEqual(fcntl.fcntl(self.here, fcntl.F_OFD_GETLK, question)[:2], struct.pack("h", fcntl.F_UNLCK))
        own_lock(self.others[0], fcntl.F_WRLCK, 3, 2)
        answer = struct.unpack("hhqqi4x", fcntl.fcntl(self.here, fcntl.F_OFD_GETLK, question))
        self.assertEqual(answer[:4], (fcntl.F_WRLCK, os.SEEK_SET, 3, 2))

    def test_locks_of_whole_files(self):
        fcntl.flock(self.here, fcntl.LOCK_EX)
        for other in self.others:
            self.assertFails(errno.EAGAIN, fcntl.flock, other, fcntl.LOCK_EX | fcntl.LOCK_NB)
        fcntl.flock(self.here, fcntl.LOCK_UN)
        for other in self.others:
            fcntl.flock(other, fcntl.LOCK_EX | fcntl.LOCK_NB)
            self.assertFails(errno.EAGAIN, fcntl.flock, self.here, fcntl.LOCK_EX | fcntl.LOCK_NB)
            fcntl.flock(other, fcntl.LOCK_UN)

    def test_who_waits_for_a_lock_gets_it_or_is_killed(self):
        for does in ("fcntl.flock(file, fcntl.LOCK_EX)", "fcntl.lockf(file, fcntl.LOCK_EX)"):
            fcntl.flock(self.others[1], fcntl.LOCK_EX)
            own_lock(self.others[1], fcntl.F_WRLCK, 0, 0)
            killed, patient = self.child(does), self.child(does)
            for process in (killed, patient):
                self.tell(process)
                self.assertEqual(self.said(process, 0.1), "")
            killed.kill()
            self.assertEqual(killed.wait(MOMENT_SECONDS), -signal.SIGKILL)
            self.assertEqual(killed.stdout.read(), "")
            fcntl.flock(self.others[1], fcntl.LOCK_UN)
            own_lock(self.others[1], fcntl.F_UNLCK, 0, 0)
            self.assertEqual(self.said(patient, MOMENT_SECONDS), "done")
            patient.kill()
            patient.wait()


class Hung(Case):
    def setUp(self):
        super().setUp()
        (self.source / "old").write_bytes(b"0123456789")

    def source_holds(self):
        return {path.name: path.read_bytes() if path.is_file() else None for path in self.source.iterdir()}

    def hung(self, operation):
        """A process that has reached the operation and waits in it."""
        process = self.child(DOES[operation])
        path = "made" if operation == "directory" else "old"
        self.folder.hang(operation, path=path)
        self.tell(process)
        self.assertEqual(self.folder.wait_until_waiting(operation), [(operation, path)])
        self.assertEqual(self.said(process, 0.05), "")
        return process

    def killed(self, process, with_signal=signal.SIGKILL):
        began = time.monotonic()
        process.send_signal(with_signal)
        self.assertEqual(process.wait(MOMENT_SECONDS), -with_signal)
        self.assertLess(time.monotonic() - began, MOMENT_SECONDS)


class Hangs(Hung):
    def test_each_operation_waits_and_goes_on(self):
        after = {"write": {"old": b"NEW3456789"}, "rename": {"new": b"0123456789"},
                 "directory": {"old": b"0123456789", "made": None}}
        self.assertEqual(set(DOES), set(OPERATIONS))
        for operation in OPERATIONS:
            with self.subTest(operation=operation):
                before = self.source_holds()
                self.assertEqual(before, {"old": b"0123456789"})
                process = self.hung(operation)
                self.assertEqual(self.source_holds(), before)
                self.folder.go()
                self.assertEqual(self.said(process, MOMENT_SECONDS), "done")
                self.assertEqual((self.folder.waiting(), self.source_holds()), ([], after.get(operation, before)))
                self.killed(process)
                for path in self.source.iterdir():
                    path.rmdir() if path.is_dir() else path.unlink()
                (self.source / "old").write_bytes(b"0123456789")

    def test_each_operation_fails_as_it_is_told(self):
        for operation in OPERATIONS:
            for error in (errno.EIO, errno.ENOSPC, errno.ESTALE):
                with self.subTest(operation=operation, error=error):
                    before = self.source_holds()
                    process = self.child(DOES[operation])
                    # ESTALE makes the kernel ask once more, so these fail each time.
                    self.folder.fail(operation, errno.errorcode[error])
                    self.tell(process)
                    self.assertEqual(self.said(process, MOMENT_SECONDS), os.strerror(error))
                    self.assertEqual(self.source_holds(), before)
                    self.folder.go()
                    self.killed(process)

    def test_each_operation_takes_as_long_as_it_is_told(self):
        for operation in OPERATIONS:
            with self.subTest(operation=operation):
                process = self.child(DOES[operation])
                self.folder.delay(operation, 150)
                began = time.monotonic()
                self.tell(process)
                self.assertEqual(self.said(process, MOMENT_SECONDS), "done")
                self.assertGreaterEqual(time.monotonic() - began, 0.15)
                self.folder.go()
                self.killed(process)
                for path in self.source.iterdir():
                    path.rmdir() if path.is_dir() else path.unlink()
                (self.source / "old").write_bytes(b"0123456789")

    def test_who_is_killed_in_an_operation_ends_and_it_is_not_carried_out(self):
        for operation in OPERATIONS:
            for with_signal in (signal.SIGKILL, signal.SIGTERM):
                with self.subTest(operation=operation, signal=with_signal):
                    before = self.source_holds()
                    self.killed(self.hung(operation), with_signal)
                    mounted.wait_for("end of the wait", lambda: self.folder.waiting() == [], MOMENT_SECONDS)
                    self.folder.go()
                    self.assertEqual(self.source_holds(), before)

    def test_other_signals_do_not_end_a_wait(self):
        process = self.hung("write")
        process.send_signal(signal.SIGUSR1)
        self.assertEqual(self.said(process, 0.2), "")
        self.assertEqual(self.folder.waiting(), [("write", "old")])
        process.send_signal(signal.SIGUSR1)
        self.folder.go()
        self.assertEqual(self.said(process, MOMENT_SECONDS), "done")
        self.assertEqual(self.source_holds(), {"old": b"NEW3456789"})

    def test_after_such_signals_it_can_still_be_killed(self):
        process = self.hung("sync")
        process.send_signal(signal.SIGUSR1)
        self.assertEqual(self.said(process, 0.1), "")
        self.killed(process)

    def test_what_waits_may_fail_in_the_end(self):
        process = self.hung("write")
        self.folder.go("ETIMEDOUT")
        self.assertEqual(self.said(process, MOMENT_SECONDS), os.strerror(errno.ETIMEDOUT))
        self.assertEqual(self.source_holds(), {"old": b"0123456789"})
        (self.point / "old").write_bytes(b"later")
        self.assertEqual(self.source_holds(), {"old": b"later"})

    def test_by_path_by_number_and_so_many_times(self):
        (self.source / "deep").mkdir()
        (self.source / "deep/other").write_bytes(b"")
        self.folder.fail("write", "EIO", count=2, path="*/oth?r", after=2)
        old, other = self.opened(self.point / "old"), self.opened(self.point / "deep/other")
        for _ in range(5):
            os.pwrite(old, b"x", 0)
        os.pwrite(other, b"1", 0)
        for _ in range(2):
            self.assertFails(errno.EIO, os.pwrite, other, b"2", 0)
        os.pwrite(other, b"3", 1)
        self.assertEqual((self.source / "deep/other").read_bytes(), b"13")

    def test_the_third_and_all_later_ones_wait(self):
        file = self.opened(self.point / "old", os.O_RDONLY)
        self.folder.hang("read", after=3)
        self.assertEqual([os.pread(file, 1, 0), os.pread(file, 1, 1)], [b"0", b"1"])
        got = []
        threads = [threading.Thread(target=lambda: got.append(os.pread(file, 1, 2))) for _ in range(2)]
        for thread in threads:
            thread.start()
        self.addCleanup(self.folder.go)
        self.folder.wait_until_waiting("read", number=2)
        self.assertEqual(got, [])
        self.folder.go()
        for thread in threads:
            thread.join(MOMENT_SECONDS)
        self.assertEqual(got, [b"2", b"2"])

    def test_the_same_bytes_are_read_through_it_each_time(self):
        """Nothing that the kernel remembers answers in its place."""
        file = self.opened(self.point / "old", os.O_RDONLY)
        before = self.folder.counts()
        for _ in range(10):
            os.pread(file, 10, 0)
            os.stat(self.point / "old")
            os.path.exists(self.point / "missing")
        after = self.folder.counts()
        self.assertEqual(after["read"] - before["read"], 10)
        self.assertGreaterEqual(after["stat"] - before["stat"], 20)

    def test_a_rename_is_met_by_either_name(self):
        for path in ("old", "new"):
            self.folder.fail("rename", "EIO", path=path)
            self.assertFails(errno.EIO, os.rename, self.point / "old", self.point / "new")
            self.folder.go()
        os.rename(self.point / "old", self.point / "new")

    def test_any_is_each_of_them(self):
        self.folder.fail("any", "EIO")
        for does in (os.stat, os.listdir, os.mkdir, os.unlink):
            self.assertFails(errno.EIO, does, self.point / "old")

    def test_many_wait_at_once_and_the_rest_goes_on(self):
        (self.source / "free").write_bytes(b"free")
        file = self.opened(self.point / "old", os.O_RDONLY)
        self.folder.hang("read", path="old")
        threads = [threading.Thread(target=os.pread, args=(file, 1, 0)) for _ in range(100)]
        for thread in threads:
            thread.start()
        self.addCleanup(self.folder.go)
        self.folder.wait_until_waiting("read", number=100)
        self.assertEqual((self.point / "free").read_bytes(), b"free")
        self.folder.go()
        for thread in threads:
            thread.join(MOMENT_SECONDS)
            self.assertFalse(thread.is_alive())


class Ends(Hung):
    """The mount goes, whatever waits in it."""

    def test_it_is_taken_away_under_what_hangs(self):
        process = self.hung("read")
        subprocess.run(["fusermount3", "-u", "-z", self.point], check=True)
        self.assertFalse(os.path.ismount(self.point))
        self.assertEqual(self.said(process, 0.1), "")
        self.killed(process)
        self.assertEqual(self.folder.process.wait(MOMENT_SECONDS), 0)

    def test_told_to_end_while_something_hangs(self):
        process = self.hung("write")
        self.folder.process.terminate()
        self.assertEqual(self.folder.process.wait(MOMENT_SECONDS), 0)
        self.assertFalse(os.path.ismount(self.point))
        self.assertIn(self.said(process, MOMENT_SECONDS), (os.strerror(errno.ECONNABORTED), os.strerror(errno.ENOTCONN)))
        self.assertEqual((self.source_holds(), self.folder.address.exists()), ({"old": b"0123456789"}, False))

    def test_cut_off_while_something_hangs(self):
        process = self.hung("sync")
        subprocess.run(["umount", "--force", self.point], check=False, stderr=subprocess.DEVNULL)
        self.assertEqual(self.said(process, MOMENT_SECONDS), os.strerror(errno.ECONNABORTED))
        self.killed(process)

    def test_the_last_client_of_the_socket_leaves(self):
        process = self.hung("lock")
        with socket.socket(socket.AF_UNIX, socket.SOCK_STREAM) as second:
            second.connect(str(self.folder.address))
            second.sendall(b'{"do": "state"}\n')
            self.assertIn(b'"operation":"lock"', second.recv(1000))
        self.assertEqual(self.said(process, 0.2), "")  # the first client is still there
        self.folder.connection.close()
        self.assertEqual(self.said(process, MOMENT_SECONDS), "done")


class Words(Case):
    """What it can't understand it says in words, and does nothing."""

    def test_bad_lines(self):
        hang, fail, delay = '{"do":"hang"', '{"do":"fail"', '{"do":"delay"'
        for line, error in (
                ("", "the line is no JSON"), ("hang", "the line is no JSON"), ("{}}", "the line is no JSON"),
                ("[]", "the line is no object"), ("{}", "'do' is missing"), ('{"do":7}', "'do' is no text"),
                ('{"do":"wait"}', "unknown command 'wait'"),
                (hang + "}", "'at' is missing"), (hang + ',"at":[]}', "'at' is no list of operations"),
                (hang + ',"at":"read"}', "'at' is no list of operations"), (hang + ',"at":[1]}', "'at' is no text"),
                (hang + ',"at":["read","close"]}', "unknown operation 'close'"),
                (hang + ',"at":["read"],"ms":5}', "unknown field 'ms'"),
                (hang + ',"at":["read"],"path":5}', "'path' is no text"),
                (hang + ',"at":["read"],"after":0}', "'after' is no whole number from 1 to 1000000000"),
                (hang + ',"at":["read"],"after":1.5}', "'after' is no whole number from 1 to 1000000000"),
                (hang + ',"at":["read"],"after":18446744073709551615}', "'after' is no whole number from 1 to 1000000000"),
                (delay + ',"at":["read"]}', "'ms' is missing"),
                (delay + ',"at":["read"],"ms":-1}', "'ms' is no whole number from 0 to 1000000000"),
                (fail + ',"at":["read"]}', "'error' is missing"),
                (fail + ',"at":["read"],"error":"EVIL"}', "unknown error 'EVIL'"),
                (fail + ',"at":["read"],"error":"EIO","count":0}', "'count' is no whole number from 1 to 1000000000"),
                ('{"do":"go","error":5}', "'error' is no text"), ('{"do":"state","all":1}', "unknown field 'all'")):
            with self.subTest(line=line):
                self.assertEqual(self.folder.raw(line.encode()), {"ok": False, "error": error})
        self.assertEqual(self.folder.raw(b"\xff\x00"), {"ok": False, "error": "the line is no JSON"})
        (self.point / "file").write_bytes(b"not one of them set a rule")
        self.assertEqual((self.point / "file").read_bytes(), b"not one of them set a rule")

    def test_a_line_without_end(self):
        with socket.socket(socket.AF_UNIX, socket.SOCK_STREAM) as client:
            client.settimeout(MOMENT_SECONDS)
            client.connect(str(self.folder.address))
            client.sendall(b"x" * 70000)
            self.assertEqual(client.recv(1000), b'{"ok":false,"error":"the line is too long"}\n')
        self.assertEqual(self.folder.waiting(), [])

    def test_how_it_is_called(self):
        program = os.environ["VINTORAL_HANG_FOLDER"]
        point = self.root / "never"
        point.mkdir()
        for arguments, status, words in (([], 2, "hang-folder SOURCE MOUNTPOINT SOCKET\n"),
                                         ([self.root / "none", point, self.root / "s"], 1, "no folder"),
                                         ([self.source, point, self.root / ("s" * 120)], 1, "too long")):
            run = subprocess.run([program, *arguments], capture_output=True, text=True, timeout=MOMENT_SECONDS)
            self.assertEqual(run.returncode, status)
            self.assertIn(words, run.stderr)
            self.assertFalse(os.path.ismount(point))


if __name__ == "__main__":
    skip_without_fuse()
    mounted.separate()
    unittest.main()
