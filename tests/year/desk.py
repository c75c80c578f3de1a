"""The operator's hands at the desk: articles sold, the menu, the keys of reports."""
import tariff
from checks import expect
from gate import COPY_MILLISECONDS, key, op, printed
from station import CONTROL, ESC, F1

F4, F5, F7, F8 = 115, 116, 118, 119
HISTORY, SHIFT, SUMS, DETAIL, NEWCOMERS, POINTS = range(6)  # buttons of the menu
BROWSER, EDITOR = "Explorer.exe Recursos\\Vintoral.HTML", "Notepad.exe Recursos\\Vintoral.RGT"


def sell(gate, basket, invoice):
    """`basket` in the order of the list; the documents that were printed."""
    names = [name for name, _ in tariff.ARTICLES[gate.number]]
    steps = [key(F7)]
    for article, quantity in basket:
        row = names.index(article)
        steps += [op("tick", control="Form4.LstArticulo", index=row, value=1),
                  op("set", control=f"Form4.CboCantidad({row})", text=str(quantity))]
    if invoice:
        steps.append(op("check", control="Form4.ChkFactura", value=1))
    steps.append(op("click", control="Form4.CmdRegistrar"))
    replies = gate.batch(*steps, *[op("advance", ms=COPY_MILLISECONDS)] * (gate.copies(invoice) - 1))
    expect(replies[-1]["waiting"], None, "behind a sale")
    return printed(replies)


def reprice(gate, price_list):
    """The list of articles, typed anew."""
    text = "\r\n".join(f"{name.lower()}={price}" for name, price in price_list)
    replies = gate.batch(key(ord("T"), CONTROL), op("click", control="Form6.LblFuncion(1)"),
                         op("set", control="Form6.TxtTarifas(1)", text=text), op("click", control="Form6.CmdFuncion(1)"))
    expect(replies[-1]["waiting"], None, "behind the tariff dialog")


def answers_to(*buttons):
    return [op("answer", button=button) for button in buttons]


def begin_shift(gate):
    """The menu closes by itself."""
    replies = gate.batch(key(F8), op("click", control=f"Form5.CmdMenu({SHIFT})"))
    expect(replies[-1]["waiting"], None, "behind the beginning of a shift")


def page_by_menu(gate, button, *answers):
    """Page and documents of a button's report. The page goes with the menu, so it is read before."""
    replies = gate.batch(key(F8), op("click", control=f"Form5.CmdMenu({button})"), *answers_to(*answers))
    gate.launched(replies, BROWSER)
    page = gate.page()
    gate.batch(key(ESC))
    return page, printed(replies)


def text_by_menu(gate, button):
    gate.launched(gate.batch(key(F8), op("click", control=f"Form5.CmdMenu({button})")), EDITOR)
    text = gate.text_report()
    gate.batch(key(ESC))
    return text


def press_row(gate, text, *answers):
    """A row of the menu by what it reads."""
    _, reply = gate.batch(key(F8), op("get", controls=["Form5.LstMenu"]))
    row = [line.strip() for line in reply["values"]["Form5.LstMenu"]["List"]].index(text)
    gate.batch(op("select", control="Form5.LstMenu", index=row), *answers_to(*answers), key(ESC))


def state_report(gate):
    """Page and documents of those inside, whichever gate they came in at: a monitor on and off reads them anew."""
    gate.batch(key(F1), key(F1))
    replies = gate.batch(key(F4), *answers_to("yes", "no"))
    gate.launched(replies, BROWSER)
    return gate.page(), printed(replies)


def search(gate, first, last):
    """The page of all that left between two days."""
    replies = gate.batch(key(F5), op("set", control="Form2.TxtCampo(1)", text=first.strftime("%d/%m/%Y")),
                         op("set", control="Form2.TxtCampo(3)", text=last.strftime("%d/%m/%Y")),
                         op("click", control="Form2.PctBoton(0)"))
    gate.launched(replies, BROWSER)
    page = gate.page()
    gate.batch(key(F5))
    return page
