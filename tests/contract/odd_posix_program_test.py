#!/usr/bin/env python3
"""Waits in programs that fork, cancel threads, block signals or run as jobs of a terminal:
odd_posix_program_test.py ODD_POSIX_PROGRAM [libcxx] [sanitized]

The words describe the build: some tests expect something else there or are skipped."""

import contextlib
import fcntl
import os
import subprocess
import sys
import termios
import time
import unittest

PROGRAM, *BUILD = sys.argv[1:]
del sys.argv[1:]

LIMIT_SECONDS = 60


def lines(message, seconds):
    """The output of one wait."""
    return f"{message}\n    Press key to continue -- otherwise wait for {seconds} seconds.\n".encode()


def set_group(job):
    """Gives a child a process group of its own. The child does the same, so that neither has to wait for the other."""
    # The call fails once the child runs its program.
    with contextlib.suppress(PermissionError):
        os.setpgid(job, job)


class Processes(unittest.TestCase):
    def start(self, command):
        # By default ThreadSanitizer ends a forked child that starts a thread.
        process = subprocess.Popen([PROGRAM, command], stdin=subprocess.PIPE, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                                   env={**os.environ, "TSAN_OPTIONS": "die_after_fork=0"})
        self.addCleanup(process.__exit__, None, None, None)
        self.addCleanup(process.kill)
        return process

    def check_end(self, process, printed, errors):
        """The program ends while its standard input stays open."""
        self.assertEqual(process.wait(timeout=LIMIT_SECONDS), 0)
        self.assertEqual((process.stdout.read(), process.stderr.read()), (printed, errors))

    def test_a_forked_child_waits_for_its_own_key(self):
        command = "fork-and-end-at-once" if "sanitized" in BUILD else "fork"
        self.check_end(self.start(command), lines("left", 0) + lines("in the child", 600), b"5\n")

    def test_a_command_is_read_after_a_wait(self):
        self.check_end(self.start("popen"), lines("left", 0) + b"from the command\n", b"0\n")

    @unittest.skipIf("libcxx" in BUILD, "this build's threads cannot be cancelled")
    def test_a_cancelled_thread_ends_and_its_reader_takes_the_first_key(self):
        process = self.start("cancel")
        self.assertEqual(process.stderr.readline(), b"1\n")
        process.stdin.write(b"a")
        process.stdin.flush()
        with self.assertRaises(subprocess.TimeoutExpired):
            process.wait(timeout=1)
        process.stdin.write(b"b")
        process.stdin.flush()
        self.check_end(process, lines("cancelled", 600) + lines("next", 600), b"")

    def test_an_empty_input_leaves_the_processor_to_others(self):
        for command in ("wait", "wait-unsynchronized"):
            self.check_end(self.start(command), lines("waiting", 1), b"")

    def test_an_empty_non_blocking_input_is_not_at_its_end(self):
        start = time.monotonic()
        self.check_end(self.start("without-waiting"), lines("empty", 1), b"0\n")
        self.assertGreaterEqual(time.monotonic() - start, 1.2)

    @unittest.skipIf("libcxx" in BUILD, "this build's stream reads through the C library")
    def test_an_unsynchronized_stream_reads_beside_the_c_library(self):
        start = time.monotonic()
        self.check_end(self.start("beside-buffered-input"), lines("empty", 1), b"0\n")
        self.assertGreaterEqual(time.monotonic() - start, 1.2)
        process = self.start("beside-a-lock")
        process.stdin.write(b"k")
        process.stdin.flush()
        self.check_end(process, lines("waiting", 600), b"")

    def test_an_end_that_the_c_library_has_seen_stays(self):
        terminal, other_end = os.openpty()
        os.write(terminal, b"\x04")
        done = subprocess.run([PROGRAM, "after-the-end"], stdin=other_end, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=LIMIT_SECONDS, check=True)
        self.assertEqual((done.stdout, done.stderr), (lines("ended", 600), b"1\n"))
        os.close(other_end)
        os.close(terminal)

    def test_a_folder_leaves_the_unsynchronized_stream_bad(self):
        folder = os.open("/", os.O_RDONLY)
        self.addCleanup(os.close, folder)
        done = subprocess.run([PROGRAM, "unreadable"], stdin=folder, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              timeout=LIMIT_SECONDS, check=True)
        # libc++'s std::cin always reads through the C library, which takes a failed read for the end of the input.
        self.assertEqual(done.stdout, lines("unreadable", 600))
        self.assertEqual(done.stderr, b"0\n" if "libcxx" in BUILD else b"1\n")

    def test_an_input_that_can_only_be_written_counts_as_a_key(self):
        with subprocess.Popen(["sh", "-c", 'exec "$0" wait-for-a-key 0>&1', PROGRAM], stdout=subprocess.PIPE) as process:
            self.assertEqual(process.wait(timeout=LIMIT_SECONDS), 0)
            self.assertEqual(process.stdout.read(), lines("waiting", 600))

    def test_files_other_than_standard_input_are_read_while_it_is_empty(self):
        self.check_end(self.start("other-files"), 3 * (lines("another file", 600) + b"b\n"), b"")

    def check_muted(self, command, keys, printed):
        process = self.start(command)
        self.assertEqual(process.stderr.readline(), b"1\n")
        process.stdin.write(keys)
        process.stdin.flush()
        self.check_end(process, lines("left", 0) + printed, b"")

    def test_a_reader_of_the_c_library_needs_no_buffer_of_the_stream(self):
        self.check_muted("muted-input", b"ab", b"b\n")

    # libc++'s stream always reads through the C library. ThreadSanitizer reports that the program changes std::cin meanwhile.
    @unittest.skipIf(BUILD, "this build reads otherwise, or reports a race")
    def test_a_reader_of_the_unsynchronized_stream_takes_no_key_without_a_buffer(self):
        self.check_muted("muted-unsynchronized-input", b"a", lines("next", 600))

    @unittest.skipIf("sanitized" in BUILD, "this build needs descriptors itself")
    def test_a_key_is_read_where_poll_fails(self):
        process = self.start("without-descriptors")
        process.stdin.write(b"k")
        process.stdin.flush()
        self.check_end(process, lines("without descriptors", 600), b"")


class Background(unittest.TestCase):
    """Background jobs of a terminal. Keys typed there belong to the program in the foreground."""

    def run_in_background(self, command):
        """Returns 0 if the job ends by itself with status 0 and leaves both typed characters unread."""
        terminal, other_end = os.openpty()
        shell = os.fork()
        if shell == 0:
            os.setsid()
            fcntl.ioctl(other_end, termios.TIOCSCTTY, 0)
            job = os.fork()
            if job == 0:
                os.setpgid(0, 0)
                os.dup2(other_end, 0)
                os.dup2(os.open(os.devnull, os.O_WRONLY), 1)
                os.execv(PROGRAM, [PROGRAM, command])
            set_group(job)
            os.write(terminal, b"k\n")
            _, status = os.waitpid(job, os.WUNTRACED)
            ended = os.WIFEXITED(status) and os.WEXITSTATUS(status) == 0
            os.set_blocking(other_end, False)
            os._exit(0 if ended and os.read(other_end, 10) == b"k\n" else 1)
        os.close(other_end)
        status = os.waitpid(shell, 0)[1]
        os.close(terminal)
        return status

    def check_waits_its_time(self, command):
        start = time.monotonic()
        self.assertEqual(self.run_in_background(command), 0)
        self.assertGreaterEqual(time.monotonic() - start, 1.2)

    def test_waits_its_time_and_leaves_typed_keys(self):
        for command in ("wait", "wait-unsynchronized"):
            with self.subTest(command):
                self.check_waits_its_time(command)

    def test_waits_its_time_with_sigttin_blocked(self):
        self.check_waits_its_time("block")

    def test_takes_a_key_once_it_is_in_the_foreground(self):
        terminal, other_end = os.openpty()
        shell = os.fork()
        if shell == 0:
            os.setsid()
            fcntl.ioctl(other_end, termios.TIOCSCTTY, 0)
            reading, writing = os.pipe()
            job = os.fork()
            if job == 0:
                os.setpgid(0, 0)
                os.dup2(other_end, 0)
                os.dup2(writing, 1)
                os.execv(PROGRAM, [PROGRAM, "wait-for-a-key"])
            set_group(job)
            os.close(writing)
            os.write(terminal, b"k\n")
            printed = b""
            while printed.count(b"\n") < 2:
                printed += os.read(reading, 1000) or os._exit(2)
            still_waits = os.waitpid(job, os.WNOHANG) == (0, 0)
            os.tcsetpgrp(other_end, job)
            _, status = os.waitpid(job, os.WUNTRACED)
            ended = os.WIFEXITED(status) and os.WEXITSTATUS(status) == 0
            os._exit(0 if still_waits and ended else 1)
        os.close(other_end)
        self.assertEqual(os.waitpid(shell, 0)[1], 0)
        os.close(terminal)


if __name__ == "__main__":
    unittest.main()
