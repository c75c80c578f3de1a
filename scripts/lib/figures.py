#!/usr/bin/env python3
"""figures.py REPORT CSV: holds a report, as a spreadsheet has read it, against the days of scripts/lib/days.py; ends with 1
where a column is missing or a figure differs.

A spreadsheet takes "0012" for a number: what consists of digits is compared as one.
"""
import csv
import sys

import days

WIDE = ["HORA ENTRADA", "PE", "HORA SALIDA", "PS", "FICHA", "CATEGORIA", "IMAGEN", "TIEMPO", "VALOR", "PLACA/DOCUMENTO",
        "NOMBRE", "APELLIDO", "TELEFONO", "OBSERVACION"]
NEW = ["HORA ENTRADA", "PE", "PLACA/DOCUMENTO", "NOMBRE", "IMAGEN", "APELLIDO", "TELEFONO", "OBSERVACION", "CATEGORIA"]
EARNED = ["HORA SALIDA", "PLACA/DOCUMENTO", "NOMBRE", "IMAGEN", "APELLIDO", "TELEFONO", "OBSERVACION", "CATEGORIA",
          "PUNTOS"]


def plain(cell):
    cell = " ".join(cell.split())
    return str(int(cell)) if cell.isdecimal() else cell


def photo(has):
    return "VER FOTO" if has else "SIN IMAGEN"


def seen(stamp):
    """As it is read on a page, which has one blank where there are several."""
    return " ".join(stamp.split())


def exit_row(one):
    return [seen(days.stamp(one.day, one.came)), "01", seen(days.stamp(one.day, one.left)), "01", f"{one.number:04d}",
            one.category, photo(one.photo), one.stay, str(one.paid), *one.fields]


def user_row(one):
    plate, name, surname, phone, remark = one.fields
    return [seen(days.stamp(one.day, one.came)), "01", plate, name, photo(one.photo), surname, phone, remark, one.category]


def points_row(place, points):
    one = days.EXITS[place]
    plate, name, surname, phone, remark = one.fields
    return [seen(days.stamp(one.day, one.left)), plate, name, photo(one.photo), surname, phone, remark, one.category,
            str(points)]


def exits(ago):
    """The newest first, with the sums of their days and of all."""
    rows = [one for one in reversed(days.EXITS) if one.day <= ago]
    sums = [sum(one.paid for one in rows if one.day == day) for day in sorted({one.day for one in rows})]
    money = [f"$ {amount}.00" for amount in [*sums, sum(sums)]]
    return WIDE, [exit_row(one) for one in rows], money


def expected(report):
    if report == "busqueda":
        return exits(2)
    if report == "historial":
        return exits(0)
    if report == "nuevos":
        return NEW, [user_row(one) for one in reversed(days.USERS)], []
    if report == "puntos":
        return EARNED, [points_row(*one) for one in reversed(days.POINTS)], []
    sys.exit(f"Unknown report: {report}")


def main(report, file):
    head, rows, money = expected(report)
    with open(file, encoding="utf-8", newline="") as text:
        found = [[plain(cell) for cell in row] for row in csv.reader(text)]
    wanted = [[plain(cell) for cell in row] for row in rows]
    # Below the head stand the rows, and between them the sums of days and empty ones.
    full = [row for row in found[1:] if sum(1 for cell in row if cell) > 3]
    sums = [cell for row in found[1:] for cell in row if cell.startswith("$ ")]
    wrong = [f"{found[:1]} instead of {head}"] if found[:1] != [head] else []
    wrong += [f"{len(row)} columns: {row}" for row in found if len(row) != len(head)]
    wrong += [f"{got} instead of {want}" for got, want in zip(full, wanted) if got != want]
    wrong += [f"{len(full)} rows instead of {len(wanted)}"] if len(full) != len(wanted) else []
    wrong += [f"sums {sums} instead of {money}"] if sums != money else []
    for line in wrong:
        print(f"{report}: {line}", file=sys.stderr)
    if wrong:
        sys.exit(1)
    print(f"{report}: {len(head)} columns, {len(rows)} rows and {len(money)} sums as they should be")


if __name__ == "__main__":
    main(*sys.argv[1:])
