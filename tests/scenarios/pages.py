"""Pages that a station writes for its browser, read strictly: a line that is not as such pages are made is an error."""
import dataclasses
import html
import re

HEAD = ['<html xmlns:o="urn:schemas-microsoft-com:office:office"', 'xmlns:x="urn:schemas-microsoft-com:office:excel"',
        'xmlns="http://www.w3.org/TR/REC-html40">', ""]
BODY = ["-->", "</style>", "</head>", "<body>", "<!--[if !excel]>&nbsp;&nbsp;<![endif]-->",
        '<div id="Vintoral_25893" align=center x:publishsource="Excel">',
        "<table x:str border=0 cellpadding=0 cellspacing=0 width=1090 class=xl2425893 "
        "style='border-collapse:collapse;table-layout:fixed;width:816pt'>"]
HEADS_ROW = " <tr height=44 style='mso-height-source:userset;height:33.0pt'>"
ROW, ROW_END = " <tr height=22 style='height:16.5pt'>", " </tr>"
SIZES, END = [" <![if supportMisalignedColumns]>", " <tr height=0 style='display:none'>"], [
    " </tr>", " <![endif]>", "</table>", "</div>", "</body>", "</html>", ""]

TITLE = re.compile(r"<head><TITLE>Vintoral - ([^<]*)</TITLE>")
COLUMN = re.compile(r" <col class=xl2\d25893 width=\d+ style='mso-width-source:userset;mso-width-alt:\d+;width:\d+pt'>")
CELL = re.compile(r"  <td class=xl[23]\d2589[34]( style='border-left:none')?>([^<>]*)</td>")
LINK = re.compile(r"  <td class=xl2625893 style='border-left:none'>"
                  r'<a href="file:///[^<>"]*" target="_blank">(VER FOTO)</a></td>')
HIDDEN = re.compile(r"  <td width=\d+ style='width:\d+pt'></td>")


@dataclasses.dataclass
class Page:
    title: str
    heads: tuple
    rows: list  # of tuples of texts, one text for each head


class Lines:
    """The lines of a page, taken one by one."""

    def __init__(self, data):
        text = data.decode("cp1252")
        if "\n" in text.replace("\r\n", ""):
            raise ValueError("a line feed without its carriage return")
        self.left = text.split("\r\n")
        self.at = 0

    def take(self):
        self.at += 1
        return self.left[self.at - 1]

    def next_is(self, line):
        return self.left[self.at] == line

    def expect(self, *lines):
        for line in lines:
            if not self.next_is(line):
                raise ValueError(f"line {self.at + 1} is {self.left[self.at][:200]!r} and not {line!r}")
            self.at += 1

    def match(self, pattern):
        found = pattern.fullmatch(self.left[self.at])
        if found:
            self.at += 1
        return found

    def many(self, pattern):
        count = 0
        while self.match(pattern):
            count += 1
        return count


def read_cell(lines, first):
    found = lines.match(CELL) or (None if first else lines.match(LINK))
    if not found:
        raise ValueError(f"line {lines.at + 1} is no cell: {lines.left[lines.at][:200]!r}")
    if found.re is LINK:
        return found.group(1)
    if first == bool(found.group(1)):
        raise ValueError(f"line {lines.at}: the border of a cell that is {'' if first else 'not '}the first of its row")
    return html.unescape(found.group(2))


def read_row(lines, opening, width):
    lines.expect(opening)
    cells = tuple(read_cell(lines, column == 0) for column in range(width))
    lines.expect(ROW_END)
    return cells


def read_page(data):
    """The page of these bytes."""
    lines = Lines(data)
    lines.expect(*HEAD)
    title = lines.match(TITLE)
    if not title:
        raise ValueError(f"no title in {lines.take()[:200]!r}")
    while not lines.next_is(BODY[0]):
        lines.take()  # what the page says of itself, and its styles
    lines.expect(*BODY)
    width = lines.many(COLUMN)
    heads = read_row(lines, HEADS_ROW, width)
    rows = []
    while not lines.next_is(SIZES[0]):
        rows.append(read_row(lines, ROW, width))
    lines.expect(*SIZES)
    if lines.many(HIDDEN) != width:
        raise ValueError("a size is missing or too many")
    lines.expect(*END)
    if lines.at != len(lines.left):
        raise ValueError("something stands behind the page")
    return Page(html.unescape(title.group(1)), heads, rows)
