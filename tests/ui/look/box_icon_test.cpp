#include "ui/look/box_icon.h"

#include <QImage>
#include <cstdlib>

#include "tests/ui/screen_test.h"
#include "tests/ui/support.h"
#include "ui/look/look.h"

namespace tarvik::test {
namespace {

QImage drawn(QStyle::StandardPixmap icon, int side) {
  return ui::boxIcon(icon).pixmap(QSize(side, side)).toImage().convertToFormat(QImage::Format_ARGB32);
}

}  // namespace

class BoxIconTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { dressOnce(); }

  void theMarkOfANarrowMenuBarHasTheColourOfItsTexts() {
    const QImage mark = drawn(QStyle::SP_ToolBarHorizontalExtensionButton, 48);
    QCOMPARE(mark.pixelColor(23, 24), QApplication::palette().color(QPalette::ButtonText));
    QCOMPARE(mark.pixelColor(12, 24).alpha(), 0);
    QCOMPARE(mark.pixelColor(47, 24).alpha(), 0);
  }

  void theFourDiffer() {
    const QStyle::StandardPixmap icons[] = {QStyle::SP_MessageBoxQuestion, QStyle::SP_MessageBoxInformation,
                                            QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical};
    for (const auto one : icons)
      for (const auto other : icons) QCOMPARE(drawn(one, 48) == drawn(other, 48), one == other);
  }

  // But for the rounding of smooth edges.
  void aSignIsTheSameOnBothSides() {
    for (const auto icon :
         {QStyle::SP_MessageBoxInformation, QStyle::SP_MessageBoxWarning, QStyle::SP_MessageBoxCritical}) {
      const QImage sign = drawn(icon, 48);
      for (int y = 0; y < 48; ++y)
        for (int x = 0; x < 24; ++x)
          QVERIFY(std::abs(sign.pixelColor(x, y).alpha() - sign.pixelColor(47 - x, y).alpha()) < 100);
    }
  }

  void itIsAsLargeAsItIsAskedFor() {
    QCOMPARE(drawn(QStyle::SP_MessageBoxWarning, 96).size(), QSize(96, 96));
  }

  void otherIconsAreLeftAlone() { QVERIFY(ui::boxIcon(QStyle::SP_TitleBarCloseButton).isNull()); }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::BoxIconTest)
#include "box_icon_test.moc"
