#!/usr/bin/env python3
"""Guards the library's speed by instruction counts: guard.py [--renew] FOLDER COMPILER

Counts the instructions of some operations with the programs in FOLDER and compares them with instructions.txt. Fails with exit
status 1 if a count has grown by more than 5 %; suggests to renew the baseline if one has shrunk as much. Compares nothing and
ends with exit status 77 if the baseline comes from another compiler, C library or processor.

  --renew  rewrites instructions.txt
"""

import pathlib
import subprocess
import sys

import callgrind

BASELINE = pathlib.Path(__file__).with_name("instructions.txt")
TOLERANCE = 0.05
SKIPPED = 77
TOOL_ARGUMENTS = ["-o=a.txt", "-n=5", "--ratio=2.5", "in.txt"]
# The features by which the C library chooses its string functions.
PROCESSOR_FEATURES = ["avx", "avx2", "bmi2", "erms", "fsrm", "rtm"]
HEADER = f"""\
# Instructions of the library's operations; "start" is a whole tool without the loading of the C++ runtime.
# Written by scripts/bench --renew-baseline; a test compares with them (growth of more than {TOLERANCE:.0%} fails).
"""


def first_line(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.split("\n")[0]


def without_name(version):
    """Removes the name of the program, which may be "g++" or "g++-12"."""
    return version.split(" ", 1)[1]


def processor():
    for line in pathlib.Path("/proc/cpuinfo").read_text(encoding="utf-8").split("\n"):
        if line.startswith("flags"):
            flags = line.split()
            return " ".join(feature for feature in PROCESSOR_FEATURES if feature in flags)
    return "unknown"


def environment(compiler):
    """What the counts depend on besides the code of the library."""
    runtime = pathlib.Path(first_line(compiler, "-print-file-name=libstdc++.so.6")).resolve().name
    return {
        "compiler": without_name(first_line(compiler, "--version")),
        "C library": without_name(first_line("ldd", "--version")),
        "C++ library": runtime,
        "valgrind": first_line("valgrind", "--version"),
        "processor": processor(),
    }


def counted(folder):
    loading = callgrind.of_process(f"{folder}/start_nothing")
    start = callgrind.of_process(f"{folder}/start_kelplib", *TOOL_ARGUMENTS)
    return {"start": start - loading, **callgrind.of_operations(f"{folder}/guard_operations")}


def read_baseline():
    """Returns the values of the baseline by name."""
    lines = [line for line in BASELINE.read_text(encoding="utf-8").splitlines() if line and not line.startswith("#")]
    return {name.strip(): text.strip() for name, text in (line.split(":", 1) for line in lines)}


def write_baseline(lines):
    BASELINE.write_text(HEADER + "".join(f"{name}: {text}\n" for name, text in lines.items()), encoding="utf-8")


def judged(name, now, before):
    """Returns the line about an operation, and whether the operation failed."""
    change = now / before - 1
    verdict = ""
    if change > TOLERANCE:
        verdict = "  GROWN"
    elif change < -TOLERANCE:
        verdict = "  cheaper: renew the baseline (scripts/bench --renew-baseline)"
    return f"{name:<12}{before:>12,}{now:>12,}{change:>+9.1%}{verdict}", change > TOLERANCE


def main():
    renew = sys.argv[1:2] == ["--renew"]
    folder, compiler = sys.argv[2 if renew else 1:]
    folder = pathlib.Path(folder).resolve()
    here = environment(compiler)
    if renew:
        write_baseline({**here, **counted(folder)})
        print(BASELINE.read_text(encoding="utf-8"), end="")
        return 0
    baseline = read_baseline()
    for name, text in here.items():
        if baseline.get(name) != text:
            print(f"skipped: the {name} is {text!r}, the baseline was made with {baseline.get(name)!r}")
            return SKIPPED
    counts = counted(folder)
    if counts.keys() != baseline.keys() - here.keys():
        print("the baseline has other operations: renew it (scripts/bench --renew-baseline)")
        return 1
    print(f"{'':<12}{'baseline':>12}{'now':>12}{'change':>9}")
    verdicts = [judged(name, count, int(baseline[name])) for name, count in counts.items()]
    print("\n".join(line for line, _ in verdicts))
    return 1 if any(failed for _, failed in verdicts) else 0


if __name__ == "__main__":
    sys.exit(main())
