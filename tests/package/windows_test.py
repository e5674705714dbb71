"""One household, one round of work, two programs: the Linux one and the Windows one under Wine end with equal data."""

import datetime
import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest
import zipfile

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "outside"))

from desktop import Desktop, end  # noqa: E402
from played import Follower, Leader  # noqa: E402
from program import Program, demo_folder  # noqa: E402

PACKAGE = pathlib.Path(os.environ["TARVIK_PACKAGE"])
PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
MAIN = "Tarvik - "
REMINDERS = "Figyelmeztetés"
PRINTING = "Listamező nyomtatása"
PAPER = "lista.pdf"
LOGBOOK = "KLM456/napiadat.dat"
MOST_BYTES = 25 * 1000 * 1000


def household():
    """The demonstration household with one car chosen at start and without alerts."""
    folder = demo_folder()
    for reminders in ("figyel.dat", "figyDatum.dat"):
        (folder / reminders).unlink(missing_ok=True)
    (folder / "set.dat").write_bytes(b"\0\0" + b"KLM456".ljust(10))
    return folder


def data_of(folder):
    """Every data file of a household by its path in the folder."""
    return {str(path.relative_to(folder)): path.read_bytes() for path in sorted(folder.rglob("*.dat"))}


def record(work):
    work.window(MAIN)
    work.fill(MAIN, "Km óra állás", "301234")
    work.fill(MAIN, "Liter", "40,5")
    work.fill(MAIN, "Tankolt költség", "24300")
    work.press("alt+r")
    work.answer("alt+i", " Rögzítés", LOGBOOK)
    work.window(MAIN)
    work.picture("recorded")


def modify(work):
    work.go_to(MAIN, "table", "Napló")
    work.press("Home", "Down", "Down")
    work.picture("selected")
    work.fill(MAIN, "Tankolt költség", "25100")
    work.press("alt+m")
    work.answer("alt+i", " Módosítás", LOGBOOK)
    work.window(MAIN)


def delete(work):
    work.press("F6", "Home", "Down", "alt+t")
    work.answer("alt+i", " TÖRLÉS", LOGBOOK)
    work.window(MAIN)
    work.picture("deleted")


def open_filter(work, chosen):
    """By the space bar: after its letter the button waits a moment, and other keys would overtake it."""
    work.go_to(MAIN, "push button", "Lista")
    work.press("space")
    work.go_to(MAIN, "radio button", chosen)


def filter_a_year(work):
    open_filter(work, "Teljes lista")
    work.press("Right", "Tab")
    work.type(str(datetime.date.today().year - 1))
    work.picture("filter")
    work.press("Return")
    work.picture("filtered")
    open_filter(work, "Éves lista")
    work.press("Left", "Return")


def show_a_chart(work):
    work.press("alt+g")
    work.window("Grafikon választás")
    work.press("Down", "Down")
    work.picture("chart-choice")
    work.press("Return")
    work.window(MAIN)
    work.picture("chart")
    work.press("alt+g")


def add_a_reminder(work):
    work.press("alt+f")
    work.window(REMINDERS)
    work.fill(REMINDERS, "Km. óra állása", "301234")
    work.fill(REMINDERS, "Hány km. után", "15000")
    work.fill(REMINDERS, "Mire figyelmeztessen", "Fő fékek")
    work.press("alt+r")
    work.answer("alt+i", " Rögzítés", "figyel.dat")
    work.window(REMINDERS)
    work.picture("reminder")
    work.press("Escape")
    work.window(MAIN)


def add_tyres(work):
    work.press("F10", "Right", "Right", "Return")
    work.window("Gumi")
    work.fill("Gumi", "Gumi típusa", "Őszi")
    work.fill("Gumi", "Max. km", "40000")
    work.save("alt+r", "Gumik.dat")
    work.picture("tyres")
    work.press("Escape")
    work.window(MAIN)


def add_a_repair(work):
    work.press("F10", "Right", "Right", "Right", "Return")
    work.window("Javítások")
    work.fill("Javítások", "Megnevezés", "Új szűrő")
    work.fill("Javítások", "Költség", "18500")
    work.save("alt+r", "Szerviz.dat")
    work.picture("repair")
    work.press("Escape")
    work.window(MAIN)


def print_to_a_file(work):
    work.press("alt+o")
    work.window(PRINTING)
    work.type("Napló")
    work.picture("heading")
    work.press("Return")
    work.picture("no-printer")
    work.press("Return")
    work.window("Mentés PDF-fájlba")
    work.press("ctrl+a")
    work.type_path(PAPER)
    work.picture("print-out")
    work.press("Return")
    work.made(PAPER)


class WindowsProgram(unittest.TestCase):

    def setUp(self):
        self.place = pathlib.Path(tempfile.mkdtemp(dir=Desktop.get().scratch))
        with zipfile.ZipFile(PACKAGE) as archive:
            archive.extractall(self.place)
        self.folder = self.place / "Tarvik"

    def test_the_package_holds_one_program_with_manual_and_licences(self):
        names = {path.name for path in self.folder.iterdir()}
        self.assertEqual(names, {"Tarvik.exe", "kezikonyv.html", "OLVASSEL.txt", "LICENSE.txt", "licencek"})
        self.assertLessEqual((self.folder / "Tarvik.exe").stat().st_size, MOST_BYTES)

    def start(self):
        running = Desktop.get().spawn(["wine", str(self.folder / "Tarvik.exe")], "wine", cwd=self.folder)
        self.addCleanup(end, running)
        return running

    def test_the_same_keys_leave_the_same_data_as_on_linux(self):
        linux = household()
        shutil.copytree(linux, self.folder, dirs_exist_ok=True)
        with Program(linux) as program:
            work = Leader(program, PICTURES / "linux")
            for part in PARTS:
                part(work)
        self.start()
        follower = Follower(self.folder, PICTURES / "windows", root="Z:/")
        try:
            follower.repeat(work.notes)
        finally:
            follower.do_picture("last")
        mine, theirs = data_of(self.folder), data_of(linux)
        self.assertEqual(mine.keys(), theirs.keys())
        self.assertEqual([name for name in mine if mine[name] != theirs[name]], [])
        print(f"{len(mine)} data files are equal byte by byte")


PARTS = [record, modify, delete, filter_a_year, show_a_chart, add_a_reminder, add_tyres, add_a_repair, print_to_a_file]

if __name__ == "__main__":
    unittest.main()
