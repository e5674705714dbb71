#include "ui/lists/list_hint.h"

#include <QAbstractItemView>
#include <QEvent>

#include "ui/look/look.h"

namespace tarvik::ui {

ListHint::ListHint(QAbstractItemView& view, const QString& text)
    : QLabel(text, view.viewport()), view_(view) {
  setTextFormat(Qt::PlainText);
  setWordWrap(true);
  setAlignment(Qt::AlignCenter);
  setMargin(gridStep());
  setAttribute(Qt::WA_TransparentForMouseEvents);
  view.viewport()->installEventFilter(this);
  const QAbstractItemModel* model = view.model();
  connect(model, &QAbstractItemModel::modelReset, this, &ListHint::update);
  connect(model, &QAbstractItemModel::rowsInserted, this, &ListHint::update);
  update();
}

bool ListHint::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Resize || event->type() == QEvent::Show) update();
  return QLabel::eventFilter(watched, event);
}

void ListHint::update() {
  setGeometry(view_.viewport()->rect());
  setVisible(view_.model()->rowCount() == 0);
}

}  // namespace tarvik::ui
