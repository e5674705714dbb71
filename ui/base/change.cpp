#include "ui/base/change.h"

#include "ui/base/guarded.h"

namespace tarvik::ui {
namespace {

void tellFailedChange(QWidget* screen, const QString& failure, const Change& change) {
  if (change.forget) change.forget();
  const bool isListed = quietly(change.list);
  tell(screen, isListed ? failure : failure + QStringLiteral("\n\n") + change.incomplete);
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
