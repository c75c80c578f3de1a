"""One gate of a driven year and its operator's hands: each piece of work is one batch of operations over the pipe."""
import datetime
import json

from station import ALT, CONTROL, DELETE, ENTER, ESC, F1, HOME, INSERT, SHIFT, Folder, Station
import tariff

F4, F5, F7, F8 = 115, 116, 118, 119
QUESTION_SAVE = "¿Desea realmente guardar la ficha actual?"
QUESTION_RETIRE = "¿Desea realmente retirar la ficha actual?"
COPY_MILLISECONDS = 5000


def op(name, **fields):
    return {"op": name, **fields}


def key(code, mask=0):
    return op("key", code=code, mask=mask)


def expect(found, expected, what):
    if found != expected:
        raise AssertionError(f"{what}: the station has {found!r}, the account {expected!r}")


def moment_of(reply):
    return datetime.datetime.fromisoformat(reply["now"])


def box_of(reply):
    return ((reply["waiting"] or {}).get("box") or {}).get("text")


def texts_printed(replies):
    """The lines of each document that was printed."""
    return [[line for step in event["ops"] if step["op"] == "text" for line in step["text"].replace("\r\n", "\n").split("\n")]
            for reply in replies for event in reply["events"] if event["event"] == "print"]


class Gate(Station):
    """`patience`: how many seconds of a pause pass tick by tick; what is left of it is a jump of the clock. None: all of it."""

    def __init__(self, number, folder, stderr, patience=None):
        super().__init__(stderr)
        self.number = number
        self.folder = Folder(folder)
        self.patience = patience
        self.codes = False  # does it read codes, or take numbers
        self.now = None
        self.passing = []  # operations of a pause, sent with the next work

    def batch(self, *operations):
        """All at once, behind the pause before them; the replies to them, each of them ok."""
        sent = [*self.passing, *operations]
        self.process.stdin.write(b"".join(json.dumps(one).encode() + b"\n" for one in sent))
        self.process.stdin.flush()
        self.transcript = sent[-8:]
        replies = [json.loads(self.read_line()) for _ in sent]
        for one, reply in zip(sent, replies):
            if not reply["ok"]:
                raise AssertionError(f"P{self.number} {one}: {reply['error']}")
        if self.passing:
            expect(moment_of(replies[len(self.passing) - 1]), self.now, f"the clock of P{self.number}")
        self.passing = []
        self.now = moment_of(replies[-1])
        return replies[len(sent) - len(operations):]

    def until(self, moment):
        """Time passes up to the moment; nothing happens where it has come already."""
        pause = int((moment - self.now).total_seconds() * 1000)
        if pause <= 0:
            return
        ticks = pause if self.patience is None else min(pause, self.patience * 1000)
        self.passing.append(op("advance", ms=ticks))
        if ticks < pause:
            self.passing.append(op("clock", now=moment.strftime("%Y-%m-%d %H:%M:%S")))
        self.now = moment

    def launched(self, replies, command):
        told = [event["command"] for reply in replies for event in reply["events"] if event["event"] == "launch"]
        expect(told, [command], f"P{self.number} opens")

    # ---- A vehicle ----

    def read_code(self, code):
        return [op("type", text=code)]

    def call_up(self, ficha):
        if self.codes:
            return self.read_code(ficha.code)
        return [op("focus", control="TxtCampo(0)"), op("type", text=str(ficha.number)), key(ENTER)]

    def new_form(self, ficha):
        """The number, by the generator where the gate gives codes, and the plate."""
        if self.codes:
            return [key(HOME), op("type", text=ficha.plate.lower()), key(ENTER)]
        return self.call_up(ficha) + [op("type", text=ficha.plate.lower()), key(ENTER)]

    def enter(self, ficha, offered, validity=None, answer="yes"):
        """A new ficha up to its confirmation; its code, "" at a gate of numbers.

        `offered`: texts and category that the form brings for a known plate, None for an unknown one.
        `validity`: mode and number of a pass.
        """
        names = ["TxtCampo(0)", "TxtBarCode", "CboTarifa(1)"] + [f"TxtCampo({i})" for i in range(2, 6)]
        steps = self.new_form(ficha) + [op("get", controls=names)]
        seen = len(steps) - 1
        texts, category = offered or (("",) * 4, tariff.CATEGORIES[0])
        steps += [op("set", control=f"TxtCampo({i})", text=text)
                  for i, text in enumerate(ficha.texts, start=2) if text != texts[i - 2]]
        if ficha.category != category:
            steps.append(op("select", control="CboTarifa(1)", text=ficha.category))
        if validity:
            steps += [op("select", control="LstModEntrada", index=validity[0]),
                      op("set", control="TxtMaxEntrada", text=str(validity[1]))]
        steps += [key(INSERT), op("answer", button=answer)] + ([key(ESC)] if answer == "no" else [])
        replies = self.batch(*steps)
        values = [value["Text"] for value in replies[seen]["values"].values()]
        expect((values[0], values[2:]), (str(ficha.number), [category, *texts]), f"the form of {ficha}")
        expect([box_of(reply) for reply in replies].count(QUESTION_SAVE), 1, f"questions about {ficha}")
        expect(len(texts_printed(replies)), int(answer == "yes"), "tickets")
        return values[1]

    def refuse_plate(self, ficha, number_of_plate):
        """A plate that is inside already."""
        replies = self.batch(*self.new_form(ficha), op("answer", button="ok"))
        expect(box_of(replies[-2]), f"La información digitada ya se encuentra en uso por la ficha {number_of_plate:04}.", "a refusal")

    def come_back(self, ficha, shown):
        """A pass that enters by itself; `shown` is its validity, None for one that is refused."""
        if shown is None:
            replies = self.batch(*self.read_code(ficha.code), op("get", controls=["TxtBarCodeOK"]), op("advance", ms=1000),
                                 op("get", controls=["TxtBarCode"]))
            expect((replies[-3]["values"]["TxtBarCodeOK"]["Visible"], replies[-1]["values"]["TxtBarCode"]["Text"]), (False, ""),
                   f"the refused pass {ficha.code}")
            return
        names = ["TxtCampo(0)", "TxtCampo(1)", "TxtMaxEntrada", "CboTarifa(1)", *(f"TxtCampo({i})" for i in range(2, 6))]
        replies = self.batch(*self.read_code(ficha.code), op("advance", ms=1000), op("get", controls=names),
                             op("answer", button="yes"))
        expect([value["Text"] for value in replies[2]["values"].values()],
               [str(ficha.number), ficha.plate, str(shown), ficha.category, *ficha.texts], "a pass comes back")
        expect(box_of(replies[1]), QUESTION_SAVE, "a pass comes back")
        expect(texts_printed(replies), [], "tickets of a pass that comes back")

    def cash(self, given):
        """Typed where the change is counted, and read there."""
        return [op("advance", ms=500), op("set", control="TxtEfectivo", text=given), op("advance", ms=500)]

    def leave(self, ficha, answer="yes", invoice=False, given=None, clear_points=False, copies=1):
        """A ficha that is inside, up to the answer; the lines of what was printed, and what the change was."""
        steps = self.call_up(ficha)
        if clear_points:
            steps += [key(ord("R"), CONTROL | SHIFT), op("answer", button="yes")]
        if ficha.priced and not invoice:
            steps.append(op("check", control="ChkFactura", value=0))
        if given is not None:
            steps += self.cash(given)
        names = ["LblValor", "LblCambio", "LblPuntos(1)", *(f"LblCampo({i})" for i in range(6)), "ChkFactura"]
        steps += [op("get", controls=names), key(DELETE if given is None else ENTER), op("answer", button=answer)]
        seen = len(steps) - 3
        steps += [op("advance", ms=COPY_MILLISECONDS)] * (copies - 1)
        replies = self.batch(*steps)
        self.check_display(ficha, replies[seen]["values"], invoice)
        expect(box_of(replies[seen + 1]), QUESTION_RETIRE, f"the question about {ficha}")
        expect(replies[-1]["waiting"], None, f"{ficha} has left")
        return texts_printed(replies), replies[seen]["values"]["LblCambio"]["Caption"]

    def check_display(self, ficha, values, invoice):
        value = values["LblValor"]
        shown = value["Caption"] if value["Visible"] else None
        expect(shown, f"$ {ficha.value:.2f}" if ficha.priced else None, f"the value of {ficha}")
        expect(values["LblPuntos(1)"]["Caption"], str(ficha.points), f"the points of {ficha}")
        expect([values[f"LblCampo({i})"]["Caption"] for i in range(6)], [f"{ficha.number:04}", ficha.plate, *ficha.texts],
               "the rows on display")
        expect(bool(values["ChkFactura"]["Value"]) and ficha.priced, invoice, f"the box of the invoice of {ficha}")

    # ---- Articles ----

    def sell(self, sold, invoice, copies=1):
        """`sold` in the order of the list; the lines of what was printed."""
        names = [name for name, _ in tariff.ARTICLES[self.number]]
        steps = [key(F7)]
        for article, quantity in sold:
            row = names.index(article)
            steps += [op("tick", control="Form4.LstArticulo", index=row, value=1),
                      op("set", control=f"Form4.CboCantidad({row})", text=str(quantity))]
        if invoice:
            steps.append(op("check", control="Form4.ChkFactura", value=1))
        steps.append(op("click", control="Form4.CmdRegistrar"))
        steps += [op("advance", ms=COPY_MILLISECONDS)] * (copies - 1)
        replies = self.batch(*steps)
        expect(replies[-1]["waiting"], None, "the sale is over")
        return texts_printed(replies)

    # ---- Switches and the menu ----

    def switch_codes(self):
        """Codes instead of numbers, or back."""
        reply, = self.batch(key(ord("B"), CONTROL | ALT))
        if box_of(reply):
            self.batch(op("answer", button="ok"))
        self.codes = not self.codes

    def menu(self, button, answers=()):
        """A button of the menu and the answers to its questions, the menu left open; the replies."""
        steps = [key(F8), op("click", control=f"Form5.CmdMenu({button})")]
        return self.batch(*steps, *(op("answer", button=answer) for answer in answers))

    def menu_row(self, text, answers):
        found, = self.batch(key(F8), op("get", controls=["Form5.LstMenu"]))[1:]
        row = [line.strip() for line in found["values"]["Form5.LstMenu"]["List"]].index(text)
        self.batch(op("select", control="Form5.LstMenu", index=row), *(op("answer", button=answer) for answer in answers), key(ESC))

    def close_menu(self):
        self.batch(key(ESC))

    def page(self):
        return (self.folder / "Recursos/Vintoral.HTML").read_bytes()

    def slip_file(self):
        return (self.folder / "Recursos/Vintoral.RGT").read_bytes().decode("cp1252")

    def refresh(self):
        """Those who are inside now, whichever gate they came in at: a monitor on and off."""
        self.batch(key(F1), key(F1))

    def state_report(self):
        """Page and slip of those inside."""
        replies = self.batch(key(F4), op("answer", button="yes"), op("answer", button="no"))
        self.launched(replies, "Explorer.exe Recursos\\Vintoral.HTML")
        return self.page(), texts_printed(replies)

    def search(self, first, last):
        """The page of all that left between two days, the form gone afterwards."""
        replies = self.batch(key(F5), op("set", control="Form2.TxtCampo(1)", text=first.strftime("%d/%m/%Y")),
                             op("set", control="Form2.TxtCampo(3)", text=last.strftime("%d/%m/%Y")),
                             op("click", control="Form2.PctBoton(0)"))
        self.launched(replies, "Explorer.exe Recursos\\Vintoral.HTML")
        page = self.page()
        self.batch(key(F5))
        return page
