#include <QApplication>
#include <QDesktopServices>
#include <QProcess>
#include <QTimer>
#include <QUrl>
#include <functional>

#include "app/browser.h"
#include "ui/base/manual.h"

namespace tarvik::app {
namespace {

const QString kScheme = QStringLiteral("file");

// An opener that has run for this long has opened the page and waits for the browser's end.
constexpr int kSettledMilliseconds = 15'000;

/// What to do when the desktop's opener could not open a page.
struct Otherwise {
  std::function<void()> missing;  ///< there is no such opener
  std::function<void()> refused;  ///< it says that it could not
};

// The process outlives the program where the browser does.
void start(const QString& address, const Otherwise& otherwise) {
  auto* opener = new QProcess;
  opener->setStandardInputFile(QProcess::nullDevice());
  opener->setStandardOutputFile(QProcess::nullDevice());
  opener->setStandardErrorFile(QProcess::nullDevice());
  auto* unsettled = new QTimer(opener);
  unsettled->setSingleShot(true);
  unsettled->start(kSettledMilliseconds);
  QObject::connect(opener, &QProcess::finished, opener, [opener, unsettled, otherwise](int code) {
    opener->deleteLater();
    if (code != 0 && unsettled->isActive()) otherwise.refused();
  });
  QObject::connect(opener, &QProcess::errorOccurred, opener,
                   [opener, otherwise](QProcess::ProcessError error) {
                     if (error != QProcess::FailedToStart) return;
                     opener->deleteLater();
                     otherwise.missing();
                   });
  opener->start(QStringLiteral("xdg-open"), {address});
}

void tell(const QUrl& page) {
  ui::tellManualNotOpened(QApplication::activeWindow(), page.toLocalFile());
}

/// What opens the files: the desktop's opener, which on some desktops takes no place in a page, or, where
/// there is none, a browser that Qt finds.
class Browser : public QObject {
  Q_OBJECT

 public:
  using QObject::QObject;

 public slots:
  void open(const QUrl& page) {
    const auto byQt = [this, page] { openByQt(page); };
    const QString bare = page.toString(QUrl::FullyEncoded | QUrl::RemoveFragment);
    const auto withoutPlace = [=] { start(bare, {.missing = byQt, .refused = [page] { tell(page); }}); };
    start(page.toString(QUrl::FullyEncoded), {.missing = byQt, .refused = withoutPlace});
  }

 private:
  void openByQt(const QUrl& page) {
    QDesktopServices::unsetUrlHandler(kScheme);
    const bool isOpened = QDesktopServices::openUrl(page);
    QDesktopServices::setUrlHandler(kScheme, this, "open");
    if (!isOpened) tell(page);
  }
};

}  // namespace

void openFilesInBrowser() {
  QDesktopServices::setUrlHandler(kScheme, new Browser(qApp), "open");
}

}  // namespace tarvik::app

#include "posix_browser.moc"
