#pragma once

#include <QObject>

#include "core/clock.h"

class QLabel;
class QPushButton;

namespace tarvik::ui {

class DayField;

/// The day of the next entry. It stays from one entry to the next; while it is not today a cue beside it says
/// so and a button leads back. While it is the day that was today and nobody set it, it goes on at midnight.
class EntryDay : public QObject {
 public:
  /// Belongs to the field; the cue and the button are hidden while the day is today.
  EntryDay(const core::Clock& clock, DayField& field, QLabel& cue, QPushButton& back);

  /// Shows today.
  void showToday();
  /// Shows an entry's day; it then stays, even where that is today.
  void show(core::Day day);
  /// Shows the new day where one has begun and nobody set another one.
  void follow();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void onChanged();
  void goBack();
  void showCue();

  const core::Clock& clock_;
  DayField& field_;
  QLabel& cue_;
  QPushButton& back_;
  bool isSet_ = false;  // by a person or an entry
};

}  // namespace tarvik::ui
