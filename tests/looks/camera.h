#pragma once

#include <QString>
#include <QStringList>
#include <functional>

class QImage;
class QWidget;

namespace tarvik::looks {

/// Photographs windows as they stand on the display, once they have come to rest, into PNG files of a folder.
class Camera {
 public:
  /// The pictures of these names alone are kept; no names = all.
  explicit Camera(QString folder, QStringList wanted = {});

  /// Photographs the inside of a window that is shown.
  void shoot(QWidget& window, const QString& name);
  /// Keeps a picture that no window shows.
  void keep(const QImage& picture, const QString& name);
  /// Does something that opens a screen or box of its own, photographs that and closes it.
  void shootOpened(const QString& name, const std::function<void()>& open);
  /// Does something that opens a screen or box of its own, hands that over and closes it afterwards.
  void withOpened(const std::function<void()>& open, const std::function<void(QWidget& opened)>& act);

 private:
  // Where each part of a photographed window stands, in the file parts.txt beside the pictures.
  void noteParts(const QWidget& window, const QString& name);
  bool isWanted(const QString& name) const { return wanted_.isEmpty() || wanted_.contains(name); }

  QString folder_;
  QStringList wanted_;
};

}  // namespace tarvik::looks
