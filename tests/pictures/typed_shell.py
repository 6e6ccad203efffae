#!/usr/bin/env python3
"""Types into zsh, with the completions of the example tools: typed_shell.py RECORDING TOOLS DOCUMENTS

Writes what the shell shows to RECORDING, an asciicast. TOOLS is the folder of the built tools, DOCUMENTS that of their
completions for zsh. Each step waits for its text, however long the shell takes.
"""

import json
import os
import pathlib
import pty
import re
import select
import signal
import sys
import tempfile
import termios
import time

COLUMNS, ROWS, TITLE = 60, 6, "Tab in zsh"

# What is typed, and what the shell then shows.
STEPS = [("convert --fr", "r"), ("\t", "="), ("\t", r"\byd\b"), ("f", "f"), ("\t", "t"), ("h", "h"), ("\t", "txt"),
         ("-", "-"), ("\t", "convert into")]

SETTINGS = r"""
PS1='$ '
unset zle_bracketed_paste
unsetopt prompt_sp
fpath=("$DOCUMENTS" $fpath)
autoload -Uz compinit
compinit -u -D
"""

CONTROL = re.compile(r"\x1b\[[0-9;?]*[A-Za-z]|\x1b[=>]")
SECONDS = 30


class Shell:
    """A zsh in a terminal of its own. Collects (seconds, output)."""

    def __init__(self, folder, tools, documents):
        self.begin, self.events = time.monotonic(), []
        folder = pathlib.Path(folder)
        (folder / "heights.txt").write_text("6 29029\n", encoding="utf-8")
        (folder / ".home").mkdir()
        (folder / ".home" / ".zshrc").write_text(SETTINGS, encoding="utf-8")
        environment = {"PATH": f"{tools}:/usr/bin:/bin", "HOME": str(folder / ".home"), "ZDOTDIR": str(folder / ".home"),
                       "DOCUMENTS": str(documents), "TERM": "xterm-256color", "LC_ALL": "C.UTF-8"}
        self.process, self.terminal = pty.fork()
        if self.process == 0:
            os.chdir(folder)
            termios.tcsetwinsize(0, (ROWS, COLUMNS))
            os.execvpe("zsh", ["zsh", "-d", "-i"], environment)

    def wait_for(self, pattern):
        seen, until = "", time.monotonic() + SECONDS
        while not re.search(pattern, CONTROL.sub("", seen), re.S):
            if not select.select([self.terminal], [], [], max(0.0, until - time.monotonic()))[0]:
                raise TimeoutError(f"no {pattern!r} in {seen!r}")
            text = os.read(self.terminal, 65536).decode()
            self.events.append((time.monotonic() - self.begin, text))
            seen += text

    def type(self, keys):
        os.write(self.terminal, keys.encode())

    def end(self):
        os.kill(self.process, signal.SIGKILL)
        os.close(self.terminal)
        os.waitpid(self.process, 0)


def typed(tools, documents, pause=0.0):
    """Returns the events. Waits for `pause` seconds before each key, and longer before Tab and after it."""
    with tempfile.TemporaryDirectory() as folder:
        shell = Shell(folder, tools, documents)
        try:
            shell.wait_for(r"\$ ")
            for keys, shown in STEPS:
                time.sleep(pause * (5 if keys == "\t" else 3))
                for key in keys[:-1]:
                    shell.type(key)
                    shell.wait_for(re.escape(key))
                    time.sleep(pause)
                shell.type(keys[-1])
                shell.wait_for(shown)
            return shell.events
        finally:
            shell.end()


def main():
    recording, tools, documents = sys.argv[1:]
    events = typed(tools, documents, pause=0.15)
    # The last event comes a while after the others, so that the picture shows the end for some time.
    events.append((events[-1][0] + 4, "\r"))
    lines = [{"version": 2, "width": COLUMNS, "height": ROWS, "title": TITLE},
             *([round(seconds, 3), "o", text] for seconds, text in events)]
    pathlib.Path(recording).write_text("".join(json.dumps(line) + "\n" for line in lines), encoding="utf-8")


if __name__ == "__main__":
    main()
