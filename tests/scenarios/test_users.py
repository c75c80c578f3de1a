"""Users and points: who is registered by coming in, what a stay earns, what is cleared, and the rows that tell of it."""
import json

from station import (CONFIRM_RETIRE, CONTROL, DELETE, ESC, FORGOTTEN, INSERT, RECORD, SHIFT, BLANK, DrivenDay,
                     Folder, fresh_register, inside, kinds, main, sounds, stamp, user)
from tickets import CONFIRM_RESET, Books

TODAY = "20/11/2026"
ENTRY = stamp("14:00", TODAY)
# 1 day, 2 hours and 47 minutes behind 14:00 of the 20th: 96 + 2 * 4 + 47 \ 15 = 96 + 8 + 3.
LATER, EARNED = "2026-11-21 16:47:00", 107
USR, NSR, CRD = (f"Multimedia/Vintoral.{name}" for name in ("USR", "NSR", "CRD"))


class UserDay(DrivenDay):
    def setUp(self):
        super().setUp()
        self.books = Books(self.folder)

    def second_gate(self):
        folder = Folder(self.root / "P02")
        folder.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        return self.running(folder)

    def points(self):
        return [record.Puntos for record in self.books.users()]

    def moved(self):
        """The totals that CRD tells of, each with the plate."""
        return [(row.Placa, row.UsuarioPuntos) for row in self.books.movements()]


class Registering(UserDay):
    def test_a_new_plate_is_a_new_user(self):
        station = self.with_fichas(users=[user("AAA", points=5), user("BBB")])
        station.save(7, " ccc 1 ", "ana", "ruiz", "300", "casco", category="BICICLETA")
        self.assertEqual((self.folder / USR).read_bytes(), user("AAA", points=5) + user("BBB")
                         + user("CCC 1", "ANA", "RUIZ", "300", "CASCO", "BICICLETA", 0))
        ficha = inside(7, ENTRY, "CCC 1", "BICICLETA", Nombre="ANA", Apellido="RUIZ", Telefono="300", Observacion="CASCO",
                       UsuarioPuntos=3)
        self.assertEqual(self.folder.slot(7), ficha)
        # Record 1 of NSR is blank, and the ficha of user 3 is record 4.
        self.assertEqual((self.folder / NSR).read_bytes(), BLANK.encode() * 3 + ficha.encode())
        self.assertEqual((self.folder / CRD).read_bytes(), b"")

    def test_the_first_of_all(self):
        station = self.running()
        self.assertFalse((self.folder / USR).exists())
        station.save(7, "abc")
        self.assertEqual((self.folder / USR).read_bytes(), user("ABC", category="AUTOMOVIL"))
        self.assertEqual((self.folder / NSR).stat().st_size, 2 * RECORD.size)
        self.assertEqual(self.books.first_fichas(), [self.folder.slot(7)])
        self.assertEqual(self.folder.slot(7).UsuarioPuntos, 1)

    def test_nothing_before_the_answer_and_nothing_after_no(self):
        station = self.running()
        before = self.folder.all_bytes()
        station.fill(7, "abc")
        station.key(INSERT)
        self.assertEqual(self.folder.all_bytes(), before)
        station.answer("no")
        self.assertEqual(self.folder.all_bytes(), before)

    def test_an_empty_plate_is_nobody(self):
        station = self.running()
        station.save(7, "   ", "ana")
        self.assertFalse((self.folder / USR).exists())
        self.assertEqual((self.folder / NSR).stat().st_size, RECORD.size)
        self.assertEqual(self.folder.slot(7).UsuarioPuntos, 0)
        station.clock(LATER)
        station.call_up(7)
        self.assertEqual(station.caption("LblPuntos(1)"), str(EARNED))  # shown all the same
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual((self.moved(), self.folder.history()[0].UsuarioPuntos), ([], 0))

    def test_a_known_user_takes_what_the_form_shows(self):
        station = self.with_fichas(users=[user("AAA", "ANA", "ROA", "1", "X", "AUTOMOVIL", 77), user("BBB", points=3)])
        station.fill(7, "aaa")
        station.focus("TxtCampo(1)")
        station.enter()
        self.assertEqual(station.caption("LblPuntos(3)"), "77")
        station.set("TxtCampo(4)", "999")
        station.do("select", control="CboTarifa(1)", text="BICICLETA")
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual((self.folder / USR).read_bytes(),
                         user("AAA", "ANA", "ROA", "999", "X", "BICICLETA", 77) + user("BBB", points=3))

    def test_the_last_user_renews_his_first_ficha_and_no_other_does(self):
        station = self.running()
        station.save(1, "aaa")
        station.save(2, "bbb")
        first = self.books.first_fichas()
        self.assertEqual([ficha.Placa for ficha in first], ["AAA", "BBB"])
        for number in (1, 2):
            station.retire(number)
        station.clock("2026-11-20 15:30:00")
        station.save(5, "aaa")
        self.assertEqual(self.books.first_fichas(), first)
        station.save(6, "bbb")
        self.assertEqual(self.books.first_fichas(), [first[0], self.folder.slot(6)])
        self.assertEqual(self.books.first_fichas()[1].MarcaEntrada, stamp("15:30", TODAY))

    def test_small_and_capital_letters_are_one_user(self):
        station = self.with_fichas(users=[user("aBc", "ANA", points=9)])
        station.save(7, "AbC")
        self.assertEqual([(record.Placa, record.Nombre, record.Puntos) for record in self.books.users()], [("ABC", "ANA", 9)])
        self.assertEqual(self.folder.slot(7).UsuarioPuntos, 1)

    def test_the_category_follows_each_visit(self):
        station = self.running()
        offered = "AUTOMOVIL"
        for category in ("BICICLETA", "MOTOCICLETA"):
            station.fill(7, "abc")
            station.focus("TxtCampo(1)")
            station.enter()
            self.assertEqual(station.text("CboTarifa(1)"), offered)
            station.do("select", control="CboTarifa(1)", text=category)
            station.key(INSERT)
            station.answer("yes")
            self.assertEqual((self.books.users()[0].Categoria, self.folder.slot(7).Categoria), (category, category))
            station.retire(7)
            offered = category

    def test_a_category_that_the_tariff_no_longer_has(self):
        station = self.with_fichas(users=[user("ABC", "ANA", category="TRANVIA", points=4)])
        station.fill(7, "abc", category="MOTOCICLETA")
        station.focus("TxtCampo(1)")
        station.enter()
        self.assertEqual((station.text("TxtCampo(2)"), station.text("CboTarifa(1)")), ("ANA", "MOTOCICLETA"))
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual((self.books.users()[0].Categoria, self.folder.slot(7).Categoria), ("MOTOCICLETA", "MOTOCICLETA"))

    def test_a_denied_plate_changes_nobody(self):
        station = self.with_fichas(inside(9, ENTRY, "ABC", UsuarioPuntos=1), users=[user("ABC", "ANA", points=4)])
        station.fill(7, "abc", "luis")
        station.key(INSERT)
        self.assertEqual(station.box["title"], "Vintoral - Ingreso Denegado")
        station.answer("ok")
        self.assertEqual((self.folder / USR).read_bytes(), user("ABC", "ANA", points=4))


class Points(UserDay):
    def display(self, points, now=LATER, **fields):
        """A ficha of a user with so many points, called up at `now`."""
        station = self.with_fichas(inside(9, ENTRY, "ABC", UsuarioPuntos=2, **fields),
                                   users=[user("AAA", points=1), user("ABC", "ANA", "ROA", "5", "X", "MOTOCICLETA", points)])
        station.clock(now)
        station.call_up(9)
        return station

    def out(self, station):
        station.key(DELETE)
        self.assertBox(station, CONFIRM_RETIRE)
        return station.answer("yes")

    def test_a_hundred_and_a_hundred_and_seven(self):
        station = self.display(100)
        self.assertEqual((station.caption("LblPuntos(1)"), station.shown("ImgPuntos")), ("207", True))
        self.out(station)
        row, = self.folder.history()
        self.assertEqual(row.UsuarioPuntos, 207)
        self.assertEqual((self.folder / USR).read_bytes(),
                         user("AAA", points=1) + user("ABC", "ANA", "ROA", "5", "X", "MOTOCICLETA", 207))
        self.assertEqual((self.folder / CRD).read_bytes(), row.encode())
        self.assertEqual(self.folder.slot(9).UsuarioPuntos, 2)  # in ACT it is the user's number

    def test_called_up_and_left_nothing_is_earned(self):
        station = self.display(100)
        before = self.folder.all_bytes()
        station.key(ESC)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_a_row_for_each_departure_though_the_total_stays(self):
        station = self.display(100, now="2026-11-20 14:14:00")
        self.out(station)
        self.assertEqual((self.points(), self.moved()), ([1, 100], [("ABC", 100)]))

    def test_the_stay_that_is_charged_is_the_one_that_earns(self):
        station = self.display(100, now="2026-11-20 14:14:00")
        self.assertEqual(station.caption("LblPuntos(1)"), "100")
        station.clock("2026-11-20 14:15:00")
        self.out(station)
        self.assertEqual((self.points(), self.moved()), ([1, 101], [("ABC", 101)]))

    def test_up_to_the_most_and_beyond(self):
        for had, total in ((999999 - EARNED, 999999), (999999 - EARNED + 1, EARNED), (999999, EARNED),
                           (1000000, EARNED), (2147483647, EARNED)):
            with self.subTest(had=had):
                with self.display(had) as station:
                    self.assertEqual(station.caption("LblPuntos(1)"), str(total))
                    self.out(station)
                self.assertEqual((self.points(), self.moved()[-1]), ([1, total], ("ABC", total)))
                self.assertEqual(self.folder.history()[-1].UsuarioPuntos, total)

    def test_the_most_is_kept_by_a_stay_that_earns_nothing(self):
        self.out(self.display(999999, now="2026-11-20 14:14:00"))
        self.assertEqual(self.points(), [1, 999999])

    def test_points_below_nothing_in_the_file(self):
        for had in (-5, -2147483648):
            with self.subTest(had=had):
                with self.display(had) as station:
                    self.out(station)
                self.assertEqual((self.points(), self.moved()[-1]), ([1, had + EARNED], ("ABC", had + EARNED)))

    def test_a_user_that_the_register_does_not_have_is_nobody(self):
        for number in (3, 1000, 2147483647, -1, -2147483648):
            with self.subTest(number=number):
                with self.display(100) as station:
                    station.key(ESC)
                    self.folder.write("Multimedia/Vintoral.ACT",
                                      fresh_register(inside(9, ENTRY, "ABC", UsuarioPuntos=number)))
                    station.call_up(9)
                    self.out(station)
                self.assertEqual((self.points(), self.moved()), ([1, 100], []))
                self.assertEqual(self.folder.history()[-1].UsuarioPuntos, 0)

    def test_without_a_register_of_users(self):
        station = self.display(100)
        (self.folder / USR).unlink()
        self.out(station)
        self.assertEqual((self.moved(), self.folder.history()[0].UsuarioPuntos), ([], 0))
        self.assertFalse((self.folder / USR).exists())

    def test_visit_after_visit(self):
        station = self.running()
        total = 0
        for day, stay, earned in ((20, "15:00", 4), (21, "14:16", 1), (22, "23:59", 39)):
            station.clock(f"2026-11-{day} 14:00:00")
            station.save(7, "abc")
            self.assertEqual(self.points(), [total])
            station.clock(f"2026-11-{day} {stay}:00")
            station.retire(7)
            total += earned  # 1 hour 4; 16 minutes 1; 9 hours 36 and 59 minutes 3
            self.assertEqual(self.points(), [total])
        self.assertEqual(self.moved(), [("ABC", 4), ("ABC", 5), ("ABC", 44)])
        self.assertEqual([row.UsuarioPuntos for row in self.folder.history()], [4, 5, 44])

    def test_what_another_gate_added_meanwhile_is_kept(self):
        station = self.display(100)
        self.folder.write(USR, user("AAA", points=1) + user("ABC", "ANA", "ROA", "5", "X", "MOTOCICLETA", 130))
        self.out(station)
        self.assertEqual((self.points(), self.moved()), ([1, 130 + EARNED], [("ABC", 130 + EARNED)]))

    def test_points_added_under_the_question_of_a_save_are_kept(self):
        station = self.with_fichas(users=[user("ABC", points=10)])
        station.fill(7, "abc")
        station.key(INSERT)
        self.folder.write(USR, user("ABC", points=25))
        station.answer("yes")
        self.assertEqual(self.points(), [25])


class Clearing(UserDay):
    def display(self, points=100, now=LATER):
        station = self.with_fichas(inside(9, ENTRY, "ABC", UsuarioPuntos=1), users=[user("ABC", "ANA", points=points)])
        station.clock(now)
        station.call_up(9)
        return station

    def clear(self, station):
        station.key(ord("R"), CONTROL | SHIFT)
        return station.answer("yes")

    def test_the_question(self):
        for ask in (lambda station: station.key(ord("R"), CONTROL | SHIFT), lambda station: station.click("ImgPuntos")):
            with self.display() as station:
                ask(station)
                self.assertBox(station, CONFIRM_RESET)

    def test_no_changes_nothing(self):
        station = self.display()
        station.click("ImgPuntos")
        self.assertEqual(sounds(station.answer("no")), [])
        self.assertEqual((station.caption("LblPuntos(1)"), station.shown("ImgPuntos")), ("207", True))
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(self.points(), [207])

    def test_yes_shows_nought_and_writes_nothing_yet(self):
        station = self.display()
        before = self.folder.all_bytes()
        self.assertEqual(sounds(self.clear(station)), [FORGOTTEN])
        self.assertEqual((station.caption("LblPuntos(1)"), station.shown("ImgPuntos")), ("0", False))
        self.assertEqual(station.get("ImgPuntos")["Tag"], "1")
        self.assertEqual((station.state("PuntosAcumulados"), station.state("PuntosEstadia")), (0, 0))
        station.advance(5000)
        self.assertEqual(station.caption("LblPuntos(1)"), "0")
        self.assertEqual(self.folder.all_bytes(), before)

    def test_the_departure_stores_nought(self):
        station = self.display()
        self.clear(station)
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual((self.points(), self.moved()), ([0], [("ABC", 0)]))
        self.assertEqual(self.folder.history()[0].UsuarioPuntos, 0)

    def test_without_a_departure_the_points_stay(self):
        station = self.display()
        self.clear(station)
        station.key(ESC)
        station.call_up(9)
        self.assertEqual((station.caption("LblPuntos(1)"), station.shown("ImgPuntos")), ("207", True))
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(self.points(), [207])

    def test_points_that_another_gate_added_are_cleared_too(self):
        station = self.display()
        self.clear(station)
        self.folder.write(USR, user("ABC", "ANA", points=130))
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual((self.points(), self.moved()), ([0], [("ABC", 0)]))

    def test_without_points_nothing_is_asked(self):
        for points in (0, -1):
            with self.display(points, now="2026-11-20 14:14:00") as station:
                self.assertEqual((kinds(station.key(ord("R"), CONTROL | SHIFT)), station.box), ([], None))
        with self.display(-EARNED + 1) as station:
            station.key(ord("R"), CONTROL | SHIFT)
            self.assertBox(station, CONFIRM_RESET)

    def test_without_a_ficha_on_display_it_is_no_key(self):
        station = self.with_fichas(users=[user("ABC", points=100)])
        self.assertIsNone(station.key(ord("R"), CONTROL | SHIFT)["waiting"])
        station.fill(7, "abc")
        self.assertIsNone(station.key(ord("R"), CONTROL | SHIFT)["waiting"])

    def test_forgotten_under_the_question_nothing_is_cleared(self):
        station = self.display()
        station.key(ord("R"), CONTROL | SHIFT)
        station.advance(200000)
        station.answer("yes")
        self.assertIdle(station)
        station.call_up(9)
        self.assertEqual(station.caption("LblPuntos(1)"), "207")


class TwoGates(UserDay):
    def both(self, one, two, answer="yes"):
        """Both answers are on their way before either is read."""
        for gate in (one, two):
            gate.send_line(json.dumps({"op": "answer", "button": answer}).encode())
        for gate in (one, two):
            gate.reply = json.loads(gate.read_line())
            self.assertEqual((gate.reply["ok"], gate.reply["waiting"]), (True, None))

    def test_two_new_plates_at_once_are_two_users(self):
        one, two = self.running(), self.second_gate()
        for round_ in range(1, 11):
            one.fill(round_, f"A{round_}")
            two.fill(500 + round_, f"B{round_}")
            one.key(INSERT)
            two.key(INSERT)
            self.both(one, two)
        plates = [record.Placa for record in self.books.users()]
        self.assertEqual(sorted(plates), sorted(f"{door}{n}" for door in "AB" for n in range(1, 11)))
        for number in (*range(1, 11), *range(501, 511)):
            slot = self.folder.slot(number)
            self.assertEqual(plates[slot.UsuarioPuntos - 1], slot.Placa)
        self.assertEqual([(ficha.Placa, ficha.UsuarioPuntos) for ficha in self.books.first_fichas()],
                         [(plate, number) for number, plate in enumerate(plates, start=1)])

    def test_the_same_new_plate_at_both_is_one_user(self):
        one, two = self.running(), self.second_gate()
        one.fill(1, "same", "ana")
        two.fill(501, "same", "luis")
        one.key(INSERT)
        two.key(INSERT)
        one.answer("yes")
        two.answer("yes")
        self.assertEqual([(record.Placa, record.Nombre) for record in self.books.users()], [("SAME", "LUIS")])
        self.assertEqual([self.folder.slot(number).UsuarioPuntos for number in (1, 501)], [1, 1])

    def test_a_user_that_another_gate_added_under_the_question(self):
        one, two = self.running(), self.second_gate()
        one.fill(1, "mine")
        one.key(INSERT)
        two.save(501, "theirs")
        one.answer("yes")
        self.assertEqual([record.Placa for record in self.books.users()], ["THEIRS", "MINE"])
        self.assertEqual([self.folder.slot(number).UsuarioPuntos for number in (1, 501)], [2, 1])
        self.assertEqual([ficha.Placa for ficha in self.books.first_fichas()], ["THEIRS", "MINE"])

    def test_points_of_two_departures_of_one_user_add_up(self):
        """His two vehicles came in at the same moment, each through a gate, and leave in the same way."""
        one = self.with_fichas(users=[user("SAME", points=10)])
        two = self.second_gate()
        for round_ in range(10):
            for gate, number in ((one, 1), (two, 501)):
                gate.clock("2026-11-20 14:00:00")
                gate.fill(number, "same")
                gate.key(INSERT)
            self.both(one, two)
            for gate, number in ((one, 1), (two, 501)):
                gate.clock("2026-11-20 15:00:00")
                gate.call_up(number)
                gate.key(DELETE)
            self.both(one, two)
        # Ten rounds of two stays of an hour, four points each.
        self.assertEqual(len(self.folder.history()), 20)
        self.assertEqual(self.points(), [10 + 10 * 2 * 4])
        self.assertEqual(sorted(total for _, total in self.moved()), [14 + 4 * n for n in range(20)])


if __name__ == "__main__":
    main()
