#include "tests/looks/camera.h"

#include <QApplication>
#include <QDialog>
#include <QFile>
#include <QImage>
#include <QMenuBar>
#include <QPixmap>
#include <QScreen>
#include <QTest>
#include <QTextStream>
#include <QTimer>
#include <QWindow>
#include <ctime>

namespace tarvik::looks {
namespace {

constexpr int kLimitMilliseconds = 60'000;
// The processor's own time: a busy machine makes no window restless.
constexpr std::clock_t kLimitOfWork = 60 * CLOCKS_PER_SEC;
// What a window draws for itself may differ by a blinking cursor and by the icon of a button.
constexpr double kDifferingShare = 0.003;
constexpr double kIcon = 20 * 20;

[[noreturn]] void fail(const QString& why) {
  qFatal("%s", qPrintable(why));
}

QImage photograph(QWidget& window) {
  return window.screen()->grabWindow(window.winId()).toImage().convertToFormat(QImage::Format_RGB32);
}

// Whether the display has got what the window draws, and nothing of another window stands over it any more.
// On a busy machine a window comes up in a size that it had before it was laid out.
bool shows(const QImage& display, QWidget& window) {
  if (window.size() != window.size().expandedTo(window.minimumSize())) return false;
  const QImage drawn = window.grab().toImage().convertToFormat(QImage::Format_RGB32);
  if (display.size() != drawn.size()) return false;
  qint64 differing = 0;
  for (int y = 0; y < drawn.height(); ++y) {
    const auto* here = reinterpret_cast<const QRgb*>(display.constScanLine(y));
    const auto* there = reinterpret_cast<const QRgb*>(drawn.constScanLine(y));
    for (int x = 0; x < drawn.width(); ++x) differing += here[x] == there[x] ? 0 : 1;
  }
  const double scale = window.devicePixelRatio();
  return static_cast<double>(differing) <=
         kDifferingShare * drawn.width() * drawn.height() + kIcon * scale * scale;
}

// Two pictures in a row that are equal and show the window: nothing moves any more.
QImage atRest(QWidget& window) {
  const std::clock_t begin = std::clock();
  QImage before;
  while (std::clock() - begin < kLimitOfWork) {
    QApplication::processEvents();
    QApplication::processEvents();
    const QImage now = photograph(window);
    if (now == before && shows(now, window)) return now;
    before = now;
  }
  fail(window.windowTitle() + QStringLiteral(" does not come to rest"));
}

void close(QWidget& opened) {
  if (!opened.isVisible()) return;
  if (auto* dialog = qobject_cast<QDialog*>(&opened)) return dialog->reject();
  opened.close();
}

void onOpened(const std::function<void(QWidget&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    QWidget* const opened = QApplication::activeModalWidget();
    if (opened == nullptr) return onOpened(act);
    act(*opened);
  });
}

}  // namespace

Camera::Camera(QString folder, QStringList wanted) : folder_(std::move(folder)), wanted_(std::move(wanted)) {}

void Camera::shoot(QWidget& window, const QString& name) {
  if (!isWanted(name)) return;
  window.activateWindow();
  if (!QTest::qWaitForWindowActive(&window, kLimitMilliseconds))
    fail(name + QStringLiteral(" does not come to the front"));
  keep(atRest(window), name);
  noteParts(window, name);
}

void Camera::noteParts(const QWidget& window, const QString& name) {
  QFile file(folder_ + QStringLiteral("/parts.txt"));
  if (!file.open(QIODevice::Append | QIODevice::Text))
    fail(file.fileName() + QStringLiteral(" is not written"));
  QTextStream out(&file);
  const auto note = [&](const QString& part, const QRect& place) {
    const double scale = window.devicePixelRatio();
    out << name << ' ' << part << ' ' << place.x() * scale << ' ' << place.y() * scale << ' '
        << place.width() * scale << ' ' << place.height() * scale << '\n';
  };
  for (const auto* part : window.findChildren<QWidget*>()) {
    if (!part->isVisible() || part->objectName().isEmpty()) continue;
    note(part->objectName(), {part->mapTo(&window, QPoint()), part->size()});
    const auto* menu = qobject_cast<const QMenuBar*>(part);
    if (menu == nullptr) continue;
    for (QAction* item : menu->actions())
      note(item->objectName(), menu->actionGeometry(item).translated(menu->mapTo(&window, QPoint())));
  }
}

void Camera::keep(const QImage& picture, const QString& name) {
  if (!isWanted(name)) return;
  const QString path = folder_ + QLatin1Char('/') + name + QStringLiteral(".png");
  if (!picture.convertToFormat(QImage::Format_RGB32).save(path))
    fail(path + QStringLiteral(" is not written"));
}

void Camera::shootOpened(const QString& name, const std::function<void()>& open) {
  withOpened(open, [&](QWidget& opened) { shoot(opened, name); });
}

void Camera::withOpened(const std::function<void()>& open, const std::function<void(QWidget&)>& act) {
  bool isDone = false;
  onOpened([&](QWidget& opened) {
    act(opened);
    close(opened);
    isDone = true;
  });
  open();
  if (!QTest::qWaitFor([&] { return isDone; }, kLimitMilliseconds)) fail(QStringLiteral("nothing opens"));
}

}  // namespace tarvik::looks
