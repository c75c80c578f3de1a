"""Small settings: the currency symbol, the labels, and the saved screen state."""
from station import (ALT, CONTROL, LABELS, LOST, MIXED_LENGTH, DrivenDay, ansi, inside, main, mixed, read_mixed,
                     screen_state, sounds, stamp)


class Currency(DrivenDay):
    def symbol(self, data):
        self.folder.write("Recursos/Vintoral.DVS", data)
        station = self.running()
        symbol = station.state("Moneda")
        station.end()
        return symbol.rstrip(" ")

    def test_a_missing_file_is_made(self):
        station = self.running()
        self.assertEqual(station.state("Moneda").rstrip(" "), "$")
        self.assertEqual((self.folder / "Recursos/Vintoral.DVS").read_bytes(), b"$\r\n")

    def test_line_ends_of_either_kind(self):
        self.assertEqual(self.symbol(b"COP\r\n"), "COP")
        self.assertEqual(self.symbol(b"COP\n"), "COP")
        self.assertEqual(self.symbol(b"COP"), "COP")

    def test_only_the_first_line_counts(self):
        self.assertEqual(self.symbol(b"S/.\r\nEUR\r\n"), "S/.")

    def test_eleven_characters_are_cut_to_ten(self):
        self.assertEqual(self.symbol(b"ABCDEFGHIJK\r\n"), "ABCDEFGHIJ")

    def test_letters_beyond_ascii(self):
        self.assertEqual(self.symbol(b"\x80 \xa3\r\n"), "€ £")


class StoredLabels(DrivenDay):
    def write(self, *labels, flags=(0, -1, -1, -1, -1, -1)):
        self.folder.write("Multimedia/Vintoral.LBL", LABELS.pack(*(ansi(label, 20) for label in labels), *flags))

    def test_they_are_shown_with_one_blank_behind(self):
        self.write("NUMERO", "MATRICULA", " NOMBRE ", "APELLIDO", "MÓVIL", "OBSERVACION 123456789")
        station = self.running()
        self.assertEqual(station.texts(*[f"TxtEtiqueta({i})" for i in range(6)]),
                         ["NUMERO ", "MATRICULA ", "NOMBRE ", "APELLIDO ", "MÓVIL ", "OBSERVACION 12345678 "])

    def test_face_memory_comes_back_with_them(self):
        self.write("A", "B", "C", "D", "E", "F", flags=(-1, -1, -1, -1, -1, -1))
        self.assertTrue(self.running().shown("ImgIndicador(2)"))
        self.write("A", "B", "C", "D", "E", "F")
        self.assertFalse(self.running().shown("ImgIndicador(2)"))

    def test_closing_writes_the_record(self):
        station = self.running()
        station.key(77, CONTROL | ALT)
        station.close()
        self.assertEqual((self.folder.shared / "Vintoral.LBL").read_bytes(),
                         b"NUMERO FICHA        PLACA/DOCUMENTO     NOMBRE              APELLIDO            "
                         b"TELEFONO            OBSERVACION         " + b"\xff\xff" * 6)

    def test_the_first_mark_is_nought_without_face_memory(self):
        station = self.running()
        station.close()
        self.assertEqual((self.folder.shared / "Vintoral.LBL").read_bytes()[120:], b"\0\0" + b"\xff\xff" * 5)

    def test_the_print_marks_are_kept(self):
        self.write("A", "B", "C", "D", "E", "F", flags=(0, -1, 0, -1, 0, 0))
        self.running().close()
        data = (self.folder.shared / "Vintoral.LBL").read_bytes()
        self.assertEqual(LABELS.unpack(data)[6:], (0, -1, 0, -1, 0, 0))
        self.assertEqual(data[:20], b"A".ljust(20))

    def test_a_short_file_counts_as_none(self):
        self.folder.write("Multimedia/Vintoral.LBL", b"CARNET".ljust(20) + b"\xff" * 111)
        station = self.running()
        self.assertEqual(station.texts("TxtEtiqueta(0)", "TxtEtiqueta(1)"), ["NUMERO FICHA ", "PLACA/DOCUMENTO "])
        self.assertFalse(station.shown("ImgIndicador(2)"))
        station.close()
        self.assertEqual((self.folder.shared / "Vintoral.LBL").read_bytes()[:20], b"NUMERO FICHA".ljust(20))
        self.assertEqual((self.folder.shared / "Vintoral.LBL").read_bytes()[120:], b"\0\0" + b"\xff\xff" * 5)

    def test_a_file_that_cannot_be_opened_leaves_the_defaults(self):
        self.folder.write("Multimedia/Vintoral.LBL/x", b"")
        station = self.running()
        self.assertEqual(station.text("TxtEtiqueta(1)"), "PLACA/DOCUMENTO ")


    def test_a_gate_that_never_saw_the_folder_leaves_its_labels_alone(self):
        self.write("CARNET", "B", "C", "D", "E", "F")
        before = (self.folder.shared / "Vintoral.LBL").read_bytes()
        self.folder.write("Objetos/Servidor.INI", b"share\r\n")
        away = self.folder / "share"
        station = self.running()
        self.folder.shared.rename(away)
        station.close()
        self.assertEqual((away / "Vintoral.LBL").read_bytes(), before)

    def test_labels_are_read_when_the_folder_is_found_at_last(self):
        self.write("CARNET", "B", "C", "D", "E", "F")
        self.folder.write("Objetos/Servidor.INI", b"share\r\n")
        station = self.running()
        self.assertEqual(station.text("TxtEtiqueta(0)"), "NUMERO FICHA ")
        (self.folder / "share").mkdir()
        for name in ("Vintoral.ACT", "Vintoral.LBL"):
            (self.folder.shared / name).rename(self.folder / "share" / name)
        station.advance(3000)
        self.assertEqual(station.text("TxtEtiqueta(0)"), "CARNET ")


class ScreenState(DrivenDay):
    def stored(self):
        data = (self.folder / "Recursos/Vintoral.DAT").read_bytes()
        self.assertEqual(len(data), 16 * MIXED_LENGTH)
        return [data[at:at + MIXED_LENGTH] for at in range(0, len(data), MIXED_LENGTH)]

    def test_the_first_start_has_none(self):
        station = self.process()
        self.start(station)
        self.assertEqual(sounds(station.answer("ok")), [LOST])  # no monitor announces itself
        self.assertFalse((self.folder / "Recursos/Vintoral.DAT").exists())
        buttons = station.get(*[f"PctBoton({i})" for i in (7, 8, 9, 10, 14)])
        self.assertEqual([(button["BorderStyle"], button["Tag"]) for button in buttons], [(0, "")] * 5)
        generator = station.get("CmdNumeroFicha")
        self.assertEqual((generator["Visible"], generator["Enabled"]), (False, False))

    def test_closing_writes_sixteen_records(self):
        self.running().close()
        records = self.stored()
        # Two numbers of two bytes each after their kinds, then mark, amount and two numbers: 22 bytes of nothing.
        self.assertEqual(records[0][:22], b"\2\0\0\0\2\0\0\0" + b"\0" * 14)
        self.assertEqual(read_mixed(records[15])[2:], (0, 0, 0, 0))

    def test_minutes_and_buttons_come_back(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 1, mark=-1, amount=180 * 10000, number1=45, number2=90)))
        station = self.running()
        self.assertEqual([station.get(f"PctBoton({i})")["Tag"] for i in (7, 8, 9)], ["45", "90", "180"])
        self.assertEqual([station.get(f"PctBoton({i})")["BorderStyle"] for i in (10, 14)], [1, 1])
        generator = station.get("CmdNumeroFicha")
        self.assertEqual((generator["Visible"], generator["Enabled"]), (True, True))
        station.close()
        self.assertEqual(read_mixed(self.stored()[0]), (0, 1, -1, 180 * 10000, 45, 90))

    def test_the_first_view_is_loaded(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state())
        station = self.with_fichas(inside(9, stamp("13:00", "20/11/2026")))
        self.assertEqual(station.caption("LblInfo(0)"), "1 ( 1/1 )  ")

    def test_panic_icon_and_wallpaper_come_back(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(marks=mixed(None, None, number1=1, number2=3)))
        station = self.running()
        self.assertTrue(station.shown("ImgPanico"))
        self.assertEqual(station.get("ImgFondo")["Tag"], "3")
        station.close()
        self.assertEqual(read_mixed(self.stored()[15])[2:], (0, 0, 1, 3))

    def test_the_camera_mark_is_not_acted_on(self):
        self.folder.write("Recursos/Vintoral.DAT", screen_state(marks=mixed(None, None, amount=10000, number1=1)))
        station = self.running()
        self.assertTrue(station.shown("ImgPanico"))
        self.assertFalse(station.shown("ImgIndicador(4)"))
        station.close()  # what the screen shows is stored, not what was read
        self.assertEqual(read_mixed(self.stored()[15])[2:], (0, 0, 1, 0))

    def test_the_panic_contact_is_left_alone_by_closing(self):
        # Two texts of twelve fill a record to its last byte.
        full = [mixed("ABCDEFGHIJKL", "MNOPQRSTUVWX") for _ in range(14)]
        self.assertTrue(all(len(record) == MIXED_LENGTH for record in full))
        self.folder.write("Recursos/Vintoral.DAT", screen_state(panic=full))
        self.running().close()
        self.assertEqual(self.stored()[1:15], full)

    def test_barcode_mode_is_stored(self):
        station = self.with_tickets()
        self.switch_barcodes(station)
        station.close()
        self.assertEqual(read_mixed(self.stored()[15])[2], -1)

    def test_a_damaged_state_leaves_the_defaults(self):
        for name, data in (("empty", b""), ("short", b"\2\0\0"), ("a length past the record", b"\x08\0\xff\x7f" * 200),
                           ("kinds that do not exist", b"\x63\0" * 400)):
            with self.subTest(name):
                self.folder.write("Recursos/Vintoral.DAT", data)
                station = self.running()
                self.assertEqual(station.text("TxtEtiqueta(0)"), "NUMERO FICHA ")
                station.save(7, "", "ana")
                station.retire(7)
                station.end()

    def test_a_state_that_is_read_only_is_written_again(self):
        file = self.folder.write("Recursos/Vintoral.DAT", screen_state(mixed(0, 0, mark=-1)))
        file.chmod(0o444)
        station = self.running()
        self.switch_barcodes(station)
        station.close()
        self.assertEqual(read_mixed(self.stored()[15])[2], -1)


if __name__ == "__main__":
    main()
