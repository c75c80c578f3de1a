"""The two gates of a driven year, started on one folder with their tariffs, articles and formats."""
import expected_sales as sales
from checks import expect
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
        printer=PRINTER, header=sales.HEADER, prefix=f"{sales.PREFIX}\x1b", number=last_invoice(gate) - 1,
        tax=float(sales.STAY_TAX), extras=float(sales.SALE_TAX), copy=-(gate == "02"), points=-(gate == "01"),
        footer=sales.FOOTER))
    if shared:
        (folder / "Objetos").mkdir()
        (folder / "Objetos/Servidor.INI").write_bytes(f"{shared}\r\n".encode())


def start(gate, seed, now):
    desktop = gate.folder.path.with_name(gate.folder.path.name + "-desktop")
    desktop.mkdir(exist_ok=True)
    reply = gate.do("start", dir=str(gate.folder.path), now=now.strftime("%Y-%m-%d %H:%M:%S"), printers=[PRINTER],
                    printer=PRINTER, cameras=[CAMERA], desktop=str(desktop), seed=seed)
    if reply["waiting"]:
        gate.answer("ok")  # the welcome of a first start
    gate.batch(op("advance", ms=3000))


def restart(gate, seed):
    """Closed and started again at once; what prints goes on printing."""
    gate.close()
    gate.end()
    gate.launch()
    start(gate, seed, gate.now)
    tickets, invoices, codes = gate.get("PctBoton(10)", "PctBoton(14)", "TxtBarCode")
    expect((tickets["BorderStyle"], invoices["BorderStyle"], codes["Visible"]), (1, 1, gate.codes), "a gate that starts again")


def set_up(root, seed, now):
    """Both gates by their numbers, running and idle."""
    folders = {"01": root / "P01", "02": root / "P02"}
    write_settings(folders["01"], "01", None)
    write_settings(folders["02"], "02", folders["01"] / "Multimedia")
    gates = {number: Gate(number, folder) for number, folder in folders.items()}
    for number, gate in gates.items():
        start(gate, 1000 * seed + int(number), now)
        gate.batch(*(op("click", control=control) for editor in EDITORS for control in editor))
    return gates
