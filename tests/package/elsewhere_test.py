"""The Linux package on machines that lack Qt, and from a stick as a desktop mounts it. Needs root."""

import os
import pathlib
import shlex
import subprocess
import sys
import tarfile
import tempfile
import time
import unittest

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parent.parent / "outside"))

from bare import PACKAGE, isolated, started_in  # noqa: E402
from desktop import Desktop, end  # noqa: E402

PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
STICK_MEGABYTES = 400
START_SECONDS = 180


def main_window():
    """Waits for the main screen on the display. A search ends at a window that goes while it is looked at."""
    deadline = time.monotonic() + START_SECONDS
    found = b""
    while not found and time.monotonic() < deadline:
        left = str(deadline - time.monotonic())
        command = ["timeout", left, "xdotool", "search", "--sync", "--onlyvisible", "--name", "^Tarvik - "]
        found = subprocess.run(command, stdout=subprocess.PIPE, check=False).stdout
    return found


class Elsewhere(unittest.TestCase):

    def setUp(self):
        self.scratch = pathlib.Path(tempfile.mkdtemp(dir=Desktop.get().scratch))

    def shows_its_window(self, running, picture):
        try:
            self.assertTrue(main_window(), f"no window of {running.args}")
            Desktop.get().photograph(PICTURES / f"{picture}.png")
        finally:
            end(running)

    def start_in(self, root):
        """Starts it as a double click does: in its own folder."""
        display = {"DISPLAY": os.environ["DISPLAY"]}
        self.shows_its_window(started_in(root, self.scratch, "exec ./Tarvik", display), f"package-{root}")

    def test_it_starts_on_a_bare_debian_12(self):
        self.start_in("bookworm")

    def test_it_starts_on_a_bare_newer_debian(self):
        self.start_in("trixie")

    def put_on_stick(self):
        """The shell commands that unpack it as onto a stick that a desktop mounted, into the folder $stick.

        A kernel without that file system gets a folder of the same rights: there only what ends in .exe, .com
        or .bat counts as a program.
        """
        unpack = f'mkdir -p "$stick"; tar -C "$stick" --no-same-owner -xf {shlex.quote(str(PACKAGE))}'
        if "vfat" in pathlib.Path("/proc/filesystems").read_text().split():
            return f"""
                truncate --size={STICK_MEGABYTES}M {self.scratch}/image
                mkfs.vfat -F 32 {self.scratch}/image > /dev/null
                mkdir {self.scratch}/media
                mount -o loop,utf8,showexec,shortname=mixed,nosuid,nodev {self.scratch}/image {self.scratch}/media
                {unpack}"""
        return unpack + '; find "$stick" -type f ! -name "*.com" -exec chmod a-x {} +'

    def test_it_starts_from_a_stick_that_makes_only_programs_by_ending_executable(self):
        self.shows_its_window(isolated(f"""
            stick="{self.scratch}/media/Ő és ű"
            {self.put_on_stick()}
            cd "$stick/Tarvik"
            ./Tarvik-pendrive.com """), "package-stick")

    def test_a_stick_can_hold_every_name_in_it(self):
        listed = subprocess.run(["tar", "--list", "--file", PACKAGE], stdout=subprocess.PIPE, check=True)
        names = listed.stdout.decode().split("\n")
        self.assertEqual([name for name in names if set(name) & set('<>:"|?*\\') or name.endswith((".", " "))], [])
        self.assertEqual(len({name.lower() for name in names}), len(names))
        with tarfile.open(PACKAGE) as archive:
            self.assertEqual([part.name for part in archive if part.issym() or part.islnk()], [])


if __name__ == "__main__":
    unittest.main()
