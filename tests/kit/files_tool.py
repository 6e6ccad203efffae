"""Runs new_files_tool in a temporary folder. The path of the built tool is the argument of the test script."""

import re
import sys
import unittest

import folder
import programs

PROGRAM = sys.argv.pop()

native_only = unittest.skipIf(programs.ON_WINDOWS, "not on Windows")


class FilesTestCase(folder.FolderTestCase):
    """Runs the tool in a new folder for every test."""

    def start_with(self, files):
        """Empties the folder and writes these files."""
        for path in self.folder.iterdir():
            if path.is_dir() and not path.is_symlink():
                path.rmdir()
            else:
                path.unlink()
        for name, data in files.items():
            self.write(name, data)

    def tool(self, *arguments, **options):
        """Returns exit status, output and errors."""
        return programs.run(PROGRAM, *arguments, cwd=self.folder, **options)

    def check_refusal(self, problem, *arguments, **options):
        """Checks that the tool fails with exactly this message and leaves the folder unchanged."""
        before = self.contents()
        self.assertEqual((1, b"", problem + b"\n"), self.tool(*arguments, **options))
        self.assertEqual(before, self.contents())

    def run_until_named(self, errors):
        """Returns the leftover that a message names."""
        return re.match(rb"(\S+\.(?:unfinished|replaced)) exists already; .*\n$", errors)[1].decode()
