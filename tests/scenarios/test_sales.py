#!/usr/bin/env python3
"""Articles sold at a gate: the dialog, the list of sales on disk, the invoice."""
from sales import BLANK_LINE, DOWN, EXT, F7, LINE, LIST, LOCK, SPACE, SalesDay, line, sales_file
from slips import invoice, number_in, printed
from station import BACKSPACE, ENTER, ESC, kinds, main

RULE = "-" * 31
HFC, FTA = "Recursos/Vintoral.HFC", "Recursos/Vintoral.FTA"


class Sales(SalesDay):
    def test_from_the_key_to_the_file(self):
        self.folder.write(EXT, sales_file(line("GOMA", 9, 1, 800)))
        station = self.selling()
        self.assertEqual(station.key(F7)["waiting"], {"form": "Form4"})
        articles = station.get("Form4.LstArticulo")
        self.assertEqual((articles["List"], articles["Checked"], articles["TopIndex"]),
                         (["MINUTO", "CAFE", "CASCO MOTO", "GOMA"], [False] * 4, 0))
        self.assertEqual(station.text("Form4.TxtTotal(20)"), "0")
        self.assertEqual(station.focused(), "Form4.LstArticulo")
        self.tick(station, 1)
        quantity = station.get("Form4.CboCantidad(1)")
        self.assertEqual([quantity[name] for name in ("Visible", "Text", "SelStart", "SelLength")], [True, "1", 0, 1])
        station.focus("Form4.CboCantidad(1)")
        station.type("12")
        self.tick(station, 0, 3)
        self.assertEqual(station.texts("Form4.TxtTotal(0)", "Form4.TxtTotal(1)", "Form4.TxtTotal(2)", "Form4.TxtTotal(20)"),
                         ["600", "60000", "0", "60600"])
        reply = station.click("Form4.CmdRegistrar")
        self.assertEqual((reply["waiting"], reply["events"]), (None, []))
        self.assertEqual(self.list(), sales_file(line("MINUTO", 3, 200, 1400), line("CAFE", 12, 5000, 1400),
                                                 line("GOMA", 9, 1, 800)))

    def test_by_keys_alone(self):
        station = self.selling()
        station.key(F7)
        for key in (DOWN, SPACE, ord("4"), DOWN, SPACE, ENTER):
            station.key(key)
        self.assertEqual(station.focused(), "Form4.CmdRegistrar")
        self.assertIsNone(station.key(ENTER)["waiting"])
        self.assertEqual(self.list()[:3 * LINE], line("CAFE", 4, 5000, 1400) + line("CASCO MOTO", 1, 120_000, 1400) + BLANK_LINE)

    def test_three_articles_on_a_full_list(self):
        full = [line("CAFE", n % 999 + 1, 5000, 900, date="19/11/26", mark=-(n == 17)) for n in range(5000)]
        self.folder.write(EXT, sales_file(*full))
        station = self.selling()
        self.sell(station, (0, 1), (1, 2), (2, 3))
        new = [line("MINUTO", 1, 200, 1400), line("CAFE", 2, 5000, 1400), line("CASCO MOTO", 3, 120_000, 1400)]
        self.assertEqual(self.list(), b"".join(new + full[:-3]) + LOCK)

    def test_a_missing_and_an_empty_list_are_laid_out(self):
        station = self.selling()
        for missing in (True, False):
            (self.folder / EXT).unlink(missing_ok=True)
            if not missing:
                self.folder.write(EXT, b"")
            self.sell(station, (1, 1))
            self.assertEqual(self.list(), line("CAFE", 1, 5000, 1400) + BLANK_LINE * 4999)

    def test_what_sells_nothing_writes_nothing(self):
        self.folder.write(EXT, sales_file())
        station = self.selling()
        station.key(F7)
        self.tick(station, 1)
        self.assertIsNone(station.key(ESC)["waiting"])
        station.key(F7)
        self.tick(station, 1)
        self.assertIsNone(station.do("unload", form="Form4")["waiting"])
        station.key(F7)
        self.assertEqual(station.get("Form4.LstArticulo")["Checked"], [False] * 4)
        self.assertIsNone(station.click("Form4.CmdRegistrar")["waiting"])
        self.assertEqual(self.list(), sales_file())
        self.assertNotIn("Form4", station.state("forms"))

    def test_an_emptied_quantity_is_one(self):
        station = self.selling()
        station.key(F7)
        self.tick(station, 1)
        station.focus("Form4.CboCantidad(1)")
        station.type("7")
        self.assertEqual(station.text("Form4.TxtTotal(20)"), "35000")
        station.key(BACKSPACE)
        self.assertEqual(station.texts("Form4.CboCantidad(1)", "Form4.TxtTotal(20)"), ["1", "5000"])
        self.assertEqual(station.state("CantidadArticulo")[1], 1)
        self.assertEqual(station.state("PrecioArticulo"), ["200.0000", "5000.0000", "120000.0000", "0.5000"])

    def test_the_limits_of_a_line(self):
        station = self.selling("LOTE = 1000000", "FINCA = 333333333")
        station.key(F7)
        self.tick(station, 0, 999)
        self.assertEqual(station.text("Form4.TxtTotal(20)"), "999000000")
        station.focus("Form4.CboCantidad(0)")
        station.key(39)
        self.assertEqual(kinds(station.type("1")), ["beep"])
        self.assertEqual(kinds(station.type("x")), ["beep"])
        self.tick(station, 1, 2)
        station.set("Form4.CboCantidad(1)", "3")
        self.assertEqual(station.texts("Form4.CboCantidad(1)", "Form4.TxtTotal(1)", "Form4.TxtTotal(20)"),
                         ["2", "666666666", "1665666666"])

    def test_more_than_twenty_articles(self):
        station = self.selling(*(f"ART {n} = {n}" for n in range(1, 26)))
        station.key(F7)
        self.tick(station, 2, 10)
        station.do("scroll", control="Form4.LstArticulo", top=5)
        self.assertFalse(station.shown("Form4.CboCantidad(2)"))
        self.tick(station, 24, 2)
        self.assertEqual(station.texts("Form4.CboCantidad(19)", "Form4.TxtTotal(19)", "Form4.TxtTotal(20)"), ["2", "50", "80"])
        station.do("scroll", control="Form4.LstArticulo", top=1)
        self.assertEqual(station.texts("Form4.CboCantidad(1)", "Form4.TxtTotal(1)"), ["10", "30"])
        station.click("Form4.CmdRegistrar")
        self.assertEqual(self.list()[:2 * LINE], line("ART 3", 10, 3, 1400) + line("ART 25", 2, 25, 1400))

    def test_articles_edited_while_the_station_runs(self):
        station = self.selling()
        station.do("key", code=ord("T"), mask=2)
        station.click("Form6.LblFuncion(1)")
        station.set("Form6.TxtTarifas(1)", "ABCDEFGHIJKLMNOPQRSTUVWXY = 1234567890\r\nsin precio\r\n= 7")
        station.click("Form6.CmdFuncion(1)")
        station.key(F7)
        self.assertEqual(station.get("Form4.LstArticulo")["List"], ["ABCDEFGHIJKLMNO", ""])
        self.tick(station, 0)
        self.assertEqual(station.text("Form4.TxtTotal(20)"), "123456789")

    def test_a_sale_over_midnight_has_the_day_of_its_end(self):
        station = self.selling(now="2026-11-20 23:59:50")
        station.key(F7)
        self.tick(station, 1)
        station.advance(10_000)
        station.click("Form4.CmdRegistrar")
        self.assertEqual(self.list()[:LINE], line("CAFE", 1, 5000, 0, date="21/11/26"))


class Invoices(SalesDay):
    def test_a_sale_with_its_invoice(self):
        self.folder.write(FTA, invoice(tax=8.0, extras=19.0))
        self.folder.write(HFC, b"lo anterior")
        station = self.selling(printers=["Tira80"])
        reply = self.sell(station, (1, 3), (2, 1), invoice=True)
        # 135000 / 1.19 = 113445.3782
        self.assertEqual(printed(reply), [("Tira80", (
            "CABEZA\n"
            "No.FACTURA  42              P01\n"
            "HORA/FECHA  14:00  (20/11/2026)\n"
            f"{RULE}\n"
            "DESCRIPCION     CANT      VALOR\n"
            f"{RULE}\n"
            "CAFE              3    15000.00\n"
            "CASCO MOTO        1   120000.00\n"
            f"{'=' * 31}\n"
            "     BASE 113445.38\n"
            " IMPUESTO  21554.62 (19.00%)\n"
            f"{'=' * 31}\n"
            "              TOTAL $ 135000.00\n"
            f"{RULE}\n"
            "----------- vintoral.example --\nPIE\n\n\n.\n"))])
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 42)
        log = (self.folder / HFC).read_bytes()
        self.assertIn(b"CAFE              3    15000.00\r\nCASCO MOTO        1   120000.00\r\n", log)
        self.assertTrue(log.endswith(b"lo anterior\r\n"))
        self.assertEqual(self.list()[:2 * LINE], line("CAFE", 3, 5000, 1400) + line("CASCO MOTO", 1, 120_000, 1400))
        station.key(F7)
        self.assertEqual(station.get("Form4.ChkFactura")["Value"], 0)

    def test_the_second_copy_waits_behind_the_dialog(self):
        self.folder.write(FTA, invoice(copy=-1))
        station = self.selling(printers=["Tira80"])
        reply = self.sell(station, (1, 1), invoice=True)
        self.assertEqual(reply["waiting"], {"wait": 5000})
        first = printed(reply)
        self.assertEqual(len(first), 1)
        self.assertEqual(len(self.list()), LIST + LINE)  # and the lock behind it
        self.assertEqual(printed(station.advance(5000)), first)

    def test_without_its_tick_no_number_is_taken(self):
        self.folder.write(FTA, invoice())
        station = self.selling(printers=["Tira80"])
        self.assertEqual(printed(self.sell(station, (1, 1))), [])
        self.assertEqual(number_in((self.folder / FTA).read_bytes()), 41)


if __name__ == "__main__":
    main()
