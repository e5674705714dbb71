#include "ui/look/enter_key.h"

#include <QAbstractSpinBox>
#include <QCheckBox>
#include <QComboBox>
#include <QKeyEvent>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>

namespace tarvik::ui {
namespace {

constexpr const char* kEnter = "enter";
constexpr const char* kUnasked = "unasked";

bool isEnter(const QKeyEvent& event) {
  const bool isPlain = (event.modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
  return isPlain && (event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter);
}

bool isField(const QWidget& part) {
  if (const auto* line = qobject_cast<const QLineEdit*>(&part)) return !line->isReadOnly();
  return qobject_cast<const QComboBox*>(&part) != nullptr ||
         qobject_cast<const QAbstractSpinBox*>(&part) != nullptr ||
         qobject_cast<const QCheckBox*>(&part) != nullptr ||
         qobject_cast<const QRadioButton*>(&part) != nullptr;
}

bool canBeGoneTo(const QWidget& part) {
  return part.isVisible() && part.isEnabled() && part.focusProxy() == nullptr &&
         (part.focusPolicy() & Qt::TabFocus) != 0;
}

QList<QRadioButton*> optionsBeside(const QWidget& part) {
  if (qobject_cast<const QRadioButton*>(&part) == nullptr) return {};
  return part.parentWidget()->findChildren<QRadioButton*>(QString(), Qt::FindDirectChildrenOnly);
}

// Of options the checked one has the keyboard.
void goTo(QWidget& part) {
  QWidget* goal = &part;
  for (QRadioButton* option : optionsBeside(part))
    if (option->isChecked()) goal = option;
  goal->setFocus(Qt::TabFocusReason);
}

void press(QAbstractButton& button) {
  if (!button.property(kUnasked).toBool()) button.click();
}

class EnterKey : public QObject {
 public:
  explicit EnterKey(QWidget& screen) : QObject(&screen), screen_(screen) {
    screen.installEventFilter(this);
    for (QPushButton* button : screen.findChildren<QPushButton*>()) {
      button->setAutoDefault(false);
      button->installEventFilter(this);  // on some desktops Enter presses whatever button has the
      // keyboard
    }
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::KeyPress || !isEnter(*static_cast<QKeyEvent*>(event))) return false;
    QWidget* const here = screen_.focusWidget();
    if (here != nullptr && !static_cast<QKeyEvent*>(event)->isAutoRepeat()) pressedOn(*here);
    return true;
  }

 private:
  void pressedOn(QWidget& here) {
    if (auto* button = qobject_cast<QPushButton*>(&here)) return press(*button);
    if (!isField(here)) return;
    const QString names = goalsOf(here);
    if (names.isEmpty()) return goToNext(here);
    for (const QString& name : names.split(QLatin1Char(' '))) {
      auto* const goal = screen_.findChild<QWidget*>(name);
      if (goal != nullptr && canBeGoneTo(*goal)) return reach(*goal);
    }
  }

  static QString goalsOf(const QWidget& field) {
    QString names = field.property(kEnter).toString();
    for (const QRadioButton* option : optionsBeside(field)) names += option->property(kEnter).toString();
    return names;
  }

  static void reach(QWidget& goal) {
    auto* const button = qobject_cast<QPushButton*>(&goal);
    if (button != nullptr && !button->property(kUnasked).toBool()) return button->click();
    goTo(goal);
  }

  // The order of the Tab key ends where it comes back to the window. It passes the options beside one that
  // has the keyboard.
  void goToNext(QWidget& here) const {
    for (QWidget* next = here.nextInFocusChain(); next != &here && next != &screen_;
         next = next->nextInFocusChain())
      if (isField(*next) && canBeGoneTo(*next)) return goTo(*next);
  }

  QWidget& screen_;
};

}  // namespace

void followEnterRule(QWidget& screen) {
  new EnterKey(screen);
}

}  // namespace tarvik::ui
