"""Finding and showing: numbers in and out of range, the ficha inside, the new form, plates and known users."""
from station import (DELETE, ESC, FIELDS, INSERT, LIGHT_YELLOW, PALE_YELLOW, ROWS, DrivenDay, inside, kinds, main, mixed,
                     screen_state, stamp, user)

TODAY = "20/11/2026"
NINE = inside(9, stamp("13:00", TODAY), "ABC900", "MOTOCICLETA", Nombre="ANA", Apellido="RUIZ", Telefono="300",
              Observacion="CASCO")


class Numbers(DrivenDay):
    def test_out_of_range_empties_the_field_and_the_focus_stays(self):
        station = self.running()
        for number in ("0", "1001", "9999", "0000"):
            with self.subTest(number=number):
                station.call_up(number)
                self.assertEqual(station.text("TxtCampo(0)"), "")
                self.assertEqual(station.focused(), "TxtCampo(0)")
                self.assertFalse(station.shown("PctBoton(5)"))

    def test_an_endless_number_is_out_of_range(self):
        station = self.running()
        station.focus("TxtCampo(0)")
        station.set("TxtCampo(0)", "9" * 40)
        station.enter()
        self.assertIdle(station)

    def test_enter_in_the_empty_field_does_nothing(self):
        station = self.running()
        reply = station.enter()
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertFalse(station.shown("PctBoton(5)"))

    def test_a_free_number_opens_the_form(self):
        station = self.running()
        for number in (1, 7, 1000):
            with self.subTest(number=number):
                station.call_up(number)
                fields = station.get(*FIELDS)
                self.assertEqual([(field["Locked"], field["Visible"]) for field in fields],
                                 [(True, True)] + [(False, True)] * 5)
                self.assertEqual([station.shown("PctBoton(5)"), station.shown("PctBoton(6)")], [True, False])
                self.assertEqual(station.focused(), "TxtCampo(1)")
                category = station.get("CboTarifa(1)")
                self.assertEqual((category["Visible"], category["ListIndex"]), (True, 0))
                station.key(ESC)

    def test_a_locked_number_takes_no_typing(self):
        station = self.running()
        station.call_up(7)
        station.click("TxtCampo(0)")
        station.type("5")
        self.assertEqual(station.text("TxtCampo(0)"), "7")

    def test_act_that_is_gone_makes_the_link_look(self):
        station = self.running()
        (self.folder.shared / "Vintoral.ACT").unlink()
        station.call_up(7)
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.assertFalse(station.shown("PctBoton(5)"))


class Inside(DrivenDay):
    def test_the_record_is_shown(self):
        station = self.with_fichas(NINE)
        station.call_up(9)
        self.assertEqual(station.captions(*ROWS), ["0009", "ABC900", "ANA", "RUIZ", "300", "CASCO"])
        self.assertEqual(station.caption("LblFechaEnt"), stamp("13:00", TODAY))
        self.assertEqual(station.text("CboTarifa(0)"), "MOTOCICLETA")
        self.assertEqual([(field["Locked"], field["Visible"]) for field in station.get(*FIELDS)], [(True, False)] * 6)
        self.assertEqual([station.shown(name) for name in ("PctBoton(5)", "PctBoton(6)", "CboTarifa(1)", "ImgPuntos",
                                                           "ShpCelda")], [False, True, False, True, True])
        self.assertEqual(station.get("ImgPuntos")["Tag"], "0")

    def test_its_colours(self):
        station = self.with_fichas(NINE)
        station.call_up(9)
        self.assertEqual([label["BackColor"] for label in station.get("LblFechaEnt", "LblFechaSal", *ROWS)],
                         [PALE_YELLOW] + [LIGHT_YELLOW] * 7)

    def test_the_mark_of_use_decides(self):
        station = self.with_fichas(NINE._replace(EnUso=0))
        station.call_up(9)
        self.assertTrue(station.shown("PctBoton(5)"))
        self.assertEqual(station.captions(*ROWS), [""] * 6)

    def test_leading_noughts_find_it(self):
        station = self.with_fichas(NINE)
        station.call_up("009")
        self.assertOnDisplay(station, 9)

    def test_it_is_read_fresh_from_the_file(self):
        station = self.with_fichas(NINE)
        station.call_up(9)
        station.key(ESC)
        with open(self.folder.shared / "Vintoral.ACT", "r+b") as file:
            file.seek(8 * 188)
            file.write(NINE._replace(Nombre="EVA").encode())
        station.call_up(9)
        self.assertEqual(station.caption("LblCampo(2)"), "EVA")

    def test_one_after_the_other(self):
        station = self.with_fichas(NINE, inside(10, stamp("13:30", TODAY), "XYZ100"))
        station.call_up(9)
        station.advance(1000)
        station.key(ESC)
        station.call_up(10)
        self.assertEqual(station.captions("LblCampo(1)", "LblValor"), ["XYZ100", "$ 3000.00"])

    def test_insert_and_typing_are_shut_out(self):
        station = self.with_fichas(NINE)
        station.call_up(9)
        before = station.texts(*FIELDS)
        for field in FIELDS:
            self.assertFalse(station.attempt("set", control=field, text="X")["ok"])
        station.type("X")
        self.assertEqual(station.texts(*FIELDS), before)
        self.assertIsNone(station.key(INSERT)["waiting"])
        self.assertOnDisplay(station, 9)

    def test_its_photo_and_the_lack_of_one(self):
        photo = self.folder.shared / "Imágenes ACT/000009.jpg"
        station = self.with_fichas(NINE, inside(10, stamp("13:30", TODAY)))
        photo.write_bytes(b"")
        for number, seen in ((9, (False, True, False)), (10, (True, False, True)), (9, (False, True, False))):
            with self.subTest(number=number):
                station.call_up(number)
                self.assertEqual(tuple(station.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")), seen)
                self.assertEqual(station.caption("LblWebCamMsg"), "SIN IMAGEN" if seen[2] else "")
                station.key(ESC)


class Plates(DrivenDay):
    def test_a_plate_inside_is_refused_at_enter(self):
        for typed in ("abc900", "ABC900", "  abc900  "):
            with self.subTest(typed=typed):
                station = self.with_fichas(NINE)
                before = self.folder.all_bytes()
                station.call_up(7)
                station.set("TxtCampo(1)", typed)
                station.enter()
                self.assertBox(station, {
                    "title": "Vintoral - Ingreso Denegado", "icon": "critical", "buttons": ["ok"],
                    "text": "La información digitada ya se encuentra en uso por la ficha 0009."})
                station.answer("ok")
                self.assertIdle(station)
                self.assertEqual(self.folder.all_bytes(), before)
                station.end()

    def test_accents_compare_without_case(self):
        station = self.with_fichas(NINE._replace(Placa="peñón"))
        station.call_up(7)
        station.set("TxtCampo(1)", "PEÑÓN")
        station.enter()
        self.assertEqual(station.box["title"], "Vintoral - Ingreso Denegado")

    def test_part_of_a_plate_is_another_plate(self):
        station = self.with_fichas(NINE)
        station.call_up(7)
        station.set("TxtCampo(1)", "ABC90")
        self.assertIsNone(station.enter()["waiting"])
        self.assertEqual(station.focused(), "TxtCampo(2)")

    def test_a_plate_that_left_is_welcome(self):
        station = self.with_fichas(NINE._replace(EnUso=0, PorteriaSalida="01"))
        station.call_up(7)
        station.set("TxtCampo(1)", "ABC900")
        self.assertIsNone(station.enter()["waiting"])

    def test_the_last_slot_is_looked_at(self):
        station = self.with_fichas(inside(1000, stamp("13:00", TODAY), "LAST"))
        station.call_up(7)
        station.set("TxtCampo(1)", "LAST")
        station.enter()
        self.assertIn("la ficha 1000.", station.box["text"])

    def test_an_empty_plate_asks_nobody(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)), users=[user("")])
        station.call_up(7)
        self.assertIsNone(station.enter()["waiting"])
        self.assertEqual(station.state("NumeroUsuario"), 0)
        self.assertEqual(station.focused(), "TxtCampo(2)")


class Users(DrivenDay):
    ANA = user("AAA111", "ANA", "RUIZ", "300", "CASCO", "BICICLETA", 25)
    EVA = user("eee222", "EVA", category="MOTOCICLETA", points=7)

    def ask(self, station, plate):
        station.call_up(7)
        station.set("TxtCampo(1)", plate)
        return station.enter()

    def test_a_known_user_fills_the_form(self):
        station = self.with_fichas(users=[self.EVA, self.ANA])
        self.ask(station, "aaa111")
        self.assertEqual(station.texts(*FIELDS[1:], "CboTarifa(1)"), ["AAA111", "ANA", "RUIZ", "300", "CASCO", "BICICLETA"])
        self.assertEqual(station.focused(), "CboTarifa(1)")
        self.assertEqual(station.caption("LblPuntos(3)"), "25")
        self.assertEqual((station.state("NumeroUsuario"), station.state("PuntosAcumulados")), (2, 25))

    def test_the_match_ignores_case_on_both_sides(self):
        station = self.with_fichas(users=[self.ANA, self.EVA])
        self.ask(station, "EEE222")
        self.assertEqual(station.text("TxtCampo(2)"), "EVA")

    def test_only_the_plate_finds_a_user(self):
        station = self.with_fichas(users=[self.ANA])
        for typed in ("ANA", "300", "AAA11", "AAA1111"):
            with self.subTest(typed=typed):
                self.ask(station, typed)
                self.assertEqual(station.text("TxtCampo(3)"), "")
                self.assertEqual(station.focused(), "TxtCampo(2)")
                self.assertEqual((station.state("NumeroUsuario"), station.state("PuntosAcumulados")), (2, 0))
                station.key(ESC)

    def test_the_first_of_two_records_wins(self):
        station = self.with_fichas(users=[self.ANA, user("AAA111", "OTRA")])
        self.ask(station, "AAA111")
        self.assertEqual(station.text("TxtCampo(2)"), "ANA")

    def test_without_a_file_the_first_user_would_be_number_one(self):
        station = self.running()
        self.ask(station, "AAA111")
        self.assertEqual(station.state("NumeroUsuario"), 1)
        self.assertEqual(station.focused(), "TxtCampo(2)")

    def test_a_category_that_is_gone_leaves_the_list(self):
        station = self.with_fichas(users=[user("AAA111", category="CARRUAJE")])
        station.call_up(7)
        station.do("select", control="CboTarifa(1)", text="VISITANTE")
        station.set("TxtCampo(1)", "AAA111")
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Categoria, "VISITANTE")

    def test_the_category_is_found_in_any_case(self):
        station = self.with_fichas(users=[user("AAA111", category="motocicleta")])
        self.ask(station, "AAA111")
        self.assertEqual(station.text("CboTarifa(1)"), "MOTOCICLETA")

    def test_a_click_on_the_name_is_enter_in_the_plate(self):
        station = self.with_fichas(users=[self.ANA])
        station.call_up(7)
        station.type("aaa111")
        station.click("TxtCampo(2)")
        self.assertEqual(station.text("TxtCampo(3)"), "RUIZ")

    def test_points_of_the_ficha_on_display_are_those_of_its_user(self):
        # One hour: four points beside the seven.
        station = self.with_fichas(NINE._replace(UsuarioPuntos=2), users=[self.ANA, self.EVA])
        station.call_up(9)
        self.assertEqual(station.caption("LblPuntos(1)"), "11")

    def test_a_user_number_past_the_end_has_no_points(self):
        station = self.with_fichas(NINE._replace(UsuarioPuntos=50), users=[self.ANA])
        station.call_up(9)
        self.assertEqual(station.caption("LblPuntos(1)"), "4")

    def test_users_out_of_reach_give_nobody_a_number(self):
        station = self.running()
        (self.folder.shared / "Vintoral.USR").mkdir()
        self.ask(station, "AAA111")
        self.assertEqual(station.state("NumeroUsuario"), 0)
        self.assertEqual(station.focused(), "TxtCampo(2)")


class Invoices(DrivenDay):
    def test_each_ficha_on_display_is_ticked_anew(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 1)))
        station = self.with_fichas(NINE, inside(10, stamp("13:00", TODAY), "ABC901"))
        for number in (9, 10):
            station.call_up(number)
            tick = station.get("ChkFactura")
            self.assertEqual((tick["Visible"], tick["Enabled"], tick["Value"]), (True, True, 1))
            station.key(ESC)

    def test_what_the_operator_unticks_stays_so_while_the_value_is_settled(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 1)))
        station = self.with_fichas(NINE)
        station.call_up(9)
        self.assertEqual(station.get("ChkFactura")["Value"], 1)
        station.do("check", control="ChkFactura", value=0)
        station.key(DELETE)
        self.assertEqual(station.get("ChkFactura")["Value"], 0)


if __name__ == "__main__":
    main()
