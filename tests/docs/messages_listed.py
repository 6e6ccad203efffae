#!/usr/bin/env python3
"""messages_listed.py PROJECT PAGE...: checks that the pages contain every message of the kit.

A message is a literal of two words or more in the kit's sources; many are a part of one, such as " is given twice: "."""

import pathlib
import re
import sys

LITERAL = re.compile(r'"((?:[^"\\\n]|\\.)*)"')
# The rules have a page and a test of their own. The compiler prints the assertions.
OTHERS = re.compile(r"//.*|static_assert\([^;]*;")


def messages(project):
    """Yields every message and the file that prints it."""
    for folder in ("kit/src", "kit/include/kelpkit"):
        for path in sorted((project / folder).glob("*.*")):
            if path.stem.startswith("rules"):
                continue
            for literal in LITERAL.findall(OTHERS.sub("", path.read_text(encoding="utf-8"))):
                if " " in literal.strip():
                    yield re.sub(r"\\(.)", r"\1", literal), path.name


def main():
    project, pages = pathlib.Path(sys.argv[1]), sys.argv[2:]
    text = "\n".join((project / page).read_text(encoding="utf-8") for page in pages)
    found = list(messages(project))
    missing = [f'{name}: "{message}" is on none of {", ".join(pages)}' for message, name in found if message not in text]
    print("\n".join(missing) or f"{len(found)} messages are listed")
    return 1 if missing or not found else 0


if __name__ == "__main__":
    sys.exit(main())
