#include <QApplication>
#include <QEvent>
#include <QFont>
#include <QIcon>
#include <QImageReader>
#include <QPalette>
#include <QTimer>
#include <QWidget>

#include "ui/look/look.h"

// The icons lie in a static library, which has to be told to bring them. Outside of every namespace, as Qt
// wants it.
static void bringIcons() {
  Q_INIT_RESOURCE(tarvik);
}

namespace tarvik::ui {
namespace {

// Qt would load each of its picture formats to find out that a picture is none of them.
QPixmap ownPicture(const QString& path) {
  QImageReader reader(path, "png");
  reader.setAutoDetectImageFormat(false);
  return QPixmap::fromImageReader(&reader);
}

// Every start reads them all and hands them to the display: none is larger than a desktop's list of windows
// shows at twice its usual size.
QIcon programIcon() {
  bringIcons();
  QIcon icon;
  for (const int size : {16, 24, 32, 48, 64})
    icon.addPixmap(ownPicture(QStringLiteral(":/tarvik/icon-%1.png").arg(size)));
  return icon;
}

// Lets a change of the desktop's font or colours reach the windows that are open: each part gets its look
// anew, with what was measured and coloured by the old ones.
class DesktopChange : public QObject {
 public:
  DesktopChange() : QObject(qApp), font_(QApplication::font()), palette_(QApplication::palette()) {
    once_.setSingleShot(true);
    connect(&once_, &QTimer::timeout, this, [this] { follow(); });
    qApp->installEventFilter(this);
  }

  // A change comes as several events, one a window.
  bool eventFilter(QObject*, QEvent* event) override {
    const QEvent::Type type = event->type();
    if (type == QEvent::ThemeChange || type == QEvent::ApplicationFontChange ||
        type == QEvent::ApplicationPaletteChange)
      once_.start();
    return false;
  }

 private:
  // Qt hands a new font of the desktop to new windows alone. Putting the look on once more is a change of
  // colours to Qt, hence the comparison.
  void follow() {
    if (QApplication::font() == font_ && QApplication::palette() == palette_) return;
    font_ = QApplication::font();
    for (QWidget* window : QApplication::topLevelWidgets()) {
      QEvent change(QEvent::ApplicationFontChange);
      QCoreApplication::sendEvent(window, &change);
    }
    QApplication::setStyle(new LookStyle);
    palette_ = QApplication::palette();
  }

  QFont font_;
  QPalette palette_;
  QTimer once_;
};

}  // namespace

void dress() {
  QApplication::setStyle(new LookStyle);
  QApplication::setWindowIcon(programIcon());
  new DesktopChange;
}

}  // namespace tarvik::ui
