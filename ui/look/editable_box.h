#pragma once

#include <QComboBox>

namespace tarvik::ui {

/// An editable drop-down that completes nothing: what is typed stays as it was typed.
class EditableBox : public QComboBox {
 public:
  explicit EditableBox(QWidget* parent = nullptr);
};

}  // namespace tarvik::ui
