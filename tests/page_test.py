"""Plays the playable page in a real browser: by keyboard and by touch.

    page_test.py BIN_DIR
"""

import base64
import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

if sys.executable != "/usr/bin/python3":  # the Python that has selenium
    os.execv("/usr/bin/python3", ["/usr/bin/python3", *sys.argv])

from selenium import webdriver  # noqa: E402
from selenium.webdriver.chrome.service import Service  # noqa: E402
from selenium.webdriver.common.by import By  # noqa: E402
from selenium.webdriver.common.keys import Keys  # noqa: E402

BIN = pathlib.Path(sys.argv.pop(1))
HOSTILE = "<img src=x onerror=document.title='hit'>"
PUZZLE = f"""## Metadata
Title: Mini {HOSTILE}
Author: A. Setter
Rebus: 1=HEART

## Grid
CAT
A#1
RED

## Clues
A1. Pet {HOSTILE} ~ CAT
A3. Scarlet ~ RED

D1. Auto ~ CAR
D2. Beating things ~ THEARTD
"""
SWITCHES = ["--headless=new", "--no-sandbox", "--disable-gpu",
            "--no-first-run", "--disable-background-networking",
            "--disable-component-update", "--disable-sync"]


def browser(width, height, touch=False):
    options = webdriver.ChromeOptions()
    for switch in [*SWITCHES, f"--window-size={width},{height}"]:
        options.add_argument(switch)
    options.set_capability("goog:loggingPrefs", {"browser": "ALL"})
    if touch:
        options.add_experimental_option("mobileEmulation", {
            "deviceMetrics": {"width": width, "height": height,
                              "pixelRatio": 2, "touch": True}})
    return webdriver.Chrome(service=Service("/usr/bin/chromedriver"),
                            options=options)


class PageTest(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        folder = pathlib.Path(cls.folder.name)
        (folder / "mini.xd").write_text(PUZZLE)
        cls.page = folder / "mini.html"
        subprocess.run([BIN / "kelda-cli", "page", folder / "mini.xd",
                        "-o", cls.page], check=True)

    def open(self, *size, touch=False):
        page = browser(*size, touch)
        self.addCleanup(page.quit)
        page.get(self.page.as_uri())
        return page

    def type(self, page, *keys):
        page.find_element(By.CSS_SELECTOR, ".cursor").send_keys(*keys)

    def letters(self, page):
        return [cell.text for cell in
                page.find_elements(By.CSS_SELECTOR, ".white b")]

    def news(self, page):
        return page.find_element(By.ID, "news").text

    def use(self, page, menu, what):
        for summary in page.find_elements(By.TAG_NAME, "summary"):
            if summary.text == menu:
                summary.click()
        page.find_element(
            By.CSS_SELECTOR,
            f"[data-do={menu.lower()}][data-what={what}]").click()

    def test_by_keyboard(self):
        page = self.open(1280, 900)
        self.type(page, "cxt")
        self.use(page, "Check", "grid")
        self.assertEqual(self.news(page), "1 wrong")
        page.refresh()
        self.assertEqual(self.letters(page), list("CXT") + [""] * 5)
        self.type(page, Keys.ARROW_RIGHT, "a", Keys.ENTER, "red")
        page.find_elements(By.CSS_SELECTOR, ".white")[3].click()
        self.type(page, "a")
        page.find_elements(By.CSS_SELECTOR, ".white")[4].click()
        self.type(page, Keys.INSERT)
        page.find_element(By.ID, "answer").send_keys("heart", Keys.ENTER)
        self.assertEqual(self.letters(page),
                         ["C", "A", "T", "A", "HEART", "R", "E", "D"])
        self.assertIn("Solved in", self.news(page))

    def test_by_touch(self):
        page = self.open(390, 844, touch=True)
        for letter in "CAT":
            page.find_element(
                By.XPATH, f"//div[@id='keys']/button[.='{letter}']").click()
        self.assertEqual(self.letters(page)[:3], list("CAT"))
        self.use(page, "Reveal", "grid")
        self.assertEqual(self.letters(page)[4], "HEART")
        width = page.execute_script(
            "return document.documentElement.scrollWidth")
        self.assertLessEqual(width, 390)

    def test_hostile_texts_and_the_network(self):
        page = self.open(1280, 900)
        self.assertEqual(page.title, f"Mini {HOSTILE}")
        self.assertIn(HOSTILE, page.find_element(By.ID, "clue").text)
        self.assertEqual(page.get_log("browser"), [])
        self.assertEqual(page.execute_script(
            "return performance.getEntriesByType('resource').length"), 0)

    def test_what_a_screen_reader_meets(self):
        page = self.open(1280, 900)
        nodes = page.execute_cdp_cmd("Accessibility.getFullAXTree",
                                     {})["nodes"]
        named = {(node["role"]["value"], node["name"]["value"])
                 for node in nodes if "name" in node and "role" in node}
        self.assertIn(("grid", "Crossword grid"), named)
        self.assertIn(("gridcell", "row 1, column 1, 1 across letter 1 of 3, "
                       "1 down letter 1 of 3, empty"), named)
        for role, name in named:
            if role in {"button", "textbox", "gridcell"}:
                self.assertTrue(name, role)

    def test_prints_on_one_sheet(self):
        page = self.open(1280, 900)
        printed = page.execute_cdp_cmd("Page.printToPDF",
                                       {"printBackground": True})
        pdf = pathlib.Path(self.folder.name) / "page.pdf"
        pdf.write_bytes(base64.b64decode(printed["data"]))
        info = subprocess.run(["pdfinfo", pdf], capture_output=True, text=True,
                              check=True).stdout
        self.assertRegex(info, r"Pages:\s+1\n")


if __name__ == "__main__":
    unittest.main()
