#include "ui/look/note_type_ahead.h"

#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/screen_test.h"
#include "ui/look/editable_box.h"

namespace tarvik::ui {
namespace {

/// A note field that knows one note.
struct Form {
  explicit Form(const QString& text = {}) {
    auto* column = new QVBoxLayout(&window);
    column->addWidget(&other);
    column->addWidget(&box);
    box.setEditText(text);
    new NoteTypeAhead(&box, [](const QString& typed, const QString& key) {
      const QString wanted = typed + key;
      return QStringLiteral("olajcsere").startsWith(wanted)
                 ? std::optional(
                       settings::CompletedNote{"olajcsere", static_cast<std::size_t>(wanted.size())})
                 : std::nullopt;
    });
    test::bringUp(window);
    other.setFocus();
  }
  QLineEdit& field() { return *box.lineEdit(); }

  QWidget window;
  QLineEdit other;
  EditableBox box;
};

}  // namespace

class NoteTypeAheadTest : public QObject {
  Q_OBJECT

 private slots:
  void whatIsTypedAtTheEndGoesOnAsTheNote() {
    Form form;
    form.box.setFocus();
    test::typeKeys(form.box, "o");
    QCOMPARE(form.box.currentText(), "olajcsere");
    QCOMPARE(form.field().selectedText(), "lajcsere");
    test::typeKeys(form.box, "l");
    QCOMPARE(form.box.currentText(), "olajcsere");
    QCOMPARE(form.field().selectedText(), "ajcsere");
    test::typeKeys(form.box, "d");
    QCOMPARE(form.box.currentText(), "old");
    QTest::keyClick(&form.box, Qt::Key_Backspace);
    test::typeKeys(form.box, "a");
    QCOMPARE(form.field().selectedText(), "jcsere");
  }

  void inTheMiddleAKeyIsOnlyTyped() {
    Form form("o csere");
    form.box.setFocus();
    form.field().setCursorPosition(1);
    test::typeKeys(form.box, "l");
    QCOMPARE(form.box.currentText(), "ol csere");
  }

  void aCommandTypesNothing() {
    Form form;
    form.box.setFocus();
    QKeyEvent command(QEvent::KeyPress, Qt::Key_O, Qt::ControlModifier, "o");
    QApplication::sendEvent(&form.box, &command);
    QCOMPARE(form.box.currentText(), "Tankolás");
  }

  void comingToItSelectsItsTextUnlessItWasLeftForAMenuOrAnotherWindow() {
    for (const auto& [reason, selected] : {std::pair(Qt::TabFocusReason, "gumi"),
                                           {Qt::PopupFocusReason, ""},
                                           {Qt::ActiveWindowFocusReason, ""}}) {
      Form form("gumi");
      form.field().setCursorPosition(2);
      QFocusEvent coming(QEvent::FocusIn, reason);
      QApplication::sendEvent(&form.field(), &coming);
      QCOMPARE(form.field().selectedText(), selected);
    }
  }

  void aClickSelectsItsTextToo() {
    Form form("gumi");
    QTest::mouseClick(&form.field(), Qt::LeftButton);
    QTRY_COMPARE(form.field().selectedText(), "gumi");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::NoteTypeAheadTest)
#include "note_type_ahead_test.moc"
