"""A screen of a test's own, with a window manager: what stands on it is read from memory, at once and pixel by pixel.

Everything that it starts ends with it. The test has mounts and processes of its own, see mounted.separate().
"""
import ctypes
import mmap
import os
import pathlib
import struct
import subprocess
import time

PATIENCE_SECONDS = 20
WIDTH, HEIGHT = 1366, 768
PIXEL = 4

RULES = """<openbox_config xmlns="http://openbox.org/3.4/rc">
  <theme><name>Clearlooks</name><titleLayout>LC</titleLayout></theme>
  <applications><application type="normal" name="vintoral"><decor>no</decor></application></applications>
</openbox_config>
"""


def separate():
    """No other screen of this machine is met, nor met by one."""
    sockets = pathlib.Path("/tmp/.X11-unix")
    sockets.mkdir(exist_ok=True)
    subprocess.run(["mount", "-t", "tmpfs", "screens", sockets], check=True)


class Attributes(ctypes.Structure):
    """XSetWindowAttributes, as far as it is used."""
    _fields_ = [("background_pixmap", ctypes.c_ulong), ("background_pixel", ctypes.c_ulong),
                ("border_pixmap", ctypes.c_ulong), ("border_pixel", ctypes.c_ulong), ("gravity", ctypes.c_int * 2),
                ("backing_store", ctypes.c_int), ("backing", ctypes.c_ulong * 2), ("save_under", ctypes.c_int),
                ("event_mask", ctypes.c_long), ("do_not_propagate", ctypes.c_long), ("override_redirect", ctypes.c_int),
                ("colormap", ctypes.c_ulong), ("cursor", ctypes.c_ulong)]


class CursorImage(ctypes.Structure):
    """XFixesCursorImage."""
    _fields_ = [("x", ctypes.c_short), ("y", ctypes.c_short), ("width", ctypes.c_ushort), ("height", ctypes.c_ushort),
                ("xhot", ctypes.c_ushort), ("yhot", ctypes.c_ushort), ("serial", ctypes.c_ulong),
                ("pixels", ctypes.POINTER(ctypes.c_ulong)), ("atom", ctypes.c_ulong), ("name", ctypes.c_char_p)]


BACKGROUND, OVERRIDE = 1 << 1, 1 << 9
COVER = 0x00AA3377


class Screen:
    """`folder` is empty; the program's home is in it."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self.home = self.folder / "home"
        self.started = []

    def __enter__(self):
        for name in ("home/Desktop", "home/.config/openbox", "run", "pixels"):
            (self.folder / name).mkdir(parents=True)
        (self.folder / "run").chmod(0o700)
        (self.home / ".config/openbox/rc.xml").write_text(RULES)
        self.environment = {**os.environ, "HOME": str(self.home), "XDG_RUNTIME_DIR": str(self.folder / "run"),
                            "QT_QPA_PLATFORM": "xcb"}
        try:
            self._start()
        except BaseException:
            self.__exit__()
            raise
        return self

    def __exit__(self, *_):
        for process in reversed(self.started):
            process.kill()
            process.wait()

    def launch(self, *command, **more):
        quiet = {"stdin": subprocess.DEVNULL, "stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
        process = subprocess.Popen(command, env=self.environment, **{**quiet, **more})
        self.started.append(process)
        return process

    def _start(self):
        read, write = os.pipe()
        self.launch("Xvfb", "-displayfd", str(write), "-screen", "0", f"{WIDTH}x{HEIGHT}x24", "-fbdir",
                    str(self.folder / "pixels"), "-nolisten", "tcp", "-noreset", "-nolock", pass_fds=[write])
        os.close(write)
        with os.fdopen(read) as number:
            self.environment["DISPLAY"] = f":{number.readline().strip()}"
        self._map()
        self.x = ctypes.CDLL("libX11.so.6")
        self.fixes = ctypes.CDLL("libXfixes.so.3")
        for function in (self.x.XOpenDisplay, self.x.XDefaultRootWindow, self.x.XCreateWindow):
            function.restype = ctypes.c_ulong
        self.fixes.XFixesGetCursorImage.restype = ctypes.POINTER(CursorImage)
        self.display = ctypes.c_void_p(self.x.XOpenDisplay(self.environment["DISPLAY"].encode()))
        self.root = ctypes.c_ulong(self.x.XDefaultRootWindow(self.display))
        self.cover = self._window()
        self.launch("openbox")
        # A window that comes while the window manager is starting is lost.
        self.wait(lambda: b"window id" in self.output("xprop", "-root", "_NET_SUPPORTING_WM_CHECK"), "window manager")

    def _map(self):
        """The screen's file is a picture in the X window dump format, and it is kept up to date."""
        with open(self.folder / "pixels/Xvfb_screen0", "rb") as file:
            self.memory = mmap.mmap(file.fileno(), 0, access=mmap.ACCESS_READ)
        head = struct.unpack(">25I", self.memory[:100])
        self.line, colours = head[12], head[19]
        self.at = head[0] + 12 * colours
        assert (head[4], head[5], head[11]) == (WIDTH, HEIGHT, 8 * PIXEL), head

    def _window(self):
        """Over the whole screen, and no business of the window manager."""
        looks = Attributes(background_pixel=COVER, override_redirect=1)
        window = self.x.XCreateWindow(self.display, self.root, 0, 0, WIDTH, HEIGHT, 0, 0, 1, None,
                                      ctypes.c_ulong(BACKGROUND | OVERRIDE), ctypes.byref(looks))
        return ctypes.c_ulong(window)

    # ---- Eyes ----

    def rows(self):
        """What stands on the screen: a row of pixels each, four bytes a pixel."""
        data = self.memory[self.at:self.at + HEIGHT * self.line]
        return [data[at:at + WIDTH * PIXEL] for at in range(0, HEIGHT * self.line, self.line)]

    def cursor(self):
        """The pointer's name and picture."""
        image = self.fixes.XFixesGetCursorImage(self.display)
        shape = image.contents
        pixels = tuple(shape.pixels[at] & 0xFFFFFFFF for at in range(shape.width * shape.height))
        name = (shape.name or b"").decode()
        self.x.XFree(image)
        return name, pixels

    def picture(self, file):
        subprocess.run(["convert", "-size", f"{WIDTH}x{HEIGHT}", "-depth", "8", "bgra:-", "-alpha", "off", "-strip", file],
                       input=b"".join(self.rows()), check=True)

    def cover_all(self):
        self.x.XMapRaised(self.display, self.cover)
        self.x.XSync(self.display, 0)

    def uncover(self):
        self.x.XUnmapWindow(self.display, self.cover)
        self.x.XSync(self.display, 0)

    # ---- Hands ----

    def output(self, *command):
        return subprocess.run(command, env=self.environment, capture_output=True, check=False).stdout

    def keys(self, *names, delay=60):
        self.output("xdotool", "key", "--delay", str(delay), *names)

    def type(self, *lines, delay=60):
        """Each with Enter behind it."""
        for line in lines:
            self.type_only(line, delay)
            self.keys("Return", delay=delay)

    def type_only(self, text, delay=60):
        self.output("xdotool", "type", "--delay", str(delay), text)

    def point(self, x, y):
        self.output("xdotool", "mousemove", str(x), str(y))

    def shows(self, title):
        """Is a window of such a title there? A regular expression."""
        return bool(self.output("xdotool", "search", "--onlyvisible", "--name", title).strip())

    def wait(self, met, what, seconds=PATIENCE_SECONDS):
        """Until it is; returns the seconds that it took."""
        began = time.monotonic()
        while not met():
            if time.monotonic() - began > seconds:
                raise TimeoutError(f"no {what} within {seconds} seconds")
            time.sleep(0.005)
        return time.monotonic() - began


def changes(before, after, gap=12):
    """The rectangles (left, top, right, bottom) in which two pictures differ; what lies closer together is one."""
    found = []
    for y, (one, other) in enumerate(zip(before, after)):
        if one == other:
            continue
        pixels = zip(memoryview(one).cast("I"), memoryview(other).cast("I"))
        for x in (x for x, (a, b) in enumerate(pixels) if a != b):
            for box in reversed(found):
                if box[0] - gap <= x <= box[2] + gap and y <= box[3] + gap:
                    box[:] = [min(box[0], x), box[1], max(box[2], x), y]
                    break
            else:
                found.append([x, y, x, y])
    return [tuple(box) for box in found]
