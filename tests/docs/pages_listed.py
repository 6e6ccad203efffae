#!/usr/bin/env python3
"""pages_listed.py FOLDER PAGE...: checks that the tests run every page of the project: none is missing from the list."""

import pathlib
import sys


def main():
    root = pathlib.Path(sys.argv[1])
    found = {path.relative_to(root).as_posix() for path in [*root.glob("*.md"), *root.glob("docs/**/*.md")]}
    for name in sorted(found ^ set(sys.argv[2:])):
        print(f"{name}: not listed in tests/docs/CMakeLists.txt" if name in found else f"{name}: no such page")
    return 0 if found == set(sys.argv[2:]) else 1


if __name__ == "__main__":
    sys.exit(main())
