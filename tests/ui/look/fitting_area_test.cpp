#include "ui/look/fitting_area.h"

#include <QLabel>
#include <QListWidget>
#include <QScreen>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

// What a window around contents of a least size must at least have.
QSize leastAround(const QSize& contents) {
  test::dressOnce();
  auto* const part = new QWidget;
  part->setMinimumSize(contents);
  return FittingArea(part, nullptr).minimumSizeHint();
}

}  // namespace

class FittingAreaTest : public QObject {
  Q_OBJECT

 private slots:
  void contentsThatFitHaveTheirOwnSize() { QCOMPARE(leastAround({300, 200}), QSize(300, 200)); }

  void contentsThatAreTooHighOrTooWideHaveRoomForTheScrollBar() {
    const QScrollArea area;
    const int across = area.verticalScrollBar()->sizeHint().width();
    const int down = area.horizontalScrollBar()->sizeHint().height();
    const QSize most = leastAround({50'000, 50'000});
    QVERIFY(most.width() < area.screen()->availableGeometry().width());
    QVERIFY(most.height() < area.screen()->availableGeometry().height());
    QCOMPARE(leastAround({300, 50'000}), QSize(300 + across, most.height()));
    QCOMPARE(leastAround({50'000, 200}), QSize(most.width(), 200 + down));
    for (const QSize& whole : {most, QSize(300, most.height()), QSize(most.width(), 200)})
      QCOMPARE(leastAround(whole), whole);
  }

  void aWrappedLineTakesItsRoomFromWhatCanGiveIt() {
    test::dressOnce();
    auto* const part = new QWidget;
    auto* const layout = new QVBoxLayout(part);
    auto* const list = new QListWidget;
    list->setMinimumHeight(50);
    layout->addWidget(list);
    auto* const line = new QLabel(QStringLiteral("Rögzítve: 2013.07.05. tankolás"));
    line->setWordWrap(true);
    line->hide();
    layout->addWidget(line);
    FittingArea area(part);
    area.resize(300, 120);
    area.show();
    QCOMPARE(list->height() + 2 * list->y(), 120);
    line->show();
    QTRY_VERIFY(list->height() < 110);
    QCOMPARE(area.verticalScrollBar()->maximum(), 0);
    QCOMPARE(part->height(), 120);
    QVERIFY(line->geometry().bottom() < 120);
    list->setMinimumHeight(500);
    QTRY_VERIFY(area.verticalScrollBar()->maximum() > 0);
    QCOMPARE(part->width() + area.verticalScrollBar()->width(), 300);
    list->setMinimumHeight(50);
    QTRY_COMPARE(part->size(), QSize(300, 120));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::FittingAreaTest)
#include "fitting_area_test.moc"
