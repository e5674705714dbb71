#include "ui/look/look_painting.h"

#include <QComboBox>
#include <QGroupBox>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QStyleOption>
#include <QTest>
#include <algorithm>
#include <cmath>
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

// The quiet outline, by hand: 14 of a hundred parts of the way from the window to its text.
const QColor kCardLine(209, 199, 189);
// Halfway between the window and the base.
const QColor kHalf(245, 243, 238);

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

QColor inside(const QImage& picture) {
  return picture.pixelColor(picture.rect().center());
}

QColor atEdge(const QImage& picture, int depth = 0) {
  return picture.pixelColor(depth, picture.height() / 2);
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

QColor mixedInHundredths(const QColor& from, const QColor& to, int share) {
  const auto part = [share](int a, int b) {
    return static_cast<int>(std::lround(a + (b - a) * share / 100.0));
  };
  return {part(from.red(), to.red()), part(from.green(), to.green()), part(from.blue(), to.blue())};
}

// The contrast of two colours as the guidelines for readable pages define it.
double contrastOf(const QColor& one, const QColor& other) {
  const auto luminance = [](const QColor& colour) {
    const auto linear = [](int part) {
      const double share = part / 255.0;
      return share <= 0.04045 ? share / 12.92 : std::pow((share + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.red()) + 0.7152 * linear(colour.green()) + 0.0722 * linear(colour.blue());
  };
  const auto [darker, lighter] = std::minmax({luminance(one), luminance(other)});
  return (lighter + 0.05) / (darker + 0.05);
}

QImage button(QStyle::State state, bool isMain = false) {
  const auto option = optionIn(state);
  return painted(option, [&](QPainter& painter) { paintButton(painter, option, isMain); });
}

QImage mainButton(const QColor& highlight, const QColor& text) {
  auto option = optionIn(QStyle::State_Enabled);
  option.palette.setColor(QPalette::Highlight, highlight);
  option.palette.setColor(QPalette::HighlightedText, text);
  return painted(option, [&](QPainter& painter) { paintButton(painter, option, true); });
}

QImage checkBox(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintCheckBox(painter, option); });
}

QImage radioButton(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintRadioButton(painter, option); });
}

QImage selector(QStyle::State state) {
  const auto option = optionIn<QStyleOptionComboBox>(state);
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

  void aButtonIsLighterThanTheDesktopsAndMovesTowardsItsTextWhenTouched() {
    const QColor surface(228, 235, 226);  // 55 parts of a hundred from the button to the base
    QCOMPARE(inside(button(QStyle::State_Enabled)), surface);
    QCOMPARE(inside(button(QStyle::State_Enabled | QStyle::State_MouseOver)),
             mixedInHundredths(surface, kButtonText, 9));
    QCOMPARE(inside(button(QStyle::State_Enabled | QStyle::State_Sunken)),
             mixedInHundredths(surface, kButtonText, 22));
    QCOMPARE(inside(button(QStyle::State_Enabled | QStyle::State_Sunken | QStyle::State_MouseOver)),
             mixedInHundredths(surface, kButtonText, 22));
  }

  void aButtonThatCannotBePressedLiesFlatAndIsNotTouched() {
    for (const QStyle::State state : {QStyle::State_None, QStyle::State_MouseOver, QStyle::State_Sunken}) {
      QCOMPARE(inside(button(state)), kWindow);
      QCOMPARE(atEdge(button(state)), kCardLine);
    }
  }

  void theMainButtonHasTheHighlightAndARingOfItsTextWithTheKeyboard() {
    const QImage plain = button(QStyle::State_Enabled, true);
    QCOMPARE(inside(plain), kHighlight);
    QCOMPARE(atEdge(plain), kHighlight);
    QCOMPARE(atEdge(plain, 2), kHighlight);
    QCOMPARE(inside(button(QStyle::State_Enabled | QStyle::State_MouseOver, true)),
             mixedInHundredths(kHighlight, kHighlightedText, 9));
    const QImage focused = button(QStyle::State_Enabled | QStyle::State_HasFocus, true);
    QCOMPARE(atEdge(focused, 1), kHighlight);
    QCOMPARE(atEdge(focused, 2), kHighlightedText);
    QCOMPARE(atEdge(focused, 3), kHighlight);
    QCOMPARE(button(QStyle::State_None, true), button(QStyle::State_None, false));
  }

  void theMainButtonCanBeReadWhateverTheHighlightIs_data() {
    QTest::addColumn<QColor>("highlight");
    QTest::addColumn<QColor>("text");
    QTest::newRow("white on a light blue") << QColor(61, 174, 233) << QColor(Qt::white);
    QTest::newRow("white on grey") << QColor(160, 160, 160) << QColor(Qt::white);
    QTest::newRow("white on yellow") << QColor(255, 220, 60) << QColor(Qt::white);
    QTest::newRow("black on a dark blue") << QColor(8, 8, 120) << QColor(Qt::black);
    QTest::newRow("black on a dark grey") << QColor(90, 90, 90) << QColor(Qt::black);
  }
  void theMainButtonCanBeReadWhateverTheHighlightIs() {
    QFETCH(QColor, highlight);
    QFETCH(QColor, text);
    const QColor surface = inside(mainButton(highlight, text));
    QVERIFY(contrastOf(surface, text) >= 4.5);
    // No farther from the desktop's colour than it has to be: a step of eight parts back is too little.
    const QColor away = text == QColor(Qt::white) ? Qt::black : Qt::white;
    const auto back = [](int part, int end) {
      return std::clamp((part - end * 0.08) / 0.92, 0.0, 255.0) + 0.5;
    };
    const QColor before(static_cast<int>(back(surface.red(), away.red())),
                        static_cast<int>(back(surface.green(), away.green())),
                        static_cast<int>(back(surface.blue(), away.blue())));
    QVERIFY(contrastOf(before, text) < 4.6);
    QVERIFY(contrastOf(highlight, text) < 4.5);
  }

  void aHighlightThatCanBeReadStaysAsItIs() {
    QCOMPARE(inside(mainButton(QColor(0, 100, 180), Qt::white)), QColor(0, 100, 180));
    QCOMPARE(inside(mainButton(QColor(255, 220, 60), Qt::black)), QColor(255, 220, 60));
  }

  void aCheckBoxThatIsHalfOnHasALine() {
    const QImage half = checkBox(QStyle::State_Enabled | QStyle::State_NoChange);
    QVERIFY(nearestTo(kText, half, QRect(8, 9, 5, 3)) < 10);
    QVERIFY(nearestTo(kText, half, QRect(7, 14, 4, 3)) > 200);
    QVERIFY(nearestTo(kText, half, QRect(2, 9, 2, 3)) > 200);
  }

  void aCheckBoxThatCannotBePressedIsQuiet() {
    const QImage on = checkBox(QStyle::State_On);
    const QColor quiet = mixedInHundredths(kText, kBase, 30);
    QVERIFY(nearestTo(quiet, on, QRect(7, 12, 4, 4)) < 10);
    QVERIFY(nearestTo(kText, on, on.rect()) > 60);
    QCOMPARE(inside(checkBox(QStyle::State_Off)), kHalf);
    QCOMPARE(inside(checkBox(QStyle::State_Off | QStyle::State_Enabled | QStyle::State_MouseOver)),
             mixedInHundredths(kBase, kText, 9));
  }

  void aRadioButtonThatCannotBePressedIsQuiet() {
    QCOMPARE(inside(radioButton(QStyle::State_On)), mixedInHundredths(kText, kBase, 30));
    QCOMPARE(inside(radioButton(QStyle::State_Off)), kHalf);
    QCOMPARE(inside(radioButton(QStyle::State_Off | QStyle::State_Enabled | QStyle::State_Sunken)),
             mixedInHundredths(kBase, kText, 22));
  }

  void aSelectorDoesNotLookPressedWhileItsListIsOpen() {
    QCOMPARE(selector(QStyle::State_Enabled | QStyle::State_Sunken), selector(QStyle::State_Enabled));
  }

  void anArrowThatCannotBeUsedIsQuiet() {
    const QImage plain = selector(QStyle::State_None);
    QVERIFY(nearestTo(mixedInHundredths(kButtonText, kWindow, 60), plain, QRect(46, 8, 9, 8)) < 60);
    QVERIFY(nearestTo(kButtonText, plain, QRect(46, 8, 9, 8)) > 160);
  }

  void aFrameIsTheOptionsOwn() {
    QStyleOptionFrame option;
    option.lineWidth = 1;
    QVERIFY(framed(&option));
    option.lineWidth = 0;
    QVERIFY(!framed(&option));
    const QStyleOption other;
    QVERIFY(!framed(&other));
    QVERIFY(!framed(nullptr));
    QCOMPARE(titleOf(&other), QString());
    QStyleOptionGroupBox group;
    group.text = "Tankolás";
    QCOMPARE(titleOf(&group), QStringLiteral("Tankolás"));
  }

  void aTitlesFontIsTheGroupsInBold() {
    QGroupBox group;
    QFont font = group.font();
    font.setPointSize(17);
    group.setFont(font);
    QCOMPARE(titleFont(&group).pointSize(), 17);
    QVERIFY(titleFont(&group).bold());
    QVERIFY(!group.font().bold());
    QCOMPARE(titleFont(nullptr).pointSize(), QApplication::font().pointSize());
    QVERIFY(titleFont(nullptr).bold());
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

  void aPartHasTheLookThatItsFormGave() {
    QWidget part;
    QVERIFY(!hasLook(&part, "card"));
    part.setProperty("look", "card");
    QVERIFY(hasLook(&part, "card"));
    QVERIFY(!hasLook(&part, "band"));
    QVERIFY(!hasLook(nullptr, "card"));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::LookPaintingTest)
#include "look_painting_test.moc"
