#include "ui/look/wheel.h"

#include <QListWidget>
#include <QSlider>
#include <QVBoxLayout>

#include "tests/ui/by_hand.h"
#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/look/editable_box.h"

namespace tarvik::ui {
namespace {

/// A window too low for its parts, which can be scrolled, with the keyboard in its first field.
struct Form {
  Form() {
    test::dressOnce();
    auto* parts = new QWidget;
    auto* column = new QVBoxLayout(parts);
    texts.addItems({"one", "two", "three"});
    box.addItems({"one", "two", "three"});
    box.setCurrentIndex(1);
    texts.setCurrentIndex(1);
    day.setDate({2013, 7, 5});
    slider.setRange(0, 10);
    slider.setValue(5);
    slider.setFocusPolicy(Qt::StrongFocus);
    pages.addTab("one");
    pages.addTab("two");
    pages.setCurrentIndex(0);
    for (int row = 0; row < kRows; ++row) rows.addItem(QString::number(row));
    rows.setFixedHeight(kHeight / 2);
    for (QWidget* part : QList<QWidget*>{&first, &texts, &box, &day, &slider, &pages, &rows, &last})
      column->addWidget(part);
    last.setFixedHeight(2 * kHeight);
    window.setWidget(parts);
    window.resize(kHeight, kHeight);
    test::bringUp(window);
    first.setFocus();
  }
  ~Form() { window.takeWidget()->setParent(nullptr); }
  QString state() const {
    return QStringList{texts.currentText(), box.currentText(), day.text(), QString::number(slider.value()),
                       QString::number(pages.currentIndex())}
        .join(' ');
  }
  int scrolled() const { return window.verticalScrollBar()->value(); }

  static constexpr int kHeight = 200;
  static constexpr int kRows = 50;
  QLineEdit first;
  EditableBox texts;
  QComboBox box;
  QDateEdit day;
  QSlider slider{Qt::Horizontal};
  QTabBar pages;
  QListWidget rows;
  QWidget last;
  QScrollArea window;
};

}  // namespace

class WheelTest : public QObject {
  Q_OBJECT

 private slots:
  void whatHasNotTheFocusStaysAndTheWindowScrolls() {
    Form form;
    const QString before = form.state();
    for (QWidget* part : QList<QWidget*>{&form.texts, &form.box, &form.day, &form.slider, &form.pages}) {
      test::bringIntoView(*part);
      const int scrolled = form.scrolled();
      test::turnWheel(*part);
      QCOMPARE(form.state(), before);
      QVERIFY2(form.scrolled() > scrolled, part->metaObject()->className());
      test::turnWheel(*part, false);
      QCOMPARE(form.state(), before);
      QVERIFY(form.first.hasFocus());
    }
  }

  void whatHasTheFocusFollowsTheWheel() {
    Form form;
    form.box.setFocus();
    test::turnWheel(form.box);
    QCOMPARE(form.box.currentText(), "three");
    form.day.setFocus();
    form.day.setSelectedSection(QDateTimeEdit::DaySection);
    test::turnWheel(form.day);
    QCOMPARE(form.day.date(), QDate(2013, 7, 4));
    form.slider.setFocus();
    test::turnWheel(form.slider, false);
    QVERIFY(form.slider.value() > 5);
    form.pages.setFocus();
    test::turnWheel(form.pages);
    QCOMPARE(form.pages.currentIndex(), 1);
  }

  void whatWasTypedIntoADropDownStaysUnderTheWheel() {
    Form form;
    test::typeInto(form.texts, "OLAJ");
    test::turnWheel(form.texts);
    test::turnWheel(form.texts, false);
    QCOMPARE(form.texts.currentText(), "OLAJ");
    QVERIFY(form.texts.hasFocus());
  }

  void aListScrollsWithoutTakingTheFocus() {
    Form form;
    test::turnWheel(form.rows);
    QVERIFY(form.rows.verticalScrollBar()->value() > 0);
    QVERIFY(form.first.hasFocus());
  }

  void anOpenDropDownScrollsAndChoosesNothing() {
    Form form;
    for (int item = 0; item < Form::kRows; ++item) form.box.addItem(QString::number(item));
    form.box.setMaxVisibleItems(5);
    form.box.setFocus();
    form.box.showPopup();
    test::turnWheel(*form.box.view()->viewport());
    QVERIFY(form.box.view()->verticalScrollBar()->value() > 0);
    QCOMPARE(form.box.currentText(), "two");
    form.box.hidePopup();
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::WheelTest)
#include "wheel_test.moc"
