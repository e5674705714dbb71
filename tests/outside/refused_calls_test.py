"""Each change on its real window while the system refuses one of its calls: the box says what the files say.

A taste of it, or with TARVIK_FAULTS=all every change with every call, in any order; after TARVIK_SECONDS no
other call is refused. The households lie in the folder TARVIK_FOLDERS, on a file system of one's own choice.
"""

import contextlib
import os
import pathlib
import random
import shutil
import tempfile
import time
import unittest

from faults import Refused, can_inject, wait_settled
import keyboard
from operations import OPERATIONS
from program import Program, demo_folder

# Which calls a change makes, and what each is answered with.
EVERY = [("pwrite64", "ENOSPC"), ("fsync", "EIO"), ("flock", "EIO")]
IN_PLACE = EVERY + [("ftruncate", "EIO"), ("sync_file_range", "EIO")]
REPLACING = EVERY + [("rename,renameat,renameat2", "EACCES"), ("fchmod", "EPERM"), ("unlink,unlinkat", "EACCES")]
TASTE = [("an entry is recorded", "pwrite64"), ("an entry is deleted", "fsync"),
         ("a repair is deleted", "rename,renameat,renameat2"), ("a vehicle is added", "flock")]
IS_WHOLE = os.environ.get("TARVIK_FAULTS") == "all"
PLACE = os.environ.get("TARVIK_FOLDERS")
SECONDS = float(os.environ.get("TARVIK_SECONDS", "inf"))


def cases():
    """The changes, each with the calls that are refused."""
    for operation in in_any_order(OPERATIONS):
        calls = IN_PLACE if operation.in_place else REPLACING
        faults = [fault for fault in calls if IS_WHOLE or (operation.name, fault[0]) in TASTE]
        if faults:
            yield operation, in_any_order(faults)


def in_any_order(things):
    return random.sample(things, len(things)) if IS_WHOLE else things


@unittest.skipUnless(can_inject(), "no calls of another process may be refused here: not tested")
class RefusedCalls(unittest.TestCase):

    def household(self):
        made = demo_folder()
        # The day's copies are there already, so that the calls that are refused are the change's own.
        copies = pathlib.Path(made, "Mentések", time.strftime("%Y-%m-%d"))
        copies.mkdir(parents=True)
        shutil.copy(pathlib.Path(made, "rendsz.dat"), copies)
        if PLACE is None:
            return made
        place = self.enterContext(tempfile.TemporaryDirectory(dir=PLACE))
        return shutil.copytree(made, place, dirs_exist_ok=True)

    def test_the_box_says_what_the_files_say(self):
        self.until = time.monotonic() + SECONDS
        for operation, faults in cases():
            with self.subTest(operation.name), Program(self.household(), without_alerts=True) as program:
                self.check_operation(program, operation, faults)
            if self.is_over():
                return

    def is_over(self):
        return time.monotonic() > self.until

    def check_operation(self, program, operation, faults):
        window = operation.screen(program)
        for _ in range(2 if operation.before else 0):  # a file of one record is not written, only made anew
            self.change(program, operation.before, window)
        for calls, error in faults:
            with self.subTest(calls):
                self.check_refused(program, operation, window, calls, error)
            if self.is_over():
                break
        self.assertIsNone(self.change(program, operation, window), "the change after the refused ones")

    def change(self, program, operation, window, refused=None):
        """Makes the change; the text of the box that came of it, or None."""
        file = program.folder / operation.file
        old = file.read_bytes() if file.exists() else b""
        operation.ask(program, window)
        with refused or contextlib.nullcontext():
            operation.act(program, window)
            return wait_settled(program, lambda: file.read_bytes() != old) or None

    def check_refused(self, program, operation, window, calls, error):
        file = program.folder / operation.file
        old = file.read_bytes() if file.exists() else b""
        refused = Refused(program, calls, error)
        said = self.change(program, operation, window, refused)
        now = file.read_bytes()
        self.assertTrue(refused.happened, "the call is made")
        self.assertTrue(said, "a refused call is told")
        self.dismiss(program)
        if "Semmi sem változott." in said:
            self.assertEqual(operation.records(now), operation.records(old), said)
        else:
            self.assertIn("Nézd meg a listát", said)
        if not operation.in_place:
            self.assertEqual(len(now) % operation.record_length, 0)
        self.assertEqual([left.name for left in program.folder.rglob("*.tmp")], [])

    def dismiss(self, program):
        keyboard.press("Return")
        program.wait_closed(" H i b a !")


if __name__ == "__main__":
    unittest.main()
