"""A disk with room for so many more pages and no more, before each of the writes of a ticket: what is there is whole.

All registers end where a page does, so that each appended record needs a page of the disk of its own.
"""
import unittest

import trouble
from station import BLANK, DELETE, HOME, INSERT, RECORD, USER, inside, stamp, user
from trouble import PAGE
from tickets import CODE, CODES, PASS, Books, TicketDay, codes_file, pass_record

ENTRY = stamp("08:00", "20/11/2026")
EARNED = 6 * 4
LEAVES, ENTERS = "INSIDE000005", "OLD000000001"
SHARED = "Multimedia/Vintoral."


def up_to_a_page(size):
    """How many records until the next one lies across the end of a page."""
    return next(n for n in range(1, PAGE) if n * size // PAGE != (n + 1) * size // PAGE and n * size % PAGE)


USERS, PASSES, ROWS = up_to_a_page(USER.size), up_to_a_page(PASS.size), up_to_a_page(RECORD.size)


class FullDisk(trouble.SmallDisk, TicketDay):
    PAGES = 512

    def setUp(self):
        super().setUp()
        self.books = Books(self.folder)

    def full_gate(self):
        """A gate with the number 5 inside, whose user is the first one; the first pass is outside."""
        row = inside(1, ENTRY, "GONE")._replace(MarcaSalida=ENTRY, PorteriaSalida="01")
        rows = b"".join(row._replace(Posicion=n).encode() for n in range(2, ROWS + 1))
        self.folder.write(SHARED + "HST", BLANK.encode() + rows)
        self.folder.write(SHARED + "CRD", row.encode() + rows)
        self.folder.write(SHARED + "NSR", BLANK.encode() + rows)
        self.folder.write(SHARED + "CDB", codes_file(s5=LEAVES))
        self.folder.write(SHARED + "CFR", b"".join(pass_record(f"OLD{n:09}", f"P{n}", left=5) for n in range(1, PASSES + 1)))
        users = [user(f"P{n}", points=n) for n in range(1, USERS + 1)]
        return self.gate(inside(5, ENTRY, "IN5", UsuarioPuntos=2), users=users)

    def registers(self):
        return {name: (self.folder / (SHARED + name)).read_bytes()
                for name in ("ACT", "HST", "NSR", "CRD", "USR", "CDB", "CFR")}

    def assertWhole(self):
        self.legal(self.folder)
        for name, size in (("CFR", PASS.size), ("CDB", CODE.size)):
            self.assertEqual((self.folder / (SHARED + name)).stat().st_size % size, 0, name)
        self.assertEqual((self.folder / (SHARED + "CDB")).stat().st_size, CODE.size * CODES)

    def test_a_new_ticket_of_a_new_user_with_a_pass(self):
        made = {"user": 0, "first ficha": 0, "pass": 0}
        for room in range(6):
            for step in ("before the work", "before the question", "before the answer"):
                with self.subTest(room=room, full=step):
                    self.empty()
                    with self.full_gate() as gate:
                        before = self.registers()
                        self.new_pass(gate, room, step, made, before)
        # With too little room some of it is not made, and with enough all of it.
        self.assertEqual(made, {"user": 3 * 5, "first ficha": 3 * 4, "pass": 3 * 3})

    def steps(self, room, full, *works):
        for name, work in zip(("before the work", "before the question", "before the answer"), works):
            if name == full:
                self.fill(leave=room)
            work()

    def new_pass(self, gate, room, step, made, before):
        def form():
            gate.key(HOME)
            gate.set("TxtCampo(1)", "new")
            gate.set("TxtMaxEntrada", "3")
        self.steps(room, step, form, lambda: gate.key(INSERT), lambda: gate.answer("yes"))
        self.assertNothingRead(gate)
        self.assertWhole()
        after, slot = self.registers(), self.folder.slot(1)
        self.assertEqual((slot.EnUso, slot.Placa), (-1, "NEW"))
        self.assertRegex(self.books.codes()[1][0], "^[0-9A-Z]{12}$")
        users, passes = self.books.users(), self.books.passes()
        self.assertEqual(after["USR"][:len(before["USR"])], before["USR"])
        self.assertEqual(after["CFR"][:len(before["CFR"])], before["CFR"])
        if slot.UsuarioPuntos:
            self.assertEqual((slot.UsuarioPuntos, users[-1].Placa, len(users)), (USERS + 1, "NEW", USERS + 1))
            made["user"] += 1
            made["first ficha"] += self.books.first_fichas()[USERS:] == [slot]
        else:
            self.assertEqual((len(users), after["NSR"]), (USERS, before["NSR"]))
        if len(passes) > PASSES:
            self.assertEqual((passes[-1].CodigoPase, len(passes)), (self.books.codes()[1][0], PASSES + 1))
            made["pass"] += 1
        # The next one, with room again, is made whole.
        self.empty()
        code = self.ticket(gate, "next", validity="2")
        self.assertEqual((self.books.users()[-1].Placa, self.books.passes()[-1].CodigoPase), ("NEXT", code))
        self.assertWhole()

    def test_a_departure(self):
        for room in range(4):
            for step in ("before the work", "before the question", "before the answer"):
                with self.subTest(room=room, full=step):
                    self.empty()
                    with self.full_gate() as gate:
                        before = self.registers()
                        self.departure(gate, room, step, before)

    def departure(self, gate, room, step, before):
        self.steps(room, step, lambda: gate.set("TxtBarCode", LEAVES), lambda: gate.key(DELETE), lambda: gate.answer("yes"))
        self.assertWhole()
        after = self.registers()
        if room == 0:
            self.assertEqual(after, before)  # the row of the history has no room, so nothing has changed
            self.assertOnDisplay(gate, 5)  # so the operator sees that it is not done
            self.empty()
            gate.key(DELETE)
            gate.answer("yes")
            after = self.registers()
        self.assertNothingRead(gate)
        self.assertEqual((self.folder.slot(5).EnUso, self.books.codes()), (0, {}))
        row = self.folder.history()[-1]
        self.assertEqual((row.Placa, row.Posicion, row.UsuarioPuntos), ("IN5", ROWS + 1, 2 + EARNED))
        self.assertEqual(self.books.users()[1].Puntos, 2 + EARNED)
        if room == 1:  # none for the movement
            self.assertEqual(after["CRD"], before["CRD"])
            self.empty()
            return self.leave(gate, self.ticket(gate, "p1"))
        self.assertEqual(after["CRD"], before["CRD"] + row.encode())

    def test_a_pass_that_comes_back_needs_no_room(self):
        for step in ("before the work", "before the question", "before the answer"):
            with self.subTest(full=step):
                self.empty()
                with self.full_gate() as gate:
                    self.steps(0, step, lambda: gate.set("TxtBarCode", ENTERS), lambda: gate.advance(1000),
                               lambda: gate.answer("yes"))
                    slot = self.folder.slot(1)
                    self.assertEqual((slot.EnUso, slot.Placa, slot.UsuarioPuntos), (-1, "P1", 1))
                    self.assertEqual(self.books.passes()[0].RestantesPase, 4)
                    self.assertEqual(self.books.codes()[1], (ENTERS, "0001"))
                    self.assertWhole()

    def test_a_first_pass_where_no_register_can_be_made(self):
        """Without a CFR: it gets its name, or not even that, and the vehicle comes in."""
        with self.full_gate() as gate:
            (self.folder / (SHARED + "CFR")).unlink()
            self.fill()
            code = self.ticket(gate, "p3", validity="3")
            self.assertEqual(self.books.codes()[1], (code, "0001"))
            self.assertEqual(self.books.passes(), [])
            self.empty()
            second = self.ticket(gate, "p4", validity="3")
            self.assertEqual([record.CodigoPase for record in self.books.passes()], [second])
            self.assertWhole()


if __name__ == "__main__":
    trouble.own_mounts()
    unittest.TestCase.maxDiff = 300
    trouble.station.main()
