// Loaded ahead of a program (LD_PRELOAD): when its first window has been painted, writes one byte to
// descriptor 3 and ends the program. What it adds to a start is the same for every program.

#include <QApplication>
#include <QEvent>
#include <QMetaObject>
#include <QWidget>

#include <unistd.h>

namespace {

constexpr int kReportDescriptor = 3;

void report() {
  const char painted = 1;
  _exit(write(kReportDescriptor, &painted, 1) == 1 ? 0 : 1);
}

// A window's own paint event opens the painting of all that is in it; what is queued then runs after the
// picture was handed to the display.
class FirstPaint final : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Paint || !watched->isWidgetType()) return false;
    if (!static_cast<QWidget*>(watched)->isWindow()) return false;
    qApp->removeEventFilter(this);
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
    return false;
  }
};

void watchFirstPaint() {
  qApp->installEventFilter(new FirstPaint);
}

}  // namespace

Q_COREAPP_STARTUP_FUNCTION(watchFirstPaint)
