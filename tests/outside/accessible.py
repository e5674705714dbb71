"""The parts of a program's windows as an assistive tool sees them."""

import os
import pathlib
import sys
import time

from desktop import Desktop

Desktop.get()  # the library below looks for its bus when it is loaded

import pyatspi  # noqa: E402
from gi.repository import Atspi, GLib  # noqa: E402

LIMIT_SECONDS = 60
_PICTURE = pathlib.Path(os.environ["TARVIK_PICTURES"]) / f"{pathlib.Path(sys.argv[0]).stem}.png"
_PAUSE_MILLISECONDS = 20
_ANSWER_MILLISECONDS = 10000
_PRESS_MILLISECONDS = 200
Atspi.set_timeout(_ANSWER_MILLISECONDS, _ANSWER_MILLISECONDS)


def _turn(milliseconds):
    """Serves the accessibility bus until something came or the time is over."""
    context = GLib.MainContext.default()
    timer = GLib.timeout_add(milliseconds, lambda: GLib.SOURCE_CONTINUE)
    context.iteration(True)
    GLib.source_remove(timer)


def wait_for(condition, what, limit=LIMIT_SECONDS):
    """Waits until `condition()` gives something true and returns it; what is not there yet may raise.

    When it waited in vain, a picture of the display stays in the build folder.
    """
    deadline = time.monotonic() + limit
    problem = None
    while time.monotonic() < deadline:
        try:
            found = condition()
            if found:
                return found
        except (LookupError, GLib.Error, FileNotFoundError) as error:
            problem = error
        _turn(_PAUSE_MILLISECONDS)
    Desktop.get().photograph(_PICTURE)
    raise AssertionError(f"waited {limit} s in vain for {what} ({problem})")


class Heard:
    """Collects events such as "object:property-change:accessible-name" while a `with` lasts."""

    def __init__(self, *kinds):
        self._kinds = kinds
        self.events = []

    def __enter__(self):
        pyatspi.Registry.registerEventListener(self._hear, *self._kinds)
        return self

    def __exit__(self, *_):
        pyatspi.Registry.deregisterEventListener(self._hear, *self._kinds)

    def _hear(self, event):
        self.events.append((event.type, Part(event.source), event.any_data))

    def wait(self, condition, what):
        """Waits for an event for which `condition(kind, part, data)` holds."""
        return wait_for(lambda: [e for e in self.events if condition(*e)], what)


class Part:
    """A window, a control or a cell."""

    def __init__(self, accessible):
        self._it = accessible

    @staticmethod
    def applications():
        """The programs on the bus, always asked anew for what they show."""
        programs = [child for child in pyatspi.Registry.getDesktop(0) if child is not None]
        for program in programs:
            program.set_cache_mask(Atspi.Cache.NONE)
        return [Part(program) for program in programs]

    def __repr__(self):
        return f"{self.role} {self.name!r}"

    # What it is.

    @property
    def name(self):
        return self._it.get_name()

    @property
    def description(self):
        return self._it.get_description()

    @property
    def role(self):
        return self._it.get_role_name()

    @property
    def process_id(self):
        return self._it.get_process_id()

    @property
    def text(self):
        """What stands in a field."""
        content = self._it.queryText()
        return content.getText(0, content.characterCount)

    def _is(self, state):
        return self._it.get_state_set().contains(state)

    @property
    def is_showing(self):
        return self._is(pyatspi.STATE_SHOWING)

    @property
    def is_enabled(self):
        return self._is(pyatspi.STATE_ENABLED)

    @property
    def is_checked(self):
        return self._is(pyatspi.STATE_CHECKED)

    @property
    def is_focused(self):
        return self._is(pyatspi.STATE_FOCUSED)

    @property
    def is_selected(self):
        return self._is(pyatspi.STATE_SELECTED)

    @property
    def is_read_only(self):
        return not self._is(pyatspi.STATE_EDITABLE)

    @property
    def offers_editing(self):
        """Whether a tool may put another text into it."""
        return "EditableText" in self._it.get_interfaces()

    @property
    def labels(self):
        """The names of the parts that label this one."""
        relations = [r for r in self._it.get_relation_set()
                     if r.get_relation_type() == pyatspi.RELATION_LABELLED_BY]
        return [r.get_target(i).get_name() for r in relations for i in range(r.get_n_targets())]

    @property
    def caption(self):
        """The name of the label that belongs to this part; None without one."""
        for relation in self._it.get_relation_set():
            if relation.get_relation_type() == pyatspi.RELATION_LABELLED_BY:
                for number in range(relation.get_n_targets()):
                    if relation.get_target(number).get_role_name() == "label":
                        return relation.get_target(number).get_name()
        return None

    @property
    def extents(self):
        """x, y, width and height on the display."""
        box = self._it.queryComponent().getExtents(pyatspi.DESKTOP_COORDS)
        return box.x, box.y, box.width, box.height

    # What is in it.

    def children(self):
        return [Part(child) for child in self._it if child is not None]

    def walk(self):
        """This part and all below it, in order, but for what is in a list."""
        yield self
        if self.role not in ("table", "list"):
            for child in self.children():
                yield from child.walk()

    def _is_called(self, name):
        return name is None or name == self.name or name in self.labels

    def _found(self, role, name):
        for part in self.walk():
            if part.role == role and part._is_called(name) and part.is_showing:
                return part
        raise LookupError(f"{role} {name!r} in {self!r}")

    def focus(self):
        """The innermost part that has the focus."""
        focused = [part for part in self.walk() if part.is_focused]
        return focused[-1] if focused else None

    def wait_focus(self, role, name=None):
        """Waits until a part of this role, name or label has the focus."""

        def is_there():
            part = self.focus()
            return part if part and part.role == role and part._is_called(name) else None

        return wait_for(is_there, f"the focus on {role} {name!r}, which is on {self.focus()!r}")

    def rows(self):
        """The texts of a list, a list of cells a row."""
        columns = range(self._it.queryTable().nColumns)
        return [[self.cell(row, column).name for column in columns] for row in range(self.row_count())]

    def row_count(self):
        return self._it.queryTable().nRows

    def selected_row(self):
        """The number of the highlighted row, the first being 0; None when there is none."""
        rows = self._it.queryTable().getSelectedRows()
        return rows[0] if rows else None

    def select_row(self, row):
        """Highlights a row, as an assistive tool does."""
        self._it.queryTable().addRowSelection(row)

    def cell(self, row, column):
        """A cell of a list, the first row and column being 0."""
        cell = self._it.queryTable().getAccessibleAt(row, column)
        if cell is None:
            raise LookupError(f"no cell {row}, {column} in {self!r}")
        return Part(cell)

    def part(self, role, name=None):
        """Waits for the part of this role, and of this name or label, that is shown."""
        return wait_for(lambda: self._found(role, name), f"{role} {name!r} in {self!r}")

    def has(self, role, name=None):
        """Whether such a part is shown now."""
        try:
            return bool(self._found(role, name))
        except (LookupError, GLib.Error):
            return False

    # What can be done with it.

    def actions(self):
        can = self._it.queryAction()
        return [can.getName(i) for i in range(can.nActions)]

    def press(self, action=None):
        """Does its first action, or the one named.

        One that opens a question answers only after the question, so nobody waits for it; what comes of
        the action is to be waited for.
        """
        can = self._it.queryAction()
        number = self.actions().index(action) if action else 0
        Atspi.set_timeout(_PRESS_MILLISECONDS, _PRESS_MILLISECONDS)
        try:
            can.doAction(number)
        except GLib.Error:
            pass
        finally:
            Atspi.set_timeout(_ANSWER_MILLISECONDS, _ANSWER_MILLISECONDS)

    def enter(self, text):
        """Puts a text into a field."""
        self._it.queryEditableText().setTextContents(text)

    def take_focus(self):
        self._it.queryComponent().grabFocus()
