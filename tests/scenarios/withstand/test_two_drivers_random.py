"""Two gates that save and retire at random on one folder, both at once: no row of the history is lost, none is double."""
import collections
import json
import queue
import random
import threading

import trouble
from station import DELETE, Folder, stamp

SEED = 71
ROUNDS = 300
SIMULTANEOUS = 500
NOW, ENTRY = "2026-11-20 13:59:57", stamp("14:00", "20/11/2026")


class TwoGates(trouble.Trouble):
    def connected(self):
        """The folder of a second gate, whose data are the first one's."""
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        return second

    def work(self, gate, door, numbers, mine, theirs, log):
        """One gate's day: it saves under its own numbers; who is inside leaves through either gate."""
        dice = random.Random(f"{SEED} {door}")
        free = list(numbers)
        for turn in range(ROUNDS):
            try:
                number, plate = mine.get_nowait()
            except queue.Empty:
                number = None
            if number is not None and dice.random() < 0.6:
                self.assertTrue(self.try_retire(gate, number), f"{plate} can't leave by {door}")
                log.append(("retire", number, plate, door))
                if number in numbers:
                    free.append(number)
                continue
            if number is not None:
                mine.put((number, plate))
            if not free:
                continue
            number, plate = free.pop(dice.randrange(len(free))), f"{door}T{turn}"
            self.assertTrue(self.try_save(gate, number, plate), f"{plate} can't come in by {door}")
            log.append(("save", number, plate, door))
            dice.choice((mine, theirs)).put((number, plate))

    def test_nothing_is_lost_between_them(self):
        first = self.running()
        second = self.running(self.connected())
        queues = queue.Queue(), queue.Queue()
        logs, failures = ([], []), []

        def run(gate, door, numbers, mine, theirs, log):
            try:
                self.work(gate, door, numbers, mine, theirs, log)
            except BaseException as failure:  # noqa: B902  a thread's failure is the test's
                failures.append(failure)

        threads = [threading.Thread(target=run, args=(first, "01", range(1, 100), *queues, logs[0])),
                   threading.Thread(target=run, args=(second, "02", range(501, 600), *queues[::-1], logs[1]))]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join(120)
        if failures:
            raise failures[0]

        self.legal(self.folder)
        log = logs[0] + logs[1]
        saved = {plate: (number, door) for kind, number, plate, door in log if kind == "save"}
        retired = {plate: (number, door) for kind, number, plate, door in log if kind == "retire"}
        rows = self.folder.history()
        self.assertEqual(collections.Counter(row.Placa for row in rows), collections.Counter(retired.keys()))
        self.assertEqual([row.Posicion for row in rows], list(range(2, len(rows) + 2)))
        for row in rows:
            number, door = retired[row.Placa]
            self.assertEqual((row.EnUso, row.NumeroFicha, row.MarcaEntrada, row.PorteriaEntrada, row.PorteriaSalida),
                             (-1, f"{number:04}", ENTRY, saved[row.Placa][1], door))
        inside = {slot.Placa: slot.Posicion for slot in self.rows(self.folder, "ACT") if slot.EnUso}
        self.assertEqual(inside, {plate: number for plate, (number, _) in saved.items() if plate not in retired})
        # The day was a busy one at both gates, with departures through the other one's gate.
        self.assertGreater(min(len(logs[0]), len(logs[1])), ROUNDS // 2)
        self.assertGreater(sum(saved[plate][1] != retired[plate][1] for plate in retired), 20)

    def test_rows_appended_at_the_same_moment(self):
        gates = [self.running(), self.running(self.connected())]
        numbers = [range(1, 11), range(501, 511)]
        plates = []
        for round_ in range(SIMULTANEOUS // 10):
            for turn in range(10):
                for gate, door in zip(gates, numbers):
                    plates.append(f"R{round_}N{door[turn]}")
                    self.assertTrue(self.try_save(gate, door[turn], plates[-1]))
            for turn in range(10):
                for gate, door in zip(gates, numbers):
                    gate.call_up(door[turn])
                    gate.key(DELETE)
                # Both answers are on their way before either is read.
                for gate in gates:
                    gate.send_line(b'{"op":"answer","button":"yes"}')
                for gate in gates:
                    gate.reply = json.loads(gate.read_line())
                    self.assertEqual((gate.reply["ok"], gate.reply["waiting"]), (True, None))
        rows = self.folder.history()
        self.assertEqual(sorted(row.Placa for row in rows), sorted(plates))
        self.assertEqual([row.Posicion for row in rows], list(range(2, len(rows) + 2)))

    def test_one_ficha_retired_by_both_at_once_leaves_two_rows(self):
        first = self.running()
        second = self.running(self.connected())
        self.assertTrue(self.try_save(first, 33, "BOTH"))
        for gate in (first, second):
            self.assertEqual(self.try_call_up(gate, 33), "inside")
            gate.key(DELETE)
        for gate in (first, second):
            gate.answer("yes")
        rows = self.folder.history()
        self.assertEqual([(row.Placa, row.Posicion, row.PorteriaSalida) for row in rows],
                         [("BOTH", 2, "01"), ("BOTH", 3, "01")])
        self.assertEqual(self.folder.slot(33).EnUso, 0)


if __name__ == "__main__":
    trouble.station.main()
