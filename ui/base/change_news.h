#pragma once

#include <QObject>

#include "core/history.h"

namespace tarvik::ui {

/// Tells all open screens what happened to the data elsewhere than in themselves.
class ChangeNews : public QObject {
  Q_OBJECT

 signals:
  /// Files were changed by undoing, redoing or taking a copy back: what shows them is to be read anew, and
  /// what came back to be brought in view.
  void travelled(const core::Travelled& travelled);
  /// There is another step to undo or redo than before.
  void stepsChanged();
};

/// The record of a file that came back, counted from 1; 0 where the file was not changed or nothing came back
/// into it.
int recordThatCameBack(const core::Travelled& travelled, const std::string& path);

/// Whether a file was changed.
bool concerns(const core::Travelled& travelled, const std::string& path);

}  // namespace tarvik::ui
