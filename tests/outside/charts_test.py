"""Each chart is drawn in the built program on a real display, as the first one after a start as well as later.

An off-screen widget is not enough to see that: there the plotting library paints in another order.
"""

import os
import subprocess
import unittest

os.environ["TARVIK_DISPLAY"] = "2732x1800"  # room for the program at twice the scale

import keyboard
from accessible import wait_for
from desktop import Desktop
from program import Program, demo_folder

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
FEWEST_PIXELS = 600  # a line across the plot has more; a chart without its series has none


def is_of_series(red, green, blue):
    return blue > red + 60 and blue > green + 20


class Charts(unittest.TestCase):
    scale = 1

    @classmethod
    def setUpClass(cls):
        cls.folder = demo_folder()

    def started(self):
        return Program(self.folder, without_alerts=True, environment={"QT_SCALE_FACTOR": str(self.scale)})

    def choose(self, program, option):
        """Shows a chart through the chooser and gives the main window."""
        main = program.window("Tarvik - ")
        main.part("push button", "Grafikon megjelenítése").press()
        chooser = program.window("Grafikon választás")
        chooser.part("radio button", option).press()
        chooser.part("push button", "Megjelenít").press()
        main.part("push button", "Grafikon elrejtése")
        return main

    def box(self, part):
        """Where a part is, in pixels of the display."""
        return tuple(self.scale * edge for edge in part.extents)

    def drawn(self, main, what, more_than=FEWEST_PIXELS):
        """Waits until the series is in the picture; gives the number of its pixels."""
        chart = main.part("chart")

        def pixels():
            count = Desktop.get().photo().count(self.box(chart), is_of_series)
            return count if count > more_than else None
        return wait_for(pixels, f"the series of {what}")

    def picture(self, main):
        """The picture of the chart when it has come to rest."""
        box = self.box(main.part("chart"))
        seen = [None, Desktop.get().photo().part(box)]

        def rests():
            seen[:] = seen[1], Desktop.get().photo().part(box)
            return seen[0] == seen[1]
        wait_for(rests, "the picture to come to rest")
        return seen[1]

    def click(self, part):
        left, top, width, height = self.box(part)
        subprocess.run(["xdotool", "mousemove", str(left + width // 2), str(top + height // 2), "click", "1"],
                       check=True)

    def test_each_chart_is_drawn_as_the_first_one(self):
        for option, title in CHARTS.items():
            with self.subTest(title), self.started() as program:
                self.drawn(self.choose(program, option), title)

    def test_each_type_is_drawn_and_differs_from_the_others(self):
        with self.started() as program:
            main = self.choose(program, "Havi tankolási költség")
            pictures = set()
            shown = "2D oszlop"
            for place, name in enumerate(TYPES):
                self.click(main.part("combo box", shown))
                keyboard.press("Home", *["Down"] * place, "Return")
                main.part("combo box", name)
                shown = name
                self.drawn(main, name)
                pictures.add(self.picture(main))
            self.assertEqual(len(pictures), len(TYPES))

    def test_the_plot_is_220_pixels_high_at_the_default_size(self):
        with self.started() as program:
            main = self.choose(program, "Havi tankolási költség")
            self.drawn(main, "the chart")
            self.picture(main)
            left, top, width, height = self.box(main.part("chart"))
            photo = Desktop.get().photo()
            rows = sum(photo.count((left, y, width, 1), is_of_series) > 0 for y in range(top, top + height))
            self.assertGreaterEqual(rows, self.scale * 220 / 1.15)  # the highest bar

    def test_a_chart_is_drawn_again_after_it_was_hidden(self):
        with self.started() as program:
            for option in ("Üzemanyag árak", "Havi megtett km."):
                main = self.choose(program, option)
                self.drawn(main, option)
                main.part("push button", "Grafikon elrejtése").press()

    def test_a_chart_grows_with_the_window(self):
        with self.started() as program:
            main = self.choose(program, "Havi tankolási költség")
            before = self.drawn(main, "the chart at first")
            left, top, width, height = self.box(main)
            window = subprocess.run(["xdotool", "search", "--onlyvisible", "--name", "^Tarvik - "], check=True,
                                    capture_output=True, text=True).stdout.split()[0]
            subprocess.run(["xdotool", "windowsize", window, str(width * 3 // 2), str(height)], check=True)
            wait_for(lambda: self.box(main)[2] > width, "a wider window")
            self.drawn(main, "the wider chart", more_than=before * 5 // 4)


class ChartsAtTwiceTheScale(Charts):
    scale = 2


if __name__ == "__main__":
    unittest.main()
