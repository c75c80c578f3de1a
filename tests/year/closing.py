"""The end of a driven year: invoices against their logs, points against the users, and the totals of all reports together."""
from decimal import Decimal

import expected_sales as sales
from checks import expect, expect_same, filled
from gate_reports import totals_in
from tickets import Books


def compare_invoices(gate, till, sums):
    """The log, newest first, and its sum."""
    log = filled((gate.folder / "Recursos/Vintoral.HFC").read_bytes().decode("cp1252").split("\r\n"))
    expected = filled(line for lines in reversed(till.invoices) for line in sales.in_log(lines))
    expect_same(log, expected, f"the log of P{gate.number}")
    logged = sum(totals_in(log), Decimal(0))
    expect(logged, till.invoiced, f"the sum of the log of P{gate.number}")
    sums[f"invoices of P{gate.number}"] = logged


def compare_points(gate, ledger, sums):
    """Users, and the last movement of each, hold the points that the account has."""
    books = Books(gate.folder)
    users = books.users()
    expect_same([(user.Placa, user.Nombre, user.Categoria, user.Puntos) for user in users],
                [(plate, user.texts[0], user.category, user.points) for plate, user in ledger.users.items()], "the users")
    movements = books.movements()
    expect_same([(row.Placa, row.UsuarioPuntos) for row in movements],
                [(one.plate, one.points) for one in ledger.movements], "CRD")
    last = {row.Placa: row.UsuarioPuntos for row in movements}
    expect({user.Placa: user.Puntos for user in users if user.Placa in last}, last, "users and their last movements")
    sums["points"] = sum(last.values())


def compare_passes(gate, ledger):
    """Those that still let somebody in; of days as long as nobody has shown one that was over."""
    records = [record for record in Books(gate.folder).passes() if record.CodigoPase]
    kept = {record.CodigoPase: (record.PlacaPase, record.RestantesPase) for record in records}
    expect(kept, {code: (one.plate, one.left - one.by_days) for code, one in ledger.passes.items() if one.left}, "the passes")


def compare_totals(tills, ledger, reports):
    """Shifts, days and searches cover the same stays; shifts at one gate and days at the other all articles."""
    taken, sums = sum(ledger.taken.values()), reports.sums
    for kind, expected in (("shifts of P01", taken), ("days", taken), ("searches", taken),
                           ("articles in shifts of P01", tills["01"].sold), ("articles by day at P02", tills["02"].sold)):
        expect(sums[kind], expected, f"the total of all {kind}")
    expect(+reports.categories, +ledger.taken, "the categories of all days")
    sums["the account: stays"] = taken
    for gate, till in tills.items():
        sums[f"the account: articles of P{gate}"] = till.sold


def compare(gates, tills, ledger, reports):
    for number, gate in gates.items():
        compare_invoices(gate, tills[number], reports.sums)
    compare_points(gates["01"], ledger, reports.sums)
    compare_passes(gates["01"], ledger)
    compare_totals(tills, ledger, reports)
