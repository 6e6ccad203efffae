#!/usr/bin/env python3
"""The library in real terminals, on a screen of 80 columns and 24 rows: terminal_test.py SCREEN_TOOL PLATFORM_TOOL"""

import sys
import unittest

import programs
import screens
import terminal

SCREEN_TOOL = screens.by_name(sys.argv.pop(1))
PLATFORM_TOOL = sys.argv.pop(1)

EMPTY_ROW = ""


def fillers(first, last):
    return [f"filler line {number}" for number in range(first, last + 1)]


class Case(unittest.TestCase):
    def show(self, program, *words, rows, cursor, errors, coloured_rows=None):
        """Runs the program to its end and compares the screen, the cursor and standard error."""
        with terminal.Terminal(program, *words) as pane:
            self.assertEqual(pane.wait_for_end(), 0)
            self.assertEqual(pane.settled_rows(rows), rows)
            self.assertEqual(pane.cursor(), cursor)
            self.assertEqual(programs.plain_line_ends(pane.errors()), errors)
            if coloured_rows:
                self.assertEqual(pane.rows(colours=True), coloured_rows)


class HelpScreen(Case):
    def test_help_screen(self):
        self.show(SCREEN_TOOL, ".", "/?", cursor=(0, 23), errors=b"",
                  rows=screens.PLAIN_CONSOLE_HELP_ROWS if programs.ON_WINDOWS else screens.HELP_ROWS,
                  coloured_rows=None if programs.ON_WINDOWS else screens.COLOURED_HELP_ROWS)


class Rewind(Case):
    LAST_FRAME = ["final frame, top", "final frame, middle", "final frame, bottom", "all drawn"]

    def test_frames_drawn_over_each_other(self):
        self.show(PLATFORM_TOOL, "animate", "0", cursor=(0, 4), errors=b"1\n1\n1\n",
                  rows=self.LAST_FRAME + 20 * [EMPTY_ROW])

    def test_frames_that_begin_in_the_bottom_row(self):
        self.show(PLATFORM_TOOL, "animate", "23", cursor=(0, 23), errors=b"1\n1\n1\n",
                  rows=fillers(5, 23) + self.LAST_FRAME + [EMPTY_ROW])

    def test_frames_on_a_screen_that_has_scrolled(self):
        self.show(PLATFORM_TOOL, "animate", "100", cursor=(0, 23), errors=b"1\n1\n1\n",
                  rows=fillers(82, 100) + self.LAST_FRAME + [EMPTY_ROW])

    def test_frame_that_ends_in_the_bottom_row(self):
        self.show(PLATFORM_TOOL, "animate", "20", cursor=(0, 23), errors=b"1\n1\n1\n",
                  rows=fillers(2, 20) + self.LAST_FRAME + [EMPTY_ROW])

    def test_move_by_0_lines_leads_to_the_first_column(self):
        self.show(PLATFORM_TOOL, "mark", "0", "5", cursor=(1, 5), errors=b"1\n",
                  rows=fillers(1, 5) + ["Xbc"] + 18 * [EMPTY_ROW])

    def test_move_up(self):
        self.show(PLATFORM_TOOL, "mark", "1", "5", cursor=(1, 4), errors=b"1\n",
                  rows=fillers(1, 4) + ["Xiller line 5", "abc"] + 18 * [EMPTY_ROW])

    def test_move_up_by_two_digits(self):
        for lines, top in (("9", 6), ("10", 5), ("12", 3)):
            with self.subTest(lines):
                self.show(PLATFORM_TOOL, "mark", lines, "15", cursor=(1, top), errors=b"1\n",
                          rows=(fillers(1, top) + [f"Xiller line {top + 1}"] + fillers(top + 2, 15) + ["abc"] +
                                8 * [EMPTY_ROW]))

    @unittest.skipIf(programs.ON_WINDOWS, "the cursor of a Windows console is moved by a call, not by output")
    def test_move_is_seen_at_once(self):
        with terminal.Terminal(PLATFORM_TOOL, "hold", "2", "5") as pane:
            pane.wait_for(lambda: pane.cursor() == (0, 3), "cursor in row 3")
            self.assertEqual(pane.rows(), fillers(1, 5) + 19 * [EMPTY_ROW])

    def test_move_to_the_top(self):
        self.show(PLATFORM_TOOL, "mark", "5", "5", cursor=(1, 0), errors=b"1\n",
                  rows=["Xiller line 1"] + fillers(2, 5) + ["abc"] + 18 * [EMPTY_ROW])

    def test_move_above_the_top(self):
        # A Windows console refuses the move; a terminal moves as far as it can.
        for lines in ("6", "65536"):
            with self.subTest(lines):
                if programs.ON_WINDOWS:
                    self.show(PLATFORM_TOOL, "mark", lines, "5", cursor=(4, 5), errors=b"0\n",
                              rows=fillers(1, 5) + ["abcX"] + 18 * [EMPTY_ROW])
                else:
                    self.show(PLATFORM_TOOL, "mark", lines, "5", cursor=(1, 0), errors=b"1\n",
                              rows=["Xiller line 1"] + fillers(2, 5) + ["abc"] + 18 * [EMPTY_ROW])


if __name__ == "__main__":
    unittest.main()
