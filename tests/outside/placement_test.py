"""Windows stand where they should, with the frame that a window manager puts around them."""

import os
import re
import subprocess
import unittest

WIDTH, HEIGHT = 1366, 768
os.environ["TARVIK_DISPLAY"] = f"{WIDTH}x{HEIGHT}"

from accessible import wait_for  # noqa: E402  (the display's size comes first)
from program import Program  # noqa: E402


def told(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True,
                          env={**os.environ, "LC_ALL": "C"}).stdout


def frame(title):
    """Left, top, width and height of the window with that title, the window manager's frame included."""
    window = told("xdotool", "search", "--onlyvisible", "--name", f"^{title}").split()[-1]
    inner = told("xwininfo", "-id", window)
    left, top, width, height = (
        int(re.search(rf"{name}: +(-?\d+)", inner)[1])
        for name in ("Absolute upper-left X", "Absolute upper-left Y", "Width", "Height"))
    extents = re.search(r"= (\d+), (\d+), (\d+), (\d+)", told("xprop", "-id", window, "_NET_FRAME_EXTENTS"))
    at_left, at_right, at_top, at_bottom = map(int, extents.groups())
    return left - at_left, top - at_top, at_left + width + at_right, at_top + height + at_bottom


class Placement(unittest.TestCase):

    def assert_in_the_middle(self, title):
        def is_there():
            left, top, width, height = frame(title)
            return abs(2 * left + width - WIDTH) <= 4 and abs(2 * top + height - HEIGHT) <= 4
        try:
            wait_for(is_there, f"{title!r} in the middle")
        except AssertionError:
            self.fail(f"{title!r} is at {frame(title)}")

    def test_the_main_window_is_on_a_low_display_with_its_frame(self):
        with Program(without_alerts=True) as program:
            program.window("Tarvik - ")
            self.assert_in_the_middle("Tarvik - ")
            left, top, width, height = frame("Tarvik - ")
            self.assertGreater(height, 600)
            self.assertGreaterEqual(min(left, top), 0)
            self.assertLessEqual(left + width, WIDTH)
            self.assertLessEqual(top + height, HEIGHT)

    def test_the_screens_open_in_the_middle(self):
        with Program(without_alerts=True) as program:
            main = program.window("Tarvik - ")
            for role, opener, title in (("push button", "Figyelmeztetés", "Figyelmeztetés Felvitele"),
                                        ("menu item", "Gumik", "Gumik nyilvántartása"),
                                        ("menu item", "Javítások - Szervíz", "Javítások - Szervízek")):
                main.part(role, opener).press()
                program.window(title)
                self.assert_in_the_middle(title)
                program.window(title).part("menu item", "Bezár").press()
                program.wait_closed(title)


if __name__ == "__main__":
    unittest.main()
