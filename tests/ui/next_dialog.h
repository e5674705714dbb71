#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTest>
#include <QTimer>
#include <functional>

namespace tarvik::test {

/// Runs an act on the modal dialog that opens next, once it is shown and its own loop turns. The test goes
/// on after the dialog is closed.
template <typename Dialog>
void onNextDialog(const std::function<void(Dialog&)>& act) {
  QTimer::singleShot(0, qApp, [act] {
    auto* const dialog = qobject_cast<Dialog*>(QApplication::activeModalWidget());
    if (dialog == nullptr) return onNextDialog<Dialog>(act);
    act(*dialog);
  });
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
