"""The slice tool: its help, the lines that it writes, what it refuses, and errors of the system."""

import os
import signal
import subprocess
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only

if not programs.ON_WINDOWS:
    import resource

HELP = b"""\
usage: slice (-tr=FROM:TO | -sr=FROM:TO) [-r] [-n=COUNT] [-o=FILE [-f]]
             (-i=FILE | FILE)...

Writes the lines whose time or line number is in a range, including both ends.

  -tr=FROM:TO, --timerange=FROM:TO   the range of times, two numbers
  -sr=FROM:TO, --steprange=FROM:TO   the range of line numbers, from 1
  -r        counts times from the first time in each file
  -n=COUNT  stops after COUNT lines
  -o=FILE   writes to FILE instead of standard output
  -f        overwrites FILE
  -i=FILE   reads FILE, before the files that are named without -i
  -h, --help  shows this help

A value follows its flag and "=", as in -n=5. Files are read one after the
other; line numbers start at 1 in each file.

A line begins with its time; blanks and "[" may precede it. A time is
  a number                    0.25  1e-3  1700000000
  a clock time                12:34:56  12:34:56.7
                              the seconds since midnight, here 45296
  a date, or date and time    2026-11-21  2026-11-21T12:34:56.7+01:00
                              the seconds since 1970 (date -u +%s -d TIME);
                              without Z or an offset, the time is UTC
and ends at a blank, a comma, a semicolon, "]" or the end of the line. A line
without a time belongs to the line before it. Lines before the first time are
not written.

Exit status: 0 if lines were written, 1 after an error, 2 if the command line is
refused, 3 if no line is in the range. The FILE of -o is then unchanged.
"""

# The beginning of a line, its time.
TIMES = [
    ("0", "0"), ("0.25 x", "0.25"), ("1e-3,5", "0.001"), ("-4;x", "-4"), ("+7]", "7"), (".5\t1", "0.5"), ("5. x", "5"),
    ("1700000000\tx", "1700000000"), ("[    0.000123] Linux", "0.000123"), (" [7] x", "7"), ("\t 3 4", "3"),
    ("00:00:00", "0"), ("12:34:56 x", "45296"), ("12:34:56.7,x", "45296.7"), ("1:02:03", "3723"),
    ("23:59:60", "86400"), ("23:59:59.999999999", "86399.999999999"), ("12:34:56,7", "45296"),
    ("1970-01-01T00:00:00Z", "0"), ("1969-12-31T23:59:58.5Z", "-1.5"), ("1969-12-31 23:59:58", "-2"),
    ("2026-11-21", "1795219200"), ("2026-11-21,5", "1795219200"), ("2026-11-21 status", "1795219200"),
    ("2026-11-21 12:34:56: x", "1795264496"), ("12:34:56: x", "45296"), ("2026-11-21 12:34:56", "1795264496"),
    ("2026-11-21T12:34:56", "1795264496"), ("2026-11-21T12:34:56.75Z", "1795264496.75"),
    ("[2026-11-21T12:34:56]", "1795264496"), ("2026-11-21T12:34:56+01:00", "1795260896"),
    ("2026-11-21T12:34:56+01 x", "1795260896"), ("2026-11-21 12:34:56.7-0530", "1795284296.7"),
    ("2024-02-29", "1709164800"), ("2000-02-29", "951782400"), ("1900-03-01", "-2203891200"),
    ("2024-12-31", "1735603200"), ("2100-02-28", "4107456000"), ("2100-03-01", "4107542400"),
    ("0001-01-01", "-62135596800"), ("9999-12-31T23:59:59Z", "253402300799"),
    (98 * " " + "15", "15"), (99 * " " + "15", "1"),
]

NO_TIMES = [
    "", "x 1", "nan", "inf", "0x10", "1_000", "12abc", "--5", "+", ".", "e5", "1e999", "(1)", "[", "]", ",1", "1:2",
    "2026-11-21 25:00:00", "2026-11-21 12:34 x", "2026-11-21 12:34:56-0x m",
    "12:34", "12:34:5", "24:00:00", "12:60:00", "12:34:61", "12:34:56.", "12:34:56:7", "12:34:56Z", "1:2:3", "123:00:00",
    "2026-13-01", "2026-00-10", "2026-02-29", "1900-02-29", "2026-04-31", "2026-11-00", "2026-11-32", "0000-01-01",
    "2026-11-21T", "2026-11-21T25:00:00", "2026-11-21Z", "26-11-21", "2026-1-1", "2026/11/21",
    "2026-11-21T12:34:56+1", "2026-11-21T12:34:56+24:00", "2026-11-21T12:34:56+01:", "2026-11-21T12:34:56+01:60",
    100 * " " + "1",
]

# table has lines 1 to 5; other has lines 1 to 3, the last without a line end; empty has none.
STEPS = [
    (["-sr=1:1", "table"], b"1 a\n"), (["-sr=5:5", "table"], b"5 e\n"), (["-sr=2:4", "table"], b"2 b\n3 c\n4 d\n"),
    (["-sr=4:2000000000", "table"], b"4 d\n5 e\n"), (["--steprange=005:6", "table"], b"5 e\n"),
    (["-sr=3:9", "other"], b"other 3\n"), (["-sr=3:3", "other", "table"], b"other 3\n3 c\n"),
    (["table", "-sr=1:1", "-i=other", "empty", "-I=table"], b"other 1\n1 a\n1 a\n"),
    (["-n=1", "-sr=2:4", "table"], b"2 b\n"), (["-N=3", "-sr=2:4", "table"], b"2 b\n3 c\n4 d\n"),
    (["-n=4", "-sr=2:4", "table", "other"], b"2 b\n3 c\n4 d\nother 2\n"),
    (["-n=2000000000", "-sr=5:6", "table"], b"5 e\n"), (["-n=1", "-sr=2:4", "table", "nowhere"], b"2 b\n"),
]

RANGES = [
    (["-tr=2:4", "table"], b"2 b\n3 c\n4 d\n"), (["-tr=1.9:2.1", "table"], b"2 b\n"),
    (["-tr=-1:1", "table"], b"1 a\n"), (["--timerange=4.5:1e9", "table"], b"5 e\n"),
    (["-tr=0:9", "-n=2", "table", "table"], b"1 a\n2 b\n"), (["-tr=2:2", "table", "other", "table"], b"2 b\n2 b\n"),
    (["-r", "-tr=0:1", "table"], b"1 a\n2 b\n"), (["-r", "-tr=3.9:4", "table"], b"5 e\n"),
    (["-tr=0:9", "log"], b"0.1 begins\n  more\n\n0.2 warns\n0.3 ends\n"),
    (["-tr=-1:0.9", "table", "log"], b"0.1 begins\n  more\n\n0.2 warns\n0.3 ends\n"),
    (["-tr=0.2:0.2", "log"], b"0.2 warns\n"), (["-tr=0:0.1", "log"], b"0.1 begins\n  more\n\n"),
    # As doubles, 0.3 - 0.1 is not 0.2.
    (["-r", "-tr=0.2:0.2", "log"], b"0.3 ends\n"), (["-r", "-tr=0.1:0.2", "log"], b"0.2 warns\n0.3 ends\n"),
    (["-r", "-tr=0:0", "log", "table"], b"0.1 begins\n  more\n\n1 a\n"),
    (["-r", "-tr=60:60", "clock"], b"2026-11-21 13:00:00 later\n"),
]

NOTHING = [
    (["-sr=6:9", "table"], b"no such line; the last line of the longest file is 5"),
    (["-sr=1:9", "empty"], b"the input has no lines"),
    (["-sr=6:9", "other", "table", "empty"], b"no such line; the last line of the longest file is 5"),
    (["-tr=5.1:6", "table"], b"no time is in the range; the times are in 1:5"),
    (["-tr=2.5:2.6", "table"], b"no time is in the range; the times are in 1:5"),
    (["-r", "-tr=4.1:6", "table"], b"no time is in the range; the times are in 0:4"),
    (["-tr=7:8", "table", "log"], b"no time is in the range; the times are in 0.1:5"),
    (["-tr=0:9", "other"], b"no line begins with a time; -sr selects lines by their numbers"),
    (["-tr=0:9", "empty", "empty"], b"the input has no lines"),
]


class SliceTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("table", b"1 a\n2 b\n3 c\n4 d\n5 e\n")
        self.write("other", b"other 1\nother 2\nother 3")
        self.write("empty", b"")
        self.write("log", b"began today\n0.1 begins\n  more\n\n0.2 warns\n0.3 ends\n")
        self.write("clock", b"2026-11-21 12:59:00 sooner\n2026-11-21 13:00:00 later\n")

    def check_nothing(self, reason, *arguments):
        before = self.contents()
        self.assertEqual((3, b"", b"slice: " + reason + b"\n"), self.tool(*arguments))
        self.assertEqual(before, self.contents())

    def test_help(self):
        for arguments in (["-h"], ["--help"], ["-H", "-tr=1:2", "nowhere"], ["-tr=x", "-h", "-h"]):
            with self.subTest(arguments=arguments):
                self.check(HELP, *arguments)

    def test_times(self):
        for line, time in TIMES:
            with self.subTest(line=line, time=time):
                self.write("line", line.encode())
                self.check(line.encode() + b"\n", f"-tr={time}:{time}", "line")

    def test_no_times(self):
        for line in NO_TIMES:
            with self.subTest(line=line):
                self.write("line", line.encode() + b"\n")
                self.check_nothing(b"no line begins with a time; -sr selects lines by their numbers", "-tr=-1e300:1e300", "line")

    def test_selections(self):
        for arguments, lines in STEPS + RANGES:
            with self.subTest(arguments=arguments):
                self.check(lines, *arguments)

    def test_nothing_found(self):
        for arguments, reason in NOTHING:
            with self.subTest(arguments=arguments):
                self.check_nothing(reason, *arguments)
                self.write("out", b"old")
                self.check_nothing(reason, *arguments, "-o=out", "-f")
                (self.folder / "out").unlink()
                self.check_nothing(reason, *arguments, "-o=out")

    def test_long_lines(self):
        # The tool has a buffer of 65536 bytes for a line.
        for size in (65534, 65535, 65536, 65537, 131069, 131070, 131071, 1000000):
            for end in (b"", b"\n", b"\nlast", b"\n\n"):
                with self.subTest(size=size, end=end):
                    line = b"7 " + (size - 2) * b"x"
                    self.write("long", b"6\n" + line + end)
                    self.check(line + b"\n", "-sr=2:2", "long")
                    self.check(line + (b"\nlast\n" if end == b"\nlast" else b"\n\n" if end == b"\n\n" else b"\n"),
                               "-tr=7:7", "long")

    def test_bytes_of_output_file(self):
        text = b"1\r\n2 \x00\x1a\xff\r\n3\r"
        self.write("in", text)
        self.check(b"lines: 3, output: out\n", "-o=out", "-sr=1:9", "in")
        self.assertEqual(text + b"\n", self.contents()["out"])
        self.check(b"lines: 1, output: out\n", "-O=out", "-F", "-tr=2:2", "in")
        self.assertEqual(b"2 \x00\x1a\xff\r\n", self.contents()["out"])

    def test_line_ends_of_standard_output(self):
        self.write("in", b"1\r\n2\r\n")
        self.assertEqual((0, b"1\n2\n" if programs.ON_WINDOWS else b"1\r\n2\r\n", b""), self.tool("-sr=1:2", "in"))

    def test_scanners_print_nothing(self):
        self.assertEqual((0, b"1 a\n", b""), self.tool("-sr=1:2", "-n=1", "table", env={**os.environ, "K_VERBOSITY": "11"}))

    @native_only
    def test_name_in_utf8(self):
        self.write("gr\u00fcn", b"1\n")
        self.check(b"1\n", "-sr=1:1", "-i=gr\u00fcn")

    @native_only
    def test_program_path_that_looks_like_a_flag(self):
        for path in ("-h", "-tr=1:2", "-n=1", "-i=x"):
            with self.subTest(path):
                self.assertEqual((0, b"2 b\n3 c\n", b""), programs.run(
                    path, "-tr=2:3", "-i=table", cwd=self.folder, executable=PROGRAM))

    @native_only
    def test_pipe(self):
        with open(self.folder / "table", "rb") as table:
            self.assertEqual((0, b"3 c\n", b""), self.tool("-sr=3:3", "/dev/stdin", stdin=table))


# Refusals.

REFUSED_FLAGS = [
    ([], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 FILE"),
    (["table"], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 table"),
    (["-n=5", "-i=table", "other"], b"which lines? Give -tr or -sr, as in: slice -sr=1:10 other"),
    (["-tr=1:2"], b"no input file is named"),
    (["-tr=1:2", "-sr=1:2", "table"], b"-tr and -sr cannot be combined"),
    (["--timerange=1:2", "--steprange=1:2", "table"], b"-tr and -sr cannot be combined"),
    (["-tr=1:2", "--timerange=1:2", "table"], b"-tr is given twice"),
    (["-sr=1:2", "-sr=1:2", "table"], b"-sr is given twice"),
    (["-sr=1:2", "-n=1", "-N=2", "table"], b"-n is given twice"),
    (["-sr=1:2", "-o=a", "-o=b", "table"], b"-o is given twice"),
    (["-sr=1:2", "-f", "-f", "table"], b"-f is given twice"),
    (["-sr=1:2", "-r", "table"], b"-r requires -tr"),
    (["-sr=1:2", "-f", "table"], b"-f requires -o"),
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
    (["-tr=0:1e999", "table"], b"-tr=0:1e999: not a range FROM:TO of numbers from -1.7976931348623157e+308 to "
     b"1.7976931348623157e+308, the lower one first"),
    (["-sr=1:2", ""], b"a file name is empty"),
    (["=-tr=1:2", "-tr=3:4", "table"], b"=-tr=1:2: a name that begins with \"=\" needs its folder, as in ./=-tr=1:2"),
]

BAD_TIMES = [":", "1", "1:", ":2", "1:2:3", "1::2", "=1:2", "1:2=", "a:b", "1x:2", "1:2x", " 1:2", "1: 2", "nan:1",
             "0:inf", "12:34:56:12:35:00", "0x1:2", "1,5:2", "--1:2",
             "2:1", "0.5:0.4999", "1:-1"]
BAD_STEPS = [":", "1", "1:", ":2", "1:2:3", "1::2", "=1:2", "1:2=", "a:b", "1x:2", "-1:2", "1:-2", "1.0:2", "1e1:20",
             " 1:2", "2:1", "2000000000:1", "0:1", "0:0", "1:2000000001", "1:2147483647", "1:99999999999", "99999999999:99999999999"]
BAD_COUNTS = ["0", "00", "-1", "1.5", "abc", "12abc", " 1", "1 ", "=1", "5=", "1e3", "2000000001", "2147483647",
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
    (["-sr=1:2", "-o=gone/out", "table"], b"cannot create gone/out.unfinished: No such file or directory"),
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
                self.check_usage(problem, *arguments)

    def test_times(self):
        for text in BAD_TIMES:
            with self.subTest(text):
                self.check_usage(f"-tr={text}: not a range FROM:TO of numbers, the lower one first".encode(), f"-tr={text}",
                                 "table")

    def test_steps(self):
        for text in BAD_STEPS:
            with self.subTest(text):
                self.check_usage(f"-sr={text}: not a range FROM:TO of whole numbers from 1 to 2000000000, "
                                 "the lower one first".encode(), f"-sr={text}", "table")

    def test_counts(self):
        for text in BAD_COUNTS:
            with self.subTest(text):
                self.check_usage(f"-n={text}: not a whole number from 1 to 2000000000".encode(), f"-n={text}", "-sr=1:2",
                                 "table")

    def test_files(self):
        for arguments, problem in REFUSED_FILES:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_missing_file_after_others(self):
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
        for arguments in (["-tr=1:1", "long"], ["-tr=1:1", "short"]):
            with self.subTest(arguments):
                self.assertEqual((1, b"slice: cannot write standard output: No space left on device\n"),
                                 self.tool_on_full_disk(*arguments))
        self.assertEqual((1, b"slice: standard output cannot be written\n"), self.tool_on_full_disk("-h"))

    def test_reader_that_goes_away(self):
        with subprocess.Popen([PROGRAM, "-tr=1:1", "long"], cwd=self.folder, stdout=subprocess.PIPE,
                              stderr=subprocess.PIPE) as tool:
            tool.stdout.close()
            self.assertEqual((b"", -signal.SIGPIPE), (tool.stderr.read(), tool.wait()))

    def test_ending_signals(self):
        # One line, and then a hole in the file that takes seconds to read.
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
