"""The small changes that tools/mutants makes: where one can be made in a source or a form, and which."""

import re
from dataclasses import dataclass


@dataclass(frozen=True)
class Change:
    """One change: the characters from start to end of a file become another text."""

    path: str
    line: int
    kind: str
    start: int
    end: int
    old: str
    new: str
    context: str  # the line in which it begins

    def applied(self, text):
        return text[: self.start] + self.new + text[self.end :]

    def key(self):
        """What names the change in the list of those that change nothing, whatever its line."""
        return " | ".join((self.path, self.kind, one_line(self.old), one_line(self.new), self.context))

    def __str__(self):
        return f"{self.path}:{self.line}: {self.kind}: {one_line(self.old)}  ->  {one_line(self.new) or 'nothing'}"


def one_line(text):
    return " ".join(text.split())


def changes_of(path, text):
    """All changes that can be made in a file, in the order of the file."""
    found = form_changes(text) if path.endswith(".ui") else source_changes(text)
    result = []
    for start, end, new, kind in sorted(found):
        line = text.count("\n", 0, start) + 1
        context = text.splitlines()[line - 1].strip()
        if ".reserve(" in context or "makeRoom(" in context:
            continue  # without room made for them a container grows as its values come
        result.append(Change(path, line, kind, start, end, text[start:end], new, context))
    return result


# Sources -------------------------------------------------------------------------------------------------

TOKEN = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"\((?:.*?)\)"|"(?:\\.|[^"\\\n])*"|(?<![0-9A-Za-z])\'(?:\\.|[^\'\\\n])\'|^[ \t]*#[^\n]*',
    re.S | re.M,
)
OPERATORS = {
    "comparison": {"==": "!=", "!=": "==", "<=": "<", ">=": ">", "<": "<=", ">": ">="},
    "condition": {"&&": "||", "||": "&&"},
    "arithmetic": {"+": "-", "-": "+", "*": "/", "/": "*", "+=": "-=", "-=": "+="},
}
OPERATOR = re.compile(r"(?<= )(==|!=|<=|>=|<|>|&&|\|\||\+=|-=|\+|-|\*|/)(?=\s)")
NUMBER = re.compile(r"(?<![\w.'])\d[\d']*(?![\w.'])")
WORD = re.compile(r"\b(true|false)\b")
NEGATION = re.compile(r"(?<=[\s(])!(?=[\w(])")
IF = re.compile(r"\b(?:if|while) \(")
TERNARY = re.compile(r"\s\?(?=\s)")
STATEMENT = re.compile(r"(?:(?<=[;{})])|\belse)\s+(?P<call>(?:emit )?[A-Za-z_][\w]*(?:(?:::|->|\.)[A-Za-z_]\w*)*\()")
CALL = re.compile(r"(?P<name>[A-Za-z_]\w*)(?:<[\w:]+>)?\(")
NO_CALLS = {"if", "for", "while", "switch", "return", "sizeof", "decltype", "catch", "static_assert", "alignof"}
# Whose two arguments may stand either way.
SYMMETRIC = {"max", "min", "qMax", "qMin", "hypot", "gcd", "checkedSum", "checkedProduct", "product", "areSame", "agree",
             "areUnits", "equal", "isEqual", "isUntouched", "equalInFront", "equalBehind", "greatestCommonDivisor",
             "commonDivisor", "checkedSum128"}
# Whose first two arguments may.
SYMMETRIC_FIRST = {"__builtin_add_overflow", "__builtin_mul_overflow", "clamp", "isProduct", "takeProductOf",
                   "isNear"}
DECLARATION = re.compile(r"^\s*(?:const\s+)?[\w:]+(?:<.*>)?(?:\s*[&*]+\s*|\s+)(?:const\s+)?\w*(?:\s*=.*)?$", re.S)


def source_changes(text):
    masked, texts = masked_source(text)
    found = [(start + 1, end - 1, changed_text(text[start + 1 : end - 1]), "text") for start, end in texts]
    for name, pairs in OPERATORS.items():
        for match in OPERATOR.finditer(masked):
            if match[1] in pairs:
                found.append((*match.span(1), pairs[match[1]], name))
    for match in NUMBER.finditer(masked):
        found.append((*match.span(), changed_number(match[0]), "constant"))
    for match in WORD.finditer(masked):
        found.append((*match.span(), "false" if match[1] == "true" else "true", "constant"))
    for match in NEGATION.finditer(masked):
        found.append((*match.span(), "", "condition"))
    for match in IF.finditer(masked):
        end = closing(masked, match.end() - 1)
        found.append((match.end(), end, f"!({text[match.end():end]})", "condition"))
    for match in TERNARY.finditer(masked):
        found.append((*match.span(), " && false ?", "condition"))
        found.append((*match.span(), " || true ?", "condition"))
    found += removed_calls(masked)
    found += swapped_arguments(masked, text)
    return found


def masked_source(text):
    """The source with comments, texts and directives blanked out, and where its texts stand."""
    texts = []

    def blank(match):
        token = match[0]
        if token.startswith('"'):
            texts.append(match.span())
        return "".join("\n" if character == "\n" else " " for character in token)

    return TOKEN.sub(blank, text), texts


def changed_text(text):
    return text + "x"


def changed_number(digits):
    value = int(digits.replace("'", ""))
    return str(1 - value if value < 2 else value + 1)


def closing(masked, opening):
    """Where the bracket that opens there is closed; -1 when it is not."""
    depth = 0
    for position in range(opening, len(masked)):
        if masked[position] in "([{":
            depth += 1
        elif masked[position] in ")]}":
            depth -= 1
            if depth == 0:
                return position
    return -1


def removed_calls(masked):
    found = []
    for match in STATEMENT.finditer(masked):
        start = match.start("call")
        if re.match(r"[A-Za-z_]+", match["call"])[0] in NO_CALLS:
            continue
        end = closing(masked, match.end("call") - 1)
        while end >= 0 and (link := re.match(r"\)\s*(?:\.|->)\w+\(", masked[end:])):
            end = closing(masked, end + link.end() - 1)
        if end >= 0 and masked[end + 1 : end + 2] == ";":
            found.append((start, end + 1, "", "removed call"))
    return found


def swapped_arguments(masked, text):
    found = []
    for match in CALL.finditer(masked):
        end = closing(masked, match.end() - 1)
        if match["name"] in NO_CALLS or end < 0:
            continue
        pieces = arguments(masked, match.end(), end)
        texts = [text[start:stop] for start, stop in pieces]
        if len(pieces) < 2 or any(is_no_value(piece) for piece in texts):
            continue
        if len(pieces) == 2 and match["name"] in SYMMETRIC:
            continue
        for (start, middle), (second, stop) in list(zip(pieces, pieces[1:]))[match["name"] in SYMMETRIC_FIRST :]:
            first_text, second_text = text[start:middle], text[second:stop]
            if first_text.strip() != second_text.strip():
                found.append((start, stop, second_text + text[middle:second] + first_text, "swapped arguments"))
    return found


def arguments(masked, start, end):
    """Where the arguments between two brackets stand, without the spaces around them."""
    pieces = []
    depth = 0
    begin = start
    for position in range(start, end + 1):
        character = masked[position]
        if position == end or (character == "," and depth == 0):
            piece = masked[begin:position]
            lead = len(piece) - len(piece.lstrip())
            pieces.append((begin + lead, position))
            begin = position + 1
        elif character in "([{":
            depth += 1
        elif character in ")]}":
            depth -= 1
    return pieces


def is_no_value(argument):
    plain = argument.strip()
    return not plain or ";" in plain or (" " in plain and DECLARATION.match(plain) is not None)


# Forms ---------------------------------------------------------------------------------------------------

WIDGET = re.compile(r'<widget class="(\w+)" name="([^"]+)">')
PROPERTY = re.compile(r'<property name="(\w+)"[^>]*>\s*<(string|bool|cstring|set|enum|number)\b[^>]*>([^<]*)</\2>\s*</property>', re.S)
TAB_STOPS = re.compile(r"<tabstop>([^<]+)</tabstop>\s*<tabstop>([^<]+)</tabstop>")
FORM_TEXTS = {
    "text": "caption",
    "title": "caption",
    "windowTitle": "caption",
    "toolTip": "tooltip",
    "accessibleName": "accessible name",
    "accessibleDescription": "accessible description",
    "placeholderText": "placeholder",
    "displayFormat": "date format",
}
HIDDEN_BY_NATURE = {"QWidget", "QMenuBar", "QMenu", "QDialog", "QMainWindow", "QStatusBar"}


def form_changes(text):
    found = []
    for match in PROPERTY.finditer(text):
        name, kind, value = match.groups()
        if name in FORM_TEXTS and kind == "string":
            found.append((*match.span(3), changed_text(value), FORM_TEXTS[name]))
        elif kind == "bool":
            found.append((*match.span(3), "false" if value == "true" else "true", name))
        elif name == "buddy":
            found.append((*match.span(), "", "label relation"))
        elif name == "alignment":
            found.append((*match.span(3), changed_alignment(value), "alignment"))
    for match in WIDGET.finditer(text):
        found.append((*match.span(2), match[2] + "x", "name"))
        if match[1] in HIDDEN_BY_NATURE:
            continue
        own = text[match.end() : next_widget(text, match.end())]
        for state in ("enabled", "visible"):
            if f'<property name="{state}">' not in own:
                added = f'<property name="{state}"><bool>false</bool></property>'
                found.append((match.end(), match.end(), added, state))
    for match in re.finditer(r"<tabstop>", text):
        pair = TAB_STOPS.match(text, match.start())
        if pair:
            swapped = f"<tabstop>{pair[2]}</tabstop>\n  <tabstop>{pair[1]}</tabstop>"
            found.append((*pair.span(), swapped, "tab order"))
    return found


def changed_alignment(value):
    return value.replace("AlignRight", "AlignLeft") if "AlignRight" in value else "Qt::AlignRight|Qt::AlignVCenter"


def next_widget(text, start):
    following = WIDGET.search(text, start)
    return following.start() if following else len(text)
