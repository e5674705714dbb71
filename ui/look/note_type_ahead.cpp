#include "ui/look/note_type_ahead.h"

#include <QComboBox>
#include <QFocusEvent>
#include <QInputMethodEvent>
#include <QKeyEvent>
#include <QLineEdit>

#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

// The character that an event types into the field; empty for all other events.
QString typedCharacter(QEvent* event) {
  if (event->type() == QEvent::InputMethod) return static_cast<QInputMethodEvent*>(event)->commitString();
  if (event->type() != QEvent::KeyPress) return {};
  const auto* key = static_cast<QKeyEvent*>(event);
  const bool isCommand = (key->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) == Qt::ControlModifier;
  return isCommand ? QString() : key->text();
}

}  // namespace

NoteTypeAhead::NoteTypeAhead(QComboBox* field, Finder find)
    : QObject(field), edit_(field->lineEdit()), find_(std::move(find)) {
  // The list owns the keyboard for its text field and hands events on behind the filters' back.
  field->installEventFilter(this);
  edit_->installEventFilter(this);
}

bool NoteTypeAhead::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusIn) selectWhole(static_cast<QFocusEvent*>(event)->reason());
  const QString key = typedCharacter(event);
  if (key.size() == 1 && key.front().isPrint() && complete(key)) return true;
  return QObject::eventFilter(watched, event);
}

void NoteTypeAhead::selectWhole(Qt::FocusReason reason) {
  if (reason == Qt::PopupFocusReason || reason == Qt::ActiveWindowFocusReason) return;
  if (isBlank(edit_->text())) edit_->setText(QStringLiteral("Tankolás"));
  edit_->selectAll();
  // The mouse press that brought the focus sets the cursor after this event.
  if (reason == Qt::MouseFocusReason)
    QMetaObject::invokeMethod(edit_, &QLineEdit::selectAll, Qt::QueuedConnection);
}

bool NoteTypeAhead::complete(const QString& key) {
  const qsizetype selected = edit_->selectedText().size();
  const qsizetype start = edit_->hasSelectedText() ? edit_->selectionStart() : edit_->cursorPosition();
  if (!isBlank(edit_->text().mid(start + selected))) return false;
  const auto found = find_(edit_->text().left(start), key);
  if (!found) return false;
  const QString note = toQt(found->note);
  const int typed = static_cast<int>(found->typedCharacters);
  edit_->setText(note);
  edit_->setSelection(typed, static_cast<int>(note.size()) - typed);
  return true;
}

}  // namespace tarvik::ui
