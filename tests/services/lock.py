"""The lock that a gate takes to append a row, taken by a test."""
import fcntl
import os
import struct

F_OFD_SETLK = 37
FAR_BEHIND_ANY_DATA = 1 << 62


def append(file):
    """Until give_back, or some time behind the file's end: a mount tells its server of that when it likes.

    Raises BlockingIOError where another has it.
    """
    set_lock(file, fcntl.F_WRLCK)


def give_back(file):
    set_lock(file, fcntl.F_UNLCK)


def set_lock(file, kind):
    fcntl.fcntl(file, F_OFD_SETLK, struct.pack("hhqqi4x", kind, os.SEEK_SET, FAR_BEHIND_ANY_DATA, 1, 0))
