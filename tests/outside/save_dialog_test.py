"""Without a printer the program offers to save the print-out, and its dialog speaks Hungarian."""

import datetime
import os
import unittest

import keyboard
from accessible import wait_for
from program import Program


class SaveDialog(unittest.TestCase):

    def test_the_print_out_is_saved_where_the_person_says(self):
        os.environ["CUPS_SERVER"] = "/nonexistent/server.sock"
        with Program(without_alerts=True) as program:
            program.window("Tarvik - ").part("menu item", "Nyomtatás").press()
            program.window("Listamező nyomtatása").part("text")
            keyboard.press("Return")
            program.window("Listamező nyomtatása").part("push button", "Igen").press()
            dialog = program.window("Mentés PDF-fájlba")
            for role, name in (("label", "Keresés itt:"), ("label", "Fájl neve:"), ("label", "Fájlok típusa:"),
                               ("combo box", "PDF-fájl (*.pdf)"), ("push button", "Mentés"),
                               ("push button", "Mégse")):
                dialog.part(role, name)
            field = dialog.part("text", "Fájl neve:")
            self.assertTrue(field.text.endswith(f"_{datetime.date.today()}.pdf"), field.text)
            keyboard.press("ctrl+a")
            keyboard.type_text(str(program.folder / "lista"))
            keyboard.press("Return")
            saved = program.folder / "lista.pdf"
            wait_for(saved.exists, "the saved file")
            self.assertTrue(saved.read_bytes().startswith(b"%PDF-"))


if __name__ == "__main__":
    unittest.main()
