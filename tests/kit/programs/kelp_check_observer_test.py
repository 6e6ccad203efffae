#!/usr/bin/env python3
"""Runs kelp-check, which observes tools: kelp_check_observer_test.py KELP_CHECK OBSERVED_TOOL OBSERVER RULES_PAGE"""

import concurrent.futures
import os
import pathlib
import re
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import programs

KELP_CHECK, OBSERVED, OBSERVER, PAGE = sys.argv[1:5]

# What the samples of the page give, each with -a=. and the name of the sample.
FINDINGS = {
    "no-verbose": "error no-verbose: the tool has verbose texts, but the library refuses -v; list the option -v, --verbose",
    "no-output": "error no-output: the tool asks for output files, but the library refuses -o and prints an error; list the "
                 "option -o, --output",
    "asked-by-long-name": "error asked-by-long-name --number: the tool asks for this name, which the library never finds; ask "
                          "for the short form, such as -n",
    "asked-unregistered": "error asked-unregistered -q: the tool asks for this option, but the library refuses it; list the "
                          "option, or do not ask for it",
    "late-option": "error late-option -v: the tool registers this option after the constructor, which refuses it; pass it to the "
                   "constructor",
    "file-demanded": "error file-demanded: the library demands an input file, which the help screen does not mention; describe "
                     "the file as an argument, or use a constructor without arguments",
}
DROPPED = "error same-letter -N: an earlier option has this letter, so this one cannot be used; choose another letter\n"
UNSEEN = f"kelp-check: {OBSERVED}: only the help screen is checked; the tool cannot be observed: it may be " \
         "linked statically, or built for another processor or C++ library\n"
SILENT = f"kelp-check: {OBSERVED}: it asked for no option in the run with -a, which may have ended early\n"
CUT = f"kelp-check: {OBSERVED}: what was observed is damaged or longer than 1000000 bytes; the rest is not checked\n"

# Tools that disturb the observer, and what kelp-check says.
TRICKS = {"unset": UNSEEN, "again": "", "moved": UNSEEN, "closing": "", "flood": CUT + UNSEEN, "garbage": CUT + UNSEEN,
          "empty": CUT + UNSEEN, "number": CUT + UNSEEN, "fifo": UNSEEN, "removed": UNSEEN, "forked": "", "large": UNSEEN,
          "killed": UNSEEN}


class ObserverTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve() / "a b:c'd"
        self.folder.mkdir()
        self.environment = {**os.environ, "TMPDIR": str(self.folder)}

    def check(self, *arguments, program=KELP_CHECK):
        status, output, errors = programs.run(program, *arguments, cwd=self.folder, env=self.environment)
        return status, output.decode(), errors.decode()

    def check_tool(self, name, *arguments):
        return self.check("-n=" + name, *arguments, OBSERVED)

    def check_tools(self, expected):
        """Checks the results for many argument lists of check_tool, a few at a time: each run waits for half a second."""
        with concurrent.futures.ThreadPoolExecutor(6) as pool:
            results = list(pool.map(lambda arguments: self.check_tool(*arguments), expected))
        for (arguments, result), actual in zip(expected.items(), results):
            with self.subTest(arguments=arguments):
                self.assertEqual(actual, result)

    def tearDown(self):
        self.assertEqual(list(self.folder.iterdir()), [])


class Rules(ObserverTest):
    def test_samples(self):
        self.check_tools({("finding-" + rule, "-a=."): (1, finding + "\n", SILENT if rule == "file-demanded" else "")
                          for rule, finding in FINDINGS.items()})
        self.check_tools({("none-" + rule, "-a=."): (0, "", SILENT if rule in ("file-demanded", "late-option") else "")
                          for rule in FINDINGS})

    def test_samples_of_the_page(self):
        page = pathlib.Path(PAGE).read_text(encoding="utf-8")
        lines = programs.run(OBSERVED, "samples")[1].decode().splitlines()
        self.assertEqual(lines[::3], list(FINDINGS))
        for rule, finding, none in zip(lines[::3], lines[1::3], lines[2::3]):
            section = page.split(f"\n### {rule}\n")[1].split("\n### ")[0]
            self.assertTrue(section.endswith(f"\n- finding: `{finding}`\n- none: `{none}`\n"), section)

    def test_only_a_run_with_arguments_asks(self):
        self.check_tools({("finding-" + rule,): (1, finding + "\n", "") if rule == "file-demanded" else (0, "", "")
                          for rule, finding in FINDINGS.items()})

    def test_runs_that_end_early(self):
        # A file that is missing in the empty folder, and an option that the tool refuses
        self.check_tools({("queries", "-a=" + arguments): (0, "", SILENT) for arguments in ("letter.txt", "-q .", "")})

    def test_queries(self):
        self.check_tools({("queries", "-s", "-a=."): (0, "", ""), ("queries", "-s", "-a=-n=3 -v '.'"): (0, "", "")})

    def test_queries_in_vain(self):
        status, output, errors = self.check_tool("vain", "-a=.")
        self.assertEqual((status, errors), (1, ""))
        self.assertEqual([line.split(":")[0] for line in output.splitlines()],
                         ["error no-verbose", "error no-output", "error late-option -g", "error late-option -i",
                          "error asked-by-long-name --help", "error asked-unregistered -a", "error asked-by-long-name h",
                          "error asked-by-long-name number", "error asked-unregistered -b",
                          "error asked-unregistered -c", "error asked-by-long-name --number",
                          "error asked-unregistered --depth", "error asked-by-long-name n", "error asked-unregistered -e", "error asked-unregistered -f"])

    def test_two_tools_of_one_screen(self):
        status, output, errors = self.check_tool("twice", "-a=.")
        self.assertEqual((status, [line.split(":")[0] for line in output.splitlines()], errors),
                         (1, ["error no-verbose", "error no-output", "error late-option -l", "error asked-unregistered -q"], ""))

    def test_other_program(self):
        status, output, errors = self.check_tool("with-other", "-a=.")
        self.assertEqual((status, [line.split(":")[0] for line in output.splitlines()], errors),
                         (1, ["error asked-unregistered -r"], ""))

    def test_run_without_tool(self):
        unseen = SILENT.replace("asked for no option", "was not observed")
        self.check_tools({("early", "-a=."): (0, "", unseen), ("early", "-a="): (0, "", unseen)})

    def test_long_report(self):
        finding = "error asked-unregistered -q: the tool asks for this option, but the library refuses it; list the option, or do " \
                  "not ask for it\n"
        self.assertEqual(self.check_tool("talkative", "-a=."), (1, finding, CUT))

    def test_other_command_line(self):
        status, output, errors = self.check_tool("other-line", "-a=.")
        self.assertEqual((status, [line.split(":")[0] for line in output.splitlines()], errors),
                         (1, ["error asked-unregistered -" + letter for letter in "abcde"], ""))


class Definitions(ObserverTest):
    def test_dropped_option(self):
        self.assertEqual(self.check_tool("dropped", "-t=n=LINES"), (1, DROPPED, ""))

    def test_version_option(self):
        # The screen alone may be that of a tool of the kit, which answers it.
        status, output, errors = self.check_tool("version", "-t=v")
        self.assertEqual((status, output.split(":")[0], output.count("\n"), errors), (0, "warning version-letter -V", 1, ""))

    def test_definition_of_the_kit(self):
        status, output, errors = self.check_tool("kits")
        self.assertEqual((status, [line.split(":")[0] for line in output.splitlines()], errors),
                         (0, ["warning usage-names -n", "warning usage-names -q"], ""))
        self.assertEqual(self.check_tool("kits", "-t=n=LINES,q")[0::2], (0, ""))
        for hint, end in ("n", "-n, which takes a value"), ("q=TEXT", "-q, a switch"):
            self.assertEqual(self.check_tool("kits", "-t=" + hint),
                             (1, "", f"kelp-check: the hint {hint[0]} does not fit {end}\n"))

    def test_defined_name(self):
        name = "warning other-name kelp-check: the messages of the tool show this name, not that of the program; give the " \
               "definition the name of the program\n"
        self.assertEqual(self.check("-n=other", KELP_CHECK), (0, name, ""))
        self.assertEqual(self.check("-s", KELP_CHECK), (0, "", ""))

    def test_constructors(self):
        # The screen shows one option -h; the other ones are seen in the constructors.
        for name, findings in {
                "short0": ["warning no-help"],
                "short1": ["error help-taken -H", "warning value-unknown -H"],
                "short2": ["error same-letter -H", "error help-taken -H"],
                "short3": ["error same-letter -H", "error help-taken -H"] * 2,
                "derived": ["error same-letter -h", "error help-taken -h"],
                "steps": []}.items():
            with self.subTest(name=name):
                status, output, errors = self.check_tool(name)
                self.assertEqual(([line.split(":")[0] for line in output.splitlines()], errors), (findings, ""))
                self.assertEqual(status, 1 if "error" in output else 0)


class HardToObserve(ObserverTest):
    def test_tricks(self):
        self.check_tools({(name,): (0, "", errors) for name, errors in TRICKS.items()})

    def test_process_that_escapes(self):
        # It holds nothing that kelp-check waits for.
        status, _, errors = programs.run(KELP_CHECK, "-n=escaped", OBSERVED, cwd=self.folder, env=self.environment)
        identity = self.folder / "identity"
        while not identity.exists() or not identity.read_text().endswith("\n"):
            time.sleep(0.01)
        os.kill(int(identity.read_text()), signal.SIGKILL)
        identity.unlink()
        self.assertEqual((status, errors, list(self.folder.iterdir())), (0, b"", []))

    def test_full_disk(self):
        if subprocess.run(["unshare", "-rm", "true"], stderr=subprocess.DEVNULL, check=False).returncode:
            self.skipTest("this user may not mount")
        for options, message in [("size=64k", "cannot write .*/report"), ("nr_inodes=2", "cannot create .*/kelp_observer.so")]:
            done = subprocess.run(["unshare", "-rm", "sh", "-c", 'mount -t tmpfs -o "$0" none "$1" && shift && exec "$@"', options,
                                   self.folder, *programs.command(KELP_CHECK, "-n=dropped", OBSERVED)],
                                  env=self.environment, capture_output=True, timeout=60, check=False)
            self.assertEqual((done.returncode, done.stdout), (1, b""))
            self.assertRegex(done.stderr.decode(), f"^kelp-check: {message}: No space left on device\n$")

    @unittest.skipIf(os.geteuid(), "only root can make a set-user-ID tool")
    def test_tool_that_cannot_be_killed(self):
        def become_ordinary():
            os.setgroups([])
            os.setgid(65534)
            os.setuid(65534)
        tool = self.folder.parent / "root"
        shutil.copy(OBSERVED, tool)
        tool.chmod(0o4755)
        self.folder.parent.chmod(0o755)
        self.folder.chmod(0o777)
        try:
            run = subprocess.Popen([KELP_CHECK, tool], cwd=self.folder, env=self.environment, stderr=subprocess.PIPE,
                                   preexec_fn=become_ordinary)
        except PermissionError as error:
            self.skipTest(f"only root can run kelp-check: {error}")
        with run:
            child = self.root_child(run)
            try:
                run.send_signal(signal.SIGTERM)
                self.assertEqual((run.communicate(timeout=60)[1], run.returncode), (b"kelp-check: interrupted\n", -signal.SIGTERM))
            finally:
                os.kill(child, signal.SIGKILL)

    def root_child(self, run):
        """Waits until a process has a child of root, and returns it."""
        while run.poll() is None:
            for child in pathlib.Path(f"/proc/{run.pid}/task/{run.pid}/children").read_text(encoding="utf-8").split():
                if re.search(r"^Uid:\t0\t", pathlib.Path(f"/proc/{child}/status").read_text(encoding="utf-8"), re.MULTILINE):
                    return int(child)
            time.sleep(0.01)
        self.skipTest(f"the tool does not run as root: {run.stderr.read()}")

    def test_ten_seconds(self):
        started = time.monotonic()
        self.assertEqual(self.check_tool("sleeping"), (0, "", UNSEEN))
        self.assertGreaterEqual(time.monotonic() - started, 10)

    def test_without_observer(self):
        copy = self.folder.parent / "kelp-check"
        shutil.copy(KELP_CHECK, copy)
        message = f"kelp-check: {OBSERVED}: only the help screen is checked; there is no kelp_observer.so\n"
        self.assertEqual(self.check("-n=dropped", "-t=n=LINES", OBSERVED, program=str(copy)), (0, "", message))
        shutil.copy(OBSERVER, self.folder.parent)
        self.assertEqual(self.check("-n=dropped", "-t=n=LINES", OBSERVED, program=str(copy)), (1, DROPPED, ""))

    def test_relative_temporary_folder(self):
        self.environment["TMPDIR"] = "."
        self.assertEqual(self.check_tool("dropped", "-t=n=LINES"), (1, DROPPED, ""))

    def test_address_sanitizer(self):
        script = self.folder.parent / "dropped"
        for before, expected in ("color=never", "color=never:verify_asan_link_order=0"), (None, "verify_asan_link_order=0"):
            self.environment.pop("ASAN_OPTIONS", None)
            if before:
                self.environment["ASAN_OPTIONS"] = before
            script.write_text(f'#!/bin/bash\ntest "$ASAN_OPTIONS" = {expected} || unset LD_PRELOAD\n'
                              f'exec -a dropped "{OBSERVED}" "$@"\n', encoding="utf-8")
            script.chmod(0o755)
            self.assertEqual(self.check("-t=n=LINES", str(script)), (1, DROPPED, ""))

    def test_script(self):
        script = self.folder.parent / "dropped"
        script.write_text(f'#!/bin/bash\nexec -a dropped "{OBSERVED}" "$@"\n', encoding="utf-8")
        script.chmod(0o755)
        self.assertEqual(self.check("-t=n=LINES", str(script)), (1, DROPPED, ""))
        script.write_text(f'#!/bin/bash\nunset LD_PRELOAD\nexec -a dropped "{OBSERVED}" "$@"\n', encoding="utf-8")
        self.assertEqual(self.check("-t=n=LINES", str(script)), (0, "", UNSEEN.replace(OBSERVED, str(script))))

    def test_other_preloads_stay(self):
        self.environment["LD_PRELOAD"] = OBSERVER
        if " " not in OBSERVER and ":" not in OBSERVER:
            self.assertEqual(self.check_tool("dropped", "-t=n=LINES"), (1, DROPPED, ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
