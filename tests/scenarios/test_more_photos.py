"""Additional photos: taken one by one or ten in a row while a new ficha is typed, turned over while it is on display."""
from cameras import (A, ACT, DTL, ENTRY_AT, HST, MORE, TAKEN, TODAY, W, X, CameraDay, jpeg, numbered)
from station import ALT, CAMERA, CONTROL, ENTER, ESC, INSERT, LEFT, RIGHT, inside, kinds, main, sounds, stamp

BROWN = (90, 60, 30)
ROW = [(200, 20, 20), (20, 200, 20), (20, 20, 200), (180, 180, 20)]  # told apart at sight


def photos(name, number, *counts):
    return [f"DTL/{name}", *sorted(f"DTL/{name}/{number:04}-{count}.jpg" for count in counts)]


class MoreDay(CameraDay):
    def typing(self, plate="abc123", number=7, **options):
        """The form of a new ficha, its plate typed and entered, before the camera."""
        gate = self.filming(BROWN, **options)
        gate.call_up(number)
        gate.type(plate)
        gate.enter()
        return gate

    def counters(self, gate):
        state = gate.state()
        return state["NumeroFotos"], state["FotoActual"], state["FotoContinua"]

    def assertColors(self, name, number, colors):
        for count, color in enumerate(colors, start=1):
            self.assertColor(self.color(f"{DTL}/{name}/{number:04}-{count}.jpg"), color)


class One(MoreDay):
    def test_its_name_its_sound_and_its_mark(self):
        gate = self.typing()
        self.assertFalse(gate.shown(MORE))
        gate.focus("TxtCampo(3)")
        reply = gate.key(A, CONTROL)
        self.assertEqual((sounds(reply), reply["waiting"]), ([TAKEN], {"wait": 1000}))
        self.assertEqual((self.there(), self.counters(gate)), (photos("ABC1230007", 7, 1), (1, 1, 1)))
        self.assertEqual(gate.get(MORE)["ToolTipText"], " Fotos Adicionales ")
        self.assertEqual([gate.shown(name) for name in (MORE, "Picture1", "Picture2", "LblWebCamMsg")],
                         [True, False, True, False])
        self.assertEqual(gate.focused(), "TxtCampo(1)")
        gate.advance(999)
        self.assertEqual(gate.reply["waiting"], {"wait": 1})
        gate.advance(1)
        self.assertEqual((gate.reply["waiting"], self.counters(gate)), (None, (1, 1, 0)))
        self.assertPlain(f"{DTL}/ABC1230007/0007-1.jpg", BROWN)

    def test_the_button_takes_one_too(self):
        gate = self.typing()
        self.assertEqual([gate.get(f"PctFotoDetalle({which})")["ToolTipText"] for which in (0, 1)],
                         ["<CTRL+A> Tomar Fotos Adicionales", "<CTRL+X> Tomar Fotos Continuas"])
        gate.click("PctFotoDetalle(0)")
        gate.advance(1000)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1))

    def test_the_button_is_there_from_the_plate_on(self):
        gate = self.filming(BROWN)
        gate.call_up(7)
        self.assertFalse(gate.shown("PctFotoDetalle(0)"))
        gate.enter()
        self.assertFalse(gate.shown("PctFotoDetalle(0)"))
        gate.focus("TxtCampo(1)")
        gate.type("abc")
        gate.enter()
        self.assertTrue(gate.shown("PctFotoDetalle(0)"))
        gate.key(ESC)
        self.assertFalse(gate.shown("PctFotoDetalle(0)"))
        gate.key(W, CONTROL | ALT)
        gate.call_up(7)
        gate.type("abc")
        gate.enter()
        self.assertFalse(gate.shown("PctFotoDetalle(0)"))

    def test_several_are_counted_on(self):
        gate = self.typing()
        for color in ROW:
            self.another(gate, color)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1, 2, 3, 4))
        self.assertColors("ABC1230007", 7, ROW)

    def test_the_folder_by_plate_and_number(self):
        for plate, number, name in (("", 7, "0007"), (" ñandú 1 ", 12, "ÑANDÚ 10012"), ("x", 1000, "X1000")):
            with self.subTest(plate=plate):
                gate = self.filming(BROWN)
                gate.fill(number, plate)
                self.another(gate)
                self.assertEqual(self.there(), photos(name, number, 1))
                gate.key(ESC)
                self.assertEqual(self.there(), [])
                gate.end()

    def test_stamped_where_faces_are_remembered(self):
        gate = self.filming(BROWN)
        self.remember_faces(gate)
        gate.fill(7, "abc")
        gate.clock("2026-11-20 14:25:00")
        self.another(gate)
        self.assertStamped(f"{DTL}/ABC0007/0007-1.jpg", BROWN, (ENTRY_AT, f"PE01 14:25 {TODAY}"))

    def test_only_while_a_new_ficha_is_typed_and_the_camera_on(self):
        gate = self.filming(BROWN)
        gate.save(8, "inside")
        for step in (lambda: None, lambda: gate.call_up(8)):
            step()
            for key in (A, X):
                reply = gate.key(key, CONTROL)
                self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        gate.key(ESC)
        gate.key(W, CONTROL | ALT)
        gate.fill(7, "abc")
        for key in (A, X):
            reply = gate.key(key, CONTROL)
            self.assertEqual((kinds(reply), reply["waiting"]), ([], None))
        self.assertEqual(self.there(DTL), [])

    def test_without_a_frame_none_is_counted(self):
        gate = self.typing()
        gate.do("camera", name=CAMERA, state="fail")
        self.assertEqual(sounds(gate.key(A, CONTROL)), [])
        gate.advance(1000)
        self.assertEqual((self.counters(gate), gate.shown(MORE)), ((0, 0, 0), False))
        gate.do("camera", name=CAMERA, state="ok")
        self.another(gate)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1))
        gate.do("camera", name=CAMERA, state="fail")
        self.assertEqual(sounds(gate.key(A, CONTROL)), [])  # the one before is not taken twice
        gate.advance(1000)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1))

    def test_another_plate_takes_them_along(self):
        gate = self.typing("wrong")
        self.another(gate, ROW[0])
        gate.set("TxtCampo(1)", "right")
        gate.focus("TxtCampo(1)")
        gate.enter()
        self.assertEqual(self.there(), photos("RIGHT0007", 7, 1))
        self.another(gate, ROW[1])
        gate.set("TxtCampo(1)", "saved")
        gate.key(INSERT)
        gate.answer("yes")
        self.assertEqual(self.there(DTL), photos("SAVED0007", 7, 1, 2))
        self.assertColors("SAVED0007", 7, ROW[:2])

    def test_escape_takes_them_away(self):
        gate = self.typing()
        self.another(gate)
        self.another(gate)
        beside = self.folder.write(f"{DTL}/ABC1230008/0008-1.jpg", b"another's")
        self.assertEqual(len(self.there()), 5)
        gate.key(ESC)
        self.assertEqual(self.there(), photos("ABC1230008", 8, 1))
        self.assertEqual(beside.read_bytes(), b"another's")

    def test_no_keeps_them(self):
        gate = self.typing()
        self.another(gate)
        gate.key(INSERT)
        gate.answer("no")
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1))
        self.another(gate)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1, 2))


class TenInARow(MoreDay):
    def test_one_a_second_and_a_beep(self):
        gate = self.typing()
        reply = gate.key(X, CONTROL)
        self.assertEqual((kinds(reply), reply["waiting"], self.counters(gate)), ([], {"wait": 1000}, (0, 0, 10)))
        for count in range(1, 11):
            self.film(gate, ROW[count % 4])
            self.assertEqual(kinds(gate.advance(999)), [])
            self.assertEqual(kinds(gate.advance(1)), ["sound"] if count < 10 else ["sound", "beep"])
            self.assertEqual(self.there(), photos("ABC1230007", 7, *range(1, count + 1)))
        self.assertEqual((gate.reply["waiting"], self.counters(gate)), (None, (10, 10, 0)))
        self.assertColors("ABC1230007", 7, [ROW[count % 4] for count in range(1, 11)])

    def test_they_are_numbered_on(self):
        gate = self.typing()
        self.another(gate)
        gate.key(X, CONTROL)
        self.assertEqual(sounds(gate.advance(10000)), [TAKEN] * 10)
        self.another(gate)
        self.assertEqual(self.there(), photos("ABC1230007", 7, *range(1, 13)))

    def test_keys_work_meanwhile(self):
        gate = self.typing()
        gate.click("PctFotoDetalle(1)")
        gate.advance(2500)
        gate.focus("TxtCampo(2)")
        gate.type("ana")
        gate.advance(7500)
        self.assertEqual(gate.text("TxtCampo(2)"), "ANA")
        self.assertEqual(self.there(), photos("ABC1230007", 7, *range(1, 11)))

    def test_escape_ends_it(self):
        gate = self.typing()
        gate.key(X, CONTROL)
        gate.advance(3500)
        self.assertEqual(self.there(), photos("ABC1230007", 7, 1, 2, 3))
        gate.key(ESC)
        self.assertEqual(self.there(), [])
        self.assertEqual(sounds(gate.advance(20000)), [])
        self.assertEqual((self.there(), gate.reply["waiting"]), ([], None))
        self.assertIdle(gate)

    def test_saving_ends_it(self):
        gate = self.typing()
        gate.key(X, CONTROL)
        gate.advance(3500)
        gate.key(INSERT)
        gate.answer("yes")
        gate.advance(20000)
        self.assertEqual(self.there(DTL), photos("ABC1230007", 7, 1, 2, 3))
        self.assertEqual(gate.reply["waiting"], None)
        self.assertIdle(gate)

    def test_the_next_ficha_begins_anew(self):
        gate = self.typing()
        gate.key(X, CONTROL)
        gate.advance(3500)
        gate.key(ESC)
        gate.fill(8, "def")
        gate.key(X, CONTROL)
        gate.advance(30000)
        self.assertEqual(self.there(), photos("DEF0008", 8, *range(1, 11)))
        self.assertIsNone(gate.reply["waiting"])

    def test_closing_ends_it(self):
        gate = self.typing()
        gate.key(X, CONTROL)
        gate.advance(1500)
        gate.do("close")
        self.assertEqual(kinds(gate.answer("yes"))[-1], "end")


class TurningOver(MoreDay):
    def displayed(self, count=3):
        """A ficha on display that came in before a brown wall, with so many photos of other colours."""
        gate = self.typing()
        for color in ROW[:count]:
            self.another(gate, color)
        self.film(gate, BROWN)
        gate.key(INSERT)
        gate.answer("yes")
        gate.call_up(7)
        return gate

    def assertShows(self, gate, color):
        """The photo on the screen is the one that goes to the history."""
        rows = len(self.folder.history())
        gate.key(46)
        gate.answer("yes")
        self.assertColor(self.color(numbered(HST, rows + 2)), color)

    def test_the_arrows_and_the_counters(self):
        gate = self.displayed()
        self.assertEqual([gate.shown(name) for name in (MORE, "ImgFotoDetalle(0)", "ImgFotoDetalle(1)")], [True] * 3)
        self.assertEqual(self.counters(gate), (3, 0, 0))
        steps = ((1, 1), (1, 2), (1, 3), (1, 1), (0, 0), (0, 0), (1, 1), (1, 2), (0, 1), (0, 0))
        shown = 0
        for which, expected in steps:
            beeps = ["beep"] if which == 0 and shown < 2 else []
            self.assertEqual(kinds(gate.click(f"ImgFotoDetalle({which})")), beeps)
            shown = expected
            self.assertEqual(self.counters(gate)[1], expected)

    def test_what_is_shown(self):
        """By clicks and by the arrow keys."""
        for presses, color in (((), BROWN), ((1,), ROW[0]), ((1, 1), ROW[1]), ((1, 1, 1), ROW[2]), ((1, 1, 1, 1), ROW[0]),
                               ((1, 1, 0), ROW[0]), ((1, 0), BROWN), ((0,), BROWN), ((1, 1, 1, 0), ROW[1])):
            with self.subTest(presses=presses):
                gate = self.displayed()
                for number, which in enumerate(presses):
                    if number % 2 == 0:
                        gate.click(f"ImgFotoDetalle({which})")
                    else:
                        gate.key(RIGHT if which else LEFT)
                self.assertShows(gate, color)
                gate.end()

    def test_without_photos_there_are_no_arrows(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        gate.call_up(7)
        self.assertEqual([gate.shown(name) for name in (MORE, "ImgFotoDetalle(0)", "ImgFotoDetalle(1)")], [False] * 3)
        self.assertEqual(kinds(gate.key(RIGHT)), [])
        self.assertEqual(self.counters(gate)[1], 0)
        self.assertShows(gate, BROWN)

    def test_after_a_restart_their_number_is_what_the_folder_holds(self):
        """Also at the other gate, which took none of them."""
        self.displayed().close()
        for gate in (self.running(), self.second_gate()):
            gate.call_up(7)
            self.assertEqual(self.counters(gate), (3, 0, 0))
            gate.click("ImgFotoDetalle(1)")
            self.assertEqual(self.counters(gate), (3, 1, 0))
            gate.key(ESC)

    def test_one_that_is_missing(self):
        gate = self.displayed()
        (self.folder / DTL / "ABC1230007/0007-2.jpg").unlink()
        gate.key(RIGHT)
        self.assertEqual((gate.shown("LblWebCamMsg"), gate.get("Picture2")["Picture"]), (False, True))
        gate.key(RIGHT)
        self.assertEqual((gate.caption("LblWebCamMsg"), gate.get("Picture2")["Picture"]), ("SIN IMAGEN", False))
        gate.key(RIGHT)
        self.assertFalse(gate.shown("LblWebCamMsg"))
        self.assertShows(gate, ROW[2])

    def test_the_main_picture_may_be_missing(self):
        gate = self.displayed()
        (self.folder / numbered(ACT, 7)).unlink()
        gate.key(RIGHT)
        gate.key(LEFT)
        self.assertTrue(gate.get("Picture2")["Picture"])  # that of the user, who was registered by this visit
        self.assertShows(gate, BROWN)

    def test_a_ficha_that_another_program_wrote(self):
        """Its folder is named as ours."""
        self.folder.write(f"{DTL}/ZZZ 90009/0009-1.jpg", jpeg(ROW[1]))
        self.folder.write(numbered(ACT, 9), jpeg(ROW[0]))
        gate = self.with_fichas(inside(9, stamp("13:00", TODAY), "ZZZ 9"))
        gate.call_up(9)
        self.assertEqual(self.counters(gate), (1, 0, 0))
        gate.key(RIGHT)
        self.assertShows(gate, ROW[1])


class Afterwards(MoreDay):
    def leave(self, gate, number, now):
        gate.clock(now)
        gate.advance(500)
        gate.retire(number)

    def test_the_final_name(self):
        gate = self.typing("ñu 1")
        self.another(gate)
        gate.key(INSERT)
        gate.answer("yes")
        second = self.second_gate()
        self.leave(second, 7, "2026-11-21 00:05:09")
        self.assertEqual(self.there(DTL), ["DTL/ÑU 1 P02 21-11-2026 000509", "DTL/ÑU 1 P02 21-11-2026 000509/0007-1.jpg"])

    def test_the_next_visit_begins_at_one(self):
        gate = self.typing()
        for _ in range(2):
            self.another(gate, ROW[0])
        gate.key(INSERT)
        gate.answer("yes")
        self.leave(gate, 7, "2026-11-20 15:00:00")
        gate.call_up(7)
        gate.type("abc123")
        gate.key(ENTER)
        self.another(gate, ROW[1])
        self.assertEqual(self.counters(gate), (1, 1, 0))
        gate.key(INSERT)
        gate.answer("yes")
        before = "ABC123 P01 20-11-2026 150000"
        self.assertEqual(self.there(DTL), photos(before, 7, 1, 2) + photos("ABC1230007", 7, 1))
        self.assertColors("ABC1230007", 7, ROW[1:2])
        self.assertColors(before, 7, [ROW[0]] * 2)

    def test_only_the_copy_of_the_main_picture(self):
        """A folder with number 0 alone goes, also when the camera is on again."""
        self.folder.write(f"{DTL}/ABC0009/0009-0.jpg", b"copy")
        gate = self.with_fichas(inside(9, stamp("13:00", TODAY), "ABC"))
        gate.call_up(9)
        self.assertFalse(gate.shown(MORE))
        gate.key(W, CONTROL | ALT)
        gate.key(46)
        gate.answer("yes")
        self.assertEqual(self.there(DTL), [])


if __name__ == "__main__":
    main()
