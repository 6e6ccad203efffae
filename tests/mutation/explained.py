"""Reads survivors.txt, the list of the changes that no test can notice, and checks it against the sources."""

import difflib
import functools


def read(path):
    """The keys of the explained mutants, each with its reason: flush-left lines, then its entries, indented."""
    entries, reason, in_entries = {}, "", False
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines(), 1):
        if not line.strip() or line.startswith("#"):
            reason = ""
        elif not line.startswith("    "):
            reason = line if in_entries else f"{reason} {line}".strip()
        elif not reason or line.strip() in entries:
            raise SystemExit(f"{path}:{number}: an entry without a reason, or listed twice")
        else:
            entries[line.strip()] = reason
        in_entries = line.startswith("    ")
    return entries


@functools.lru_cache(maxsize=None)
def likeness(one, other):
    return difflib.SequenceMatcher(None, one, other, autojunk=False).ratio()


def candidates(entry, mutants):
    """The mutants that the entry may mean now: the same kind in the same function, otherwise the four most similar."""
    function, kind, ordinal = parts(entry)
    same = [mutant for mutant in mutants if parts(mutant.key)[:2] == (function, kind)]

    def rank(mutant):
        own, other, place = parts(mutant.key)
        exact = (own == function) + (other == kind) + (place == ordinal) / 10
        return exact + likeness(function, own) + likeness(kind, other)

    return same or sorted(mutants, key=rank, reverse=True)[:4]


def parts(key):
    """The function without its parameters, the kind, and the ordinal."""
    function, _, rest = key.partition(": `")
    kind, _, ordinal = rest.rpartition("`")
    return function.split("(")[0], kind, ordinal


def print_outdated(path, explained, mutants, root):
    """Prints the entries that match no mutant, each with its reason and its candidates. Returns how many there are."""
    present = {mutant.key for mutant in mutants}
    outdated = [entry for entry in explained if entry not in present]
    left = [mutant for mutant in mutants if mutant.key not in explained]
    for entry in outdated:
        print(f"{path.relative_to(root)}: outdated: {entry}\n    reason: {explained[entry]}")
        for mutant in candidates(entry, left):
            line = (root / mutant.file).read_text(encoding="ascii").splitlines()[mutant.line - 1].strip()
            print(f"    candidate: {mutant.key}\n        {mutant.file}:{mutant.line}: {line}")
    if outdated:
        print(f"{len(outdated)} of {len(explained)} entries are outdated")
    return len(outdated)
