#!/usr/bin/env python3
"""Types the lines of docs/shells.md that try a completion into real shells: shells_page_test.py KELP_DOC PROJECT"""

import pathlib
import sys
import tempfile
import unittest

import page

KELP_DOC, PROJECT = sys.argv[1], pathlib.Path(sys.argv[2])
del sys.argv[1:]
sys.path.insert(0, str(PROJECT / "tests/kit/programs/shells"))
import shell_sessions


class ShellsPage(unittest.TestCase):
    def check(self, shell):
        lines = [block.text.strip() for block in page.blocks((PROJECT / "docs/shells.md").read_text(encoding="utf-8"))
                 if block.kind == shell and "kelp-doc" in block.text]
        self.assertEqual(len(lines), 1)
        with tempfile.TemporaryDirectory() as folder, shell_sessions.SHELLS[shell](folder) as session:
            (session.home / "bin" / "kelp-doc").symlink_to(KELP_DOC)
            # Here, firstlines has the options of kelp-doc.
            tool = session.work / "firstlines"
            tool.write_text('#!/bin/bash\nexec -a firstlines kelp-doc --help\n')
            tool.chmod(0o755)
            session.press(f"{lines[0]}; firstlines tried")
            self.assertEqual(session.enter(), ["tried"])
            for typed, word in ("--fo", "--format="), ("-o=fi", "-o=firstlines"):
                line, _ = session.press(f"firstlines {typed}\t")
                self.assertEqual(session.enter(), [word], line)

    def test_bash(self):
        self.check("bash")

    def test_zsh(self):
        self.check("zsh")

    def test_fish(self):
        self.check("fish")


if __name__ == "__main__":
    unittest.main()
