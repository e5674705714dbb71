#include "ui/look/result_label.h"

#include <QAccessibleWidget>
#include <QPainter>

namespace tarvik::ui {
namespace {

// Qt calls a label without a text by the caption beside it, which would be taken for the figure.
class ResultAccessible : public QAccessibleWidget {
 public:
  explicit ResultAccessible(ResultLabel* label) : QAccessibleWidget(label, QAccessible::StaticText) {}

  QString text(QAccessible::Text kind) const override {
    if (kind != QAccessible::Name) return QAccessibleWidget::text(kind);
    return static_cast<ResultLabel*>(widget())->text().trimmed();
  }
};

QAccessibleInterface* resultInterface(const QString&, QObject* object) {
  auto* const label = qobject_cast<ResultLabel*>(object);
  return label ? new ResultAccessible(label) : nullptr;
}

}  // namespace

ResultLabel::ResultLabel(QWidget* parent) : QLabel(parent) {
  QAccessible::installFactory(resultInterface);
  setTextFormat(Qt::PlainText);
}

void ResultLabel::paintEvent(QPaintEvent* event) {
  QLabel::paintEvent(event);
  if (!text().isEmpty()) return;
  QPainter painter(this);
  painter.setPen(palette().color(QPalette::PlaceholderText));
  painter.drawText(contentsRect(), static_cast<int>(alignment()), QStringLiteral("–"));
}

}  // namespace tarvik::ui
