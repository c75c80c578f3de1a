"""The photo of a ficha from the entrance to the history: when it is written, under which name, and what is stamped on it."""
from cameras import (ACT, ALT, CONTROL, ENTRY_AT, ENTRY_BESIDE_EXIT_AT, EXIT_AT, HEIGHT, HST, INI, KNOWN, M, MEMORY, TAKEN,
                     TODAY, USR, W, WIDTH, CameraDay, bmp, jpeg, markers, numbered, squeeze)
from station import CAMERA, DELETE, ESC, INSERT, RETIRED, main, sounds, user

BROWN, GREEN, BLUE = (90, 60, 30), (20, 110, 40), (20, 40, 110)
LEAVING = "2026-11-20 15:30:00"
ENTERED, ENTERED_LONG = f"PE01 14:00 {TODAY}", f"PE01 14:00 ({TODAY})"
LEFT = f"PS01 15:30 ({TODAY})"

# The first, the second, the seventh and the last value of the tables of Annex K, in the order of their zigzag, at
# quality 95: (16, 11, 16, 99) and (17, 18, 47, 99) times 10, plus 50, by 100.
LUMINANCE, CHROMINANCE = (2, 1, 2, 10), (2, 2, 5, 10)


class PhotoDay(CameraDay):
    def at_half_past_three(self, gate):
        gate.clock(LEAVING)
        gate.advance(500)

    def leave(self, gate, number):
        self.at_half_past_three(gate)
        return gate.retire(number)


class Entering(PhotoDay):
    def test_one_vehicle_from_gate_to_gate(self):
        """Every name, at its moment."""
        gate = self.filming(BROWN)
        gate.fill(7, "abc123")
        self.assertEqual(self.there(), [])
        self.another(gate, GREEN)
        self.another(gate, BLUE)
        more = ["DTL/ABC1230007", "DTL/ABC1230007/0007-1.jpg", "DTL/ABC1230007/0007-2.jpg"]
        self.assertEqual(self.there(), more)
        self.film(gate, BROWN)
        gate.key(INSERT)
        self.assertEqual(self.there(), more)
        self.assertEqual(sounds(gate.answer("yes")), [TAKEN])
        self.assertEqual(self.there(), ["ACT/000007.jpg", *more, "INI/000001.jpg", "USR/000001.jpg"])
        self.at_half_past_three(gate)
        gate.call_up(7)
        self.assertEqual(sounds(gate.key(DELETE)), [])
        self.assertEqual(self.there(), ["ACT/000007.jpg", *more, "INI/000001.jpg", "USR/000001.jpg"])
        self.assertEqual(sounds(gate.answer("yes")), [RETIRED])
        named = "DTL/ABC123 P01 20-11-2026 153000"
        self.assertEqual(self.there(), [named, f"{named}/0007-1.jpg", f"{named}/0007-2.jpg", "HST/000002.jpg",
                                        "INI/000001.jpg", "USR/000001.jpg"])

    def test_the_file(self):
        gate = self.filming(BROWN)
        gate.save(7)
        found = markers((self.folder / numbered(ACT, 7)).read_bytes())
        frames = [(marker, body) for marker, body in found if 0xC0 <= marker <= 0xCF and marker != 0xC4]
        self.assertEqual([marker for marker, _ in frames], [0xC0])
        self.assertEqual(frames[0][1], bytes([8, 0, HEIGHT, WIDTH >> 8, WIDTH & 255, 3, 1, 0x11, 0, 2, 0x11, 1, 3, 0x11, 1]))
        tables = [body for marker, body in found if marker == 0xDB]
        self.assertEqual([(body[0], len(body)) for body in tables], [(0, 65), (1, 65)])
        self.assertEqual([tuple(body[at] for at in (1, 2, 7, 64)) for body in tables], [LUMINANCE, CHROMINANCE])

    def test_a_frame_of_any_size_is_stretched(self):
        """Four colours in the quarters of the frame stand in the quarters of the photo."""
        gate = self.running()
        colors = {(0, 0): (200, 30, 30), (1, 0): (30, 200, 30), (0, 1): (30, 30, 200), (1, 1): (200, 200, 30)}
        for number, (width, height) in enumerate(((640, 480), (2, 2), (1000, 50), (50, 600), (320, 240)), start=1):
            with self.subTest(width=width, height=height):
                def quarter(x, y):
                    return colors[x * 2 // width, y * 2 // height]
                gate.do("camera", name=CAMERA, frame=self.frame(bmp(width, height, quarter)))
                gate.save(number)
                photo = self.photo(numbered(ACT, number))
                self.assertEqual((photo.width, photo.height), (320, 240))
                for (right, down), color in colors.items():
                    self.assertColor(photo.at(20 + 280 * right, 15 + 210 * down), color, 12)

    def test_frames_of_other_formats(self):
        gate = self.running()
        for number, data in enumerate((jpeg(GREEN), squeeze(b"P6\n1 1\n255\n" + bytes(GREEN))), start=1):
            gate.do("camera", name=CAMERA, frame=self.frame(data, "jpg"))
            gate.save(number)
            self.assertPlain(numbered(ACT, number), GREEN)

    def test_the_question(self):
        gate = self.filming(BROWN)
        gate.fill(7, "abc")
        gate.key(INSERT)
        self.assertEqual([gate.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")], [False, True, False])
        self.assertTrue(gate.get("Picture2")["Picture"])
        self.assertEqual(sounds(gate.answer("no")), [])
        self.assertEqual([gate.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")], [True, False, False])
        self.assertFalse(gate.get("Picture2")["Picture"])
        self.assertEqual(self.there(), [])

    def test_the_frame_is_that_of_the_question(self):
        """Who was looked at when the question came is who is on the photo."""
        gate = self.filming(BROWN)
        gate.fill(7, "abc")
        gate.key(INSERT)
        self.film(gate, GREEN)
        gate.answer("yes")
        self.assertPlain(numbered(ACT, 7), BROWN)

    def test_without_a_plate_there_is_no_user_to_keep_it_for(self):
        gate = self.filming(BROWN)
        self.assertEqual(sounds(gate.save(7)), [TAKEN])
        self.assertEqual(self.there(), ["ACT/000007.jpg"])

    def test_what_a_ficha_before_has_left_is_replaced(self):
        for folder, number in ((ACT, 7), (USR, 1), (INI, 1)):
            self.folder.write(numbered(folder, number), b"old").chmod(0o444)
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        for folder, number in ((ACT, 7), (USR, 1), (INI, 1)):
            self.assertPlain(numbered(folder, number), BROWN)


class Known(PhotoDay):
    """A user whose photo is stored is shown by it, and comes in under it, unless faces are remembered."""

    def known(self, *others):
        """A gate where ABC, the first user, is known by a green photo."""
        self.folder.write(numbered(USR, 1), jpeg(GREEN, 320, 240))
        self.folder.write(numbered(INI, 1), b"first")
        gate = self.with_fichas(users=[user("ABC"), *others])
        self.film(gate, BROWN)
        return gate

    def test_the_stored_photo_comes_in(self):
        gate = self.known(user("LAST"))
        gate.fill(7, "abc")
        gate.key(INSERT)
        self.assertTrue(all(gate.get(name)["Picture"] for name in ("Picture2", "ImgUsuario", "PctUsuario(0)")))
        self.assertEqual(sounds(gate.answer("yes")), [KNOWN])
        self.assertPlain(numbered(ACT, 7), GREEN)
        self.assertEqual((self.folder / numbered(USR, 1)).read_bytes(), (self.folder / numbered(ACT, 7)).read_bytes())
        self.assertEqual((self.folder / numbered(INI, 1)).read_bytes(), b"first")

    def test_the_last_user_is_kept_as_on_his_first_visit(self):
        gate = self.known()
        gate.save(7, "abc")
        self.assertPlain(numbered(INI, 1), GREEN)

    def test_with_faces_remembered_a_new_one_is_taken(self):
        gate = self.known(user("LAST"))
        self.remember_faces(gate)
        self.assertEqual(sounds(gate.save(7, "abc")), [TAKEN])
        for folder, number in ((ACT, 7), (USR, 1)):
            self.assertStamped(numbered(folder, number), BROWN, (ENTRY_AT, ENTERED))
        self.assertEqual((self.folder / numbered(INI, 1)).read_bytes(), b"first")

    def test_a_user_without_photo(self):
        gate = self.known(user("OTHER"), user("LAST"))
        self.assertEqual(sounds(gate.save(7, "other")), [TAKEN])
        self.assertPlain(numbered(ACT, 7), BROWN)
        self.assertPlain(numbered(USR, 2), BROWN)
        self.assertFalse((self.folder / numbered(INI, 2)).exists())

    def test_with_the_camera_off_it_stays(self):
        gate = self.known()
        before = (self.folder / numbered(USR, 1)).read_bytes()
        gate.key(W, CONTROL | ALT)
        self.assertEqual(sounds(gate.save(7, "abc")), [])
        self.assertEqual(self.there(), ["INI/000001.jpg", "USR/000001.jpg"])
        self.assertEqual((self.folder / numbered(USR, 1)).read_bytes(), before)


class Stamps(PhotoDay):
    def test_the_entrance_only_with_faces_remembered(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        self.assertPlain(numbered(ACT, 7), BROWN)
        self.remember_faces(gate)
        gate.save(8, "def")
        self.assertStamped(numbered(ACT, 8), BROWN, (ENTRY_AT, ENTERED))
        gate.key(M, CONTROL | ALT)
        self.assertFalse(gate.shown(MEMORY))
        gate.save(9, "ghi")
        self.assertPlain(numbered(ACT, 9), BROWN)

    def test_exit_and_entrance_on_the_photo_of_the_exit(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        self.leave(gate, 7)
        self.assertStamped(numbered(HST, 2), BROWN, (EXIT_AT, LEFT), (ENTRY_BESIDE_EXIT_AT, ENTERED_LONG))

    def test_the_exit_alone_where_the_entrance_is_stamped_already(self):
        gate = self.filming(BROWN)
        self.remember_faces(gate)
        gate.save(7, "abc")
        self.leave(gate, 7)
        self.assertStamped(numbered(HST, 2), BROWN, (EXIT_AT, LEFT), (ENTRY_AT, ENTERED))

    def test_the_gates_that_it_passed(self):
        main_gate = self.filming(BROWN)
        second = self.second_gate()
        self.film(second, GREEN)
        second.save(507, "abc")
        main_gate.save(7, "def")
        self.leave(main_gate, 507)
        self.leave(second, 7)
        self.assertStamped(numbered(HST, 2), GREEN, (EXIT_AT, LEFT), (ENTRY_BESIDE_EXIT_AT, f"PE02 14:00 ({TODAY})"))
        self.assertStamped(numbered(HST, 3), BROWN, (EXIT_AT, f"PS02 15:30 ({TODAY})"), (ENTRY_BESIDE_EXIT_AT, ENTERED_LONG))

    def test_on_any_ground(self):
        """White letters keep a dark edge on white, and themselves on black."""
        gate = self.running()
        self.remember_faces(gate)
        for number, ground in ((1, (255, 255, 255)), (2, (0, 0, 0)), (3, (250, 250, 0))):
            self.film(gate, ground)
            gate.save(number)
            photo = self.photo(numbered(ACT, number))
            area = [photo.at(x, y) for x in range(3, 150) for y in range(11)]
            self.assertGreater(sum(min(pixel) > 200 for pixel in area), 100)
            self.assertGreater(sum(max(pixel) < 60 for pixel in area), 100)


class Leaving(PhotoDay):
    def test_the_number_is_that_of_the_row(self):
        gate = self.running()
        for number, color in ((7, BROWN), (8, GREEN), (9, BLUE)):
            self.film(gate, color)
            gate.save(number)
        for row, number in ((2, 9), (3, 7), (4, 8)):
            gate.retire(number)
            self.assertEqual(len(self.folder.history()), row - 1)
        for row, color in ((2, BLUE), (3, BROWN), (4, GREEN)):
            self.assertColor(self.color(numbered(HST, row)), color)
        self.assertEqual(self.there(), [f"HST/{row:06}.jpg" for row in (2, 3, 4)])

    def test_neither_no_nor_a_late_answer_touches_it(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        gate.advance(60000)
        before = self.folder.all_bytes()
        gate.call_up(7)
        gate.key(DELETE)
        gate.answer("no")
        gate.call_up(7)
        gate.key(DELETE)
        gate.advance(180000)
        gate.answer("yes")
        self.assertEqual(self.folder.all_bytes(), before)

    def test_without_a_photo_there_is_none(self):
        gate = self.running()
        gate.save(7, "abc")
        self.film(gate, BROWN)
        gate.retire(7)
        self.assertEqual((len(self.folder.history()), self.there()), (1, []))

    def test_what_stands_under_the_rows_name_is_replaced(self):
        self.folder.write(numbered(HST, 2), b"old").chmod(0o444)
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        gate.retire(7)
        self.assertColor(self.color(numbered(HST, 2)), BROWN)

    def test_the_photo_on_the_screen_is_the_one(self):
        gate = self.filming(BROWN)
        gate.fill(7, "abc")
        self.another(gate, GREEN)
        self.film(gate, BLUE)
        gate.key(INSERT)
        gate.answer("yes")
        gate.call_up(7)
        gate.click("ImgFotoDetalle(1)")
        gate.key(DELETE)
        gate.answer("yes")
        self.assertColor(self.color(numbered(HST, 2)), GREEN)

    def test_with_the_camera_off_neither_is_touched(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        gate.key(W, CONTROL | ALT)
        gate.retire(7)
        self.assertEqual(len(self.folder.history()), 1)
        self.assertEqual(self.there(ACT, HST), ["ACT/000007.jpg"])

    def test_the_next_ficha_has_not_the_photo_of_the_one_before(self):
        """A ficha that left while the camera was off leaves its photo; the next one, without a frame, has none all the same."""
        gate = self.filming(BROWN)
        gate.save(7, "before")
        gate.key(W, CONTROL | ALT)
        gate.retire(7)
        gate.close()
        self.assertEqual(self.there(ACT), ["ACT/000007.jpg"])
        gate = self.running()
        gate.save(7, "now")
        self.assertFalse(gate.get("ImgFicha(0)")["Picture"])
        gate.retire(7)
        self.assertEqual(self.there(HST), [])

    def test_the_next_ficha_of_the_slot(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        gate.retire(7)
        self.film(gate, GREEN)
        gate.save(7, "def")
        self.assertPlain(numbered(ACT, 7), GREEN)
        self.assertColor(self.color(numbered(HST, 2)), BROWN)


class OnScreen(PhotoDay):
    def test_the_cell_and_the_display(self):
        gate = self.filming(BROWN)
        gate.save(7, "abc")
        self.assertTrue(gate.get("ImgFicha(0)")["Picture"])
        gate.call_up(7)
        self.assertEqual([gate.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")], [False, True, False])
        self.assertTrue(gate.get("Picture2")["Picture"])
        gate.key(ESC)
        self.assertEqual([gate.shown(name) for name in ("Picture1", "Picture2", "LblWebCamMsg")], [True, False, False])
        gate.do("hover", control="ImgFicha(0)")
        self.assertTrue(gate.get("Picture2")["Picture"])
        self.assertTrue(gate.shown("Picture2"))


if __name__ == "__main__":
    main()
