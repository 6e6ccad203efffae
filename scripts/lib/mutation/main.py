"""Changes kelplib's sources in one place at a time and sees whether a test notices; see scripts/mutate --help."""

import argparse
import collections
import hashlib
import json
import multiprocessing
import os
import pathlib
import queue
import random
import signal
import sys
import threading

import survivors
from build import Build
from mutants import mutants_of
from suites import Suites, stop_all

ROOT = pathlib.Path(__file__).resolve().parents[3]
FOLDER = ROOT / "build" / "mutation"
LIST = ROOT / "tests" / "mutation" / "survivors.txt"
OTHER_SYSTEM = "src/platform/platform_windows.cpp"
LIBRARY = ("include", "src")


def note(text):
    """The line that tells how far it is; only people read it."""
    if sys.stderr.isatty():
        print(f"\r{text[:78]:<78}", end="\r", file=sys.stderr, flush=True)


def say(text):
    note("")
    print(text, flush=True)


def parse_arguments():
    """The arguments as scripts/mutate has let them pass; it explains them."""
    parser = argparse.ArgumentParser(prog="scripts/mutate", add_help=False, allow_abbrev=False)
    parser.add_argument("paths", nargs="*")
    parser.add_argument("--sample", type=int)
    parser.add_argument("--seed", type=int)
    parser.add_argument("--jobs", type=int, default=os.cpu_count())
    parser.add_argument("--survivors", action="store_true")
    parser.add_argument("--list", action="store_true")
    arguments = parser.parse_args()
    arguments.paths = [(ROOT / path).resolve().relative_to(ROOT).as_posix() for path in arguments.paths]
    return arguments


def mutants_in(file):
    return mutants_of(ROOT, file)


def all_mutants(jobs):
    """Headers first: what is added to a source does not renumber them, so that little is built anew."""
    files = [path.relative_to(ROOT).as_posix() for folder in LIBRARY for path in (ROOT / folder).rglob("*")
             if path.suffix in (".h", ".cpp")]
    files = sorted(set(files) - {OTHER_SYSTEM}, key=lambda file: (file.endswith(".cpp"), file))
    found = []
    with multiprocessing.Pool(jobs, signal.signal, (signal.SIGINT, signal.SIG_IGN)) as pool:
        for index, mutants in enumerate(pool.imap(mutants_in, files)):
            note(f"reading the sources: {index + 1} of {len(files)}")
            found += mutants
    for number, mutant in enumerate(found, 1):
        mutant.number = number
    return found


def digest(folders):
    result = hashlib.sha256()
    for folder in folders:
        for path in sorted((ROOT / folder).rglob("*")):
            if path.is_file() and "__pycache__" not in path.parts and path != LIST:
                result.update(path.relative_to(ROOT).as_posix().encode() + path.read_bytes())
    return result.hexdigest()


class Results:
    """What became of each mutant, kept in a file from the moment it is known."""

    def __init__(self, path, state):
        self.path, self.known, self.last, self.begin = path, {}, {}, ""
        lines = path.read_text(encoding="utf-8").splitlines() if path.exists() else []
        self.last = {tuple(key): by for key, by in map(json.loads, lines[1:])}
        if lines and lines[0] == state:
            self.known = self.last
        else:
            self.begin = state + "\n"

    def add(self, mutant, noticed_by):
        self.known[mutant.key] = noticed_by
        # What was known before is given up for the first new result, not for a mere look at the list.
        with self.path.open("w" if self.begin else "a", encoding="utf-8") as file:
            file.write(self.begin + json.dumps([mutant.key, noticed_by]) + "\n")
        self.begin = ""


class Run:
    def __init__(self, build, suites, results, explained):
        self.build, self.suites, self.results, self.explained = build, suites, results, explained
        self.lock = threading.Lock()
        self.counts = collections.Counter()

    def take(self, mutant, noticed_by, total, fresh=True):
        with self.lock:
            if fresh:
                self.results.add(mutant, noticed_by)
            self.counts[noticed_by or "unnoticed"] += 1
            if noticed_by is None and mutant.key not in self.explained:
                self.counts["unexplained"] += 1
                say(f"\n{mutant.file}:{mutant.line}: passes unnoticed\n{survivors.entry(mutant)}")
            done = sum(self.counts.values()) - self.counts["unexplained"]
            note(f"{done} of {total} tried, {self.counts['unnoticed']} unnoticed, now {mutant.file}:{mutant.line}")

    def try_switched(self, mutants, total, jobs):
        waiting = queue.SimpleQueue()
        for mutant in mutants:
            waiting.put(mutant)
        threads = [threading.Thread(target=self.work, args=(waiting, total, number), daemon=True)
                   for number in range(jobs)]
        for thread in threads:
            thread.start()
        for thread in threads:
            while thread.is_alive():
                thread.join(0.2)

    def work(self, waiting, total, number):
        folder = FOLDER / f"work{number}"
        folder.mkdir(exist_ok=True)
        while True:
            try:
                mutant = waiting.get_nowait()
            except queue.Empty:
                return
            by = self.suites.noticed_by({mutant.number}, {"KELPLIB_MUTANT": str(mutant.number)}, folder,
                                        os.path.dirname(mutant.file))
            self.take(mutant, by, total)

    def try_compiled(self, mutant, total):
        """The tests that reach anything in the file are asked."""
        self.build.write(mutant.file, mutant)
        log = self.build.build()
        near = {other.number for other in self.build.mutants if other.file == mutant.file and not other.fixed}
        numbers = near or {other.number for other in self.build.mutants}
        if log:
            by = "static_assert" if "static assertion" in log else "compiler"
        else:
            by = self.suites.noticed_by(numbers, {}, FOLDER, os.path.dirname(mutant.file))
        self.take(mutant, by, total)
        self.build.write(mutant.file)


def choose(mutants, arguments, results, explained):
    chosen = [mutant for mutant in mutants
              if not arguments.paths or any(f"{mutant.file}/".startswith(f"{path}/") for path in arguments.paths)]
    if arguments.survivors:
        chosen = [mutant for mutant in chosen if results.last.get(mutant.key, "") is None]
    if arguments.sample is not None:
        # One that is explained takes every test that reaches it, only to say what is known.
        chosen = [mutant for mutant in chosen if mutant.key not in explained]
        seed = arguments.seed if arguments.seed is not None else int(digest(LIBRARY)[:5], 16)
        count = min(arguments.sample, len(chosen))
        say(f"{count} of {len(chosen)} changes, picked with --seed {seed}")
        chosen = random.Random(seed).sample(chosen, count)
    return chosen


def report(run, mutants, explained, total):
    counts = run.counts
    tried = sum(counts.values()) - counts["unexplained"]
    mutable = tried - counts["compiler"]
    noticed = mutable - counts["unnoticed"]
    say(f"\n{tried} of {total} changes tried, {counts['compiler']} of them do not compile; of the other {mutable}, "
        f"{noticed} are noticed ({100 * noticed / max(mutable, 1):.1f} %)")
    for by in sorted(set(counts) - {"unnoticed", "unexplained", "compiler"}):
        print(f"  {counts[by]:5} {by}")
    argued = counts["unnoticed"] - counts["unexplained"]
    print(f"  {counts['unnoticed']:5} unnoticed, {argued} of them explained in {LIST.relative_to(ROOT)}; without these "
          f"{100 * noticed / max(mutable - argued, 1):.1f} % are noticed")
    present = {mutant.key for mutant in mutants}
    outdated = [key for key in explained if key not in present or run.results.known.get(key, None) is not None]
    for key in outdated:
        print(f"{LIST.relative_to(ROOT)}: outdated: {' | '.join(key)}")
    return 1 if counts["unexplained"] or outdated else 0


def main():
    arguments = parse_arguments()
    FOLDER.mkdir(parents=True, exist_ok=True)
    mutants = all_mutants(arguments.jobs)
    explained = survivors.read(LIST)
    results = Results(FOLDER / "results.jsonl", digest((*LIBRARY, "tests", "cmake", "scripts/lib/mutation")))
    chosen = choose(mutants, arguments, results, explained)
    if arguments.list:
        for mutant in chosen:
            print(f"{mutant.file}:{mutant.line}: {mutant.change}")
        return 0
    say(f"building kelplib with its {len(mutants)} changes")
    build = Build(ROOT, FOLDER, mutants, arguments.jobs)
    build.prepare()
    suites = Suites(build.out, len(mutants))
    suites.trace(arguments.jobs, FOLDER, note)
    run = Run(build, suites, results, explained)
    waiting = [mutant for mutant in chosen if mutant.key not in results.known]
    for mutant in chosen:
        if mutant.key in results.known:
            run.take(mutant, results.known[mutant.key], len(chosen), fresh=False)
    run.try_switched([mutant for mutant in waiting if not mutant.fixed], len(chosen), arguments.jobs)
    for mutant in waiting:
        if mutant.fixed:
            run.try_compiled(mutant, len(chosen))
    return report(run, mutants, explained, len(chosen))


if __name__ == "__main__":
    try:
        sys.exit(main())
    except KeyboardInterrupt:
        stop_all()
        print("\nstopped; the next call goes on from here", file=sys.stderr)
        sys.exit(130)
