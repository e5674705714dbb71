#include "ui/look/wheel.h"

#include <QAbstractSlider>
#include <QAbstractSpinBox>
#include <QComboBox>
#include <QEvent>
#include <QTabBar>

namespace tarvik::ui {
namespace {

bool isChangedByWheel(const QWidget& part) {
  return qobject_cast<const QComboBox*>(&part) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&part) != nullptr ||
         qobject_cast<const QAbstractSlider*>(&part) != nullptr ||
         qobject_cast<const QTabBar*>(&part) != nullptr;
}

bool mayChangeNow(const QWidget& part) {
  const auto* box = qobject_cast<const QComboBox*>(&part);
  return part.hasFocus() && (box == nullptr || !box->isEditable());
}

class WheelGuard : public QObject {
 public:
  bool eventFilter(QObject* watched, QEvent* event) override {
    if (event->type() != QEvent::Wheel || mayChangeNow(*static_cast<QWidget*>(watched))) return false;
    event->ignore();  // it goes on to what lies behind
    return true;
  }
};

}  // namespace

void keepFromWheel(QWidget& part) {
  static WheelGuard guard;
  if (part.focusPolicy() == Qt::WheelFocus) part.setFocusPolicy(Qt::StrongFocus);
  if (isChangedByWheel(part) && part.focusPolicy() != Qt::NoFocus) part.installEventFilter(&guard);
}

}  // namespace tarvik::ui
