"""The fragment tool's command line: its help screen, and everything that it refuses before it writes."""

import concurrent.futures
import os
import shutil
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only

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
    b"  \033[34mFRAGMENT:\033[0m a fragment to join; one alone stands for itself and all that follow it\n"
    b"\n"
    b"\n"
    b"\033[36mExample:\033[0m\n"
    b"  \033[34mfragment\033[0m -n=4 film.mp4  (and back: -j -o=film.mp4 film.mp4.part_0)\n")

NO_FILE = b"\n\033[31mFile missing, please insert the name of the file.\033[0m\n\n"

SCREENS = [
    (["-n=2", "data.bin", "-h"], b""),
    (["-h"], NO_FILE),
    (["-n=2", ""], b"File  doesn't exist. Please insert a valid file name.\n"),
    (["--size", "5", "data.bin"], b"File 5 doesn't exist. Please insert a valid file name.\n"),
    (["--exact=1", "-n=2", "data.bin"], b"Invalid flag -e. List of valid flags: \n"),
]

# data.bin has 1000 bytes.
REFUSED_OPTIONS = [
    (["data.bin"], b"one of -n=PIECES, -s=BYTES or -j is needed"),
    (["-f", "-o=out", "data.bin"], b"one of -n=PIECES, -s=BYTES or -j is needed"),
    (["-n=2", "-s=5", "data.bin"], b"-n and -s cannot be combined"),
    (["-n=2", "-j", "-o=out", "data.bin"], b"-n and -j cannot be combined"),
    (["-s=2", "-j", "-o=out", "data.bin"], b"-s and -j cannot be combined"),
    (["-j", "data.bin"], b"-j needs the name of the file to write, as in -o=FILE"),
    (["-n=2", "-o=", "data.bin"], b"-o=: the name is empty"),
    (["-j", "--output=", "data.bin"], b"-o=: the name is empty"),
    (["-n=2", "-o=a*", "data.bin"], b"-o=a*: this tool refuses names with \"*\", which would be taken for patterns"),
    (["-n=2", "-o=x", "data.bin"], b"-o=x: a name of one character needs its folder, as in ./x"),
    (["-j", "--output=\\", "data.bin"], b"-o=\\: a name of one character needs its folder, as in ./\\"),
    (["-j", "-o=C:file", "data.bin"], b"-o=C:file: begins like a drive; write the folder before the name"),
    (["-n=2", "-o=::", "data.bin"], b"-o=::: begins like a drive; write the folder before the name"),
    (["-n=2", "data.bin", "data.bin"], b"one file is cut at a time, not 2"),
    (["-s=2", "data.bin", "nowhere", "x"], b"one file is cut at a time, not 3"),
    (["-n=1", "-n=1", "data.bin"], b"-n is given twice"),
    (["-s=1", "data.bin", "--SIZE=2"], b"-s is given twice"),
    (["-n=1", "-o=out", "-o=other", "data.bin"], b"-o is given twice"),
    (["-v", "-n=1", "--verbose", "data.bin"], b"-v is given twice"),
    (["-f", "-F", "-n=1", "data.bin"], b"-f is given twice"),
    (["--nubmer=3", "data.bin"], b"--nubmer=3: no such option"),
    (["-nfoo", "data.bin"], b"-nfoo: no such option"),
    (["--n=3", "data.bin"], b"--n=3: no such option"),
    (["-jx", "-o=out", "data.bin"], b"-jx: no such option"),
    (["-n=1", "--helpme", "data.bin"], b"--helpme: no such option"),
    (["-n=1", "-verbose", "data.bin"], b"-verbose: no such option"),
    (["-n=1", "-v=1", "data.bin"], b"-v=1: this option takes no value"),
    (["-h=1", "data.bin"], b"-h=1: this option takes no value"),
    (["-j=", "-o=out", "data.bin"], b"-j=: this option takes no value"),
    (["-n", "data.bin"], b"-n: this option needs a value after \"=\""),
    (["data.bin", "--size", "5"], b"--size: this option needs a value after \"=\""),
    (["-n=1", "-o", "data.bin"], b"-o: this option needs a value after \"=\""),
]

BAD_NUMBERS = ["", "0", "000", "abc", "12abc", "-3", "+3", " 3", "3 ", "3.0", "1e2", "0x1F", "1,000",
               "99999999999999999999", "18446744073709551616", "18446744073709551615", "9223372036854775808"]

# fold0 and folder are folders; folder/taken.0 is a file.
REFUSED_FILES = [
    (["-n=1001", "data.bin"], b"-n=1001: data.bin has only 1000 bytes"),
    (["-n=100000", "data.bin"], b"-n=100000: data.bin has only 1000 bytes"),
    (["-n=100001", "data.bin"], b"-n=100001: not a whole number from 1 to 100000"),
    (["-n=1", "."], b". is a directory"),
    (["-n=1", "*.bin"], b"*.bin: name the file, patterns are not expanded"),
    (["-n=1", "data*"], b"data*: name the file, patterns are not expanded"),
    (["-j", "-o=out", "data.bin", "*"], b"*: name the file, patterns are not expanded"),
    (["-n=1", "empty.bin"], b"empty.bin is empty"),
    (["-j", "-o=out", "data.bin", "empty.bin"], b"empty.bin is empty"),
    (["-j", "-o=out", "data.bin", "folder"], b"folder is a directory"),
    (["-j", "-o=out", "data.bin", "nowhere.bin"], b"cannot read nowhere.bin: No such file or directory"),
    (["-n=1", "-o=disc1", "data.bin"],
     b"<here>/disc1: ends in a digit, which a join would take for a part of the number"),
    (["-n=1", "-f", "-o=0", "data.bin"], b"-o=0: a name of one character needs its folder, as in ./0"),
    (["-n=1", "-o=./9", "data.bin"],
     b"<here>/./9: ends in a digit, which a join would take for a part of the number"),
    (["-n=1", "-o=folder/taken.", "data.bin"], b"<here>/folder/taken.0 exists already; -f overwrites it"),
    (["-n=1", "-o=fold", "data.bin"], b"<here>/fold0 is a directory"),
    (["-n=1", "-f", "-o=fold", "data.bin"], b"<here>/fold0 is a directory"),
    (["-j", "-f", "-o=folder", "data.bin", "data.bin"], b"<here>/folder is a directory"),
    (["-n=2", "-o=nowhere/x", "data.bin"], b"cannot create <here>/nowhere/x.count: No such file or directory"),
    (["-j", "-f", "-o=nowhere/x", "data.bin", "data.bin"], b"cannot create <here>/nowhere/x: No such file or directory"),
]


class CommandLineTest(ToolTestCase):
    def setUp(self):
        super().setUp()
        self.write("data.bin", b"d" * 1000)
        self.write("empty.bin", b"")
        for name in ["folder", "fold0"]:
            (self.folder / name).mkdir()
        self.write("folder/taken.0", b"taken")

    def test_library_screens(self):
        # All at once: the library waits half a second after each screen.
        with concurrent.futures.ThreadPoolExecutor(len(SCREENS)) as pool:
            results = list(pool.map(lambda case: self.tool(*case[0]), SCREENS))
        for (arguments, message), result in zip(SCREENS, results):
            with self.subTest(arguments=arguments):
                self.assertEqual((0, message + SCREEN, b""), result)

    def test_options(self):
        for arguments, problem in REFUSED_OPTIONS:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_numbers(self):
        for text in BAD_NUMBERS:
            for flag, limit in [("-n", b"100000"), ("-s", b"9223372036854775807")]:
                with self.subTest(flag=flag, text=text):
                    given = f"{flag}={text}"
                    self.check_refusal(given.encode() + b": not a whole number from 1 to " + limit, given, "data.bin")

    def test_files(self):
        for arguments, problem in REFUSED_FILES:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)

    def test_many_fragments(self):
        self.write("many.bin", b"m" * 100001)
        self.check_refusal(b"-s=1: makes 100001 fragments, more than 100000", "-s=1", "many.bin")

    def test_large_file(self):
        # It has no bytes on the disk, only a size that 32 bits cannot hold.
        with open(self.folder / "large.bin", "wb") as large:
            large.truncate(5 * 2**30 + 1)
        self.assertEqual((1, b"", b"fragment: -s=50000: makes 107375 fragments, more than 100000\n"),
                         self.tool("-s=50000", "large.bin"))

    def test_program_path_without_a_name(self):
        problem = b"fragment: the program path holds no name of at least four letters\n"
        banner = b"\n\033[34m####################################\033[0m\n"
        if programs.ON_WINDOWS:
            program, options = self.folder / "ab", {}
            shutil.copy(PROGRAM, program)
            shutil.copy(os.path.join(os.path.dirname(PROGRAM), "kelplib.dll"), self.folder)
        else:
            program, options = "C:\\ab", {"executable": PROGRAM}
        self.assertEqual((1, banner, problem),
                         programs.run(str(program), "-h", "data.bin", cwd=self.folder, **options))

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
            # Regular by its look, of size 0, but nothing can be read at its beginning.
            (["-j", "-o=out", "data.bin", "/proc/self/mem"], b"cannot read /proc/self/mem: Input/output error"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(problem, *arguments)


if __name__ == "__main__":
    unittest.main()
