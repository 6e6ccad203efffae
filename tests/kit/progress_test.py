#!/usr/bin/env python3
"""The kit's progress in real terminals, and nothing of it elsewhere: progress_test.py PROGRESS_TOOL"""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import unittest

import programs
import terminal

if not programs.ON_WINDOWS:
    import pyte

    import pty_output

TOOL = sys.argv.pop(1)

HALF_FACE = [
    "     _____",
    "    /     \\         copying",
    "   /  . .  \\",
    "   >       <        50.0% ###############              |",
    "   \\  ---  /",
    "    \\_____/         time remaining: N secs",
]
# The finished face leaves the bar of the frame before on the screen.
FINISHED_FACE = [
    "     _____",
    "    /     \\         copying",
    "   /  ^ ^  \\",
    "   > \\   / <       100.0% ###############              |",
    "   \\  \\_/  /",
    "    \\_____/         time spent:  N secs",
]
HALF_BAR = ["copying  50.0% ###############              | time left: N secs"]
FINISHED_BAR = ["copying 100.0% ############################### done in: N secs"]

WHOLE = FINISHED_FACE + ["later output"]
FAILED = HALF_FACE + ["the work has failed"]

# How the tool works, columns and rows of the terminal, MSYSTEM, the rows that are left.
CASES = [
    ("whole", (80, 24), False, WHOLE),
    ("whole", (61, 24), False, WHOLE),
    ("whole", (60, 24), False, ["later output"]),
    ("whole", (80, 7), False, WHOLE[1:]),
    ("whole", (80, 6), False, ["later output"]),
    ("hidden", (80, 24), False, ["later output"]),
    ("failing", (80, 24), False, FAILED),
    ("failing", (61, 7), False, FAILED[1:]),
    ("failing", (60, 7), False, ["the work has failed"]),
    ("interrupted", (80, 24), False, HALF_FACE + ["interrupted"]),
    ("whole", (78, 2), True, ["later output"]),
    ("whole", (80, 24), True, FINISHED_BAR + ["later output"]),
    ("whole", (77, 24), True, ["later output"]),
    ("failing", (80, 3), True, HALF_BAR + ["the work has failed"]),
]

# The second half of the first blink. Until it is drawn, a console that changes its size would spoil the face.
OPEN_EYES = ". ."


def steady(rows):
    """Rows without the times that they show."""
    return [re.sub(r"\b\d+(\.\d)? secs", "N secs", row.rstrip()) for row in rows]


def environment(msystem):
    clean = {name: value for name, value in os.environ.items() if name != "MSYSTEM"}
    return {**clean, "MSYSTEM": "MSYS"} if msystem else clean


@unittest.skipIf(programs.ON_WINDOWS, "its console is no such terminal")
class Emulator(unittest.TestCase):
    def test_screens(self):
        for how, (columns, rows), msystem, left in CASES:
            with self.subTest(how=how, columns=columns, rows=rows, msystem=msystem):
                status, output, errors = pty_output.written_to_terminal(
                    [TOOL, how], columns, rows, env=environment(msystem), stderr=subprocess.PIPE)
                self.assertEqual((status, errors), (0, b""))
                screen = pyte.Screen(columns, rows)
                pyte.ByteStream(screen).feed(output)
                self.assertEqual([row for row in steady(screen.display) if row], left)
                last_row = min(len(left), rows - 1)
                self.assertEqual((screen.cursor.x, screen.cursor.y), (0, last_row))

    def test_unknown_size(self):
        _, output, _ = pty_output.written_to_terminal([TOOL, "whole"], 0, 0, env=environment(False))
        self.assertEqual(output, b"later output\r\n")


class Terminals(unittest.TestCase):
    """tmux, which wraps the lines of a terminal that becomes narrower, and wine's console in it."""

    def test_face(self):
        for how, left in (("whole", WHOLE), ("failing", FAILED), ("interrupted", HALF_FACE + ["interrupted"])):
            with self.subTest(how), terminal.Terminal(TOOL, how) as pane:
                self.assertEqual(pane.wait_for_end(), 0)
                pane.wait_for(lambda rows=left: [row for row in steady(pane.rows()) if row] == rows, "face")
                self.assertEqual(pane.cursor(), (0, len(left)))

    @unittest.skipIf(programs.ON_WINDOWS, "wine's console does not follow tmux")
    def test_resized(self):
        for how, columns, rows in (("resized", 40, 24), ("resized-failing", 40, 24), ("resized-failing", 70, 24),
                                   ("resized", 20, 24), ("resized", 80, 5), ("resized-failing", 80, 5)):
            with self.subTest(how=how, columns=columns, rows=rows), tempfile.TemporaryDirectory() as folder:
                go = pathlib.Path(folder, "go")
                with terminal.Terminal(TOOL, how, str(go)) as pane:
                    pane.wait_for_text(OPEN_EYES)
                    pane.resize(columns, rows)
                    go.touch()
                    self.assertEqual(pane.wait_for_end(), 0)
                    shown = [row for row in pane.rows_with_history() if row]
                    # No row of the face is overwritten by what follows.
                    message = "later output" if how == "resized" else "the work has failed"
                    self.assertEqual(shown[-1], message)
                    if rows > 6:
                        joined = steady(["".join(row.ljust(columns) for row in shown[:-1])])[0]
                        for row in HALF_FACE:
                            self.assertIn(row.strip(), joined)

    def test_resized_and_finished(self):
        with tempfile.TemporaryDirectory() as folder, \
                terminal.Terminal(TOOL, "resized", str(pathlib.Path(folder, "go"))) as pane:
            pane.wait_for_text(OPEN_EYES)
            pane.resize(100, 30)
            pathlib.Path(folder, "go").touch()
            self.assertEqual(pane.wait_for_end(), 0)
            pane.wait_for(lambda: [row for row in steady(pane.rows()) if row] == WHOLE, "finished face")


class NoConsole(unittest.TestCase):
    def test_pipe(self):
        for msystem in (False, True):
            self.assertEqual(programs.run(TOOL, "whole", env=environment(msystem)), (0, b"later output\n", b""))
        self.assertEqual(programs.run(TOOL, "failing", env=environment(False)), (0, b"the work has failed\n", b""))

    def test_file(self):
        for msystem in (False, True):
            with tempfile.TemporaryFile() as file:
                subprocess.run(programs.command(TOOL, "whole"), stdin=subprocess.DEVNULL, stdout=file, timeout=60,
                               stderr=subprocess.DEVNULL, check=True, env=environment(msystem))
                file.seek(0)
                self.assertEqual(programs.plain_line_ends(file.read()), b"later output\n")

    @unittest.skipIf(programs.ON_WINDOWS, "no such device there")
    def test_full_disk(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "whole"], stdin=subprocess.DEVNULL, stdout=full, stderr=subprocess.PIPE,
                                  timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (0, b""))

    @unittest.skipIf(programs.ON_WINDOWS, "the shell closes it elsewhere")
    def test_closed_output(self):
        done = subprocess.run(programs.command_without_output("", TOOL, "whole"), stdin=subprocess.DEVNULL,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))


if __name__ == "__main__":
    unittest.main()
