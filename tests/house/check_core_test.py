"""scripts/check-core finds each kind of offence, names it, and lets good trees pass."""
import unittest

from house import PROJECT, HouseTest


class CheckCore(HouseTest):
    def check(self):
        return self.run_script("check-core", self.root, self.root / "stamp")

    def assert_passes(self):
        result = self.check()
        self.assertEqual((result.returncode, result.stderr), (0, ""))
        self.assertTrue((self.root / "stamp").exists())

    def assert_refuses(self, *words):
        result = self.check()
        self.assertEqual(result.returncode, 1)
        for word in words:
            self.assertIn(word, result.stderr)
        self.assertFalse((self.root / "stamp").exists())

    def test_good_tree(self):
        self.write("src/common/String.h", "#include <string>\n")
        self.write("src/records/Disk.cpp", '#include <fcntl.h>\n#include "common/String.h"\n')
        self.write("src/entry/Guardar.cpp", '#include "station/form1/Form1.h"\n#include "Fare.h"\n')
        self.write("src/entry/Fare.h", '#  include "records/Row.h"  // why\n')
        self.write("src/records/Row.h", "")
        self.write("src/station/form1/Form1.h", "")
        self.write("src/window/Main.cpp", '#include <QWidget>\n#include "station/form1/Form1.h"\n')
        self.write("src/driver/Main.cpp", "#include <nlohmann/json.hpp>\n")
        self.assert_passes()

    def test_toolkits_in_the_core(self):
        for name in ["<QString>", "<QtCore/QString>", "<gst/gst.h>", "<curl/curl.h>", "<nlohmann/json.hpp>",
                     '"nlohmann/json.hpp"', '"QString"', "<X11/Xlib.h>", "<sys/mman.h>"]:
            with self.subTest(name):
                self.write("src/tariffs/Fare.cpp", f"#include <vector>\n#include {name}\n")
                self.assert_refuses("src/tariffs/Fare.cpp:2", name.strip('<>"'))

    def test_a_library_that_one_folder_alone_may_know(self):
        self.write("src/platform/pictures/Reader.cpp", "#include <jpeglib.h>\n#include <jerror.h>\n")
        self.assert_passes()
        (self.root / "stamp").unlink()
        for face in ["window", "driver", "platform/desktop"]:
            with self.subTest(face):
                self.write(f"src/{face}/Photo.cpp", "#include <jpeglib.h>\n")
                self.assert_refuses(f"src/{face}/Photo.cpp:1", "only platform/pictures")

    def test_toolkit_in_a_header_and_in_headless(self):
        self.write("src/platform/headless/Sound.h", "#include <QObject>\n")
        self.assert_refuses("src/platform/headless/Sound.h:1")

    def test_name_behind_a_macro(self):
        self.write("src/common/A.cpp", "#include TOOLKIT\n")
        self.assert_refuses("TOOLKIT")

    def test_conditional_include_counts(self):
        self.write("src/common/A.cpp", "#if 0\n#include <QString>\n#endif\n")
        self.assert_refuses("QString")

    def test_face_of_the_core(self):
        for face in ["window/Main.h", "app/App.h", "driver/Driver.h", "platform/desktop/Sound.h",
                     "platform/pictures/PictureDecoder.h"]:
            with self.subTest(face):
                self.write("src/" + face, "")
                self.write("src/entry/Guardar.cpp", f'#include "{face}"\n')
                self.assert_refuses("entry may not know", face)

    def test_layers_upside_down(self):
        self.write("src/common/Money.h", '#include "records/Row.h"\n')
        self.write("src/records/Row.h", '#include "tariffs/Fare.h"\n')
        self.write("src/tariffs/Fare.h", '#include "../station/form1/Form1.h"\n')
        self.write("src/station/form1/Form1.h", '#include "entry/Save.h"\n')
        self.write("src/entry/Save.h", "")
        self.assert_refuses("common may not know records", "records may not know tariffs",
                            "tariffs may not know station/form1", "station/form1 may not know entry")

    def test_operation_of_another(self):
        self.write("src/entry/Save.cpp", "")
        self.write("src/network/Link.cpp", '#include "entry/Save.cpp"\n')
        self.assert_refuses("src/network/Link.cpp:1", "no header")

    def test_circle_is_told_whole(self):
        self.write("src/common/A.h", '#include "common/B.h"\n')
        self.write("src/common/B.h", '#include "common/C.h"\n')
        self.write("src/common/C.h", '#include "common/A.h"\n')
        self.assert_refuses("common/A.h -> common/B.h -> common/C.h -> common/A.h")

    def test_header_that_includes_itself(self):
        self.write("src/window/A.h", '#include "A.h"\n')
        self.assert_refuses("window/A.h -> window/A.h")

    def test_two_ways_to_one_header_are_no_circle(self):
        self.write("src/common/A.h", '#include "common/B.h"\n#include "common/C.h"\n')
        self.write("src/common/B.h", '#include "common/D.h"\n')
        self.write("src/common/C.h", '#include "common/D.h"\n')
        self.write("src/common/D.h", "")
        self.assert_passes()

    def test_folder_that_the_table_lacks(self):
        self.write("src/misc/A.h", "")
        self.assert_refuses("src/misc/A.h", "table")

    def test_this_project(self):
        result = self.run_script("check-core", PROJECT)
        self.assertEqual((result.returncode, result.stderr), (0, ""))


unittest.main()
