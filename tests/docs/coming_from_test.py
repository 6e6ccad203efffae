#!/usr/bin/env python3
"""coming_from_test.py BUILD PAGE: runs the command lines of the page's last table with the page's four programs.

CLI11 is compared where its version is that of the page; elsewhere its column is skipped."""

import pathlib
import re
import subprocess
import sys
import tempfile

import page as pages
import run_page

CLI11_VERSION = '#define CLI11_VERSION "2.1.'
ROW = re.compile(r"^\| `(.*?)` \| (.*) \| (.*) \| (.*) \| (.*) \|$", re.M)


def has_cli11():
    path = pathlib.Path("/usr/include/CLI/Version.hpp")
    return path.exists() and CLI11_VERSION in path.read_text(encoding="utf-8")


def answer(home, command, line):
    """Returns what a program prints, or its exit status if it refuses the line."""
    done = subprocess.run([*command, *line.split()], cwd=home.work, env=home.environment, stdin=subprocess.DEVNULL, text=True,
                          stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=run_page.SECONDS, check=False)
    return str(done.returncode) if done.returncode else f"`{done.stdout.strip()}`"


def main():
    build, path = sys.argv[1], pathlib.Path(sys.argv[2])
    text = path.read_text(encoding="utf-8")
    files = dict(filter(None, (block.file() for block in pages.blocks(text))))
    programs = [["./withkit"], ["./withgetopt"], ["./withcli11"] if has_cli11() else None, ["python3", "withargparse.py"]]
    with tempfile.TemporaryDirectory(prefix="kelplib-page.") as folder:
        home = run_page.Home(folder, build, pathlib.Path(__file__).resolve().parent.parent.parent)
        for name, content in files.items():
            if name == "withcli11.cpp":
                (home.work / name).write_text(content, encoding="utf-8")
                if has_cli11():
                    subprocess.run([home.environment["CXX"], *home.environment.get("CXXFLAGS", "").split(), "-std=c++17", name,
                                    "-o", "withcli11"], cwd=home.work, check=True)
            elif problem := home.add(name, content):
                sys.exit(f"{name}: {problem}")
        rows = ROW.findall(text[text.index("| command line |"):])
        wrong = [f"{line}: {program[0]}: {shown}, but {printed}" for line, *row in rows for program, shown in zip(programs, row)
                 if program and (printed := answer(home, program, line)) != shown]
    print("\n".join(wrong) or f"{len(rows)} command lines are right")
    return 1 if wrong or not rows else 0


if __name__ == "__main__":
    sys.exit(main())
