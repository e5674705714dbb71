#include "ui/look/box_icon.h"

#include <QApplication>
#include <QImage>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
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

  void anErrorIsACrossInRed() {
    const QImage cross = drawn(QStyle::SP_MessageBoxCritical, 48);
    QCOMPARE(cross.pixelColor(24, 24), ui::overdueColour(QApplication::palette()));
    QCOMPARE(cross.pixelColor(24, 12).alpha(), 0);
    QCOMPARE(cross.pixelColor(0, 0).alpha(), 0);
  }

  void aQuestionHasTheHighlightAndADotUnderItsBow() {
    const QImage question = drawn(QStyle::SP_MessageBoxQuestion, 48);
    QCOMPARE(question.pixelColor(24, 34), QApplication::palette().color(QPalette::Highlight));
    QCOMPARE(question.pixelColor(24, 20).alpha(), 0);
    QCOMPARE(question.pixelColor(24, 31).alpha(), 0);
  }

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

  void aBoxShowsItAndItsButtonsShowNone() {
    QMessageBox box(QMessageBox::Critical, "H", "x", QMessageBox::Yes | QMessageBox::No);
    box.show();
    const int side = box.style()->pixelMetric(QStyle::PM_MessageBoxIconSize);
    QCOMPARE(box.iconPixmap().toImage().convertToFormat(QImage::Format_ARGB32),
             drawn(QStyle::SP_MessageBoxCritical, side));
    for (const QAbstractButton* button : box.buttons()) QVERIFY(button->icon().isNull());
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::BoxIconTest)
#include "box_icon_test.moc"
