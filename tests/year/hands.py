"""The operator's hands at a vehicle: in, refused, out, back with a pass. Each is one batch and checks what the screen shows."""
import tariff
from checks import expect
from gate import COPY_MILLISECONDS, box_of, key, op, printed, texts_of
from station import CONTROL, DELETE, ENTER, ESC, HOME, INSERT, SHIFT

QUESTION_SAVE = "¿Desea realmente guardar la ficha actual?"
QUESTION_RETIRE = "¿Desea realmente retirar la ficha actual?"
TEXT_FIELDS = [f"TxtCampo({i})" for i in range(2, 6)]
ROWS = ["LblCampo(0)", "LblCampo(1)"]


def scan(code):
    return op("type", text=code)


def type_number(ficha):
    """Where the keyboard is, which all work before must have left in the box of numbers."""
    return [op("type", text=str(ficha.number)), key(ENTER)]


def new_form(gate, ficha):
    """The number, by the generator where the gate gives codes, and the plate."""
    number = [key(HOME)] if gate.codes else type_number(ficha)
    return number + [op("type", text=ficha.plate.lower()), key(ENTER)]


def fill(ficha, texts, category, validity):
    """What differs from what the form offers."""
    steps = [op("set", control=field, text=text)
             for field, text, offered in zip(TEXT_FIELDS, ficha.texts, texts) if text != offered]
    if ficha.category != category:
        steps.append(op("select", control="CboTarifa(1)", text=ficha.category))
    if validity:
        steps += [op("select", control="LstModEntrada", index=validity[0]),
                  op("set", control="TxtMaxEntrada", text=str(validity[1]))]
    return steps


def enter(gate, ficha, known=None, validity=None, answer="yes"):
    """A new ficha up to the answer; its code, "" at a gate of numbers.

    `known`: the user that the plate has already. `validity`: mode and number of a pass.
    """
    texts, category = (known.texts, known.category) if known else (("",) * 4, tariff.CATEGORIES[0])
    form = new_form(gate, ficha)
    steps = [*form, op("get", controls=["TxtBarCode", "TxtCampo(0)", "CboTarifa(1)", *TEXT_FIELDS]),
             *fill(ficha, texts, category, validity), key(INSERT), op("answer", button=answer)]
    replies = gate.batch(*steps, *([key(ESC)] if answer == "no" else []))
    code, *offered = texts_of(replies[len(form)])
    expect(offered, [str(ficha.number), category, *texts], f"the form of {ficha}")
    expect(box_of(replies[len(steps) - 2]), QUESTION_SAVE, f"the question about {ficha}")
    expect(len(printed(replies)), int(answer == "yes"), "tickets")
    return code


def refuse(gate, ficha, number):
    """A plate that is inside already under this number."""
    replies = gate.batch(*new_form(gate, ficha), op("answer", button="ok"))
    expect(box_of(replies[-2]), f"La información digitada ya se encuentra en uso por la ficha {number:04}.", "a refusal")


def come_back(gate, ficha, shown):
    """A pass that enters by itself; `shown` is what is left of it."""
    fields = ["TxtCampo(0)", "TxtCampo(1)", "TxtMaxEntrada", "CboTarifa(1)", *TEXT_FIELDS]
    replies = gate.batch(scan(ficha.code), op("advance", ms=1000), op("get", controls=fields), op("answer", button="yes"))
    expect(texts_of(replies[2]), [str(ficha.number), ficha.plate, str(shown), ficha.category, *ficha.texts],
           "a pass comes back")
    expect(box_of(replies[1]), QUESTION_SAVE, "a pass comes back")
    expect(printed(replies), [], "tickets of a pass that comes back")


def refuse_pass(gate, code):
    """One that is used up, or of other days: its code stands there for a second."""
    replies = gate.batch(scan(code), op("get", controls=["TxtBarCodeOK", "TxtBarCode"]), op("advance", ms=1000),
                         op("get", controls=["TxtBarCode"]))
    values = replies[1]["values"]
    expect((values["TxtBarCodeOK"]["Visible"], values["TxtBarCode"]["Text"], texts_of(replies[3])), (False, code, [""]),
           f"the refused pass {code}")


def settle(ficha, invoice, given, clear_points):
    """Between the ficha on display and its leaving: points cleared, no invoice, cash typed where the change is counted."""
    steps = []
    if clear_points:
        steps += [key(ord("R"), CONTROL | SHIFT), op("answer", button="yes")]
    if ficha.priced and not invoice:
        steps.append(op("check", control="ChkFactura", value=0))
    if given is not None:
        steps += [op("advance", ms=500), op("set", control="TxtEfectivo", text=given), op("advance", ms=500)]
    return steps


def leave(gate, ficha, answer="yes", invoice=False, given=None, clear_points=False):
    """A ficha that is inside, up to the answer; the documents that were printed, and the change that was shown."""
    before = ([scan(ficha.code)] if gate.codes else type_number(ficha)) + settle(ficha, invoice, given, clear_points)
    steps = [*before, op("get", controls=["LblValor", "LblCambio", "LblPuntos(1)", "ChkFactura", *ROWS]),
             key(DELETE if given is None else ENTER), op("answer", button=answer)]
    waits = [op("advance", ms=COPY_MILLISECONDS)] * (gate.copies(invoice and answer == "yes") - 1)
    replies = gate.batch(*steps, *waits)
    values = replies[len(before)]["values"]
    check_display(ficha, values, invoice)
    expect(box_of(replies[len(before) + 1]), QUESTION_RETIRE, f"the question about {ficha}")
    expect(replies[-1]["waiting"], None, f"after {ficha}")
    return printed(replies), values["LblCambio"]["Caption"]


def check_display(ficha, values, invoice):
    value = values["LblValor"]
    expect(value["Caption"] if value["Visible"] else None, f"$ {ficha.value:.2f}" if ficha.priced else None,
           f"the value of {ficha}")
    expect(values["LblPuntos(1)"]["Caption"], str(ficha.points), f"the points of {ficha}")
    expect([values[row]["Caption"] for row in ROWS], [f"{ficha.number:04}", ficha.plate], "number and plate on display")
    expect(ficha.priced and bool(values["ChkFactura"]["Value"]), invoice, f"the box of the invoice of {ficha}")
