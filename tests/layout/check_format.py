#!/usr/bin/env python3
"""Checks that all C and C++ files are formatted as .clang-format says: check_format.py FOLDER"""

import pathlib
import subprocess
import sys

root = pathlib.Path(sys.argv[1])
files = [str(path) for folder in ("include", "src", "kit", "examples", "tests", "benchmarks")
         for path in sorted((root / folder).rglob("*")) if path.suffix in (".cpp", ".h", ".c")]
sys.exit(subprocess.call(["clang-format", "--dry-run", "--Werror", *files]) if files else 1)
