#include "tests/ui/screen_test.h"

#include <QEvent>
#include <QFileInfo>
#include <QProgressDialog>
#include <cstdio>
#include <map>

#include "tests/ui/next_dialog.h"

namespace tarvik::test {
namespace {

std::map<QString, ScreenTest::Make>& knownTests() {
  static std::map<QString, ScreenTest::Make> tests;
  return tests;
}

// Fails a test that waits in a window which nobody closes, says which window, and closes it, so that the test
// comes to its end. It waits for what does not happen: no machine is too slow for it.
class Unattended : public QObject {
 public:
  Unattended() {
    timer_.setInterval(kPatienceMs);
    connect(&timer_, &QTimer::timeout, this, &Unattended::closeForgotten);
    qApp->installEventFilter(this);
    timer_.start();
  }

  // Whatever happens in a window is a sign that somebody deals with it.
  bool eventFilter(QObject*, QEvent* event) override {
    switch (event->type()) {
      case QEvent::Show:
      case QEvent::Hide:
      case QEvent::KeyPress:
      case QEvent::MouseButtonPress:
        timer_.start();
        break;
      default:
        break;
    }
    return false;
  }

 private:
  static constexpr int kPatienceMs = 60'000;

  static void closeForgotten() {
    QWidget* const popup = QApplication::activePopupWidget();
    QWidget* const window = popup != nullptr ? popup : QApplication::activeModalWidget();
    const bool isAtWork = qobject_cast<QProgressDialog*>(window) != nullptr;  // and closes by itself
    if (window == nullptr || isAtWork) return;
    const QString words = QStringLiteral("nobody closes the %1 \"%2\"");
    QTest::qFail(
        qPrintable(words.arg(QString::fromLatin1(window->metaObject()->className()), window->windowTitle())),
        __FILE__, __LINE__);
    QCoreApplication::processEvents();  // who waits for another window hears that the test has failed
    closeUnanswered(*window);
  }

  QTimer timer_;
};

}  // namespace

ScreenTest::ScreenTest(const char* file, Make make) {
  knownTests().emplace(QFileInfo(QString::fromUtf8(file)).completeBaseName(), make);
}

}  // namespace tarvik::test

// PROGRAM NAME [ARGUMENTS...] runs the tests of NAME.cpp with the arguments of Qt Test.
int main(int argc, char** argv) {
  const auto& tests = tarvik::test::knownTests();
  const auto found = argc > 1 ? tests.find(QString::fromLocal8Bit(argv[1])) : tests.end();
  if (found == tests.end()) {
    std::fputs("usage: PROGRAM NAME [ARGUMENTS...]; names:\n", stderr);
    for (const auto& [name, make] : tests) std::fprintf(stderr, "  %s\n", qPrintable(name));
    return 2;
  }
  qputenv("TZ", "CET-1CEST,M3.5.0,M10.5.0/3");  // where midnight is still the day before in UTC
  QApplication app(argc, argv);
  QApplication::setAttribute(Qt::AA_Use96Dpi, true);
  const tarvik::test::Unattended unattended;
  QStringList arguments = QApplication::arguments();
  arguments.removeAt(1);
  const int failed = QTest::qExec(found->second().get(), arguments);
  QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  if (failed != 0 || tarvik::test::Awaited::waiting() == 0) return failed;
  std::fputs("a dialog or menu that a test waited for did not come\n", stderr);
  return 1;
}
