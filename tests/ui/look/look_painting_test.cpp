#include "ui/look/look_painting.h"

#include <QComboBox>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTest>
#include <algorithm>
#include <functional>

#include "tests/ui/screen_test.h"
#include "ui/base/colours.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

const QColor kWindow(240, 230, 220);
const QColor kWindowText(20, 10, 0);
const QColor kBase(250, 255, 255);
const QColor kText(30, 40, 50);
const QColor kButton(200, 210, 190);
const QColor kButtonText(60, 0, 60);
const QColor kHighlight(0, 80, 160);
const QColor kHighlightedText(255, 250, 245);
const QColor kNothing(Qt::magenta);
constexpr QSize kSize(60, 24);

QPalette palette() {
  QPalette palette;
  palette.setColor(QPalette::Window, kWindow);
  palette.setColor(QPalette::WindowText, kWindowText);
  palette.setColor(QPalette::Base, kBase);
  palette.setColor(QPalette::Text, kText);
  palette.setColor(QPalette::Button, kButton);
  palette.setColor(QPalette::ButtonText, kButtonText);
  palette.setColor(QPalette::Highlight, kHighlight);
  palette.setColor(QPalette::HighlightedText, kHighlightedText);
  return palette;
}

template <typename Option = QStyleOption>
Option optionIn(QStyle::State state, QSize size = kSize) {
  Option option;
  option.state = state;
  option.rect = QRect({}, size);
  option.palette = palette();
  return option;
}

QImage painted(const QStyleOption& option, const std::function<void(QPainter&)>& paint) {
  QImage picture(option.rect.size(), QImage::Format_RGB32);
  picture.fill(kNothing);
  QPainter painter(&picture);
  painter.setPen(QPen(Qt::green, 7));
  painter.setBrush(Qt::green);
  const QFont font = painter.font();
  paint(painter);
  const bool isAsBefore = painter.pen() == QPen(Qt::green, 7) && painter.brush() == QBrush(Qt::green) &&
                          painter.font() == font && !painter.testRenderHint(QPainter::Antialiasing);
  if (!isAsBefore) QTest::qFail("the painter is left in another state", __FILE__, __LINE__);
  return picture;
}

// The pixel in a box that is the nearest to a colour, as its distance from it.
int nearestTo(const QColor& colour, const QImage& picture, const QRect& box) {
  int nearest = 3 * 255;
  for (int y = box.top(); y <= box.bottom(); ++y)
    for (int x = box.left(); x <= box.right(); ++x) {
      const QColor pixel = picture.pixelColor(x, y);
      nearest =
          std::min(nearest, std::abs(pixel.red() - colour.red()) + std::abs(pixel.green() - colour.green()) +
                                std::abs(pixel.blue() - colour.blue()));
    }
  return nearest;
}

bool hasPaint(const QImage& picture, const QRect& box) {
  QImage untouched(box.size(), picture.format());
  untouched.fill(kNothing);
  return picture.copy(box) != untouched;
}

QImage button(QStyle::State state, bool isMain = false) {
  const auto option = optionIn(state);
  return painted(option, [&](QPainter& painter) { paintButton(painter, option, isMain); });
}

QImage checkBox(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintCheckBox(painter, option); });
}

QImage radioButton(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintRadioButton(painter, option); });
}

QImage selector(QStyle::State state, bool isEditable = false) {
  auto option = optionIn<QStyleOptionComboBox>(state);
  option.editable = isEditable;
  return painted(option, [&](QPainter& painter) { paintSelector(painter, option, QRect(40, 0, 20, 24)); });
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

  // Colours worked out from those above; what stands untouched and can be used is in the kept pictures.
  void whatIsTouchedMovesTowardsItsTextAndWhatCannotBeUsedStepsBack_data() {
    const QStyle::State kOn = QStyle::State_Enabled;
    const QStyle::State kOver = kOn | QStyle::State_MouseOver;
    const QStyle::State kDown = kOver | QStyle::State_Sunken;
    const QStyle::State kOff = QStyle::State_MouseOver | QStyle::State_Sunken;
    QTest::addColumn<QImage>("picture");
    QTest::addColumn<QColor>("expected");
    QTest::newRow("button, pointed at") << button(kOver) << QColor(213, 214, 211);
    QTest::newRow("button, pressed") << button(kDown) << QColor(191, 183, 189);
    QTest::newRow("button, disabled") << button(kOff) << kWindow;
    QTest::newRow("main button, pointed at") << button(kOver, true) << QColor(23, 95, 168);
    QTest::newRow("main button, disabled") << button(kOff, true) << kWindow;
    QTest::newRow("check box, pointed at") << checkBox(kOver | QStyle::State_Off) << QColor(230, 236, 237);
    QTest::newRow("check box, disabled") << checkBox(kOff | QStyle::State_Off) << QColor(245, 243, 238);
    QTest::newRow("option, pressed") << radioButton(kDown | QStyle::State_Off) << QColor(202, 208, 210);
    QTest::newRow("option, disabled") << radioButton(kOff | QStyle::State_Off) << QColor(245, 243, 238);
    QTest::newRow("checked option, disabled") << radioButton(QStyle::State_On) << QColor(96, 105, 112);
  }
  void whatIsTouchedMovesTowardsItsTextAndWhatCannotBeUsedStepsBack() {
    QFETCH(QImage, picture);
    QFETCH(QColor, expected);
    QCOMPARE(picture.pixelColor(picture.rect().center()), expected);
  }

  void theMainButtonHasARingOfItsTextWithTheKeyboard() {
    const QImage plain = button(QStyle::State_Enabled, true);
    const QImage focused = button(QStyle::State_Enabled | QStyle::State_HasFocus, true);
    for (int depth = 0; depth < 4; ++depth) {
      QCOMPARE(plain.pixelColor(depth, plain.height() / 2), kHighlight);
      QCOMPARE(focused.pixelColor(depth, plain.height() / 2), depth == 2 ? kHighlightedText : kHighlight);
    }
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

  void aCheckMarkThatCannotBeChangedIsQuiet() {
    const QImage on = checkBox(QStyle::State_On);
    QVERIFY(nearestTo(QColor(96, 105, 112), on, QRect(7, 12, 4, 4)) < 10);
    QVERIFY(nearestTo(kText, on, on.rect()) > 60);
  }

  void aSelectorDoesNotLookPressedWhileItsListIsOpen() {
    QCOMPARE(selector(QStyle::State_Enabled | QStyle::State_Sunken), selector(QStyle::State_Enabled));
  }

  void anArrowThatCannotBeUsedIsQuiet() {
    const QImage plain = selector(QStyle::State_None);
    QVERIFY(nearestTo(QColor(168, 138, 156), plain, QRect(46, 8, 9, 8)) < 60);
    QVERIFY(nearestTo(kButtonText, plain, QRect(46, 8, 9, 8)) > 160);
  }

  // An editable one has the surface of a field.
  void anArrowHasTheColourOfTheTextOnItsSurface() {
    const QRect arrow(46, 8, 9, 8);
    QVERIFY(nearestTo(kButtonText, selector(QStyle::State_Enabled), arrow) < 10);
    QVERIFY(nearestTo(kText, selector(QStyle::State_Enabled, true), arrow) < 10);
  }

  void aPartWithoutAWidgetHasNoLook() { QVERIFY(!hasLook(nullptr, "card")); }

  void theLineAroundARowOrAListIsItsOutermostPixels() {
    const auto option = optionIn(QStyle::State_Enabled);
    const QRect all = option.rect;
    for (const auto& paint : {paintKeyboardsPlace, paintOutline}) {
      const QImage picture = painted(option, [&](QPainter& painter) { paint(painter, option); });
      QVERIFY(!hasPaint(picture, all.adjusted(1, 1, -1, -1)));
      QVERIFY(hasPaint(picture, {1, 0, all.width() - 2, 1}));
      QVERIFY(hasPaint(picture, {1, all.bottom(), all.width() - 2, 1}));
      QVERIFY(hasPaint(picture, {0, 1, 1, all.height() - 2}));
      QVERIFY(hasPaint(picture, {all.right(), 1, 1, all.height() - 2}));
    }
  }

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
