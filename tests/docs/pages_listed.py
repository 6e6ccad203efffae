#!/usr/bin/env python3
"""pages_listed.py FOLDER PAGE...: whether the named pages, which the tests play, are all pages of the project."""

import pathlib
import sys


def main():
    root = pathlib.Path(sys.argv[1])
    there = {path.relative_to(root).as_posix() for path in [*root.glob("*.md"), *root.glob("docs/**/*.md")]}
    for name in sorted(there ^ set(sys.argv[2:])):
        print(f"{name}: not among the tests' pages" if name in there else f"{name}: no such page")
    return 0 if there == set(sys.argv[2:]) else 1


if __name__ == "__main__":
    sys.exit(main())
