"""The formats of tickets and invoices, and what came out of the printers, coded here a second time."""
import struct

from station import ansi

TICKET = struct.Struct("<100sf5000sh5000s")
INVOICE = struct.Struct("<100sf5000s26slffhh5000s")
assert (TICKET.size, INVOICE.size) == (10106, 10146)

NUMBER_AT = 5130  # of an invoice format


def ticket(printer="", size=10.5, header="CABEZA", photo=0, footer="PIE"):
    return TICKET.pack(ansi(printer, 100), size, ansi(header, 5000), photo, ansi(footer, 5000))


def invoice(printer="", size=10.5, header="CABEZA", prefix="No.FACTURA\x1b", number=41, tax=0.0, extras=0.0, copy=0, points=0,
            footer="PIE"):
    return INVOICE.pack(ansi(printer, 100), size, ansi(header, 5000), ansi(prefix, 26), number, tax, extras, copy, points,
                        ansi(footer, 5000))


def number_in(data):
    return struct.unpack_from("<l", data, NUMBER_AT)[0]


def printed(reply):
    """What was printed: for each document its printer and its text, a line feed behind each text."""
    return [(event["printer"], "".join(step["text"].replace("\r\n", "\n") + "\n" for step in event["ops"] if step["op"] == "text"))
            for event in reply["events"] if event["event"] == "print"]
