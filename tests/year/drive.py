"""Drives a year, or some days of it, and prints its totals."""
import argparse
import os
import pathlib
import sys
import tempfile
import time

from year import Year

MEMORY = "/dev/shm"  # what a year writes must not wait for a disk


def a_folder():
    return tempfile.TemporaryDirectory(prefix="vintoral-year-", dir=MEMORY if os.path.isdir(MEMORY) else None)


def drive(root, days, seed, patience=None, whole=0, tell=None):
    """A year that is over, each of its reports in agreement with the account. `tell`: where to write a line a month."""
    year = Year(pathlib.Path(root), days, seed, patience, whole)

    def after_day(days):
        if tell and days % 30 == 0:
            print(f"{days} days, {year.ledger.gone} vehicles, {sum(year.ledger.taken.values())} taken", file=tell, flush=True)

    try:
        year.run(after_day)
        return year
    finally:
        year.end()


def main():
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--days", type=int, default=365)
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--patience", type=int, help="milliseconds of a pause that pass before the clock jumps; all if left out")
    arguments = parser.parse_args()
    began = time.monotonic()
    with a_folder() as root:
        year = drive(root, arguments.days, arguments.seed, arguments.patience, tell=sys.stderr)
    for kind, total in sorted(year.reports.sums.items()):
        print(f"{kind:32}{total:>18}")
    print(f"{year.ledger.gone} vehicles left, {len(year.ledger.inside)} are inside; {len(year.ledger.users)} users")
    print(f"{arguments.days} days in {time.monotonic() - began:.1f} s")


if __name__ == "__main__":
    main()
