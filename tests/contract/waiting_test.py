#!/usr/bin/env python3
"""Verbosity and waiting for a key in processes of their own: waiting_test.py WAITING_TOOL"""

import os
import subprocess
import sys
import unittest

import programs
import terminal

TOOL = sys.argv.pop(1)

LIMIT_SECONDS = 60
# Longer than any test runs, so only a key ends such a wait.
LONG = "600"


def environment(verbosity):
    """The environment with this K_VERBOSITY; None removes the variable."""
    others = {name: value for name, value in os.environ.items() if name != "K_VERBOSITY"}
    return others if verbosity is None else {**others, "K_VERBOSITY": verbosity}


def lines(seconds):
    """The output of one wait."""
    return f"first line\n    Press key to continue -- otherwise wait for {seconds} seconds.\n".encode()


class Verbosity(unittest.TestCase):
    def test_is_the_number_at_the_beginning_and_stays(self):
        cases = [(None, 0), ("0", 0), ("3", 3), ("abc", 0), ("2x", 2), ("-5", -5), (" 7", 7), ("\t+8 9", 8), ("11", 11),
                 ("0x10", 0), ("2147483647", 2147483647), ("99999999999", 2147483647), ("-99999999999", -2147483648)]
        if not programs.ON_WINDOWS:  # Windows has no empty variables.
            cases.append(("", 0))
        for text, level in cases:
            with self.subTest(text):
                self.assertEqual(programs.run(TOOL, "verbosity", env=environment(text)),
                                 (0, 3 * f"{level}\n".encode(), b""))


class Integer(unittest.TestCase):
    NO_FLAG = b"Kelp::haveStringFlag no flag found. location: "
    NOT_TWO = b"Kelp::haveIntFlag token split not 2"

    def check(self, verbosity, words, output, errors):
        with self.subTest((verbosity, words)):
            self.assertEqual(programs.run(TOOL, "integer", *words, env=environment(verbosity)), (0, output, errors))

    def test_prints_the_reason_for_a_failure_above_a_verbosity_of_10(self):
        for words, reason in ((["1", "tool"], self.NO_FLAG + b"1"),
                              (["12", "tool", "-n=4"], self.NO_FLAG + b"12"),
                              (["1", "tool", "-n12"], self.NOT_TWO),
                              (["1", "tool", "-n="], self.NOT_TWO),
                              (["0", "tool"], self.NOT_TWO),
                              (["-3", "tool"], self.NOT_TWO)):
            for verbosity in (None, "-11", "10"):
                self.check(verbosity, words, b"\n", b"0 77\n")
            for verbosity in ("11", "12"):
                self.check(verbosity, words, reason + b"\n", b"0 77\n")

    def test_prints_nothing_on_success(self):
        for verbosity in ("10", "11"):
            self.check(verbosity, ["1", "tool", "-N=4"], b"", b"1 4\n")
            self.check(verbosity, ["0", "a=5"], b"", b"0 5\n")


class Waiting(unittest.TestCase):
    def start(self, *seconds):
        """Starts the tool. Standard input is open and still empty."""
        process = subprocess.Popen(programs.command(TOOL, "wait", *seconds), stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        with process:
            process.kill()

    def finish(self, process, printed):
        """Waits for the end of the tool while its standard input stays open. Returns the seconds of each wait."""
        self.assertEqual(process.wait(timeout=LIMIT_SECONDS), 0)
        self.assertEqual(programs.plain_line_ends(process.stdout.read()), printed)
        return [float(line) for line in process.stderr.read().split()]

    def type(self, process, keys):
        process.stdin.write(keys)
        process.stdin.flush()

    def check_ended_early(self, seconds):
        self.assertGreaterEqual(seconds, 0.1)
        self.assertLess(seconds, 30.0)

    def test_ends_when_the_time_is_over(self):
        for seconds, least in (("0", 0.2), ("1", 1.2)):
            with self.subTest(seconds):
                [waited] = self.finish(self.start(seconds), lines(seconds))
                self.assertGreaterEqual(waited, least)
                self.assertLess(waited, least + 5.0)

    def test_ends_at_once_with_input_there(self):
        process = self.start(LONG)
        self.type(process, b"k")
        [waited] = self.finish(process, lines(LONG))
        self.check_ended_early(waited)

    def test_takes_one_character_at_a_time(self):
        process = self.start(LONG, LONG, LONG)
        self.type(process, b"a\nb")
        for waited in self.finish(process, 3 * lines(LONG)):
            self.check_ended_early(waited)

    def test_end_of_the_input_counts_as_a_key(self):
        status, output, errors = programs.run(TOOL, "wait", LONG, LONG, timeout=LIMIT_SECONDS)
        self.assertEqual((status, output), (0, 2 * lines(LONG)))
        for line in errors.splitlines():
            self.check_ended_early(float(line))
        process = self.start(LONG, LONG)
        process.stdin.close()
        self.assertEqual(len(self.finish(process, 2 * lines(LONG))), 2)

    @unittest.skipIf(programs.ON_WINDOWS, "a shell cannot close standard input there")
    def test_closed_input_counts_as_a_key(self):
        done = subprocess.run(["sh", "-c", 'exec "$0" "$@" <&-', TOOL, "wait", LONG], stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, timeout=LIMIT_SECONDS, check=True)
        self.assertEqual(done.stdout, lines(LONG))
        self.check_ended_early(float(done.stderr))

    def test_second_wait_ends_with_the_second_key(self):
        # The reader of the first wait, which has timed out, takes the first key.
        process = self.start("0", LONG)
        printed = b""
        while printed.count(b"\n") < 4:
            printed += process.stdout.readline()
        self.type(process, b"a")
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(timeout=1)
        self.type(process, b"b")
        first, second = self.finish(process, b"")
        self.assertEqual(programs.plain_line_ends(printed), lines("0") + lines(LONG))
        self.assertGreaterEqual(first, 0.2)
        self.check_ended_early(second)


class WaitingInATerminal(unittest.TestCase):
    def test_ends_when_the_time_is_over(self):
        with terminal.Terminal(TOOL, "wait", "0") as pane:
            self.assertEqual(pane.wait_for_end(), 0)
            rows = lines("0").decode().splitlines() + 22 * [""]
            self.assertEqual(pane.settled_rows(rows), rows)

    def test_ends_with_a_key_and_enter(self):
        with terminal.Terminal(TOOL, "wait", LONG) as pane:
            pane.wait_for_text(f"otherwise wait for {LONG} seconds.")
            pane.type("k\r")
            self.assertEqual(pane.wait_for_end(), 0)
            self.assertLess(float(pane.errors()), 30.0)

    def test_a_line_ends_as_many_waits_as_it_has_characters(self):
        with terminal.Terminal(TOOL, "wait", LONG, LONG) as pane:
            pane.wait_for_text(f"otherwise wait for {LONG} seconds.")
            pane.type("k\r")
            self.assertEqual(pane.wait_for_end(), 0)


if __name__ == "__main__":
    unittest.main()
