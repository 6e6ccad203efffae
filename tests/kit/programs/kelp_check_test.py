#!/usr/bin/env python3
"""Runs kelp-check on tools and on saved screens:

    kelp_check_test.py KELP_CHECK KELP_DOC HOSTILE_TOOL DEFINED_TOOL [EXAMPLE -t=HINTS]...
"""

import os
import pathlib
import re
import sys
import tempfile
import unittest

import programs

KELP_CHECK, KELP_DOC, HOSTILE, DEFINED, *EXAMPLES = sys.argv[1:]
NOT_A_SCREEN = ": not a kelplib help screen: "
BLIND = re.compile(r"kelp-check: [^\n]*: only the help screen is checked; (the tool cannot be observed: [^\n]*|there is no kelp_observer.so|"
                   r"Windows has no way to observe it)\n")

# Names of the hostile tool, and the message.
REFUSED = [
    ("silent", NOT_A_SCREEN + "line 1: expected an empty line"),
    ("status", " ended with exit status 3"),
    ("twice", NOT_A_SCREEN + "line 17: expected the end of the help screen"),
    ("after", NOT_A_SCREEN + "line 17: expected the end of the help screen"),
    ("large", " prints more than 1000000 bytes"),
    ("endless", " prints more than 1000000 bytes"),
]

SCREEN = r"""$
\e[34m####################################\e[0m$
\e[37m\tcommonlines\e[0m$
\e[37m\e[0m$
\e[34m####################################\e[0m$
$
\e[36mShows the lines that two texts have in common.\e[0m$
\e[36mUsage:\e[0m$
  commonlines [-n=LINES] [-o=FILE] FILE [OTHER...]$
$
\e[36mOptions:\e[0m$
  -h, --help: show this help$
$
  -n, --number: how many lines to show$
$
  -o, --output: write to this file$
$
$
\e[36mArguments:\e[0m$
  FILE: a text$
$
  OTHER: another text$
$
$
\e[36mExample:\e[0m$
  \e[34mcommonlines\e[0m -n=3 a.txt b.txt$
"""

# The names of options and arguments become blue. Changes of the screen, and the findings before their first ":".
CHANGES = [
    (SCREEN, SCREEN, []),
    ("[-n=LINES]", "[-n=LINES] [--version]", []),  # a tool of the kit may answer it unlisted
    ("$\n$\n$\n\\e[36mArg", "$\n$\n  -V, --version: show the version$\n$\n$\n\\e[36mArg", []),  # as well
    ("[-n=LINES]", "[-x]", ["warning usage-names -x"]),
    ("-n=3 a.txt", "a.txt", []),
    ("-n=3 a.txt b.txt", "a.txt", []),
    ("-n=3 a.txt b.txt", "-n=3", ["warning example-refused FILE"]),
    ("-n=3", "-n 3", ["warning example-refused -n"]),
    ("[-n=LINES]", "[-n LINES]", ["warning usage-names -n"]),
    ("[-n=LINES]", "[-n]", ["warning usage-names -n"]),
    ("[-n=LINES]", "[-n[=LINES]] [--]", []),
    ("[-o=FILE]", "[-o]", ["warning usage-names -o"]),
    ("-n=3 a.txt", "-o a.txt", ["warning example-refused -o"]),
    ("FILE [OTHER...]", "FILE  or  -o=FILE OTHER...", []),
    ("-n=LINES] [-o=FILE] FILE [OTHER...]$", "-n=LINES] FILE | -o=FILE OTHER...$", []),
    ("[OTHER...]", "[OTHER]", []),
    ("a.txt b.txt", "a.txt b.txt c.txt", []),
    ("[-n=LINES] ", "", []),  # the example shows the value
    ("[-n=LINES] [-o=FILE] FILE [OTHER...]$", "[OPTIONS] FILE OTHER $", []),
    ("-h, --help: show this help", "-h, --height: show this help", ["error help-taken -h", "warning value-unknown -h"]),
    ("  -h, --help: show this help$\n$\n", "", ["warning no-help"]),
    ("-n, --number", "-n, --lines", ["error long-letter --lines"]),
    ("how many lines to show", "", ["warning empty-text -n"]),
    ("FILE: a text", "FILE: a\\x01text", ["warning control-character FILE"]),
    ("FILE: a text", "FILE: " + 73 * "x", ["note too-long FILE"]),
]


class KelpCheckTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve()
        (self.folder / "tmp").mkdir()
        # Under wine, programs have a folder for temporary files elsewhere, and wine itself would use this one.
        self.environment = {**os.environ, **({} if programs.ON_WINDOWS else {"TMPDIR": str(self.folder / "tmp")})}

    def check(self, *arguments):
        status, output, errors = programs.run(KELP_CHECK, *arguments, cwd=self.folder, env=self.environment)
        self.assertEqual(list((self.folder / "tmp").iterdir()), [])
        return status, output.decode(), errors.decode()

    def check_screen(self, text, *arguments):
        text = re.sub(r"^  (-[^:]*:|FILE:|OTHER:)", r"  \\e[34m\1\\e[0m", text, flags=re.M)
        (self.folder / "saved").write_text(text, encoding="utf-8")
        return self.check("-r", *arguments, "saved")


class SavedScreens(KelpCheckTest):
    def test_changes(self):
        for before, after, findings in CHANGES:
            with self.subTest(after=after):
                self.assertIn(before, SCREEN)
                status, output, errors = self.check_screen(SCREEN.replace(before, after))
                self.assertEqual(([line.split(":")[0] for line in output.splitlines()], errors), (findings, ""))
                self.assertEqual(status, 1 if "error" in output else 0)

    def test_strict(self):
        for before, after, findings in CHANGES:
            status = self.check_screen(SCREEN.replace(before, after), "-s")[0]
            self.assertEqual(status, 1 if any(not finding.startswith("note") for finding in findings) else 0, after)

    def test_line(self):
        self.assertEqual(self.check_screen(SCREEN.replace("-n, --number", "-n, --lines")),
                         (1, "error long-letter --lines: a tool without the kit reads this long form as the option of its first "
                             "letter; let both forms begin with the same letter\n", ""))

    def test_hints(self):
        text = SCREEN.replace("[-n=LINES] ", "").replace("-n=3 ", "")
        unknown = "warning value-unknown -n: nothing says whether the option takes a value, so users and completions have to " \
                  "guess; show it in the usage or example line\n"
        self.assertEqual(self.check_screen(text), (0, unknown, ""))
        self.assertEqual(self.check_screen(text, "-t=n=LINES"), (0, "", ""))
        self.assertEqual(self.check_screen(text, "-t=x"), (1, "", "kelp-check: the hint x fits no option of commonlines\n"))

    def test_name(self):
        self.assertEqual(self.check_screen(SCREEN, "-n=cmp")[1].split(":")[0], "note short-name cmp")

    def test_refused(self):
        self.assertEqual(self.check_screen("Usage: tool\n"),
                         (1, "", "kelp-check: saved: not a kelplib help screen: line 1: expected an empty line\n"))
        self.assertEqual(self.check("-r", "none"), (1, "", "kelp-check: cannot read none: No such file or directory\n"))


class Tools(KelpCheckTest):
    def test_own_programs(self):
        for program in (KELP_CHECK, KELP_DOC):
            status, output, errors = self.check("-s", program)
            self.assertEqual((status, output), (0, ""))
            self.assertTrue(errors == "" or BLIND.fullmatch(errors), errors)

    def test_hostile(self):
        for name, message in REFUSED:
            with self.subTest(name=name):
                self.assertEqual(self.check("-n=" + name, HOSTILE), (1, "", "kelp-check: " + HOSTILE + message + "\n"))
        status, output, errors = self.check("-n=fall", HOSTILE)
        self.assertEqual((status, output), (1, ""))
        self.assertRegex(errors, r"^kelp-check: [^\n]* ended (by signal|with exit status) \d+\n$")

    def test_not_a_tool_of_the_library(self):
        # It prints the screen without the library.
        status, output, errors = self.check("-n=plain", HOSTILE)
        self.assertEqual([line.split(":")[0] for line in output.splitlines()], ["warning no-help", "warning no-example"])
        self.assertEqual(status, 0)
        self.assertTrue(BLIND.fullmatch(errors), errors)

    def test_hostile_definitions(self):
        for name in ("quotes", "brackets", "letters", "blanks", "words", "lines", "many", "none"):
            with self.subTest(name=name):
                status, output, errors = self.check("-n=" + name, DEFINED)
                self.assertTrue(errors == "" or BLIND.fullmatch(errors), errors)
                for line in output.splitlines():
                    self.assertRegex(line, r"^(error|warning|note) [a-z-]+( |:)")
                self.assertEqual(status, 1 if "\nerror " in "\n" + output else 0)
        self.assertEqual(sorted(path.name for path in self.folder.iterdir()), ["tmp"])

    def test_examples(self):
        for program, hints in zip(EXAMPLES[::2], EXAMPLES[1::2]):
            with self.subTest(program=program):
                status, output, errors = self.check("-s", *([] if hints == "-t=" else [hints]), program)
                if pathlib.Path(program).stem == "slice":  # has a help text of its own
                    self.assertEqual((status, output, errors),
                                     (1, "", f"kelp-check: {program}: not a kelplib help screen: line 1: expected an empty line\n"))
                    continue
                self.assertTrue(errors == "" or BLIND.fullmatch(errors), errors)
                self.assertEqual(status, 0)
                for line in output.splitlines():
                    self.assertRegex(line, "^note too-long ")


class CommandLines(KelpCheckTest):
    def test_refused(self):
        for arguments, message in [
                ([], "TOOL is missing"),
                (["-r", "-a=.", "x"], "-a=.: cannot be combined with -r"),
                (["-t=n=", "x"], '-t=n=: "n=" is not a hint; write l, n=LINES, o=FILE:file, d=DIR:folder or m=fast|exact'),
                (["-r", "-x", "x"], "-x: no such option"),
        ]:
            with self.subTest(arguments=arguments):
                self.assertEqual(self.check(*arguments), (2, "", "kelp-check: " + message + " (see kelp-check --help)\n"))

    def test_arguments(self):
        for arguments in ("a;b", "a|b", "a &", "<a", "2>a", "#1 x", "a #", ";", "word;", "'a", '"a', "a '", "\"a\\\"", "a\\"):
            self.assertEqual(self.check("-a=" + arguments, "none"),
                             (2, "", f"kelp-check: -a={arguments}: quote each of ; | & < > # and close each quote "
                                     "(see kelp-check --help)\n"))
        for arguments in ("", " ", "a#b", "';' \"|\" \\&", "'<>'\\#", "a '' ", "\"it's\"", "\\\\"):
            self.assertEqual(self.check("-a=" + arguments, "none"),
                             (1, "", "kelp-check: cannot run none: No such file or directory\n"))

    def test_start(self):
        self.assertEqual(self.check("none"), (1, "", "kelp-check: cannot run none: No such file or directory\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
