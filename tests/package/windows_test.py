"""One household, one round of work, two programs: the Linux one and the Windows one under Wine end with equal data."""

import datetime
import os
import pathlib
import re
import shutil
import struct
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
HEADING = "Napló"
DATE = r"\d{4}\.\d\d\.\d\d\. "
LOGBOOK = "KLM456/napiadat.dat"
RECORD_BYTES = 156
ROWS_A_PAGE = 40
MOST_BYTES = 25 * 1000 * 1000
LEAST_BYTES_OF_A_PLAIN_PICTURE = 256 * 256 * 4


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


def lines_of(paper):
    """The lines of a print-out, whatever the widths of its letters."""
    text = subprocess.run(["pdftotext", "-layout", paper, "-"], stdout=subprocess.PIPE, check=True).stdout.decode()
    return [" ".join(line.split()) for line in text.splitlines() if line.strip()]


def grouped(number, decimals=0):
    return f"{number:,.{decimals}f}".replace(",", " ").replace(".", ",")


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


def add_to_register(work, title, menus_to_the_right, fields, file, picture):
    work.press("F10", *["Right"] * menus_to_the_right, "Return")
    work.window(title)
    for name, text in fields.items():
        work.fill(title, name, text)
    work.save("alt+r", file)
    work.picture(picture)
    work.press("Escape")
    work.window(MAIN)


def add_tyres(work):
    add_to_register(work, "Gumi", 2, {"Gumi típusa": "Őszi", "Max. km": "40000"}, "Gumik.dat", "tyres")


def add_a_repair(work):
    add_to_register(work, "Javítások", 3, {"Megnevezés": "Új szűrő", "Költség": "18500"}, "Szerviz.dat", "repair")


def print_to_a_file(work):
    work.press("alt+o")
    work.window(PRINTING)
    work.type(HEADING)
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
    work.window(MAIN)


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

    def test_the_program_is_one_file_for_the_desktop_that_takes_any_letter_and_long_paths(self):
        program = self.folder / "Tarvik.exe"
        head = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], stdout=subprocess.PIPE, check=True)
        self.assertIn(b"(Windows GUI)", head.stdout)
        libraries = re.findall(r"DLL Name: (\S+)", head.stdout.decode())
        self.assertIn("KERNEL32.dll", libraries)
        self.assertEqual([name for name in libraries if name.startswith(("lib", "Qt"))], [])
        contents = program.read_bytes()
        for wish in (b">PerMonitorV2</dpiAwareness>", b">UTF-8</activeCodePage>", b">true</longPathAware>"):
            self.assertIn(wish, contents)
        self.assertIn("Tarvik – a háztartás gépkocsijainak költségnaplója".encode("utf-16-le"), contents)

    def test_the_program_is_hardened(self):
        program = self.folder / "Tarvik.exe"
        head = subprocess.run(["x86_64-w64-mingw32-objdump", "-p", program], stdout=subprocess.PIPE, check=True).stdout
        for wish in (b"HIGH_ENTROPY_VA", b"DYNAMIC_BASE", b"NX_COMPAT"):
            self.assertIn(wish, head)
        for message in (b"*** stack smashing detected ***", b"*** buffer overflow detected ***"):
            self.assertIn(message, program.read_bytes())

    def test_the_icons_largest_picture_is_stored_compressed(self):
        listed = subprocess.run(["wrestool", "--list", "--type=icon", self.folder / "Tarvik.exe"],
                                stdout=subprocess.PIPE, check=True).stdout.decode()
        sizes = [int(size) for size in re.findall(r"size=(\d+)", listed)]
        self.assertEqual(len(sizes), 7)
        self.assertLess(max(sizes), LEAST_BYTES_OF_A_PLAIN_PICTURE)

    def start(self):
        running = Desktop.get().spawn(["wine", str(self.folder / "Tarvik.exe")], "wine", cwd=self.folder)
        self.addCleanup(end, running)
        return running

    def test_from_a_path_longer_than_260_letters_it_asks_and_keeps_its_data_in_its_own_folder(self):
        self.folder = self.folder.rename(self.make_long_folder() / "Tarvik")
        windows = pathlib.Path(os.environ["WINEPREFIX"], "drive_c/windows")
        self.start()
        follower = Follower(self.folder, PICTURES / "windows-long-path")
        follower.do_window("Tarvik")
        follower.do_picture("question")
        self.assertEqual(data_of(self.folder), {})
        follower.do_press("alt+i")
        follower.do_window(MAIN)
        follower.do_made("rendsz.dat")
        follower.do_picture("main")
        self.assertEqual(list(windows.glob("*.dat")), [])

    def make_long_folder(self):
        folder = self.place / ("á" * 100) / ("b" * 100) / ("ő" * 100)
        folder.mkdir(parents=True)
        return folder

    def test_the_same_keys_leave_the_same_data_and_paper_as_on_linux(self):
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
            follower.photograph("last")
        mine, theirs = data_of(self.folder), data_of(linux)
        self.assertEqual(mine.keys(), theirs.keys())
        self.assertEqual([name for name in mine if mine[name] != theirs[name]], [])
        paper = lines_of(linux / PAPER)
        self.assertEqual(lines_of(self.folder / PAPER), paper)
        self.assert_lists(paper, theirs[LOGBOOK])
        print(f"{len(mine)} data files are equal byte by byte, and the {len(paper)} lines of the print-out")

    def assert_lists(self, paper, logbook):
        """Every entry is on the paper, under the heading that was typed, and the totals under the last one."""
        entries = [struct.unpack_from("<i10xq", logbook, start) for start in range(0, len(logbook), RECORD_BYTES)]
        readings = sorted(reading for reading, _ in entries)
        litres = sum(amount for _, amount in entries) / 10000
        rows = [line for line in paper if re.match(DATE, line)]
        self.assertEqual(sorted(int(row.split()[1]) for row in rows), readings)
        self.assertEqual(paper[0], HEADING)
        self.assertEqual(paper.count(HEADING), -(-len(rows) // ROWS_A_PAGE))
        self.assertEqual(paper[-2:], [f"Kilométer összesen: {grouped(readings[0] - readings[-1])} km.",
                                      f"Tankolás összesen: {grouped(litres, 2)} liter"])


PARTS = [record, modify, delete, filter_a_year, show_a_chart, add_a_reminder, add_tyres, add_a_repair, print_to_a_file]

if __name__ == "__main__":
    unittest.main()
