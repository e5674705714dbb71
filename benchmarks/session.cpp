#include "benchmarks/session.h"

#include <malloc.h>

#include <QAbstractButton>
#include <QApplication>
#include <QDialog>
#include <QEventLoop>
#include <QLineEdit>
#include <QMessageBox>
#include <QRadioButton>
#include <QScrollBar>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <deque>
#include <filesystem>
#include <fstream>

#include "benchmarks/logbook.h"
#include "ui/print/list_printer.h"
#include "ui/windows/figy.h"
#include "ui/windows/frmDatumFigyelmeztetes.h"
#include "ui/windows/frmGumik.h"
#include "ui/windows/frmSetup.h"
#include "ui/windows/frmSzerviz.h"
#include "ui/windows/riaszt.h"

#include <unistd.h>

namespace tarvik::bench {
namespace {

using Clock = std::chrono::steady_clock;
using Act = std::function<void()>;

constexpr int kSmallLogbook = 1'000;
constexpr int kStepPauseMilliseconds = 3;

// Beats once a millisecond; a longer pause between two beats is a stall of the event loop.
class Heartbeat {
 public:
  Heartbeat() : last_(Clock::now()) {
    timer_.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer_, &QTimer::timeout, [this] { beat(); });
    timer_.start(1);
  }
  double longest() const { return longest_; }

 private:
  void beat() {
    const auto now = Clock::now();
    longest_ = std::max(longest_, std::chrono::duration<double, std::nano>(now - last_).count());
    last_ = now;
  }

  QTimer timer_;
  Clock::time_point last_;
  double longest_ = 0;
};

void press(QWidget* screen, const char* button) {
  if (auto* found = screen->findChild<QAbstractButton*>(QString::fromUtf8(button))) found->click();
}

void pressOnDialog(const char* button) {
  if (QWidget* dialog = QApplication::activeModalWidget()) press(dialog, button);
}

void closeDialog() {
  if (QWidget* dialog = QApplication::activeModalWidget()) dialog->close();
}

void acceptDialog() {
  if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget())) dialog->accept();
}

void answerYes() {
  if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget()))
    box->button(QMessageBox::Yes)->click();
}

/// Steps taken one after the other, each from the event loop, also from that of a dialog which a step opened.
class Walk {
 public:
  explicit Walk(std::deque<Act> steps) : steps_(std::move(steps)) {}

  void run() {
    QEventLoop loop;
    done_ = [&loop] { loop.quit(); };
    schedule();
    loop.exec();
  }

 private:
  void schedule() {
    QTimer::singleShot(kStepPauseMilliseconds, qApp, [this] { step(); });
  }
  void step() {
    if (steps_.empty()) return done_();
    const Act act = std::move(steps_.front());
    steps_.pop_front();
    schedule();
    act();
  }

  std::deque<Act> steps_;
  Act done_;
};

void fillEntry(Desk& desk, int km) {
  desk.part<QLineEdit>("txKmOra")->setText(QString::number(km));
  desk.part<QLineEdit>("txTankoltLiter")->setText(QStringLiteral("40,5"));
  desk.part<QLineEdit>("txTankoltKtg")->setText(QStringLiteral("16200"));
}

template <typename Screen, typename... Own>
void open(Desk& desk, Own... own) {
  Screen(desk.context(), own..., &desk.screen()).exec();
}

// One way of opening each screen that is a dialog.
std::deque<Act> openings(Desk& desk) {
  const QString plate = QString::fromLatin1(kPlate);
  return {[&desk] { open<ui::frmSetup>(desk, QPoint(0, 0)); },
          [&desk, plate] { open<ui::frmGumik>(desk, plate, QStringList{plate}); },
          [&desk, plate] { open<ui::frmSzerviz>(desk, plate, QStringList{plate}); },
          [&desk, plate] { open<ui::figy>(desk, plate); },
          [&desk, plate] { open<ui::riaszt>(desk, plate); },
          [&desk] { open<ui::frmDatumFigyelmeztetes>(desk); }};
}

std::deque<Act> listSteps(Desk& desk) {
  return {[&desk] { desk.screen().beolvas(); },
          [&desk] { desk.clickRow(2); },
          [&desk] { desk.list()->scrollToBottom(); },
          [&desk] { desk.filter(1); },
          [&desk] { desk.clickRow(4); },
          [&desk] { desk.filter(2); },
          [&desk] { desk.filter(0); },
          [&desk] { desk.list()->scrollToTop(); }};
}

std::deque<Act> saveSteps(Desk& desk) {
  static int km = 1'900'000;
  km += 500;
  return {[&desk] { desk.clickRow(3); },    [&desk] { desk.press("cmd_modosit"); }, answerYes,
          [&desk] { desk.clickRow(3); },    [&desk] { desk.press("cmd_del"); },     answerYes,
          [&desk] { fillEntry(desk, km); }, [&desk] { desk.press("cmd_rogzit"); },  answerYes};
}

std::deque<Act> chartSteps(Desk& desk) {
  std::deque<Act> steps;
  for (int chart = 1; chart <= 7; ++chart) {
    steps.push_back([&desk] { desk.press("cmdGrafikon"); });
    steps.push_back([chart] {
      if (QWidget* chooser = QApplication::activeModalWidget())
        if (auto* option = chooser->findChild<QRadioButton*>(QStringLiteral("Option%1").arg(chart)))
          option->setChecked(true);
    });
    steps.push_back([] { pressOnDialog("cmdMegjelenit"); });
    for (int place = 1; place <= 5; ++place)
      steps.push_back([&desk, place] { desk.part<QScrollBar>("HScroll1")->setValue(place * 1'000); });
    steps.push_back([&desk] { desk.press("cmdGrafikon"); });
  }
  return steps;
}

std::deque<Act> dialogSteps(Desk& desk) {
  std::deque<Act> steps;
  for (const Act& opening : openings(desk)) {
    steps.push_back(opening);
    steps.push_back(closeDialog);
  }
  return steps;
}

std::deque<Act> printSteps(Desk& desk) {
  return {[&desk] {
            print::ListedRows rows;
            for (int number = 1; number <= 4'000; ++number) rows.records.push_back(number);
            QuickPrinter printer;
            ui::printList(desk.context(), QString::fromLatin1(kPlate), std::move(rows), &desk.screen(),
                          printer);
          },
          acceptDialog};
}

double residentBytes() {
  malloc_trim(0);
  long pages = 0;
  long resident = 0;
  std::ifstream("/proc/self/statm") >> pages >> resident;
  return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE));
}

int openFiles() {
  const std::filesystem::directory_iterator all("/proc/self/fd");
  return static_cast<int>(std::distance(begin(all), end(all)));
}

/// Actions of all kinds in turns, each handled to its end.
class Actions {
 public:
  explicit Actions(Desk& desk) : desk_(desk), openings_(openings(desk)) {}

  void run(int count) {
    for (int i = 0; i < count; ++i) {
      act(i);
      QCoreApplication::processEvents();
    }
  }

 private:
  void act(int number) {
    switch (number % 20) {
      case 0:
        return recordAndDelete();
      case 1:
      case 2:
      case 3:
      case 4:
      case 5:
      case 6:
        return openAndClose(static_cast<std::size_t>(number % 20 - 1));
      case 7:
        return showChart(number / 20 % 7 + 1);
      case 8:
        return desk_.press("cmdGrafikon");
      case 9:
      case 10:
      case 11:
        return desk_.filter((number % 20 - 6) % 3);
      case 12:
        return desk_.screen().MezoDel();
      case 13:
        return desk_.list()->scrollToTop();
      default:
        return desk_.clickRow(number % 7);
    }
  }
  void recordAndDelete() {
    fillEntry(desk_, km_ += 500);
    onNextDialog([](QWidget&) { answerYes(); });
    desk_.press("cmd_rogzit");
    QCoreApplication::processEvents();
    desk_.list()->scrollToTop();
    desk_.clickRow(3);
    onNextDialog([](QWidget&) { answerYes(); });
    desk_.press("cmd_del");
  }
  void openAndClose(std::size_t screen) {
    onNextDialog([](QWidget& dialog) { dialog.close(); });
    openings_[screen]();
  }
  void showChart(int chart) {
    onNextDialog([chart](QWidget& chooser) {
      chooser.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(chart))->setChecked(true);
      press(&chooser, "cmdMegjelenit");
    });
    desk_.press("cmdGrafikon");
  }

  Desk& desk_;
  std::deque<Act> openings_;
  int km_ = 2'000'000;
};

}  // namespace

std::vector<Stall> longestStalls(Desk& desk) {
  std::vector<Stall> stalls;
  for (auto& [part, steps] : {std::pair{"lists", listSteps(desk)}, std::pair{"charts", chartSteps(desk)},
                              std::pair{"dialogs", dialogSteps(desk)}, std::pair{kSaving, saveSteps(desk)},
                              std::pair{kPrinting, printSteps(desk)}}) {
    const Heartbeat heart;
    Walk(steps).run();
    stalls.push_back({part, heart.longest()});
  }
  return stalls;
}

Growth growthOver(const std::string& folder, int actions) {
  Desk desk(folder, kSmallLogbook, 10);
  Actions all(desk);
  all.run(actions / 10);
  const double bytes = residentBytes();
  const int files = openFiles();
  all.run(actions);
  return {residentBytes() - bytes, openFiles() - files};
}

}  // namespace tarvik::bench
