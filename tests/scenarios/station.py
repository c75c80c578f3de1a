"""A client of vintoral-driver, and the file formats of a station, coded here a second time.

The records are written and read with literal layouts, so that a driven day and the bytes on disk are judged by something
that shares no code with the program. Run one file alone with: python3 test_save.py build/dev/bin/vintoral-driver
"""
import collections
import json
import os
import pathlib
import select
import struct
import subprocess
import sys
import tempfile
import time
import unittest

# A driver that is silent for this long hangs; no test waits this long for anything that goes well.
PATIENCE_SECONDS = 30

RECORD = struct.Struct("<h20s20s4s20s20s20s20s20s20s2s2slqhl")
USER = struct.Struct("<20s20s20s20s20s20sl")
LABELS = struct.Struct("<20s20s20s20s20s20s6h")
MIXED_LENGTH = 46
LINE_LENGTH = 100
assert (RECORD.size, USER.size, LABELS.size) == (188, 124, 132)

FREE_SLOTS = 1000
ACT_LENGTH = 188188

GREEN, RED = 0xC0FFC0, 0x8080FF
LIGHT_ORANGE, LIGHT_YELLOW, PALE_YELLOW = 0x80C0FF, 0x80FFFF, 0xC0FFFF

SHIFT, CONTROL, ALT = 1, 2, 4
BACKSPACE, TAB, ENTER, ESC = 8, 9, 13, 27
HOME, LEFT, RIGHT, INSERT, DELETE = 36, 37, 39, 45, 46
F1, F9, F10, F11 = 112, 120, 121, 122

CAMERA = "CAMARA"

CLICK = "Sonidos\\Vintoral-5.wav"
LOST = "Sonidos\\Vintoral-1.wav"
RETIRED = "Sonidos\\Vintoral-4.wav"
FORGOTTEN = "Sonidos\\Vintoral-7.wav"

FIELDS = [f"TxtCampo({i})" for i in range(6)]
ROWS = [f"LblCampo({i})" for i in range(6)]
BARS = [f"LblConexion({i})" for i in range(3)]

CONFIRM_SAVE = {"title": "Vintoral - Confirmar Datos", "text": "¿Desea realmente guardar la ficha actual?",
                "icon": "exclamation", "buttons": ["yes", "no"]}
CONFIRM_RETIRE = {"title": "Vintoral - Confirmar Ficha", "text": "¿Desea realmente retirar la ficha actual?",
                  "icon": "exclamation", "buttons": ["yes", "no"]}


def ansi(text, width):
    return text.encode("cp1252").ljust(width)[:width]


def stamp(time_of_day, date):
    """A stamp as registers and screen show it: stamp("14:25", "31/12/2026")."""
    return f"{time_of_day}  ({date})"


class Ficha(collections.namedtuple(
        "Ficha", "EnUso MarcaEntrada MarcaSalida NumeroFicha Placa Nombre Apellido Telefono Observacion Categoria "
                 "PorteriaEntrada PorteriaSalida Posicion ValorCobrado InicioTurno UsuarioPuntos")):
    """One record of ACT, HST, NSR or CRD; ValorCobrado in ten-thousandths, texts without their padding."""
    __slots__ = ()

    def encode(self):
        return RECORD.pack(*(value.encode("cp1252").ljust(188) if isinstance(value, str) else value for value in self))

    @classmethod
    def decode(cls, data):
        return cls(*(value.decode("cp1252").rstrip(" ") if isinstance(value, bytes) else value
                     for value in RECORD.unpack(data)))


BLANK = Ficha(0, "", "", "", "", "", "", "", "", "", "", "", 0, 0, 0, 0)


def inside(number, entry, plate="", category="AUTOMOVIL", **more):
    """A ficha that is inside, as a station writes it; `entry` is a stamp."""
    return BLANK._replace(EnUso=-1, MarcaEntrada=entry, MarcaSalida="??", NumeroFicha=f"{number:04}", Placa=plate,
                          Categoria=category, PorteriaEntrada="01", PorteriaSalida="??", Posicion=number)._replace(**more)


def fresh_register(*fichas):
    """The bytes of a new ACT in which these fichas stand in their slots."""
    slots = [BLANK._replace(Posicion=i) for i in range(1, FREE_SLOTS + 1)]
    for ficha in fichas:
        slots[ficha.Posicion - 1] = ficha
    closing = BLANK._replace(MarcaEntrada="1000", PorteriaEntrada="5", Posicion=1000)
    return b"".join(slot.encode() for slot in slots + [closing])


def user(plate, name="", surname="", telephone="", remark="", category="", points=0):
    return USER.pack(*(ansi(text, 20) for text in (plate, name, surname, telephone, remark, category)), points)


def mixed_value(value):
    """A self-describing field: None empty, a number a 16-bit number, a text a text."""
    if value is None:
        return struct.pack("<h", 0)
    if isinstance(value, int):
        return struct.pack("<hh", 2, value)
    data = value.encode("cp1252")
    return struct.pack("<hh", 8, len(data)) + data


def mixed(a, b, mark=0, amount=0, number1=0, number2=0):
    """A 46-byte record; `amount` in ten-thousandths."""
    body = mixed_value(a) + mixed_value(b) + struct.pack("<hqhh", mark, amount, number1, number2)
    assert len(body) <= MIXED_LENGTH
    return body.ljust(MIXED_LENGTH, b"\0")


def read_mixed(data):
    """The six values of a 46-byte record, as mixed() takes them."""
    values, at = [], 0
    for _ in range(2):
        kind, = struct.unpack_from("<h", data, at)
        at += 2
        if kind == 0:
            values.append(None)
        elif kind == 2:
            values.append(struct.unpack_from("<h", data, at)[0])
            at += 2
        elif kind == 8:
            length, = struct.unpack_from("<h", data, at)
            values.append(data[at + 2:at + 2 + length].decode("cp1252"))
            at += 2 + length
        else:
            raise ValueError(f"kind {kind} in {data!r}")
    return tuple(values) + struct.unpack_from("<hqhh", data, at)


def screen_state(screen=mixed(0, 0), marks=mixed(None, None), panic=None):
    """The bytes of Vintoral.DAT; `panic` the fourteen records of the panic contact."""
    return screen + b"".join(panic or [mixed("", "")] * 14) + marks


def lines(*texts):
    """A tariff, extras or prepaid file of these lines."""
    return b"".join(ansi(text, LINE_LENGTH) for text in texts)


class Folder:
    """A station's folder: its files by the names that a station uses."""

    def __init__(self, path):
        self.path = pathlib.Path(path)
        self.shared = self.path / "Multimedia"

    def __truediv__(self, name):
        return self.path / name

    def write(self, name, data):
        file = self.path / name
        file.parent.mkdir(parents=True, exist_ok=True)
        file.write_bytes(data)
        return file

    def slot(self, number):
        return self.record("ACT", number)

    def record(self, register, number):
        with open(self.shared / f"Vintoral.{register}", "rb") as file:
            file.seek((number - 1) * RECORD.size)
            return Ficha.decode(file.read(RECORD.size))

    def history(self):
        """The rows of HST after its blank first record."""
        data = (self.shared / "Vintoral.HST").read_bytes()
        assert len(data) % RECORD.size == 0, f"HST has {len(data)} bytes"
        return [Ficha.decode(data[at:at + RECORD.size]) for at in range(RECORD.size, len(data), RECORD.size)]

    def all_bytes(self):
        """All files but the log of functions, which goes on by itself."""
        return {str(file.relative_to(self.path)): file.read_bytes() for file in self.path.rglob("*")
                if file.is_file() and file.name != "Vintoral.FDR"}


class Station:
    """One vintoral-driver process. Every operation must be answered in time; one that is expected to fail is told so."""

    def __init__(self, stderr, environment=None):
        self.process = subprocess.Popen([driver()], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=stderr,
                                        env={**os.environ, **(environment or {})})
        self.pending = b""
        self.transcript = []
        self.reply = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.end()

    def end(self):
        if self.process.poll() is None:
            self.process.kill()
        self.process.wait()
        for pipe in (self.process.stdin, self.process.stdout):
            try:
                pipe.close()
            except BrokenPipeError:
                pass  # the driver had gone with a line still on its way

    # ---- The protocol ----

    def send_line(self, data):
        self.process.stdin.write(data + b"\n")
        self.process.stdin.flush()

    def read_line(self):
        limit = time.monotonic() + PATIENCE_SECONDS
        while b"\n" not in self.pending:
            ready, _, _ = select.select([self.process.stdout], [], [], max(0.0, limit - time.monotonic()))
            if not ready:
                raise TimeoutError("the driver does not answer")
            more = os.read(self.process.stdout.fileno(), 1 << 16)
            if not more:
                raise EOFError(f"the driver ended with {self.process.wait()} after {self.transcript[-3:]}")
            self.pending += more
        line, self.pending = self.pending.split(b"\n", 1)
        return line

    def raw(self, data):
        """Sends one line as it stands and returns the reply to it."""
        self.transcript.append(data.decode("utf-8", "replace"))
        self.send_line(data)
        self.reply = json.loads(self.read_line().decode("utf-8"))
        return self.reply

    def attempt(self, operation, **fields):
        """An operation whose success is not taken for granted."""
        return self.raw(json.dumps({"op": operation, **fields}).encode("utf-8"))

    def do(self, operation, **fields):
        reply = self.attempt(operation, **fields)
        if not reply["ok"]:
            raise AssertionError(f"{operation} {fields}: {reply.get('error')}")
        return reply

    # ---- The operator's hands ----

    def key(self, code, mask=0):
        return self.do("key", code=code, mask=mask)

    def type(self, text):
        return self.do("type", text=text)

    def enter(self):
        return self.key(ENTER)

    def click(self, control):
        return self.do("click", control=control)

    def focus(self, control):
        return self.do("focus", control=control)

    def set(self, control, text):
        return self.do("set", control=control, text=text)

    def answer(self, button):
        return self.do("answer", button=button)

    def advance(self, milliseconds):
        return self.do("advance", ms=milliseconds)

    def clock(self, now):
        return self.do("clock", now=now)

    # ---- What the operator sees ----

    def get(self, *controls):
        values = self.do("get", controls=list(controls))["values"]
        return values[controls[0]] if len(controls) == 1 else [values[name] for name in controls]

    def caption(self, control):
        return self.get(control)["Caption"]

    def text(self, control):
        return self.get(control)["Text"]

    def shown(self, control):
        return self.get(control)["Visible"]

    def captions(self, *controls):
        return [values["Caption"] for values in self.get(*controls)]

    def texts(self, *controls):
        return [values["Text"] for values in self.get(*controls)]

    def state(self, name=None):
        state = self.do("state")["state"]
        return state if name is None else state[name]

    def focused(self):
        return self.state("focus")

    @property
    def box(self):
        waiting = self.reply["waiting"]
        return waiting.get("box") if waiting else None

    # ---- Longer pieces of a day ----

    def call_up(self, number):
        """Types a number into the idle screen, and Enter."""
        self.focus("TxtCampo(0)")
        self.type(str(number))
        return self.enter()

    def fill(self, number, *texts, category=None):
        """The form of a new ficha, filled in; the category by its name."""
        self.call_up(number)
        for index, text in enumerate(texts, start=1):
            if text:
                self.set(f"TxtCampo({index})", text)
        if category:
            self.do("select", control="CboTarifa(1)", text=category)

    def save(self, number, *texts, category=None):
        self.fill(number, *texts, category=category)
        self.key(INSERT)
        return self.answer("yes")

    def retire(self, number):
        self.call_up(number)
        self.key(DELETE)
        return self.answer("yes")

    def close(self):
        self.do("close")
        return self.answer("yes")


def sounds(reply):
    return [event["file"] for event in reply["events"] if event["event"] == "sound"]


def launches(reply):
    return [event["command"] for event in reply["events"] if event["event"] == "launch"]


def kinds(reply):
    return [event["event"] for event in reply["events"]]


def driver():
    return os.environ["VINTORAL_DRIVER"]


class DrivenDay(unittest.TestCase):
    """Tests that drive stations in folders of their own, which go away with the test."""

    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory(prefix="vintoral-day-")
        self.addCleanup(temporary.cleanup)
        self.root = pathlib.Path(temporary.name).resolve()
        self.folder = Folder(self.root / "P01")

    def process(self, environment=None):
        """A driver that has not started a station yet."""
        errors = self.enterContext(open(self.root / "stderr", "ab"))
        return self.enterContext(Station(errors, environment))

    def start(self, station, folder=None, now="2026-11-20 13:59:57", **options):
        """The start operation; no device but those that `options` name and a camera, and a desktop that is the folder's own.

        The camera gives no frame until the day says so. Without any, a station would go over to an outside program.
        """
        folder = folder or self.folder
        desktop = folder.path.with_name(folder.path.name + "-desktop")
        desktop.mkdir(exist_ok=True)
        return station.do("start", **{"dir": str(folder.path), "now": now, "printers": [], "cameras": [CAMERA],
                                      "desktop": str(desktop), **options})

    def running(self, folder=None, now="2026-11-20 13:59:57", **options):
        """A station that has found its data three seconds after `now`, its welcome read; by default at 14:00:00."""
        station = self.process()
        self.start(station, folder, now, **options)
        if station.box:
            self.assertEqual(station.box["title"], "Vintoral - BIENVENIDO")
            station.answer("ok")
        station.advance(3000)
        return station

    def with_fichas(self, *fichas, users=(), **options):
        """A running station on a register that holds these fichas."""
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*fichas))
        if users:
            self.folder.write("Multimedia/Vintoral.USR", b"".join(users))
        return self.running(**options)

    def with_tickets(self, *fichas):
        """A running station that prints tickets, which barcode mode asks for."""
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-1)))
        return self.with_fichas(*fichas)

    def with_tariff(self, *tariff, fichas=(), **options):
        """A running station with a tariff of its own."""
        self.folder.write("Recursos/Vintoral.EMP", lines(*tariff))
        return self.with_fichas(*fichas, **options)

    def assertBox(self, station, expected):
        self.assertIsNotNone(station.box, "no box is up")
        self.assertEqual({key: station.box[key] for key in expected}, expected)

    def switch_barcodes(self, station):
        """Control, alt and B; the reply in which the switch is over."""
        reply = station.key(66, CONTROL | ALT)
        if station.box:
            self.assertBox(station, {
                "title": "Vintoral - Instalar Fuente", "buttons": ["ok"],
                "text": 'Recuerde instalar la fuente para imprimir códigos de barras presionando  Ctrl + "B"  y verificar '
                        "la configuración de su impresora para aceptar códigos Code39."})
            reply = station.answer("ok")
        return reply

    def assertIdle(self, station):
        """No ficha on the screen, and the number field waits for the next one."""
        self.assertEqual([(values["Text"], values["Locked"], values["Visible"]) for values in station.get(*FIELDS)],
                         [("", False, True)] * 6)
        self.assertEqual([station.shown("PctBoton(5)"), station.shown("PctBoton(6)")], [False, False])
        self.assertEqual(station.captions(*ROWS), [""] * 6)
        self.assertFalse(station.shown("LblValor"))
        self.assertEqual(station.focused(), "TxtCampo(0)")

    def assertOnDisplay(self, station, number):
        self.assertEqual(station.caption("LblCampo(0)"), f"{number:04}")
        self.assertEqual([values["Locked"] for values in station.get(*FIELDS)], [True] * 6)
        self.assertTrue(station.shown("PctBoton(6)"))

    def assertBars(self, station, color):
        self.assertEqual([values["BackColor"] for values in station.get(*BARS)], [color] * 3)


def main():
    """Runs the file's tests; a first argument that names a program is the driver to try."""
    if len(sys.argv) > 1 and os.path.isfile(sys.argv[1]):
        os.environ["VINTORAL_DRIVER"] = os.path.abspath(sys.argv.pop(1))
    if "VINTORAL_DRIVER" not in os.environ:
        sys.exit("Name the driver: as the first argument, or in VINTORAL_DRIVER.")
    unittest.main()
