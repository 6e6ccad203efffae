#!/usr/bin/env python3
"""Tests that pages are split into the right blocks, and that every fault of a page is reported."""

import pathlib
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent))
import page as pages  # noqa: E402
import run_page  # noqa: E402

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "docs" / "html"))
import filter as doxygen_filter  # noqa: E402


class FakeHome:
    """A home whose commands and compilers return what the test sets."""

    def __init__(self, outputs=(), problem=""):
        self.outputs, self.problem = list(outputs), problem
        self.commands = []

    def run(self, command):
        self.commands.append(command[-1])
        return self.outputs.pop(0)

    def add(self, _name, _text):
        return self.problem


def checked(text, home):
    """Returns the corrected page and its faults."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder) / "p.md"
        path.write_text(text, encoding="utf-8")
        return run_page.check_page(home, path, "python3 ")


class Blocks(unittest.TestCase):
    def test_the_line_above_names_a_file(self):
        [block] = pages.blocks("See `a.h`, and write `b.cpp`:\n\n```cpp\nint main() {}\n```\n")
        self.assertEqual(block.file(), ("b.cpp", "int main() {}\n"))

    def test_a_part_of_a_program_is_inserted_into_the_rest(self):
        [block] = pages.blocks("Text.\n\n<!-- around part.cpp\nint main() {\n@@\n}\n-->\n```cpp\nf();\n```\n")
        self.assertEqual(block.file(), ("part.cpp", "int main() {\nf();\n}\n"))

    def test_leaving_out_a_block_needs_a_reason(self):
        for comment, left_out in [("not run: it takes an hour", True), ("not run:", False), ("", False)]:
            with self.subTest(comment):
                [block] = pages.blocks(f"<!-- {comment} -->\n```cpp\nf();\n```\n")
                self.assertEqual(block.is_left_out(), left_out)

    def test_a_comment_applies_to_the_next_block_only(self):
        first, second = pages.blocks("<!-- not run: slow -->\n```\na\n```\n\n```\nb\n```\n")
        self.assertEqual((first.is_left_out(), second.is_left_out()), (True, False))

    def test_indented_blocks_count(self):
        [block] = pages.blocks("Text:\n\n    one\n    two\n\nText\n    continued.\n")
        self.assertEqual((block.kind, block.text), ("indented", "one\ntwo\n"))

    def test_a_block_without_an_end_is_refused(self):
        with self.assertRaisesRegex(ValueError, "line 2: the block has no end"):
            pages.blocks("Text\n```cpp\nint a;\n")

    def test_commands_have_their_output(self):
        [block] = pages.blocks("```console\n$ a b\nc\n\nd\n$ e\n```\n")
        self.assertEqual(pages.commands(block), [[2, "a b", "c\n\nd\n"], [6, "e", ""]])


class FilterForDoxygen(unittest.TestCase):
    def test_sections_have_names_and_links_have_targets(self):
        for page, expected in (
                ("a\n<!-- not run: slow -->\nb\n\n<!-- around c.cpp\n@@\n-->\nc\n", "a\nb\n\nc\n"),
                ("# A\n\n## B, `c`\n", "# A {#p}\n\n## B, `c` {#p_b-c}\n"),
                ("# A\n## B\n## B\n#### C\n", "# A {#p}\n\n[TOC]\n## B {#p_b}\n## B {#p_b-1}\n### C {#p_c}\n"),
                ("[a](values.md) [b\nc](#d)", "[a](values.html) [b\nc](p.html#p_d)"),
                ("[`a`](../README.md#b-c)", "[`a`](index.html#index_b-c)"),
                ("[a](../include/kelplib/Kelp.h), [b](../LICENSE)", "[a](Kelp_8h.html), [b](licence.html)"),
                ("[a](../examples), [b](../examples/slice/time_column.cpp)",
                 "[a](examples.html), [b](slice_2time__column_8cpp-example.html)"),
                ("[a](../tests), [b](https://example.com)", "a, [b](https://example.com)"),
                ("```\n## A\n[a](b.md)\n```\n\n    [a](b.md)\n\n`[a](b.md)`\n",) * 2,
                ("| a |\n|---|\n| `b \\| c` |\n", "| a |\n|---|\n| `b \ue000 c` |\n")):
            with self.subTest(page):
                self.assertEqual(doxygen_filter.filtered(doxygen_filter.PROJECT / "docs" / "p.md", page), expected)


class Findings(unittest.TestCase):
    def test_the_shown_output_is_right(self):
        page, home = "```console\n$ a\nb\n$ c\n```\n", FakeHome([("b\n", 0), ("", 0)])
        self.assertEqual(checked(page, home), (page, []))
        self.assertEqual(home.commands, ["a", "c"])

    def test_each_fault_is_reported(self):
        faults = [
            (("c\n", 0), ["p.md:2: $ a\n--- shown\n+++ printed\n@@ -1 +1 @@\n-b\n+c"]),
            (("b\n", 1), ["p.md:2: $ a\nexit status 1\nb\n"]),
            (("b\r\n", 0), ["p.md:2: control characters that the command must make visible: 'b\\r\\n'"]),
            (("b", 0), ["p.md:2: the output does not end in a newline"]),
        ]
        for output, messages in faults:
            with self.subTest(output):
                self.assertEqual(checked("```console\n$ a\nb\n```\n", FakeHome([output]))[1], messages)

    def test_an_unknown_block_is_reported(self):
        for block in ("```cpp\nf();\n```\n", "```\ntext\n```\n", "    make\n"):
            with self.subTest(block):
                [fault] = checked(block, FakeHome())[1]
                self.assertRegex(fault, "^p.md:1: a block of unknown use")

    def test_a_program_that_does_not_compile_is_reported(self):
        self.assertEqual(checked("`a.cpp`:\n```cpp\nint\n```\n", FakeHome(problem="error"))[1], ["p.md:2: a.cpp\nerror"])

    def test_the_output_can_be_written_into_the_page(self):
        renewed, _ = checked("A\n\n```console\n$ a\n```\n\nB\n", FakeHome([("b\n", 0)]))
        self.assertEqual(renewed, "A\n\n```console\n$ a\nb\n```\n\nB\n")

    def test_python_can_be_left_out(self):
        home = FakeHome()
        self.assertEqual(checked("```console\n$ python3 a.py\nb\n```\n", home)[1], [])
        self.assertEqual(home.commands, [])


if __name__ == "__main__":
    unittest.main()
