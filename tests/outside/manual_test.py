"""F1 opens the manual in what the desktop has for it, and says where it is when nothing opens it."""

import os
import pathlib
import tempfile
import unittest
import urllib.parse

import keyboard
from accessible import wait_for
from desktop import Desktop
from program import Program

REFUSES_PLACES = 'case "$1" in *"#"*) exit 4 ;; esac'
REFUSES_ALL = "exit 4"


class Manual(unittest.TestCase):

    def opener(self, ending=""):
        """Makes an opener that keeps the addresses that it is given; `ending` says what it does then."""
        self.folder = pathlib.Path(tempfile.mkdtemp(dir=Desktop.get().scratch))
        self.log = self.folder / "opened"
        self.log.touch()
        opener = self.folder / "xdg-open"
        opener.write_text(f'#!/bin/sh\necho "$1" >> "{self.log}"\n{ending}\n', encoding="utf-8")
        opener.chmod(0o755)
        return {"PATH": f"{self.folder}:{os.environ['PATH']}"}

    def opened(self, number):
        """Waits for that many addresses; returns them as a person reads them."""
        wait_for(lambda: len(self.log.read_text().splitlines()) == number, f"{number} addresses")
        return [urllib.parse.unquote(line) for line in self.log.read_text().splitlines()]

    def start(self, environment):
        program = self.enterContext(Program(without_alerts=True, environment=environment))
        self.page = program.folder / "kezikonyv.html"
        self.page.touch()
        self.main = program.window("Tarvik - ")
        self.main.wait_focus("text", "Km óra állás")
        return program

    def test_it_opens_at_the_chapter_of_the_window_in_front(self):
        program = self.start(self.opener())
        keyboard.press("F1")
        self.opened(1)
        self.main.part("menu item", "Gumik").press()
        program.window("Gumi").wait_focus("text", "Rendszám")
        keyboard.press("F1")
        self.assertEqual(self.opened(2), [f"file://{self.page}#a-főablak", f"file://{self.page}#gumik"])

    def test_a_desktop_that_takes_no_place_gets_the_page(self):
        self.start(self.opener(REFUSES_PLACES))
        keyboard.press("F1")
        self.assertEqual(self.opened(2), [f"file://{self.page}#a-főablak", f"file://{self.page}"])

    def test_a_desktop_that_opens_nothing_is_told_of_with_the_path(self):
        program = self.start(self.opener(REFUSES_ALL))
        keyboard.press("F1")
        box = program.window("Kézikönyv")
        self.assertIn(str(self.page), " ".join(part.name for part in box.walk()))
        box.part("push button", "OK").press()
        program.wait_closed("Kézikönyv")


if __name__ == "__main__":
    unittest.main()
