#pragma once

#include <QString>
#include <functional>

class QImage;
class QWidget;

namespace tarvik::looks {

/// Photographs windows as they stand on the display, once they have come to rest, into PNG files of a folder.
class Camera {
 public:
  explicit Camera(QString folder);

  /// Photographs the inside of a window that is shown.
  void shoot(QWidget& window, const QString& name);
  /// Keeps a picture that no window shows.
  void keep(const QImage& picture, const QString& name);
  /// Does something that opens a screen or box of its own, photographs that and closes it.
  void shootOpened(const QString& name, const std::function<void()>& open);
  /// Does something that opens a screen or box of its own, hands that over and closes it afterwards.
  void withOpened(const std::function<void()>& open, const std::function<void(QWidget& opened)>& act);

 private:
  QString folder_;
};

}  // namespace tarvik::looks
