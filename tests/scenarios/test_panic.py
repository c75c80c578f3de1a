"""The panic alert: set up, armed, fired and disarmed at a driven gate whose mail goes nowhere."""
import stat

from station import (ALT, CLICK, CONTROL, ENTER, ESC, MIXED_LENGTH, DrivenDay, kinds, main, mixed, read_mixed, screen_state, sounds)

P, F12 = 80, 123
ARMED = "ABRiL\\ABRiL-10.wav"
TITLE = "Vintoral - Botón del Pánico"
QUESTION = {"title": TITLE, "text": "¿Desea realmente desactivar el envío de mensajes de alerta?", "icon": "exclamation",
            "buttons": ["yes", "no"], "default": "no"}
TEXTS = [f"Form9.TxtCall({i})" for i in range(7)]
VALUES = ["ALERTA EN LA PORTERIA 1", "Asalto en la puerta; hay que llamar a la policía", "a@casa.example", "", "c@casa.example",
          "", "e@casa.example"]
assert len(VALUES[1]) == 48
SENDING, FAILED = "ENVIANDO E-MAIL", "IMPOSIBLE ENVIAR"


class Panic(DrivenDay):
    def open(self, gate):
        reply = gate.key(P, CONTROL | ALT)
        self.assertEqual(reply["waiting"], {"form": "Form9"})
        return reply

    def arm(self, gate, values=VALUES):
        self.open(gate)
        for control, value in zip(TEXTS, values):
            gate.set(control, value)
        return gate.click("Form9.CmdPanico")

    def mails(self, reply):
        return [event for event in reply["events"] if event["event"] == "mail"]

    def values_on_disk(self):
        data = (self.folder / "Recursos/Vintoral.DAT").read_bytes()
        records = [read_mixed(data[at:at + MIXED_LENGTH]) for at in range(MIXED_LENGTH, 15 * MIXED_LENGTH, MIXED_LENGTH)]
        return ["".join(records[i][:2] + records[i + 1][:2]) for i in range(0, 14, 2)]


class SetsUp(Panic):
    def test_the_dialog(self):
        gate = self.running()
        reply = self.open(gate)
        self.assertEqual(sounds(reply), [CLICK])
        self.assertEqual(gate.texts(*TEXTS), [""] * 7)
        self.assertEqual(gate.captions(*[f"Form9.LblCall({i})" for i in range(7)]),
                         ["Asunto ", "Mensaje ", "E-MAIL #1 ", "E-MAIL #2 ", "E-MAIL #3 ", "E-MAIL #4 ", "E-MAIL #5 "])
        self.assertEqual(gate.caption("Form9.CmdPanico"), "ACTIVAR ALERTA")
        for index in (0, 1, 2, 3, 4, 5, 6, 0, 1):
            self.assertEqual(gate.focused(), TEXTS[index])
            gate.key(ENTER)
        gate.type("x")
        self.assertEqual(gate.key(ESC)["waiting"], None)
        self.assertFalse(gate.shown("ImgPanico"))
        self.assertFalse((self.folder / "Recursos/Vintoral.DAT").exists())

    def test_the_close_box_keeps_nothing(self):
        gate = self.running()
        self.open(gate)
        gate.set(TEXTS[0], "x")
        self.assertIsNone(gate.do("unload", form="Form9")["waiting"])
        self.assertFalse(gate.shown("ImgPanico"))
        self.open(gate)
        self.assertEqual(gate.text(TEXTS[0]), "")

    def test_arming_stores_the_values(self):
        gate = self.running()
        reply = self.arm(gate)
        self.assertEqual((sounds(reply), reply["waiting"]), ([ARMED], None))
        self.assertTrue(gate.shown("ImgPanico"))
        self.assertEqual(self.values_on_disk(), VALUES)

    def test_more_than_48_characters_are_cut(self):
        gate = self.running()
        self.arm(gate, ["A" * 48 + "B"] * 7)
        self.assertEqual(self.values_on_disk(), ["A" * 48] * 7)

    def test_stored_values_come_back_trimmed(self):
        pieces = [mixed(" ALERTA", " "), mixed("", "")] + [mixed("", "")] * 10 + [mixed("último@casa.", "example "), mixed("", "")]
        self.folder.write("Recursos/Vintoral.DAT", screen_state(panic=pieces))
        gate = self.running()
        self.assertFalse(gate.shown("ImgPanico"))
        self.open(gate)
        self.assertEqual(gate.texts(TEXTS[0], TEXTS[6]), ["ALERTA", "último@casa.example"])

    def test_disarming_asks(self):
        gate = self.running()
        self.arm(gate)
        gate.key(P, CONTROL | ALT)
        self.assertEqual(gate.box, QUESTION)
        gate.answer("no")
        self.assertTrue(gate.shown("ImgPanico"))
        gate.key(P, CONTROL | ALT)
        gate.answer("yes")
        self.assertFalse(gate.shown("ImgPanico"))

    def test_armed_is_armed_after_a_closing_and_after_a_power_cut(self):
        for leave in ("close", "end"):
            with self.subTest(leave=leave):
                gate = self.running()
                if not gate.shown("ImgPanico"):
                    self.arm(gate)
                getattr(gate, leave)()
                gate = self.running()
                self.assertTrue(gate.shown("ImgPanico"))
                self.assertTrue(self.mails(gate.key(F12))[0]["sent"])
                gate.key(P, CONTROL | ALT)
                gate.answer("yes")
                getattr(gate, leave)()
                gate = self.running()
                self.assertFalse(gate.shown("ImgPanico"))
                gate.end()


class Fires(Panic):
    def test_the_mail(self):
        gate = self.running()
        self.arm(gate)
        self.folder.write("Objetos/Correo.INI", b"Servidor = relay.example\nPuerto = 2526\nDe = puerta@casa.example\n"
                                                b"Usuario = puerta\nClave1 = mitad\nClave2 = otra\nTLS = si\n")
        reply = gate.key(F12)
        mail, = self.mails(reply)
        self.assertEqual(mail, {
            "event": "mail", "server": "relay.example", "port": 2526, "user": "puerta", "auth": True, "ssl": True,
            "from": "puerta@casa.example", "to": ["a@casa.example", "c@casa.example", "e@casa.example"],
            "subject": VALUES[0], "text": VALUES[1] + "\r\n\r\nEnviado desde mi Vintoral 10.25\r\n\r\n", "attachment": "",
            "sent": True})
        self.assertNotIn("mitad", str(reply))
        self.assertIsNone(reply["waiting"])
        self.assertEqual((gate.caption("LblInfo(3)"), gate.get("ImgPanico")["Enabled"]), ("", True))

    def test_the_first_settings(self):
        gate = self.running()
        file = self.folder / "Objetos/Correo.INI"
        self.assertEqual(stat.S_IMODE(file.stat().st_mode), 0o600)
        self.assertTrue(file.read_bytes().startswith(b"; "))
        self.arm(gate)
        mail, = self.mails(gate.click("ImgPanico"))
        self.assertEqual((mail["port"], mail["auth"], mail["ssl"]), (26, True, False))
        self.assertEqual(mail["from"], mail["user"])

    def test_a_failure(self):
        gate = self.running(mail="fail")
        self.arm(gate)
        reply = gate.key(F12)
        self.assertEqual(kinds(reply), ["mail", "beep"])
        self.assertFalse(self.mails(reply)[0]["sent"])
        self.assertEqual(reply["waiting"], {"wait": 3000})
        self.assertEqual((gate.caption("LblInfo(3)"), gate.get("ImgPanico")["Enabled"]), (FAILED, False))
        # A second press does nothing; the rest of the gate works.
        self.assertEqual(self.mails(gate.key(F12)), [])
        self.assertFalse(gate.attempt("click", control="ImgPanico")["ok"])
        gate.focus("TxtCampo(0)")
        gate.type("7")
        self.assertEqual(gate.text("TxtCampo(0)"), "7")
        self.assertEqual(gate.advance(2999)["waiting"], {"wait": 1})
        self.assertIsNone(gate.advance(1)["waiting"])
        self.assertEqual((gate.caption("LblInfo(3)"), gate.get("ImgPanico")["Enabled"]), ("", True))

    def test_without_a_connection(self):
        gate = self.running(online=False)
        self.arm(gate)
        reply = gate.key(F12)
        self.assertEqual((kinds(reply), reply["waiting"]), ([], {"wait": 3000}))
        self.assertEqual(gate.caption("LblInfo(3)"), FAILED)
        gate.advance(3000)
        gate.do("devices", online=True)
        self.assertEqual(len(self.mails(gate.key(F12))), 1)

    def test_without_a_port(self):
        gate = self.running()
        self.arm(gate)
        self.folder.write("Objetos/Correo.INI", b"Puerto = ninguno\n")
        reply = gate.key(F12)
        self.assertEqual((kinds(reply), gate.caption("LblInfo(3)")), ([], FAILED))

    def test_unarmed_it_does_nothing(self):
        gate = self.running()
        self.assertEqual(self.mails(gate.key(F12)), [])
        self.assertFalse(gate.attempt("click", control="ImgPanico")["ok"])

    def test_a_closing_under_the_failure(self):
        gate = self.running(mail="fail")
        self.arm(gate)
        gate.key(F12)
        gate.do("close")
        self.assertEqual(kinds(gate.answer("yes"))[-1], "end")


class Devices(Panic):
    def test_what_there_is_not_is_refused_and_changes_nothing(self):
        gate = self.running(mail="fail")
        self.arm(gate)
        for fields in ({"mail": "perhaps"}, {"mail": 1}, {"online": "yes"}, {"mail": "ok", "online": 1}):
            reply = gate.attempt("devices", cameras=[], **fields)
            self.assertFalse(reply["ok"], fields)
        self.assertIn("perhaps", gate.attempt("devices", mail="perhaps")["error"])
        self.assertFalse(self.mails(gate.key(F12))[0]["sent"])


if __name__ == "__main__":
    main()
