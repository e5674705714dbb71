"""charts_test.py PROGRAM MAKE_DEMO LOG.csv: in the built program on a real display, each chart is drawn, as the first
one after a start as well as later. An off-screen widget is not enough: there the library paints in another order."""

import hashlib
import pathlib
import subprocess
import sys
import tempfile
import unittest

from desktop import Desktop, Program, wait_for

CHARTS = {  # option of the chooser: title
    "Pillanatnyi átlagfogyasztások": "Pillanatnyi fogyasztások",
    "Üzemanyag árak": "Üzemanyag árak",
    "Havi tankolási költség": "Havi tankolási költségek",
    "Havi megtett km.": "Havi megtett kilométer",
    "Havi tankolt üzemanyag (liter)": "Havi tankolt üzemanyag",
    "Havi átlagfogyasztás": "Havi átlagfogyasztás",
    "100 km. költségváltozásai": "100 km költség változásai.",
}
TYPES = ("2D terület", "2D oszlop", "2D vonal", "3D terület", "3D oszlop", "3D vonal")
SCREEN = (2732, 1536)
FEWEST_PIXELS = 600  # a line of 2 pixels across the plot has more; a chart without its series has none


def is_of_series(red, green, blue):
    return blue > red + 60 and blue > green + 20


def fill_household(folder, make_demo, log):
    """A household whose start no alert interrupts."""
    subprocess.run([make_demo, log, folder, "2013.07.05."], check=True)
    for reminders in ("figyel.dat", "figyDatum.dat"):
        (folder / reminders).unlink()


class Charts(unittest.TestCase):
    scale = 1

    def start(self):
        return Program(PROGRAM, HOUSEHOLD, self.scale)

    def choose(self, program, option):
        program.press("push button", "Grafikon megjelenítése")
        program.press("radio button", option)
        program.press("push button", "Megjelenít")
        program.find("chart", CHARTS[option])

    def drawn(self, program, what, smallest=FEWEST_PIXELS):
        """Waits until the series is in the picture; gives the number of its pixels."""
        box = program.box("chart", "")
        return wait_for(f"the series of {what}", lambda: (
            count if (count := DESKTOP.photo().count(box, is_of_series)) > smallest else None))

    def picture(self, program):
        """The picture of the chart once it has come to rest."""
        box = program.box("chart", "")
        pictures = [DESKTOP.photo().part(box)]

        def rests():
            pictures.append(DESKTOP.photo().part(box))
            return pictures[-1] == pictures[-2]
        wait_for("the picture at rest", rests)
        return hashlib.sha256(pictures[-1]).hexdigest()

    def test_each_chart_is_drawn_as_the_first_one(self):
        for option, title in CHARTS.items():
            with self.subTest(title), self.start() as program:
                self.choose(program, option)
                self.drawn(program, title)

    def test_each_type_is_drawn_and_differs_from_the_others(self):
        program = self.enterContext(self.start())
        self.choose(program, "Havi tankolási költség")
        pictures = set()
        shown = "2D oszlop"
        for index, name in enumerate(TYPES):
            program.click("combo box", shown)
            program.keys("Home", *["Down"] * index, "Return")
            program.find("combo box", name)
            shown = name
            self.drawn(program, name)
            pictures.add(self.picture(program))
        self.assertEqual(len(pictures), len(TYPES))

    def test_a_chart_is_drawn_again_after_it_was_hidden(self):
        program = self.enterContext(self.start())
        for option in ("Üzemanyag árak", "Havi megtett km."):
            self.choose(program, option)
            self.drawn(program, option)
            program.press("push button", "Grafikon elrejtése")

    def test_a_chart_grows_with_the_window(self):
        program = self.enterContext(self.start())
        self.choose(program, "Havi tankolási költség")
        before = self.drawn(program, "the chart at first")
        left, top, right, bottom = program.box("chart", "")
        program.resize(*(self.scale * edge for edge in (1300, 760)))
        wait_for("a wider chart", lambda: program.box("chart", "")[2] - program.box("chart", "")[0] > right - left)
        self.drawn(program, "the wider chart", smallest=before * 5 // 4)


class ChartsAtTwiceTheScale(Charts):
    scale = 2


if __name__ == "__main__":
    PROGRAM, make_demo, log = sys.argv[1:4]
    with Desktop(*SCREEN) as DESKTOP, tempfile.TemporaryDirectory(prefix="tarvik-household-") as HOUSEHOLD:
        fill_household(pathlib.Path(HOUSEHOLD), make_demo, log)
        unittest.main(argv=sys.argv[:1] + sys.argv[4:])
