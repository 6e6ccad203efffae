#!/usr/bin/env python3
"""Compares kelplib with other libraries: run.py [--quick] [NAME...], called by scripts/bench. Prints the tables of the named
benchmarks; without names prints all and writes docs/benchmarks.md and the plots."""

import datetime
import os
import platform
import subprocess
import sys
import time

import growth
import measuring
import python.table
import rows

ROWS = {"start": rows.start, "compile": rows.compile_tool, "parse": rows.parse, "read": rows.read, "list": rows.read_list,
        "locale": rows.locale, "text": rows.write_text, "redraw": rows.redraw, "growth": growth.growth,
        "kit": rows.kit, "python": python.table.python}
PACKAGES = ["libbenchmark-dev", "valgrind", "libcli11-dev", "libcxxopts-dev", "libboost-program-options-dev", "libtclap-dev",
            "libgflags-dev", "libabsl-dev", "libfmt-dev", "libdouble-conversion-dev", "python3-tqdm"]
TEXT = """\
# Benchmarks

`{command}` measured every figure and wrote this page. The goals were set beforehand, those of the kit after a first
measurement; a sentence below the table gives the reason for each missed one.{roughness}

| condition | value |
|---|---|
| machine | {processor}, {cores} cores |
| system | {system} |
| compiler | {compiler}, -O3 |
| date | {date} |
| other libraries | {packages} |

Each figure is a median. The libraries take turns in random order, so that a disturbance affects all alike. The factor "x" is a
time's ratio to the limit: the least that the job can cost, measured in the same run. Every result was compared with the expected
one before the measurement. valgrind counts the instructions. The allocator's thresholds are raised for every library
(GLIBC_TUNABLES={memory}), so that freed memory stays in
the process and no library pays for page faults that another avoids. The other libraries are those of the system's packages. "–"
means that a library cannot do the job.

{tables}

## Plots

{plots}
"""


def first_line(*command):
    return subprocess.run(command, capture_output=True, text=True, check=True).stdout.split("\n")[0]


def processor():
    with open("/proc/cpuinfo", encoding="utf-8") as file:
        for line in file:
            if line.startswith("model name"):
                return line.split(":", 1)[1].strip()
    return platform.machine()


def versions():
    listed = subprocess.run(["dpkg-query", "-W", "-f=${Package} ${Version}\n", *PACKAGES], capture_output=True, text=True,
                            check=False).stdout
    return ", ".join(listed.splitlines()) or "built by hand"


def document(tables, plots, quick):
    return TEXT.format(
        command="scripts/bench --quick" if quick else "scripts/bench",
        roughness=" A quick run: the figures are rough." if quick else "",
        processor=processor(), cores=os.cpu_count(), system=platform.freedesktop_os_release()["PRETTY_NAME"],
        compiler=first_line("g++", "--version"), memory=measuring.MEMORY_KEPT, date=datetime.date.today().isoformat(),
        packages=versions(),
        tables="\n\n".join(table.markdown() for table in tables),
        plots="\n\n".join(f"![{name}]({name})" for name in plots))


def main():
    quick = "--quick" in sys.argv
    chosen = [name for name in sys.argv[1:] if name != "--quick"]
    effort = measuring.QUICK if quick else measuring.FULL
    measured = measuring.Measured(effort)
    started = time.monotonic()
    tables = []
    for number, name in enumerate(chosen or ROWS, 1):
        measuring.log(f"[{number}/{len(chosen or ROWS)}] {name}")
        made = ROWS[name](measured, effort)
        print("\n".join(table.plain() for table in made), flush=True)
        tables += made
    if not chosen:
        measuring.log("\nWriting")
        text = document(tables, growth.plot(measured), quick)
        (measuring.ROOT / "docs/benchmarks.md").write_text(text, encoding="utf-8")
        measuring.log("  docs/benchmarks.md")
    measuring.log(f"Done after {time.monotonic() - started:.0f} s")


if __name__ == "__main__":
    main()
