#!/usr/bin/env python3
"""Long command lines, large values, many threads, many tools: load_test.py LOAD_TOOL DIVISOR

Every number is divided by DIVISOR, for builds that are slow and need memory themselves. Memory is measured only with a
DIVISOR of 1 and not on Windows."""

import collections
import os
import subprocess
import sys
import unittest

import programs

TOOL, DIVISOR = sys.argv.pop(1), int(sys.argv.pop(1))

LIMIT_SECONDS = 240
MEBIBYTE = 1024 * 1024


def load(command, number):
    """Runs the tool. Returns its output and its peak memory in bytes."""
    process = subprocess.Popen(programs.command(TOOL, command, str(number)), stdin=subprocess.DEVNULL,
                               stdout=subprocess.PIPE)
    with process.stdout:
        output = process.stdout.read()
    _, status, usage = os.wait4(process.pid, 0)
    process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise AssertionError(f"{command} {number}: exit status {process.returncode}")
    return programs.plain_line_ends(output), usage.ru_maxrss * 1024


class Load(unittest.TestCase):
    def check_memory(self, what, memory, most):
        if DIVISOR == 1 and not programs.ON_WINDOWS:
            print(f"{what}: {memory / MEBIBYTE:.1f} MiB", file=sys.stderr)
            self.assertLess(memory, most)

    def check_flat(self, command, number):
        """Checks that a thousandth of the number needs about as much memory. Returns the output for the whole number."""
        _, before = load(command, max(number // 1000, 1))
        output, memory = load(command, number)
        self.check_memory(command, max(memory - before, 0), 2 * MEBIBYTE)
        return output

    def test_long_command_line(self):
        count = 200_000 // DIVISOR // 4 * 4
        output, memory = load("tokens", count)
        self.assertEqual(output.decode(), f"arguments {count // 2}\noutputs {count // 4}\ninputs {count // 4}\n"
                                          f"scanned {count // 4}\nscanned arguments {count // 2}\n")
        self.check_memory("200,000 tokens", memory, 64 * MEBIBYTE)

    def test_large_value(self):
        size = 100_000_000 // DIVISOR // 100 * 100
        output, memory = load("value", size)
        self.assertEqual(output.decode(), f"text {size}\nnumbers {size // 100}\ndifferent numbers 1\n"
                                          f"pieces {size // 100}\nlimit 4294967295\n")
        self.check_memory("a value of 100 MB", memory, 6 * size)

    def test_many_threads(self):
        calls = 100_000 // DIVISOR
        lines = collections.Counter(self.check_flat("threads", calls).split(b"\r"))
        self.assertEqual(lines.pop(b""), 1, "text after the last line")
        self.assertEqual(len(lines), 16)
        for thread in range(16):
            percentage = (b"  " if thread < 2 else b" ") + b"%.1f%% " % (6.25 * thread)
            bar = b"#" * thread + b" " * (15 - thread) + b"|"
            self.assertEqual(lines[b"thread %d" % thread + percentage + bar], calls, thread)

    def test_many_tools(self):
        count = 10_000 // DIVISOR
        self.assertEqual(self.check_flat("tools", count), b"tools %d\n" % count)


if __name__ == "__main__":
    unittest.main()
