"""The program starts, says what is due, and ends when it is told to."""

import unittest

import keyboard
from accessible import wait_for
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


if __name__ == "__main__":
    unittest.main()
