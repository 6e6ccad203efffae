#!/usr/bin/env python3
"""The library writes everything, even what is printed while the process ends: late_output_test.py LATE_OUTPUT"""

import sys
import unittest

import programs

LATE_OUTPUT = sys.argv.pop()


def block(when):
    return b"  \x1b[34m-p, --print:\x1b[0m " + when + b"\n\n"


class LateOutput(unittest.TestCase):
    def test_everything_is_written(self):
        self.assertEqual(programs.run(LATE_OUTPUT),
                         (0, block(b"from main") + block(b"from an exit handler") +
                          block(b"from a static object's destructor"), b""))


if __name__ == "__main__":
    unittest.main()
