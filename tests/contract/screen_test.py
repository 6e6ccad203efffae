#!/usr/bin/env python3
"""A tool that uses the shared library, from its command line to its exit status: screen_test.py SCREEN_TOOL SYSTEM_TOOL

SYSTEM_TOOL is without_output on Windows, interrupted_tool elsewhere.
"""

import concurrent.futures
import ctypes
import os
import socket
import subprocess
import sys
import tempfile
import time
import unittest

import programs
import screens

TOOL = screens.by_name(sys.argv.pop(1))
SYSTEM_TOOL = sys.argv.pop(1)

FILE_MISSING = b"\n\x1b[31mFile missing, please insert the name of the file.\x1b[0m\n\n"
NOT_THERE = b"File not-there.txt doesn't exist. Please insert a valid file name.\n"


def ending_in_help(message):
    return message + screens.HELP + screens.AFTER_HELP


def report(number=b"12, search on from 0", text=b"<nothing>, search on from 0", at=b"--number at 0, --text at 0",
           first=b"1", arguments=(b".",)):
    """The output of the tool for a command line that it accepts."""
    listed = b"".join(b"argument <" + argument + b">\n" for argument in arguments)
    return (b"tool screen_tool\n" + at + b"\nnumber " + number + b"\ntext " + text + b"\n"
            b"first argument at " + first + b"\n" + listed + screens.AFTER_RETURN)


def run_together(command_lines):
    """Runs the tool once per command line, all at the same time: a run with a help screen pauses for half a second."""
    with concurrent.futures.ThreadPoolExecutor(max_workers=8) as pool:
        return list(pool.map(lambda words: programs.run(TOOL, *words), command_lines))


class Screens(unittest.TestCase):
    def test_every_way_into_the_help_screen(self):
        cases = [
            ([".", "--help"], b""),
            ([".", "-h"], b""),
            ([".", "/help"], b""),
            ([".", "/h"], b""),
            ([".", "/?"], b""),
            ([".", "-n=3", "--HELP"], b""),
            ([".", "-x"], b"Invalid flag -x. List of valid flags: \n"),
            ([".", "-"], b"Invalid flag -. List of valid flags: \n"),
            ([".", "--"], b"Invalid flag -\0. List of valid flags: \n"),
            ([".", "-=x"], b"Invalid flag -=. List of valid flags: \n"),
            ([".", "-n", "-5"], b"Invalid flag -5. List of valid flags: \n"),
            ([], FILE_MISSING),
            (["-h"], FILE_MISSING),
            (["not-there.txt", "-x"], NOT_THERE),
        ]
        if not programs.ON_WINDOWS:
            cases.append(([".", b"-\xfc"], b"Invalid flag -\xfc. List of valid flags: \n"))
        results = run_together(words for words, _ in cases)
        for (words, message), (status, output, errors) in zip(cases, results, strict=True):
            with self.subTest(words):
                self.assertEqual(output, ending_in_help(message))
                self.assertEqual(errors, b"")
                self.assertEqual(status, 0)

    @unittest.skipIf(programs.ON_WINDOWS, "a file that exists can be opened there unless another process has locked it")
    def test_a_file_that_exists_but_cannot_be_opened(self):
        with tempfile.TemporaryDirectory() as folder, socket.socket(socket.AF_UNIX) as listener:
            name = os.path.join(folder, "socket")
            listener.bind(name)
            status, output, _ = programs.run(TOOL, name)
        refusal = f"File {name} doesn't exist. Please insert a valid file name.\n"
        self.assertEqual((status, output), (0, ending_in_help(refusal.encode())))

    def test_acceptable_command_lines(self):
        cases = [
            (["."], report()),
            ([".", "-n", "--text"],
             report(number=b"12, search on from 3", text=b"<>, search on from 4", at=b"--number at 2, --text at 3")),
            (["-n=5", ".", "--TEXT=a b=c", "x"],
             report(number=b"5, search on from 2", text=b"<a b=c>, search on from 4", first=b"2",
                    arguments=(b".", b"x"))),
            (["*.no-such-file"], report(arguments=(b"*.no-such-file",))),
        ]
        results = run_together(words for words, _ in cases)
        for (words, expected), (status, output, errors) in zip(cases, results, strict=True):
            with self.subTest(words):
                self.assertEqual(output, expected)
                self.assertEqual(errors, b"")
                self.assertEqual(status, 0)


class Tokens(unittest.TestCase):
    """What the system passes as argv."""

    def check(self, words, expected):
        status, output, errors = programs.run(TOOL, ".", *words, env={**os.environ, "LC_ALL": "C.UTF-8"})
        self.assertEqual(output, expected)
        self.assertEqual(errors, b"")
        self.assertEqual(status, 0)

    def test_odd_tokens_arrive_whole(self):
        words = [
            b"", b" ", b"\t", b"  blanks around  ", b'say "hello"', b"it's", b"back\\slash", b"at the end\\",
            b"two\\\\", b'before a quote\\"', b"\\\\server\\share", b"=", b"=x", b"a=b", b"%PATH%", b"$HOME",
            b"*", b"?", b"*.txt", b"two\nlines", b"&|<>^", b"@file", b"/x", b"\x1b[31m", b"",
        ]
        self.check(words, report(arguments=[b".", *words]))

    @unittest.skipIf(programs.ON_WINDOWS, "argv is no byte string there")
    def test_bytes_arrive_as_they_are(self):
        words = ["\u00fc\u65e5\U0001f600".encode(), b"\xff\xfe", bytes(range(1, 256))]
        self.check(words, report(arguments=[b".", *words]))

    @unittest.skipUnless(programs.ON_WINDOWS, "argv is a byte string elsewhere")
    def test_text_arrives_in_the_code_page_of_the_system(self):
        self.check(["\u00fc"], report(arguments=(b".", b"\xfc")))

    def test_long_tokens_arrive_whole(self):
        # A Windows command line has at most 32767 characters.
        length = 15_000 if programs.ON_WINDOWS else 100_000
        argument, value = b"x" * length, b"y" * length
        self.check([argument, b"-t=" + value],
                   report(arguments=(b".", argument), text=b"<" + value + b">, search on from 4"))

    @unittest.skipIf(programs.ON_WINDOWS, "a Windows process always has a command line, whose first word is the program")
    def test_start_without_any_argv(self):
        # Linux 5.18 and newer pass one empty token; older versions pass none, so argc is 0.
        words = (ctypes.c_char_p * 1)(None)
        settings = [f"{name}={value}".encode() for name, value in os.environ.items()]
        environment = (ctypes.c_char_p * (len(settings) + 1))(*settings, None)
        program = next(os.path.join(folder, TOOL).encode() for folder in os.environ["PATH"].split(os.pathsep))
        libc = ctypes.CDLL(None)
        done = subprocess.run(["never started"], preexec_fn=lambda: libc.execve(program, words, environment),
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=60,
                              check=False)
        self.assertEqual(done.stdout, ending_in_help(FILE_MISSING).replace(b"screen_tool", b""))
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, 0)


class HalfSecond(unittest.TestCase):
    def read_help(self):
        """Returns the seconds from the start to the whole screen, and from there to the end of the process."""
        start = time.monotonic()
        words = programs.command(TOOL, ".", "-h")
        with subprocess.Popen(words, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE) as process:
            output = b""
            while len(programs.plain_line_ends(output)) < len(screens.HELP):
                piece = os.read(process.stdout.fileno(), 65536)
                self.assertNotEqual(piece, b"", "the process ended before its screen was whole")
                output += piece
            whole = time.monotonic()
            output += process.stdout.read()
            process.wait(timeout=60)
            end = time.monotonic()
        self.assertEqual(programs.plain_line_ends(output), ending_in_help(b""))
        return whole - start, end - whole

    def test_the_whole_screen_can_be_read_before_the_pause(self):
        # On a busy machine this script itself may read late and so see a shorter pause. One try in time is enough.
        tries = []
        for _ in range(5):
            to_screen, from_screen = self.read_help()
            self.assertGreaterEqual(to_screen + from_screen, 0.5)
            tries.append(from_screen)
            if from_screen >= 0.3:
                break
        self.assertGreaterEqual(max(tries), 0.3, f"seconds between screen and end: {tries}")
        self.assertLess(max(tries), 5.0)

    @unittest.skipIf(programs.ON_WINDOWS, "no signal interrupts a thread there")
    def test_signals_do_not_shorten_the_pause(self):
        start = time.monotonic()
        status, output, errors = programs.run(SYSTEM_TOOL, "screen")
        self.assertGreaterEqual(time.monotonic() - start, 0.5)
        self.assertRegex(output, rb"\n[1-9][0-9]* signals\n\Z")
        self.assertEqual((status, errors), (0, b""))


class FailingOutput(unittest.TestCase):
    def run_with_output(self, words, **options):
        return subprocess.run(words, stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, timeout=60, check=False,
                              **options)

    def test_full_disk(self):
        with open("/dev/full", "wb") as full:
            for words in ([".", "-h"], ["."]):
                with self.subTest(words):
                    done = self.run_with_output(programs.command(TOOL, *words), stdout=full)
                    self.assertEqual((done.returncode, done.stderr), (0, b""))

    def test_closed_output(self):
        for words in ([".", "-h"], ["."]):
            with self.subTest(words):
                done = self.run_with_output(programs.command_without_output(SYSTEM_TOOL, TOOL, *words),
                                            stdout=subprocess.PIPE)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"", b""))


if __name__ == "__main__":
    unittest.main()
