"""The program starts, says what is due, and ends when it is told to."""

import pathlib
import tempfile
import unittest

import keyboard
from accessible import wait_for
from desktop import Desktop
from program import Program


class Start(unittest.TestCase):

    def test_a_due_reminder_comes_before_the_main_screen_can_be_used(self):
        with Program() as program:
            alert = program.window("FIGYELMEZTETÉS")
            self.assertEqual(alert.role, "dialog")
            alert.part("push button", "Bezár").press()
            program.wait_closed("FIGYELMEZTETÉS")
            main = program.window("Tarvik - ")
            main.part("text", "Km óra állás")

    def test_the_exit_question_keeps_the_program_running_or_ends_it(self):
        with Program(without_alerts=True) as program:
            main = program.window("Tarvik - ")
            main.part("menu item", "Kilépés").press()
            program.window(" Kilépés ").part("push button", "Nem").press()
            program.wait_closed(" Kilépés ")
            wait_for(main.focus, "the focus back on the main screen")
            keyboard.press("alt+k")
            program.window(" Kilépés ").wait_focus("push button", "Igen")
            keyboard.press("Return")
            self.assertEqual(program.wait_end(), 0)

    def test_a_start_from_elsewhere_asks_before_any_file_is_made_and_goes_on_in_its_own_folder(self):
        elsewhere = pathlib.Path(tempfile.mkdtemp(prefix="máshol ", dir=Desktop.get().scratch))
        with Program(without_alerts=True, current=elsewhere) as program:
            box = program.window("Tarvik")
            self.assertEqual(box.role, "alert")
            text = " ".join(part.name for part in box.walk())
            self.assertIn(str(elsewhere), text)
            self.assertIn(str(program.folder), text)
            self.assertEqual(list(elsewhere.iterdir()), [])
            box.part("push button", "Igen").press()
            program.window("Tarvik - ")
            self.assertEqual(list(elsewhere.iterdir()), [])

    def test_a_start_from_elsewhere_that_is_given_up_makes_no_file(self):
        elsewhere = pathlib.Path(tempfile.mkdtemp(dir=Desktop.get().scratch))
        with Program(without_alerts=True, current=elsewhere) as program:
            program.window("Tarvik").part("push button", "Mégse").press()
            program.wait_end()
        self.assertEqual(list(elsewhere.iterdir()), [])


if __name__ == "__main__":
    unittest.main()
