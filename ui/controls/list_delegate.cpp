#include "ui/controls/list_delegate.h"

#include <QAbstractItemView>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>

#include "ui/look.h"

namespace tarvik::ui {
namespace {

constexpr int kMarkMilliseconds = 2'500;
constexpr double kTint = 0.3;
constexpr int kLeastRows = 3;

QString recordOf(const QModelIndex& index) {
  return index.siblingAtColumn(index.model()->columnCount() - 1).data().toString();
}

// A hook as large as the letters; nothing for an unmarked row, in the same room.
QIcon markIcon(int size, const QColor& colour, double pixelRatio) {
  QPixmap picture(QSize(size, size) * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  if (colour.isValid()) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(colour, size / 7.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(
        QPolygonF{{0.15 * size, 0.55 * size}, {0.4 * size, 0.8 * size}, {0.85 * size, 0.25 * size}});
  }
  return picture;
}

// The mark takes the place of the box that the toolkit would draw.
void showMark(QStyleOptionViewItem& option) {
  const bool isChecked = option.checkState == Qt::Checked;
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QColor colour = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
  const int size = option.fontMetrics.height();
  const double ratio = option.widget == nullptr ? 1 : option.widget->devicePixelRatioF();
  option.features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
  option.features.setFlag(QStyleOptionViewItem::HasDecoration, true);
  option.decorationSize = {size, size};
  option.icon = markIcon(size, isChecked ? colour : QColor(), ratio);
}

}  // namespace

void ListDelegate::mark(const QString& record, QAbstractItemView& view) {
  marked_ = record;
  view.viewport()->update();
  QTimer::singleShot(kMarkMilliseconds, &view, [this, record, &view] {
    if (marked_ == record) marked_.clear();
    view.viewport()->update();
  });
}

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  if (option->features.testFlag(QStyleOptionViewItem::HasCheckIndicator)) showMark(*option);
  if (!marked_.isEmpty() && recordOf(index) == marked_)
    option->backgroundBrush =
        between(option->palette.color(QPalette::Base), option->palette.color(QPalette::Highlight), kTint);
}

bool ListDelegate::helpEvent(QHelpEvent* event, QAbstractItemView* view, const QStyleOptionViewItem& option,
                             const QModelIndex& index) {
  const QString text = index.data().toString();
  if (event->type() != QEvent::ToolTip || text.isEmpty())
    return QStyledItemDelegate::helpEvent(event, view, option, index);
  const bool isCut = sizeHint(option, index).width() > view->visualRect(index).width();
  QToolTip::showText(event->globalPos(), isCut ? text : QString(), view);
  return true;
}

ListDelegate* layOutList(QTreeView& view, const QStringList& longest) {
  auto* delegate = new ListDelegate(&view);
  view.setItemDelegate(delegate);
  view.ensurePolished();
  QHeaderView& header = *view.header();
  header.ensurePolished();
  header.setStretchLastSection(false);
  const int sides = 2 * gridStep();
  int figures = 0;
  int widestText = 0;
  for (int column = 0; column < longest.size(); ++column) {
    const int head = header.sectionSizeHint(column);
    if (longest[column].isEmpty()) {
      header.setSectionResizeMode(column, QHeaderView::Stretch);
      widestText = std::max(widestText, head);
      continue;
    }
    const int width = std::max(view.fontMetrics().horizontalAdvance(longest[column]) + sides, head);
    header.resizeSection(column, width);
    figures += width;
  }
  const int texts = static_cast<int>(longest.count(QString())) * widestText;
  const int scrollBar = view.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  view.setMinimumWidth(figures + texts + scrollBar + 2 * view.frameWidth());
  view.setMinimumHeight(header.sizeHint().height() + kLeastRows * rowHeight() + 2 * view.frameWidth());
  return delegate;
}

void keepWhole(QTreeView& view, int column, const QString& text) {
  const int width = view.header()->sectionSize(column);
  const int more = view.fontMetrics().horizontalAdvance(text) + 2 * gridStep() - width;
  if (more <= 0) return;
  view.header()->resizeSection(column, width + more);
  view.setMinimumWidth(view.minimumWidth() + more);
}

}  // namespace tarvik::ui
