#!/usr/bin/env python3
"""The Windows parts of a tool: parts_test.py PARTS_TOOL PARTS_PROBE MANIFEST"""

import pathlib
import sys
import tempfile
import unittest

import programs
import terminal

TOOL, PROBE, MANIFEST = sys.argv[1:]
del sys.argv[1:]

BEFORE = "850 852 raw"
INSIDE = "65001 65001 interpreted"


def windows_path(path):
    """The path of a file of this machine under wine."""
    return "Z:" + str(path).replace("/", "\\")


class Resources(unittest.TestCase):
    def test_version_and_manifest(self):
        status, output, _ = programs.run(PROBE, "resources", windows_path(TOOL))
        lines = output.decode().splitlines()
        self.assertEqual((status, lines[:7]), (0, [
            "10002.30000 10002.30000 40004 1", """"é日" 100 % C:\\new \\" $<1:x> ${x} @x@ a;b /* // $(x) `x` 'x' <&>""",
            "01.2.3-rc1", "parts_tool", "parts_tool.exe", "parts_tool", "01.2.3-rc1"]))
        self.assertEqual(lines[7:], pathlib.Path(MANIFEST).read_text(encoding="utf-8").splitlines())


class Arguments(unittest.TestCase):
    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name)

    def test_arrive_as_typed(self):
        for name in ("a1.txt", "a2.txt"):
            (self.folder / name).touch()
        arguments = ["é日", "😀", "a*.txt", "a?.txt", "*", "", "a b", 'say "no"', "C:\\x\\", "'a'", "-o=*.txt", "[a]*"]
        status, output, _ = programs.run(TOOL, "arguments", *arguments, cwd=self.folder)
        self.assertEqual((status, output.decode().splitlines()), (0, arguments))

    def test_names_of_files(self):
        self.assertEqual(programs.run(TOOL, "write", "é日.txt", cwd=self.folder)[0], 0)
        self.assertEqual([path.name for path in self.folder.iterdir()], ["é日.txt"])

    def test_long_paths(self):
        deep = self.folder.joinpath(*["folder" * 8] * 8)
        deep.mkdir(parents=True)
        status, output, errors = programs.run(TOOL, "write", windows_path(deep / "file.txt"))
        self.assertEqual((status, errors), (0, b""))
        opened, length = output.split()
        self.assertEqual((opened, (deep / "file.txt").read_bytes()), (b"1", b"written\r\n"))
        self.assertGreater(int(length), 260)


class Consoles(unittest.TestCase):
    def probed(self, *arguments):
        """Returns the lines about the state of the console, and the screen."""
        with terminal.Terminal(PROBE, *arguments) as pane:
            self.assertEqual(pane.wait_for_end(), 0)
            return pane.errors().decode().splitlines(), [row for row in pane.rows() if row]

    def check(self, streams, command, inside, after, status):
        lines, _ = self.probed("run", streams, TOOL, command)
        # If standard error is the console, the screen shows the state inside.
        within = [] if "e" in streams else ["inside: " + inside]
        self.assertEqual(lines, ["before: " + BEFORE, *within, "after: " + after, "status: " + status])

    def test_each_end(self):
        for command, status in ("return", "4"), ("exit", "3"), ("note", "3"), ("raise", "3"), ("print", "0"):
            with self.subTest(command=command):
                lines, _ = self.probed("run", "io", TOOL, command)
                error = ["parts: interrupted"] if command in ("note", "raise") else []
                self.assertEqual(lines, ["before: " + BEFORE, "inside: " + INSIDE, *error, "after: " + BEFORE, "status: " + status])

    def test_end_by_ctrl_c(self):
        # Windows and wine report different exit statuses.
        lines, _ = self.probed("run", "io", TOOL, "interrupt")
        self.assertEqual(lines[:-1], ["before: " + BEFORE, "inside: " + INSIDE, "after: " + BEFORE])

    def test_streams(self):
        self.check("", "return", BEFORE, BEFORE, "4")
        self.check("o", "return", "65001 852 interpreted", BEFORE, "4")
        self.check("i", "return", "850 65001 raw", BEFORE, "4")

    def test_standard_error_alone(self):
        lines, rows = self.probed("run", "e", TOOL, "return")
        self.assertEqual(rows, ["inside: 65001 852 interpreted"])
        self.assertEqual(lines, ["before: " + BEFORE, "after: " + BEFORE, "status: 4"])

    def test_encoding_of_others(self):
        self.check("io", "encoding", INSIDE, "1252 852 raw", "0")

    def test_two_tools(self):
        for first, meanwhile in ("1", INSIDE), ("0", BEFORE):
            lines, _ = self.probed("twice", TOOL, first)
            self.assertEqual(lines, ["before: " + BEFORE, "inside: " + INSIDE, "inside: " + INSIDE, "at the end: " + INSIDE,
                                     "at the end: " + meanwhile, "after: " + BEFORE])


if __name__ == "__main__":
    unittest.main()
