"""The driver's own protocol: bad lines, unknown names, the operator held by a box, the end, and the same day twice."""
import json
import shutil

from station import (BARS, CONFIRM_SAVE, DELETE, ESC, FIELDS, INSERT, DrivenDay, Folder, fresh_register, inside, kinds,
                     main, sounds, stamp, user)

TODAY = "20/11/2026"


class Refusals(DrivenDay):
    """Whatever can't be done is named, and leaves the station as it was."""

    def assertRefused(self, station, reply, culprit=None):
        self.assertFalse(reply["ok"], reply)
        self.assertTrue(reply["error"])
        if culprit:
            self.assertIn(culprit, reply["error"])
        self.assertEqual(reply["events"], [])

    def test_lines_that_are_no_operation(self):
        station = self.running()
        station.fill(7, "abc")
        for line in (b"", b"x", b"{", b"[]", b"null", b"7", b'"key"', b"{}", b'{"op":7}', b'{"op":null}', b'{"op":"key"',
                     b'{"op":"key","code":13}}', b"\xff\xfe", b'{"op":"type","text":"\xff"}', b"[" * 5000, b"\0"):
            with self.subTest(line=line[:40]):
                self.assertRefused(station, station.raw(line))
        self.assertEqual(station.texts("TxtCampo(0)", "TxtCampo(1)"), ["7", "ABC"])

    def test_unknown_operations(self):
        station = self.running()
        for name in ("jump", "KEY", "", "start "):
            self.assertRefused(station, station.attempt(name), name)

    def test_unknown_controls(self):
        station = self.running()
        for name in ("TxtCampo(9)", "TxtCampo(-1)", "TxtCampo", "TxtCampo(0", "Form4.LstArticulo", "", "txt"):
            for operation, fields in (("click", {}), ("focus", {}), ("dblclick", {}), ("hover", {}), ("set", {"text": "x"}),
                                      ("select", {"index": 0}), ("check", {"value": 1}),
                                      ("tick", {"index": 0, "value": 1}), ("scroll", {"top": 0})):
                with self.subTest(operation=operation, control=name):
                    self.assertRefused(station, station.attempt(operation, control=name, **fields), name)
            self.assertRefused(station, station.attempt("get", controls=[name]), name)

    def test_the_example_of_an_unknown_control(self):
        station = self.running()
        self.assertEqual(station.attempt("click", control="TxtCampo(9)")["error"], "unknown control 'TxtCampo(9)'")

    def test_missing_and_wrong_fields(self):
        station = self.running()
        for operation, fields, culprit in (
                ("key", {}, "code"), ("key", {"code": "13"}, "code"), ("type", {}, "text"), ("type", {"text": 7}, "text"),
                ("set", {"control": "TxtCampo(1)"}, "text"), ("click", {}, "control"), ("click", {"control": 7}, "control"),
                ("get", {}, "controls"), ("get", {"controls": "TxtCampo(0)"}, "controls"), ("advance", {}, "ms"),
                ("advance", {"ms": "1"}, "ms"), ("advance", {"ms": -1}, "ms"), ("clock", {}, "now"),
                ("clock", {"now": "yesterday"}, "yesterday"), ("clock", {"now": "2026-02-31 10:00:00"}, "2026-02-31"),
                ("answer", {}, "button"), ("fare", {"category": "AUTOMOVIL", "entry": "20/11/2026 13:00:00"}, "exit"), ("unload", {}, "form"),
                ("select", {"control": "CboTarifa(1)"}, None), ("get", {"controls": ["LblValor", 7]}, "controls")):
            with self.subTest(operation=operation, fields=fields):
                self.assertRefused(station, station.attempt(operation, **fields), culprit)

    def test_controls_of_the_wrong_kind(self):
        station = self.running()
        for operation, fields in (("set", {"control": "LblValor", "text": "1"}), ("select", {"control": "TxtCampo(1)", "index": 0}),
                                  ("check", {"control": "TxtCampo(1)", "value": 1}),
                                  ("scroll", {"control": "LblInfo(0)", "top": 0})):
            with self.subTest(operation=operation):
                self.assertRefused(station, station.attempt(operation, **fields), fields["control"])

    def test_hidden_and_disabled_controls(self):
        station = self.running()
        for operation, fields in (("focus", {"control": "TxtEfectivo"}), ("set", {"control": "TxtEfectivo", "text": "1"}),
                                  ("select", {"control": "CboTarifa(0)", "index": 0}),
                                  ("select", {"control": "CboMinutos", "index": 0}), ("focus", {"control": "CboMinutos"})):
            with self.subTest(operation=operation, control=fields["control"]):
                self.assertRefused(station, station.attempt(operation, **fields), fields["control"])
        self.assertEqual(station.text("TxtEfectivo"), "0")

    def test_items_that_a_list_has_not(self):
        station = self.running()
        for fields in ({"index": 16}, {"index": -5}, {"text": "CAMION"}):
            with self.subTest(fields=fields):
                self.assertRefused(station, station.attempt("select", control="CboTarifa(1)", **fields))
        self.assertEqual(station.text("CboTarifa(1)"), "AUTOMOVIL")

    def test_a_button_that_the_box_has_not(self):
        station = self.running()
        self.assertRefused(station, station.attempt("answer", button="yes"))
        station.call_up(7)
        station.key(INSERT)
        for button in ("ok", "cancel", "maybe", ""):
            self.assertRefused(station, station.attempt("answer", button=button))
        self.assertBox(station, CONFIRM_SAVE)

    def test_a_form_that_is_not_loaded(self):
        self.assertRefused(self.running(), self.running().attempt("unload", form="Form4"), "Form4")

    def test_before_the_start(self):
        station = self.process()
        for operation, fields in (("key", {"code": 27}), ("advance", {"ms": 1}), ("state", {}), ("close", {})):
            self.assertFalse(station.attempt(operation, **fields)["ok"])
        self.start(station)
        self.assertEqual(station.box["title"], "Vintoral - BIENVENIDO")

    def test_a_start_without_a_folder(self):
        self.assertRefused(self.process(), self.process().attempt("start"), "dir")

    def test_a_click_on_what_is_disabled_or_hidden(self):
        station = self.running()
        self.assertFalse(station.get("CboMinutos")["Enabled"])
        self.assertRefused(station, station.attempt("click", control="CboMinutos"), "CboMinutos")
        self.assertFalse(station.get("PctBoton(6)")["Visible"])
        for operation in ["click", "dblclick"]:
            self.assertRefused(station, station.attempt(operation, control="PctBoton(6)"), "PctBoton(6)")
        self.assertEqual(station.focused(), "TxtCampo(0)")


class HeldByABox(DrivenDay):
    def asked(self):
        station = self.running()
        station.fill(7, "abc")
        station.key(INSERT)
        return station

    def test_hands_do_not_reach_the_screen(self):
        station = self.asked()
        for operation, fields in (("type", {"text": "x"}), ("set", {"control": "TxtCampo(2)", "text": "x"}),
                                  ("key", {"code": INSERT, "mask": 0}), ("click", {"control": "PctBoton(11)"}),
                                  ("focus", {"control": "TxtCampo(2)"}), ("select", {"control": "CboTarifa(1)", "index": 2}),
                                  ("dblclick", {"control": "TxtCampo(1)"}), ("close", {})):
            with self.subTest(operation=operation):
                reply = station.attempt(operation, **fields)
                self.assertFalse(reply["ok"])
                self.assertIn("Vintoral - Confirmar Datos", reply["error"])
                self.assertBox(station, CONFIRM_SAVE)
        self.assertEqual(station.texts("TxtCampo(1)", "TxtCampo(2)", "CboTarifa(1)"), ["ABC", "", "AUTOMOVIL"])

    def test_eyes_and_clock_do(self):
        station = self.asked()
        self.assertEqual(station.text("TxtCampo(1)"), "ABC")
        self.assertEqual(station.state("NumeroPorteria"), "01")
        self.assertEqual(station.do("view")["view"], [])
        self.assertEqual(station.do("fare", category="AUTOMOVIL", entry="20/11/2026 13:00:00",
                                    exit="20/11/2026 14:00:00")["fare"]["value"], "6000.00")
        station.clock("2026-11-20 18:00:00")
        station.advance(500)
        self.assertBox(station, CONFIRM_SAVE)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("18:00", TODAY))

    def test_timers_go_on(self):
        station = self.asked()
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        reply = station.advance(16000)
        self.assertEqual(sounds(reply), ["Sonidos\\Vintoral-1.wav"] * 3)
        self.assertBox(station, CONFIRM_SAVE)

    def test_a_bad_line_under_a_box(self):
        station = self.asked()
        self.assertFalse(station.raw(b"{")["ok"])
        self.assertBox(station, CONFIRM_SAVE)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Placa, "ABC")

    def test_quit_under_a_box_writes_nothing(self):
        station = self.asked()
        before = self.folder.all_bytes()
        station.do("quit")
        self.assertEqual(station.process.wait(30), 0)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_the_end_of_the_input_under_a_box(self):
        station = self.asked()
        before = self.folder.all_bytes()
        station.process.stdin.close()
        self.assertEqual(station.process.wait(30), 0)
        self.assertEqual(self.folder.all_bytes(), before)


class TheEnd(DrivenDay):
    def test_after_it_only_quit_and_start(self):
        station = self.running()
        station.close()
        for operation, fields in (("key", {"code": ESC}), ("type", {"text": "1"}), ("advance", {"ms": 1}), ("state", {}),
                                  ("view", {}), ("get", {"controls": ["LblValor"]}), ("answer", {"button": "ok"}),
                                  ("clock", {"now": "2026-11-20 10:00:00"}), ("close", {})):
            with self.subTest(operation=operation):
                self.assertFalse(station.attempt(operation, **fields)["ok"])
        self.start(station, now="2026-11-20 15:00:00")
        station.advance(3000)
        self.assertIdle(station)
        self.assertEqual(station.do("quit")["ok"], True)
        self.assertEqual(station.process.wait(30), 0)

    def test_quit_closes_nothing(self):
        station = self.running()
        reply = station.do("quit")
        self.assertEqual(kinds(reply), [])
        self.assertEqual(station.process.wait(30), 0)
        self.assertFalse((self.folder / "Recursos/Vintoral.DAT").exists())

    def test_the_station_may_stop_under_a_box(self):
        """The link finds no server file and can make none: a box over the box, and then the end of both."""
        self.folder.write("Objetos/Servidor.INI", b"/nowhere\r\n")
        station = self.running()
        station.do("close")
        shutil.rmtree(self.folder / "Objetos")
        self.folder.write("Objetos", b"")
        station.advance(3000)
        self.assertEqual(station.box["title"], "Vintoral - Imposible Continuar")
        reply = station.answer("ok")
        self.assertEqual((reply["waiting"], kinds(reply)), (None, ["end"]))
        self.assertEqual((self.folder / "Recursos/Vintoral.DAT").stat().st_size, 16 * 46)  # stored as closing does
        (self.folder / "Objetos").unlink()
        self.start(station)
        station.advance(3000)
        self.assertIdle(station)

    def test_the_end_of_the_input(self):
        station = self.running()
        station.process.stdin.close()
        self.assertEqual(station.process.wait(30), 0)


class Replies(DrivenDay):
    def test_every_reply_tells_the_time(self):
        station = self.running()
        self.assertEqual(station.advance(1500)["now"], "2026-11-20 14:00:01.500")
        self.assertEqual(station.clock("2026-12-31 23:59:59")["now"], "2026-12-31 23:59:59.000")
        self.assertEqual(station.advance(1)["now"], "2026-12-31 23:59:59.001")
        self.assertEqual(station.attempt("jump")["now"], "2026-12-31 23:59:59.001")

    def test_the_fields_of_a_reply(self):
        station = self.running()
        reply = station.raw(b'{"op":"advance","ms":0}')
        self.assertEqual(set(reply), {"ok", "now", "waiting", "events"})
        self.assertEqual((reply["ok"], reply["waiting"], reply["events"]), (True, None, []))

    def test_a_box_in_full(self):
        station = self.running()
        station.call_up(7)
        reply = station.key(INSERT)
        self.assertEqual(reply["waiting"], {"box": {
            "title": "Vintoral - Confirmar Datos", "text": "¿Desea realmente guardar la ficha actual?", "icon": "exclamation",
            "buttons": ["yes", "no"], "default": "yes"}})

    def test_values_come_under_the_names_that_were_asked_for(self):
        station = self.running()
        names = FIELDS + BARS + ["PctBoton(14)", "ImgFicha(49)", "TmrConexion", "FilFondos", "CboTarifa(1)", "ChkFactura"]
        values = station.do("get", controls=names)["values"]
        self.assertEqual(list(values), names)

    def test_the_properties_that_a_control_has(self):
        station = self.running()
        for name, properties in (("TxtCampo(1)", {"Visible", "Enabled", "Locked", "Text", "SelStart", "SelLength", "MaxLength"}),
                                 ("LblValor", {"Visible", "Caption", "BackColor"}),
                                 ("CboTarifa(1)", {"Text", "List", "ListIndex"}), ("TmrConexion", {"Interval", "Enabled"}),
                                 ("PctBoton(10)", {"BorderStyle", "Tag", "ToolTipText"}), ("ChkFactura", {"Value"}),
                                 ("Picture2", {"Picture"})):
            with self.subTest(control=name):
                self.assertLessEqual(properties, set(station.get(name)))

    def test_nobody_sees_a_timer(self):
        self.assertFalse({"Visible", "ToolTipText"} & set(self.running().get("TmrConexion")))

    def test_time_that_passes_is_heard_in_order(self):
        station = self.with_fichas(inside(9, stamp("13:00", TODAY)))
        station.call_up(9)
        station.advance(110000)
        (self.folder.shared / "Vintoral.ACT").rename(self.root / "away")
        # The link is looked at 120 s after connecting and the ficha is given up in the second after it; without the
        # link the clock is off, so the ficha stays and only the loss is heard.
        self.assertEqual(set(sounds(station.advance(20000))), {"Sonidos\\Vintoral-1.wav"})
        self.assertOnDisplay(station, 9)

    def test_a_long_time_is_one_operation(self):
        station = self.running()
        self.assertEqual(station.advance(24 * 3600 * 1000)["now"], "2026-11-21 14:00:00.000")
        station.advance(500)
        self.assertEqual(station.caption("LblFechaEnt"), stamp("14:00", "21/11/2026"))


class SameDayTwice(DrivenDay):
    def day(self, folder, environment=None):
        """One busy day; every reply as it came, the folder's own path taken out."""
        folder.write("Multimedia/Vintoral.ACT", fresh_register(
            inside(9, stamp("11:30", TODAY), "ABC900"), inside(10, stamp("08:00", "19/11/2026"), "XYZ", "MOTOCICLETA")))
        folder.write("Multimedia/Vintoral.USR", user("AAA111", "ANA", category="BICICLETA", points=12))
        station = self.process(environment)
        replies = []
        station_raw = station.raw

        def record(line):
            reply = station_raw(line)
            replies.append(json.dumps(reply, ensure_ascii=False).replace(str(folder.path), "HERE"))
            return reply

        station.raw = record
        self.start(station, folder, seed=7)
        station.answer("ok")
        station.advance(3000)
        station.save(7, "aaa111")
        station.save(8, "ñu 1", "josé", "muñoz", "300", "casco", category="VISITANTE")
        station.advance(45 * 60000)
        station.call_up(9)
        station.advance(1000)
        station.type("50000,5")
        station.advance(500)
        station.key(DELETE)
        station.answer("yes")
        station.retire(10)
        station.call_up(7)
        station.advance(200000)
        station.retire(8)
        station.key(77, 6)
        station.do("state")
        station.do("view")
        station.do("get", controls=FIELDS + ["LblInfo(0)", "LblFechaEnt", "TxtEfectivo", "LblCambio"])
        station.close()
        return replies, folder.all_bytes()

    def test_in_two_folders(self):
        first = self.day(Folder(self.root / "A" / "P01"))
        second = self.day(Folder(self.root / "B" / "P01"))
        self.assertEqual(second[0], first[0])
        self.assertEqual(second[1], first[1])

    def test_under_another_time_zone_and_language(self):
        first = self.day(Folder(self.root / "A" / "P01"))
        second = self.day(Folder(self.root / "B" / "P01"), {"TZ": "Asia/Kathmandu", "LC_ALL": "es_CO.UTF-8", "LANG": "es_CO"})
        self.assertEqual(second[0], first[0])
        self.assertEqual(second[1], first[1])


if __name__ == "__main__":
    main()
