"""The registers on disk, byte by byte, and what a station makes of damaged ones."""
import struct

from station import (ACT_LENGTH, BLANK, ESC, GREEN, INSERT, DrivenDay, Ficha, fresh_register, inside, main,
                     screen_state, stamp, user)

TODAY = "20/11/2026"
BLANK_SLOT = b"\0\0" + b" " * 168


class NewRegisters(DrivenDay):
    def test_a_slot_that_was_never_used(self):
        self.running()
        act = (self.folder.shared / "Vintoral.ACT").read_bytes()
        self.assertEqual(len(act), 188188)
        for number in (1, 2, 256, 1000):
            with self.subTest(number=number):
                self.assertEqual(act[(number - 1) * 188:number * 188],
                                 BLANK_SLOT + struct.pack("<l", number) + b"\0" * 14)

    def test_the_closing_record(self):
        self.running()
        act = (self.folder.shared / "Vintoral.ACT").read_bytes()
        self.assertEqual(act[188000:], b"\0\0" + b"1000" + b" " * 160 + b"5 " + b"  " + struct.pack("<l", 1000) + b"\0" * 14)

    def test_history_begins_with_a_blank_record(self):
        self.running()
        for name in ("HST", "NSR"):
            with self.subTest(register=name):
                self.assertEqual((self.folder.shared / f"Vintoral.{name}").read_bytes(), BLANK_SLOT + b"\0" * 18)

    def test_the_point_movements_begin_empty(self):
        self.running()
        self.assertEqual((self.folder.shared / "Vintoral.CRD").read_bytes(), b"")


class BytesOfAStay(DrivenDay):
    """One ficha without a plate, so that no user takes part, from 14:00 to 16:30."""

    ENTRY = b"14:00  (20/11/2026) "
    EXIT = b"16:30  (20/11/2026) "
    TEXTS = (b"0007" + b" " * 20 + b"JOS\xc9".ljust(20) + b"MU\xd1OZ".ljust(20) + b"300 123".ljust(20) +
             b"CASCO \xdc".ljust(20) + b"AUTOMOVIL".ljust(20) + b"01")

    def test_inside_left_and_history(self):
        station = self.running()
        station.save(7, "", "josé", " muñoz ", "300 123", "casco ü")
        act = (self.folder.shared / "Vintoral.ACT").read_bytes()
        self.assertEqual(act[6 * 188:7 * 188],
                         b"\xff\xff" + self.ENTRY + b"??".ljust(20) + self.TEXTS + b"??" + struct.pack("<l", 7) + b"\0" * 14)
        self.assertEqual(act[:6 * 188] + act[7 * 188:], fresh_register()[:6 * 188] + fresh_register()[7 * 188:])

        station.clock("2026-11-20 16:30:00")
        station.retire(7)
        act = (self.folder.shared / "Vintoral.ACT").read_bytes()
        self.assertEqual(act[6 * 188:7 * 188],
                         b"\0\0" + self.ENTRY + self.EXIT + self.TEXTS + b"01" + struct.pack("<l", 7) + b"\0" * 14)
        # 2 hours 30 minutes of a car: 12000 and 30 times 100, in ten-thousandths, in the second row of the file.
        history = (self.folder.shared / "Vintoral.HST").read_bytes()
        self.assertEqual(history[:188], BLANK_SLOT + b"\0" * 18)
        self.assertEqual(history[188:], b"\xff\xff" + self.ENTRY + self.EXIT + self.TEXTS + b"01" + struct.pack("<l", 2) +
                         struct.pack("<q", 150000000) + b"\0" * 6)
        self.assertEqual(len(act), ACT_LENGTH)

    def test_a_text_of_twenty_one_characters_loses_its_last(self):
        station = self.running()
        station.call_up(7)
        station.set("TxtCampo(2)", "abcdefghijklmnopqrstu")
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Nombre, "ABCDEFGHIJKLMNOPQRST")
        self.assertEqual(self.folder.slot(7).Apellido, "")

    def test_a_letter_that_the_file_cannot_hold(self):
        station = self.running()
        station.call_up(7)
        station.set("TxtCampo(2)", "日本")
        station.key(INSERT)
        station.answer("yes")
        self.assertEqual(self.folder.slot(7).Nombre, "??")


class View(DrivenDay):
    def loaded(self, *fichas):
        """A station that loads its first view at the start, as it does once a screen state is stored."""
        self.folder.write("Recursos/Vintoral.DAT", screen_state())
        return self.with_fichas(*fichas)

    def view(self, station):
        return station.do("view")["view"]

    def test_an_empty_house(self):
        station = self.loaded()
        self.assertEqual(self.view(station), [])
        self.assertEqual(station.state("TotalVista"), 0)
        self.assertEqual(station.caption("LblInfo(0)"), "0 ( 1/1 )  ")

    def test_all_fichas_inside_in_order_of_number(self):
        fichas = [inside(n, stamp("13:00", TODAY), f"P{n}") for n in (1000, 1, 512)]
        station = self.loaded(*fichas)
        self.assertEqual([row["NumeroFicha"] for row in self.view(station)], ["0001", "0512", "1000"])

    def test_the_fields_of_a_row(self):
        station = self.loaded(inside(9, stamp("13:00", TODAY), "ABC900", "MOTOCICLETA", Nombre="JOSÉ", UsuarioPuntos=4))
        row, = self.view(station)
        expected = {"EnUso": True, "MarcaEntrada": stamp("13:00", TODAY), "MarcaSalida": "??", "NumeroFicha": "0009",
                    "Placa": "ABC900", "Nombre": "JOSÉ", "Apellido": "", "Telefono": "", "Observacion": "",
                    "Categoria": "MOTOCICLETA", "PorteriaEntrada": "01", "PorteriaSalida": "??", "Posicion": 9,
                    "ValorCobrado": "0.0000", "InicioTurno": False, "UsuarioPuntos": 4}
        self.assertEqual(row, expected)

    def test_yesterdays_ficha_is_in_the_plain_view(self):
        station = self.loaded(inside(9, stamp("13:00", "19/11/2026")))
        self.assertEqual(len(self.view(station)), 1)

    def test_the_exit_gate_decides_and_not_the_mark_of_use(self):
        left = inside(4, stamp("10:00", TODAY), EnUso=-1, PorteriaSalida="01")
        never = BLANK._replace(Posicion=5, EnUso=-1)
        marked = inside(6, stamp("11:00", TODAY), EnUso=0)
        station = self.loaded(left, never, marked)
        self.assertEqual([row["Posicion"] for row in self.view(station)], [6])

    def test_the_closing_record_is_never_read(self):
        act = bytearray(fresh_register())
        act[188000:] = inside(1000, stamp("10:00", TODAY), "GHOST").encode()
        self.folder.write("Multimedia/Vintoral.ACT", bytes(act))
        self.folder.write("Recursos/Vintoral.DAT", screen_state())
        self.assertEqual(self.view(self.running()), [])

    def test_a_freed_slot_leaves_the_view_and_keeps_its_texts(self):
        station = self.loaded(inside(9, stamp("13:00", TODAY), "ABC900", Nombre="ANA"))
        station.retire(9)
        self.assertEqual(self.view(station), [])
        slot = self.folder.slot(9)
        self.assertEqual((slot.EnUso, slot.Placa, slot.Nombre, slot.Categoria), (0, "ABC900", "ANA", "AUTOMOVIL"))
        station.call_up(9)
        self.assertTrue(station.shown("PctBoton(5)"))


class ForeignAndDamaged(DrivenDay):
    """Bytes of another machine or of a bad day are taken as they are, and stop nothing."""

    def test_fichas_of_another_installation(self):
        old = Ficha(-1, stamp("08:05", "02/01/2015"), "??", "0900", "ÑÚ 1", "MARÍA", "GÓMEZ", "555", "RAYÓN",
                    "MOTOCICLETA", "02", "??", 900, 0, 0, 0)
        station = self.with_fichas(old)
        station.call_up(900)
        self.assertEqual(station.captions(*[f"LblCampo({i})" for i in range(6)]),
                         ["0900", "ÑÚ 1", "MARÍA", "GÓMEZ", "555", "RAYÓN"])
        self.assertEqual(station.text("CboTarifa(0)"), "MOTOCICLETA")
        self.assertEqual(station.caption("LblFechaEnt"), stamp("08:05", "02/01/2015"))

    def test_act_cut_at_any_byte_still_takes_a_ficha(self):
        for length in (0, 1, 187, 188, 1000, 6 * 188 + 40, ACT_LENGTH - 1):
            with self.subTest(length=length):
                self.folder.write("Multimedia/Vintoral.ACT", fresh_register()[:length])
                station = self.running()
                station.save(7, "", "ana")
                slot = self.folder.slot(7)
                self.assertEqual((slot.EnUso, slot.NumeroFicha, slot.Nombre, slot.Posicion), (-1, "0007", "ANA", 7))
                station.retire(7)
                self.assertEqual(self.folder.slot(7).EnUso, 0)
                station.end()

    def test_scrambled_registers_are_shown_and_stop_nothing(self):
        noise = bytearray((i * 89 + i // 7) % 256 for i in range(ACT_LENGTH))
        noise[2 * 188:2 * 188 + 2] = b"\0\0"  # slot 3 is free, the others are in use
        for name in ("HST", "NSR", "CRD", "USR", "LBL"):
            self.folder.write(f"Multimedia/Vintoral.{name}", bytes(noise[:20000]))
        self.folder.write("Multimedia/Vintoral.ACT", bytes(noise))
        station = self.running()
        for number in (1, 2, 1000):
            self.assertNotEqual(bytes(noise[(number - 1) * 188:(number - 1) * 188 + 2]), b"\0\0")
            station.call_up(number)
            self.assertTrue(station.shown("PctBoton(6)"), number)
            self.assertNotEqual(station.caption("LblCampo(1)"), "", number)
            station.advance(2000)
            station.key(ESC)
            self.assertIdle(station)
        self.assertEqual((self.folder.shared / "Vintoral.ACT").read_bytes(), bytes(noise))
        station.save(3, "", "ana")
        self.assertEqual((self.folder.slot(3).EnUso, self.folder.slot(3).Nombre), (-1, "ANA"))
        act = (self.folder.shared / "Vintoral.ACT").read_bytes()
        self.assertEqual(act[:2 * 188] + act[3 * 188:], bytes(noise[:2 * 188] + noise[3 * 188:]))

    def test_a_scrambled_state_leaves_a_station_that_works(self):
        for step in (7, 89, 113):
            with self.subTest(step=step):
                self.folder.write("Recursos/Vintoral.DAT", bytes(i * step % 256 for i in range(46 * 16)))
                station = self.running()
                station.advance(10000)
                self.assertBars(station, GREEN)
                station.close()
                self.assertEqual((self.folder / "Recursos/Vintoral.DAT").stat().st_size, 46 * 16)

    def test_a_torn_last_row_of_history_is_written_over(self):
        """The next row takes the place that the length gives it; what is whole stays."""
        self.folder.write("Multimedia/Vintoral.HST", BLANK.encode() + inside(5, stamp("10:00", TODAY)).encode() + b"torn" * 10)
        station = self.with_fichas(inside(9, stamp("13:59", TODAY)))
        station.retire(9)
        data = (self.folder.shared / "Vintoral.HST").read_bytes()
        self.assertEqual(len(data), 3 * 188)
        self.assertEqual(Ficha.decode(data[376:]).NumeroFicha, "0009")
        self.assertEqual(Ficha.decode(data[376:]).Posicion, 3)

    def test_a_users_file_with_a_torn_end(self):
        self.folder.write("Multimedia/Vintoral.USR", user("AAA111", "ANA") + user("BBB222", "BRUNO")[:60])
        station = self.running()
        station.call_up(7)
        station.set("TxtCampo(1)", "BBB222")
        station.enter()
        self.assertEqual(station.text("TxtCampo(2)"), "")
        self.assertEqual(station.state("NumeroUsuario"), 2)


if __name__ == "__main__":
    main()
