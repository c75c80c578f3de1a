"""What happens when, at which gate: the work of a driven year in its order."""
import datetime
import heapq
import itertools

# What happens in a minute happens at these seconds, so that no work of a gate runs into the next minute; shifts change and
# reports are taken behind all of it.
TRAFFIC_SECONDS, REPORT_SECOND = (0, 15, 30), 50
MINUTE = datetime.timedelta(minutes=1)


class Agenda:
    """Work behind `end` is never done."""

    def __init__(self, end):
        self.end = end
        self.work, self.order = [], itertools.count()
        self.taken = {}  # how many of a gate's seconds of a minute have their work

    def at(self, moment, gate, action, *what):
        """In the gate's next free seconds from that minute on."""
        moment = moment.replace(second=0, microsecond=0)
        while self.taken.get((moment, gate), 0) == len(TRAFFIC_SECONDS):
            moment += MINUTE
        second = self.taken.get((moment, gate), 0)
        self.taken[moment, gate] = second + 1
        self.put(moment.replace(second=TRAFFIC_SECONDS[second]), gate, action, *what)

    def put(self, moment, gate, action, *what):
        if moment < self.end:
            heapq.heappush(self.work, (moment, next(self.order), gate, action, what))

    def forget_before(self, day):
        self.taken = {key: count for key, count in self.taken.items() if key[0] >= day}

    def until(self, moment):
        """The work that is due before it, piece by piece: moment, gate, action, what it is about."""
        while self.work and self.work[0][0] < moment:
            at, _, gate, action, what = heapq.heappop(self.work)
            yield at, gate, action, what
