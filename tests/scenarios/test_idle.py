"""The idle screen: what it shows, what its fields take, how it is cleared, its labels and its two modes."""
from station import (BACKSPACE, CLICK, CONTROL, DELETE, ESC, FIELDS, LEFT, LIGHT_ORANGE, ROWS, DrivenDay, Folder, inside,
                     kinds, main, sounds, stamp)

LABELS = ["NUMERO FICHA ", "PLACA/DOCUMENTO ", "NOMBRE ", "APELLIDO ", "TELEFONO ", "OBSERVACION "]


class Screen(DrivenDay):
    def test_labels_and_captions(self):
        station = self.running()
        self.assertEqual(station.texts(*[f"TxtEtiqueta({i})" for i in range(6)]), LABELS)
        self.assertEqual(station.captions("LblCategoria", "LblIndicador(0)", "LblIndicador(1)"),
                         ["CATEGORIA ", "SAL", "ENT"])
        self.assertEqual(station.caption("LblInfo(0)"), "0 ( 1/1 )  ")

    def test_cleared_rows_are_light_orange(self):
        station = self.running()
        self.assertEqual([row["BackColor"] for row in station.get(*ROWS)], [LIGHT_ORANGE] * 6)

    def test_tooltips_of_the_indicators(self):
        station = self.running()
        tips = [values["ToolTipText"] for values in station.get(*[f"ImgIndicador({i})" for i in range(6)])]
        self.assertEqual(tips, [" Bloqueo de Funciones (Activado) ", " Turno de Trabajo (Activado) ",
                                " Memoria de Rostros (Activado) ", " Fotos Adicionales ", " Cámara Web Desactivada ",
                                " Imprimir Factura "])

    def test_the_minutes_of_the_monitors(self):
        station = self.running()
        self.assertEqual(station.get("CboMinutos")["List"],
                         [f"{minutes} Minutos" for minutes in (15, 30, 45, 60, 90, 120, 150, 180)])

    def test_the_clock_runs_in_the_form_of_the_stamps(self):
        station = self.running(now="2026-12-31 23:59:56")
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("23:59", "31/12/2026"))
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("00:00", "01/01/2027"))

    def test_the_clock_runs_while_a_ficha_is_typed(self):
        station = self.running()
        station.call_up(7)
        station.advance(60000)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:01", "20/11/2026"))


class NumberField(DrivenDay):
    def test_it_takes_digits(self):
        station = self.running()
        self.assertEqual(kinds(station.type("120")), [])
        self.assertEqual(station.text("TxtCampo(0)"), "120")

    def test_anything_else_falls_with_a_beep(self):
        station = self.running()
        self.assertEqual(kinds(station.type("1a-2 ,")), ["beep"] * 4)
        self.assertEqual(station.text("TxtCampo(0)"), "12")

    def test_the_characters_of_commands_fall_silently(self):
        station = self.running()
        self.assertEqual(kinds(station.type("".join(map(chr, (1, 2, 3, 6, 9, 20, 23, 24, 27))))), [])
        self.assertEqual(station.text("TxtCampo(0)"), "")

    def test_a_control_character_that_is_no_command_beeps(self):
        station = self.running()
        self.assertEqual(kinds(station.type("\x04")), ["beep"])

    def test_control_with_the_letter_of_a_command_types_nothing(self):
        station = self.running()
        for letter in "ABCFITWX":
            with self.subTest(letter=letter):
                self.assertNotIn("beep", kinds(station.key(ord(letter), CONTROL)))
        self.assertEqual(station.text("TxtCampo(0)"), "")

    def test_keys_without_a_character_type_nothing(self):
        """Their codes are those of letters and marks: 112 is F1 and "p", 46 is Delete and a point."""
        station = self.running()
        for field in ("TxtCampo(0)", "TxtCampo(1)"):
            station.focus(field)
            for code in [*range(33, 41), DELETE, *range(112, 124)]:
                with self.subTest(field=field, code=code):
                    self.assertNotIn("beep", kinds(station.key(code)))
                if station.reply["waiting"]:  # the keys of dialogs
                    station.key(ESC)
                    station.focus(field)
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["", ""])

    def test_digits_of_both_rows(self):
        station = self.running()
        for code in (ord("1"), ord("0"), 96 + 9):
            station.key(code)
        self.assertEqual(station.text("TxtCampo(0)"), "109")

    def test_pasting_goes_through_the_rules_of_typing(self):
        station = self.running()
        self.assertEqual(kinds(station.set("TxtCampo(0)", "12a3")), ["beep"])
        self.assertEqual(station.text("TxtCampo(0)"), "123")

    def test_backspace(self):
        station = self.running()
        station.type("12")
        self.assertEqual(kinds(station.key(BACKSPACE)), [])
        self.assertEqual(station.text("TxtCampo(0)"), "1")

    def test_a_double_click_selects_all(self):
        station = self.running()
        station.type("123")
        station.do("dblclick", control="TxtCampo(0)")
        values = station.get("TxtCampo(0)")
        self.assertEqual((values["SelStart"], values["SelLength"]), (0, 3))
        station.type("4")
        self.assertEqual(station.text("TxtCampo(0)"), "4")


class TextFields(DrivenDay):
    def test_text_is_raised_as_it_is_typed(self):
        station = self.running()
        for index in range(1, 6):
            with self.subTest(field=index):
                station.focus(f"TxtCampo({index})")
                self.assertEqual(kinds(station.type("ab-1 ñáü")), [])
                self.assertEqual(station.text(f"TxtCampo({index})"), "AB-1 ÑÁÜ")

    def test_the_cursor_stays_where_it_was(self):
        station = self.running()
        station.focus("TxtCampo(1)")
        station.type("ad")
        station.key(LEFT)
        station.type("bc")
        values = station.get("TxtCampo(1)")
        self.assertEqual((values["Text"], values["SelStart"]), ("ABCD", 3))

    def test_delete_takes_a_character_where_there_is_nothing_to_retire(self):
        station = self.running()
        station.focus("TxtCampo(1)")
        station.type("abcd")
        station.key(LEFT)
        station.key(LEFT)
        station.key(DELETE)
        station.key(BACKSPACE)
        values = station.get("TxtCampo(1)")
        self.assertEqual((values["Text"], values["SelStart"]), ("AD", 1))

    def test_the_characters_of_commands_fall_silently(self):
        station = self.running()
        station.focus("TxtCampo(2)")
        self.assertEqual(kinds(station.type("".join(map(chr, (1, 2, 3, 6, 9, 20, 23, 24))))), [])
        self.assertEqual(station.text("TxtCampo(2)"), "")

    def test_pasted_text_is_raised_too(self):
        station = self.running()
        station.set("TxtCampo(1)", "abc ñ")
        self.assertEqual(station.text("TxtCampo(1)"), "ABC Ñ")

    def test_enter_walks_through_the_fields_to_the_category(self):
        station = self.running()
        station.call_up(7)
        visited = [station.focused()]
        for _ in range(5):
            station.enter()
            visited.append(station.focused())
        self.assertEqual(visited, FIELDS[1:] + ["CboTarifa(1)"])


class Clearing(DrivenDay):
    def everything(self, station):
        names = (FIELDS + ROWS + [f"PctBoton({i})" for i in range(15)] + [f"LblPuntos({i})" for i in range(4)] +
                 ["LblFechaEnt", "LblFechaSal", "LblValor", "LblCambio", "TxtEfectivo", "CboTarifa(0)", "CboTarifa(1)",
                  "TxtBarCode", "TxtBarCodeOK", "TxtMaxEntrada", "LstModEntrada", "ChkFactura", "Picture1", "Picture2",
                  "PctUsuario(0)", "PctUsuario(1)", "ImgPuntos", "ShpCelda", "PctFicha", "PctAppCamera", "LblWebCamMsg",
                  "ImgIndicador(3)", "ImgIndicador(5)", "PctFotoDetalle(0)"])
        return dict(zip(names, station.get(*names))), station.focused()

    def test_twice_in_a_row_leaves_the_same_screen(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026"), "ABC900"))
        station.call_up(9)
        station.advance(1000)
        station.key(ESC)
        once = self.everything(station)
        station.key(ESC)
        self.assertEqual(self.everything(station), once)

    def test_a_typed_ficha_is_forgotten(self):
        station = self.running()
        station.fill(7, "abc123", "ana", "ruiz", "300", "casco", category="MOTOCICLETA")
        self.assertEqual(sounds(station.key(ESC)), [CLICK])
        self.assertIdle(station)
        self.assertEqual((station.text("CboTarifa(1)"), station.get("CboTarifa(1)")["ListIndex"]), ("AUTOMOVIL", 0))
        self.assertEqual(self.folder.slot(7).EnUso, 0)

    def test_a_ficha_on_display_goes(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026"), "ABC900"))
        station.call_up(9)
        station.advance(1000)
        station.type("50000")
        station.key(ESC)
        self.assertIdle(station)
        self.assertEqual([row["BackColor"] for row in station.get(*ROWS)], [LIGHT_ORANGE] * 6)
        self.assertEqual(station.captions("LblFechaEnt", "LblFechaSal", "LblCambio"), ["", "", ""])
        self.assertEqual(station.text("TxtEfectivo"), "0")
        self.assertEqual([station.shown(name) for name in ("TxtEfectivo", "LblCambio", "ImgPuntos", "LblPuntos(1)")],
                         [False] * 4)
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:00", "20/11/2026"))

    def test_no_file_is_touched(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026"), "ABC900"))
        before = self.folder.all_bytes()
        station.call_up(9)
        station.advance(1000)
        station.key(ESC)
        station.fill(8, "abc")
        station.key(ESC)
        self.assertEqual(self.folder.all_bytes(), before)


class Labels(DrivenDay):
    def rename(self, station, index, text):
        station.click(f"PctEtiqueta({index})")
        station.set(f"TxtEtiqueta({index})", text)
        station.enter()

    def stored(self, folder=None):
        data = ((folder or self.folder).shared / "Vintoral.LBL").read_bytes()
        return [data[at:at + 20].decode("cp1252") for at in range(0, 120, 20)]

    def test_small_letters_show_in_capitals(self):
        station = self.running()
        station.click("PctEtiqueta(1)")
        station.do("dblclick", control="TxtEtiqueta(1)")
        station.type("matrícula")
        self.assertEqual(station.text("TxtEtiqueta(1)"), "MATRÍCULA")

    def test_enter_stores_the_labels(self):
        station = self.running()
        self.rename(station, 2, "conductor")
        self.assertEqual(self.stored()[2], "CONDUCTOR".ljust(20))
        self.assertEqual(self.stored()[1], "PLACA/DOCUMENTO".ljust(20))

    def test_leaving_stores_the_labels(self):
        station = self.running()
        station.click("PctEtiqueta(3)")
        station.set("TxtEtiqueta(3)", "empresa")
        station.focus("TxtCampo(0)")
        self.assertEqual(self.stored()[3], "EMPRESA".ljust(20))

    def test_blanks_around_a_label_are_trimmed_and_one_stands_behind_it(self):
        station = self.running()
        self.rename(station, 4, "  movil  ")
        self.assertEqual(self.stored()[4], "MOVIL".ljust(20))
        station.close()
        self.assertEqual(self.running().text("TxtEtiqueta(4)"), "MOVIL ")

    def test_a_long_label_keeps_twenty_characters(self):
        station = self.running()
        self.rename(station, 5, "abcdefghijklmnopqrstuvwxyz")
        self.assertEqual(self.stored()[5], "ABCDEFGHIJKLMNOPQRST")

    def test_all_stations_share_the_labels(self):
        station = self.running()
        self.rename(station, 1, "matricula")
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        self.assertEqual(self.running(second).text("TxtEtiqueta(1)"), "MATRICULA ")


class BarcodeMode(DrivenDay):
    def test_without_tickets_there_is_no_such_mode(self):
        station = self.running()
        self.assertEqual(sounds(self.switch_barcodes(station)), ["ABRiL\\ABRiL-8.wav"])
        self.assertEqual(station.text("TxtEtiqueta(0)"), "NUMERO FICHA ")
        self.assertTrue(station.get("TxtCampo(0)")["Enabled"])

    def test_on(self):
        station = self.with_tickets()
        self.assertEqual(sounds(self.switch_barcodes(station)), ["ABRiL\\ABRiL-7.wav"])
        self.assertEqual(station.text("TxtEtiqueta(0)"), "CODIGO BARRAS ")
        self.assertFalse(station.get("TxtCampo(0)")["Enabled"])
        self.assertTrue(station.shown("TxtBarCode"))
        self.assertEqual(station.focused(), "TxtBarCode")
        self.assertFalse(station.attempt("set", control="TxtCampo(0)", text="7")["ok"])
        self.assertEqual(station.text("TxtCampo(0)"), "")

    def test_off(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        self.assertEqual(sounds(self.switch_barcodes(station)), ["ABRiL\\ABRiL-8.wav"])
        self.assertEqual(station.text("TxtEtiqueta(0)"), "NUMERO FICHA ")
        self.assertTrue(station.get("TxtCampo(0)")["Enabled"])
        self.assertEqual([station.shown("TxtBarCode"), station.shown("CmdBarCode")], [False, False])
        self.assertEqual(station.focused(), "TxtCampo(0)")

    def test_clearing_stays_in_the_mode(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        station.key(ESC)
        self.assertEqual(station.text("TxtEtiqueta(0)"), "CODIGO BARRAS ")
        self.assertFalse(station.get("TxtCampo(0)")["Enabled"])
        self.assertEqual(station.focused(), "TxtBarCode")

    def test_a_ficha_on_display_is_cancelled_first(self):
        station = self.with_tickets(inside(9, stamp("13:00", "20/11/2026"), "ABC900"))
        station.call_up(9)
        station.advance(1000)
        self.switch_barcodes(station)
        self.assertEqual(station.captions(*ROWS), [""] * 6)
        self.assertFalse(station.shown("PctBoton(6)"))
        self.assertEqual(self.folder.slot(9).EnUso, -1)

    def test_it_is_there_after_a_restart(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        station.close()
        station = self.running()
        self.assertEqual(station.text("TxtEtiqueta(0)"), "CODIGO BARRAS ")
        self.assertFalse(station.get("TxtCampo(0)")["Enabled"])

    def test_a_half_read_code_goes_after_a_second(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        station.type("AB")
        station.advance(999)
        self.assertEqual(station.text("TxtBarCode"), "AB")
        station.advance(1)
        self.assertEqual(station.text("TxtBarCode"), "")

    def test_each_character_gives_the_reader_another_second(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        for character in "ABC":
            station.type(character)
            station.advance(900)
        self.assertEqual(station.text("TxtBarCode"), "ABC")
        station.advance(100)
        self.assertEqual(station.text("TxtBarCode"), "")


if __name__ == "__main__":
    main()
