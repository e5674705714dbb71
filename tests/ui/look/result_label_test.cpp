#include "ui/look/result_label.h"

#include <QAccessible>
#include <QImage>
#include <QLineEdit>
#include <QTest>

#include "tests/ui/screen_test.h"
#include "ui/look/result_accessible.h"

namespace tarvik::ui {
namespace {

QString spoken(ResultLabel& label, QAccessible::Text kind) {
  return QAccessible::queryAccessibleInterface(&label)->text(kind);
}

// Where a label of 100 pixels has ink: the first and the last column, -1 where there is none.
std::pair<int, int> inkOf(QLabel& label) {
  label.resize(100, 20);
  const QImage picture = label.grab().toImage();
  const QRgb paper = picture.pixel(0, 0);
  int first = -1;
  int last = -1;
  for (int x = 0; x < picture.width(); ++x)
    for (int y = 0; y < picture.height(); ++y)
      if (picture.pixel(x, y) != paper) {
        if (first < 0) first = x;
        last = x;
      }
  return {first, last};
}

}  // namespace

class ResultLabelTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { tellResultsAsResults(); }

  void itsFigureIsSpokenWithoutPaddingAndNothingWhileThereIsNone() {
    QWidget window;
    QLabel caption("&Liter", &window);
    ResultLabel label(&window);
    caption.setBuddy(&label);
    label.setAccessibleDescription("mennyiség");
    QCOMPARE(spoken(label, QAccessible::Name), QString());
    label.setText("  40,5  ");
    QCOMPARE(spoken(label, QAccessible::Name), QString("40,5"));
    QCOMPARE(spoken(label, QAccessible::Description), QString("mennyiség"));
    QCOMPARE(QAccessible::queryAccessibleInterface(&label)->role(), QAccessible::StaticText);
  }

  void aLabelOfAnotherKindIsLeftAlone() {
    const ResultLabel first;
    QLabel other("szöveg");
    QCOMPARE(QAccessible::queryAccessibleInterface(&other)->text(QAccessible::Name), QString("szöveg"));
  }

  void itShowsItsTextAsItIs() {
    ResultLabel label;
    QLabel plain;
    plain.setTextFormat(Qt::PlainText);
    for (QLabel* each : {static_cast<QLabel*>(&label), &plain}) {
      each->setText("<b>1</b>");
      each->resize(100, 20);
    }
    QCOMPARE(label.grab().toImage(), plain.grab().toImage());
  }

  void whileThereIsNoFigureItShowsADashWhereTheFigureWouldBe() {
    ResultLabel label;
    const auto [left, right] = inkOf(label);
    QVERIFY(left >= 0 && right < 50);
    label.setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    QVERIFY(inkOf(label).first > 50);
    QVERIFY(label.text().isEmpty());
  }

  void aReadOnlyFieldIsAResultThatCannotBeEdited() {
    QLineEdit field;
    field.setReadOnly(true);
    field.setText("1 234 Ft.");
    field.setAccessibleName("Eddigi Költség");
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&field);
    QVERIFY(told.state().readOnly && told.state().selectableText);
    QVERIFY(!told.state().editable);
    QVERIFY(told.editableTextInterface() == nullptr);
    QCOMPARE(told.text(QAccessible::Name), QString("Eddigi Költség"));
    QCOMPARE(told.text(QAccessible::Value), QString("1 234 Ft."));
  }

  void itsTextIsReadAndSelected() {
    QLineEdit field;
    field.setReadOnly(true);
    field.show();
    field.setText("1 234 Ft.");
    QAccessibleTextInterface& text = *QAccessible::queryAccessibleInterface(&field)->textInterface();
    QCOMPARE(text.characterCount(), 9);
    QCOMPARE(text.text(2, 5), QString("234"));
    using Span = std::pair<int, int>;
    const auto selection = [&text](int index) {
      Span span{-1, -1};
      text.selection(index, &span.first, &span.second);
      return span;
    };
    QCOMPARE(text.selectionCount(), 0);
    QCOMPARE(selection(0), Span(0, 0));
    text.addSelection(2, 5);
    QCOMPARE(field.selectedText(), QString("234"));
    QCOMPARE(text.selectionCount(), 1);
    QCOMPARE(selection(0), Span(2, 5));
    QCOMPARE(selection(1), Span(0, 0));
    text.removeSelection(0);
    QVERIFY(!field.hasSelectedText());
    Span whole;
    text.attributes(4, &whole.first, &whole.second);
    QCOMPARE(whole, Span(0, 9));
    QVERIFY(!text.characterRect(8).isEmpty() && text.characterRect(9).isEmpty());
    text.scrollToSubstring(3, 5);
    QCOMPARE(text.cursorPosition(), 3);
    text.setCursorPosition(4);
    QCOMPARE(text.cursorPosition(), 4);
  }

  void aFieldToTypeIntoStaysOne() {
    QLineEdit field;
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&field);
    QVERIFY(told.state().editable);
    QVERIFY(!told.state().readOnly);
    QVERIFY(told.editableTextInterface() != nullptr);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ResultLabelTest)
#include "result_label_test.moc"
