# SPDX-License-Identifier: MIT
"""The gallery of controls shows itself.

    MOBREL_GALLERY=PROGRAM gallery_test.py [unittest arguments]
"""

import os
import re
import subprocess
import time
import unittest

from display_case import LEAKS_OF_QT, DisplayTest, require_tools
from x_client import PATIENCE

GALLERY = os.environ["MOBREL_GALLERY"]


def setUpModule():
    require_tools("xdotool", "import", "identify")


class GalleryTest(DisplayTest):
    def start_gallery(self, *arguments, **environment):
        variables = os.environ | {"DISPLAY": self.server.display, "ASAN_OPTIONS": LEAKS_OF_QT} | environment
        process = subprocess.Popen([GALLERY, *arguments], env=variables, stdin=subprocess.DEVNULL,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(process.communicate)
        self.addCleanup(process.kill)
        return process

    def test_it_shows_something_in_light_and_dark(self):
        means = []
        for arguments in ((), ("--dark",)):
            process = self.start_gallery(*arguments)
            window = self.window("Mobrel gallery", process)
            time.sleep(0.5)
            picture = subprocess.run(["import", "-window", window, "png:-"], capture_output=True, check=True,
                                     timeout=PATIENCE,
                                     env=os.environ | {"DISPLAY": self.server.display}).stdout
            told = subprocess.run(["identify", "-format", "%k %[fx:mean]", "-"], input=picture,
                                  capture_output=True, check=True, timeout=PATIENCE).stdout.decode()
            colours, mean = re.fullmatch(r"(\d+) ([0-9.e-]+)", told).groups()
            self.assertGreater(int(colours), 50)
            means.append(float(mean))
            process.terminate()
            process.communicate(timeout=PATIENCE)
        self.assertGreater(means[0], means[1] + 0.2)


if __name__ == "__main__":
    unittest.main()
