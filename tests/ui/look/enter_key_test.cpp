#include "ui/look/enter_key.h"

#include <QCheckBox>
#include <QDialog>
#include <QListWidget>
#include <QRadioButton>
#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/look/day_field.h"
#include "ui/look/editable_box.h"
#include "ui/look/look.h"
#include "ui/look/main_button.h"

namespace tarvik::ui {
namespace {

/// A button as some desktops have it: Enter presses it whenever it has the keyboard.
class EagerButton : public QPushButton {
 protected:
  void keyPressEvent(QKeyEvent* event) override {
    event->key() == Qt::Key_Return ? click() : QPushButton::keyPressEvent(event);
  }
};

/// A dialog with an entry whose button asks, one whose button does not, and a list.
struct Form {
  Form() {
    test::dressOnce();
    auto* column = new QVBoxLayout(&dialog);
    auto* group = new QWidget;
    auto* options = new QVBoxLayout(group);
    options->addWidget(&winter);
    options->addWidget(&summer);
    const QList<QWidget*> parts{&text, &result, &box,  &day,     group,     &last,
                                &asks, &other,  &ends, &unasked, &harmless, &rows};
    for (QWidget* part : parts) column->addWidget(part);
    result.setReadOnly(true);
    last.setProperty("enter", "asks");
    asks.setObjectName("asks");
    asks.setProperty("look", "main");
    ends.setProperty("enter", "unasked");
    unasked.setObjectName("unasked");
    unasked.setProperty("unasked", true);
    unasked.setProperty("look", "main");
    box.addItems({"one", "two"});
    rows.addItems({"one", "two"});
    for (QPushButton* button : QList<QPushButton*>{&asks, &unasked, &harmless})
      QObject::connect(button, &QPushButton::clicked, [this, button] { pressed << button; });
    followEnterRule(dialog);
    test::bringUp(dialog);
  }
  QWidget* enter(QWidget& from, Qt::Key key = Qt::Key_Return, Qt::KeyboardModifiers with = {}) {
    from.setFocus();
    QTest::keyClick(&from, key, with);
    return dialog.focusWidget();
  }

  QDialog dialog;
  QLineEdit text;
  QLineEdit result;
  EditableBox box;
  DayField day;
  QRadioButton winter{"winter"};
  QRadioButton summer{"summer"};
  QCheckBox last{"last"};
  QPushButton asks{"asks"};
  QLineEdit other;
  QLineEdit ends;
  EagerButton unasked;
  QPushButton harmless{"harmless"};
  QListWidget rows;
  QList<QPushButton*> pressed;
};

/// Whether a part was painted since.
class Painted : public QObject {
 public:
  explicit Painted(QWidget& part) { part.installEventFilter(this); }
  bool eventFilter(QObject*, QEvent* event) override {
    isSeen = isSeen || event->type() == QEvent::Paint;
    return false;
  }
  bool isSeen = false;
};

}  // namespace

class EnterKeyTest : public QObject {
  Q_OBJECT

 private slots:
  void inAFieldItGoesToTheNextOne() {
    for (const auto& [key, with] : {std::pair(Qt::Key_Return, Qt::KeyboardModifiers()),
                                    std::pair(Qt::Key_Enter, Qt::KeyboardModifiers(Qt::KeypadModifier))}) {
      Form form;
      QCOMPARE(form.enter(form.text, key, with), &form.box);
      QCOMPARE(form.enter(form.box, key, with), &form.day);
      QCOMPARE(form.enter(form.day, key, with), &form.winter);
      QCOMPARE(form.enter(form.winter, key, with), &form.last);
      QVERIFY(form.pressed.isEmpty());
      QVERIFY(form.dialog.isVisible());
    }
  }

  void inTheLastFieldOfAllItStays() {
    QDialog dialog;
    auto* const column = new QVBoxLayout(&dialog);
    QLineEdit first;
    QLineEdit last;
    for (QLineEdit* field : {&first, &last}) column->addWidget(field);
    followEnterRule(dialog);
    test::bringUp(dialog);
    last.setFocus();
    QTest::keyClick(&last, Qt::Key_Return);
    QVERIFY(last.hasFocus());
  }

  void ofOptionsItGoesToTheCheckedOne() {
    Form form;
    form.summer.setChecked(true);
    QCOMPARE(form.enter(form.day), &form.summer);
    QCOMPARE(form.enter(form.summer), &form.last);
  }

  void inTheLastFieldItPressesTheButtonThatAsks() {
    Form form;
    form.enter(form.last);
    QCOMPARE(form.pressed, QList<QPushButton*>{&form.asks});
    form.asks.setEnabled(false);
    QCOMPARE(form.enter(form.last), &form.last);
    QCOMPARE(form.pressed.size(), 1);
  }

  void aButtonThatDoesNotAskIsOnlyGoneTo() {
    Form form;
    QCOMPARE(form.enter(form.ends), &form.unasked);
    QCOMPARE(form.enter(form.unasked), &form.unasked);
    QVERIFY(form.pressed.isEmpty());
    QTest::keyClick(&form.unasked, Qt::Key_Space);
    QCOMPARE(form.pressed, QList<QPushButton*>{&form.unasked});
  }

  void onAnotherButtonItPressesThat() {
    Form form;
    form.enter(form.harmless);
    QCOMPARE(form.pressed, QList<QPushButton*>{&form.harmless});
    QVERIFY(!form.harmless.isDefault());
    QVERIFY(!form.asks.autoDefault());
  }

  void inAListItDoesNothing() {
    Form form;
    QCOMPARE(form.enter(form.rows), &form.rows);
    QVERIFY(form.pressed.isEmpty());
    QVERIFY(form.dialog.isVisible());
  }

  void aKeyHeldDownGoesOneStep() {
    Form form;
    form.text.setFocus();
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, "\r", true);
    QApplication::sendEvent(&form.text, &held);
    QCOMPARE(form.dialog.focusWidget(), &form.text);
  }

  void anOpenDropDownKeepsItsEnter() {
    Form form;
    form.box.setFocus();
    form.box.showPopup();
    QTest::keyClick(form.box.view(), Qt::Key_Down);
    QTest::keyClick(form.box.view(), Qt::Key_Return);
    QCOMPARE(form.box.currentText(), "two");
    QCOMPARE(form.dialog.focusWidget(), &form.box);
  }

  void theLastMainButtonInSightIsTheOnlyOne() {
    Form form;
    QVERIFY(isMainAction(form.unasked));
    QVERIFY(!isMainAction(form.asks));
    QVERIFY(!isMainAction(form.harmless));
    const auto surfaceOf = [](QPushButton& button) {
      return button.grab().toImage().pixelColor(gridStep(), button.height() / 2);
    };
    QVERIFY(surfaceOf(form.unasked) != surfaceOf(form.harmless));
    QCOMPARE(surfaceOf(form.asks), surfaceOf(form.harmless));
    form.unasked.hide();
    QVERIFY(isMainAction(form.asks));
    QVERIFY(surfaceOf(form.asks) != surfaceOf(form.harmless));
  }

  void aMainButtonIsPaintedAnewWhenAnotherComesOrGoes() {
    Form form;
    QSizePolicy keepsItsPlace = form.unasked.sizePolicy();
    keepsItsPlace.setRetainSizeWhenHidden(true);
    form.unasked.setSizePolicy(keepsItsPlace);
    QCoreApplication::processEvents();
    for (const bool shown : {false, true}) {
      Painted asks(form.asks);
      form.unasked.setVisible(shown);
      QTRY_VERIFY(asks.isSeen);
    }
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::EnterKeyTest)
#include "enter_key_test.moc"
