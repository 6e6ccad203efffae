"""Reads recorded runs of tools in a terminal (asciicasts) and compares them with other runs.

Runs of one command differ in their duration and in when they draw. They do not differ in what they draw at a percentage.
"""

import itertools
import json
import re

import pyte

# The escape sequences with which a tool moves back to draw over its last frame.
REDRAWS = re.compile(r"(\x1b\[6A\r|\r(?!\n))")

# Percentage and bar. The finished face writes over the percentage before it, which may have other digits.
PROGRESS = re.compile(r" *(\d+\.\d)%%? ?(#* *)\|")
TIME = re.compile(r"\d+(?:\.\d)? (?:secs|mins|hours)\b")
SIZE = re.compile(r"bytes: \d+")

UNFINISHED = re.compile(r"time (?:left|remaining)")
EYES = re.compile(r"^   /  (\S) \1  \\$", re.M)


class Recording:
    """One asciicast: its size, the command in its title, and the output."""

    def __init__(self, path):
        header, *events = path.read_text(encoding="utf-8").splitlines()
        self.header = json.loads(header)
        self.columns, self.rows, self.command = (self.header[name] for name in ("width", "height", "title"))
        pieces = [json.loads(event)[2] for event in events]
        # The last event comes a while after the run, so that the picture shows the end of the run for some time.
        self.pause, self.output = pieces[-1], "".join(pieces[:-1])


class Screen:
    """A screen of the terminal: the progress, and the text without the parts that differ from run to run."""

    def __init__(self, rows):
        text = "\n".join(row.rstrip() for row in rows)
        progress = PROGRESS.search(text)
        self.percentage = float(progress[1]) if progress else 0.0
        self.marks = progress[2].count("#") if progress else 0
        self.unfinished = bool(UNFINISHED.search(text))
        self.shape = SIZE.sub("bytes: SIZE", TIME.sub("TIME", PROGRESS.sub(
            lambda found: f" PERCENTAGE {len(found[2])} COLUMNS|", text)))

    def blinks(self):
        eyes = EYES.search(self.shape)
        return self.unfinished and eyes is not None and eyes[1] == "_"

    def without_eyes(self):
        return EYES.sub("EYES", self.shape)


def display(output, columns, rows):
    """The rows of the terminal at the end of the output."""
    terminal = pyte.Screen(columns, rows)
    pyte.Stream(terminal).feed(output)
    return [row.rstrip() for row in terminal.display]


def screens(output, columns, rows):
    """The screens before each redraw and at the end of the output."""
    terminal = pyte.Screen(columns, rows)
    stream = pyte.Stream(terminal)
    looks = []
    for written, redraw in itertools.zip_longest(*[iter(REDRAWS.split(output))] * 2, fillvalue=""):
        stream.feed(written)
        looks.append(Screen(terminal.display))
        stream.feed(redraw)
    return looks


def without_repeats(items):
    return [item for item, _ in itertools.groupby(items)]


def _wrong_blinks(looks):
    """Blinks that are not the next frame with closed eyes."""
    return [look.shape for look, following in itertools.pairwise(looks)
            if look.blinks() and look.without_eyes() != following.without_eyes()]


def _running(looks):
    return [look for look in looks if look.unfinished and not look.blinks()]


def _finished(looks):
    return without_repeats(look.shape for look in looks if not look.unfinished)


def differences(recorded, repeated):
    """Describes how the screens of two runs of one command differ. Returns an empty list if they match.

    The frames of both runs, sorted by percentage, have to look like one run: the kinds of frames come in the recorded order,
    and the bar never becomes shorter.
    """
    running = _running(recorded)
    kinds = without_repeats(look.shape for look in running)
    place = {kind: number for number, kind in enumerate(kinds)}
    together = sorted([*running, *_running(repeated)], key=lambda look: (
        look.percentage, place.get(look.shape, len(kinds)), look.marks))
    found = [f"a blink that is not the next frame with closed eyes:\n{shape}" for shape in _wrong_blinks(repeated)]
    found += [f"a frame that is not in the recording:\n{shape}"
              for shape in without_repeats(look.shape for look in together) if shape not in place]
    if not found and without_repeats(look.shape for look in together) != kinds:
        found.append("the frames change at other percentages")
    found += [f"{later.marks} marks at {later.percentage} %, {look.marks} at {look.percentage} %"
              for look, later in itertools.pairwise(together) if later.marks < look.marks]
    if _finished(recorded) != _finished(repeated):
        found.append("recorded:\n" + "\n\n".join(_finished(recorded)) + "\nnow:\n" + "\n\n".join(_finished(repeated)))
    return found
