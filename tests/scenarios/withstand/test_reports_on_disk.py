"""Reports on a disk that is full or may not be written, and of data that goes away or is worked on meanwhile."""
import itertools
import threading

import trouble
from reports import F4, F5, NOTHING_FOUND, PAGE, SEARCH_FOUND, SHOW_PAGE, TEXT, TODAY, Page, ReportDay, gone
from sales import EXT, XTR, line, sales_file
from slips import printed
from station import CLICK, ESC, Folder, inside, launches, lines, sounds, stamp

HISTORY, SUMS, LIST_OF_SALES, USERS = 0, 2, 3, 4  # of CmdMenu


class Reports(trouble.Trouble, ReportDay):
    def gate(self, rows=3, **more):
        self.folder.write(EXT, sales_file(line("CAFE", 1, 5, 900)))
        self.folder.write(XTR, lines("CAFE = 5"))
        left = [gone(0, n % 9999 + 1, ("10:00", TODAY), f"OUT{n}", 1) for n in range(rows)]
        return self.day(*left, **{"fichas": [inside(n, stamp("08:00", TODAY), f"IN{n}") for n in range(101, 106)], **more})

    def assertImpossible(self, gate, name, folder=None):
        self.assertBox(gate, {
            "title": "Vintoral - Imposible Imprimir", "icon": "exclamation", "buttons": ["ok"],
            "text": f"La carpeta '{folder or self.folder.path}' está protegida contra escritura. "
                    f'No es posible crear el archivo de impresión "{name}".'})

    def assertNothingStray(self):
        names = sorted(file.name for file in (self.folder / "Recursos").iterdir())
        self.assertEqual([name for name in names if "nuevo" in name or name.startswith(".")], [])

    def leave(self, gate):
        gate.key(ESC)
        self.assertIsNone(gate.reply["waiting"])


class FullDisk(Reports, trouble.SmallDisk):
    """A page of some hundred KiB on a disk that has room for less."""
    PAGES = 400
    ROWS = 300

    def test_the_page_of_before_stays_whole(self):
        gate = self.gate(self.ROWS)
        self.menu(gate, HISTORY)
        gate.answer("no")
        data = (self.folder / PAGE).read_bytes()
        pages = -(-len(data) // trouble.PAGE)
        self.assertGreater(pages, 40)  # of which the first goes out in one piece of sixteen
        self.assertEqual(self.page().total(), (f"{self.ROWS} Registro(s)", f"$ {self.ROWS}.00"))
        for room in (0, 1, 2, 15, 16, 17, 31, 32, 33, pages - 2, pages - 1):
            with self.subTest(room=room):
                self.fill(leave=room)
                gate.click(f"Form5.CmdMenu({HISTORY})")
                gate.answer("yes")
                reply = gate.answer("yes")
                self.assertImpossible(gate, "Vintoral.HTML")
                self.assertEqual((launches(reply), self.state_of_page()), ([], data))
                reply = gate.answer("ok")
                # The money of a shift is counted on paper all the same.
                self.assertEqual((launches(reply), len(printed(reply)), reply["waiting"]), ([], 1, {"form": "Form5"}))
                self.assertIn(f"TOTAL $ {self.ROWS}.00", printed(reply)[0][1])
                self.assertEqual(self.state_of_page(), data)
                self.assertNothingStray()
        self.fill(leave=pages)
        gate.click(f"Form5.CmdMenu({HISTORY})")
        self.assertEqual(launches(gate.answer("no")), [SHOW_PAGE])
        self.assertEqual(self.state_of_page(), data)
        self.leave(gate)
        self.assertFalse((self.folder / PAGE).exists())

    def state_of_page(self):
        return (self.folder / PAGE).read_bytes()

    def test_each_report_says_so_and_leaves_no_half_of_it(self):
        gate = self.gate()
        for kind, name in (("state", "Vintoral.HTML"), ("sheet", "Vintoral.HTML"), (HISTORY, "Vintoral.HTML"),
                           (USERS, "Vintoral.HTML"), (SUMS, "Vintoral.RGT"), (LIST_OF_SALES, "Vintoral.RGT")):
            with self.subTest(kind=kind):
                self.fill()
                if kind == "sheet":
                    gate.do("hover", control="ImgFicha(1)")
                if kind in ("state", "sheet"):
                    gate.key(F4)
                    gate.answer("no")
                else:
                    self.menu(gate, kind)
                    if kind == HISTORY:
                        gate.answer("no")
                self.assertImpossible(gate, name)
                self.assertEqual(launches(gate.answer("ok")), [])
                self.assertFalse((self.folder / "Recursos" / name).exists())
                self.assertNothingStray()
                if gate.reply["waiting"]:
                    self.leave(gate)
                self.empty()
        gate.key(F4)
        self.assertEqual(launches(gate.answer("no")), [SHOW_PAGE])

    def test_a_search_shows_what_it_found(self):
        gate = self.gate()
        self.open_search(gate)
        self.fill()
        self.search(gate)
        self.assertImpossible(gate, "Vintoral.HTML")
        reply = gate.answer("ok")
        self.assertEqual((launches(reply), reply["waiting"]), ([], None))
        self.assertEqual(self.found(gate), ["OUT2", "OUT1", "OUT0"])
        self.assertTrue(gate.shown("ImgFicha(2)"))

    def test_a_shift_ends_without_its_page(self):
        gate = self.gate(tickets=True)
        self.begin_shift(gate)
        gate.retire(101)
        self.fill()
        self.menu(gate, 1)
        gate.answer("yes")
        gate.answer("no")
        self.assertImpossible(gate, "Vintoral.HTML")
        reply = gate.answer("ok")
        self.assertEqual(len(printed(reply)), 1)
        self.assertIn("1 Registro(s)", printed(reply)[0][1])
        self.assertEqual(gate.captions("Form5.CmdMenu(0)", "Form5.CmdMenu(1)"), ["HISTORIAL DÍA", "COMENZAR TURNO"])
        self.leave(gate)
        self.assertFalse(gate.shown("ImgIndicador(1)"))


class ReadOnly(Reports):
    """A folder Recursos that may not be written, as on a disk that was mounted so."""

    def setUp(self):
        super().setUp()
        self.become_nobody()

    def gate(self, *arguments, **more):
        (self.root / "P01-desktop").mkdir(exist_ok=True)
        (self.root / "P01-desktop").chmod(0o777)
        return super().gate(*arguments, **more)

    def running(self, folder=None, **options):
        folder = folder or self.folder
        self.give_away(folder.path)
        return super().running(folder, **options)

    def test_every_report_is_told_and_none_is_made(self):
        gate = self.gate()
        self.folder.write(PAGE, b"an old page")
        self.folder.write(TEXT, b"an old text")
        (self.folder / "Recursos").chmod(0o555)
        self.addCleanup((self.folder / "Recursos").chmod, 0o755)
        gate.key(F4)
        gate.answer("yes")
        gate.answer("no")
        self.assertImpossible(gate, "Vintoral.HTML")
        reply = gate.answer("ok")
        self.assertEqual((sounds(reply), launches(reply), printed(reply)), ([CLICK, CLICK], [], []))
        for button, answers, name, heard in ((HISTORY, ("yes", "no"), "Vintoral.HTML", [CLICK]), (SUMS, (), "Vintoral.RGT", []),
                                             (LIST_OF_SALES, (), "Vintoral.RGT", []), (USERS, (), "Vintoral.HTML", [CLICK])):
            with self.subTest(button=button):
                self.menu(gate, button)
                for answer in answers:
                    gate.answer(answer)
                self.assertImpossible(gate, name)
                reply = gate.answer("ok")
                self.assertEqual((sounds(reply), launches(reply), printed(reply)), (heard, [], []))
                self.assertEqual(reply["waiting"], {"form": "Form5"})
                self.leave(gate)
        self.assertEqual((self.folder / PAGE).read_bytes(), b"an old page")
        self.assertEqual((self.folder / TEXT).read_bytes(), b"an old text")
        self.assertNothingStray()
        (self.folder / "Recursos").chmod(0o755)
        gate.key(F4)
        self.assertEqual(launches(gate.answer("no")), [SHOW_PAGE])

    def test_a_folder_in_place_of_the_page(self):
        gate = self.gate()
        for name in (PAGE, f"{PAGE}.nuevo"):
            with self.subTest(name=name):
                (self.folder / name).mkdir()
                gate.key(F4)
                gate.answer("no")
                self.assertImpossible(gate, "Vintoral.HTML")
                self.assertEqual(launches(gate.answer("ok")), [])
                (self.folder / name).rmdir()
        self.assertNothingStray()

    def test_a_shift_ends_all_the_same(self):
        gate = self.gate()
        self.begin_shift(gate)
        (self.folder / "Recursos").chmod(0o555)
        self.addCleanup((self.folder / "Recursos").chmod, 0o755)
        self.menu(gate, 1)
        self.assertImpossible(gate, "Vintoral.HTML")
        gate.answer("ok")
        self.leave(gate)
        self.assertFalse(gate.shown("ImgIndicador(1)"))


class Absent(Reports):
    """The data folder goes away and comes back between any two steps of a search, a shift and its report."""
    SEARCH = [("key", {"code": F5}), ("focus", {"control": "Form2.TxtCampo(9)"}), ("key", {"code": 13}), ("key", {"code": F4}),
              ("key", {"code": F5})]
    SHIFT = [("key", {"code": 119}), ("click", {"control": "Form5.CmdMenu(1)"}), ("key", {"code": 119}),
             ("click", {"control": "Form5.CmdMenu(0)"}), ("answer", {"button": "no"}), ("click", {"control": "Form5.CmdMenu(1)"}),
             ("key", {"code": ESC})]

    def test_between_any_two_steps(self):
        gate = self.gate()
        elsewhere = self.root / "elsewhere"
        register = self.folder.shared / "Vintoral.ACT"
        before = register.read_bytes()
        for steps in (self.SEARCH, self.SHIFT):
            for gone_at, back_at in itertools.combinations(range(len(steps) + 1), 2):
                with self.subTest(steps=len(steps), gone_at=gone_at, back_at=back_at):
                    for number, (operation, fields) in enumerate(steps):
                        if number == gone_at:
                            self.folder.shared.rename(elsewhere)
                        if number == back_at:
                            elsewhere.rename(self.folder.shared)
                        gate.attempt(operation, **fields)
                        if gate.box and gate.box["buttons"] == ["ok"]:
                            gate.answer("ok")
                    if back_at == len(steps):
                        self.assertFalse(self.folder.shared.exists(), "the station made a data folder of its own")
                        elsewhere.rename(self.folder.shared)
                    self.home(gate)
                    self.open_search(gate)
                    reply = self.search(gate)
                    self.assertEqual((self.found(gate), launches(reply)), (["OUT2", "OUT1", "OUT0"], [SHOW_PAGE]))
                    self.assertEqual(Page((self.folder / PAGE).read_bytes()).total(), ("3 Registro(s)", "$ 3.00"))
                    gate.key(F5)
                    self.assertFalse((self.folder / PAGE).exists())
        self.assertEqual(register.read_bytes(), before)
        self.legal(self.folder)

    def home(self, gate):
        """The main screen, no shift, no search, and the folder found again."""
        self.answer_all(gate, "no")
        for form, key in (("Form5", ESC), ("Form2", F5)):
            if form in gate.state("forms"):
                gate.focus("Form2.TxtCampo(4)") if form == "Form2" else None
                gate.key(key)
        gate.advance(13000)
        self.assertBars(gate, 0xC0FFC0)
        if gate.shown("ImgIndicador(1)"):
            self.menu(gate, 1)
            gate.key(ESC)

    def test_in_the_middle_of_a_search(self):
        """The folder goes and comes while the history is read: all of it is found, or nothing has happened."""
        rows = 6000
        gate = self.gate(rows)
        self.open_search(gate)
        self.search(gate)
        self.assertEqual(gate.state("TotalVista"), rows)
        elsewhere, stop, seen = self.root / "elsewhere", threading.Event(), []

        def flap():
            while not stop.is_set():
                self.folder.shared.rename(elsewhere)
                stop.wait(0.01)
                elsewhere.rename(self.folder.shared)
                stop.wait(0.01)
        flapping = threading.Thread(target=flap)
        flapping.start()
        try:
            for _ in range(40):
                gate.focus("Form2.TxtCampo(4)")
                reply = self.search(gate)
                seen.append("box" if gate.box else "found" if SEARCH_FOUND in sounds(reply) else "link")
                if gate.box is not None:
                    self.assertBox(gate, NOTHING_FOUND)
                    gate.answer("ok")
                    self.assertEqual(gate.state("TotalVista"), 0)
                elif SEARCH_FOUND in sounds(reply):
                    self.assertEqual(gate.state("TotalVista"), rows)
                else:
                    self.assertIn(gate.state("TotalVista"), (0, rows))
        finally:
            stop.set()
            flapping.join()
        self.assertIn("found", seen)
        self.assertTrue({"box", "link"} & set(seen), "the folder was never away")
        gate.focus("Form2.TxtCampo(4)")
        self.search(gate)
        self.assertEqual(gate.state("TotalVista"), rows)


class BesideOthers(Reports):
    """A report over a year, while this gate and another one work."""
    YEAR, BUSY = 6000, 240

    def rows(self):
        """About sixteen a day from the 20th of November of the year before."""
        months = [(year, month) for year, month in [(2025, 12), *[(2026, month) for month in range(1, 12)]]]
        for n in range(self.YEAR):
            year, month = months[n * len(months) // self.YEAR]
            within = n - -(-months.index((year, month)) * self.YEAR // len(months))
            day = min(1 + within * 19 * len(months) // self.YEAR, 19)
            yield gone(0, n % 9999 + 1, ("10:00", f"{day:02}/{month:02}/{year}"), f"Y{n}", 1)

    def test_every_row_of_the_year_and_those_that_left_meanwhile(self):
        self.folder.write(EXT, sales_file())
        busy = range(501, 501 + self.BUSY)
        here = range(1, 11)
        old = list(self.rows())
        gate = self.day(*old, fichas=[inside(n, stamp("08:00", TODAY), f"IN{n}") for n in (*here, *busy)])
        other = Folder(self.root / "P02")
        other.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second = self.running(other)
        done = []

        def work():
            for number in busy:
                if self.try_retire(second, number):
                    done.append(number)
        working = threading.Thread(target=work)
        self.open_search(gate)
        working.start()
        reports = []
        try:
            for number in here:
                gate.focus("Form2.TxtCampo(4)")
                before = len(done)
                reply = self.search(gate, b1="01/12/2025")
                self.assertEqual(launches(reply), [SHOW_PAGE])
                reports.append((before, (self.folder / PAGE).read_bytes()))
                self.assertTrue(self.try_retire(gate, number))
        finally:
            working.join()
        self.assertEqual(done, list(busy))
        final = [row.Placa for row in self.folder.history()]
        self.assertEqual(len(final), self.YEAR + len(busy) + len(here))
        grew = set()
        for turn, (before, data) in enumerate(reports):
            page = Page(data)
            plates = page.plates()
            grew.add(len(plates))
            # The newest first, back to the first of the year, and nothing left out.
            self.assertEqual(plates, final[len(plates) - 1::-1])
            self.assertGreaterEqual(len(plates), self.YEAR + before + turn)
            self.assertEqual(page.total()[0], f"{len(plates)} Registro(s)")
            values = [row.ValorCobrado for row in self.folder.history()][:len(plates)]
            self.assertEqual(page.total()[1], f"$ {sum(values) / 10000:.2f}")
            self.assertEqual(len(page.subtotals()), len({row[2][8:] for row in page.fichas()}))
        self.assertGreater(len(grew), 2, "the other gate was never in the middle of its work")
        self.legal(self.folder)


if __name__ == "__main__":
    trouble.own_mounts()
    trouble.station.main()
