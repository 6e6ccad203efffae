"""The slice tool when something is wrong: what it says, and that nothing is lost or left behind."""

import os
import signal
import subprocess
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only

if not programs.ON_WINDOWS:
    import resource

REFUSED_FLAGS = [
    ([], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 FILE"),
    (["table"], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 table"),
    (["-n=5", "-i=table", "other"], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 other"),
    (["-tr=1:2"], b"no file to read is named"),
    (["-tr=1:2", "-sr=1:2", "table"], b"-tr and -sr cannot be combined"),
    (["--timerange=1:2", "--steprange=1:2", "table"], b"-tr and -sr cannot be combined"),
    (["-tr=1:2", "--timerange=1:2", "table"], b"-tr is given twice"),
    (["-sr=1:2", "-sr=1:2", "table"], b"-sr is given twice"),
    (["-sr=1:2", "-n=1", "-N=2", "table"], b"-n is given twice"),
    (["-sr=1:2", "-o=a", "-o=b", "table"], b"-o is given twice"),
    (["-sr=1:2", "-f", "-f", "table"], b"-f is given twice"),
    (["-sr=1:2", "-r", "table"], b"-r counts times and goes with -tr"),
    (["-sr=1:2", "-f", "table"], b"-f overwrites a file and goes with -o"),
    (["-TR=1:2", "table"], b"-TR=1:2: no such flag"),
    (["--TimeRange=1:2", "table"], b"--TimeRange=1:2: no such flag"),
    (["--HELP"], b"--HELP: no such flag"),
    (["-help"], b"-help: no such flag"),
    (["-hist=1", "table"], b"-hist=1: no such flag"),
    (["-h=1"], b"-h=1: this flag takes no value"),
    (["-tr=1:2", "-r=", "table"], b"-r=: this flag takes no value"),
    (["-sr=1:2", "-f=1", "-o=x", "table"], b"-f=1: this flag takes no value"),
    (["-sr=1:2", "-output=x", "table"], b"-output=x: no such flag"),
    (["-sr=1:2", "-oout", "table"], b"-oout: no such flag"),
    (["-sr=1:2", "-n5", "table"], b"-n5: no such flag"),
    (["-sr=1:2", "-itable"], b"-itable: no such flag"),
    (["-sr=1:2", "-o", "out", "table"], b"-o: this flag needs a value after \"=\""),
    (["-sr=1:2", "-o=", "table"], b"-o=: this flag needs a value after \"=\""),
    (["-sr=1:2", "-i=", "table"], b"-i=: this flag needs a value after \"=\""),
    (["-tr", "1:2", "table"], b"-tr: this flag needs a value after \"=\""),
    (["-sr=1:2", "table", "-"], b"-: no such flag"),
    (["-sr=1:2", "--", "table"], b"--: no such flag"),
    (["-sr=1:2", "-5", "table"], b"-5: no such flag"),
    (["-sr=1:2", "-=5", "table"], b"-=5: no such flag"),
    (["-sr=1:2", ""], b"the name of a file is empty"),
    (["=-tr=1:2", "-tr=3:4", "table"], b"=-tr=1:2: a name that begins with \"=\" needs its folder, as in ./=-tr=1:2"),
]

BAD_TIMES = [":", "1", "1:", ":2", "1:2:3", "1::2", "=1:2", "1:2=", "a:b", "1x:2", "1:2x", " 1:2", "1: 2", "nan:1",
             "0:inf", "0:1e999", "12:34:56:12:35:00", "0x1:2", "1,5:2", "--1:2"]
BAD_STEPS = [":", "1", "1:", ":2", "1:2:3", "1::2", "=1:2", "1:2=", "a:b", "1x:2", "-1:2", "1:-2", "+1:2", "1.0:2", "1e1:20",
             " 1:2"]
STEPS_OUT_OF_RANGE = ["0:1", "0:0", "1:2000000001", "1:2147483647", "1:99999999999", "99999999999:99999999999"]
BAD_COUNTS = ["0", "00", "-1", "+1", "1.5", "abc", "12abc", " 1", "1 ", "=1", "5=", "1e3", "2000000001", "2147483647",
              "2147483648", "99999999999999999999"]

REFUSED_FILES = [
    (["-sr=1:2", "nowhere"], b"cannot read nowhere: No such file or directory"),
    (["-sr=1:2", "-i=sub/nowhere"], b"cannot read sub/nowhere: No such file or directory"),
    (["-sr=1:2", "-o=out", "table", "nowhere"], b"cannot read nowhere: No such file or directory"),
    (["-sr=1:2", "sub"], b"sub is a directory"),
    (["-sr=1:2", "-o=sub", "table"], b"sub is a directory"),
    (["-sr=1:2", "-f", "-o=sub", "table"], b"sub is a directory"),
    (["-sr=1:2", "-o=other", "table"], b"other exists already; -f overwrites it"),
    (["-sr=1:2", "-o=table", "table"], b"table is an input too; choose another name"),
    (["-sr=1:2", "-f", "-o=table", "other", "-i=sub/../table"], b"table is an input too; choose another name"),
    (["-sr=1:2", "-o=left", "table"], b"left.unfinished exists already; remove it unless another run is writing it"),
    (["-sr=1:2", "-f", "-o=left", "table"], b"left.unfinished exists already; remove it unless another run is writing it"),
    (["-sr=1:2", "-o=kept", "table"], b"kept.replaced exists already; move it away first"),
    (["-sr=1:2", "-o=gone/out", "table"], b"cannot create gone/out: No such file or directory"),
]


class RefusalTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        (self.folder / "sub").mkdir()
        for name, data in [("table", b"1 a\n2 b\n"), ("other", b"3 c\n"), ("left.unfinished", b"half"),
                           ("kept.replaced", b"old")]:
            self.write(name, data)

    def test_flags(self):
        for arguments, problem in REFUSED_FLAGS:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_times(self):
        for text in BAD_TIMES:
            with self.subTest(text):
                self.check_refusal(f"-tr={text}: not two numbers as in -tr=0.5:12".encode(), f"-tr={text}", "table")

    def test_steps(self):
        for text in BAD_STEPS:
            with self.subTest(text):
                self.check_refusal(f"-sr={text}: not two line numbers as in -sr=10:20".encode(), f"-sr={text}", "table")
        for text in STEPS_OUT_OF_RANGE:
            with self.subTest(text):
                self.check_refusal(f"-sr={text}: line numbers go from 1 to 2000000000".encode(), f"-sr={text}", "table")

    def test_reversed_ranges(self):
        for text in ("-tr=2:1", "-tr=0.5:0.4999", "-tr=1:-1", "-sr=2:1", "-sr=2000000000:1"):
            with self.subTest(text):
                self.check_refusal(f"{text}: the range ends before it begins".encode(), text, "table")

    def test_counts(self):
        for text in BAD_COUNTS:
            with self.subTest(text):
                self.check_refusal(f"-n={text}: not a whole number from 1 to 2000000000".encode(), f"-n={text}",
                                   "-sr=1:2", "table")

    def test_files(self):
        for arguments, problem in REFUSED_FILES:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_missing_file_behind_others(self):
        self.assertEqual((1, b"1 a\n", b"slice: cannot read nowhere: No such file or directory\n"),
                         self.tool("-sr=1:1", "table", "nowhere", "table"))


@native_only
class SystemErrorTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("long", 100000 * b"1 line\n")
        self.write("short", 200 * b"1 line\n")

    def test_special_files(self):
        self.check_refusal(b"/dev/null is not a regular file", "-sr=1:2", "-f", "-o=/dev/null", "short")
        self.check_refusal(b"cannot read /proc/self/mem: Input/output error", "-sr=1:2", "-o=out", "/proc/self/mem")

    def test_file_size_limit(self):
        self.write("old", b"old")
        for name in ("long", "short"):
            with self.subTest(name):
                self.check_refusal(b"cannot write old: File too large", "-tr=1:1", "-f", "-o=old", name,
                                   preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (1000, 1000)))

    def test_full_standard_output(self):
        for name in ("long", "short"):
            with self.subTest(name), open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, "-tr=1:1", name], cwd=self.folder, stdout=full, stderr=subprocess.PIPE,
                                      timeout=60, check=False)
                self.assertEqual((1, b"slice: cannot write standard output: No space left on device\n"),
                                 (done.returncode, done.stderr))
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, "-h"], stdout=full, stderr=subprocess.PIPE, timeout=60, check=False)
        self.assertEqual((1, b"slice: cannot write standard output: No space left on device\n"),
                         (done.returncode, done.stderr))

    def test_reader_that_goes_away(self):
        with subprocess.Popen([PROGRAM, "-tr=1:1", "long"], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as tool:
            tool.stdout.close()
            self.assertEqual((b"", -signal.SIGPIPE), (tool.stderr.read(), tool.wait()))

    def test_ending_signals(self):
        # It has one line and then no bytes on the disk, only a size that takes seconds to read.
        with open(self.folder / "huge", "wb") as huge:
            huge.write(b"1 line\n")
            huge.truncate(20 * 2**30)
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                with subprocess.Popen([PROGRAM, "-tr=1:1", "-o=out", "huge"], cwd=self.folder, stdout=subprocess.PIPE,
                                      stderr=subprocess.PIPE) as tool:
                    while not (self.folder / "out.unfinished").exists():
                        self.assertIsNone(tool.poll())
                    tool.send_signal(number)
                    self.assertEqual((b"", b"slice: interrupted\n"), tool.communicate())
                    self.assertEqual(-number, tool.returncode)
                self.assertEqual(["huge", "long", "short"], sorted(os.listdir(self.folder)))

    def test_signal_while_the_input_waits(self):
        os.mkfifo(self.folder / "pipe")
        with subprocess.Popen([PROGRAM, "-tr=1:1", "-o=out", "pipe"], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as tool, open(self.folder / "pipe", "wb", buffering=0):
            tool.send_signal(signal.SIGINT)
            self.assertEqual(-signal.SIGINT, tool.wait(timeout=30))


if __name__ == "__main__":
    unittest.main()
