"""The registers of codes, passes, users and points cut at every length, scrambled, missing or read-only, on a day with all of
them: a new pass, a departure by ticket, a pass that comes back.

A second account of the day, on the bytes that the damage left, tells what each register holds in the end, to the byte.
"""
import os
import stat

import trouble
from damage import DamagedFolder
from station import (BLANK, CONFIRM_RETIRE, CONFIRM_SAVE, DELETE, ESC, HOME, INSERT, RECORD, USER, ansi, fresh_register, inside,
                     mixed, screen_state, stamp, user)
from tickets import CODE, DAYS, ENTRIES, PASS, code_record, codes_file, pass_record
from trouble import some

TODAY = "20/11/2026"
ENTRY, NOW = stamp("08:15", TODAY), stamp("14:00", TODAY)
EARNED = 5 * 4 + 3  # of 5 hours and 45 minutes
PRICE = 30000 * 10000  # a car's from the fifth hour on
MOST = 999999
LEAVES, STAYS, ENTERS, DAILY = "INSIDE000002", "INSIDE000003", "ENTRIES00001", "DAYS00000003"

REGISTERS = ACT, HST, NSR, CRD, USR, CDB, CFR = [
    f"Multimedia/Vintoral.{name}" for name in ("ACT", "HST", "NSR", "CRD", "USR", "CDB", "CFR")]


def departed(plate, row):
    return inside(row, ENTRY, plate)._replace(MarcaSalida=ENTRY, PorteriaSalida="01", Posicion=row)


def fichas():
    return [inside(2, ENTRY, "IN2", UsuarioPuntos=1), inside(3, ENTRY, "IN3", UsuarioPuntos=2)]


def intact():
    return {
        ACT: fresh_register(*fichas()),
        HST: BLANK.encode(),
        NSR: BLANK.encode() + b"".join(ficha.encode() for ficha in fichas()) + departed("PASS1", 9)._replace(
            UsuarioPuntos=3).encode(),
        CRD: departed("IN2", 2).encode() + departed("PASS1", 3).encode(),
        USR: user("IN2", "ANA", points=7) + user("IN3") + user("PASS1", "EVA", "ROA", "555", "VIP", "MOTOCICLETA", 50),
        CDB: codes_file(s2=LEAVES, s3=STAYS),
        CFR: pass_record(ENTERS, "PASS1", left=2) + pass_record("", "OLD", left=1)
             + pass_record(DAILY, "DAILY", DAYS, ENTRY, 9),
        "Multimedia/Vintoral.LBL": b"".join(ansi(text, 20) for text in ("NUMERO FICHA", "PLACA", "NOMBRE", "APELLIDO",
                                                                      "TELEFONO", "NOTA")) + b"\0\0" + b"\xff\xff" * 5,
        "Recursos/Vintoral.DAT": screen_state(mixed(0, 0, mark=-1), mixed(None, None, mark=-1)),
    }


class Image:
    """The bytes of a register, and how a station writes its records."""

    def __init__(self, data, blank):
        self.data, self.blank, self.size = bytearray(data), blank, len(blank)

    def __len__(self):
        return len(self.data) // self.size

    def __getitem__(self, number):
        record = bytes(self.data[(number - 1) * self.size:number * self.size])
        return record + self.blank[len(record):]

    def __setitem__(self, number, record):
        at = (number - 1) * self.size
        while len(self.data) < at:
            self.data.append(self.blank[len(self.data) % self.size])
        self.data[at:at + self.size] = record

    def find(self, text):
        """The first whole record that begins with this text in its first field, case ignored; 0 for none."""
        width = 20 if self.size == USER.size else 50
        wanted = text.encode().upper()
        return next((n for n in range(1, len(self) + 1) if self[n][:width].strip(b" ").upper() == wanted), 0)


class Account:
    """The same day on paper. What the station told of it is taken where damage leaves it open."""

    BLANKS = {ACT: BLANK.encode(), HST: BLANK.encode(), NSR: BLANK.encode(), CRD: BLANK.encode(), USR: user(""),
              CDB: code_record(), CFR: pass_record()}

    def __init__(self, files):
        self.of = {name: Image(files.get(name, b""), blank) for name, blank in self.BLANKS.items()}
        self.present = set(files)

    def enters(self, slot, code, plate, fields):
        """Who comes in; `fields` are those behind the plate, as of a record of a user."""
        users, first, codes = self.of[USR], self.of[NSR], self.of[CDB]
        number = users.find(plate) or len(users) + 1
        points = USER.unpack(users[number])[6] if number <= len(users) else 0
        ficha = inside(slot, NOW, plate, fields[4], UsuarioPuntos=number, Nombre=fields[0], Apellido=fields[1],
                       Telefono=fields[2], Observacion=fields[3])
        users[number] = user(plate, *fields, points)
        if number == len(users):
            first[number + 1] = ficha.encode()
        self.of[ACT][slot] = ficha.encode()
        if CDB in self.present:
            codes[slot] = code_record(code, f"{slot:04}")

    def gets_pass(self, code, plate, left):
        passes = self.of[CFR]
        place = next((n for n in range(1, len(passes) + 1) if not passes[n][:50].strip(b" ")), len(passes) + 1)
        passes[place] = pass_record(code, plate, left=left)

    def spends(self, code):
        passes = self.of[CFR]
        number = passes.find(code)
        fields = list(PASS.unpack(passes[number]))
        if fields[2] != ENTRIES:
            return
        if fields[4] > 1:
            fields[4] -= 1
        else:
            fields[0] = b" " * 50
        passes[number] = PASS.pack(*fields)

    def leaves(self, ficha):
        users = self.of[USR]
        left = ficha._replace(EnUso=0, MarcaSalida=NOW, PorteriaSalida="01")
        self.of[ACT][ficha.Posicion] = left.encode()
        if CDB in self.present:
            self.of[CDB][ficha.Posicion] = code_record()
        number, total = ficha.UsuarioPuntos, 0
        if number <= len(users):
            fields = list(USER.unpack(users[number]))
            total = fields[6] + EARNED if fields[6] + EARNED <= MOST else EARNED
            users[number] = USER.pack(*fields[:6], total)
        rows, moved = self.of[HST], self.of[CRD]
        row = left._replace(EnUso=-1, Posicion=len(rows) + 1, ValorCobrado=PRICE, UsuarioPuntos=total)
        rows[len(rows) + 1] = row.encode()
        if number <= len(users):
            moved[len(moved) + 1] = row.encode()


class DamagedTickets(DamagedFolder):
    def intact(self):
        return intact()

    def scan(self, code):
        self.gate.set("TxtBarCode", code)
        return self.gate.shown("PctBoton(6)"), (self.gate.reply["waiting"] or {}).get("wait") == 1000

    def day(self, folder):
        """The new ticket's code, whether it was taken; who left, who came back with the pass: the number, or None."""
        gate = self.gate
        self.start(gate, folder)
        self.answer_all(gate, "ok")
        gate.advance(3000)
        gate.key(HOME)
        code, slot = gate.texts("TxtBarCode", "TxtCampo(0)")
        gate.set("TxtCampo(1)", "new")
        gate.set("TxtMaxEntrada", "3")
        gate.key(INSERT)
        made = self._confirm(gate, CONFIRM_SAVE) and (code, int(slot))
        left, returned = self.leave(LEAVES), self.come_back(ENTERS)
        gate.advance(8000)
        gate.state()
        self.assertTrue(self.try_close(gate), "the station does not close")
        return made, left, returned

    def _confirm(self, gate, expected):
        """As the base has it, in a mode in which the number is closed."""
        asked = gate.box is not None and gate.box["title"] == expected["title"]
        self.answer_all(gate)
        idle = not gate.shown("PctBoton(5)") and not gate.shown("PctBoton(6)")
        if not idle:
            self.settle(gate)
        return asked and idle

    def leave(self, code):
        found, waits = self.scan(code)
        if found and self.gate.caption("LblCampo(1)") == "IN2":
            number = int(self.gate.caption("LblCampo(0)"))
            self.gate.key(DELETE)
            return self._confirm(self.gate, CONFIRM_RETIRE) and number
        self.nothing_of_it(waits)
        return None

    def come_back(self, code):
        _, waits = self.scan(code)
        if not waits:
            self.nothing_of_it(waits)
            return None
        slot = int(self.gate.text("TxtCampo(0)"))
        self.gate.advance(1000)
        return self._confirm(self.gate, CONFIRM_SAVE) and slot

    def nothing_of_it(self, waits):
        if waits:
            self.gate.key(ESC)
        self.gate.advance(1000)
        self.settle(self.gate)
        self.assertEqual((self.gate.text("TxtBarCode"), self.gate.focused()), ("", "TxtBarCode"))

    def assertAccount(self, before, day, loose=(), but=()):
        """Every register `but` those as the account of the day has it; of those in `loose` the length alone."""
        made, left, returned = day
        account = Account(before)
        if made:
            self.assertEqual(made[1], 1)
            account.enters(1, made[0], "NEW", ["", "", "", "", "AUTOMOVIL"])
            account.gets_pass(made[0], "NEW", 2)
        if left:
            account.leaves(fichas()[0])
        if returned:
            known = account.of[USR].find("PASS1")
            fields = ["EVA", "ROA", "555", "VIP", "MOTOCICLETA"] if known else ["", "", "", "", "AUTOMOVIL"]
            account.enters(returned, ENTERS, "PASS1", fields)
            account.spends(ENTERS)
        for name in (name for name in REGISTERS if name not in but):
            found, expected = (self.folder / name).read_bytes(), bytes(account.of[name].data)
            if name in loose:
                self.assertEqual(len(found), len(expected), name)
            elif found != expected:
                at = next(i for i in range(max(len(found), len(expected))) if found[i:i + 1] != expected[i:i + 1])
                self.fail(f"{name} has {len(found)} bytes, not {len(expected)}; from {at} on {found[at:at + 60]}, "
                          f"not {expected[at:at + 60]}")

    def with_damage(self, name, data):
        folder = self.fresh()
        before = {register: (folder / register).read_bytes() for register in REGISTERS}
        folder.write(name, data)
        before[name] = data
        return before, self.day(folder)

    def each_cut(self, name, lengths, check):
        data = intact()[name]
        for length in some(lengths):
            with self.subTest(cut=length):
                before, day = self.with_damage(name, data[:length])
                self.assertEqual(day[0][1], 1)
                self.assertAccount(before, day)
                check(length, day)

    def each_scramble(self, name, check):
        for number, bad in enumerate(self.scrambled(intact()[name])):
            with self.subTest(scrambled=number):
                before, day = self.with_damage(name, bad)
                self.assertEqual(day[0][1], 1)
                check(before, day)

    def check_all_was_done(self, _, day):
        self.assertEqual(day[1:], (2, 2))

    def check_the_account(self, before, day):
        self.assertEqual(day[1:], (2, 2))
        self.assertAccount(before, day)

    def test_whole_files(self):
        before, day = self.with_damage(CRD, intact()[CRD])
        self.assertEqual((day[0][1], day[1:]), (1, (2, 2)))  # he who comes back takes the number that got free
        self.assertAccount(before, day)
        self.assertEqual(self.rows(self.folder, "CRD")[2].UsuarioPuntos, 7 + EARNED)

    # ---- Cut at any byte ----

    def test_codes_cut(self):
        ends = [*range(4 * CODE.size), *range(999 * CODE.size, 1000 * CODE.size + 1)]
        samples = [self.dice.randrange(4 * CODE.size, 999 * CODE.size) for _ in range(100)]

        def check(length, day):
            read = length - CODE.size  # of the record of him who leaves
            if read < len(LEAVES) or read == 50:
                self.assertIsNone(day[1])
            elif read >= 54:
                self.assertEqual(day[1], 2)
        self.each_cut(CDB, ends + samples, check)

    def test_passes_cut(self):
        def check(length, day):
            self.assertEqual(day[1:], (2, 2 if length >= PASS.size else None))  # a torn record is no pass
        self.each_cut(CFR, range(3 * PASS.size + 1), check)

    def test_users_cut(self):
        self.each_cut(USR, range(3 * USER.size + 1), self.check_all_was_done)

    def test_first_fichas_cut(self):
        self.each_cut(NSR, range(4 * RECORD.size + 1), self.check_all_was_done)

    def test_movements_cut(self):
        self.each_cut(CRD, range(2 * RECORD.size + 1), self.check_all_was_done)

    # ---- Scrambled ----

    def test_codes_scrambled(self):
        self.each_scramble(CDB, lambda before, day: self.assertAccount(before, day))

    def test_passes_scrambled(self):
        def check(before, day):
            self.assertEqual(day[1], 2)
            if not Image(before[CFR], pass_record()).find(ENTERS):
                self.assertIsNone(day[2])
            usual = day[2] and self.row(self.folder, "ACT", day[2]).Placa == "PASS1"
            # A scrambled plate makes another user of him, a scrambled date frees the record.
            self.assertAccount(before, day if usual else (*day[:2], None),
                               but=() if usual else (CFR, ACT, USR, NSR, CDB) if day[2] else (CFR,))
        self.each_scramble(CFR, check)

    def test_users_scrambled(self):
        def check(before, day):
            self.assertEqual(day[1:], (2, 2))
            # What a scrambled record puts into the form, and so into ficha and register, is any text.
            self.assertAccount(before, day, loose=(ACT, USR))
            users = Image((self.folder / USR).read_bytes(), user(""))
            for slot, plate in ((1, "NEW"), (2, "PASS1")):
                number = self.row(self.folder, "ACT", slot).UsuarioPuntos
                self.assertEqual(USER.unpack(users[number])[0].strip(), plate.encode())
        self.each_scramble(USR, check)

    def test_first_fichas_scrambled(self):
        self.each_scramble(NSR, self.check_the_account)

    def test_movements_scrambled(self):
        self.each_scramble(CRD, self.check_the_account)

    # ---- Missing, in the way, read-only ----

    def test_missing_at_the_start(self):
        for name in (NSR, CRD, USR, CDB, CFR):
            with self.subTest(name=name):
                folder = self.fresh()
                before = {register: (folder / register).read_bytes() for register in REGISTERS}
                (folder / name).unlink()
                before[name] = {NSR: BLANK.encode(), CDB: code_record() * 1000}.get(name, b"")
                day = self.day(folder)
                self.assertEqual((day[0][1], day[1]), (1, None if name == CDB else 2))
                self.assertAccount(before, day)

    def test_gone_in_the_middle_of_the_day(self):
        """A station that has seen them all; the next save and retiring do without."""
        for name in (NSR, CRD, USR, CDB, CFR):
            with self.subTest(name=name):
                folder = self.fresh()
                self.start(self.gate, folder)
                self.answer_all(self.gate, "ok")
                self.gate.advance(3000)
                (folder / name).unlink()
                self.gate.key(HOME)
                self.gate.set("TxtCampo(1)", "new")
                self.gate.set("TxtMaxEntrada", "3")
                self.gate.key(INSERT)
                self.assertTrue(self._confirm(self.gate, CONFIRM_SAVE))
                self.assertEqual(self.row(folder, "ACT", 1).Placa, "NEW")
                self.assertEqual(self.leave(LEAVES), None if name == CDB else 2)
                self.assertTrue(self.try_close(self.gate))
                self.legal(folder)

    def test_a_folder_where_a_file_should_be(self):
        for name in (NSR, CRD, USR, CDB, CFR):
            with self.subTest(name=name):
                folder = self.fresh()
                (folder / name).unlink()
                (folder / name).mkdir()
                made, left, returned = self.day(folder)
                self.assertEqual(made[1], 1)
                self.assertEqual((left, returned), {CDB: (None, None), CFR: (2, None)}.get(name, (2, 2)))
                self.assertEqual(self.row(folder, "ACT", 1).UsuarioPuntos, 0 if name == USR else 4)

    def assertReadOnlyDay(self, folder, name, before, day):
        made, left, returned = day
        self.assertEqual((made[1], left), (1, 2))
        self.assertEqual((folder / name).read_bytes(), before)
        self.assertEqual([row.Placa for row in self.rows(folder)[1:]], ["IN2"])
        new, gone = self.row(folder, "ACT", 1), self.row(folder, "ACT", 2)
        # A new plate has no number that was not written. Who shows a pass comes in, though it can't be changed.
        self.assertEqual((new.Placa, new.UsuarioPuntos), ("NEW", 0 if name == USR else 4))
        self.assertEqual(gone.Placa, "PASS1" if returned else "IN2")
        self.legal(folder)

    def test_mounted_read_only(self):
        for name in (NSR, CRD, USR, CDB, CFR):
            with self.subTest(name=name):
                folder = self.fresh()
                before = (folder / name).read_bytes()
                target = str(folder / name)
                trouble.mount("--bind", target, target)
                try:
                    trouble.mount("-o", "remount,bind,ro", target)
                    day = self.day(folder)
                finally:
                    trouble.unmount(target)
                self.assertReadOnlyDay(folder, name, before, day)

    def test_marked_read_only(self):
        """As the owner who is not root, whom the mark binds."""
        if os.getuid() == 0:
            self.become_nobody()
            self.gate = self.process()
        for name in (NSR, CRD, USR, CDB, CFR):
            with self.subTest(name=name):
                folder = self.fresh()
                self.give_away(folder.path)
                before = (folder / name).read_bytes()
                os.chmod(folder / name, stat.S_IRUSR | stat.S_IRGRP | stat.S_IROTH)
                day = self.day(folder)
                self.assertReadOnlyDay(folder, name, before, day)
                os.chmod(folder / name, stat.S_IRUSR | stat.S_IWUSR)


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
