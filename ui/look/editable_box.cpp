#include "ui/look/editable_box.h"

#include <QCompleter>
#include <QKeyEvent>
#include <QLineEdit>
#include <QSignalBlocker>
#include <algorithm>
#include <utility>

namespace tarvik::ui {
namespace {

// -1 for a key that goes to the item before, 1 for one that goes to the next, 0 for another key.
int stepOf(const QKeyEvent& event) {
  if ((event.modifiers() & ~Qt::KeypadModifier) != Qt::NoModifier) return 0;
  if (event.key() == Qt::Key_Up || event.key() == Qt::Key_PageUp) return -1;
  return event.key() == Qt::Key_Down || event.key() == Qt::Key_PageDown ? 1 : 0;
}

qsizetype spacesAtEnd(const QString& text) {
  const auto letter = std::find_if(text.crbegin(), text.crend(), [](QChar c) { return c != u' '; });
  return std::distance(text.crbegin(), letter);
}

}  // namespace

// A field without a completer would get one over all texts of the box, which is slower than the box itself.
EditableBox::EditableBox(QWidget* parent) : QComboBox(parent) {
  auto* field = new QLineEdit(this);
  field->setCompleter(new QCompleter(field));
  setLineEdit(field);
  setCompleter(nullptr);
  connect(field, &QLineEdit::textEdited, this, &EditableBox::followEdit);
  connect(field, &QLineEdit::textChanged, this, &EditableBox::followText);
  connect(field, &QLineEdit::cursorPositionChanged, this, &EditableBox::keepCursorFromPadding);
  connect(field, &QLineEdit::selectionChanged, this, &EditableBox::keepCursorFromPadding);
}

void EditableBox::keyPressEvent(QKeyEvent* event) {
  const int step = stepOf(*event);
  if (step == 0) return QComboBox::keyPressEvent(event);
  const int item = shownItem() + step;
  if (item < 0 || item >= count()) return;
  setCurrentIndex(item);
  emit activated(item);
}

// Of equal items the one that was chosen.
int EditableBox::shownItem() const {
  const QString shown = currentText().trimmed();
  if (shown.isEmpty()) return -1;
  if (itemText(currentIndex()).trimmed() == shown) return currentIndex();
  for (int item = 0; item < count(); ++item)
    if (itemText(item).trimmed() == shown) return item;
  return -1;
}

// The field is silent while the padding goes: the change is told once, by the field itself.
void EditableBox::followEdit(const QString& text) {
  isEdited_ = true;
  padding_ = std::min(padding_, spacesAtEnd(text));
  const qsizetype replaced = std::clamp<qsizetype>(text.size() - length_, 0, padding_);
  padding_ -= replaced;
  length_ = text.size() - replaced;
  if (replaced == 0) return;
  const QSignalBlocker silent(lineEdit());
  const int cursor = lineEdit()->cursorPosition();
  lineEdit()->setSelection(static_cast<int>(length_), static_cast<int>(replaced));
  lineEdit()->del();
  lineEdit()->setCursorPosition(cursor);
}

void EditableBox::followText(const QString& text) {
  if (std::exchange(isEdited_, false)) return;
  length_ = text.size();
  padding_ = spacesAtEnd(text);
  keepCursorFromPadding();
}

void EditableBox::keepCursorFromPadding() {
  const int behindLetters = static_cast<int>(length_ - padding_);
  if (padding_ == 0 || isEdited_ || lineEdit()->hasSelectedText()) return;
  lineEdit()->setCursorPosition(std::min(lineEdit()->cursorPosition(), behindLetters));
}

}  // namespace tarvik::ui
