"""A house that has registered a million users: the first, the last and the next of them come in and leave as anybody does."""
import time

import trouble
from station import BLANK, RECORD, USER, Ficha, user
from tickets import TicketDay

MILLION = 1_000_000
# A look through 124 MB on a slow machine under load; an order of magnitude more than on a quiet one.
PATIENCE = 10


class ManyUsers(TicketDay, trouble.Trouble):
    def setUp(self):
        super().setUp()
        self.users = self.folder.write("Multimedia/Vintoral.USR", self.million())
        first = self.folder.write("Multimedia/Vintoral.NSR", BLANK.encode())
        with open(first, "r+b") as file:
            file.truncate((MILLION + 1) * RECORD.size)  # full of holes: what stands there is nobody's
        self.station = self.gate(barcodes=False)

    def million(self):
        rest = user("", "ANA", category="AUTOMOVIL", points=7)[20:]
        return b"".join(b"U%-19d" % number + rest for number in range(1, MILLION + 1))

    def in_time(self, work, *arguments):
        begun = time.monotonic()
        work(*arguments)
        self.assertLess(time.monotonic() - begun, PATIENCE)

    def record(self, number):
        with open(self.users, "rb") as file:
            file.seek((number - 1) * USER.size)
            return file.read(USER.size)

    def first_ficha(self, number):
        with open(self.folder.shared / "Vintoral.NSR", "rb") as file:
            file.seek(number * RECORD.size)
            return Ficha.decode(file.read(RECORD.size))

    def visit(self, plate, number, points):
        """In for an hour, and out again; what USR holds of the user before the stay and behind it."""
        self.station.clock("2026-11-20 14:00:00")
        self.in_time(self.station.save, 7, plate)
        slot = self.folder.slot(7)
        self.assertEqual((slot.Placa, slot.UsuarioPuntos), (plate, number))
        self.assertEqual(self.record(number), user(plate, slot.Nombre, category="AUTOMOVIL", points=points))
        self.station.clock("2026-11-20 15:00:00")
        self.in_time(self.station.retire, 7)
        self.assertEqual(self.record(number), user(plate, slot.Nombre, category="AUTOMOVIL", points=points + 4))
        return slot

    def test_the_first_the_last_and_the_next(self):
        self.visit("U1", 1, 7)
        self.visit("U500000", 500_000, 7)
        last = self.visit(f"U{MILLION}", MILLION, 7)
        self.assertEqual(self.first_ficha(MILLION), last)
        new = self.visit("NEW", MILLION + 1, 0)
        self.assertEqual(self.first_ficha(MILLION + 1), new)
        self.assertEqual(self.users.stat().st_size, (MILLION + 1) * USER.size)
        self.assertEqual([row.UsuarioPuntos for row in self.books.movements()], [11, 11, 11, 4])
        self.visit("NEW", MILLION + 1, 4)

    def test_with_all_first_fichas_lost(self):
        """The gap before the new one is filled with blank records."""
        self.folder.write("Multimedia/Vintoral.NSR", BLANK.encode())
        new = self.visit("NEW", MILLION + 1, 0)
        self.assertEqual((self.folder.shared / "Vintoral.NSR").stat().st_size, (MILLION + 2) * RECORD.size)
        self.assertEqual([self.first_ficha(number) for number in (1, MILLION, MILLION + 1)],
                         [Ficha.decode(BLANK.encode())] * 2 + [new])


if __name__ == "__main__":
    trouble.station.main()
