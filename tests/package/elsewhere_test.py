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

from desktop import Desktop, end, spawn  # noqa: E402

PACKAGE = pathlib.Path(os.environ["TARVIK_PACKAGE"])
PICTURES = pathlib.Path(os.environ["TARVIK_PICTURES"])
STICK_MEGABYTES = 400
START_SECONDS = 180


def isolated(script):
    """Runs a shell script whose mounts and processes are gone when it ends."""
    as_root = [] if os.geteuid() == 0 else ["sudo", "--preserve-env=DISPLAY"]
    return spawn(as_root + ["unshare", "--mount", "--pid", "--fork", "--kill-child", "sh", "-ec", script])


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

    def shows_its_window(self, script, picture):
        running = isolated(script)
        try:
            self.assertTrue(main_window(), f"no window: {script}")
            Desktop.get().photograph(PICTURES / f"{picture}.png")
        finally:
            end(running)

    def start_in(self, root):
        """Starts it in a bare root, in a path with spaces and an ő, as a double click does: in its own folder."""
        self.shows_its_window(f"""
            mount -t tmpfs none {self.scratch}
            tar -C {self.scratch} -xf {os.environ["TARVIK_ROOT_" + root]}
            mount -t proc none {self.scratch}/proc
            mkdir "{self.scratch}/Új hely ő"
            tar -C "{self.scratch}/Új hely ő" -xf {shlex.quote(str(PACKAGE))}
            chroot {self.scratch} env -i HOME=/root DISPLAY="$DISPLAY" LC_ALL=C.UTF-8 PATH=/usr/bin:/bin \\
              sh -c 'cd "/Új hely ő/Tarvik" && exec ./Tarvik' """, f"package-{root}")

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
        self.shows_its_window(f"""
            stick="{self.scratch}/media/Ő és ű"
            {self.put_on_stick()}
            cd "$stick/Tarvik"
            ./Tarvik-pendrive.com """, "package-stick")

    def test_a_stick_can_hold_every_name_in_it(self):
        listed = subprocess.run(["tar", "--list", "--file", PACKAGE], stdout=subprocess.PIPE, check=True)
        names = listed.stdout.decode().split("\n")
        self.assertEqual([name for name in names if set(name) & set('<>:"|?*\\') or name.endswith((".", " "))], [])
        self.assertEqual(len({name.lower() for name in names}), len(names))
        with tarfile.open(PACKAGE) as archive:
            self.assertEqual([part.name for part in archive if part.issym() or part.islnk()], [])


if __name__ == "__main__":
    unittest.main()
