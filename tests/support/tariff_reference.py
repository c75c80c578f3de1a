#!/usr/bin/env python3
"""The tariff language once more, naive and exact, to hold the station's own pricing against.

    tariff_reference.py compare TOOL [--cases N] [--seed N]

writes N random cases, nasty ones, asks TOOL (tariff-stream) and this file for the answer to each, and fails
at the first difference. Everything is exact: values are fractions, nothing is a binary floating point number.

One question a line, one answer a line; texts are hexadecimal Windows-1252, "-" when empty:

    T FILE                  the lines of a file of 100-byte records:  LINE:IS_CATEGORY ...
    V DAYS HOURS MINUTES CATEGORY    the price of a stay by the last file:
                            FOUND PRICED RAW DAYS HOURS MINUTES MINUTE_RULES HOUR_RULES DAY_RULES
    E ENTRY EXIT            the stay between two moments:  TEXT DAYS HOURS MINUTES POINTS, or ??
    X RECORD                the line of an extras record
    I                       the text in which the tables of the last file are edited
    P TEXT                  the lines of an edited text:  EXTRAS_LINE:PREPAID_LINE ...
"""

import argparse
import datetime
import functools
import random
import re
import subprocess
import sys
from fractions import Fraction

# ---------------------------------------------------------------------------------------------------------
# Text


def decode(raw):
    """Windows-1252; the five bytes that it leaves unassigned stand for themselves."""
    return "".join(bytes([b]).decode("cp1252", "ignore") or chr(b) for b in raw)


@functools.cache
def byte_of(character):
    if ord(character) < 128:
        return bytes([ord(character)])
    return character.encode("cp1252", "ignore") or (bytes([ord(character)]) if ord(character) < 256 else b"?")


def encode(text):
    return b"".join(map(byte_of, text))


def capital(character):
    """One letter for one letter, and only where Windows-1252 has the capital."""
    raised = character.upper()
    if len(raised) != 1:
        return character
    try:
        raised.encode("cp1252")
    except UnicodeEncodeError:
        return character
    return raised


CAPITALS = {ord(c): capital(c) for c in decode(range(256))}


def capitals(text):
    return text.translate(CAPITALS)


def trim(text):
    return text.strip(" ")


# ---------------------------------------------------------------------------------------------------------
# Tables


def records(raw):
    return [decode(raw[i * 100:i * 100 + 100]) for i in range(len(raw) // 100)]


def tariff_line(record):
    return capitals(trim(record)[:20])


def extras_line(record):
    return capitals(trim(record))


def is_category(record):
    return trim(record) != "" and "=" not in record


# ---------------------------------------------------------------------------------------------------------
# Edited texts


def text_of(table):
    return "\r\n".join(line.rstrip(" ") for line in table)


def edited_lines(text):
    if trim(text.replace("\r\n", " ")) == "":
        return []
    return trim(text).split("\r\n")


def edited_extra(line):
    line = trim(line)
    if "=" not in line:
        return capitals(line)[:100]
    name, _, price = line.partition("=")
    name = trim(trim(name.replace("\t", " "))[:15])
    return capitals(name + " = " + trim(price)[:9])


# ---------------------------------------------------------------------------------------------------------
# Rules


def key_of(rule):
    text = trim(rule[:rule.index("=")])[:4]
    digits = re.match(r"[+-]?([0-9]*)", text).group(1)
    return int(digits) if digits else 0


def value_text(rule):
    return trim(rule[rule.index("=") + 1:])


def value_of(rule):
    text = value_text(rule)[:9].replace(",", ".")
    number = re.match(r"[+-]?([0-9]*\.?[0-9]*)", text).group(1)
    if number in ("", "."):
        return Fraction(0)
    whole, _, decimals = number.partition(".")
    return Fraction(int((whole + decimals) or "0"), 10 ** len(decimals))


def holds(line, letter):
    return letter in capitals(line)


# ---------------------------------------------------------------------------------------------------------
# Value


def currency(amount):
    """Four decimals, halves to even, kept within 64 bits."""
    raw = round(amount * 10000)
    return max(-(2 ** 63), min(2 ** 63 - 1, raw))


def two_decimals(raw):
    """Halves away from zero."""
    cents = (abs(raw) + 50) // 100 * 100
    if cents > 2 ** 63 - 1:
        cents = 2 ** 63 - 1
    return cents if raw >= 0 else -cents


def price(table, category, days, hours, minutes):
    count = len(table)
    i = 1
    while i <= count:
        if capitals(trim(table[i - 1])) == capitals(trim(category)):
            break
        i += 1
    if i > count:
        return (0, 0, 0, days, hours, minutes, 0, 0, 0)

    minute_rules, hour_rules, day_rules = [], [], []
    for j in range(i, count + 1):
        s = trim(table[j - 1])
        if s == "":
            break
        if "=" not in s:
            continue
        if holds(s, "M"):
            if days == 0 and hours == 0 and minutes == 0:
                minute_rules.append(s)
            else:
                first_hour = key_of(s) == 1 and "**" in s and minutes > 0 and hours == 0 and j + 1 <= count
                if not first_hour:
                    minute_rules.append(s)
                elif value_text(s) == "0**" or holds(table[j], "H"):
                    minutes = 0
                    hours = 1
        if holds(s, "H") and hours >= 1:
            hour_rules.append(s)
        if holds(s, "D") and days >= 1:
            day_rules.append(s)

    minute_part = Fraction(0)
    for s in minute_rules:
        v, k = value_of(s), key_of(s)
        if (k == 1 and "*" in s and v > 0) or k >= minutes:
            minute_part = v * minutes if "*" in s else v
            break
        minute_part = v

    hour_part = Fraction(0)
    for s in hour_rules:
        v, k = value_of(s), key_of(s)
        if (k == 1 and "*" in s and "**" not in s and v > 0) or k >= hours:
            hour_part = v
            if "**" in s:
                minute_part = Fraction(0)
            elif "*" in s:
                hour_part = v * hours
            break
        hour_part = v

    day_part = Fraction(0)
    for s in day_rules:
        v, k = value_of(s), key_of(s)
        if (k == 1 and "*" in s and v > 0) or k >= days:
            day_part = v * days if "*" in s else v
            break
        day_part = v

    raw = two_decimals(currency(day_part + hour_part + minute_part))
    priced = 1 if minute_rules or hour_rules or day_rules else 0
    return (1, priced, raw, days, hours, minutes, len(minute_rules), len(hour_rules), len(day_rules))


# ---------------------------------------------------------------------------------------------------------
# Stay


def moment(text):
    parts = re.fullmatch(r"([0-9]{1,2})/([0-9]{1,2})/([0-9]{4}) ([0-9]{1,2}):([0-9]{1,2}):([0-9]{1,2})", text.strip(" \0"))
    if not parts:
        return None
    day, month, year, hour, minute, second = (int(p) for p in parts.groups())
    try:
        return datetime.datetime(year, month, day, hour, minute, second)
    except ValueError:
        return None


def stay(entry, leaving):
    start, end = moment(entry), moment(leaving)
    if start is None or end is None or start > end:
        return None
    seconds = int((end - start) // datetime.timedelta(seconds=1))
    return seconds // 86400, seconds // 3600 % 24, seconds // 60 % 60


def stay_text(days, hours, minutes):
    if days >= 1:
        return f"{days:02d}D {hours:02d}H {minutes:02d}M "
    if hours == 0:
        return f"{minutes:02d}M "
    return f"{hours:02d}H {minutes:02d}M "


# ---------------------------------------------------------------------------------------------------------
# Answers, in the form of the tool


def as_hex(text):
    return encode(text).hex() or "-"


def from_hex(word):
    return b"" if word == "-" else bytes.fromhex(word)


class Reference:
    def __init__(self):
        self.table = []

    def answer(self, question):
        words = question.split()
        if words[0] == "T":
            lines = records(from_hex(words[1]))
            self.table = [tariff_line(r) for r in lines]
            return " ".join(f"{as_hex(t)}:{int(is_category(r))}" for t, r in zip(self.table, lines)) or "-"
        if words[0] == "V":
            days, hours, minutes = (int(w) for w in words[1:4])
            return " ".join(map(str, price(self.table, decode(from_hex(words[4])), days, hours, minutes)))
        if words[0] == "E":
            spent = stay(decode(from_hex(words[1])), decode(from_hex(words[2])))
            if spent is None:
                return "??"
            days, hours, minutes = spent
            points = days * 96 + hours * 4 + minutes // 15
            return f"{as_hex(stay_text(*spent))} {days} {hours} {minutes} {points}"
        if words[0] == "I":
            return as_hex(text_of(self.table))
        if words[0] == "P":
            lines = edited_lines(decode(from_hex(words[1])))
            return " ".join(f"{as_hex(edited_extra(line))}:{as_hex(line[:100])}" for line in lines) or "-"
        return as_hex(extras_line(decode(from_hex(words[1]))))


# ---------------------------------------------------------------------------------------------------------
# Random cases

KEYS = ("0 1 1 1 1 1 1 -1 -1 +1 01 0001 00001 2 2 3 4 5 5 10 15 17 23 24 30 32 47 58 59 59 60 9999 99999 -5 -59 "
        "1.5 0.5 .5 1,5 1* -- - + X a1 1X").split() + ["", "1 2", "- 1", "1\t", "\t1", " 1 "]
UNITS = "M M M M M H H H H D D D m h d MH HM MD HD MHD Min. HORA dia X Ñ".split() + ["", " M", "  H", " m "]
EQUALS = [" = ", " = ", " = ", "=", " =", "= ", "   =   ", "==", " = = ", "\t=\t"]
VALUES = ("0 0 1 10 100 100 500 2000 30000 300000 12,50 12.50 0,01 0.005 0,00005 0.00495 ,00494 .0000001 0.015 "
          "0.00015 0.00025 1.2.3 1,2.3 1.000,5 -5 +7 -0,5 --5 - . , 999999999 99999,999 1234567890 12345678,9 1E3 1D3 "
          "&H10 $5 5M 0M 00 0,0 000000000 0000000001 X 5A5").split() + ["", "1 2", "- 5", "5 0"]
STARS = ["", "", "", "*", "*", "*", "**", "**", "**", "**", " *", " **", "* *", "***", "*x*", "* **", "      *", "  **"]
FIRST_HOUR = ["0**", "0**", "10**", "0 **", "0**H", "00**", "0***", "**"]
HEADS = ["AUTOMOVIL", "automovil", "MOTO", "Hotel", "CAMIÓN", "camión", "ñandú", "ÑANDÚ", "BUS", "X", "CON ESPACIO", "PRUEBA",
         "AGENTE INMOBILIARIO", "UNA CATEGORIA DE NOMBRE LARGO", "UNA CATEGORIA DE NOMBRE CORTO", "Š œ ž ÿ ß µ × ÷",
         "TAB\tTAB", "1M 100*", "**", "NOCHE 12H", "DIA", "MES", "VEHICULO LIGERO"]


def random_rule(rng):
    value, stars = rng.choice(VALUES), rng.choice(STARS)
    if rng.random() < 0.1:
        value, stars = "0", "**"
    if rng.random() < 0.15:
        value = str(rng.randrange(10 ** rng.randrange(1, 11)))
    if rng.random() < 0.15:
        digits = str(rng.randrange(10 ** 8))
        at = rng.randrange(len(digits) + 1)
        value = digits[:at] + rng.choice(".,") + digits[at:]
    key, unit = rng.choice(KEYS), rng.choice(UNITS)
    if rng.random() < 0.2:
        key = str(rng.randrange(70))
    if rng.random() < 0.05:
        key, stars = key + rng.choice(["*", "**"]), ""
    if rng.random() < 0.05:
        key, unit = unit, key
    return key + unit + rng.choice(EQUALS) + value + stars


def plain_rules(rng):
    """A tariff as an operator writes one: keys in order, one unit after the other."""
    lines = []
    for unit, top in (("M", 60), ("H", 24), ("D", 8)):
        keys = sorted(rng.sample(range(0, top), rng.randrange(0, 5)))
        if rng.random() < 0.6 and 1 not in keys:
            keys.insert(0, 1)
        lines += [f"{k}{unit} = {rng.choice([0, 5, 100, 250, 6000])}{rng.choice(['', '', '*', '**'])}" for k in keys]
    return lines


def random_head(rng):
    head = rng.choice(HEADS)
    return rng.choice([head, head, head.lower(), head.upper(), head.title()])


def random_line(rng):
    kind = rng.random()
    if kind < 0.12:
        line = rng.choice(["1", "1", "-1", "+1", "01"]) + "M" + rng.choice([" = ", "="]) + rng.choice(FIRST_HOUR)
    elif kind < 0.74:
        line = random_rule(rng)
    elif kind < 0.86:
        line = random_head(rng)
    elif kind < 0.92:
        line = ""
    else:
        line = "".join(rng.choice("01259MHDmhd=*,. -+xñÑ\0\t") for _ in range(rng.randrange(0, 26)))
    if rng.random() < 0.1:
        line = line.lower() if rng.random() < 0.5 else line.upper()
    if rng.random() < 0.04:
        line += " " * rng.randrange(0, 14) + rng.choice(["*", "**", "M", "H", "D", "=", "NOMBRE", "1" * 90])
    return line


def random_table(rng):
    lines = []
    for _ in range(rng.randrange(0, 4)):
        if rng.random() < 0.85:
            lines.append(random_head(rng))
        if rng.random() < 0.4:
            lines += plain_rules(rng)
        else:
            lines += [random_line(rng) for _ in range(rng.randrange(0, 9))]
        if rng.random() < 0.7:
            lines.append("")
    return lines


def file_of(rng, lines):
    def record(line):
        text = rng.choice(["", " ", " ", "  ", "      "]) + line
        return encode(text)[:100].ljust(100, b" ")

    raw = bytearray(b"".join(record(line) for line in lines))
    if raw and rng.random() < 0.05:
        for _ in range(rng.randrange(1, 20)):
            raw[rng.randrange(len(raw))] = rng.randrange(256)
    if rng.random() < 0.1:
        raw += b" 1M = 77*"  # a torn record
    return bytes(raw)


def random_edit(rng):
    """What an operator may leave in a box: articles, loads, anything, and often next to nothing."""
    def line():
        kind = rng.random()
        if kind < 0.3:
            return random_line(rng)
        if kind < 0.5:
            return rng.choice(["", "", " ", "   ", "\t", "\r", "\n"])
        name = "".join(rng.choice("abcñ É\t  ") for _ in range(rng.randrange(0, 24)))
        price = "".join(rng.choice("0123456789,. ") for _ in range(rng.randrange(0, 14)))
        return rng.choice(["", " "]) + name + rng.choice(EQUALS) + price + " " * rng.choice([0, 0, 2, 90])

    ends = ["\r\n", "\r\n", "\r\n", "\r\n", "\r\n\r\n", "\n"]
    text = "".join(line() + rng.choice(ends) for _ in range(rng.randrange(0, 5)))
    return rng.choice(["", "", " ", "  \r\n"]) + text + rng.choice(["", "  ", line()])


def random_category(rng, table):
    kind = rng.random()
    if table and kind < 0.9:
        heads = [line for line in table if "=" not in line and trim(line)]
        name = rng.choice(heads if heads and kind < 0.84 else table)
    else:
        name = rng.choice(HEADS + ["", " ", "NINGUNA", "1M = 100*"])
    name = rng.choice([name, name, name.lower(), capitals(name), name.title()])
    return rng.choice(["", "", " "]) + name + rng.choice(["", "", "   "]) + ("\0" if rng.random() < 0.02 else "")


def random_stay(rng):
    days = rng.choice([0, 0, 0, 0, 0, 1, 1, 2, 3, 7, rng.randrange(40), rng.randrange(4000)])
    hours = rng.choice([0, 0, 0, 1, 1, 2, rng.randrange(24), rng.randrange(24)])
    minutes = rng.choice([0, 0, 1, 1, 2, 15, 59, rng.randrange(60), rng.randrange(60), rng.randrange(60)])
    odd = rng.random()
    if odd < 0.01:
        days = rng.choice([3652058, 1000000, 922337, 922338, 2 ** 31 - 1])
    elif odd < 0.02:
        hours, minutes = rng.randrange(-3, 100), rng.randrange(-3, 100)
    return days, hours, minutes


def random_moment(rng):
    first = datetime.datetime(2024, 2, 27)
    when = first + datetime.timedelta(seconds=rng.randrange(5 * 86400))
    if rng.random() < 0.1:
        when = datetime.datetime(1, 1, 1) + datetime.timedelta(seconds=rng.randrange(9998 * 365 * 86400))
    text = when.strftime("%d/%m/") + f"{when.year:04d}" + when.strftime(rng.choice([" %H:%M:%S", " %H:%M:00"]))
    if rng.random() < 0.1:
        at = rng.randrange(len(text))
        text = text[:at] + rng.choice(["", "0", "9", "x", " ", "/", ":", "31"]) + text[at + 1:]
    if rng.random() < 0.05:
        text = rng.choice(["", "??", "29/02/2023 10:00:00", "31/04/2024 10:00:00", "01/13/2024 10:00:00",
                           "01/01/0000 10:00:00", "01/01/2024 24:00:00", "01/01/2024 10:60:00", "1/2/2024 3:4:5",
                           "01/01/24 10:00:00", "01/01/2024  10:00:00", "  01/01/2024 10:00:00 "])
    return text


def questions(seed, cases):
    """`cases` priced stays, with the tables they are priced by and other questions between them."""
    rng = random.Random(seed)
    asked = 0
    while asked < cases:
        raw = file_of(rng, random_table(rng))
        table = [tariff_line(r) for r in records(raw)]
        yield "T " + (raw.hex() or "-")
        for _ in range(rng.randrange(1, 12)):
            days, hours, minutes = random_stay(rng)
            yield f"V {days} {hours} {minutes} {as_hex(random_category(rng, table))}"
            asked += 1
        yield f"E {as_hex(random_moment(rng))} {as_hex(random_moment(rng))}"
        yield "I"
        yield "P " + as_hex(random_edit(rng))
        yield "X " + (encode(random_line(rng))[:100].ljust(100, b" ")).hex()


# ---------------------------------------------------------------------------------------------------------
# Comparison


def compare(tool, cases, seed):
    asked = list(questions(seed, cases))
    told = subprocess.run([tool], input="\n".join(asked) + "\n", capture_output=True, text=True, check=True)
    answers = told.stdout.splitlines()
    if len(answers) != len(asked):
        return f"{len(asked)} questions, {len(answers)} answers"
    reference, table, seen = Reference(), "", {}
    for question, answer in zip(asked, answers):
        expected = reference.answer(question)
        if question[0] == "T":
            table = question
        if answer != expected:
            lines = "\n".join(repr(line) for line in reference.table)
            return f"{table}\n{lines}\n{question}\nexpected {expected}\ngot      {answer}"
        if question[0] == "V":
            found, priced, raw, _, hours, minutes = expected.split()[:6]
            raised = [hours, minutes] != question.split()[2:4]
            for name, true in (("found", found == "1"), ("priced", priced == "1"), ("above 0", raw != "0"),
                               ("raised", raised), ("with cents", int(raw) % 10000 != 0)):
                seen[name] = seen.get(name, 0) + true
    print(f"{cases} stays and {len(asked)} answers agree;", ", ".join(f"{n} {c}" for n, c in seen.items()))
    poor = [name for name, count in seen.items() if count * 50 < cases]
    return f"too few cases reach: {', '.join(poor)}" if poor else ""


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("action", choices=["compare"])
    parser.add_argument("tool")
    parser.add_argument("--cases", type=int, default=20000)
    parser.add_argument("--seed", type=int, default=1)
    options = parser.parse_args()
    failure = compare(options.tool, options.cases, options.seed)
    if failure:
        sys.exit(failure)


if __name__ == "__main__":
    main()
