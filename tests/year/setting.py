"""The two gates of a driven year, started on one folder with their tariffs, articles and formats."""
import subprocess

import expected_sales as sales
from gate import Gate, op
from slips import invoice, ticket
from station import CAMERA, lines
from tariff import ARTICLES, TARIFF

EDITORS = (("PctBoton(10)", "Form3.PctBoton"), ("PctBoton(14)", "Form8.PctBoton"))  # printing goes on by saving its format
PRINTER = "Tira80"


def last_invoice(gate):
    """The number that counts as used when a gate begins: its editor shows the next one of the file, and saves what it shows."""
    return 1000 * int(gate) + 1


def write_settings(folder, gate, shared):
    recursos = folder / "Recursos"
    recursos.mkdir(parents=True)
    (recursos / "Vintoral.EMP").write_bytes(lines(*TARIFF))
    (recursos / "Vintoral.XTR").write_bytes(lines(*(f"{name} = {price}" for name, price in ARTICLES[gate])))
    (recursos / "Vintoral.TQE").write_bytes(ticket(printer=PRINTER, header=sales.HEADER, footer=sales.FOOTER))
    (recursos / "Vintoral.FTA").write_bytes(invoice(
        printer=PRINTER, header=sales.HEADER, prefix=f"{sales.PREFIX}\x1b", number=last_invoice(gate) - 1, tax=float(sales.STAY_TAX),
        extras=float(sales.SALE_TAX), copy=-(gate == "02"), points=-(gate == "01"), footer=sales.FOOTER))
    if shared:
        (folder / "Objetos").mkdir()
        (folder / "Objetos/Servidor.INI").write_bytes(f"{shared}\r\n".encode())


def started(folder, number, seed, now):
    gate = Gate(number, folder, subprocess.DEVNULL)
    desktop = folder.with_name(folder.name + "-desktop")
    desktop.mkdir()
    reply = gate.do("start", dir=str(folder), now=now.strftime("%Y-%m-%d %H:%M:%S"), printers=[PRINTER], printer=PRINTER,
                    cameras=[CAMERA], desktop=str(desktop), seed=seed)
    if reply["waiting"]:
        gate.answer("ok")  # the welcome of a first start
    gate.batch(op("advance", ms=3000))
    gate.batch(*(op("click", control=control) for editor in EDITORS for control in editor))
    return gate


def set_up(root, seed, now):
    """Both gates by their numbers, running and idle."""
    one, two = root / "P01", root / "P02"
    write_settings(one, "01", None)
    write_settings(two, "02", one / "Multimedia")
    return {"01": started(one, "01", 2 * seed, now), "02": started(two, "02", 2 * seed + 1, now)}
