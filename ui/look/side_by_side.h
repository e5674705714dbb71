#pragma once

#include <QWidget>

namespace tarvik::ui {

/// Puts its parts beside each other where the width is enough for all of them, else one over the other.
class SideBySide : public QWidget {
  Q_OBJECT

 public:
  explicit SideBySide(QWidget* parent = nullptr);

  /// The width from which on the parts stand beside each other, in pixels.
  int wideWidth() const;
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;
};

}  // namespace tarvik::ui
