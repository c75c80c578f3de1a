"""Starting and closing: the folder tree, the defaults, the welcome, the failures that stop a station."""
from station import (ACT_LENGTH, LOST, MIXED_LENGTH, RED, DrivenDay, Folder, fresh_register, inside, kinds, main,
                     sounds, stamp)

TREE = ["ABRiL", "Fondos", "Fuentes", "Multimedia", "Multimedia/Imágenes INI", "Multimedia/Imágenes USR",
        "Multimedia/Imágenes ACT", "Multimedia/Imágenes HST", "Multimedia/Imágenes DTL", "Objetos", "Recursos", "Sonidos"]
HELP = "Vintoral Léame.TXT"


class FirstStart(DrivenDay):
    def test_the_tree_stands_beside_the_program(self):
        self.running()
        self.assertEqual(sorted(str(p.relative_to(self.folder.path)) for p in self.folder.path.rglob("*") if p.is_dir()),
                         sorted(TREE))

    def test_registers_and_settings_are_made(self):
        self.running()
        sizes = {name: (self.folder / name).stat().st_size for name in (
            "Multimedia/Vintoral.ACT", "Multimedia/Vintoral.HST", "Multimedia/Vintoral.NSR", "Multimedia/Vintoral.CRD",
            "Recursos/Vintoral.HFC", "Recursos/Vintoral.EMP", "Recursos/Vintoral.XTR", "Recursos/Vintoral.RJE")}
        self.assertEqual(sizes, {
            "Multimedia/Vintoral.ACT": ACT_LENGTH, "Multimedia/Vintoral.HST": 188, "Multimedia/Vintoral.NSR": 188,
            "Multimedia/Vintoral.CRD": 0, "Recursos/Vintoral.HFC": 0, "Recursos/Vintoral.EMP": 6600,
            "Recursos/Vintoral.XTR": 1100, "Recursos/Vintoral.RJE": 800})
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), b"\r\n")
        self.assertEqual((self.folder / "Recursos/Vintoral.DVS").read_bytes(), b"$\r\n")

    def test_without_a_server_the_station_is_the_main_gate(self):
        station = self.running()
        state = station.state()
        expected = {"NumeroPorteria": "01", "EsCliente": 0, "CarpetaCompartida": f"{self.folder.path}\\Multimedia",
                    "TotalFichas": 1000, "PrimerNumero": 1, "LimiteFilas": 10946, "InicioPagina": 1}
        self.assertEqual({name: state[name] for name in expected}, expected)
        self.assertEqual(station.caption("LblInfo(2)"), "P01")
        self.assertEqual(station.text("CboMinutos"), " " * 11 + "P01 MONITOR")

    def test_the_welcome_names_the_folder(self):
        station = self.process()
        self.start(station)
        self.assertEqual(station.box["title"], "Vintoral - BIENVENIDO")
        self.assertEqual(station.box["text"].replace("\r\n", "\n"),
                         'Un acceso directo con el nombre "Vintoral" ha sido creado en el escritorio. El programa se '
                         f"encuentra en la carpeta '{self.folder.path}'\n"
                         'Para desinstalar el programa simplemente elimine el acceso directo y la carpeta "Vintoral".')
        self.assertEqual((station.box["icon"], station.box["buttons"], station.box["default"]),
                         ("information", ["ok"], "ok"))

    def test_the_sequence_waits_for_the_welcome_to_be_read(self):
        station = self.process()
        self.start(station)
        self.assertTrue((self.folder / HELP).exists())
        self.assertFalse((self.folder / "Multimedia/Vintoral.ACT").exists())
        station.advance(10000)
        self.assertFalse(station.get("TmrConexion")["Enabled"])
        self.assertBars(station, RED)
        self.assertEqual(sounds(station.answer("ok")), [LOST])
        self.assertTrue((self.folder / "Multimedia/Vintoral.ACT").exists())

    def test_until_the_link_is_up_the_station_connects(self):
        station = self.process()
        self.start(station)
        station.answer("ok")
        station.advance(2999)
        self.assertBars(station, RED)
        self.assertEqual(station.caption("LblFechaEnt"), "CONECTANDO... ")
        self.assertFalse(station.shown("LblIndicador(0)"))
        timers = station.get("TmrHoraFecha", "TmrHorario", "TmrMonitor", "TmrConexion", "TmrBarCode")
        self.assertEqual([timer["Enabled"] for timer in timers], [False, True, False, True, False])
        self.assertEqual([timer["Interval"] for timer in timers], [500, 500, 7000, 3000, 1000])
        station.advance(1)
        timers = station.get("TmrHoraFecha", "TmrHorario", "TmrMonitor", "TmrConexion", "TmrBarCode")
        self.assertEqual([timer["Enabled"] for timer in timers], [True, True, True, True, False])
        self.assertEqual(timers[3]["Interval"], 10000)

    def test_the_start_sound_is_played_when_it_is_there(self):
        self.folder.write("Sonidos/Vintoral-1.wav", b"RIFF")
        station = self.process()
        self.start(station)
        reply = station.answer("ok")
        self.assertEqual([event for event in reply["events"] if event["event"] == "sound"],
                         [{"event": "sound", "file": LOST, "played": True}])

    def test_a_missing_start_sound_is_silent(self):
        station = self.process()
        self.start(station)
        reply = station.answer("ok")
        self.assertEqual([event for event in reply["events"] if event["event"] == "sound"],
                         [{"event": "sound", "file": LOST, "played": False}])

    def test_the_operator_can_type_at_once(self):
        station = self.running()
        self.assertIdle(station)
        station.type("7")
        self.assertEqual(station.text("TxtCampo(0)"), "7")


class HelpDocument(DrivenDay):
    def help(self):
        return (self.folder / HELP).read_bytes()

    def test_sections_in_their_order(self):
        self.running()
        text = self.help().decode("cp1252")
        places = [text.index(heading) for heading in (
            "10.25", "ACERCA DE Vintoral", "ACERCA DE LAS TECLAS DE ACCESO DIRECTO",
            "ACERCA DE LA CONEXIÓN DE PORTERÍAS", "SOLUCIÓN DE PROBLEMAS", "COMENTARIOS")]
        self.assertEqual(places, sorted(places))

    def test_every_line_ends_as_it_does_on_other_systems(self):
        self.running()
        self.assertEqual(self.help().count(b"\n"), self.help().count(b"\r\n"))
        self.assertGreater(self.help().count(b"\r\n"), 30)

    def test_every_shortcut_key_has_a_line_and_f2_repeats_the_name_of_f1(self):
        self.running()
        text = self.help().decode("cp1252")
        keys = text[text.index("ACERCA DE LAS TECLAS"):text.index("ACERCA DE LA CONEXIÓN")].splitlines()
        named = [line[:20].rstrip() for line in keys[2:] if line]
        self.assertEqual(named, [
            "ESC", "REPAG", "AVPAG", "INICIO", "IZQUIERDA", "DERECHA", "INSERT", "SUPR", "CTRL + 0 ... 9", "CTRL + A",
            "CTRL + B", "CTRL + ALT + B", "CTRL + C", "CTRL + F", "CTRL + I", "CTRL + ALT + I", "CTRL + ALT + K",
            "CTRL + ALT + L", "CTRL + ALT + M", "CTRL + ALT + P", "CTRL + SHIFT + R", "CTRL + ALT + R", "CTRL + T",
            "CTRL + W", "SHIFT + ALT + W", "CTRL + ALT + W", "CTRL + F1", "F1", "F2", "F3", "F4", "F5", "F7", "F8", "F9",
            "F10", "F12"])
        repeated = [line for line in keys if "ULTIMOS EN INGRESAR" in line.upper() or "ÚLTIMOS EN INGRESAR" in line.upper()]
        self.assertEqual(len(repeated), 2, repeated)
        self.assertEqual([line[:4] for line in repeated], ["F1  ", "F2  "])

    def test_the_gates_are_connected_in_seven_steps(self):
        self.running()
        text = self.help().decode("cp1252")
        section = text[text.index("ACERCA DE LA CONEXIÓN"):text.index("SOLUCIÓN DE PROBLEMAS")]
        steps = [line.strip()[0] for line in section.splitlines() if line.strip()[:1].isdigit()]
        self.assertEqual(steps, list("1234567"))
        self.assertIn("F10", section)

    def test_an_edited_document_stays(self):
        self.folder.write(HELP, b"Lo nuestro")
        self.running()
        self.assertEqual(self.help(), b"Lo nuestro")


class Shortcut(DrivenDay):
    def desktop(self):
        return list((self.root / "P01-desktop").iterdir())

    def test_it_is_a_desktop_entry_with_the_working_folder(self):
        self.running()
        entry, = self.desktop()
        text = entry.read_text(encoding="utf-8")
        self.assertTrue(text.startswith("[Desktop Entry]"))
        self.assertIn(f"Path={self.folder.path}\n", text)
        self.assertIn("Name=Vintoral\n", text)
        self.assertIn(f"Icon={self.folder.path}/Recursos/Vintoral.ico\n", text)

    def test_the_welcome_comes_once(self):
        self.running().close()
        station = self.process()
        self.start(station)
        self.assertIsNone(station.box)
        self.assertEqual(len(self.desktop()), 1)

    def test_a_deleted_shortcut_is_made_and_announced_again(self):
        self.running().close()
        self.desktop()[0].unlink()
        station = self.process()
        self.start(station)
        self.assertEqual(station.box["title"], "Vintoral - BIENVENIDO")
        self.assertEqual(len(self.desktop()), 1)


class SecondInstance(DrivenDay):
    def test_it_ends_without_a_word(self):
        station = self.process()
        reply = self.start(station, instances=2)
        self.assertEqual((reply["waiting"], kinds(reply)), (None, ["end"]))
        self.assertFalse((self.folder / "Objetos").exists())
        self.assertFalse(station.attempt("key", code=27, mask=0)["ok"])

    def test_the_marker_of_a_registration_lets_it_go_on(self):
        self.folder.write("Recursos/Vintoral.RLD", b"")
        station = self.running(instances=2)
        self.assertIdle(station)


class StoppingFailures(DrivenDay):
    def assertStopped(self, station, text):
        """The box, then the end, and a station that takes nothing more but a new start."""
        self.assertBox(station, {"title": "Vintoral - Imposible Continuar", "text": text, "icon": "critical",
                                 "buttons": ["ok"]})
        reply = station.answer("ok")
        self.assertEqual(kinds(reply)[-1], "end")
        self.assertIsNone(reply["waiting"])
        for operation in ("advance", "get", "state", "close"):
            self.assertFalse(station.attempt(operation, ms=1, controls=[])["ok"], operation)

    def test_the_server_file_cannot_be_made(self):
        # A file in the place of its folder protects better than rights, which do not bind the superuser.
        self.folder.write("Objetos", b"")
        station = self.process()
        self.start(station)
        self.assertStopped(station, f"La carpeta '{self.folder.path}' está protegida contra escritura.")
        self.assertFalse((self.folder / HELP).exists())
        self.assertEqual([p.name for p in self.folder.shared.iterdir() if p.is_file()], [])
        self.assertEqual(list((self.root / "P01-desktop").iterdir()), [])

    def test_the_help_document_cannot_be_written(self):
        self.folder.write(HELP + "/x", b"")
        station = self.process()
        self.start(station)
        self.assertStopped(station, f"La carpeta '{self.folder.path}' está protegida contra escritura.")
        self.assertFalse((self.folder / "Multimedia/Vintoral.ACT").exists())

    def test_act_cannot_be_made(self):
        self.folder.write("Multimedia", b"")
        station = self.process()
        self.start(station)
        station.answer("ok")
        self.assertStopped(station, 'No se puede crear el archivo "Vintoral.ACT". La carpeta '
                                    f"'{self.folder.path}\\Multimedia' está protegida contra escritura.")
        self.assertFalse((self.folder / "Recursos/Vintoral.EMP").exists())

    def test_hst_cannot_be_made(self):
        self.folder.write("Multimedia/Vintoral.HST/x", b"")
        station = self.process()
        self.start(station)
        station.answer("ok")
        self.assertStopped(station, 'No se puede crear el archivo "Vintoral.HST". La carpeta '
                                    f"'{self.folder.path}\\Multimedia' está protegida contra escritura.")
        self.assertEqual((self.folder / "Multimedia/Vintoral.ACT").stat().st_size, ACT_LENGTH)

    def test_a_repaired_folder_starts(self):
        blocked = self.folder.write("Objetos", b"")
        station = self.process()
        self.start(station)
        station.answer("ok")
        blocked.unlink()
        self.start(station)
        station.answer("ok")
        station.advance(3000)
        self.assertIdle(station)


class PassedOver(DrivenDay):
    def test_nsr_and_crd_that_cannot_be_made_stop_nothing(self):
        self.folder.write("Multimedia/Vintoral.NSR/x", b"")
        self.folder.write("Multimedia/Vintoral.CRD/x", b"")
        station = self.running()
        self.assertIdle(station)
        self.assertEqual((self.folder / "Recursos/Vintoral.EMP").stat().st_size, 6600)

    def test_folders_that_cannot_be_made_stop_nothing(self):
        for name in ("ABRiL", "Fondos", "Fuentes", "Sonidos"):
            self.folder.write(name, b"")
        self.assertIdle(self.running())

    def test_settings_that_cannot_be_made_stop_nothing(self):
        self.folder.write("Recursos", b"")
        station = self.running()
        self.assertIdle(station)
        self.assertEqual(station.state("Moneda"), "$")


class LaterStart(DrivenDay):
    def test_everything_is_where_it_was(self):
        station = self.running()
        station.save(7, "abc123")
        station.close()
        before = self.folder.all_bytes()
        station = self.process()
        self.start(station, now="2026-11-21 08:00:00")
        station.advance(3000)
        after = self.folder.all_bytes()
        self.assertEqual(after, before)
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")

    def test_registers_of_an_older_installation_are_left_alone(self):
        act = fresh_register(inside(3, stamp("10:00", "20/11/2019"), "OLD300"))
        self.folder.write("Multimedia/Vintoral.ACT", act)
        self.folder.write("Multimedia/Vintoral.HST", b" " * 188 * 3)
        self.folder.write("Recursos/Vintoral.EMP", b"AUTO".ljust(100))
        self.running()
        self.assertEqual((self.folder / "Multimedia/Vintoral.ACT").read_bytes(), act)
        self.assertEqual((self.folder / "Multimedia/Vintoral.HST").read_bytes(), b" " * 188 * 3)
        self.assertEqual((self.folder / "Recursos/Vintoral.EMP").read_bytes(), b"AUTO".ljust(100))


class ConnectedGate(DrivenDay):
    def test_it_is_gate_two_and_still_makes_its_own_files(self):
        main_gate = Folder(self.root / "main")
        main_gate.write("Multimedia/Vintoral.ACT", fresh_register())
        self.folder.write("Objetos/Servidor.INI", f"{main_gate.shared}\r\n".encode())
        station = self.running()
        state = station.state()
        expected = {"NumeroPorteria": "02", "EsCliente": -1, "PrimerNumero": 501, "CarpetaCompartida": str(main_gate.shared)}
        self.assertEqual({name: state[name] for name in expected}, expected)
        self.assertEqual(station.caption("LblInfo(2)"), "P02")
        self.assertEqual(station.text("CboMinutos"), " " * 11 + "P02 MONITOR")
        self.assertEqual((self.folder / "Multimedia/Vintoral.ACT").stat().st_size, ACT_LENGTH)
        self.assertEqual((self.folder / "Multimedia/Vintoral.HST").stat().st_size, 188)
        self.assertEqual([file.name for file in main_gate.shared.iterdir()], ["Vintoral.ACT"])


class Closing(DrivenDay):
    def test_it_asks_with_no_preselected(self):
        station = self.running()
        station.do("close")
        self.assertBox(station, {"title": "Vintoral - Cerrar Aplicación", "text": "¿Desea realmente salir del programa?",
                                 "icon": "exclamation", "buttons": ["yes", "no"], "default": "no"})

    def test_no_keeps_the_station_open(self):
        station = self.running()
        station.call_up(7)
        station.do("close")
        self.assertEqual(kinds(station.answer("no")), [])
        self.assertEqual(station.text("TxtCampo(0)"), "7")
        self.assertEqual(station.state("TotalFichas"), 1000)
        self.assertFalse((self.folder / "Recursos/Vintoral.DAT").exists())

    def test_yes_stores_labels_and_screen_and_ends(self):
        station = self.running()
        reply = station.close()
        self.assertEqual(kinds(reply)[-1], "end")
        self.assertIsNone(reply["waiting"])
        self.assertEqual((self.folder / "Multimedia/Vintoral.LBL").stat().st_size, 132)
        self.assertEqual((self.folder / "Recursos/Vintoral.DAT").stat().st_size, 16 * MIXED_LENGTH)
        self.assertFalse(station.attempt("advance", ms=1000)["ok"])

    def test_time_goes_on_behind_the_question(self):
        station = self.running()
        station.do("close")
        station.advance(60000)
        self.assertEqual(station.box["title"], "Vintoral - Cerrar Aplicación")
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:01", "20/11/2026"))


if __name__ == "__main__":
    main()
