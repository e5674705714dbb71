"""A desktop of a test's own: virtual display, window manager, session bus and accessibility service."""

import atexit
import ctypes
import os
import pathlib
import select
import shutil
import signal
import subprocess
import sys
import tempfile

from photo import Photo

START_LIMIT_SECONDS = 30
END_LIMIT_SECONDS = 5
_PR_SET_PDEATHSIG = 1
_libc = ctypes.CDLL(None)


def _die_with_parent():
    _libc.prctl(_PR_SET_PDEATHSIG, signal.SIGTERM)


def spawn(command, **options):
    """Starts a process that ends with this one, however this one ends."""
    return subprocess.Popen(command, stdin=subprocess.DEVNULL, preexec_fn=_die_with_parent, **options)


def end(process):
    """Ends a process of spawn() and waits until it is gone."""
    if process.poll() is None:
        process.terminate()
    try:
        process.wait(END_LIMIT_SECONDS)
    except subprocess.TimeoutExpired:
        process.kill()
        process.wait()


def _line(descriptor, what):
    """The first line that a starting process writes to tell that it is ready."""
    text = b""
    while not text.endswith(b"\n"):
        if not select.select([descriptor], [], [], START_LIMIT_SECONDS)[0]:
            raise TimeoutError(f"{what} did not start within {START_LIMIT_SECONDS} s")
        got = os.read(descriptor, 256)
        if not got:
            raise RuntimeError(f"{what} ended at its start")
        text += got
    return text.decode().strip()


class Desktop:
    """A display with all that belongs to it; ends with the process at the latest.

    Its size in pixels is given, or what TARVIK_DISPLAY says, such as "2732x1800".
    """

    _running = None

    @classmethod
    def get(cls):
        """The desktop of this process, started when it is first asked for.

        The accessibility library binds a process to one bus, so that there is one.
        """
        if cls._running is None:
            cls._running = cls()
        return cls._running

    def __init__(self, size=None):
        self.scratch = pathlib.Path(tempfile.mkdtemp(prefix="tarvik-outside-"))
        self._helpers = []
        atexit.register(self.end)
        signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))
        self._set_environment()
        self._start_display(size or os.environ.get("TARVIK_DISPLAY", "1366x900").split("x"))
        self._start_bus()
        self._start_window_manager()
        subprocess.run(["setxkbmap", "hu"], check=True)

    def spawn(self, command, name, **options):
        """Starts a process of spawn() that writes to a log of this name."""
        with open(self.scratch / f"{name}.log", "ab") as log:
            return spawn(command, stdout=log, stderr=log, **options)

    def photograph(self, path):
        """Puts a picture of the whole display into a PNG file."""
        subprocess.run(["import", "-window", "root", str(path)], check=True)

    def photo(self):
        """What is on the display now, to be looked at."""
        return Photo(self.scratch / "Xvfb_screen0")

    def _set_environment(self):
        for name in list(os.environ):
            if name.startswith(("QT_", "DBUS_", "AT_SPI_", "XDG_", "WAYLAND_", "LC_", "LANG")):
                del os.environ[name]
        runtime = self.scratch / "run"
        runtime.mkdir(mode=0o700)
        (self.scratch / "home").mkdir()
        os.environ.update(
            HOME=str(self.scratch / "home"),
            XDG_RUNTIME_DIR=str(runtime),
            LC_ALL="C.UTF-8",
            GSETTINGS_BACKEND="memory",
            CUPS_SERVER="/nowhere",  # no paper comes out of a test
            QT_QPA_PLATFORM="xcb",
            QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
        )

    def _helper(self, command, ready, **options):
        name = pathlib.Path(command[0]).name
        self._helpers.append(self.spawn(command, name, **options))
        return _line(ready, name)

    def _start_display(self, size):
        ready, told = os.pipe()
        screen = f"{size[0]}x{size[1]}x24"
        command = ["Xvfb", "-displayfd", str(told), "-screen", "0", screen, "-dpi", "96"]
        # A new server resets when its last client goes, between two programs.
        number = self._helper(command + ["-nolisten", "tcp", "-noreset", "-fbdir", str(self.scratch)], ready,
                              pass_fds=[told])
        os.environ["DISPLAY"] = f":{number}"

    def _start_bus(self):
        ready, told = os.pipe()
        command = ["dbus-daemon", "--session", "--nofork", f"--print-address={told}"]
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._helper(command, ready, pass_fds=[told])

    def _start_window_manager(self):
        fifo = self.scratch / "window-manager"
        os.mkfifo(fifo)
        ready = os.open(fifo, os.O_RDWR)
        self._helper(["openbox", "--sm-disable", "--startup", f"sh -c 'echo ready > {fifo}'"], ready)

    def end(self):
        """Ends everything on it and takes its folders away."""
        while self._helpers:
            end(self._helpers.pop())
        shutil.rmtree(self.scratch, ignore_errors=True)
