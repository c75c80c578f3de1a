"""How long the screen waits for a slip, p99: at most 20 ms while CUPS is well, at most 100 ms when it never answers; and what
ten queues cost the start of the station: at most 1.1 times the start without any.

CUPS is a server of this program's own, on loopback: python3 bench/print_wait.py build/release/bin/vintoral-window-bench
"""
import os
import pathlib
import shutil
import socket
import statistics
import subprocess
import sys
import tempfile
import time

PROJECT = pathlib.Path(__file__).resolve().parent.parent
sys.path.insert(0, str(PROJECT / "tests/services"))
from cups_server import Paper, Server, free_port  # noqa: E402

BENCH = sys.argv[1]
ROLL = Paper(80, [200], left=4, longest=3000)
STARTS = 31
SLIPS = 100  # as many as the bench prints


def run(home, server, *arguments):
    environment = os.environ | {"CUPS_SERVER": server, "HOME": str(home), "XDG_RUNTIME_DIR": str(home / "run"),
                                "QT_QPA_PLATFORM": "offscreen", "QT_LOGGING_RULES": "*.warning=false"}
    # A spooler that never answers loses slips, each with a line.
    return subprocess.run([BENCH, *arguments], env=environment, check=True, stdout=subprocess.PIPE,
                          stderr=subprocess.DEVNULL, text=True, timeout=120).stdout.split()


def print_times(name, most, home, station, server):
    slip, listing = run(home, server, "--print-times", str(station))
    print(f"a slip, {name}: p99 {float(slip):.3f} ms of the screen (at most {most}); the list of printers, longest: {listing} ms")


def start_to_idle(home, station, server):
    begun = time.clock_gettime_ns(time.CLOCK_MONOTONIC)
    return (int(run(home, server, "--station", str(station))[0]) - begun) / 1e6


def compare_starts(home, station, root):
    with_ten = Server(root / "ten", {f"cola{i}": ROLL for i in range(10)})
    without = Server(root / "none", {})
    try:
        with_ten.start()
        without.start()
        times = {with_ten.address: [], without.address: []}
        start_to_idle(home, station, without.address)
        for _ in range(STARTS):
            for server, taken in times.items():
                taken.append(start_to_idle(home, station, server))
    finally:
        with_ten.end()
        without.end()
    ten, none = map(statistics.median, times.values())
    print(f"start to idle: ten queues {ten:.1f} ms, none {none:.1f} ms, ratio {ten / none:.2f} (at most 1.1)")


def main():
    with tempfile.TemporaryDirectory() as folder:
        root = pathlib.Path(folder)
        root.chmod(0o755)
        home, station = root / "home", root / "station"
        (home / "Desktop").mkdir(parents=True)
        (home / "Desktop/Vintoral.desktop").write_text("[Desktop Entry]\n")
        (home / "run").mkdir(mode=0o700)
        (station / "Recursos").mkdir(parents=True)
        (station / "Recursos/Vintoral.RLD").touch()  # starts beside a station that runs on this machine
        (station / "Fotos").mkdir()
        subprocess.run([PROJECT / "scripts/install-data", station], check=True)
        shutil.copy(sorted((PROJECT / "data/wallpapers").glob("*.jpg"))[0], station / "Fotos/Bench.jpg")

        server = Server(root / "cups", {"roll": ROLL})
        try:
            server.start()
            print_times("CUPS alive", 20, home, station, server.address)
            server.wait_printed(SLIPS)
        finally:
            server.end()
        with socket.create_server(("127.0.0.1", 0), backlog=100) as silent:
            print_times("CUPS never answers", 100, home, station, f"127.0.0.1:{silent.getsockname()[1]}")
        print_times("no CUPS", 100, home, station, f"127.0.0.1:{free_port()}")
        compare_starts(home, station, root)


main()
