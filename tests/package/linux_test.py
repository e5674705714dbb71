"""The Linux package as a person gets it: unpacked, started, used, unpacked anew."""

import datetime
import os
import pathlib
import re
import struct
import subprocess
import sys
import tempfile
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "outside"))

import keyboard  # noqa: E402
from accessible import Part, wait_for  # noqa: E402
from desktop import Desktop, end  # noqa: E402

PACKAGE = pathlib.Path(os.environ["TARVIK_PACKAGE"])
PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
PLATE = "ABC-123"
OTHER_PLUGINS = "/usr/lib/x86_64-linux-gnu/qt6/plugins"
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
    """The program as a double click starts it, in its own folder, or from another one, while a `with` lasts. The
    environment names plugins of another Qt, as some desktops' does."""

    def __init__(self, folder, current=None):
        self._folder = folder
        self._current = current or folder
        self._process = None

    def __enter__(self):
        self._process = Desktop.get().spawn([str(self._folder / "Tarvik")], "package", cwd=self._current,
                                            env={**os.environ, "QT_PLUGIN_PATH": OTHER_PLUGINS})
        return self

    def __exit__(self, failure, *_):
        if failure:
            Desktop.get().photograph(PICTURES / "package-failure.png")
        end(self._process)

    def window(self, title):
        return wait_for(lambda: self._window(title), f"a window {title!r}")

    def _window(self, title):
        for application in Part.applications():
            for window in application.children():
                if window.is_showing and window.name.startswith(title):
                    return window
        raise LookupError(title)

    def loaded(self):
        """The libraries in its memory."""
        lines = pathlib.Path(f"/proc/{self._process.pid}/maps").read_text().splitlines()
        return {line.split(None, 5)[5] for line in lines if ".so" in line}


class LinuxPackage(unittest.TestCase):

    def setUp(self):
        self.place = pathlib.Path(tempfile.mkdtemp(prefix="Új hely ő ", dir=Desktop.get().scratch))
        self.folder = unpack(self.place)

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

    def test_a_recorded_entry_is_in_the_logbook_byte_for_byte(self):
        put_household(self.folder)
        before = home_contents()
        logbook = self.folder / PLATE / "napiadat.dat"
        days = [datetime.date.today()]
        with Started(self.folder) as program:
            self.record_fill_up(program)
            wait_for(lambda: logbook.stat().st_size == 156, "the recorded entry")
            Desktop.get().photograph(PICTURES / "package.png")
        days.append(datetime.date.today())
        self.assertIn(logbook.read_bytes(), [fill_up(day) for day in days])
        self.assertEqual(home_contents(), before, "a start leaves nothing in the home folder")

    def test_started_from_another_folder_it_asks_before_it_makes_a_file_and_goes_on_in_its_own(self):
        elsewhere = self.place / "máshol"
        elsewhere.mkdir()
        unpacked = set(self.folder.rglob("*"))
        with Started(self.folder, elsewhere) as program:
            box = program.window("Tarvik")
            text = " ".join(part.name for part in box.walk())
            Desktop.get().photograph(PICTURES / "package-elsewhere.png")
            self.assertIn(f"A program mappája:\n{self.folder}\n", text)
            self.assertIn(f"Az aktuális mappa:\n{elsewhere}\n", text)
            self.assertEqual(set(self.folder.rglob("*")), unpacked)
            box.part("push button", "Igen").press()
            program.window("Tarvik - ")
            wait_for((self.folder / "rendsz.dat").exists, "the list of the cars in the program's folder")
        self.assertEqual(list(elsewhere.iterdir()), [])

    def test_libraries_and_plugins_come_from_the_package_whatever_the_environment_names(self):
        with Started(self.folder) as program:
            program.window("Tarvik - ")
            libraries = {path for path in program.loaded() if any(name in path for name in ("Qt6", "QCustomPlot", "/plugins/"))}
        self.assertTrue(libraries)
        self.assertEqual({path for path in libraries if not path.startswith(str(self.folder))}, set())

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

    def test_the_chapters_of_the_manual_are_anchors_and_every_link_has_its_own(self):
        manual = (self.folder / "kezikonyv.html").read_text(encoding="utf-8")
        anchors = re.findall('<h[1-6] id="([^"]*)"', manual)
        self.assertEqual(len(set(anchors)), len(anchors))
        self.assertLessEqual({"a-főablak", "gumik", "javítások--szervizek", "egér-nélkül"}, set(anchors))
        self.assertLessEqual(set(re.findall('href="#([^"]*)"', manual)), set(anchors))

    def test_it_asks_for_no_newer_runtimes_than_those_of_april_2022(self):
        programs = [path for path in self.folder.rglob("*") if path.suffix in (".so", ".com") or ".so." in path.name]
        symbols = subprocess.run(["objdump", "-T", *programs], stdout=subprocess.PIPE, check=True).stdout.decode()
        for runtime, newest in (("GLIBC", (2, 35)), ("GLIBCXX", (3, 4, 30)), ("CXXABI", (1, 3, 13))):
            versions = {tuple(map(int, version.split("."))) for version in re.findall(runtime + r"_([0-9.]+)", symbols)}
            self.assertLessEqual(max(versions), newest, runtime)

    def test_every_library_has_its_licence(self):
        licences = {path.stem for path in (self.folder / "licencek").glob("*.txt")}
        for package in ("libqt6core6", "libqcustomplot2.1-qt6", "libicu72", "qt6-wayland"):
            self.assertIn(package, licences)
        self.assertIn("GENERAL PUBLIC LICENSE", (self.folder / "LICENSE.txt").read_text())


if __name__ == "__main__":
    unittest.main()
