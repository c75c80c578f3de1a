#!/usr/bin/env python3
"""Reports of the fichas on screen: F4, the questions before it, the page, the slip, the sheet of one ficha."""
import photos
from reports import F4, LINE, PAGE, PRINTER, RULE, SHOW_PAGE, TODAY, YESTERDAY, ReportDay, gone
from slips import invoice, printed
from station import CLICK, LABELS, ansi, inside, launches, main, mixed, screen_state, sounds, stamp

F3 = 114
FIRST = {"title": "Vintoral - Imprimir Estado/Búsqueda/Ficha", "icon": "question", "buttons": ["yes", "no", "cancel"],
         "text": "¿Desea también imprimir los registros en formato tiquete?"}
SECOND = {**FIRST, "text": "¿Desea imprimir sólo un resumen de los registros?"}
HEADS = ["HORA ENTRADA", "PE", "HORA SALIDA", "PS", "FICHA", "CATEGORIA", "IMAGEN", "TIEMPO", "VALOR"]


def empty(columns=14):
    return [""] * columns


def alone(text, column=0):
    row = empty()
    row[column] = text
    return row


def total(count, amount):
    row = alone(f"{count} Registro(s)")
    row[5], row[8] = "TOTAL", f"$ {amount}"
    return row


class Reports(ReportDay):
    INSIDE = (inside(5, stamp("08:00", TODAY), "IN5", Nombre="ANA"), inside(9, stamp("22:00", YESTERDAY), "IN9", "MOTOCICLETA"))

    def report(self, station, *answers):
        """F4 and the answers to its questions; the reply in which the report is made."""
        reply = station.key(F4)
        for question, answer in zip((FIRST, SECOND), answers):
            self.assertBox(station, question)
            reply = station.answer(answer)
        self.assertIsNone(reply["waiting"])
        return reply


class State(Reports):
    def test_those_inside_count_and_add_nothing(self):
        station = self.day(fichas=self.INSIDE)
        reply = self.report(station, "no")
        self.assertEqual((launches(reply), sounds(reply), printed(reply)), ([SHOW_PAGE], [CLICK], []))
        page = self.page()
        self.assertEqual((page.title, page.heads[:9]), ("Vintoral - ESTADO P01", HEADS))
        self.assertEqual(page.heads[9:], [text.strip() for text in station.texts(*[f"TxtEtiqueta({n})" for n in range(1, 6)])])
        self.assertEqual(page.rows, [
            [stamp("08:00", TODAY), "01", "??", "??", "0005", "AUTOMOVIL", "SIN IMAGEN", "??", "??", "IN5", "ANA", "", "", ""],
            alone("$ 0.00", 8), empty(),
            [stamp("22:00", YESTERDAY), "01", "??", "??", "0009", "MOTOCICLETA", "SIN IMAGEN", "??", "??", "IN9", "", "", "", ""],
            alone("$ 0.00", 8), empty(),
            empty(), alone(stamp("14:00", TODAY)), empty(), total(2, "0.00")])
        self.assertEqual(page.hidden, empty())

    def test_an_empty_grid_is_heard_and_writes_nothing(self):
        station = self.day()
        self.folder.write(PAGE, b"an old page")
        reply = self.report(station, "no")
        self.assertEqual((launches(reply), sounds(reply)), ([], [CLICK, CLICK]))
        self.assertEqual((self.folder / PAGE).read_bytes(), b"an old page")
        reply = self.report(station, "yes", "no")
        self.assertEqual((printed(reply), launches(reply)), ([], []))

    def test_cancel_at_either_question_leaves_all(self):
        station = self.day(fichas=self.INSIDE)
        for answers in (("cancel",), ("yes", "cancel")):
            reply = self.report(station, *answers)
            self.assertEqual((reply["events"], (self.folder / PAGE).exists()), ([], False))

    def test_row_by_row_on_paper(self):
        station = self.day(fichas=(*self.INSIDE, inside(3, stamp("07:05", TODAY), "BUS", "TRANVIA")))
        reply = self.report(station, "yes", "no")
        # The view stands in the order of the slots: a day may begin more than once.
        self.assertEqual(printed(reply), [(PRINTER, "\n".join([
            "Vintoral             ESTADO P01", "HORA/FECHA  14:00  (20/11/2026)", RULE,
            "ENTRA CATEGORIA TIEMPO    VALOR", RULE,
            "(20/11/2026)",
            "07:05 TRANVIA   ACTIVO       ??",
            "08:00 AUTOMOVIL ACTIVO       ??",
            "                         $ 0.00",
            "(19/11/2026)",
            "22:00 MOTOCICLE ACTIVO       ??",
            "                         $ 0.00",
            LINE, "3 Registro(s)",
            "                   TOTAL $ 0.00", "\n", RULE,
            "Vintoral     RESUMEN ESTADO P01", "HORA/FECHA  14:00  (20/11/2026)", RULE,
            "      CATEGORIA   CANT    VALOR", RULE,
            "*AUTOMOVIL           1   ACTIVO",
            "*MOTOCICLETA         1   ACTIVO",
            LINE, "3 Registro(s)",
            "                   TOTAL $ 0.00", "\n\n\n."]) + "\n")])

    def test_a_summary_alone_and_every_row_on_the_page(self):
        station = self.day(fichas=self.INSIDE)
        (printer, slip), = printed(self.report(station, "yes", "yes"))
        self.assertEqual((printer, slip.splitlines()[0]), (PRINTER, "Vintoral     RESUMEN ESTADO P01"))
        self.assertNotIn("ACTIVO       ??", slip)
        self.assertEqual(self.page().plates(), ["IN5", "IN9"])

    def test_the_view_of_exits_has_times_of_exits(self):
        station = self.day(gone(2, 7, ("10:30", TODAY), "OUT7", 1500), gone(3, 8, ("11:05", TODAY), "OUT8", 200))
        station.key(F3)
        self.assertEqual(self.found(station), ["OUT8", "OUT7"])
        reply = self.report(station)  # a monitor is not held up by questions
        self.assertEqual((launches(reply), printed(reply)), ([SHOW_PAGE], []))
        page = self.page()
        self.assertEqual((page.title, page.plates()), ("Vintoral - ESTADO P01", ["OUT8", "OUT7"]))
        self.assertEqual(page.total(), ("2 Registro(s)", "$ 1700.00"))

    def test_invoices_print_with_their_own_printer(self):
        self.folder.write("Recursos/Vintoral.FTA", invoice(printer="Laser", size=8))
        self.folder.write("Multimedia/Vintoral.FTA", invoice(printer="Laser", size=8))
        station = self.day(fichas=self.INSIDE, printers=[PRINTER, "Laser"])
        station.end()
        for on, expected in ((0, PRINTER), (1, "Laser")):
            self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, on, mark=-1)))
            station = self.running(printers=[PRINTER, "Laser"], printer=PRINTER)
            self.assertEqual(station.get("PctBoton(14)")["BorderStyle"], on)
            (printer, _), = printed(self.report(station, "yes", "yes"))
            self.assertEqual(printer, expected)
            station.end()

    def test_without_a_printer_the_page_is_made(self):
        station = self.day(fichas=self.INSIDE, printers=[], printer="")
        reply = self.report(station, "yes", "no")
        self.assertEqual((launches(reply), printed(reply)), ([SHOW_PAGE], []))

    def test_a_photo_is_a_link(self):
        station = self.day(gone(2, 7, ("10:30", TODAY), "OUT", 1500), fichas=self.INSIDE)
        self.folder.write("Multimedia/Imágenes ACT/000005.jpg", photos.photo())
        self.folder.write("Multimedia/Imágenes HST/000002.jpg", photos.photo())
        self.open_search(station)
        self.search(station, active=True, b1=YESTERDAY)
        page = self.page()
        self.assertEqual([row[6] for row in page.fichas()], ["VER FOTO", "SIN IMAGEN", "VER FOTO"])
        folder = f"file:///{self.folder.shared}"
        self.assertEqual([link.replace("\\", "/") for link in page.links],
                         [f"{folder}/Imágenes ACT/000005.jpg", f"{folder}/Imágenes HST/000002.jpg"])
        self.assertIn('" target="_blank">VER FOTO</a>', (self.folder / PAGE).read_text("cp1252"))

    def test_what_looks_like_a_tag_shows_as_typed(self):
        odd = dict(Nombre="</td></table>", Apellido='"x"', Telefono="<!--", Observacion="&lt;&nbsp;&")
        station = self.day(fichas=(inside(5, stamp("08:00", TODAY), "<B>&", "<I>", **odd),))
        self.report(station, "no")
        self.assertEqual(self.page().fichas()[0][9:], ["<B>&", "</td></table>", '"x"', "<!--", "&lt;&nbsp;&"])
        self.assertEqual(self.page().fichas()[0][5], "<I>")
        station.do("hover", control="ImgFicha(0)")
        self.report(station, "no")
        for text in ("<B>&", "</td></table>", '"x"', "<!--", "&lt;&nbsp;&", "<I>"):
            self.assertIn(f" : {text}\n", self.page().text)

    def test_a_link_in_a_folder_with_an_odd_name_stays_one(self):
        self.folder = type(self.folder)(self.root / 'a&b <"c">')
        station = self.day(fichas=self.INSIDE)
        self.folder.write("Multimedia/Imágenes ACT/000005.jpg", photos.photo())
        self.report(station, "no")
        self.assertEqual([link.replace("\\", "/") for link in self.page().links],
                         [f"file:///{self.folder.shared}/Imágenes ACT/000005.jpg"])


class Found(Reports):
    """Reports of a search: rows that have gone."""

    def test_three_days_have_three_subtotals_and_one_total(self):
        station = self.day(gone(2, 1, ("10:00", "18/11/2026"), "A", 1000), gone(3, 2, ("11:00", "18/11/2026"), "B", 500),
                           gone(4, 3, ("09:00", YESTERDAY), "C", 250), gone(5, 4, ("09:00", TODAY), "D", 1))
        self.open_search(station)
        self.search(station, b1="18/11/2026")
        page = self.page()
        self.assertEqual(page.plates(), ["D", "C", "B", "A"])
        self.assertEqual(page.subtotals(), ["$ 1.00", "$ 250.00", "$ 1500.00"])
        self.assertEqual(page.total(), ("4 Registro(s)", "$ 1751.00"))
        self.assertEqual(page.rows[-6:], [empty(), alone(stamp("14:00", TODAY)), alone(stamp("00:00", "18/11/2026")),
                                          alone(stamp("23:59", TODAY)), empty(), total(4, "1751.00")])

    def test_one_row_has_its_day_and_the_total(self):
        station = self.day(gone(2, 1, ("10:00", TODAY), "A", 1000))
        self.open_search(station)
        self.search(station)
        self.assertEqual(self.page().rows, [
            [stamp("09:00", TODAY), "01", stamp("10:00", TODAY), "01", "0001", "AUTOMOVIL", "SIN IMAGEN", "01H 00M", "1000.00",
             "A", "", "", "", ""],
            alone("$ 1000.00", 8), empty(), empty(), alone(stamp("14:00", TODAY)), alone(stamp("00:00", TODAY)),
            alone(stamp("23:59", TODAY)), empty(), total(1, "1000.00")])

    def test_found_once_more_on_paper(self):
        station = self.day(gone(2, 1, ("10:00", TODAY), "A", 1000), gone(3, 2, ("16:05", TODAY), "B", 250, "TRANVIA"),
                           gone(4, 3, ("17:00", TODAY), "C", 75, "automovil", MarcaEntrada=stamp("14:50", "17/11/2026")),
                           fichas=self.INSIDE[:1])
        self.open_search(station)
        self.search(station, active=True)
        reply = self.report(station, "yes", "no")
        self.assertEqual(printed(reply), [(PRINTER, "\n".join([
            "Vintoral           BÚSQUEDA P01", "HORA/FECHA  14:00  (20/11/2026)", "INICIO -->  00:00  (20/11/2026)",
            " FINAL -->  23:59  (20/11/2026)", RULE, "SALID CATEGORIA TIEMPO    VALOR", RULE,
            "(20/11/2026)",
            "   ?? AUTOMOVIL ACTIVO       ??",
            "17:00 automo 03D02H10M    75.00",
            "16:05 TRANVIA   01H00M   250.00",
            "10:00 AUTOMOVIL 01H00M  1000.00",
            "                      $ 1325.00",
            LINE, "4 Registro(s)",
            "                TOTAL $ 1325.00", "\n", RULE,
            "Vintoral   RESUMEN BÚSQUEDA P01", "HORA/FECHA  14:00  (20/11/2026)", "INICIO -->  00:00  (20/11/2026)",
            " FINAL -->  23:59  (20/11/2026)", RULE, "      CATEGORIA   CANT    VALOR", RULE,
            "AUTOMOVIL            2  1075.00",
            "*AUTOMOVIL           1   ACTIVO",
            LINE, "4 Registro(s)",
            "                TOTAL $ 1325.00", "\n\n\n."]) + "\n")])

    def test_the_range_is_that_of_the_boxes(self):
        station = self.day(gone(2, 1, ("10:00", TODAY), "A", 1000))
        self.open_search(station)
        self.search(station, b0="09:59", b1="01/01/2026", b2="10:01", b3="31/12/2026")
        rows = self.page().rows
        self.assertEqual(rows[-4:-2], [alone(stamp("09:59", "01/01/2026")), alone(stamp("10:01", "31/12/2026"))])


class Sheet(Reports):
    """One ficha on the screen: its sheet."""

    def sheet(self):
        page = self.page()
        self.assertEqual((page.title, page.rows, page.heads), ("Vintoral - BÚSQUEDA P01", [], []))
        return page

    def test_of_the_ficha_under_the_pointer(self):
        station = self.day(fichas=self.INSIDE)
        self.folder.write("Multimedia/Imágenes ACT/000009.jpg", photos.photo())
        station.do("hover", control="ImgFicha(1)")
        self.assertFalse(station.shown("TxtCampo(0)"))
        self.assertEqual(launches(self.report(station, "no")), [SHOW_PAGE])
        page = self.sheet()
        self.assertEqual([picture.replace("\\", "/") for picture in page.pictures],
                         [f"file:///{self.folder.shared}/Imágenes ACT/000009.jpg"])
        labels = station.texts(*[f"TxtEtiqueta({n})" for n in range(1, 6)])
        self.assertEqual(page.text.strip(" ").split("\n"), [
            "No.FICHA : 0009", "", f" ENTRADA : {stamp('22:00', YESTERDAY)} P01", "  SALIDA : ?? P??",
            f"{labels[0]} : IN9", "", *[f"{label} : " for label in labels[1:]],
            "   CATEGORIA : MOTOCICLETA", "", "      TIEMPO : ??", "       VALOR : ??"])

    def test_of_one_that_has_gone(self):
        station = self.day(gone(2, 42, ("10:30", TODAY), "OUT", 1500, Nombre="JUAN"))
        self.open_search(station)
        self.search(station)
        station.do("hover", control="ImgFicha(0)")
        reply = self.report(station, "no")
        self.assertEqual(launches(reply), [SHOW_PAGE])
        text = self.sheet().text
        self.assertIn(f"ENTRADA : {stamp('09:30', TODAY)} P01\n  SALIDA : {stamp('10:30', TODAY)} P01\n", text)
        self.assertIn("      TIEMPO : 01H 00M\n       VALOR : $ 1500.00", text)
        self.assertEqual(self.sheet().pictures, [])

    def test_on_paper_it_has_nothing(self):
        station = self.day(fichas=self.INSIDE)
        station.do("hover", control="ImgFicha(1)")
        reply = self.report(station, "yes", "yes")
        self.assertEqual(self.sheet().text.count("No.FICHA"), 1)
        self.assertEqual(printed(reply), [])

    def test_labels_keep_their_width(self):
        names = ("No.FICHA", "¬¬DOC", "NOMBRE", "APELLIDO", "TELEFONO", "OBSERVACI")
        self.folder.write("Multimedia/Vintoral.LBL", LABELS.pack(*(ansi(name, 20) for name in names), *[-1] * 6))
        station = self.day(fichas=self.INSIDE[:1])
        station.do("hover", control="ImgFicha(0)")
        self.report(station, "no")
        self.assertIn("\n  DOC  : IN5\n", self.sheet().text)


if __name__ == "__main__":
    main()
