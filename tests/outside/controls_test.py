"""Every control of every screen has the role and the name that controls.txt says, in reading order."""

import fnmatch
import pathlib
import unittest

from program import Program

TABLE = pathlib.Path(__file__).with_name("controls.txt")
# What only holds other parts, and says nothing.
HOLDERS = ("filler", "frame", "layered pane", "menu bar", "page tab list", "panel")


def expected():
    """The lines of each screen, by the beginning of its title."""
    screens = {}
    for line in TABLE.read_text(encoding="utf-8").splitlines():
        if line.startswith("["):
            lines = screens.setdefault(line.strip("[]"), [])
        elif line and not line.startswith("#"):
            lines.append(line)
    return screens


def line_of(part):
    """A control by its name; one whose name is what stands in it by its caption."""
    if part.role in ("combo box", "label") and part.caption:
        return f"{part.role} of {part.caption}"
    return f"{part.role}: {part.name}"


def lines_of(part):
    for child in part.children():
        is_qts_own = (part.role, child.role) in (("combo box", "list"), ("page tab list", "push button"))
        if is_qts_own:
            continue
        if child.role not in HOLDERS or (child.role == "panel" and child.name):
            yield line_of(child)
        if child.role == "table":
            yield from (f"  {heading.name}" for heading in child.children()
                        if heading.role == "table column header")
        elif child.role not in ("list", "chart"):
            yield from lines_of(child)


class Controls(unittest.TestCase):

    def check(self, screen, title):
        told, wanted = list(lines_of(screen)), expected()[title]
        for line, pattern in zip(told, wanted):
            self.assertTrue(fnmatch.fnmatchcase(line, pattern), f"{title}: {line!r} is not {pattern!r}")
        self.assertEqual(len(told), len(wanted), told)

    def check_opened(self, main, role, openers, title):
        for opener in openers.split("/"):
            main.part(role, opener).press()
        screen = self.program.window(title)
        with self.subTest(title):
            self.check(screen, title)
        return screen

    def close(self, screen, role, closer, title):
        screen.part(role, closer).press()
        self.program.wait_closed(title)

    def test_every_screen(self):
        self.program = self.enterContext(Program())
        alert = self.program.window("FIGYELMEZTETÉS")
        self.check(alert, "FIGYELMEZTETÉS")
        self.close(alert, "push button", "Bezár", "FIGYELMEZTETÉS")
        main = self.program.window("Tarvik - ")
        self.check(main, "Tarvik - ")
        for role, openers, title, closing_role, closer in (
                ("menu item", "Beállítások", "Beállítások", "push button", "Vissza a naplóhoz"),
                ("menu item", "Gumik", "Gumik nyilvántartása", "menu item", "Bezár"),
                ("menu item", "Javítások - Szervíz", "Javítások - Szervízek", "menu item", "Bezár"),
                ("menu item", "Eszközök/Éves összesítő…", "Éves összesítő", "menu item", "Bezár"),
                ("push button", "Figyelmeztetés", "Figyelmeztetés Felvitele", "menu item", "Bezár"),
                ("push button", "Grafikon megjelenítése", "Grafikon választás", "push button", "Mégsem")):
            screen = self.check_opened(main, role, openers, title)
            self.close(screen, closing_role, closer, title)
        main.part("text", "Rendszám").enter("ABC123")  # the car with the passed reminder
        self.check(self.program.window("FIGYELEM!"), "FIGYELEM!")


if __name__ == "__main__":
    unittest.main()
