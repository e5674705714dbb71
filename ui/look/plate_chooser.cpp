#include "ui/look/plate_chooser.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace tarvik::ui {
namespace {

// An editable box looks its text up when the editing ends, and reports what it finds as a choice.
bool endsEditing(const QEvent& event) {
  if (event.type() == QEvent::FocusOut) return true;
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Return || key == Qt::Key_Enter;
}

bool isArrow(const QEvent& event) {
  if (event.type() != QEvent::KeyPress) return false;
  const int key = static_cast<const QKeyEvent&>(event).key();
  return key == Qt::Key_Up || key == Qt::Key_Down || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

}  // namespace

PlateChooser::PlateChooser(QComboBox* box, std::function<void()> chosen)
    : QObject(box), box_(box), chosen_(std::move(chosen)) {
  box->installEventFilter(this);
  connect(box, &QComboBox::activated, this, [this] {
    if (!isTyped_) chosen_();
  });
}

bool PlateChooser::eventFilter(QObject*, QEvent* event) {
  if (isTyped_ || isStepping_) return false;
  if (isArrow(*event)) return step(event);
  return endsEditing(*event) && handOn(event);
}

// The next arrow goes on from the plate that this one chose, whatever the choice brought up.
bool PlateChooser::step(QEvent* event) {
  const QScopedValueRollback<bool> own(isStepping_, true);
  QCoreApplication::sendEvent(box_, event);
  box_->setFocus();
  return true;
}

bool PlateChooser::handOn(QEvent* event) {
  const QScopedValueRollback<bool> typed(isTyped_, true);
  QCoreApplication::sendEvent(box_, event);
  return true;
}

}  // namespace tarvik::ui
