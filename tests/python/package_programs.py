"""Programs that use the Python package, in terminals and elsewhere."""

import os
import pathlib
import subprocess
import sys

import pty_output
import pyte

LIBRARY = sys.argv.pop(1)
PACKAGE = pathlib.Path(__file__).resolve().parents[2] / "python"

# Draws at once instead of after half a second. shown(n) waits until n is on the screen; the display draws every number once, so
# the output is always the same. The work seems to have begun 100 seconds ago, and the face does not blink.
PRELUDE = """
import contextlib, io, os, signal, sys, termios, threading, time
import kelplib
from kelplib import _display, _library
defaults = _display._SECONDS_BEFORE_FIRST_DRAW, _display._SECONDS_BETWEEN_DRAWS
_display._SECONDS_BEFORE_FIRST_DRAW = _display._SECONDS_BETWEEN_DRAWS = 0.001

def shown(count):
    limit = time.monotonic() + 30
    while _display._current._drawn != count:
        assert time.monotonic() < limit, (_display._current._drawn, count)
        time.sleep(0.001)

def long_ago():
    _library.settings.start_time = _library.time_stamp() - 100.5
    _library.settings.last_blink = _library.time_stamp() + 1e6

def work(display):
    for count, item in enumerate(display):
        if count:
            shown(count)
        else:
            long_ago()
        yield item
"""


def environment(**changed):
    kept = {name: value for name, value in os.environ.items()
            if name not in ("MSYSTEM", "PYTHONUNBUFFERED", "PYTHONPATH", "LD_LIBRARY_PATH")}
    return {**kept, "PYTHONPATH": str(PACKAGE), "KELPLIB_LIBRARY": LIBRARY, "TERM": "xterm", "LC_ALL": "C.UTF-8", **changed}


def command(code):
    # Python 3.12 and later may warn of a fork, although no other thread runs while the process forks: 3.13.0 counts the one
    # that goes on drawing afterwards.
    return [sys.executable, "-B", "-X", "dev", "-W", "ignore:This process:DeprecationWarning", "-c", PRELUDE + code]


def in_terminal(code, columns=80, rows=24, status=0, errors="", **changed):
    """Returns the output of a program to a terminal. Checks its exit status and the last line of its standard error."""
    ended, output, written = pty_output.written_to_terminal(
        command(code), columns, rows, stderr=subprocess.PIPE, env=environment(**changed))
    if ended != status or ("\n" + written.decode()).rstrip("\n").rpartition("\n")[2] != errors:
        raise AssertionError(f"exit status {ended}\n{written.decode()}")
    return output


def elsewhere(code, output=subprocess.PIPE, **changed):
    """Returns the exit status, standard output and standard error of a program without a terminal."""
    done = subprocess.run(command(code), stdin=subprocess.DEVNULL, stdout=output, stderr=subprocess.PIPE, timeout=60,
                          env=environment(**changed), check=False)
    return done.returncode, done.stdout, done.stderr.decode()


def screen(output, columns=80, rows=24):
    """Returns the rows of the screen down to the cursor, which is in column 0, without trailing blanks."""
    terminal = pyte.Screen(columns, rows)
    pyte.ByteStream(terminal).feed(output)
    shown = [row.rstrip() for row in terminal.display]
    if terminal.cursor.x or any(shown[terminal.cursor.y:]):
        raise AssertionError(f"the cursor is at {terminal.cursor.x}, {terminal.cursor.y} of {shown}")
    return shown[:terminal.cursor.y]
