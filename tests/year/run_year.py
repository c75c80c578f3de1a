#!/usr/bin/env python3
"""Drives the year and prints its totals. Arguments: --days N, --seed N, --driver PROGRAM."""
import argparse
import os
import pathlib
import sys
import tempfile
import time

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "scenarios"))
from year import Year


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("--days", type=int, default=365)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--driver")
    parser.add_argument("--patience", type=int)
    arguments = parser.parse_args()
    if arguments.driver:
        os.environ["VINTORAL_DRIVER"] = os.path.abspath(arguments.driver)
    began = time.monotonic()
    with tempfile.TemporaryDirectory(prefix="vintoral-year-", dir="/dev/shm" if os.path.isdir("/dev/shm") else None) as root:
        year = Year(root, arguments.days, arguments.seed, patience=arguments.patience, errors=open("/tmp/year.err", "wb"))
        try:
            year.run()
        finally:
            for gate in year.gates.values():
                gate.end()
    for kind, total in sorted(year.reports.sums.items()):
        print(f"{kind:32}{total:>18}")
    print(f"{time.monotonic() - began:.1f} s")


main()
