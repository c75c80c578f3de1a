"""The link to the shared folder: lost and found at any moment, the paths of the other gate, F10 and forgetting."""
import shutil

from station import (ALT, CONFIRM_SAVE, CONTROL, DELETE, ESC, F10, GREEN, INSERT, LABELS, LOST, RED, DrivenDay, Folder,
                     ansi, fresh_register, inside, launches, main, sounds, stamp)

TODAY = "20/11/2026"


class Link(DrivenDay):
    def take_away(self):
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")

    def bring_back(self):
        (self.root / "away").rename(self.folder.shared / "Vintoral.ACT")

    def assertConnected(self, station):
        self.assertBars(station, GREEN)
        self.assertTrue(station.shown("LblIndicador(0)"))
        self.assertEqual(station.get("TmrConexion")["Interval"], 10000)
        self.assertTrue(station.get("TmrHoraFecha")["Enabled"])

    def assertConnecting(self, station):
        self.assertBars(station, RED)
        self.assertFalse(station.shown("LblIndicador(0)"))
        timers = station.get("TmrConexion", "TmrHoraFecha", "TmrMonitor")
        self.assertEqual([timer["Enabled"] for timer in timers], [True, False, False])
        self.assertEqual(timers[0]["Interval"], 3000)


class LostAndFound(Link):
    def test_within_ten_seconds_the_bars_are_red(self):
        station = self.running()
        self.assertConnected(station)
        self.take_away()
        station.advance(9999)
        self.assertBars(station, GREEN)
        self.assertEqual(sounds(station.advance(1)), [LOST])
        self.assertConnecting(station)
        self.assertEqual(station.caption("LblFechaEnt"), "CONECTANDO... ")

    def test_a_sound_every_three_seconds(self):
        station = self.running()
        self.take_away()
        station.advance(10000)
        self.assertEqual(sounds(station.advance(2999)), [])
        self.assertEqual(sounds(station.advance(1)), [LOST])
        self.assertEqual(sounds(station.advance(9000)), [LOST] * 3)

    def test_within_three_seconds_of_its_return_the_bars_are_green(self):
        station = self.running()
        self.take_away()
        station.advance(10000)
        self.bring_back()
        station.advance(2999)
        self.assertBars(station, RED)
        # The camera's key is pressed by the station itself: it must not click as the operator's does.
        self.assertEqual(sounds(station.advance(1)), [])
        self.assertConnected(station)
        self.assertEqual(station.caption("LblFechaEnt"), "")
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:00", TODAY))

    def test_a_number_tried_just_before_its_return_leaves_the_clock_running(self):
        station = self.running()
        self.take_away()
        station.advance(10000)
        station.call_up(7)
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.bring_back()
        station.advance(100)
        self.assertConnected(station)

    def test_an_absence_that_no_tick_sees_leaves_no_trace(self):
        station = self.running()
        self.take_away()
        station.advance(9000)
        self.bring_back()
        self.assertEqual(sounds(station.advance(5000)), [])
        self.assertConnected(station)

    def test_a_folder_that_comes_and_goes_at_every_tick(self):
        station = self.running()
        for _ in range(5):
            self.take_away()
            station.advance(10000)
            self.assertConnecting(station)
            self.bring_back()
            station.advance(3000)
            self.assertConnected(station)
        station.save(7)
        self.assertEqual(self.folder.slot(7).EnUso, -1)

    def test_the_whole_folder_may_go(self):
        station = self.running()
        self.folder.shared.rename(self.root / "away")
        station.advance(10000)
        self.assertConnecting(station)
        (self.root / "away").rename(self.folder.shared)
        station.advance(3000)
        self.assertConnected(station)

    def test_clearing_the_screen_goes_on_saying_that_it_connects(self):
        station = self.running()
        self.take_away()
        station.advance(10000)
        station.key(ESC)
        self.assertEqual(station.caption("LblFechaEnt"), "CONECTANDO... ")


class AtAnyMoment(Link):
    def test_typing_is_not_blocked(self):
        station = self.running()
        station.call_up(7)
        station.type("abc")
        self.take_away()
        station.advance(10000)
        station.type("123")
        self.assertEqual(station.text("TxtCampo(1)"), "ABC123")
        self.bring_back()
        station.advance(3000)
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC123")

    def test_with_a_ficha_on_display(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY), "ABC900"))
        station.call_up(9)
        self.take_away()
        station.advance(10000)
        self.assertOnDisplay(station, 9)
        self.assertEqual(station.caption("LblValor"), "$ 3700.00")
        self.bring_back()
        station.advance(3000)
        station.key(DELETE)
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].NumeroFicha, "0009")

    def test_under_the_question_of_saving(self):
        station = self.running()
        station.fill(7, "abc")
        station.key(INSERT)
        self.take_away()
        station.advance(10000)
        self.assertBox(station, CONFIRM_SAVE)
        self.assertConnecting(station)
        self.bring_back()
        station.advance(3000)
        self.assertConnected(station)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC")

    def test_under_the_question_of_retiring(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY)))
        station.call_up(9)
        station.key(DELETE)
        self.take_away()
        station.advance(10000)
        self.bring_back()
        station.advance(3000)
        station.answer("yes")
        self.assertEqual(self.folder.history()[0].ValorCobrado, 37000000)
        self.assertConnected(station)

    def test_while_connecting_nothing_is_saved_or_shown(self):
        station = self.with_fichas(inside(9, stamp("13:23", TODAY)))
        station.call_up(7)
        self.take_away()
        station.advance(10000)
        self.assertIsNone(station.key(INSERT)["waiting"])
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        # The look that this asked for comes at once, and finds nothing.
        self.assertEqual(sounds(station.advance(100)), [LOST])
        self.assertEqual(station.get("TmrConexion")["Interval"], 3000)
        station.key(ESC)
        station.call_up(9)
        self.assertFalse(station.shown("PctBoton(6)"))
        self.bring_back()
        station.enter()
        self.assertOnDisplay(station, 9)

    def test_a_look_that_an_operation_asked_for_connects_in_full(self):
        station = self.running()
        self.take_away()
        station.advance(10000)
        station.call_up(7)
        self.assertEqual(station.get("TmrConexion")["Interval"], 100)
        self.bring_back()
        station.advance(100)
        self.assertConnected(station)
        self.assertTrue(station.get("TmrMonitor")["Enabled"])
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:00", TODAY))

    def test_closing_while_connecting(self):
        station = self.running()
        self.folder.shared.rename(self.root / "away")
        station.advance(10000)
        self.assertIsNone(station.close()["waiting"])
        self.assertEqual((self.folder / "Recursos/Vintoral.DAT").stat().st_size, 736)


class Paths(Link):
    def setUp(self):
        super().setUp()
        self.main_gate = Folder(self.root / "Portería Muñoz")
        self.main_gate.write("Multimedia/Vintoral.ACT", fresh_register(inside(9, stamp("13:00", TODAY), "ABC900")))

    def connected(self, line):
        self.folder.write("Objetos/Servidor.INI", line)
        station = self.running()
        self.assertConnected(station)
        self.assertEqual(station.state("NumeroPorteria"), "02")
        station.call_up(9)
        self.assertEqual(station.caption("LblCampo(1)"), "ABC900")

    def test_in_utf_8(self):
        self.connected(f"{self.main_gate.shared}\r\n".encode("utf-8"))

    def test_in_the_older_coding(self):
        self.connected(f"{self.main_gate.shared}\r\n".encode("cp1252"))

    def test_with_blanks_around_it(self):
        self.connected(f"  {self.main_gate.shared}  \r\n".encode("utf-8"))

    def test_with_the_line_end_of_this_system_and_with_none(self):
        for end in ("\n", ""):
            with self.subTest(end=end):
                self.connected(f"{self.main_gate.shared}{end}".encode("utf-8"))

    def test_only_the_first_line_counts(self):
        self.connected(f"{self.main_gate.shared}\r\n/nowhere\r\n".encode("utf-8"))

    def test_a_blank_line_is_the_main_gate(self):
        for line in (b"\r\n", b"   \r\n", b""):
            with self.subTest(line=line):
                self.folder.write("Objetos/Servidor.INI", line)
                station = self.running()
                self.assertEqual(station.state("NumeroPorteria"), "01")
                self.assertConnected(station)
                self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), line)


class WrongPath(Link):
    def connecting(self):
        self.folder.write("Objetos/Servidor.INI", f"{self.root}/nowhere\r\n".encode())
        return self.running()

    def test_the_station_goes_on_connecting(self):
        station = self.connecting()
        self.assertConnecting(station)
        self.assertEqual(sounds(station.advance(60000)), [LOST] * 20)
        self.assertConnecting(station)
        self.assertEqual(station.caption("LblFechaEnt"), "CONECTANDO... ")
        self.assertEqual(launches(station.key(F10)), ["Notepad.exe Objetos\\Servidor.INI"])

    def test_a_path_that_the_operator_corrects_takes_effect(self):
        station = self.connecting()
        main_gate = Folder(self.root / "main")
        main_gate.write("Multimedia/Vintoral.ACT", fresh_register())
        self.folder.write("Objetos/Servidor.INI", f"{main_gate.shared}\r\n".encode())
        # One look finds the old path gone and reads the file, the next one finds the folder.
        station.advance(3000)
        self.assertEqual(station.state("CarpetaCompartida"), str(main_gate.shared))
        station.advance(3000)
        self.assertConnected(station)

    def test_each_folder_keeps_its_labels(self):
        def labels(letter):
            return LABELS.pack(*(ansi(f"{letter}{i}", 20) for i in range(6)), -1, -1, 0, -1, 0, -1)

        gates = {letter: Folder(self.root / letter) for letter in "AB"}
        for letter, gate in gates.items():
            gate.write("Multimedia/Vintoral.ACT", fresh_register())
            gate.write("Multimedia/Vintoral.LBL", labels(letter))
        self.folder.write("Objetos/Servidor.INI", f"{gates['A'].shared}\r\n".encode())
        station = self.running()
        self.assertEqual(station.text("TxtEtiqueta(1)"), "A1 ")
        self.folder.write("Objetos/Servidor.INI", f"{gates['B'].shared}\r\n".encode())
        (gates["A"].shared / "Vintoral.ACT").unlink()
        station.advance(13000)
        self.assertConnected(station)
        self.assertEqual(station.texts(*[f"TxtEtiqueta({i})" for i in range(6)]), [f"B{i} " for i in range(6)])
        station.close()
        for letter, gate in gates.items():
            self.assertEqual((gate.shared / "Vintoral.LBL").read_bytes(), labels(letter))

    def test_a_path_that_becomes_right_is_found(self):
        station = self.connecting()
        Folder(self.root).write("nowhere/Vintoral.ACT", fresh_register())
        station.advance(3000)
        self.assertConnected(station)

    def test_a_path_given_to_a_main_gate_waits_until_its_own_folder_goes(self):
        station = self.running()
        main_gate = Folder(self.root / "main")
        main_gate.write("Multimedia/Vintoral.ACT", fresh_register())
        self.folder.write("Objetos/Servidor.INI", f"{main_gate.shared}\r\n".encode())
        station.advance(60000)
        self.assertEqual(station.state("NumeroPorteria"), "01")
        self.take_away()
        station.advance(13000)
        self.assertEqual(station.state("NumeroPorteria"), "02")
        self.assertConnected(station)

    def test_forgetting_the_server_makes_a_main_gate(self):
        station = self.connecting()
        (self.folder / "Objetos/Servidor.INI").chmod(0o444)
        station.key(82, CONTROL | ALT)
        state = station.state()
        self.assertEqual((state["NumeroPorteria"], state["EsCliente"], state["CarpetaCompartida"]),
                         ("01", 0, f"{self.folder.path}\\Multimedia"))
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), b"\r\n")
        station.advance(3000)
        self.assertConnected(station)
        station.save(7)
        self.assertEqual(self.folder.slot(7).PorteriaEntrada, "01")

    def test_a_deleted_server_file_is_made_again(self):
        station = self.connecting()
        (self.folder / "Objetos/Servidor.INI").unlink()
        station.advance(6000)
        self.assertConnected(station)
        self.assertEqual((self.folder / "Objetos/Servidor.INI").read_bytes(), b"\r\n")

    def test_a_server_file_that_can_not_be_made_again_stops_the_station(self):
        station = self.connecting()
        shutil.rmtree(self.folder / "Objetos")
        self.folder.write("Objetos", b"")
        station.advance(3000)
        self.assertBox(station, {"title": "Vintoral - Imposible Continuar", "icon": "critical",
                                 "text": f"La carpeta '{self.folder.path}' está protegida contra escritura."})
        self.assertEqual([event["event"] for event in station.answer("ok")["events"]][-1], "end")
        self.assertFalse(station.attempt("advance", ms=1)["ok"])


if __name__ == "__main__":
    main()
