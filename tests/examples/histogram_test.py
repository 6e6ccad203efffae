"""The histogram tool: its help screen, counting and drawing, refusals, and errors of the system."""

import os
import re
import signal
import subprocess
import tempfile
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only, preloaded

if not programs.ON_WINDOWS:
    import resource

SCREEN = (
    b"\n"
    b"\033[34m####################################\033[0m\n"
    b"\033[37m\thistogram\033[0m\n"
    b"\033[37m     Bars of numbers\033[0m\n"
    b"\033[34m####################################\033[0m\n"
    b"\n"
    b"\033[36mCounts the numbers of a text file into bins.\033[0m\n"
    b"\033[36mUsage:\033[0m\n"
    b"  histogram [-r=FROM:TO] [-b=COUNT] [-c=COLUMNS] [-o=TABLE [-f]] [-v] FILE  or  -e=EDGES ... FILE\n"
    b"\n"
    b"\033[36mOptions:\033[0m\n"
    b"  \033[34m-b, --bins:\033[0m divides the range into COUNT bins of the same width (default: 10)\n"
    b"\n"
    b"  \033[34m-c, --columns:\033[0m counts only these columns, as in 1,3 (default: all); blanks, commas and "
    b"semicolons separate columns\n"
    b"\n"
    b"  \033[34m-e, --edges:\033[0m the edges of the bins, instead of -r and -b, as in 0:1:2.5:10\n"
    b"\n"
    b"  \033[34m-f, --force:\033[0m overwrites TABLE\n"
    b"\n"
    b"  \033[34m-h, --help:\033[0m shows this help\n"
    b"\n"
    b"  \033[34m-o, --output:\033[0m writes a table of the bins to TABLE\n"
    b"\n"
    b"  \033[34m-r, --range:\033[0m the range of the bins, FROM:TO (default: from the lowest to the highest number)\n"
    b"\n"
    b"  \033[34m-v, --verbose:\033[0m prints the lowest and the highest number and the edges of the bins\n"
    b"\n"
    b"\n"
    b"\033[36mArguments:\033[0m\n"
    b"  \033[34mFILE:\033[0m the text file with the numbers\n"
    b"\n"
    b"\n"
    b"\033[36mExample:\033[0m\n"
    b"  \033[34mhistogram\033[0m -c=2 -r=0:100 -b=20 measured.csv\n")

# Options, the file, bins and their counts, the summary.
PLOTS = [
    # An edge belongs to the bin above it, the last edge to the bin below it.
    (["-e=0:1:2.5:10"], b"-0.1 0 0.9 1 2.4 2.5 9.9 10 10.1",
     b"   0:1 2 ##\n 1:2.5 2 ##\n2.5:10 3 ###\n", b"counted: 7, below: 1, above: 1, NaN: 0, not numbers: 0\n"),
    (["--edges=-1:1"], b"-1 1 -1.0000000000000002 1.0000000000000002", b"-1:1 2 ##\n",
     b"counted: 2, below: 1, above: 1, NaN: 0, not numbers: 0\n"),
    (["-r=0:4", "-b=4"], b"0 1 2 3 4", b"0:1 1 #\n1:2 1 #\n2:3 1 #\n3:4 2 ##\n",
     b"counted: 5, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["--range=0:4", "--bins=04"], b"3.9999", b"0:1 0\n1:2 0\n2:3 0\n3:4 1 #\n",
     b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-r=0:1"], b"0.3 0.29 .7", b"  0:0.1 0\n0.1:0.2 0\n0.2:0.3 1 #\n0.3:0.4 1 #\n0.4:0.5 0\n0.5:0.6 0\n0.6:0.7 0\n"
     b"0.7:0.8 1 #\n0.8:0.9 0\n  0.9:1 0\n", b"counted: 3, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-r=-1:1", "-b=4"], b"7 -7", b"-1:-0.5 0\n -0.5:0 0\n  0:0.5 0\n  0.5:1 0\n",
     b"counted: 0, below: 1, above: 1, NaN: 0, not numbers: 0\n"),
    (["-r=-1:1", "-b=3"], b"0", b"    -1:-0.3333 0\n-0.3333:0.3333 1 #\n      0.3333:1 0\n",
     b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-b=1"], b"1e20,-1e-5", b"-1e-05:1e+20 2 ##\n", b"counted: 2, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-b=2"], b"3\n3\n", b"2.5:3 0\n3:3.5 2 ##\n", b"counted: 2, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-b=2"], b"-5000", b"-5005:-5000 0\n-5000:-4995 1 #\n", b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-b=2"], b"10 20 inf -inf nan", b"10:15 1 #\n15:20 1 #\n", b"counted: 2, below: 1, above: 1, NaN: 1, not numbers: 0\n"),
    # Fields that are numbers, fields that only look like numbers.
    (["-e=0:100"], b"1 +2 3. .4 5e0 6E+1 7e-1 008 -0", b"0:100 9 #########\n",
     b"counted: 9, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-e=0:100"], b"1 1x 0x1 1e 1e+ -- + . e5 1.2.3 1_0 (1) 50% nano infinite \xff", b"0:100 1 #\n",
     b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 15\n"),
    (["-e=0:100"], b"1 NaN nan -nan +NAN inf INF +Infinity -inf -infinity 1e999 -1e999", b"0:100 1 #\n",
     b"counted: 1, below: 3, above: 4, NaN: 4, not numbers: 0\n"),
    (["-e=0:100"], b"5 \x00 6\x00", b"0:100 1 #\n", b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 2\n"),
    # Columns.
    (["-e=0:9", "-c=2"], b"1 2\n3\n\n4 5 6\n", b"0:9 2 ##\n", b"counted: 2, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-e=0:9:99", "-c=1,3"], b"1,20,3\n4;5;60\r\n7\t8\t9", b" 0:9 4 ####\n9:99 2 ##\n",
     b"counted: 6, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-e=0:9", "--columns=3,03,3"], b"1,,3\n4 , , 5\n6 7 x\n;;8", b"0:9 3 ###\n",
     b"counted: 3, below: 0, above: 0, NaN: 0, not numbers: 1\n"),
    (["-e=0:9", "-c=3"], b"1 , 2 , 3 , 4\n\t 5   6\t\t7 8\n", b"0:9 2 ##\n",
     b"counted: 2, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
    (["-e=0:9", "-c=1000000"], 999999 * b";" + b"4;5\n", b"0:9 1 #\n",
     b"counted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n"),
]

THREE_BINS = b"0:1 1 #\n1:2 0\n2:3 2 ##\n"

RANGE = b": not a range FROM:TO of numbers, the lower one first"
COLUMNS = b": not whole numbers from 1 to 1000000 separated by \",\""

REFUSED_OPTIONS = [
    ([], b"FILE is missing"),
    (["-r=1", "data"], b"-r=1" + RANGE),
    (["-r=1:2:3", "data"], b"-r=1:2:3" + RANGE),
    (["-r=5:1", "data"], b"-r=5:1" + RANGE),
    (["--range=-1:-1.5", "data"], b"--range=-1:-1.5" + RANGE),
    (["-r=", "data"], b"-r=" + RANGE),
    (["-r=1:", "data"], b"-r=1:" + RANGE),
    (["-r=1::2", "data"], b"-r=1::2" + RANGE),
    (["-r=1:2x", "data"], b"-r=1:2x" + RANGE),
    (["-r=a:b", "data"], b"-r=a:b" + RANGE),
    (["-r=nan:1", "data"], b"-r=nan:1" + RANGE),
    (["-r=1:1.0", "data"], b"-r=1:1.0: the range is empty"),
    (["-r=0:-0", "data"], b"-r=0:-0: the range is empty"),
    (["-r=-1e308:1e308", "data"], b"-r=-1e308:1e308: the range -1e+308:1e+308 is too wide"),
    (["-r=1:1.0000000000000002", "data"],
     b"-r=1:1.0000000000000002: the range 1:1.0000000000000002 is too narrow for 10 bins"),
    (["-b=0", "data"], b"-b=0: not a whole number from 1 to 1000"),
    (["-b=1001", "data"], b"-b=1001: not a whole number from 1 to 1000"),
    (["-b=ten", "data"], b"-b=ten: not a whole number from 1 to 1000"),
    (["-e=1", "data"], b"-e=1: a list of 2 to 1001 edges is required"),
    (["-e=" + ":".join(str(i) for i in range(1002)), "data"],
     b"-e=" + b":".join(str(i).encode() for i in range(36)) + b"...: a list of 2 to 1001 edges is required"),
    (["-e=0:1:1", "data"], b"-e=0:1:1: each edge has to be greater than the one before"),
    (["-e=2:1", "data"], b"-e=2:1: each edge has to be greater than the one before"),
    (["-e=0,1", "data"], b"-e=0,1: not numbers separated by \":\""),
    (["-e=0:x:1", "data"], b"-e=0:x:1: not numbers separated by \":\""),
    (["-e=0:1", "-b=2", "data"], b"-b=2: cannot be combined with -e"),
    (["-e=0:1", "-r=0:1", "data"], b"-r=0:1: cannot be combined with -e"),
    (["-c=0", "data"], b"-c=0" + COLUMNS),
    (["-c=", "data"], b"-c=" + COLUMNS),
    (["-c=1,", "data"], b"-c=1," + COLUMNS),
    (["-c=1:2", "data"], b"-c=1:2" + COLUMNS),
    (["-c=-1", "data"], b"-c=-1" + COLUMNS),
    (["-c=1,1000001", "data"], b"-c=1,1000001" + COLUMNS),
    (["-c=99999999999", "data"], b"-c=99999999999" + COLUMNS),
    (["-c", "data"], b"-c needs its value attached: -c=data"),
    (["--bens=5", "data"], b"--bens: no such option; did you mean --bins?"),
    (["-x", "data"], b"-x: no such option"),
    (["-f=1", "data"], b"-f=1: -f takes no value"),
    (["-o=sub", "data"], b"-o=sub: is a folder, not a file"),
    (["data", "data"], b"\"data\": one argument too many"),
]

REFUSED = [
    (["nowhere"], b"cannot read nowhere: No such file or directory"),
    (["-o=words", "data"], b"<here>/words exists already; -f overwrites it"),
    (["-o=data", "data"], b"<here>/data is an input too; choose another name"),
    (["-o=data", "-f", "data"], b"<here>/data is an input too; choose another name"),
    (["-o=left", "-f", "data"], b"<here>/left.unfinished exists already; remove it unless another run is writing it"),
    (["-o=gone/table", "data"], b"cannot create <here>/gone/table.unfinished: No such file or directory"),
    (["*"], b"*: name the file, patterns are not expanded"),
    (["."], b". is a directory"),
    (["empty"], b"empty contains no number"),
    (["-e=0:1", "words"], b"words contains no number"),
    (["-r=0:1", "empty"], b"empty contains no number"),
    (["infinite"], b"infinite contains no number"),
    (["-c=2", "data"], b"data contains no number in these columns"),
    (["-c=2", "-r=0:1", "-o=table", "data"], b"data contains no number in these columns"),
]


class HistogramTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        (self.folder / "sub").mkdir()
        for name, data in [("data", b"0\n2\n3\n"), ("words", b"no numbers\nbut NaN\n"), ("empty", b""),
                           ("infinite", b"inf -inf"),
                           ("left.unfinished", b"half")]:
            self.write(name, data)

    def test_help(self):
        self.check_help(SCREEN, ["-h", "data"], ["data", "--help", "-r=x"], ["-h"])

    def test_options(self):
        for arguments, problem in REFUSED_OPTIONS:
            with self.subTest(arguments=arguments):
                self.check_usage(problem, *arguments)

    def test_plots(self):
        for options, text, bins, summary in PLOTS:
            with self.subTest(options=options, text=text[:80]):
                self.write("text", text)
                self.check(bins + summary, *options, "text")

    def test_refusals(self):
        for arguments, problem in REFUSED:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_width(self):
        # 79 characters: label 3, count 2 or 4, a space after each, and the bar.
        for counts, bars in [((72, 0, 1), (72, 0, 1)), ((73, 36, 1), (72, 36, 1)), ((99, 50, 1), (72, 36, 1))]:
            with self.subTest(counts=counts):
                self.write("text", counts[0] * b"0\n" + counts[1] * b"1\n" + counts[2] * b"2\n")
                lines = [b"%s %2d%s\n" % (label, count, b" " + length * b"#" if length else b"")
                         for label, count, length in zip([b"0:1", b"1:2", b"2:3"], counts, bars)]
                self.check(b"".join(lines) + b"counted: %d, below: 0, above: 0, NaN: 0, not numbers: 0\n" % sum(counts),
                           "-e=0:1:2:3", "text")
        self.write("text", 1000 * b"0\n" + b"1 1 2\n" + 500 * b"2.5\n")
        self.check(b"0:1 1000 " + 70 * b"#" + b"\n1:2    2 #\n2:3  501 " + 35 * b"#" + b"\n"
                   b"counted: 1503, below: 0, above: 0, NaN: 0, not numbers: 0\n", "-e=0:1:2:3", "text")

    def test_table(self):
        summary = THREE_BINS + b"counted: 3, below: 0, above: 0, NaN: 0, not numbers: 0, table: <here>/table.txt\n"
        self.check(summary, "-b=3", "-o=table.txt", "data")
        self.assertEqual(b"bin\tcount\n0:1\t1\n1:2\t0\n2:3\t2\n", self.contents()["table.txt"])
        self.check_refusal(b"<here>/table.txt exists already; -f overwrites it", "-b=3", "--output=table.txt", "data")
        self.check(summary, "-b=3", "-F", "--output=table.txt", "data")

    def test_verbose(self):
        summary = THREE_BINS + b"counted: 3, below: 0, above: 0, NaN: 0, not numbers: 0\n"
        self.check(b"values: 0:3\nedges: 0, 1, 2, 3\n" + summary, "-v", "-b=3", "data")
        self.check(b"edges: 0, 1, 2, 3\n" + summary, "--verbose", "-e=0:1:2:3", "data")

    def test_pieces_of_the_file(self):
        # The tool reads 65536 bytes at a time.
        for size in (65533, 65534, 65535, 65536, 65537, 131071, 131072, 131073):
            for gap in (b" ", b","):
                with self.subTest(size=size, gap=gap):
                    self.write("text", size * gap + b"12" + gap + b"34\n5")
                    self.check(b"  0:6 1 #\n 6:20 1 #\n20:50 1 #\n"
                               b"counted: 3, below: 0, above: 0, NaN: 0, not numbers: 0\n", "-e=0:6:20:50", "text")

    def test_long_fields(self):
        # The longest field that can be a number has 1000 bytes.
        for size, numbers, texts in [(999, 2, 0), (1000, 2, 0), (1001, 1, 1), (70000, 1, 1)]:
            with self.subTest(size=size):
                self.write("text", b"1 " + (size - 1) * b"0" + b"2")
                self.check(b"0:9 %d %s\ncounted: %d, below: 0, above: 0, NaN: 0, not numbers: %d\n"
                           % (numbers, numbers * b"#", numbers, texts), "-e=0:9", "text")


class ProgressTest(ToolTestCase):
    @unittest.skipUnless("KELPLIB_QUICK_CLOCK" in os.environ, "this build cannot load quick_clock.c into the tool")
    def test_both_passes_count(self):
        # Two blocks of 65536 bytes, which the tool reads twice unless it knows the range. Every block is drawn.
        self.write("data", 65536 * b"1 ")
        shims = tempfile.TemporaryDirectory()
        self.addCleanup(shims.cleanup)
        shim = preloaded("KELPLIB_QUICK_CLOCK", shims.name, MSYSTEM="MINGW64")
        for arguments, percentages in [(["data"], [b"25.0", b"50.0", b"75.0", b"100.0"]),
                                       (["-r=0:2", "data"], [b"50.0", b"100.0"])]:
            with self.subTest(arguments=arguments):
                tool, reader = self.start_in_terminal(*arguments, env=shim)
                drawn = b""
                while b"counted:" not in drawn:
                    drawn += os.read(reader, 4096)
                self.assertEqual(percentages, re.findall(rb"counting +([0-9.]+)%", drawn))
                self.assertEqual(0, tool.wait(timeout=60))


@native_only
class SystemErrorTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("data", b"0\n2\n3\n")

    def test_special_files(self):
        self.check_refusal(b"/dev/null is not a regular file", "-e=0:1", "/dev/null")
        self.check_refusal(b"cannot read /proc/self/mem: Input/output error", "-e=0:1", "-o=table", "/proc/self/mem")
        self.check_refusal(b"/dev/full is not a regular file", "-e=0:1", "-f", "-o=/dev/full", "data")

    def test_file_whose_name_is_a_pattern(self):
        self.write("d*", b"1")
        self.check(b"0:2 1 #\ncounted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n", "-e=0:2", "d*")

    def test_file_size_limit(self):
        self.write("table", b"old")
        self.check_refusal(b"cannot write <here>/table: File too large", "-f", "-o=table", "data",
                           preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (10, 10)), restore_signals=False)

    def test_full_standard_output(self):
        self.assertEqual((1, b"histogram: standard output cannot be written\n"),
                         self.tool_on_full_disk("data"))

    def test_reader_that_goes_away(self):
        reader, writer = os.pipe()
        os.close(reader)
        done = subprocess.run([PROGRAM, "data"], cwd=self.folder, stdout=writer, stderr=subprocess.PIPE, timeout=60,
                              check=False)
        os.close(writer)
        self.assertEqual((-signal.SIGPIPE, b""), (done.returncode, done.stderr))

    def test_file_of_unknown_size(self):
        # The system reports its size as 0.
        self.check_refusal(b"/proc/self/stat contains no number in these columns", "-e=0:1e18", "-c=2", "/proc/self/stat")
        self.check(b"0:1e+18 1 #\ncounted: 1, below: 0, above: 0, NaN: 0, not numbers: 0\n",
                   "-e=0:1e18", "-c=1", "/proc/self/stat")


if __name__ == "__main__":
    unittest.main()
