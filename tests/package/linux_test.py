"""The Linux package as a person gets it: unpacked, put into the menu, started from there, used, unpacked anew."""

import datetime
import os
import pathlib
import struct
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "outside"))

import keyboard  # noqa: E402
from accessible import Part, wait_for  # noqa: E402
from desktop import Desktop  # noqa: E402

from gi.repository import Gio, GLib  # noqa: E402

PACKAGE = pathlib.Path(os.environ["TARVIK_PACKAGE"])
PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
PLATE = "ABC-123"
DAY_ZERO = datetime.date(1899, 12, 30)


def unpack(place):
    """Unpacks the package into a place and gives the folder of the program."""
    subprocess.run(["tar", "--extract", "--file", PACKAGE, "--directory", place], check=True)
    return place / "Tarvik"


def home_contents():
    home = pathlib.Path(os.environ["HOME"])
    kept = {path.relative_to(home) for path in home.rglob("*") if path.is_file()}
    return {path for path in kept if not str(path).startswith((".cache/", ".config/dconf", ".local/state"))}


def put_household(folder):
    """One car of 50 litres, chosen at start, with an empty logbook and without reminders."""
    (folder / "rendsz.dat").write_bytes(PLATE.encode().ljust(8) + struct.pack("<h", 50))
    (folder / "set.dat").write_bytes(struct.pack("<h", 0) + PLATE.encode().ljust(10))
    (folder / PLATE).mkdir()


def fill_up(day):
    """The record of a full fill of 40,5 litres for 24300 Ft at 123456 km: 600 Ft a litre, no consumption yet."""
    return (struct.pack("<idhqiiqhhh", 123456, (day - DAY_ZERO).days, -1, 405000, 24300, 0, 6000000, 0, 0, 0)
            + b" " * 50 + struct.pack("<i", 0) + "Tankolás".encode("cp1250").ljust(50) + struct.pack("<q", 0))


class Started:
    """The program as the menu starts it, while a `with` lasts."""

    def __init__(self, entry):
        self._entry = Gio.DesktopAppInfo.new_from_filename(str(entry))
        self._pid = None

    def __enter__(self):
        self._entry.launch_uris_as_manager(
            [], None, GLib.SpawnFlags.DO_NOT_REAP_CHILD, None, None, lambda _, pid: setattr(self, "_pid", pid))
        return self

    def __exit__(self, failure, *_):
        if failure:
            Desktop.get().photograph(PICTURES / "package-failure.png")
        try:
            os.kill(self._pid, 15)
            os.waitpid(self._pid, 0)
        except ProcessLookupError:
            pass

    def window(self, title):
        return wait_for(lambda: self._window(title), f"a window {title!r}")

    def _window(self, title):
        for application in Part.applications():
            for window in application.children():
                if window.is_showing and window.name.startswith(title):
                    return window
        raise LookupError(title)

    def read_link(self, name):
        """What the system says of the running program: its folder (cwd) or its file (exe)."""
        return pathlib.Path(os.readlink(f"/proc/{self._pid}/{name}"))

    def loaded(self):
        """The libraries in its memory."""
        lines = pathlib.Path(f"/proc/{self._pid}/maps").read_text().splitlines()
        return {line.split(None, 5)[5] for line in lines if ".so" in line}


class LinuxPackage(unittest.TestCase):

    def setUp(self):
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="Új hely ő ", dir=Desktop.get().scratch))
        self.folder = unpack(self.place)
        self.entry = pathlib.Path(os.environ["HOME"]) / ".local/share/applications/tarvik.desktop"

    def tearDown(self):
        self.menu("--ki")

    def menu(self, *arguments):
        subprocess.run([self.folder / "Tarvik-menü", *arguments], check=True, cwd="/", stdout=subprocess.DEVNULL)

    def record_fill_up(self, program):
        main = program.window("Tarvik - ")
        for name, text in (("Km óra állás", "123456"), ("Liter", "40,5"), ("Tankolt költség", "24300")):
            main.part("text", name).take_focus()
            wait_for(lambda: main.part("text", name).is_focused, f"the focus in {name!r}")
            keyboard.press("ctrl+a")
            keyboard.type_text(text)
        keyboard.press("alt+r")
        program.window(" Rögz").part("push button", "Igen")
        keyboard.press("alt+i")

    def test_an_entry_recorded_from_the_menu_is_in_the_logbook_byte_for_byte(self):
        put_household(self.folder)
        self.menu()
        before = home_contents()
        subprocess.run(["desktop-file-validate", self.entry], check=True)
        logbook = self.folder / PLATE / "napiadat.dat"
        days = [datetime.date.today()]
        with Started(self.entry) as program:
            self.record_fill_up(program)
            wait_for(lambda: logbook.stat().st_size == 156, "the recorded entry")
            Desktop.get().photograph(PICTURES / "package.png")
            self.assertEqual(program.read_link("cwd"), self.folder)
            self.assertEqual(program.read_link("exe").parent, self.folder)
        days.append(datetime.date.today())
        self.assertIn(logbook.read_bytes(), [fill_up(day) for day in days])
        self.assertEqual(home_contents(), before, "a start from the menu leaves nothing in the home folder")

    def test_the_libraries_come_from_the_package(self):
        self.menu()
        with Started(self.entry) as program:
            program.window("Tarvik - ")
            toolkit = {path for path in program.loaded() if "Qt6" in path or "QCustomPlot" in path}
        self.assertTrue(toolkit)
        self.assertEqual({path for path in toolkit if not path.startswith(str(self.folder))}, set())

    def test_the_menu_entry_goes_again_and_takes_no_data_along(self):
        put_household(self.folder)
        before = home_contents()
        self.menu()
        self.assertTrue(self.entry.exists())
        self.menu("--ki")
        self.assertEqual(home_contents(), before)
        self.assertTrue((self.folder / "rendsz.dat").exists())

    def test_a_newer_version_unpacked_over_an_older_one_leaves_the_data(self):
        put_household(self.folder)
        (self.folder / PLATE / "napiadat.dat").write_bytes(fill_up(datetime.date(2026, 3, 1)))
        data = {path: path.read_bytes() for path in self.folder.rglob("*.dat")}
        unpack(self.place)
        self.assertEqual({path: path.read_bytes() for path in self.folder.rglob("*.dat")}, data)

    def test_the_manual_needs_no_network_and_brings_its_pictures(self):
        manual = (self.folder / "kezikonyv.html").read_text(encoding="utf-8")
        self.assertIn("data:image/png;base64,", manual)
        for address in ("http:", "https:", 'src="//', "url(//"):
            self.assertNotIn(address, manual)

    def test_every_library_has_its_licence(self):
        licences = {path.stem for path in (self.folder / "licencek").glob("*.txt")}
        for package in ("libqt6core6", "libqcustomplot2.1-qt6", "libicu72", "qt6-wayland"):
            self.assertIn(package, licences)
        self.assertIn("GENERAL PUBLIC LICENSE", (self.folder / "LICENSE.txt").read_text())


if __name__ == "__main__":
    unittest.main()
