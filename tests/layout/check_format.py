#!/usr/bin/env python3
"""Checks with clang-format that every C and C++ file has the format of .clang-format: check_format.py FOLDER."""

import pathlib
import subprocess
import sys

root = pathlib.Path(sys.argv[1])
files = [str(path) for folder in ("include", "src", "examples", "tests", "benchmarks")
         for path in sorted((root / folder).rglob("*")) if path.suffix in (".cpp", ".h", ".c")]
sys.exit(subprocess.call(["clang-format", "--dry-run", "--Werror", *files]) if files else 1)
