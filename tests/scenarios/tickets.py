"""The formats of ticket codes, passes and users, coded here a second time, and a gate that works with codes."""
import collections
import datetime
import struct

from station import (DELETE, ENTER, HOME, INSERT, RECORD, USER, DrivenDay, Ficha, Folder, ansi, fresh_register, mixed,
                     screen_state)

CODE = struct.Struct("<50s4s")
PASS = struct.Struct("<50s20sB20sh")
assert (CODE.size, PASS.size) == (54, 93)

CODES = 1000  # records of CDB, one for each slot
ENTRIES, DAYS = 0, 1  # of a pass, as of LstModEntrada

GENERATED = "Sonidos\\Vintoral-10.wav"
PALE = 0x80FFFF  # of the mark beside a code that is inside

LIMIT_OF_CODES = {
    "title": "Vintoral - Generador de Códigos de Barras", "icon": "exclamation", "buttons": ["ok"],
    "text": "Se ha alcanzado el límite de códigos entregados por esta portería. Por favor vuelva a intentarlo más tarde."}
LIMIT_OF_FICHAS = {
    "title": "Vintoral - Generador Automático de Fichas", "icon": "exclamation", "buttons": ["ok"],
    "text": "Se ha alcanzado el límite de fichas entregadas por esta portería. Por favor vuelva a intentarlo más tarde."}
CONFIRM_RESET = {
    "title": "Vintoral - Reiniciar Total Puntos", "icon": "exclamation", "buttons": ["yes", "no"], "default": "no",
    "text": "¿Desea realmente reiniciar los puntos acumulados de la ficha actual?"}

Pass = collections.namedtuple("Pass", "CodigoPase PlacaPase ModoPase FechaPase RestantesPase")
User = collections.namedtuple("User", "Placa Nombre Apellido Telefono Observacion Categoria Puntos")


def code_record(code="", number=""):
    return CODE.pack(ansi(code, 50), ansi(number, 4))


def codes_file(**inside):
    """The bytes of a CDB in which these slots have codes: codes_file(s7="ABCDEFGHIJKL")."""
    slots = {int(name[1:]): code for name, code in inside.items()}
    return b"".join(code_record(slots[n], f"{n:04}") if n in slots else code_record() for n in range(1, CODES + 1))


def pass_record(code="", plate="", mode=ENTRIES, date="", left=0):
    return PASS.pack(ansi(code, 50), ansi(plate, 20), mode, ansi(date, 20), left)


def texts(values):
    return (value.decode("cp1252").rstrip(" ") if isinstance(value, bytes) else value for value in values)


def records(path, layout):
    """The whole records of a register; none when it is not there."""
    data = path.read_bytes() if path.exists() else b""
    whole = len(data) // layout.size * layout.size
    return [tuple(texts(values)) for values in layout.iter_unpack(data[:whole])]


class Books:
    """What the registers of a shared folder hold, each time as it stands."""

    def __init__(self, folder):
        self.shared = folder.shared

    def codes(self):
        """The codes in CDB that stand, by slot: the code and the ficha's number as it is written beside it."""
        return {n: record for n, record in enumerate(records(self.shared / "Vintoral.CDB", CODE), start=1) if any(record)}

    def passes(self):
        return [Pass(*record) for record in records(self.shared / "Vintoral.CFR", PASS)]

    def users(self):
        return [User(*record) for record in records(self.shared / "Vintoral.USR", USER)]

    def first_fichas(self):
        """The records of NSR behind its first one: element n is of user n + 1."""
        return [Ficha(*record) for record in records(self.shared / "Vintoral.NSR", RECORD)][1:]

    def movements(self):
        return [Ficha(*record) for record in records(self.shared / "Vintoral.CRD", RECORD)]


class TicketDay(DrivenDay):
    """Days at a gate that prints tickets, in barcode mode unless a test says otherwise."""

    def setUp(self):
        super().setUp()
        self.books = Books(self.folder)

    def gate(self, *fichas, barcodes=True, users=(), folder=None, **options):
        """A running station with its switches as at the last closing; fichas and users are those of new registers."""
        folder = folder or self.folder
        marks = mixed(None, None, mark=-1 if barcodes else 0)
        folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-1), marks))
        if fichas:
            self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*fichas))
        if users:
            self.folder.write("Multimedia/Vintoral.USR", b"".join(users))
        return self.running(folder, **options)

    def second_gate(self, **options):
        """A gate of its own folder on the data of the first one."""
        folder = Folder(self.root / "P02")
        folder.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        return self.gate(folder=folder, **options)

    def ticket(self, station, plate, validity=None, mode=ENTRIES, category=None):
        """A new ticket up to the saved ficha; its code. The slot is that of the generator."""
        station.key(HOME)
        code = station.text("TxtBarCode")
        station.set("TxtCampo(1)", plate)
        if category:
            station.do("select", control="CboTarifa(1)", text=category)
        if mode != ENTRIES:
            station.do("select", control="LstModEntrada", index=mode)
        if validity is not None:
            station.set("TxtMaxEntrada", validity)
        station.key(INSERT)
        station.answer("yes")
        return code

    def scan(self, station, code, gap=20, enter=False):
        """A reader's typing: so many milliseconds between two characters, with or without Enter behind them."""
        for index, character in enumerate(code):
            if index:
                station.advance(gap)
            reply = station.type(character)
        return station.key(ENTER) if enter else reply

    def leave(self, station, code):
        """Out by a scan of the ticket."""
        self.scan(station, code)
        station.key(DELETE)
        return station.answer("yes")

    def assertNothingRead(self, station):
        """No ficha on the screen, and the box of codes waits for the next one."""
        self.assertEqual([station.shown("PctBoton(5)"), station.shown("PctBoton(6)")], [False, False])
        self.assertEqual((station.text("TxtBarCode"), station.shown("TxtBarCodeOK")), ("", False))
        self.assertEqual([station.shown("TxtMaxEntrada"), station.shown("LstModEntrada")], [False, False])
        self.assertEqual((station.text("TxtCampo(0)"), station.focused()), ("", "TxtBarCode"))


def moment_of(text):
    return datetime.datetime.strptime(text[8:18] + text[:5], "%d/%m/%Y%H:%M")


def earned(row):
    """96 points a day, 4 an hour, one for 15 minutes."""
    minutes = int((moment_of(row.MarcaSalida) - moment_of(row.MarcaEntrada)).total_seconds()) // 60
    days, rest = divmod(minutes, 24 * 60)
    return days * 96 + rest // 60 * 4 + rest % 60 // 15


def in_bars(reply):
    """What printed documents set in the font of bars."""
    return [step["text"] for event in reply["events"] if event["event"] == "print"
            for step in event["ops"] if step["op"] == "text" and step["font"] == "Free 3 of 9"]
