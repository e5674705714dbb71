#include "ui/look/result_accessible.h"

#include <QAccessible>
#include <QLineEdit>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {

class ResultAccessibleTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { tellResultsAsResults(); }

  void aReadOnlyFieldIsAResultThatCannotBeEdited() {
    QLineEdit field;
    field.setReadOnly(true);
    field.setText("1 234 Ft.");
    field.setAccessibleName("Eddigi Költség");
    QAccessibleInterface& told = *QAccessible::queryAccessibleInterface(&field);
    QVERIFY(told.state().readOnly);
    QVERIFY(!told.state().editable);
    QVERIFY(told.editableTextInterface() == nullptr);
    QCOMPARE(told.text(QAccessible::Name), QString("Eddigi Költség"));
    QCOMPARE(told.text(QAccessible::Value), QString("1 234 Ft."));
  }

  void itsTextIsReadAndSelected() {
    QLineEdit field;
    field.setReadOnly(true);
    field.setText("1 234 Ft.");
    QAccessibleTextInterface& text = *QAccessible::queryAccessibleInterface(&field)->textInterface();
    QCOMPARE(text.characterCount(), 9);
    QCOMPARE(text.text(2, 5), QString("234"));
    QCOMPARE(text.selectionCount(), 0);
    text.addSelection(2, 5);
    QCOMPARE(field.selectedText(), QString("234"));
    int start = 0;
    int end = 0;
    text.selection(0, &start, &end);
    QCOMPARE(start, 2);
    QCOMPARE(end, 5);
    text.removeSelection(0);
    QVERIFY(!field.hasSelectedText());
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

TARVIK_SCREEN_TEST(tarvik::ui::ResultAccessibleTest)
#include "result_accessible_test.moc"
