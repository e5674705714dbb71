#pragma once

#include <QByteArray>
#include <QDialog>
#include <QMessageBox>
#include <QPointer>
#include <utility>

#include "tests/ui/by_hand.h"

namespace tarvik::test {

/// Closes a window that nobody will answer any more, whatever it would have asked before.
inline void closeUnanswered(QWidget& window) {
  if (auto* const dialog = qobject_cast<QDialog*>(&window)) return dialog->done(QDialog::Rejected);
  window.close();
}

/// Waits for a window that the running test opens, does the test's act on it once, and closes it where a
/// check of the act failed on the way. A window that does not come until its test is over fails the next one,
/// in words.
class Awaited : public QObject {
 public:
  Awaited(const char* kind, std::function<QWidget*()> find, std::function<void(QWidget&)> act)
      : QObject(qApp), kind_(kind), find_(std::move(find)), act_(std::move(act)), test_(runningTest()) {
    QObject::connect(&timer_, &QTimer::timeout, this, &Awaited::look);
    timer_.start(1);
    ++waiting_;
  }
  ~Awaited() override { --waiting_; }

  /// How many windows are still waited for.
  static int waiting() { return waiting_; }

 private:
  static QByteArray runningTest() {
    return QByteArray(QTest::currentTestFunction()) + ':' + QTest::currentDataTag();
  }

  void look() {
    if (runningTest() != test_) return giveUp();
    hasFailed_ = QTest::currentTestFailed();
    if (QWidget* const window = find_()) meet(*window);
  }

  void meet(QWidget& window) {
    timer_.stop();
    const QPointer<QWidget> opened(&window);
    act_(window);
    if (opened && opened->isVisible() && QTest::currentTestFailed()) closeUnanswered(*opened);
    deleteLater();
  }

  void giveUp() {
    timer_.stop();
    deleteLater();
    if (!hasFailed_)
      QTest::qFail((test_ + " waited for a " + kind_ + " that did not come").constData(), __FILE__, __LINE__);
  }

  static inline int waiting_ = 0;

  const char* kind_;
  std::function<QWidget*()> find_;
  std::function<void(QWidget&)> act_;
  QByteArray test_;
  bool hasFailed_ = false;
  QTimer timer_;
};

/// Runs an act on the modal dialog that opens next, once it is shown and its own loop turns. The test goes
/// on after the dialog is closed, by the act or, where a check of it failed, without it.
template <typename Dialog>
void onNextDialog(const std::function<void(Dialog&)>& act) {
  new Awaited(
      Dialog::staticMetaObject.className(),
      [] { return qobject_cast<Dialog*>(QApplication::activeModalWidget()); },
      [act](QWidget& dialog) { act(static_cast<Dialog&>(dialog)); });
}

/// Takes a file in the file dialog that opens next; proposed becomes the name that stood there.
inline void takeFileInNextDialog(const QString& path, QString* proposed = nullptr) {
  onNextDialog<QFileDialog>([path, proposed](QFileDialog& dialog) {
    if (proposed != nullptr) *proposed = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->text();
    nameFile(dialog, path);
    static_cast<QDialog&>(dialog).accept();
  });
}

/// As onNextDialog, of the menu or list that pops up next.
template <typename Popup>
void onNextPopup(const std::function<void(Popup&)>& act) {
  new Awaited(
      Popup::staticMetaObject.className(),
      [] { return qobject_cast<Popup*>(QApplication::activePopupWidget()); },
      [act](QWidget& popup) { act(static_cast<Popup&>(popup)); });
}

/// Presses Enter in a screen, and once more in the question that comes up then, if one does.
inline void enterIntoWhatIsOpen(QWidget& screen) {
  QTimer answering;
  QObject::connect(&answering, &QTimer::timeout, qApp, [] {
    QWidget* const box = QApplication::activeModalWidget();
    if (qobject_cast<QMessageBox*>(box) == nullptr) return;
    QWidget* const focus = box->focusWidget();
    QTest::keyClick(focus == nullptr ? box : focus, Qt::Key_Return);
  });
  answering.start(0);
  QWidget* const focus = screen.focusWidget();
  QTest::keyClick(focus == nullptr ? &screen : focus, Qt::Key_Return);
}

}  // namespace tarvik::test
