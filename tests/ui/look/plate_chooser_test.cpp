#include "ui/look/plate_chooser.h"

#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/screen_test.h"
#include "ui/look/editable_box.h"

namespace tarvik::ui {

/// A chooser of three plates with a field behind it, and how often a plate was chosen.
struct Form {
  explicit Form(const std::function<void(Form&)>& choose = [](Form&) {}) {
    auto* column = new QVBoxLayout(&window);
    column->addWidget(&box);
    column->addWidget(&other);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.addItems({"ABCD-123", "DEF-456 ", "GHI-789 "});
    box.setCurrentIndex(-1);
    new PlateChooser(&box, [this, choose] {
      ++chosen;
      choose(*this);
    });
    test::bringUp(window);
  }
  QWidget window;
  EditableBox box;
  QLineEdit other;
  int chosen = 0;
};

class PlateChooserTest : public QObject {
  Q_OBJECT

 private slots:
  void aClickInTheListChooses() {
    Form form;
    test::choose(form.box, 1);
    QCOMPARE(form.chosen, 1);
    QCOMPARE(form.box.currentText(), QString("DEF-456 "));
    form.other.setFocus();
    QCOMPARE(form.chosen, 1);
  }

  void choosingTheSamePlateAgainCountsAgain() {
    Form form;
    test::choose(form.box, 1);
    test::choose(form.box, 1);
    QCOMPARE(form.chosen, 2);
  }

  void anArrowGoesFromTheShownPlateToItsNeighbourAndStaysInTheChooser() {
    Form form([](Form& opened) { opened.other.setFocus(); });
    form.box.setEditText("DEF-456   ");
    form.box.setFocus();
    QTest::keyPress(&form.box, Qt::Key_Down);
    QCOMPARE(form.box.currentText(), QString("GHI-789 "));
    QVERIFY(form.box.hasFocus());
    QTest::keyClick(&form.box, Qt::Key_Up);
    QCOMPARE(form.box.currentText(), QString("DEF-456 "));
    QTest::keyClick(&form.box, Qt::Key_Up);
    QCOMPARE(form.box.currentText(), QString("ABCD-123"));
    QTest::keyClick(&form.box, Qt::Key_Up);
    QCOMPARE(form.chosen, 3);
    QVERIFY(form.box.hasFocus());
  }

  void aClickInTheListLeavesTheKeyboardWhereTheChoicePutsIt() {
    Form form([](Form& opened) { opened.other.setFocus(); });
    test::choose(form.box, 1);
    QVERIFY(form.other.hasFocus());
  }

  void aTypedPlateOfTheListIsNoChoice_data() {
    QTest::addColumn<Qt::Key>("key");
    QTest::newRow("leaving") << Qt::Key_Tab;
    QTest::newRow("return") << Qt::Key_Return;
    QTest::newRow("enter") << Qt::Key_Enter;
  }
  void aTypedPlateOfTheListIsNoChoice() {
    QFETCH(Qt::Key, key);
    Form form;
    test::typeInto(form.box, "ABCD-123");
    QTest::keyClick(&form.box, key);
    form.other.setFocus();
    QCOMPARE(form.chosen, 0);
    QCOMPARE(form.box.currentText(), QString("ABCD-123"));
  }

  void aTextThatTheProgramSetIsNoChoice() {
    Form form;
    form.box.setEditText("ABCD-123");
    form.box.setFocus();
    form.other.setFocus();
    QCOMPARE(form.chosen, 0);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::PlateChooserTest)
#include "plate_chooser_test.moc"
