#!/usr/bin/env python3
"""The progress display in a terminal emulator of another make than the one of the other tests: what the tool writes to a
terminal gives the same screens there. emulator_test.py PROGRESS_TOOL"""

import os
import pty
import subprocess
import sys
import termios
import unittest

import pyte

import progress_screens

TOOL = sys.argv.pop(1)


def written_to_terminal(*words):
    """What the tool writes when its standard output is a terminal, and the bytes of its standard error."""
    reader, writer = pty.openpty()
    termios.tcsetwinsize(writer, (24, 80))
    with subprocess.Popen([TOOL, *words], stdin=subprocess.DEVNULL, stdout=writer, stderr=subprocess.PIPE) as tool:
        os.close(writer)
        output = b"".join(iter(lambda: read(reader), b""))
        errors = tool.stderr.read()
    os.close(reader)
    return output, errors


def read(terminal):
    try:
        return os.read(terminal, 65536)
    except OSError:
        # A terminal that nobody holds open for writing any more cannot be read.
        return b""


class Emulator(unittest.TestCase):
    def test_screens(self):
        for words, rows, cursor, results in progress_screens.CASES:
            with self.subTest(words):
                output, errors = written_to_terminal(*words)
                screen = pyte.Screen(80, 24)
                pyte.ByteStream(screen).feed(output)
                self.assertEqual([row.rstrip() for row in screen.display], rows)
                self.assertEqual((screen.cursor.x, screen.cursor.y), cursor)
                self.assertEqual(errors, results)


if __name__ == "__main__":
    unittest.main()
