# SPDX-License-Identifier: MIT
"""The example hosts: each does the exchange, and tells it when the work was not done.

    examples_test.py PROGRAM EXAMPLES [unittest arguments]
"""

import os
import random
import subprocess
import sys
import unittest

from handoff_folder import HandOff, clean_environment, remove_stray_snapshot
from handoff_oracle import encoded, noise, sepia, written

PROGRAM = ""
EXAMPLES = ""

tearDownModule = remove_stray_snapshot


class ExampleTest(unittest.TestCase):
    def test_each_example(self):
        picture = noise(13, 9, random.Random(5))
        file = encoded(picture)
        # number, what lies in the folder, what is handed on, status, words, temp.bmp afterwards
        cases = [
            ("15", None, file, 0, "the result is", written(sepia(picture))),
            ("15", file, None, 0, "the result is", written(sepia(picture))),
            ("3", None, written(picture), 0, "the picture is as it was", written(picture)),
            ("5", None, file, 1, "status 1: mobrel: ", file),
            ("15", None, None, 1, "no picture", None),
            ("15", b"no picture", None, 1, "Unexpected error loading image", b"no picture"),
        ]
        for example in ("host.sh", "host.py"):
            for number, there, handed, status, words, result in cases:
                with self.subTest(example, number=number), HandOff(PROGRAM) as host:
                    # a flag of an earlier run must not be taken for one of this
                    host.leave(b"[ZV-HARBORLY]\r\nWinState=1\r\n", there)
                    arguments = [os.path.join(EXAMPLES, example), str(host.folder), number]
                    if handed is not None:
                        (host.root / "picture.bmp").write_bytes(handed)
                        arguments.append(str(host.root / "picture.bmp"))
                    environment = clean_environment() | {"MOBREL": PROGRAM, "tmp": str(host.temporary)}
                    ended = subprocess.run(arguments, env=environment, capture_output=True, text=True,
                                           stdin=subprocess.DEVNULL, timeout=120, check=False)
                    self.assertEqual(ended.returncode, status, ended.stderr)
                    self.assertIn(words, ended.stderr if status else ended.stdout)
                    self.assertEqual(host.picture.read_bytes() if host.picture.exists() else None, result)


if __name__ == "__main__":
    PROGRAM = os.path.abspath(sys.argv.pop(1))
    EXAMPLES = os.path.abspath(sys.argv.pop(1))
    unittest.main()
