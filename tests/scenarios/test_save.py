"""Saving a ficha: what the form takes, what is asked, what is written, and what stops it."""
from station import CONFIRM_SAVE, INSERT, DrivenDay, inside, kinds, main, sounds, stamp, user

TODAY = "20/11/2026"


class Saving(DrivenDay):
    def test_the_question(self):
        station = self.running()
        station.fill(7, "abc123")
        station.key(INSERT)
        self.assertBox(station, {**CONFIRM_SAVE, "default": "yes"})

    def test_nothing_is_written_before_the_answer(self):
        station = self.running()
        before = self.folder.all_bytes()
        station.fill(7, "abc123")
        station.key(INSERT)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_yes_writes_the_slot_and_clears_the_screen(self):
        station = self.running()
        station.advance(30 * 60000)
        station.fill(7, " abc 123 ", "ana", "ruiz", "300", "casco", category="BICICLETA")
        station.key(INSERT)
        reply = station.answer("yes")
        self.assertEqual((sounds(reply), reply["waiting"]), ([], None))
        self.assertIdle(station)
        slot = self.folder.slot(7)
        self.assertEqual(slot._replace(UsuarioPuntos=0), inside(
            7, stamp("14:30", TODAY), "ABC 123", "BICICLETA", Nombre="ANA", Apellido="RUIZ", Telefono="300",
            Observacion="CASCO"))
        self.assertEqual(station.state("MarcaTiquete").rstrip(), stamp("14:30", TODAY))

    def test_the_view_has_it_at_once(self):
        station = self.running()
        station.save(7, "abc")
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")
        station.save(3, "def")
        self.assertEqual(station.caption("LblInfo(0)"), "2 ( 1/1 )  ")
        self.assertEqual([row["NumeroFicha"] for row in station.do("view")["view"]], ["0003", "0007"])

    def test_no_keeps_the_form_with_the_focus_in_the_name(self):
        station = self.running()
        before = self.folder.all_bytes()
        station.fill(7, "abc123", "ana", category="MOTOCICLETA")
        station.key(INSERT)
        self.assertEqual((station.shown("Picture1"), station.shown("Picture2")), (False, True))
        self.assertEqual(station.get("LblWebCamMsg")["Caption"], "SIN IMAGEN")
        station.answer("no")
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)", "TxtCampo(2)", "CboTarifa(1)"),
                         ["7", "ABC123", "ANA", "MOTOCICLETA"])
        self.assertEqual(station.focused(), "TxtCampo(2)")
        self.assertEqual((station.shown("Picture1"), station.shown("Picture2")), (True, False))
        self.assertFalse(station.shown("LblWebCamMsg"))
        self.assertEqual(self.folder.all_bytes(), before)
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC123")

    def test_enter_in_the_category_saves(self):
        station = self.running()
        station.call_up(7)
        station.focus("CboTarifa(1)")
        station.enter()
        self.assertBox(station, CONFIRM_SAVE)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).EnUso, -1)

    def test_an_empty_form_saves_and_registers_nobody(self):
        station = self.running()
        station.save(7)
        slot = self.folder.slot(7)
        self.assertEqual(slot, inside(7, stamp("14:00", TODAY)))
        self.assertFalse((self.folder.shared / "Vintoral.USR").exists())

    def test_history_and_movements_are_untouched(self):
        station = self.running()
        station.save(7, "abc")
        self.assertEqual((self.folder.shared / "Vintoral.HST").stat().st_size, 188)
        self.assertEqual((self.folder.shared / "Vintoral.CRD").stat().st_size, 0)

    def test_the_stamp_is_that_of_the_answer(self):
        station = self.running()
        station.fill(7)
        station.key(INSERT)
        station.advance(5 * 60000)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).MarcaEntrada, stamp("14:05", TODAY))

    def test_first_and_last_slot(self):
        station = self.running()
        for number in (1, 1000):
            station.save(number)
            self.assertEqual(self.folder.slot(number).NumeroFicha, f"{number:04}")

    def test_a_freed_slot_is_used_again_and_keeps_what_saving_leaves(self):
        old = inside(7, stamp("09:00", "19/11/2026"), "OLD", "BICICLETA", Nombre="LUIS", EnUso=0, PorteriaSalida="02",
                     MarcaSalida=stamp("10:00", "19/11/2026"), ValorCobrado=12345, InicioTurno=-1)
        station = self.with_fichas(old)
        station.save(7, "", "ana")
        self.assertEqual(self.folder.slot(7), inside(7, stamp("14:00", TODAY), Nombre="ANA", ValorCobrado=12345, InicioTurno=-1))

    def test_a_known_users_number_goes_with_the_ficha(self):
        station = self.with_fichas(users=[user("AAA"), user("BBB", "BRUNO", category="MOTOCICLETA", points=40)])
        station.fill(7, "bbb")
        station.key(INSERT)
        station.answer("yes")
        slot = self.folder.slot(7)
        self.assertEqual((slot.UsuarioPuntos, slot.Nombre, slot.Categoria), (2, "BRUNO", "MOTOCICLETA"))

    def test_a_new_user_gets_the_next_number(self):
        station = self.with_fichas(users=[user("AAA"), user("BBB")])
        station.save(7, "ccc")
        self.assertEqual(self.folder.slot(7).UsuarioPuntos, 3)

    def test_what_the_operator_changes_for_a_known_user_is_what_is_saved(self):
        station = self.with_fichas(users=[user("BBB", "BRUNO", "DIAZ", category="MOTOCICLETA")])
        station.call_up(7)
        station.set("TxtCampo(1)", "BBB")
        station.focus("TxtCampo(1)")
        station.enter()
        station.set("TxtCampo(2)", "CARLA")
        station.do("select", control="CboTarifa(1)", text="BICICLETA")
        station.key(INSERT)
        station.answer("yes")
        record = self.folder.slot(7)
        self.assertEqual((record.Nombre, record.Apellido, record.Categoria, record.UsuarioPuntos),
                         ("CARLA", "DIAZ", "BICICLETA", 1))

    def test_a_digit_field_with_leading_noughts(self):
        station = self.running()
        station.save("007")
        self.assertEqual(self.folder.slot(7).NumeroFicha, "0007")


class Refused(DrivenDay):
    DENIAL = "La información digitada ya se encuentra en uso por la ficha 0009."

    def test_a_plate_inside_under_another_number(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY), "ABC123"))
        before = self.folder.all_bytes()
        station.fill(7, "abc123")
        station.key(INSERT)
        self.assertBox(station, {"title": "Vintoral - Ingreso Denegado", "text": self.DENIAL, "icon": "critical",
                                 "buttons": ["ok"]})
        reply = station.answer("ok")
        self.assertIsNone(reply["waiting"])
        self.assertIdle(station)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_insert_without_a_form_is_no_way_in(self):
        station = self.running()
        station.focus("TxtCampo(2)")
        station.type("ana")
        self.assertIsNone(station.key(INSERT)["waiting"])

    def test_act_that_is_gone_stops_it_silently_and_the_link_looks_at_once(self):
        station = self.running()
        station.fill(7, "abc")
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        reply = station.key(INSERT)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])
        (self.root / "away").rename(self.folder.shared / "Vintoral.ACT")
        station.advance(100)
        self.assertEqual(station.get("TmrConexion")["Interval"], 10000)
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC")

    def test_a_slot_taken_meanwhile_is_left_alone_without_a_word(self):
        station = self.running()
        station.fill(7, "mine")
        theirs = inside(7, stamp("13:59", TODAY), "THEIRS", PorteriaEntrada="02")
        with open(self.folder.shared / "Vintoral.ACT", "r+b") as file:
            file.seek(6 * 188)
            file.write(theirs.encode())
        reply = station.key(INSERT)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(self.folder.slot(7), theirs)
        self.assertIdle(station)
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")

    def test_a_folder_that_goes_under_the_question_harms_nothing(self):
        station = self.running()
        station.fill(7, "abc")
        station.key(INSERT)
        self.folder.shared.rename(self.root / "away")
        reply = station.answer("yes")
        self.assertIsNone(reply["waiting"])
        (self.root / "away").rename(self.folder.shared)
        station.advance(20000)
        self.assertEqual((self.folder.shared / "Vintoral.ACT").stat().st_size, 188188)
        self.assertEqual(self.folder.slot(7).EnUso, 0)
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC")


if __name__ == "__main__":
    main()
