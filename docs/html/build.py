#!/usr/bin/env python3
"""build.py DOXYGEN DOXYFILE: builds the HTML documentation; exits with status 1 and Doxygen's warnings if there are any.

Doxygen makes the pages. This script adds what it does not offer: a search of the whole text, the previous and next page at the
end of a page, the pages in the menu, and pages for the examples and the licence. Scripts of the packages doxygen-awesome-css
and libjs-lunr are left out if they are not installed.
"""

import html.parser
import json
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
PROJECT = HERE.parents[1]
THEME = pathlib.Path("/usr/share/doxygen-awesome-css")
THEME_SCRIPTS = ["doxygen-awesome-darkmode-toggle.js", "doxygen-awesome-fragment-copy-button.js",
                 "doxygen-awesome-interactive-toc.js"]
LUNR = pathlib.Path("/usr/share/javascript/lunr/lunr.min.js")

sys.path.insert(0, str(HERE))
import filter as pages  # noqa: E402


def setting(doxyfile, name):
    """Returns the quoted texts of a setting."""
    value = re.search(rf"^{name} *=((?:.*\\\n)*.*)", doxyfile, re.MULTILINE)[1]
    return re.findall(r'"([^"]*)"', value)


def write_examples(path):
    """Writes comments from which Doxygen makes a page for each example, and one for the licence."""
    blocks = ["\\page licence Licence\n\\verbinclude LICENSE"]
    for file in sorted((PROJECT / "examples").rglob("*")):
        if file.is_file():
            name = file.relative_to(PROJECT / "examples").as_posix()
            blocks.append(f"\\example {name}")
    path.write_text("".join(f"/**\n{block}\n*/\n" for block in blocks), encoding="utf-8")


def reading_order(doxyfile):
    """Returns the pages in the order of INPUT; those of a folder, which the others leave out, by name."""
    order = []
    for text in setting(doxyfile, "INPUT"):
        path = pathlib.Path(text)
        found = sorted(path.glob("*.md")) if path.is_dir() else [path] if path.suffix == ".md" else []
        order += [page for page in found if page not in order]
    return order


def title_of(page):
    """Returns the title of a page."""
    return re.search(r"^# (.*)$", page.read_text(encoding="utf-8"), re.MULTILINE)[1].replace("`", "")


def html_name(page):
    """Returns the name of a page's HTML file."""
    return pages.page_name(page) + ".html"


def neighbours(order, name):
    """Returns the links to the previous and next page as HTML; "" for other files than guide pages."""
    names = [html_name(page) for page in order]
    if name not in names:
        return ""
    at, links = names.index(name), ""
    for relation, word, other in (("prev", "Previous", at - 1), ("next", "Next", at + 1)):
        if 0 <= other < len(order):
            title = html.escape(title_of(order[other]))
            links += f'<a rel="{relation}" href="{names[other]}"><span>{word}</span> {title}</a>\n'
    return f'<nav class="neighbours" aria-label="Previous and next page">\n{links}</nav>\n'


class Sections(html.parser.HTMLParser):
    """Collects the text of a page, section by section, as [anchor, heading, text]."""

    def __init__(self):
        super().__init__()
        self.title, self.found = "", [["", "", ""]]
        self.skipped, self.inside, self.heading, self.in_title = 0, 0, False, False

    def handle_starttag(self, tag, attributes):
        values = dict(attributes)
        if tag == "title":
            self.in_title = True
        if tag == "div":
            if self.skipped or values.get("class") in ("toc interactive", "toc", "ttc"):
                self.skipped += 1
            if self.inside or values.get("class") == "contents":
                self.inside += 1
        elif tag in ("h1", "h2", "h3") and self.inside:
            self.found.append(["", "", ""])
            self.heading = True
        # Doxygen 1.9.4 gives each page a second name.
        anchor = re.sub("^md_.*", "", values.get("id") or values.get("name") or "")
        if tag == "a" and anchor and self.inside and not self.found[-1][0] and self.found[-1][2].strip() == "" \
                and len(self.found) > 1:
            self.found[-1][0] = anchor

    def handle_endtag(self, tag):
        if tag == "title":
            self.in_title = False
        elif tag == "div":
            self.skipped = max(0, self.skipped - 1)
            self.inside = max(0, self.inside - 1)
        elif tag in ("h1", "h2", "h3"):
            self.heading = False
        if tag in ("p", "div", "td", "li", "tr", "pre", "dd", "dt", "br") and self.inside:
            self.found[-1][2] += " "

    def handle_data(self, data):
        if self.in_title:
            self.title += data
        elif self.inside and not self.skipped and not re.fullmatch(r"exit status \d+", data.strip()):
            # Every refused command on the pages would be found by "exit status".
            self.found[-1][1 if self.heading else 2] += data.replace('; echo "exit status $?"', "")


def searchable(folder, order):
    """Returns the sections that the search finds: page, address, heading and text."""
    names = [html_name(page) for page in order]
    found = []
    for path in sorted(folder.glob("*.html"), key=lambda path: (names.index(path.name) if path.name in names else 999, path.name)):
        if not (path.name in names or re.match(r"class|struct|.*_8h\.html|.*-example\.html|licence", path.name)) \
                or path.name.endswith("-members.html"):
            continue
        parser = Sections()
        parser.feed(path.read_text(encoding="utf-8"))
        title = parser.title.removeprefix("kelplib: ").strip()
        for anchor, heading, text in parser.found:
            text, heading = " ".join(text.split()), " ".join(heading.replace("◆", "").split())
            if text:
                address = path.name + (f"#{anchor}" if anchor else "")
                found.append([title, address, heading, text])
    return found


def finish_page(path, order, scripts):
    """Adds the scripts, and the previous and next page."""
    text = path.read_text(encoding="utf-8").replace(pages.BAR, "|")
    tags = "".join(f'<script src="{name}"></script>\n' for name in scripts)
    # Without an icon, browsers ask the server for one.
    tags = f'<link rel="icon" href="data:,"/>\n{tags}'
    # Doxygen makes dashes of the two hyphens of an option in a comment.
    text = re.sub(r"(?:&ndash;|–)(?=[a-z])", "--", text)
    text = re.sub(r"<code>(?=(?:&\w+;|[^<&]){1,16}</code>)", '<code class="short">', text)
    text = text.replace("</head>", tags + "</head>", 1).replace("<html ", '<html lang="en" ', 1)
    # Doxygen (seen with 1.9.4) announces nested classes although all of them are private.
    if 'id="nested-classes"' not in text:
        text = re.sub(r'<a href="#nested-classes">Classes</a> &#124;\s*', "", text)
    text = text.replace("</div><!-- contents -->", "</div><!-- contents -->\n" + neighbours(order, path.name), 1)
    path.write_text(text, encoding="utf-8")


def finish_menu(path, order):
    """Lists the pages in the menu, which is all that a phone shows of the navigation."""
    items = [{"text": title_of(page), "url": html_name(page)} for page in order[1:]]
    text = path.read_text(encoding="utf-8")
    new = re.sub(r'\{text:"Related Pages",url:"pages.html"\}',
                 lambda _: '{text:"Guide",url:"pages.html",children:' + json.dumps(items) + "}", text)
    if new == text:
        raise SystemExit(f"{path} has no entry for the pages")
    path.write_text(new, encoding="utf-8")


def finish(folder, order):
    """Adds to Doxygen's pages what it does not offer."""
    scripts = [name for name in THEME_SCRIPTS if (THEME / name).exists()]
    for name in scripts:
        shutil.copyfile(THEME / name, folder / name)
    for picture in (PROJECT / "docs").rglob("*.svg"):
        shutil.copyfile(picture, folder / picture.name)
    for path in folder.glob("*.html"):
        finish_page(path, order, [*scripts, *(["search.js"] if LUNR.exists() else []), "pages.js"])
    if LUNR.exists():
        shutil.copyfile(LUNR, folder / LUNR.name)
        text = json.dumps(searchable(folder, order), ensure_ascii=False, separators=(",", ":"))
        (folder / "search_text.js").write_text(f"const searchText = {text};\n", encoding="utf-8")
        shutil.copyfile(HERE / "search.js", folder / "search.js")
    shutil.copyfile(HERE / "pages.js", folder / "pages.js")
    finish_menu(folder / "menudata.js", order)


def main():
    doxygen, doxyfile = sys.argv[1:]
    settings = pathlib.Path(doxyfile).read_text(encoding="utf-8")
    [output] = setting(settings, "OUTPUT_DIRECTORY")
    folder = pathlib.Path(output) / "html"
    shutil.rmtree(folder, ignore_errors=True)
    write_examples(pathlib.Path(output) / "examples.dox")
    done = subprocess.run([doxygen, doxyfile], check=False)
    if done.returncode != 0:
        return 1
    finish(folder, reading_order(settings))
    return 0


if __name__ == "__main__":
    sys.exit(main())
