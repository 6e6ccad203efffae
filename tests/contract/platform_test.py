#!/usr/bin/env python3
"""The platform layer on the real system: platform_test.py PLATFORM_TOOL SYSTEM_TOOL

SYSTEM_TOOL is without_output on Windows, interrupted_tool elsewhere.
"""

import os
import pathlib
import subprocess
import sys
import tempfile
import time
import unittest

import programs

TOOL = sys.argv.pop(1)
SYSTEM_TOOL = sys.argv.pop(1)


def ask(*words, program=TOOL, **options):
    """Runs the tool. Returns its output without the line end."""
    status, output, errors = programs.run(program, *words, **options)
    if (status, errors) != (0, b""):
        raise AssertionError(f"{words}: exit status {status}, standard error {errors!r}")
    return output.removesuffix(b"\n")


def timed(*words, **options):
    """Runs the tool. Returns the seconds that it prints and the seconds that its whole run took."""
    start = time.monotonic()
    printed = float(ask(*words, **options))
    return printed, time.monotonic() - start


class Clock(unittest.TestCase):
    def test_never_goes_back(self):
        # More than a second, to cross the point where nanoseconds start again at 0.
        rises, falls = ask("watch", "1100").split(b", ")
        self.assertEqual(falls, b"0 falls")
        self.assertNotEqual(rises, b"0 rises")

    def test_counts_seconds_across_processes(self):
        before = float(ask("now"))
        passed, run_time = timed("sleep", "200")
        after = float(ask("now"))
        self.assertGreaterEqual(after - before, 0.2)
        self.assertGreaterEqual(after - before, passed)
        self.assertLess(passed, run_time)


class Sleep(unittest.TestCase):
    def test_lasts_as_long_as_asked_or_longer(self):
        for milliseconds, seconds in (("0", 0.0), ("1", 0.001), ("50", 0.05), ("999", 0.999), ("1000", 1.0), ("1001", 1.001)):
            with self.subTest(milliseconds):
                slept, run_time = timed("sleep", milliseconds)
                self.assertGreaterEqual(slept, seconds)
                self.assertLess(slept, run_time)
                self.assertLess(slept, seconds + 5.0)

    def test_lasts_hardly_longer_on_an_idle_machine(self):
        for milliseconds, seconds in (("1", 0.001), ("999", 0.999), ("1000", 1.0)):
            with self.subTest(milliseconds):
                slept = [float(ask("sleep", milliseconds))]
                while slept[-1] >= seconds + 0.5 and len(slept) < 30:  # a busy machine
                    slept.append(float(ask("sleep", milliseconds)))
                self.assertLess(slept[-1], seconds + 0.5, slept)

    @unittest.skipIf(programs.ON_WINDOWS, "no signal interrupts a thread there")
    def test_is_resumed_after_signals(self):
        slept, signals = ask("sleep", "1001", program=SYSTEM_TOOL).splitlines()
        self.assertRegex(signals, rb"\A[1-9][0-9]* signals\Z")
        self.assertGreaterEqual(float(slept), 1.001)


class CurrentDirectory(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name).resolve()

    def directory_in(self, folder):
        return ask("directory", cwd=folder)

    def name_of(self, folder):
        """The path of the folder as the tool prints it."""
        return b"<" + (programs.windows_path(folder) if programs.ON_WINDOWS else os.fsencode(folder)) + b">"

    def folder_of_length(self, length):
        """Creates a folder below the temporary one. Its whole path has `length` bytes."""
        rest = length - len(os.fsencode(self.folder)) - len("/") - len("/" + 100 * "d")
        folder = self.folder / (100 * "d") / (rest * "e")
        folder.mkdir(parents=True)
        self.assertEqual(len(os.fsencode(folder)), length)
        return folder

    def test_is_the_folder_of_the_shell(self):
        for name in ("plain", "with  blanks", "dot.folder"):
            with self.subTest(name):
                folder = self.folder / name
                folder.mkdir()
                self.assertEqual(self.directory_in(folder), self.name_of(folder))
        self.assertEqual(self.directory_in("/"), b"<Z:\\>" if programs.ON_WINDOWS else b"</>")

    @unittest.skipIf(programs.ON_WINDOWS, "paths are UTF-16 there")
    def test_bytes_stay_as_they_are(self):
        for name in ("\u00fc\u65e5\U0001f600".encode(), b"\xff", b"line\nend", b"back\\slash"):
            with self.subTest(name):
                folder = os.path.join(os.fsencode(self.folder), name)
                os.mkdir(folder)
                self.assertEqual(self.directory_in(folder), self.name_of(folder))

    @unittest.skipIf(programs.ON_WINDOWS, "no process starts in a folder whose path has more than 258 characters")
    def test_fits_with_its_terminator_into_260_bytes(self):
        for length in (258, 259):
            with self.subTest(length):
                folder = self.folder_of_length(length)
                self.assertEqual(self.directory_in(folder), self.name_of(folder))
        for length in (260, 261):
            with self.subTest(length):
                self.assertEqual(self.directory_in(self.folder_of_length(length)), b"<>")

    @unittest.skipUnless(programs.ON_WINDOWS, "the longest path is another one elsewhere")
    def test_longest_folder_of_a_windows_process_fits(self):
        folder = self.folder_of_length(258 - len("Z:"))
        self.assertEqual(len(programs.windows_path(folder)), 258)
        self.assertEqual(self.directory_in(folder), self.name_of(folder))

    @unittest.skipIf(programs.ON_WINDOWS, "the current directory cannot be deleted there")
    def test_deleted_folder_has_no_name(self):
        folder = self.folder / "deleted"
        folder.mkdir()
        deleted = subprocess.run(["sh", "-c", 'rmdir "$PWD"; exec "$0" directory', TOOL], cwd=folder, timeout=60,
                                 check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.assertEqual((deleted.stdout, deleted.stderr), (b"<>\n", b""))


class RewindWithoutConsole(unittest.TestCase):
    """The call writes the text that was buffered before it, and nothing else."""

    def rewind(self, lines, call="rewind", **options):
        done = subprocess.run(programs.command(TOOL, call, lines), stdin=subprocess.DEVNULL, timeout=60, check=True,
                              **options)
        return [programs.plain_line_ends(output) for output in (done.stdout, done.stderr) if output is not None]

    def rewind_into_one_pipe(self, lines, **options):
        """Returns what the tool wrote before and after the result of the call, which goes to standard error."""
        [output] = self.rewind(lines, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
        before, result, after = output.partition(b"0\n")
        self.assertEqual(result, b"0\n")
        return before, after

    def test_pipe(self):
        for lines in ("0", "1", "3", "4294967295"):
            with self.subTest(lines):
                self.assertEqual(self.rewind_into_one_pipe(lines), (b"stdio stream ", b""))

    def test_stream_with_a_buffer_of_its_own(self):
        # The call does not flush it. libc++'s std::cout always prints through the C library and has no buffer of its own.
        self.assertIn(self.rewind_into_one_pipe("3", call="rewind-two-buffers"),
                      ((b"stdio ", b"stream "), (b"stdio stream ", b"")))

    def test_file(self):
        with tempfile.TemporaryFile() as file:
            self.assertEqual(self.rewind("3", stdout=file, stderr=subprocess.PIPE), [b"0\n"])
            file.seek(0)
            self.assertEqual(file.read(), b"stdio stream ")

    def test_devices(self):
        for device in ("/dev/null", "/dev/full"):
            with self.subTest(device), open(device, "wb") as output:
                self.assertEqual(self.rewind("3", stdout=output, stderr=subprocess.PIPE), [b"0\n"])

    def test_closed_output(self):
        for lines in ("0", "3"):
            with self.subTest(lines):
                done = subprocess.run(programs.command_without_output(SYSTEM_TOOL, TOOL, "rewind", lines), timeout=60,
                                      check=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE)
                self.assertEqual((done.stdout, programs.plain_line_ends(done.stderr)), (b"", b"-1\n"))


if __name__ == "__main__":
    unittest.main()
