#!/usr/bin/env python3
"""Runs the code of a page of the documentation and compares its output with the page, byte for byte.

run_page.py BUILD PAGE                   exits with status 1 for a difference or a block of an unknown kind
run_page.py BUILD PAGE --write           writes the output of the commands into the page; read it before you commit it
run_page.py BUILD PAGE --without-python  skips Python programs, for libraries that Python cannot load

BUILD is a build folder of kelplib. The script installs the library, the kit and its programs from there into a temporary home
folder, which the page shows as /home/ann, and runs the page in its folder "work", which also contains LICENSE. The environment
variables CXX, CC, CXXFLAGS and CFLAGS set the compilers and their options.

The blocks of a page are used in order:
- console: lines "$ command", each with its output below. Every command must succeed. Colours are removed; the command itself
  must make other control characters visible.
- any other block below "`name`:" is that file. C and C++ files are compiled to a program of the same name, linked with the
  library and the kit. A program of the same name in the folder examples has to have the same text. The help screen of a tool
  of the kit has to show what its options take.
- a part of a program: a hidden comment above it, "around name.cpp", contains the rest, with @@ in place of the block.
- a block that is not run: a hidden comment above it contains "not run: " and the reason.
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
    """A home folder with the installed library, in which pages are run."""

    def __init__(self, folder, build, project):
        self.folder = pathlib.Path(folder).resolve()
        self.work = self.folder / "work"
        self.work.mkdir()
        shutil.copy(project / "LICENSE", self.work)
        self.examples = project / "examples"
        self.prefix = self.folder / ".local"
        subprocess.run(["cmake", "--install", build, "--prefix", self.prefix], check=True, stdout=subprocess.DEVNULL)
        self.library = next(self.prefix.rglob("libkelplib.so")).parent
        kept = ("CXX", "CC", "CXXFLAGS", "CFLAGS", "CMAKE_GENERATOR", "ASAN_OPTIONS", "TSAN_OPTIONS")
        self.environment = {"CXX": "c++", "CC": "cc"}
        self.environment.update((name, os.environ[name]) for name in kept if name in os.environ)
        self.environment.update(PATH=f"{self.work}:{self.prefix}/bin:/usr/bin:/bin:{os.environ['PATH']}",
                                HOME=str(self.folder), LD_LIBRARY_PATH=str(self.library), LC_ALL="C.UTF-8",
                                PYTHONPATH=str(project / "python"), PYTHONDONTWRITEBYTECODE="1")

    def run(self, command):
        """Returns the output of a command and its exit status."""
        done = subprocess.run(command, cwd=self.work, env=self.environment, stdin=subprocess.DEVNULL, check=False,
                              stdout=subprocess.PIPE, stderr=subprocess.STDOUT, timeout=SECONDS)
        output = done.stdout.decode("utf-8", "backslashreplace")
        return COLOUR.sub("", output).replace(str(self.folder), SHOWN_HOME), done.returncode

    def add(self, name, text):
        """Writes a file and compiles it if it is a program. Returns the compiler's errors, or that an example differs."""
        path = self.work / name
        path.write_text(text, encoding="utf-8")
        if path.suffix not in COMPILERS:
            return ""
        example = self.examples / name
        if example.exists() and example.read_text(encoding="utf-8") != text:
            return f"differs from examples/{name}"
        compiler, flags, standard = COMPILERS[path.suffix]
        output, status = self.run([
            self.environment[compiler], *shlex.split(self.environment.get(flags, "")), standard, *WARNINGS,
            f"-I{self.prefix}/include", name, "-o", path.stem, f"-L{self.library}", "-lkelpkit", "-lkelplib"])
        if not status and "Kelpkit::run(" in text and (self.prefix / "bin/kelp-check").exists():
            output, _ = self.run(["kelp-check", "-s", path.stem])
            status = "value-unknown" in output
        return output if status else ""


def differences(where, command, shown, output):
    lines = difflib.unified_diff(shown.splitlines(), output.splitlines(), "shown", "printed", lineterm="")
    return f"{where}: $ {command}\n" + "\n".join(lines)


def check_console(home, block, name, skipped):
    """Runs the commands of a block. Returns the corrected text of the block and its faults."""
    text, faults = "", []
    for line, command, shown in pages.commands(block):
        where = f"{name}:{line}"
        output, status = (shown, 0) if command.startswith(skipped) else home.run(["bash", "-c", command])
        if status:
            faults.append(f"{where}: $ {command}\nexit status {status}\n{output}")
        if output and not output.endswith("\n"):
            faults.append(f"{where}: the output does not end in a newline")
        elif CONTROL.search(output):
            faults.append(f"{where}: control characters that the command must make visible: {output!r}")
        elif output != shown:
            faults.append(differences(where, command, shown, output))
        text += f"$ {command}\n{output}"
    return text, faults


def check_block(home, block, name, skipped):
    """Runs one block. Returns its corrected text and its faults."""
    if block.is_left_out():
        return block.text, []
    if block.kind == "console":
        return check_console(home, block, name, skipped)
    file = block.file()
    if not file:
        return block.text, [f"{name}:{block.line}: a block of unknown use ({block.kind or 'no kind'})"]
    problem = home.add(*file)
    return block.text, [f"{name}:{block.line}: {file[0]}\n{problem}"] if problem else []


def check_page(home, path, skipped):
    """Returns the corrected page and its faults."""
    page, faults, renewed, at = path.read_text(encoding="utf-8"), [], "", 0
    for block in pages.blocks(page):
        text, problems = check_block(home, block, path.name, skipped)
        faults += problems
        if block.kind == "console":
            begin = page.index(f"\n{block.text}```", at) + 1
            renewed += page[at:begin] + text
            at = begin + len(block.text)
    return renewed + page[at:], faults


def main():
    parser = argparse.ArgumentParser(description="Runs the code of a page of the documentation.")
    parser.add_argument("build")
    parser.add_argument("page", type=pathlib.Path)
    parser.add_argument("--write", action="store_true")
    parser.add_argument("--without-python", action="store_true")
    arguments = parser.parse_args()
    project = pathlib.Path(__file__).resolve().parent.parent.parent
    with tempfile.TemporaryDirectory(prefix="kelplib-page.") as folder:
        home = Home(folder, arguments.build, project)
        renewed, faults = check_page(home, arguments.page, "python3 " if arguments.without_python else ())
    if arguments.write:
        arguments.page.write_text(renewed, encoding="utf-8")
    print("\n".join(faults) or f"{arguments.page.name} is right")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
