// tarvik_bench_screens FOLDER ROUNDS: the main screen's actions from the press to the painted picture. Makes
// its files in FOLDER, writes the rows of the table.

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QInputDialog>
#include <QRadioButton>
#include <QScrollBar>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <map>
#include <string>
#include <vector>

#include "benchmarks/bare_view.h"
#include "benchmarks/desk.h"
#include "benchmarks/logbook.h"
#include "benchmarks/rows.h"
#include "benchmarks/session.h"
#include "ui/look/look.h"
#include "ui/print/list_printer.h"

namespace tarvik::bench {
namespace {

constexpr double kMillisecond = 1e6;
constexpr int kReminders = 1'000;
constexpr int kCharts = 7;
constexpr int kChartTypes = 6;
constexpr int kFrames = 2'000;
constexpr int kQuickRounds = 5;

Series seriesOf(const std::vector<Moment>& moments) {
  Series series;
  for (const Moment& moment : moments) {
    series.wall.push_back(moment.wall);
    series.processor.push_back(moment.processor);
  }
  return series;
}

const Series& slower(const Series& a, const Series& b) {
  return median(a.processor) < median(b.processor) ? b : a;
}

// Each clock's 99th percentile.
Series highest99th(const std::vector<Moment>& moments) {
  Series all = seriesOf(moments);
  const std::size_t place = moments.size() * 99 / 100;
  for (auto* values : {&all.wall, &all.processor}) {
    std::ranges::sort(*values);
    *values = {(*values)[place]};
  }
  return all;
}

class Measurements {
 public:
  Measurements(std::string folder, int rounds)
      : folder_(std::move(folder)),
        rounds_(rounds),
        desk_(folder_ + "/screens", kFullLogbook, kReminders),
        bare_(*desk_.list()) {}

  void listing() {
    Times times = takeTimes({listed("beolvas", desk_),
                             bareListed("bare", folder_ + "/screens"),
                             {.name = "year", .act = [&] { filtered(1); }},
                             {.name = "click", .act = [&] { clicked(); }, .prepare = [&] { filtered(0); }}},
                            rounds_);
    filtered(0);
    writeAgainstFloor("beolvas, from the call to the painted rows", times.at("beolvas").wall,
                      {"load + bare view", times.at("bare").wall}, 1.3);
    writeTime("filter to a year, to the painted rows", times.at("year"), 5 * kMillisecond);
    writeTime("click on a row, to its painted statistics", times.at("click"), 5 * kMillisecond);
  }

  void charts() {
    writeTime("chart, press to paint, the first one", seriesOf({chartShown(1)}), 2 * 16 * kMillisecond);
    Series slowest{{0}, {0}};
    for (int chart = 1; chart <= kCharts; ++chart)
      for (int type = 0; type < kChartTypes; ++type) slowest = slower(slowest, chartTimes(chart, type));
    writeTime("chart, press to paint, the slowest of 42", slowest, 16 * kMillisecond);
  }

  void printing() {
    print::ListedRows rows;
    for (int number = 1; number <= kFullLogbook; ++number) rows.records.push_back(number);
    onNextDialog([](QWidget& heading) { static_cast<QDialog&>(heading).accept(); });
    QuickPrinter printer;
    const Moment start = now();
    ui::printList(desk_.context(), QString::fromLatin1(kPlate), std::move(rows), &desk_.screen(), printer);
    writeTime("print-out of everything to PDF", seriesOf({since(start)}), 20'000 * kMillisecond);
  }

  void scrolling() {
    QScrollBar* bar = desk_.list()->verticalScrollBar();
    std::vector<Moment> frames;
    for (int frame = 0; frame <= kFrames; ++frame) {
      const Moment start = now();
      bar->setValue(static_cast<int>(std::int64_t{bar->maximum()} * frame / kFrames));
      untilPainted(desk_.list()->viewport());
      frames.push_back(since(start));
    }
    writeTime("scrolling from end to end, 99th percentile of a frame", highest99th(frames), 8 * kMillisecond);
  }

  void session() {
    std::map<std::string, std::vector<double>> stalls;
    for (int run = 0; run < 3; ++run)
      for (const Stall& stall : longestStalls(desk_)) stalls[stall.part].push_back(stall.nanoseconds);
    for (const auto& [part, times] : stalls) {
      const bool waits = part == kSaving || part == kPrinting;
      const double stall = median(times);
      const double most = (waits ? 50 : 16) * kMillisecond;
      writeRow({.figure = "longest stall in a session, " + part,
                .measured = timeText(stall),
                .goal = "≤ " + timeText(most),
                .met = stall <= most});
    }
    const int actions = rounds_ < kQuickRounds ? 1'000 : 10'000;
    const Growth growth = growthOver(folder_ + "/actions", actions);
    constexpr double kMegabyte = 1'024 * 1'024;
    writeRow({.figure = "memory over " + std::to_string(actions) + " actions",
              .measured = numberText(growth.bytes / kMegabyte, " MB more"),
              .goal = "≤ 1.00 MB more",
              .met = growth.bytes <= kMegabyte});
    writeRow({.figure = "open files over " + std::to_string(actions) + " actions",
              .measured = std::to_string(growth.openFiles) + " more",
              .goal = "0 more",
              .met = growth.openFiles == 0});
  }

  void growth() {
    const std::vector<int> sizes{1'024, 4'096, 16'384, kFullLogbook};
    std::vector<double> ours, floors;
    for (const int size : sizes) {
      Desk sized(folder_ + "/sized", size, 0);
      const Times times =
          takeTimes({listed("beolvas", sized), bareListed("bare", folder_ + "/sized")}, (rounds_ + 1) / 2);
      ours.push_back(median(times.at("beolvas").wall));
      floors.push_back(median(times.at("bare").wall));
    }
    writeGrowth("beolvas to the painted rows at 1 k / 4 k / 16 k / 32 k", sizes, ours, floors);
  }

 private:
  static Measured listed(const char* name, Desk& desk) {
    return {.name = name, .act = [&desk] {
              desk.screen().beolvas();
              untilPainted(desk.list()->viewport());
            }};
  }
  Measured bareListed(const char* name, const std::string& folder) {
    return {.name = name,
            .act = [this, path = folder + "/" + kPlate + "/napiadat.dat"] { bare_.show(path); }};
  }
  void filtered(int mode) {
    desk_.filter(mode);
    untilPainted(desk_.list()->viewport());
  }
  void clicked() {
    row_ = row_ == 3 ? 5 : 3;
    desk_.clickRow(row_);
    untilPainted(desk_.list()->viewport());
  }

  // From the press in the chooser to the painted chart.
  Moment chartShown(int chart) {
    Moment start;
    onNextDialog([&](QWidget& chooser) {
      chooser.findChild<QRadioButton*>(QStringLiteral("Option%1").arg(chart))->setChecked(true);
      start = now();
      chooser.findChild<QAbstractButton*>(QStringLiteral("cmdMegjelenit"))->click();
    });
    desk_.press("cmdGrafikon");
    untilPainted(desk_.part<QWidget>("MSChart1"));
    const Moment took = since(start);
    desk_.press("cmdGrafikon");
    return took;
  }
  Series chartTimes(int chart, int type) {
    desk_.part<QComboBox>("Combo2")->setCurrentIndex(type);
    std::vector<Moment> times;
    for (int round = 0; round < std::min(rounds_, kQuickRounds); ++round) times.push_back(chartShown(chart));
    return seriesOf(times);
  }

  std::string folder_;
  int rounds_;
  Desk desk_;
  BareView bare_;
  int row_ = 3;
};

}  // namespace
}  // namespace tarvik::bench

int main(int argc, char** argv) {
  QApplication application(argc, argv);
  tarvik::ui::dress();
  if (argc != 3) {
    std::fputs("usage: tarvik_bench_screens FOLDER ROUNDS\n", stderr);
    return 2;
  }
  tarvik::bench::Measurements measurements(argv[1], std::atoi(argv[2]));
  measurements.listing();
  measurements.charts();
  measurements.printing();
  measurements.scrolling();
  measurements.session();
  measurements.growth();
  return 0;
}
