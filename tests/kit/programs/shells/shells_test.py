"""Tab keys in real shells: shells_test.py SHELL PROGRAM

SHELL is bash, zsh or fish. PROGRAM is shell_scripts, which writes the completion scripts.
"""

import pathlib
import re
import shutil
import subprocess
import sys
import tempfile
import unittest

import programs
import shell_sessions

PROGRAM = sys.argv.pop()
SHELL = sys.argv.pop()
for needed in (SHELL, "shellcheck"):
    if shutil.which(needed) is None:
        sys.exit(f"{needed} is not installed: the tests of the completions need it")

FILES = ("alpha.txt", "my file.txt", "it's.txt", 'qu"ote.txt', "co:lon.txt", "eq=ual.txt", "été.txt", "sub/inner.txt",
         "two words/deep file.txt", "dollar$(touch canary).txt", "`touch canary`.txt", "-dash.txt", "Upper.txt", "bra[cket.txt",
         "star*.txt", "fback\\slash.txt", "home~.txt", "wow!x.txt", "trail ", "sub/.hidden", "kne\nline.txt")
DONE, OPEN = True, False
BASH_COMPLETION = "source /usr/share/bash-completion/bash_completion"
LEFT = "\x1b[D"

# What is typed after "firstlines " before Tab; the words that the tool then gets; and whether the last word is complete, so that
# a blank follows.
COMPLETED = (
    # Flags
    ("--nu", ["--number="], OPEN),
    ("--num", ["--number="], OPEN),
    ("--number", ["--number="], OPEN),
    ("--NU", ["--number="], OPEN),
    ("-n", ["-n="], OPEN),
    ("-N", ["-n="], OPEN),
    ("-l", ["-l"], DONE),
    ("--lo", ["--long"], DONE),
    ("--hel", ["--help"], DONE),
    ("--u", ["--unknown"], DONE),
    ("x --mo", ["x", "--mode="], OPEN),
    ("-l --mo", ["-l", "--mode="], OPEN),
    ("--zzz", ["--zzz"], OPEN),
    ("'--lo", ["--long"], DONE),
    # Choices
    ("-m=", ["-m="], OPEN),
    ("-m=f", ["-m=fast"], DONE),
    ("-m=F", ["-m=fast"], DONE),
    ("-M=f", ["-M=fast"], DONE),
    ("--mode=ex", ["--mode=exact"], DONE),
    ("--MODE=ex", ["--MODE=exact"], DONE),
    ("--mo=ex", ["--mo=exact"], DONE),
    ("--m=EX", ["--m=exact"], DONE),
    ("-m=5", ["-m=5"], DONE),
    ("-m=t", ["-m=two words"], DONE),
    ("-m=two\\ w", ["-m=two words"], DONE),
    ('-m="two w', ["-m=two words"], DONE),
    ("-m='two w", ["-m=two words"], DONE),
    ('"-m=two w', ["-m=two words"], DONE),
    ("'-m=two w", ["-m=two words"], DONE),
    ("-m=E", ["-m=E"], OPEN),
    ("-m=z", ["-m=z"], OPEN),
    # Values without completions: text, switches and flags that do not exist
    ("-n=", ["-n="], OPEN),
    ("-n=al", ["-n=al"], OPEN),
    ("-l=al", ["-l=al"], OPEN),
    ("-z=al", ["-z=al"], OPEN),
    # Arguments
    ("al", ["alpha.txt"], DONE),
    ("-n al", ["-n", "alpha.txt"], DONE),
    ("my", ["my file.txt"], DONE),
    ("my\\ f", ["my file.txt"], DONE),
    ('"my f', ["my file.txt"], DONE),
    ("'my f", ["my file.txt"], DONE),
    ("it", ["it's.txt"], DONE),
    ('"it', ["it's.txt"], DONE),
    ("qu", ['qu"ote.txt'], DONE),
    ("co", ["co:lon.txt"], DONE),
    ("co:", ["co:lon.txt"], DONE),
    ("co\\:", ["co:lon.txt"], DONE),
    ('"co:', ["co:lon.txt"], DONE),
    ("eq", ["eq=ual.txt"], DONE),
    ("eq=", ["eq=ual.txt"], DONE),
    ("'eq=", ["eq=ual.txt"], DONE),
    ("ét", ["été.txt"], DONE),
    ("Up", ["Upper.txt"], DONE),
    ("su", ["sub/"], OPEN),
    ("sub/", ["sub/inner.txt"], DONE),
    ("two", ["two words/"], OPEN),
    ('"two words/d', ["two words/deep file.txt"], DONE),
    ("do", ["dollar$(touch canary).txt"], DONE),
    ('"do', ["dollar$(touch canary).txt"], DONE),
    ("'do", ["dollar$(touch canary).txt"], DONE),
    ("\\`", ["`touch canary`.txt"], DONE),
    ("./-d", ["./-dash.txt"], DONE),
    ("br", ["bra[cket.txt"], DONE),
    ("st", ["star*.txt"], DONE),
    ("fb", ["fback\\slash.txt"], DONE),
    ("ho", ["home~.txt"], DONE),
    ("wo", ["wow!x.txt"], DONE),
    ("~/ta", ["HOME/target.txt"], DONE),
    ("zz", ["zz"], OPEN),
    # Files as values
    ("-o=al", ["-o=alpha.txt"], DONE),
    ("-O=al", ["-O=alpha.txt"], DONE),
    ("--output=al", ["--output=alpha.txt"], DONE),
    ("--OUT=al", ["--OUT=alpha.txt"], DONE),
    ("-u=al", ["-u=alpha.txt"], DONE),
    ("-o=my", ["-o=my file.txt"], DONE),
    ("-o=my\\ f", ["-o=my file.txt"], DONE),
    ('-o="my f', ["-o=my file.txt"], DONE),
    ("-o='my f", ["-o=my file.txt"], DONE),
    ('"-o=my f', ["-o=my file.txt"], DONE),
    ("'-o=my f", ["-o=my file.txt"], DONE),
    ("-o=it", ["-o=it's.txt"], DONE),
    ('"-o=it', ["-o=it's.txt"], DONE),
    ("-o=qu", ['-o=qu"ote.txt'], DONE),
    ('"-o=qu', ['-o=qu"ote.txt'], DONE),
    ("-o=co", ["-o=co:lon.txt"], DONE),
    ("-o=co:", ["-o=co:lon.txt"], DONE),
    ("-o=co\\:", ["-o=co:lon.txt"], DONE),
    ('-o="co:', ["-o=co:lon.txt"], DONE),
    ("-o=eq", ["-o=eq=ual.txt"], DONE),
    ("-o=eq=", ["-o=eq=ual.txt"], DONE),
    ("'-o=eq=", ["-o=eq=ual.txt"], DONE),
    ("-o=ét", ["-o=été.txt"], DONE),
    ("-o=su", ["-o=sub/"], OPEN),
    ("-o=sub/", ["-o=sub/inner.txt"], DONE),
    ("-o=two", ["-o=two words/"], OPEN),
    ("-o=two\\ words/d", ["-o=two words/deep file.txt"], DONE),
    ("-o=do", ["-o=dollar$(touch canary).txt"], DONE),
    ('-o="do', ["-o=dollar$(touch canary).txt"], DONE),
    ('"-o=do', ["-o=dollar$(touch canary).txt"], DONE),
    ("'-o=do", ["-o=dollar$(touch canary).txt"], DONE),
    ("-o=\\`", ["-o=`touch canary`.txt"], DONE),
    ("-o=fb", ["-o=fback\\slash.txt"], DONE),
    ("-o=st", ["-o=star*.txt"], DONE),
    ("-o=-d", ["-o=-dash.txt"], DONE),
    ("-o=~/ta", ["-o=HOME/target.txt"], DONE),
    ("--output=~/ta", ["--output=HOME/target.txt"], DONE),
    ("-o=tr", ["-o=trail "], DONE),
    ("-o=zz", ["-o=zz"], OPEN),
    # Folders as values
    ("-d=s", ["-d=sub/"], OPEN),
    ("--directory=su", ["--directory=sub/"], OPEN),
    ("-D=two", ["-D=two words/"], OPEN),
    ("-d=two\\ w", ["-d=two words/"], OPEN),
    ("-d=al", ["-d=al"], OPEN),
    ("-d=~/wo", ["-d=HOME/work/"], OPEN),
    # The middle of the line
    ("--nu x" + LEFT * 2, ["--number=", "x"], None),
    ("-m=f x" + LEFT * 2, ["-m=fast", "x"], None),
    ("-o=al x" + LEFT * 2, ["-o=alpha.txt", "x"], None),
    ("al -l" + LEFT * 3, ["alpha.txt", "-l"], None),
)

# zsh and fish complete no part of a word.
BEFORE_EQUALS = (
    ("-n=4" + LEFT * 2, ["-n=4"], None),
    ("--nu=4" + LEFT * 2, ["--number=4"], None),
    ("--nu= x" + LEFT * 3, ["--number=", "x"], None),
)

# zsh leaves these quotes open.
IN_SINGLE_QUOTES = (
    ("'it", ["it's.txt"], DONE),
    ("-o='it", ["-o=it's.txt"], DONE),
    ("'-o=it", ["-o=it's.txt"], DONE),
)

# After another start of the line
LINES = (
    ("./firstlines -m=f", ["-m=fast"]),
    ("X=1 firstlines -o=co:", ["-o=co:lon.txt"]),
    ("true; firstlines --nu", ["--number="]),
    ("true && firstlines -o=my", ["-o=my file.txt"]),
    ("firstlines -m=f; true" + LEFT * 6, ["-m=fast"]),
    ("a-b --nu", ["--number="]),
    ("a_b --nu", ["--nu"]),
    ("only ", ["--all"]),
    ("only al", ["al"]),
    ("short al", ["alpha.txt"]),
    ("short --a", ["--all"]),
)

BEHIND_SUDO = (
    ("sudo firstlines --nu", ["firstlines", "--number="]),
    ("sudo firstlines -N", ["firstlines", "-n="]),
    ("sudo firstlines -m=", ["firstlines", "-m="]),
    ("sudo firstlines -m=f", ["firstlines", "-m=fast"]),
    ("sudo firstlines -o=co:", ["firstlines", "-o=co:lon.txt"]),
    ("sudo firstlines -o=my", ["firstlines", "-o=my file.txt"]),
    ("sudo firstlines al", ["firstlines", "alpha.txt"]),
)

BY_ALIAS = (
    ("fl --nu", ["--number="]),
    ("fl -m=f", ["-m=fast"]),
    ("fl -o=co:", ["-o=co:lon.txt"]),
    ("fl -o=my", ["-o=my file.txt"]),
    ("fl al", ["alpha.txt"]),
)


class ShellTest(unittest.TestCase):
    maxDiff = None

    @classmethod
    def setUpClass(cls):
        temporary = tempfile.TemporaryDirectory(prefix="kelplib-scripts-")
        cls.addClassCleanup(temporary.cleanup)
        cls.scripts = pathlib.Path(temporary.name)
        status, _, errors = programs.run(PROGRAM, temporary.name)
        assert status == 0, errors

    def session(self, *settings):
        shell = shell_sessions.SHELLS[SHELL](self.scripts, *settings)
        self.addCleanup(self.close, shell)
        for name in FILES:
            path = shell.work / name
            path.parent.mkdir(exist_ok=True)
            path.write_text("text\n")
        (shell.home / "target.txt").write_text("text\n")
        for name in ("a-b", "a_b", "only", "short", shell.work / "firstlines"):
            shell.add_tool(name)
        return shell

    def close(self, shell):
        self.assertEqual([], list(shell.home.rglob("canary*")), "a text was executed")
        shell.close()

    def check(self, shell, keys, words, complete=None):
        """Presses Tab after the keys and runs the line."""
        with self.subTest(keys=keys):
            line, cursor = shell.press(keys + "\t")
            if complete is not None:
                self.assertEqual((len(line), complete), (cursor, line.endswith(" ")), line)
            self.assertEqual([word.replace("HOME", str(shell.home)) for word in words], shell.enter(), line)

    def check_table(self, *settings, unlike=None):
        """Checks the table COMPLETED. `unlike` contains the rows that differ."""
        shell = self.session(*settings)
        for typed, words, complete in COMPLETED + (() if SHELL == "zsh" else IN_SINGLE_QUOTES) + (BEFORE_EQUALS if SHELL == "bash" else ()):
            words, complete = (unlike or {}).get(typed, (words, complete))
            self.check(shell, "firstlines " + typed, words, complete)
        return shell

    def check_lines(self, lines, *settings):
        shell = self.session(*settings)
        for keys, words in lines:
            self.check(shell, keys, words)

    def check_list(self, shell, keys, rows):
        """Presses keys and compares the screen below the line."""
        with self.subTest(keys=keys):
            rows = rows + [""] * (shell_sessions.ROWS - len(rows))
            self.assertEqual(rows, shell.listed(keys, rows))

    def check_hostile_texts(self, *settings, lost=""):
        """Completes the texts of the tools odd0, odd1, ... `lost` are characters of texts that the shell cannot offer."""
        shell = self.session(*settings)
        for path in sorted((self.scripts / "texts").iterdir()):
            text = path.read_bytes().decode(errors="surrogateescape")
            shell.add_tool(path.name)
            shell.press(f"{path.name} -\t\t")
            if not set(text) & set(lost):
                self.check(shell, f"{path.name} -m=", ["-m=" + text])
                self.check(shell, f"{path.name} --mode=", ["--mode=" + text])
            if not set(text) & set("=" + lost):
                self.check_flag(shell, f"{path.name} --x", f"--x{text}=")

    def check_command(self, *command):
        done = subprocess.run(command, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.STDOUT,
                              timeout=60, check=False)
        self.assertEqual((0, b""), (done.returncode, done.stdout))

    def check_flag(self, shell, keys, flag):
        with self.subTest(keys=keys):
            line = shell.press(keys + "\t5")[0]
            self.assertEqual([flag + "5"], shell.enter(), line)

    def check_large(self, *settings):
        shell = self.session(*settings)
        shell.add_tool("large")
        word = 10000 * "y"
        self.check(shell, "large --option499", ["--option499"], DONE)
        self.check(shell, "large --OPTION499", ["--option499"], DONE)
        self.check(shell, "large --y", [f"--{word}="], OPEN)
        self.check(shell, "large -y=", [f"-y={word}"], DONE)
        self.check(shell, "large --y\t", [f"--{word}={word}"], DONE)
        self.check(shell, "large al", ["al"], OPEN)


class BashTest(ShellTest):
    def setUp(self):
        self.assertTrue(pathlib.Path(BASH_COMPLETION.split()[1]).exists(), "bash-completion is not installed")

    def test_table(self):
        self.check_table()

    def test_word_breaks(self):
        for value in ("${COMP_WORDBREAKS//=/}", "${COMP_WORDBREAKS//:/}", "${COMP_WORDBREAKS//[=:]/}",
                      "$' \\t\\n'"):
            with self.subTest(value=value):
                self.check_table(f"COMP_WORDBREAKS={value}")

    def test_bash_completion(self):
        self.check_table(BASH_COMPLETION)

    def test_settings(self):
        for setting in ("set -u; shopt -s failglob",
                        "set -o posix; IFS=-=; COMP_WORDBREAKS=$COMP_WORDBREAKS,-%",
                        "set -ef; IFS=; COMP_WORDBREAKS=${COMP_WORDBREAKS//=/}; GLOBIGNORE='*'; "
                        "shopt -s nullglob dotglob nocaseglob nocasematch extglob"):
            with self.subTest(setting=setting):
                self.check_table(setting)

    def test_lines(self):
        self.check_lines(LINES)
        self.check_lines(BEHIND_SUDO, BASH_COMPLETION)
        self.check_lines(BY_ALIAS, "alias fl=firstlines", "shopt -s progcomp_alias")
        self.check_lines(BY_ALIAS, BASH_COMPLETION, "alias fl=firstlines", "complete -F _kelp_firstlines fl")

    def test_hostile_texts(self):
        self.check_hostile_texts()
        self.check_hostile_texts('COMP_WORDBREAKS="${COMP_WORDBREAKS//[=:]/}"', "set -o posix", "set -u")

    def test_large(self):
        self.check_large()

    def test_long_line(self):
        # As many files as a glob may have become. Quadratic work took a minute.
        script = """
            ulimit -t 20
            LC_ALL=C.UTF-8
            source "$0"
            compopt() { :; }
            for word in file.txt "it\\'s" '"a b"' '\\é' "' '" ';'; do
                printf -v COMP_LINE '%*s' 6000 ''
                COMP_LINE="firstlines ${COMP_LINE// /$word } -m=f"
                COMP_POINT=${#COMP_LINE} COMPREPLY=()
                _kelp_firstlines firstlines f =
                [[ ${COMPREPLY[*]} == fast ]] || exit
            done"""
        self.check_command("bash", "-c", script, self.scripts / "bash" / "firstlines")

    def test_lists(self):
        shell = self.session()
        self.check_list(shell, "firstlines -\t\t", [
            "$ firstlines -",
            "--directory=  --help        --long        --mode=       --number=     --output=     --unknown     -d=           "
            "-h            -l            -m=           -n=           -o=           -u",
            "$ firstlines -"])
        self.check_list(shell, "firstlines -m=\t\t", [
            "$ firstlines -m=", "5           Even        exact       fast        two\\ words", "$ firstlines -m="])
        self.check_list(shell, "firstlines -d=\t\t", ["$ firstlines -d=", "sub/       two words/", "$ firstlines -d="])
        self.check_list(shell, "firstlines -n=\t\t", ["$ firstlines -n="])

    def test_scripts(self):
        scripts = sorted((self.scripts / "bash").iterdir())
        for path in scripts:
            with self.subTest(path=path.name):
                self.check_command("bash", "-n", path)
        # The scripts name0, name1, ... differ from "firstlines" in the name alone.
        self.check_command("shellcheck", *(path for path in scripts if not re.fullmatch("name([02-9]|[1-9][0-9]+)", path.name)))


class ZshTest(ShellTest):
    # zsh removes the slash that it has added when the line ends there.
    UNLIKE = {typed: (words, OPEN) for typed, words in (
        ("su", ["sub"]), ("two", ["two words"]), ("-o=su", ["-o=sub"]), ("-o=two", ["-o=two words"]), ("-d=s", ["-d=sub"]),
        ("--directory=su", ["--directory=sub"]), ("-D=two", ["-D=two words"]), ("-d=two\\ w", ["-d=two words"]),
        ("-d=~/wo", ["-d=HOME/work"]))}

    def test_table(self):
        self.check_table(unlike=self.UNLIKE)

    def test_options(self):
        self.check_table("setopt ksharrays shwordsplit", unlike=self.UNLIKE)

    def test_lines(self):
        self.check_lines(LINES)
        self.check_lines(BEHIND_SUDO)
        self.check_lines(BY_ALIAS, "alias fl=firstlines")

    def test_lists(self):
        shell = self.session()
        self.check_list(shell, "firstlines -\t", [
            "$ firstlines -",
            "--directory=  -d=  -- where to look",
            "--help        -h   -- show this help",
            "--long        -l   -- show long lines: all of them",
            "--mode=       -m=  -- how to read",
            "--number=     -n=  -- how many lines to show (10)",
            "--output=     -o=  -- write to this file",
            "--unknown     -u   -- nothing says what it takes"])
        self.check_list(shell, "firstlines -m=\t", [
            "$ firstlines -m=", "5           Even        exact       fast        two\\ words"])
        self.check_list(shell, "firstlines -d=\t", ["$ firstlines -d=", "sub/         two\\ words/"])
        self.check_list(shell, "firstlines -n=\t", ["$ firstlines -n="])

    def test_hostile_texts(self):
        self.check_hostile_texts()

    def test_large(self):
        self.check_large()

    def test_scripts(self):
        for path in sorted((self.scripts / "zsh").iterdir()):
            with self.subTest(path=path.name):
                self.check_command("zsh", "-n", path)


class FishTest(ShellTest):
    # fish expands "~" only at the start of a word, and lets no completion replace it.
    # It prefers a choice in the typed letter case.
    UNLIKE = {"-m=E": (["-m=Even"], DONE), "-o=~/ta": (["-o=~/ta"], OPEN),
              "--output=~/ta": (["--output=~/ta"], OPEN), "-d=~/wo": (["-d=~/wo"], OPEN)}

    def test_table(self):
        self.check_table(unlike=self.UNLIKE)

    def test_lines(self):
        self.check_lines(LINES)
        self.check_lines(BEHIND_SUDO)
        self.check_lines(BY_ALIAS, "alias fl=firstlines")

    def test_lists(self):
        # The versions of fish draw long lists differently.
        shell = self.session()
        self.check_list(shell, "only --\t", ["$ only --all"])
        self.check_list(shell, "firstlines -m=\t", ["$ firstlines -m=", "-m=5  -m=Even  -m=exact  -m=fast  -m=two words"])
        self.check_list(shell, "firstlines -d=\t", ["$ firstlines -d=", "-d=sub/  -d=two words/"])
        self.check_list(shell, "firstlines -n=\t", ["$ firstlines -n="])
        self.check_list(shell, "firstlines --n\t", ["$ firstlines --number="])

    def test_descriptions(self):
        answer = subprocess.run(
            ["fish", "--no-config", "-c", "source $argv[1]/firstlines.fish; complete -C'firstlines -'",
             str(self.scripts / "fish")],
            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, timeout=60, check=True).stdout.decode()
        self.assertEqual(sorted(answer.splitlines()), [
            "--directory=\twhere to look", "--help\tshow this help", "--long\tshow long lines: all of them",
            "--mode=\thow to read", "--number=\thow many lines to show (10)", "--output=\twrite to this file",
            "--unknown\tnothing says what it takes", "-d=\twhere to look", "-h\tshow this help",
            "-l\tshow long lines: all of them", "-m=\thow to read", "-n=\thow many lines to show (10)",
            "-o=\twrite to this file", "-u\tnothing says what it takes"])

    def test_hostile_texts(self):
        self.check_hostile_texts(lost="\n\t\r")

    def test_large(self):
        self.check_large()

    def test_scripts(self):
        for path in sorted((self.scripts / "fish").iterdir()):
            with self.subTest(path=path.name):
                self.check_command("fish", "-n", path)


if __name__ == "__main__":
    unittest.main(defaultTest=f"{SHELL.capitalize()}Test")
