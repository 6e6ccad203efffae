#!/usr/bin/env python3
"""Prints the seconds that tqdm takes for one redraw to the null device, as the median of ROUNDS: redraw_tqdm.py ROUNDS"""

import io
import statistics
import sys
import time

import tqdm

REDRAWS = 1000


def draw(file):
    """Draws every state of the bar without a minimum interval. Returns the seconds."""
    with tqdm.tqdm(total=REDRAWS, desc="Copying", file=file, ncols=70, mininterval=0, miniters=1) as bar:
        start = time.perf_counter()
        for _ in range(REDRAWS):
            bar.update(1)
        return time.perf_counter() - start


drawn = io.StringIO()
draw(drawn)
lines = drawn.getvalue().split("\r")
if len(lines) < REDRAWS or not any(line.startswith("Copying:  50%|") for line in lines):
    sys.exit("tqdm did not draw the expected lines")
with open("/dev/null", "w", encoding="utf-8") as null:
    print(statistics.median(draw(null) for _ in range(int(sys.argv[1]))) / REDRAWS)
