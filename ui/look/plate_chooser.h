#pragma once

#include <QObject>
#include <functional>

class QComboBox;

namespace tarvik::ui {

/// The chooser of plates, which can be typed too: tells a plate that a person chose from its list from one
/// that stands there for another reason. An arrow leaves the keyboard in the chooser.
class PlateChooser : public QObject {
 public:
  /// The chooser belongs to the combo box; chosen runs when a person chose from the list.
  explicit PlateChooser(
      QComboBox* box, std::function<void()> chosen = [] {});

  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  bool step(QEvent* event);
  bool handOn(QEvent* event);

  QComboBox* box_;
  std::function<void()> chosen_;
  bool isTyped_ = false;     // the box looks its text up in the list by itself
  bool isStepping_ = false;  // an arrow chooses
};

}  // namespace tarvik::ui
