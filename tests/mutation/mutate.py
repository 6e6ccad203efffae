"""Changes the sources of kelplib and its kit in one place at a time and checks that a test notices; see scripts/mutate --help."""

import argparse
import collections
import hashlib
import json
import multiprocessing.pool
import os
import pathlib
import random
import signal
import sys
import tempfile

import explained
from build import Build
from mutants import mutants_of, set_keys
from suites import Suites, stop_all

ROOT = pathlib.Path(__file__).resolve().parents[2]
FOLDER = ROOT / "build" / "mutation"
LIST = ROOT / "tests" / "mutation" / "survivors.txt"
LIBRARY = ("include", "src", "kit/include", "kit/src")
NOT_BUILT = {"src/platform/platform_windows.cpp", "src/platform/standard_streams_plain.cpp",
             *(path.relative_to(ROOT).as_posix() for path in (ROOT / "kit/src").glob("*_windows.cpp"))}


def note(text):
    """Shows the progress to a person."""
    if sys.stderr.isatty():
        print(f"\r{text[:78]:<78}", end="\r", file=sys.stderr, flush=True)


def say(text):
    note("")
    print(text, flush=True)


def parse_arguments():
    """Parses the arguments, which scripts/mutate has checked and describes."""
    parser = argparse.ArgumentParser(prog="scripts/mutate", add_help=False, allow_abbrev=False)
    parser.add_argument("paths", nargs="*")
    parser.add_argument("--sample", type=int)
    parser.add_argument("--seed", type=int)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    for option in ("--survivors", "--list", "--check"):
        parser.add_argument(option, action="store_true")
    arguments = parser.parse_args()
    arguments.paths = [(ROOT / path).resolve().relative_to(ROOT).as_posix() for path in arguments.paths]
    return arguments


def mutants_in(file):
    return mutants_of(ROOT, file)


def all_mutants(jobs):
    """Finds the mutants of every file, those of headers first: a change to a source then rarely renumbers them."""
    files = [path.relative_to(ROOT).as_posix() for folder in LIBRARY for path in (ROOT / folder).rglob("*")
             if path.suffix in (".h", ".cpp")]
    files = sorted(set(files) - NOT_BUILT, key=lambda file: (file.endswith(".cpp"), file))
    found = []
    with multiprocessing.Pool(jobs, signal.signal, (signal.SIGINT, signal.SIG_IGN)) as pool:
        for index, mutants in enumerate(pool.imap(mutants_in, files)):
            note(f"reading the sources: {index + 1} of {len(files)}")
            found += mutants
    set_keys(found)
    return found


def digest(folders):
    result = hashlib.sha256()
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and "__pycache__" not in path.parts and path != LIST:
                result.update(path.relative_to(ROOT).as_posix().encode() + path.read_bytes())
    return result.hexdigest()


class Results:
    """The results so far, written to a file one by one. `last` includes those of an older state of the project."""

    def __init__(self, path, state):
        self.path, self.known, self.begin = path, {}, ""
        lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
        self.last = dict(map(json.loads, lines[1:]))
        if lines and lines[0] == state:
            self.known = self.last
        else:
            self.begin = state + "\n"

    def add(self, mutant, noticed_by):
        self.known[mutant.key] = noticed_by
        # The first new result replaces the older state's file, not a mere --list.
        with self.path.open("w" if self.begin else "a", encoding="utf-8") as file:
            file.write(self.begin + json.dumps([mutant.key, noticed_by]) + "\n")
        self.begin = ""


class Run:
    def __init__(self, build, suites, results, reasons, total):
        self.build, self.suites, self.results, self.reasons, self.total = build, suites, results, reasons, total
        self.counts = collections.Counter()
        self.unexplained = 0

    def take(self, mutant, noticed_by):
        if mutant.key not in self.results.known:
            self.results.add(mutant, noticed_by)
        self.counts[noticed_by or "unnoticed"] += 1
        if noticed_by is None and mutant.key not in self.reasons:
            self.unexplained += 1
            say(f"{mutant.file}:{mutant.line}: passes unnoticed\n    {mutant.key}")
        note(f"{sum(self.counts.values())} of {self.total} tried, {self.counts['unnoticed']} unnoticed, "
             f"now {mutant.file}:{mutant.line}")

    def try_switched(self, mutants, jobs):
        with multiprocessing.pool.ThreadPool(jobs) as pool:
            for mutant, noticed_by in pool.imap_unordered(self.switch_on, mutants):
                self.take(mutant, noticed_by)

    def switch_on(self, mutant):
        with tempfile.TemporaryDirectory(dir=FOLDER) as folder:
            return mutant, self.noticed_by(mutant, {mutant.number}, {"KELPLIB_MUTANT": str(mutant.number)}, folder)

    def noticed_by(self, mutant, numbers, environment, folder):
        room = os.path.dirname(mutant.file)
        by = self.suites.noticed_by(numbers, environment, folder, room)
        if by is None and mutant.key not in self.reasons:
            # Again, because which thread runs first decides whether some changes show.
            by = self.suites.noticed_by(numbers, environment, folder, room)
        return by

    def try_compiled(self, mutant):
        """Compiles the change and runs the tests that reach anything in its file."""
        self.build.write(mutant.file, mutant)
        log = self.build.build()
        near = {other.number for other in self.build.mutants if other.file == mutant.file and not other.fixed}
        numbers = near or {other.number for other in self.build.mutants}
        if log:
            by = "static_assert" if "static assertion" in log else "compiler"
        else:
            by = self.noticed_by(mutant, numbers, {}, FOLDER)
        self.take(mutant, by)
        self.build.write(mutant.file)


def choose(mutants, arguments, results, reasons):
    chosen = [mutant for mutant in mutants
              if not arguments.paths or any(f"{mutant.file}/".startswith(f"{path}/") for path in arguments.paths)]
    if arguments.survivors:
        chosen = [mutant for mutant in chosen if results.last.get(mutant.key, "") is None]
    if arguments.sample is not None:
        # An explained mutant runs every test that reaches it, only to confirm the explanation.
        chosen = sorted((mutant for mutant in chosen if mutant.key not in reasons), key=lambda mutant: mutant.key)
        keys = "\n".join(sorted(mutant.key for mutant in mutants))
        seed = arguments.seed if arguments.seed is not None else int(hashlib.sha256(keys.encode()).hexdigest()[:5], 16)
        count = min(arguments.sample, len(chosen))
        say(f"{count} of {len(chosen)} changes, picked with --seed {seed}")
        chosen = random.Random(seed).sample(chosen, count)
    return chosen


def report(run, outdated):
    counts = run.counts
    tried = sum(counts.values())
    mutable = tried - counts["compiler"]
    noticed = mutable - counts["unnoticed"]
    say(f"\n{tried} of {run.total} changes tried, {counts['compiler']} of them do not compile; of the other {mutable}, "
        f"{noticed} are noticed ({100 * noticed / max(mutable, 1):.1f} %)")
    for by in sorted(set(counts) - {"unnoticed", "compiler"}):
        print(f"  {counts[by]:5} {by}")
    explained_count = counts["unnoticed"] - run.unexplained
    name = LIST.relative_to(ROOT)
    print(f"  {counts['unnoticed']:5} unnoticed, {explained_count} of them explained in {name}; without these "
          f"{100 * noticed / max(mutable - explained_count, 1):.1f} % are noticed")
    needless = [key for key in run.reasons if run.results.known.get(key) is not None]
    for key in needless:
        print(f"{name}: outdated: {key}\n    {run.results.known[key]} notices it")
    if outdated:
        print(f"{name}: {outdated} more entries are outdated; scripts/mutate --check prints them")
    return 1 if run.unexplained or needless or outdated else 0


def main():
    arguments = parse_arguments()
    FOLDER.mkdir(parents=True, exist_ok=True)
    mutants = all_mutants(arguments.jobs)
    note("")
    reasons = explained.read(LIST)
    outdated = explained.print_outdated(LIST, reasons, mutants, ROOT)
    if arguments.check:
        if not outdated:
            print(f"all {len(reasons)} entries match one of the {len(mutants)} changes")
        return 1 if outdated else 0
    results = Results(FOLDER / "results.jsonl", digest(("include", "src", "kit", "tests", "cmake")))
    chosen = choose(mutants, arguments, results, reasons)
    if arguments.list:
        for mutant in chosen:
            print(f"{mutant.file}:{mutant.line}: {mutant.key}{' (explained)' if mutant.key in reasons else ''}")
        return 1 if outdated else 0
    say(f"building kelplib with its {len(mutants)} changes")
    build = Build(ROOT, FOLDER, mutants, arguments.jobs)
    build.prepare()
    suites = Suites(build.out, len(mutants))
    suites.trace(arguments.jobs, FOLDER, note)
    run = Run(build, suites, results, reasons, len(chosen))
    waiting = [mutant for mutant in chosen if mutant.key not in results.known]
    for mutant in chosen:
        if mutant.key in results.known:
            run.take(mutant, results.known[mutant.key])
    run.try_switched([mutant for mutant in waiting if not mutant.fixed], arguments.jobs)
    for mutant in waiting:
        if mutant.fixed:
            run.try_compiled(mutant)
    return report(run, outdated)


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        stop_all()
        print("\nstopped; the next call continues here", file=sys.stderr)
        sys.exit(130)
