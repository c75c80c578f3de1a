"""The log of functions and the lock behind the list of sales: cut, scrambled, on a full disk. The station starts, logs and
closes; a log that was damaged is one of a thousand records again, and a damaged lock is one that the keypad opens."""
import random

import trouble
from station import CONTROL, ESC, F9, MIXED_LENGTH, mixed, read_mixed
from trouble import some

SEED = 5001
RECORDS = 1000
PAGE = trouble.PAGE
FDR, EXT = "Recursos/Vintoral.FDR", "Recursos/Vintoral.EXT"
LOCK = 5000 * MIXED_LENGTH


def code(data, number):
    return read_mixed(data[(number - 1) * MIXED_LENGTH:number * MIXED_LENGTH])[3] // 10000


class DamagedLog(trouble.Trouble):
    def setUp(self):
        super().setUp()
        gate = self.process()
        self.start(gate)
        gate.answer("ok")
        for minute in range(30):
            gate.key(ord("T"), CONTROL)
            gate.key(ESC)
        gate.close()
        self.log = (self.folder / FDR).read_bytes()
        self.sales = (self.folder / EXT).read_bytes()
        self.gate = self.process()

    def a_short_day(self):
        self.start(self.gate)
        self.answer_all(self.gate, "ok")
        self.gate.key(ord("T"), CONTROL)
        self.gate.key(ESC)
        self.answer_all(self.gate, "ok")
        self.assertTrue(self.try_close(self.gate))

    def damaged(self, name, data):
        self.folder.write(name, data)
        self.a_short_day()
        return (self.folder / name).read_bytes()

    def test_a_log_cut_anywhere_is_whole_again(self):
        borders = [border + by for border in range(PAGE, len(self.log), PAGE) for by in (-1, 0, 1)]
        for length in some([*range(0, 3 * MIXED_LENGTH), *borders, len(self.log) - 1]):
            with self.subTest(length=length):
                data = self.damaged(FDR, self.log[:length])
                self.assertEqual(len(data), RECORDS * MIXED_LENGTH)
                self.assertEqual([code(data, number) for number in range(1, 5)], [10, 126, 110, 125])
                kept = min(length // MIXED_LENGTH - 1, RECORDS - 4)
                if kept > 0:
                    self.assertEqual(data[4 * MIXED_LENGTH:(4 + kept) * MIXED_LENGTH],
                                     self.log[MIXED_LENGTH:(1 + kept) * MIXED_LENGTH])

    def test_a_scrambled_log_has_its_records(self):
        dice = random.Random(SEED)
        for turn in some(range(40)):
            with self.subTest(turn=turn):
                scrambled = bytearray(self.log)
                for _ in range(dice.choice((1, 20, 46000))):
                    scrambled[dice.randrange(len(scrambled))] = dice.randrange(256)
                data = self.damaged(FDR, bytes(scrambled) + dice.randbytes(dice.choice((0, 100))))
                self.assertEqual(len(data), RECORDS * MIXED_LENGTH)
                self.assertEqual([code(data, number) for number in range(1, 5)], [10, 126, 110, 125])

    def test_a_lock_cut_anywhere_leaves_a_gate_that_works(self):
        locked = self.sales[:LOCK] + mixed("12345", "0" * 16 + "10", number1=-1)
        for length in some([0, 1, 45, 46, PAGE, LOCK - 1, *range(LOCK, LOCK + MIXED_LENGTH)]):
            with self.subTest(length=length):
                data = self.damaged(EXT, locked[:length])
                self.assertEqual(data, locked[:length] if length else self.sales)

    def test_a_scrambled_lock_can_be_opened_by_hand(self):
        dice = random.Random(SEED)
        for turn in some(range(200)):
            with self.subTest(turn=turn):
                record = bytearray(mixed("12345", "0" * 16 + "10", number1=-1))
                for _ in range(dice.choice((1, 3, 46))):
                    record[dice.randrange(len(record))] = dice.randrange(256)
                self.folder.write(EXT, self.sales[:LOCK] + bytes(record))
                self.start(self.gate)
                self.answer_all(self.gate, "ok")
                locked = self.gate.shown("ImgIndicador(0)")
                self.gate.key(F9)
                self.assertEqual(self.gate.reply["waiting"], {"form": "Form7"})
                if locked:
                    self.gate.type(record[4:4 + record[2]].decode("ascii"))
                    self.gate.key(13)
                    self.assertEqual(self.gate.box["title"], "Vintoral - Acceso Permitido")
                    self.gate.answer("ok")
                else:
                    self.gate.key(ESC)
                self.assertIsNone(self.gate.reply["waiting"])
                self.assertEqual((self.folder / EXT).read_bytes()[LOCK:], bytes(record))


class FullDisk(trouble.SmallDisk):
    def test_it_costs_events_and_leaves_the_log_whole(self):
        gate = self.running()
        before = (self.folder / FDR).read_bytes()
        self.fill()
        gate.key(ord("T"), CONTROL)
        gate.key(ESC)
        self.assertEqual((self.folder / FDR).read_bytes(), before)
        gate.advance(60000)
        minute = (self.folder / FDR).read_bytes()
        self.assertEqual(minute[MIXED_LENGTH:], before[MIXED_LENGTH:])
        self.assertNotEqual(minute, before)  # a minute needs no room
        self.empty()
        gate.key(ord("T"), CONTROL)
        gate.key(ESC)
        after = (self.folder / FDR).read_bytes()
        self.assertEqual([code(after, number) for number in (1, 2, 3)], [10, 110, 125])
        self.assertEqual(len(after), RECORDS * MIXED_LENGTH)

    def test_a_first_start_without_room_has_no_lock_and_no_log(self):
        self.fill(40)
        gate = self.process()
        self.start(gate)
        self.answer_all(gate, "ok")
        for name in (FDR, EXT):
            file = self.folder / name
            self.assertIn(file.stat().st_size if file.exists() else 0, (0, RECORDS * MIXED_LENGTH, 5001 * MIXED_LENGTH))


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
