"""Recorded runs of tools in a terminal (asciicasts), and what of them every other run repeats.

When a run draws its progress, and how long it takes, differs from run to run. What it draws at which percentage does not.
"""

import itertools
import json
import re

import pyte

# Where a tool goes back to draw over what stands there.
REDRAWS = re.compile(r"(\x1b\[6A\r|\r(?!\n))")

# Percentage and bar. A face that cheers writes over the percentage before it, which may have had other digits.
PROGRESS = re.compile(r" *(\d+\.\d)%%? ?(#* *)\|")
TIME = re.compile(r"\d+(?:\.\d)? (?:secs|mins|hours)\b")
SIZE = re.compile(r"bytes: \d+")

UNFINISHED = re.compile(r"time (?:left|remaining)")
EYES = re.compile(r"^   /  (\S) \1  \\$", re.M)


class Recording:
    """One asciicast: its size, the command in its title, and all that was written to the terminal."""

    def __init__(self, path):
        header, *events = path.read_text(encoding="utf-8").splitlines()
        self.header = json.loads(header)
        self.columns, self.rows, self.command = (self.header[name] for name in ("width", "height", "title"))
        pieces = [json.loads(event)[2] for event in events]
        # The last one follows the run after a while, so that its end stays in sight.
        self.pause, self.output = pieces[-1], "".join(pieces[:-1])


class Screen:
    """One look at the terminal: how far the work was, and the screen without what differs from run to run."""

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


def screens(output, columns, rows):
    """What stands on the screen before each redraw and at the end."""
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
    """A blink is the frame that follows it with its eyes closed."""
    return [look.shape for look, following in itertools.pairwise(looks)
            if look.blinks() and look.without_eyes() != following.without_eyes()]


def _running(looks):
    return [look for look in looks if look.unfinished and not look.blinks()]


def _finished(looks):
    return without_repeats(look.shape for look in looks if not look.unfinished)


def differences(recorded, repeated):
    """What tells the screens of two runs of one command apart: texts for people, none when the runs are alike.

    The frames of both, in the order of their percentages, have to read as one run does: first the frames of the one kind,
    then those of the next, and a bar that never becomes shorter.
    """
    running = _running(recorded)
    kinds = without_repeats(look.shape for look in running)
    place = {kind: number for number, kind in enumerate(kinds)}
    together = sorted([*running, *_running(repeated)], key=lambda look: (
        look.percentage, place.get(look.shape, len(kinds)), look.marks))
    found = [f"a blink that is not its frame:\n{shape}" for shape in _wrong_blinks(repeated)]
    found += [f"a frame of no recorded kind:\n{shape}"
              for shape in without_repeats(look.shape for look in together) if shape not in place]
    if not found and without_repeats(look.shape for look in together) != kinds:
        found.append("the frames change at other percentages")
    found += [f"{later.marks} marks at {later.percentage} %, {look.marks} at {look.percentage} %"
              for look, later in itertools.pairwise(together) if later.marks < look.marks]
    if _finished(recorded) != _finished(repeated):
        found.append("recorded:\n" + "\n\n".join(_finished(recorded)) + "\nnow:\n" + "\n\n".join(_finished(repeated)))
    return found
