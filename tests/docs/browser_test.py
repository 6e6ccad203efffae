#!/usr/bin/env python3
"""Tests the HTML documentation in a headless Chromium: browser_test.py HTML_FOLDER

Every page is opened once and looked at in light and dark, on a desktop and on a phone. What a user does (search, switch, menu,
copy) is tried from the file system, the search also from a web server.
"""

import base64
import functools
import html
import http.server
import pathlib
import re
import shutil
import sys
import tempfile
import threading
import time
import unittest
import urllib.parse

from selenium import webdriver
from selenium.webdriver.chrome.options import Options
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

FOLDER = pathlib.Path(sys.argv.pop(1)).resolve()
SWITCHES = """--headless --no-sandbox --disable-gpu --disable-quic --no-first-run --disable-background-networking
              --disable-component-update --disable-sync --disable-dev-shm-usage""".split()
DESKTOP, PHONE = (1300, 900), (360, 740)

# Returns every text whose contrast with its background is below 4.5:1, as [text, ratio, class of its element].
CONTRAST = """
const parse = (text) => (text.match(/[\\d.]+/g) || [0, 0, 0, 0]).map(Number);
const over = (top, below) => {
  const alpha = top.length > 3 ? top[3] : 1;
  return [0, 1, 2].map((i) => top[i] * alpha + below[i] * (1 - alpha));
};
const luminance = (colour) => {
  const [r, g, b] = colour.map((c) => c / 255).map((c) => c <= 0.03928 ? c / 12.92 : ((c + 0.055) / 1.055) ** 2.4);
  return 0.2126 * r + 0.7152 * g + 0.0722 * b;
};
const background = (element) => {
  const own = element ? parse(getComputedStyle(element).backgroundColor) : [255, 255, 255];
  return own.length < 4 || own[3] === 1 || !element ? own.slice(0, 3) : over(own, background(element.parentElement));
};
const opacity = (element) => element ? getComputedStyle(element).opacity * opacity(element.parentElement) : 1;
const found = new Map();
const walker = document.createTreeWalker(document.body, NodeFilter.SHOW_TEXT);
while (walker.nextNode()) {
  const element = walker.currentNode.parentElement, text = walker.currentNode.data.trim();
  if (!text || element.closest("script, style, noscript") || !element.checkVisibility({checkVisibilityCSS: true})) continue;
  const below = background(element), own = parse(getComputedStyle(element).color);
  const colour = over([...own.slice(0, 3), (own[3] ?? 1) * opacity(element)], below);
  const [light, dark] = [luminance(colour), luminance(below)].sort((a, b) => b - a);
  if (opacity(element) === 0) continue;
  const ratio = (light + 0.05) / (dark + 0.05);
  const key = element.tagName + "." + element.className;
  if (ratio < 4.5 && !found.has(key)) found.set(key, [text.slice(0, 40), ratio.toFixed(2), key]);
}
return [...found.values()];
"""
SET_SCHEME = """
document.documentElement.classList.toggle("dark-mode", arguments[0]);
document.documentElement.classList.toggle("light-mode", !arguments[0]);
"""
# What reaches beyond the page, apart from what is inside an element that scrolls on its own.
TOO_WIDE = """
const width = document.documentElement.clientWidth;
const scrolls = (e) => e && e.id !== "doc-content" && e !== document.body &&
  (/auto|scroll|hidden/.test(getComputedStyle(e).overflowX) || scrolls(e.parentElement));
return [...document.querySelectorAll("#top *, #doc-content *")].filter((e) => e.checkVisibility() &&
  e.getBoundingClientRect().right > width + 1 && !scrolls(e.parentElement)).slice(0, 3).map(
  (e) => `${e.tagName}.${e.className} ${e.textContent.trim().slice(0, 40)}`);
"""


def wait_for(condition, what, seconds=30):
    """Returns the first true result of the condition."""
    end = time.monotonic() + seconds
    while time.monotonic() < end:
        result = condition()
        if result:
            return result
        time.sleep(0.05)
    raise AssertionError(f"no {what} within {seconds} s")


class BrowserTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.profile = tempfile.mkdtemp()
        cls.addClassCleanup(shutil.rmtree, cls.profile, ignore_errors=True)
        options = Options()
        options.binary_location = shutil.which("chromium")
        for switch in [*SWITCHES, f"--user-data-dir={cls.profile}"]:
            options.add_argument(switch)
        options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
        cls.browser = webdriver.Chrome(service=Service(shutil.which("chromedriver")), options=options)
        cls.addClassCleanup(cls.browser.quit)
        # Colours change at once.
        cls.browser.execute_cdp_cmd("Page.addScriptToEvaluateOnNewDocument", {"source": """
            document.addEventListener("DOMContentLoaded", () => {
              const style = document.createElement("style");
              style.textContent = "*, *::before, *::after { transition: none !important; animation: none !important; }";
              document.head.append(style);
            });"""})

    def setUp(self):
        self.set_screen(DESKTOP)
        self.browser.get_log("browser")

    def tearDown(self):
        self.assertEqual(self.messages(), [])

    def messages(self):
        """Returns the messages of the console since the last call."""
        return [entry["message"] for entry in self.browser.get_log("browser") if entry["level"] in ("WARNING", "SEVERE")]

    def set_screen(self, size):
        width, height = size
        self.browser.execute_cdp_cmd("Emulation.setDeviceMetricsOverride", {
            "width": width, "height": height, "deviceScaleFactor": 1, "mobile": size == PHONE})

    def open(self, page):
        self.browser.get(f"{FOLDER.as_uri()}/{page}" if "://" not in page else page)

    def all(self, selector):
        return self.browser.find_elements(By.CSS_SELECTOR, selector)

    def one(self, selector):
        return wait_for(lambda: self.all(selector), selector)[0]

    def results(self, words):
        """Returns the addresses that the search finds."""
        box = self.one("#page-bar input")
        box.clear()
        box.send_keys(words)
        wait_for(lambda: self.one("#page-bar .results").get_attribute("data-query") == words, "results")
        return [link.get_attribute("href").rpartition("/")[2] for link in self.all("#page-bar .results a")]


class EveryPage(BrowserTest):
    def test_text_is_readable_and_fits(self):
        pages = sorted(path.name for path in FOLDER.glob("*.html"))
        self.assertGreater(len(pages), 50)
        for page in pages:
            self.open(page)
            for dark in (False, True):
                self.browser.execute_script(SET_SCHEME, dark)
                with self.subTest(page, dark=dark):
                    self.assertEqual(self.browser.execute_script(CONTRAST), [])
            self.set_screen(PHONE)
            with self.subTest(page, width=PHONE[0]):
                self.assertEqual(self.browser.execute_script(TOO_WIDE), [])
            self.set_screen(DESKTOP)
            with self.subTest(page, console=True):
                self.assertEqual(self.messages(), [])


class Use(BrowserTest):
    def check_search(self, start):
        self.open(start)
        # The best answer comes first.
        for words, section in (("exit status", "trusted.html#trusted_exit-status"), ("python", "python.html"),
                               ("why is my number 0", "questions.html#questions_why-is-my-number-0")):
            with self.subTest(words):
                self.assertEqual(self.results(words)[0], section)
        for words, page in (("exit status", "trusted.html"), ("default", "values.html"), ("csv", "histogram_2main_8cpp-example.html"),
                            ("getvalue", "classKelp_1_1OptionReader.html"), ("equals si", "command-line.html")):
            with self.subTest(words):
                found = self.results(words)
                self.assertIn(page, [address.partition("#")[0] for address in found], found)
        self.assertEqual(self.results("xyzzyplugh"), [])
        self.assertEqual(self.browser.execute_script(CONTRAST), [])
        [first, *_] = self.results("exit status")
        self.one("#page-bar input").send_keys(Keys.ARROW_DOWN, Keys.NULL)
        self.browser.switch_to.active_element.send_keys(Keys.ENTER)
        wait_for(lambda: self.browser.current_url.endswith(first), first)

    def test_odd_queries(self):
        self.open("index.html")
        for words in ('<img src="x" onerror="document.title=1">', "(a+)+$ .* \\ [", "constructor __proto__"):
            with self.subTest(words):
                self.results(words)
                self.assertEqual(self.all("#page-bar .results img"), [])
        # A longer query would make the browser busy.
        self.assertEqual(self.one("#page-bar input").get_attribute("maxlength"), "200")

    def test_search_from_the_file_system(self):
        self.check_search("index.html")

    def test_search_from_a_web_server(self):
        class Handler(http.server.SimpleHTTPRequestHandler):
            def log_message(self, *_arguments):
                pass

        with http.server.ThreadingHTTPServer(("127.0.0.1", 0), functools.partial(Handler, directory=FOLDER)) as server:
            threading.Thread(target=server.serve_forever, daemon=True).start()
            try:
                self.check_search(f"http://127.0.0.1:{server.server_port}/index.html")
                self.open("about:blank")
            finally:
                server.shutdown()

    def test_the_switch_holds_for_the_next_page(self):
        def is_dark():
            return "dark-mode" in self.one("html").get_attribute("class")

        self.open("index.html")
        before = is_dark()
        for key in (None, Keys.ENTER):
            switch = self.one("doxygen-awesome-dark-mode-toggle")
            switch.send_keys(key) if key else switch.click()
            expected = not before
            self.assertEqual(is_dark(), expected)
            self.open("values.html")
            self.assertEqual(is_dark(), expected)
            before = expected

    def test_the_menu_of_a_phone_has_the_pages(self):
        self.set_screen(PHONE)
        self.open("index.html")
        self.one("label.main-menu-btn").click()
        wait_for(lambda: self.one("#main-menu").is_displayed(), "menu")
        guide = next(link for link in self.all("#main-menu > li > a") if "Guide" in link.text)
        guide.find_element(By.CSS_SELECTOR, ".sub-arrow").click()
        page = self.one("#main-menu a[href='trusted.html']")
        wait_for(page.is_displayed, "the guide in the menu")
        self.assertEqual(self.browser.execute_script(CONTRAST), [])
        self.browser.execute_script("arguments[0].scrollIntoView({block: 'center'})", page)
        page.click()
        wait_for(lambda: self.browser.current_url.endswith("trusted.html"), "page")

    def test_the_head_of_a_phone_is_small_and_scrolls_away(self):
        self.set_screen(PHONE)
        self.open("trusted.html")
        top, button = self.one("#top").rect, self.one("label.main-menu-btn").rect
        self.assertLess(top["height"], 120)
        self.assertLessEqual(button["y"] + button["height"], top["height"])
        self.browser.execute_script("scrollTo(0, 500)")
        self.assertLess(self.browser.execute_script("return document.querySelector('#top').getBoundingClientRect().bottom"), 0)

    def test_short_code_in_tables_stays_on_one_line(self):
        self.set_screen(PHONE)
        for page in ("coming-from.html", "cheat-sheet.html", "index.html"):
            self.open(page)
            self.assertEqual(self.browser.execute_script("""return [...document.querySelectorAll("td code")].filter((e) =>
                e.textContent.length <= 16 && !e.querySelector("a") && e.getClientRects().length > 1).map((e) => e.textContent)"""), [])

    def test_the_cheat_sheet_takes_two_sheets_of_paper(self):
        self.open("cheat-sheet.html")
        printed = base64.b64decode(self.browser.execute_cdp_cmd("Page.printToPDF", {"paperWidth": 8.27, "paperHeight": 11.69})["data"])
        self.assertLessEqual(len(re.findall(rb"/Type\s*/Page\b[^s]", printed)), 2)

    def test_code_can_be_copied(self):
        self.open("first-tool.html")
        buttons = wait_for(lambda: self.all("doxygen-awesome-fragment-copy-button"), "copy buttons")
        self.assertEqual(len(buttons), len(self.all("div.fragment")))
        self.browser.execute_script("navigator.clipboard.writeText = (text) => { window.copied = text; }")
        self.browser.execute_script("arguments[0].click()", buttons[0])
        self.assertRegex(self.browser.execute_script("return window.copied"), r"\A#include <kelpkit/Tool.h>\n")

    def test_the_contents_are_at_the_side(self):
        self.open("trusted.html")
        contents, text = self.one(".contents > .toc").rect, self.one(".contents > .textblock").rect
        self.assertGreaterEqual(contents["x"], text["x"] + text["width"])
        next(link for link in self.all(".toc a") if link.text == "Output files").click()
        # Doxygen 1.9.8 scrolls before it changes the address.
        wait_for(lambda: self.browser.current_url.endswith("trusted.html#trusted_output-files"), "address of the section")
        wait_for(lambda: self.all(".toc a.active")[0].text == "Output files", "active section")

    def test_previous_and_next_lead_through_all_pages(self):
        expected = [link.get_attribute("href") for link in self.menu_links()]
        found, back = [], []
        while self.all("nav.neighbours a[rel=next]"):
            back.append(self.browser.current_url)
            self.open(self.one("nav.neighbours a[rel=next]").get_attribute("href"))
            found.append(self.browser.current_url)
            self.assertEqual(self.one("nav.neighbours a[rel=prev]").get_attribute("href"), back[-1])
        self.assertEqual(found, expected)

    def menu_links(self):
        """Opens the first page and returns the menu's links to the guide."""
        self.open("index.html")
        self.one("#main-menu a[href='trusted.html']")
        return self.all("#main-menu a[href='pages.html'] + ul a")


class Texts(unittest.TestCase):
    def test_doxygen_leaves_no_markup_and_no_dash_of_two_hyphens(self):
        for path in FOLDER.glob("*.html"):
            with self.subTest(path.name):
                self.assertIsNone(re.search("(?:&lt;/?tt&gt;|(?:&ndash;|–)[a-z]).*", path.read_text(encoding="utf-8")))


class Links(unittest.TestCase):
    def test_every_link_has_a_target(self):
        pages = {path.name: path.read_text(encoding="utf-8") for path in FOLDER.glob("*.html")}
        anchors = {name: set(re.findall(r'\b(?:id|name)="([^"]+)"', text)) for name, text in pages.items()}
        checked = 0
        for page, text in pages.items():
            for link in map(html.unescape, re.findall(r'\b(?:href|src)="([^"]+)"', text)):
                if re.match(r"\w+:", link):
                    continue
                name, _, anchor = urllib.parse.unquote(link).partition("#")
                checked += 1
                with self.subTest(page, link=link):
                    self.assertTrue(not name or (FOLDER / name).exists())
                    self.assertTrue(not anchor or anchor in anchors.get(name or page, ()))
        self.assertGreater(checked, 1000)


if __name__ == "__main__":
    unittest.main()
