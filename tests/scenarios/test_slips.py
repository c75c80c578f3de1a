#!/usr/bin/env python3
"""Tickets and invoices over whole days: what comes out of the printers, and what the station keeps."""
import struct

from slips import INVOICE, invoice, number_in, printed, ticket
from station import ALT, CONTROL, DELETE, ENTER, ESC, DrivenDay, fresh_register, inside, main, mixed, screen_state, sounds, stamp

RULE = "-" * 31
LINE = "=" * 31
FOOT = f"{RULE}\n----------- vintoral.example --\nPIE\n\n\n.\n"
HFC = "Recursos/Vintoral.HFC"
FTA = "Recursos/Vintoral.FTA"
TQE = "Recursos/Vintoral.TQE"


class SlipTest(DrivenDay):
    def day(self, ticket_on=False, invoice_on=False, fichas=(), **start):
        """A running station with switches as they were at its last closing."""
        self.folder.write("Recursos/Vintoral.DAT", screen_state(screen=mixed(0, int(invoice_on), mark=-int(ticket_on))))
        if fichas:
            self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*fichas))
        return self.running(**{"printers": ["Laser", "Tira80"], "printer": "Laser", **start})


class Tickets(SlipTest):
    def test_a_ticket_of_the_format_on_disk(self):
        self.folder.write(TQE, ticket(printer="TIRA80", header="  PARQUEADERO Ñ"))
        station = self.day(ticket_on=True)
        self.assertEqual(printed(station.save(7, "abc123", "ana", category="AUTOMOVIL")), [("Tira80", (
            "  PARQUEADERO Ñ\n"
            "  No.FICHA  7               P01\n"
            "HORA/FECHA  14:00  (20/11/2026)\n"
            f"{RULE}\n"
            "PLACA/DOC : ABC123\n"
            "   NOMBRE : ANA\n"
            " APELLIDO : \n"
            " TELEFONO : \n"
            "OBSERVACI : \n"
            "CATEGORIA : AUTOMOVIL\n" + FOOT))])

    def test_a_printer_that_is_gone_leaves_it_to_the_systems_own(self):
        self.folder.write(TQE, ticket(printer="Vendida"))
        station = self.day(ticket_on=True)
        self.assertEqual([printer for printer, _ in printed(station.save(7, "abc"))], ["Laser"])
        station.do("devices", printers=["A", "vendida"], printer="A")
        self.assertEqual([printer for printer, _ in printed(station.save(8, "def"))], ["vendida"])
        station.do("devices", printers=[])
        reply = station.save(9, "ghi")
        self.assertEqual(printed(reply), [])
        self.assertEqual(self.folder.slot(9).EnUso, -1)

    def test_the_photo_leaves_its_place_free(self):
        self.folder.write(TQE, ticket(photo=-1, size=10.5))
        station = self.day(ticket_on=True)
        reply = station.save(7, "abc")
        steps = next(event["ops"] for event in reply["events"] if event["event"] == "print")
        at = next(i for i, step in enumerate(steps) if step["text"] == LINE)
        # The next line begins below the rule and 10.5 * 240 twips.
        self.assertEqual(steps[at + 1]["y"] - steps[at]["y"], 238 + 2520)

    def test_a_cut_or_scrambled_format_prints_what_can_be_read(self):
        whole = ticket(header="CABEZA", footer="PIE")
        for number, length in enumerate((0, 1, 101, 103, 104, 110, 5104, 5105, 5106, 5108, len(whole) - 1), start=1):
            with self.subTest(length=length):
                self.folder.write(TQE, whole[:length])
                station = self.day(ticket_on=True)
                (_, text), = printed(station.save(number, f"p{number}"))
                self.assertIn("HORA/FECHA  14:00", text)
                station.end()

    def test_a_size_that_is_none_prints_at_ten_and_a_half(self):
        for at, size in enumerate((float("nan"), -3.0, 0.0, 1e30, float("inf")), start=1):
            with self.subTest(size=size):
                self.folder.write(TQE, ticket(size=size))
                station = self.day(ticket_on=True)
                event = next(e for e in station.save(at, f"p{at}")["events"] if e["event"] == "print")
                self.assertEqual({step["size"] for step in event["ops"]}, {10.5})
                station.end()


class Dialogs(SlipTest):
    def test_the_ticket_dialog_from_click_to_file(self):
        station = self.day()
        self.assertEqual(station.click("PctBoton(10)")["waiting"], {"form": "Form3"})
        station.do("select", control="Form3.CboImpresora", text="Tira80")
        station.set("Form3.CboDimFuente", "8,5")
        station.set("Form3.TxtEtiqueta(0)", "UNO\r\nDOS")
        station.set("Form3.TxtEtiqueta(2)", "ADIOS")
        station.do("check", control="Form3.ChkEtiqueta(4)", value=0)
        station.do("check", control="Form3.ChkFoto", value=1)
        reply = station.key(ENTER)
        self.assertIsNone(reply["waiting"])
        self.assertEqual(sounds(reply), ["ABRiL\\ABRiL-3.wav"])
        self.assertEqual((self.folder / TQE).read_bytes(), ticket("Tira80", 8.5, "UNO\r\nDOS", -1, "ADIOS"))
        self.assertEqual(station.get("PctBoton(10)")["BorderStyle"], 1)
        self.assertTrue(station.shown("CmdNumeroFicha"))
        # The ticks reach the labels' file at closing, and count for invoices too.
        self.folder.write(FTA, invoice())
        station.do("key", code=ord("L"), mask=CONTROL | ALT)
        self.assertEqual([station.get(f"Form8.ChkEtiqueta({i})")["Value"] for i in range(1, 6)], [1, 1, 1, 0, 1])
        station.key(ESC)
        station.do("close")
        station.answer("yes")
        flags = (self.folder / "Multimedia/Vintoral.LBL").read_bytes()[-132:][122:132]
        self.assertEqual(struct.unpack("<5h", flags), (-1, -1, -1, 0, -1))
        # The switch is on at the next start.
        self.assertEqual(struct.unpack_from("<h", (self.folder / "Recursos/Vintoral.DAT").read_bytes(), 8)[0], -1)

    def test_the_invoice_dialog_from_click_to_file(self):
        station = self.day()
        self.assertEqual(station.click("PctBoton(14)")["waiting"], {"form": "Form8"})
        station.set("Form8.TxtPrefijo", "FV ")
        station.set("Form8.TxtNumEtiqueta", "500")
        station.set("Form8.TxtImpuesto(0)", "19")
        station.set("Form8.TxtImpuesto(1)", "2.75")
        station.set("Form8.TxtEtiqueta(0)", "CABEZA")
        station.set("Form8.TxtEtiqueta(2)", "PIE")
        station.do("check", control="Form8.ChkCopia", value=1)
        reply = station.click("Form8.PctBoton")
        self.assertEqual(sounds(reply), ["ABRiL\\ABRiL-4.wav"])
        self.assertEqual((self.folder / FTA).read_bytes(),
                         invoice("Laser", 10.5, "CABEZA", "FV \x1b", 500, 19.0, 2.75, -1, 0, "PIE"))

    def test_the_fields_follow_the_file(self):
        self.folder.write(FTA, invoice("Tira80", 8.5, "C", "FV \x1b", 7, 19.0, 9.75, 0, -1, "P"))
        station = self.day()
        station.click("PctBoton(14)")
        self.assertEqual(station.texts("Form8.CboImpresora", "Form8.CboDimFuente", "Form8.TxtPrefijo", "Form8.TxtNumEtiqueta",
                                       "Form8.TxtImpuesto(0)", "Form8.TxtImpuesto(1)", "Form8.TxtEtiqueta(0)"),
                         ["Tira80", "8,5", "FV ", "8", "19.0", "9.75", "C"])
        self.assertEqual([station.get(f"Form8.{name}")["Value"] for name in ("ChkCopia", "ChkPuntos")], [0, 1])

    def test_the_state_tells_the_formats(self):
        self.folder.write(TQE, ticket("Tira80", 8.5, "C", -1, "P"))
        self.folder.write(FTA, invoice("Laser", 9.5, "D", "FV \x1b", 7, 19.0, 9.75, 0, -1, "Q"))
        state = self.day().state()
        self.assertEqual(state["RegistroTiquete"],
                         {"Impresora": "Tira80", "DimFuente": 8.5, "Encabezado": "C", "Foto": True, "Pie": "P"})
        self.assertEqual(state["RegistroFactura"],
                         {"Impresora": "Laser", "DimFuente": 9.5, "Encabezado": "D", "Prefijo": "FV \x1b", "NumFactura": 7,
                          "Impuesto": 19.0, "ImpuestoExtras": 9.75, "Copia": False, "Puntos": True, "Pie": "Q"})
        self.assertEqual(state["ImprimirCampo"], [True] * 5)

    def test_hover_tells_in_the_help_line(self):
        station = self.day()
        station.click("PctBoton(10)")
        station.do("hover", control="Form3.PctBoton")
        self.assertEqual(station.caption("LblAyuda"), "Guardar Formato de Tiquetes")
        self.assertTrue(station.shown("Form3.PctSeleccion"))
        station.do("hover", control="Form3")
        self.assertEqual(station.caption("LblAyuda"), "Vintoral 10.25")

    def test_a_sample_saves_nothing(self):
        station = self.day()
        before = self.folder.all_bytes()
        station.click("PctBoton(14)")
        (printer, text), = printed(station.click("Form8.CmdPrueba"))
        self.assertEqual(printer, "Laser")
        self.assertIn("No.FACTURA  1               P01\n", text)
        station.key(ESC)
        self.assertEqual(self.folder.all_bytes(), before)

    def test_off_with_a_question_and_out_of_barcode_mode(self):
        self.folder.write(TQE, ticket())
        station = self.day(ticket_on=True)
        station.do("key", code=ord("B"), mask=CONTROL | ALT)
        station.answer("ok")
        self.assertTrue(station.shown("TxtBarCode"))
        station.click("PctBoton(10)")
        self.assertEqual(station.box["default"], "no")
        station.answer("yes")
        self.assertEqual([station.shown(name) for name in ("TxtBarCode", "CmdBarCode", "CmdNumeroFicha")], [False] * 3)
        self.assertEqual(station.get("PctBoton(10)")["BorderStyle"], 0)


class Invoices(SlipTest):
    STAY = inside(9, stamp("13:00", "20/11/2026"), plate="ABC123")

    def body(self, number):
        return ("CABEZA\n"
                f"No.FACTURA  {number}              P01\n"
                "HORA/FECHA  14:00  (20/11/2026)\n"
                f"{RULE}\n"
                "PLACA/DOC : ABC123\n"
                "   NOMBRE : \n APELLIDO : \n TELEFONO : \nOBSERVACI : \n"
                f"{RULE}\n"
                "  ENTRADA : 13:00  (20/11/2026)\n"
                "   SALIDA : 14:00  (20/11/2026)\n"
                "CATEGORIA : AUTOMOVIL\n"
                "   TIEMPO : 01H 00M \n")

    def test_an_invoice_with_tax_and_cash(self):
        self.folder.write(FTA, invoice(tax=19.0))
        station = self.day(invoice_on=True, fichas=[self.STAY])
        station.call_up(9)
        station.advance(500)
        station.set("TxtEfectivo", "10000,5")
        station.advance(500)
        station.key(DELETE)
        # 6000 / 1.19 = 5042.0168...
        self.assertEqual(printed(station.answer("yes")), [("Laser", self.body(42) + (
            f"{LINE}\n     BASE 5042.02\n IMPUESTO  957.98 (19.00%)\n{LINE}\n"
            "                TOTAL $ 6000.00\n EFECTIVO 10000.50\n   CAMBIO  4000.50\n") + FOOT)])
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 42)

    def test_the_second_copy_waits_five_seconds_over_midnight(self):
        self.folder.write(FTA, invoice(copy=-1))
        station = self.day(invoice_on=True, fichas=[self.STAY])
        station.clock("2026-11-20 23:59:58")
        station.call_up(9)
        station.key(DELETE)
        reply = station.answer("yes")
        self.assertEqual(reply["waiting"], {"wait": 5000})
        first = printed(reply)
        self.assertEqual(len(first), 1)
        self.assertEqual(len(self.folder.history()), 1)
        self.assertEqual(self.folder.slot(9).EnUso, 0)
        self.assertEqual(printed(station.advance(4999)), [])
        reply = station.advance(1)
        self.assertIsNone(reply["waiting"])
        self.assertEqual(printed(reply), first)
        self.assertIn("HORA/FECHA  23:59  (20/11/2026)", first[0][1])

    def test_the_log_has_the_newest_on_top(self):
        self.folder.write(FTA, invoice(number=999998))
        other = inside(10, stamp("13:00", "20/11/2026"), plate="DEF456")
        station = self.day(invoice_on=True, fichas=[self.STAY, other])
        station.retire(9)
        first = (self.folder / HFC).read_bytes()
        self.assertTrue(first.startswith(b"\r\n\r\n\r\nCABEZA\r\nNo.FACTURA  999999          P01\r\n"))
        self.assertTrue(first.endswith(b"--\r\nPIE" + b"\r\n" * 7))
        station.retire(10)
        both = (self.folder / HFC).read_bytes()
        self.assertTrue(both.endswith(b"PIE" + b"\r\n" * 6 + first + b"\r\n"))
        self.assertIn(b"No.FACTURA  1               P01", both)
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 1)

    def test_no_tick_no_invoice(self):
        self.folder.write(FTA, invoice())
        station = self.day(invoice_on=True, fichas=[self.STAY])
        station.call_up(9)
        station.do("check", control="ChkFactura", value=0)
        station.key(DELETE)
        self.assertEqual(printed(station.answer("yes")), [])
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 41)
        self.assertEqual((self.folder / HFC).read_bytes(), b"")

    def test_numbers_and_taxes_out_of_range(self):
        for number, tax, expected in ((-5, float("nan"), 1), (-2**31, -1.0, 1), (2**31 - 1, 1e30, 1), (10**6, float("inf"), 1)):
            with self.subTest(number=number, tax=tax):
                self.folder.write(FTA, invoice(number=number, tax=tax))
                station = self.day(invoice_on=True, fichas=[self.STAY])
                (_, text), = printed(station.retire(9))
                self.assertIn(f"No.FACTURA  {expected} ", text)
                self.assertIn("TOTAL $ 6000.00\n", text)
                self.assertEqual("(100.00%)" in text, tax > 100)
                station.end()

    def test_a_format_cut_at_any_place_still_prints(self):
        whole = invoice(tax=19.0)
        for length in (0, 50, 101, 104, 5104, 5110, 5130, 5132, 5134, 5136, 5143, 5146, 10145):
            with self.subTest(length=length):
                self.folder.write(FTA, whole[:length])
                station = self.day(invoice_on=True, fichas=[self.STAY])
                (_, text), = printed(station.retire(9))
                self.assertIn("TOTAL $ 6000.00\n", text)
                self.assertEqual((self.folder / FTA).stat().st_size, INVOICE.size)
                station.end()

    def test_a_log_that_is_read_only_is_written_all_the_same(self):
        self.folder.write(FTA, invoice())
        self.folder.write(HFC, b"lo anterior")
        (self.folder / HFC).chmod(0o444)
        station = self.day(invoice_on=True, fichas=[self.STAY])
        station.retire(9)
        self.assertTrue((self.folder / HFC).read_bytes().endswith(b"\r\nlo anterior\r\n"))
        self.assertEqual(self.mode(HFC), 0o644)  # cleared, whoever runs this

    def test_formats_that_are_read_only_are_written_all_the_same(self):
        self.folder.write(TQE, ticket())
        self.folder.write(FTA, invoice())
        for name in (TQE, FTA):
            (self.folder / name).chmod(0o444)
        station = self.day(fichas=[self.STAY])
        for button, form in ((10, "Form3"), (14, "Form8")):
            station.click(f"PctBoton({button})")
            station.click(f"{form}.PctBoton")
        self.assertEqual([self.mode(name) for name in (TQE, FTA)], [0o644, 0o644])
        (self.folder / FTA).chmod(0o444)
        station.retire(9)
        self.assertEqual(self.mode(FTA), 0o644)
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 43)

    def mode(self, name):
        return (self.folder / name).stat().st_mode & 0o777


if __name__ == "__main__":
    main()
