#!/usr/bin/env python3
"""Checks that the scripts print help and refuse unknown words before they do anything: scripts_test.py"""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

from consumers import ROOT

SCRIPTS = sorted(path for path in (ROOT / "scripts").iterdir() if path.is_file())


class Scripts(unittest.TestCase):
    def setUp(self):
        """Simulates a machine without tools, on which an attempt to install one leaves a mark."""
        holder = tempfile.TemporaryDirectory(prefix="kelplib.")
        self.addCleanup(holder.cleanup)
        self.folder = pathlib.Path(holder.name)
        self.mark = self.folder / "installed"
        for name in ("apt-get", "sudo"):
            (self.folder / name).write_text(f"#!/bin/sh\n: >{self.mark}\nexit 1\n", encoding="utf-8")
            (self.folder / name).chmod(0o755)
        for name in ("basename", "bash", "cat", "dirname", "env", "mktemp", "readlink", "rm", "sed", "stat", "tail"):
            (self.folder / name).symlink_to(shutil.which(name))

    def run_script(self, path, *words, **changed):
        self.mark.unlink(missing_ok=True)
        done = subprocess.run([path, *words], stdin=subprocess.DEVNULL, stdout=subprocess.PIPE, stderr=subprocess.PIPE,
                              env={**os.environ, "PATH": str(self.folder), **changed}, encoding="utf-8", timeout=60, check=False)
        self.assertFalse(self.mark.exists(), "something was installed")
        return done.returncode, done.stdout, done.stderr

    def test_they_print_help(self):
        for path in SCRIPTS:
            for word in ("--help", "-h"):
                with self.subTest(path.name, word=word):
                    status, printed, problem = self.run_script(path, word)
                    self.assertEqual((0, ""), (status, problem))
                    self.assertTrue(printed.startswith(f"usage: scripts/{path.name} "), printed)
                    self.assertIn("\n  -h, --help ", printed)

    def test_they_refuse_unknown_words(self):
        for path in SCRIPTS:
            with self.subTest(path.name):
                status, printed, problem = self.run_script(path, "--unknown")
                self.assertEqual((2, ""), (status, printed))
                self.assertRegex(problem, rf"^usage: scripts/{path.name} [^\n]*\n$")

    def test_they_need_a_folder_for_temporary_files(self):
        for path in SCRIPTS:
            with self.subTest(path.name):
                status, printed, problem = self.run_script(path, TMPDIR=str(self.folder / "missing"))
                self.assertEqual((1, ""), (status, printed))
                self.assertRegex(problem, rf"^mktemp: [^\n]*{self.folder}/missing/[^\n]*\n$")


if __name__ == "__main__":
    unittest.main()
