# SPDX-License-Identifier: MIT
"""Each check of tools/checks sees the faults it is there for: they are planted in a copy.

    checks_test.py ROOT [unittest arguments]
"""

import shutil
import subprocess
import sys
import tempfile
import unittest
import unittest.mock
from pathlib import Path

ROOT = Path()


class CheckTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mobrel-checks-")
        self.addCleanup(folder.cleanup)
        self.root = Path(folder.name)
        self.src = self.root / "src"

    def copy_sources(self):
        shutil.copytree(ROOT / "src", self.src)

    def check(self, name, *arguments):
        """Status and words of a check."""
        command = [sys.executable, ROOT / "tools/checks" / name, *arguments]
        ended = subprocess.run(command, capture_output=True, text=True, check=False)
        return ended.returncode, ended.stdout + ended.stderr

    def plant(self, name, text):
        """Adds text to a file of src, or makes the file."""
        path = self.src / name
        path.parent.mkdir(parents=True, exist_ok=True)
        with path.open("a", encoding="utf-8") as file:
            file.write(text + "\n")

    def test_layers(self):
        cases = {
            "upward": ({"imaging/Surface.hpp": '#include "shell/fMain.hpp"'}, "shell is above imaging"),
            "upward from a new file": ({"platform/base/X.hpp": '  #  include "imaging/cDIB.hpp"'},
                                       "above platform/base"),
            "upward between rooms": ({"platform/system/X.hpp": '#include "platform/pictures/StdPicture.hpp"'},
                                     "platform/pictures is above platform/system"),
            "a dialog in the desktop": ({"desktop/X.cpp": '#include "dialogs/filter/fFilter.hpp"'},
                                        "dialogs/filter is above desktop"),
            "core to programs": ({"programs/batch/A.hpp": "", "shell/X.cpp": '#include "programs/batch/A.hpp"'},
                                 "programs/batch is above shell"),
            "a file outside the rooms": ({"platform/X.hpp": ""}, "platform/X.hpp: stands in no layer"),
            "a room of no layer": ({"platform/extras/X.hpp": ""}, "stands in no layer"),
            "two files": ({"filters/A.hpp": '#include "filters/B.hpp"',
                           "filters/B.hpp": '#include "filters/A.hpp"'},
                          "filters/A.hpp > filters/B.hpp > filters/A.hpp"),
            "a circle": ({"canvas/A.hpp": '#include "controls/B.hpp"',
                          "controls/B.hpp": '#include "canvas/C.hpp"',
                          "canvas/C.hpp": '#include "canvas/A.hpp"'}, "files that include each other"),
            "itself": ({"imaging/A.hpp": '#include "imaging/A.hpp"'}, "imaging/A.hpp > imaging/A.hpp"),
            "Qt class": ({"imaging/Surface.cpp": "#include <QImage>"}, "knows no Qt"),
            "Qt module": ({"shell/fMain.hpp": "#include <QtWidgets/QWidget>"}, "knows no Qt"),
            "Qt in quotes": ({"canvas/ucCanvas.hpp": '#include "qwidget.h"', "qwidget.h": ""}, "no layer"),
            "not written from src": ({"imaging/X.cpp": '#include "cDIB.hpp"'}, "written from src"),
            "by way of ..": ({"imaging/X.cpp": '#include "imaging/../imaging/cDIB.hpp"'}, "no such file"),
            "our own in angles": ({"imaging/X.cpp": "#include <shell/fMain.hpp>"}, "named in quotes"),
            "by a macro": ({"imaging/X.cpp": "#include HEADER"}, "names no file"),
            "a folder of no layer": ({"helpers/X.hpp": ""}, "stands in no layer"),
            "a layer not listed": ({"README.md": "| 3 | `extras/` | more |"}, "README.md: lists the layers"),
            "a layer listed twice": ({"README.md": "| 9 | `imaging/` | again |"}, "README.md: lists the layers"),
        }
        self.copy_sources()
        self.assertEqual(self.check("layers.py", self.src), (0, unittest.mock.ANY))
        for name, (planted, expected) in cases.items():
            with self.subTest(name):
                shutil.rmtree(self.src)
                self.copy_sources()
                for file, text in planted.items():
                    self.plant(file, text)
                status, words = self.check("layers.py", self.src)
                self.assertEqual(status, 1)
                self.assertIn(expected, words)

    def test_layers_allows_what_is_right(self):
        self.copy_sources()
        for file, text in {"controls/A.hpp": '#include "canvas/B.hpp"\n#include <vector>', "canvas/B.hpp": "",
                           "desktop/C.cpp": '#include <QWidget>\n#include "shell/fMain.hpp"',
                           "imaging/D.cpp": '// #include "shell/fMain.hpp"'}.items():
            self.plant(file, text)
        self.assertEqual(self.check("layers.py", self.src)[0], 0)

    def test_headers(self):
        self.plant("platform/base/Whole.hpp", "#include <string>\ninline std::string a() { return {}; }")
        self.assertEqual(self.check("headers.py", self.src)[0], 0)
        self.plant("platform/base/Part.hpp", "inline std::string b() { return {}; }")
        status, words = self.check("headers.py", self.src)
        self.assertEqual(status, 1)
        self.assertIn("Part.hpp", words)

    def test_format(self):
        shutil.copy(ROOT / ".clang-format", self.root)
        self.plant("platform/base/New.hpp", "inline int a() {\n    return 1;\n}")
        self.assertEqual(self.check("format.py", self.root)[0], 0)
        self.plant("platform/base/New.hpp", "inline int  b( ){return 1;}")
        status, words = self.check("format.py", self.root)
        self.assertEqual(status, 1)
        self.assertIn("New.hpp", words)

    def test_nothing_to_check_is_a_fault(self):
        self.src.mkdir()
        for name, folder in (("layers.py", self.src), ("headers.py", self.src), ("format.py", self.root)):
            with self.subTest(name):
                self.assertEqual(self.check(name, folder)[0], 1)


if __name__ == "__main__":
    ROOT = Path(sys.argv.pop(1)).resolve()
    unittest.main()
