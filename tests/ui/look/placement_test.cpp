#include "ui/look/placement.h"

#include <QBoxLayout>
#include <QDialog>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStyle>
#include <QTest>
#include <QWindow>

#include "tests/ui/screen_test.h"
#include "ui/look/side_by_side.h"

namespace tarvik::ui {
namespace {

// A window that asks for so much.
class Window : public QWidget {
 public:
  explicit Window(QSize hint) : hint_(hint) {}
  QSize sizeHint() const override { return hint_; }

 private:
  QSize hint_;
};

QRect room() {
  return QGuiApplication::primaryScreen()->availableGeometry();
}

// What a window has around it at most: 8 pixels of frame each side, and its title.
QSize around(const QWidget& window) {
  return {16, window.style()->pixelMetric(QStyle::PM_TitleBarHeight, nullptr, &window) + 16};
}

QWidget* fixed(int width, int height) {
  auto* part = new QWidget;
  part->setFixedSize(width, height);
  return part;
}

}  // namespace

class PlacementTest : public QObject {
  Q_OBJECT

 private slots:
  void aWindowOpensInTheMiddleAsLargeAsItAsksForOrAsIsWished() {
    Window window({100, 50});
    openInTheMiddle(window);
    QCOMPARE(window.size(), QSize(100, 50));
    QCOMPARE(QRect(window.pos(), window.size()).center(), room().center());
    openInTheMiddle(window, {300, 40});
    QCOMPARE(window.size(), QSize(300, 50));
    QCOMPARE(QRect(window.pos(), window.size()).center(), room().center());
  }

  void aWindowThatGrowsBeforeItIsShownIsInTheMiddleAllTheSame() {
    QDialog dialog;
    auto* column = new QVBoxLayout(&dialog);
    column->addWidget(fixed(200, 60));
    openInTheMiddle(dialog);
    column->addWidget(fixed(400, 60));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    const QPoint off = dialog.frameGeometry().center() - room().center();
    QVERIFY2(off.manhattanLength() <= 2, qPrintable(QString::number(off.x())));
  }

  void aWindowThatFillsTheDisplayLeavesItsFrameInside() {
    QDialog dialog;
    openInTheMiddle(dialog, {100'000, 100'000});
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(dialog.frameGeometry() != dialog.geometry());
    QVERIFY(room().contains(dialog.frameGeometry()));
  }

  void aWindowThatGrowsNearTheEdgeIsWhole() {
    QDialog dialog;
    auto* column = new QVBoxLayout(&dialog);
    openAt(dialog, room().bottomRight() - QPoint(150, 150));
    column->addWidget(fixed(400, 260));
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    QVERIFY(room().contains(dialog.frameGeometry()));
  }

  void aWindowIsNeverLargerThanTheDisplayLeavesIt() {
    Window window({100'000, 100'000});
    openInTheMiddle(window);
    QCOMPARE(window.size(), room().size() - around(window));
    openAt(window, room().topLeft());
    QCOMPARE(window.size(), room().size() - around(window));
  }

  void aSizeThatThePersonGaveAWindowIsThatOfTheNextOneOfItsName() {
    const auto open = [](QWidget& window, const char* name) {
      window.setObjectName(name);
      openInTheMiddle(window, {200, 100});
      window.show();
      if (!QTest::qWaitForWindowExposed(&window)) qFatal("the window did not come up");
      QCoreApplication::processEvents();
    };
    QWidget first;
    open(first, "sized");
    QCOMPARE(first.size(), QSize(200, 100));
    first.windowHandle()->resize(260, 140);  // as the desktop does for a person
    QTRY_COMPARE(first.size(), QSize(260, 140));
    QWidget next;
    open(next, "sized");
    QCOMPARE(next.size(), QSize(260, 140));
    next.resize(400, 300);  // as a part that needs more room does
    QWidget last;
    open(last, "sized");
    QCOMPARE(last.size(), QSize(260, 140));
    QWidget other;
    open(other, "other");
    QCOMPARE(other.size(), QSize(200, 100));
  }

  void aWindowOpensWhereItIsWishedAndNoFurtherOutThanItIsWhole() {
    Window window({100, 50});
    openAt(window, room().topLeft() + QPoint(10, 20));
    QCOMPARE(window.pos(), room().topLeft() + QPoint(10, 20));
    openAt(window, room().topLeft() - QPoint(30, 40));
    QCOMPARE(window.pos(), room().topLeft());
    openAt(window, room().bottomRight(), {120, 60});
    const QSize whole = QSize(120, 60) + around(window);
    QCOMPARE(window.pos(), room().bottomRight() + QPoint(1, 1) - QPoint(whole.width(), whole.height()));
  }

  void whatADialogHoldsScrollsButItsMenuStaysInSight() {
    QDialog dialog;
    auto* column = new QVBoxLayout(&dialog);
    auto* menu = new QMenuBar(&dialog);
    column->setMenuBar(menu);
    QWidget* part = fixed(90, 60);
    column->addWidget(part);
    keepWithinReach(dialog);
    const auto* area = dialog.findChild<QScrollArea*>();
    QVERIFY(area != nullptr && area->isAncestorOf(part) && !area->isAncestorOf(menu));
    QCOMPARE(dialog.layout()->menuBar(), menu);
    QCOMPARE(dialog.layout()->contentsMargins(), QMargins());
    dialog.show();
    QCOMPARE(area->width(), dialog.width());
  }

  void partsStandBesideEachOtherWhereTheyHaveTheRoom() {
    SideBySide band;
    auto* parts = new QHBoxLayout(&band);
    parts->setContentsMargins(0, 0, 0, 0);
    parts->setSpacing(7);
    parts->setSizeConstraint(QLayout::SetNoConstraint);
    for (const int width : {150, 100, 80}) parts->addWidget(fixed(width, 30));
    QCOMPARE(band.wideWidth(), 150 + 7 + 100 + 7 + 80);
    QCOMPARE(band.minimumSizeHint(), QSize(150, 30));
    band.show();
    band.resize(band.wideWidth() - 1, 200);
    QCOMPARE(parts->direction(), QBoxLayout::TopToBottom);
    QCOMPARE(band.minimumSizeHint(), QSize(150, 30 + 7 + 30 + 7 + 30));
    band.resize(band.wideWidth(), 200);
    QCOMPARE(parts->direction(), QBoxLayout::LeftToRight);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::PlacementTest)
#include "placement_test.moc"
