"""What the two reports of articles sold and the log of invoices must show, written down from the account."""
import itertools
from decimal import ROUND_HALF_EVEN, Decimal

import tariff
from expected_fichas import DOUBLE_RULE, LABELS, RULE, money, stamp, stay_text, total_line

FOOT_RULE = "----------- vintoral.example --"
HEADER, FOOTER = "PARQUEADERO EL ROBLE", "GRACIAS"
PREFIX = "No.FACTURA"
STAY_TAX, SALE_TAX = Decimal(19), Decimal(8)  # in percent


def indented(lines):
    return [" " + line for line in lines]


def head(till, title, columns, now):
    """`title`: out of a shift."""
    if till.shift:
        told = [f"Vintoral   TURNO DE TRABAJO P{till.gate}", f"INICIO -->  {stamp(till.shift)}", f" FINAL -->  {stamp(now)}"]
    else:
        told = [f"{title}{till.gate}", f"HORA/FECHA  {stamp(now)}"]
    return told + [RULE, columns, RULE]


def quantity_of(sales, article):
    return sum(sale.quantity for sale in sales if sale.article == article)


def value_of(sales):
    return sum((sale.value for sale in sales), Decimal(0))


def days_of(sales):
    return [(day, list(lines)) for day, lines in itertools.groupby(sales, lambda sale: sale.moment.strftime("%d/%m/%Y"))]


def sums(till, sales, now):
    """The lines that are not empty of the sums by day."""
    lines = head(till, "Vintoral             EXTRAS P", "DESCRIPCION   CANTIDAD    VALOR", now)
    for day, sold in days_of(sales):
        lines.append(f"({day})")
        for name, price in till.prices.items():
            quantity = quantity_of(sold, name)
            lines.append(f"{name:15} {quantity:6}{money(tariff.cents(quantity * price)):>9}")
        lines += [DOUBLE_RULE, total_line(value_of(sold)), RULE]
    return indented(lines)


def detail(till, sales, now):
    """The lines that are not empty of the list of sales, and of its count by article."""
    lines = head(till, "Vintoral     DETALLE EXTRAS P", "HORA  DESCRIPCION CANT    VALOR", now)
    for day, sold in days_of(sales):
        lines.append(f"({day})")
        lines += [f"{sale.moment:%H:%M} {sale.article[:11]:11}{sale.quantity:5}{money(sale.value):>9}" for sale in sold]
    lines += [DOUBLE_RULE, total_line(value_of(sales)), RULE, RULE, "      DESC    CONTADOR    VALOR", RULE]
    for name, price in till.prices.items():
        quantity = quantity_of(sales, name)
        if quantity:
            lines.append(f"{name:15} {quantity:6}{money(tariff.cents(quantity * price)):>9}")
    return indented(lines + [DOUBLE_RULE, total_line(value_of(sales)), RULE])


# ---- Invoices ----

def tax_block(value, percent):
    base = tariff.cents((value / (1 + percent / 100)).quantize(Decimal("0.0001"), ROUND_HALF_EVEN))
    tax = money(value - base)
    return [DOUBLE_RULE, f"     BASE {money(base)}", f" IMPUESTO {tax:>{len(money(base))}} ({money(percent)}%)"]


def stay_detail(ficha, with_points):
    rows = zip(LABELS, (ficha.plate, *ficha.texts))
    lines = [f"{label[:9]:>9} : {text[:19]}" for label, text in rows] + [RULE]
    lines += [f"  ENTRADA : {stamp(ficha.entry)}", f"   SALIDA : {stamp(ficha.exit)}", f"CATEGORIA : {ficha.category}"]
    return lines + [f"  *PUNTOS : {ficha.points}"] * with_points + [f"   TIEMPO : {stay_text(ficha.stay)}"]


def sale_detail(sold):
    rows = [f"{sale.article:15} {sale.quantity:3}{money(sale.value):>12}" for sale in sold]
    return ["DESCRIPCION     CANT      VALOR", RULE, *rows]


def invoice_lines(gate, number, now, value, detail_lines, percent):
    """Its lines up to the total, as the log and the paper have them; FOOT_RULE and footer behind it."""
    room = 26 - len(PREFIX) - len(str(number))
    top = [HEADER, f"{PREFIX}  {number}{' ' * room}P{gate}", f"HORA/FECHA  {stamp(now)}", RULE]
    return top + detail_lines + tax_block(value, percent) + [DOUBLE_RULE, total_line(value)]


def on_paper(lines, given, change):
    """`given` and `change`: what was handed over, None where nothing was typed."""
    cash = []
    if given is not None:
        text = money(given)
        cash = [f" EFECTIVO {text}", f"   CAMBIO {money(change):>{len(text)}}"]
    return lines + cash + [RULE, FOOT_RULE, FOOTER, "."]


def in_log(lines):
    return lines + [RULE, FOOT_RULE, FOOTER]
