#!/usr/bin/env python3
"""The progress display in a second terminal emulator (pyte), which has to show the same screens as tmux:
emulator_test.py PROGRESS_TOOL"""

import subprocess
import sys
import unittest

import pyte

import progress_screens
import pty_output

TOOL = sys.argv.pop(1)


class Emulator(unittest.TestCase):
    def test_screens(self):
        for words, rows, cursor, results in progress_screens.CASES:
            with self.subTest(words):
                _, output, errors = pty_output.written_to_terminal([TOOL, *words], stderr=subprocess.PIPE)
                screen = pyte.Screen(80, 24)
                pyte.ByteStream(screen).feed(output)
                self.assertEqual([row.rstrip() for row in screen.display], rows)
                self.assertEqual((screen.cursor.x, screen.cursor.y), cursor)
                self.assertEqual(errors, results)


if __name__ == "__main__":
    unittest.main()
