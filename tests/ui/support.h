#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <QWidget>
#include <functional>
#include <memory>

#include "core/posix_file_system.h"
#include "tests/support/fixed_clock.h"
#include "tests/support/temporary_folder.h"
#include "ui/context.h"

namespace tarvik::test {

/// A message box as a person saw it.
struct SeenBox {
  bool shown = false;
  QString title;
  QString text;
  QMessageBox::Icon icon = QMessageBox::NoIcon;
  QMessageBox::StandardButtons buttons;
  QMessageBox::StandardButton byDefault = QMessageBox::NoButton;
};

/// The message box that is open, if any.
inline QMessageBox* openBox() {
  auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  return box != nullptr && box->isVisible() ? box : nullptr;
}

/// Notes what an open box shows.
inline void look(const QMessageBox& box, SeenBox& seen) {
  auto* byDefault = box.defaultButton();
  seen = {.shown = true,
          .title = box.windowTitle(),
          .text = box.text(),
          .icon = box.icon(),
          .buttons = box.standardButtons(),
          .byDefault = byDefault == nullptr ? QMessageBox::NoButton : box.standardButton(byDefault)};
}

/// Answers the next message box and tells what it showed; meanwhile runs while it is open. The result is
/// kept as long as the box is waited for; several waits answer several boxes in turn.
[[nodiscard]] inline std::shared_ptr<SeenBox> answerNextBox(
    QMessageBox::StandardButton answer, const std::function<void()>& meanwhile = [] {}) {
  auto seen = std::make_shared<SeenBox>();
  auto* timer = new QTimer(qApp);
  QObject::connect(timer, &QTimer::timeout, timer, [timer, answer, meanwhile, kept = std::weak_ptr(seen)] {
    const std::shared_ptr<SeenBox> waiting = kept.lock();
    QMessageBox* box = waiting ? openBox() : nullptr;
    if (waiting && box == nullptr) return;
    timer->stop();
    timer->deleteLater();
    if (!waiting) return;
    look(*box, *waiting);
    meanwhile();
    box->button(answer)->click();
  });
  timer->start(0);
  return seen;
}

/// The screen's part of that name; null when it has none of that kind.
template <typename Widget>
Widget* part(const QWidget& screen, const char* name) {
  return screen.findChild<Widget*>(QString::fromUtf8(name));
}

/// What a screen needs around it: empty folders of its own, the real file system, a day that stands still.
struct Desk {
  TemporaryFolder program;
  TemporaryFolder current;
  core::PosixFileSystem files;
  FixedClock clock{{.year = 2013, .month = 7, .day = 5}};
  ui::Context context{files, {program.path(), current.path()}, clock, "1.0.0"};
};

}  // namespace tarvik::test
