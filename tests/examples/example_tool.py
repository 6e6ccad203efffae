"""Runs an example tool in a temporary folder. The path of the built tool is the argument of the test script."""

import concurrent.futures
import os
import pty
import re
import subprocess
import sys
import termios
import unittest

import folder
import programs

PROGRAM = sys.argv.pop()

native_only = unittest.skipIf(programs.ON_WINDOWS, "not on Windows")
windows_only = unittest.skipUnless(programs.ON_WINDOWS, "only on Windows")


def preloaded(variable, folder, **settings):
    """The environment that loads the library named by `variable` before the tool. LD_PRELOAD splits its value at blanks, so it
    names a link in `folder` instead of the library."""
    link = os.path.join(folder, variable.lower() + ".so")
    os.symlink(os.path.realpath(os.environ[variable]), link)
    return {**os.environ, "LD_PRELOAD": link, **settings}


def pseudo_random(size):
    """Bytes without an obvious pattern, the same in every run."""
    state, words = 1, []
    for _ in range(size // 8 + 1):
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        words.append((state ^ state >> 33).to_bytes(8, "little"))
    return b"".join(words)[:size]


class ToolTestCase(folder.FolderTestCase):
    """Runs the tool in a new folder for every test."""

    tool_name = os.path.basename(PROGRAM).removesuffix(".exe")

    def tool(self, *arguments, **options):
        """Runs the tool by its plain name. Returns exit status, output and errors, with "<here>" in place of the folder."""
        if programs.ON_WINDOWS:
            result = programs.run(PROGRAM, *arguments, cwd=self.folder, **options)
        else:
            result = programs.run(self.tool_name, *arguments, cwd=self.folder, executable=PROGRAM, **options)
        return result[0], self.without_folder(result[1]), self.without_folder(result[2])

    def without_folder(self, text):
        """Replaces the folder by "<here>", and the delimiter of Windows by "/" in paths that begin with the folder."""
        if programs.ON_WINDOWS:
            folder = re.escape(programs.windows_path(self.folder))
            return re.sub(folder + rb"\\([^ \n]*)", lambda path: b"<here>/" + path[1].replace(b"\\", b"/"), text)
        return text.replace(os.fsencode(self.folder) + b"/", b"<here>/")

    def check(self, expected_output, *arguments):
        """Checks that the tool succeeds and prints exactly this."""
        self.assertEqual((0, expected_output, b""), self.tool(*arguments))

    def check_refusal(self, problem, *arguments, status=1, **options):
        """Checks that the tool fails with exactly this message and leaves the folder unchanged."""
        before = self.contents()
        self.assertEqual((status, b"", self.tool_name.encode() + b": " + problem + b"\n"), self.tool(*arguments, **options))
        self.assertEqual(before, self.contents())

    def check_usage(self, problem, *arguments):
        """Checks that the tool refuses the command line with exactly this message and a hint, and leaves the folder unchanged."""
        self.check_refusal(problem + b" (see " + self.tool_name.encode() + b" --help)", *arguments, status=2)

    def check_help(self, screen, *lines):
        """Checks that each of the lists of arguments gives the help screen."""
        # All at once: the library pauses for half a second after each screen.
        with concurrent.futures.ThreadPoolExecutor(len(lines)) as pool:
            results = list(pool.map(lambda arguments: self.tool(*arguments), lines))
        for arguments, result in zip(lines, results):
            with self.subTest(arguments=arguments):
                self.assertEqual((0, screen, b""), result)

    def start_in_terminal(self, *arguments, **options):
        """Starts the tool with a new terminal as standard output. Returns the process, which ends with the test, and a file
        descriptor to read the output from."""
        reader, terminal = pty.openpty()
        self.addCleanup(os.close, reader)
        termios.tcsetwinsize(terminal, (24, 80))
        tool = subprocess.Popen([PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=terminal,
                                stderr=subprocess.PIPE, **options)
        os.close(terminal)
        self.addCleanup(tool.wait)
        self.addCleanup(tool.stderr.close)
        self.addCleanup(tool.kill)
        return tool, reader

    def tool_on_full_disk(self, *arguments):
        """Runs the tool with a standard output that cannot be written. Returns exit status and errors."""
        with open("/dev/full", "wb") as full:
            done = subprocess.run([PROGRAM, *arguments], cwd=self.folder, stdin=subprocess.DEVNULL, stdout=full,
                                  stderr=subprocess.PIPE, timeout=60, check=False)
        return done.returncode, done.stderr
