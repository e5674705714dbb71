"""One round of work on two programs: led on the Linux one by the names of its parts, followed on another key by key."""

import os
import pathlib
import re
import subprocess
import time

import keyboard
from accessible import wait_for
from desktop import Desktop

MOST_TABS = 60
REOPEN_SECONDS = 3
REST_SECONDS = 0.3
PAUSE_MILLISECONDS = 40
PLAIN_KEYS = "[a-zéáűőúöüó0-9,.-]"


def _active_title():
    """The title of the window that the keys go to."""
    asked = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, check=False)
    return asked.stdout.decode()


def _wait_active(title, limit=60):
    wait_for(lambda: _active_title().startswith(title), f"the keys to go to {title!r}", limit)


def _is_ours(process):
    """Whether a process was started on the desktop of this test, the display's own server too."""
    try:
        return f"HOME={os.environ['HOME']}\0".encode() in (process / "environ").read_bytes()
    except OSError:
        return False


def _works(task):
    """Whether a thread has a processor or disk or waits for one."""
    try:
        return (task / "stat").read_text().rpartition(")")[2].split()[0] in "RD"
    except OSError:
        return False


def _is_at_work():
    """Whether anything on the desktop has still something to do, however slow the machine is."""
    return any(_works(task) for process in pathlib.Path("/proc").glob("[0-9]*") if _is_ours(process)
               for task in process.glob("task/*"))


def _wait_rest(unlike=None):
    """Waits until the picture has stayed as it is for a while, which is shorter than a caret's blink, and nobody
    is at work; it must be another than the one given. Gives the picture."""
    seen = Desktop.get().photo()
    since = time.monotonic()

    def rests():
        nonlocal seen, since
        is_idle = not _is_at_work()
        now = Desktop.get().photo()
        if now != seen:
            seen, since = now, time.monotonic()
        return is_idle and time.monotonic() - since > REST_SECONDS and seen != unlike
    wait_for(rests, "the picture to come to rest")
    return seen


class Hands:
    """What both do: keys, pictures, waiting for a window. `root` is how the program calls the folder /."""

    def __init__(self, folder, pictures, root="/"):
        self.folder = pathlib.Path(folder)
        self._pictures = pictures
        self._root = root
        self._shown = None

    def do_press(self, *keys):
        keyboard.press(*keys)

    def do_type(self, text):
        keyboard.type_text(text, PAUSE_MILLISECONDS)

    def do_type_path(self, file):
        self.do_type(self._root + str(self.folder / file).lstrip("/"))

    def do_window(self, title):
        _wait_active(title)

    def do_made(self, file):
        wait_for((self.folder / file).exists, f"the file {file}")

    def do_picture(self, name):
        """Each shows something else than the one before."""
        self._shown = _wait_rest(unlike=self._shown)
        self.photograph(name)

    def photograph(self, name):
        Desktop.get().photograph(f"{self._pictures}-{name}.png")

    def bytes_of(self, file):
        path = self.folder / file
        return path.read_bytes() if path.exists() else b""


class Leader(Hands):
    """Works on a program that is seen through the accessibility service, and notes each step."""

    def __init__(self, program, pictures):
        super().__init__(program.folder, pictures)
        self._program = program
        self.notes = []

    def __getattr__(self, name):
        """press, type and the like: done and noted."""
        if name not in ("press", "type", "type_path", "window", "picture", "made"):
            raise AttributeError(name)

        def step(*arguments):
            getattr(self, f"do_{name}")(*arguments)
            self.notes.append((name, arguments))
        return step

    def open(self, key, title):
        """Presses a key until its window is there: one that two parts share reaches them in turn."""
        deadline = time.monotonic() + 60
        while True:
            self.press(key)
            try:
                _wait_active(title, REOPEN_SECONDS)
                break
            except AssertionError:
                if time.monotonic() > deadline:
                    raise
        self.window(title)

    def go_to(self, title, role, name):
        """Presses Tab until the part of that window has the focus."""
        part = self._program.window(title).part(role, name)
        for _ in range(MOST_TABS):
            if part.is_focused:
                return
            self.press("Tab")
            time.sleep(0.05)  # the focus comes by way of the bus
        raise AssertionError(f"Tab never comes to {role} {name!r} in {title!r}")

    def fill(self, title, name, text):
        """Puts a text into a field, over what is in it."""
        self.go_to(title, "text", name)
        self.press("ctrl+a")
        self.type(text)

    def save(self, key, file):
        """Presses the key after which the file changes."""
        before = self.bytes_of(file)
        self.press(key)
        wait_for(lambda: self.bytes_of(file) != before, f"a change of {file}")
        self._program.windows()  # answered when the program is done with it
        self.notes.append(("saved", (file, self.bytes_of(file))))

    def answer(self, key, title, file):
        """Answers a question with a key; the file then changes."""
        self.window(title)
        self.save(key, file)


class Follower(Hands):
    """Repeats noted steps on whatever program has the display."""

    def do_type(self, text):
        """A modifier's key counts when the program comes to a letter, not when that was typed: those with one
        are typed apart."""
        for run in re.findall(PLAIN_KEYS + "+|.", text):
            super().do_type(run)
            _wait_rest()

    def do_window(self, title):
        """A window may have come to the front before its program hears the keys."""
        super().do_window(title)
        _wait_rest()

    def do_saved(self, file, contents):
        wait_for(lambda: self.bytes_of(file) == contents, f"{file} to become what the other program wrote", 60)

    def repeat(self, notes):
        for name, arguments in notes:
            getattr(self, f"do_{name}")(*arguments)
