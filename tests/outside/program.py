"""The built program in a folder of its own, seen through the accessibility service."""

import datetime
import os
import pathlib
import shutil
import subprocess
import tempfile

from accessible import Part, wait_for
from desktop import Desktop, end

PROGRAM = pathlib.Path(os.environ["TARVIK_PROGRAM"])
MAKE_DEMO = pathlib.Path(os.environ["TARVIK_MAKE_DEMO"])
DEMO_LOG = pathlib.Path(os.environ["TARVIK_DEMO_LOG"])


def demo_folder():
    """Makes the demonstration household of today in a new folder, which goes with the desktop."""
    folder = pathlib.Path(tempfile.mkdtemp(prefix="folder-", dir=Desktop.get().scratch))
    today = datetime.date.today().strftime("%Y.%m.%d.")
    subprocess.run([MAKE_DEMO, DEMO_LOG, folder, today], check=True)
    return folder


class Program:
    """Runs while a `with` lasts.

    `folder` is where it lies, a new demonstration folder unless one is given, and runs, unless `current` is
    another one; `without_alerts` takes the reminders away first; `wrapper` goes before the program's name:
    ["strace", ...]; `environment` is added to the desktop's.
    """

    def __init__(self, folder=None, without_alerts=False, wrapper=(), environment=None, current=None):
        self.desktop = Desktop.get()
        self.folder = pathlib.Path(folder) if folder else demo_folder()
        self._current = current or self.folder
        self._wrapper = list(wrapper)
        self._environment = {**os.environ, **(environment or {})}
        self.process = None
        if without_alerts:
            for reminders in ("figyel.dat", "figyDatum.dat"):
                (self.folder / reminders).unlink(missing_ok=True)

    def __enter__(self):
        program = self.folder / PROGRAM.name
        if not program.exists():
            shutil.copy(PROGRAM, program)
        self.process = self.desktop.spawn(self._wrapper + [str(program)], "program", cwd=self._current,
                                          env=self._environment)
        return self

    def __exit__(self, *_):
        end(self.process)

    def _application(self):
        for application in Part.applications():
            if application.process_id in self._process_ids():
                return application
        raise LookupError("the program is not on the accessibility bus")

    def _process_ids(self):
        pid = self.process.pid
        children = pathlib.Path(f"/proc/{pid}/task/{pid}/children")
        return [pid] + [int(child) for child in children.read_text().split()]

    def windows(self):
        """Its windows, dialogs and boxes that are shown, the newest last."""
        return [window for window in self._application().children() if window.is_showing]

    def window(self, title):
        """Waits for the window whose title begins with this text."""
        return wait_for(lambda: self._window(title), f"a window {title!r}")

    def _window(self, title):
        for window in reversed(self.windows()):
            if window.name.startswith(title):
                return window
        raise LookupError(title)

    def wait_closed(self, title):
        """Waits until no window's title begins with this text."""
        wait_for(lambda: not any(window.name.startswith(title) for window in self.windows()),
                 f"{title!r} to close")

    def wait_end(self):
        """Waits for the program's end and gives its exit code."""
        wait_for(lambda: self.process.poll() is not None, "the program to end")
        return self.process.returncode
