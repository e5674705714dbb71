"""A desktop for one test: a virtual display that can be photographed, a session bus, and the built program on it,
driven through the accessibility interface as an assistive tool does."""

import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import time

PATIENCE = 20  # seconds that anything may take before the test gives up
# What has hundreds of parts, which are asked about one by one, and what is looked for there alone.
LISTS = ("tree table", "tree", "table", "list")
IN_LISTS = ("table cell", "list item", "table column header", "table row")


def wait_for(what, condition, patience=PATIENCE):
    """Returns the first answer of the condition that counts as true; fails with what was waited for."""
    end = time.monotonic() + patience
    while True:
        answer = condition()
        if answer:
            return answer
        assert time.monotonic() < end, f"{what}: not within {patience} seconds"
        time.sleep(0.02)  # between two looks, not for the thing to happen


class Photo:
    """What stands on the display: one byte each of blue, green, red and nothing for a pixel, row by row."""

    def __init__(self, pixels, bytes_per_row):
        self._pixels = pixels
        self._bytes_per_row = bytes_per_row

    def row(self, y, left, right):
        """The blue, green and red bytes of a stretch of one row."""
        start = y * self._bytes_per_row
        stretch = self._pixels[start + 4 * left:start + 4 * right]
        return stretch[0::4], stretch[1::4], stretch[2::4]

    def part(self, box):
        """The bytes of a box, to be compared with those of another photograph."""
        left, top, right, bottom = box
        return b"".join(b"".join(self.row(y, left, right)) for y in range(top, bottom))

    def count(self, box, is_wanted):
        """The number of pixels in the box (left, top, right, bottom) whose red, green, blue are wanted."""
        left, top, right, bottom = box
        return sum(is_wanted(r, g, b) for y in range(top, bottom) for b, g, r in zip(*self.row(y, left, right)))


class Desktop:
    """The display and the bus, one for a whole test program; to be used in a with statement."""

    def __init__(self, width, height):
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="tarvik-desktop-"))
        self._processes = []
        try:
            self._start_display(width, height)
            self._start_bus()
        except BaseException:
            self.__exit__()
            raise

    def _spawn(self, command, **options):
        process = subprocess.Popen(command, stderr=subprocess.DEVNULL, **options)
        self._processes.append(process)
        return process

    def _start_display(self, width, height):
        reading, writing = os.pipe()
        self._spawn(["Xvfb", "-displayfd", str(writing), "-screen", "0", f"{width}x{height}x24", "-dpi", "96",
                     "-nolisten", "tcp", "-fbdir", str(self._folder)], pass_fds=[writing])
        os.close(writing)
        with os.fdopen(reading) as answer:
            os.environ["DISPLAY"] = ":" + answer.readline().strip()

    def _start_bus(self):
        bus = self._spawn(["dbus-daemon", "--session", "--nofork", "--print-address"], stdout=subprocess.PIPE, text=True)
        with bus.stdout as answer:
            os.environ["DBUS_SESSION_BUS_ADDRESS"] = answer.readline().strip()

    def photo(self):
        """Photographs the display from the file that it keeps its picture in."""
        data = (self._folder / "Xvfb_screen0").read_bytes()
        words = struct.unpack(">25I", data[:100])
        return Photo(data[words[0] + 12 * words[19]:], words[12])

    def __enter__(self):
        return self

    def __exit__(self, *_):
        for process in reversed(self._processes):
            process.terminate()
            process.wait()
        shutil.rmtree(self._folder, ignore_errors=True)


class Program:
    """The program on a copy of a data folder; to be used in a with statement, inside that of a desktop."""

    def __init__(self, executable, data_folder, scale=1):
        self._scale = scale
        self._folder = pathlib.Path(tempfile.mkdtemp(prefix="tarvik-program-"))
        shutil.copytree(data_folder, self._folder, dirs_exist_ok=True)
        shutil.copy(executable, self._folder / "Tarvik")
        environment = dict(os.environ, QT_QPA_PLATFORM="xcb", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                           QT_SCALE_FACTOR=str(scale), LC_ALL="C.UTF-8")
        self._process = subprocess.Popen([self._folder / "Tarvik"], cwd=self._folder, env=environment)
        try:
            self._application = wait_for("the program on the accessibility bus", self._find_application)
        except BaseException:
            self.__exit__()
            raise

    def _find_application(self):
        assert self._process.poll() is None, "the program ended by itself"
        desktop = _atspi().get_desktop(0)
        children = [desktop.get_child_at_index(i) for i in range(desktop.get_child_count())]
        return next((child for child in children if child and child.get_process_id() == self._process.pid), None)

    def resize(self, width, height):
        """Gives the program's window another size, in pixels of the display."""
        window = wait_for("the window", lambda: _output_of("xdotool", "search", "--onlyvisible", "--pid",
                                                           str(self._process.pid)).split())[0]
        _output_of("xdotool", "windowsize", window, str(width), str(height))

    def find(self, role, name):
        """The shown part of a role whose name begins so, waited for; roles as the interface words them."""
        return wait_for(f'{role} "{name}"', lambda: self.shown(role, name))

    def shown(self, role, name):
        """The shown part of a role whose name begins so, or None; the windows opened last come first."""
        windows = range(self._application.get_child_count())
        try:
            return _first(_search(self._application.get_child_at_index(index), role, name)
                          for index in reversed(windows))
        except _glib_error():  # a part went away under the search
            return None

    def press(self, role, name):
        """Does the first action of a part: presses a button, checks an option."""
        self.find(role, name).do_action(0)

    def click(self, role, name):
        """Clicks on the middle of a part with the mouse."""
        left, top, right, bottom = self.box(role, name)
        _output_of("xdotool", "mousemove", str((left + right) // 2), str((top + bottom) // 2), "click", "1")

    def keys(self, *names):
        """Presses keys one after the other, by the names that the display gives them."""
        _output_of("xdotool", "key", "--delay", "0", *names)

    def box(self, role, name):
        """Where a part is on the display: left, top, right, bottom in its pixels."""
        place = self.find(role, name).get_extents(0)
        return tuple(self._scale * edge for edge in (place.x, place.y, place.x + place.width,
                                                     place.y + place.height))

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self._process.kill()
        self._process.wait()
        shutil.rmtree(self._folder, ignore_errors=True)


def _atspi():
    # Known only now, because the library asks for the display and the bus when it is loaded.
    import gi
    gi.require_version("Atspi", "2.0")
    from gi.repository import Atspi
    return Atspi


def _glib_error():
    from gi.repository import GLib
    return GLib.Error


def _first(answers):
    return next((answer for answer in answers if answer), None)


def _has(part, state):
    return part.get_state_set().contains(getattr(_atspi().StateType, state))


def _output_of(*command):
    return subprocess.run(command, capture_output=True, text=True).stdout


def _search(part, role, name):
    if part is None:
        return None
    own_role = part.get_role_name()
    if own_role == role and part.get_name().startswith(name):
        return part if _has(part, "SHOWING") else None
    if own_role in LISTS and role not in IN_LISTS:
        return None
    return _first(_search(part.get_child_at_index(index), role, name) for index in range(part.get_child_count()))
