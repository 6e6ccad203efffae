#!/usr/bin/env python3
"""Programs that treat their streams in unusual ways, or continue after a wait that has left its reader running:
odd_program_test.py ODD_PROGRAM UNLOADING_PROGRAM WAITING_PLUGIN [PIPING_PROGRAM]"""

import subprocess
import sys
import unittest

import programs

ODD_PROGRAM, UNLOADING_PROGRAM, WAITING_PLUGIN = sys.argv[1:4]
# On Windows, gives the program a Windows pipe: wine cannot look into a Linux pipe.
PIPING_PROGRAM = sys.argv[4:]
del sys.argv[1:]

LIMIT_SECONDS = 60
FACE = (b"     _____\n    /     \\         drawn\n   /  * *  \\\n   >       <        25.0% #  |  \n   \\  ---  /\n"
        b"    \\_____/         time remaining: ")


def lines(message, seconds):
    """The output of one wait."""
    return f"{message}\n    Press key to continue -- otherwise wait for {seconds} seconds.\n".encode()


class Program(unittest.TestCase):
    def start(self, *words):
        """Starts a program whose standard input stays open."""
        process = subprocess.Popen(programs.command(*PIPING_PROGRAM, *words), stdin=subprocess.PIPE,
                                   stdout=subprocess.PIPE, stderr=subprocess.PIPE)
        self.addCleanup(self.end, process)
        return process

    @staticmethod
    def end(process):
        with process:
            process.kill()

    @staticmethod
    def unless_killed(once):
        """Returns the result of a function, which begins with a program's status; repeats it if wine has killed the program."""
        result = once()
        return once() if result[0] == programs.KILLED_BY_WINE else result

    def check(self, command, expected, keys=b""):
        def once():
            process = self.start(ODD_PROGRAM, command)
            process.stdin.write(keys)
            process.stdin.flush()
            status = process.wait(timeout=LIMIT_SECONDS)
            return status, *(programs.plain_line_ends(pipe.read()) for pipe in (process.stdout, process.stderr))
        self.assertEqual(self.unless_killed(once), expected)


class Output(Program):
    def check_drawn(self, command):
        status, output, errors = programs.run(ODD_PROGRAM, command)
        self.assertEqual(status, 0)
        face, bar = output[:len(FACE)], output[len(FACE):]
        self.assertEqual(face, FACE)
        self.assertRegex(bar, rb"\A[0-9]+ [a-z]+ +\ndrawn 25\.0% #  \|\r\Z")
        self.assertRegex(errors, rb"\A1[0-9][0-9]\n0\n0\n\Z")

    def test_is_drawn_where_the_stream_is_muted(self):
        self.check_drawn("muted-output")

    def test_is_drawn_where_the_stream_throws(self):
        self.check_drawn("throwing-output")

    def test_of_another_thread_is_neither_lost_nor_repeated(self):
        expected = b"".join(b"line %d\n" % number for number in range(100000))
        status, output, errors = programs.run(ODD_PROGRAM, "print-beside-the-face")
        self.assertEqual((status, errors), (0, b""))
        self.assertTrue(output == expected, f"{output.count(bytes([10]))} lines, {len(output)} bytes")


class AfterAWait(Program):
    LEFT = lines("left", 0)

    def test_streams_are_flushed(self):
        self.check("flush", (0, self.LEFT, b"0\n"))

    def test_streams_are_flushed_after_the_buffer_is_empty(self):
        self.check("flush-after-pushed-back", (0, self.LEFT, b"0\n"), b"a")
        self.check("flush-after-pushed-back-and-buffer", (0, self.LEFT, b"0\n"), b"ab")

    def test_the_input_is_opened_again(self):
        self.check("reopen", (0, self.LEFT, b"1\n"))

    def test_any_thread_ends_the_process(self):
        self.check("exit", (7, self.LEFT, b""))

    def test_a_command_runs(self):
        self.check("system", (0, self.LEFT, b"0\n"))

    def test_the_library_is_unloaded_before_the_next_key(self):
        def once():
            process = self.start(UNLOADING_PROGRAM, WAITING_PLUGIN)
            output = b"".join(process.stdout.readline() for _ in range(3))
            self.assertEqual(programs.plain_line_ends(output), self.LEFT + b"unloaded\n")
            process.stdin.write(b"a")
            process.stdin.flush()
            return process.wait(timeout=LIMIT_SECONDS), programs.plain_line_ends(process.stdout.read())
        self.assertEqual(self.unless_killed(once), (0, b"ended\n"))


class Input(Program):
    def test_that_has_failed_counts_as_a_key(self):
        self.check("failed-input", (0, lines("failed", 600), b""))

    def test_that_throws_counts_as_a_key(self):
        self.check("throwing-input", (0, lines("throwing", 600), b""))

    def test_that_has_ended_sets_the_stream_to_its_end(self):
        for command in ("end-of-input", "end-of-unsynchronized-input"):
            self.assertEqual(programs.run(ODD_PROGRAM, command), (0, lines("ended", 600), b"1\n"), command)

    def test_that_the_program_has_closed_counts_as_a_key(self):
        self.check("closed-input", (0, lines("closed", 600), b"1\n"))
        self.check("closed-by-the-stream", (0, lines("closed", 600), b"1\n"))

    def check_buffered(self, command, printed, waits):
        """Each wait ends while the input is empty and open; then the program prints the rest."""
        def once():
            process = self.start(ODD_PROGRAM, command)
            process.stdin.write(b"abcd")
            process.stdin.flush()
            for _ in range(waits):
                self.assertEqual(programs.plain_line_ends(process.stderr.readline()), b"1\n")
            process.stdin.close()
            return process.wait(timeout=LIMIT_SECONDS), programs.plain_line_ends(process.stdout.read())
        self.assertEqual(self.unless_killed(once), (0, printed))

    def test_in_the_buffer_of_the_c_library_is_taken_first(self):
        self.check_buffered("buffered-by-c", b"a\n" + lines("buffered", 20) + b"cd", 1)

    def test_that_was_pushed_back_is_taken_first(self):
        self.check_buffered("pushed-back", lines("pushed back", 20) + lines("buffered", 20) + b"cd", 2)

    def test_in_the_buffer_of_the_stream_is_taken_first(self):
        self.check_buffered("buffered-by-the-stream", b"a\n" + 3 * lines("buffered", 20), 3)

    def test_of_an_unsynchronized_stream_loses_one_character(self):
        self.assertEqual(programs.run(ODD_PROGRAM, "nothing-buffered-by-the-stream", stdin=None, input=b"abcd"),
                         (0, lines("unbuffered", 600) + b"bcd", b""))


if __name__ == "__main__":
    unittest.main()
