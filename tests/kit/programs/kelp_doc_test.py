#!/usr/bin/env python3
"""Runs kelp-doc on well-behaved, hostile and odd tools and on saved screens: kelp_doc_test.py KELP_DOC HOSTILE_TOOL DEFINED_TOOL"""

import json
import os
import pathlib
import resource
import shlex
import shutil
import signal
import subprocess
import sys
import tempfile
import time
import unittest

import programs

KELP_DOC, HOSTILE, DEFINED = sys.argv[1:4]
NOT_A_SCREEN = ": not a kelplib help screen: "
native_only = unittest.skipIf(programs.ON_WINDOWS, "a shell script is no program on Windows")

# Names of the hostile tool, and the message. The exit status is 1.
INSTALLED = ["share/bash-completion/completions/plain", "share/doc/plain/plain.json", "share/doc/plain/plain.md",
             "share/fish/vendor_completions.d/plain.fish", "share/man/man1/plain.1", "share/zsh/site-functions/_plain"]

REFUSED = [
    ("silent", NOT_A_SCREEN + "line 1: expected an empty line"),
    ("status", " ended with exit status 3"),
    ("flood", " ended with exit status 3: the end"),
    ("reason", r" ended with exit status 3: last \x1b[0m\xff"),
    ("long-reason", " ended with exit status 3: " + 1000 * "x"),
    ("twice", NOT_A_SCREEN + "line 17: expected the end of the help screen"),
    ("before", NOT_A_SCREEN + "line 1: expected an empty line"),
    ("after", NOT_A_SCREEN + "line 17: expected the end of the help screen"),
    ("missing", NOT_A_SCREEN + "line 2: expected a blue line of 36 \"#\""),
    ("large", " prints more than 1000000 bytes"),
    ("endless", " prints more than 1000000 bytes"),
    ("other", ' calls itself "another" instead of "other"'),
    ("path", ' calls itself "../path" instead of "path"'),
]

ODD_TEXTS = {
    "quotes": r"""'"`$(touch executed)`touch executed`;|&>executed %s%n \ \n .TH ]]>""",
    "brackets": "[a](b){c}<d>:e=f,g*h?i~j!k#l@m^n",
    "letters": "é 日本 😀",
    "blanks": "  a \t b  ",
    "words": "w" * 10000,
    "lines": "a\n\n  b\n.SH c\n",
}


class KelpDocTest(unittest.TestCase):
    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve()
        (self.folder / "tmp").mkdir()
        # Under wine, programs have a folder for temporary files elsewhere, and wine itself would use this one.
        self.environment = {**os.environ, **({} if programs.ON_WINDOWS else {"TMPDIR": str(self.folder / "tmp")})}

    def doc(self, *arguments, **options):
        """Returns exit status, output and errors as texts."""
        status, output, errors = programs.run(KELP_DOC, *arguments, cwd=self.folder, env=self.environment, **options)
        return status, output.decode(), errors.decode()

    def document(self, *arguments):
        status, output, errors = self.doc(*arguments)
        self.assertEqual((status, errors), (0, ""))
        return output

    def check_refusal(self, status, message, *arguments):
        """Checks that kelp-doc fails with exactly this message and leaves no file."""
        self.assertEqual((status, "", "kelp-doc: " + message + "\n"), self.doc(*arguments))
        self.assertEqual(self.files(), [])

    def files(self):
        return sorted(path.relative_to(self.folder).as_posix() for path in self.folder.rglob("*") if path.name != "tmp")

    def script(self, *lines):
        path = self.folder / "tmp" / "script"
        path.write_text("\n".join(["#!/bin/sh", *lines]) + "\n", encoding="utf-8")
        path.chmod(0o755)
        self.addCleanup(path.unlink, missing_ok=True)
        return "tmp/script"


class HostileTools(KelpDocTest):
    def test_plain(self):
        for name in ("plain", "complaint", "long"):
            self.assertEqual(json.loads(self.document("-n=" + name, HOSTILE))["name"], name)
        self.assertEqual(self.files(), [])

    def test_refused(self):
        for name, message in REFUSED:
            with self.subTest(name=name):
                self.check_refusal(1, HOSTILE + message, "-o=out", "-n=" + name, HOSTILE)

    def test_half_a_screen_and_a_signal(self):
        status, output, errors = self.doc("-o=out", "-n=fall", HOSTILE)
        end = "ended with exit status 3" if programs.ON_WINDOWS else f"ended by signal {signal.SIGABRT.value}"
        self.assertEqual((status, output, errors), (1, "", f"kelp-doc: {HOSTILE} {end}\n"))
        self.assertEqual(self.files(), [])

    def test_surroundings(self):
        self.assertEqual(json.loads(self.document("-n=input", HOSTILE))["description"], "no input")
        description = json.loads(self.document("-n=litter", HOSTILE))["description"]
        self.assertRegex(description, r"^0 kelp-doc-\d+-\d+$")
        self.assertEqual(self.files(), [])
        if programs.ON_WINDOWS:
            prefix = pathlib.Path(os.environ.get("KELPLIB_WINEPREFIX") or pathlib.Path(
                os.environ.get("XDG_CACHE_HOME") or pathlib.Path.home() / ".cache", "kelplib-wine"))
            temporary = list(prefix.glob("drive_c/users/*/Temp"))
            self.assertNotEqual(temporary, [])
            self.assertEqual([path for path in temporary if (path / description[2:]).exists()], [])

    @native_only
    def test_folders_without_access(self):
        kept = self.folder / "tmp" / "kept"
        kept.mkdir()
        kept.chmod(0o500)
        saved = self.saved_plain()
        pathlib.Path(saved).chmod(0o440)
        script = self.script("mkdir -p a/b c", "touch a/b/file c/file", f"ln -s {shlex.quote(str(kept))} a/link",
                             f"ln {shlex.quote(saved)} a/hard",
                             "chmod 500 a/b", "chmod 0 c", "chmod 500 a .", f"exec cat {shlex.quote(saved)}")
        self.assertEqual(json.loads(self.document("-n=plain", script))["name"], "plain")
        self.assertEqual(sorted(path.name for path in (self.folder / "tmp").iterdir()), ["kept", "saved", "script"])
        self.assertEqual([path.stat().st_mode & 0o777 for path in (kept, pathlib.Path(saved))], [0o500, 0o440])
        # A link in place of the folder
        script = self.script('folder=$PWD', 'rmdir "$folder"', f'ln -s {shlex.quote(str(kept))} "$folder"',
                             f"exec cat {shlex.quote(saved)}")
        self.assertEqual(json.loads(self.document("-n=plain", script))["name"], "plain")
        self.assertEqual(sorted(path.name for path in (self.folder / "tmp").iterdir()), ["kept", "saved", "script"])
        kept.rmdir()

    @native_only
    def test_folder_that_goes(self):
        saved = self.saved_plain()
        script = self.script('rmdir "$PWD"', f"exec cat {shlex.quote(saved)}")
        self.assertEqual(json.loads(self.document("-n=plain", script))["name"], "plain")

    @native_only
    def test_no_temporary_folder(self):
        for folder in "none", "script":
            script = self.script("exit 3")
            self.environment["TMPDIR"] = str(self.folder / "tmp" / folder)
            # The standard library decides which.
            self.assertIn(self.doc(script), [(1, "", f"kelp-doc: cannot use the folder for temporary files: {reason}\n")
                                             for reason in ("No such file or directory", "Not a directory")])

    @native_only
    def test_empty_name_of_the_temporary_folder(self):
        self.environment["TMPDIR"] = ""
        self.assertEqual(json.loads(self.document("-n=plain", HOSTILE))["name"], "plain")

    @native_only
    def test_ignored_end_of_children(self):
        script = self.script("exit 3")
        self.assertEqual(self.doc(script, preexec_fn=lambda: signal.signal(signal.SIGCHLD, signal.SIG_IGN)),
                         (1, "", "kelp-doc: tmp/script ended with exit status 3\n"))

    @native_only
    def test_closed_streams(self):
        expected = self.document("-n=plain", HOSTILE)
        for closed in ("<&-", "2>&-", "<&- 2>&-"):
            command = f'exec "$0" -n=plain -o=out "$1" {closed}'
            done = subprocess.run(["sh", "-c", command, KELP_DOC, HOSTILE], cwd=self.folder, env=self.environment, timeout=60,
                                  stdout=subprocess.PIPE, check=True)
            self.assertEqual((done.stdout, (self.folder / "out").read_text()), (b"", expected))

    def saved_plain(self):
        """Saves the screen of the plain tool in the temporary folder. Returns its name."""
        path = self.folder / "tmp" / "saved"
        visible = self.document("-n=plain", "-f=screen", HOSTILE)
        path.write_text(visible.replace("$\n", "\n").replace("\\e", "\033").replace("\\t", "\t"), encoding="utf-8")
        self.addCleanup(path.unlink)
        return str(path)

    def test_start(self):
        self.check_refusal(1, "cannot run none: No such file or directory", "none")
        if not programs.ON_WINDOWS:
            self.check_refusal(1, "cannot run tmp: Permission denied", "tmp")

    def test_names(self):
        for name in ("", ".hidden", "-x", "../x", "a b", "a/b", "a\\b", "$(x)", "a'b", "a\tb", "a\x9bb"):
            shown = name.replace("\t", "\\x09").replace("\x9b", "\\xc2\\x9b")
            self.check_refusal(1, f'"{shown}" is not the name of a command; -n=NAME gives another', "-n=" + name, HOSTILE)

    @native_only
    def test_name_of_the_file(self):
        script = self.script("exec sh -c 'exec -a \"$0\" true' 2>/dev/null")
        shutil.copy(HOSTILE, self.folder / "tmp" / "plain.EXE")
        self.addCleanup((self.folder / "tmp" / "plain.EXE").unlink)
        self.assertEqual(json.loads(self.document("tmp/plain.EXE"))["name"], "plain")
        self.assertEqual(self.doc(script)[0], 1)

    @native_only
    def test_no_terminal_and_signals(self):
        # The tool has a session of its own and no terminal, and pipes end it as usual.
        script = self.script("(exec 3</dev/tty) 2>/dev/null && exit 4", "grep -q '^SigIgn:.*[1-9a-f]..$' /proc/$$/status && exit 5",
                             "exit 6")
        self.assertEqual(self.doc(script), (1, "", "kelp-doc: tmp/script ended with exit status 6\n"))

    @native_only
    def test_ten_seconds(self):
        # One tool sleeps; the other ends, but a process that it has started holds its output open.
        identity = self.folder / "tmp" / "identity"
        script = self.script("sleep 120 &", f"echo $! > {identity}", f"exec {HOSTILE}")
        started = time.monotonic()
        runs = [subprocess.Popen([KELP_DOC, "-n=" + name, tool], cwd=self.folder, env=self.environment, stdout=subprocess.PIPE,
                                 stderr=subprocess.PIPE) for name, tool in [("sleeping", HOSTILE), ("plain", script)]]
        for run, tool in zip(runs, [HOSTILE, script]):
            output, errors = run.communicate(timeout=60)
            self.assertEqual((run.returncode, output, errors.decode()),
                             (1, b"", f"kelp-doc: {tool} did not finish within 10 seconds\n"))
        self.assertGreaterEqual(time.monotonic() - started, 10)
        self.check_ended(int(identity.read_text()))
        identity.unlink()

    @native_only
    def test_interrupted(self):
        identity = self.folder / "tmp" / "identity"
        script = self.script(f"echo $$ > {identity}.new", f"mv {identity}.new {identity}", "exec sleep 120")
        run = subprocess.Popen([KELP_DOC, script], cwd=self.folder, env=self.environment, stderr=subprocess.PIPE)
        while not identity.exists() and run.poll() is None:
            time.sleep(0.01)
        run.send_signal(signal.SIGTERM)
        self.assertEqual((b"kelp-doc: interrupted\n", -signal.SIGTERM), (run.communicate(timeout=60)[1], run.returncode))
        self.check_ended(int(identity.read_text()))
        identity.unlink()
        self.assertEqual([path.name for path in (self.folder / "tmp").iterdir()], ["script"])

    def check_ended(self, process):
        """Checks that a process is gone or about to go: it has been killed before."""
        for _ in range(1000):
            try:
                with open(f"/proc/{process}/stat", encoding="utf-8") as file:
                    if file.read().rsplit(")", 1)[1].split()[0] in "ZX":
                        return
            except (FileNotFoundError, ProcessLookupError):
                return
            time.sleep(0.01)
        self.fail(f"process {process} is still running")


class Definitions(KelpDocTest):
    """Screens that the library itself prints."""

    def test_odd_texts(self):
        for name, text in ODD_TEXTS.items():
            with self.subTest(name=name):
                tool = json.loads(self.document("-n=" + name, DEFINED))
                self.assertEqual([tool[member] for member in ("name", "banner", "description", "usage", "example")],
                                 [name, text, text, text, "on one line" if name == "lines" else text])
                options = [(each["short"], each["long"], each["text"]) for each in tool["options"]]
                self.assertCountEqual(options, [("-a", "--" + text, text), (text, text, text)])
                self.assertEqual([(each["name"], each["text"]) for each in tool["arguments"]], [(text, text)])
        self.assertEqual(self.files(), [])

    def test_many_options(self):
        tool = json.loads(self.document("-n=many", DEFINED))
        self.assertEqual([each["long"] for each in tool["options"]],
                         [f"--{number}" for number in range(1000, 1500)] + ["--text", "text"])

    def test_none(self):
        tool = json.loads(self.document("-n=none", DEFINED))
        self.assertEqual(tool, {"format": 1, "name": "none", "banner": "", "description": "", "usage": "[OPTIONS] ",
                                "example": "", "options": [], "arguments": []})

    def test_bytes(self):
        # What is parsed and rendered is what the library prints.
        for name in [*ODD_TEXTS, "many", "none"]:
            done = subprocess.run(self.started(name), stdout=subprocess.PIPE, timeout=60, check=True, env=self.environment)
            screen = self.folder / "saved"
            screen.write_bytes(done.stdout)
            visible = self.document("-s", "-f=screen", "saved")
            screen.unlink()
            self.assertEqual(visible, self.visible(programs.plain_line_ends(done.stdout).decode()))
            if not programs.ON_WINDOWS:
                self.assertEqual(visible, self.document("-n=" + name, "-f=screen", DEFINED))

    def started(self, name):
        """The command that runs the defined tool under a name."""
        if programs.ON_WINDOWS:
            copy = self.folder / "tmp" / (name + ".exe")
            shutil.copy(DEFINED, copy)
            shutil.copy(pathlib.Path(DEFINED).with_name("kelplib.dll"), self.folder / "tmp")
            return programs.command(str(copy), "--help", ".")
        return ["bash", "-c", 'exec -a "$0" "$1" --help .', name, DEFINED]

    @staticmethod
    def visible(text):
        for character, escape in ("\\", "\\\\"), ("\033", "\\e"), ("\t", "\\t"), ("\n", "$\n"):
            text = text.replace(character, escape)
        return text


class Output(KelpDocTest):
    def test_file(self):
        text = self.document("-n=plain", HOSTILE)
        for _ in range(2):
            self.assertEqual(self.document("-n=plain", "-o=out.json", HOSTILE), "")
            self.assertEqual((self.folder / "out.json").read_bytes(), text.encode())
        self.document("-n=plain", "-f=Markdown", "-o=out.json", HOSTILE)
        self.assertTrue((self.folder / "out.json").read_bytes().startswith(b"# plain\n"))
        self.assertEqual(self.files(), ["out.json"])

    def test_old_file_stays(self):
        (self.folder / "out").write_bytes(b"old")
        for name, _ in REFUSED:
            self.assertEqual(self.doc("-n=" + name, "-o=out", HOSTILE)[0], 1)
            self.assertEqual((self.folder / "out").read_bytes(), b"old")

    def test_all(self):
        for date in ("0", "1700000000"):
            self.environment["SOURCE_DATE_EPOCH"] = date
            for folder in ("in stall", "again"):
                self.assertEqual(self.document("-a", "-o=" + folder, "-n=plain", HOSTILE), "")
            for name in INSTALLED:
                self.assertEqual((self.folder / "in stall" / name).read_bytes(), (self.folder / "again" / name).read_bytes())
        self.assertEqual([name for name in self.files() if (self.folder / name).is_file()],
                         [folder + name for folder in ("again/", "in stall/") for name in INSTALLED])

    def test_all_or_nothing(self):
        blocked = self.folder / "out/share/doc/plain/plain.md"
        blocked.mkdir(parents=True)
        status, _, errors = self.doc("-a", "-o=out", "-n=plain", HOSTILE)
        self.assertEqual((status, errors), (1, "kelp-doc: out/share/doc/plain/plain.md is a directory\n"))
        self.assertEqual(sorted(blocked.parent.iterdir()), [blocked])

    def test_folder_that_cannot_be_created(self):
        (self.folder / "file").write_bytes(b"")
        self.assertEqual(self.doc("-a", "-o=file", "-n=plain", HOSTILE),
                         (1, "", "kelp-doc: cannot create file/share/bash-completion/completions: Not a directory\n"))
        blocked = self.folder / "out/share/zsh/site-functions"
        blocked.parent.mkdir(parents=True)
        blocked.write_bytes(b"old")
        # The standard library decides which.
        self.assertIn(self.doc("-a", "-o=out", "-n=plain", HOSTILE),
                      [(1, "", f"kelp-doc: cannot create out/share/zsh/site-functions: {reason}\n")
                       for reason in ("Not a directory", "File exists")])
        self.assertEqual([name for name in self.files() if (self.folder / name).is_file()],
                         ["file", "out/share/zsh/site-functions"])
        self.assertEqual(blocked.read_bytes(), b"old")

    def test_input_as_output(self):
        saved = self.folder / "saved"
        saved.write_text(self.document("-n=plain", "-f=screen", HOSTILE), encoding="utf-8")
        before = saved.read_bytes()
        self.assertEqual(self.doc("-s", "-o=saved", "saved")[0], 1)
        self.assertEqual(saved.read_bytes(), before)

    def test_input_among_all(self):
        saved = self.folder / "out/share/doc/plain/plain.json"
        saved.parent.mkdir(parents=True)
        saved.write_text(self.document("-n=plain", "-f=screen", HOSTILE), encoding="utf-8")
        before = saved.read_bytes()
        name = saved.relative_to(self.folder).as_posix()
        self.assertEqual(self.doc("-s", "-a", "-o=out", name),
                         (1, "", f"kelp-doc: {name} is an input too; choose another name\n"))
        self.assertEqual(saved.read_bytes(), before)
        self.assertEqual(list(saved.parent.iterdir()), [saved])

    @native_only
    def test_size_of_files(self):
        # As on a full disk: none of the documents appears.
        limit = lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (2000, 2000))
        status, _, errors = self.doc("-a", "-o=out", "-n=plain", HOSTILE, preexec_fn=limit)
        self.assertEqual((status, errors),
                         (1, "kelp-doc: cannot write out/share/bash-completion/completions/plain: File too large\n"))
        self.assertEqual([name for name in self.files() if (self.folder / name).is_file()], [])

    def test_failed_write(self):
        self.assertEqual(self.doc("-n=plain", "-o=none/out", HOSTILE)[0], 1)
        self.assertEqual(self.files(), [])


class ManPages(KelpDocTest):
    def test_date(self):
        for epoch, date in ("0", "January 1, 1970"), ("1700000000", "November 14, 2023"):
            self.environment["SOURCE_DATE_EPOCH"] = epoch
            self.assertIn(f"\n.Dd {date}\n", self.document("-f=man", "-n=plain", HOSTILE))
        self.environment["SOURCE_DATE_EPOCH"] = "x"
        self.assertEqual(self.doc("-f=man", "-n=plain", HOSTILE)[0], 1)
        self.document("-f=json", "-n=plain", HOSTILE)

    def test_included(self):
        sections = self.folder / "sections"
        sections.write_bytes(b".Sh BUGS\nNone.\n")
        self.assertTrue(self.document("-f=man", "-i=sections", "-n=plain", HOSTILE).endswith("\n.Sh BUGS\nNone.\n"))
        self.document("-a", "-i=sections", "-o=out", "-n=plain", HOSTILE)
        self.assertTrue((self.folder / "out/share/man/man1/plain.1").read_bytes().endswith(b"\n.Sh BUGS\nNone.\n"))

    def test_refused(self):
        sections = self.folder / "sections"
        self.check_refusal(1, "cannot read sections: No such file or directory", "-f=man", "-i=sections", "-n=plain", HOSTILE)
        self.check_refusal(1, "tmp is a directory", "-f=man", "-i=tmp", "-n=plain", HOSTILE)
        for content, message in [(b"text", "line 1: expected \".Sh\" and a title"),
                                 (b".Sh BUGS\n\0", "line 2: expected printable characters in UTF-8")]:
            sections.write_bytes(content)
            self.assertEqual(self.doc("-f=man", "-i=sections", "-o=out", "-n=plain", HOSTILE),
                             (1, "", f"kelp-doc: sections: not man page sections: {message}\n"))
            self.assertEqual(self.files(), ["sections"])

    def test_included_as_output(self):
        sections = self.folder / "sections"
        sections.write_bytes(b".Sh BUGS\n")
        self.assertEqual(self.doc("-f=man", "-i=sections", "-o=sections", "-n=plain", HOSTILE)[0], 1)
        self.assertEqual(sections.read_bytes(), b".Sh BUGS\n")
        page = self.folder / "out/share/man/man1/plain.1"
        page.parent.mkdir(parents=True)
        sections.rename(page)
        self.assertEqual(self.doc("-a", "-i=out/share/man/man1/plain.1", "-o=out", "-n=plain", HOSTILE)[0], 1)
        self.assertEqual(page.read_bytes(), b".Sh BUGS\n")


class SavedScreens(KelpDocTest):
    @native_only
    def test_pipe(self):
        os.mkfifo(self.folder / "pipe")
        self.assertEqual(self.doc("-s", "pipe"), (1, "", "kelp-doc: pipe is not a regular file\n"))

    def test_saved(self):
        expected = self.document("-n=plain", HOSTILE)
        visible = self.document("-n=plain", "-f=screen", HOSTILE)
        raw = visible.replace("$\n", "\n").replace("\\e", "\033").replace("\\t", "\t")
        for text in (visible, visible.replace("\n", "\r\n"), raw, raw.replace("\n", "\r\n")):
            (self.folder / "saved").write_bytes(text.encode())
            self.assertEqual(self.document("-s", "saved"), expected)
        (self.folder / "saved").write_bytes(raw.replace("plain", "./plain").encode())
        self.assertEqual(self.document("-s", "-n=plain", "saved"), expected)
        self.assertEqual(self.doc("-s", "saved"), (1, "", 'kelp-doc: "./plain" is not the name of a command; -n=NAME gives '
                                                          'another\n'))

    def test_refused(self):
        saved = self.folder / "saved"
        for data, message in [(b"", NOT_A_SCREEN + "line 1: expected an empty line"),
                              (b"$\nx", NOT_A_SCREEN + "line 2: expected $ at the end"),
                              (b"\n" * 1000000, NOT_A_SCREEN + "line 2: expected a blue line of 36 \"#\""),
                              (b"\n" * 1000001, " has more than 1000000 bytes")]:
            saved.write_bytes(data)
            self.assertEqual(self.doc("-s", "-o=out", "saved"), (1, "", "kelp-doc: saved" + message + "\n"))
        saved.unlink()
        self.check_refusal(1, "cannot read saved: No such file or directory", "-s", "saved")
        self.check_refusal(1, "tmp is a directory", "-s", "tmp")


    @native_only
    def test_time(self):
        # Screens of nearly the largest size. Quadratic work took at least three seconds in a build with optimisation.
        before, between, after = self.document("-n=plain", "-f=screen", HOSTILE).partition("  plain $\n")
        options = "".join(f"  \\e[34m-{chr(letter)}, :\\e[0m $\n$\n" for letter in range(0x3400, 0x3400 + 20000))
        for text in (before + between.replace(" $", " " + "w" * 900000 + "$") + after,
                     before + between + after.replace("Options:\\e[0m$\n", "Options:\\e[0m$\n" + options)):
            (self.folder / "saved").write_text(text, encoding="utf-8")
            for form in ("bash", "fish", "json", "markdown", "screen", "zsh"):
                with self.subTest(form=form, text=text[-100:]):
                    limit = lambda: resource.setrlimit(resource.RLIMIT_CPU, (2, 2))
                    self.assertEqual(self.doc("-s", "-f=" + form, "-o=out", "saved", preexec_fn=limit), (0, "", ""))


class CommandLines(KelpDocTest):
    def test_hints(self):
        saved = self.folder / "saved"
        saved.write_text(self.document("-f=screen", KELP_DOC), encoding="utf-8")
        options = json.loads(self.document("-s", "-t=a,n=LETTERS,o=OUT:folder,f=x|y", "saved"))["options"]
        self.assertEqual({each["short"]: (each["takes"], each["value"], each["choices"]) for each in options},
                         {"-a": ("nothing", "", []), "-f": ("choice", "", ["x", "y"]), "-h": ("nothing", "", []),
                          "-i": ("file", "FILE", []), "-n": ("text", "LETTERS", []), "-o": ("folder", "OUT", []), "-s": ("nothing", "", []),
                          "-t": ("text", "HINTS", [])})

    def test_refused(self):
        hint = "is not a hint; write l, n=LINES, o=FILE:file, d=DIR:folder or m=fast|exact"
        see = " (see kelp-doc --help)"
        for arguments, message in [
                ([], "TOOL is missing"),
                (["-f=xml", "x"], "-f=xml: not one of bash, fish, json, man, markdown, screen, zsh"),
                (["-a", "x"], "-a: needs the folder: -o=FOLDER"),
                (["-a", "-o=", "x"], "-a: needs the folder: -o=FOLDER"),
                (["-a", "-o=out", "-f=json", "x"], "-a: cannot be combined with -f"),
                (["-i=sections", "x"], "-i=sections: belongs to -f=man or -a"),
                (["-i=sections", "-f=json", "x"], "-i=sections: belongs to -f=man or -a"),
                (["-t=n=", "x"], f'-t=n=: "n=" {hint}'),
                (["-t=n=a\tb", "x"], f'-t=n=a\\x09b: "n=a\\x09b" {hint}'),
                (["-t=l,", "x"], "-t=l,: not texts separated by \",\", none of them empty"),
                (["-o=", "x"], "-o=: not a file name"),
        ]:
            with self.subTest(arguments=arguments):
                self.check_refusal(2, message + see, *arguments)
        self.check_refusal(1, "the hint q fits no option of plain", "-t=q", "-n=plain", HOSTILE)

    def test_itself(self):
        tool = json.loads(self.document(KELP_DOC))
        self.assertEqual({each["short"]: (each["takes"], each["value"]) for each in tool["options"]},
                         {"-a": ("nothing", ""), "-f": ("text", "FORMAT"), "-h": ("nothing", ""), "-i": ("file", "FILE"), "-n": ("text", "NAME"),
                          "-o": ("file", "PATH"), "-s": ("nothing", ""), "-t": ("text", "HINTS")})
        self.assertEqual(tool["arguments"], [{"name": "TOOL", "text": "the program, which is run with --help",
                                              "repeated": False, "optional": False}])


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
