#!/usr/bin/env python3
"""printer.py FOLDER: a receipt printer of 80 mm, "tirilla", behind a CUPS server of its own on loopback, until it is told to end.

FOLDER/address says where the server is; what the printer prints comes into FOLDER/out as PDF.
"""
import pathlib
import signal
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tests/services"))
from cups_server import Paper, Server

folder = pathlib.Path(sys.argv[1])
signal.signal(signal.SIGTERM, lambda *_: sys.exit())
server = Server(folder, {"tirilla": Paper(80, [200], left=4, top=3, longest=3000)})
try:
    server.start()
    (folder / "address").write_text(server.address)
    signal.pause()
finally:
    server.end()
