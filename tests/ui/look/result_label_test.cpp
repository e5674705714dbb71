#include "ui/look/result_label.h"

#include <QAccessible>
#include <QImage>
#include <QTest>

#include "tests/ui/screen_test.h"

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
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::ResultLabelTest)
#include "result_label_test.moc"
