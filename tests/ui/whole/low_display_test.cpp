#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/windows/frmGumik.h"

// The commonest old laptop: 1366 x 768 pixels, 40 of them under the desktop's panel.

namespace tarvik {
namespace {

constexpr int kUsualPoints = 10;
constexpr int kLargePoints = 12;

// The scroll bars of a window's contents that are in use.
QStringList scrollBarsOf(const QWidget& window) {
  const auto* area = window.findChild<QScrollArea*>();
  QStringList used;
  if (area->verticalScrollBar()->maximum() > 0) used << "vertical";
  if (area->horizontalScrollBar()->maximum() > 0) used << "horizontal";
  return used;
}

struct Household : test::MainScreen {
  explicit Household(int points) {
    QFont font = QApplication::font();
    font.setPointSize(points);
    QApplication::setFont(font);
    choosePlateAtStart("ABC-123");
    writeLogbook("ABC-123", {test::fuelling({2026, 11, 1}, 10'000, 400'000, true, 18'000),
                             test::fuelling({2026, 11, 9}, 10'500, 350'000, true, 16'000)});
    open();
  }
};

}  // namespace

class LowDisplayTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() {
    test::dressOnce();
    QCOMPARE(QApplication::primaryScreen()->availableGeometry().size(), QSize(1366, 728));
  }

  void theMainScreenIsWholeWithAChart() {
    Household desk(kUsualPoints);
    QCOMPARE(scrollBarsOf(*desk.screen), QStringList());
    desk.showChart("Option1");
    QVERIFY(desk.find<QFrame>("FrmGrafikon")->isVisible());
    QCOMPARE(scrollBarsOf(*desk.screen), QStringList());
    QVERIFY(desk.screen->screen()->availableGeometry().contains(desk.screen->geometry()));
  }

  void theMainScreenIsWholeWithLargerLettersAndMoreThanFourRows() {
    Household desk(kLargePoints);
    QCOMPARE(scrollBarsOf(*desk.screen), QStringList());
    const int row = desk.list()->visualRect(desk.list()->model()->index(0, 0)).height();
    QVERIFY(desk.list()->viewport()->height() > 4 * row);
    QVERIFY(desk.find<QWidget>("FrameAlkatresz")->x() > desk.find<QWidget>("FrameTank")->geometry().right());
  }

  void theTyresAreWholeWithTheirChangeFrameAndLargerLetters() {
    Household desk(kLargePoints);
    ui::frmGumik tyres(desk.context, "ABC-123", {"ABC-123"}, nullptr);
    tyres.show();
    test::part<QGroupBox>(tyres, "frameGumiModosit")->show();
    QCoreApplication::processEvents();
    QCOMPARE(scrollBarsOf(tyres), QStringList());
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::LowDisplayTest)
#include "low_display_test.moc"
