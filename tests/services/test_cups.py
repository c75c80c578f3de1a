"""Slips through a real CUPS server to queues of receipt paper and sheets, read back from what comes out."""
import html
import json
import os
import pathlib
import random
import re
import signal
import socket
import subprocess
import tempfile
import time
import unittest

from cups_server import POINTS_IN_MM, Paper, Server, free_port

PROJECT = pathlib.Path(__file__).resolve().parents[2]
PRINT_SLIP = os.environ["VINTORAL_PRINT_SLIP"]
FONT = "Fuentes\\Vintoral.ttf"

# As drivers of receipt printers have them: 80 mm print on 72, 58 mm on 48, and some know certain lengths only.
PAPERS = {
    "roll80": Paper(80, [200], left=4, longest=3000),
    "fixed80": Paper(80, [297, 100, 200], left=4),
    "roll58": Paper(58, [200], left=5, longest=3000),
    "sheet": Paper(210, [297], left=6, top=10),
}
RAW = "raw"  # has no driver, and so tells nothing of its paper
# Names come in the alphabet's order.
NAMES = sorted([*PAPERS, RAW])

PITCH = 0.6  # of a column, in sizes of the type
COLUMNS = 31
# Nothing that a key does may take longer, in milliseconds.
KEY = 100
LIST = KEY + 50  # it may wait as long as a key, and then come back on a busy machine


class Page:
    """Words with their places in points, from the upper left corner."""

    def __init__(self, text):
        number = r'="([-0-9.]+)"'
        self.width, self.length = map(float, re.search(rf"<page width{number} height{number}", text).groups())
        words = re.findall(rf"<word xMin{number} yMin{number} xMax{number} yMax{number}>(.*?)</word>", text)
        self.words = [(*map(float, word[:4]), html.unescape(word[4])) for word in words]


def read_pages(file):
    text = subprocess.run(["pdftotext", "-bbox", file, "-"], check=True, capture_output=True, text=True).stdout
    return [Page(page) for page in re.findall(r"<page.*?</page>", text, re.DOTALL)]


def words_of(line):
    """The words of a printed line with their columns."""
    return [(found.start(), found[0]) for found in re.finditer(r"\S+", line)]


def scale_on(paper, size, columns=COLUMNS):
    return min(1, (paper.width - 2 * paper.left) * POINTS_IN_MM / (columns * PITCH * size))


def twips(points):
    return round(points * 20)


def bars(code, size):
    """The steps that print a code of bars two columns in."""
    return [{"addFont": FONT}, {"x": twips(2 * PITCH * size), "size": 3 * size, "font": "Free 3 of 9", "print": f"*{code}*"},
            {"removeFont": FONT}, {"size": size, "font": "Courier New"}]


def slip(*lines, printer="", size=10.5):
    """A document of lines; a tuple is a bold one, a dictionary any step."""
    steps = [{"size": size, "font": "Courier New"}]
    for line in lines:
        if isinstance(line, dict):
            steps.append(line)
        else:
            steps.append({"bold": isinstance(line, tuple), "print": line[0] if isinstance(line, tuple) else line})
    return {"do": "print", "printer": printer, "steps": steps}


class Printing:
    """A print-slip at work."""

    def __init__(self, test, folder, address):
        # A file: nobody reads it meanwhile.
        self.errors = test.enterContext(tempfile.TemporaryFile("w+"))
        self.process = subprocess.Popen(
            [PRINT_SLIP, folder], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=self.errors, text=True,
            env=os.environ | {"CUPS_SERVER": address, "XDG_RUNTIME_DIR": str(folder), "QT_LOGGING_RULES": "*=false"})
        test.addCleanup(self.process.stdout.close)
        test.addCleanup(self.process.stdin.close)
        test.addCleanup(self.process.wait)
        test.addCleanup(self.process.kill)

    def do(self, what):
        self.process.stdin.write(json.dumps(what) + "\n")
        self.process.stdin.flush()
        return json.loads(self.process.stdout.readline())

    def list(self):
        return self.do({"do": "list"})

    def end(self):
        """How long the end took, and what was told on standard error."""
        self.process.stdin.close()
        taken = json.loads(self.process.stdout.readline())["end"]
        self.process.wait(20)
        self.errors.seek(0)
        return taken, self.errors.read().splitlines()


class Slips(unittest.TestCase):
    def setUp(self):
        self.root = pathlib.Path(self.enterContext(tempfile.TemporaryDirectory()))
        self.station = self.root / "station"
        (self.station / "Fuentes").mkdir(parents=True)
        (self.station / "Fuentes/Vintoral.ttf").write_bytes((PROJECT / "data/fonts/Vintoral.ttf").read_bytes())
        self.server = Server(self.root / "cups", PAPERS | {RAW: None})
        self.addCleanup(self.server.end)
        self.root.chmod(0o755)  # for the user that the server's own programs run as

    def start(self):
        self.server.start()
        return self.printing()

    def printing(self, address=""):
        return Printing(self, self.station, address or self.server.address)

    def print_all(self, *documents):
        """The files that come out of these documents, in their order."""
        printing = self.start()
        for document in documents:
            self.assertLess(printing.do(document)["ms"], KEY)
        files = self.server.wait_printed(len(documents))
        self.assertEqual(printing.end()[1], [])
        return files

    def check_lines(self, page, lines, paper, size, scale, top):
        """Each word of the lines is on the page, in its column and line, and nothing else is."""
        pitch = twips(2320 / 2048 * size) / 20 * scale
        left = paper.left * POINTS_IN_MM
        wanted = []
        for number, line in enumerate(lines):
            wanted += [(left + column * PITCH * size * scale, top + number * pitch, text) for column, text in words_of(line)]
        self.assertEqual([word[4] for word in page.words], [word[2] for word in wanted])
        for found, (x, y, text) in zip(page.words, wanted):
            self.assertAlmostEqual(found[0], x, delta=0.15, msg=text)
            self.assertAlmostEqual(found[1], y, delta=0.7, msg=text)
            self.assertAlmostEqual(found[2] - found[0], len(text) * PITCH * size * scale, delta=0.15, msg=text)
            self.assertLessEqual(found[2], (paper.width - paper.left) * POINTS_IN_MM + 0.15)

    LINES = ["PARQUEADERO ÑANDÚ", ("  No.FICHA  0123            P01",), "HORA/FECHA  14:00  (20/11/2026)", "-" * COLUMNS,
             ("    PLACA : ÁÉÍÓÚÜÑ áéíóúüñ ¿¡€",), "   NOMBRE : çÇàÀ ãõ ½°ª º@#&<>\"", "=" * COLUMNS, "", "  pie de página", "."]

    def test_every_letter_stands_in_its_column(self):
        sizes = (10.5, 8.25, 12)
        cases = [(name, size) for name in PAPERS for size in sizes]
        files = self.print_all(*(slip(*self.LINES, printer=name, size=size) for name, size in cases))
        plain = [line[0] if isinstance(line, tuple) else line for line in self.LINES]
        for file, (name, size) in zip(files, cases):
            with self.subTest(queue=name, size=size):
                paper = PAPERS[name]
                self.assertEqual(file.stem.split("-")[0], name)
                page, = read_pages(file)
                self.assertAlmostEqual(page.width, paper.width * POINTS_IN_MM, delta=1)
                self.check_lines(page, plain, paper, size, scale_on(paper, size), paper.top * POINTS_IN_MM)
                if paper.longest:
                    length = len(plain) * 2320 / 2048 * size * scale_on(paper, size)
                    self.assertAlmostEqual(page.length, length, delta=2)
        # The size that slips have by default fits 80 mm as it is.
        self.assertEqual(scale_on(PAPERS["roll80"], 10.5), 1)

    def test_paper_of_certain_lengths(self):
        counts = {20: 100, 45: 200, 60: 297, 90: 297}
        files = self.print_all(*(slip(*(f"LINEA {i}" for i in range(count)), printer="fixed80") for count in counts))
        for file, (count, length) in zip(files, counts.items()):
            with self.subTest(lines=count):
                pages = read_pages(file)
                self.assertAlmostEqual(pages[0].length, length * POINTS_IN_MM, delta=1)
                self.assertEqual(len(pages), 1 if count < 90 else 2)
                self.assertEqual([word[4] for page in pages for word in page.words][1::2], [str(i) for i in range(count)])

    def test_a_long_slip_goes_on_over_sheets(self):
        lines = [f"LINEA {i}" for i in range(150)]
        file, = self.print_all(slip(*lines, printer="sheet"))
        pages = read_pages(file)
        self.assertEqual(len(pages), 3)
        paper = PAPERS["sheet"]
        first = 0
        for page in pages:
            count = len(page.words) // 2
            self.check_lines(page, lines[first:first + count], paper, 10.5, 1, paper.top * POINTS_IN_MM)
            self.assertLess(max(word[3] for word in page.words), (297 - paper.top) * POINTS_IN_MM + 1)
            first += count
        self.assertEqual(first, len(lines))

    def test_documents_come_out_in_their_order(self):
        count = 30
        documents = [slip(f"NUMERO {i}", printer=("roll80", "sheet")[i % 2]) for i in range(count)]
        files = self.print_all(*documents)
        self.assertEqual([read_pages(file)[0].words[1][4] for file in files], [str(i) for i in range(count)])

    def test_the_printer_is_chosen_by_its_name(self):
        files = self.print_all(*(slip("X", printer=name) for name in ("  SHEET ", "nowhere", "")))
        self.assertEqual([file.stem.split("-")[0] for file in files], ["sheet", "roll80", "roll80"])

    def test_a_queue_without_a_driver_has_sheets(self):
        file, = self.print_all(slip("X", printer=RAW))
        page, = read_pages(file)
        self.assertEqual((page.width, page.length), (595, 842))

    def test_the_list(self):
        printing = self.start()
        listed = printing.list()
        self.assertEqual((listed["names"], listed["current"]), (NAMES, "roll80"))
        self.assertLess(listed["ms"], LIST)

    # --- bars ---------------------------------------------------------------------------------------------------

    def read_bars(self, file, dots):
        """What an independent reader finds on the page as a print head of so many dots in an inch draws it, black or white."""
        subprocess.run(["pdftoppm", "-r", str(dots), "-mono", "-singlefile", file, self.root / "page"], check=True)
        read = subprocess.run(["zbarimg", "-q", "--raw", "--nodbus", self.root / "page.pbm"], capture_output=True, text=True,
                              check=False)
        return read.stdout.strip()

    def test_bars_are_read_from_80_mm(self):
        seed = int.from_bytes(os.urandom(4), "little")
        dice = random.Random(seed)
        sizes = (5, 6, 7, 8, 9, 10, 10.5, 11, 12)
        cases = [(size, "".join(dice.choices("ABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-. $/+%", k=10)))
                 for size in sizes for _ in range(4)]
        # A reader may drop blanks at the ends.
        cases = [(size, f"A{middle}9") for size, middle in cases]
        files = self.print_all(*(slip("=" * COLUMNS, *bars(code, size), "-" * COLUMNS, printer="roll80", size=size)
                                 for size, code in cases))
        smaller = set()
        for file, (size, code) in zip(files, cases):
            with self.subTest(size=size, code=code, seed=seed):
                # Heads of 8 dots a millimetre from 7 points on, of 12 dots below.
                self.assertEqual(self.read_bars(file, 203 if size >= 7 else 300), code)
                rule = next(word for word in read_pages(file)[0].words if word[4].startswith("=="))
                if (rule[2] - rule[0]) / COLUMNS < PITCH * size * 0.999:
                    smaller.add(size)
        # With 11 points and more the lines are wider than the 72 mm: the slip is made smaller, its code with it.
        self.assertEqual(smaller, {11, 12})

    def test_without_the_bars_file(self):
        (self.station / "Fuentes/Vintoral.ttf").unlink()
        printing = self.start()
        printing.do(slip("ANTES", *bars("ABC123", 10.5), "DESPUES", printer="roll80"))
        file, = self.server.wait_printed(1)
        before, after = read_pages(file)[0].words
        self.assertEqual((before[4], after[4]), ("ANTES", "DESPUES"))
        self.assertAlmostEqual(after[1] - before[1], (2320 / 2048 + 3) * 10.5, delta=0.2)
        self.assertEqual(self.read_bars(file, 203), "")
        _, errors = printing.end()
        self.assertEqual(len(errors), 1)
        self.assertIn("Vintoral.ttf", errors[0])

    # --- photos -------------------------------------------------------------------------------------------------

    def test_a_photo_fills_its_place(self):
        (self.station / "Fotos").mkdir()
        photo = self.station / "Fotos/Quarters.jpg"
        subprocess.run(["convert", "-size", "320x240", "xc:red", "xc:lime", "+append", "(", "-size", "320x240", "xc:blue",
                        "xc:yellow", "+append", ")", "-append", "-quality", "95", photo], check=True)
        size = 10.5
        x, y, width, height = twips(2 * PITCH * size), twips(15), twips(16 * size), twips(12 * size)
        steps = [{"picture": "fotos\\quarters.JPG", "x": x, "y": y, "width": width, "height": height}, {"y": y + height}]
        missing = [steps[0] | {"picture": "Fotos\\None.jpg"}, steps[1]]
        names = ("roll80", "roll58", "sheet")
        printing = self.start()
        for name in names:
            printing.do(slip("ARRIBA", *steps, "ABAJO", printer=name))
        printing.do(slip("ARRIBA", *missing, "ABAJO", printer="roll80"))
        files = self.server.wait_printed(4)
        for file, name in zip(files, names):
            with self.subTest(queue=name):
                paper = PAPERS[name]
                scale = scale_on(paper, size, 2 + 16 / PITCH)
                place = [(paper.left * POINTS_IN_MM + x / 20 * scale), (paper.top * POINTS_IN_MM + y / 20 * scale),
                         width / 20 * scale, height / 20 * scale]
                self.check_quarters(file, place)
        below = [next(word for word in read_pages(file)[0].words if word[4] == "ABAJO") for file in (files[0], files[3])]
        self.assertEqual(below[0], below[1], "a picture that is not there leaves its space")
        _, errors = printing.end()
        self.assertEqual(len(errors), 1)
        self.assertIn("None.jpg", errors[0])

    def check_quarters(self, file, place):
        """The four colours, where they belong, from edge to edge of the place (in points)."""
        dots = 4  # in a point
        subprocess.run(["pdftoppm", "-r", str(72 * dots), "-singlefile", file, self.root / "photo"], check=True)
        data = (self.root / "photo.ppm").read_bytes()
        columns, rows = map(int, re.match(rb"P6\s(\d+) (\d+)\s255\s", data).groups())
        pixels = data[len(data) - 3 * columns * rows:]

        def colour(x, y):
            at = 3 * (int(y * dots) * columns + int(x * dots))
            return "".join("1" if value > 128 else "0" for value in pixels[at:at + 3])
        left, top, width, height = place
        near, far = 0.02, 0.98
        for x, y, wanted in ((near, near, "100"), (far, near, "010"), (near, far, "001"), (far, far, "110"),
                             (0.48, 0.48, "100"), (0.52, 0.52, "110")):
            self.assertEqual(colour(left + x * width, top + y * height), wanted, (x, y))
        for x, y in ((-0.01, 0.5), (1.01, 0.5), (0.5, 1.01)):
            self.assertEqual(colour(left + x * width, top + y * height), "111", (x, y))

    # --- trouble ------------------------------------------------------------------------------------------------

    def test_a_stopped_queue_keeps_the_slips(self):
        printing = self.start()
        self.assertEqual(self.server.ask("cupsdisable", "roll80").returncode, 0)
        for i in range(3):
            self.assertLess(printing.do(slip(f"NUMERO {i}"))["ms"], KEY)
        self.assertLess(printing.list()["ms"], LIST)
        taken, errors = printing.end()
        self.assertEqual(errors, [])
        self.assertLess(taken, 2000)
        self.assertEqual(self.server.printed(), [])
        self.assertEqual(self.server.ask("cupsenable", "roll80").returncode, 0)
        files = self.server.wait_printed(3)
        self.assertEqual([read_pages(file)[0].words[1][4] for file in files], ["0", "1", "2"])

    def test_a_queue_that_takes_nothing_loses_the_slip(self):
        printing = self.start()
        self.assertEqual(self.server.ask("cupsreject", "roll80").returncode, 0)
        self.assertLess(printing.do(slip("A"))["ms"], KEY)
        printing.do(slip("B", printer="sheet"))
        self.assertEqual([file.stem.split("-")[0] for file in self.server.wait_printed(1)], ["sheet"])
        _, errors = printing.end()
        self.assertEqual(len(errors), 1)
        self.assertIn("is lost", errors[0])

    def test_a_server_that_is_killed_and_comes_back(self):
        printing = self.start()
        printing.do(slip("NUMERO 0"))
        # A server that is killed forgets the numbers of its jobs.
        self.server.wait_printed(1)[0].unlink()
        self.server.end(signal.SIGKILL)
        for i in (1, 2):
            self.assertLess(printing.do(slip(f"NUMERO {i}"))["ms"], KEY)
        self.assertLess(printing.list()["ms"], LIST)
        time.sleep(0.5)
        self.server.start()
        files = self.server.wait_printed(2)
        self.assertEqual([read_pages(file)[0].words[1][4] for file in files], ["1", "2"])
        self.assertEqual(printing.end()[1], [])

    def test_a_server_that_is_killed_for_good(self):
        printing = self.start()
        self.assertEqual(printing.list()["names"], NAMES)
        self.server.end(signal.SIGKILL)
        self.assertLess(printing.do(slip("A"))["ms"], KEY)
        self.assertEqual(printing.list()["names"], NAMES, "what is known stays known")
        taken, errors = printing.end()
        self.assertLess(taken, 2000)
        self.assertEqual(len(errors), 1)

    def test_a_server_that_never_answers(self):
        with socket.create_server(("127.0.0.1", 0), backlog=50) as silent:
            self.check_no_help(f"127.0.0.1:{silent.getsockname()[1]}")

    def test_a_server_that_stops_in_the_middle_of_its_work(self):
        printing = self.start()
        self.assertEqual(printing.list()["names"], NAMES)
        self.server.process.send_signal(signal.SIGSTOP)  # connections are taken, and nothing more
        self.check_no_help(printing=printing)

    def test_no_server_at_all(self):
        self.check_no_help(f"127.0.0.1:{free_port()}")

    def test_no_server_behind_a_socket_of_this_machine(self):
        self.check_no_help(str(self.root / "nowhere"))

    def check_no_help(self, address="", printing=None):
        printing = printing or self.printing(address)
        for _ in range(3):
            self.assertLess(printing.do(slip("A", *bars("ABC", 10.5)))["ms"], KEY)
            self.assertLess(printing.list()["ms"], LIST)
        taken, errors = printing.end()
        self.assertLess(taken, 2000)
        self.assertEqual(len(errors), 3, errors)
        for line in errors:
            self.assertIn("is lost", line)


unittest.main()
