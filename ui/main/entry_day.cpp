#include "ui/main/entry_day.h"

#include <QAccessible>
#include <QEvent>
#include <QLabel>
#include <QPushButton>
#include <QTimer>

#include "ui/base/text.h"
#include "ui/look/day_field.h"
#include "ui/main/list_cues.h"

namespace tarvik::ui {
namespace {

constexpr int kLookIntervalMilliseconds = 20'000;

void keepPlace(QWidget& part) {
  QSizePolicy policy = part.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  part.setSizePolicy(policy);
}

}  // namespace

EntryDay::EntryDay(const core::Clock& clock, DayField& field, QLabel& cue, QPushButton& back)
    : QObject(&field), clock_(clock), field_(field), cue_(cue), back_(back) {
  keepPlace(cue);
  keepPlace(back);
  standOut(cue, true);
  connect(&field, &DayField::touched, this, [this] { isSet_ = true; });
  connect(&field, &QDateEdit::dateChanged, this, [this] { onChanged(); });
  connect(&back, &QPushButton::clicked, this, [this] { goBack(); });
  auto* const midnight = new QTimer(this);
  midnight->setObjectName(QStringLiteral("midnight"));
  connect(midnight, &QTimer::timeout, this, [this] { follow(); });
  midnight->start(kLookIntervalMilliseconds);
  field.installEventFilter(this);
}

void EntryDay::showToday() {
  show(clock_.today());
  isSet_ = false;
}

void EntryDay::show(core::Day day) {
  field_.setDate(toQt(day));
  isSet_ = true;
  showCue();
}

void EntryDay::follow() {
  isSet_ ? showCue() : showToday();
}

// A computer that slept wakes with its window in front as a rule.
bool EntryDay::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::WindowActivate) follow();
  return QObject::eventFilter(watched, event);
}

void EntryDay::onChanged() {
  isSet_ = true;
  showCue();
}

// The button goes where it has done its work; what it was pressed for goes on in the field.
void EntryDay::goBack() {
  if (back_.hasFocus()) field_.setFocus(Qt::TabFocusReason);
  showToday();
}

void EntryDay::showCue() {
  const bool isOther = toLogic(field_.date()) != clock_.today();
  if (isOther != cue_.isHidden()) return;
  cue_.setVisible(isOther);
  back_.setVisible(isOther);
  if (!isOther) return;
  QAccessibleEvent heard(&cue_, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

}  // namespace tarvik::ui
