"""The whole use of the main screen by the actions of an assistive tool: no key is pressed, no mouse moved."""

import datetime
import unittest

from accessible import Heard, wait_for
from program import Program

KM, OIL = 1, 4


class Assistive(unittest.TestCase):

    def setUp(self):
        self.program = self.enterContext(Program(without_alerts=True))
        self.main = self.program.window("Tarvik - ")
        self.list = self.main.part("table", "Napló")
        self.entries = wait_for(self.list.row_count, "the logbook")

    def button(self, name):
        self.main.part("push button", name).press()

    def answer(self, title, answer):
        self.program.window(title).part("push button", answer).press()
        self.program.wait_closed(title)

    def km(self):
        return self.main.part("text", "Km óra állás").text

    def select(self, row):
        self.list.select_row(row)
        wait_for(lambda: self.list.selected_row() == row, f"row {row} highlighted")
        wait_for(lambda: self.km() == self.list.cell(row, KM).name, f"row {row} in the fields")

    def test_an_entry_is_recorded_modified_and_deleted(self):
        for name, text in {"Km óra állás": "280500", "Liter": "40,5", "Tankolt költség": "25000"}.items():
            self.main.part("text", name).enter(text)
        self.button("Rögzítés")
        self.answer(" Rögzítés ", "Igen")
        wait_for(lambda: self.list.row_count() == self.entries + 1, "the new row")
        today = datetime.date.today().strftime("%Y.%m.%d.")
        self.assertEqual(self.list.rows()[-1][:3], [today, "280500", "40,50"])

        self.select(self.entries)
        self.main.part("text", "Km óra állás").enter("280600")
        self.button("Módosítás")
        self.answer(" Módosítás ", "Igen")
        wait_for(lambda: self.list.cell(self.entries, KM).name == "280600", "the modified row")

        self.select(self.entries)
        self.button("Törlés")
        self.answer(" TÖRLÉS ", "Igen")
        wait_for(lambda: self.list.row_count() == self.entries, "the row to go")

    def test_a_pressed_cell_acts_as_a_click(self):
        self.select(10)
        self.list.cell(12, KM).press()
        wait_for(lambda: self.list.selected_row() == 12, "row 12 highlighted")
        wait_for(lambda: self.km() == self.list.cell(12, KM).name, "row 12 in the fields")

    def test_a_vehicle_is_chosen_and_the_list_filtered(self):
        self.main.part("combo box", "Rendszám").take_focus()
        self.main.part("text", "Rendszám").enter("ABC123")
        self.button("Lista")
        self.main.part("radio button", "Éves lista").press()
        self.main.part("spin button", "Listázandó   Év - Hónap").enter("2025.01.01.")
        self.button("Listázás")
        wait_for(lambda: self.list.row_count() and {row[0][:4] for row in self.list.rows()} == {"2025"},
                 "the entries of 2025 alone")

    def find(self, words, told):
        """Looks for words in the list and waits for what is told of it."""
        self.main.part("menu item", "Eszközök").press()
        self.main.part("menu item", "Keresés…").press()
        field = self.main.part("text", "Keresés")
        with Heard("object:property-change:accessible-name") as heard:
            field.enter(words)
            heard.wait(lambda kind, part, data: part.name.startswith(told), f"{told!r}")

    def test_the_last_oil_change_is_found(self):
        row = max(number for number, cells in enumerate(self.list.rows()) if cells[OIL] == "X")
        day = self.list.cell(row, 0).name
        changes = sum(cells[OIL] == "X" for cells in self.list.rows())
        self.find("olajcsere", f"1. találat, összesen {changes}: {day}, ")
        self.assertIsNone(self.list.selected_row())
        self.assertEqual(self.km(), "")
        self.select(row)

    def test_a_note_is_found_by_its_word(self):
        self.find("matrica", "1. találat, összesen 3: ")
        with Heard("object:property-change:accessible-name") as heard:
            self.button("Következő találat")
            heard.wait(lambda kind, part, data: part.name.startswith("2. találat, összesen 3: "), "the next")
        self.find("nincs ilyen", "nincs találat")
        self.button("Keresés bezárása")
        wait_for(lambda: not self.main.has("text", "Keresés"), "the search to go")

    def test_a_chart_is_shown_and_put_away(self):
        self.button("Grafikon megjelenítése")
        chooser = self.program.window("Grafikon választás")
        chooser.part("radio button", "Üzemanyag árak").press()
        news = ["object:property-change:accessible-name", "object:property-change:accessible-description"]
        with Heard(*news, "object:state-changed:selected") as heard:
            chooser.part("push button", "Megjelenít").press()
            for kind in news:
                heard.wait(lambda told, part, data: str(told).startswith(kind) and part.role == "chart", kind)
            chart = self.main.part("chart")
            self.assertTrue(chart.name.startswith("Üzemanyag árak"))
            point = chart.children()[1]
            point.press()
            heard.wait(lambda told, part, data: part.name == point.name, "the chosen point")
        self.button("Grafikon elrejtése")
        wait_for(lambda: not self.main.has("chart"), "the chart to go")

    def test_this_years_consumption_is_read_in_the_summary(self):
        self.main.part("menu item", "Eszközök").press()
        self.main.part("menu item", "Éves összesítő…").press()
        summary = self.program.window("Éves összesítő")
        newest = summary.part("table", "Éves összesítő").rows()[0]
        self.assertEqual(newest[0], self.list.rows()[-1][0][:4])
        self.assertRegex(newest[3], r"^\d,\d\d$")
        summary.part("menu item", "Bezár").press()
        self.program.wait_closed("Éves összesítő")

    def test_results_do_not_claim_to_be_editable(self):
        for name in ("Eddigi Költség", "Megtett út", "Átlag fogyasztás"):
            result = self.main.part("text", name)
            self.assertTrue(result.is_read_only, name)
            self.assertFalse(result.offers_editing, name)
            self.assertRegex(result.text, r"\d", name)
        self.assertTrue(self.main.part("text", "Liter").offers_editing)

    def test_a_doubtful_reading_is_told(self):
        field = self.main.part("text", "Km óra állás")
        with Heard("object:state-changed:showing") as heard:
            field.enter("5")
            heard.wait(lambda kind, part, data: part.name.startswith("Kevesebb, mint az előző állás") and
                       part.is_showing, "the cue")
        self.assertTrue(field.description.startswith("Kevesebb"))

    def test_the_print_command_asks_for_a_heading(self):
        self.main.part("menu item", "Nyomtatás").press()
        self.answer("Listamező nyomtatása", "Mégse")

    def test_the_program_ends(self):
        self.main.part("menu item", "Kilépés").press()
        self.program.window(" Kilépés ").part("push button", "Igen").press()
        self.assertEqual(self.program.wait_end(), 0)

    def test_changed_statistics_are_told(self):
        with Heard("object:property-change:accessible-name") as heard:
            self.select(self.entries - 1)
            for caption in ("Pillanatnyi átlag fogy.:", "Várható tankolás:", "Kilométer költség:"):
                heard.wait(lambda kind, part, data: caption in part.labels, f"a new value of {caption!r}")

    def test_a_figure_that_is_not_there_is_not_read_as_its_caption(self):
        figures = [part for part in self.main.walk() if part.role == "label" and part.caption]
        self.assertEqual([part.caption for part in figures],
                         ["Üzemanyag ár", "Pillanatnyi átlag fogy.:", "Várható tankolás:",
                          "Még megtehető km:", "Kilométer költség:"])
        self.assertEqual({part.name for part in figures}, {""})

    def test_the_price_is_told_while_it_is_typed(self):
        self.main.part("text", "Liter").enter("50")
        with Heard("object:property-change:accessible-name") as heard:
            self.main.part("text", "Tankolt költség").enter("30000")
            heard.wait(lambda kind, part, data: part.name == "600,00", "the price per litre")

    def test_a_day_is_raised_and_lowered_and_one_that_is_not_today_is_told(self):
        day = self.main.part("spin button", "Dátum")
        today = datetime.date.today()
        shown = lambda days: (today + datetime.timedelta(days)).strftime("%Y.%m.%d.")
        with Heard("object:state-changed:showing") as heard:
            day.press("Increase")
            wait_for(lambda: day.text == shown(1), "tomorrow")
            heard.wait(lambda kind, part, data: part.name == "Nem a mai nap!" and part.is_showing, "the cue")
        day.press("Decrease")
        day.press("Decrease")
        wait_for(lambda: day.text == shown(-1), "yesterday")
        self.button("Vissza a mai napra")
        wait_for(lambda: day.text == shown(0), "today")
        day.enter("2013. 6. 21.")
        wait_for(lambda: self.main.has("push button", "Vissza a mai napra"), "the way back")

    def test_a_reminder_that_is_past_is_told(self):
        self.button("Figyelmeztetés")
        screen = self.program.window("Figyelmeztetés Felvitele")
        fields = {"Km. óra állása:": "200000", "Hány km. után:": "1000", "Mire figyelmeztessen:": "Fékolaj"}
        for name, text in fields.items():
            screen.part("text", name).enter(text)
        reminders = screen.part("table")
        screen.part("push button", "Rögzítés").press()
        self.answer(" Rögzítés ", "Igen")
        wait_for(lambda: reminders.cell(0, 1).name == "Fékolaj", "the new reminder")
        with Heard("object:state-changed:showing", "object:property-change:accessible-name") as heard:
            reminders.select_row(0)
            heard.wait(lambda kind, part, data: part.name == "Volt az ideje!!!", "the reminder to be told")


if __name__ == "__main__":
    unittest.main()
