#!/usr/bin/env python3
"""Tests that the HTML documentation is complete: reference_test.py DOXYGEN DOXYFILE HTML_FOLDER PROJECT PAGE...

Doxygen fails when a public name is not documented or a link has no target. It does not report a page that its filter leaves
empty, or a missing picture.
"""

import html
import pathlib
import re
import subprocess
import sys
import unittest

DOXYGEN, DOXYFILE, FOLDER, PROJECT, *PAGES = sys.argv[1:]
del sys.argv[1:]


def text_of(folder, page):
    """Returns the visible text of a page; README is the first page."""
    name = "index" if page == "README.md" else pathlib.Path(page).stem.lower()
    source = (pathlib.Path(folder) / f"{name}.html").read_text(encoding="utf-8")
    return html.unescape(re.sub(r"<[^>]*>", "", source))


class Reference(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        build = pathlib.Path(PROJECT) / "docs" / "html" / "build.py"
        done = subprocess.run([sys.executable, "-B", build, DOXYGEN, DOXYFILE], stdout=subprocess.PIPE, stderr=subprocess.STDOUT, check=False,
                              encoding="utf-8")
        if done.returncode != 0:
            raise AssertionError(done.stdout)

    def test_every_page_has_its_headings(self):
        for page in PAGES:
            shown = text_of(FOLDER, page)
            headings = re.findall(r"^##? (.*)$", (pathlib.Path(PROJECT) / page).read_text(encoding="utf-8"), re.MULTILINE)
            for heading in headings:
                with self.subTest(f"{page}: {heading}"):
                    self.assertIn(heading.replace("`", ""), shown)

    def test_every_public_header_has_a_page(self):
        headers = [path for folder in ("include/kelplib", "kit/include/kelpkit")
                   for path in sorted((pathlib.Path(PROJECT) / folder).glob("*.h"))]
        self.assertGreater(len(headers), 5)
        for path in headers:
            with self.subTest(path.name):
                self.assertTrue((pathlib.Path(FOLDER) / f"{path.stem}_8h.html").exists())

    def test_comments_for_tests_are_removed(self):
        for page in PAGES:
            with self.subTest(page):
                self.assertNotIn("not run:", text_of(FOLDER, page))

    def test_the_pictures_are_included(self):
        for picture in ("help", "face", "bar"):
            self.assertEqual((pathlib.Path(FOLDER) / f"{picture}.svg").read_bytes(),
                             (pathlib.Path(PROJECT) / "docs" / "pictures" / f"{picture}.svg").read_bytes(), picture)

    def test_every_example_has_a_page_in_the_list(self):
        listed = text_of(FOLDER, "examples.md")
        examples = pathlib.Path(PROJECT) / "examples"
        for path in examples.rglob("*"):
            if path.is_file():
                self.assertIn(path.relative_to(examples).as_posix(), listed)


if __name__ == "__main__":
    unittest.main()
