"""File names in the example tools: control characters are printed as text, and letters of every language work."""

import os
import unittest

import programs
from example_tool import PROGRAM, ToolTestCase, native_only

TOOLS = os.path.dirname(PROGRAM)

# A name, the name as the tools print it.
SHOWN = [
    ("a\x1b[31mb", b"a\\x1b[31mb"), ("a\x07b\nc\td\x7f", b"a\\x07b\\x0ac\\x09d\\x7f"), ("a\u009bb", b"a\\xc2\\x9bb"),
    ("t\u00e4st\u00a0\u65e5\u672c\U0001f600", "t\u00e4st\u00a0\u65e5\u672c\U0001f600".encode()),
    (b"a\x9bb\xff", b"a\\x9bb\\xff"), (b"\xc0\xaf\xc1\x81", b"\\xc0\\xaf\\xc1\\x81"),
    (b"\xe0\x80\x9b\xed\xa0\x80\xf0\x80\x80\x9b\xf4\x90\x80\x80\xf5\x80\x80\x80",
     b"\\xe0\\x80\\x9b\\xed\\xa0\\x80\\xf0\\x80\\x80\\x9b\\xf4\\x90\\x80\\x80\\xf5\\x80\\x80\\x80"),
    (b"ab\xe6\x97", b"ab\\xe6\\x97"), (b"\xe6\x97a", b"\\xe6\\x97a"), (b"ab\xf0\x9f\x98", b"ab\\xf0\\x9f\\x98"),
    (b"\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf\xf4\x8f\xbf\xbf |~",
     b"\xdf\xbf\xe0\xa0\x80\xed\x9f\xbf\xee\x80\x80\xef\xbf\xbf\xf4\x8f\xbf\xbf |~"),
]

COUNTED = b"0:3 2 ##\ncounted: 2, below: 0, above: 0, NaN: 0, not numbers: 0"


class NamesTest(ToolTestCase):
    def other_tool(self, name, *arguments):
        program = os.path.join(TOOLS, name + (".exe" if programs.ON_WINDOWS else ""))
        status, output, problem = programs.run(program, *arguments, cwd=self.folder, **self.utf8())
        return status, self.without_folder(output), self.without_folder(problem)

    @staticmethod
    def utf8():
        """Options for a UTF-8 locale, from which wine takes the encoding of names."""
        return {"env": {**os.environ, "LC_ALL": "C.UTF-8"}}

    @native_only
    def test_control_characters_and_invalid_bytes(self):
        for name, shown in SHOWN:
            name = os.fsencode(name)
            with self.subTest(name=name):
                with open(os.path.join(os.fsencode(self.folder), name), "wb") as file:
                    file.write(b"1\n2\n")
                flag = os.fsdecode(b"-o=x" + name)
                for expected, *line in [
                    ((0, b"x%s.0: 4 bytes\nfragments: 1, bytes: 4, first: x%s.0, last: x%s.0\n" % (shown, shown, shown), b""),
                     "fragment", "-v", "-n=1", flag + ".", name),
                    ((0, b"%s: 4 bytes\n%s: 4 bytes\nfragments: 2, bytes: 8, joined: x%s\n" % (shown, shown, shown), b""),
                     "fragment", "-v", "-j", flag, name, name),
                    ((1, b"", b"fragment: x%s exists already; -f overwrites it\n" % shown), "fragment", "-j", flag, name, name),
                    ((0, b"lines: 1, output: x%s\n" % shown, b""), "slice", "-f", "-sr=2:2", flag, name),
                    ((1, b"", b"slice: cannot read y%s: No such file or directory\n" % shown), "slice", "-sr=2:2", b"y" + name),
                    ((2, b"", b"slice: which lines? Give -tr or -sr, as in: slice -sr=1:10 %s (see slice --help)\n" % shown),
                     "slice", name),
                    ((0, COUNTED + b", table: x%s\n" % shown, b""), "histogram", "-f", "-e=0:3", flag, name),
                    ((1, b"", b"histogram: %s contains no number in these columns\n" % shown),
                     "histogram", "-e=0:3", "-c=2", name),
                    ((2, b"", b"flat_progress: cannot open y%s: No such file or directory\n" % shown),
                     "flat_progress", b"y" + name),
                    ((0, b"lines with bytes outside ASCII: 0\n", b""), "flat_progress", name),
                ]:
                    self.assertEqual(expected, self.tool_with_short_names(*line))
                for path in os.listdir(os.fsencode(self.folder)):
                    os.unlink(os.path.join(os.fsencode(self.folder), path))

    def tool_with_short_names(self, name, *arguments):
        """Runs a tool. Returns exit status, output and errors without the folder."""
        status, output, problem = self.other_tool(name, *arguments)
        return status, output.replace(b"<here>/", b""), problem.replace(b"<here>/", b"")

    @native_only
    def test_names_in_findings_and_label(self):
        self.write("a\x1bb", b"\x80\n")
        finding = b"a\\x1bb:1:1: byte 0x80\nlines with bytes outside ASCII: 1\n"
        self.assertEqual((1, finding, b""), self.other_tool("flat_progress", "a\x1bb"))
        environment = {**os.environ, "MSYSTEM": "MINGW64"}
        output = programs.run(os.path.join(TOOLS, "flat_progress"), "a\x1bb", cwd=self.folder, env=environment)[1]
        self.assertEqual((b"a\\x1bb 100.0% ", b""), (output[:14], b"\x1b" if b"\x1b" in output else b""))

    @native_only
    def test_selected_lines_are_not_changed(self):
        self.write("in", b"\x1b[31m\x07\xff\n")
        self.assertEqual((0, b"\x1b[31m\x07\xff\n", b""), self.other_tool("slice", "-sr=1:1", "in"))

    def test_letters_of_any_language(self):
        for name in ("t\u00e4st", "\u65e5\u672c", "\u0436\u2192\U0001f600"):
            with self.subTest(name=name):
                shown = name.encode()
                self.write(name, b"1\n2\n")
                for expected, *line in [
                    ((0, b"fragments: 2, bytes: 4, first: %s.part_0, last: %s.part_1\n" % (shown, shown), b""),
                     "fragment", "-n=2", name),
                    ((0, b"fragments: 2, bytes: 4, joined: <here>/x%s\n" % shown, b""),
                     "fragment", "-j", "-o=x" + name, name + ".part_0"),
                    ((1, b"", b"fragment: <here>/x%s exists already; -f overwrites it\n" % shown),
                     "fragment", "-j", "-o=x" + name, name + ".part_0"),
                    ((0, b"lines: 1, output: y%s\n" % shown, b""), "slice", "-sr=2:2", "-o=y" + name, name),
                    ((0, COUNTED + b", table: <here>/z%s\n" % shown, b""), "histogram", "-e=0:3", "-o=z" + name, name),
                    ((0, b"lines with bytes outside ASCII: 0\n", b""), "flat_progress", name),
                ]:
                    self.assertEqual(expected, self.other_tool(*line))
                self.assertEqual(b"1\n2\n", self.contents()["x" + name])


if __name__ == "__main__":
    unittest.main()
