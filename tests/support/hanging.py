"""A folder that passes through to another one, and waits, hangs or fails at an operation when it is told to.

hang-folder (tests/support/hang-folder.cpp) is the file system; the program is named by VINTORAL_HANG_FOLDER.
"""
import json
import os
import pathlib
import socket
import subprocess
import sys
import time

OPERATIONS = ("open", "read", "write", "sync", "rename", "lock", "directory", "stat")

# It answers at once, whatever hangs behind it.
PATIENCE_SECONDS = 20

# What CTest shows as skipped.
SKIPPED = 77


def skip_without_fuse():
    """Ends the program, with words and with what CTest shows as skipped, on a machine that can't mount such a folder."""
    try:
        os.close(os.open("/dev/fuse", os.O_RDWR))
    except OSError as error:
        print(f"SKIPPED: no FUSE on this machine: {error}", file=sys.stderr)
        sys.exit(SKIPPED)


class HangingFolder:
    """`source` once more at `point`, as long as the context lasts; all threads of a test may use it.

    `operations` is one name or several: open, read, write, sync, rename, lock, directory, stat, any. `path` is a
    shell pattern over the path inside the folder, and `after` says with the how manieth such operation it begins.
    """

    def __init__(self, source, point):
        self.source, self.point = pathlib.Path(source), pathlib.Path(point)
        self.address = self.point.with_name(self.point.name + ".socket")
        self.process = self.connection = None

    def __enter__(self):
        log = open(self.point.with_name(self.point.name + ".log"), "ab")
        with log:
            self.process = subprocess.Popen([os.environ["VINTORAL_HANG_FOLDER"], self.source, self.point, self.address],
                                            stdin=subprocess.DEVNULL, stdout=log, stderr=log, start_new_session=True)
        try:
            self._connect()
            self.state()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        if self.connection:
            self.connection.close()
        self.process.terminate()
        try:
            self.process.wait(PATIENCE_SECONDS)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        # Where it was killed or cut off, the mount is left behind, and answers nobody who asks whether it is there.
        subprocess.run(["umount", "--lazy", self.point], check=False, stderr=subprocess.DEVNULL)

    def _connect(self):
        limit = time.monotonic() + PATIENCE_SECONDS
        while True:
            client = socket.socket(socket.AF_UNIX, socket.SOCK_STREAM)
            client.settimeout(PATIENCE_SECONDS)
            try:
                client.connect(str(self.address))
                break
            except OSError:
                client.close()
                if self.process.poll() is not None or time.monotonic() > limit:
                    raise RuntimeError(f"hang-folder is not there, see {self.point}.log") from None
                time.sleep(0.01)
        with client:
            self.connection = client.makefile("rwb")

    def raw(self, line):
        """The answer to one line as it stands."""
        self.connection.write(line + b"\n")
        self.connection.flush()
        return json.loads(self.connection.readline())

    def _do(self, command, **fields):
        given = {name: value for name, value in fields.items() if value is not None}
        answer = self.raw(json.dumps({"do": command, **given}).encode())
        if not answer["ok"]:
            raise ValueError(answer["error"])
        return answer

    def _rule(self, command, operations, path, after, **more):
        at = [operations] if isinstance(operations, str) else list(operations)
        self._do(command, at=at, path=path, after=after, **more)

    def hang(self, operations, path=None, after=None):
        """From the `after`th on they wait until go()."""
        self._rule("hang", operations, path, after)

    def delay(self, operations, milliseconds, path=None, after=None):
        self._rule("delay", operations, path, after, ms=milliseconds)

    def fail(self, operations, error, count=None, path=None, after=None):
        """`error` by its name ("EIO"); the first `count` of them, or all."""
        self._rule("fail", operations, path, after, error=error, count=count)

    def go(self, error=None):
        """No rules any more. What waits goes on, or fails with `error`."""
        self._do("go", error=error)

    def state(self):
        return self._do("state")

    def waiting(self):
        """What waits now, the longest first: (operation, path) each."""
        return [(each["operation"], each["path"]) for each in self.state()["waiting"]]

    def counts(self):
        """How many operations of each kind there have been."""
        return self.state()["counts"]

    def wait_until_waiting(self, operation=None, seconds=PATIENCE_SECONDS, number=1):
        """Returns what waits as soon as `number` operations of that name do."""
        limit = time.monotonic() + seconds
        while True:
            waiting = [each for each in self.waiting() if operation in (None, each[0])]
            if len(waiting) >= number:
                return waiting
            if time.monotonic() > limit:
                raise TimeoutError(f"{operation}: only {waiting} within {seconds} seconds")
            time.sleep(0.005)
