"""Interactive shells in real terminals, into which a test types lines and Tab keys.

    with shell_sessions.Bash(folder, "set -u") as shell:
        line, cursor = shell.press("firstlines --nu\t")
        words = shell.enter()

Each shell has a key of its own (DUMP) that sends its line to a named pipe, and so does the tool of the test with its words. So
nothing waits for a fixed time, and nothing is read from a screen but lists of completions.
"""

import os
import pathlib
import select
import tempfile
import time

import terminal

LIMIT_SECONDS = 30
COLUMNS, ROWS = 200, 50
CLEAR = "\x01\x0b\x0c"  # Ctrl-A, Ctrl-K, Ctrl-L
DUMP = "\x18d"  # Ctrl-X, d

# What the tool of the test does: it sends its words and ends.
TOOL = """#!/bin/sh
printf '%s\\0' "$@" 'end of the words' >"$ANSWERS"
"""
END_OF_WORDS = b"end of the words\0"


class Session:
    """A shell with a home folder of its own. Its current folder is `work` in the home folder, its tools are in `bin`."""

    COMMAND = ()
    START = ""

    def __init__(self, folder, *settings):
        """Starts the shell with the scripts of a folder. The settings are commands that it runs first."""
        self._home = tempfile.TemporaryDirectory(prefix="kelplib-shell-", ignore_cleanup_errors=True)
        self.home = pathlib.Path(self._home.name)
        self.work = self.home / "work"
        self.work.mkdir()
        (self.home / "bin").mkdir()
        # zsh looks commands up once, and this sudo hides that of the system.
        for name in "firstlines", "sudo":
            self.add_tool(name)
        pipe = self.home / "answers"
        os.mkfifo(pipe)
        self._answers = os.open(pipe, os.O_RDWR)
        self._read = b""
        self._lost = False
        self.write_start_file(self.START.replace("FOLDER", str(folder)) + "\n".join(settings) + "\n")
        environment = {"HOME": str(self.home), "ZDOTDIR": str(self.home), "ANSWERS": str(pipe),
                       "XDG_CONFIG_HOME": str(self.home / ".config"), "XDG_DATA_HOME": str(self.home / ".data"),
                       "XDG_CACHE_HOME": str(self.home / ".cache"), "LC_ALL": "C.UTF-8", "TERM": "screen",
                       "PATH": f"{self.home}/bin:/usr/local/sbin:/usr/local/bin:/usr/sbin:/usr/bin:/sbin:/bin"}
        self._terminal = terminal.Terminal(
            "env", "-i", "-C", str(self.work), *(f"{name}={value}" for name, value in environment.items()),
            "sh", "-c", 'exec "$@" 2>&1', "sh", *self.COMMAND, columns=COLUMNS, rows=ROWS)
        try:
            self._wait_until_ready()
        except BaseException:
            self.close()
            raise

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        """Ends the shell and removes its home folder."""
        self._terminal.close()
        os.close(self._answers)
        self._home.cleanup()

    def add_tool(self, name):
        """Adds a program that sends its words."""
        path = self.home / "bin" / name
        path.write_text(TOOL)
        path.chmod(0o755)

    def press(self, keys):
        """Clears the line, presses the keys, and returns the line and the position of the cursor."""
        self._terminal.type(CLEAR + keys + DUMP)
        line, cursor = self._answer(lambda: self._read.count(b"\0") == 2, keys).split("\0")[:2]
        return line, int(cursor)

    def enter(self):
        """Runs the line that press() has left. Returns the words after the name of the tool."""
        self._terminal.type("\r")
        return self._answer(lambda: self._read.endswith(END_OF_WORDS), "Enter").split("\0")[:-2]

    def listed(self, keys, expected):
        """Clears the screen and presses the keys. Returns the rows of the screen as soon as they are the expected ones."""
        self._terminal.type(CLEAR + keys)
        return self._terminal.settled_rows(expected)

    def screen(self):
        return "\n".join(self._terminal.rows()).rstrip()

    def _wait_until_ready(self):
        # A key that is pressed before the shell has bound it is lost, or left on the line.
        limit = time.monotonic() + LIMIT_SECONDS
        while not select.select([self._answers], [], [], 0.3)[0]:
            if time.monotonic() > limit:
                raise AssertionError(f"the shell does not start; the screen is\n{self.screen()}")
            self._terminal.type(CLEAR + DUMP)
        self._terminal.type(CLEAR + "ready" + DUMP)
        self._answer(lambda: self._read.endswith(b"ready\0005\0"), "start")

    def _answer(self, complete, what):
        """Reads from the pipe until complete(). After a first failure, the session fails at once."""
        if self._lost:
            raise AssertionError("the shell has stopped answering")
        limit = time.monotonic() + LIMIT_SECONDS
        while not complete():
            if not select.select([self._answers], [], [], limit - time.monotonic())[0]:
                self._lost = True
                raise AssertionError(f"no answer to {what!r} within {LIMIT_SECONDS} s; the screen is\n{self.screen()}")
            self._read += os.read(self._answers, 65536)
        answer, self._read = self._read, b""
        return answer.decode(errors="surrogateescape")


class Bash(Session):
    COMMAND = ("bash", "--noprofile", "-i")
    START = r"""
PS1='$ ' PS2= HISTFILE=
bind 'set bell-style none' 'set enable-bracketed-paste off' 'set completion-query-items 0' 'set page-completions off' \
    'set match-hidden-files off'
dump() { printf '%s\0%s\0' "$READLINE_LINE" "$READLINE_POINT" >"$ANSWERS"; }
bind -x '"\C-xd": dump'
for file in FOLDER/bash/*; do source "$file"; done
"""

    def write_start_file(self, text):
        (self.home / ".bashrc").write_text(text)


class Zsh(Session):
    COMMAND = ("zsh", "--no-global-rcs", "-i")
    START = r"""
PS1='$ ' HISTFILE=
fpath=(FOLDER/zsh $fpath)
autoload -Uz compinit && compinit -u -D
bindkey -e
dump() { printf '%s\0%s\0' "$BUFFER" "$CURSOR" >$ANSWERS }
zle -N dump
bindkey '^Xd' dump
"""

    def write_start_file(self, text):
        (self.home / ".zshrc").write_text(text)


class Fish(Session):
    COMMAND = ("fish", "--private")
    START = r"""
function fish_prompt; echo '$ '; end
function fish_greeting; end
set -g fish_autosuggestion_enabled 0
bind \cxd 'printf "%s\0%s\0" (commandline -b | string collect) (commandline -C) >$ANSWERS'
set -g fish_complete_path FOLDER/fish $fish_complete_path
"""

    def write_start_file(self, text):
        path = self.home / ".config" / "fish" / "config.fish"
        path.parent.mkdir(parents=True)
        # Without this folder, fish fills it in the background.
        (self.home / ".data" / "fish" / "generated_completions").mkdir(parents=True)
        path.write_text(text)


SHELLS = {"bash": Bash, "zsh": Zsh, "fish": Fish}
