#pragma once

#include <QString>
#include <QTreeView>
#include <QWidget>
#include <functional>
#include <string>

#include "core/clock.h"
#include "core/machine_file_system.h"
#include "ui/base/context.h"
#include "ui/main/frmTarvik.h"
#include "ui/print/print_system.h"

namespace tarvik::bench {

/// A clock that stands still, so that the list's filter has the same entries in each run.
class StandingClock final : public core::Clock {
 public:
  explicit StandingClock(core::Day day) : day_(day) {}
  core::Day today() const override { return day_; }

 private:
  core::Day day_;
};

/// A printer that takes everything at once.
class QuickPrinter final : public ui::PdfPrintSystem {
 public:
  QString printer() override { return QStringLiteral("printer"); }
  QString send(const QString&, const QString&, const QString&) override { return {}; }
};

/// The main screen, shown over a folder with a logbook of that many entries and as many km reminders, on the
/// day of its last entry.
class Desk {
 public:
  Desk(const std::string& folder, int entries, int reminders);

  /// The screen's part of that name; ends the program when it has none.
  template <typename Widget>
  Widget* part(const char* name) {
    auto* widget = screen_.findChild<Widget*>(QString::fromUtf8(name));
    if (widget == nullptr) qFatal("no part %s", name);
    return widget;
  }
  QTreeView* list() { return part<QTreeView>("ListView1"); }
  void press(const char* button);
  /// A click of the mouse on a row that is in sight.
  void clickRow(int row);
  /// Lists by the mode 0 to 2: all, a year, a month.
  void filter(int mode);

  ui::frmTarvik& screen() { return screen_; }
  ui::Context& context() { return context_; }

 private:
  core::MachineFileSystem files_;
  StandingClock clock_;
  ui::Context context_;
  ui::frmTarvik screen_;
};

/// Handles what happens until the widget, or something in it, has been painted.
void untilPainted(QWidget* widget);

/// Does an act on the next dialog, once it is shown.
void onNextDialog(std::function<void(QWidget&)> act);

}  // namespace tarvik::bench
