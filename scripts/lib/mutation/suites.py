"""The tests as the mutants meet them: which test reaches which mutant, and whether one of them notices it."""

import collections
import dataclasses
import json
import os
import resource
import signal
import subprocess

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
    """Ends the tests that are running."""
    for process in list(running):
        os.killpg(process.pid, signal.SIGKILL)


def passes(command, environment, seconds, folder):
    """Whether a command ends with 0 within the seconds. All of its processes have ended then."""
    with subprocess.Popen(command, env={**os.environ, **environment}, cwd=folder, stdin=subprocess.DEVNULL,
                          stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, start_new_session=True,
                          preexec_fn=limit_resources) as process:
        running.add(process)
        try:
            return process.wait(seconds) == 0
        except subprocess.TimeoutExpired:
            return False
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
        self.unit = tests["unit"]
        self.scripts = [tests[name] for name in ("golden", *sorted(tests)) if name == "golden" or
                        name.startswith("contract_") and name != "contract_symbols"]
        self.units = []
        self.noticed = collections.Counter()

    def from_ctest(self, test):
        properties = {item["name"]: item["value"] for item in test["properties"]}
        environment = dict(line.split("=", 1) for line in properties.get("ENVIRONMENT", []))
        return Test(test["name"], test["command"], environment)

    def unit_names(self):
        listing = subprocess.run([self.unit.command[0], "--gtest_list_tests"], check=True, text=True,
                                 stdout=subprocess.PIPE).stdout
        group = ""
        for line in listing.splitlines():
            words = line.split("#")[0].rstrip()
            if words.startswith("  "):
                yield group + words.strip()
            elif words.endswith("."):
                group = words

    def trace(self, clock, folder, note):
        """Runs every test by itself on the unchanged library."""
        self.units = [Test(name, [self.unit.command[0], f"--gtest_filter={name}"], self.unit.environment)
                      for name in self.unit_names()]
        for index, test in enumerate([*self.units, *self.scripts]):
            note(f"looking at what each test reaches: {index + 1} of {len(self.units) + len(self.scripts)}")
            reached = folder / "reached"
            reached.write_bytes(bytes(self.count + 1))
            started = clock()
            if not passes(test.command, {**test.environment, "KELPLIB_MUTANTS_REACHED": str(reached)}, 300, folder):
                raise SystemExit(f"{test.name} fails on the unchanged library")
            test.seconds = clock() - started
            test.reached = frozenset(number for number, byte in enumerate(reached.read_bytes()) if byte)

    def noticed_by(self, numbers, environment, folder, room):
        """The first of the tests that reach one of the numbers and fail; None when all of them pass. What has noticed much
        of the same room (folder of the sources) is asked first."""
        units = [test for test in self.units if test.reached & numbers]
        for slow in (False, True):
            chosen = [test for test in units if (test.seconds >= QUICK_SECONDS) == slow]
            limit = 2 + 5 * sum(test.seconds for test in chosen)
            command = [self.unit.command[0], "--gtest_fail_fast", "--gtest_brief=1"]
            names = {**self.unit.environment, **environment, "GTEST_FILTER": ":".join(test.name for test in chosen)}
            if chosen and not passes(command, names, limit, folder):
                return "unit"
        for test in sorted(self.scripts, key=lambda script: (-self.noticed[room, script.name], script.seconds)):
            if test.reached & numbers and not passes(
                    test.command, {**test.environment, **environment}, 5 + 5 * test.seconds, folder):
                self.noticed[room, test.name] += 1
                return test.name
        return None
