#pragma once

#include <QObject>

#include "ui/base/context.h"

class QAction;
class QWidget;

namespace tarvik::ui {

/// The manual of the package, kezikonyv.html beside the program, in the person's browser. F1 opens it in
/// every window of the program, its item mnuKezikonyv in the main screen's menu.
///
/// It opens at the chapter of what has the keyboard: at the heading that the property `chapter` names of the
/// nearest part around it, or of a screen below; the box of an error has its own. The page is opened by
/// QDesktopServices. A manual that is not there is told of in a box with its path.
class Manual : public QObject {
  Q_OBJECT

 public:
  /// The context outlives the main screen, to which the manual belongs.
  Manual(const Context& context, QWidget& mainScreen);

  QAction* item() const { return item_; }

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void openAt(QWidget* part);

  const Context& context_;
  QAction* item_;
  bool isOpening_ = false;
};

/// Tells that no program opened the manual, and where the manual is.
void tellManualNotOpened(QWidget* parent, const QString& path);

}  // namespace tarvik::ui
