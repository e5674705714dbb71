"""The changes that the program offers, as a person makes them in its windows."""

import dataclasses

from accessible import wait_for

LOGBOOK = "KLM456/napiadat.dat"


@dataclasses.dataclass(frozen=True)
class Operation:
    """One of them: `screen(program)` opens and gives the window, `prepare(program, window)` fills and chooses,
    and pressing `button` and answering the question titled `question` changes `file`."""

    name: str
    file: str
    record_length: int
    screen: object
    prepare: object
    button: str
    question: str = None
    before: object = None  # what is made first, so that there is something to change
    in_place: bool = False  # a record is added behind the others and the file is not replaced

    def records(self, contents):
        """What counts of a file: a part of a record behind the last one does not, and where the system does
        not let it be cut off it stays."""
        return contents[:len(contents) // self.record_length * self.record_length]

    def act(self, program, window):
        """Makes the change; what comes of it is to be waited for."""
        if self.question is None:
            window.part("push button", self.button).press()
        else:
            program.window(self.question).part("push button", "Igen").press()

    def ask(self, program, window):
        """Does what comes before the change itself: everything up to its question."""

        def is_offered():
            self.prepare(program, window)  # again where a list was still being read anew
            return window.part("push button", self.button).is_enabled

        wait_for(is_offered, f"{self.button!r} to be offered")
        if self.question is not None:
            window.part("push button", self.button).press()
            program.window(self.question)


def main_screen(program):
    return program.window("Tarvik - ")


def _behind(title, opening):
    def screen(program):
        opening(main_screen(program))
        return program.window(title)
    return screen


def _by_menu(title, item):
    return _behind(title, lambda main: main.part("menu item", item).press())


SETTINGS = _by_menu("Beállítások", "Beállítások")
TYRES = _by_menu("Gumik", "Gumik")
REPAIRS = _by_menu("Javítások", "Javítások - Szervíz")
REMINDERS = _behind("Figyelmeztetés", lambda main: main.part("push button", "Figyelmeztetés").press())


def _tab(screen, name):
    def opened(program):
        window = screen(program)
        window.part("page tab", name).press()
        return window
    return opened


def _fill(**texts):
    def prepare(_, window):
        for label, text in texts.items():
            window.part("text", label.replace("_", " ")).enter(text)
    return prepare


def _choose(name, role="table"):
    def prepare(_, window):
        window.part(role, name).select_row(0)
    return prepare


def _then(*steps):
    def prepare(program, window):
        for step in steps:
            step(program, window)
    return prepare


_ENTRY = {"Km óra állás": "280500", "Liter": "40,5", "Tankolt költség": "25000"}
_TYRES = {"Gumi típusa": "Téli", "Max. km": "40000"}

_KM_REMINDER = Operation(
    "a km reminder is recorded", "figyel.dat", 68, REMINDERS,
    _fill(**{"Mire figyelmeztessen": "Olaj", "Km. óra állása": "1", "Hány km. után": "9999999"}),
    "Rögzítés", " Rögzítés ")
_DATE_REMINDER = Operation(
    "a date reminder is recorded", "figyDatum.dat", 68, _tab(REMINDERS, "Dátum"),
    _fill(**{"Mire figyelmeztessen": "Vizsga"}), "Rögzítés", " Rögzítés ")

OPERATIONS = [
    Operation("an entry is recorded", LOGBOOK, 156, main_screen, _fill(**_ENTRY), "Rögzítés", " Rögzítés ",
              in_place=True),
    Operation("an entry is modified", LOGBOOK, 156, main_screen,
              _then(_choose("Napló"), _fill(**{"Km óra állás": "1"})), "Módosítás", " Módosítás "),
    Operation("an entry is deleted", LOGBOOK, 156, main_screen, _choose("Napló"), "Törlés", " TÖRLÉS "),
    Operation("a part's name is added", "alkatr.dat", 50, main_screen,
              _fill(**{"Alkatrész megnevezése": "Qwx"}), "Felvesz: alkatrész a listába", " Rögzítés "),
    Operation("a note is added", "megjegyz.dat", 50, main_screen, _fill(Megjegyzés="Qwx"),
              "Felvesz: megjegyzés a listába", " Rögzítés "),
    Operation("a vehicle is added", "rendsz.dat", 10, SETTINGS,
              _fill(**{"Új rendszám": "NEW001", "Üzemanyag tank mérete literben": "40"}),
              "Felvesz: új gépkocsi",
              in_place=True),
    Operation("a vehicle is deleted", "rendsz.dat", 10, SETTINGS, _choose("Gépkocsik", "list"),
              "Töröl: a kijelölt rendszám"),
    Operation("a part's name is deleted", "alkatr.dat", 50, _tab(SETTINGS, "Listák"),
              _choose("Alkatrészek", "list"), "Törlés: a kijelölt alkatrész", " TÖRLÉS "),
    Operation("a note is deleted", "megjegyz.dat", 50, _tab(SETTINGS, "Listák"),
              _choose("Megjegyzések", "list"), "Törlés: a kijelölt megjegyzés", " TÖRLÉS "),
    Operation("tyres are recorded", "Gumik.dat", 71, TYRES, _fill(**_TYRES), "Új gumi Rögzítése", in_place=True),
    Operation("tyres are deleted", "Gumik.dat", 71, TYRES, _choose("Gumik"), "Törlése"),
    Operation("a repair is recorded", "Szerviz.dat", 186, REPAIRS, _fill(Megnevezés="Fék", Költség="1000"),
              "Rögzítés", in_place=True),
    Operation("a repair is deleted", "Szerviz.dat", 186, REPAIRS, _choose("Javítások, szervizek"), "Törlés"),
    _KM_REMINDER,
    Operation("a km reminder is deleted", "figyel.dat", 68, REMINDERS, _choose("Kilométerhez kötött figyelmeztetések"),
              "Törlés", " Törlés ", _KM_REMINDER),
    _DATE_REMINDER,
    Operation("a date reminder is deleted", "figyDatum.dat", 68, _tab(REMINDERS, "Dátum"),
              _choose("Dátumhoz kötött figyelmeztetések"), "Törlés", " Törlés ", _DATE_REMINDER),
]
