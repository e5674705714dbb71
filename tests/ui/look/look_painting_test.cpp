#include "ui/look/look_painting.h"

#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTest>
#include <algorithm>

#include "tests/ui/screen_test.h"
#include "ui/base/colours.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

const QColor kText(30, 40, 50);
const QColor kButtonText(60, 0, 60);

QImage selector(bool isEditable) {
  QStyleOptionComboBox option;
  option.state = QStyle::State_Enabled;
  option.rect = QRect(0, 0, 60, 24);
  option.palette.setColor(QPalette::Text, kText);
  option.palette.setColor(QPalette::ButtonText, kButtonText);
  option.editable = isEditable;
  QImage picture(option.rect.size(), QImage::Format_RGB32);
  picture.fill(Qt::magenta);
  QPainter painter(&picture);
  paintSelector(painter, option, QRect(40, 0, 20, 24));
  return picture;
}

// The pixel of the arrow that is the nearest to a colour, as its distance from it.
int nearestTo(const QColor& colour, const QImage& picture) {
  int nearest = 3 * 255;
  for (int y = 8; y < 16; ++y)
    for (int x = 46; x < 55; ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      nearest =
          std::min(nearest, std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                                std::abs(pixel.blue() - colour.blue()));
    }
  return nearest;
}

}  // namespace

class LookPaintingTest : public QObject {
  Q_OBJECT

 private slots:
  void aColourBetweenTwoIsRoundedToTheNearest() {
    QCOMPARE(between(QColor(0, 10, 200), QColor(3, 20, 100), 0.0), QColor(0, 10, 200));
    QCOMPARE(between(QColor(0, 10, 200), QColor(3, 20, 100), 1.0), QColor(3, 20, 100));
    QCOMPARE(between(QColor(0, 10, 200), QColor(3, 20, 100), 0.25), QColor(1, 13, 175));
  }

  // In steps of eight parts of a hundred away from the text, until their contrast is 4.5 to 1.
  void theMainButtonCanBeReadWhateverTheHighlightIs_data() {
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<QColor>("text");
    QTest::addColumn<QColor>("expected");
    const QColor white(Qt::white);
    const QColor black(Qt::black);
    QTest::newRow("white on a light blue") << QColor(61, 174, 233) << white << QColor(44, 124, 167);
    QTest::newRow("white on grey") << QColor(160, 160, 160) << white << QColor(114, 114, 114);
    QTest::newRow("white on yellow") << QColor(255, 220, 60) << white << QColor(132, 111, 31);
    QTest::newRow("black on a dark blue") << QColor(8, 8, 120) << black << QColor(117, 117, 180);
    QTest::newRow("black on a dark grey") << QColor(90, 90, 90) << black << QColor(126, 126, 126);
    QTest::newRow("white on blue") << QColor(0, 100, 180) << white << QColor(0, 100, 180);
    QTest::newRow("black on yellow") << QColor(255, 220, 60) << black << QColor(255, 220, 60);
  }
  void theMainButtonCanBeReadWhateverTheHighlightIs() {
    QFETCH(QColor, highlight);
    QFETCH(QColor, text);
    QPalette palette;
    palette.setColor(QPalette::Highlight, highlight);
    palette.setColor(QPalette::HighlightedText, text);
    QTEST(readableHighlight(palette, QPalette::Active), "expected");
  }

  // An editable one has the surface of a field. No desktop's palette that the pictures have tells the two
  // apart.
  void anArrowHasTheColourOfTheTextOnItsSurface() {
    QVERIFY(nearestTo(kButtonText, selector(false)) < 10);
    QVERIFY(nearestTo(kText, selector(true)) < 10);
  }

  void whatGoesOnPaintingFindsThePainterAsItWas() {
    QStyleOptionComboBox option;
    option.state = QStyle::State_Enabled | QStyle::State_On;
    option.rect = QRect(0, 0, 60, 24);
    QImage picture(option.rect.size(), QImage::Format_RGB32);
    QPainter painter(&picture);
    painter.setPen(QPen(Qt::green, 7));
    painter.setBrush(Qt::green);
    for (const auto& paint :
         {paintOutline, paintKeyboardsPlace, paintCheckBox, paintRadioButton, paintCard}) {
      paint(painter, option);
      paintSelector(painter, option, option.rect);
      QVERIFY(painter.pen() == QPen(Qt::green, 7) && painter.brush() == QBrush(Qt::green));
      QVERIFY(!painter.testRenderHint(QPainter::Antialiasing));
    }
  }

  void aPartWithoutAWidgetHasNoLook() { QVERIFY(!hasLook(nullptr, "card")); }

  void whatIsOverdueIsRedOnLightAndOnDark() {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(128, 128, 128));
    QCOMPARE(overdueColour(palette), QColor(176, 0, 32));
    palette.setColor(QPalette::Base, QColor(127, 127, 127));
    QCOMPARE(overdueColour(palette), QColor(255, 138, 128));
  }

  void whatIsPressedHearsOfThePointerAndStaysInItsPlace() {
    LookStyle look;
    QPushButton button;
    QComboBox box;
    for (QWidget* part : {static_cast<QWidget*>(&button), static_cast<QWidget*>(&box)}) {
      look.polish(part);
      QVERIFY(part->testAttribute(Qt::WA_Hover));
    }
    QCOMPARE(look.pixelMetric(QStyle::PM_ButtonShiftHorizontal, nullptr, &button), 0);
    QCOMPARE(look.pixelMetric(QStyle::PM_ButtonShiftVertical, nullptr, &button), 0);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::LookPaintingTest)
#include "look_painting_test.moc"
