#pragma once

#include <QLabel>

namespace tarvik::ui {

/// A figure that the program shows and that can be selected and copied. While there is none it shows a
/// dash, which is no part of its text. Assistive tools read the figure, and nothing while there is none.
class ResultLabel : public QLabel {
  Q_OBJECT

 public:
  explicit ResultLabel(QWidget* parent = nullptr);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace tarvik::ui
