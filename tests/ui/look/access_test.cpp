#include "ui/look/access.h"

#include <QAccessible>
#include <QDialog>
#include <QFocusEvent>
#include <QListWidget>
#include <QMainWindow>
#include <QRadioButton>
#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/look/dialog_parts.h"

namespace tarvik::ui {
namespace {

// Three options in a form, and one in a box of its own inside of it.
struct Form {
  explicit Form(int checked = 0) {
    test::dressOnce();
    auto* const layout = new QVBoxLayout(&screen);
    for (QRadioButton* option : options) layout->addWidget(option);
    auto* const box = new QWidget;
    layout->addWidget(box);
    (new QVBoxLayout(box))->addWidget(inner);
    makeAccessible(screen);
    if (checked > 0) options[checked - 1]->setChecked(true);
    test::bringUp(screen);
  }
  // Which option is checked once a key was pressed on one, counted from 1; 0 when none is.
  int checkedAfter(Qt::Key key, int on) {
    options[on - 1]->setFocus();
    QTest::keyClick(options[on - 1], key);
    for (int option = 1; option <= 3; ++option)
      if (options[option - 1]->isChecked()) return options[option - 1]->hasFocus() ? option : -option;
    return 0;
  }

  QWidget screen;
  QRadioButton* options[3] = {new QRadioButton("a"), new QRadioButton("b"), new QRadioButton("c")};
  QRadioButton* inner = new QRadioButton("d");
};

// Notes for what reason a part last got the keyboard.
class Reasons : public QObject {
 public:
  Qt::FocusReason last = Qt::NoFocusReason;
  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() == QEvent::FocusIn) last = static_cast<QFocusEvent*>(event)->reason();
    return false;
  }
};

}  // namespace

class AccessTest : public QObject {
  Q_OBJECT

 private slots:
  void arrowsCheckTheNextOptionAndTheOneBefore() {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right}) {
      Form form(1);
      QCOMPARE(form.checkedAfter(key, 1), 2);
      QCOMPARE(form.checkedAfter(key, 2), 3);
    }
    for (const Qt::Key key : {Qt::Key_Up, Qt::Key_Left}) {
      Form form(3);
      QCOMPARE(form.checkedAfter(key, 3), 2);
      QCOMPARE(form.checkedAfter(key, 2), 1);
    }
  }

  void theFirstArrowChecksTheOptionThatHasTheKeyboard() {
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Right, Qt::Key_Up, Qt::Key_Left}) {
      Form form;
      QCOMPARE(form.checkedAfter(key, 2), 2);
    }
  }

  void arrowsStopAtBothEnds() {
    Form form;
    QCOMPARE(form.checkedAfter(Qt::Key_Down, 3), 3);
    QVERIFY(!form.inner->isChecked());
    QCOMPARE(form.checkedAfter(Qt::Key_Up, 1), 1);
  }

  void theKeyboardComesFromTheSideThatTheArrowLeaves() {
    Form form(1);
    Reasons reasons;
    form.options[1]->installEventFilter(&reasons);
    form.checkedAfter(Qt::Key_Down, 1);
    QCOMPARE(reasons.last, Qt::TabFocusReason);
    form.checkedAfter(Qt::Key_Up, 3);
    QCOMPARE(reasons.last, Qt::BacktabFocusReason);
  }

  void anOtherKeyChecksNothing() {
    Form form;
    QCOMPARE(form.checkedAfter(Qt::Key_A, 1), 0);
    QCOMPARE(form.checkedAfter(Qt::Key_PageDown, 1), 0);
  }

  void whatADropDownHoldsHasItsName() {
    QWidget screen;
    auto* const fixed = new QComboBox(&screen);
    auto* const editable = new QComboBox(&screen);
    editable->setEditable(true);
    fixed->setAccessibleName("Év");
    editable->setAccessibleName("Rendszám");
    makeAccessible(screen);
    QCOMPARE(fixed->view()->accessibleName(), "Év");
    QCOMPARE(editable->view()->accessibleName(), "Rendszám");
    QCOMPARE(editable->lineEdit()->accessibleName(), "Rendszám");
  }

  void theItemsOfListsAreToldWithoutTheirPadding() {
    QWidget screen;
    auto* const list = new QListWidget(&screen);
    auto* const box = new QComboBox(&screen);
    makeAccessible(screen);
    list->addItems({"  Olaj      ", "Gumi "});
    box->addItems({"ABC-123  "});
    for (int row = 0; row < 2; ++row)
      QCOMPARE(list->item(row)->data(Qt::AccessibleTextRole).toString(), row == 0 ? "Olaj" : "Gumi");
    QCOMPARE(list->item(0)->text(), "  Olaj      ");
    QCOMPARE(box->itemData(0, Qt::AccessibleTextRole).toString(), "ABC-123");
  }

  void aFieldThatCannotBeEditedIsToldAsAResult() {
    QWidget screen;
    QLineEdit field(&screen);
    field.setReadOnly(true);
    makeAccessible(screen);
    QVERIFY(!QAccessible::queryAccessibleInterface(&field)->state().editable);
  }

  void F10GoesToTheMenuOfADialogAndItsFirstItemClosesIt() {
    QDialog dialog;
    new QVBoxLayout(&dialog);
    QAction close("&Bezár");
    QAction print("&Nyomtatás");
    addClosingMenu(dialog, &close, {&print});
    auto* const menu = qobject_cast<QMenuBar*>(dialog.layout()->menuBar());
    QCOMPARE(menu->actions(), (QList{&close, &print}));
    test::bringUp(dialog);
    QTest::keyClick(&dialog, Qt::Key_F10);
    QVERIFY(menu->hasFocus());
    QCOMPARE(menu->activeAction(), &close);
    close.trigger();
    QVERIFY(!dialog.isVisible());
  }

  void theMenuGivesTheKeyboardBackWhenItsWindowComesToTheFrontAgain() {
    QMainWindow window;
    auto* const layout = new QVBoxLayout;
    QLineEdit field;
    QLineEdit other;
    for (QLineEdit* part : {&field, &other}) layout->addWidget(part);
    auto* const contents = new QWidget;
    contents->setLayout(layout);
    window.setCentralWidget(contents);
    openWithF10(*window.menuBar());
    test::bringUp(window);
    const auto goAwayAndBack = [&window] {
      QWidget screen;
      test::bringUp(screen);
      screen.close();
      window.activateWindow();
      return QTest::qWaitForWindowActive(&window);
    };
    QVERIFY(goAwayAndBack());
    field.setFocus();
    window.menuBar()->setFocus(Qt::MenuBarFocusReason);
    QVERIFY(goAwayAndBack());
    QVERIFY(field.hasFocus());
    other.setFocus();
    QVERIFY(goAwayAndBack());
    QVERIFY(other.hasFocus());
  }

  void aLongTextOfAFieldIsShownFromItsBeginning() {
    QLineEdit field;
    fillField(&field, "egy hosszú szöveg");
    QCOMPARE(field.text(), QString("egy hosszú szöveg"));
    QCOMPARE(field.cursorPosition(), 0);
  }

  void whatIsTakenOutOfUseIsNoPartOfItsScreen() {
    QWidget screen;
    QWidget control(&screen);
    screen.show();
    takeOutOfUse(control);
    QVERIFY(control.isWindow() && control.isHidden());
    QCOMPARE(control.parentWidget(), &screen);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::AccessTest)
#include "access_test.moc"
