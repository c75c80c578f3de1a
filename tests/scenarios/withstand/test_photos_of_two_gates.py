"""Two gates on one machine save and retire at the same time: every ficha has its own photo, in every folder.

What stands before a camera when a plate comes is the number of that plate as a colour, so that a photo tells whose it is.
"""
import os
import random
import select
import signal
import threading
import time

import trouble
from station import CONTROL, DELETE, ENTER, INSERT, Folder

from cameras import A, ACT, DTL, HST, INI, USR, CameraDay, is_whole, numbered, plain

SEED = 12
TURNS = 150 if "VINTORAL_EVERY" not in os.environ else 40
SPAN = 0.03  # seconds: about what a retiring takes
LEVELS, STEP, DARKEST = 6, 40, 20  # a colour's channels, told apart through the encoder


def color_of(count):
    return tuple(DARKEST + STEP * (count // LEVELS ** place % LEVELS) for place in range(3))


def count_of(color):
    return sum((channel - DARKEST + STEP // 2) // STEP * LEVELS ** place for place, channel in enumerate(color))


class TwoGates(CameraDay, trouble.Trouble):
    def connected(self):
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        return second

    def frames_for(self, counts):
        paths = {}
        for count in counts:
            path = self.root / f"frame{count}.bmp"
            path.write_bytes(plain(color_of(count)))
            paths[count] = str(path)
        return paths

    def test_a_photo_tells_its_number(self):
        gate = self.running()
        for count, path in self.frames_for((0, 1, 35, 36, 2 * TURNS - 1, LEVELS ** 3 - 1)).items():
            gate.do("camera", name="CAMARA", frame=path)
            gate.save(1)
            self.assertEqual(count_of(self.color(numbered(ACT, 1))), count % LEVELS ** 3)
            gate.retire(1)

    # ---- One gate's hands ----

    def come_in(self, gate, number, count, frames, more):
        """True when the ficha came in under this number; another gate may have been faster."""
        gate.do("camera", name="CAMARA", frame=frames[count])
        if self.try_call_up(gate, number) != "new":
            self.settle(gate)
            return False
        gate.set("TxtCampo(1)", f"N{count}")
        gate.focus("TxtCampo(1)")
        gate.key(ENTER)
        if more:
            gate.key(A, CONTROL)
            gate.advance(1000)
        gate.key(INSERT)
        self.answer_all(gate)
        return True

    def go_out(self, gate, number):
        if self.try_call_up(gate, number) != "inside":
            return self.settle(gate)
        plate = gate.caption("LblCampo(1)")
        gate.key(DELETE)
        self.answer_all(gate)
        self.settle(gate)
        return plate

    def work(self, gate, door, numbers, frames, log):
        dice = random.Random(f"{SEED} {door}")
        for turn in range(TURNS):
            number = dice.choice(numbers)
            if dice.random() < 0.6:
                count = 2 * turn + door
                more = dice.random() < 0.3
                if self.come_in(gate, number, count, frames, more):
                    log.append((count, number, more))
            else:
                self.go_out(gate, number)

    def both_work(self, numbers):
        frames = self.frames_for(range(2 * TURNS))
        gates = [self.running(), self.running(self.connected())]
        logs, failures = ([], []), []

        def run(door):
            try:
                self.work(gates[door], door, numbers[door], frames, logs[door])
            except BaseException as failure:  # noqa: B902  a thread's failure is the test's
                failures.append(failure)

        threads = [threading.Thread(target=run, args=(door,)) for door in (0, 1)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join(240)
        if failures:
            raise failures[0]
        self.assertGreater(min(map(len, logs)), TURNS // 8)
        return gates, logs[0] + logs[1]

    # ---- The books afterwards ----

    def fichas(self, register):
        return [ficha for ficha in self.rows(self.folder, register) if ficha.EnUso and ficha.Placa]

    def assertOwn(self, folder, number, plate):
        """The photo there is that of the plate N and its number; and whole."""
        data = (self.folder / numbered(folder, number)).read_bytes()
        self.assertTrue(is_whole(data), f"{folder} {number}")
        self.assertEqual(count_of(self.color(numbered(folder, number))), int(plate[1:]) % LEVELS ** 3, f"{folder} {number}")

    def assertBooks(self, log):
        self.legal(self.folder)
        inside, left = self.fichas("ACT"), self.fichas("HST")
        self.assertGreater(min(len(inside), len(left)), 3)
        for ficha in inside:
            self.assertOwn(ACT, ficha.Posicion, ficha.Placa)
        for row in left:
            if (self.folder / numbered(HST, row.Posicion)).exists():
                self.assertStampedOf(row)
        users = [record[:20].decode().rstrip() for record in self.users()]
        for number, plate in enumerate(users, start=1):
            for folder in (USR, INI):
                if (self.folder / numbered(folder, number)).exists():
                    self.assertOwn(folder, number, plate)
        self.assertFoldersOf(inside, left, log)

    def assertStampedOf(self, row):
        """The photo of an exit has its stamps at the top; the middle is the vehicle's."""
        self.assertOwn(HST, row.Posicion, row.Placa)

    def users(self):
        data = (self.folder / "Multimedia/Vintoral.USR").read_bytes()
        return [data[at:at + 124] for at in range(0, len(data), 124)]

    def assertFoldersOf(self, inside, left, log):
        """Each folder belongs to one ficha, and its photo is that one's."""
        plates = {ficha.Placa for ficha in (*inside, *left)}
        for path in (self.folder / DTL).rglob("*.jpg"):
            name = path.parent.name
            plate = name.split(" ")[0] if " P0" in name else name[:-4]
            count = count_of(self.color(path.relative_to(self.folder.path)))
            self.assertEqual((count, plate in plates), (int(plate[1:]) % LEVELS ** 3, True), name)

    def test_each_with_numbers_of_its_own(self):
        """Whoever came in with a frame has its photo, and so has the row of whoever left."""
        _, log = self.both_work((range(1, 15), range(501, 515)))
        self.assertBooks(log)
        for row in self.fichas("HST"):
            self.assertTrue((self.folder / numbered(HST, row.Posicion)).exists(), row)
        self.assertEqual([path.name for path in self.folder.shared.rglob("*") if path.name.startswith(".")], [])

    def test_on_the_same_numbers(self):
        """Slots that one gate empties while the other one waits for them: still nobody has a photo of somebody else."""
        _, log = self.both_work((range(1, 7), range(1, 7)))
        self.legal(self.folder)
        for ficha in self.fichas("ACT"):
            self.assertOwn(ACT, ficha.Posicion, ficha.Placa)
        self.assertGreater(len(self.fichas("HST")), 10)

    def test_a_slot_that_is_emptied_and_taken_at_once(self):
        """One gate stands still at any moment of its retiring, and the other one saves under the same number meanwhile."""
        frames = self.frames_for(range(2 * TURNS))
        leaving, coming = [self.running(), self.running(self.connected())]
        dice, met = random.Random(SEED), 0
        for turn in range(TURNS):
            self.come_in(leaving, 5, 2 * turn, frames, False)
            leaving.call_up(5)
            leaving.key(DELETE)
            leaving.send_line(b'{"op":"answer","button":"yes"}')
            time.sleep(dice.random() * SPAN)
            os.kill(leaving.process.pid, signal.SIGSTOP)
            came = self.come_in(coming, 5, 2 * turn + 1, frames, False)
            os.kill(leaving.process.pid, signal.SIGCONT)
            under_way = not select.select([leaving.process.stdout], [], [], 0)[0]
            leaving.read_line()
            slot = self.folder.slot(5)
            if came and slot.EnUso:
                met += under_way
                self.assertOwn(ACT, 5, slot.Placa)
            self.go_out(coming, 5)
        self.assertGreater(met, 0)


if __name__ == "__main__":
    trouble.station.main()
