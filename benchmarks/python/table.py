"""The table of the Python package, compared with tqdm."""

import json
import os
import pty
import subprocess
import termios
import threading

import goals
import measuring
from tables import Table, time_text

SCRIPT = measuring.ROOT / "benchmarks/python/loops.py"
LIBRARY = measuring.ROOT / "build/bench/libkelplib.so.1"


def in_file(words):
    with open("/dev/null", "wb") as null:
        return subprocess.run([*words[:-2], "0", words[-1]], stdout=null, stderr=subprocess.PIPE, check=True).stderr


def in_terminal(words):
    reader, writer = pty.openpty()
    termios.tcsetwinsize(writer, (24, 80))
    with subprocess.Popen(words, stdout=writer, stderr=subprocess.PIPE) as process:
        os.close(writer)
        thread = threading.Thread(target=drain, args=[reader])
        thread.start()
        figures = process.stderr.read()
        process.wait()
        thread.join()
    os.close(reader)
    return figures


def drain(reader):
    try:
        while os.read(reader, 65536):
            pass
    except OSError:
        pass  # the program has ended


def python(_, effort):
    words = ["/usr/bin/python3", "-B", str(SCRIPT), str(LIBRARY), "1", str(effort.repetitions)]
    figures = {}
    for place, run in (("into a file", in_file), ("on a terminal", in_terminal)):
        measuring.log(f"  {place}")
        figures[place] = json.loads(run(words))
    columns = [(place, work) for work in ("loop", "update") for place in figures]

    def cost(column, name):
        place, work = column
        return max(0.0, figures[place][f"{work}/{name}"] - figures[place][f"{work}/none"])

    table = Table(
        "Progress in Python",
        "What `for item in kelplib.progress(items)`, and `update(1)` in a `with` block, add to one iteration of a loop that does "
        "nothing else, processor time of the process with all its threads; tqdm with `disable=None`, which draws nothing into a "
        "file either. The loops last about a second; on the terminal, a pseudo-terminal that another process reads, both draw "
        "at their usual rate. The cost of the loop itself is subtracted. Into a file, `kelplib.progress` returns the iterator "
        "of the items.",
        ["", *(f"{'a loop' if work == 'loop' else 'update'}, {place}" for place, work in columns)])
    for name, head in (("kelplib", "**kelplib**"), ("tqdm", "tqdm")):
        table.add(head, *(time_text(cost(column, name)) for column in columns))
        if name == "kelplib":
            ratios = [cost(column, "kelplib") / cost(column, "tqdm") for column in columns]
            table.add("goal: ratio to tqdm", *(table.judge(ratio, goals.PYTHON[column], "x{:.2f}".format)
                                               for ratio, column in zip(ratios, columns)))
    table.add("the loop itself", *(time_text(figures[place][f"{work}/none"]) for place, work in columns))
    return [table]
