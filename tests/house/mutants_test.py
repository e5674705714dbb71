"""The changes that tools/mutants makes are those that it promises, at the places where they can be made."""

import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).resolve().parents[2] / "tools"))

from mutation import changes_of  # noqa: E402


def changed(text, path="core/x.cpp"):
    """The kinds and results of all changes of a text."""
    return [(change.kind, change.applied(text)) for change in changes_of(path, text)]


def results(text, kind, path="core/x.cpp"):
    return [result for found, result in changed(text, path) if found == kind]


class WithoutEffect(unittest.TestCase):

    def test_what_is_left_out_could_be_made(self):
        root = Path(__file__).resolve().parents[2]
        lines = (root / "tools/mutants_without_effect.txt").read_text(encoding="utf-8").splitlines()
        for line in lines:
            path = line.split(" | ")[0]
            if not line or line.startswith("#"):
                continue
            changes = changes_of(path, (root / path).read_text(encoding="utf-8"))
            self.assertTrue(any(change.key() == line for change in changes), line)


class Sources(unittest.TestCase):

    def test_comparisons_and_arithmetic_turn_into_their_neighbours(self):
        self.assertEqual(results("a == b", "comparison"), ["a != b"])
        self.assertEqual(results("a < b", "comparison"), ["a <= b"])
        self.assertEqual(results("a + b", "arithmetic"), ["a - b"])
        self.assertEqual(results("a += b;", "arithmetic"), ["a -= b;"])

    def test_angles_arrows_and_pointers_are_left_alone(self):
        for text in ("std::vector<int> a;", "a->b;", "out << b;", "const int* a;", "#include <QLabel>"):
            self.assertEqual([kind for kind, _ in changed(text) if kind in ("comparison", "arithmetic")], [], text)

    def test_conditions_are_joined_otherwise_negated_and_decided(self):
        self.assertEqual(results("a && b", "condition"), ["a || b"])
        self.assertEqual(results("return !a;", "condition"), ["return a;"])
        self.assertEqual(results("if (a(b)) c;", "condition"), ["if (!(a(b))) c;"])
        self.assertEqual(results("x = a ? b : c;", "condition"), ["x = a && false ? b : c;", "x = a || true ? b : c;"])

    def test_constants_become_the_next_one(self):
        self.assertEqual(results("x = 0;", "constant"), ["x = 1;"])
        self.assertEqual(results("x = 1;", "constant"), ["x = 0;"])
        self.assertEqual(results("x = 10'000;", "constant"), ["x = 10001;"])
        self.assertEqual(results("x = true;", "constant"), ["x = false;"])
        self.assertEqual(results("std::int16_t x2;", "constant"), [])

    def test_a_call_of_its_own_goes_whole(self):
        self.assertEqual(results("{ a->b(c(1)); d(); }", "removed call"), ["{ ; d(); }", "{ a->b(c(1)); ; }"])
        self.assertEqual(results("{ a(1).b(2); }", "removed call"), ["{ ; }"])
        self.assertEqual(results("if (x) a();", "removed call"), ["if (x) ;"])
        self.assertEqual(results("{ return a(); }", "removed call"), [])
        self.assertEqual(results("{ a.reserve(b.size()); }", "removed call"), [])
        self.assertEqual(results("{ int a = b(); }", "removed call"), [])

    def test_neighbouring_arguments_change_places(self):
        self.assertEqual(results("f(a, g(b, c));", "swapped arguments"), ["f(g(b, c), a);", "f(a, g(c, b));"])
        self.assertEqual(results("f(a, a);", "swapped arguments"), [])
        self.assertEqual(results("std::max(a, b); std::min<int>(a, b);", "swapped arguments"), [])
        self.assertEqual(results("__builtin_add_overflow(a, b, &c);", "swapped arguments"),
                         ["__builtin_add_overflow(a, &c, b);"])
        self.assertEqual(results("max(a, b, c);", "swapped arguments"), ["max(b, a, c);", "max(a, c, b);"])
        self.assertEqual(results("void f(int a, const T& b);", "swapped arguments"), [])

    def test_texts_get_longer_and_comments_stay(self):
        self.assertEqual(results('x = "a < b";', "text"), ['x = "a < bx";'])
        self.assertEqual(changed('// a == 1 "b"\n#include "c"'), [])

    def test_a_change_knows_its_line_and_is_named_without_it(self):
        change = changes_of("core/x.cpp", "\n\na == b")[0]
        self.assertEqual(str(change), "core/x.cpp:3: comparison: ==  ->  !=")
        self.assertEqual(change.key(), "core/x.cpp | comparison | == | != | a == b")


FORM = """<widget class="QLineEdit" name="a">
 <property name="toolTip"><string>Tip</string></property>
 <property name="visible"><bool>true</bool></property>
</widget>
<widget class="QLabel" name="b">
 <property name="text"><string>Caption</string></property>
 <property name="buddy"><cstring>a</cstring></property>
</widget>
<tabstop>a</tabstop>
<tabstop>c</tabstop>"""


class Forms(unittest.TestCase):

    def test_every_kind_of_property_changes(self):
        kinds = [kind for kind, _ in changed(FORM, "ui/x.ui")]
        self.assertEqual(
            sorted(kinds),
            sorted(["name", "tooltip", "visible", "enabled", "name", "caption", "label relation", "enabled", "visible",
                    "tab order"]))

    def test_captions_relations_and_tab_stops_change_as_said(self):
        self.assertIn("<string>Captionx</string>", results(FORM, "caption", "ui/x.ui")[0])
        self.assertNotIn("buddy", results(FORM, "label relation", "ui/x.ui")[0])
        self.assertRegex(results(FORM, "tab order", "ui/x.ui")[0], r"<tabstop>c</tabstop>\s+<tabstop>a</tabstop>")
        self.assertIn('name="ax"', results(FORM, "name", "ui/x.ui")[0])


if __name__ == "__main__":
    unittest.main()
