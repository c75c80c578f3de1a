"""Old photos go after as many days as the site says, and those of who is inside never do."""
import datetime
import os

from cameras import ACT, HST, INI, USR, CameraDay, numbered
from station import BLANK, Folder, fresh_register, inside, main, stamp, user

RETENTION = "Objetos/Retencion.INI"
NOW = datetime.datetime(2026, 11, 20, 14, 0)
TODAY = "20/11/2026"
DAYS = 30
ENOUGH = 10 * 60 * 1000  # milliseconds: slices are small and ticks are slow


def ago(days, hours=0):
    return NOW - datetime.timedelta(days=days, hours=hours)


def stamped(moment):
    return stamp(f"{moment:%H:%M}", f"{moment:%d/%m/%Y}")


class RetentionDay(CameraDay):
    def keep(self, leaving=0, more=0, users=0, folder=None):
        text = f"; Días\r\nDiasFotosSalida = {leaving}\r\nDiasFotosAdicionales = {more}\r\nDiasFotosUsuarios = {users}\r\n"
        (folder or self.folder).write(RETENTION, text.encode())

    def history(self, *rows):
        """Rows of HST from 2 on, oldest first: (plate, moment of leaving); each with its photo."""
        fichas = [inside(1, stamped(moment), plate)._replace(MarcaSalida=stamped(moment), PorteriaSalida="01", Posicion=row)
                  for row, (plate, moment) in enumerate(rows, start=2)]
        self.folder.write("Multimedia/Vintoral.HST", b"".join(row.encode() for row in (BLANK, *fichas)))
        for row in range(2, len(rows) + 2):
            self.folder.write(numbered(HST, row), b"photo")

    def aged(self, name, days, data=b"photo"):
        """A file that was written so many days before the gate's today."""
        file = self.folder.write(name, data)
        at = ago(days).timestamp()
        os.utime(file, (at, at))

    def after_a_while(self, **options):
        gate = self.running(**options)
        gate.advance(ENOUGH)
        return gate

    def told(self):
        return [line for line in (self.root / "stderr").read_text().splitlines() if "old photos" in line]


class Leaving(RetentionDay):
    def test_by_the_day_of_leaving(self):
        self.keep(leaving=DAYS)
        self.history(("A", ago(300)), ("B", ago(DAYS, 1)), ("C", ago(DAYS - 1, 23)), ("D", ago(0)))
        self.after_a_while()
        self.assertEqual(self.there(), ["HST/000004.jpg", "HST/000005.jpg"])
        self.assertEqual(len(self.folder.history()), 4)
        self.assertEqual(self.told(), ["vintoral: 2 old photos and 0 folders of additional photos deleted"])

    def test_by_default_for_ever(self):
        self.history(("A", ago(3000)))
        self.folder.write("Multimedia/Imágenes DTL/A P01 01-01-2010 000000/0001-1.jpg", b"photo")
        self.folder.write("Multimedia/Vintoral.USR", user("A"))
        self.aged(numbered(USR, 1), 3000)
        before = self.there()
        self.assertEqual(len(before), 4)
        self.after_a_while()
        self.assertEqual((self.there(), self.told()), (before, []))

    def test_what_is_no_number_of_days_deletes_nothing(self):
        for days in ("-1", "", "treinta", "0", "99999999999999999999"):
            with self.subTest(days=days):
                self.keep(leaving=days)
                self.history(("A", ago(3000)))
                gate = self.after_a_while()
                self.assertEqual(self.there(HST), ["HST/000002.jpg"])
                gate.end()

    def test_once_a_day(self):
        self.keep(leaving=DAYS)
        self.history(("A", ago(DAYS, 1)), ("B", ago(DAYS - 1, 23)))
        gate = self.after_a_while()
        self.assertEqual(self.there(HST), ["HST/000003.jpg"])
        gate.advance(6 * 3600 * 1000)
        self.assertEqual((self.there(HST), len(self.told())), (["HST/000003.jpg"], 1))
        gate.clock("2026-11-21 00:30:00")
        gate.advance(ENOUGH)
        self.assertEqual((self.there(HST), len(self.told())), ([], 2))

    def test_not_while_a_ficha_is_typed(self):
        self.keep(leaving=DAYS)
        self.history(("A", ago(300)))
        gate = self.running()
        gate.fill(7, "abc")
        gate.advance(ENOUGH)
        self.assertEqual(self.there(HST), ["HST/000002.jpg"])
        gate.key(27)
        gate.advance(ENOUGH)
        self.assertEqual(self.there(HST), [])

    def test_a_connected_gate_deletes_nothing(self):
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        self.keep(leaving=DAYS, more=DAYS, users=DAYS, folder=second)
        self.history(("A", ago(300)))
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register())
        self.after_a_while(folder=second)
        self.assertEqual(self.there(HST), ["HST/000002.jpg"])

    def test_a_row_of_a_clock_that_was_ahead_stops_nothing(self):
        """Somebody set the clock to another year for an afternoon: what is old behind that row goes all the same."""
        self.keep(leaving=DAYS)
        self.history(("A", ago(300)), ("AHEAD", ago(-400)), ("B", ago(100)), ("C", ago(1)))
        self.after_a_while()
        self.assertEqual(self.there(HST), ["HST/000003.jpg", "HST/000005.jpg"])

    def test_many_go_in_slices(self):
        self.keep(leaving=DAYS)
        count = 1000
        self.history(*((f"P{row}", ago(300)) for row in range(count)))
        gate, left = self.running(), [count]
        while left[-1] and len(left) < 1000:
            gate.advance(1000)
            left.append(len(self.there(HST)))
        self.assertEqual(left[-1], 0)
        self.assertLessEqual(max(a - b for a, b in zip(left, left[1:])), count // 2)
        gate.advance(ENOUGH)
        self.assertEqual(self.told(), [f"vintoral: {count} old photos and 0 folders of additional photos deleted"])


class More(RetentionDay):
    def test_by_the_name_of_the_folder(self):
        self.keep(more=DAYS)
        names = {f"OLD P01 {ago(DAYS, 1):%d-%m-%Y %H%M%S}": False, f" P02 {ago(400):%d-%m-%Y %H%M%S}": False,
                 f"NEW P01 {ago(DAYS - 1, 23):%d-%m-%Y %H%M%S}": True, "INSIDE0007": True, "0009": True,
                 "X P01 99-99-2020 000000": True, "X P01 01-01-2020 00000": True, "X01-01-2020 000000": True}
        for name in names:
            self.folder.write(f"Multimedia/Imágenes DTL/{name}/0007-1.jpg", b"photo")
        self.after_a_while()
        self.assertEqual({name: (self.folder / f"Multimedia/Imágenes DTL/{name}/0007-1.jpg").exists() for name in names}, names)
        self.assertEqual(self.told(), ["vintoral: 0 old photos and 2 folders of additional photos deleted"])

    def test_a_link_in_a_folder_leads_nowhere(self):
        self.keep(more=DAYS)
        outside = self.root / "outside"
        outside.mkdir()
        (outside / "kept.jpg").write_bytes(b"kept")
        old = f"Multimedia/Imágenes DTL/OLD P01 {ago(400):%d-%m-%Y %H%M%S}"
        self.folder.write(f"{old}/0007-1.jpg", b"photo")
        (self.folder / old / "link").symlink_to(outside)
        (self.folder / f"Multimedia/Imágenes DTL/LINK P01 {ago(400):%d-%m-%Y %H%M%S}").symlink_to(outside)
        self.after_a_while()
        self.assertFalse((self.folder / old).exists())
        self.assertEqual((outside / "kept.jpg").read_bytes(), b"kept")


class Users(RetentionDay):
    def test_who_was_not_seen_since(self):
        """Seen: inside now, or left in the history not so long ago. A photo that is young itself stays too."""
        self.keep(users=DAYS)
        plates = ["GONE", "INSIDE", "LATELY", "YOUNG", "NEVER"]
        self.history(("GONE", ago(300)), ("YOUNG", ago(300)), ("INSIDE", ago(300)), ("LATELY", ago(DAYS - 1)))
        self.folder.write("Multimedia/Vintoral.USR", b"".join(map(user, plates)))
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(inside(7, stamped(ago(300)), "inside")))
        self.aged(numbered(ACT, 7), 300)
        for number, plate in enumerate(plates, start=1):
            for folder in (USR, INI):
                self.aged(numbered(folder, number), 3 if plate == "YOUNG" else 300)
        self.after_a_while()
        kept = ["000002.jpg", "000003.jpg", "000004.jpg"]
        self.assertEqual(self.there(ACT, USR, INI), sorted(["ACT/000007.jpg", *(f"{folder}/{name}" for folder in ("INI", "USR")
                                                                                for name in kept)]))
        self.assertEqual(len(self.there(HST)), 4)
        self.assertEqual(self.told(), ["vintoral: 4 old photos and 0 folders of additional photos deleted"])

    def test_a_row_of_a_clock_that_was_behind_hides_nobody(self):
        """A machine that came up in another year: who was seen before that row has still been seen."""
        self.keep(users=DAYS)
        self.history(("LATELY", ago(3)), ("BEHIND", ago(2400)), ("X", ago(1)))
        self.folder.write("Multimedia/Vintoral.USR", user("LATELY"))
        self.aged(numbered(USR, 1), 3)
        self.aged(numbered(INI, 1), 300)
        self.after_a_while()
        self.assertEqual(self.there(USR, INI), ["INI/000001.jpg", "USR/000001.jpg"])


if __name__ == "__main__":
    main()
