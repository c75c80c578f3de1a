"""scripts/check-core finds each kind of offence, names it, and lets good trees pass."""
import importlib.machinery
import importlib.util
import re
import unittest

from house import PROJECT, HouseTest


def table():
    """The tables of scripts/check-core: who may know whom, and the base."""
    loader = importlib.machinery.SourceFileLoader("check_core", str(PROJECT / "scripts/check-core"))
    module = importlib.util.module_from_spec(importlib.util.spec_from_loader("check_core", loader))
    loader.exec_module(module)
    return module.MAY_KNOW, module.BASE


def described():
    """The rows of docs/architecture.md: (its folders, the folders that they may include, whether these are all)."""
    for line in (PROJECT / "docs/architecture.md").read_text(encoding="utf-8").splitlines():
        cells = [cell.strip() for cell in line.strip("|").split("|")]
        if line.startswith("| `src/") and len(cells) == 3:
            words = re.sub(r"`[^`]*`", "", cells[2]).split()
            base = table()[1] if words[:1] == ["base"] else []
            whole = words in ([], ["base"], ["nothing"])
            yield re.findall(r"`src/([^`]*)`", cells[0]), set(base + re.findall(r"`([^`]*)`", cells[2])), whole


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

    def test_operations_know_no_others_folder(self):
        operations = ["entry", "network", "sales", "reports", "camera", "safety", "station"]
        for other in operations:
            self.write(f"src/{other}/Own.h", "")
        for folder in operations:
            with self.subTest(folder):
                own, form = f'#include "{folder}/Own.h"\n', '#include "station/form1/Form1.h"\n'
                self.write("src/station/form1/Form1.h", "")
                operation = f"src/{folder}/Operation.cpp"
                self.write(operation, own + form)
                self.assert_passes()
                (self.root / "stamp").unlink()
                for other in operations:
                    if other != folder:
                        self.write(operation, f'#include "{other}/Own.h"\n')
                        self.assert_refuses(f"{folder} may not know {other}")
                self.write(operation, "")

    def test_dialogs_and_their_views(self):
        self.write("src/station/form1/Form1.h", "")
        self.write("src/window/controls/Card.h", '#include <QWidget>\n#include "station/form1/Form1.h"\n')
        self.write("src/tariffs/form6/Form6.h", '#include "station/form1/Form1.h"\n')
        self.write("src/safety/form9/Form9.h", "")
        self.write("src/safety/Menu.cpp", '#include "safety/form9/Form9.h"\n')
        self.write("src/station/AbrirTarifas.cpp", '#include "tariffs/form6/Form6.h"\n')
        self.write("src/window/form6/View.h", '#include "tariffs/form6/Form6.h"\n#include "window/controls/Card.h"\n')
        self.write("src/window/Views.cpp", '#include "window/form6/View.h"\n#include "safety/form9/Form9.h"\n')
        self.assert_passes()
        for folder, header in [("tariffs", "tariffs/form6/Form6.h"), ("entry", "safety/form9/Form9.h"),
                               ("window/form6", "safety/form9/Form9.h"), ("window/form1", "window/form6/View.h"),
                               ("window/controls", "window/form6/View.h"), ("tariffs/form6", "safety/form9/Form9.h")]:
            with self.subTest(folder):
                (self.root / "stamp").unlink(missing_ok=True)
                file = self.write(f"src/{folder}/Wrong.cpp", f'#include "{header}"\n')
                self.assert_refuses(f"src/{folder}/Wrong.cpp:1", f"{folder} may not know {header.rsplit('/', 1)[0]}")
                file.unlink()

    def test_rooms_of_the_station(self):
        self.write("src/station/forms/Controls.h", '#include "platform/Clock.h"\n#include "station/form1/Form1.h"\n')
        self.write("src/platform/Clock.h", "")
        self.write("src/station/form1/Form1.h", '#include "station/Ayuda.h"\n')
        self.write("src/station/Ayuda.h", "")
        self.assert_refuses("station/forms may not know station/form1", "station/form1 may not know station")

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

    def test_the_architecture_tells_the_same_table(self):
        may_know, _ = table()
        rows = list(described())
        self.assertGreater(len(rows), 10)
        for folders, included, whole in rows:
            for folder in folders:
                with self.subTest(folder):
                    known = set(may_know[folder])
                    self.assertLessEqual(included, known)
                    if whole:
                        self.assertEqual(included, known)
        named = {folder for folders, _, _ in rows for folder in folders}
        self.assertEqual({folder for folder in may_know if not re.fullmatch("window/form[2-9]", folder)} - named, set())

    def test_nothing_to_check(self):
        self.assert_refuses("no sources below", "src")

    def test_this_project(self):
        result = self.run_script("check-core", PROJECT)
        self.assertEqual((result.returncode, result.stderr), (0, ""))


unittest.main()
