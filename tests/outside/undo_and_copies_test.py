"""Undoing, the day's copies and taking one back on the real window, with calls refused and the program killed.

A taste of it, or with TARVIK_FAULTS=all every call at each of its first times; after TARVIK_SECONDS nothing else is
tried. The households lie in the folder TARVIK_FOLDERS, on a file system of one's own choice.
"""

import collections
import hashlib
import itertools
import os
import pathlib
import shutil
import tempfile
import time
import unittest

from accessible import wait_for
from faults import KILL, Refused, can_inject, wait_settled
import keyboard
from operations import LOGBOOK
from program import Program, demo_folder

IS_WHOLE = os.environ.get("TARVIK_FAULTS") == "all"
PLACE = os.environ.get("TARVIK_FOLDERS")
UNTIL = time.monotonic() + float(os.environ.get("TARVIK_SECONDS", "inf"))
RENAME = "rename,renameat,renameat2"
MAKE_FOLDER = "mkdir,mkdirat"
RECORD = 156

# What a logbook holds, short enough to be told.
Log = collections.namedtuple("Log", "length mark")

COPY_REFUSED = [(MAKE_FOLDER, "ENOSPC"), ("pwrite64", "ENOSPC"), ("fsync", "EIO"), (RENAME, "EACCES")]
KILLED_AT = ["pwrite64", "fsync", RENAME]
LOOKS_AT_MOST = 100  # for the end of a program that makes fewer such calls
TIMES = range(1, 8) if IS_WHOLE else [2]


@unittest.skipUnless(can_inject(), "no calls of another process may be refused here: not tested")
class UndoAndCopies(unittest.TestCase):

    def new_household(self):
        """In a folder of its own."""
        self.folder = demo_folder()
        if PLACE is not None:
            place = self.enterContext(tempfile.TemporaryDirectory(dir=PLACE))
            self.folder = pathlib.Path(shutil.copytree(self.folder, place, dirs_exist_ok=True))
        self.sets = self.folder / "Mentések"
        self.today = self.sets / time.strftime("%Y-%m-%d")

    # What a person does.

    def setUp(self):
        self.new_household()

    @staticmethod
    def log_in(folder):
        contents = (folder / LOGBOOK).read_bytes()
        return Log(len(contents), hashlib.sha256(contents).hexdigest()[:12])

    def logbook(self):
        return self.log_in(self.folder)

    def main(self, program):
        return program.window("Tarvik - ")

    def delete(self, program):
        """Up to the question of a deletion; the answer is left to the caller."""
        main = self.main(program)

        def is_offered():
            main.part("table", "Napló").select_row(0)
            return main.part("push button", "Törlés").is_enabled

        wait_for(is_offered, "a row to be chosen")
        main.part("push button", "Törlés").press()
        return program.window(" TÖRLÉS ").part("push button", "Igen")

    def delete_at_once(self, program):
        old = self.logbook()
        self.delete(program).press()
        wait_for(lambda: self.logbook() != old, "the deletion")
        program.wait_closed(" TÖRLÉS ")

    def take_back(self, program):
        """Up to the question of a taking back of what differs from the newest set."""
        self.main(program).part("menu item", "Eszközök").press()
        self.main(program).part("menu item", "Visszaállítás mentésből…").press()
        screen = program.window("Visszaállítás mentésből")
        button = screen.part("push button", "Visszaállítás")
        wait_for(lambda: button.is_enabled, "something that differs")
        button.press()
        return program.window(" Visszaállítás ").part("push button", "Igen")

    # What must hold whenever.

    def check_sets(self, contents):
        """Whatever has a day's name holds the whole logbook, as one of these contents."""
        for found in self.sets.iterdir() if self.sets.exists() else []:
            if found.is_dir() and not found.name.endswith(".tmp"):
                self.assertIn(self.log_in(found), contents, found.name)
                self.assertEqual((found / "rendsz.dat").read_bytes(), (self.folder / "rendsz.dat").read_bytes())

    def check_works_again(self):
        """A new run deletes an entry, has today's whole set, takes the deletion back, and leaves nothing unfinished
        but a set, which goes with the next one."""
        with Program(self.folder, without_alerts=True) as program:
            old = self.logbook()
            self.delete_at_once(program)
            wait_for(lambda: (self.today / LOGBOOK).exists(), "the set of today")
            keyboard.press("ctrl+z")
            wait_for(lambda: self.logbook() == old, "the undoing")
        self.assertEqual([left for left in self.folder.glob("*/*.tmp") if left.parent != self.sets], [])

    def is_over(self):
        return time.monotonic() > UNTIL

    # The cases.

    def test_a_copy_that_is_refused_is_told_and_the_change_is_made(self):
        for calls, error in COPY_REFUSED if IS_WHOLE else COPY_REFUSED[:1]:
            if self.is_over():
                return
            with self.subTest(calls), Program(self.folder, without_alerts=True) as program:
                shutil.rmtree(self.sets, ignore_errors=True)
                old = self.logbook()
                yes = self.delete(program)
                with Refused(program, calls, error, nth=1) as refused:
                    yes.press()
                    said = wait_for(lambda: wait_settled(program, lambda: False), "a box")
                self.assertTrue(refused.happened)
                self.assertIn("A mai mentés", said)
                self.assertIn("a módosítás viszont megtörtént.", said)
                self.assertEqual(self.logbook().length, old.length - RECORD)
                self.check_sets([old])

    def test_an_undoing_that_is_refused_says_so_and_goes_when_tried_again(self):
        with Program(self.folder, without_alerts=True) as program:
            old = self.logbook()
            self.delete_at_once(program)
            new = self.logbook()
            for calls, error in COPY_REFUSED[1:] if IS_WHOLE else COPY_REFUSED[3:]:
                with self.subTest(calls), Refused(program, calls, error, nth=1) as refused:
                    keyboard.press("ctrl+z")
                    said = wait_settled(program, lambda: self.logbook() != new)
                self.assertTrue(refused.happened)
                self.assertIn("Semmi sem változott." if calls != "fsync" else "Nézd meg a listát", said)
                self.assertEqual(self.logbook(), new)
                keyboard.press("Return")
                program.wait_closed(" H i b a !")
            keyboard.press("ctrl+z")
            wait_for(lambda: self.logbook() == old, "the undoing")
            keyboard.press("ctrl+y")
            wait_for(lambda: self.logbook() == new, "the redoing")

    def test_a_taking_back_that_is_refused_says_so_and_is_undone_by_a_key(self):
        with Program(self.folder, without_alerts=True) as program:
            old = self.logbook()
            self.delete_at_once(program)
            new = self.logbook()
            for calls, error in COPY_REFUSED if IS_WHOLE else COPY_REFUSED[1:2]:
                yes = self.take_back(program)
                with self.subTest(calls), Refused(program, calls, error, nth=1) as refused:
                    yes.press()
                    said = wait_settled(program, lambda: self.logbook() != new)
                self.assertTrue(refused.happened)
                self.assertTrue(said)
                self.assertEqual(self.logbook(), new)
                self.check_sets([old, new])
                keyboard.press("Return")
                program.wait_closed(" H i b a !")
                program.window("Visszaállítás mentésből").part("push button", "Bezár").press()
                program.wait_closed("Visszaállítás mentésből")
            self.take_back(program).press()
            wait_for(lambda: self.logbook() == old, "the taking back")
            program.window("Visszaállítás mentésből").part("push button", "Bezár").press()
            program.wait_closed("Visszaállítás mentésből")
            keyboard.press("ctrl+z")
            wait_for(lambda: self.logbook() == new, "the undoing of it")
            self.check_sets([old, new])

    def check_killed(self, calls, nth, prepare, act):
        """Kills the program at that call; whatever it did, each file is old or new and a new run works."""
        self.new_household()
        with Program(self.folder, without_alerts=True) as program:
            old = self.logbook()
            prepare(program)
            new = self.logbook()
            with Refused(program, calls, KILL, nth=nth):
                act(program)
                looks = itertools.count()
                wait_for(lambda: program.process.poll() is not None or next(looks) > LOOKS_AT_MOST, "an end")
            is_one_less = self.logbook().length == old.length - RECORD
            self.assertTrue(self.logbook() in (old, new) or is_one_less, (self.logbook(), old))
            self.check_sets([old, new])
        self.check_works_again()

    def kills(self):
        for calls in KILLED_AT:
            for nth in TIMES:
                if not self.is_over():
                    yield calls, nth

    def test_killed_in_a_change_with_its_copy(self):
        for calls, nth in self.kills():
            with self.subTest(calls, nth=nth):
                yes = []
                self.check_killed(calls, nth, lambda program: yes.append(self.delete(program)),
                                  lambda _: yes[-1].press())

    def test_killed_in_an_undoing(self):
        for calls, nth in self.kills():
            with self.subTest(calls, nth=nth):
                self.check_killed(calls, nth if IS_WHOLE else 1, self.delete_at_once,
                                  lambda _: keyboard.press("ctrl+z"))

    def test_killed_in_a_taking_back(self):
        for calls, nth in self.kills():
            with self.subTest(calls, nth=nth):
                yes = []

                def prepare(program):
                    self.delete_at_once(program)
                    yes.append(self.take_back(program))

                self.check_killed(calls, nth, prepare, lambda _: yes[-1].press())


if __name__ == "__main__":
    unittest.main()
