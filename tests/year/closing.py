"""The end of a driven year: invoices against their logs, points against the users, and the totals of all reports together."""
import collections
from decimal import Decimal

import expected_sales as sales
from hands import expect
from tickets import Books


def log_lines(till):
    """Newest first."""
    return [line.rstrip() for _, _, lines in reversed(till.invoices) for line in sales.in_log(lines)]


def compare_invoices(reports, gate, till):
    from reports import TOTAL, expect_same
    text = (gate.folder / "Recursos/Vintoral.HFC").read_bytes().decode("cp1252")
    lines = [line.rstrip() for line in text.split("\r\n") if line]
    expect_same(lines, log_lines(till), f"the log of invoices of P{gate.number}")
    logged = sum(Decimal(found.group(1)) for found in map(TOTAL.fullmatch, lines) if found)
    reports.sums[f"invoices of P{gate.number}"] = logged
    expect(logged, sum((value for _, value, _ in till.invoices), Decimal(0)), "the sum of the log")


def compare_points(reports):
    """Users, and the last movement of each, hold the points that the account has."""
    from reports import expect_same
    books, ledger = Books(reports.gates["01"].folder), reports.ledger
    expect_same([(user.Placa, user.Nombre, user.Categoria, user.Puntos) for user in books.users()],
                [(plate, user.texts[0], user.category, user.points) for plate, user in ledger.users.items()], "the users")
    movements = books.movements()
    expect_same([(row.Placa, row.UsuarioPuntos) for row in movements], [(one.plate, one.points) for one in ledger.movements], "CRD")
    last = {row.Placa: row.UsuarioPuntos for row in movements}
    expect({user.Placa: user.Puntos for user in books.users() if user.Placa in last}, last, "users and their last movements")
    reports.sums["points"] = sum(last.values())


def compare_totals(reports):
    """Shifts, days and searches cover the same stays."""
    sums, ledger = reports.sums, reports.ledger
    for kind in ("shifts of P01", "days", "searches"):
        expect(sums[kind], ledger.taken, f"the total of all {kind}")
    expect(sum(reports.categories.values()), ledger.taken, "the total of all categories")


def compare(reports):
    for number, gate in reports.gates.items():
        compare_invoices(reports, gate, reports.tills[number])
    compare_points(reports)
    compare_totals(reports)
