#!/usr/bin/env python3
"""Each redraw and each message leaves the process with one write: write_test.py WRITE_TOOL

Otherwise a terminal could show half of it, and the output of another program could come in between. The pipe is in packet
mode, in which each read returns the bytes of one write.
"""

import os
import pty
import subprocess
import sys
import unittest

from progress_screens import CLOSED_EYES, HALF, OPEN_EYES

TOOL = sys.argv.pop(1)

# How the C library buffers, and what the tool prints first. glibc writes the very first text of a line-buffered stream line
# by line, so there the tool prints something before.
BUFFERINGS = (("full", b""), ("line", b"ready\n"), ("none", b""))

BAR = [
    b"Reading  0.0%                    |\r",
    b"Reading 50.0% ##########         |\r",
    b"Reading100.0% #####################\r",
]
WIDE_BAR = [b"Reading 50.0% " + 497 * b"#" + b"\r"]
NEGATIVE = [b"KELP_progress() ERROR: 0.0 is not a valid progress, must be >= 0!\n"]

CHEER = (
    b"     _____\n"
    b"    /     \\         the label\n"
    b"   /  ^ ^  \\\n"
    b"   > \\   / <       100.0%\n"
    b"   \\  \\_/  /\n"
    b"    \\_____/         time spent:  10 hours     \n")
CHEER_BLINK = CHEER.replace(b"^ ^", b"_ _")
UP = b"\x1b[6A\r"


def writes(command, buffering, before, standard_output):
    """Runs the tool. Returns the bytes of each of its writes."""
    reading, writing = os.pipe2(os.O_DIRECT)
    with subprocess.Popen([TOOL, command, buffering, str(writing), before], stdin=subprocess.DEVNULL, stdout=standard_output,
                          pass_fds=[writing]) as tool:
        os.close(writing)
        packets = list(iter(lambda: os.read(reading, 65536), b""))
    os.close(reading)
    if tool.returncode != 0:
        raise AssertionError(f"{TOOL} ends with {tool.returncode}")
    return packets


class Case(unittest.TestCase):
    maxDiff = None

    def check(self, command, expected, standard_output):
        for buffering, before in BUFFERINGS:
            with self.subTest(f"{command}, {buffering}"):
                self.assertEqual(writes(command, buffering, before, standard_output), [before] * bool(before) + expected)


class WithoutConsole(Case):
    def test_one_write_each(self):
        for command, expected in (("bar", BAR), ("wide-bar", WIDE_BAR), ("face", [CLOSED_EYES, OPEN_EYES, HALF]),
                               ("finished-face", [CHEER, CHEER_BLINK, CHEER]), ("negative", NEGATIVE)):
            self.check(command, expected, subprocess.DEVNULL)


class Console(Case):
    """Between the frames the cursor moves; each move is a separate write."""

    def test_one_write_each(self):
        console, other_end = pty.openpty()
        for command, expected in (("bar", BAR), ("wide-bar", WIDE_BAR),
                               ("face", [CLOSED_EYES, UP, OPEN_EYES, UP, HALF, UP]),
                               ("finished-face", [CHEER, UP, CHEER_BLINK, UP, CHEER]), ("negative", NEGATIVE)):
            self.check(command, expected, other_end)
        os.close(other_end)
        os.close(console)


if __name__ == "__main__":
    unittest.main()
