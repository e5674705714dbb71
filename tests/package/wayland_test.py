"""The Linux package on a Wayland compositor that draws no frame around windows. Needs root."""

import os
import pathlib
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "outside"))

from accessible import wait_for  # noqa: E402
from bare import started_in  # noqa: E402
from desktop import Desktop, end  # noqa: E402

PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
SOCKET = "package"
START_SECONDS = 180
# Nothing but one colour, so that what differs from it is the window.
SETTINGS = "[shell]\npanel-position=none\nbackground-color=0xff804020\n"
LEAST_TITLE_BAR = 16


class Compositor:
    """A compositor without a screen, while a `with` lasts."""

    def __init__(self, folder):
        self.folder = pathlib.Path(folder)
        self._process = None

    def __enter__(self):
        settings = self.folder / "weston.ini"
        settings.write_text(SETTINGS)
        command = ["weston", "--backend=headless-backend.so", "--use-pixman", "--width=1366", "--height=1600",
                   f"--config={settings}", f"--socket={SOCKET}", "--idle-time=0", "--debug"]
        self._process = Desktop.get().spawn(command, "weston", env=self._environment())
        wait_for((self.folder / SOCKET).exists, "the compositor")
        return self

    def __exit__(self, *_):
        end(self._process)

    def _environment(self):
        return {**os.environ, "XDG_RUNTIME_DIR": str(self.folder), "WAYLAND_DISPLAY": SOCKET}

    def window_size(self, picture):
        """The width and height of the window that is on it; nothing while there is none. Leaves a picture of it."""
        for old in self.folder.glob("*.png"):
            old.unlink()
        subprocess.run(["weston-screenshooter"], cwd=self.folder, env=self._environment(), check=True)
        shot = next(self.folder.glob("*.png"))
        subprocess.run(["convert", "-quiet", shot, "-trim", "+repage", PICTURES / f"{picture}.png"], check=True)
        size = subprocess.run(["identify", "-format", "%w %h %k", PICTURES / f"{picture}.png"], check=True,
                              stdout=subprocess.PIPE).stdout.split()
        width, height, colours = map(int, size)
        return (width, height) if colours > 2 else None


class Wayland(unittest.TestCase):

    def window_size(self, picture, **environment):
        scratch = pathlib.Path(tempfile.mkdtemp(dir=Desktop.get().scratch))
        with tempfile.TemporaryDirectory() as folder, Compositor(folder) as compositor:
            running = started_in("bookworm", scratch, "exec ./Tarvik", {
                "XDG_RUNTIME_DIR": folder, "WAYLAND_DISPLAY": SOCKET, **environment}, seen=[folder])
            try:
                return wait_for(lambda: compositor.window_size(picture), "a window", START_SECONDS)
            finally:
                end(running)

    def test_the_window_has_a_title_bar(self):
        width, height = self.window_size("package-wayland")
        bare_width, bare_height = self.window_size("package-wayland-bare", QT_WAYLAND_DISABLE_WINDOWDECORATION="1")
        self.assertGreaterEqual(height, bare_height + LEAST_TITLE_BAR)
        self.assertLess(abs(width - bare_width), LEAST_TITLE_BAR)


if __name__ == "__main__":
    unittest.main()
