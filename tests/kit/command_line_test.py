#!/usr/bin/env python3
"""Runs a tool of the kit with command lines and compares exit status, standard output and standard error:
command_line_test.py COMMAND_LINE_TOOL [HELPER_WITHOUT_OUTPUT]"""

import os
import signal
import subprocess
import sys
import tempfile
import unittest

import programs

if not programs.ON_WINDOWS:
    import pty_output

TOOL, WITHOUT_OUTPUT = sys.argv[1], sys.argv[2] if len(sys.argv) > 2 else ""

# Tokens and what the tool prints. The exit status is 0.
ACCEPTED = [
    (["a"], "[a]\n"),
    (["a", "b", "c"], "[a]\n[b]\n[c]\n"),
    (["", " "], "[]\n[ ]\n"),
    (["a", "n=3", "=", "/x"], "[a]\n[n=3]\n[=]\n[/x]\n"),
    (["./-x"], "[./-x]\n"),
    (["-n=1", "a"], "-n 1\n[a]\n"),
    (["-N=1000000", "a"], "-n 1000000\n[a]\n"),
    (["--number=+007", "a"], "-n 7\n[a]\n"),
    (["a", "--NuMbEr=3"], "-n 3\n[a]\n"),
    (["-r=0", "a"], "-r 0\n[a]\n"),
    (["-r=.5", "a"], "-r 0.5\n[a]\n"),
    (["-r=-0", "a"], "-r -0\n[a]\n"),
    (["-r=1e-1", "a"], "-r 0.1\n[a]\n"),
    (["-m=FAST", "a"], "-m fast\n[a]\n"),
    (["-m=exact", "a"], "-m exact\n[a]\n"),
    (["-s=2:9", "a"], "-s 2 to 9\n[a]\n"),
    (["-s=2:2", "a"], "-s 2 to 2\n[a]\n"),
    (["-i=3", "a"], "-i 3\n[a]\n"),
    (["-i=3:1:3", "a"], "-i 3\n-i 1\n-i 3\n[a]\n"),
    (["-t=", "a"], "-t \n[a]\n"),
    (["-t=-5=x y", "a"], "-t -5=x y\n[a]\n"),
    (["-t=-h", "a"], "-t -h\n[a]\n"),
    (["-p=é 日/x", "a"], "-p é 日/x\n[a]\n"),
    (["-b=Off", "a"], "-b 0\n[a]\n"),
    (["-b=TRUE", "a"], "-b 1\n[a]\n"),
    (["-l", "a"], "-l\n[a]\n"),
    (["--LOUD", "a"], "-l\n[a]\n"),
    (["-v", "a"], "verbose\n[a]\n"),
    (["a", "--verbose"], "verbose\n[a]\n"),
    (["-f=unsynchronised", "a"], "[a]\n"),
]

# Tokens and the message, without the name of the tool and the hint. The exit status is 2.
REFUSED = [
    ([], "FIRST is missing"),
    (["-l"], "FIRST is missing"),
    # Names
    (["--lines", "a"], "--lines: no such option"),
    (["--lound", "a"], "--lound: no such option; did you mean --loud?"),
    (["--num=5", "a"], "--num: no such option; did you mean --number?"),
    (["--nubmer=5", "a"], "--nubmer: no such option; did you mean --number?"),
    (["--Nmuber", "a"], "--Nmuber: no such option; did you mean --number?"),
    (["--numbers=5", "a"], "--numbers: no such option; did you mean --number?"),
    (["--e", "a"], "--e: no such option; did you mean -e?"),
    (["--n=5", "a"], "--n: no such option; did you mean -n?"),
    (["--hlep", "a"], "--hlep: no such option; did you mean --help?"),
    (["-number=5", "a"], "-number: no such option; did you mean --number?"),
    (["-LOUD", "a"], "-LOUD: no such option; did you mean --LOUD?"),
    (["-x", "a"], "-x: no such option"),
    (["-x=5", "a"], "-x: no such option"),
    (["-5", "a"], "-5: no such option"),
    (["-é", "a"], "-é: no such option"),
    (["-=5", "a"], "-: no such option"),
    (["--=5", "a"], "--: no such option"),
    (["---number=5", "a"], "---number: no such option; did you mean --number?"),
    (["--number =5", "a"], "--number : no such option; did you mean --number?"),
    (["-", "a"], "-: no such option; a file of this name is given as ./-"),
    (["--", "a"], "--: no such option; a name that begins with \"-\" is given as ./-NAME"),
    (["a", "--", "-l"], "--: no such option; a name that begins with \"-\" is given as ./-NAME"),
    # Values and switches
    (["-n", "3", "a"], "-n needs its value attached: -n=3"),
    (["--number", "3", "a"], "--number needs its value attached: --number=3"),
    (["-n3", "a"], "-n needs its value attached: -n=3"),
    (["-N-3", "a"], "-N needs its value attached: -N=-3"),
    (["a", "-n"], "-n needs its value attached: -n=VALUE"),
    (["-n", "-l", "a"], "-n needs its value attached: -n=VALUE"),
    (["-l=yes", "a"], "-l=yes: -l takes no value"),
    (["--loud=", "a"], "--loud=: --loud takes no value"),
    (["-lv", "a"], "-lv: one option at a time: -l -v"),
    (["-lVe", "a"], "-lVe: one option at a time: -l -V -e"),
    (["-ln=3", "a"], "-ln=3: one option at a time: -l -n=3"),
    (["-ln", "a"], "-ln: no such option"),
    (["-ll", "a"], "-ll: no such option"),
    (["-n", "-3", "a"], "-n needs its value attached: -n=-3"),
    (["-n3=4", "a"], "-n needs its value attached: -n=3=4"),
    (["--help=5", "a"], "--help=5: --help takes no value"),
    (["--version=3", "a"], "--version=3: --version takes no value"),
    (["--versoin", "a"], "--versoin: no such option; did you mean --version?"),
    (["-lx", "a"], "-lx: no such option"),
    (["-l", "-l", "a"], "-l is given twice: -l, -l"),
    (["-n=1", "a", "--NUMBER=2"], "-n is given twice: -n=1, --NUMBER=2"),
    (["-n=1", "-n=1", "a"], "-n is given twice: -n=1, -n=1"),
    # Values
    (["-n=", "a"], "-n=: not a whole number from 1 to 1000000"),
    (["-n=abc", "a"], "-n=abc: not a whole number from 1 to 1000000"),
    (["-n=0", "a"], "-n=0: not a whole number from 1 to 1000000"),
    (["-n=1000001", "a"], "-n=1000001: not a whole number from 1 to 1000000"),
    (["-n=-3", "a"], "-n=-3: not a whole number from 1 to 1000000"),
    (["-n= 3", "a"], "-n= 3: not a whole number from 1 to 1000000"),
    (["--number=3x", "a"], "--number=3x: not a whole number from 1 to 1000000"),
    (["-n==3", "a"], "-n==3: not a whole number from 1 to 1000000"),
    (["-n=18446744073709551617", "a"], "-n=18446744073709551617: not a whole number from 1 to 1000000"),
    (["-r=1.1", "a"], "-r=1.1: not a number from 0 to 1"),
    (["-r=nan", "a"], "-r=nan: not a number from 0 to 1"),
    (["-r=0,5", "a"], "-r=0,5: not a number from 0 to 1"),
    (["-m=slow", "a"], "-m=slow: not one of fast, exact"),
    (["-m=", "a"], "-m=: not one of fast, exact"),
    (["-s=9:2", "a"], "-s=9:2: not a range FROM:TO of whole numbers from 0 to 4294967295, the lower one first"),
    (["-i=1:0", "a"], "-i=1:0: not whole numbers from 1 to 2147483647 separated by \":\""),
    (["-i=1,2", "a"], "-i=1,2: not whole numbers from 1 to 2147483647 separated by \":\""),
    (["-b=maybe", "a"], "-b=maybe: not one of yes, no, on, off, true, false, 1, 0"),
    (["-p=", "a"], "-p=: not a file name"),
    (["-o=", "a"], "-o=: not a file name"),
    (["-o=out/", "a"], "-o=out/: is a folder, not a file"),
    (["-o=/", "a"], "-o=/: is a folder, not a file"),
    (["-o=.", "a"], "-o=.: is a folder, not a file"),
    (["-o=..", "a"], "-o=..: is a folder, not a file"),
    (["-o=here", "a"], "-o=here: is a folder, not a file"),
    (["-o=here/there", "a"], "-o=here/there: is a folder, not a file"),
    (["-f=usage", "a"], "-l and -e cannot be combined"),
    # The first problem counts; control characters are escaped.
    (["-x", "-y"], "-x: no such option"),
    (["-n=\033[31m\n", "a"], "-n=\\x1b[31m\\x0a: not a whole number from 1 to 1000000"),
    (["--a\tb", "a"], "--a\\x09b: no such option"),
]

# Failures at work: the kind, and the message. The exit status is 1.
FAILED = [
    ("text", "the disk\\x0ais full"),
    ("memory", "out of memory"),
    ("nothing", "unknown error"),
    ("range", "no such element"),
    ("number", "unknown error"),
    ("noted", "signal 15"),
]

HELP = ("\n\033[34m####################################\033[0m\n\033[37m\tNAME\033[0m\n\033[37m     Reads and prints\033[0m\n"
        "\033[34m####################################\033[0m\n\n\033[36mPrints what it reads.\033[0m\n\033[36mUsage:\033[0m\n"
        "  NAME [OPTIONS] FIRST [OTHER...]\n\n")


class CommandLines(unittest.TestCase):
    def setUp(self):
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        os.makedirs(os.path.join(self.folder, "here", "there"))

    def run_tool(self, *tokens):
        status, output, errors = programs.run(TOOL, *tokens, cwd=self.folder)
        return status, output.decode(), errors.decode()

    def test_accepted(self):
        for tokens, output in ACCEPTED:
            with self.subTest(tokens=tokens):
                self.assertEqual(self.run_tool(*tokens), (0, output, ""))

    def check_refused(self, tokens, message):
        with self.subTest(tokens=tokens):
            status, output, errors = self.run_tool(*tokens)
            self.assertEqual((status, errors), (2, f"reader: {message} (see reader --help)\n"))
            if "-v" not in tokens:
                self.assertNotIn("[", output)

    def test_refused(self):
        for tokens, message in REFUSED:
            self.check_refused(tokens, message)

    def test_failures(self):
        for kind, message in FAILED:
            with self.subTest(kind=kind):
                self.assertEqual(self.run_tool("-f=" + kind, "a"), (1, "", f"reader: {message}\n"))

    def test_errors_follow_the_output(self):
        done = subprocess.run(programs.command(TOOL, "-t=x", "-f=text", "a"), stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=60, check=False)
        self.assertEqual(programs.plain_line_ends(done.stdout), b"-t x\nreader: the disk\\x0ais full\n")

    @unittest.skipIf(programs.ON_WINDOWS, "there the exit status of a signal is that of the C library")
    def test_interruption(self):
        self.assertEqual(self.run_tool("-f=signal", "a"), (-signal.SIGTERM, "", "reader: interrupted\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "there the exit status of a signal is that of the C library")
    def test_interruption_with_buffered_errors(self):
        self.assertEqual(self.run_tool("-f=buffered-errors", "a"), (-signal.SIGTERM, "", "reader: interrupted\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "there is no such signal there")
    def test_output_that_loses_its_reader(self):
        reader, writer = os.pipe()
        os.close(reader)
        with open(writer, "wb") as output:
            done = subprocess.run([TOOL, "-f=lost-reader", "a"], stdin=subprocess.DEVNULL, stdout=output, timeout=60, check=False,
                                  stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr), (-signal.SIGPIPE, b""))

    @unittest.skipIf(programs.ON_WINDOWS, "there the exit status of a signal is that of the C library")
    def test_signal_that_the_work_has_not_noticed(self):
        self.assertEqual(self.run_tool("-f=late-signal", "a"), (-signal.SIGTERM, "[a]\n", "reader: interrupted\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "the standard library in a DLL has an operator new of its own")
    def test_exhausted_memory(self):
        status, output, errors = self.run_tool("-f=exhausted", "a")
        # A line of this length takes no memory with libc++.
        self.assertIn((status, output, errors), [(1, "", "out of memory\n"), (1, "", "reader: out of memory\n")])

    def test_standard_output_that_drops_text(self):
        self.assertEqual(self.run_tool("-f=dropped", "a"), (1, "", "reader: standard output cannot be written\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "no such device there")
    def test_exceptions_of_standard_output(self):
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "-f=output", "a"], stdin=subprocess.DEVNULL, stdout=full, stderr=subprocess.PIPE,
                                  timeout=60, check=False)
        self.assertEqual((done.returncode, done.stderr), (1, b"reader: standard output cannot be written\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "no such terminal there")
    def test_terminal(self):
        # The tool does not overwrite text that the row contains already, such as a prompt.
        for tokens, written in ((["a"], b"[a]\r\n"), (["--version"], b"reader 1.2.3\r\n"), (["-x"], b"")):
            with self.subTest(tokens=tokens):
                _, output, _ = pty_output.written_to_terminal([TOOL, *tokens], 80, 24, stderr=subprocess.PIPE)
                self.assertEqual(output, written)

    @unittest.skipIf(programs.ON_WINDOWS, "no such terminal there")
    def test_progress(self):
        for switches, is_shown in (([], True), (["-v"], False)):
            with self.subTest(switches=switches):
                _, output, _ = pty_output.written_to_terminal([TOOL, *switches, "-f=progress", "a"], 80, 24)
                self.assertEqual(b"copying" in output, is_shown, output)

    @unittest.skipIf(programs.ON_WINDOWS, "there signals cannot be blocked")
    def test_interruption_by_a_blocked_signal(self):
        done = subprocess.run(programs.command(TOOL, "-f=interruption", "a"), capture_output=True, timeout=60, check=False,
                              preexec_fn=lambda: signal.pthread_sigmask(signal.SIG_BLOCK, [signal.SIGTERM]))
        self.assertEqual((done.returncode, done.stdout, done.stderr), (-signal.SIGTERM, b"", b"reader: interrupted\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "there signals are not inherited")
    def test_ignored_signals(self):
        for ignored, expected in ((signal.SIGTERM, (0, b"[a]\n", b"")), (signal.SIGALRM, (1, b"", b"reader: signal 15\n"))):
            with self.subTest(ignored=ignored):
                done = subprocess.run(programs.command(TOOL, "-f=noted", "a"), capture_output=True, timeout=60, check=False,
                                      preexec_fn=lambda number=ignored: signal.signal(number, signal.SIG_IGN))
                self.assertEqual((done.returncode, done.stdout, done.stderr), expected)

    def test_status_of_the_work(self):
        self.assertEqual(self.run_tool("-e", "a"), (7, "-e\n[a]\n", ""))

    def test_output_names(self):
        for name in ("r", ":", "r.txt", "here/r", "../r", "é日.txt"):
            with self.subTest(name=name):
                status, output, errors = self.run_tool("-o=" + name, "a")
                self.assertEqual((status, errors), (0, ""))
                shown = output.splitlines()[0]
                if programs.ON_WINDOWS:
                    self.assertEqual(shown[:3] + shown[4:5], "-o :")
                    self.assertTrue(shown.endswith("\\" + name.replace("/", "\\")), shown)
                else:
                    self.assertEqual(shown, "-o " + os.path.realpath(self.folder) + "/" + name)
        self.assertEqual(self.run_tool("-o=/tmp/a:b", "a")[1], "-o /tmp/a:b\n[a]\n")

    @unittest.skipUnless(programs.ON_WINDOWS, "delimiters and drives of Windows")
    def test_output_names_on_windows(self):
        for name in ("here\\there", "out\\", "\\"):
            self.check_refused(["-o=" + name, "a"], f"-o={name}: is a folder, not a file")
        for name in ("c:x", "::", "c:"):
            self.check_refused(["-o=" + name, "a"], f"-o={name}: begins like a drive; write the folder before the name")

    @unittest.skipIf(programs.ON_WINDOWS, "there they are delimiters and drives")
    def test_output_names_with_any_character(self):
        for name in ("here\\there", "out\\", "\\", "c:\\x", "c:x", "c:", "::", "q:/x", "a//b"):
            with self.subTest(name=name):
                expected = f"-o {os.path.realpath(self.folder)}/{name}\n[a]\n"
                self.assertEqual(self.run_tool("-o=" + name, "a"), (0, expected, ""))

    @unittest.skipIf(programs.ON_WINDOWS, "there the library's limit holds")
    def test_output_names_in_deep_folders(self):
        folder = os.path.realpath(self.folder)
        for letter in "abc":
            folder = os.path.join(folder, letter * 200)
            os.mkdir(folder)
            for name in ("r", "sub/r.txt", "/tmp/a.txt"):
                with self.subTest(depth=letter, name=name):
                    self.assertEqual(programs.run(TOOL, "-o=" + name, "a", cwd=folder),
                                     (0, f"-o {os.path.join(folder, name)}\n[a]\n".encode(), b""))
            os.mkdir(os.path.join(folder, "sub"))
            self.assertEqual(programs.run(TOOL, "-o=sub", "a", cwd=folder),
                             (2, b"", b"reader: -o=sub: is a folder, not a file (see reader --help)\n"))
        done = subprocess.run(["sh", "-c", 'mkdir gone && cd gone && rmdir ../gone && "$0" -o=r a', TOOL], cwd=self.folder,
                              capture_output=True, timeout=60, check=False)
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, b"-o r\n[a]\n", b""))

    def test_help(self):
        for tokens in (["-h"], ["--HELP"], ["/h"], ["/Help"], ["/?"], ["a", "-H"], ["--wrong", "-n", "--help", "-l", "-l"],
                       ["--version", "-h"]):
            with self.subTest(tokens=tokens):
                status, output, errors = self.run_tool(*tokens)
                name = output.splitlines()[2].removeprefix("\033[37m\t").removesuffix("\033[0m")
                self.assertEqual((status, errors), (0, ""))
                self.assertIn("command_line_tool", name)
                self.assertTrue(output.replace(name, "NAME").startswith(HELP), output)
                self.assertTrue(output.endswith(f"  \033[34m{name}\033[0m -n=3 a\n"), output)

    def test_help_without_a_name(self):
        if programs.ON_WINDOWS:
            self.skipTest("wine sets the program path")
        for path in ("C:\\ab", "-tool", "", "bin/", "bin\\", "\\.exe"):
            with self.subTest(path=path):
                # Without a new session, Python 3.13 calls posix_spawn, and refuses an empty path.
                done = subprocess.run([path, "-h"], executable=TOOL, capture_output=True, timeout=60, check=False,
                                      start_new_session=True)
                self.assertEqual((done.returncode, done.stderr), (0, b""))
                self.assertTrue(done.stdout.decode().startswith(HELP.replace("NAME", "reader")), done.stdout)

    def test_version(self):
        for tokens in (["--version"], ["--VERSION"], ["--wrong", "--version"]):
            with self.subTest(tokens=tokens):
                self.assertEqual(self.run_tool(*tokens), (0, "reader 1.2.3\n", ""))

    def test_closed_output(self):
        for tokens in (["a"], ["--help"], ["--version"]):
            with self.subTest(tokens=tokens):
                done = subprocess.run(programs.command_without_output(WITHOUT_OUTPUT, TOOL, *tokens), timeout=60, check=False,
                                      stderr=subprocess.PIPE)
                self.assertEqual((done.returncode, programs.plain_line_ends(done.stderr)),
                                 (1, b"reader: standard output is closed\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "only Linux has /dev/full")
    def test_full_output(self):
        for tokens in (["a"], ["-f=unsynchronised", "a"], ["-f=unbuffered", "a"], ["--version"]):
            with self.subTest(tokens=tokens), open("/dev/full", "wb") as full:
                done = subprocess.run(programs.command(TOOL, *tokens), stdout=full, stderr=subprocess.PIPE, timeout=60,
                                      check=False)
                self.assertEqual((done.returncode, done.stderr), (1, b"reader: standard output cannot be written\n"))

    @unittest.skipIf(programs.ON_WINDOWS, "there command lines are UTF-16")
    def test_bytes_that_are_not_utf8(self):
        self.assertEqual(self.run_tool(b"-n=\xff\x80", "a"),
                         (2, "", "reader: -n=\\xff\\x80: not a whole number from 1 to 1000000 (see reader --help)\n"))


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
