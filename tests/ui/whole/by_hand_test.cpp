#include "tests/ui/by_hand.h"
#include "tests/ui/screen_test.h"

#include <QDialog>
#include <QVBoxLayout>

#include "tests/ui/box_script.h"
#include "ui/look/day_field.h"

namespace tarvik::test {

/// A screen with a field, a chooser, a date and a button, one below the other.
struct Bench {
  Bench() {
    auto* const layout = new QVBoxLayout(&window);
    for (QWidget* part : std::initializer_list<QWidget*>{&field, &chooser, &date, &button}) {
      part->setObjectName(part->metaObject()->className());
      layout->addWidget(part);
    }
    chooser.addItems({"egy", "kettő", "három"});
    window.show();
  }

  QWidget window;
  QLineEdit field{"régi"};
  QComboBox chooser;
  ui::DayField date;
  QPushButton button;
};

class ByHandTest : public QObject {
  Q_OBJECT

 private slots:
  void whatAPersonCannotUseIsOutOfReach() {
    Bench bench;
    QVERIFY(outOfReach(bench.field) == nullptr);
    bench.field.setEnabled(false);
    QCOMPARE(outOfReach(bench.field), "is disabled");
    bench.field.hide();
    QCOMPARE(outOfReach(bench.field), "is hidden");
    bench.button.setGeometry(-500, -500, 20, 20);
    QCOMPARE(outOfReach(bench.button), "is out of sight");
    QDialog over;
    over.setModal(true);
    over.show();
    QCOMPARE(outOfReach(bench.chooser), "is behind another screen");
    bench.window.hide();
    QCOMPARE(outOfReach(bench.chooser), "is hidden");
  }

  void typingReplacesTheTextLetterByLetter() {
    Bench bench;
    QStringList steps;
    connect(&bench.field, &QLineEdit::textEdited, this, [&](const QString& text) { steps << text; });
    typeInto(bench.field, "áű1");
    QCOMPARE(steps, (QStringList{"", "á", "áű", "áű1"}));
  }

  void boxesAreAnsweredInTurnAndTheRestAsEscapeDoes() {
    BoxScript boxes({QMessageBox::Yes});
    const auto ask = [] {
      QMessageBox box(QMessageBox::Question, "Cím", "Szöveg", QMessageBox::Yes | QMessageBox::No);
      box.setDefaultButton(QMessageBox::Yes);
      box.setEscapeButton(QMessageBox::No);
      return box.exec();
    };
    QCOMPARE(ask(), int{QMessageBox::Yes});
    QCOMPARE(ask(), int{QMessageBox::No});
    const SeenBox expected = questionBox("Cím", "Szöveg", QMessageBox::Yes);
    QCOMPARE(boxes.seen, (QList{expected, expected}));
  }
};

}  // namespace tarvik::test

TARVIK_SCREEN_TEST(tarvik::test::ByHandTest)
#include "by_hand_test.moc"
