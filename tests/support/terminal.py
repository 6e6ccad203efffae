"""Real terminals for the programs under test: one tmux pane each, read row by row.

    with terminal.Terminal(program, "--help") as pane:
        status = pane.wait_for_end()
        rows = pane.settled_rows(expected)

On Windows the pane holds a wine console. Nothing here waits a fixed time: every wait polls for its condition and fails after
LIMIT_SECONDS.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import termios
import time

import programs

LIMIT_SECONDS = 30
SETTLE_SECONDS = 5
LOOK_AGAIN_SECONDS = 0.02

# Runs the program with standard error in a file, then writes its exit status to the title of the terminal. The title reaches
# tmux after all output of the program and does not change the screen. tmux itself cannot be asked for the exit status: it
# sometimes misses the end of a program that ends quickly.
ENDED = "ended with "
RUN_AND_STAY = f"""
exec 2>"$0"
"$@"
printf '\\033]2;{ENDED}%s\\007' $?
exec sleep 600
"""

if shutil.which("tmux") is None:
    sys.exit("tmux is not installed: the tests in real terminals need it")


DEFAULT_COLOUR = "\x1b[39m"


def rows_by_themselves(rows):
    """Yields the rows with every colour ended in its row, as tmux 3.5 does; tmux 3.3 continues colours in the next row."""
    colour = DEFAULT_COLOUR
    for row in rows:
        drawn, text = DEFAULT_COLOUR, ""
        for part in re.findall(r"\x1b\[[0-9;]*m|.", row):
            if part.startswith("\x1b"):
                colour = part
                continue
            if drawn != colour:
                text, drawn = text + colour, colour
            text += part
        yield text + (DEFAULT_COLOUR if drawn != DEFAULT_COLOUR else "")


class Terminal:
    """A program whose standard input and output are a new terminal. Standard error goes to a file."""

    def __init__(self, program, *arguments, columns=80, rows=24):
        # A separate server socket keeps apart tests that run at the same time or inside another tmux.
        self._folder = tempfile.TemporaryDirectory(prefix="kelplib-terminal-")
        self._errors = pathlib.Path(self._folder.name, "standard-error")
        self._environment = {name: value for name, value in os.environ.items() if name not in ("TMUX", "TMUX_PANE")}
        self._environment.update(TERM="screen", LC_ALL="C.UTF-8")
        self._tmux(
            "set-option", "-g", "default-terminal", "screen", ";",
            "set-option", "-g", "status", "off", ";",
            "new-session", "-d", "-x", str(columns), "-y", str(rows),
            "sh", "-c", RUN_AND_STAY, str(self._errors), *programs.command(program, *arguments))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Closes the terminal; ends the program if it still runs."""
        self._tmux("kill-server")
        self._folder.cleanup()

    def rows(self, colours=False):
        """The screen, one string per row without trailing blanks. With `colours`, an escape sequence precedes the first
        character of each colour, and every colour ends in its row."""
        if colours:
            return list(rows_by_themselves(self._tmux("capture-pane", "-p", "-e").split("\n")[:-1]))
        return self._tmux("capture-pane", "-p").split("\n")[:-1]

    def rows_with_history(self):
        """The rows that have left the screen at its top, and the screen. A terminal that becomes narrower may move rows there."""
        return self._tmux("capture-pane", "-p", "-S", "-").split("\n")[:-1]

    def cursor(self):
        """Column and row of the cursor, counted from 0."""
        column, row = self._ask("#{cursor_x} #{cursor_y}").split()
        return int(column), int(row)

    def errors(self):
        """The bytes of standard error so far."""
        return self._errors.read_bytes()

    def type(self, text):
        """Types a text into the terminal."""
        if programs.ON_WINDOWS:
            # Under wine (seen with 8.0) output may come before its console reads the keys. Until then the terminal makes LF of CR.
            self.wait_for(self._passes_keys_on, "console that reads the keys")
        self._tmux("send-keys", "-l", text)

    def resize(self, columns, rows):
        """Changes the size of the terminal."""
        self._tmux("resize-window", "-x", str(columns), "-y", str(rows))

    def wait_for(self, condition, what):
        """Waits until condition() is true. `what` names the condition in the failure message."""
        if not self._comes_true(condition, LIMIT_SECONDS):
            screen = "\n".join(self.rows())
            raise AssertionError(f"no {what} within {LIMIT_SECONDS} s; the screen is\n{screen}")

    def wait_for_text(self, text):
        """Waits until a row holds the text."""
        self.wait_for(lambda: any(text in row for row in self.rows()), f"text {text!r}")

    def wait_for_end(self):
        """Waits until the program has ended. Returns its exit status, 128 + N if signal N ended it."""
        self.wait_for(lambda: self._ask("#{pane_title}").startswith(ENDED), "end of the program")
        return int(self._ask("#{pane_title}").removeprefix(ENDED))

    def settled_rows(self, expected, **options):
        """Returns the rows as soon as they are the expected ones, or after SETTLE_SECONDS. A wine console may draw the last
        output of its program shortly after the program has ended."""
        self._comes_true(lambda: self.rows(**options) == expected, SETTLE_SECONDS)
        return self.rows(**options)

    @staticmethod
    def _comes_true(condition, limit_seconds):
        limit = time.monotonic() + limit_seconds
        while not condition():
            if time.monotonic() > limit:
                return False
            time.sleep(LOOK_AGAIN_SECONDS)
        return True

    def _passes_keys_on(self):
        tty = os.open(self._ask("#{pane_tty}"), os.O_RDONLY | os.O_NOCTTY)
        try:
            return not termios.tcgetattr(tty)[3] & termios.ICANON
        finally:
            os.close(tty)

    def _ask(self, question):
        return self._tmux("display-message", "-p", question).rstrip("\n")

    def _tmux(self, *words):
        socket = str(pathlib.Path(self._folder.name, "socket"))
        done = subprocess.run(["tmux", "-u", "-S", socket, "-f", "/dev/null", *words], env=self._environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=LIMIT_SECONDS, check=False)
        if done.returncode != 0:
            raise AssertionError(f"tmux {words[0]}: {done.stderr.decode(errors='replace').strip()}")
        return done.stdout.decode()
