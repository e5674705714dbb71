#include <malloc.h>

#include <QDir>
#include <QFile>
#include <QMessageBox>
#include <QPointer>
#include <cstdio>
#include <map>
#include <memory>
#include <random>
#include <utility>

#include "core/machine_file_system.h"
#include "tests/monkey/agreement.h"
#include "tests/support/fixed_clock.h"
#include "tests/ui/by_hand.h"
#include "tests/ui/set_values.h"
#include "ui/look/look.h"
#include "ui/main/frmTarvik.h"

// A seeded monkey that uses the screens as a person does, by keys, clicks, the wheel and the right button,
// with what is typed half left behind. It answers every box it meets. Between two acts the main screen must
// agree with itself, Qt must have warned of nothing, and an act that changes nothing must have changed
// nothing; at the end the files are well-formed and nothing has grown.
//
//   tarvik_monkey FOLDER SEED ACTIONS      FOLDER holds a household to play with, and is the current folder

namespace {

using namespace tarvik;

const char* const kTexts[] = {"",       "0",    "-5",   "40,5",      "abc", "12345",    "3000000000",
                              "ABC123", "..",   "a/b",  "árvíztűrő", " x ", "99999999", "1,,2",
                              "KLM456", "2013", "olaj", "280500",    "4"};
const char* const kDays[] = {"2026.11.20.", "2024.02.29",  "20250301", "2026.1",
                             "1.",          "2023.02.30.", "99",       "2025.13.01."};
const int kKeys[] = {Qt::Key_Tab,   Qt::Key_Return,   Qt::Key_Escape, Qt::Key_Up,   Qt::Key_Down,
                     Qt::Key_Space, Qt::Key_Left,     Qt::Key_Right,  Qt::Key_Home, Qt::Key_End,
                     Qt::Key_F6,    Qt::Key_PageDown, Qt::Key_Delete};
const int kControlKeys[] = {Qt::Key_Z, Qt::Key_Y, Qt::Key_L, Qt::Key_C};

const std::map<QString, qint64> kRecordLengths{{"rendsz.dat", 10}, {"alkatr.dat", 50},  {"megjegyz.dat", 50},
                                               {"set.dat", 12},    {"figyel.dat", 68},  {"figyDatum.dat", 68},
                                               {"Gumik.dat", 71},  {"Szerviz.dat", 186}};

// What Qt has warned of since it was last asked for.
QStringList& warnings() {
  static QStringList all;
  return all;
}

// Not of the program: the display that there is none of raises no window and knows no sizes, a click may come
// where nothing takes it, and only the lists of Qt's file dialog have editors.
bool isKnown(const QString& text) {
  return text.startsWith(QLatin1String("This plugin does not support ")) ||
         text.startsWith(QLatin1String("Mouse event ")) ||
         text.endsWith(QLatin1String("an editor that does not belong to this view"));
}

void hear(QtMsgType type, const QMessageLogContext& context, const QString& text) {
  if (isKnown(text)) return;
  const QString line = qFormatLogMessage(type, context, text);
  if (type == QtWarningMsg || type == QtCriticalMsg) warnings() << line;
  std::fprintf(stderr, "%s\n", qPrintable(line));
}

class Monkey : public QObject {
 public:
  Monkey(ui::Context& context, unsigned seed, int actions)
      : context_(context),
        agreement_(QString::fromStdString(context.folders.program)),
        random_(seed),
        acts_(actions),
        left_(actions) {
    open();
    QTimer::singleShot(0, this, &Monkey::act);
  }

  bool hasFoundFaults() const { return !faults_.isEmpty(); }

 private:
  int pick(qsizetype count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

  void open() {
    screen_ = std::make_unique<ui::frmTarvik>(context_);
    QTimer::singleShot(0, this, [this] {
      screen_->load();
      screen_->show();
    });
  }

  // Each act asks for the next one first: one that opens a dialog returns only when that is closed.
  void act() {
    lookAround();
    if (--left_ < 0 || !faults_.isEmpty()) return finish();
    QTimer::singleShot(0, this, &Monkey::act);
    QWidget* window = topWindow();
    if (window == nullptr) return reopen();
    remember(*window);
    if (auto* box = qobject_cast<QMessageBox*>(window)) return answer(*box);
    if (qobject_cast<QMenu*>(window) != nullptr) return press(*window);
    if (pick(8) == 0) return press(*window);
    if (auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && pick(12) == 0) return openMenu(*bar);
    if (qobject_cast<QDialog*>(window) != nullptr && pick(40) == 0)
      return did("close"), void(window->close());
    touch(*window);
  }

  QWidget* topWindow() const {
    if (QWidget* popup = QApplication::activePopupWidget()) return popup;
    if (QWidget* modal = QApplication::activeModalWidget()) return modal;
    return screen_->isVisible() ? screen_.get() : nullptr;
  }

  // What is to be compared after the act.
  void remember(QWidget& window) {
    window_ = &window;
    focus_ = QApplication::focusWidget();
    values_ = test::setValuesOf(window);
    isQuiet_ = false;
    did_.clear();
  }
  void did(const QString& what) { did_ += what + QLatin1Char(' '); }

  // Says that the act may change the part that it acts on and the one that it leaves, and nothing else.
  void quietly(const QWidget* part) {
    isQuiet_ = true;
    touched_ = {nameAround(part), nameAround(focus_)};
  }

  // The name of a part or of what it is inside of.
  static QString nameAround(const QWidget* part) {
    while (part != nullptr && (part->objectName().isEmpty() || part->objectName().startsWith("qt_")))
      part = part->parentWidget();
    return part == nullptr ? QString() : part->objectName();
  }

  void lookAround() {
    faults_ += std::exchange(warnings(), {});
    QWidget* window = topWindow();
    if (window != nullptr && window == window_) compare(*window);
    if (!faults_.isEmpty()) faults_ << QStringLiteral("after: ") + did_;
  }

  void compare(const QWidget& window) {
    if (isQuiet_) lookForChanges(window);
    if (&window == screen_.get() && !screen_->findChild<QComboBox*>("Combo1")->hasFocus())
      faults_ += agreement_.faultsOf(*screen_);
  }

  void lookForChanges(const QWidget& window) {
    const auto now = test::setValuesOf(window);
    for (const auto& [name, value] : values_.asKeyValueRange())
      if (!touched_.contains(name) && now.value(name) != value)
        faults_ << QStringLiteral("%1 was %2 and is %3").arg(name, value, now.value(name));
  }

  // The main window was closed by an exit question; a closed one that loads still is left to it.
  void reopen() {
    if (screen_->isVisible() || loading_++ < 10) return;
    loading_ = 0;
    open();
  }

  void answer(QMessageBox& box) {
    ++boxes_;
    const auto buttons = box.buttons();
    buttons.at(pick(buttons.size()))->click();
  }

  // Where keys go: to what has popped up, however long the keyboard stays with the part below it.
  static QWidget* keyboardOf(QWidget& window) {
    if (QApplication::activePopupWidget() != nullptr || QApplication::focusWidget() == nullptr)
      return &window;
    return QApplication::focusWidget();
  }

  // Enter and Escape come twice, as from a hand that is not sure.
  void press(QWidget& window) {
    QWidget* const part = keyboardOf(window);
    if (pick(4) == 0) {
      const int key = kControlKeys[pick(std::size(kControlKeys))];
      did(QStringLiteral("Ctrl+%1 on %2").arg(QChar(key), nameAround(part)));
      return QTest::keyClick(part, static_cast<Qt::Key>(key), Qt::ControlModifier);
    }
    const auto key = static_cast<Qt::Key>(kKeys[pick(std::size(kKeys))]);
    did(QStringLiteral("key %1 on %2").arg(QKeySequence(key).toString(), nameAround(part)));
    if (key == Qt::Key_Tab) quietly(part);
    const QPointer<QWidget> again = part;
    QTest::keyClick(part, key);
    if ((key == Qt::Key_Return || key == Qt::Key_Escape) && again != nullptr && again->isVisible() &&
        pick(2) == 0)
      QTest::keyClick(again, key);
  }

  void openMenu(QMenuBar& bar) {
    QAction* item = bar.actions().at(pick(bar.actions().size()));
    did("menu " + item->text());
    QTest::mouseClick(&bar, Qt::LeftButton, {}, bar.actionGeometry(item).center());
  }

  void touch(QWidget& window) {
    QList<QWidget*> parts;
    for (QWidget* part : window.findChildren<QWidget*>())
      if (part->isVisible() && part->isEnabled() && part->window() == &window &&
          !part->visibleRegion().isEmpty())
        parts.append(part);
    if (parts.isEmpty()) return void(window.close());
    QWidget* part = parts.at(pick(parts.size()));
    if (pick(8) == 0) return wheel(*part);
    if (pick(10) == 0) return pressRight(*part);
    if (auto* button = qobject_cast<QAbstractButton*>(part)) return click(*button, button->rect().center());
    if (auto* date = qobject_cast<QDateEdit*>(part))
      return type(*date->findChild<QLineEdit*>(), kDays[pick(std::size(kDays))]);
    if (auto* combo = qobject_cast<QComboBox*>(part)) return choose(*combo);
    if (auto* edit = qobject_cast<QLineEdit*>(part)) return type(*edit, kTexts[pick(std::size(kTexts))]);
    click(*part, QPoint(pick(part->width()), pick(part->height())));
  }

  void click(QWidget& part, QPoint at) {
    did("click on " + nameAround(&part));
    QTest::mouseClick(&part, Qt::LeftButton, {}, at);
  }

  // Over a part without the keyboard it scrolls at most.
  void wheel(QWidget& part) {
    did("wheel over " + nameAround(&part));
    if (qobject_cast<QScrollBar*>(&part) == nullptr) quietly(focus_);
    test::turnWheel(part, pick(2) == 0);
  }

  void pressRight(QWidget& part) {
    did("right button on " + nameAround(&part));
    quietly(&part);
    const QPoint at(pick(part.width()), pick(part.height()));
    QTest::mousePress(&part, Qt::RightButton, {}, at);
    QContextMenuEvent wanted(QContextMenuEvent::Mouse, at, part.mapToGlobal(at));
    QSpontaneKeyEvent::setSpontaneous(&wanted);
    const QPointer<QWidget> still = &part;
    qApp->notify(&part, &wanted);
    if (still != nullptr) QTest::mouseRelease(still, Qt::RightButton, {}, at);
  }

  // By the arrows or by a click on an entry.
  void choose(QComboBox& combo) {
    if (combo.isEditable() && pick(2) == 0) return type(*combo.lineEdit(), kTexts[pick(std::size(kTexts))]);
    did("choose in " + combo.objectName());
    if (combo.count() == 0) return;
    if (pick(2) == 0) {
      combo.setFocus();
      return QTest::keyClick(&combo, pick(2) == 0 ? Qt::Key_Up : Qt::Key_Down);
    }
    test::choose(combo, pick(combo.count()));
  }

  // Now and then what stands there is kept, and what was typed is left half typed.
  void type(QLineEdit& edit, const char* text) {
    did(QStringLiteral("type %1 into %2").arg(QString::fromUtf8(text), nameAround(&edit)));
    if (edit.isReadOnly()) return;
    quietly(&edit);
    const QPointer<QLineEdit> field = &edit;
    QTest::mouseClick(&edit, Qt::LeftButton);
    if (field == nullptr || QApplication::focusWidget() == nullptr || !field->isVisible()) return;
    if (pick(3) != 0) QTest::keyClick(&edit, Qt::Key_A, Qt::ControlModifier);
    for (const QChar letter : QString::fromUtf8(text)) {
      if (field == nullptr) return;
      test::typeKeys(edit, letter);
    }
  }

  void finish() {
    std::printf("%d boxes answered\n", boxes_);
    for (const QString& fault : faults_) std::printf("act %d: %s\n", acts_ - left_ - 1, qPrintable(fault));
    std::fflush(stdout);
    unwind();
  }

  // Screens that are still open close one after the other, the topmost first.
  void unwind() {
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == nullptr) return QApplication::exit(0);
    QTimer::singleShot(0, this, &Monkey::unwind);
    if (auto* box = qobject_cast<QMessageBox*>(modal)) return box->buttons().last()->click();
    modal->close();
  }

  ui::Context& context_;
  monkey::Agreement agreement_;
  std::mt19937 random_;
  int acts_;
  int left_;
  int boxes_ = 0;
  int loading_ = 0;
  const QWidget* window_ = nullptr;  // what the last act was done in, with what it could have changed
  QPointer<QWidget> focus_;
  QHash<QString, QString> values_;
  bool isQuiet_ = false;
  QStringList touched_;
  QString did_;
  QStringList faults_;
  std::unique_ptr<ui::frmTarvik> screen_;
};

int malformedFiles(const QDir& folder) {
  int found = 0;
  const auto look = [&](const QString& path, qint64 length) {
    const qint64 size = QFile(path).size();
    if (size % length == 0) return;
    std::printf("not whole records: %s, %lld bytes\n", qPrintable(path), static_cast<long long>(size));
    ++found;
  };
  for (const auto& [name, length] : kRecordLengths)
    if (folder.exists(name)) look(folder.filePath(name), length);
  for (const QString& vehicle : folder.entryList(QDir::Dirs | QDir::NoDotAndDotDot))
    if (QFile::exists(folder.filePath(vehicle + "/napiadat.dat")))
      look(folder.filePath(vehicle + "/napiadat.dat"), 156);
  return found;
}

// What stays open once it was used: the file dialog, which is made once, watches folders.
constexpr qsizetype kKept = 8;

qsizetype openFiles() {
  return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  qInstallMessageHandler(hear);
  ui::dress();
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList words = QApplication::arguments();
  if (words.size() != 4 || !QDir::setCurrent(words[1])) return 2;
  core::MachineFileSystem files;
  test::FixedClock clock({2026, 11, 21});
  const std::string folder = QDir::currentPath().toStdString();
  ui::Context context{
      .files = files, .folders = {.program = folder, .current = folder}, .clock = clock, .version = "1.0.0"};
  const qsizetype before = openFiles();
  bool agrees = false;
  {
    Monkey monkey(context, words[2].toUInt(), words[3].toInt());
    QApplication::exec();
    agrees = !monkey.hasFoundFaults();
  }
  const qsizetype after = openFiles();
  if (after > before + kKept)
    std::printf("open files grew from %lld to %lld\n", static_cast<long long>(before),
                static_cast<long long>(after));
  const bool isWell = agrees && warnings().isEmpty() && malformedFiles(QDir::current()) == 0;
  return isWell && after <= before + kKept ? 0 : 1;
}
