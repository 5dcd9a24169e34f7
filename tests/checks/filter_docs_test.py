# SPDX-License-Identifier: MIT
"""The check of docs/filters.md sees the faults it is there for: they are planted in a copy.

    filter_docs_test.py ROOT LISTING [unittest arguments]
"""

import shutil
import subprocess
import sys
import tempfile
import unittest
from pathlib import Path

ROOT = Path()
LISTING = Path()


class FilterDocsTest(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="mobrel-docs-")
        self.addCleanup(folder.cleanup)
        self.page = Path(folder.name) / "filters.md"
        self.pictures = Path(folder.name) / "pictures/filters"
        shutil.copytree(ROOT / "docs/pictures/filters", self.pictures)
        self.text = (ROOT / "docs/filters.md").read_text(encoding="utf-8")

    def check(self, text):
        """Status and words of the check over a page of that text."""
        self.page.write_text(text, encoding="utf-8")
        command = [sys.executable, ROOT / "tools/checks/filter_docs.py", LISTING, self.page]
        ended = subprocess.run(command, capture_output=True, text=True, check=False)
        return ended.returncode, ended.stdout + ended.stderr

    def test_each_planted_fault_is_seen(self):
        cases = {
            "limit": ("-8421395 to 101 |", "-8421395 to 100 |", "Blur: arguments"),
            "exception": ("84214000, not 101 |", "84214000 |", "Relieve: arguments"),
            "preset": ("| -1 to 5 | 0.5 |", "| -1 to 5 | 0.25 |", "Colorize: arguments"),
            "boolean preset": ("| true or false | true |", "| true or false | false |", "Emboss: arguments"),
            "no preset": ("| `Level` | integer | -421075000 to 421075000 | none |",
                          "| `Level` | integer | -421075000 to 421075000 | 0 |", "Contrast: arguments"),
            "name": ("| `xyStep` |", "| `Step` |", "Noise: arguments"),
            "kind": ("| `ColorTo` | colour |", "| `ColorTo` | integer |", "ReplaceHS: arguments"),
            "missing argument": ("| `GInc` | integer | any | none |\n", "", "ShiftRGB: arguments"),
            "border": ("Border: spared. Progress: each row, up",
                       "Border: changed. Progress: each row, up", "SaltAndPepperRemoval: traits"),
            "progress": ("Border: spared. Progress: quarter", "Border: spared. Progress: half",
                         "Despeckle: traits"),
            "missing section": ("## 11. Negative\n", "", "sections"),
            "section of another name": ("## 26. Soften", "## 26. Softer", "sections"),
            "order": ("## 15. RankFilterMaximum", "## 16. RankFilterMaximum", "sections"),
            "step of another operation": ("![Soften:Level=101]", "![Blur:Level=101]", "Soften: operation"),
            "step not told": ("\n`Sharpen:Level=95`", "\n`Sharpen`", "Sharpen: the text"),
            "picture of another operation": ("filters/Greys.png", "filters/Negative.png", "Greys: place"),
            "no picture": ("![Contour](pictures/filters/Contour.png)", "", "Contour: shows 1 pictures"),
        }
        self.assertEqual(self.check(self.text), (0, "27 sections keep to the catalogue\n"))
        for name, (right, wrong, expected) in cases.items():
            with self.subTest(name):
                self.assertIn(right, self.text)
                status, words = self.check(self.text.replace(right, wrong, 1))
                self.assertEqual(status, 1)
                self.assertIn(expected, words)

    def test_pictures_are_there_and_shown(self):
        (self.pictures / "Blur.png").rename(self.pictures / "Blurred.png")
        status, words = self.check(self.text)
        self.assertEqual(status, 1)
        self.assertIn("Blur: no picture pictures/filters/Blur.png", words)
        self.assertIn("pictures/filters/Blurred.png: shown nowhere", words)


if __name__ == "__main__":
    ROOT = Path(sys.argv.pop(1)).resolve()
    LISTING = Path(sys.argv.pop(1)).resolve()
    unittest.main()
