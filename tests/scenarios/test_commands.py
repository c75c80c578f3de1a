"""The command set: every key with its mask and condition, every button with its tooltip, as far as each acts."""
import pathlib
import shutil

from station import (ALT, CLICK, CONTROL, DELETE, ESC, F1, F10, F11, F9, INSERT, SHIFT, DrivenDay, Folder, inside,
                     kinds, launches, main, mixed, screen_state, sounds, stamp)

CATEGORIES = ["AUTOMOVIL", "MOTOCICLETA", "BICICLETA", "COMPRA MES AUTO", "COMPRA MES MOTO", "COMPRA MES BICI",
              "ACCESO MES AUTO", "ACCESO MES MOTO", "ACCESO MES BICI", "LAVADO AUTOMOVIL", "VISITANTE", "EMPLEADO",
              "RESIDENTE", "ENTREGA DOMICILIO", "SERVICIO TECNICO", "AGENTE INMOBILIARIO"]


class Clicks(DrivenDay):
    """The click comes before anything else, for these keys and masks only."""

    def test_keys_that_click(self):
        station = self.running()
        for code, mask in ((ESC, 0), (ESC, SHIFT), (ESC, ALT), (F9, 0), (87, CONTROL), (F11, SHIFT | CONTROL),
                           (F11, SHIFT | ALT)):
            with self.subTest(code=code, mask=mask):
                self.assertEqual(sounds(station.key(code, mask))[:1], [CLICK])
                if station.reply["waiting"]:  # the keypad of the lock
                    station.key(ESC)

    def test_keys_that_do_not(self):
        station = self.running()
        for code, mask in ((87, ALT), (87, 0), (F11, 0), (F11, CONTROL), (F11, SHIFT), (F11, ALT), (117, 0),
                           (INSERT, 0), (DELETE, 0), (F10, 0)):
            with self.subTest(code=code, mask=mask):
                self.assertEqual(sounds(station.key(code, mask)), [])


class Escape(DrivenDay):
    def test_any_mask_clears(self):
        station = self.running()
        for mask in range(8):
            with self.subTest(mask=mask):
                station.fill(7, "abc")
                station.key(ESC, mask)
                self.assertIdle(station)


class InsertAndDelete(DrivenDay):
    def test_insert_with_the_button_hidden_does_nothing(self):
        station = self.running()
        reply = station.key(INSERT)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))

    def test_insert_saves_with_any_mask(self):
        station = self.running()
        for mask in range(8):
            with self.subTest(mask=mask):
                station.call_up(7)
                station.key(INSERT, mask)
                self.assertEqual(station.box["title"], "Vintoral - Confirmar Datos")
                station.answer("no")
                station.key(ESC)

    def test_insert_with_a_ficha_on_display_does_nothing(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026")))
        station.call_up(9)
        reply = station.key(INSERT)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))

    def test_delete_with_the_button_hidden_does_nothing(self):
        station = self.running()
        for number in ("", "7"):
            if number:
                station.call_up(number)
            reply = station.key(DELETE)
            self.assertEqual((kinds(reply), reply["waiting"]), ([], None))

    def test_delete_retires_with_any_mask(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026")))
        for mask in range(8):
            with self.subTest(mask=mask):
                station.call_up(9)
                station.key(DELETE, mask)
                self.assertEqual(station.box["title"], "Vintoral - Confirmar Ficha")
                station.answer("no")


class CategoryKeys(DrivenDay):
    def selected(self, station, digit, mask=CONTROL):
        station.key(ord(digit), mask)
        return station.text("CboTarifa(1)")

    def test_the_list_holds_every_head(self):
        self.assertEqual(self.running().get("CboTarifa(1)")["List"], CATEGORIES)

    def test_one_is_the_first_and_nought_the_tenth(self):
        station = self.running()
        for digit, expected in zip("234567891", CATEGORIES[1:9] + CATEGORIES[:1]):
            with self.subTest(digit=digit):
                self.assertEqual(self.selected(station, digit), expected)
        self.assertEqual(self.selected(station, "0"), "LAVADO AUTOMOVIL")

    def test_only_control_alone(self):
        station = self.running()
        for mask in (0, SHIFT, ALT, CONTROL | ALT, CONTROL | SHIFT):
            with self.subTest(mask=mask):
                self.assertEqual(self.selected(station, "3", mask), "AUTOMOVIL")
                station.key(ESC)

    def test_past_the_last_item_nothing_happens(self):
        station = self.with_tariff("UNO", "DOS", "TRES", "CUATRO")
        self.assertEqual(self.selected(station, "3"), "TRES")
        self.assertEqual(self.selected(station, "2"), "DOS")
        # The condition counts one further than the choice: the last item of a short list has no key.
        self.assertEqual(self.selected(station, "4"), "DOS")
        self.assertEqual(self.selected(station, "5"), "DOS")
        self.assertEqual(self.selected(station, "9"), "DOS")
        self.assertEqual(self.selected(station, "0"), "DOS")

    def test_the_form_of_a_new_ficha_keeps_its_texts(self):
        station = self.running()
        station.fill(7, "abc")
        self.assertEqual(self.selected(station, "2"), "MOTOCICLETA")
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])


class Programs(DrivenDay):
    """Keys that open a file or a folder in a program of the user's own."""

    def test_the_help_document(self):
        station = self.running()
        self.assertEqual(launches(station.key(F1, CONTROL)), ["Notepad.exe Vintoral Léame.TXT"])

    def test_the_barcode_font(self):
        station = self.running()
        self.assertEqual(launches(station.key(66, CONTROL)), [])
        self.folder.write("Fuentes/Vintoral.ttf", b"font")
        self.assertEqual(launches(station.key(66, CONTROL)), [f"Explorer.exe {self.folder.path}\\Fuentes\\Vintoral.ttf"])

    def test_the_invoice_history(self):
        station = self.running()
        self.assertEqual(launches(station.key(70, CONTROL)), ["Notepad.exe Recursos\\Vintoral.HFC"])
        (self.folder / "Recursos/Vintoral.HFC").unlink()
        self.assertEqual(launches(station.key(70, CONTROL)), [])

    def test_the_wallpapers(self):
        station = self.running()
        self.assertEqual(launches(station.key(73, CONTROL | ALT)), ["Explorer.exe Fondos"])

    def test_other_masks_open_nothing(self):
        self.folder.write("Fuentes/Vintoral.ttf", b"font")
        station = self.running()
        for code, masks in ((F1, (SHIFT, ALT, CONTROL | ALT)), (66, (0, SHIFT, ALT)), (70, (0, ALT, CONTROL | ALT)),
                            (73, (ALT, CONTROL | SHIFT))):
            for mask in masks:
                with self.subTest(code=code, mask=mask):
                    self.assertEqual(launches(station.key(code, mask)), [])
                    station.key(ESC)


class ServerKeys(DrivenDay):
    def connecting(self):
        self.folder.write("Objetos/Servidor.INI", b"/nowhere\r\n")
        return self.running()

    def test_f10_opens_the_path_while_connecting(self):
        station = self.connecting()
        for mask in range(8):
            with self.subTest(mask=mask):
                self.assertEqual(launches(station.key(F10, mask)), ["Notepad.exe Objetos\\Servidor.INI"])

    def test_f10_does_nothing_while_connected(self):
        station = self.running()
        reply = station.key(F10)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))

    def test_forgetting_the_server_needs_control_and_alt(self):
        station = self.connecting()
        for mask in (0, CONTROL, ALT, SHIFT | ALT, SHIFT | CONTROL):
            station.key(82, mask)
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), b"/nowhere\r\n")
        station.key(82, CONTROL | ALT)
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), b"\r\n")
        self.assertEqual(station.state("NumeroPorteria"), "01")

    def test_forgetting_the_server_does_nothing_while_connected(self):
        other = Folder(self.root / "other")
        other.write("Multimedia/Vintoral.ACT", b"\0" * 188188)
        self.folder.write("Objetos/Servidor.INI", f"{other.shared}\r\n".encode())
        station = self.running()
        station.key(82, CONTROL | ALT)
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), f"{other.shared}\r\n".encode())
        self.assertEqual(station.state("NumeroPorteria"), "02")


class FaceMemory(DrivenDay):
    def test_on_and_off(self):
        station = self.running()
        self.assertFalse(station.shown("ImgIndicador(2)"))
        self.assertEqual(sounds(station.key(77, CONTROL | ALT)), ["ABRiL\\ABRiL-6.wav"])
        self.assertTrue(station.shown("ImgIndicador(2)"))
        self.assertEqual(sounds(station.key(77, CONTROL | ALT)), ["ABRiL\\ABRiL-5.wav"])
        self.assertFalse(station.shown("ImgIndicador(2)"))

    def test_only_control_and_alt(self):
        station = self.running()
        for mask in (CONTROL, ALT, SHIFT | CONTROL):
            self.assertEqual(sounds(station.key(77, mask)), [])
        self.assertFalse(station.shown("ImgIndicador(2)"))


class TariffGenerator(DrivenDay):
    def test_a_missing_file_is_named_with_its_folder(self):
        for missing in ("EMP", "XTR", "RJE"):
            with self.subTest(missing=missing):
                station = self.running()
                (self.folder / f"Recursos/Vintoral.{missing}").unlink()
                reply = station.key(84, CONTROL)
                self.assertEqual(sounds(reply), [])
                self.assertBox(station, {
                    "title": "Vintoral - Imposible Abrir Archivo", "icon": "exclamation", "buttons": ["ok"],
                    "text": "No se puede encontrar el archivo generador de tarifas. La carpeta "
                            f"'{self.folder.path}' está protegida contra escritura o el archivo ya no existe."})
                self.assertIsNone(station.answer("ok")["waiting"])

    def test_other_masks_do_not_look(self):
        station = self.running()
        (self.folder / "Recursos/Vintoral.EMP").unlink()
        for mask in (ALT, CONTROL | ALT, CONTROL | SHIFT):
            self.assertIsNone(station.key(84, mask)["waiting"])


class KeysWithoutAction(DrivenDay):
    def test_they_leave_the_station_as_it_was(self):
        station = self.running(cameras=[])  # Ctrl+X takes photos in a row only where there is a camera
        station.fill(7, "abc")
        before = self.folder.all_bytes()
        for code, mask in ((88, CONTROL), (73, CONTROL | SHIFT), (117, 0), (F11, 0)):
            with self.subTest(code=code, mask=mask):
                reply = station.key(code, mask)
                self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])
        self.assertEqual(self.folder.all_bytes(), before)


class Wallpapers(DrivenDay):
    PICTURE = "data/wallpapers/01-niebla.jpg"

    def hang(self, *names):
        source = pathlib.Path(__file__).resolve().parents[2] / self.PICTURE
        (self.folder / "Fondos").mkdir(parents=True)
        for name in names:
            shutil.copy(source, self.folder / "Fondos" / name)

    def test_the_next_one_and_round_again(self):
        self.hang("a.jpg", "b.jpg", "c.jpg", "notas.txt")
        self.folder.write("Recursos/Vintoral.DAT", screen_state(marks=mixed(None, None, number2=1)))
        station = self.running()
        self.assertEqual(station.get("FilFondos")["List"], ["a.jpg", "b.jpg", "c.jpg"])
        self.assertEqual(station.get("ImgFondo")["Tag"], "1")
        tags = []
        for _ in range(3):
            station.key(73, CONTROL)
            tags.append(station.get("ImgFondo")["Tag"])
        self.assertEqual(tags, ["2", "0", "1"])

    def test_the_icon_does_the_same(self):
        self.hang("a.jpg", "b.jpg")
        self.folder.write("Recursos/Vintoral.DAT", screen_state())
        station = self.running()
        station.click("ImgCambiarFondo")
        self.assertEqual(station.get("ImgFondo")["Tag"], "1")

    def test_without_wallpapers_nothing_happens(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(marks=mixed(None, None, number2=4)))
        station = self.running()
        reply = station.key(73, CONTROL)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(station.get("ImgFondo")["Tag"], "4")
        self.assertFalse(station.get("ImgFondo")["Picture"])


class Buttons(DrivenDay):
    UP = {0: "<CTRL+W> Conectar/Cambiar Cámara Web", 1: "<REPAG> Retroceder Página", 2: "<AVPAG> Avanzar Página",
          3: "<F4> Imprimir Estado/Búsqueda/Ficha", 4: "<F5> Activar Búsqueda de Registros",
          7: '<F1> Activar Monitor "ULTIMOS EN INGRESAR"', 8: '<F2> Activar Monitor "TIEMPO DE PERMANENCIA"',
          9: '<F3> Activar Monitor "ULTIMOS EN SALIR"', 10: "Activar Impresión de Tiquetes",
          11: "<ESC> Cancelar/Limpiar Campos", 12: "<F7> Registrar Extras", 13: "<F8> Abrir Menú de Funciones",
          14: "Activar Impresión de Facturas"}

    def tip(self, station, index):
        station.do("hover", control=f"PctBoton({index})")
        return station.get(f"PctBoton({index})")["ToolTipText"]

    def test_tooltips_of_buttons_that_are_up(self):
        station = self.running()
        self.assertEqual({index: self.tip(station, index) for index in self.UP}, self.UP)

    def test_tooltips_of_save_and_retire(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026")))
        station.call_up(7)
        self.assertEqual(self.tip(station, 5), "<INSERT> Guardar Ficha")
        station.key(ESC)
        station.call_up(9)
        self.assertEqual(self.tip(station, 6), "<SUPR> Retirar Ficha")

    def test_tooltips_of_buttons_that_are_pressed(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(screen=mixed(0, 1, mark=-1)))
        station = self.running()
        self.assertEqual(self.tip(station, 10), "Desactivar Impresión de Tiquetes")
        self.assertEqual(self.tip(station, 14), "Desactivar Impresión de Facturas")

    def test_what_is_heard_first(self):
        station = self.running()
        voice = ["ABRiL\\ABRiL-1.wav"]
        expected = {1: [CLICK], 2: [CLICK], 3: [], 4: ["ABRiL\\ABRiL-13.wav"], 7: voice, 8: [], 9: [], 10: [], 12: [], 13: [CLICK], 14: []}
        heard = {}
        for index in expected:
            heard[index] = sounds(station.click(f"PctBoton({index})"))[:1]
            if station.box:
                station.answer("cancel")  # the question before a report
            elif "Form2" in station.state("forms"):
                station.click("PctBoton(4)")  # the search hides the monitors
            elif station.reply["waiting"]:
                station.key(ESC)  # out of the dialog
        self.assertEqual(heard, expected)

    def test_save(self):
        station = self.running()
        station.call_up(7)
        self.assertEqual(sounds(station.click("PctBoton(5)")), [])
        self.assertEqual(station.box["title"], "Vintoral - Confirmar Datos")

    def test_retire(self):
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026")))
        station.call_up(9)
        self.assertEqual(kinds(station.click("PctBoton(6)")), [])
        self.assertEqual(station.box["title"], "Vintoral - Confirmar Ficha")

    def test_cancel_clicks_like_the_key(self):
        station = self.running()
        station.fill(7, "abc")
        self.assertEqual(sounds(station.click("PctBoton(11)")), [CLICK])
        self.assertIdle(station)


class GeneratorButtons(DrivenDay):
    def test_one_at_a_time_is_shown(self):
        station = self.with_tickets()
        self.assertEqual([station.shown("CmdNumeroFicha"), station.shown("CmdBarCode")], [True, False])
        self.switch_barcodes(station)
        self.assertEqual([station.shown("CmdNumeroFicha"), station.shown("CmdBarCode")], [False, True])

    def test_in_barcode_mode_it_goes_on_though_the_number_is_closed(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        self.assertFalse(station.get("TxtCampo(0)")["Enabled"])
        self.assertEqual(sounds(station.click("CmdBarCode")), ["Sonidos\\Vintoral-10.wav"])

    def test_the_focus_goes_to_the_plate(self):
        station = self.with_tickets()
        self.assertEqual(kinds(station.click("CmdNumeroFicha")), ["sound"])
        self.assertEqual(station.focused(), "TxtCampo(1)")


if __name__ == "__main__":
    main()
