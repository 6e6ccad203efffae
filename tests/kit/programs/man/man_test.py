"""What mandoc, groff, man and lexgrog make of man pages: man_test.py PAGES KELP_DOC

PAGES is man_pages, which writes a page for each text. The folder of this script contains a saved help screen, sections to
include, the page that kelp-doc writes from both, and its rendering at 80 columns.
"""

import os
import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import programs

KELP_DOC = sys.argv.pop()
PAGES = sys.argv.pop()
HERE = pathlib.Path(__file__).parent
for needed in ("mandoc", "groff", "man", "lexgrog"):
    if shutil.which(needed) is None:
        sys.exit(f"{needed} is not installed: the tests of the man pages need it")

ENVIRONMENT = {"PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8", "TERM": "dumb", "MANWIDTH": "80", "MANPAGER": "cat",
               "SOURCE_DATE_EPOCH": "1795305600"}  # November 22, 2026

# Each text is everywhere in the definition of a tool.
TEXTS = [
    "", " ", "text", "Two sentences. Here.", "One. Two! Three? (Four.) Five", "e.g. this, i.e. that etc.", "Ends without",
    # Requests, macros and escape sequences
    ".", "..", "...", ".SH NAME", ".Sh NAME", ".\\\" comment", ".so /etc/passwd", ".sy touch canary", ".ex", ".ab", ".de x", "a\n.Sh B\nc",
    "a\r\n.El\r\n.Sh B\r\n", "'br", "'", "''", "x\n'br\ny", "\\", "\\\\", "a\\", "\\fBbold", "\\(aq", "\\[u00E9]", "\\*[x]", "\\n[x]",
    "\\$1", "\\c", "a\\c\nb", "\\\"", "\\X'x'", "\\N'65'", "\\h'9i'", "\\v'9i'", "\\&", "\\:", "\\%", "\\~", "\\e", "\\u", "\\z", "\\{", "\\}",
    "Ar", "Op", "No", "Ns", "Fl x", "x Fl", "Pq Ar x", "Xo", "Xc", "Oo x Oc", "El", "Ed", "It", "Bl", "Bsx", "Brq", "Brc", "%A", "%T x",
    "Nd", "Nm", "Sh", "Sm off", "Ta", "Ta Ta", "Ap", "Ap s", "D1", "Eo", "Ec", "Rs", "Re", "St", "At v7", "Bx", "Lb", "Xr x 1", "An",
    # Punctuation
    *".,:;()[]?!|", "( x )", "[ x ]", "x .", "x ,", "x :", "a , b", "(", "((", "x)", "x]", "x|", "x;", "FILE...", "[FILE...]", "a|b|c",
    "[-n=LINES] [-m=fast|exact] [-f] FIRST [OTHER...]", "{a,b}", "<file>", "=", "==", "-", "--", "---", "-x", "--number=-3", "a - b", "a -- b",
    # Characters
    "\"", "\"\"", "\"a b\"", "\"a", "`a'", "``a''", "^", "~", "a^b~c", "%s%n%d", "%", "#", "@", "$(touch canary)", "`touch canary`", "&amp;",
    "<b>x</b>", "a\tb", "\t", "a  b   c", "  a", "a  ", "a\n\n\nb", "\n", "\x01\x02", "a\x1b[31mb", "\x7f", "a\x00b",
    "é", "été", "É. È", "日本語", "日本。語", "e\u0301", "\u0301", "e\u0301\u0302\u0303x", "‘q’", "“q”", "–", "…", "\u00a0", "a\u00a0b", "\u00ad", "\u200b",
    "\u202eabc", "\ufeff", "\u037e", "\u212a", "\u1fef", "😀", "👨\u200d👩", "\U0010ffff", "\ue000", "\u0085", "עברית", "العربية", "हिन्दी", "ไทย",
    # Long ones
    "w" * 59, "w" * 61, "w" * 10000, "é" * 10000, "日" * 31, "日" * 5000, "\u0301" * 200, "-" * 200, "." * 200, "\\" * 200, "\"" * 200, "'" * 200,
    "[" * 200, "[x]" * 200, "a|" * 200, "(" + "w" * 20 + ")" + "w" * 20, "x. " * 200, "word " * 500, "https://example.org/a/very/long/path/that/does/not/fit/into/a/line/of/eighty/columns.html",
    "a " + "w" * 35 + " b " + "w" * 50 + " c " + "w" * 33,
]
NAMES = ["a", "Ar", "Op", "No", "ls", "a-b", "a_b", "a.b", "c++", "x.1", "7z", "Bsx", "EXIT", "tool..", "A"]
INVALID = [b"\xff", b"a\xc3", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"\x80"]


def plain(rendered):
    """A rendering without overstrikes, that is without bold and underlined characters."""
    return re.sub(".\b", "", rendered)


def visible(text):
    """A text as the page shows it, without white space."""
    text = "".join(each if ord(each) > 0x9f or each in "\t\n\r" or " " <= each <= "~" else
                   "".join(f"\\x{byte:02x}" for byte in each.encode()) for each in text)
    return "".join(text.translate({0x37e: ";", 0x212a: "K"}).split())


class ManTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve()

    def run_tool(self, *command, **options):
        """Returns exit status, output and errors as texts."""
        status, output, errors = programs.run(*command, cwd=self.folder, env=ENVIRONMENT, **options)
        return status, output.decode(), errors.decode()

    def pages(self, prefix, texts):
        """Writes a page for each text and returns their names."""
        names = [f"{prefix}{number:03}" for number in range(len(texts))]
        for name, text in zip(names, texts):
            (self.folder / name).write_bytes(text if isinstance(text, bytes) else text.encode())
        self.assertEqual(self.run_tool(PAGES, *names), (0, "", ""))
        return [name + ".1" for name in names]

    def check(self, pages):
        """Checks that the judges find nothing."""
        self.assertEqual(self.run_tool("mandoc", "-T", "lint", "-W", "style", *pages), (0, "", ""))
        findings = []
        for page in pages:
            findings.append((page, self.run_tool("groff", "-k", "-mandoc", "-ww", "-Tutf8", "-z", page)))
        self.assertEqual([each for each in findings if each[1] != (0, "", "")], [])

    def check_man(self, page):
        """Checks that man finds nothing, and returns what it prints."""
        status, output, errors = self.run_tool("man", "--warnings", "-l", page)
        self.assertEqual((page, status, errors), (page, 0, ""))
        return plain(output)

    def summaries(self, pages):
        """Returns what lexgrog reads from pages."""
        status, output, errors = self.run_tool("lexgrog", *pages)
        self.assertEqual((status, errors), (0, ""))
        lines = [re.fullmatch(r'(.*?): "(.*)"', line) for line in output.splitlines()]
        self.assertEqual([line[1] for line in lines], pages)
        return [line[2] for line in lines]


class HostileTexts(ManTest):
    def test_judges(self):
        pages = self.pages("text", TEXTS + INVALID)
        self.check(pages)
        self.assertTrue(all(line.startswith("tool - ") for line in self.summaries(pages)))
        self.assertFalse((self.folder / "canary").exists())

    def test_man(self):
        for page in self.pages("text", TEXTS[::12]):
            self.check_man(page)

    def test_nothing_is_lost(self):
        for text, page in zip(TEXTS, self.pages("text", TEXTS)):
            with self.subTest(text=text[:50]):
                status, output, errors = self.run_tool("mandoc", "-T", "utf8", "-O", "width=200", page)
                self.assertEqual((status, errors), (0, ""))
                shown = plain(output)
                self.assertEqual(re.findall(r"^[^ \n].*", shown, re.M)[1:-1],
                                 ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "EXIT STATUS", *(["EXAMPLES"] if text else [])])
                self.assertGreaterEqual("".join(shown.split()).count(visible(text)), 21)


class Names(ManTest):
    def test_judges(self):
        pages = self.pages("names", NAMES)
        self.check(pages)
        self.assertEqual(self.summaries(pages), [name + " - Has an odd name" for name in NAMES])
        for name, page in zip(NAMES, pages):
            shown = self.check_man(page)
            self.assertTrue(shown.startswith(name.upper() + "(1)"), shown)
            self.assertRegex(shown, rf"\nSYNOPSIS\n +{re.escape(name)} FILE\n")


class Golden(ManTest):
    """A page with everything an ordinary one has."""

    def test_page(self):
        document = self.run_tool(KELP_DOC, "-s", "-f=man", "-t=d=DIR,m=fast|exact", f"-i={HERE / 'firstlines.mdoc'}",
                                 str(HERE / "firstlines.screen"))
        self.assertEqual(document, (0, (HERE / "firstlines.1").read_text(encoding="utf-8"), ""))

    def test_judges(self):
        shutil.copy(HERE / "firstlines.1", self.folder)
        self.check(["firstlines.1"])
        self.check_man("firstlines.1")
        self.assertEqual(self.run_tool("groff", "-mandoc", "-ww", "-Tascii", "-z", "firstlines.1"), (0, "", ""))
        self.assertEqual(self.summaries(["firstlines.1"]), ["firstlines - Shows the first lines of a text"])

    def test_rendering(self):
        rendered = self.run_tool("mandoc", "-T", "ascii", "-I", "os=Tools", "-O", "width=80", str(HERE / "firstlines.1"))
        self.assertEqual((rendered[0], plain(rendered[1]), rendered[2]),
                         (0, (HERE / "firstlines.txt").read_text(encoding="utf-8"), ""))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
