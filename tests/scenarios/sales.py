"""The list of sales of a gate, coded here a second time, and a day on which articles are sold."""
import collections
import struct

from station import DrivenDay, lines

EXT, XTR = "Recursos/Vintoral.EXT", "Recursos/Vintoral.XTR"
F7, DOWN, SPACE = 118, 40, 32
LINE, LINES = 46, 5000
LIST = LINE * LINES

Line = collections.namedtuple("Line", "date article mark price time quantity")  # price in ten-thousandths


def text(value):
    return struct.pack("<hh", 8, len(value)) + value.encode("cp1252")


def line(article, quantity, price, time, date="20/11/26", mark=0):
    """A line of the list; its last byte is left over. `price` in whole units."""
    data = text(date) + text(article.ljust(15)) + struct.pack("<hqhh", mark, price * 10_000, time, quantity)
    assert len(data) == LINE - 1
    return data + b"\0"


BLANK_LINE = text(" " * 9) + text(" " * 15) + struct.pack("<hqhh", 0, 0, -1, 0)
assert len(BLANK_LINE) == LINE

# Password and selection of the lock of functions, which stands behind the list.
LOCK = (text("12345") + text("000000000010000000") + struct.pack("<hqhh", 0, 0, -1, 0)).ljust(LINE, b"\0")


def sales_file(*sold, lock=LOCK):
    """A list with these lines on top."""
    return b"".join(sold) + BLANK_LINE * (LINES - len(sold)) + lock


def read_line(data):
    date_length, = struct.unpack_from("<h", data, 2)
    at = 4 + date_length
    name_length, = struct.unpack_from("<h", data, at + 2)
    name = at + 4
    mark, price, time, quantity = struct.unpack_from("<hqhh", data, name + name_length)
    return Line(data[4:at].decode("cp1252"), data[name:name + name_length].decode("cp1252"), mark, price, time, quantity)


def sold_lines(data):
    """From the newest to the one at which reports stop."""
    sold = []
    for at in range(0, min(len(data), LIST), LINE):
        one = read_line(data[at:at + LINE])
        if one.time == -1:
            break
        sold.append(one)
    return sold


class SalesDay(DrivenDay):
    ARTICLES = ("MINUTO = 200", "CAFE = 5000", "CASCO MOTO = 120000", "GOMA = 0,5")

    def selling(self, *articles, **start):
        """A running station with these articles for sale."""
        self.folder.write(XTR, lines(*(articles or self.ARTICLES)))
        return self.running(**start)

    def tick(self, station, row, quantity=None):
        reply = station.do("tick", control="Form4.LstArticulo", index=row, value=1)
        if quantity is not None:
            top = station.get("Form4.LstArticulo")["TopIndex"]
            station.set(f"Form4.CboCantidad({row - top})", str(quantity))
        return reply

    def sell(self, station, *sold, invoice=False):
        """The whole way of a sale of rows and quantities; the reply in which it is registered."""
        station.key(F7)
        for row, quantity in sold:
            self.tick(station, row, quantity)
        if invoice:
            station.do("check", control="Form4.ChkFactura", value=1)
        return station.click("Form4.CmdRegistrar")

    def list(self):
        return (self.folder / EXT).read_bytes()
