"""What the account is made of, by hand: prices, passes, lists, and the reading of pages."""
import datetime
import unittest
from decimal import Decimal

import expected_fichas as fichas
import expected_sales as sales
import tariff
from checks import expect_same
from ledger import Ficha, Ledger, Pass, Till
from pages import BODY, END, HEAD, HEADS_ROW, ROW, ROW_END, SIZES, read_page
from tariff import Stay

NOON = datetime.datetime(2026, 3, 1, 12)


class Prices(unittest.TestCase):
    def assertPrices(self, category, **prices):
        """Stays as d1h2m30, none of whose parts has a leading zero."""
        for name, expected in prices.items():
            with self.subTest(category=category, stay=name):
                days, rest = name[1:].split("h")
                hours, minutes = rest.split("m")
                self.assertEqual(str(tariff.price(category, Stay(int(days), int(hours), int(minutes)))), expected)

    def test_minutes_with_half_cents(self):
        # 33.335 a minute: one is 33.335, two 66.67, 59 minutes 1966.765.
        self.assertPrices("AUTOMOVIL", d0h0m0="0.00", d0h0m1="33.34", d0h0m2="66.67", d0h0m59="1966.77", d0h4m59="9967.17",
                          d0h5m0="9500.00", d0h23m59="9500.00", d1h0m1="9533.34", d2h5m30="28500.00")

    def test_a_first_hour_and_steps(self):
        self.assertPrices("MOTOCICLETA", d0h0m0="0.00", d0h0m1="1000.00", d0h1m0="1000.00", d0h1m2="1000.00", d0h1m3="1250.50",
                          d0h4m31="4900.25", d0h5m31="4500.00", d3h0m0="13500.00", d3h0m1="14500.00")

    def test_whole_hours_and_days(self):
        self.assertPrices("BICICLETA", d0h0m59="0.00", d0h1m59="700.33", d0h5m0="3501.67", d1h0m0="3000.34", d2h0m30="6000.67")
        self.assertEqual([tariff.has_price("BICICLETA", stay) for stay in (Stay(0, 0, 59), Stay(0, 1, 0), Stay(1, 0, 0))],
                         [False, True, True])

    def test_a_least_charge(self):
        self.assertPrices("CAMION", d0h0m0="1500.00", d0h0m16="2600.50", d0h0m31="3900.75", d0h1m0="5500.00", d0h2m0="8500.00",
                          d0h4m15="15500.00", d0h5m0="16500.00", d0h23m0="16500.00", d1h0m0="16500.01")

    def test_flat_and_free(self):
        self.assertPrices("NOCTURNO", d0h0m0="12345.68", d4h1m2="12345.68")
        self.assertPrices("EMPLEADO", d0h5m0="0.00")

    def test_points(self):
        self.assertEqual([tariff.points(Stay(*stay)) for stay in ((0, 0, 14), (0, 0, 15), (1, 2, 47))], [0, 1, 107])


class Account(unittest.TestCase):
    def test_a_pass_of_entries_and_one_of_days(self):
        day = datetime.date(2026, 3, 1)
        self.assertEqual([Pass("", "", False, left, day).admits(day) for left in (0, 1)], [False, True])
        month = Pass("", "", True, 30, day)
        self.assertEqual([(month.left_on(day + datetime.timedelta(n)), month.admits(day + datetime.timedelta(n)))
                          for n in (9, 29, 30)], [(21, True), (1, True), (0, False)])

    def test_a_shift_is_what_came_behind_the_mark(self):
        ledger, till = Ledger(), Till("01", 0)
        for number in (1, 2, 3):
            ficha = Ficha(number, f"P{number}", ("", "", "", ""), "AUTOMOVIL", "01", NOON)
            ledger.enter(ficha)
            ledger.quote(ficha, NOON + datetime.timedelta(minutes=number))
            if number == 3:
                ledger.begin_shift(till, NOON)
            ledger.leave(ficha, "01")
        self.assertEqual([ficha.number for ficha in ledger.left_in_shift()], [3])
        self.assertEqual([ficha.number for ficha in ledger.left_last_day()], [3, 2, 1])
        self.assertEqual([str(ficha.value) for ficha in ledger.history], ["33.34", "66.67", "100.01"])

    def test_the_newest_user_takes_the_mark_of_a_shift_with_him(self):
        ledger, till = Ledger(), Till("01", 0)
        ficha = Ficha(1, "ABC", ("", "", "", ""), "AUTOMOVIL", "01", NOON)
        ledger.enter(ficha)
        ledger.begin_shift(till, NOON)
        self.assertTrue(ledger.newcomers[0].mark)
        ledger.quote(ficha, NOON)
        ledger.leave(ficha, "01")
        ledger.enter(Ficha(2, "ABC", ("", "", "", ""), "CAMION", "01", NOON))
        self.assertEqual([(one.number, one.mark) for one in ledger.newcomers], [(2, False)])

    def test_the_first_article_of_a_sale_is_the_newest(self):
        till = Till("01", 0)
        till.sell([("CHICLE", 3)], NOON)
        till.sell([("CAFE COLOMBIANO", 1), ("BOTELLA AGUA", 2)], NOON)
        self.assertEqual([sale.article for sale in till.sales], ["CAFE COLOMBIANO", "BOTELLA AGUA", "CHICLE"])
        # 3 at 0.34, one at 5000 and 2 at 4999.99
        self.assertEqual(str(till.sold), "15001.00")

    def test_tax_is_what_is_left(self):
        self.assertEqual(sales.tax_block(Decimal("119.00"), Decimal(19))[1:],
                         ["     BASE 100.00", " IMPUESTO  19.00 (19.00%)"])

    def test_columns(self):
        ficha = Ficha(7, "ABC", ("", "", "", ""), "COMPRA MES AUTO", "01", NOON, gate_out="02",
                      exit=NOON + datetime.timedelta(days=1, hours=2, minutes=3), value=Decimal("300000.00"))
        self.assertEqual(fichas.slip_row(ficha), "14:03 COMPRA 01D02H03M300000.00")
        self.assertEqual(fichas.category_lines([ficha]), ["COMPRA MES AUTO      1300000.00"])

    def test_a_difference_is_told_where_it_begins(self):
        told = r"a list, from 1 on: the station has \(2, \['b'\]\), the account \(3, \['c', 'd'\]\)"
        with self.assertRaisesRegex(AssertionError, told):
            expect_same(["a", "b"], ["a", "c", "d"], "a list")


COLUMN = " <col class=xl2825893 width=215 style='mso-width-source:userset;mso-width-alt:7862;width:161pt'>"
CELL = "  <td class=xl2825893>{}</td>"
SIZE = "  <td width=215 style='width:161pt'></td>"


def page_of(*rows, columns=1, sizes=1, behind=()):
    lines = [*HEAD, "<head><TITLE>Vintoral - ESTADO P01</TITLE>", "<style>", *BODY, *[COLUMN] * columns,
             HEADS_ROW, CELL.format("HORA"), ROW_END, *rows, *SIZES, *[SIZE] * sizes, *END, *behind]
    return "\r\n".join(lines).encode("cp1252")


def row(text):
    return ROW, CELL.format(text), ROW_END


class Pages(unittest.TestCase):
    def test_rows_are_read(self):
        page = read_page(page_of(*row("A &amp; B"), *row("")))
        self.assertEqual((page.title, page.heads, page.rows), ("ESTADO P01", ("HORA",), [("A & B",), ("",)]))

    def test_what_is_no_such_page_is_refused(self):
        for wrong in (page_of(*row("<B>")), page_of(*row("A")[:2]), page_of(*row("A"), ROW_END), page_of(columns=2),
                      page_of(sizes=2), page_of(behind=("more",)), page_of(ROW, CELL.format("A"), CELL.format("B"), ROW_END),
                      page_of(*row("A\n")), page_of().replace(b"ESTADO P01</TITLE>", b"ESTADO P01"), page_of()[:-9], b""):
            with self.subTest(page=wrong[-200:]), self.assertRaises((ValueError, IndexError)):
                read_page(wrong)


if __name__ == "__main__":
    unittest.main()
