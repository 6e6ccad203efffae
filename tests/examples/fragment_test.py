"""The fragment tool: its command line, cutting, joining, the notes of cuts, interruptions and errors of the system."""

import functools
import os
import pathlib
import shutil
import signal
import subprocess
import tempfile
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only, preloaded, pseudo_random, windows_only

if not programs.ON_WINDOWS:
    import resource

# The command line.

SCREEN = (
    b"\n"
    b"\033[34m####################################\033[0m\n"
    b"\033[37m\tfragment\033[0m\n"
    b"\033[37m     Numbered fragments of large files\033[0m\n"
    b"\033[34m####################################\033[0m\n"
    b"\n"
    b"\033[36mCuts a file into numbered fragments and joins them again.\033[0m\n"
    b"\033[36mUsage:\033[0m\n"
    b"  fragment (-n=PIECES | -s=BYTES) [-o=BASE] [-f] [-v] FILE  or  -j -o=FILE [-f] [-v] FRAGMENT...\n"
    b"\n"
    b"\033[36mOptions:\033[0m\n"
    b"  \033[34m-f, --force:\033[0m overwrites existing files\n"
    b"\n"
    b"  \033[34m-h, --help:\033[0m shows this help\n"
    b"\n"
    b"  \033[34m-j, --join:\033[0m joins fragments into one file, which -o names\n"
    b"\n"
    b"  \033[34m-n, --number:\033[0m cuts FILE into PIECES fragments of the same size, give or take a byte\n"
    b"\n"
    b"  \033[34m-o, --output:\033[0m begins the names of the fragments (without it: FILE.part_); with -j, names the "
    b"joined file\n"
    b"\n"
    b"  \033[34m-s, --size:\033[0m cuts FILE into fragments of BYTES bytes; the last one has the rest\n"
    b"\n"
    b"  \033[34m-v, --verbose:\033[0m names every fragment\n"
    b"\n"
    b"\n"
    b"\033[36mArguments:\033[0m\n"
    b"  \033[34mFILE:\033[0m the file to cut\n"
    b"\n"
    b"  \033[34mFRAGMENT:\033[0m a fragment to join; if there is only one, all that follow it are joined too\n"
    b"\n"
    b"\n"
    b"\033[36mExample:\033[0m\n"
    b"  \033[34mfragment\033[0m -n=4 film.mp4  (and back: -j -o=film.mp4 film.mp4.part_0)\n")

# data.bin has 1000 bytes.
REFUSED_OPTIONS = [
    ([], b"FILE is missing"),
    (["-n=2"], b"FILE is missing"),
    (["data.bin"], b"-n=PIECES, -s=BYTES or -j is missing"),
    (["-f", "-o=out", "data.bin"], b"-n=PIECES, -s=BYTES or -j is missing"),
    (["-n=2", "-s=5", "data.bin"], b"-n and -s cannot be combined"),
    (["-n=2", "-j", "-o=out", "data.bin"], b"-n=2: cannot be combined with -j"),
    (["-s=2", "-j", "-o=out", "data.bin"], b"-s=2: cannot be combined with -j"),
    (["-j", "data.bin"], b"-j: needs the name of the file to write, as in -o=FILE"),
    (["-n=2", "-o=", "data.bin"], b"-o=: not a file name"),
    (["-j", "--output=", "data.bin"], b"--output=: not a file name"),
    (["-j", "--output=/", "data.bin"], b"--output=/: is a folder, not a file"),
    (["-n=2", "data.bin", "data.bin"], b"\"data.bin\": only one file can be cut at a time"),
    (["-s=2", "data.bin", "nowhere", "x"], b"\"nowhere\": only one file can be cut at a time"),
    (["-n=1", "-n=1", "data.bin"], b"-n is given twice: -n=1, -n=1"),
    (["-s=1", "data.bin", "--SIZE=2"], b"-s is given twice: -s=1, --SIZE=2"),
    (["-n=1", "-o=out", "-o=other", "data.bin"], b"-o is given twice: -o=out, -o=other"),
    (["-v", "-n=1", "--verbose", "data.bin"], b"-v is given twice: -v, --verbose"),
    (["-f", "-F", "-n=1", "data.bin"], b"-f is given twice: -f, -F"),
    (["--nubmer=3", "data.bin"], b"--nubmer: no such option; did you mean --number?"),
    (["-nfoo", "data.bin"], b"-n needs its value attached: -n=foo"),
    (["--n=3", "data.bin"], b"--n: no such option; did you mean -n?"),
    (["-jx", "-o=out", "data.bin"], b"-jx: no such option"),
    (["--exact=1", "-n=2", "data.bin"], b"--exact: no such option"),
    (["-n=1", "--helpme", "data.bin"], b"--helpme: no such option; did you mean --help?"),
    (["-n=1", "-verbose", "data.bin"], b"-verbose: no such option; did you mean --verbose?"),
    (["-n=1", "-v=1", "data.bin"], b"-v=1: -v takes no value"),
    (["-h=1", "data.bin"], b"-h=1: -h takes no value"),
    (["-j=", "-o=out", "data.bin"], b"-j=: -j takes no value"),
    (["-n", "data.bin"], b"-n needs its value attached: -n=data.bin"),
    (["data.bin", "--size", "5"], b"--size needs its value attached: --size=5"),
    (["-n=1", "-o", "data.bin"], b"-o needs its value attached: -o=data.bin"),
    (["-n=1001", "data.bin"], b"-n=1001: data.bin has only 1000 bytes"),
    (["-n=100000", "data.bin"], b"-n=100000: data.bin has only 1000 bytes"),
    (["-n=100001", "data.bin"], b"-n=100001: not a whole number from 1 to 100000"),
    (["-n=three", "nowhere"], b"-n=three: not a whole number from 1 to 100000"),
    (["-n=1", "-o=disc1", "data.bin"], b"-o=disc1: ends in a digit, which a join would read as part of the number"),
    (["-n=1", "-f", "-o=0", "data.bin"], b"-o=0: ends in a digit, which a join would read as part of the number"),
    (["-n=1", "-o=./9", "data.bin"], b"-o=./9: ends in a digit, which a join would read as part of the number"),
    (["-j", "-f", "-o=folder", "data.bin", "data.bin"], b"-o=folder: is a folder, not a file"),
]

BAD_NUMBERS = ["", "0", "000", "abc", "12abc", "-3", " 3", "3 ", "3.0", "1e2", "0x1F", "1,000",
               "99999999999999999999", "18446744073709551616", "18446744073709551615", "9223372036854775808"]

# fold0 and folder are folders; folder/taken.0 is a file.
REFUSED_FILES = [
    (["-n=2", "nowhere"], b"cannot read nowhere: No such file or directory"),
    (["-n=1", "."], b". is a directory"),
    (["-n=1", "*.bin"], b"*.bin: name the file, patterns are not expanded"),
    (["-n=1", "data*"], b"data*: name the file, patterns are not expanded"),
    (["-j", "-o=out", "data.bin", "*"], b"*: name the file, patterns are not expanded"),
    (["-n=1", "empty.bin"], b"empty.bin is empty"),
    (["-j", "-o=out", "data.bin", "empty.bin"], b"empty.bin is empty"),
    (["-j", "-o=out", "data.bin", "folder"], b"folder is a directory"),
    (["-j", "-o=out", "data.bin", "nowhere.bin"], b"cannot read nowhere.bin: No such file or directory"),
    (["-n=1", "-o=folder/taken.", "data.bin"], b"<here>/folder/taken.0 exists already; -f overwrites it"),
    (["-n=1", "-o=fold", "data.bin"], b"<here>/fold0 is a directory"),
    (["-n=1", "-f", "-o=fold", "data.bin"], b"<here>/fold0 is a directory"),
    (["-n=2", "-o=nowhere/x", "data.bin"], b"cannot create <here>/nowhere/x.count.unfinished: No such file or directory"),
    (["-j", "-f", "-o=nowhere/x", "data.bin", "data.bin"], b"cannot create <here>/nowhere/x.unfinished: No such file or directory"),
]


class CommandLineTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("data.bin", b"d" * 1000)
        self.write("empty.bin", b"")
        for name in ["folder", "fold0"]:
            (self.folder / name).mkdir()
        self.write("folder/taken.0", b"taken")

    def test_help(self):
        self.check_help(SCREEN, ["-n=2", "data.bin", "-h"], ["-h"], ["--HELP", "nowhere", "-n=x"])

    def test_options(self):
        for arguments, problem in REFUSED_OPTIONS:
            with self.subTest(arguments=arguments):
                self.check_usage(problem, *arguments)

    def test_numbers(self):
        for text in BAD_NUMBERS:
            for flag, limit in [("-n", b"100000"), ("-s", b"9223372036854775807")]:
                with self.subTest(flag=flag, text=text):
                    given = f"{flag}={text}"
                    self.check_usage(given.encode() + b": not a whole number from 1 to " + limit, given, "data.bin")

    def test_files(self):
        for arguments, problem in REFUSED_FILES:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_many_fragments(self):
        self.write("many.bin", b"m" * 100001)
        self.check_usage(b"-s=1: makes 100001 fragments, more than 100000", "-s=1", "many.bin")

    def test_large_file(self):
        # A hole without bytes on the disk, larger than 32 bits can count.
        with open(self.folder / "large.bin", "wb") as large:
            large.truncate(5 * 2**30 + 1)
        self.assertEqual((2, b"", b"fragment: -s=50000: makes 107375 fragments, more than 100000 (see fragment --help)\n"),
                         self.tool("-s=50000", "large.bin"))

    def test_program_path_without_a_name(self):
        if programs.ON_WINDOWS:
            program, options = self.folder / "ab", {}
            shutil.copy(PROGRAM, program)
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), "kelplib.dll"), self.folder)
        else:
            program, options = "C:\\ab", {"executable": PROGRAM}
        self.assertEqual((0, SCREEN, b""),
                         programs.run(str(program), "-h", "data.bin", cwd=self.folder, **options))

    def test_output_name_of_one_character(self):
        self.check(b"fragments: 2, bytes: 2000, joined: <here>/x\n", "-j", "-o=x", "data.bin", "data.bin")

    @native_only
    def test_file_whose_name_is_a_pattern(self):
        for name in ["l*t", "l*", "list", "*"]:
            self.write(name, name.encode() * 2)
        self.check(b"fragments: 6, bytes: 6, first: ./l*t.part_0, last: ./l*t.part_5\n", "-s=1", "./l*t")
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-o=out", "l*", "*")
        self.assertEqual(b"l*l***", self.contents()["out"])

    @native_only
    def test_special_files(self):
        for arguments, problem in [
            (["-n=1", "/dev/null"], b"/dev/null is not a regular file"),
            (["-j", "-f", "-o=/dev/null", "data.bin", "data.bin"], b"/dev/null is not a regular file"),
            # A regular file of size 0, but reading it fails.
            (["-j", "-o=out", "data.bin", "/proc/self/mem"], b"cannot read /proc/self/mem: Input/output error"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)


# Cutting.

# Options, size of the file, sizes of the fragments by name, summary.
CUTS = [
    (["-n=1"], 1, {"in.part_0": 1}, b"fragments: 1, bytes: 1, first: in.part_0, last: in.part_0\n"),
    (["-n=1"], 2, {"in.part_0": 2}, b"fragments: 1, bytes: 2, first: in.part_0, last: in.part_0\n"),
    (["-n=2"], 2, {"in.part_0": 1, "in.part_1": 1}, b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n"),
    (["--number=3"], 7, {"in.part_0": 3, "in.part_1": 2, "in.part_2": 2},
     b"fragments: 3, bytes: 7, first: in.part_0, last: in.part_2\n"),
    (["-N=03"], 8, {"in.part_0": 3, "in.part_1": 3, "in.part_2": 2},
     b"fragments: 3, bytes: 8, first: in.part_0, last: in.part_2\n"),
    (["-s=1"], 2, {"in.part_0": 1, "in.part_1": 1}, b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n"),
    (["-s=3"], 6, {"in.part_0": 3, "in.part_1": 3}, b"fragments: 2, bytes: 6, first: in.part_0, last: in.part_1\n"),
    (["--Size=3"], 7, {"in.part_0": 3, "in.part_1": 3, "in.part_2": 1},
     b"fragments: 3, bytes: 7, first: in.part_0, last: in.part_2\n"),
    (["-s=6"], 7, {"in.part_0": 6, "in.part_1": 1}, b"fragments: 2, bytes: 7, first: in.part_0, last: in.part_1\n"),
    (["-s=7"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-s=8"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-s=9223372036854775807"], 7, {"in.part_0": 7}, b"fragments: 1, bytes: 7, first: in.part_0, last: in.part_0\n"),
    (["-n=10"], 10, dict.fromkeys(["in.part_0", "in.part_1", "in.part_2", "in.part_3", "in.part_4", "in.part_5",
                                   "in.part_6", "in.part_7", "in.part_8", "in.part_9"], 1),
     b"fragments: 10, bytes: 10, first: in.part_0, last: in.part_9\n"),
    (["-s=1", "-o=./p"], 11, dict.fromkeys(["p00", "p01", "p02", "p03", "p04", "p05", "p06", "p07", "p08", "p09", "p10"],
                                         1),
     b"fragments: 11, bytes: 11, first: <here>/./p00, last: <here>/./p10\n"),
    (["--output=sub/x=", "-n=2"], 5, {"sub/x=0": 3, "sub/x=1": 2},
     b"fragments: 2, bytes: 5, first: <here>/sub/x=0, last: <here>/sub/x=1\n"),
]


def note(fragments, size):
    """The note that a cut writes beside its fragments."""
    return f"fragments: {fragments}\nbytes: {size}\n".encode()


class CutTest(ToolTestCase):
    def test_names_and_sizes(self):
        (self.folder / "sub").mkdir()
        for options, size, sizes, summary in CUTS:
            with self.subTest(options=options, size=size):
                data = pseudo_random(size)
                self.write("in", data)
                self.check(summary, *options, "in")
                found = {name: data for name, data in self.contents().items() if data is not None}
                self.assertEqual(data, found.pop("in"))
                (counted,) = [name for name in found if name.endswith(".count")]
                self.assertEqual(next(iter(sizes)).rstrip("0123456789") + ".count", counted)
                self.assertEqual(note(len(sizes), size), found.pop(counted))
                (self.folder / counted).unlink()
                self.assertEqual(sizes, {name: len(fragment) for name, fragment in found.items()})
                self.assertEqual(data, b"".join(found[name] for name in sorted(found)))
                for name in found:
                    (self.folder / name).unlink()

    def test_many_fragments(self):
        self.write("in", pseudo_random(101))
        self.check(b"fragments: 101, bytes: 101, first: <here>/xy000, last: <here>/xy100\n", "-s=1", "-o=xy", "in")
        self.check(b"fragments: 101, bytes: 101, joined: <here>/back\n", "-j", "-o=back", "xy000")
        self.assertEqual(pseudo_random(101), self.contents()["back"])

    def test_verbose(self):
        self.write("in", b"1234567")
        self.check(b"in.part_0: 4 bytes\nin.part_1: 3 bytes\n"
                   b"fragments: 2, bytes: 7, first: in.part_0, last: in.part_1\n", "-n=2", "-v", "in")
        (self.folder / "in.part_.count").unlink()
        self.check(b"in.part_1: 3 bytes\nin.part_0: 4 bytes\nfragments: 2, bytes: 7, joined: <here>/out\n",
                   "--verbose", "-j", "-o=out", "in.part_1", "in.part_0")
        self.assertEqual(b"5671234", self.contents()["out"])

    def test_overwriting(self):
        self.write("in", b"123456")
        self.write("in.part_1", b"old")
        self.check_refusal(b"in.part_1 exists already; -f overwrites it", "-n=3", "in")
        self.check(b"fragments: 3, bytes: 6, first: in.part_0, last: in.part_2\n", "-n=3", "--force", "in")
        self.assertEqual({"in": b"123456", "in.part_.count": note(3, 6), "in.part_0": b"12", "in.part_1": b"34",
                          "in.part_2": b"56"}, self.contents())

    def test_fragments_of_a_longer_cut(self):
        self.write("in", b"abcdefghijkl")
        self.write("in.part_2", b"old")
        for here, *arguments in ((b"", "-n=2", "in"), (b"", "-f", "-n=2", "in"), (b"<here>/", "-f", "-s=6", "-o=in.part_", "in")):
            self.check_refusal(here + b"in.part_2 belongs to another cut; remove it and the fragments after it "
                                      b"(-f replaces only fragments of the new cut)", *arguments)
        self.write("xy10", b"another number of digits")
        self.assertEqual((0, b""), self.tool("-n=10", "-o=xy", "in")[::2])

    def test_overwriting_the_input(self):
        self.write("in0", b"123456")
        for force in ([], ["-f"]):
            self.check_refusal(b"<here>/in0 is an input too; choose another name", "-n=2", "-o=in", *force, "in0")
        self.write("xy.count", b"123456")
        self.check_refusal(b"<here>/xy.count is an input too; choose another name", "-n=2", "-f", "-o=xy", "xy.count")

    @native_only
    def test_overwriting_the_input_by_another_name(self):
        self.write("data", b"123456")
        os.symlink("data", self.folder / "in1")
        os.link(self.folder / "data", self.folder / "hard0")
        for problem, *arguments in [
            (b"<here>/in1 is an input too; choose another name", "-f", "-n=2", "-o=in", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-n=2", "-o=hard", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-n=2", "-o=hard", "in1"),
            (b"<here>/data is an input too; choose another name", "-f", "-j", "-o=data", "in1", "in1"),
            (b"<here>/in1 is an input too; choose another name", "-f", "-j", "-o=in1", "data", "data"),
            (b"<here>/hard0 is an input too; choose another name", "-f", "-j", "-o=hard0", "data", "in1"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    @native_only
    def test_overwriting_a_link(self):
        self.write("in", b"12")
        self.write("elsewhere", b"mine")
        os.symlink("elsewhere", self.folder / "in.part_0")
        os.symlink("nowhere", self.folder / "in.part_1")
        self.check_refusal(b"in.part_0 exists already; -f overwrites it", "-n=2", "in")
        self.check_refusal(b"<here>/in.part_1 exists already; -f overwrites it", "-j", "-o=in.part_1", "in", "in")
        self.check(b"fragments: 2, bytes: 2, first: in.part_0, last: in.part_1\n", "-n=2", "-f", "in")
        self.assertEqual({"in": b"12", "elsewhere": b"mine", "in.part_.count": note(2, 2), "in.part_0": b"1",
                          "in.part_1": b"2"}, self.contents())


# Joining.

# The tool copies 65536 bytes at a time.
ROUND_TRIPS = [
    (1, "-n=1"), (65535, "-n=1"), (65536, "-n=1"), (65537, "-n=1"),
    (131072, "-n=2"), (131073, "-n=2"), (200000, "-s=65535"), (200000, "-s=65536"), (200000, "-s=65537"),
    (99, "-n=99"), (5000011, "-n=7"), (5000011, "-s=1000000"),
]


class JoinTest(ToolTestCase):
    def test_round_trips(self):
        for size, option in ROUND_TRIPS:
            with self.subTest(size=size, option=option):
                data = pseudo_random(size)
                self.write("in", data)
                status, _, problem = self.tool(option, "-f", "-o=f.", "in")
                self.assertEqual((0, b""), (status, problem))
                first = min(name for name in self.contents() if name.startswith("f.") and name != "f..count")
                status, _, problem = self.tool("-j", "-f", "-o=out", first)
                self.assertEqual((0, b""), (status, problem))
                self.assertEqual(data, self.contents()["out"])
                for name in self.contents():
                    (self.folder / name).unlink()

    def test_named_fragments(self):
        for name, data in [("b", b"bb"), ("a1", b"a"), ("a2", b"z"), ("c", b"\r\n\x1a\0c")]:
            self.write(name, data)
        self.check(b"fragments: 4, bytes: 10, joined: <here>/out\n", "c", "-j", "a1", "-o=out", "b", "b")
        self.assertEqual(b"\r\n\x1a\0cabbbb", self.contents()["out"])

    def test_overwriting(self):
        for name in ["a0", "a1", "out"]:
            self.write(name, name.encode())
        self.check_refusal(b"<here>/out exists already; -f overwrites it", "-j", "-o=out", "a0")
        self.check(b"fragments: 2, bytes: 4, joined: <here>/out\n", "-j", "-f", "-o=out", "a0")
        self.assertEqual({"a0": b"a0", "a1": b"a1", "out": b"a0a1"}, self.contents())
        for arguments in (["-o=a1", "a0", "a1"], ["-f", "-o=a1", "a1", "a0", "a1"]):
            self.check_refusal(b"<here>/a1 is an input too; choose another name", "-j", *arguments)

    def test_following_numbers(self):
        for case, names, first, fragments in [
            ("from the first", ["x0", "x1", "x2"], "x0", b"x0x1x2"),
            ("from the second", ["x0", "x1", "x2"], "x1", b"x1x2"),
            ("the last", ["x0", "x1", "x2"], "x2", b"x2"),
            ("lower numbers do not count", ["x1", "x3"], "x3", b"x3"),
            ("other numbers of digits", ["x08", "x09", "x10", "x7", "x011", "x11a"], "x08", b"x08x09x10"),
            ("no carry into a new digit", ["x8", "x9", "x10"], "x8", b"x8x9"),
            ("no gap after the last number of this width", ["x9", "x11"], "x9", b"x9"),
            ("other names", ["x0", "x1", "y2", "xy3", "x-4"], "x0", b"x0x1"),
            ("only digits", ["007", "008", "010x"], "007", b"007008"),
            ("more than 14 digits", ["90000000000000000000000009", "90000000000000000000000010"],
             "90000000000000000000000009", b"9000000000000000000000000990000000000000000000000010"),
            ("in a folder", ["sub/x0", "sub/x1"], "sub/x0", b"sub/x0sub/x1"),
        ]:
            with self.subTest(case):
                (self.folder / "sub").mkdir(exist_ok=True)
                for name in names:
                    self.write(name, name.encode())
                status, _, problem = self.tool("-j", "-o=out", first)
                self.assertEqual((0, b""), (status, problem))
                self.assertEqual(fragments, self.contents()["out"])
                for name in [*names, "out"]:
                    (self.folder / name).unlink()

    def test_gaps(self):
        for names, first, problem, *output in [
            (["x0", "x2"], "x0", b"x1 is missing"),
            (["x0", "x1", "x9"], "x0", b"x2 is missing"),
            (["p_08", "p_09", "p_11", "p_99"], "p_08", b"p_10 is missing"),
            (["sub/x00", "sub/x02"], "sub/x00", b"sub/x01 is missing"),
            (["sub/x0"], "sub/x0", b"<here>/sub/x1 would count as one more fragment; choose another name", "sub/x1"),
            (["x0"], "./x0", b"<here>/sub/../x1 would count as one more fragment; choose another name", "sub/../x1"),
            (["name"], "name", b"name does not end in a number; name all the fragments"),
        ]:
            with self.subTest(names=names):
                (self.folder / "sub").mkdir(exist_ok=True)
                for name in names:
                    self.write(name, name.encode())
                self.check_refusal(problem, "-j", "-o=" + "".join(output or ["out"]), first)
                for name in names:
                    (self.folder / name).unlink()

    @windows_only
    def test_gap_in_other_letter_case(self):
        for name in ["X0", "X1", "X3"]:
            self.write(name, name.encode())
        self.check_refusal(b"x2 is missing", "-j", "-o=out", "x0")
        (self.folder / "X3").unlink()
        self.check(b"fragments: 2, bytes: 4, joined: <here>/out\n", "-j", "-o=out", "x0")


# The note that a cut writes beside its fragments.

NOTE = b"fragments: 3\nbytes: 8\n"


class NoteTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("in", b"12345678")
        self.check(b"fragments: 3, bytes: 8, first: <here>/q_0, last: <here>/q_2\n", "-n=3", "-o=q_", "in")
        self.files = ["q_.count", "q_0", "q_1", "q_2"]

    def test_text(self):
        self.assertEqual({"in": b"12345678", "q_.count": NOTE, "q_0": b"123", "q_1": b"456", "q_2": b"78"}, self.contents())

    def test_whole_sets(self):
        for arguments in (["q_0"], ["q_0", "q_1", "q_2"], self.files, ["q_0", "q_1", "q_.count", "q_2"]):
            with self.subTest(arguments=arguments):
                self.check(b"fragments: 3, bytes: 8, joined: <here>/out\n", "-j", "-o=out", *arguments)
                self.assertEqual(b"12345678", self.contents()["out"])
                (self.folder / "out").unlink()

    def test_parts_of_a_set(self):
        for absent, *arguments in [(b"q_0", "q_1"), (b"q_0", "q_2"), (b"q_2", "q_0", "q_1"), (b"q_1", "q_0", "q_2"),
                                   (b"q_0", "q_2", "q_1"), (b"q_1", "q_.count", "q_0"), (b"q_2", *self.files[:-1])]:
            with self.subTest(arguments=arguments):
                self.check_refusal(absent + b" is not named; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_fragments_named_twice(self):
        for twice, *arguments in [(b"q_1", "q_0", "q_1", "q_1"), (b"q_0", "q_0", "q_0"), (b"q_2", "q_0", "q_1", "q_2", "q_2"),
                                  (b"q_0", "q_0", "q_1", "q_2", "q_0")]:
            with self.subTest(arguments=arguments):
                self.check_refusal(twice + b" is named twice; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_fragments_out_of_order(self):
        for found, expected, *arguments in [(b"q_2", b"q_0", "q_2", "q_1", "q_0"), (b"q_2", b"q_1", "q_0", "q_2", "q_1"),
                                            (b"q_2", b"q_0", "q_2", "q_.count", "q_0", "q_1")]:
            with self.subTest(arguments=arguments):
                self.check_refusal(found + b" is out of order; name " + expected + b" before it", "-j", "-o=out", *arguments)

    def test_named_fragments_of_no_set(self):
        self.write("q_00", b"x")
        for arguments, joined in [(["q_2", "in"], b"7812345678"), (["in", "q_2"], b"1234567878"), (["q_2", "q_00"], b"78x")]:
            with self.subTest(arguments=arguments):
                status, _, problem = self.tool("-j", "-o=out", *arguments)
                self.assertEqual((0, b"", joined), (status, problem, self.contents()["out"]))
                (self.folder / "out").unlink()
        self.check_refusal(b"q_.count counts 3 fragments, but 1 is named", "-j", "-o=out", "q_.count", "in")
        self.check_refusal(b"q_.count counts 3 fragments, but 2 are named", "-j", "-o=out", "q_.count", "in", "q_1")
        (self.folder / "q_.count").unlink()
        self.check(b"fragments: 3, bytes: 8, joined: <here>/out\n", "-j", "-o=out", "q_2", "q_1", "q_1")
        self.assertEqual(b"78456456", self.contents()["out"])

    def test_one_fragment(self):
        self.write("p_1", b"x")
        self.write("p_0", b"x")
        self.write("p_.count", b"fragments: 1\nbytes: 1\n")
        self.check_refusal(b"p_1 belongs to another cut; p_.count counts 1 fragment", "-j", "-o=out", "p_0", "p_1")
        self.check(b"fragments: 1, bytes: 1, joined: <here>/out\n", "-j", "-o=out", "p_.count", "p_0")

    def test_two_sets(self):
        self.check(b"fragments: 2, bytes: 8, first: <here>/p_0, last: <here>/p_1\n", "-n=2", "-o=p_", "in")
        both = ["p_.count", "p_0", "p_1", *self.files]
        self.check(b"fragments: 5, bytes: 16, joined: <here>/out\n", "-j", "-o=out", *both)
        self.check_refusal(b"the notes count 5 fragments, but 4 are named", "-j", "-o=new", *both[:-1])

    def test_missing_fragments(self):
        (self.folder / "q_2").unlink()
        for arguments in (["q_0"], ["q_0", "q_1"], self.files[:-1]):
            self.check_refusal(b"q_2 is missing; q_.count counts 3 fragments", "-j", "-o=out", *arguments)

    def test_wrong_sizes(self):
        self.write("q_2", b"7")
        problem = b"the fragments have 7 bytes, but q_.count counts 8"
        self.check_refusal(problem, "-j", "-o=out", "q_0")
        self.check_refusal(problem, "-j", "-o=out", *self.files)
        self.check_refusal(problem, "-j", "-o=out", *self.files[1:])
        self.write("q_2", b"789")
        self.check_refusal(b"the fragments have 9 bytes, but q_.count counts 8", "-j", "-o=out", "q_0")

    def test_fragments_of_other_cuts(self):
        self.write("q_3", b"x")
        for first in ("q_0", "q_3"):
            self.check_refusal(b"q_3 belongs to another cut; q_.count counts 3 fragments", "-j", "-o=out", first)
        self.write("q_00", b"y")
        self.check_refusal(b"q_00 belongs to another cut; q_.count counts 3 fragments", "-j", "-o=out", "q_00")

    def test_other_files_of_this_name(self):
        # Without a valid note, only the names count.
        (self.folder / "q_2").unlink()
        for text in (b"", b"1\n", b"fragments: 3\n", b"fragments: 3\r\nbytes: 8\r\n", NOTE + b"\n", b"fragments: 03\nbytes: 8\n",
                     b"fragments: -3\nbytes: 8\n", b"fragments: 99999999999999999999\nbytes: 8\n", NOTE * 9):
            with self.subTest(text=text):
                self.write("q_.count", text)
                self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")
        self.write("q_.count", b"text")
        self.check(b"fragments: 3, bytes: 10, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0", "q_.count", "q_1")
        (self.folder / "q_.count").unlink()
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")
        (self.folder / "q_.count").mkdir()
        self.check(b"fragments: 2, bytes: 6, joined: <here>/out\n", "-j", "-f", "-o=out", "q_0")

    def test_note_of_a_run_in_progress(self):
        for end in (b".unfinished", b".replaced"):
            self.write("q_.count" + end.decode(), b"")
            self.check_refusal(b"q_.count" + end + b" belongs to a run that is in progress or was interrupted; "
                               b"the fragments may come from different cuts", "-j", "-o=out", "q_0")
            (self.folder / ("q_.count" + end.decode())).unlink()

    def test_joining_into_the_note(self):
        for names in (["q_0"], self.files[1:]):
            self.check_refusal(b"<here>/q_.count is an input too; choose another name", "-j", "-f", "-o=q_.count", *names)

    def test_cutting_again(self):
        self.check_refusal(b"<here>/q_.count exists already; -f overwrites it", "-n=3", "-o=q_", "in")
        self.check_refusal(b"<here>/q_2 belongs to another cut; remove it and the fragments after it "
                           b"(-f replaces only fragments of the new cut)", "-f", "-n=2", "-o=q_", "in")
        self.write("long", b"x" * 11)
        self.check_refusal(b"<here>/q_0 belongs to another cut; remove it and the fragments after it "
                           b"(-f replaces only fragments of the new cut)", "-f", "-n=11", "-o=q_", "long")
        self.check(b"fragments: 4, bytes: 8, first: <here>/q_0, last: <here>/q_3\n", "-f", "-n=4", "-o=q_", "in")
        self.assertEqual(b"fragments: 4\nbytes: 8\n", self.contents()["q_.count"])


# Interruptions, and what they leave.

IN_USE = b".unfinished exists already; remove it unless another run is writing it"


def grow(path):
    with open(path, "ab") as file:
        file.write(b"+")


class InterruptedTest(ToolTestCase):
    """The tool blocks in its trace output, which does not fit into the pipe, until the test reads it."""

    def setUp(self):
        super().setUp()
        self.name = "n" * 200
        self.data = pseudo_random(400000)
        self.write(self.name, self.data)

    def start(self, *arguments, **options):
        return subprocess.Popen(programs.command(PROGRAM, "-v", *arguments), cwd=self.folder, bufsize=0, pipesize=4096,
                                stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, **options)

    def start_cut(self, **options):
        """Starts a cut into 50 fragments, which opens its input and then blocks."""
        tool = self.start("-s=8000", "-o=" + self.name + ".", self.name, **options)
        for _ in range(2 * len(self.name)):  # up to the line of the second fragment
            tool.stdout.read(1)
        return tool

    def check_change(self, tool, name, change):
        change(self.folder / self.name)
        changed = (self.folder / self.name).read_bytes()
        _, problem = tool.communicate()
        self.assertEqual(1, tool.returncode)
        self.assertEqual(b"fragment: " + name.encode() + b" changed while it was read\n",
                         programs.plain_line_ends(problem))
        self.assertEqual({self.name: changed}, self.contents())

    def test_no_interruption(self):
        tool = self.start_cut()
        trace, problem = tool.communicate()
        self.assertEqual((0, b"", 50), (tool.returncode, problem, trace.count(b"\n")))

    def test_grown_input(self):
        self.check_change(self.start_cut(), self.name, grow)

    def test_shrunk_input(self):
        self.check_change(self.start_cut(), self.name, lambda path: os.truncate(path, 8000))

    @native_only
    def test_grown_fragment(self):
        # One line of this trace does not fit into the pipe, so the tool blocks before it copies the first fragment.
        name = "./" * 1945 + self.name
        tool = self.start("-j", "-o=out", name, name)
        tool.stdout.read(1)
        self.check_change(tool, name, grow)

    def test_name_created_meanwhile(self):
        tool = self.start_cut()
        self.write(self.name + ".49", b"precious")
        self.check_problem(tool, f"<here>/{self.name}.49 exists already; -f overwrites it", ".49")

    def test_unfinished_name_created_meanwhile(self):
        tool = self.start_cut()
        self.write(self.name + ".49.unfinished", b"precious")
        self.check_problem(tool, f"<here>/{self.name}.49{IN_USE.decode()}", ".49.unfinished")

    def check_problem(self, tool, problem, suffix):
        """Checks that the tool fails with the problem and leaves only its input and the file of the other program."""
        _, errors = tool.communicate()
        self.assertEqual((1, f"fragment: {problem}\n".encode()),
                         (tool.returncode, self.without_folder(programs.plain_line_ends(errors))))
        self.assertEqual({self.name: self.data, self.name + suffix: b"precious"}, self.contents())

    @native_only
    def test_ending_signals(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                tool = self.start_cut()
                tool.send_signal(number)
                # It ends although its output is not read.
                self.assertEqual(-number, tool.wait(timeout=30))
                self.assertEqual(b"fragment: interrupted\n", tool.communicate()[1])
                self.assertEqual({self.name: self.data}, self.contents())

    @unittest.skipUnless("KELPLIB_LATE_SIGNAL" in os.environ, "this build cannot load late_signal.c into the tool")
    def test_signal_just_before_the_tool_blocks(self):
        shims = tempfile.TemporaryDirectory()
        self.addCleanup(shims.cleanup)
        shim = preloaded("KELPLIB_LATE_SIGNAL", shims.name, PIPE="4096")
        tool = self.start("-s=8000", "-o=" + self.name + ".", self.name, env=shim)
        self.assertEqual(-signal.SIGTERM, tool.wait(timeout=30))
        self.assertEqual(b"fragment: interrupted\n", tool.communicate()[1])
        self.assertEqual({self.name: self.data}, self.contents())

    @native_only
    def test_signals_ignored_from_the_start(self):
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGHUP):
            with self.subTest(number):
                tool = self.start_cut(preexec_fn=functools.partial(signal.signal, number, signal.SIG_IGN))
                tool.send_signal(number)
                _, problem = tool.communicate()
                self.assertEqual((0, b""), (tool.returncode, problem))
                for name in self.contents().keys() - {self.name}:
                    (self.folder / name).unlink()

    @native_only
    def test_reader_that_goes_away(self):
        tool = self.start_cut()
        tool.stdout.close()
        self.assertEqual(b"", tool.stderr.read())
        self.assertEqual(-signal.SIGPIPE, tool.wait())
        self.assertEqual({self.name: self.data}, self.contents())
        tool.stderr.close()

    @native_only
    def test_killed(self):
        tool = self.start_cut()
        tool.kill()
        tool.communicate()
        left = self.contents()
        self.assertEqual(self.data, left.pop(self.name))
        self.assertIn(self.name + ".00.unfinished", left)
        self.assertEqual([], [name for name in left if not name.endswith(".unfinished")])


class LeftoverTest(ToolTestCase):
    def test_files_of_an_interrupted_run(self):
        for name, data in [("in", b"1234"), ("in.part_1", b"old"), ("a.part_1.unfinished", b"half"),
                           ("in.part_1.replaced", b"kept")]:
            self.write(name, data)
        for problem, *arguments in [
            (b"<here>/a.part_1" + IN_USE, "-n=2", "-o=a.part_", "in"),
            (b"<here>/a.part_1" + IN_USE, "-f", "-n=2", "-o=a.part_", "in"),
            (b"in.part_1.replaced exists already; move it away first", "-f", "-n=2", "in"),
            (b"<here>/in.part_1.replaced exists already; move it away first", "-f", "-j", "-o=in.part_1", "in", "in"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_fragments_beside_leftovers(self):
        problem = b" belongs to a run that is in progress or was interrupted; the fragments may come from different cuts"
        for name in ["f0", "f1", "f2"]:
            self.write(name, name.encode())
        for name in ["f0.replaced", "f2.unfinished", "f3.unfinished"]:
            with self.subTest(name):
                self.write(name, b"left over")
                self.check_refusal(name.encode() + problem, "-j", "-o=out", "f0")
                (self.folder / name).unlink()
        self.write("f1.replaced", b"left over")
        self.check_refusal(b"f1.replaced" + problem, "-j", "-o=out", "f0", "f1")
        self.check(b"fragments: 1, bytes: 2, joined: <here>/out\n", "-j", "-o=out", "f2")

    @native_only
    def test_link_under_the_unfinished_name(self):
        self.write("in", b"1234")
        os.symlink("/dev/full", self.folder / "out.unfinished")
        self.check_refusal(b"<here>/out" + IN_USE, "-f", "-j", "-o=out", "in", "in")


# Errors of the system.


def limited(kind, limit):
    """Options for a run with a limit of the system."""
    return {"preexec_fn": lambda: resource.setrlimit(kind, (limit, limit))}


def own_mounts(script, *arguments):
    """Runs a shell script with the arguments in a mount namespace of its own."""
    return programs.run("unshare", "--user", "--map-root-user", "--mount", "sh", "-e", "-c", script, "sh", *arguments)


def may_mount():
    try:
        return own_mounts("mount -t tmpfs none /mnt")[0] == 0
    except OSError:
        return False


needs_mounts = unittest.skipUnless(not programs.ON_WINDOWS and may_mount(), "this system does not allow mounting")


@native_only
class SystemErrorTest(ToolTestCase):
    def test_file_size_limit(self):
        self.write("in", pseudo_random(400000))
        self.write("in.part_0", b"old")
        self.write("small", b"s" * 1001)
        for problem, *arguments in [
            (b"cannot write in.part_0: File too large", "-f", "-n=2", "in"),
            (b"cannot write <here>/xy0: File too large", "-s=100001", "-o=xy", "in"),
            (b"cannot write <here>/out: File too large", "-j", "-o=out", "in.part_0", "in"),
            (b"cannot write <here>/small: File too large", "-f", "-j", "-o=small", "in.part_0", "in"),
            # So few bytes that they are written when the file is closed.
            (b"cannot write <here>/xy0: File too large", "-n=1", "-o=xy", "small"),
            # A missing fragment is reported before anything is written.
            (b"cannot read nowhere: No such file or directory", "-j", "-o=out", "in", "nowhere"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments, **limited(resource.RLIMIT_FSIZE, 1000))

    def test_memory_limit(self):
        # The names of the fragments need more memory than this.
        limit = limited(resource.RLIMIT_AS, 24 * 2**20)
        self.write("in", b"i" * 100000)
        if self.tool("-j", "-o=out", "in", "in", **limit)[0] != 0:
            self.skipTest("this build needs more memory for everything")
        self.check_refusal(b"out of memory", "-n=100000", "-o=" + "x" * 200, "in", **limit)

    def test_full_standard_output(self):
        self.write("in", b"1234")
        self.assertEqual((1, b"fragment: standard output cannot be written\n"),
                         self.tool_on_full_disk("-n=2", "in"))
        self.assertEqual({"in": b"1234", "in.part_.count": b"fragments: 2\nbytes: 4\n", "in.part_0": b"12",
                          "in.part_1": b"34"}, self.contents())

    def test_closed_standard_output(self):
        for name in ["f0", "f1"]:
            self.write(name, name.encode())
        for arguments in (["-j", "-v", "-o=out", "f0"], ["-n=2", "f0"]):
            done = subprocess.run(["sh", "-c", 'exec "$0" "$@" >&-', PROGRAM, *arguments], cwd=self.folder, timeout=60,
                                  stdin=subprocess.DEVNULL, stderr=subprocess.PIPE, check=False)
            self.assertEqual((1, b"fragment: standard output is closed\n"), (done.returncode, done.stderr))
        self.assertEqual({"f0": b"f0", "f1": b"f1"}, self.contents())

    def test_program_path_that_looks_like_a_flag(self):
        self.write("in", b"1234")
        done = subprocess.run(["-o=evil.", "-n=2", "-o=good.", "in"], executable=PROGRAM, cwd=self.folder, timeout=60,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE, check=False)
        self.assertEqual((0, b""), (done.returncode, done.stderr))
        self.assertEqual({"in": b"1234", "good..count": b"fragments: 2\nbytes: 4\n", "good.0": b"12", "good.1": b"34"},
                         self.contents())

    def test_output_among_the_fragments_by_another_path(self):
        for name in ["f0", "f1"]:
            self.write(name, name.encode())
        os.symlink(".", self.folder / "lnk")
        self.check_refusal(b"<here>/lnk/f2 would count as one more fragment; choose another name",
                           "-j", "-o=lnk/f2", "f0")

    def test_refused_read(self):
        device = "/sys/class/net/lo/speed"
        if not pathlib.Path(device).exists():
            self.skipTest("no " + device)
        self.write("in", b"1234")
        self.check_refusal(b"cannot read /sys/class/net/lo/speed: Invalid argument", "-j", "-o=out", "in", device)

    def test_fewer_bytes_than_the_size(self):
        device = "/sys/devices/system/cpu/online"
        if not pathlib.Path(device).exists():
            self.skipTest("no " + device)
        self.write("in", b"1234")
        self.check_refusal(b"/sys/devices/system/cpu/online changed while it was read", "-j", "-o=out", "in", device)

    @needs_mounts
    def test_full_disk(self):
        self.write("in", pseudo_random(1600000))
        (self.folder / "disk").mkdir()
        status, output, problem = own_mounts(
            'cd "$1"; shift; mount -t tmpfs -o size=1m none disk; printf old >disk/x2; '
            'status=0; "$@" || status=$?; ls -A disk; cat disk/x2; exit $status',
            str(self.folder), PROGRAM, "-f", "-s=327680", "-o=disk/x", "in")
        self.assertEqual((1, b"x2\nold"), (status, output))
        self.assertEqual(b"fragment: cannot write <here>/disk/x3: No space left on device\n", self.without_folder(problem))

    @needs_mounts
    def test_file_that_cannot_be_replaced(self):
        # A mount point cannot be renamed. The tool has already given fragment 3 its name and takes it back.
        for name in ["in", "in.part_0", "in.part_2", "in.part_3"]:
            self.write(name, b"old " + name.encode())
        before = self.contents()
        self.assertEqual(
            (1, b"", b"fragment: cannot rename in.part_2: Device or resource busy\n"),
            own_mounts('cd "$1"; shift; mount --bind in.part_2 in.part_2; exec "$@"', str(self.folder), PROGRAM,
                       "-f", "-n=4", "in"))
        self.assertEqual(before, self.contents())


if __name__ == "__main__":
    unittest.main()
