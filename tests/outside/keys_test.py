"""The whole use of the main screen with keys alone."""

import datetime
import unittest

from accessible import wait_for
import keyboard
from program import Program

DATE, KM, LITRES, OIL = 0, 1, 2, 4


class Keys(unittest.TestCase):

    def setUp(self):
        self.program = self.enterContext(Program(without_alerts=True))
        self.main = self.program.window("Tarvik - ")
        self.main.wait_focus("text", "Km óra állás")
        self.list = self.main.part("table", "Napló")

    def tab_to(self, name):
        """Goes to a field with the Tab key, as far as it takes."""
        start = self.main.focus()
        for _ in range(40):
            here = self.main.focus()
            if here and here.role in ("text", "spin button") and name in [here.name, *here.labels]:
                return here
            keyboard.press("Tab")
        self.fail(f"{name!r} cannot be reached from {start!r} with Tab")

    def fill(self, name, text):
        self.tab_to(name)
        keyboard.press("ctrl+a")
        keyboard.type_text(text)
        wait_for(lambda: self.main.focus().text == text, f"{text!r} in {name!r}")

    def answer(self, title, *keys):
        self.wait_ready(title)
        keyboard.press(*keys)
        self.program.wait_closed(title)

    def wait_ready(self, title):
        """Waits until a window has the keyboard; it is shown a moment before."""
        wait_for(self.program.window(title).focus, f"the focus in {title!r}")

    def choose_newest(self):
        """Goes to the list, which has the newest entry at its end, and onto it."""
        keyboard.press("F6")
        self.main.wait_focus("table", "Napló")
        keyboard.press("End")
        wait_for(lambda: self.list.selected_row() == self.list.row_count() - 1, "the last row chosen")

    def km(self):
        return self.main.part("text", "Km óra állás").text

    def test_an_entry_is_recorded_modified_and_deleted(self):
        entries = self.list.row_count()
        self.fill("Km óra állás", "280500")
        self.fill("Liter", "40,5")
        self.fill("Tankolt költség", "25000")
        keyboard.press("Return")
        self.answer(" Rögzítés ", "Return")
        wait_for(lambda: self.list.row_count() == entries + 1, "the new row")
        today = datetime.date.today().strftime("%Y.%m.%d.")
        self.assertEqual(self.list.rows()[-1][:3], [today, "280500", "40,50"])

        self.choose_newest()
        wait_for(lambda: self.km() == "280500", "the chosen entry in the fields")
        keyboard.press("ctrl+l")
        self.fill("Km óra állás", "280600")
        keyboard.press("alt+m")
        self.answer(" Módosítás ", "alt+i")
        wait_for(lambda: self.list.cell(entries, KM).name == "280600", "the modified row")

        self.choose_newest()
        keyboard.press("alt+t")
        self.answer(" TÖRLÉS ", "alt+i")
        wait_for(lambda: self.list.row_count() == entries, "the row to go")
        self.main.wait_focus("table", "Napló")

    def test_a_fill_up_takes_four_keys_beyond_its_figures(self):
        entries = self.list.row_count()
        for figure in ("280500", "40,5", "25000"):
            keyboard.type_text(figure)
            keyboard.press("Return")
        self.answer(" Rögzítés ", "Return")
        wait_for(lambda: self.list.row_count() == entries + 1, "the new row")
        today = datetime.date.today().strftime("%Y.%m.%d.")
        self.assertEqual(self.list.rows()[-1][:3], [today, "280500", "40,50"])

    def test_the_last_entry_is_corrected_with_five_keys(self):
        last = self.list.row_count() - 1
        keyboard.press("F6", "End")
        wait_for(lambda: self.list.selected_row() == last, "the last row chosen")
        reading = str(int(self.list.cell(last, KM).name) + 1)
        keyboard.press("ctrl+l")
        self.main.wait_focus("text", "Km óra állás")
        keyboard.type_text(reading)
        keyboard.press("alt+m")
        self.answer(" Módosítás ", "alt+i")
        wait_for(lambda: self.list.cell(last, KM).name == reading, "the corrected row")

    def test_this_years_consumption_is_two_keys_away(self):
        keyboard.press("alt+e")
        wait_for(lambda: self.main.part("menu item", "Éves összesítő…").is_showing, "the open menu")
        keyboard.press("odiaeresis")
        summary = self.program.window("Éves összesítő")
        newest = summary.part("table", "Éves összesítő").rows()[0]
        self.assertEqual(newest[0], self.list.rows()[-1][DATE][:4])
        self.assertRegex(newest[3], r"^\d,\d\d$")
        keyboard.press("Escape")
        self.program.wait_closed("Éves összesítő")

    def test_a_deletion_that_is_not_meant_is_refused_with_enter(self):
        entries = self.list.row_count()
        self.choose_newest()
        keyboard.press("alt+t")
        self.answer(" TÖRLÉS ", "Return")
        self.assertEqual(self.list.row_count(), entries)

    def test_a_vehicle_is_chosen_and_listed(self):
        keyboard.press("shift+Tab", "shift+Tab")
        self.main.wait_focus("text", "Rendszám")
        keyboard.press("Up")
        self.main.part("radio button", "Teljes lista")
        self.main.wait_focus("text", "Rendszám")
        keyboard.press("Return")
        self.main.wait_focus("radio button", "Teljes lista")
        keyboard.press("Return")
        self.main.wait_focus("table", "Napló")
        self.assertEqual(self.main.part("combo box", "Rendszám").name.strip(), "ABC123")
        wait_for(lambda: self.list.row_count() < 60, "the shorter logbook")

    def test_the_filter_is_set_with_arrows_and_listed_with_enter(self):
        keyboard.press("alt+l")
        self.main.wait_focus("radio button", "Teljes lista")
        keyboard.press("Right")
        self.assertTrue(self.main.wait_focus("radio button", "Éves lista").is_checked)
        keyboard.press("Down")
        self.assertTrue(self.main.wait_focus("radio button", "Havi lista").is_checked)
        keyboard.press("Up")
        self.main.wait_focus("radio button", "Éves lista")
        keyboard.press("Tab")
        self.main.wait_focus("spin button", "Listázandó   Év - Hónap")
        last_year = str(datetime.date.today().year - 1)
        keyboard.type_text(last_year)
        keyboard.press("Return")
        self.main.wait_focus("table", "Napló")
        years = {row[DATE][:4] for row in self.list.rows()}
        self.assertEqual(years, {last_year})

    def find(self, words):
        """Looks for words in the list; returns what stands beside them."""
        keyboard.press("ctrl+f")
        self.main.wait_focus("text", "Keresés")
        keyboard.type_text(words)
        return self.found

    @property
    def found(self):
        """How many rows were found, and which one is in view."""
        parts = [part.name for part in self.main.walk() if part.role == "label" and part.is_showing]
        return next((name for name in parts if name == "nincs találat" or ". találat, összesen " in name), "")

    def test_the_last_oil_change_is_found_and_chosen(self):
        row = max(number for number, cells in enumerate(self.list.rows()) if cells[OIL] == "X")
        self.tab_to("Liter")
        self.find("olajcsere")
        wait_for(lambda: self.found.startswith("1. találat, összesen "), "the last oil change")
        self.assertEqual(self.km(), "")
        self.assertIsNone(self.list.selected_row())
        keyboard.press("Down")
        self.main.wait_focus("table", "Napló")
        keyboard.press("Return")
        wait_for(lambda: self.list.selected_row() == row, "the last oil change chosen")
        self.assertEqual(self.km(), self.list.cell(row, KM).name)

    def test_a_note_is_found_by_its_word_and_escape_goes_back(self):
        self.tab_to("Liter")
        self.find("matrica")
        wait_for(lambda: self.found.startswith("1. találat, összesen 3: "), "the newest of three")
        newest = self.found
        keyboard.press("Return", "F3")
        wait_for(lambda: self.found.startswith("3. találat"), "the oldest")
        keyboard.press("shift+Return", "shift+F3")
        wait_for(lambda: self.found == newest, "the newest again")
        keyboard.type_text("xx")
        wait_for(lambda: self.found == "nincs találat", "that nothing is found")
        keyboard.press("Escape")
        self.main.wait_focus("text", "Liter")
        self.assertIsNone(self.list.selected_row())

    def test_alt_g_always_means_the_chart_and_arrows_take_the_first_option(self):
        for _ in range(2):
            keyboard.press("alt+g")
            chooser = self.program.window("Grafikon választás")
            chooser.wait_focus("radio button")
            keyboard.press("Down", "Up")
            first = chooser.wait_focus("radio button", "Pillanatnyi átlagfogyasztások")
            wait_for(lambda: first.is_checked, "the first option checked")
            keyboard.press("Return")
            self.program.wait_closed("Grafikon választás")
            self.main.part("chart")
            keyboard.press("alt+g")
            wait_for(lambda: not self.main.has("chart"), "the chart to go")

    def test_f10_opens_the_menu_and_reaches_the_tyres(self):
        keyboard.press("F10")
        wait_for(lambda: self.main.part("menu item", "Kilépés").is_focused, "the first item")
        keyboard.press("Right", "Right", "Return")
        self.answer("Gumi", "Escape")
        self.main.wait_focus("text", "Km óra állás")

    def test_the_list_is_printed(self):
        keyboard.press("alt+o")
        heading = self.program.window("Listamező nyomtatása")
        heading.wait_focus("text")
        keyboard.type_text("Napló")
        keyboard.press("Return")
        self.answer("Listamező nyomtatása", "Return")
        files = self.program.window("Mentés PDF-fájlba")
        files.wait_focus("text")
        keyboard.press("ctrl+a")
        paper = self.program.folder / "lista.pdf"
        keyboard.type_text(str(paper))
        keyboard.press("Return")
        wait_for(paper.exists, "the printed list")

    def test_the_program_ends(self):
        keyboard.press("alt+k")
        self.wait_ready(" Kilépés ")
        keyboard.press("Return")
        self.assertEqual(self.program.wait_end(), 0)


if __name__ == "__main__":
    unittest.main()
