#!/usr/bin/env python3
"""Runs the first program of docs/python.md in a terminal and compares the screen with the page: page_test.py LIBRARY"""

import pathlib
import re
import sys
import unittest

import pty_output
from package_programs import environment, screen

PAGE = pathlib.Path(__file__).resolve().parents[2] / "docs/python.md"


class Page(unittest.TestCase):
    def test_the_screen_of_the_first_program(self):
        page = PAGE.read_text(encoding="utf-8")
        program = re.search(r"`reading\.py`:\n\n```python\n(.*?)```", page, re.S)[1]
        shown = re.search(r"```text\n(.*?)```", page, re.S)[1].splitlines()
        status, output, _ = pty_output.written_to_terminal([sys.executable, "-B", "-c", program], env=environment())
        self.assertEqual(status, 0)
        # A busy machine takes longer.
        rows = [re.sub(r"in: \d+\.\d (secs|mins)$", "in: 1.2 secs", row) for row in screen(output)]
        self.assertEqual(rows, shown)


if __name__ == "__main__":
    unittest.main()
