"""What pages and slips of fichas must show, written down from the account."""
import itertools
from decimal import Decimal

import tariff

LABELS = ("PLACA/DOCUMENTO", "NOMBRE", "APELLIDO", "TELEFONO", "OBSERVACION")
STAY_HEADS = ("HORA ENTRADA", "PE", "HORA SALIDA", "PS", "FICHA", "CATEGORIA", "IMAGEN", "TIEMPO", "VALOR") + LABELS
POINT_HEADS = ("HORA SALIDA", *LABELS[:2], "IMAGEN", *LABELS[2:], "CATEGORIA", "PUNTOS")
NEW_HEADS = ("HORA ENTRADA", "PE", *LABELS[:2], "IMAGEN", *LABELS[2:], "CATEGORIA")
RULE, DOUBLE_RULE = "-" * 31, "=" * 31
FOOT = "."


def stamp(moment):
    return moment.strftime("%H:%M  (%d/%m/%Y)")


def money(amount):
    return f"{amount:.2f}"


def stay_text(stay):
    hours = f"{stay.hours:02}H " if stay.days or stay.hours else ""
    return (f"{stay.days:02}D " if stay.days else "") + hours + f"{stay.minutes:02}M"


def day_of(ficha):
    return (ficha.exit or ficha.entry).strftime("%d/%m/%Y") if ficha.gate_out else ficha.entry.strftime("%d/%m/%Y")


def is_inside(ficha):
    return not ficha.gate_out


def total_of(fichas):
    return sum((ficha.value for ficha in fichas if ficha.gate_out), Decimal(0))


def by_day(fichas):
    """Those that stand behind each other with one date: one row a day in order, as the list goes."""
    return [(day, list(rows)) for day, rows in itertools.groupby(fichas, day_of)]


# ---- The page ----

def cells(ficha):
    gone = not is_inside(ficha)
    left, stay, value = (stamp(ficha.exit), stay_text(ficha.stay), money(ficha.value)) if gone else ("??",) * 3
    return (stamp(ficha.entry), ficha.gate_in, left, ficha.gate_out or "??", f"{ficha.number:04}", ficha.category,
            "SIN IMAGEN", stay, value, ficha.plate, *ficha.texts)


def row_of(width, **columns):
    """A row that is empty but for these columns: row_of(14, c8="$ 1.00")."""
    return tuple(columns.get(f"c{column}", "") for column in range(width))


def page_rows(fichas, stamps):
    """`stamps`: what is told of the period, one text a row."""
    rows = []
    for _, those in by_day(fichas):
        rows += [cells(ficha) for ficha in those]
        rows += [row_of(14, c8=f"$ {money(total_of(those))}"), row_of(14)]
    if not fichas:
        rows += [row_of(14, c8="$ 0.00"), row_of(14)]
    rows += [row_of(14)] + [row_of(14, c0=text) for text in stamps] + [row_of(14)] * bool(stamps)
    return rows + [row_of(14, c0=f"{len(fichas)} Registro(s)", c5="TOTAL", c8=f"$ {money(total_of(fichas))}")]


# ---- The slip ----

def slip_row(ficha):
    if is_inside(ficha):
        return f"{stamp(ficha.entry)[:5]} {ficha.category[:9]:9} ACTIVO       ??"
    stay = stay_text(ficha.stay).replace(" ", "")
    name = ficha.category[:15 - len(stay)]
    return f"{stamp(ficha.exit)[:5]} {name}{stay:>{16 - len(name)}}{money(ficha.value):>9}"


def slip_day(day, those):
    subtotal = f"$ {money(total_of(those))}"
    return [f"({day})", *map(slip_row, those), f"{subtotal:>31}"]


def total_line(amount):
    text = money(amount)
    return " " * (24 - 1 - len(text)) + f"TOTAL $ {text}"


def category_lines(fichas):
    lines = []
    for name in tariff.CATEGORIES:
        gone = [ficha for ficha in fichas if ficha.category == name and not is_inside(ficha)]
        inside = [ficha for ficha in fichas if ficha.category == name and is_inside(ficha)]
        if gone:
            lines.append(f"{name[:15]:15}{len(gone):7}{money(total_of(gone)):>9}")
        if inside:
            lines.append(f"*{name[:14]:14}{len(inside):7}   ACTIVO")
    return lines


def count_line(fichas):
    return f"{len(fichas)} Registro(s)"


def slip(fichas, title, summary_title, stamps, head, detail):
    """The lines that are not empty. `detail`: the list of stays before the summary."""
    lines = []
    if detail:
        lines = [title, *stamps, RULE, f"{head} CATEGORIA TIEMPO    VALOR", RULE]
        for day, those in by_day(fichas):
            lines += slip_day(day, those)
        if not fichas:
            lines += [f"{'$ 0.00':>31}"]
        lines += [DOUBLE_RULE, count_line(fichas), total_line(total_of(fichas)), RULE]
    return lines + [summary_title, *stamps, RULE, "      CATEGORIA   CANT    VALOR", RULE, *category_lines(fichas), DOUBLE_RULE,
                    count_line(fichas), total_line(total_of(fichas)), FOOT]


# ---- Lists of points and of new users ----

def point_cells(ficha):
    return (stamp(ficha.exit), ficha.plate, ficha.texts[0], "SIN IMAGEN", *ficha.texts[1:], ficha.category, str(ficha.points))


def new_cells(ficha):
    return (stamp(ficha.entry), ficha.gate_in, ficha.plate, ficha.texts[0], "SIN IMAGEN", *ficha.texts[1:], ficha.category)


def counts_by_day(movements):
    return [str(len(list(rows))) for _, rows in itertools.groupby(movements, lambda ficha: ficha.exit.date())]
