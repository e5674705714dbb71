#include "ui/base/manual.h"

#include <QAction>
#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QKeyEvent>
#include <QMessageBox>
#include <QScopedValueRollback>
#include <QUrl>

#include "ui/base/message_boxes.h"
#include "ui/base/text.h"

namespace tarvik::ui {
namespace {

const QString kTitle = QStringLiteral("Kézikönyv");
const QString kFailureChapter = QStringLiteral("ha-a-program-hibát-jelez");

bool tellsOfFailure(const QWidget& part) {
  const auto* box = qobject_cast<const QMessageBox*>(&part);
  return box != nullptr && box->icon() == QMessageBox::Critical;
}

QString chapterOf(const QWidget* part) {
  for (; part != nullptr; part = part->parentWidget()) {
    if (tellsOfFailure(*part)) return kFailureChapter;
    const QString chapter = part->property("chapter").toString();
    if (!chapter.isEmpty()) return chapter;
  }
  return {};
}

QWidget* partInFront() {
  QWidget* const focus = QApplication::focusWidget();
  return focus != nullptr ? focus : QApplication::activeWindow();
}

bool isF1(QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  return static_cast<QKeyEvent&>(event).keyCombination() == QKeyCombination(Qt::Key_F1);
}

}  // namespace

Manual::Manual(const Context& context, QWidget& mainScreen)
    : QObject(&mainScreen), context_(context), item_(new QAction(QStringLiteral("Ké&zikönyv"), &mainScreen)) {
  item_->setObjectName(QStringLiteral("mnuKezikonyv"));
  item_->setShortcut(Qt::Key_F1);
  item_->setAutoRepeat(false);
  connect(
      item_, &QAction::triggered, this, [this] { openAt(partInFront()); }, Qt::QueuedConnection);
  qApp->installEventFilter(this);
}

// The item's key is the main screen's; over that lie dialogs, boxes and menus. The window hears of a key
// before the part that has the keyboard.
bool Manual::eventFilter(QObject* watched, QEvent* event) {
  if (!isF1(*event)) return false;
  if (!static_cast<QKeyEvent*>(event)->isAutoRepeat())
    openAt(watched->isWidgetType() ? static_cast<QWidget*>(watched) : partInFront());
  return true;
}

void Manual::openAt(QWidget* part) {
  if (isOpening_) return;
  const QScopedValueRollback<bool> opening(isOpening_, true);
  const std::string path = context_.folders.inProgram("kezikonyv.html");
  QWidget* const window = part == nullptr ? nullptr : part->window();
  core::FileStatus status;
  if (context_.files.statusOf(path, status) != 0)
    return tellError(window, kTitle,
                     QStringLiteral("A kézikönyv nincs a helyén:\n%1\n\n"
                                    "A letöltött csomagban megvan. Ha a csomagot ugyanide csomagolod ki "
                                    "újra, az adataid megmaradnak.")
                         .arg(QDir::toNativeSeparators(toQt(path))));
  QUrl page = QUrl::fromLocalFile(toQt(path));
  page.setFragment(chapterOf(part));
  if (!QDesktopServices::openUrl(page)) tellManualNotOpened(window, toQt(path));
}

void tellManualNotOpened(QWidget* parent, const QString& path) {
  tellError(parent, kTitle,
            QStringLiteral("A böngésző nem indult el. Nyisd meg benne ezt a fájlt, ez a kézikönyv:\n%1")
                .arg(QDir::toNativeSeparators(path)));
}

}  // namespace tarvik::ui
