#include "ui/lists/list_delegate.h"

#include <QAbstractItemView>
#include <QGuiApplication>
#include <QHash>
#include <QHeaderView>
#include <QHelpEvent>
#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <QToolTip>
#include <QTreeView>
#include <algorithm>
#include <map>

#include "ui/base/colours.h"
#include "ui/lists/text_list_model.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

constexpr int kMarkMilliseconds = 2'500;
constexpr double kTint = 0.3;
constexpr int kLeastRows = 3;

QString recordOf(const QModelIndex& index) {
  return index.siblingAtColumn(index.model()->columnCount() - 1).data().toString();
}

// A picture as large as the letters, with what is drawn of lines on a square of side 1.
QIcon markIcon(int size, const QColor& colour, double pixelRatio, const QList<QPolygonF>& lines) {
  QPixmap picture(QSize(size, size) * pixelRatio);
  picture.setDevicePixelRatio(pixelRatio);
  picture.fill(Qt::transparent);
  QPainter painter(&picture);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.scale(size, size);
  painter.setPen(QPen(colour, 1 / 7.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  for (const QPolygonF& line : lines) painter.drawPolyline(line);
  return picture;
}

const QPolygonF kHook{{0.15, 0.55}, {0.4, 0.8}, {0.85, 0.25}};
const QPolygonF kStroke{{0.5, 0.12}, {0.5, 0.58}};
const QPolygonF kDot{{0.5, 0.87}, {0.5, 0.88}};

// A mark before the text; a row without one has the same room.
void showMark(QStyleOptionViewItem& option, const QList<QPolygonF>& lines) {
  const bool isSelected = option.state.testFlag(QStyle::State_Selected);
  const QColor colour = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
  const int size = option.fontMetrics.height();
  const double ratio = option.widget == nullptr ? 1 : option.widget->devicePixelRatioF();
  option.features.setFlag(QStyleOptionViewItem::HasCheckIndicator, false);
  option.features.setFlag(QStyleOptionViewItem::HasDecoration, true);
  option.decorationSize = {size, size};
  option.icon = markIcon(size, colour, ratio, lines);
}

// The widths that the person gave the columns of this run's lists, by the names of window and list.
std::map<QString, QHash<int, int>>& keptWidths() {
  static std::map<QString, QHash<int, int>> widths;
  return widths;
}

// The columns of a list: each as wide as its head and its longest text, until the person gives it another
// width, which is kept for the run. They follow the font.
class Columns : public QObject {
 public:
  Columns(QTreeView& view, const QStringList& longest)
      : QObject(&view),
        view_(view),
        longest_(longest),
        kept_(keptWidths()[view.window()->objectName() + QLatin1Char('/') + view.objectName()]) {
    view.header()->setStretchLastSection(false);
    fit();
    view.installEventFilter(this);
    connect(view.header(), &QHeaderView::sectionResized, this,
            [this](int column, int, int width) { keep(column, width); });
  }

  static Columns* of(const QTreeView& view) {
    for (QObject* child : view.children())
      if (auto* columns = dynamic_cast<Columns*>(child)) return columns;
    return nullptr;
  }

  bool isKept(int column) const { return kept_.contains(column); }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FontChange || event->type() == QEvent::StyleChange) fit();
    return false;
  }

 private:
  void keep(int column, int width) {
    const bool isByHand = QGuiApplication::mouseButtons() != Qt::NoButton;
    if (isByHand && view_.header()->sectionResizeMode(column) == QHeaderView::Interactive)
      kept_[column] = width;
  }

  void fit() {
    QHeaderView& header = *view_.header();
    const int sides = 2 * gridStep();
    int figures = 0;
    int widestText = 0;
    for (int column = 0; column < longest_.size(); ++column) {
      const int head = header.sectionSizeHint(column);
      if (longest_[column].isEmpty()) {
        header.setSectionResizeMode(column, QHeaderView::Stretch);
        widestText = std::max(widestText, head);
        continue;
      }
      const int width = std::max(view_.fontMetrics().horizontalAdvance(longest_[column]) + sides, head);
      header.resizeSection(column, kept_.value(column, width));
      figures += width;
    }
    const int texts = static_cast<int>(longest_.count(QString())) * widestText;
    const int scrollBar = view_.style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    view_.setMinimumWidth(figures + texts + scrollBar + 2 * view_.frameWidth());
    view_.setMinimumHeight(header.sizeHint().height() + kLeastRows * rowHeight() + 2 * view_.frameWidth());
  }

  QTreeView& view_;
  QStringList longest_;
  QHash<int, int>& kept_;
};

}  // namespace

ListDelegate::ListDelegate(QObject* parent, Ticks ticks) : QStyledItemDelegate(parent), ticks_(ticks) {}

void ListDelegate::mark(const QString& record, QAbstractItemView& view) {
  marked_ = record;
  QTimer::singleShot(kMarkMilliseconds, &view, [this, record, &view] {
    if (marked_ == record) marked_.clear();
    view.viewport()->update();
  });
}

void ListDelegate::showFound(const QString& record, QAbstractItemView& view) {
  found_ = record;
  view.viewport()->update();
}

void ListDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  QStyledItemDelegate::initStyleOption(option, index);
  const QVariant overdue = index.data(kOverdueRole);
  if (overdue.toBool()) option->palette.setColor(QPalette::Text, overdueColour(option->palette));
  if (overdue.isValid() && index.column() == 0)
    showMark(*option, overdue.toBool() ? QList<QPolygonF>{kStroke, kDot} : QList<QPolygonF>());
  if (ticks_ == Ticks::Marks && option->features.testFlag(QStyleOptionViewItem::HasCheckIndicator))
    showMark(*option, option->checkState == Qt::Checked ? QList<QPolygonF>{kHook} : QList<QPolygonF>());
  const bool hasTint = !marked_.isEmpty() || !found_.isEmpty();
  if (hasTint && (recordOf(index) == marked_ || recordOf(index) == found_))
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

ListDelegate* layOutList(QTreeView& view, const QStringList& longest, ListDelegate::Ticks ticks) {
  auto* delegate = new ListDelegate(&view, ticks);
  view.setItemDelegate(delegate);
  view.ensurePolished();
  view.header()->ensurePolished();
  new Columns(view, longest);
  return delegate;
}

void keepWhole(QTreeView& view, int column, const QString& text) {
  const Columns* columns = Columns::of(view);
  if (columns != nullptr && columns->isKept(column)) return;
  const int width = view.header()->sectionSize(column);
  const int more = view.fontMetrics().horizontalAdvance(text) + 2 * gridStep() - width;
  if (more <= 0) return;
  view.header()->resizeSection(column, width + more);
  view.setMinimumWidth(view.minimumWidth() + more);
}

}  // namespace tarvik::ui
