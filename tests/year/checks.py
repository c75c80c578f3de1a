"""What the station has against what the account has. A difference tells both."""
import pathlib
import sys

# What a driven year shares with the scenarios is found there by all that import this.
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[1] / "scenarios"))


def expect(found, expected, what):
    if found != expected:
        raise AssertionError(f"{what}: the station has {found!r}, the account {expected!r}")


def expect_same(found, expected, what):
    """Two lists; only where they part is told."""
    if found == expected:
        return
    pairs = enumerate(zip(found, expected))
    at = next((n for n, (one, other) in pairs if one != other), min(len(found), len(expected)))
    expect((len(found), found[at:at + 2]), (len(expected), expected[at:at + 2]), f"{what}, from {at} on")


def filled(lines):
    """Without the lines that are empty, and without blanks at their ends."""
    return [line.rstrip() for line in lines if line.strip()]
