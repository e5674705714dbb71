#include "ui/look/day_accessible.h"

#include <QAccessibleWidget>
#include <QLineEdit>

#include "ui/look/day_field.h"

namespace tarvik::ui {
namespace {

// Qt's own offers no steps.
class DayAccessible : public QAccessibleWidget {
 public:
  explicit DayAccessible(DayField* field) : QAccessibleWidget(field, QAccessible::SpinBox) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? field().text() : QAccessibleWidget::text(kind);
  }

  QStringList actionNames() const override {
    QStringList names = QAccessibleWidget::actionNames();
    if (field().isEnabled()) names << increaseAction() << decreaseAction();
    return names;
  }

  void doAction(const QString& name) override {
    if (!actionNames().contains(name)) return;
    if (name == increaseAction()) return field().step(field().lastShown(), 1);
    if (name == decreaseAction()) return field().step(field().lastShown(), -1);
    QAccessibleWidget::doAction(name);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    const bool isText = type == QAccessible::TextInterface || type == QAccessible::EditableTextInterface;
    return isText ? innerPart().interface_cast(type) : QAccessibleWidget::interface_cast(type);
  }

 private:
  // The text is that of the part inside.
  QAccessibleInterface& innerPart() const {
    return *QAccessible::queryAccessibleInterface(field().findChild<QLineEdit*>());
  }

  DayField& field() const { return *static_cast<DayField*>(widget()); }
};

QAccessibleInterface* dayInterface(const QString&, QObject* object) {
  auto* const field = qobject_cast<DayField*>(object);
  return field == nullptr ? nullptr : new DayAccessible(field);
}

}  // namespace

// Qt makes nothing readable of the part inside while it has the name by which it is left out of the
// parts that are told, and asks for it once.
void letAssistiveToolsIn(DayField& field) {
  QAccessible::installFactory(dayInterface);
  auto& inner = *field.findChild<QLineEdit*>();
  const QString name = inner.objectName();
  inner.setObjectName({});
  QAccessible::queryAccessibleInterface(&inner);
  inner.setObjectName(name);
}

}  // namespace tarvik::ui
