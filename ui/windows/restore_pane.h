#pragma once

#include <QWidget>
#include <vector>

#include "core/taking_back.h"
#include "ui/base/context.h"

class QListWidget;
class QPushButton;

namespace tarvik::ui {

/// The dated copies of all data: which there are, what of each differs from now, and the way back. A part of
/// the settings, and of a screen of its own.
class RestorePane : public QWidget {
  Q_OBJECT

 public:
  /// Reads nothing until it is shown. The context outlives it.
  RestorePane(Context& context, QWidget* parent);

 protected:
  void showEvent(QShowEvent* event) override;

 private:
  void build();
  void listSets();
  void compare();
  void addLine(const core::SetComparison& line);
  void enableButtons();
  const core::DatedSet* chosenSet() const;
  std::vector<core::SetFile> ticked() const;
  void lookAtLog();
  void takeBack();
  void tellTaken(const core::DatedSet& set, const core::TakenBack& taken);

  Context& context_;
  QListWidget* sets_;
  QListWidget* lines_;
  QPushButton* look_;
  QPushButton* take_;
  std::vector<core::DatedSet> found_;
  std::vector<core::SetComparison> compared_;
};

/// Opens the dated copies as a screen of their own.
void openRestoreScreen(Context& context, QWidget* parent);

}  // namespace tarvik::ui
