#pragma once

#include <QApplication>
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

}  // namespace tarvik::test
