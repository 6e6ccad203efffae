#!/usr/bin/env python3
"""filter.py PAGE: prints a page as Doxygen reads it.

Gives every page and section a name: the section "Exit status" of values.md is values_exit-status. Links to pages, sections,
headers, examples and the licence then have targets; links to other files become text. Removes hidden comments, adds the
contents, and limits pictures to the width of the page.
"""

import pathlib
import re
import sys

BAR = "\ue000"
PROJECT = pathlib.Path(__file__).resolve().parents[2]
# Code: fenced blocks, indented blocks, and code in a line. Its text stays as it is.
CODE = re.compile(r"(^```.*?^```$|(?:(?<=\n\n)|(?<=-->\n))(?:    [^\n]*\n)+|`[^`\n]+`)", re.MULTILINE | re.DOTALL)
HIDDEN = re.compile(r"^<!--.*?-->\n", re.MULTILINE | re.DOTALL)
HEADING = re.compile(r"^(#+) (.*)$", re.MULTILINE)
LINK = re.compile(r"(!?)\[([^][]*)\]\(([^)\s]+)\)")


def page_name(page):
    """Returns the name of a page; README is the first page."""
    return "index" if page.name == "README.md" else page.stem.lower()


def section_name(page, heading):
    """Returns the name of a section: the page's, and the one that the section has in a link."""
    kept = re.sub(r"[^\w\- ]", "", heading.strip().lower())
    return f"{page_name(page)}_{kept.replace(' ', '-')}"


def escaped(name):
    """Returns the name of a file as Doxygen writes it in the names of its pages."""
    return name.replace("_", "__").replace("/", "_2").replace(".", "_8")


def example_file(path):
    """Returns the HTML page of an example, or the list of all examples."""
    name = path.relative_to(PROJECT / "examples").as_posix()
    if not path.is_file():
        return "examples.html"
    return escaped(name) + "-example.html"


def target(page, link):
    """Returns the HTML page; "" if the documentation does not contain it."""
    name, _, section = link.partition("#")
    path = (page.parent / name).resolve() if name else page
    if path.suffix == ".md" and path.parent in (PROJECT, PROJECT / "docs"):
        return f"{page_name(path)}.html" + (f"#{section_name(path, section)}" if section else "")
    if path.suffix == ".h" and "include" in path.parts:
        return f"{escaped(path.name)}.html"
    if path == PROJECT / "LICENSE":
        return "licence.html"
    return example_file(path) if path.is_relative_to(PROJECT / "examples") else ""


def linked(page, found):
    """Returns a link or picture as Doxygen reads it."""
    picture, text, link = found.groups()
    if picture:
        return f'<img src="{pathlib.Path(link).name}" alt="{text}" style="max-width: 100%">'
    if re.match(r"\w+:", link):
        return found[0]
    new = target(page, link)
    return f"[{text}]({new})" if new else text


def headed(page, text):
    """Names the sections, and adds the contents to a page with three sections or more."""
    seen, levels = [], [1]

    def name(found):
        if found[1] == "#":
            return found[0] if page_name(page) == "index" else f"{found[0]} {{#{page_name(page)}}}"
        label = section_name(page, found[2])
        seen.append(label)
        number = seen.count(label) - 1
        # Doxygen refuses a section two levels below the one above it.
        levels.append(min(len(found[1]), levels[-1] + 1))
        return f"{'#' * levels[-1]} {found[2]} {{#{label}{f'-{number}' if number else ''}}}"

    # A heading may contain code.
    blocks = re.split(r"(^```.*?^```$)", text, flags=re.MULTILINE | re.DOTALL)
    blocks[::2] = [HEADING.sub(name, part) for part in blocks[::2]]
    text = "".join(blocks)
    return re.sub(r"\A(# .*\n)", r"\1\n[TOC]\n", text) if len(seen) > 2 else text


def in_table(code):
    """Returns code with a mark for each escaped "|", whose backslash Doxygen (seen with 1.9.4) prints."""
    if code.startswith(("```", " ")) or "\\|" not in code:
        return code
    return code.replace("\\|", BAR)


def filtered(page, text):
    """Returns the text of the page for Doxygen."""
    # A link's text may contain code, so code is replaced by marks meanwhile.
    text = headed(page, HIDDEN.sub("", text))
    code = []

    def mark(found):
        code.append(found[0])
        return f"\0{len(code) - 1}\0"

    text = LINK.sub(lambda found: linked(page, found), CODE.sub(mark, text))
    return re.sub("\0(\\d+)\0", lambda found: in_table(code[int(found[1])]), text)


if __name__ == "__main__":
    path = pathlib.Path(sys.argv[1]).resolve()
    sys.stdout.reconfigure(encoding="utf-8", newline="\n")
    sys.stdout.write(filtered(path, path.read_text(encoding="utf-8")))
