#include "ui/look/access.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QPointer>
#include <QRadioButton>
#include <QShortcut>
#include <algorithm>

#include "ui/look/result_accessible.h"

namespace tarvik::ui {
namespace {

void tellWithoutPadding(QAbstractItemModel* items) {
  QObject::connect(items, &QAbstractItemModel::rowsInserted, items,
                   [items](const QModelIndex& parent, int first, int last) {
                     for (int row = first; row <= last; ++row) {
                       const QModelIndex item = items->index(row, 0, parent);
                       items->setData(item, item.data().toString().trimmed(), Qt::AccessibleTextRole);
                     }
                   });
}

void nameInnerParts(QComboBox* box) {
  box->view()->setAccessibleName(box->accessibleName());
  if (box->lineEdit() != nullptr) box->lineEdit()->setAccessibleName(box->accessibleName());
}

// -1 for an arrow that goes back, 1 for one that goes on, 0 for another key.
int stepOf(int key) {
  if (key == Qt::Key_Up || key == Qt::Key_Left) return -1;
  return key == Qt::Key_Down || key == Qt::Key_Right ? 1 : 0;
}

// Qt's arrows follow the places of the options and check only from one that is checked. While none is, the
// first arrow checks the one that has the keyboard.
class ArrowsCheck : public QObject {
 public:
  explicit ArrowsCheck(QRadioButton* option) : QObject(option), option_(option) {
    option->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress) return false;
    const int step = stepOf(static_cast<QKeyEvent*>(event)->key());
    if (step == 0) return false;
    const auto group =
        option_->parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
    const bool isAnyChecked = std::ranges::any_of(group, &QRadioButton::isChecked);
    const qsizetype wanted = group.indexOf(option_) + (isAnyChecked ? step : 0);
    QRadioButton* const next = group.value(wanted, option_);
    next->setFocus(step == -1 ? Qt::BacktabFocusReason : Qt::TabFocusReason);
    next->click();
    return true;
  }

 private:
  QRadioButton* option_;
};

// Gives the focus back that the menu took, when a screen that the menu opened closes: Qt does so
// only where the window of the menu stayed the active one.
class MenuGivesBack : public QObject {
 public:
  explicit MenuGivesBack(QMenuBar* menu) : QObject(menu), menu_(menu) {
    menu->installEventFilter(this);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* before, const QWidget* now) {
      if (now == menu_) before_ = before;
    });
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::WindowActivate && before_ && menu_->window()->focusWidget() == menu_)
      before_->setFocus();
    return false;
  }

 private:
  QMenuBar* menu_;
  QPointer<QWidget> before_;
};

}  // namespace

void makeAccessible(QWidget& screen) {
  tellResultsAsResults();
  for (QComboBox* box : screen.findChildren<QComboBox*>()) {
    nameInnerParts(box);
    tellWithoutPadding(box->model());
  }
  for (const QListWidget* list : screen.findChildren<QListWidget*>()) tellWithoutPadding(list->model());
  for (QRadioButton* option : screen.findChildren<QRadioButton*>()) new ArrowsCheck(option);
}

// Qt goes to its menu when Alt goes down and up again with nothing between, and has no other way.
void openWithF10(QMenuBar& menu) {
  new MenuGivesBack(&menu);
  auto* key = new QShortcut(Qt::Key_F10, menu.window());
  QObject::connect(key, &QShortcut::activated, &menu, [&menu] {
    // A modifier's own press does not count among the modifiers that are down.
    QKeyEvent down(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
    QKeyEvent up(QEvent::KeyRelease, Qt::Key_Alt, Qt::AltModifier);
    QCoreApplication::sendEvent(menu.window(), &down);
    QCoreApplication::sendEvent(menu.window(), &up);
  });
}

// Assistive tools are told of a parent's windows in another place than of its parts, and only of open ones.
void takeOutOfUse(QWidget& control) {
  control.setWindowFlag(Qt::Window);
}

}  // namespace tarvik::ui
