#include "ui/look/editable_box.h"

#include <QSignalSpy>
#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

QString fifty(const char* text) {
  return QString::fromLatin1(text).leftJustified(50);
}

/// A drop-down of three texts of fifty characters, with the keyboard in it.
struct Form {
  Form() {
    test::dressOnce();
    auto* column = new QVBoxLayout(&window);
    column->addWidget(&box);
    column->addWidget(&other);
    box.setInsertPolicy(QComboBox::NoInsert);
    box.addItems({fifty("OLAJ"), fifty("SZURO"), fifty("GYERTYA")});
    box.setEditText({});
    test::bringUp(window);
    box.setFocus();
  }
  void key(Qt::Key key, Qt::KeyboardModifiers with = {}) { QTest::keyClick(&box, key, with); }
  QString text() const { return box.currentText(); }
  int cursor() const { return box.lineEdit()->cursorPosition(); }

  QWidget window;
  EditableBox box;
  QLineEdit other;
};

}  // namespace

class EditableBoxTest : public QObject {
  Q_OBJECT

 private slots:
  void theFirstDownInAnEmptyFieldTakesTheFirstItem() {
    Form form;
    QSignalSpy chosen(&form.box, &QComboBox::activated);
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("OLAJ"));
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("SZURO"));
    form.key(Qt::Key_Up);
    QCOMPARE(form.text(), fifty("OLAJ"));
    form.key(Qt::Key_Up);
    QCOMPARE(form.text(), fifty("OLAJ"));
    QCOMPARE(chosen.count(), 3);
    form.box.setEditText({});
    form.key(Qt::Key_Up);
    QCOMPARE(form.text(), QString());
    form.key(Qt::Key_PageDown);
    QCOMPARE(form.text(), fifty("OLAJ"));
  }

  void arrowsGoOnFromTheTextThatIsShown() {
    Form form;
    form.box.setEditText("SZURO");
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("GYERTYA"));
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("GYERTYA"));
    form.box.setEditText("SZURO     ");
    form.key(Qt::Key_Up);
    QCOMPARE(form.text(), fifty("OLAJ"));
    test::typeInto(form.box, "Lampa");
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("OLAJ"));
    form.box.setCurrentIndex(2);
    form.box.setEditText("OLAJ");
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("SZURO"));
  }

  void ofEqualItemsTheChosenOneCounts() {
    Form form;
    form.box.addItem(fifty("OLAJ"));
    form.box.addItem(fifty("LAMPA"));
    form.box.setCurrentIndex(3);
    form.key(Qt::Key_Down);
    QCOMPARE(form.text(), fifty("LAMPA"));
  }

  void theCursorStandsBehindTheLastLetterOfAChosenItem_data() {
    QTest::addColumn<bool>("byMouse");
    QTest::newRow("arrow") << false;
    QTest::newRow("list") << true;
  }
  void theCursorStandsBehindTheLastLetterOfAChosenItem() {
    QFETCH(bool, byMouse);
    Form form;
    byMouse ? test::choose(form.box, 0) : form.key(Qt::Key_Down);
    if (form.box.lineEdit()->hasSelectedText()) form.key(Qt::Key_End);
    QCOMPARE(form.text(), fifty("OLAJ"));
    QCOMPARE(form.cursor(), 4);
    for (const Qt::Key key : {Qt::Key_End, Qt::Key_Right}) {
      form.key(key);
      QCOMPARE(form.cursor(), 4);
    }
    QTest::mouseClick(form.box.lineEdit(), Qt::LeftButton, {}, form.box.lineEdit()->rect().center());
    QCOMPARE(form.cursor(), 4);
    form.key(Qt::Key_A, Qt::ControlModifier);
    form.key(Qt::Key_End);
    QCOMPARE(form.cursor(), 4);
  }

  void theCursorStandsBehindTheLastLetterOfATextThatIsAsLongAsTheOneBefore() {
    Form form;
    for (const char* text : {"ABC", "AB "}) form.box.setEditText(text);
    QCOMPARE(form.cursor(), 2);
  }

  void typingTakesThePlaceOfThePadding() {
    Form form;
    form.key(Qt::Key_Down);
    test::typeKeys(form.box, " 10W");
    QCOMPARE(form.text(), fifty("OLAJ 10W"));
    QCOMPARE(form.cursor(), 8);
    form.key(Qt::Key_End);
    QCOMPARE(form.cursor(), 8);
    form.key(Qt::Key_Backspace);
    form.key(Qt::Key_Home);
    test::typeKeys(form.box, "A ");
    QCOMPARE(form.text(), fifty("A OLAJ 10").left(49));
    QCOMPARE(form.cursor(), 2);
  }

  void nothingTypedIsLostBehindThePadding() {
    Form form;
    form.key(Qt::Key_Down);
    const QString typed = QString(46, u'x');
    test::typeKeys(form.box, typed);
    QCOMPARE(form.text(), "OLAJ" + typed);
    test::typeKeys(form.box, "y");
    QCOMPARE(form.text(), "OLAJ" + typed + "y");
  }

  void aPastedTextTakesThePlaceOfThePaddingToo() {
    Form form;
    form.key(Qt::Key_Down);
    form.box.lineEdit()->insert(" 5W30");
    QCOMPARE(form.text(), fifty("OLAJ 5W30"));
  }

  void typingOverTheWholeTextReplacesIt() {
    Form form;
    form.key(Qt::Key_Down);
    form.key(Qt::Key_A, Qt::ControlModifier);
    test::typeKeys(form.box, "Lampa");
    QCOMPARE(form.text(), "Lampa");
  }

  void spacesThatWereTypedAreNoPadding() {
    Form form;
    test::typeKeys(form.box, "a  b ");
    QCOMPARE(form.text(), "a  b ");
    QCOMPARE(form.cursor(), 5);
    test::typeKeys(form.box, "c");
    QCOMPARE(form.text(), "a  b c");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::EditableBoxTest)
#include "editable_box_test.moc"
