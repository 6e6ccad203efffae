"""Runs the tests: finds out which test reaches which mutant, and whether one of them notices it."""

import collections
import dataclasses
import json
import multiprocessing.pool
import os
import pathlib
import resource
import signal
import subprocess
import tempfile
import time

COMPILES_HEADERS = "contract_unreadable_type"  # those of the copy do not compile on their own
GOOGLE_TESTS = ("unit", "kit", "kit_new_file", "kit_progress", "kit_report", "kit_programs")
QUICK_SECONDS = 0.05
MEMORY_BYTES = 2 << 30
FILE_BYTES = 64 << 20


@dataclasses.dataclass
class Test:
    name: str
    command: list
    environment: dict
    seconds: float = 0.0
    reached: frozenset = frozenset()


def limit_resources():
    resource.setrlimit(resource.RLIMIT_AS, (MEMORY_BYTES, MEMORY_BYTES))
    resource.setrlimit(resource.RLIMIT_FSIZE, (FILE_BYTES, FILE_BYTES))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


running = set()


def stop_all():
    """Kills the running tests."""
    for process in list(running):
        os.killpg(process.pid, signal.SIGKILL)


def failure(command, environment, seconds, folder):
    """Like failure_once(), but repeats a command that does not end with more time, because the machine may be busy."""
    failed = failure_once(command, environment, seconds, folder)
    return failure_once(command, environment, 4 * seconds, folder) if failed == "does not end" else failed


def failure_once(command, environment, seconds, folder):
    """Returns "" for a command that exits with 0, otherwise "fails" or "does not end". Leaves no process running."""
    with subprocess.Popen(command, env={**os.environ, **environment}, cwd=folder, stdin=subprocess.DEVNULL,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                          preexec_fn=limit_resources) as process:
        running.add(process)
        try:
            return "fails" if process.wait(seconds) else ""
        except subprocess.TimeoutExpired:
            return "does not end"
        finally:
            running.discard(process)
            try:
                os.killpg(process.pid, signal.SIGKILL)
            except ProcessLookupError:
                pass


class Suites:
    def __init__(self, out, count):
        self.out, self.count = out, count
        listing = subprocess.run(["ctest", "--test-dir", out, "--show-only=json-v1"], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout
        tests = {test["name"]: self.from_ctest(test) for test in json.loads(listing)["tests"] if "command" in test}
        self.programs = [test for name, test in tests.items() if name in GOOGLE_TESTS]
        self.scripts = [test for name, test in sorted(tests.items())
                        if name not in (*GOOGLE_TESTS, COMPILES_HEADERS) and name.startswith(("golden", "contract_", "kit_"))]
        self.units = {}
        self.noticed = collections.Counter()

    def from_ctest(self, test):
        properties = {item["name"]: item["value"] for item in test["properties"]}
        environment = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        return Test(test["name"], test["command"], environment)

    @staticmethod
    def cases(program):
        """Yields each case of a program of GoogleTest as a test of its own."""
        listing = subprocess.run([program.command[0], "--gtest_list_tests"], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout
        group = ""
        for line in listing.splitlines():
            words = line.split("#")[0].rstrip()
            if words.startswith("  "):
                name = group + words.strip()
                yield Test(name, [program.command[0], f"--gtest_filter={name}"], program.environment)
            elif words.endswith("."):
                group = words

    def trace(self, jobs, folder, note):
        """Runs every test on the unchanged library and notes what it reaches."""
        self.units = {program.name: list(self.cases(program)) for program in self.programs}
        # The scripts take longest, so they start first.
        tests = [*self.scripts, *(case for cases in self.units.values() for case in cases)]
        with multiprocessing.pool.ThreadPool(jobs) as pool:
            for index, failed in enumerate(pool.imap_unordered(lambda test: self.look(test, folder), tests)):
                note(f"running each test on the unchanged library: {index + 1} of {len(tests)}")
                if failed:
                    raise SystemExit(f"{failed} fails on the unchanged library")

    def look(self, test, folder):
        """Notes what a test reaches. Returns the name of a test that fails."""
        with tempfile.TemporaryDirectory(dir=folder) as own:
            reached = pathlib.Path(own) / "reached"
            reached.write_bytes(bytes(self.count + 1))
            environment = {**test.environment, "KELPLIB_MUTANTS_REACHED": str(reached)}
            started = time.monotonic()
            # Again, because the build may still keep the disk busy.
            if failure(test.command, environment, 300, own) and failure(test.command, environment, 300, own):
                return test.name
            test.seconds = time.monotonic() - started
            test.reached = frozenset(number for number, byte in enumerate(reached.read_bytes()) if byte)
            return None

    def noticed_by(self, numbers, environment, folder, room):
        """Returns the first test that reaches one of the mutants and fails, and how; None when all of them pass. Scripts
        that have noticed many mutants of the same source folder (room) run first."""
        for slow in (False, True):
            for program in self.programs:
                chosen = [test for test in self.units[program.name]
                          if test.reached & numbers and (test.seconds >= QUICK_SECONDS) == slow]
                limit = 2 + 5 * sum(test.seconds for test in chosen)
                command = [program.command[0], "--gtest_fail_fast", "--gtest_brief=1"]
                names = {**program.environment, **environment, "GTEST_FILTER": ":".join(test.name for test in chosen)}
                if failed := chosen and failure(command, names, limit, folder):
                    return f"{program.name}: {failed}"
        for test in sorted(self.scripts, key=lambda script: (-self.noticed[room, script.name], script.seconds)):
            if test.reached & numbers and (failed := failure(
                    test.command, {**test.environment, **environment}, 5 + 5 * test.seconds, folder)):
                self.noticed[room, test.name] += 1
                return f"{test.name}: {failed}"
        return None
