#!/usr/bin/env python3
"""Does what a page of the documentation shows, and compares what comes out, to the byte.

run_page.py BUILD PAGE                   exit status 1 when anything differs, or when a block is of no known kind
run_page.py BUILD PAGE --write           writes what the commands print into the page, to be read before it is committed
run_page.py BUILD PAGE --without-python  leaves Python programs out, for libraries that Python cannot load

BUILD is a build folder of kelplib. The library is installed from there into a home folder of its own, which the page shows
as /home/ann, and the page is played in its folder "work", where LICENSE lies as well. CXX, CC, CXXFLAGS and
CFLAGS in the environment tell how programs are compiled.

Blocks of a page, in order:
- console: lines "$ command", each with its output below. A command succeeds. Colours are left out; other control
  characters have to be made visible by the command itself.
- any other with "`name`:" in front of it: that file. C and C++ are compiled, under the file's name.
- a part of a program: in front of it a hidden comment, "around name.cpp", with the rest and @@ in the block's place.
- whatever is not to be run: in front of it a hidden comment, "not run: " and the reason.
"""

import argparse
import difflib
import os
import pathlib
import re
import shlex
import shutil
import subprocess
import sys
import tempfile

import page as pages

COLOUR = re.compile(r"\x1b\[[0-9;]*m")
CONTROL = re.compile(r"[\x00-\x08\x0b-\x1f\x7f]")
WARNINGS = "-O0 -Wall -Wextra -Wpedantic -Wconversion -Wshadow -Werror".split()
COMPILERS = {".cpp": ("CXX", "CXXFLAGS", "-std=c++17"), ".c": ("CC", "CFLAGS", "-std=c99")}
SHOWN_HOME = "/home/ann"
SECONDS = 60


class Home:
    """A home folder with the installed library, in which pages are played."""

    def __init__(self, folder, build, project):
        self.folder = pathlib.Path(folder).resolve()
        self.work = self.folder / "work"
        self.work.mkdir()
        shutil.copy(project / "LICENSE", self.work)
        self.prefix = self.folder / ".local"
        subprocess.run(["cmake", "--install", build, "--prefix", self.prefix], check=True, stdout=subprocess.DEVNULL)
        self.library = next(self.prefix.rglob("libkelplib.so")).parent
        kept = ("CXX", "CC", "CXXFLAGS", "CFLAGS", "CMAKE_GENERATOR", "ASAN_OPTIONS", "TSAN_OPTIONS")
        self.environment = {"CXX": "c++", "CC": "cc"}
        self.environment.update((name, os.environ[name]) for name in kept if name in os.environ)
        self.environment.update(PATH=f"{self.work}:/usr/bin:/bin:{os.environ['PATH']}", HOME=str(self.folder),
                                LD_LIBRARY_PATH=str(self.library), LC_ALL="C.UTF-8")

    def run(self, command):
        """What a command prints, and its exit status."""
        done = subprocess.run(command, cwd=self.work, env=self.environment, stdin=subprocess.DEVNULL, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=SECONDS)
        output = done.stdout.decode("utf-8", "backslashreplace")
        return COLOUR.sub("", output).replace(str(self.folder), SHOWN_HOME), done.returncode

    def add(self, name, text):
        """Writes a file, and compiles a program. Returns what is wrong with it."""
        path = self.work / name
        path.write_text(text, encoding="utf-8")
        if path.suffix not in COMPILERS:
            return ""
        compiler, flags, standard = COMPILERS[path.suffix]
        output, status = self.run([
            self.environment[compiler], *shlex.split(self.environment.get(flags, "")), standard, *WARNINGS,
            f"-I{self.prefix}/include", name, "-o", path.stem, f"-L{self.library}", "-lkelplib"])
        return output if status else ""


def differences(where, command, shown, output):
    lines = difflib.unified_diff(shown.splitlines(), output.splitlines(), "shown", "printed", lineterm="")
    return f"{where}: $ {command}\n" + "\n".join(lines)


def play_console(home, block, name, skipped):
    """Runs the commands of a block. Returns the block's text as it should be, and what is wrong."""
    text, wrong = "", []
    for line, command, shown in pages.commands(block):
        where = f"{name}:{line}"
        output, status = (shown, 0) if command.startswith(skipped) else home.run(["bash", "-c", command])
        if status:
            wrong.append(f"{where}: $ {command}\nexit status {status}\n{output}")
        if output and not output.endswith("\n"):
            wrong.append(f"{where}: what is printed has to end in a line end")
        elif CONTROL.search(output):
            wrong.append(f"{where}: control characters, to be made visible: {output!r}")
        elif output != shown:
            wrong.append(differences(where, command, shown, output))
        text += f"$ {command}\n{output}"
    return text, wrong


def play(home, block, name, skipped):
    """Does what one block shows. Returns its text as it should be, and what is wrong."""
    if block.is_left_out():
        return block.text, []
    if block.kind == "console":
        return play_console(home, block, name, skipped)
    file = block.file()
    if not file:
        return block.text, [f"{name}:{block.line}: a block of unknown use ({block.kind or 'no kind'})"]
    problem = home.add(*file)
    return block.text, [f"{name}:{block.line}: {file[0]}\n{problem}"] if problem else []


def play_page(home, path, skipped):
    """The page as it should be, and all that is wrong with it."""
    page, wrong, renewed, at = path.read_text(encoding="utf-8"), [], "", 0
    for block in pages.blocks(page):
        text, problems = play(home, block, path.name, skipped)
        wrong += problems
        if block.kind == "console":
            begin = page.index(f"\n{block.text}```", at) + 1
            renewed += page[at:begin] + text
            at = begin + len(block.text)
    return renewed + page[at:], wrong


def main():
    parser = argparse.ArgumentParser(description="Does what a page of the documentation shows.")
    parser.add_argument("build")
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--without-python", action="store_true")
    arguments = parser.parse_args()
    project = pathlib.Path(__file__).resolve().parent.parent.parent
    with tempfile.TemporaryDirectory(prefix="kelplib-page.") as folder:
        home = Home(folder, arguments.build, project)
        renewed, wrong = play_page(home, arguments.page, "python3 " if arguments.without_python else ())
    if arguments.write:
        arguments.page.write_text(renewed, encoding="utf-8")
    print("\n".join(wrong) or f"{arguments.page.name} shows what happens")
    return 1 if wrong else 0


if __name__ == "__main__":
    sys.exit(main())
