#include "ui/look/editable_box.h"

#include <QCompleter>
#include <QLineEdit>

namespace tarvik::ui {

// A field without a completer would get one over all texts of the box, which is dearer than the box itself.
EditableBox::EditableBox(QWidget* parent) : QComboBox(parent) {
  auto* field = new QLineEdit(this);
  field->setCompleter(new QCompleter(field));
  setLineEdit(field);
  setCompleter(nullptr);
}

}  // namespace tarvik::ui
