#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QCalendarWidget>
#include <QComboBox>
#include <QFrame>
#include <QIcon>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScopeGuard>
#include <QStyle>
#include <QTest>
#include <QVBoxLayout>

#include "tests/ui/dressed.h"
#include "tests/ui/screen_test.h"
#include "ui/look/look.h"

namespace tarvik::ui {
namespace {

// Whether nothing goes on by itself any more.
bool isIdle() {
  return QTest::qWaitFor(
      [] { return !QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents); });
}

// Keeps from windows that there is a new font: Qt tells them nothing of a new one of the desktop.
class Deaf : public QObject {
 public:
  bool eventFilter(QObject*, QEvent* event) override {
    return event->type() == QEvent::ApplicationFontChange;
  }
};

}  // namespace

class DressTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { test::dressOnce(); }
  void init() { QVERIFY(isIdle()); }

  void aLargerFontReachesWhatWasMeasuredByTheOldOne() {
    const QFont before = QApplication::font();
    const auto back = qScopeGuard([&] { QApplication::setFont(before); });
    QWidget window;
    QVBoxLayout layout(&window);
    QLabel heading("Cím");
    heading.setProperty("look", "heading");
    QLabel result;
    result.setProperty("longest", "999 999");
    QPushButton button("Gomb");
    for (QWidget* part :
         {static_cast<QWidget*>(&heading), static_cast<QWidget*>(&result), static_cast<QWidget*>(&button)})
      layout.addWidget(part);
    window.show();
    const int headline = heading.fontMetrics().height();
    const int width = result.minimumWidth();
    const int height = button.height();
    QFont larger = before;
    larger.setPointSizeF(before.pointSizeF() * 2);
    Deaf deaf;
    window.installEventFilter(&deaf);
    QApplication::setFont(larger);
    window.removeEventFilter(&deaf);
    QTRY_COMPARE(window.font().pointSizeF(), larger.pointSizeF());
    QTRY_VERIFY(heading.fontMetrics().height() > headline * 3 / 2);
    QTRY_VERIFY(result.minimumWidth() > width * 3 / 2);
    QTRY_VERIFY(button.height() > height * 3 / 2);
    QVERIFY(isIdle());
    heading.setParent(nullptr);
  }

  void aChooserIsWiderThanItsEntry() {
    const QString text = QStringLiteral("amerikai gallon (3,785 liter)");
    QComboBox chooser;
    chooser.addItem(text);
    QVERIFY(chooser.sizeHint().width() > chooser.fontMetrics().horizontalAdvance(text));
  }

  void aCardIsFilledHalfWayToTheFieldsAndHasNarrowMargins() {
    const int step = gridStep();
    for (const auto& [look, side, above, paper] :
         {std::tuple("card", step, step, 100), {"band", step, 0, 0}, {"", step * 3 / 2, step, 0}}) {
      QFrame frame;
      frame.setProperty("look", look);
      QPalette colours;
      colours.setColor(QPalette::Window, Qt::black);
      colours.setColor(QPalette::Base, QColor(200, 200, 200));
      frame.setPalette(colours);
      frame.resize(40, 40);
      const QVBoxLayout layout(&frame);
      QCOMPARE(layout.contentsMargins(), QMargins(side, above, side, above));
      QCOMPARE(frame.grab().toImage().pixelColor(20, 20), QColor(paper, paper, paper));
    }
  }

  void theProgramsPictureIsThereInEverySize() {
    QList<QSize> sizes;
    for (const int size : {16, 24, 32, 48, 64}) sizes << QSize(size, size);
    QCOMPARE(QApplication::windowIcon().availableSizes(), sizes);
  }

  void newColoursReachWhatWasColouredByTheOldOnes() {
    const QPalette before = QApplication::palette();
    const auto back = qScopeGuard([&] { QApplication::setPalette(before); });
    QLineEdit overdue;
    QLineEdit dimmed;
    showOverdue(overdue, true);
    showDimmed(dimmed, true);
    QCalendarWidget calendar;
    for (QWidget* part : std::initializer_list<QWidget*>{&overdue, &dimmed, &calendar}) part->show();
    const auto sunday = [&] { return calendar.weekdayTextFormat(Qt::Sunday).foreground().color(); };
    QCOMPARE(sunday(), QColor(0xb0, 0x00, 0x20));
    QPalette dark = before;
    dark.setColor(QPalette::Base, Qt::black);
    dark.setColor(QPalette::Text, Qt::white);
    const QColor red = overdue.palette().color(QPalette::Text);
    QApplication::style()->polish(dark);  // as the desktop's own palette is
    QApplication::setPalette(dark);
    QTRY_VERIFY(overdue.palette().color(QPalette::Text) != red);
    QCOMPARE(overdue.palette().color(QPalette::Text), overdueColour(QApplication::palette()));
    QCOMPARE(sunday(), QColor(0xff, 0x8a, 0x80));
    QCOMPARE(calendar.weekdayTextFormat(Qt::Saturday).foreground().color(), QColor(0xff, 0x8a, 0x80));
    QColor hint(Qt::white);
    hint.setAlphaF(0.6F);
    QCOMPARE(dimmed.palette().color(QPalette::Text), hint);
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::DressTest)
#include "dress_test.moc"
