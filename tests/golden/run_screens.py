#!/usr/bin/env python3
"""Plays every scenario of a program in its own process and compares the output with screens/*.txt, byte for byte.

run_screens.py PROGRAM          compares; the exit status is 1 if anything differs
run_screens.py PROGRAM --write  rewrites the screens; read them before committing them

A screen file shows every byte: \\e is the escape character, \\t a tab, \\r a carriage return, \\\\ a backslash and \\xHH
any other invisible byte. "$" marks the end of each line. The last line is the exit status. The scenarios themselves print the
lines in brackets: each pause, the exit handlers and, after an exception, the end of the stack's unwinding.
"""

import difflib
import os
import pathlib
import sys

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "support"))
import programs  # noqa: E402

SCREENS = pathlib.Path(__file__).parent / "screens"
NAMED = {0x1B: "\\e", 0x09: "\\t", 0x0D: "\\r", 0x5C: "\\\\", 0x0A: "$\n"}


def visible(output):
    """Returns the output as text that shows every byte."""
    return "".join(NAMED.get(byte) or (chr(byte) if 0x20 <= byte < 0x7F else f"\\x{byte:02X}") for byte in output)


def environment_of(scenario):
    """Returns the environment with MSYSTEM as the end of the scenario's name sets it, or without MSYSTEM."""
    environment = {name: value for name, value in os.environ.items() if name != "MSYSTEM"}
    _, assignment, value = scenario.partition(".MSYSTEM=")
    return {**environment, "MSYSTEM": value} if assignment else environment


def screen_of(program, scenario):
    status, output, errors = programs.run(program, scenario, env=environment_of(scenario))
    text = visible(output)
    if text and not text.endswith("\n"):
        text += "\n"
    if errors:
        text += f"standard error:\n{visible(errors)}\n"
    return f"{text}exit status {status}\n"


def main():
    if len(sys.argv) < 2:
        sys.exit(__doc__)
    program, write = sys.argv[1], "--write" in sys.argv[2:]
    _, output, _ = programs.run(program)
    scenarios = output.decode().split()
    failures = []
    used = set()
    for scenario in scenarios:
        path = SCREENS / (scenario.split(".")[0] + ".txt")
        actual = screen_of(program, scenario)
        if write and path not in used:
            path.write_text(actual, encoding="ascii")
        used.add(path)
        expected = path.read_text(encoding="ascii") if path.exists() else ""
        if actual != expected:
            failures.append(scenario)
            sys.stdout.writelines(difflib.unified_diff(expected.splitlines(True), actual.splitlines(True),
                                                       f"screens/{path.name}", scenario))
    unused = sorted(path.name for path in set(SCREENS.glob("*.txt")) - used)
    for name in unused:
        print(f"screens/{name} has no scenario")
    print(f"{len(scenarios) - len(failures)} of {len(scenarios)} scenarios show their screen")
    return 1 if failures or unused or len(scenarios) < 60 else 0


if __name__ == "__main__":
    sys.exit(main())
