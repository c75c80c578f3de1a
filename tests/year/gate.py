"""One gate of a driven year: its driver at the other end of the pipe, its clock, and its file of reports."""
import datetime
import json
import subprocess

from checks import expect
from station import ALT, CONTROL, Folder, Station

COPY_MILLISECONDS = 5000  # between the two copies of an invoice


def op(name, **fields):
    return {"op": name, **fields}


def key(code, mask=0):
    return op("key", code=code, mask=mask)


def moment_of(reply):
    return datetime.datetime.fromisoformat(reply["now"])


def box_of(reply):
    return ((reply["waiting"] or {}).get("box") or {}).get("text")


def texts_of(reply):
    """What stands in the controls that were asked for, in the order of asking."""
    return [values["Text"] for values in reply["values"].values()]


def printed(replies):
    """The lines of each document that was printed."""
    return [[line for step in event["ops"] if step["op"] == "text" for line in step["text"].replace("\r\n", "\n").split("\n")]
            for reply in replies for event in reply["events"] if event["event"] == "print"]


class Gate(Station):
    """`patience`: how many milliseconds of a pause pass; what is left of it is a jump of the clock. None: all of it passes."""

    def __init__(self, number, folder):
        self.launch()
        self.number = number
        self.folder = Folder(folder)
        self.patience = None
        self.codes = False  # does it read codes, or take numbers
        self.now = None
        self.passing = []  # operations of a pause, sent with the next work

    def launch(self):
        """A driver without a station."""
        super().__init__(subprocess.DEVNULL)

    def batch(self, *operations):
        """All at once, behind the pause before them; the replies to them, each of them ok."""
        sent = [*self.passing, *operations]
        self.process.stdin.write(b"".join(json.dumps(one).encode() + b"\n" for one in sent))
        self.process.stdin.flush()
        self.transcript = sent[-8:]
        replies = [json.loads(self.read_line()) for _ in sent]
        for one, reply in zip(sent, replies):
            if not reply["ok"]:
                raise AssertionError(f"P{self.number} {one}: {reply['error']}")
        if self.passing:
            expect(moment_of(replies[len(self.passing) - 1]), self.now, f"the clock of P{self.number}")
        self.passing = []
        self.now = moment_of(replies[-1])
        return replies[len(sent) - len(operations):]

    def until(self, moment):
        """Time passes up to the moment; nothing happens where it has come already."""
        pause = int((moment - self.now).total_seconds() * 1000)
        if pause <= 0:
            return
        ticks = pause if self.patience is None else min(pause, self.patience)
        self.passing.append(op("advance", ms=ticks))
        if ticks < pause:
            self.passing.append(op("clock", now=moment.strftime("%Y-%m-%d %H:%M:%S")))
        self.now = moment

    def copies(self, invoice):
        """P02 gives the customer one and keeps one."""
        return 0 if not invoice else 2 if self.number == "02" else 1

    def launched(self, replies, command):
        told = [event["command"] for reply in replies for event in reply["events"] if event["event"] == "launch"]
        expect(told, [command], f"P{self.number} opens")

    def switch_codes(self):
        """Codes instead of numbers, or back."""
        reply, = self.batch(key(ord("B"), CONTROL | ALT))
        if box_of(reply):
            self.batch(op("answer", button="ok"))  # which reminds of the font
        self.codes = not self.codes

    def page(self):
        return (self.folder / "Recursos/Vintoral.HTML").read_bytes()

    def text_report(self):
        return (self.folder / "Recursos/Vintoral.RGT").read_bytes().decode("cp1252")
