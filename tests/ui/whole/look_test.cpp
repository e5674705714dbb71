#include "ui/look/look.h"

#include <QAbstractSpinBox>
#include <QGroupBox>
#include <QStyleOptionFrame>

#include "reminders/km_reminders.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/lists/list_delegate.h"
#include "ui/look/placement.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmEvesOsszesito.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/restore_pane.h"
#include "ui/windows/riaszt.h"

// One walk through all screens and all their parts at every size of letters that people use: what is shown
// is whole, nothing lies over anything else, labels stand in line with their fields.

namespace tarvik {
namespace {

using Faults = QStringList;

QString nameOf(const QWidget& widget) {
  const QString name = widget.objectName();
  return name.isEmpty() ? QString::fromLatin1(widget.metaObject()->className()) : name;
}

QRect placeIn(const QWidget& window, const QWidget& widget) {
  return {widget.mapTo(&window, QPoint()), widget.size()};
}

bool isSeen(const QWidget& widget) {
  return widget.isVisible() && !widget.size().isEmpty();
}

// What Qt builds inside of its own controls is Qt's.
bool isInner(const QWidget& widget) {
  for (const QWidget* outer = widget.parentWidget(); outer != nullptr; outer = outer->parentWidget())
    if (qobject_cast<const QAbstractItemView*>(outer) != nullptr ||
        qobject_cast<const QComboBox*>(outer) != nullptr ||
        qobject_cast<const QAbstractSpinBox*>(outer) != nullptr ||
        qobject_cast<const QMenuBar*>(outer) != nullptr)
      return true;
  return qobject_cast<const QScrollBar*>(&widget) != nullptr;
}

QList<QWidget*> seenParts(const QWidget& window) {
  QList<QWidget*> parts;
  for (QWidget* part : window.findChildren<QWidget*>())
    if (isSeen(*part) && !isInner(*part) && part->window() == &window) parts.append(part);
  return parts;
}

// The longest text that a part may have to show, and the room that it has for it.
struct Fit {
  int needed = 0;
  int room = 0;
};

int roomInField(const QLineEdit& field) {
  QStyleOptionFrame option;
  option.initFrom(&field);
  option.lineWidth = field.hasFrame() ? 1 : 0;
  constexpr int kQtsMargin = 2;
  return field.style()->subElementRect(QStyle::SE_LineEditContents, &option, &field).width() - 2 * kQtsMargin;
}

Fit fitOf(const QWidget& part) {
  const QFontMetrics metrics = part.fontMetrics();
  const QString longest = part.property("longest").toString();
  if (const auto* field = qobject_cast<const QLineEdit*>(&part))
    return {metrics.horizontalAdvance(longest), roomInField(*field)};
  if (const auto* label = qobject_cast<const QLabel*>(&part)) {
    if (label->wordWrap()) return {};
    return {std::max(label->sizeHint().width(), metrics.horizontalAdvance(longest)), label->width()};
  }
  if (const auto* group = qobject_cast<const QGroupBox*>(&part)) {
    QFont bold = group->font();
    bold.setBold(true);
    return {QFontMetrics(bold).horizontalAdvance(group->title()) + 2 * ui::gridStep(), group->width()};
  }
  if (const auto* button = qobject_cast<const QPushButton*>(&part))
    return {metrics.size(Qt::TextShowMnemonic, button->text()).width() + 2 * ui::gridStep(), button->width()};
  if (qobject_cast<const QAbstractButton*>(&part) != nullptr ||
      qobject_cast<const QAbstractSpinBox*>(&part) != nullptr)
    return {part.sizeHint().width(), part.width()};
  if (qobject_cast<const QComboBox*>(&part) != nullptr)
    return {metrics.horizontalAdvance(longest), part.width() - 3 * ui::gridStep()};
  return {};
}

Faults cutTexts(const QWidget& window) {
  Faults faults;
  for (const QWidget* part : seenParts(window)) {
    const Fit fit = fitOf(*part);
    if (fit.needed > fit.room)
      faults << QStringLiteral("%1 needs %2 px and has %3").arg(nameOf(*part)).arg(fit.needed).arg(fit.room);
    const bool hasLine = qobject_cast<const QLabel*>(part) != nullptr ||
                         qobject_cast<const QAbstractButton*>(part) != nullptr ||
                         qobject_cast<const QLineEdit*>(part) != nullptr ||
                         qobject_cast<const QComboBox*>(part) != nullptr;
    if (hasLine && part->height() < part->fontMetrics().height())
      faults << QStringLiteral("%1 is lower than its letters").arg(nameOf(*part));
  }
  return faults;
}

Faults cutHeads(const QWidget& window) {
  Faults faults;
  for (const QHeaderView* header : window.findChildren<QHeaderView*>()) {
    if (!isSeen(*header)) continue;
    for (int column = 0; column < header->count(); ++column) {
      if (header->isSectionHidden(column)) continue;
      const QString head = header->model()->headerData(column, Qt::Horizontal).toString();
      const int needed = header->fontMetrics().horizontalAdvance(head);
      if (needed > header->sectionSize(column)) faults << QStringLiteral("the head %1 is cut").arg(head);
    }
  }
  return faults;
}

Faults outsideParents(const QWidget& window) {
  Faults faults;
  for (const QWidget* part : seenParts(window)) {
    const QWidget* parent = part->parentWidget();
    if (parent->objectName() == QLatin1String("qt_scrollarea_viewport")) continue;
    if (!parent->rect().contains(part->geometry()))
      faults << QStringLiteral("%1 leaves %2").arg(nameOf(*part), nameOf(*parent));
  }
  return faults;
}

Faults overlaps(const QWidget& window) {
  Faults faults;
  const QList<QWidget*> parts = seenParts(window);
  for (const QWidget* one : parts)
    for (const QWidget* other : parts)
      if (one < other && one->parentWidget() == other->parentWidget() &&
          one->geometry().intersects(other->geometry()))
        faults << QStringLiteral("%1 lies over %2").arg(nameOf(*one), nameOf(*other));
  return faults;
}

// A label stands beside its field, on its line, or over it with the same left or right edge.
Faults crookedLabels(const QWidget& window) {
  constexpr int kSlack = 2;
  Faults faults;
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    const QWidget* field = label->buddy();
    if (field == nullptr || !isSeen(*label) || !isSeen(*field)) continue;
    const QRect text = placeIn(window, *label);
    const QRect place = placeIn(window, *field);
    const bool isOver = text.bottom() < place.top();
    const bool isOnLine = std::abs(text.center().y() - place.center().y()) <= kSlack;
    const bool isOnEdge =
        std::abs(text.left() - place.left()) <= kSlack || std::abs(text.right() - place.right()) <= kSlack;
    if (isOver ? !isOnEdge : !isOnLine) faults << QStringLiteral("%1 is out of line").arg(nameOf(*label));
  }
  return faults;
}

// Neighbours in one row stand equally far from each other; where a spacer pushes them apart that is meant.
Faults unequalGaps(const QWidget& window) {
  Faults faults;
  for (const QHBoxLayout* row : window.findChildren<QHBoxLayout*>()) {
    for (int item = 1; item < row->count(); ++item) {
      const QWidget* left = row->itemAt(item - 1)->widget();
      const QWidget* right = row->itemAt(item)->widget();
      if (left == nullptr || right == nullptr || !isSeen(*left) || !isSeen(*right)) continue;
      const int gap = right->geometry().left() - left->geometry().right() - 1;
      const int slack = row->itemAt(item)->alignment() != 0 ? row->geometry().width() : 1;
      if (row->stretch(item - 1) == 0 && std::abs(gap - row->spacing()) > slack)
        faults << QStringLiteral("%1 and %2 are %3 px apart").arg(nameOf(*left), nameOf(*right)).arg(gap);
    }
  }
  return faults;
}

Faults faultsOf(const QWidget& window) {
  return cutTexts(window) + cutHeads(window) + outsideParents(window) + overlaps(window) +
         crookedLabels(window) + unequalGaps(window);
}

// The points of a font at 96 dots an inch that is as large as one of 8 to 16 points at 96, 120 and 144.
constexpr std::array kPoints{8.0, 10.0, 12.0, 16.0, 20.0, 24.0};

struct EveryScreen : test::MainScreen {
  EveryScreen() {
    folder.write("rendsz.dat", test::padded("ABC-123", 8) + std::string("\x37\0", 2));
    choosePlateAtStart("ABC-123");
    writeLogbook("ABC-123", {test::fuelling({2026, 11, 1}, 10'000, 400'000, true, 18'000),
                             test::fuelling({2026, 11, 9}, 10'500, 350'000, true, 16'000)});
  }
};

}  // namespace

class LookTest : public QObject {
  Q_OBJECT

 private:
  QFont usual_;

  static void search(QWidget& screen) {
    test::part<QAction>(screen, "mnuKereses")->trigger();
    test::part<QLineEdit>(screen, "txKereses")->setText(QStringLiteral("nincs ilyen"));
    QTest::qWait(0);
  }
  static void check(QWidget& window) {
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    const Faults faults = faultsOf(window);
    QVERIFY2(faults.isEmpty(), qPrintable(nameOf(window) + QStringLiteral(": ") + faults.join("; ")));
    const QSize display = window.screen()->availableGeometry().size();
    QVERIFY2(window.width() <= display.width() && window.height() <= display.height(),
             qPrintable(nameOf(window) + QStringLiteral(" is larger than the display")));
  }

 private slots:
  void initTestCase() {
    test::dressOnce();
    usual_ = QApplication::font();
  }
  void cleanup() { QApplication::setFont(usual_); }

  void everythingIsWholeAtEverySizeOfLetters_data() {
    QTest::addColumn<double>("points");
    for (const double points : kPoints) QTest::addRow("%g points", points) << points;
  }

  void everythingIsWholeAtEverySizeOfLetters() {
    QFETCH(double, points);
    QFont font = QApplication::font();
    font.setPointSizeF(points);
    QApplication::setFont(font);
    EveryScreen desk;
    desk.open();
    check(*desk.screen);
    for (const char* button : {"cmd_lista", "opSzürö_2"}) desk.find<QAbstractButton>(button)->click();
    QTest::qWait(0);
    check(*desk.screen);
    desk.find<QAbstractButton>("cmdSzürés")->click();
    QTest::qWait(0);
    check(*desk.screen);
    search(*desk.screen);
    check(*desk.screen);

    test::onNextDialog<ui::frmMelyGrafikon>([](ui::frmMelyGrafikon& chooser) {
      test::part<QRadioButton>(chooser, "Option1")->setChecked(true);
      test::part<QPushButton>(chooser, "cmdMegjelenit")->click();
    });
    desk.find<QAbstractButton>("cmdGrafikon")->click();
    QVERIFY(desk.find<QFrame>("FrmGrafikon")->isVisible());
    QTest::qWait(0);
    check(*desk.screen);

    ui::figy reminders(desk.context, "ABC-123", nullptr);
    check(reminders);
    test::part<QTabWidget>(reminders, "SSTab1")->setCurrentIndex(1);
    check(reminders);
    ui::frmSetup settings(desk.context, {}, nullptr);
    auto* const pages = test::part<QTabWidget>(settings, "SSTab1");
    for (int page = 0; page < pages->count(); ++page) {
      pages->setCurrentIndex(page);
      check(settings);
    }
    test::onNextDialog<QDialog>([](QDialog& wayBack) {
      check(wayBack);
      wayBack.close();
    });
    ui::openRestoreScreen(desk.context, nullptr);
    ui::frmGumik tyres(desk.context, "ABC-123", {"ABC-123"}, nullptr);
    check(tyres);
    test::part<QGroupBox>(tyres, "frameGumiModosit")->show();
    QTest::qWait(0);
    check(tyres);
    ui::frmSzerviz repairs(desk.context, "ABC-123", {"ABC-123"}, nullptr);
    check(repairs);
    search(repairs);
    check(repairs);
    ui::frmEvesOsszesito years(desk.context, "ABC-123", nullptr);
    check(years);
    ui::riaszt kmAlert(desk.context, "ABC-123", nullptr);
    check(kmAlert);
    ui::frmDatumFigyelmeztetes dateAlert(desk.context, nullptr);
    check(dateAlert);
    ui::frmMelyGrafikon chooser(desk.context, {}, nullptr);
    check(chooser);
  }

  void aRecordingShowsAndMarksItsRowAndAsksForTheNextReading() {
    EveryScreen desk;
    desk.open();
    desk.type("txKmOra", "11000");
    test::BoxScript boxes({QMessageBox::Yes});
    desk.press("cmd_rogzit");
    QCOMPARE(desk.rows(), 3);
    QCOMPARE(qobject_cast<ui::ListDelegate*>(desk.list()->itemDelegate())->marked(), QStringLiteral("3"));
    QVERIFY(desk.list()->viewport()->rect().contains(
        desk.list()->visualRect(desk.list()->model()->index(2, 0)).center()));
    QCOMPARE(desk.screen->focusWidget(), desk.edit("txKmOra"));
  }

  void aRecordingThatTheFilterKeepsFromTheListMarksNoOtherRow() {
    EveryScreen desk;
    desk.open();
    desk.edit("txKmOra")->setText("11000");
    desk.find<QDateEdit>("DTPicker1")->setDate({2025, 1, 1});
    for (const char* button : {"cmd_lista", "opSzürö_1", "cmdSzürés"})
      desk.find<QAbstractButton>(button)->click();
    test::BoxScript boxes({QMessageBox::Yes});
    desk.find<QAbstractButton>("cmd_rogzit")->click();
    QCOMPARE(desk.rows(), 2);
    QCOMPARE(qobject_cast<ui::ListDelegate*>(desk.list()->itemDelegate())->marked(), QString());
  }

  void theFirstCarChangesWhatTheEmptyListAsksFor() {
    test::MainScreen desk;
    desk.open();
    const auto* hint = desk.list()->viewport()->findChild<QLabel*>();
    const QString first = hint->text();
    desk.combo("Combo1")->addItem("ABC-123");
    desk.combo("Combo1")->setEditText("ABC-123");
    desk.combo("Combo1")->setEditText(QString());
    QVERIFY(hint->text() != first);
  }
};

}  // namespace tarvik

TARVIK_SCREEN_TEST(tarvik::LookTest)
#include "look_test.moc"
