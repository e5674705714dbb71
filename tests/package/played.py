"""One round of work on two programs: led on the Linux one by the names of its parts, followed on another key by key."""

import pathlib
import subprocess
import time

import keyboard
from accessible import wait_for
from desktop import Desktop

MOST_TABS = 60
REOPEN_SECONDS = 3


def _active_title():
    """The title of the window that the keys go to."""
    asked = subprocess.run(["xdotool", "getactivewindow", "getwindowname"], stdout=subprocess.PIPE,
                           stderr=subprocess.DEVNULL, check=False)
    return asked.stdout.decode()


def _wait_active(title, limit=60):
    wait_for(lambda: _active_title().startswith(title), f"the keys to go to {title!r}", limit)


class Hands:
    """What both do: keys, pictures, waiting for a window."""

    def __init__(self, folder, pictures):
        self.folder = pathlib.Path(folder)
        self._pictures = pictures

    def do_press(self, *keys):
        keyboard.press(*keys)

    def do_type(self, text):
        keyboard.type_text(text)

    def do_window(self, title):
        _wait_active(title)

    def do_picture(self, name):
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
        """press, type, window, picture: done and noted."""
        if name not in ("press", "type", "window", "picture"):
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

    def answer(self, key, title, file):
        """Answers a question with a key; the file then changes."""
        before = self.bytes_of(file)
        self.window(title)
        self.press(key)
        wait_for(lambda: self.bytes_of(file) != before, f"a change of {file}")
        self.notes.append(("saved", (file, self.bytes_of(file))))


class Follower(Hands):
    """Repeats noted steps on whatever program has the display."""

    def do_saved(self, file, contents):
        wait_for(lambda: self.bytes_of(file) == contents, f"{file} to become what the other program wrote", 60)

    def repeat(self, notes):
        for name, arguments in notes:
            getattr(self, f"do_{name}")(*arguments)
