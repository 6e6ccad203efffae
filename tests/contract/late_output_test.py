#!/usr/bin/env python3
"""What a program prints through the library at its very end comes out: late_output_test.py LATE_OUTPUT"""

import sys
import unittest

import programs

LATE_OUTPUT = sys.argv.pop()


def block(when):
    return b"  \x1b[34m-p, --print:\x1b[0m " + when + b"\n\n"


class LateOutput(unittest.TestCase):
    def test_all_of_it_comes_out(self):
        self.assertEqual(programs.run(LATE_OUTPUT),
                         (0, block(b"from main") + block(b"from an exit handler") +
                          block(b"from a static object's destructor"), b""))


if __name__ == "__main__":
    unittest.main()
