"""A day under the lock of functions: chosen, refused, opened, locked again; and the log that it leaves."""
from station import ALT, CLICK, CONTROL, ENTER, ESC, F9, MIXED_LENGTH, DrivenDay, launches, main, mixed, read_mixed, sounds

CTRL_ALT = CONTROL | ALT
F8 = 119
LOCK = 5000 * MIXED_LENGTH
PASSWORD = "20517"
TARIFFS, TICKETS = 0, 7  # rows of the list
REFUSED = {"title": "Vintoral - Acceso Denegado", "text": "Esta función ha sido bloqueada por el administrador.",
           "icon": "exclamation", "buttons": ["ok"]}


class Locked(DrivenDay):
    """A gate on which the tariffs and the ticket button are locked."""

    def lock(self, station, rows=(TARIFFS, TICKETS)):
        station.key(F9)
        for row in rows:
            station.do("tick", control="Form7.LstBloqueo", index=row, value=1)
        station.click("Form7.ImgBoton(11)")
        self.assertEqual(station.box["title"], "Vintoral - Nueva Contraseña")
        station.answer("ok")
        station.type(PASSWORD)
        station.click("Form7.ImgBoton(11)")
        self.assertEqual(station.box["text"], "La contraseña ha sido cambiada.")
        station.answer("ok")
        station.click("Form7.ImgBoton(11)")
        self.assertEqual(station.box["text"], "Las funciones seleccionadas han sido bloqueadas con su contraseña actual.")
        return station.answer("ok")

    def assertRefused(self, station):
        self.assertBox(station, REFUSED)
        self.assertIsNone(station.answer("ok")["waiting"])

    def shown_lock(self, station):
        return station.shown("ImgIndicador(0)")

    def log(self, count):
        """The codes of the first records, the station's number in front."""
        data = (self.folder / "Recursos/Vintoral.FDR").read_bytes()
        self.assertEqual(len(data), 1000 * MIXED_LENGTH)
        return [read_mixed(data[at:at + MIXED_LENGTH])[3] // 10000 for at in range(0, count * MIXED_LENGTH, MIXED_LENGTH)]


class LockedDay(Locked):
    def test_a_new_installation_has_an_empty_lock(self):
        self.running()
        data = (self.folder / "Recursos/Vintoral.EXT").read_bytes()
        blank = mixed(" " * 9, " " * 15, number1=-1)
        self.assertEqual(data, blank * 5000 + mixed("", "0" * 18, number1=-1))

    def test_what_is_chosen_is_refused_and_nothing_else(self):
        station = self.running()
        self.assertFalse(self.shown_lock(station))
        reply = self.lock(station)
        self.assertIsNone(reply["waiting"])
        self.assertTrue(self.shown_lock(station))
        data = (self.folder / "Recursos/Vintoral.EXT").read_bytes()
        self.assertEqual(data[LOCK:], mixed(PASSWORD, "10000001000000000", number1=-1))
        before = self.log(6)
        station.key(ord("T"), CONTROL)
        self.assertRefused(station)
        station.click("PctBoton(10)")
        self.assertRefused(station)
        self.assertEqual(self.log(6), before)
        station.click("PctBoton(14)")
        self.assertEqual(station.reply["waiting"], {"form": "Form8"})
        station.key(ESC)
        self.assertEqual(self.log(2), [10, 18])

    def test_the_menu_logs_what_it_refuses_and_stays(self):
        station = self.running()
        self.lock(station)
        self.assertEqual(sounds(station.key(F8)), [CLICK])
        station.do("select", control="Form5.LstMenu", text="  Cambiar Formato de Tiquete")
        self.assertBox(station, REFUSED)
        self.assertEqual(station.answer("ok")["waiting"], {"form": "Form5"})
        self.assertEqual(self.log(2), [10, 118])
        station.do("select", control="Form5.LstMenu", text="  Cambiar Formato de Factura")
        self.assertEqual(station.reply["waiting"], {"form": "Form8"})
        self.assertEqual(self.log(4), [10, 18, 119, 118])

    def test_the_password_opens_for_this_run(self):
        station = self.running()
        self.lock(station)
        station.key(F9)
        self.assertEqual(station.reply["waiting"], {"form": "Form7"})
        self.assertFalse(station.shown("Form7.LstBloqueo"))
        station.type("20518")
        self.assertEqual([station.get(f"Form7.LblSeleccion({i})")["Caption"] for i in range(6)], [""] * 6)
        station.key(ENTER)
        self.assertBox(station, {"title": "Vintoral - Acceso Denegado", "text": "La contraseña no es valida."})
        self.assertIsNone(station.answer("ok")["waiting"])
        self.assertTrue(self.shown_lock(station))
        station.key(F9)
        station.type(PASSWORD)
        station.key(ENTER)
        self.assertBox(station, {"title": "Vintoral - Acceso Permitido"})
        self.assertIsNone(station.answer("ok")["waiting"])
        self.assertFalse(self.shown_lock(station))
        self.assertEqual(self.log(4), [10, 113, 112, 112])
        station.key(ord("T"), CONTROL)
        self.assertEqual(station.reply["waiting"], {"form": "Form6"})
        station.key(ESC)
        self.assertIn("Form7", station.state("forms"))
        station.key(F9)
        self.assertEqual(station.get("Form7.LstBloqueo")["Checked"].count(True), 2)
        station.do("unload", form="Form7")
        self.assertEqual(station.box["title"], "Vintoral - ADVERTENCIA")
        station.answer("ok")
        self.assertTrue(self.shown_lock(station))

    def test_the_next_start_is_locked_again(self):
        station = self.running()
        self.lock(station)
        station.key(F9)
        station.type(PASSWORD)
        station.key(ENTER)
        station.answer("ok")
        self.assertFalse(self.shown_lock(station))
        station.close()
        again = self.running()
        self.assertTrue(self.shown_lock(again))
        again.key(ord("T"), CONTROL)
        self.assertRefused(again)

    def test_nothing_tells_the_password(self):
        station = self.running()
        self.lock(station)
        station.key(F9)
        station.type(PASSWORD)
        shown = str(station.state()) + str(station.get(*[f"Form7.ImgBoton({i})" for i in range(12)],
                                                       *[f"Form7.LblSeleccion({i})" for i in range(6)], "Form7.LstBloqueo"))
        self.assertNotIn(PASSWORD, shown)
        station.key(ENTER)
        station.answer("ok")
        station.close()
        self.assertNotIn(PASSWORD, (self.root / "stderr").read_text())
        self.assertNotIn(PASSWORD.encode(), (self.folder / "Recursos/Vintoral.FDR").read_bytes())


class Log(Locked):
    def test_a_day_is_written_and_printed(self):
        station = self.running(now="2026-11-20 08:14:57")
        station.advance(90 * 60000)
        station.key(ord("T"), CONTROL)
        station.key(ESC)
        station.clock("2026-11-20 09:59:00")
        station.advance(60000)
        station.key(F8)
        reply = station.click("Form5.CmdMenu(6)")
        self.assertEqual(launches(reply), ["Notepad.exe Recursos\\Vintoral.RGT"])
        # 08:15 to 09:45, one minute for the jump of the clock and one more.
        text = (self.folder / "Recursos/Vintoral.RGT").read_bytes().decode("cp1252")
        self.assertEqual(text, "\r\n".join([
            "", " Vintoral                             HORARIO P01", " " + "-" * 48,
            " FECHA       FUNCION          H.INI  H.FIN TIEMPO", " " + "-" * 48, "",
            " 20/11/2026  EN_EJECUCION     08:14  09:47  01:33",
            "             CAMBIAR_HORA     09:59",
            "             GENERAD_TARIFAS  09:45",
            "             ABRIR_PROGRAMA   08:14",
            " " + "-" * 48, "", "", "", ""]))
        station.key(ESC)
        self.assertFalse((self.folder / "Recursos/Vintoral.RGT").exists())

    def test_midnight_brings_a_day(self):
        station = self.running(now="2026-11-20 23:58:57")
        station.advance(120000)
        data = (self.folder / "Recursos/Vintoral.FDR").read_bytes()
        self.assertEqual(read_mixed(data), ("21/11/2026  00:00", "00:01", 0, 10 * 10000, 0, 1))
        self.assertEqual(read_mixed(data[MIXED_LENGTH:]), ("20/11/2026  23:58", "00:01", 0, 10 * 10000, 23, 59))
        self.assertEqual(self.log(3), [10, 10, 125])
        station.close()
        self.assertEqual(self.log(4), [10, 126, 10, 125])

    def test_a_gate_logs_its_own_number(self):
        (self.root / "shared").mkdir()
        self.folder.write("Objetos/Servidor.INI", str(self.root / "shared").encode() + b"\r\n")
        station = self.process()
        self.start(station)
        station.answer("ok")
        self.assertEqual(self.log(2), [20, 225])


if __name__ == "__main__":
    main()
