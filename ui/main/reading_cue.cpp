#include "ui/main/reading_cue.h"

#include <QAccessible>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QStyle>
#include <QStyleOptionGroupBox>
#include <QTimer>
#include <algorithm>

#include "ui/base/text.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/look.h"
#include "ui/look/look_painting.h"
#include "ui/main/list_cues.h"

namespace tarvik::ui {
namespace {

constexpr int kPauseMilliseconds = 1'000;

QString wordsOf(const core::ReadingDoubt& doubt) {
  const QString text = doubt.kind == core::ReadingDoubt::Kind::Less
                           ? QStringLiteral("Kevesebb, mint az előző állás: %1")
                           : QStringLiteral("Több mint 3 000 km az előző állás óta: %1");
  return text.arg(numberText(doubt.earlier));
}

// The line of a frame's title.
QRect titleLine(const QGroupBox& frame) {
  QStyleOptionGroupBox option;
  option.initFrom(&frame);
  option.text = frame.title();
  return frame.style()->subControlRect(QStyle::CC_GroupBox, &option, QStyle::SC_GroupBoxLabel, &frame);
}

}  // namespace

ReadingCue::ReadingCue(QLineEdit& field, QGroupBox& frame)
    : QObject(&field), field_(field), frame_(frame), cue_(*new QLabel(&frame)), pause_(*new QTimer(this)) {
  cue_.setObjectName(QStringLiteral("lbKmJelzes"));
  cue_.hide();
  standOut(cue_, true);
  pause_.setObjectName(QStringLiteral("pause"));
  pause_.setSingleShot(true);
  pause_.setInterval(kPauseMilliseconds);
  connect(&pause_, &QTimer::timeout, this, [this] { judge(); });
  connect(&field, &QLineEdit::textChanged, this, [this] { onTyped(); });
  field.installEventFilter(this);
  frame.installEventFilter(this);
}

void ReadingCue::setEarlier(const core::EarlierReadings& earlier) {
  earlier_ = earlier;
  field_.setPlaceholderText(earlier.last == 0 ? QString() : numberText(earlier.last));
  if (isTyped_) judge();
}

void ReadingCue::rest() {
  isTyped_ = false;
  pause_.stop();
  showDoubt({});
}

bool ReadingCue::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &field_ && event->type() == QEvent::FocusOut && pause_.isActive()) judge();
  if (watched == &frame_ && event->type() == QEvent::Resize) place();
  return QObject::eventFilter(watched, event);
}

void ReadingCue::onTyped() {
  isTyped_ = true;
  const std::string typed = toLogic(field_.text());
  if (!core::canStillBecomeSound(typed, earlier_)) return judge();
  showDoubt({});
  pause_.start();
}

void ReadingCue::judge() {
  pause_.stop();
  showDoubt(core::doubtOf(toLogic(field_.text()), earlier_));
}

void ReadingCue::showDoubt(const std::optional<core::ReadingDoubt>& doubt) {
  const QString words = doubt ? wordsOf(*doubt) : QString();
  if (words == cue_.text()) return;
  cue_.setText(words);
  cue_.setVisible(doubt.has_value());
  field_.setAccessibleDescription(words);
  if (!doubt) return;
  place();
  QAccessibleEvent heard(&cue_, QAccessible::Alert);
  QAccessible::updateAccessibility(&heard);
}

// On the line of the title, which has the room, so that nothing moves while a person types.
void ReadingCue::place() {
  const QRect line = titleLine(frame_);
  const int title = QFontMetrics(titleFont()).horizontalAdvance(frame_.title());
  const int left = line.left() + title + 2 * gridStep();
  const int width = std::min(cue_.sizeHint().width(), line.right() - left);
  cue_.setGeometry(left, line.top(), width, line.height());
}

}  // namespace tarvik::ui
