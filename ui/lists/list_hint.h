#pragma once

#include <QLabel>

class QAbstractItemView;

namespace tarvik::ui {

/// What a list says in its middle while it has no rows: why it is empty or what to do first.
class ListHint : public QLabel {
  Q_OBJECT

 public:
  explicit ListHint(QAbstractItemView& view, const QString& text = {});

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void update();

  QAbstractItemView& view_;
};

}  // namespace tarvik::ui
