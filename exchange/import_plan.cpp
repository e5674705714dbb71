#include "exchange/import_plan.h"

#include <algorithm>
#include <optional>
#include <tuple>
#include <utility>

#include "core/entry_editing.h"
#include "core/entry_input.h"
#include "core/failure.h"
#include "core/record_file.h"
#include "core/text.h"

namespace tarvik::exchange {
namespace {

using core::NapiAdat;

constexpr std::size_t kTextLength = 50;

// A row on its way into the plan: its reading is in kilometres, its own or that of the row before it.
struct Candidate {
  const LogRow* row;
  core::Ratio kilometres;
  bool runsBackwards = false;
};

bool isWanted(const LogRow& row, const Answers& answers) {
  return answers.vehicle.empty() || row.own || row.vehicle == answers.vehicle;
}

// The wanted rows from the earliest on: many programs write their latest row first.
std::vector<const LogRow*> forwards(const LogFile& file, const Answers& answers) {
  std::vector<const LogRow*> rows;
  for (const LogRow& row : file.rows)
    if (isWanted(row, answers)) rows.push_back(&row);
  int up = 0;
  int down = 0;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (rows[i]->day > rows[i - 1]->day) ++up;
    if (rows[i]->day < rows[i - 1]->day) ++down;
  }
  if (down > up) std::ranges::reverse(rows);
  return rows;
}

std::optional<core::Ratio> kilometresOfRow(const LogRow& row, const Answers& answers) {
  if (row.own) return core::Ratio(row.own->KmOra);
  if (!row.odometer) return std::nullopt;
  return *row.odometer * kilometresOf(answers.distance);
}

std::vector<Candidate> inOrder(const LogFile& file, const Answers& answers, core::Ratio kilometres) {
  std::vector<Candidate> candidates;
  core::Day latest = core::kFirstDay;
  for (const LogRow* row : forwards(file, answers)) {
    kilometres = kilometresOfRow(*row, answers).value_or(kilometres);
    candidates.push_back({row, kilometres, row->day < latest});
    latest = std::max(latest, row->day);
  }
  std::ranges::stable_sort(candidates, [&](const Candidate& a, const Candidate& b) {
    if (a.row->day != b.row->day || file.isOwn) return a.row->day < b.row->day;
    return a.kilometres < b.kilometres;
  });
  return candidates;
}

std::string costText(const LogRow& row, const Answers& answers) {
  return std::to_string(core::toWhole32(row.totalCost * answers.forintsPerUnit));
}

// The fields as they would be typed in.
core::EntryInput typedIn(const Candidate& candidate, const Answers& answers) {
  const LogRow& row = *candidate.row;
  core::EntryInput input;
  input.datum = row.day;
  input.kmOra = std::to_string(core::toWhole32(candidate.kilometres));
  input.megjegyzes = row.note;
  if (row.volume.isZero()) {
    input.megjKtg = costText(row, answers);
    return core::withDefaults(std::move(input));
  }
  input.tankoltLiter = core::plainText(core::toAmount(row.volume * litresOf(answers.volume)));
  input.tankoltKtg = costText(row, answers);
  input.ftPerLiter = core::pricePerLitre(input.tankoltKtg, input.tankoltLiter).value_or(std::string());
  input.teletank = row.isFull;
  return core::withDefaults(std::move(input));
}

// What the entry does not keep of a text.
void noticeLoss(const std::string& text, Doubt cut, Doubt lettersLost, std::set<Doubt>& doubts) {
  const std::string stored = core::toCodePage(text);
  if (stored.size() > kTextLength) doubts.insert(cut);
  if (core::fromCodePage(stored) != text) doubts.insert(lettersLost);
}

PlannedEntry planned(const Candidate& candidate, const Answers& answers) {
  const LogRow& row = *candidate.row;
  PlannedEntry entry{.line = row.line};
  if (row.own) {
    entry.entry = *row.own;
  } else {
    entry.entry = core::toEntry(typedIn(candidate, answers));
    if (!row.odometer) entry.doubts.insert(Doubt::OdometerTaken);
  }
  noticeLoss(row.note, Doubt::NoteCut, Doubt::LettersLost, entry.doubts);
  noticeLoss(row.part, Doubt::PartCut, Doubt::PartLettersLost, entry.doubts);
  if (row.isAfterMissed) entry.doubts.insert(Doubt::MissedBefore);
  if (candidate.runsBackwards) entry.doubts.insert(Doubt::DayRunsBackwards);
  return entry;
}

// What makes two entries the same fill-up.
using Identity = std::tuple<double, std::int32_t, std::int64_t>;

Identity identityOf(const NapiAdat& entry) {
  return {entry.Datum, entry.KmOra, entry.TankoltLiter.tenThousandths};
}

// What the logbook says of the entries that are to come behind it.
class Behind {
 public:
  Behind(const core::Logbook& logbook, std::int16_t tankLitres) : tank_(tankLitres) {
    for (int number = 1; number <= logbook.count(); ++number)
      known_.insert(identityOf(logbook.record(number)));
    if (logbook.count() > 0) lastDatum_ = logbook.record(logbook.count()).Datum;
  }

  void compare(PlannedEntry& planned) const {
    const NapiAdat& entry = planned.entry;
    if (lastDatum_ && entry.Datum < *lastDatum_) planned.doubts.insert(Doubt::DayRunsBackwards);
    if (tank_ > 0 && entry.TankoltLiter.ratio() > tank_) planned.doubts.insert(Doubt::MoreThanTank);
    if (!known_.contains(identityOf(entry))) return;
    planned.doubts.insert(Doubt::AlreadyThere);
    planned.isTaken = false;
  }

 private:
  std::set<Identity> known_;
  std::optional<double> lastDatum_;
  std::int16_t tank_;
};

void compareReadings(std::optional<std::int32_t> before, PlannedEntry& planned) {
  planned.doubts.erase(Doubt::OdometerFalls);
  planned.doubts.erase(Doubt::OdometerJumps);
  if (!before) return;
  const std::int64_t step = std::int64_t{planned.entry.KmOra} - *before;
  if (step < 0) planned.doubts.insert(Doubt::OdometerFalls);
  if (step > kGreatestStep) planned.doubts.insert(Doubt::OdometerJumps);
}

// The consumption as a typed entry gets it. One that would be refused because it has no distance comes in
// without.
void workOut(const core::FullFillTrail& trail, PlannedEntry& planned) {
  planned.doubts.erase(Doubt::NoConsumption);
  try {
    const auto found = trail.reach(planned.entry.TankoltLiter.ratio(), planned.entry.KmOra);
    planned.entry.Fogyasztas = core::storedConsumption(found.consumption);
  } catch (const core::Failure&) {
    planned.entry.Fogyasztas = {};
    planned.doubts.insert(Doubt::NoConsumption);
  }
}

}  // namespace

std::vector<NapiAdat> ImportPlan::taken() const {
  std::vector<NapiAdat> taken;
  for (const PlannedEntry& planned : entries)
    if (planned.isTaken) taken.push_back(planned.entry);
  return taken;
}

ImportPlan planImport(const LogFile& file, const Answers& answers, const core::Logbook& logbook,
                      std::int16_t tankLitres) {
  ImportPlan plan{.isOwn = file.isOwn, .entries = {}, .unread = file.unread};
  const Behind behind(logbook, tankLitres);
  for (const Candidate& candidate : inOrder(file, answers, logbook.record(logbook.count()).KmOra)) {
    try {
      plan.entries.push_back(planned(candidate, answers));
      behind.compare(plan.entries.back());
    } catch (const core::Failure&) {
      plan.unread.push_back({candidate.row->line, UnreadRow::Why::FigureTooLarge, {}, {}});
    }
  }
  settle(plan, logbook);
  return plan;
}

void settle(ImportPlan& plan, const core::Logbook& logbook) {
  core::FullFillTrail trail;
  for (int number = 1; number <= logbook.count(); ++number) trail.pass(logbook.record(number));
  std::optional<std::int32_t> before;
  if (logbook.count() > 0) before = logbook.record(logbook.count()).KmOra;
  for (PlannedEntry& planned : plan.entries) {
    compareReadings(before, planned);
    if (!plan.isOwn) workOut(trail, planned);
    if (!planned.isTaken) continue;
    before = planned.entry.KmOra;
    trail.pass(planned.entry);
  }
}

void importEntries(core::FileSystem& files, const std::string& path, const core::Logbook& seen,
                   const std::vector<NapiAdat>& entries) {
  core::RecordFile file(files, path, NapiAdat::kLength);
  const core::Logbook now(file.read(1, file.count()));
  if (!std::ranges::equal(now.bytes(), seen.bytes()))
    throw core::Failure(core::FailureKind::FileChanged).file(path);
  file.appendAll(core::Logbook::of(entries).bytes());
}

}  // namespace tarvik::exchange
