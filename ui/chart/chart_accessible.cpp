#include "ui/chart/chart_accessible.h"

#include <QAccessibleWidget>
#include <QHash>
#include <QPointer>

#include "ui/chart/chart_view.h"

namespace tarvik::ui {
namespace {

// A point of a chart. It has no widget of its own and lives as long as the chart's interface.
class PointAccessible : public QAccessibleInterface, public QAccessibleActionInterface {
 public:
  PointAccessible(ChartView* chart, int row) : chart_(chart), row_(row) {}

  bool isValid() const override { return chart_ && row_ <= chart_->rowCount(); }
  QObject* object() const override { return nullptr; }
  QWindow* window() const override { return parent()->window(); }
  QAccessible::Role role() const override { return QAccessible::ListItem; }
  QAccessibleInterface* parent() const override { return QAccessible::queryAccessibleInterface(chart_); }
  QAccessibleInterface* child(int) const override { return nullptr; }
  QAccessibleInterface* childAt(int, int) const override { return nullptr; }
  int childCount() const override { return 0; }
  int indexOfChild(const QAccessibleInterface*) const override { return -1; }

  QString text(QAccessible::Text kind) const override {
    return isValid() && kind == QAccessible::Name ? chart_->pointText(row_) : QString();
  }
  void setText(QAccessible::Text, const QString&) override {}

  QRect rect() const override {
    if (!isValid()) return {};
    const QRect drawn = chart_->pointRect(row_).toAlignedRect();
    return drawn.translated(chart_->mapToGlobal(QPoint()));
  }

  QAccessible::State state() const override {
    QAccessible::State state;
    state.selectable = true;
    state.invalid = !isValid();
    if (!isValid()) return state;
    state.selected = chart_->selectedRow() == row_;
    state.invisible = !chart_->isVisible();
    return state;
  }

  QStringList actionNames() const override { return {pressAction()}; }
  QStringList keyBindingsForAction(const QString&) const override { return {}; }
  void doAction(const QString& name) override {
    if (isValid() && name == pressAction()) chart_->selectRow(row_);
  }

  void* interface_cast(QAccessible::InterfaceType type) override {
    return type == QAccessible::ActionInterface ? static_cast<QAccessibleActionInterface*>(this) : nullptr;
  }

  int row() const { return row_; }

 private:
  QPointer<ChartView> chart_;
  int row_;
};

// A chart, whose children are its points instead of the widgets inside.
class ChartAccessible : public QAccessibleWidget {
 public:
  explicit ChartAccessible(ChartView* chart) : QAccessibleWidget(chart, QAccessible::Chart) {}
  ~ChartAccessible() override {
    for (const QAccessible::Id point : std::as_const(points_)) QAccessible::deleteAccessibleInterface(point);
  }

  int childCount() const override { return chart()->rowCount(); }

  QAccessibleInterface* child(int index) const override {
    if (index < 0 || index >= childCount()) return nullptr;
    auto point = points_.constFind(index);
    if (point == points_.constEnd()) {
      point = points_.insert(
          index, QAccessible::registerAccessibleInterface(new PointAccessible(chart(), index + 1)));
    }
    return QAccessible::accessibleInterface(*point);
  }

  int indexOfChild(const QAccessibleInterface* wanted) const override {
    const auto* const point = dynamic_cast<const PointAccessible*>(wanted);
    return point && child(point->row() - 1) == wanted ? point->row() - 1 : -1;
  }

  QAccessibleInterface* childAt(int x, int y) const override {
    return child(chart()->rowAtPosition(chart()->mapFromGlobal(QPoint(x, y))) - 1);
  }

  QString text(QAccessible::Text kind) const override {
    if (kind == QAccessible::Name && !chart()->titleText().isEmpty()) return chart()->titleText();
    return kind == QAccessible::Description ? chart()->summaryText() : QAccessibleWidget::text(kind);
  }

 private:
  ChartView* chart() const { return static_cast<ChartView*>(widget()); }

  mutable QHash<int, QAccessible::Id> points_;
};

QAccessibleInterface* chartInterface(const QString&, QObject* object) {
  auto* const chart = qobject_cast<ChartView*>(object);
  return chart ? new ChartAccessible(chart) : nullptr;
}

}  // namespace

// Qt keeps a factory once, however often it is told.
void installChartAccessibility() {
  QAccessible::installFactory(chartInterface);
}

}  // namespace tarvik::ui
