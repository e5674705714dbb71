#include "ui/base/change.h"

#include <QWidget>

#include "ui/base/guarded.h"

namespace tarvik::ui {
namespace {

void tellFailedChange(QWidget* screen, const QString& failure, const Change& change) {
  if (change.forget) change.forget();
  const QString& state = quietly(change.list) ? change.listed : change.incomplete;
  tell(screen, state.isEmpty() ? failure : failure + QStringLiteral("\n\n") + state);
}

void tellRefusal(QWidget* screen, const Attempt& made) {
  tell(screen, made.text);
  if (screen == nullptr || made.field.isEmpty()) return;
  auto* field = screen->findChild<QWidget*>(made.field);
  if (field != nullptr && field->focusPolicy() != Qt::NoFocus) field->setFocus();
}

}  // namespace

bool carryOut(QWidget* screen, const Change& change) {
  const Attempt made = attempted(change.make);
  if (made.outcome == Outcome::Refused) tellRefusal(screen, made);
  if (made.outcome == Outcome::Failed) tellFailedChange(screen, made.text, change);
  if (!made.isDone()) return false;
  guarded(screen, change.list, {.failed = change.done + QLatin1Char(' ') + change.incomplete});
  return true;
}

}  // namespace tarvik::ui
