#!/usr/bin/env python3
"""The progress display in real terminals, and where there is none: progress_test.py PROGRESS_TOOL SYSTEM_TOOL

SYSTEM_TOOL is without_output on Windows. Elsewhere it is not used: the shell closes standard output.
"""

import subprocess
import sys
import tempfile
import unittest

import programs
import progress_screens
import terminal
from progress_screens import CLOSED_EYES, HALF, OPEN_EYES

TOOL = sys.argv.pop(1)
SYSTEM_TOOL = sys.argv.pop(1)

BAR = (
    b"Reading  0.0%                    |\r"
    b"Reading  5.0% #                  |\r"
    b"Reading 50.0% ##########         |\r"
    b"Reading 99.0% ####################|\r"
    b"Reading100.0% #####################\r\n"
    b"later output\n")


class Terminals(unittest.TestCase):
    def test_screens(self):
        for words, rows, cursor, results in progress_screens.CASES:
            with self.subTest(words), terminal.Terminal(TOOL, *words) as pane:
                self.assertEqual(pane.wait_for_end(), 0)
                self.assertEqual(pane.settled_rows(rows), rows)
                self.assertEqual(pane.cursor(), cursor)
                self.assertEqual(programs.plain_line_ends(pane.errors()), results)


class Interface(unittest.TestCase):
    def test_starts_at_zero(self):
        self.assertEqual(programs.run(TOOL, "untouched", "0"), (0, b"", b"0\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "no such device there")
    def test_throws_nothing(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "throwing-stream", "0"], stdin=subprocess.DEVNULL, stdout=full,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, b"0\n"))


class WithoutConsole(unittest.TestCase):
    """Each frame is printed below the last one, without escape sequences."""

    def test_pipe(self):
        self.assertEqual(programs.run(TOOL, "bar", "0"), (0, BAR, b"0\n0\n0\n0\n0\n"))
        self.assertEqual(programs.run(TOOL, "unfinished-face", "0"), (0, CLOSED_EYES + OPEN_EYES + HALF, b"167\n165\n"))

    def test_file(self):
        with tempfile.TemporaryFile() as file:
            subprocess.run(programs.command(TOOL, "unfinished-face", "0"), stdin=subprocess.DEVNULL, stdout=file,
                           stderr=subprocess.DEVNULL, timeout=60, check=True)
            file.seek(0)
            self.assertEqual(programs.plain_line_ends(file.read()), CLOSED_EYES + OPEN_EYES + HALF)

    @unittest.skipIf(programs.ON_WINDOWS, "no such device there")
    def test_full_disk(self):
        for words, results in ((["bar", "0"], 5 * b"-1\n"), (["face", "0"], 7 * b"-1\n")):
            with self.subTest(words), open("/dev/full", "wb") as full:
                done = subprocess.run([TOOL, *words], stdin=subprocess.DEVNULL, stdout=full, stderr=subprocess.PIPE,
                                      timeout=60, check=True)
                self.assertEqual(done.stderr, results)

    def test_closed_output(self):
        for words, results in ((["bar", "0"], 5 * b"-1\n"), (["face", "0"], 7 * b"-1\n")):
            with self.subTest(words):
                done = subprocess.run(programs.command_without_output(SYSTEM_TOOL, TOOL, *words), timeout=60, check=True,
                                      stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                self.assertEqual((done.stdout, programs.plain_line_ends(done.stderr)), (b"", results))


if __name__ == "__main__":
    unittest.main()
