"""The values of the panic alert: no kill and no full disk leaves a mixture of two settings."""
import json
import os
import random
import subprocess
import tempfile
import threading
import time

import trouble
from station import ALT, CONTROL, MIXED_LENGTH, Folder, read_mixed

P = 80
KILLS = int(os.environ.get("VINTORAL_KILLS", "500")) // 5
SEED = 20261122


def values_of(folder):
    """The seven values on disk; None where the file has none."""
    file = folder / "Recursos/Vintoral.DAT"
    data = file.read_bytes() if file.exists() else b""
    if len(data) < 15 * MIXED_LENGTH:
        return None
    records = [read_mixed(data[at:at + MIXED_LENGTH]) for at in range(MIXED_LENGTH, 15 * MIXED_LENGTH, MIXED_LENGTH)]
    return ["".join(part for i in pair for part in records[i][:2]) for pair in ((i, i + 1) for i in range(0, 14, 2))]


def of(number):
    return [f"{number:06} de muchos caracteres en cuatro piezas {i}" for i in range(7)]


def arm(number):
    """The operations that arm with the values of that number; the alert is off before and behind."""
    yield {"op": "key", "code": P, "mask": CONTROL | ALT}
    for i, value in enumerate(of(number)):
        yield {"op": "set", "control": f"Form9.TxtCall({i})", "text": value}
    yield {"op": "click", "control": "Form9.CmdPanico"}
    yield {"op": "key", "code": P, "mask": CONTROL | ALT}
    yield {"op": "answer", "button": "yes"}


class FullDisk(trouble.SmallDisk):
    def test_what_could_not_be_kept_counts_all_the_same(self):
        for had_file in (False, True):
            with self.subTest(had_file=had_file):
                folder = Folder(self.disk / f"P{had_file}")
                folder.path.mkdir()
                gate = self.running(folder)
                if had_file:
                    for operation in arm(1):
                        self.assertTrue(gate.raw(json.dumps(operation).encode())["ok"])
                self.fill()
                for operation in list(arm(2))[:-2]:
                    self.assertTrue(gate.raw(json.dumps(operation).encode())["ok"])
                self.assertTrue(gate.shown("ImgPanico"))
                mail, = [event for event in gate.key(123)["events"] if event["event"] == "mail"]
                self.assertEqual(mail["subject"], of(2)[0])
                # Where the file stood already, its bytes have their place.
                self.assertEqual(values_of(folder), of(2) if had_file else None)
                self.empty()
                gate.end()


class Killed(trouble.Trouble):
    def run_and_kill(self, numbers, pause):
        """Arms with one number after the other; kills after a while. The last one that was confirmed."""
        with open(self.root / "stderr", "ab") as errors:
            process = subprocess.Popen([trouble.station.driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=errors)
        watch = threading.Timer(pause, process.kill)
        watch.start()
        confirmed, sent = None, None
        try:
            for operation in self.begin:
                self.ask(process, operation)
            for number in numbers:
                sent = number
                for operation in arm(number):
                    self.ask(process, operation)
                    if operation.get("control") == "Form9.CmdPanico":
                        confirmed = number
        except (BrokenPipeError, EOFError):
            pass
        finally:
            watch.cancel()
            process.kill()
            process.wait()
            for pipe in (process.stdin, process.stdout):
                try:
                    pipe.close()
                except BrokenPipeError:
                    pass
        return confirmed, sent

    def ask(self, process, operation):
        process.stdin.write(json.dumps(operation).encode() + b"\n")
        process.stdin.flush()
        line = process.stdout.readline()
        if not line:
            raise EOFError
        self.assertTrue(json.loads(line)["ok"], line)

    def test_the_values_are_those_of_one_setting(self):
        tempfile.tempdir = None  # real syncs make the moments between two writes long enough to be hit
        (self.root / "desktop").mkdir()
        with self.process() as gate:
            gate.do("start", dir=str(self.folder.path), desktop=str(self.root / "desktop"), cameras=["CAMARA"])
            self.answer_all(gate, "ok")
            gate.close()
        self.begin = [{"op": "start", "dir": str(self.folder.path), "desktop": str(self.root / "desktop"), "cameras": ["CAMARA"]}]
        dice = random.Random(SEED)
        number, before = 0, None  # None: what the first closing wrote
        end = time.monotonic() + 40
        for _ in range(KILLS):
            numbers = range(number + 1, number + 1000)
            # The alert may have been left armed: it begins disarmed.
            self.disarm()
            confirmed, sent = self.run_and_kill(numbers, dice.uniform(0.005, 0.12))
            found = values_of(self.folder)
            # What was confirmed last, or what was being written when the kill came.
            possible = {confirmed or before, sent or before}
            self.assertIn(found, [[""] * 7 if each is None else of(each) for each in possible])
            before = int(found[0][:6]) if found[0] else None
            number = sent or number
            if time.monotonic() > end:
                break
        self.assertGreater(number, 10)

    def disarm(self):
        with self.process() as gate:
            gate.do("start", **{key: value for key, value in self.begin[0].items() if key != "op"})
            if gate.shown("ImgPanico"):
                gate.key(P, CONTROL | ALT)
                gate.answer("yes")


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
