#!/usr/bin/env python3
"""Pipes without a reader, deleted directories, files that cannot be opened, signals while a call waits:
failing_system_test.py PROGRESS_TOOL SCREEN_TOOL WAITING_TOOL INTERRUPTED_TOOL PATH_TOOL WITHOUT_FILES_TOOL"""

import os
import pathlib
import signal
import subprocess
import sys
import tempfile
import unittest

PROGRESS_TOOL, SCREEN_TOOL, WAITING_TOOL, INTERRUPTED_TOOL, PATH_TOOL, WITHOUT_FILES_TOOL = sys.argv[1:7]
del sys.argv[1:7]

LIMIT_SECONDS = 60
FACE_OR_BAR = (("bar", 5 * b"-1\n"), ("face", 7 * b"-1\n"))


def run(*words, **options):
    return subprocess.run(words, stderr=subprocess.PIPE, timeout=LIMIT_SECONDS, check=False,
                          **{"stdin": subprocess.DEVNULL, **options})


class BrokenPipe(unittest.TestCase):
    """Standard output is a pipe whose reader has gone."""

    def run_without_reader(self, *words, ignored):
        """Runs the tool with SIGPIPE ignored, as some programs start it, or not, as a shell does."""
        reading, writing = os.pipe()
        os.close(reading)
        with os.fdopen(writing, "wb") as output:
            return run(*words, stdout=output, restore_signals=not ignored)

    def test_the_display_returns_it(self):
        for what, results in FACE_OR_BAR:
            with self.subTest(what):
                done = self.run_without_reader(PROGRESS_TOOL, what, "0", ignored=True)
                self.assertEqual((done.returncode, done.stderr), (0, results))

    def test_screens_still_end_with_status_0(self):
        for words in (["--help"], ["missing file"], [".", "-x"]):
            with self.subTest(words):
                done = self.run_without_reader(SCREEN_TOOL, *words, ignored=True)
                self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_the_signal_ends_a_tool_that_does_not_ignore_it(self):
        for words in ([PROGRESS_TOOL, "bar", "0"], [SCREEN_TOOL, "--help"]):
            with self.subTest(words):
                self.assertEqual(self.run_without_reader(*words, ignored=False).returncode, -signal.SIGPIPE)

    def test_a_reader_that_leaves_in_the_middle(self):
        with subprocess.Popen([PROGRESS_TOOL, "face", "0"], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE, restore_signals=False) as process:
            process.stdout.readline()
            process.stdout.close()
            results = process.stderr.read().split()
            self.assertEqual(process.wait(timeout=LIMIT_SECONDS), 0)
        self.assertEqual(len(results), 7)
        self.assertEqual(results[-1], b"-1")


class Waiting(unittest.TestCase):
    def check_not_shortened(self, seconds):
        self.assertGreaterEqual(seconds, 1.2)
        self.assertLess(seconds, 30.0)

    def test_lasts_as_long_under_signals(self):
        with subprocess.Popen([INTERRUPTED_TOOL, "wait", "1"], stdin=subprocess.PIPE, stdout=subprocess.PIPE) as process:
            self.assertEqual(process.wait(timeout=LIMIT_SECONDS), 0)
            *printed, seconds, signals = process.stdout.read().splitlines()
        self.assertEqual(printed, [b"waiting", b"    Press key to continue -- otherwise wait for 1 seconds."])
        self.check_not_shortened(float(seconds))
        self.assertRegex(signals, rb"\A[1-9][0-9]* signals\Z")

    def test_lasts_as_long_without_output(self):
        for output in (">/dev/full", ">&-"):
            with self.subTest(output):
                reading, writing = os.pipe()
                with os.fdopen(reading) as keyboard, os.fdopen(writing, "w"):
                    done = run("sh", "-c", f'exec "$0" wait 1 {output}', WAITING_TOOL, stdin=keyboard)
                self.assertEqual(done.returncode, 0)
                self.check_not_shortened(float(done.stderr))

    def test_input_that_cannot_be_read_counts_as_a_key(self):
        with tempfile.TemporaryDirectory() as folder:
            descriptor = os.open(folder, os.O_RDONLY)
            done = run(WAITING_TOOL, "wait", "600", stdin=descriptor, stdout=subprocess.DEVNULL)
            os.close(descriptor)
        self.assertEqual(done.returncode, 0)
        self.assertLess(float(done.stderr), 30.0)


class DeletedDirectory(unittest.TestCase):
    def in_deleted_folder(self, *words):
        with tempfile.TemporaryDirectory() as parent:
            folder = pathlib.Path(parent, "deleted")
            folder.mkdir()
            return run("sh", "-c", 'rmdir "$PWD"; exec "$0" "$@"', *words, cwd=folder, stdout=subprocess.PIPE)

    def test_relative_output_files_stay_as_they_are(self):
        done = self.in_deleted_folder(PATH_TOOL, "-o=sub/out.txt", "-o=/tmp/out.txt", "-o=a\\b", "-o=")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertEqual(done.stdout, b"<|sub/out.txt> delimiter /\n"
                                      b"</tmp/|out.txt> delimiter /\n"
                                      b"<|a\\b> delimiter /\n"
                                      b"<|> delimiter /\n"
                                      b"in <>\n")

    def test_a_relative_file_does_not_exist(self):
        done = self.in_deleted_folder(SCREEN_TOOL, "notes.txt")
        self.assertEqual((done.returncode, done.stderr), (0, b""))
        self.assertTrue(done.stdout.startswith(b"File notes.txt doesn't exist. Please insert a valid file name.\n"))


class FileCheck(unittest.TestCase):
    def test_opens_neither_the_directory_nor_patterns(self):
        """A user may be allowed to enter a directory but not to list it. Here the tool cannot open anything at all."""
        done = run(WITHOUT_FILES_TOOL, ".", "*", "no/*.txt", stdout=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"1\n1\n1\n", b""))


if __name__ == "__main__":
    unittest.main()
