#include "ui/look/result_accessible.h"

#include <QAccessibleWidget>
#include <QLineEdit>

namespace tarvik::ui {
namespace {

// Qt's own offers to edit the text.
class ResultAccessible : public QAccessibleWidget, public QAccessibleTextInterface {
 public:
  explicit ResultAccessible(QLineEdit* field) : QAccessibleWidget(field, QAccessible::EditableText) {}

  QString text(QAccessible::Text kind) const override {
    return kind == QAccessible::Value ? field().text() : QAccessibleWidget::text(kind);
  }
  QAccessible::State state() const override {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = true;
    state.selectableText = true;
    return state;
  }
  void* interface_cast(QAccessible::InterfaceType type) override {
    if (type == QAccessible::TextInterface) return static_cast<QAccessibleTextInterface*>(this);
    return QAccessibleWidget::interface_cast(type);
  }

  QString text(int start, int end) const override { return field().text().mid(start, end - start); }
  int characterCount() const override { return static_cast<int>(field().text().size()); }
  int cursorPosition() const override { return field().cursorPosition(); }
  void setCursorPosition(int position) override { field().setCursorPosition(position); }
  int offsetAtPoint(const QPoint& point) const override {
    return field().cursorPositionAt(field().mapFromGlobal(point));
  }
  QRect characterRect(int offset) const override { return offset < characterCount() ? rect() : QRect(); }
  void scrollToSubstring(int start, int) override { field().setCursorPosition(start); }
  QString attributes(int, int* start, int* end) const override {
    *start = 0;
    *end = characterCount();
    return {};
  }

  int selectionCount() const override { return field().hasSelectedText() ? 1 : 0; }
  void selection(int index, int* start, int* end) const override {
    const bool isThere = index == 0 && field().hasSelectedText();
    *start = isThere ? field().selectionStart() : 0;
    *end = isThere ? field().selectionEnd() : 0;
  }
  void setSelection(int index, int start, int end) override {
    if (index == 0) field().setSelection(start, end - start);
  }
  void addSelection(int start, int end) override { setSelection(0, start, end); }
  void removeSelection(int) override { field().deselect(); }

 private:
  QLineEdit& field() const { return *static_cast<QLineEdit*>(widget()); }
};

QAccessibleInterface* resultInterface(const QString&, QObject* object) {
  auto* const field = qobject_cast<QLineEdit*>(object);
  return field == nullptr || !field->isReadOnly() ? nullptr : new ResultAccessible(field);
}

}  // namespace

void tellResultsAsResults() {
  QAccessible::installFactory(resultInterface);
}

}  // namespace tarvik::ui
