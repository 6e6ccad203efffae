"""The C example flat_progress: its results, its help, its failures and its bar."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

import programs
import terminal

PROGRAM = sys.argv.pop()

NONE = b"lines with bytes outside ASCII: 0\n"

# The content of a file, the report about it.
TEXTS = [
    (b"", NONE),
    (b"plain\n\ttext\x00\x7f\r\n", NONE),
    (b"\x80", b"text:1:1: byte 0x80\nlines with bytes outside ASCII: 1\n"),
    (b"abc\xff", b"text:1:4: byte 0xFF\nlines with bytes outside ASCII: 1\n"),
    (b"\n\na\xc3\xa4\xc3\xb6\nb\n\xe2\x82\xac", b"text:3:2: byte 0xC3\ntext:5:1: byte 0xE2\n"
                                                b"lines with bytes outside ASCII: 2\n"),
    (10 * b"\xa0\n", b"".join(b"text:%d:1: byte 0xA0\n" % line for line in range(1, 11)) +
     b"lines with bytes outside ASCII: 10\n"),
    (12 * b"\xa0\n", b"".join(b"text:%d:1: byte 0xA0\n" % line for line in range(1, 11)) +
     b"... and 2 more lines\nlines with bytes outside ASCII: 12\n"),
    # Lines that cross the end of the buffer of 65536 bytes.
    (65535 * b"a" + b"\xe4\xf6\n\xfc\n", b"text:1:65536: byte 0xE4\ntext:2:1: byte 0xFC\n"
                                         b"lines with bytes outside ASCII: 2\n"),
    (65536 * b"a" + b"\xe4", b"text:1:65537: byte 0xE4\nlines with bytes outside ASCII: 1\n"),
]

HELP = b"""\
usage: flat_progress FILE

Finds the lines of a text file that contain a byte outside ASCII, and prints
the first such byte of each of the first ten lines as FILE:LINE:COLUMN. If a
file is called -h or --help, write ./-h or ./--help.

  -h, --help  shows this help

Exit status: 0 if every byte is ASCII, 1 if not, 2 if the file cannot be read
or the results cannot be written.
"""


class FlatProgressTest(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def run_in_folder(self, *arguments, **environment):
        clean = {name: value for name, value in os.environ.items() if name != "MSYSTEM"}
        return programs.run(PROGRAM, *arguments, cwd=self.folder, env={**clean, **environment})

    def test_findings(self):
        for text, report in TEXTS:
            with self.subTest(text=text[:20]):
                (self.folder / "text").write_bytes(text)
                self.assertEqual(self.run_in_folder("text"), (0 if report == NONE else 1, report, b""))

    def test_help(self):
        for flag in ("-h", "--help"):
            self.assertEqual(self.run_in_folder(flag), (0, HELP, b""))
            (self.folder / flag).write_bytes(b"\x80")
            self.assertEqual(self.run_in_folder("./" + flag),
                             (1, b"./%s:1:1: byte 0x80\nlines with bytes outside ASCII: 1\n" % flag.encode(), b""))

    def test_refusals(self):
        usage = (2, b"", b"usage: flat_progress FILE\n")
        self.assertEqual(self.run_in_folder(), usage)
        self.assertEqual(self.run_in_folder("a", "b"), usage)
        self.assertEqual(self.run_in_folder("nowhere"),
                         (2, b"", b"flat_progress: cannot open nowhere: No such file or directory\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "there is no such device")
    def test_full_standard_output(self):
        (self.folder / "text").write_bytes(b"plain\n")
        for environment in ({}, {"MSYSTEM": ""}):
            with open("/dev/full", "wb") as full:
                done = subprocess.run([PROGRAM, "text"], cwd=self.folder, env={**os.environ, **environment}, stdout=full,
                                      stderr=subprocess.PIPE, stdin=subprocess.DEVNULL, timeout=60, check=False)
            self.assertEqual((done.returncode, done.stderr),
                             (2, b"flat_progress: cannot write standard output\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "a folder cannot be opened there")
    def test_folder(self):
        for environment in ({}, {"MSYSTEM": ""}):
            self.assertEqual(self.run_in_folder(".", **environment),
                             (2, b"", b"flat_progress: cannot read .: Is a directory\n"))

    def test_bar_where_a_terminal_looks_like_a_pipe(self):
        (self.folder / "text").write_bytes(b"plain\n")
        status, output, errors = self.run_in_folder("text", MSYSTEM="MINGW64")
        self.assertEqual((status, errors), (0, b""))
        self.assertRegex(output, rb"\Atext 100\.0% ############################### done in: \d\.\d secs  \r\n" + NONE)
        (self.folder / "text").write_bytes(b"")
        self.assertEqual(self.run_in_folder("text", MSYSTEM="MINGW64"), (0, NONE, b""))

    def test_bar_in_a_terminal(self):
        name = self.folder / "a-text-with-a-long-name"
        name.write_bytes(300000 * b"plain\n" + b"\xff\n")
        text = programs.windows_path(name).decode() if programs.ON_WINDOWS else str(name)
        with terminal.Terminal(PROGRAM, text, columns=80) as pane:
            self.assertEqual(pane.wait_for_end(), 1)
            pane.wait_for_text("lines with bytes outside ASCII: 1")
            rows = [row for row in pane.rows() if row]
        self.assertRegex(rows[0], r"\A.{6}\.\.\.long-name 100\.0% #{31} done in: \d\.\d secs\Z")
        self.assertEqual(rows[1:], [f"{text}:300001:1: byte 0xFF", "lines with bytes outside ASCII: 1"])


if __name__ == "__main__":
    unittest.main()
