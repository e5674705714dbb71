#include "ui/look/day_field.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <QScopedValueRollback>
#include <QStyleOption>
#include <algorithm>

#include "ui/base/text.h"
#include "ui/look/day_accessible.h"
#include "ui/look/day_keys.h"
#include "ui/look/day_text.h"

namespace tarvik::ui {
namespace {

using core::DayPart;

constexpr int kRoomForCursor = 2;

}  // namespace

// Qt knows a day by its sections and takes each key for one of them alone: it is left out of what
// happens to the text, and told of the cursor in a text that is finished.
DayField::DayField(QWidget* parent) : QDateEdit(parent) {
  letAssistiveToolsIn(*this);
  setDisplayFormat(formatOf(last_));
  setCalendarPopup(true);
  setDateRange(toQt(core::kFirstDay), toQt(core::kLastDay));
  lineEdit()->disconnect(this);
  lineEdit()->installEventFilter(this);
  connect(lineEdit(), &QLineEdit::textChanged, this, &DayField::onEdited);
  connect(lineEdit(), &QLineEdit::cursorPositionChanged, this, &DayField::onCursorMoved);
  connect(lineEdit(), &QLineEdit::selectionChanged, this, &DayField::onMoved);
  connect(this, &QDateEdit::dateChanged, this, [this] {
    if (!keepsText_) forget();
  });
}

void DayField::showUpTo(DayPart last) {
  settle();
  last_ = last;
  setDisplayFormat(formatOf(last));
  select(DayPart::Year);
  updateGeometry();
}

void DayField::stepBy(int steps) {
  step(currentPart(), steps);
}

void DayField::step(DayPart part, int steps) {
  settle();
  emit touched();
  setDate(toQt(core::stepped(toLogic(date()), part, steps)));
  select(part);
}

bool DayField::takeBack() {
  if (!entered_ || lineEdit()->text() == joined(shownParts(*entered_, last_), last_).text) return false;
  const DayPart part = typing_ ? typing_->first : currentPart();
  forget();
  setDate(toQt(*entered_));
  select(part);
  return true;
}

void DayField::keep() {
  if (entered_) entered_ = toLogic(date());
}

QSize DayField::sizeHint() const {
  QStyleOptionSpinBox option;
  initStyleOption(&option);
  const int width = fontMetrics().horizontalAdvance(widestText(last_) + QLatin1Char(' ')) + kRoomForCursor;
  return style()->sizeFromContents(QStyle::CT_SpinBox, &option, {width, lineEdit()->sizeHint().height()},
                                   this);
}

// A click comes into the field anew, unless it goes to a letter of what is being mended.
bool DayField::eventFilter(QObject* watched, QEvent* event) {
  if (watched == lineEdit() && event->type() == QEvent::MouseButtonPress && (typing_ || !base_)) settle();
  return QDateEdit::eventFilter(watched, event);
}

bool DayField::event(QEvent* event) {
  if (event->type() == QEvent::InputMethod) {
    const QString text = static_cast<QInputMethodEvent*>(event)->commitString();
    if (!text.isEmpty() && type(text)) return true;
  }
  const bool isDone = QDateEdit::event(event);
  if (event->type() == QEvent::ShortcutOverride && mayRunCommand(*static_cast<QKeyEvent*>(event))) settle();
  return isDone;
}

// The same day may have been set again from outside, which takes away what was typed and says nothing.
void DayField::keyPressEvent(QKeyEvent* event) {
  if (typing_ && lineEdit()->text() != shown_) forget();
  if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
    settle();
    event->ignore();
    return;
  }
  if (takesKey(*event)) return event->accept();
  QAbstractSpinBox::keyPressEvent(event);
}

void DayField::focusInEvent(QFocusEvent* event) {
  QAbstractSpinBox::focusInEvent(event);
  const Qt::FocusReason reason = event->reason();
  if (!entered_) entered_ = toLogic(date());
  if (reason == Qt::MouseFocusReason || reason == Qt::PopupFocusReason ||
      reason == Qt::ActiveWindowFocusReason)
    return;
  select(reason == Qt::BacktabFocusReason ? last_ : DayPart::Year);
}

// The field's own menu may paste into what is typed.
void DayField::focusOutEvent(QFocusEvent* event) {
  const bool isMenu = event->reason() == Qt::PopupFocusReason;
  if (!isMenu) settle();
  if (!isMenu && event->reason() != Qt::ActiveWindowFocusReason) entered_.reset();
  const QScopedValueRollback keeps(keepsText_, isMenu);
  QDateEdit::focusOutEvent(event);
}

void DayField::mousePressEvent(QMouseEvent* event) {
  settle();
  emit touched();
  QDateEdit::mousePressEvent(event);
}

bool DayField::focusNextPrevChild(bool next) {
  return goOn(next ? 1 : -1) || QAbstractSpinBox::focusNextPrevChild(next);
}

// Every key may stand in the field, so that nothing that was typed is swallowed in silence. A pasted day
// takes the place of the whole text, wherever it was pasted.
QValidator::State DayField::validate(QString& input, int& cursor) const {
  const auto pasted = core::dayOfText(toLogic(input.mid(mark_, cursor - mark_)), shownDay(), DayPart::Day);
  if (!isOwn_ && pasted) {
    input = joined(shownParts(*pasted, last_), last_).text;
    cursor = static_cast<int>(input.size());
  }
  return QValidator::Acceptable;
}

// What is typed is the value at once.
QDateTime DayField::dateTimeFromText(const QString&) const {
  return dateTime();
}

QString DayField::textFromDateTime(const QDateTime& value) const {
  return keepsText_ ? lineEdit()->text() : joined(shownParts(toLogic(value.date()), last_), last_).text;
}

// Shows the value: what was typed if it is a day, else the one that stood there before.
void DayField::tidy() {
  if (!base_) return;
  const DayPart part = currentPart();
  typing_.reset();
  base_.reset();
  select(part);
}

void DayField::settle() {
  tidy();
  before_.reset();
}

void DayField::forget() {
  typing_.reset();
  base_.reset();
  before_.reset();
}

bool DayField::takesKey(const QKeyEvent& event) {
  if (isTyped(event)) return type(event.text());
  if (event.modifiers() & ~Qt::KeypadModifier) return false;
  switch (event.key()) {
    case Qt::Key_Left:
      return moveByArrow(-1);
    case Qt::Key_Right:
      return moveByArrow(1);
    case Qt::Key_Backspace:
      return rubOut();
    case Qt::Key_Delete:
      return !typing_ && rubOut();
    default:
      return false;
  }
}

bool DayField::type(const QString& keys) {
  if (!typing_) {
    if (base_ && endsPart(keys) && goOn(1)) return true;
    const auto typing = begun();
    if (!typing) return false;
    if (endsPart(keys)) return true;
    begin(*typing);
  }
  if (typing_->keys.isEmpty() && endsPart(keys)) return true;
  typing_->keys += keys;
  showTyping();
  return true;
}

bool DayField::rubOut() {
  if (typing_) {
    typing_->keys.chop(1);
  } else {
    const auto typing = begun();
    if (!typing || !lineEdit()->hasSelectedText()) return false;
    begin(*typing);
  }
  showTyping();
  return true;
}

bool DayField::moveByArrow(int step) {
  if (typing_) return goOn(step) || step == 1;
  const auto typing = begun();
  return typing && !typing->replacesAll && lineEdit()->hasSelectedText() && goOn(step);
}

// To the next or the last part; false = there is none to go to.
bool DayField::goOn(int step) {
  if (typing_ && step == 1 && openNextPart()) return true;
  if (typing_ && !typedParts()) return false;
  if (base_ && !meant()) return false;
  const int part = static_cast<int>(currentPart()) + step;
  if (part < 0 || part > static_cast<int>(last_)) return false;
  tidy();
  select(static_cast<DayPart>(part));
  return true;
}

// The keys of the parts stay together: they may turn out to be a whole day.
bool DayField::openNextPart() {
  auto parts = typedParts();
  if (!parts) parts = core::partsTyped(toLogic(typing_->keys), DayPart::Year, last_);
  if (!parts || parts->at == last_ || parts->text(parts->at).empty()) return false;
  typing_->keys += QLatin1Char('\t');
  showTyping();
  return true;
}

// What keys would be typed into now; nothing where they only change some letters of the text.
std::optional<DayField::Typing> DayField::begun() const {
  if (lineEdit()->text().isEmpty()) return Typing{.keys = {}, .replacesAll = true};
  if (base_) return std::nullopt;
  if (!lineEdit()->hasSelectedText()) return Typing{.keys = {}, .first = currentPart()};
  const int start = lineEdit()->selectionStart();
  const int length = lineEdit()->selectionLength();
  const DayText shown = joined(shownParts(shownDay(), last_), last_);
  const DayText::Span part = shown.span(currentPart());
  if (start == part.start && length == part.length) return Typing{.keys = {}, .first = currentPart()};
  const DayText::Span last = shown.span(last_);
  const bool isAll = start == 0 && length >= last.start + last.length;
  return isAll ? std::optional(Typing{.keys = {}, .replacesAll = true}) : std::nullopt;
}

void DayField::begin(const Typing& typing) {
  remember();
  typing_ = typing;
}

void DayField::remember() {
  emit touched();
  if (!base_) base_ = toLogic(date());
  if (!before_) before_ = base_;
}

void DayField::showTyping() {
  const auto parts = typedParts();
  if (parts) {
    std::array<QString, 3> texts = partsWith(*parts, shownDay(), last_);
    const auto at = static_cast<std::size_t>(parts->at);
    if (typing_->keys.isEmpty()) texts[at].clear();
    const DayText shown = joined(texts, last_);
    const auto [start, length] = shown.spans[at];
    const bool isNext = parts->texts[at].empty();
    put(shown.text, isNext ? start : start + length, isNext ? length : 0);
  } else {
    QString keys = typing_->keys;
    put(keys.replace(QLatin1Char('\t'), QLatin1Char(' ')), static_cast<int>(keys.size()), 0);
  }
  take(meant());
}

void DayField::put(const QString& text, int start, int length) {
  const QScopedValueRollback own(isOwn_, true);
  if (lineEdit()->text() != text) lineEdit()->setText(text);
  lineEdit()->setSelection(start, length);
  shown_ = text;
}

void DayField::select(DayPart part) {
  const DayText shown = joined(shownParts(toLogic(date()), last_), last_);
  const auto [start, length] = shown.span(part);
  put(shown.text, start, hasFocus() ? length : 0);
}

// No day is the one that stood there before.
void DayField::take(std::optional<core::Day> day) {
  const QScopedValueRollback taking(keepsText_, true);
  setDate(toQt(day.value_or(*before_)));
}

// Digits were taken out, something was pasted, an assistive tool wrote into the field.
void DayField::onEdited() {
  if (isOwn_) return;
  typing_.reset();
  remember();
  take(meant());
}

void DayField::onMoved() {
  mark_ = lineEdit()->hasSelectedText() ? lineEdit()->selectionStart() : lineEdit()->cursorPosition();
  if (isOwn_) return;
  if (typing_ && lineEdit()->text() == textFromDateTime(dateTime())) base_.reset();
  typing_.reset();
}

void DayField::onCursorMoved(int from, int to) {
  onMoved();
  if (base_) return;
  const QScopedValueRollback own(isOwn_, true);
  QMetaObject::invokeMethod(this, "_q_editorCursorPositionChanged", Q_ARG(int, from), Q_ARG(int, to));
}

core::Day DayField::shownDay() const {
  return base_ ? *base_ : toLogic(date());
}

DayPart DayField::currentPart() const {
  if (const auto parts = typing_ ? typedParts() : std::nullopt) return parts->at;
  const QLineEdit& field = *lineEdit();
  const int cursor = field.hasSelectedText() ? field.selectionStart() : field.cursorPosition();
  const auto points = field.text().left(cursor).count(QLatin1Char('.'));
  return std::min(static_cast<DayPart>(points), last_);
}

// Nothing where the keys do not fit the parts: they are then read as a whole.
std::optional<core::TypedParts> DayField::typedParts() const {
  if (typing_->replacesAll) return std::nullopt;
  return core::partsTyped(toLogic(typing_->keys), typing_->first, last_);
}

std::optional<core::Day> DayField::meant() const {
  if (!typing_) return core::dayOfText(toLogic(lineEdit()->text()), shownDay(), last_);
  if (const auto parts = typedParts()) {
    if (typing_->keys.isEmpty()) return std::nullopt;
    return core::dayOfParts(*parts, shownDay(), last_);
  }
  return core::dayOfText(toLogic(typing_->keys), shownDay(), last_);
}

}  // namespace tarvik::ui
