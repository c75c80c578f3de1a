"""The views know the model through its snapshot alone: what a file of src/window includes, and what that includes in
turn, names no control and no form. A few files stand on the model's side, and each of them is named here."""
import re
import unittest

from house import PROJECT, HouseTest

# Who reads controls, who moves the operator's hands, and who knows the titles of the dialogs.
MODEL_SIDE = {"window/controls/SnapshotTaker.cpp", "window/controls/Snapshots.cpp", "window/controls/Hands.cpp",
              "window/controls/KeyMap.cpp", "window/Dialogs.cpp"}
MODEL = re.compile(r"station/|[a-z]+/form(\d|camara)/")
# Values, and functions of texts.
HARMLESS = {"station/forms/LineMark.h", "station/forms/TextCaret.h"}
INCLUDE = re.compile(r'^\s*#\s*include\s*"([^"]+)"', re.MULTILINE)


def includes(source, path):
    """The headers of the project that a file names, as paths below src; of one that is missing, its name."""
    for name in INCLUDE.findall((source / path).read_text(encoding="utf-8")):
        near = (source / path).parent / name
        yield near.relative_to(source).as_posix() if near.is_file() else name


def way_to_model(source, path, seen):
    """How a file comes to know the model: the chain of its includes, or None."""
    for name in includes(source, path):
        if MODEL.match(name) and not name.startswith("window/") and name not in HARMLESS:
            return [path, name]
        if name in seen or not (source / name).is_file():
            continue
        seen.add(name)
        way = way_to_model(source, name, seen)
        if way:
            return [path, *way]
    return None


def offences(root):
    """Of every file of the views that knows the model, its way there; and the named files that need no leave."""
    source = root / "src"
    files = [file.relative_to(source).as_posix() for pattern in ("*.h", "*.cpp")
             for file in sorted((source / "window").rglob(pattern))]
    ways = {path: way_to_model(source, path, set()) for path in files}
    wrong = [" -> ".join(way) for path, way in ways.items() if way and path not in MODEL_SIDE]
    return wrong, [path for path in sorted(MODEL_SIDE) if not ways.get(path)]


class Views(HouseTest):
    def test_a_view_that_reads_controls(self):
        self.write("src/window/form1/Panel.cpp", '#include <QWidget>\n#include "station/forms/Controls.h"\n')
        self.assertEqual(offences(self.root)[0], ["window/form1/Panel.cpp -> station/forms/Controls.h"])

    def test_a_dialog_that_its_view_reads(self):
        self.write("src/window/form6/Panel.h", '#include "tariffs/form6/Form6.h"\n')
        self.assertEqual(offences(self.root)[0], ["window/form6/Panel.h -> tariffs/form6/Form6.h"])

    def test_a_dialog_with_a_name_of_its_own(self):
        self.write("src/window/formcamara/Panel.h", '#include "camera/formcamara/FormCamara.h"\n')
        self.assertEqual(offences(self.root)[0], ["window/formcamara/Panel.h -> camera/formcamara/FormCamara.h"])

    def test_through_headers(self):
        self.write("src/window/form1/Panel.cpp", '#include "window/controls/A.h"\n#include "window/form1/Panel.h"\n')
        self.write("src/window/form1/Panel.h", '#include "window/controls/A.h"\n')
        self.write("src/window/controls/A.h", '#include "B.h"\n')
        self.write("src/window/controls/B.h", '#include "window/controls/A.h"\n#include "station/form1/Form1.h"\n')
        self.assertIn("window/form1/Panel.cpp -> window/controls/A.h -> window/controls/B.h -> station/form1/Form1.h",
                      offences(self.root)[0])

    def test_what_views_may_know(self):
        self.write("src/window/form1/Panel.cpp", '#include "window/form1/Panel.h"\n#include "common/String.h"\n')
        self.write("src/window/form1/Panel.h", '#include "station/forms/TextCaret.h"\n')
        self.write("src/common/String.h", "")
        for path in MODEL_SIDE:
            self.write("src/" + path, '#include "station/forms/Forms.h"\n')
        self.assertEqual(offences(self.root), ([], []))

    def test_leave_that_nobody_needs(self):
        self.write("src/window/controls/Hands.cpp", '#include "common/String.h"\n')
        self.assertIn("window/controls/Hands.cpp", offences(self.root)[1])

    def test_this_project(self):
        self.assertTrue((PROJECT / "src/window/controls/Views.cpp").is_file())
        self.assertEqual(offences(PROJECT), ([], []))


unittest.main()
