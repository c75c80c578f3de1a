"""A road between machines on which packets are lost and come late, on any kernel: a tunnel of each machine ends here, and
what comes out of one goes into another behind a delay, unless it is dropped. Two seeds give two roads.

(The kernel's own way, tc netem, is missing from many kernels of virtual machines.)
"""
import ctypes
import fcntl
import heapq
import os
import random
import select
import struct
import threading
import time

TUNSETIFF, IFF_TUN, IFF_NO_PI = 0x400454CA, 1, 0x1000
CLONE_NEWNET = 0x40000000
PACKET = 1 << 16
NAME = "road0"


def tunnel(machine):
    """A tunnel that leads out of this machine; its other end, a descriptor of this program."""
    libc = ctypes.CDLL(None, use_errno=True)
    made = []

    def make():  # a thread of its own, since it goes into the machine's network
        with open(f"/proc/{machine.keeper.pid}/ns/net", "rb") as network:
            if libc.setns(network.fileno(), CLONE_NEWNET) != 0:
                raise OSError(ctypes.get_errno(), "setns")
        end = os.open("/dev/net/tun", os.O_RDWR | os.O_NONBLOCK | os.O_CLOEXEC)
        fcntl.ioctl(end, TUNSETIFF, struct.pack("16sH22x", NAME.encode(), IFF_TUN | IFF_NO_PI))
        made.append(end)

    thread = threading.Thread(target=make)
    thread.start()
    thread.join()
    machine.run("ip", "link", "set", NAME, "up")
    return made[0]


class BadRoad(threading.Thread):
    """Between all machines, from start to end()."""

    def __init__(self, site, seed, lost, delay_seconds):
        super().__init__(name="bad road")
        self.dice = random.Random(seed)
        self.lost, self.delay = lost, delay_seconds
        self.site = site
        self.ends = {machine.address: tunnel(machine) for machine in site.values()}
        self.waiting = []
        self.count = self.dropped = 0
        self.over = threading.Event()
        self.failure = None
        for machine in site.values():
            for other in site.values():
                if other is not machine:
                    machine.run("ip", "route", "replace", other.address, "dev", NAME, "src", machine.address)

    def run(self):
        try:
            self.carry()
        except OSError as failure:
            self.failure = failure

    def carry(self):
        while not self.over.is_set():
            wait = min(0.05, max(0.0, self.waiting[0][0] - time.monotonic())) if self.waiting else 0.05
            for end in select.select(list(self.ends.values()), [], [], wait)[0]:
                self.take(os.read(end, PACKET))
            while self.waiting and self.waiting[0][0] <= time.monotonic():
                self.give(heapq.heappop(self.waiting)[2])

    def take(self, packet):
        self.count += 1
        if self.dice.random() < self.lost:
            self.dropped += 1
            return
        heapq.heappush(self.waiting, (time.monotonic() + self.delay * self.dice.random(), self.count, packet))

    def give(self, packet):
        if packet[0] >> 4 != 4:
            return
        end = self.ends.get(".".join(map(str, packet[16:20])))
        if end is not None:
            try:
                os.write(end, packet)
            except BlockingIOError:
                self.dropped += 1

    def end(self):
        """Back to the good wires. Raises what ended the road before its time."""
        for machine in self.site.values():
            machine.plug_in()
        self.over.set()
        self.join()
        for end in self.ends.values():
            os.close(end)
        if self.failure:
            raise self.failure
