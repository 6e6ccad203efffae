#!/usr/bin/env python3
"""Sums up gcovr's JSON on standard input and compares the gaps with the explained ones: gaps.py GAPS. GAPS describes its
format in its first lines. Exit status 1 when a gap is not explained or an explanation is not needed.
"""

import collections
import json
import pathlib
import re
import sys


def short_name(function):
    """A demangled name without namespaces, parameters, template arguments and return type. A lambda counts as the function
    that contains it."""
    name = function.replace("(anonymous namespace)", "Kelp").replace("[abi:cxx11]", "").replace("operator()", "operator@")
    for group in (r"<[^<>]*>", r"\([^()]*\)"):
        while (shorter := re.sub(group, "", name)) != name:
            name = shorter
    name = re.sub(r"::\{lambda.*|( const| &)+$", "", name)
    return re.sub(r"\b(Kelp|Kelpkit|platform|std|__cxx11)::", "", name.split()[-1]).replace("@", "()")


def function_starts(file):
    """The first line and the name of every function of a file, by line; what the compiler adds is left out."""
    return sorted((function["lineno"], short_name(function["name"])) for function in file["functions"]
                  if not function["name"].startswith("_"))


def code_lines(report):
    """Yields the file, the function, the text and gcovr's record of every line that has code."""
    for file in report["files"]:
        texts = pathlib.Path(file["file"]).read_text(encoding="utf-8").splitlines()
        starts = function_starts(file)
        for line in file["lines"]:
            if not line["gcovr/noncode"]:
                before = [name for start, name in starts if start <= line["line_number"]]
                yield file["file"], before[-1] if before else "", texts[line["line_number"] - 1].strip(), line


def outcomes(line):
    """Whether each outcome of the line's decision occurred; None where gcovr cannot tell them from other branches."""
    decision = line.get("gcovr/decision")
    if not decision:
        return []
    if decision["type"] == "uncheckable" or any(branch["throw"] for branch in line["branches"]):
        return [None]
    counts = ["count"] if decision["type"] == "switch" else ["count_true", "count_false"]
    return [decision[count] > 0 for count in counts]


def explanations(path):
    """How many branches each function may leave out."""
    entries = re.findall(r"^    (\S.*): (\d+)$", path.read_text(encoding="utf-8"), re.M)
    return {function: int(branches) for function, branches in entries}


def print_total(name, taken, more=""):
    print(f"{name}: {sum(taken)} of {len(taken)} ({100 * sum(taken) / max(len(taken), 1):.2f} %){more}")


def main():
    path = pathlib.Path(sys.argv[1])
    explained, missing, gaps, failed = explanations(path), collections.Counter(), collections.defaultdict(list), False
    ran, branches, throws, decisions = [], [], [], []
    for file, function, text, line in code_lines(json.load(sys.stdin)):
        # gcovr's own exclusion drops ordinary branches too, where one object file never runs the line.
        taken = [branch["count"] > 0 for branch in line["branches"] if not branch["throw"]]
        throws += [branch["count"] > 0 for branch in line["branches"] if branch["throw"]]
        branches += taken
        ran.append(line["count"] > 0)
        decisions += outcomes(line)
        if not ran[-1]:
            missing[function] += 1
            gaps[function].append(f"{file}:{line['line_number']}: never runs: {text}")
        elif not all(taken):
            count = taken.count(False)
            missing[function] += count
            gaps[function].append(f"{file}:{line['line_number']}: {count} of {len(taken)} branches not taken: {text}")
    for function, count in missing.items():
        if count > explained.get(function, 0):
            failed = True
            print(f"{function}: {count} lines and branches missing, {explained.get(function, 0)} explained")
            print("   ", "\n    ".join(gaps[function]))
    for function in sorted(set(explained) - set(missing)):
        failed = True
        print(f"{path}: not needed: {function}")
    explained_branches = sum(min(count, explained.get(function, 0)) for function, count in missing.items())
    print_total("lines", ran)
    print_total("branches", branches, f", {explained_branches} more explained in {path}")
    print_total("branches that only exceptions take", throws)
    print_total("outcomes of decisions", [came for came in decisions if came is not None],
                f", {decisions.count(None)} more shown by the branches of their line alone")
    return 1 if failed or not ran else 0


if __name__ == "__main__":
    sys.exit(main())
