"""Signals that a tool of the kit does not look for. The argument is the path of interruption_tool."""

import fcntl
import os
import pathlib
import resource
import signal
import struct
import subprocess
import sys
import tempfile
import termios
import time
import unittest

PROGRAM = sys.argv.pop()


class Interruptions(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)
        os.mkfifo(self.folder / "input")
        # A writer that stays silent.
        writer = os.open(self.folder / "input", os.O_RDWR)
        self.addCleanup(os.close, writer)

    def start(self, *arguments):
        def prepare():
            # The test may run with ignored signals, as under nohup.
            for number in (signal.SIGHUP, signal.SIGINT, signal.SIGQUIT, signal.SIGTERM):
                signal.signal(number, signal.SIG_DFL)
            resource.setrlimit(resource.RLIMIT_CORE, (0, 0))
        tool = subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                stderr=subprocess.PIPE, preexec_fn=prepare)
        self.addCleanup(tool.wait)
        for stream in (tool.stdin, tool.stdout, tool.stderr):
            self.addCleanup(stream.close)
        self.addCleanup(tool.kill)
        return tool

    def start_writing(self, *arguments):
        tool = self.start(*arguments)
        self.assertEqual(tool.stdout.readline(), b"ready\n")
        self.assertTrue((self.folder / "result.unfinished").exists())
        return tool

    def check_ended(self, tool, number):
        self.assertEqual(tool.wait(60), -number)
        self.assertEqual(sorted(os.listdir(self.folder)), ["input"])

    def test_one_signal(self):
        for how in ("read", "compute", "thread"):
            with self.subTest(how):
                tool = self.start_writing(how, "input")
                tool.send_signal(signal.SIGTERM)
                self.check_ended(tool, signal.SIGTERM)

    def test_writing_little(self):
        tool = self.start_writing("write", "input")
        tool.send_signal(signal.SIGTERM)
        self.check_ended(tool, signal.SIGTERM)
        # In order, not by force.
        self.assertEqual(tool.stderr.read(), b"interruption_tool: interrupted\n")

    def test_without_an_output_file(self):
        tool = self.start("wait", "input")
        self.assertEqual(tool.stdout.readline(), b"ready\n")
        tool.send_signal(signal.SIGTERM)
        self.check_ended(tool, signal.SIGTERM)

    @staticmethod
    def has_noted_a_signal(tool):
        """Whether the tool handles SIGALRM, as it does after the first signal."""
        status = pathlib.Path(f"/proc/{tool.pid}/status").read_text()
        return int(status.split("SigCgt:")[1].split()[0], 16) >> (signal.SIGALRM - 1) & 1 == 1

    def test_second_signal(self):
        for how in ("read", "compute", "thread"):
            for second in (signal.SIGINT, signal.SIGQUIT):
                with self.subTest(how=how, second=second):
                    tool = self.start_writing(how, "input")
                    tool.send_signal(signal.SIGINT)
                    # Two signals that wait at the same time may arrive in any order, or count as one.
                    while not self.has_noted_a_signal(tool):
                        time.sleep(0.001)
                    started = time.monotonic()
                    tool.send_signal(second)
                    self.check_ended(tool, signal.SIGINT)
                    self.assertLess(time.monotonic() - started, 1.5)

    def test_lost_reader(self):
        # Writing several times without a reader is no second request to end.
        tool = self.start_writing("thread", "input")
        tool.stdout.close()
        self.assertEqual(tool.wait(60), -signal.SIGPIPE)
        self.assertEqual(tool.stderr.read(), b"")
        self.assertEqual(sorted(os.listdir(self.folder)), ["input"])

    def test_alarm_keeps_its_meaning(self):
        tool = self.start_writing("compute", "input")
        tool.send_signal(signal.SIGALRM)
        self.assertEqual(tool.wait(60), -signal.SIGALRM)

    def test_input_that_a_signal_cuts_short(self):
        tool = self.start("count", "input")
        tool.stdin.write(b"a\nb\n")
        tool.stdin.flush()
        while struct.unpack("i", fcntl.ioctl(tool.stdin, termios.FIONREAD, bytes(4)))[0] > 0:
            time.sleep(0.001)
        tool.send_signal(signal.SIGTERM)
        output, errors = tool.communicate(timeout=60)
        # The count is wrong, and the status says so.
        self.assertEqual((tool.returncode, output, errors),
                         (-signal.SIGTERM, b"lines: 2\n", b"interruption_tool: interrupted\n"))


if __name__ == "__main__":
    unittest.main()
