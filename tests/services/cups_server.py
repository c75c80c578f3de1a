"""A CUPS server of a test's own, on loopback, in a folder of its own; its queues write what they would print into files."""
import os
import pathlib
import signal
import socket
import subprocess
import time

POINTS_IN_MM = 72 / 25.4

FILES = """
ServerRoot {root}/etc
ServerBin {root}/bin
CacheDir {root}/cache
StateDir {root}/state
RequestRoot {root}/spool
TempDir {root}/tmp
AccessLog {root}/access
ErrorLog {root}/error
PageLog {root}/page
SystemGroup root
"""

SERVER = """
LogLevel debug
Listen 127.0.0.1:{port}
Browsing No
DefaultAuthType None
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order allow,deny
Allow all
</Limit>
</Policy>
"""

# Takes a job's pages and lays them down complete or not at all, named by queue and number of the job.
BACKEND = """#!/bin/sh
[ $# -gt 0 ] || exit 0
out="${DEVICE_URI#slip:}/$PRINTER-$1"
cat "${6:--}" >"$out.part" && mv "$out.part" "$out.pdf"
"""

HEAD = """*PPD-Adobe: "4.3"
*FormatVersion: "4.3"
*FileVersion: "1.0"
*LanguageVersion: English
*LanguageEncoding: ISOLatin1
*PCFileName: "SLIP.PPD"
*Manufacturer: "Test"
*Product: "(Slip)"
*ModelName: "Slip"
*ShortNickName: "Slip"
*NickName: "Slip"
*PSVersion: "(3010.000) 0"
*LanguageLevel: "3"
*ColorDevice: False
*DefaultColorSpace: Gray
*FileSystem: False
*Throughput: "1"
*LandscapeOrientation: Plus90
*TTRasterizer: Type42
*cupsVersion: 2.4
*cupsFilter2: "application/vnd.cups-pdf application/pdf 0 -"
"""


def points(millimetres):
    return round(millimetres * POINTS_IN_MM, 2)


class Paper:
    """What a driver says of its paper, in millimetres; the first of `lengths` is the one that is loaded."""

    def __init__(self, width, lengths, left=0, top=0, longest=0):
        self.width, self.lengths, self.left, self.top, self.longest = width, lengths, left, top, longest

    def ppd(self):
        sizes = [(f"w{self.width}h{length}", length) for length in self.lengths]
        lines = [HEAD.rstrip()]
        if self.longest:
            lines += ["*VariablePaperSize: True", f'*MaxMediaWidth: "{points(self.width)}"',
                      f'*MaxMediaHeight: "{points(self.longest)}"',
                      f'*HWMargins: {points(self.left)} {points(self.top)} {points(self.left)} {points(self.top)}']
        for name in ("PageSize", "PageRegion"):
            lines += [f"*OpenUI *{name}/Paper: PickOne", f"*OrderDependency: 10 AnySetup *{name}",
                      f"*Default{name}: {sizes[0][0]}"]
            lines += [f'*{name} {size}/{size}: "<</PageSize[{points(self.width)} {points(length)}]>>setpagedevice"'
                      for size, length in sizes]
            lines += [f"*CloseUI: *{name}"]
        for name, value in (("ImageableArea", "{left} {top} {right} {foot}"), ("PaperDimension", "{width} {length}")):
            lines += [f"*Default{name}: {sizes[0][0]}"]
            lines += [f'*{name} {size}/{size}: "' + value.format(
                left=points(self.left), top=points(self.top), right=points(self.width - self.left),
                foot=points(length - self.top), width=points(self.width), length=points(length)) + '"'
                for size, length in sizes]
        if self.longest:
            lines += ['*CustomPageSize True: "pop pop pop <</PageSize[5 -2 roll]>>setpagedevice"',
                      f"*ParamCustomPageSize Width: 1 points 72 {points(self.width)}",
                      f"*ParamCustomPageSize Height: 2 points 36 {points(self.longest)}",
                      "*ParamCustomPageSize WidthOffset: 3 points 0 0", "*ParamCustomPageSize HeightOffset: 4 points 0 0",
                      "*ParamCustomPageSize Orientation: 5 int 0 0"]
        return "\n".join(lines) + "\n"


def free_port():
    with socket.create_server(("127.0.0.1", 0)) as any_socket:
        return any_socket.getsockname()[1]


class Server:
    """`queues`: names with their paper, or None without a driver; the first one is the default."""

    def __init__(self, root, queues):
        self.root, self.port, self.process = pathlib.Path(root), free_port(), None
        self.address = f"127.0.0.1:{self.port}"
        for name in ("etc/ppd", "bin/backend", "cache", "spool", "state", "out", "tmp"):
            (self.root / name).mkdir(parents=True)
        # What the server starts runs as a user of its own.
        self.root.chmod(0o755)
        for name in ("out", "tmp"):
            (self.root / name).chmod(0o1777)
        for name in ("filter", "daemon", "notifier", "monitor", "cgi-bin"):
            (self.root / "bin" / name).symlink_to(f"/usr/lib/cups/{name}")
        backend = self.root / "bin/backend/slip"
        backend.write_text(BACKEND)
        backend.chmod(0o755)
        (self.root / "etc/cups-files.conf").write_text(FILES.format(root=self.root))
        (self.root / "etc/cupsd.conf").write_text(SERVER.format(port=self.port))
        printers = ""
        for number, (name, paper) in enumerate(queues.items()):
            kind = "Printer" if number else "DefaultPrinter"
            printers += (f"<{kind} {name}>\nDeviceURI slip:{self.root}/out\nState Idle\nAccepting Yes\nShared No\n"
                         f"</{kind}>\n")
            if paper:
                (self.root / f"etc/ppd/{name}.ppd").write_text(paper.ppd())
        (self.root / "etc/printers.conf").write_text(printers)

    def start(self):
        with open(self.root / "console", "ab") as console:
            self.process = subprocess.Popen(
                ["/usr/sbin/cupsd", "-f", "-c", self.root / "etc/cupsd.conf", "-s", self.root / "etc/cups-files.conf"],
                stdin=subprocess.DEVNULL, stdout=console, stderr=console, start_new_session=True)
        self.wait_for("CUPS", lambda: self.ask("lpstat", "-r").stdout.startswith("scheduler is running"))

    def end(self, how=signal.SIGTERM):
        if self.process is None:
            return
        self.process.send_signal(signal.SIGCONT)
        self.process.send_signal(how)
        try:
            self.process.wait(10)
        except subprocess.TimeoutExpired:
            self.process.kill()
            self.process.wait()
        self.process = None

    def environment(self):
        return os.environ | {"CUPS_SERVER": self.address, "LC_ALL": "C.UTF-8"}

    def ask(self, *command):
        return subprocess.run(command, env=self.environment(), capture_output=True, text=True, timeout=20, check=False)

    def wait_for(self, what, met, seconds=20):
        limit = time.monotonic() + seconds
        while not met():
            if time.monotonic() > limit:
                raise TimeoutError(f"no {what} within {seconds} seconds")
            time.sleep(0.05)

    def printed(self):
        """The files that have come out, in the order of their jobs."""
        return sorted((self.root / "out").glob("*.pdf"), key=lambda file: int(file.stem.split("-")[1]))

    def wait_printed(self, count):
        self.wait_for(f"{count} slips", lambda: len(self.printed()) >= count, 60)
        return self.printed()
