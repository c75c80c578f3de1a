"""Pages and texts of reports, read by a parser that forgives nothing, and registers with what reports tell of."""
import re

from slips import ticket
from station import BLANK, DrivenDay, inside, mixed, screen_state, stamp

F4, F5, F8 = 115, 116, 119
PAGE, TEXT = "Recursos/Vintoral.HTML", "Recursos/Vintoral.RGT"
SHOW_PAGE, SHOW_TEXT = "Explorer.exe Recursos\\Vintoral.HTML", "Notepad.exe Recursos\\Vintoral.RGT"
PRINTER = "Tira80"
SEARCH_FOUND = "Sonidos\\Vintoral-6.wav"
SEARCH_ON, SEARCH_OFF = "ABRiL\\ABRiL-13.wav", "ABRiL\\ABRiL-14.wav"
SHIFT_BEGUN, SHIFT_ENDED = "ABRiL\\ABRiL-11.wav", "ABRiL\\ABRiL-12.wav"

YESTERDAY, TODAY = "19/11/2026", "20/11/2026"
RULE, LINE = "-" * 31, "=" * 31

NOTHING_FOUND = {"title": "Vintoral - Búsqueda de Registros", "text": "No se encontró ninguna coincidencia.",
                 "icon": "information", "buttons": ["ok"]}

TAG = re.compile(r"<(/?)([A-Za-z]+)((?:\s+[A-Za-z:-]+=(?:\"[^\"<>]*\"|'[^'<>]*'|[^\s\"'<>]+)|\s+x:str)*)\s*>")
COMMENT = re.compile(r"<!--.*?-->|<!\[if [^\]<>]*\]>|<!\[endif\]>", re.DOTALL)
ENTITY = re.compile(r"&(amp|lt|gt|quot|nbsp);")
MEANS = {"amp": "&", "lt": "<", "gt": ">", "quot": '"', "nbsp": " "}
VOID = {"meta", "link", "col", "img", "br"}


def plain(text):
    """What a browser shows of a text; anything that only a forgiving one would show is refused."""
    if "<" in text or ">" in text or ENTITY.sub("", text).count("&"):
        raise ValueError(f"not text: {text[:80]!r}")
    return ENTITY.sub(lambda found: MEANS[found[1]], text)


class Page:
    """A page as a strict reader has it: `title`, `heads`, `rows` of cells (a link by its address), `text` of a sheet.

    Bytes are characters one to one, so that damaged texts can be compared with what stands in the registers.
    """

    def __init__(self, data, encoding="cp1252"):
        self.open, self.title, self.rows, self.text, self.links, self.pictures = [], "", [], "", [], []
        text, at = data.decode(encoding), 0
        while at < len(text):
            at = self._piece(text, at)
        if self.open:
            raise ValueError(f"never closed: {self.open}")
        self.heads = self.rows.pop(0) if self.rows else []
        self.hidden = self.rows.pop() if self.rows else []

    def _piece(self, text, at):
        if text[at] != "<":
            end = text.find("<", at)
            end = len(text) if end < 0 else end
            self._text(plain(text[at:end]))
            return end
        found = COMMENT.match(text, at)
        if found:
            return found.end()
        found = TAG.match(text, at)
        if not found:
            raise ValueError(f"no tag: {text[at:at + 80]!r}")
        self._tag(found[1] == "/", found[2].lower(), found[3])
        return found.end()

    def _tag(self, closes, name, attributes):
        if closes:
            if not self.open or self.open.pop() != name:
                raise ValueError(f"</{name}> closes nothing")
            return
        if name not in VOID:
            self.open.append(name)
        if name == "tr":
            self.rows.append([])
        elif name == "td":
            self.rows[-1].append("")
        elif name == "br":
            self.text += "\n"
        elif name == "a":
            self.links.append(plain(re.search('href="([^"]*)"', attributes)[1]))
        elif name == "img":
            self.pictures.append(plain(re.search('src="([^"]*)"', attributes, re.IGNORECASE)[1]))

    def _text(self, text):
        if "title" in self.open:
            self.title += text
        elif "td" in self.open:
            self.rows[-1][-1] += text
        elif "style" not in self.open and "table" not in self.open:
            self.text += text.replace("\r\n", "")

    def fichas(self):
        """The rows that have all their cells: those of fichas."""
        return [row for row in self.rows if all(row[:6])]

    def plates(self):
        return [row[9] for row in self.fichas()]

    def subtotals(self):
        return [row[8] for row in self.rows if row[8] and not any(row[:8])]

    def total(self):
        """The text of the count, and the total."""
        last = self.rows[-1]
        assert last[5] == "TOTAL", last
        return last[0], last[8]


def gone(row, number, left, plate, value=0, category="AUTOMOVIL", **more):
    """A row of the history; `left` a time and a date, after half an hour, `value` in whole units."""
    time, date = left
    entry = stamp(f"{int(time[:2]) - 1:02}{time[2:]}", date)
    return inside(number, entry, plate, category)._replace(MarcaSalida=stamp(time, date), PorteriaSalida="01", Posicion=row,
                                                           ValorCobrado=value * 10_000)._replace(**more)


def history(*rows):
    """A history of these rows behind its blank first record, each with its own number of row."""
    return b"".join(row.encode() for row in (BLANK, *(row._replace(Posicion=n) for n, row in enumerate(rows, start=2))))


class ReportDay(DrivenDay):
    """Days at a gate with a history; where `tickets` are on, reports are asked about."""

    HISTORY = "Multimedia/Vintoral.HST"

    def day(self, *rows, fichas=(), tickets=False, **start):
        self.folder.write(self.HISTORY, history(*rows))
        self.folder.write("Recursos/Vintoral.TQE", ticket(printer=PRINTER))
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-int(tickets))))
        return self.with_fichas(*fichas, **{"printers": [PRINTER], "printer": PRINTER, **start})

    def page(self):
        return Page((self.folder / PAGE).read_bytes())

    def report_text(self):
        return (self.folder / TEXT).read_bytes().decode("cp1252").split("\r\n")

    # ---- The search ----

    def open_search(self, station):
        reply = station.key(F5)
        self.assertIn("Form2", station.state("forms"))
        return reply

    def criteria(self, station):
        return station.texts(*[f"Form2.TxtCampo({box})" for box in range(10)], "Form2.CboTarifa")

    def search(self, station, active=False, **boxes):
        """From the open search: its boxes by number (b5="AN"), then Enter in the last one."""
        station.focus("Form2.TxtCampo(4)")
        for name, text in boxes.items():
            station.set(f"Form2.TxtCampo({name[1:]})", text)
        if active:
            station.do("check", control="Form2.ChkFichas", value=1)
        station.focus("Form2.TxtCampo(9)")
        return station.enter()

    def found(self, station):
        """The plates in the view."""
        return [record["Placa"].strip() for record in station.do("view")["view"]]

    # ---- The menu ----

    def menu(self, station, button=None):
        reply = station.key(F8)
        self.assertEqual(reply["waiting"], {"form": "Form5"})
        return reply if button is None else station.click(f"Form5.CmdMenu({button})")

    def begin_shift(self, station):
        reply = self.menu(station, 1)
        self.assertIsNone(reply["waiting"])
        return reply
