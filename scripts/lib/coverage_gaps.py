#!/usr/bin/env python3
"""Sums up gcovr's JSON on standard input and compares what is missing with the gaps that are explained:
coverage_gaps.py GAPS. The explanations' form stands at the top of their file. Exit status 1 when a gap is not explained or
an explanation is not needed.
"""

import json
import pathlib
import sys


def code_lines(report):
    """(file, the text of the line, gcovr's record) of every line that has code."""
    for file in report["files"]:
        texts = pathlib.Path(file["file"]).read_text(encoding="utf-8").splitlines()
        for line in file["lines"]:
            if not line["gcovr/noncode"]:
                yield file["file"], texts[line["line_number"] - 1].strip(), line


def outcomes(line):
    """Whether each outcome of the line's decision came; None where gcovr cannot tell them from the line's other branches."""
    decision = line.get("gcovr/decision")
    if not decision:
        return []
    if decision["type"] == "uncheckable" or any(branch["throw"] for branch in line["branches"]):
        return [None]
    counts = ["count"] if decision["type"] == "switch" else ["count_true", "count_false"]
    return [decision[count] > 0 for count in counts]


def explanations(path):
    """{(file, text of the line): how many of its branches need not be taken}."""
    entries = {}
    for line in path.read_text(encoding="utf-8").splitlines():
        if line.startswith("    "):
            file, branches, text = line.strip().split(" | ", 2)
            entries[file, text] = int(branches)
    return entries


def print_total(name, taken, more=""):
    print(f"{name}: {sum(taken)} of {len(taken)} ({100 * sum(taken) / max(len(taken), 1):.2f} %){more}")


def main():
    path = pathlib.Path(sys.argv[1])
    explained, used, explained_branches, failed = explanations(path), set(), 0, False
    ran, branches, throws, decisions = [], [], [], []
    for file, text, line in code_lines(json.load(sys.stdin)):
        # Not gcovr's own exclusion: that takes an exception's branch for an ordinary one where one object never runs it.
        taken = [branch["count"] > 0 for branch in line["branches"] if not branch["throw"]]
        throws += [branch["count"] > 0 for branch in line["branches"] if branch["throw"]]
        branches += taken
        ran.append(line["count"] > 0)
        decisions += outcomes(line)
        if ran[-1] and all(taken):
            continue
        missing = taken.count(False)
        if ran[-1] and missing <= explained.get((file, text), 0):
            used.add((file, text))
            explained_branches += missing
        else:
            failed = True
            print(f"{file}:{line['line_number']}: {missing} of {len(taken)} branches not taken: {text}" if ran[-1]
                  else f"{file}:{line['line_number']}: never runs: {text}")
    for file, text in sorted(set(explained) - used):
        failed = True
        print(f"{path}: not needed: {file} | {text}")
    print_total("lines", ran)
    print_total("branches", branches, f", {explained_branches} more explained in {path}")
    print_total("branches that only exceptions take", throws)
    print_total("outcomes of decisions", [came for came in decisions if came is not None],
                f", {decisions.count(None)} more shown by the branches of their line alone")
    return 1 if failed or not ran else 0


if __name__ == "__main__":
    sys.exit(main())
