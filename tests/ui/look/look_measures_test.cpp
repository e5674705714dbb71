#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyleFactory>
#include <QStyleOption>
#include <QTest>
#include <QTreeView>
#include <memory>

#include "tests/ui/screen_test.h"
#include "ui/look/look.h"

// The measures of the look, in steps of its grid, beside those of Qt's plain style.

namespace tarvik::ui {

class LookMeasuresTest : public QObject {
  Q_OBJECT

 private:
  std::unique_ptr<QStyle> plain_{QStyleFactory::create("Fusion")};
  LookStyle look_;
  int step_ = 0;
  int line_ = 0;

  int metric(QStyle::PixelMetric metric, const QWidget* widget = nullptr) const {
    return look_.pixelMetric(metric, nullptr, widget);
  }
  template <typename Option>
  QSize lookSize(QStyle::ContentsType type, const Option& option, QSize size,
                 const QWidget* widget = nullptr) const {
    return look_.sizeFromContents(type, &option, size, widget);
  }
  template <typename Option>
  QSize plainSize(QStyle::ContentsType type, const Option& option, QSize size,
                  const QWidget* widget = nullptr) const {
    return plain_->sizeFromContents(type, &option, size, widget);
  }

 private slots:
  void initTestCase() {
    step_ = gridStep();
    line_ = QFontMetrics(QApplication::font()).height();
  }

  void partsStandAStepApartAndCardsHaveAStepAround() {
    QWidget window;
    QGroupBox group;
    QFrame card;
    card.setProperty("look", "card");
    QFrame band;
    band.setProperty("look", "band");
    QCOMPARE(metric(QStyle::PM_LayoutHorizontalSpacing), step_);
    QCOMPARE(metric(QStyle::PM_LayoutVerticalSpacing), step_);
    for (const QStyle::PixelMetric side : {QStyle::PM_LayoutLeftMargin, QStyle::PM_LayoutRightMargin}) {
      QCOMPARE(metric(side, &window), step_ + step_ / 2);
      for (const QWidget* part :
           {static_cast<QWidget*>(&group), static_cast<QWidget*>(&card), static_cast<QWidget*>(&band)})
        QCOMPARE(metric(side, part), step_);
    }
    QCOMPARE(metric(QStyle::PM_LayoutTopMargin, &window), step_);
    QCOMPARE(metric(QStyle::PM_LayoutTopMargin, &card), step_);
    QCOMPARE(metric(QStyle::PM_LayoutTopMargin, &group), step_ / 2);
    QCOMPARE(metric(QStyle::PM_LayoutTopMargin, &band), 0);
    QCOMPARE(metric(QStyle::PM_LayoutBottomMargin, &window), step_);
    QCOMPARE(metric(QStyle::PM_LayoutBottomMargin, &group), step_);
    QCOMPARE(metric(QStyle::PM_LayoutBottomMargin, &band), 0);
  }

  void boxesAreAsHighAsALineOfAnOddHeight() {
    const int side = line_ % 2 == 0 ? line_ + 1 : line_;
    for (const QStyle::PixelMetric one :
         {QStyle::PM_IndicatorWidth, QStyle::PM_IndicatorHeight, QStyle::PM_ExclusiveIndicatorWidth,
          QStyle::PM_ExclusiveIndicatorHeight})
      QCOMPARE(metric(one), side);
    QCOMPARE(metric(QStyle::PM_CheckBoxLabelSpacing), step_ * 3 / 4);
    QCOMPARE(metric(QStyle::PM_RadioButtonLabelSpacing), step_ * 3 / 4);
  }

  void textsOfListsAndHeadsHaveTheirMargins() {
    QCOMPARE(metric(QStyle::PM_FocusFrameHMargin), step_ / 2);
    QCOMPARE(metric(QStyle::PM_HeaderMargin), step_ / 2 + 1);
    QCOMPARE(metric(QStyle::PM_ButtonMargin), 2 * step_);
    QCOMPARE(metric(QStyle::PM_ButtonShiftHorizontal), 0);
    QCOMPARE(metric(QStyle::PM_ButtonShiftVertical), 0);
  }

  void buttonsAreAsHighAsFieldsAndNotTooNarrow() {
    const QStyleOptionButton button;
    QCOMPARE(lookSize(QStyle::CT_PushButton, button, {30, 5}), QSize(9 * step_, line_ + step_ + 2));
    QCOMPARE(lookSize(QStyle::CT_PushButton, button, {300, 50}), QSize(300 + 3 * step_, line_ + step_ + 2));
  }

  void aFieldIsAsWideAsItsLongestTextAndAsHighAsOthers() {
    QStyleOptionFrame frame;
    frame.lineWidth = 1;
    frame.rect = {0, 0, 100, 20};
    QCOMPARE(lookSize(QStyle::CT_LineEdit, frame, {100, 10}).width(),
             plainSize(QStyle::CT_LineEdit, frame, {100, 10}).width());
    QLineEdit field;
    const int usual = plainSize(QStyle::CT_LineEdit, frame, {100, 10}).width();
    QCOMPARE(lookSize(QStyle::CT_LineEdit, frame, {100, 10}, &field), QSize(usual, line_ + step_ + 2));
    field.setProperty("longest", "0123456789012345678901234567890123456789");
    const int longest = field.fontMetrics().horizontalAdvance(field.property("longest").toString()) + 1;
    QCOMPARE(lookSize(QStyle::CT_LineEdit, frame, {100, 10}, &field),
             QSize(longest + usual - 100 + step_ + 6, line_ + step_ + 2));
    frame.lineWidth = 0;
    const QSize bare = plainSize(QStyle::CT_LineEdit, frame, {100, 10});
    QCOMPARE(lookSize(QStyle::CT_LineEdit, frame, {100, 10}, &field),
             QSize(longest + bare.width() - 100 + 6, bare.height()));
    field.setProperty("longest", QVariant());
    QCOMPARE(lookSize(QStyle::CT_LineEdit, frame, {100, 10}, &field), bare);
  }

  void aSelectorIsAsWideAsItsLongestTextAndItsArrow() {
    const QStyleOptionComboBox option;
    QComboBox box;
    const QSize usual = lookSize(QStyle::CT_ComboBox, option, {100, 10}, &box);
    QVERIFY(usual.width() > 100 && usual.width() < 100 + 6 * step_);
    QCOMPARE(usual.height(), line_ + step_ + 2);
    box.setProperty("longest", "WWWWWWWWWWWW");
    const int longest = box.fontMetrics().horizontalAdvance("WWWWWWWWWWWW") + 1;
    QCOMPARE(lookSize(QStyle::CT_ComboBox, option, {100, 10}, &box),
             QSize(longest + 4 * step_, line_ + step_ + 2));
  }

  void otherPartsHaveHalfAStepMore() {
    const QStyleOptionSpinBox day;
    QCOMPARE(lookSize(QStyle::CT_SpinBox, day, {100, 10}),
             QSize(plainSize(QStyle::CT_SpinBox, day, {100, 10}).width() + step_ / 2, line_ + step_ + 2));
    QStyleOptionHeader head;
    head.text = "Dátum";
    QCOMPARE(
        lookSize(QStyle::CT_HeaderSection, head, {}),
        QSize(plain_->sizeFromContents(QStyle::CT_HeaderSection, &head, {}, nullptr).width() + step_ / 2 +
                  2 * (metric(QStyle::PM_HeaderMargin) - plain_->pixelMetric(QStyle::PM_HeaderMargin)),
              rowHeight() + 1));
    const QStyleOptionTab tab;
    QCOMPARE(lookSize(QStyle::CT_TabBarTab, tab, {100, 10}),
             plainSize(QStyle::CT_TabBarTab, tab, {100, 10}) + QSize(2 * step_, step_ / 2));
    const QStyleOptionMenuItem item;
    QCOMPARE(lookSize(QStyle::CT_MenuBarItem, item, {100, 10}),
             plainSize(QStyle::CT_MenuBarItem, item, {100, 10}) + QSize(step_, step_ / 2));
  }

  void aGroupHasRoomForItsTitle() {
    QGroupBox group;
    QStyleOptionGroupBox option;
    option.text = QString(40, 'W');
    QFont bold = group.font();
    bold.setBold(true);
    const int title = QFontMetrics(bold).horizontalAdvance(option.text) + 2 * step_;
    QCOMPARE(lookSize(QStyle::CT_GroupBox, option, {10, 10}, &group).width(), title);
    QVERIFY(lookSize(QStyle::CT_GroupBox, option, {title + 100, 10}, &group).width() >= title + 100);
  }

  void aGroupsTitleStandsInItsCardOverItsContents() {
    QGroupBox group;
    QStyleOptionGroupBox option;
    option.rect = QRect(5, 7, 300, 200);
    option.text = "Tankolás";
    QFont bold = group.font();
    bold.setBold(true);
    const int height = QFontMetrics(bold).height();
    const int top = step_ * 3 / 4;
    const auto placeOf = [&](QStyle::SubControl part) {
      return look_.subControlRect(QStyle::CC_GroupBox, &option, part, &group);
    };
    QCOMPARE(placeOf(QStyle::SC_GroupBoxLabel), QRect(5 + step_, 7 + top, 300 - 2 * step_, height));
    QCOMPARE(placeOf(QStyle::SC_GroupBoxContents), QRect(5, 7 + top + height, 300, 200 - top - height));
    QCOMPARE(placeOf(QStyle::SC_GroupBoxFrame), option.rect);
    option.text.clear();
    QCOMPARE(placeOf(QStyle::SC_GroupBoxContents), QRect(5, 7 + top, 300, 200 - top));
  }

  void textsOfFieldsStandOffTheirFrames() {
    QStyleOptionFrame frame;
    frame.rect = {0, 0, 100, 30};
    frame.lineWidth = 1;
    const QRect usual = plain_->subElementRect(QStyle::SE_LineEditContents, &frame);
    QCOMPARE(look_.subElementRect(QStyle::SE_LineEditContents, &frame, nullptr),
             usual.adjusted(step_ / 2 - 1, 0, 1 - step_ / 2, 0));
    frame.lineWidth = 0;
    QCOMPARE(look_.subElementRect(QStyle::SE_LineEditContents, &frame, nullptr),
             plain_->subElementRect(QStyle::SE_LineEditContents, &frame));
    QStyleOptionComboBox box;
    box.rect = {0, 0, 100, 30};
    const auto fieldOf = [&](const QStyle& style) {
      return style.subControlRect(QStyle::CC_ComboBox, &box, QStyle::SC_ComboBoxEditField, nullptr);
    };
    QCOMPARE(fieldOf(look_), fieldOf(*plain_).adjusted(step_ / 2 - 2, 0, 0, 0));
  }

  void hintsAndWhatCannotBeUsedStepBackAndCanBeRead() {
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(200, 200, 200));
    palette.setColor(QPalette::WindowText, QColor(0, 0, 100));
    palette.setColor(QPalette::Text, QColor(10, 20, 30));
    look_.polish(palette);
    for (const QPalette::ColorGroup group : {QPalette::Active, QPalette::Inactive}) {
      const QColor hint = palette.color(group, QPalette::PlaceholderText);
      QCOMPARE(hint.rgb(), QColor(10, 20, 30).rgb());
      QVERIFY(std::abs(hint.alphaF() - 0.6) < 0.01);
    }
    // 55 parts of a hundred from the window to its text.
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
      QCOMPARE(palette.color(QPalette::Disabled, role), QColor(90, 90, 145));
  }

  void whatIsOverdueIsRedOnLightAndOnDark() {
    QPalette palette;
    palette.setColor(QPalette::Base, QColor(128, 128, 128));
    QCOMPARE(overdueColour(palette), QColor(176, 0, 32));
    palette.setColor(QPalette::Base, QColor(127, 127, 127));
    QCOMPARE(overdueColour(palette), QColor(255, 138, 128));
  }

  void aLabelHasRoomForAccentsAndForItsLongestText() {
    QApplication::setStyle(new LookStyle);
    QLabel label;
    label.setProperty("longest", "9999.99.99.");
    label.ensurePolished();
    QCOMPARE(label.contentsMargins(), QMargins(0, 1, 0, 1));
    QCOMPARE(label.minimumWidth(),
             label.fontMetrics().horizontalAdvance("9999.99.99.") + 1 + label.indent() + 1);
    QLabel heading;
    heading.setProperty("look", "heading");
    heading.ensurePolished();
    QVERIFY(heading.font().bold());
    QCOMPARE(heading.font().pointSizeF(), QApplication::font().pointSizeF() * 1.35);
    QLabel own;
    own.setContentsMargins(3, 4, 5, 6);
    own.ensurePolished();
    QCOMPARE(own.contentsMargins(), QMargins(3, 4, 5, 6));
    QPushButton button;
    button.ensurePolished();
    QVERIFY(button.testAttribute(Qt::WA_Hover));
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::LookMeasuresTest)
#include "look_measures_test.moc"
