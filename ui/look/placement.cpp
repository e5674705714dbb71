#include "ui/look/placement.h"

#include <QDialog>
#include <QEvent>
#include <QGuiApplication>
#include <QHash>
#include <QLayout>
#include <QMainWindow>
#include <QResizeEvent>
#include <QScreen>
#include <QStyle>
#include <QVBoxLayout>
#include <QWindow>
#include <algorithm>
#include <functional>
#include <utility>

#include "ui/look/fitting_area.h"

namespace tarvik::ui {
namespace {

constexpr int kTwipsPerInch = 1'440;
// The frame around a window and the line under its title, whose size is known only once it is shown.
constexpr int kFrame = 8;

// Only a polished part knows the size that it needs, and the layout around it remembers what it asked for
// before.
void settle(QWidget& window) {
  window.ensurePolished();
  for (QWidget* part : window.findChildren<QWidget*>()) {
    part->ensurePolished();
    part->updateGeometry();
  }
}

QSize aroundContents(const QWidget& window) {
  const int title = window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window);
  return {2 * kFrame, title + 2 * kFrame};
}

// The sizes that the person gave the windows of this run, by their names.
QHash<QString, QSize>& keptSizes() {
  static QHash<QString, QSize> sizes;
  return sizes;
}

// Keeps the size that the person gives a window once it is up: what the desktop, and not the program,
// changes.
class SizeKeeper : public QObject {
 public:
  explicit SizeKeeper(QWidget& window) : QObject(&window), window_(window) {
    window.installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::Resize && event->spontaneous())
      keptSizes().insert(window_.objectName(), static_cast<QResizeEvent*>(event)->size());
    return false;
  }

 private:
  QWidget& window_;
};

void giveSize(QWidget& window, const QRect& room, QSize wanted) {
  settle(window);
  const QSize most = room.size() - aroundContents(window);
  const QSize kept = keptSizes().value(window.objectName());
  window.resize((kept.isValid() ? kept : window.sizeHint().expandedTo(wanted)).boundedTo(most));
}

// The corner of a place that was moved into the room, its lower right part first.
QPoint movedInside(const QRect& room, const QRect& place) {
  return {std::max(room.left(), std::min(place.left(), room.right() + 1 - place.width())),
          std::max(room.top(), std::min(place.top(), room.bottom() + 1 - place.height()))};
}

// The frame of a window that is shown; none before.
QSize frameOf(const QWidget& window) {
  return window.frameGeometry().size() - window.geometry().size();
}

enum class Stage { Coming, Up };

// In the middle with the frame that is known: its own, or that of the window behind it. Until it is up, it
// keeps what a frame may take where there is little room.
QPoint inTheMiddle(const QWidget& window, Stage stage) {
  const QRect room = window.screen()->availableGeometry();
  const QWidget* behind = window.parentWidget() == nullptr ? &window : window.parentWidget()->window();
  QRect place(QPoint(), window.size() + (stage == Stage::Up ? frameOf(window) : frameOf(*behind)));
  place.moveCenter(room.center());
  if (stage == Stage::Coming) place.setSize(place.size().expandedTo(window.size() + aroundContents(window)));
  return movedInside(room, place);
}

// Puts a window on its place: when it is made; once its layout is done, just before it comes up; and once it
// is up with its frame.
class Opening : public QObject {
 public:
  using Place = std::function<QPoint(const QWidget&, Stage)>;

  Opening(QWidget& window, Place place) : QObject(&window), window_(window), place_(std::move(place)) {
    window.installEventFilter(this);
    put(Stage::Coming);
  }

  bool eventFilter(QObject* watched, QEvent* event) override {
    if (watched == &window_ && event->type() == QEvent::Show) comeUp();
    if (watched != &window_ && event->type() == QEvent::Expose) beUp();
    return false;
  }

 private:
  void put(Stage stage) const {
    const QPoint topLeft = place_(window_, stage);
    if (window_.pos() != topLeft) window_.move(topLeft);
  }
  // The outermost layout still remembers what its parts asked for before they had their looks.
  void comeUp() {
    window_.removeEventFilter(this);
    settle(window_);
    if (QLayout* layout = window_.layout()) {
      layout->invalidate();
      layout->activate();
    }
    put(Stage::Coming);
    window_.windowHandle()->installEventFilter(this);
  }
  void beUp() {
    window_.windowHandle()->removeEventFilter(this);
    put(Stage::Up);
    new SizeKeeper(window_);
    deleteLater();
  }

  QWidget& window_;
  Place place_;
};

}  // namespace

void keepWithinReach(QDialog& dialog) {
  QLayout* layout = dialog.layout();
  QWidget* menu = layout->menuBar();
  auto* contents = new QWidget;
  contents->setLayout(layout);
  auto* outside = new QVBoxLayout(&dialog);
  outside->setContentsMargins(0, 0, 0, 0);
  outside->setMenuBar(menu);
  outside->addWidget(new FittingArea(contents, &dialog));
}

void keepWithinReach(QMainWindow& window) {
  QWidget* contents = window.takeCentralWidget();
  window.setCentralWidget(new FittingArea(contents, &window));
}

int pixelsOfTwips(int twips, const QWidget& window) {
  return qRound(twips * window.screen()->logicalDotsPerInchX() / kTwipsPerInch);
}

void openInTheMiddle(QWidget& window, QSize wanted) {
  giveSize(window, window.screen()->availableGeometry(), wanted);
  new Opening(window, inTheMiddle);
}

void openAt(QWidget& window, QPoint topLeft, QSize wanted) {
  const QScreen* screen = QGuiApplication::screenAt(topLeft);
  if (screen == nullptr) screen = window.screen();
  giveSize(window, screen->availableGeometry(), wanted);
  new Opening(window, [topLeft, room = screen->availableGeometry()](const QWidget& opened, Stage) {
    return movedInside(room, {topLeft, opened.size() + aroundContents(opened)});
  });
}

}  // namespace tarvik::ui
