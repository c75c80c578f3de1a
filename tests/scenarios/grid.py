"""What the days at the grid share: its keys, its photos, and what the operator sees of its cells."""
import photos
from station import BLANK, DrivenDay, Folder, fresh_register, inside, mixed, screen_state, stamp

TODAY, YESTERDAY = "20/11/2026", "19/11/2026"
CELLS = [f"ImgFicha({cell})" for cell in range(50)]
PAGE_UP, PAGE_DOWN, F1, F2, F3 = 33, 34, 112, 113, 114
POINTED, COUNTED = "Sonidos\\Vintoral-6.wav", "Sonidos\\Vintoral-9.wav"
MONITOR_ON, MONITOR_OFF = "ABRiL\\ABRiL-1.wav", "ABRiL\\ABRiL-2.wav"


def photo_inside(number):
    return f"Multimedia/Imágenes ACT/{number:06}.jpg"


def photo_outside(row):
    return f"Multimedia/Imágenes HST/{row:06}.jpg"


def left(number, exit_stamp, row, **more):
    """A row of HST; `exit_stamp` is a stamp."""
    gone = {"MarcaSalida": exit_stamp, "PorteriaSalida": "01", "Posicion": row, "ValorCobrado": 20000000}
    return inside(number, stamp("08:00", exit_stamp[-11:-1]), **{**gone, **more})


def numbered(count, time_of_day="13:00"):
    """Fichas 1 to `count`, all inside since that time of today."""
    return [inside(number, stamp(time_of_day, TODAY), f"PL{number}") for number in range(1, count + 1)]


class GridDay(DrivenDay):
    def prepare(self, *fichas, history=(), screen=mixed(0, 0)):
        """The files of a gate that has closed before; `history` as (number, exit stamp), oldest first."""
        rows = [BLANK] + [left(number, left_at, row) for row, (number, left_at) in enumerate(history, start=2)]
        self.folder.write("Multimedia/Vintoral.ACT", fresh_register(*fichas))
        self.folder.write("Multimedia/Vintoral.HST", b"".join(row.encode() for row in rows))
        self.folder.write("Recursos/Vintoral.DAT", screen_state(screen))

    def photograph(self, *names):
        for name in names:
            self.folder.write(name, photos.photo())

    def gate(self, *fichas, **more):
        """A main gate at 14:00:00."""
        self.prepare(*fichas, **more)
        return self.running()

    def second_gate(self):
        """Another one on the data of the first."""
        second = Folder(self.root / "P02")
        second.write("Objetos/Servidor.INI", f"{self.folder.shared}\r\n".encode())
        second.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0)))
        return self.running(second)

    def cells(self, station):
        """The numbers of the cells that are shown, those with a photo marked by a star."""
        shown = [cell for cell in station.get(*CELLS) if cell["Visible"]]
        return [cell["Caption"] + ("*" if cell["Picture"] else "") for cell in shown]

    def page(self, station):
        return station.caption("LblInfo(0)")

    def hover(self, station, control):
        return station.do("hover", control=control)

    def leave(self, station):
        return station.do("hover", control="Form1")

    def pointed(self, station):
        """The row of the view under the pointer, and whether the frame is there."""
        return station.get("PctFicha")["Tag"], station.shown("ShpCelda")

    def assertEntryFace(self, station):
        self.assertEqual(self.pointed(station), ("0", False))
        self.assertIdle(station)
        self.assertEqual(station.captions("LblFechaSal", *[f"LblCampo({row})" for row in range(6)]), [""] * 7)
        self.assertEqual([station.shown(f"CboTarifa({list_})") for list_ in (0, 1)], [False, True])
        self.assertEqual(station.text("CboTarifa(0)"), "")
        self.assertTrue(station.get("TmrHoraFecha")["Enabled"])
