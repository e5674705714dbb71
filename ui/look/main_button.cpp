#include "ui/look/main_button.h"

#include <QEvent>
#include <QPushButton>

#include "ui/look/look_painting.h"

namespace tarvik::ui {
namespace {

class MainButtons : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Show && event->type() != QEvent::Hide) return false;
    for (QPushButton* button : static_cast<QWidget*>(watched)->window()->findChildren<QPushButton*>())
      if (hasLook(button, "main")) button->update();
    return false;
  }
};

}  // namespace

bool isMainAction(const QWidget& button) {
  if (!hasLook(&button, "main")) return false;
  const QWidget* const window = button.window();
  for (const QWidget* next = button.nextInFocusChain(); next != window && next != &button;
       next = next->nextInFocusChain())
    if (hasLook(next, "main") && next->isVisible() && next->window() == window) return false;
  return true;
}

void keepOneMainAction(QWidget& widget) {
  static MainButtons watcher;
  if (hasLook(&widget, "main")) widget.installEventFilter(&watcher);
}

}  // namespace tarvik::ui
