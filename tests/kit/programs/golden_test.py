#!/usr/bin/env python3
"""Compares the documents that kelp-doc writes about odd tools with the saved ones, on every system the same bytes:

    golden_test.py KELP_DOC DEFINED_TOOL
    golden_test.py KELP_DOC DEFINED_TOOL --write    saves them

golden/NAME contains the installed documents and, in the file "screen", the visible screen of the tool DEFINED_TOOL under NAME.
"""

import os
import pathlib
import shutil
import sys
import tempfile
import unittest

import programs

KELP_DOC, DEFINED = sys.argv[1:3]
GOLDEN = pathlib.Path(__file__).resolve().parent / "golden"
# The names, and what their options take.
TOOLS = {"letters": "-t=a=FILE:file", "quotes": "-t=a=fast|exact"}


def documents(folder):
    """Returns the files of a folder with their bytes."""
    return {path.relative_to(folder).as_posix(): path.read_bytes() for path in folder.rglob("*") if path.is_file()}


def write_documents(name, folder):
    environment = {**os.environ, "SOURCE_DATE_EPOCH": "1700000000"}
    for arguments in ["-a", "-o=."], ["-f=screen", "-o=screen"]:
        status, output, errors = programs.run(KELP_DOC, *arguments, "-n=" + name, TOOLS[name], DEFINED, cwd=folder,
                                              env=environment)
        if (status, output, errors) != (0, b"", b""):
            raise AssertionError(f"{name}: {status} {output} {errors}")


class Golden(unittest.TestCase):
    maxDiff = None

    def test_documents(self):
        for name in TOOLS:
            with self.subTest(name=name), tempfile.TemporaryDirectory() as folder:
                write_documents(name, folder)
                written = documents(pathlib.Path(folder))
                self.assertEqual(written, documents(GOLDEN / name))


if __name__ == "__main__":
    if sys.argv[3:] == ["--write"]:
        shutil.rmtree(GOLDEN, ignore_errors=True)
        for tool in TOOLS:
            (GOLDEN / tool).mkdir(parents=True)
            write_documents(tool, GOLDEN / tool)
    else:
        unittest.main(argv=sys.argv[:1])
