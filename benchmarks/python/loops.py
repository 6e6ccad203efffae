#!/usr/bin/env python3
"""Prints the nanoseconds per iteration of loops with and without a progress display, as JSON: loops.py LIBRARY TERMINAL ROUNDS

TERMINAL is 1 if standard output is a terminal. Standard output gets the displays, standard error the figures. The loops take
turns in random order; each figure is a median.
"""

import json
import os
import pathlib
import random
import statistics
import sys
import time

os.environ["KELPLIB_LIBRARY"] = sys.argv[1]
sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "python"))
import kelplib  # noqa: E402
import tqdm  # noqa: E402

TERMINAL, ROUNDS = sys.argv[2] == "1", int(sys.argv[3])
# Long enough for displays that are drawn after half a second.
SECONDS = 1.0
SAMPLE = 1_000_000


def plain(count):
    for _ in range(count):
        pass


def loop_of_kelplib(count):
    for _ in kelplib.progress(range(count), label="reading"):
        pass


def loop_of_tqdm(count):
    # disable=None draws nothing unless it is a terminal.
    for _ in tqdm.tqdm(range(count), desc="reading", file=sys.stdout, disable=None):
        pass


def plain_updates(count):
    done = 0
    for _ in range(count):
        done += 1


def updates_of_kelplib(count):
    with kelplib.progress(total=count, label="reading") as display:
        for _ in range(count):
            display.update(1)


def updates_of_tqdm(count):
    with tqdm.tqdm(total=count, desc="reading", file=sys.stdout, disable=None) as display:
        for _ in range(count):
            display.update(1)


LOOPS = {"loop/none": plain, "loop/kelplib": loop_of_kelplib, "loop/tqdm": loop_of_tqdm, "update/none": plain_updates,
         "update/kelplib": updates_of_kelplib, "update/tqdm": updates_of_tqdm}


def seconds(loop, count):
    start = time.process_time()
    loop(count)
    return time.process_time() - start


def main():
    if sys.stdout.isatty() != TERMINAL:
        sys.exit("standard output is not what it should be")
    counts = {name: int(SECONDS / (seconds(loop, SAMPLE) / SAMPLE)) for name, loop in LOOPS.items()}
    figures = {name: [] for name in LOOPS}
    for _ in range(ROUNDS):
        for name in random.sample(list(LOOPS), len(LOOPS)):
            figures[name].append(seconds(LOOPS[name], counts[name]) / counts[name])
    print(json.dumps({name: statistics.median(values) for name, values in figures.items()}), file=sys.stderr)


if __name__ == "__main__":
    main()
