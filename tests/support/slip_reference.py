#!/usr/bin/env python3
"""Tickets and invoices once more, naive and exact, to hold the station's own slips against.

    slip_reference.py compare TOOL [--cases N] [--seed N]

makes N random slips up, nasty ones, asks TOOL (slip-stream) and this file what each of them prints, and fails
at the first difference. Money and lengths are exact; the base of a tax alone is reckoned in double precision,
which is how it is meant.

One question a line, one answer a line; words apart by blanks, texts hexadecimal Windows-1252, "-" when empty
and "!" when there is none, singles as their bits, moments as milliseconds since the year 1:

    T PRINTER SIZE HEADER PHOTO FOOTER FICHA GATE STAMP (FLAG LABEL VALUE) x 5 CATEGORY PICTURE CODE
      VALIDITY UNIT TODAY ADDRESS
    F PRINTER SIZE HEADER PREFIX NUMBER FOOTER GATE CURRENCY AMOUNT DETAIL PERCENT CASH CHANGE NOW ADDRESS

An answer is the printer's name, the height, and the operations: t,X,Y,SIZE,BOLD,FONT,TEXT p,X,Y,WIDTH,HEIGHT,PATH
+,FILE -,FILE; of an invoice, behind " | ", the entry in the log.
"""

import argparse
import datetime
import itertools
import multiprocessing
import os
import random
import re
import struct
import subprocess
import sys
from decimal import ROUND_HALF_UP, Decimal
from fractions import Fraction

from tariff_reference import capital, decode, encode

# A text is a str with one character for each byte.
CAPITALS = {b: encode(capital(decode(bytes([b])))).decode("latin-1") for b in range(256)}
BREAK = "\r\n"
MARK = "\x1b"
HYPHENS = "-" * 31
EQUALS = "=" * 31
TEXT_FONT = "Courier New"
BAR_FONT = "Free 3 of 9"
FONT_FILE = "Fuentes\\Vintoral.ttf"


class StatementFails(Exception):
    """The statement is skipped, the slip goes on."""


def space(count):
    if count < 0:
        raise StatementFails
    return " " * count


def at_least_none(count):
    return " " * max(count, 0)


def nearest(value):
    """The nearest whole number of twips, a half going up."""
    return (2 * value.numerator + value.denominator) // (2 * value.denominator)


# ---------------------------------------------------------------------------------------------------------
# Numbers


def single(bits):
    return struct.unpack(">f", bytes.fromhex(bits))[0]


def bits_of(number):
    try:
        return struct.pack(">f", number).hex()
    except OverflowError:
        return "7f800000"


def size_of(stored):
    return stored if 1 <= stored <= 100 else 10.5


def percent_of(stored):
    if not stored > 0:
        return 0.0
    return min(stored, 100.0)


def shortest(number):
    """What somebody typed who stored this single."""
    for digits in range(9):
        text = f"{number:.{digits}e}"
        if bits_of(float(text)) == bits_of(number):
            return Decimal(text)
    raise ValueError(number)


def percent_text(percent):
    return str(shortest(percent).quantize(Decimal("0.01"), ROUND_HALF_UP))


def leading_number(text):
    digits = re.match(r" *([+-]?)([0-9]*\.?[0-9]*)", text)
    if digits.group(2) in ("", "."):
        return Fraction(0)
    number = Fraction(digits.group(2) + ("0" if digits.group(2).endswith(".") else ""))
    return -number if digits.group(1) == "-" else number


def currency(number):
    """Ten-thousandths; halves to the even one; both ends of 64 bits are as far as it goes."""
    return min(max(round(number * 10000), -2 ** 63), 2 ** 63 - 1)


def two_decimals(raw):
    """ "#0.00" read back: halves away from zero."""
    cents = (abs(raw) + 50) // 100 * 100
    return cents if raw >= 0 else -cents


def money_text(raw):
    cents = abs(two_decimals(raw)) // 100
    return f"{'-' if raw < 0 and cents else ''}{cents // 100}.{cents % 100:02}"


def base_and_tax(amount, percent):
    base = two_decimals(currency(amount / 10000 / (1 + percent / 100)))
    return base, two_decimals(amount - base)


# ---------------------------------------------------------------------------------------------------------
# The printer


class Printer:
    # Twips for a point of size: of the text's type a column is 12, a line 20 times (1705 + 615) / 2048; of
    # the bars a line is as high as the size.
    COLUMN = Fraction(12)
    PITCH = {TEXT_FONT: Fraction(20 * 2320, 2048), BAR_FONT: Fraction(20)}

    def __init__(self):
        self.font, self.size, self.bold, self.x, self.y = TEXT_FONT, 0.0, False, 0, 0
        self.told = []

    def print(self, text):
        self.told.append(("t", self.x, self.y, self.size, self.bold, self.font, text))
        self.y += nearest(self.PITCH[self.font] * Fraction(self.size)) * (text.count(BREAK) + 1)
        self.x = 0

    def in_bold(self, text):
        self.bold = True
        self.print(text)
        self.bold = False

    def two_columns(self):
        return nearest(2 * self.COLUMN * Fraction(self.size))


def foot_rule(address):
    host = address.split("://", 1)[-1].split("/")[0]
    return (" " + host[:27] + " --").rjust(31, "-")


def moment(milliseconds):
    return datetime.datetime(1, 1, 1) + datetime.timedelta(milliseconds=milliseconds)


def date_text(day):
    return f"{day.day:02}/{day.month:02}/{day.year:04}"


# ---------------------------------------------------------------------------------------------------------
# The ticket


def validity(printer, t):
    n = leading_number(t["validity"])
    if t["code"] is None or not (n > 1 or (t["unit"] == 1 and n > 0)):
        return
    printer.print(EQUALS)
    text = t["validity"]
    try:
        if t["unit"] == 0:
            printer.in_bold(space(int((16 - len(text)) / 2)) + "VALIDO " + text + " ENTRADAS")
        elif t["unit"] == 1:
            room = space(3 - len(text))
            last = moment(t["today"]).date() + datetime.timedelta(days=(n - 1).__floor__())
            printer.in_bold("VALIDO " + text + " DIA(S)" + room + "  (" + date_text(last) + ")")
    except StatementFails:
        pass


def ticket(t):
    printer = Printer()
    printer.size = size_of(single(t["size"]))
    printer.print(t["header"].rstrip(" "))
    number = t["ficha"].strip(" ")
    printer.in_bold("  No.FICHA  " + number + at_least_none(16 - len(number)) + "P" + t["gate"])
    printer.in_bold("HORA/FECHA  " + t["stamp"])
    printer.print(HYPHENS)
    for i in range(5):
        wanted, label, value = t["fields"][i]
        if wanted:
            printer.bold = i == 0
            value = value.strip(" ")[:19].translate(CAPITALS)
            printer.print(f"{label.strip(' ')[:9]:>9}" + " : " + value)
    printer.in_bold("CATEGORIA : " + t["category"].strip(" ")[:19])
    if t["photo"]:
        printer.print(EQUALS)
        size = Fraction(printer.size)
        if t["picture"]:
            printer.told.append(("p", printer.x + printer.two_columns(), printer.y, nearest(size * 320),
                                 nearest(size * 240), t["picture"]))
        printer.y += nearest(size * 240)
    if t["code"] is not None:
        printer.print(EQUALS)
        printer.told.append(("+", FONT_FILE))
        printer.x += printer.two_columns()
        text_size = printer.size
        printer.size, printer.font = 3 * text_size, BAR_FONT
        printer.print("*" + t["code"] + "*")
        printer.told.append(("-", FONT_FILE))
        printer.size, printer.font = text_size, TEXT_FONT
    validity(printer, t)
    printer.print(HYPHENS)
    printer.print(foot_rule(t["address"]))
    printer.print(t["footer"].rstrip(" ") + 3 * BREAK + ".")
    return printer


# ---------------------------------------------------------------------------------------------------------
# The invoice


def number_line(f):
    prefix = f["prefix"][:26].ljust(26)
    prefix = prefix[:prefix.index(MARK)] if MARK in prefix else prefix.rstrip(" ")
    number = str(f["number"])
    return prefix + "  " + number + at_least_none(26 - len(prefix + number)) + "P" + f["gate"]


def stamp_line(f):
    now = moment(f["now"])
    return f"HORA/FECHA  {now.hour:02}:{now.minute:02}  ({date_text(now)})"


def tax_block(f):
    percent = percent_of(single(f["percent"]))
    if percent <= 0:
        return ""
    base, tax = map(money_text, base_and_tax(f["amount"], percent))
    return (EQUALS + BREAK + "     BASE " + base + BREAK + " IMPUESTO " + at_least_none(len(base) - len(tax)) + tax +
            " (" + percent_text(percent) + "%)")


def total_line(f):
    currency_text, amount = f["currency"].strip(" "), money_text(f["amount"])
    return at_least_none(24 - len(currency_text) - len(amount)) + "TOTAL " + currency_text + " " + amount


def stay_detail(printer, detail):
    q = detail.index(MARK) + 1
    p = detail.index(BREAK) + 1 if BREAK in detail else q
    p = min(p, q)
    printer.in_bold(detail[:p - 1])
    if q - p - 4 >= 0:
        printer.print(detail[p + 2 - 1:][:q - p - 4])
    printer.in_bold(detail[q:])


def invoice(f):
    printer = Printer()
    printer.size = size_of(single(f["size"]))
    printer.print(f["header"].rstrip(" "))
    printer.in_bold(number_line(f))
    printer.in_bold(stamp_line(f))
    printer.print(HYPHENS)
    if MARK in f["detail"]:
        stay_detail(printer, f["detail"])
    else:
        printer.print("DESCRIPCION     CANT      VALOR")
        printer.print(HYPHENS)
        printer.print(f["detail"].rstrip(" "))
    if tax_block(f):
        printer.print(tax_block(f))
    printer.print(EQUALS)
    printer.in_bold(total_line(f))
    if f["cash"] is not None and f["change"] != "":
        cash = money_text(currency(leading_number(f["cash"].replace(",", "."))))
        change = money_text(currency(leading_number(f["change"])))
        printer.print(" EFECTIVO " + cash)
        printer.print("   CAMBIO " + at_least_none(len(cash) - len(change)) + change)
    printer.print(HYPHENS)
    printer.print(foot_rule(f["address"]))
    printer.print(f["footer"].rstrip(" ") + 3 * BREAK + ".")
    return printer


def log_entry(f):
    sale = MARK not in f["detail"]
    entry = 3 * BREAK
    entry += f["header"].rstrip(" ") + BREAK
    entry += number_line(f) + BREAK
    entry += stamp_line(f) + BREAK
    entry += HYPHENS + BREAK
    if sale:
        entry += "DESCRIPCION     CANT      VALOR" + BREAK + HYPHENS + BREAK
    entry += f["detail"].replace(MARK, "").strip(" ") + BREAK
    if tax_block(f):
        entry += tax_block(f) + BREAK
    entry += EQUALS + BREAK
    entry += total_line(f) + BREAK
    entry += HYPHENS + BREAK
    entry += foot_rule(f["address"]) + BREAK
    return entry + f["footer"].rstrip(" ") + 3 * BREAK + 3 * BREAK


# ---------------------------------------------------------------------------------------------------------
# What holds of each slip, whatever is printed


def properties(kind, slip, printer):
    """What is wrong, or nothing."""
    texts = [(t[6], t[4]) for t in printer.told if t[0] == "t"]
    if texts[2][0] != "HORA/FECHA  " + slip["stamp"] or len(texts[2][0]) != 31:
        return "the line of the stamp"
    if [len(text) for text, _ in texts[-3:-1]] != [31, 31] or not texts[-1][0].endswith(3 * BREAK + "."):
        return "the foot"
    if kind == "T":
        fits = len(slip["ficha"].strip(" ")) <= 16
    else:
        fits = len(slip["prefix"].split(MARK)[0] + str(slip["number"])) <= 26
    if fits and len(texts[1][0]) != 31:
        return "the line of the number"
    bold = [text for text, is_bold in texts if is_bold]
    if kind == "T":
        return "the line of the days" if " DIA(S)" in bold[-1] and len(bold[-1]) != 31 else ""
    amount = Decimal(slip["amount"]) / 10000
    if len(slip["currency"].strip(" ") + money_text(slip["amount"])) <= 24 and len(bold[-1]) != 31:
        return "the line of the total"
    block = [text.split(BREAK) for text, _ in texts if text.startswith(EQUALS + BREAK + "     BASE ")]
    if bool(block) != (percent_of(single(slip["percent"])) > 0):
        return "the block of the tax"
    if block and slip["amount"] % 100 == 0:
        base, tax = Decimal(block[0][1][10:]), Decimal(block[0][2][10:].split("(")[0].strip(" "))
        if base + tax != amount:
            return "base and tax"
    return ""


# ---------------------------------------------------------------------------------------------------------
# Random slips

LETTERS = "ABCDEFGHIJabcdefghij0123456789  -./:\xd1\xf1\xe1\xfc\xdf\xff\x80\x9a"
ANY = [chr(b) for b in range(256) if chr(b) != MARK]
SIZES = [5, 6, 7, 8, 8.5, 9, 10, 10.5, 10.5, 11, 12]
SENSELESS = ["00000000", "80000000", "7fc00000", "ffc00001", "7f800000", "ff800000", "7149f2ca", "f149f2ca", "00280000",
             "bf800000", "42c80000", "42c80001", "3f800000", "3f7fffff", "00000001", "3727c5ac"]
PERCENTS = [0, 0, 19, 19, 19, 16, 8, 5, 8.5, 12.75, 0.5, 0.005, 0.045, 0.125, 33.3, 99.9, 100]


def word(rng, most, letters=LETTERS):
    text = "".join(rng.choices(letters, k=rng.randrange(most + 1)))
    return rng.choice(["", "", " ", "   "]) + text + rng.choice(["", "", "  "])


def value(rng, most):
    return word(rng, most, ANY if rng.random() < 0.1 else LETTERS)


def format_text(rng):
    if rng.random() < 0.02:
        return "".join(rng.choices(ANY + [BREAK] * 8, k=rng.choice([4990, 5000, 2500])))[:5000]
    ends = [BREAK] * 8 + ["\r", "\n", "", "   " + BREAK]
    return "".join(word(rng, 31) + rng.choice(ends) for _ in range(rng.randrange(5))) + " " * rng.choice([0, 0, 9])


def stored_single(rng, usual, most):
    kind = rng.random()
    if kind < 0.5:
        return bits_of(rng.choice(usual))
    if kind < 0.85:
        return bits_of(rng.randrange(int(most * 100)) / rng.choice([100, 100, 10, 1]))
    if kind < 0.95:
        return rng.choice(SENSELESS)
    return f"{rng.getrandbits(32):08x}"


def some_moment(rng):
    day = (datetime.date(1990, 1, 1) - datetime.date(1, 1, 1)).days + rng.randrange(40000)
    return day * 86400000 + rng.randrange(86400000)


def some_address(rng):
    host = rng.choice(["vintoral.example", "vintoral.example", "", "a.example", "x" * rng.randrange(40)])
    return rng.choice(["https://", "", "http://"]) + host + rng.choice(["", "/", "/es/ayuda", "/a://b"])


def random_ticket(rng):
    validity_text = rng.choice(["0", "1", "1", "2", "10", "30", "999", "", ".5", "1.5", "1,5", ".", "2.", "1.0", "00",
                                "1000", "5.25", str(rng.randrange(1000)), str(10 ** rng.randrange(20)), " 2", "7 "])
    now = some_moment(rng)
    when = moment(now)
    return {
        "printer": value(rng, 60), "size": stored_single(rng, SIZES, 20), "header": format_text(rng),
        "photo": rng.random() < 0.5, "footer": format_text(rng),
        "ficha": rng.choice([f"{rng.randrange(1, 1000):04}", " 7 ", word(rng, 20)]),
        "gate": f"{rng.randrange(100):02}", "stamp": f"{when.hour:02}:{when.minute:02}  ({date_text(when)})",
        "fields": [(rng.random() < 0.7, value(rng, 14), value(rng, 30)) for _ in range(5)],
        "category": value(rng, 25), "picture": rng.choice(["", "Multimedia\\0042.jpg", "C:\\\xd1.bmp"]),
        "code": rng.choice([None, "", value(rng, 14), "".join(rng.choices("ABC0123456789", k=12))]),
        "validity": validity_text, "unit": rng.choice([0, 0, 1, 1, 1, 2, -1]), "today": now,
        "address": some_address(rng)}


def random_amount(rng):
    kind = rng.random()
    if kind < 0.45:
        return rng.randrange(10 ** rng.randrange(3, 8)) * 100
    if kind < 0.75:
        return rng.randrange(10 ** rng.randrange(1, 6)) * 500000
    if kind < 0.85:
        return -rng.randrange(10 ** 8) * 100
    if kind < 0.97:
        return rng.randrange(-10 ** 6, 10 ** 8)
    return rng.randrange(-10 ** 15, 10 ** 15)


def random_detail(rng):
    def line():
        return value(rng, 31)

    kind = rng.random()
    if kind < 0.45:
        rows = [f"{word(rng, 15)[:15]:<15} {rng.randrange(1000):>3}{rng.randrange(10 ** 6) / 100:>12.2f}"
                for _ in range(rng.randrange(4))]
        return BREAK.join(rows) + rng.choice(["", "  ", BREAK])
    if kind < 0.9:
        fields = [f"{word(rng, 9).strip(' ')[:9]:>9} : {value(rng, 19)[:19]}" + BREAK for _ in range(rng.randrange(6))]
        rule = HYPHENS + BREAK if fields else ""
        points = f"  *PUNTOS : {rng.randrange(-10, 1000)}" + BREAK if rng.random() < 0.5 else ""
        return ("".join(fields) + rule + "  ENTRADA : 12:00  (20/11/2026)" + BREAK + "   SALIDA : 14:05  (20/11/2026)" +
                BREAK + MARK + "CATEGORIA : " + line()[:19] + BREAK + points + "   TIEMPO : 2H 5M")
    return "".join(rng.choice([BREAK, MARK, " ", "A", line(), "\r", "\n"]) for _ in range(rng.randrange(9)))


def random_invoice(rng):
    now = some_moment(rng)
    when = moment(now)
    prefix = rng.choice(["No.FACTURA", "FE  ", "", value(rng, 25)[:25], "x" * rng.randrange(26)]) + MARK
    cash = rng.choice([None, "0", "", "20000", "150,5", "0.00005", "0,00015", ".", "x", "-5", "1.2.3", " 7",
                       str(rng.randrange(10 ** 7)), str(rng.randrange(10 ** 6)) + "," + str(rng.randrange(10 ** 5))])
    change = rng.choice(["", "0", "31.5", "-2.25", "0.125", str(rng.randrange(10 ** 6)),
                         str(rng.randrange(10 ** 6) / 100)])
    return {
        "printer": value(rng, 60), "size": stored_single(rng, SIZES, 20), "header": format_text(rng),
        "prefix": rng.choice([prefix, prefix, prefix + "A" + MARK, value(rng, 26).strip(" ")[:26]]),
        "number": rng.choice([1, 999999, rng.randrange(10 ** 6), rng.randrange(10 ** 6),
                              rng.randrange(-2 ** 31, 2 ** 31)]),
        "footer": format_text(rng), "gate": f"{rng.randrange(100):02}",
        "currency": rng.choice(["$", " $ ", "COP", "\x80", "", "PESOS COLOMBIANOS", word(rng, 20)]),
        "amount": random_amount(rng), "detail": random_detail(rng), "percent": stored_single(rng, PERCENTS, 100),
        "cash": cash, "change": None if cash is None else change, "now": now, "address": some_address(rng),
        "stamp": f"{when.hour:02}:{when.minute:02}  ({date_text(when)})"}


# ---------------------------------------------------------------------------------------------------------
# Comparison


def hexed(text):
    if text is None:
        return "!"
    return text.encode("latin-1").hex() or "-"


def question_of(kind, slip):
    texts = {name: hexed(text) for name, text in slip.items() if text is None or isinstance(text, str)}
    if kind == "T":
        fields = [w for f in slip["fields"] for w in (str(int(f[0])), hexed(f[1]), hexed(f[2]))]
        words = ["T", texts["printer"], slip["size"], texts["header"], int(slip["photo"]), texts["footer"],
                 texts["ficha"], texts["gate"], texts["stamp"], *fields, texts["category"], texts["picture"], texts["code"],
                 texts["validity"], slip["unit"], slip["today"], texts["address"]]
    else:
        words = ["F", texts["printer"], slip["size"], texts["header"], texts["prefix"], slip["number"], texts["footer"],
                 texts["gate"], texts["currency"], slip["amount"], texts["detail"], slip["percent"], texts["cash"],
                 texts["change"], slip["now"], texts["address"]]
    return " ".join(map(str, words))


def told(operation):
    if operation[0] == "t":
        _, x, y, size, bold, font, text = operation
        return f"t,{x},{y},{size:.17g},{int(bold)},{hexed(font)},{hexed(text)}"
    return ",".join(map(str, operation[:-1])) + "," + hexed(operation[-1])


def answer_of(kind, slip, printer):
    words = [hexed(slip["printer"][:100].strip(" ")), str(printer.y), *map(told, printer.told)]
    return " ".join(words) + (" | " + hexed(log_entry(slip)) if kind == "F" else "")


def reached(kind, slip, printer, seen):
    """Counts what a case has come by."""
    kinds = [t[0] for t in printer.told]
    texts = [t[6] for t in printer.told if t[0] == "t"]
    if kind == "T":
        rules = texts.count(EQUALS) - ("+" in kinds) - slip["photo"]
        valid = texts[-4].startswith("VALIDO ") or texts[-4].lstrip(" ").startswith("VALIDO ")
        facts = {"tickets": True, "photos": "p" in kinds, "photos missing": slip["photo"] and "p" not in kinds,
                 "codes": "+" in kinds, "validity": valid, "validity lost": rules > 0 and not valid}
    else:
        facts = {"stays": MARK in slip["detail"], "sales": MARK not in slip["detail"], "tax": bool(tax_block(slip)),
                 "cash": any(t.startswith(" EFECTIVO ") for t in texts), "numbers without room": len(texts[1]) > 31,
                 "totals without room": len(total_line(slip)) > 31}
    facts["sizes replaced"] = size_of(single(slip["size"])) != single(slip["size"])
    for name, true in facts.items():
        seen[name] = seen.get(name, 0) + bool(true)


def difference(expected, answer):
    """The first operation that differs, for people."""
    def readable(word):
        return re.sub(r"\b(?:[0-9a-f]{2}){3,}\b", lambda m: repr(bytes.fromhex(m[0]).decode("latin-1")),
                      word or "nothing")

    for ours, theirs in itertools.zip_longest(expected.split(" "), answer.split(" ")):
        if ours != theirs:
            return f"expected {readable(ours)}\ngot      {readable(theirs)}"
    return "nothing"


def compare_batch(work):
    """What differs, or nothing; and what the cases came by."""
    tool, seed, cases = work
    rng = random.Random(seed)
    slips = [("T", random_ticket(rng)) if rng.random() < 0.5 else ("F", random_invoice(rng)) for _ in range(cases)]
    questions = "".join(question_of(*slip) + "\n" for slip in slips)
    run = subprocess.run([tool], input=questions, capture_output=True, text=True, check=True)
    answers = run.stdout.splitlines()
    if len(answers) != cases:
        return f"{cases} questions, {len(answers)} answers", {}
    seen = {}
    for (kind, slip), answer in zip(slips, answers):
        printer = ticket(slip) if kind == "T" else invoice(slip)
        expected = answer_of(kind, slip, printer)
        if answer != expected:
            return f"{slip}\n{difference(expected, answer)}", seen
        wrong = properties(kind, slip, printer)
        if wrong:
            return f"{slip}\n{printer.told}\ndoes not hold: {wrong}", seen
        reached(kind, slip, printer, seen)
    return "", seen


def compare(tool, cases, seed):
    batch = 2000
    work = [(tool, f"{seed}/{first}", min(batch, cases - first)) for first in range(0, cases, batch)]
    seen = {}
    with multiprocessing.Pool(min(len(work), os.cpu_count() or 1)) as pool:
        for failure, facts in pool.imap_unordered(compare_batch, work):
            if failure:
                return failure
            for name, count in facts.items():
                seen[name] = seen.get(name, 0) + count
    print(f"{cases} slips agree;", ", ".join(f"{name} {count}" for name, count in seen.items()))
    poor = [name for name, count in seen.items() if count * 100 < cases]
    return f"too few cases reach: {', '.join(poor)}" if poor else ""


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=["compare"])
    parser.add_argument("tool")
    parser.add_argument("--cases", type=int, default=100000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    failure = compare(options.tool, options.cases, options.seed)
    if failure:
        sys.exit(failure)


if __name__ == "__main__":
    main()
