#include "ui/base/change.h"

#include "ui/base/guarded.h"

namespace tarvik::ui {
namespace {

void tellFailedChange(QWidget* screen, const QString& failure, const Change& change) {
  if (change.forget) change.forget();
  const QString& state = quietly(change.list) ? change.listed : change.incomplete;
  tell(screen, state.isEmpty() ? failure : failure + QStringLiteral("\n\n") + state);
}

}  // namespace

bool carryOut(QWidget* screen, const Change& change) {
  const Attempt made = attempted(change.make);
  if (made.outcome == Outcome::Refused) tell(screen, made.text);
  if (made.outcome == Outcome::Failed) tellFailedChange(screen, made.text, change);
  if (!made.isDone()) return false;
  guarded(screen, change.list, {.failed = change.done + QLatin1Char(' ') + change.incomplete});
  return true;
}

}  // namespace tarvik::ui
