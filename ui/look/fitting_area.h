#pragma once

#include <QScrollArea>

namespace tarvik::ui {

/// The room of a window's contents. It asks for the size that they want; on a display that is smaller than
/// what they need it scrolls, so that everything stays within reach.
class FittingArea : public QScrollArea {
  Q_OBJECT

 public:
  explicit FittingArea(QWidget* contents, QWidget* parent = nullptr);

  /// The room that a window's contents can have on its display, in pixels.
  static QSize roomOnDisplay(const QWidget& window);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void fit();
  QSize neededAt(int width) const;
};

}  // namespace tarvik::ui
