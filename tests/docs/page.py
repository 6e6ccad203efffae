"""Splits a page of the documentation into its blocks of code."""

import dataclasses
import re

FENCE = re.compile(r"^```(\w*)$")
NAMED = re.compile(r"`([\w.-]+)`[^`]*:$")
NOT_RUN = re.compile(r"not run: \S")
AROUND = re.compile(r"around ([\w-]+\.\w+)\n")


@dataclasses.dataclass
class Block:
    """One block of code: its first line, kind and text, and the line of text and the hidden comment above it."""

    line: int
    kind: str
    text: str
    before: str
    comment: str

    def is_left_out(self):
        """Whether a hidden comment gives a reason not to run it."""
        return bool(NOT_RUN.match(self.comment))

    def file(self):
        """Returns the name and text of the file in the block; None when it is not a file.

        The line of text above the block names the file: "`tool.cpp`:". When the block is a part of a program, the hidden
        comment "around tool.cpp" contains the rest, with @@ in place of the block."""
        around = AROUND.match(self.comment)
        if around:
            return around[1], self.comment[around.end():].replace("@@\n", self.text)
        named = NAMED.search(self.before)
        return (named[1], self.text) if named else None


def commands(block):
    """Returns the commands of a console block, each with its line number and the output below it."""
    found = []
    for offset, line in enumerate(block.text.splitlines(keepends=True), start=1):
        if line.startswith("$ "):
            found.append([block.line + offset, line[2:].rstrip("\n"), ""])
        elif not found:
            raise ValueError(f"line {block.line}: a console block begins with a command")
        else:
            found[-1][2] += line
    return found


def fenced(lines, start):
    """Returns the line after a fenced block, and the block's text."""
    end = start + 1
    while end < len(lines) and lines[end] != "```":
        end += 1
    if end == len(lines):
        raise ValueError(f"line {start + 1}: the block has no end")
    return end + 1, "".join(line + "\n" for line in lines[start + 1:end])


def indented(lines, start):
    """Returns the line after an indented block, and the block's text."""
    end = start
    while end < len(lines) and lines[end].startswith("    "):
        end += 1
    return end, "".join(line[4:] + "\n" for line in lines[start:end])


def hidden(lines, start):
    """Returns the line after a hidden comment, and the comment's text."""
    end = start
    while end < len(lines) and not lines[end].endswith("-->"):
        end += 1
    text = "\n".join(lines[start:end + 1])
    return end + 1, text.removeprefix("<!--").removesuffix("-->").strip() + "\n"


def blocks(page):
    """Returns all blocks of a page, in order."""
    lines = page.split("\n")
    found, before, comment, at = [], "", "", 0
    while at < len(lines):
        begin, line = at, lines[at]
        if line.startswith("<!--"):
            at, comment = hidden(lines, at)
        elif line.startswith("```"):
            fence = FENCE.match(line)
            at, text = fenced(lines, at)
            found.append(Block(begin + 1, fence[1] if fence else line[3:], text, before, comment))
            before = comment = ""
        elif line.startswith("    ") and (begin == 0 or not lines[begin - 1] or comment):
            at, text = indented(lines, at)
            found.append(Block(begin + 1, "indented", text, before, comment))
            before = comment = ""
        else:
            before, comment, at = (line, "", at + 1) if line else (before, comment, at + 1)
    return found
