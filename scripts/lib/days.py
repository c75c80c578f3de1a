#!/usr/bin/env python3
"""days.py STATION: gives a station that has not started yet the last days of a gate: who left, came for the first time or
earned points, what was sold, when the program ran, and photos.

What stands here as values, stays and sums was worked out by hand from the tariff of a new station, so that
scripts/lib/figures.py can hold a report against it. The bytes are told in docs/file-formats.md.
"""
import collections
import datetime
import pathlib
import shutil
import struct
import sys

Exit = collections.namedtuple("Exit", "day came left number fields category paid stay photo", defaults=(False,))

# From the oldest: how many days ago it left, when it came ("-1 22:10" on the evening before), when it left, its ficha, and
# what it paid for which stay.
EXITS = (
    Exit(2, "07:03", "07:40", 12, ("KLM483", "CARMEN", "IBÁÑEZ", "6015550147", "LLAVES EN CAJA"), "AUTOMOVIL", 3700,
         "37M", True),
    Exit(2, "06:15", "14:00", 3, ("RST518", "JOSÉ ÁNGEL", "PEÑARANDA", "3105550118", "SILLA DE BEBÉ"), "AUTOMOVIL", 30000,
         "07H 45M", True),
    Exit(2, "16:20", "17:05", 41, ("GHT502", "MARTA", "ORDÓÑEZ", "6015550199", "MOTO ROJA"), "MOTOCICLETA", 2000, "45M",
         True),
    Exit(1, "-1 05:40", "08:10", 9, ("BQT774", "", "", "", ""), "AUTOMOVIL", 45000, "01D 02H 30M"),
    Exit(1, "09:00", "10:20", 5, ("80112233", "ZOË", "MUÑOZ", "", "DOS CANASTAS"), "BICICLETA", 800, "01H 20M"),
    Exit(1, "11:30", "14:00", 18, ("ABC123", "ANDRÉS", "GÓMEZ", "6015550123", ""), "AUTOMOVIL", 15000, "02H 30M", True),
    Exit(0, "05:50", "05:53", 41, ("GHT502", "MARTA", "ORDÓÑEZ", "6015550199", "MOTO ROJA"), "MOTOCICLETA", 2000, "03M",
         True),
    Exit(0, "05:30", "06:07", 12, ("KLM483", "CARMEN", "IBÁÑEZ", "6015550147", "LLAVES EN CAJA"), "AUTOMOVIL", 3700, "37M",
         True),
    Exit(0, "06:00", "06:25", 77, ("79445566", "LUCÍA", "NÚÑEZ", "", "ENTREVISTA"), "VISITANTE", 0, "25M"),
    Exit(0, "05:10", "06:30", 6, ("1020304050", "ÉDGAR", "", "", "CANASTA AZUL"), "BICICLETA", 800, "01H 20M"),
)

User = collections.namedtuple("User", "day came fields category points photo", defaults=(True,))
USERS = (
    User(2, "06:15", EXITS[1].fields, "AUTOMOVIL", 31),
    User(2, "07:03", EXITS[0].fields, "AUTOMOVIL", 4),
    User(2, "16:20", EXITS[2].fields, "MOTOCICLETA", 3),
    User(1, "09:00", EXITS[4].fields, "BICICLETA", 5, False),
    User(1, "11:30", EXITS[5].fields, "AUTOMOVIL", 10),
    User(0, "05:10", EXITS[9].fields, "BICICLETA", 5, False),
)

# Movements of points: the exit, and what the user has behind it. A stay earns a point each whole quarter of an hour.
POINTS = ((0, 2), (1, 31), (2, 3), (4, 5), (5, 10), (6, 3), (7, 4), (9, 5))

Sale = collections.namedtuple("Sale", "day time article quantity price")
# From the newest, as the list of sales is.
SALES = (
    Sale(0, 615, "CAFE COLOMBIANO", 2, 5000),
    Sale(0, 610, "FOTOCOPIA", 12, 100),
    Sale(0, 545, "MINUTO CELULAR", 3, 200),
    Sale(1, 1805, "CAFE COLOMBIANO", 1, 5000),
    Sale(1, 1230, "CASCO MOTO", 1, 120000),
    Sale(1, 5, "BOTELLA AGUA", 4, 5000),
)

# The days before today: when the program began, how long it ran; below each what was done, the newest first.
DAYS = (
    (1, "06:02", "12:21", (("18:20", 26), ("12:04", 12), ("06:02", 25))),
    (2, "06:00", "12:05", (("18:01", 26), ("18:00", 23), ("08:15", 10), ("06:01", 22), ("06:00", 25))),
)


def day(ago):
    return datetime.date.today() - datetime.timedelta(days=ago)


def date(ago):
    return day(ago).strftime("%d/%m/%Y")


def stamp(ago, time):
    earlier, _, hour = time.rpartition(" ")
    return f"{hour}  ({date(ago - int(earlier or 0))})"


def text(value, width):
    return value.encode("cp1252")[:width].ljust(width)


def variable(value):
    return struct.pack("<hh", 8, len(value)) + value.encode("cp1252")


def ficha(came, left, number, fields, category, row, paid=0, points=0):
    return (struct.pack("<h", -1) + text(came, 20) + text(left, 20) + text(f"{number:04d}", 4)
            + b"".join(text(field, 20) for field in (*fields, category)) + text("01", 2)
            + text("??" if left == "??" else "01", 2) + struct.pack("<iqhi", row, paid * 10_000, 0, points))


BLANK = bytes(2) + b" " * 168 + bytes(18)


def history():
    rows = [ficha(stamp(one.day, one.came), stamp(one.day, one.left), one.number, one.fields, one.category, row, one.paid)
            for row, one in enumerate(EXITS, 2)]
    return BLANK + b"".join(rows)


def first_visits():
    rows = [ficha(stamp(one.day, one.came), "??", row, one.fields, one.category, row)
            for row, one in enumerate(USERS, 2)]
    return BLANK + b"".join(rows)


def movements():
    rows = []
    for place, points in POINTS:
        one = EXITS[place]
        rows.append(ficha(stamp(one.day, one.came), stamp(one.day, one.left), one.number, one.fields, one.category,
                          place + 2, one.paid, points))
    return BLANK + b"".join(rows)


def users():
    return b"".join(b"".join(text(field, 20) for field in (*one.fields, one.category)) + struct.pack("<i", one.points)
                    for one in USERS)


def sales():
    def line(when, article, price, time, quantity):
        return (variable(when) + variable(article.ljust(15)) + struct.pack("<hqhh", 0, price * 10_000, time, quantity)
                ).ljust(46, b"\0")

    sold = [line(day(one.day).strftime("%d/%m/%y"), one.article, one.price, one.time, one.quantity) for one in SALES]
    lock = variable("") + variable("0" * 18) + struct.pack("<hqhh", 0, 0, -1, 0)
    return b"".join(sold) + line(" " * 9, "", 0, -1, 0) * (5000 - len(sold)) + lock.ljust(46, b"\0")


def log():
    def record(when, ran, code, hour, minute):
        return (variable(when) + variable(ran) + struct.pack("<hqhh", 0, int(f"1{code}") * 10_000, hour, minute)
                ).ljust(46, b"\0")

    records = []
    for ago, began, ran, events in DAYS:
        start, length = (datetime.datetime.strptime(value, "%H:%M") for value in (began, ran))
        end = start + datetime.timedelta(hours=length.hour, minutes=length.minute)
        records.append(record(f"{date(ago)}  {began}", ran, 0, end.hour, end.minute))
        records += [record(f"{date(ago)}  {time}", "00:00", code, 0, 0) for time, code in events]
    blank = record(f"{date(0)}  00:00", "00:00", 0, -1, -1)
    return b"".join(records) + blank * (1000 - len(records))


def photos(shared):
    views = sorted(pathlib.Path("data/wallpapers").glob("*.jpg"))
    wanted = [("Imágenes HST", row) for row, one in enumerate(EXITS, 2) if one.photo]
    wanted += [("Imágenes INI", number) for number, one in enumerate(USERS, 1) if one.photo]
    for folder, number in wanted:
        (shared / folder).mkdir(parents=True, exist_ok=True)
        shutil.copyfile(views[number % len(views)], shared / folder / f"{number:06d}.jpg")


def main(station):
    shared, own = station / "Multimedia", station / "Recursos"
    for folder in (shared, own):
        folder.mkdir(parents=True, exist_ok=True)
    for file, content in ((shared / "Vintoral.HST", history()), (shared / "Vintoral.NSR", first_visits()),
                          (shared / "Vintoral.CRD", movements()), (shared / "Vintoral.USR", users()),
                          (own / "Vintoral.EXT", sales()), (own / "Vintoral.FDR", log())):
        file.write_bytes(content)
    photos(shared)


if __name__ == "__main__":
    main(pathlib.Path(sys.argv[1]))
