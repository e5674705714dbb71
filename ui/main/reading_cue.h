#pragma once

#include <QObject>

#include "core/reading.h"

class QGroupBox;
class QLabel;
class QLineEdit;
class QTimer;

namespace tarvik::ui {

/// What the odometer's field says of what is typed into it: empty, it shows the last reading as its hint; a
/// reading that may be a slip gets a cue in words beside the title of its frame. While further digits can
/// still mend it, the cue waits until the person pauses or goes on. Nothing is ever refused.
class ReadingCue : public QObject {
 public:
  /// Belongs to the field, as its cue belongs to the frame around it.
  ReadingCue(QLineEdit& field, QGroupBox& frame);

  /// The readings that what is typed from now on may follow.
  void setEarlier(const core::EarlierReadings& earlier);
  /// What stands in the field was put there and not typed.
  void rest();

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void onTyped();
  void judge();
  void showDoubt(const std::optional<core::ReadingDoubt>& doubt);
  void place();

  QLineEdit& field_;
  QGroupBox& frame_;
  QLabel& cue_;
  QTimer& pause_;
  core::EarlierReadings earlier_;
  bool isTyped_ = false;
};

}  // namespace tarvik::ui
