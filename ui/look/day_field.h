#pragma once

#include <QDateEdit>
#include <optional>

#include "core/typed_day.h"

namespace tarvik::ui {

/// A field for a day, with a calendar. A day is typed as a whole from any of its parts, or part by part with
/// Tab, arrows, points or spaces between, or pasted; `core/typed_day.h` says what is one. While it is typed
/// the value is the day that the keys mean, or the one that stood there before; that one stands there again
/// when the field is left, Enter or a mnemonic is pressed and the keys mean none. Arrows up and down step the
/// part under the cursor. Assistive tools raise and lower the last shown part.
class DayField : public QDateEdit {
  Q_OBJECT

 public:
  /// Holds every day that a file can hold.
  explicit DayField(QWidget* parent = nullptr);

  /// Shows the parts up to this one alone: "2013", "2013. június" or "2013.06.21.". The value stays a day.
  void showUpTo(core::DayPart last);
  core::DayPart lastShown() const { return last_; }

  void stepBy(int steps) override;
  /// Steps one part, whatever is under the cursor.
  void step(core::DayPart part, int steps);
  /// Brings back the day that stood there when the keyboard came; false = there is nothing else in the field.
  bool takeBack();
  /// From now on the day that stands in the field is the one that is brought back.
  void keep();

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }
  bool eventFilter(QObject* watched, QEvent* event) override;

 signals:
  /// A person types or pastes, steps, opens the calendar, whether another day comes of it or not.
  void touched();

 protected:
  bool event(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  bool focusNextPrevChild(bool next) override;
  StepEnabled stepEnabled() const override { return StepUpEnabled | StepDownEnabled; }
  QValidator::State validate(QString& input, int& cursor) const override;
  QDateTime dateTimeFromText(const QString& text) const override;
  QString textFromDateTime(const QDateTime& value) const override;

 private:
  // Keys that followed each other without anything between.
  struct Typing {
    QString keys;
    core::DayPart first = core::DayPart::Year;  // the part that they were typed into
    bool replacesAll = false;                   // nothing of what stood there stays
  };

  void settle();
  void tidy();
  void forget();
  void remember();
  bool takesKey(const QKeyEvent& event);
  bool type(const QString& keys);
  bool rubOut();
  bool moveByArrow(int step);
  bool goOn(int step);
  bool openNextPart();
  std::optional<Typing> begun() const;
  void begin(const Typing& typing);
  void showTyping();
  void put(const QString& text, int start, int length);
  void select(core::DayPart part);
  void take(std::optional<core::Day> day);
  void onEdited();
  void onMoved();
  void onCursorMoved(int from, int to);
  core::Day shownDay() const;
  core::DayPart currentPart() const;
  std::optional<core::TypedParts> typedParts() const;
  std::optional<core::Day> meant() const;

  core::DayPart last_ = core::DayPart::Day;
  std::optional<core::Day> entered_;  // while the keyboard is here: the day that it came to
  std::optional<core::Day> before_;   // the day that stood there before anything was typed
  std::optional<core::Day> base_;     // while the text is not that of the value: the day that was shown last
  std::optional<Typing> typing_;      // none = the text is edited in another way
  QString shown_;
  int mark_ = 0;            // where the selection or the cursor was before an edit
  bool isOwn_ = false;      // the text is being set here
  bool keepsText_ = false;  // whatever the value is, the text stays as it was typed
};

}  // namespace tarvik::ui
