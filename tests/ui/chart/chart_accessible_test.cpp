#include <QAccessible>
#include <QSignalSpy>

#include "tests/ui/chart_samples.h"
#include "tests/ui/screen_test.h"

using tarvik::ui::ChartType;
using tarvik::ui::ChartView;
using namespace tarvik::ui::samples;

class ChartAccessibleTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<ShownChart> chart_;

 private slots:
  void init() { chart_ = std::make_unique<ShownChart>(); }

  void accessibleChartIsNamedByItsTitle() {
    chart_->setTitleText("Havi átlagfogyasztás");
    QAccessibleInterface* const chart = QAccessible::queryAccessibleInterface(chart_.get());
    QVERIFY(chart);
    QCOMPARE(chart->role(), QAccessible::Chart);
    QCOMPARE(chart->text(QAccessible::Name), QStringLiteral("Havi átlagfogyasztás"));
  }

  void accessibleChartSaysWhatItShows() {
    chart_->setUnitText("Ft/liter");
    chart_->plot(ChartType::Line2D, {"2013.07.05.", "2013.07.14.", "2013.07.23."}, {425.9, 431, 429.5});
    QAccessibleInterface* const chart = QAccessible::queryAccessibleInterface(chart_.get());
    QCOMPARE(chart->text(QAccessible::Description),
             QStringLiteral("Mértékegység: Ft/liter. 3 pont. Legkisebb érték: 425,9 (2013.07.05.). "
                            "Legnagyobb érték: 431 (2013.07.14.). Utolsó érték: 429,5 (2013.07.23.)."));
    QCOMPARE(chart->child(2)->text(QAccessible::Name), QStringLiteral("2013.07.23.: 429,5 Ft/liter"));
  }

  void accessiblePointsTellNameAndPlace() {
    chart_->plot(ChartType::Bars3D, {"2013. 5. hó", "2013. 6. hó", "2013. 7. hó"},
                 {7.6253, 12345.5, std::nan("")});
    QAccessibleInterface* const chart = QAccessible::queryAccessibleInterface(chart_.get());
    QCOMPARE(chart->childCount(), 3);
    QCOMPARE(chart->child(0)->text(QAccessible::Name), QStringLiteral("2013. 5. hó: 7,6253"));
    QCOMPARE(chart->child(1)->text(QAccessible::Name), QStringLiteral("2013. 6. hó: 12\u00a0345,5"));
    QCOMPARE(chart->child(2)->text(QAccessible::Name), QStringLiteral("2013. 7. hó: nincs adat"));
    const QRect drawn = chart_->pointRect(2).toAlignedRect().translated(chart_->mapToGlobal(QPoint()));
    QCOMPARE(chart->child(1)->rect(), drawn);
    QCOMPARE(chart->childAt(drawn.center().x(), drawn.center().y()), chart->child(1));
    QCOMPARE(chart->indexOfChild(chart->child(1)), 1);
    QVERIFY(!chart->child(3));
  }

  void accessiblePressSelectsThePoint() {
    chart_->plot(ChartType::Area2D, monthLabels(3), waves(3));
    QSignalSpy selected(chart_.get(), &ChartView::pointSelected);
    QAccessibleInterface* const point = QAccessible::queryAccessibleInterface(chart_.get())->child(1);
    QVERIFY(!point->state().selected);
    point->actionInterface()->doAction(QAccessibleActionInterface::pressAction());
    QCOMPARE(selected.value(0), QVariantList({1, 2}));
    QVERIFY(point->state().selected);
  }

  void accessiblePointSaysWhatItIs() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), waves(3));
    QAccessibleInterface* const chart = QAccessible::queryAccessibleInterface(chart_.get());
    QAccessibleInterface* const point = chart->child(0);
    QCOMPARE(point->role(), QAccessible::ListItem);
    QCOMPARE(point->parent(), chart);
    QCOMPARE(point->window(), chart->window());
    QCOMPARE(point->childCount(), 0);
    QCOMPARE(point->indexOfChild(point), -1);
    QVERIFY(point->object() == nullptr && point->child(0) == nullptr && point->childAt(0, 0) == nullptr);
    QCOMPARE(point->text(QAccessible::Description), QString());
    QVERIFY(point->state().selectable && !point->state().invalid && !point->state().invisible);
    QCOMPARE(point->actionInterface()->actionNames(), QStringList(QAccessibleActionInterface::pressAction()));
    QVERIFY(point->actionInterface()->keyBindingsForAction("x").isEmpty());
    QVERIFY(point->tableInterface() == nullptr);
    point->actionInterface()->doAction(QAccessibleActionInterface::showMenuAction());
    QCOMPARE(chart_->selectedRow(), 0);
    chart_->hide();
    QVERIFY(point->state().invisible);
    chart_->setPoints({}, {});
    QVERIFY(point->state().invalid);
    QCOMPARE(point->text(QAccessible::Name), QString());
  }

  void accessibleChartHasNoPointsBesideItsOwn() {
    chart_->plot(ChartType::Bars2D, monthLabels(3), waves(3));
    QAccessibleInterface* const chart = QAccessible::queryAccessibleInterface(chart_.get());
    QVERIFY(chart->child(-1) == nullptr);
    QCOMPARE(chart->indexOfChild(chart), -1);
    const QPoint corner = chart_->mapToGlobal(QPoint(1, 1));
    QVERIFY(chart->childAt(corner.x(), corner.y()) == nullptr);
    chart_->setAccessibleName("Grafikon");
    QCOMPARE(chart->text(QAccessible::Name), QStringLiteral("Grafikon"));
  }

  void thePointsGoWithTheirChartAndOtherPartsAreLeftToQt() {
    chart_->setPoints(monthLabels(3), waves(3));
    const auto point = QAccessible::uniqueId(QAccessible::queryAccessibleInterface(chart_.get())->child(1));
    QVERIFY(QAccessible::accessibleInterface(point) != nullptr);
    chart_.reset();
    QVERIFY(QAccessible::accessibleInterface(point) == nullptr);
    const QWidget other;
    QVERIFY(QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&other))->role() !=
            QAccessible::Chart);
  }

  void accessiblePointOfAShorterSeriesIsInvalid() {
    chart_->setPoints(monthLabels(3), waves(3));
    QAccessibleInterface* const point = QAccessible::queryAccessibleInterface(chart_.get())->child(2);
    QVERIFY(point->isValid());
    chart_->setPoints(monthLabels(2), waves(2));
    QVERIFY(!point->isValid());
    QVERIFY(point->rect().isNull());
  }
};

TARVIK_SCREEN_TEST(ChartAccessibleTest)
#include "chart_accessible_test.moc"
