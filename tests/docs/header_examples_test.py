#!/usr/bin/env python3
"""Compiles the examples in the public headers: header_examples_test.py PROJECT COMPILER

An example is the text between \\code and \\endcode. The environment variable CXXFLAGS sets the compiler's options.
"""

import os
import pathlib
import re
import shlex
import subprocess
import sys
import unittest

PROJECT, COMPILER = pathlib.Path(sys.argv[1]), sys.argv[2]
del sys.argv[1:]
FOLDERS = [PROJECT / "include", PROJECT / "kit" / "include"]
HEADERS = """#include <kelplib/CommandLineTool.h>
#include <kelplib/FilePath.h>
#include <kelpkit/Tool.h>
#include <list>
"""
# The parameters are what examples use without declaring it.
FUNCTION = """
namespace example{number} {{
# 1 "{header}"
[[maybe_unused]] static void example([[maybe_unused]] int argc, [[maybe_unused]] char** argv,
                                     [[maybe_unused]] Kelpkit::CommandLine& line, [[maybe_unused]] int count) {{
{example}
}}
}}
"""


def examples():
    """Yields the name of a header and an example of it."""
    for folder in FOLDERS:
        for path in sorted(folder.rglob("*.h")):
            text = path.read_text(encoding="utf-8")
            for lines in re.findall(r"^ */// \\code\n(.*?)^ */// \\endcode$", text, re.MULTILINE | re.DOTALL):
                yield path.name, re.sub(r"^ */// ?", "", lines, flags=re.MULTILINE)


class HeaderExamples(unittest.TestCase):
    def test_every_example_compiles(self):
        found = list(examples())
        self.assertGreater(len(found), 5)
        command = [COMPILER, *shlex.split(os.environ.get("CXXFLAGS", "")), "-std=c++17", "-fsyntax-only", "-Wall", "-Wextra",
                   "-Werror", "-Wno-unused-variable", "-Wno-unused-but-set-variable", *(f"-I{folder}" for folder in FOLDERS),
                   "-xc++", "-"]
        program = HEADERS + "".join(FUNCTION.format(number=number, header=header, example=example)
                                    for number, (header, example) in enumerate(found))
        done = subprocess.run(command, input=program, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                              encoding="utf-8")
        self.assertEqual(done.returncode, 0, done.stdout)


if __name__ == "__main__":
    unittest.main()
