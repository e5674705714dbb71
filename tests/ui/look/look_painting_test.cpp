#include "ui/look/look_painting.h"

#include <QGroupBox>
#include <QImage>
#include <QPainter>
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

// The outlines, by hand: 42 and 14 of a hundred parts of the way from the window to its text.
const QColor kFieldLine(148, 138, 128);
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

QImage field(QStyle::State state) {
  const auto option = optionIn(state);
  return painted(option, [&](QPainter& painter) { paintField(painter, option, true); });
}

QImage checkBox(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintCheckBox(painter, option); });
}

QImage radioButton(QStyle::State state) {
  const auto option = optionIn(state, {21, 21});
  return painted(option, [&](QPainter& painter) { paintRadioButton(painter, option); });
}

QImage selector(QStyle::State state, bool isEditable, bool hasFrame = true) {
  auto option = optionIn<QStyleOptionComboBox>(state);
  option.editable = isEditable;
  option.frame = hasFrame;
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

  void aButtonsLineIsItsEdgeAndTwoPixelsOfTheHighlightWithTheKeyboard() {
    const QImage plain = button(QStyle::State_Enabled);
    QCOMPARE(atEdge(plain), kFieldLine);
    QVERIFY(atEdge(plain, 1) != kFieldLine);
    const QImage focused = button(QStyle::State_Enabled | QStyle::State_HasFocus);
    QCOMPARE(atEdge(focused), kHighlight);
    QCOMPARE(atEdge(focused, 1), kHighlight);
    QCOMPARE(atEdge(focused, 2), inside(focused));
    QCOMPARE(plain.pixelColor(0, 0), kNothing);  // the corners are round
    QVERIFY(plain.pixelColor(4, 0) != kNothing);
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

  void aFieldIsAsLightAsTheBaseAndStepsBackWhenNothingCanBeTyped() {
    QCOMPARE(inside(field(QStyle::State_Enabled)), kBase);
    QCOMPARE(inside(field(QStyle::State_Enabled | QStyle::State_ReadOnly)), kHalf);
    QCOMPARE(inside(field(QStyle::State_None)), kHalf);
    QCOMPARE(atEdge(field(QStyle::State_Enabled)), kFieldLine);
    QCOMPARE(atEdge(field(QStyle::State_None)), kCardLine);
    const QImage focused = field(QStyle::State_Enabled | QStyle::State_HasFocus);
    QCOMPARE(atEdge(focused), kHighlight);
    QCOMPARE(atEdge(focused, 1), kHighlight);
    QCOMPARE(atEdge(focused, 2), kBase);
    const auto option = optionIn(QStyle::State_Enabled);
    const QImage bare = painted(option, [&](QPainter& painter) { paintField(painter, option, false); });
    QCOMPARE(inside(bare), kNothing);
    QCOMPARE(atEdge(bare), kNothing);
  }

  void aCardLiesBetweenTheWindowAndTheBase() {
    const auto option = optionIn(QStyle::State_Enabled);
    const QImage card = painted(option, [&](QPainter& painter) { paintCard(painter, option); });
    QCOMPARE(inside(card), kHalf);
    QCOMPARE(atEdge(card), kCardLine);
    QCOMPARE(atEdge(card, 1), kHalf);
    QCOMPARE(card.pixelColor(0, 0), kNothing);
  }

  void aListsOutlineIsOnePixelAndTheHighlightWithTheKeyboard() {
    for (const bool hasFocus : {false, true}) {
      const auto option = optionIn(hasFocus ? QStyle::State_HasFocus : QStyle::State_None);
      const QImage list = painted(option, [&](QPainter& painter) { paintOutline(painter, option); });
      const QColor line = hasFocus ? kHighlight : kFieldLine;
      for (const QPoint& corner : {QPoint(0, 0), QPoint(59, 0), QPoint(0, 23), QPoint(59, 23)})
        QCOMPARE(list.pixelColor(corner), line);
      QCOMPARE(list.pixelColor(1, 1), kNothing);
      QCOMPARE(list.pixelColor(58, 22), kNothing);
    }
  }

  void aScrollBarsHandleHasAnEdge() {
    const auto option = optionIn(QStyle::State_Enabled);
    const QImage bar =
        painted(option, [&](QPainter& painter) { paintHandle(painter, option, QRect(10, 3, 20, 12)); });
    for (const QPoint& corner : {QPoint(10, 3), QPoint(29, 3), QPoint(10, 14), QPoint(29, 14)})
      QCOMPARE(bar.pixelColor(corner), kFieldLine);
    for (const QPoint& outside : {QPoint(9, 3), QPoint(30, 3), QPoint(10, 15), QPoint(11, 4), QPoint(28, 13)})
      QCOMPARE(bar.pixelColor(outside), kNothing);
  }

  void aHeadingEndsInALine() {
    const auto option = optionIn(QStyle::State_Enabled);
    const QImage heading = painted(option, [&](QPainter& painter) { paintHeading(painter, option); });
    QCOMPARE(heading.pixelColor(0, 0), kHalf);
    QCOMPARE(heading.pixelColor(59, 22), kHalf);
    QCOMPARE(heading.pixelColor(0, 23), kCardLine);
    QCOMPARE(heading.pixelColor(59, 23), kCardLine);
  }

  void aTitleStandsOnTheLeftAndInTheMiddle() {
    const auto option = optionIn(QStyle::State_Enabled, {200, 60});
    const QRect place(20, 10, 150, 40);
    const QImage title = painted(option, [&](QPainter& painter) {
      painter.fillRect(option.rect, Qt::white);
      paintTitle(painter, option, "HHH&H", QApplication::font(), place);
    });
    QRect ink;
    for (int y = 0; y < title.height(); ++y)
      for (int x = 0; x < title.width(); ++x)
        if (title.pixelColor(x, y).lightness() < 128) ink |= QRect(x, y, 1, 1);
    const QFontMetrics metrics(QApplication::font());
    QVERIFY(ink.left() >= 20 && ink.left() <= 23);
    QVERIFY(std::abs(ink.right() - 20 - metrics.horizontalAdvance("HHH&H")) < 4);
    QVERIFY(std::abs(ink.center().y() -
                     (30 - metrics.height() / 2 + metrics.ascent() - metrics.capHeight() / 2)) < 4);
    QVERIFY(nearestTo(kWindowText, title, ink) < 30);
  }

  void aCheckBoxHasATickWhenOnAndALineWhenHalf() {
    const QRect tick(7, 12, 4, 4);   // where the tick turns: 43 and 70 parts of 21
    const QRect middle(8, 9, 5, 3);  // the line of a box that is half on
    const QImage off = checkBox(QStyle::State_Enabled | QStyle::State_Off);
    QCOMPARE(inside(off), kBase);
    QCOMPARE(atEdge(off), kFieldLine);
    QVERIFY(nearestTo(kText, off, QRect(2, 2, 17, 17)) > 200);
    const QImage on = checkBox(QStyle::State_Enabled | QStyle::State_On);
    QVERIFY(nearestTo(kText, on, tick) < 10);
    QVERIFY(nearestTo(kText, on, QRect(15, 5, 3, 4)) < 30);
    QVERIFY(nearestTo(kText, on, QRect(4, 3, 5, 5)) > 200);
    const QImage half = checkBox(QStyle::State_Enabled | QStyle::State_NoChange);
    QVERIFY(nearestTo(kText, half, middle) < 10);
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

  void aRadioButtonIsARingWithADotWhenOn() {
    const QImage off = radioButton(QStyle::State_Enabled | QStyle::State_Off);
    QCOMPARE(inside(off), kBase);
    QCOMPARE(off.pixelColor(0, 0), kNothing);
    QVERIFY(nearestTo(kFieldLine, off, QRect(0, 7, 2, 7)) < 60);
    const QImage on = radioButton(QStyle::State_Enabled | QStyle::State_On);
    QCOMPARE(inside(on), kText);
    QCOMPARE(on.pixelColor(3, 10), kBase);
    QCOMPARE(on.pixelColor(7, 10), kText);
    QCOMPARE(inside(radioButton(QStyle::State_On)), mixedInHundredths(kText, kBase, 30));
    QCOMPARE(inside(radioButton(QStyle::State_Off)), kHalf);
    QCOMPARE(inside(radioButton(QStyle::State_Off | QStyle::State_Enabled | QStyle::State_Sunken)),
             mixedInHundredths(kBase, kText, 22));
    QVERIFY(nearestTo(kHighlight, radioButton(QStyle::State_Enabled | QStyle::State_HasFocus),
                      QRect(0, 10, 2, 1)) < 10);
  }

  void aSelectorIsAButtonOrAFieldWithAnArrow() {
    const QRect arrow(46, 8, 9, 8);
    const QImage plain = selector(QStyle::State_Enabled, false);
    QCOMPARE(inside(plain), QColor(228, 235, 226));
    QVERIFY(nearestTo(kButtonText, plain, arrow) < 120);
    QCOMPARE(selector(QStyle::State_Enabled | QStyle::State_Sunken, false), plain);  // while its list is open
    const QImage editable = selector(QStyle::State_Enabled, true);
    QCOMPARE(inside(editable), kBase);
    QCOMPARE(atEdge(editable), kFieldLine);
    QVERIFY(nearestTo(kText, editable, arrow) < 120);
    QVERIFY(editable.pixelColor(44, 12) == kBase && editable.pixelColor(55, 12) == kBase);
    const QImage frameless = selector(QStyle::State_Enabled, true, false);
    QCOMPARE(inside(frameless), kNothing);
    QVERIFY(nearestTo(kText, frameless, arrow) < 200);
  }

  void theArrowPointsDown() {
    const QImage picture = selector(QStyle::State_Enabled, true);
    const auto lowestInkAt = [&](int x) {
      int lowest = -1;
      for (int y = 4; y < 20; ++y)
        if (picture.pixelColor(x, y).lightness() < 160) lowest = y;
      return lowest;
    };
    QVERIFY(lowestInkAt(49) > lowestInkAt(47) && lowestInkAt(49) > lowestInkAt(52));
  }

  void roundAndSlantedLinesHaveSoftEdges() {
    const auto hasSoftEdges = [](const QImage& picture, const QRect& box, const QList<QColor>& solid) {
      for (int y = box.top(); y <= box.bottom(); ++y)
        for (int x = box.left(); x <= box.right(); ++x)
          if (!solid.contains(picture.pixelColor(x, y))) return true;
      return false;
    };
    const QStyle::State on = QStyle::State_Enabled | QStyle::State_On;
    QVERIFY(hasSoftEdges(selector(QStyle::State_Enabled, true), QRect(44, 6, 12, 12), {kBase, kText}));
    QVERIFY(hasSoftEdges(checkBox(on), QRect(3, 3, 15, 15), {kBase, kText}));
    QVERIFY(hasSoftEdges(radioButton(on), QRect(4, 4, 13, 13), {kBase, kText}));
    QVERIFY(hasSoftEdges(field(QStyle::State_Enabled), QRect(0, 0, 4, 4), {kNothing, kFieldLine, kBase}));
  }

  void anArrowThatCannotBeUsedIsQuiet() {
    const QRect arrow(46, 8, 9, 8);
    const QImage plain = selector(QStyle::State_None, true);
    QVERIFY(nearestTo(mixedInHundredths(kText, kWindow, 60), plain, arrow) < 60);
    QVERIFY(nearestTo(kText, plain, arrow) > 200);
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
