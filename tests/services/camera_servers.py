"""Cameras of a test's own: a PipeWire session with one, and servers on loopback. All of them end with the test."""
import json
import os
import pathlib
import signal
import socket
import subprocess
import sys
import time

HERE = pathlib.Path(__file__).resolve().parent


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as any_socket:
        return any_socket.getsockname()[1]


def wait_for(what, met, seconds=20):
    limit = time.monotonic() + seconds
    while not met():
        if time.monotonic() > limit:
            raise AssertionError(f"no {what} after {seconds} seconds")
        time.sleep(0.05)


class Process:
    """A process that can be ended, stopped, continued and started again."""

    def __init__(self, test, command, environment=None, ready=True, folder=None):
        self.command, self.environment, self.ready, self.folder = command, environment or os.environ, ready, folder
        self.process = None
        test.addCleanup(self.end)
        self.start()

    def start(self):
        self.process = subprocess.Popen(self.command, env=self.environment, cwd=self.folder, stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE if self.ready else subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL, text=True)
        if self.ready:
            self.process.stdout.readline()  # it can be asked from here on

    def end(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGCONT)
            self.process.kill()
            self.process.wait()
        if self.process.stdout:
            self.process.stdout.close()

    def freeze(self):
        self.process.send_signal(signal.SIGSTOP)

    def thaw(self):
        self.process.send_signal(signal.SIGCONT)


def rtsp_camera(test, port, *more):
    return Process(test, [os.environ["VINTORAL_RTSP_CAMERA"], str(port), *more])


def http_camera(test, port, *more):
    return Process(test, [sys.executable, "-B", str(HERE / "http_camera.py"), str(port), *more])


class Session:
    """A PipeWire session on a bus of its own, in `folder`."""

    def __init__(self, test, folder):
        folder = pathlib.Path(folder)
        folder.chmod(0o700)
        self.test, self.folder = test, folder
        self.environment = os.environ | {"XDG_RUNTIME_DIR": str(folder), "HOME": str(folder), "PIPEWIRE_DEBUG": "0",
                                         "DBUS_SESSION_BUS_ADDRESS": f"unix:path={folder}/bus"}
        self.bus = Process(test, ["dbus-daemon", "--session", "--nofork", "--print-address",
                                  f"--address=unix:path={folder}/bus"], self.environment)
        self.daemon = Process(test, ["pipewire"], self.environment, ready=False)
        wait_for("PipeWire", (folder / "pipewire-0").exists)
        self.manager = Process(test, ["wireplumber"], self.environment, ready=False)

    def camera(self, description, width=640, height=480):
        """Colour bars, 15 a second; there when this returns."""
        film = f"video/x-raw,format=YUY2,width={width},height={height},framerate=15/1"
        properties = f"properties,media.class=Video/Source,node.description={description},node.name=camera"
        camera = Process(self.test, ["gst-launch-1.0", "-q", "videotestsrc", "is-live=true", "pattern=smpte75", "!", film,
                                     "!", "pipewiresink", "mode=provide", f"stream-properties={properties}"],
                         self.environment, ready=False)
        wait_for(description, lambda: description in self.nodes())
        return camera

    def look(self, node):
        """0 when another program gets pictures of that camera."""
        return subprocess.run(["timeout", "5", "gst-launch-1.0", "-q", "pipewiresrc", f"target-object={node}",
                               "num-buffers=2", "!", "fakesink"], env=self.environment, stdout=subprocess.DEVNULL,
                              stderr=subprocess.DEVNULL, check=False).returncode

    def nodes(self):
        return subprocess.run(["pw-cli", "ls", "Node"], env=self.environment, capture_output=True, text=True, timeout=10,
                              check=False).stdout


class Film:
    """A film at work: the cameras as a station has them."""

    def __init__(self, test, environment=None):
        self.errors = test.enterContext(open(os.memfd_create("errors"), "w+", encoding="utf-8"))
        self.process = subprocess.Popen([os.environ["VINTORAL_FILM"]], stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=self.errors, text=True, env=environment or os.environ)
        for close in (self.process.stdout.close, self.process.stdin.close, self.process.wait, self.process.kill):
            test.addCleanup(close)

    def do(self, what, **more):
        self.process.stdin.write(json.dumps({"do": what} | more) + "\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def told(self):
        """Its lines on standard error so far."""
        return pathlib.Path(f"/proc/self/fd/{self.errors.fileno()}").read_text(encoding="utf-8").splitlines()

    def memory(self):
        """What it takes of the machine's memory, in bytes."""
        rollup = pathlib.Path(f"/proc/{self.process.pid}/smaps_rollup").read_text(encoding="ascii")
        return 1024 * int(rollup.split("Pss:")[1].split()[0])

    def end(self):
        """How long the end took, in milliseconds; 0 is how it went."""
        self.process.stdin.close()
        taken = json.loads(self.process.stdout.readline())["end"]
        return taken, self.process.wait(20)
