"""Three gates work at random on a Samba share, the main one in the folder itself, while its server is killed and comes back.

smbnetfs takes no locks to its server, as the kernel's own mount would: the append lock of a gate behind the mount keeps the main
gate from nothing. So a lock of the test lets one "yes" wait for the other, and this day doesn't show that two gates may say it at
once; test_volume.py does, where the mounts have locks.
"""
import threading

import crew
import mounted
import share
import trouble

TURNS = 60
# Or the main gate, which has its disk to itself, would be through before the others have begun.
REST_SECONDS = 0.2


class SambaDay(crew.Crew, share.SharedSite):
    def test_the_server_dies_in_the_middle(self):
        self.begin(TURNS, REST_SECONDS, threading.Lock())
        self.until(60)
        self.break_off()
        mounted.wait_for("red bars at the connected gates", lambda: all(hand.seen_red for hand in self.hands[1:]), 60)
        done = len(self.books.done)
        self.until(done + 5)  # the main gate goes on
        self.come_back()
        self.work_ends()
        self.assertFalse(self.hands[0].seen_red)
        crew.check(self, self.books, self.folder.shared)


if __name__ == "__main__":
    mounted.separate()
    trouble.station.main()
