#!/usr/bin/env python3
"""The menu of functions: its rows and buttons, what the lock refuses, and the lists of extras, users and points."""
import photos
from reports import LINE, PAGE, RULE, SHOW_PAGE, SHOW_TEXT, TEXT, TODAY, YESTERDAY, ReportDay, gone
from sales import EXT, XTR, SalesDay, line, sales_file
from station import ALT, BLANK, CLICK, CONTROL, ESC, MIXED_LENGTH, launches, lines, main, mixed, read_mixed, sounds, stamp

SUMS, LIST, USERS, POINTS, HOURS = 2, 3, 4, 5, 6  # of CmdMenu
ROWS = ["  Abrir Documento de Ayuda", "  Abrir Fondos de Pantalla", "  Configurar Cámara Web",
        "  Bloquear Funciones con Contraseña", "  Memoria de Rostros (ACTIVAR)", "  Código de Barras Code39 (ACTIVAR)", "  Botón del Pánico (ACTIVAR)",
        "  Cambiar Formato de Tiquete", "  Cambiar Formato de Factura", "  Reiniciar Contador de Extras", "  Reiniciar Historial"]
REFUSED = {"title": "Vintoral - Acceso Denegado", "text": "Esta función ha sido bloqueada por el administrador.",
           "icon": "exclamation", "buttons": ["ok"]}


def lock(*positions):
    """The lock of functions with these positions locked."""
    chosen = "".join(str(int(position in positions)) for position in range(1, 19))
    return mixed("12345", chosen, number1=-1).ljust(46, b"\0")


class Menu(ReportDay, SalesDay):
    ARTICLES = ("LAVADO = 500", "ACEITE = 800")

    def gate(self, *sold, locked=(), rows=(), **more):
        self.folder.write(EXT, sales_file(*sold, lock=lock(*locked)))
        self.folder.write(XTR, lines(*self.ARTICLES))
        return self.day(*rows, **more)

    def log(self, count):
        data = (self.folder / "Recursos/Vintoral.FDR").read_bytes()
        records = range(MIXED_LENGTH, (count + 1) * MIXED_LENGTH, MIXED_LENGTH)
        return [read_mixed(data[at:at + MIXED_LENGTH])[3] // 10000 for at in records]


class RowsAndButtons(Menu):
    def test_opens_with_a_click_and_its_rows(self):
        station = self.gate()
        self.assertEqual(sounds(self.menu(station)), [CLICK])
        self.assertEqual(station.get("Form5.LstMenu")["List"], ROWS)
        self.assertEqual(station.captions(*[f"Form5.CmdMenu({n})" for n in range(7)]),
                         ["HISTORIAL DÍA", "COMENZAR TURNO", "EXTRAS", "DETALLE", "NUEVOS", "PUNTOS", "HORARIO DE TRABAJO"])
        self.assertEqual(station.focused(), "Form5.LstMenu")

    def test_esc_on_the_list_closes_it_with_its_reports(self):
        station = self.gate()
        for how in (lambda: station.key(ESC), lambda: station.do("unload", form="Form5")):
            self.menu(station, SUMS)
            self.folder.write(PAGE, b"of the state").chmod(0o444)
            self.assertTrue((self.folder / TEXT).exists())
            station.focus("Form5.LstMenu")
            self.assertIsNone(how()["waiting"])
            self.assertNotIn("Form5", station.state("forms"))
            self.assertFalse((self.folder / TEXT).exists() or (self.folder / PAGE).exists())

    def test_a_row_says_what_it_would_do(self):
        station = self.gate(tickets=True)
        for row, on in ((4, "  Memoria de Rostros (DESACTIVAR)"), (5, "  Código de Barras Code39 (DESACTIVAR)")):
            with self.subTest(row=row):
                self.menu(station)
                reply = station.do("select", control="Form5.LstMenu", index=row)
                if reply["waiting"]:
                    station.answer("ok")
                self.assertNotIn("Form5", station.state("forms"))
                self.menu(station)
                self.assertEqual(station.get("Form5.LstMenu")["List"][row], on)
                station.do("select", control="Form5.LstMenu", index=row)
                self.menu(station)
                self.assertEqual(station.get("Form5.LstMenu")["List"][row], ROWS[row])
                station.key(ESC)

    def test_rows_do_what_their_keys_do(self):
        by_key = {0: (112, CONTROL), 1: (73, CONTROL | ALT), 3: (120, 0), 7: (75, CONTROL | ALT), 8: (76, CONTROL | ALT)}
        station = self.gate()
        for row, (code, mask) in by_key.items():
            with self.subTest(row=row):
                key = station.key(code, mask)
                dialog = station.state("active") if key["waiting"] else None
                if dialog:
                    station.key(ESC)
                self.menu(station)
                reply = station.do("select", control="Form5.LstMenu", index=row)
                self.assertNotIn("Form5", station.state("forms"))
                self.assertEqual((launches(reply), reply["waiting"]), (launches(key), key["waiting"]))
                self.assertTrue(dialog or launches(reply))
                if dialog:
                    station.key(ESC)
                self.assertIsNone(station.reply["waiting"])

    def test_what_is_locked_is_refused_and_does_nothing_else(self):
        buttons = {0: 2, SUMS: 3, LIST: 4, USERS: 15, POINTS: 16}
        rows = {7: (8, 118), 8: (9, 119), 9: (5, 120), 10: (5, None)}
        for control, position, code in [*((f"Form5.CmdMenu({n})", p, None) for n, p in buttons.items()),
                                        *((row, *at) for row, at in rows.items())]:
            with self.subTest(control=control):
                left = gone(2, 1, ("10:00", TODAY), "A", 1)
                station = self.gate(line("LAVADO", 1, 500, 900), locked=(position,), rows=(left,))
                before = self.log(3)
                files = self.folder.all_bytes()
                self.menu(station)
                if isinstance(control, str):
                    station.click(control)
                else:
                    station.do("select", control="Form5.LstMenu", index=control)
                self.assertBox(station, REFUSED)
                reply = station.answer("ok")
                self.assertEqual((reply["waiting"], reply["events"]), ({"form": "Form5"}, []))
                self.assertEqual(self.log(3), [code, *before[:2]] if code else before)
                self.assertEqual(self.folder.all_bytes(), files)
                station.end()

    def test_shifts_and_hours_have_no_lock(self):
        station = self.gate(locked=range(1, 19))
        self.assertEqual(launches(self.menu(station, HOURS)), [SHOW_TEXT])
        self.assertIsNone(station.click("Form5.CmdMenu(1)")["waiting"])
        self.assertTrue(station.shown("ImgIndicador(1)"))


class Extras(Menu):
    SOLD = (line("LAVADO", 3, 500, 1405), line("aceite", 1, 700, 905), line("LAVADO", 1, 500, 5, date="19/11/26"))
    DAY_HEAD = ["", " Vintoral             EXTRAS P01", " HORA/FECHA  14:00  (20/11/2026)", f" {RULE}",
                " DESCRIPCION   CANTIDAD    VALOR", f" {RULE}", ""]

    def test_sums_by_article_and_day(self):
        station = self.gate(*self.SOLD)
        reply = self.menu(station, SUMS)
        self.assertEqual((launches(reply), reply["waiting"]), ([SHOW_TEXT], {"form": "Form5"}))
        # Oil was sold at 700 and costs 800 now: its line has the price of now, the total what was paid.
        self.assertEqual(self.report_text(), [
            *self.DAY_HEAD,
            " (20/11/2026)", " LAVADO               3  1500.00", " ACEITE               1   800.00", f" {LINE}",
            "                 TOTAL $ 2200.00", f" {RULE}", "",
            " (19/11/2026)", " LAVADO               1   500.00", " ACEITE               0     0.00", f" {LINE}",
            "                  TOTAL $ 500.00", f" {RULE}", "", "", ""])

    def test_each_sale(self):
        station = self.gate(*self.SOLD)
        self.assertEqual(launches(self.menu(station, LIST)), [SHOW_TEXT])
        self.assertEqual(self.report_text(), [
            "", " Vintoral     DETALLE EXTRAS P01", " HORA/FECHA  14:00  (20/11/2026)", f" {RULE}",
            " HORA  DESCRIPCION CANT    VALOR", f" {RULE}", "",
            " (20/11/2026)", " 14:05 LAVADO         3  1500.00", " 09:05 aceite         1   700.00",
            " (19/11/2026)", " 00:05 LAVADO         1   500.00", f" {LINE}", "                 TOTAL $ 2700.00", f" {RULE}",
            f" {RULE}", "       DESC    CONTADOR    VALOR", f" {RULE}",
            " LAVADO               4  2000.00", " ACEITE               1   800.00", f" {LINE}",
            "                 TOTAL $ 2700.00", f" {RULE}", "", ""])

    def test_a_list_without_sales_has_heads_and_no_block(self):
        station = self.gate()
        self.menu(station, SUMS)
        self.assertEqual(self.report_text(), [*self.DAY_HEAD, "", ""])
        (self.folder / EXT).unlink()
        station.click(f"Form5.CmdMenu({SUMS})")
        self.assertEqual(self.report_text(), [*self.DAY_HEAD, "", "", ""])

    def test_in_a_shift_they_stop_at_its_mark_and_begin_anew_behind_the_next(self):
        station = self.gate(*self.SOLD)
        head = ["", " Vintoral   TURNO DE TRABAJO P01", " INICIO -->  14:00  (20/11/2026)",
                "  FINAL -->  14:00  (20/11/2026)", f" {RULE}"]
        self.begin_shift(station)
        self.sell(station, (0, 3))
        self.menu(station, SUMS)
        text = self.report_text()
        self.assertEqual(text[:5], head)
        self.assertEqual(text[8:], [" (20/11/2026)", " LAVADO               3  1500.00", " ACEITE               0     0.00",
                                    f" {LINE}", "                 TOTAL $ 1500.00", f" {RULE}", "", "", ""])
        station.click(f"Form5.CmdMenu({LIST})")
        self.assertEqual(self.report_text()[:9], [*head, " HORA  DESCRIPCION CANT    VALOR", f" {RULE}", "", " (20/11/2026)"][:9])
        self.assertEqual([text for text in self.report_text() if text.startswith(" 1") or text.startswith(" 0")],
                         [" 14:00 LAVADO         3  1500.00"])
        station.click("Form5.CmdMenu(1)")
        station.key(ESC)
        self.begin_shift(station)
        self.sell(station, (1, 2))
        self.menu(station, SUMS)
        self.assertEqual(self.report_text()[8:12], [" (20/11/2026)", " LAVADO               0     0.00",
                                                    " ACEITE               2  1600.00", f" {LINE}"])

    def test_a_reset_counter_ends_the_list(self):
        station = self.gate(*self.SOLD)
        self.menu(station)
        station.do("select", control="Form5.LstMenu", index=9)
        station.answer("yes")
        self.assertEqual(sounds(station.answer("yes")), ["Sonidos\\Vintoral-8.wav"])
        station.click(f"Form5.CmdMenu({SUMS})")
        self.assertEqual(self.report_text(), [*self.DAY_HEAD, "", ""])
        station.key(ESC)
        self.sell(station, (0, 1))
        self.menu(station, LIST)
        self.assertEqual([text for text in self.report_text() if "LAVADO" in text],
                         [" 14:00 LAVADO         1   500.00", " LAVADO               1   500.00"])

    def test_one_report_takes_the_place_of_the_other(self):
        station = self.gate(*self.SOLD)
        self.menu(station, LIST)
        (self.folder / TEXT).chmod(0o444)
        station.click(f"Form5.CmdMenu({SUMS})")
        self.assertEqual(self.report_text()[1], " Vintoral             EXTRAS P01")
        self.assertEqual(len(self.report_text()), 23)


class Documents(Menu):
    def registers(self, users, points):
        self.folder.write("Multimedia/Vintoral.NSR", b"".join(row.encode() for row in users))
        self.folder.write("Multimedia/Vintoral.CRD", b"".join(row.encode() for row in points))

    def user(self, number, date, plate, **more):
        return gone(number, number, ("10:00", date), plate, Nombre="ANA", Apellido="RUIZ", Telefono="300", Observacion="ROJO",
                    **more)

    def test_new_users_by_day(self):
        station = self.gate()
        self.registers((BLANK, self.user(2, YESTERDAY, "ONE"), self.user(3, TODAY, "TWO")), ())
        self.folder.write("Multimedia/Imágenes INI/000001.jpg", photos.photo())
        self.assertEqual(launches(self.menu(station, USERS)), [SHOW_PAGE])
        page = self.page()
        labels = [text.strip() for text in station.texts(*[f"TxtEtiqueta({n})" for n in range(1, 6)])]
        self.assertEqual(page.title, "Vintoral - NUEVOS P01")
        self.assertEqual(page.heads, ["HORA ENTRADA", "PE", *labels[:2], "IMAGEN", *labels[2:], "CATEGORIA"])
        empty = [""] * 9

        def row(date, plate, photo):
            return [stamp("09:00", date), "01", plate, "ANA", photo, "RUIZ", "300", "ROJO", "AUTOMOVIL"]

        self.assertEqual(page.rows, [row(TODAY, "TWO", "SIN IMAGEN"), empty, empty, empty, row(YESTERDAY, "ONE", "VER FOTO"),
                                     empty, empty, [stamp("14:00", TODAY), *empty[1:]], empty])

    def test_movements_of_points_by_day_with_their_count(self):
        station = self.gate()
        self.registers((), (self.user(1, YESTERDAY, "ONE", UsuarioPuntos=7), self.user(2, TODAY, "TWO", UsuarioPuntos=-3),
                            self.user(3, TODAY, "TRI", UsuarioPuntos=96)))
        self.folder.write("Multimedia/Imágenes HST/000003.jpg", photos.photo())
        self.assertEqual(launches(self.menu(station, POINTS)), [SHOW_PAGE])
        page = self.page()
        labels = [text.strip() for text in station.texts(*[f"TxtEtiqueta({n})" for n in range(1, 6)])]
        self.assertEqual(page.title, "Vintoral - PUNTOS P01")
        self.assertEqual(page.heads, ["HORA SALIDA", *labels[:2], "IMAGEN", *labels[2:], "CATEGORIA", "PUNTOS"])
        empty = [""] * 9

        def row(date, plate, photo, points):
            return [stamp("10:00", date), plate, "ANA", photo, "RUIZ", "300", "ROJO", "AUTOMOVIL", points]

        def count(number):
            return ["", number, *empty[2:]]

        self.assertEqual(page.rows, [row(TODAY, "TRI", "VER FOTO", "96"), row(TODAY, "TWO", "SIN IMAGEN", "-3"), empty,
                                     count("2"), row(YESTERDAY, "ONE", "SIN IMAGEN", "7"), empty, count("1"),
                                     empty, [stamp("14:00", TODAY), *empty[1:]], empty])

    def test_in_a_shift_they_hold_what_came_in_it(self):
        station = self.gate()
        self.registers((BLANK, self.user(2, TODAY, "OLD")), (self.user(1, TODAY, "OLD"),))
        self.begin_shift(station)
        for name in ("NSR", "CRD"):
            file = self.folder / f"Multimedia/Vintoral.{name}"
            file.write_bytes(file.read_bytes() + self.user(3, TODAY, "NEW").encode())
        self.menu(station, USERS)
        self.assertEqual([row[2] for row in self.page().rows if row[2]], ["NEW"])
        station.click(f"Form5.CmdMenu({POINTS})")
        self.assertEqual([row[1] for row in self.page().rows if row[1]], ["NEW", "1"])

    def test_a_missing_register_does_nothing_at_all(self):
        station = self.gate()
        for button, name in ((USERS, "NSR"), (POINTS, "CRD")):
            (self.folder / f"Multimedia/Vintoral.{name}").unlink(missing_ok=True)
            reply = self.menu(station, button)
            self.assertEqual((reply["events"], reply["waiting"]), ([], {"form": "Form5"}))
            self.assertFalse((self.folder / PAGE).exists())
            station.key(ESC)

    def test_empty_registers_have_heads_alone(self):
        station = self.gate()
        self.registers((BLANK,), ())
        for button in (USERS, POINTS):
            self.menu(station, button)
            self.assertEqual([row[0] for row in self.page().rows], ["", stamp("14:00", TODAY), ""])
            station.key(ESC)


if __name__ == "__main__":
    main()
