#include <malloc.h>

#include <QAbstractItemView>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QFile>
#include <QLineEdit>
#include <QMenuBar>
#include <QMessageBox>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>
#include <QTimer>
#include <cstdio>
#include <map>
#include <memory>
#include <random>

#include "core/machine_file_system.h"
#include "tests/support/fixed_clock.h"
#include "ui/main/frmTarvik.h"

// A seeded monkey: presses, types and clicks through all screens at random, answers every box it meets, and
// looks at the end whether the files are well-formed and nothing has grown.
//
//   tarvik_monkey FOLDER SEED ACTIONS      FOLDER holds a household to play with, and is the current folder

namespace {

using namespace tarvik;

const char* const kTexts[] = {"",           "0",      "-5",     "40,5", "abc",       "12345",
                              "3000000000", "ABC123", "..",     "a/b",  "árvíztűrő", " x ",
                              "99999999",   "1,,2",   "KLM456", "2013", "olaj"};
const int kKeys[] = {Qt::Key_Tab,  Qt::Key_Return, Qt::Key_Escape, Qt::Key_Up,
                     Qt::Key_Down, Qt::Key_Space,  Qt::Key_Delete};

const std::map<QString, qint64> kRecordLengths{{"rendsz.dat", 10}, {"alkatr.dat", 50},  {"megjegyz.dat", 50},
                                               {"set.dat", 12},    {"figyel.dat", 68},  {"figyDatum.dat", 68},
                                               {"Gumik.dat", 71},  {"Szerviz.dat", 186}};

class Monkey : public QObject {
 public:
  Monkey(ui::Context& context, unsigned seed, int actions)
      : context_(context), random_(seed), left_(actions) {
    open();
    QTimer::singleShot(0, this, &Monkey::act);
  }

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
    if (--left_ < 0) return finish();
    QTimer::singleShot(0, this, &Monkey::act);
    QWidget* window = QApplication::activePopupWidget();
    if (window == nullptr) window = QApplication::activeModalWidget();
    if (window == nullptr && screen_->isVisible()) window = screen_.get();
    if (window == nullptr) return reopen();
    if (auto* box = qobject_cast<QMessageBox*>(window)) return answer(*box);
    if (pick(12) == 0) return QTest::keyClick(window, static_cast<Qt::Key>(kKeys[pick(std::size(kKeys))]));
    if (auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && pick(10) == 0)
      return bar->actions().at(pick(bar->actions().size()))->trigger();
    if (qobject_cast<QDialog*>(window) != nullptr && pick(40) == 0) return void(window->close());
    touch(*window);
  }

  // The main window was closed by an exit question; a closed one that loads still is left to it.
  void reopen() {
    if (screen_->isVisible() || loading_++ < 100) return;
    loading_ = 0;
    open();
  }

  void answer(QMessageBox& box) {
    ++boxes_;
    const auto buttons = box.buttons();
    buttons.at(pick(buttons.size()))->click();
  }

  void touch(QWidget& window) {
    QList<QWidget*> parts;
    for (QWidget* part : window.findChildren<QWidget*>())
      if (part->isVisible() && part->isEnabled()) parts.append(part);
    if (parts.isEmpty()) return void(window.close());
    QWidget* part = parts.at(pick(parts.size()));
    if (auto* button = qobject_cast<QAbstractButton*>(part)) return button->click();
    if (auto* combo = qobject_cast<QComboBox*>(part)) return choose(*combo);
    if (auto* date = qobject_cast<QDateEdit*>(part))
      return date->setDate(QDate(2000 + pick(60), 1 + pick(12), 1 + pick(28)));
    if (auto* edit = qobject_cast<QLineEdit*>(part)) return type(*edit);
    if (auto* tabs = qobject_cast<QTabBar*>(part)) return tabs->setCurrentIndex(pick(tabs->count()));
    if (auto* bar = qobject_cast<QScrollBar*>(part))
      return bar->setValue(bar->minimum() + pick(bar->maximum() - bar->minimum() + 1));
    QTest::mouseClick(part, Qt::LeftButton, {}, QPoint(pick(part->width() + 1), pick(part->height() + 1)));
  }

  void choose(QComboBox& combo) {
    if (combo.count() == 0) return;
    const int index = pick(combo.count());
    combo.setCurrentIndex(index);
    emit combo.activated(index);
  }

  void type(QLineEdit& edit) {
    edit.clear();
    edit.insert(QString::fromUtf8(kTexts[pick(std::size(kTexts))]));
  }

  void finish() {
    std::printf("%d boxes answered\n", boxes_);
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
  std::mt19937 random_;
  int left_;
  int boxes_ = 0;
  int loading_ = 0;
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

qsizetype openFiles() {
  return QDir("/proc/self/fd").entryList(QDir::AllEntries | QDir::System | QDir::NoDotAndDotDot).size();
}

}  // namespace

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  QApplication::setQuitOnLastWindowClosed(false);
  const QStringList words = QApplication::arguments();
  if (words.size() != 4 || !QDir::setCurrent(words[1])) return 2;
  core::MachineFileSystem files;
  test::FixedClock clock({2026, 11, 21});
  const std::string folder = QDir::currentPath().toStdString();
  ui::Context context{
      .files = files, .folders = {.program = folder, .current = folder}, .clock = clock, .version = "1.0.0"};
  const qsizetype before = openFiles();
  {
    Monkey monkey(context, words[2].toUInt(), words[3].toInt());
    QApplication::exec();
  }
  const qsizetype after = openFiles();
  if (after > before + 4)
    std::printf("open files grew from %lld to %lld\n", static_cast<long long>(before),
                static_cast<long long>(after));
  return malformedFiles(QDir::current()) == 0 && after <= before + 4 ? 0 : 1;
}
