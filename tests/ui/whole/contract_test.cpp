#include <QAccessible>
#include <QFile>
#include <QGroupBox>
#include <QListWidget>
#include <QRegularExpression>
#include <QScopeGuard>
#include <QTextStream>

#include "exchange/own_format.h"
#include "tests/support/bytes.h"
#include "tests/ui/main_screen.h"
#include "tests/ui/screen_test.h"
#include "ui/exchange/import_preview.h"
#include "ui/lists/list_hint.h"
#include "ui/lists/list_view.h"
#include "ui/look/look.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmEvesOsszesito.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmMelyGrafikon.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"

// Every screen beside the page that says what it must be, tests/ui/contract/<screen>.txt. A page has a line a
// control, those that the Tab key reaches in its order:
//
//   name kind "caption" label lbName "its label" spoken "its accessible name" tip "its tooltip" ... disabled
//   hidden tab
//
// A field is as wide as the text that it is for. The columns of a table have room each for the text that is
// named, and those without one share what remains. The screen's own line says where the keyboard starts. What
// a control does not have is left out; so is an accessible name that is its caption or its label. A button
// says "default" that Enter presses from anywhere, and "enter" where it becomes that with the focus: none
// does on a screen of the program.

using namespace tarvik;
using namespace tarvik::test;

namespace {

QString quoted(const QString& word, QString text) {
  if (text.isEmpty()) return {};
  text.replace(QLatin1Char('\n'), QLatin1String("\\n"));
  return (word.isEmpty() ? QString() : word + QLatin1Char(' ')) + QLatin1Char('"') + text + QLatin1Char('"');
}

QString quotedAll(const QString& word, const QStringList& texts) {
  QStringList all;
  for (const QString& text : texts) all << QLatin1Char('"') + text + QLatin1Char('"');
  return all.isEmpty() ? QString() : word + QLatin1Char(' ') + all.join(QLatin1Char(' '));
}

QString kindOf(const QWidget& part) {
  if (const auto* chooser = qobject_cast<const QComboBox*>(&part))
    return chooser->isEditable() ? QStringLiteral("chooser") : QStringLiteral("drop-down");
  const std::pair<const QMetaObject*, const char*> kinds[] = {
      {&QCheckBox::staticMetaObject, "check"},      {&QRadioButton::staticMetaObject, "option"},
      {&QPushButton::staticMetaObject, "button"},   {&QLineEdit::staticMetaObject, "field"},
      {&QDateEdit::staticMetaObject, "date"},       {&QLabel::staticMetaObject, "label"},
      {&QGroupBox::staticMetaObject, "frame"},      {&QTabWidget::staticMetaObject, "tabs"},
      {&QListWidget::staticMetaObject, "list"},     {&ui::ListView::staticMetaObject, "table"},
      {&QScrollBar::staticMetaObject, "scroll-bar"}};
  for (const auto& [type, kind] : kinds)
    if (part.metaObject()->inherits(type)) return QLatin1String(kind);
  if (part.objectName() == "MSChart1") return QStringLiteral("chart");
  if (part.objectName().startsWith("Frm")) return QStringLiteral("panel");
  if (part.objectName() == "menubar") return QStringLiteral("menu");
  const bool isNamed = !part.objectName().isEmpty() && !part.objectName().startsWith("qt_");
  const QByteArray type = part.metaObject()->className();
  const bool isArea = isNamed && (type == "QWidget" || type == "QFrame" || type.startsWith("tarvik::"));
  return isArea ? QStringLiteral("area") : QString();
}

QString captionOf(const QWidget& part) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(&part)) return button->text();
  if (const auto* label = qobject_cast<const QLabel*>(&part)) return label->text();
  if (const auto* frame = qobject_cast<const QGroupBox*>(&part)) return frame->title();
  return {};
}

QString shownBy(const QWidget& part) {
  if (const auto* chooser = qobject_cast<const QComboBox*>(&part)) return chooser->currentText();
  if (const auto* date = qobject_cast<const QDateEdit*>(&part)) return date->text();
  if (const auto* field = qobject_cast<const QLineEdit*>(&part)) return field->text();
  return {};
}

// What a part shows when its screen opens, besides its caption.
QString contentOf(const QWidget& part) {
  if (const auto* pages = qobject_cast<const QTabWidget*>(&part)) {
    QStringList titles;
    for (int page = 0; page < pages->count(); ++page) titles << pages->tabText(page);
    return quotedAll("pages", titles);
  }
  if (const auto* table = qobject_cast<const ui::ListView*>(&part)) {
    QStringList titles;
    for (int column = 0; column < table->model()->columnCount(); ++column)
      if (!table->isColumnHidden(column))
        titles << table->model()->headerData(column, Qt::Horizontal).toString();
    return quotedAll("columns", titles);
  }
  return quoted("shows", shownBy(part));
}

QString alignmentOf(const QWidget& part) {
  const QVariant alignment = part.property("alignment");
  if (!alignment.isValid() || qobject_cast<const QGroupBox*>(&part) != nullptr) return {};
  const int set = alignment.toInt();
  return (set & Qt::AlignRight) != 0     ? QStringLiteral("right")
         : (set & Qt::AlignHCenter) != 0 ? QStringLiteral("centred")
                                         : QString();
}

// What a part says while it is empty.
QString hintOf(const QWidget& part) {
  const auto* list = qobject_cast<const QAbstractItemView*>(&part);
  const auto* hint = list == nullptr ? nullptr : list->viewport()->findChild<ui::ListHint*>();
  return hint == nullptr ? part.property("placeholderText").toString() : hint->text();
}

// What a part of its kind need not be: its hint while it is empty, its look, its way to be used.
QStringList habitsOf(const QWidget& part) {
  QStringList words{quoted("for", part.property("longest").toString()), quoted("hint", hintOf(part))};
  const std::pair<const char*, const char*> habits[] = {{"default", "default"},
                                                        {"autoDefault", "enter"},
                                                        {"calendarPopup", "calendar"},
                                                        {"wordWrap", "wraps"},
                                                        {"alternatingRowColors", "striped"},
                                                        {"checked", "checked"},
                                                        {"readOnly", "read-only"}};
  for (const auto& [property, word] : habits)
    if (part.property(property).toBool()) words << QLatin1String(word);
  const auto* field = qobject_cast<const QLineEdit*>(&part);
  if (field != nullptr && !field->hasFrame()) words << "frameless";
  if (const auto* date = qobject_cast<const QDateEdit*>(&part))
    words << QStringLiteral("years %1-%2").arg(date->minimumDate().year()).arg(date->maximumDate().year());
  return words;
}

// Qt speaks a drop-down's value on Linux and its name elsewhere; its name is what counts.
QString spokenNameOf(const QWidget& part) {
  if (!part.accessibleName().isEmpty()) return part.accessibleName();
  QAccessibleInterface* spoken = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(&part));
  return spoken == nullptr ? QString() : spoken->text(QAccessible::Name);
}

// A caption as it is spoken: without its mnemonic, its colon and spaces around it.
QString asSpoken(QString caption) {
  caption = caption.remove(QLatin1Char('&')).simplified();
  return caption.endsWith(QLatin1Char(':')) ? caption.chopped(1).trimmed() : caption;
}

// A screen as it is: its parts by their names, and those that the Tab key reaches, in its order.
class Actual {
 public:
  explicit Actual(const QWidget& screen) {
    lines_.insert(screen.objectName(), screen.objectName() + " screen " + quoted({}, screen.windowTitle()));
    for (const QLabel* label : screen.findChildren<QLabel*>())
      if (label->buddy() != nullptr) labels_[label->buddy()] << label;
    read(screen);
    for (const QAction* item : screen.findChildren<QAction*>())
      if (!item->objectName().isEmpty() && !item->objectName().startsWith("_q_"))
        lines_.insert(item->objectName(), item->objectName() + " item " + quoted({}, item->text()));
    for (const QWidget* next = screen.nextInFocusChain(); next != &screen; next = next->nextInFocusChain())
      if (isTabStop(*next) && lines_.contains(next->objectName())) order_ << next->objectName();
    if (QTest::qWaitForWindowActive(const_cast<QWidget*>(&screen)) && screen.focusWidget() != nullptr)
      lines_[screen.objectName()] += " starts on " + screen.focusWidget()->objectName();
  }

  const QMap<QString, QString>& lines() const { return lines_; }
  const QStringList& order() const { return order_; }

 private:
  static bool isTabStop(const QWidget& part) {
    if (part.isWindow()) return false;
    return (part.focusPolicy() & Qt::TabFocus) != 0 || qobject_cast<const QTabWidget*>(&part) != nullptr;
  }

  // What lies on a part of these kinds is read too; Qt's own parts are not, but for what they hold.
  static bool holdsOthers(const QString& kind) {
    return kind.isEmpty() || kind == "frame" || kind == "tabs" || kind == "panel" || kind == "area";
  }
  static bool isQtsOwn(const QWidget& part) {
    static const QStringList kOpen{"qt_tabwidget_stackedwidget", "qt_scrollarea_viewport"};
    if (part.isWindow() && kindOf(part).isEmpty()) return true;  // another screen, a menu
    return (part.objectName().startsWith("qt_") && !kOpen.contains(part.objectName()));
  }

  void read(const QWidget& parent) {
    for (const QObject* child : parent.children()) {
      const auto* part = qobject_cast<const QWidget*>(child);
      if (part == nullptr || isQtsOwn(*part)) continue;
      const QString kind = kindOf(*part);
      const auto* label = qobject_cast<const QLabel*>(part);
      const bool isCaption = label != nullptr && label->buddy() != nullptr;
      if (!kind.isEmpty() && !isCaption) lines_.insert(part->objectName(), lineOf(*part, kind));
      if (holdsOthers(kind)) read(*part);
    }
  }

  // A caption that is unlike others: aligned, greyed out or not shown.
  static QStringList stateOf(const QLabel& caption) {
    QStringList words;
    if (const QString alignment = alignmentOf(caption); !alignment.isEmpty()) words << "label-" + alignment;
    if (!caption.isEnabledTo(caption.parentWidget())) words << "label-disabled";
    if (caption.isHidden()) words << "label-hidden";
    return words;
  }

  QString lineOf(const QWidget& part, const QString& kind) const {
    QStringList words{part.objectName(), kind, quoted({}, captionOf(part)), contentOf(part)};
    QStringList known{asSpoken(captionOf(part)), asSpoken(shownBy(part)), QString()};
    for (const QLabel* label : labels_.value(&part)) {
      words << quoted("label " + label->objectName(), label->text()) << quoted("label-tip", label->toolTip())
            << stateOf(*label);
      known << asSpoken(label->text());
    }
    const QString spoken = spokenNameOf(part);
    if (!known.contains(asSpoken(spoken))) words << quoted("spoken", spoken);
    words << quoted("described", part.accessibleDescription()) << quoted("tip", part.toolTip())
          << alignmentOf(part) << habitsOf(part);
    if (!part.isEnabledTo(part.parentWidget())) words << "disabled";
    if (part.isHidden()) words << "hidden";
    if (isTabStop(part)) words << "tab";
    words.removeAll(QString());
    return words.join(QLatin1Char(' '));
  }

  QMap<QString, QString> lines_;
  QHash<const QWidget*, QList<const QLabel*>> labels_;
  QStringList order_;
};

// A page of the contract: its lines by the names they begin with, and those that end with "tab", in order.
class Page {
 public:
  explicit Page(const QString& name) {
    QFile file(QStringLiteral(TARVIK_CONTRACT "/%1.txt").arg(name));
    if (!file.open(QIODevice::ReadOnly))
      QTest::qFail(qPrintable("no page " + file.fileName()), __FILE__, __LINE__);
    QTextStream text(&file);
    for (QString line = text.readLine(); !line.isNull(); line = text.readLine()) {
      if (line.isEmpty() || line.startsWith(QLatin1Char('#'))) continue;
      line = onceSpaced(line);
      const QString part = line.section(QLatin1Char(' '), 0, 0);
      static const QRegularExpression room(R"re( room((?: "[^"]*")+))re");
      if (const auto match = room.match(line); match.hasMatch()) {
        rooms_.insert(part, match.captured(1).mid(2).chopped(1).split("\" \""));
        line.remove(room);
      }
      lines_.insert(part, line);
      if (line.endsWith(" tab")) order_ << part;
    }
  }

  const QMap<QString, QString>& lines() const { return lines_; }
  const QStringList& order() const { return order_; }
  // The texts that the columns of the tables have room for.
  const QMap<QString, QStringList>& rooms() const { return rooms_; }

 private:
  // One space between two words; spaces within quotes stay.
  static QString onceSpaced(const QString& line) {
    static const QRegularExpression word(R"("[^"]*"|[^\s"]+)");
    QStringList words;
    for (auto match = word.globalMatch(line); match.hasNext();) words << match.next().captured();
    return words.join(QLatin1Char(' '));
  }

  QMap<QString, QString> lines_;
  QMap<QString, QStringList> rooms_;
  QStringList order_;
};

// Whether a column is as wide as its head and its text between its sides, and no wider.
bool hasRoom(const QTreeView& table, int column, const QString& text) {
  const QHeaderView& header = *table.header();
  if (text.isEmpty()) return header.sectionResizeMode(column) == QHeaderView::Stretch;
  const int width = table.fontMetrics().horizontalAdvance(text) + 2 * ui::gridStep();
  return header.sectionSize(column) == std::max(width, header.sectionSizeHint(column));
}

QStringList differences(const Actual& actual, const Page& page) {
  QStringList all;
  for (const auto& [name, line] : actual.lines().asKeyValueRange())
    if (!page.lines().contains(name))
      all << "not on the page: " + line;
    else if (page.lines()[name] != line)
      all << "is: " + line + "  must be: " + page.lines()[name];
  for (const auto& [name, line] : page.lines().asKeyValueRange())
    if (!actual.lines().contains(name)) all << "missing: " + line;
  for (int i = 0; i < std::min(actual.order().size(), page.order().size()); ++i)
    if (actual.order()[i] != page.order()[i]) {
      all << "Tab comes to " + actual.order()[i] + " and must come to " + page.order()[i];
      break;
    }
  return all;
}

void compareWithPage(const QWidget& screen) {
  const Page page(screen.objectName());
  QStringList all = differences(Actual(screen), page);
  for (const QTreeView* table : screen.findChildren<QTreeView*>()) {
    const QStringList texts = page.rooms().value(table->objectName());
    for (int column = 0; column < table->model()->columnCount(); ++column)
      if (!table->isColumnHidden(column) &&
          (column >= texts.size() || !hasRoom(*table, column, texts[column])))
        all << table->objectName() + " has other room than for " + texts.value(column);
  }
  for (const QString& difference : all) QTest::qFail(qPrintable(difference), __FILE__, __LINE__);
}

// What every screen has beside its page: arrows check options, padding is not told, and Escape closes it.
void tryWithoutEyesAndMouse(QWidget& screen) {
  const auto isTold = [](const QVariant& told) {
    if (told != "x") QTest::qFail("an item is told with its padding", __FILE__, __LINE__);
  };
  for (QComboBox* box : screen.findChildren<QComboBox*>()) {
    const QSignalBlocker silent(box);
    box->addItem("x   ");
    isTold(box->itemData(box->count() - 1, Qt::AccessibleTextRole));
  }
  for (QListWidget* list : screen.findChildren<QListWidget*>()) {
    list->addItem("x   ");
    isTold(list->item(list->count() - 1)->data(Qt::AccessibleTextRole));
  }
  QMap<const QObject*, QList<QRadioButton*>> groups;
  for (QRadioButton* option : screen.findChildren<QRadioButton*>()) groups[option->parent()] << option;
  for (const QList<QRadioButton*>& options : groups) {
    if (options.size() < 2) QTest::qFail("an option stands alone", __FILE__, __LINE__);
    QKeyEvent down(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier);
    QApplication::sendEvent(options.first(), &down);
    if (std::ranges::none_of(options, &QRadioButton::isChecked))
      QTest::qFail("an arrow checks no option", __FILE__, __LINE__);
  }
  if (qobject_cast<QDialog*>(&screen) == nullptr) return;
  QTest::keyClick(&screen, Qt::Key_Escape);
  if (screen.isVisible()) QTest::qFail("Escape does not close the screen", __FILE__, __LINE__);
}

}  // namespace

class ContractTest : public QObject {
  Q_OBJECT

 private slots:
  void initTestCase() { main_.open(); }

  void theMainScreen() {
    compareWithPage(*main_.screen);
    tryWithoutEyesAndMouse(*main_.screen);
  }
  void theSettings() { compareShown<ui::frmSetup>(main_.context, QPoint(), nullptr); }
  void theTyreRegister() { compareShown<ui::frmGumik>(main_.context, QString(), QStringList(), nullptr); }
  void theRepairLog() { compareShown<ui::frmSzerviz>(main_.context, QString(), QStringList(), nullptr); }
  void theYearlySummary() {
    compareShown<ui::frmEvesOsszesito>(main_.context, QStringLiteral("ABC123"), nullptr);
  }
  void theReminderEntry() { compareShown<ui::figy>(main_.context, QString(), nullptr); }
  void theKmAlert() { compareShown<ui::riaszt>(main_.context, QString(), nullptr); }
  void theDateAlert() { compareShown<ui::frmDatumFigyelmeztetes>(main_.context, nullptr); }
  void theChartChooser() { compareShown<ui::frmMelyGrafikon>(main_.context, QPoint(), nullptr); }
  void theCopies() {
    onNextDialog<QDialog>([](QDialog& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      compareWithPage(screen);
      tryWithoutEyesAndMouse(screen);
    });
    main_.chooseItem("mnuVisszaallitas");
  }
  void theLogOfACopy() {
    MainScreen main;
    const std::string entry = textOf(core::encoded(fuelling({2026, 11, 19}, 10'000, 300'000, true)));
    for (const char* folder : {"ABC123", "Mentések", "Mentések/2026-11-20", "Mentések/2026-11-20/ABC123"})
      main.folder.makeFolder(folder);
    main.folder.write("Mentések/2026-11-20/ABC123/napiadat.dat", entry);
    main.open();
    onNextDialog<QDialog>([](QDialog& screen) {
      const auto closed = qScopeGuard([&] { screen.close(); });
      part<QListWidget>(screen, "listKulonbsegek")->setCurrentRow(0);
      onNextDialog<QDialog>([](QDialog& log) {
        const auto closedToo = qScopeGuard([&] { log.close(); });
        compareWithPage(log);
      });
      press(*part<QPushButton>(screen, "cmdMentesNezet"));
    });
    main.chooseItem("mnuVisszaallitas");
  }
  // A file that leaves every question open, and one of this program that leaves none.
  void theImportPreview() {
    const std::string text =
        "Vehicle,Date,Odometer,Gallons,Total "
        "($),Colour\nA,1/2/2024,1000,4,40,red\nB,2/2/2024,500,3,30,\n,,,,,\n";
    compareShown<ui::ImportPreview>(main_.context, importOf(text), nullptr);
  }
  void theImportPreviewOfAnOwnFile() {
    constexpr std::size_t kMark = 3;  // the bytes that say it is UTF-8
    const std::string text =
        exchange::csvOf(
            core::Listing{core::Logbook::of(std::vector{fuelling({2024, 2, 29}, 10'000, 300'000, true)}),
                          {1}})
            .substr(kMark);
    ui::ImportPreview screen(main_.context, importOf(text), nullptr);
    screen.setObjectName("ImportPreview-own");
    screen.show();
    compareWithPage(screen);
  }

 private:
  static ui::ImportSource importOf(const std::string& text) {
    return {.name = "log.csv", .bytes = QByteArray::fromStdString(text), .plate = "ABC123", .logbook = {}};
  }

  template <typename Screen, typename... Arguments>
  void compareShown(Arguments&&... arguments) {
    Screen screen(std::forward<Arguments>(arguments)...);
    screen.show();
    compareWithPage(screen);
    tryWithoutEyesAndMouse(screen);
  }

  MainScreen main_;
};

TARVIK_SCREEN_TEST(ContractTest)
#include "contract_test.moc"
