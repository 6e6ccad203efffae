"""Running an example tool in a folder of its own. A test script is started with the path of the built tool."""

import os
import pathlib
import re
import sys
import tempfile
import unittest

import programs

PROGRAM = sys.argv.pop()

native_only = unittest.skipIf(programs.ON_WINDOWS, "Windows has nothing of this kind")
windows_only = unittest.skipUnless(programs.ON_WINDOWS, "only Windows has this")


def preloaded(variable, folder, **settings):
    """The environment that loads the library named by a variable before the tool. LD_PRELOAD splits at blanks, so a link in
    this folder leads there."""
    link = os.path.join(folder, variable.lower() + ".so")
    os.symlink(os.path.realpath(os.environ[variable]), link)
    return {**os.environ, "LD_PRELOAD": link, **settings}


def pseudo_random(size):
    """Bytes without a visible pattern, the same in every run."""
    state, words = 1, []
    for _ in range(size // 8 + 1):
        state = (state * 6364136223846793005 + 1442695040888963407) % 2**64
        words.append((state ^ state >> 33).to_bytes(8, "little"))
    return b"".join(words)[:size]


class ToolTestCase(unittest.TestCase):
    """Every test has an empty folder in which the tool runs."""

    tool_name = os.path.basename(PROGRAM).removesuffix(".exe")

    maxDiff = None

    def setUp(self):
        temporary = tempfile.TemporaryDirectory()
        self.addCleanup(temporary.cleanup)
        self.folder = pathlib.Path(temporary.name).resolve()

    def write(self, name, data):
        (self.folder / name).write_bytes(data)

    def contents(self):
        """Everything in the folder: bytes of files, targets of links, None for a folder."""
        found = {}
        for path in sorted(self.folder.rglob("*")):
            name = path.relative_to(self.folder).as_posix()
            if path.is_symlink():
                found[name] = os.readlink(path)
            else:
                found[name] = None if path.is_dir() else path.read_bytes()
        return found

    def tool(self, *arguments, **options):
        """Runs the tool. It is called by its plain name on both systems, and its folder "<here>"."""
        if programs.ON_WINDOWS:
            result = programs.run(PROGRAM, *arguments, cwd=self.folder, **options)
        else:
            result = programs.run(self.tool_name, *arguments, cwd=self.folder, executable=PROGRAM, **options)
        return result[0], self.without_folder(result[1]), self.without_folder(result[2])

    def without_folder(self, text):
        """A text of the tool's with "<here>" in place of the folder, in which paths have one delimiter on both systems."""
        if programs.ON_WINDOWS:
            folder = re.escape(programs.windows_path(self.folder))
            return re.sub(folder + rb"\\([^ \n]*)", lambda path: b"<here>/" + path[1].replace(b"\\", b"/"), text)
        return text.replace(os.fsencode(self.folder) + b"/", b"<here>/")

    def check(self, expected_output, *arguments):
        """The tool succeeds and prints exactly this."""
        self.assertEqual((0, expected_output, b""), self.tool(*arguments))

    def check_refusal(self, problem, *arguments, **options):
        """The tool says exactly this in one line, and the folder is as before."""
        before = self.contents()
        self.assertEqual((1, b"", self.tool_name.encode() + b": " + problem + b"\n"), self.tool(*arguments, **options))
        self.assertEqual(before, self.contents())
