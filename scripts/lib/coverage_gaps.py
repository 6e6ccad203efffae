#!/usr/bin/env python3
"""Sums up what "llvm-cov show -show-branches=count" prints on standard input: coverage_gaps.py GAPS.

Prints how many lines ran and how many conditions came out both ways, and every gap. GAPS explains the gaps that have to
stay, one a line: the file, the text of the line in it, and the reason, with " | " between them. Exit status 1 when a gap is
not explained or an explanation is not needed.
"""

import pathlib
import re
import sys

LINE = re.compile(r" *(?P<number>\d+)\| *(?P<count>[\d.]+[kMGT]?)\|(?P<text>.*)")
CONDITION = re.compile(r"Branch \((?P<number>\d+):(?P<column>\d+)\): \[True: (?P<true>[^,]+), False: (?P<false>[^\]]+)\]")
FILE = re.compile(r"(?P<path>/.*):")


def read(report):
    """The lines and conditions of the report: {(file, line): ran} and {(file, line, column): [came true, came false]}."""
    lines, conditions, file = {}, {}, ""
    root = f"{pathlib.Path.cwd()}/"
    for text in report:
        if match := FILE.fullmatch(text.rstrip()):
            file = match["path"].removeprefix(root)
        elif match := LINE.match(text):
            place = file, int(match["number"])
            lines[place] = lines.get(place, False) or match["count"] != "0"
        elif match := CONDITION.search(text):
            # A template has one entry for each of its instances.
            ways = conditions.setdefault((file, int(match["number"]), int(match["column"])), [False, False])
            ways[:] = [ways[0] or match["true"] != "0", ways[1] or match["false"] != "0"]
    return lines, conditions


def gaps(lines, conditions):
    """What is missing: (file, line) to its description."""
    found = {place: "never runs" for place, ran in lines.items() if not ran}
    for (file, line, _), ways in conditions.items():
        for outcome, came in zip(("true", "false"), ways):
            if not came:
                found.setdefault((file, line), f"a condition is never {outcome}")
    return found


def explanations(path):
    entries = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if line and not line.startswith("#"):
            file, text, reason = line.split(" | ")
            entries[file, text] = reason
    return entries


def main():
    lines, conditions = read(sys.stdin)
    path = pathlib.Path(sys.argv[1])
    explained, used = explanations(path), set()
    unexplained = 0
    for (file, number), problem in sorted(gaps(lines, conditions).items()):
        text = pathlib.Path(file).read_text(encoding="utf-8").splitlines()[number - 1].strip()
        reason = explained.get((file, text))
        used.add((file, text))
        unexplained += reason is None
        print(f"{file}:{number}: {problem}: {text}" + (f"\n    {reason}" if reason else ""))
    for entry in sorted(set(explained) - used):
        print(f"{path}: outdated: {' | '.join(entry)}")
    ways = [way for both in conditions.values() for way in both]
    for name, outcomes in (("lines", list(lines.values())), ("outcomes of conditions", ways)):
        print(f"{name}: {sum(outcomes)} of {len(outcomes)} ({100 * sum(outcomes) / max(len(outcomes), 1):.2f} %)")
    return 1 if unexplained or set(explained) - used or not lines else 0


if __name__ == "__main__":
    sys.exit(main())
