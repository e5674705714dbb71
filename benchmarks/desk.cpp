#include "benchmarks/desk.h"

#include <QAbstractButton>
#include <QApplication>
#include <QMouseEvent>
#include <QRadioButton>
#include <QTimer>

#include "benchmarks/logbook.h"
#include "core/day.h"

namespace tarvik::bench {
namespace {

// Sees the paint events of a widget and of all that is in it.
class PaintWatch final : public QObject {
 public:
  explicit PaintWatch(QWidget* watched) : watched_(watched) { qApp->installEventFilter(this); }

  bool painted() const { return painted_; }
  bool eventFilter(QObject* object, QEvent* event) override {
    if (event->type() != QEvent::Paint || !object->isWidgetType()) return false;
    auto* widget = static_cast<QWidget*>(object);
    painted_ = painted_ || widget == watched_ || watched_->isAncestorOf(widget);
    return false;
  }

 private:
  QWidget* watched_;
  bool painted_ = false;
};

std::string made(const std::string& folder, int entries, int reminders) {
  makeFolder(folder, entries, reminders);
  return folder;
}

void sendClick(QWidget* widget, const QPoint& at) {
  for (const auto type : {QEvent::MouseButtonPress, QEvent::MouseButtonRelease}) {
    const auto held = type == QEvent::MouseButtonPress ? Qt::LeftButton : Qt::NoButton;
    QMouseEvent event(type, at, widget->mapToGlobal(at), Qt::LeftButton, held, Qt::NoModifier);
    QCoreApplication::sendEvent(widget, &event);
  }
}

}  // namespace

Desk::Desk(const std::string& folder, int entries, int reminders)
    : clock_(core::addDays(core::dayOf({1940, 1, 1}), entries - 1)),
      context_{.files = files_,
               .folders = {.program = made(folder, entries, reminders), .current = folder},
               .clock = clock_,
               .version = "1.0.0"},
      screen_(context_) {
  screen_.load();
  screen_.show();
  untilPainted(list()->viewport());
}

void Desk::press(const char* button) {
  part<QAbstractButton>(button)->click();
}

void Desk::clickRow(int row) {
  const QModelIndex index = list()->model()->index(row, 0);
  sendClick(list()->viewport(), list()->visualRect(index).center());
}

void Desk::filter(int mode) {
  part<QRadioButton>(("opSzürö_" + std::to_string(mode)).c_str())->setChecked(true);
  press("cmdSzürés");
}

void untilPainted(QWidget* widget) {
  const PaintWatch watch(widget);
  widget->update();
  while (!watch.painted()) QCoreApplication::processEvents();
}

void onNextDialog(std::function<void(QWidget&)> act) {
  QTimer::singleShot(0, qApp, [act] {
    QWidget* dialog = QApplication::activeModalWidget();
    dialog == nullptr ? onNextDialog(act) : act(*dialog);
  });
}

}  // namespace tarvik::bench
