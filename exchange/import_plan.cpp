#include "exchange/import_plan.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

#include "core/entry_input.h"
#include "core/failure.h"
#include "core/record_file.h"
#include "core/text.h"
#include "exchange/numbers.h"

namespace tarvik::exchange {
namespace {

using core::NapiAdat;

constexpr std::size_t kTextLength = 50;
constexpr core::Day kFirstCarDay{18'264};  // 1 January 1950

// A row on its way into the plan: its reading is in kilometres, its own or that of the row before it.
struct Candidate {
  const LogRow* row;
  core::Ratio kilometres;
  bool runsBackwards;
};

bool isLatestFirst(const std::vector<LogRow>& rows) {
  int up = 0;
  int down = 0;
  for (std::size_t i = 1; i < rows.size(); ++i) {
    if (rows[i].day > rows[i - 1].day) ++up;
    if (rows[i].day < rows[i - 1].day) ++down;
  }
  return down > up;
}

// The rows from the earliest on: many programs write their latest row first.
std::vector<const LogRow*> forwards(const std::vector<LogRow>& rows) {
  std::vector<const LogRow*> found;
  for (const LogRow& row : rows) found.push_back(&row);
  if (isLatestFirst(rows)) std::ranges::reverse(found);
  return found;
}

// A distance of a log without readings, of an entry or of a row that is left out.
struct Leg {
  core::Day day{};
  int line = 0;
  core::Ratio kilometres = 0;
  Candidate* candidate = nullptr;
};

std::vector<Leg> legsOf(const LogRows& rows, std::vector<Candidate>& candidates) {
  std::vector<Leg> legs;
  for (const UnreadRow& row : rows.unread)
    if (!row.trip.isZero()) legs.push_back({row.readDay, row.line, row.trip, nullptr});
  for (Candidate& candidate : candidates)
    legs.push_back({candidate.row->day, candidate.row->line, candidate.row->trip.value_or(0), &candidate});
  const int direction = isLatestFirst(rows.rows) ? -1 : 1;
  std::ranges::sort(legs, [&](const Leg& a, const Leg& b) {
    return a.day != b.day ? a.day < b.day : direction * a.line < direction * b.line;
  });
  return legs;
}

// Where a log of distances begins.
core::Ratio startOf(const std::vector<Leg>& legs, const Reading& reading) {
  if (!reading.tripStart) return 0;
  if (reading.tripStart->isAtStart) return reading.tripStart->reading;
  core::Ratio driven = 0;
  for (const Leg& leg : legs) driven = driven + leg.kilometres;
  return reading.tripStart->reading - driven;
}

// Distances add up in the order of their days.
void addUp(const std::vector<Leg>& legs, core::Ratio kilometres) {
  for (const Leg& leg : legs) {
    kilometres = kilometres + leg.kilometres;
    if (leg.candidate != nullptr) leg.candidate->kilometres = kilometres;
  }
}

std::vector<Candidate> inOrder(const LogRows& rows, const Reading& reading, core::Ratio kilometres) {
  std::vector<Candidate> candidates;
  core::Day latest = core::kFirstDay;
  for (const LogRow* row : forwards(rows.rows)) {
    kilometres = row->kilometres.value_or(kilometres);
    candidates.push_back({row, kilometres, row->day < latest});
    latest = std::max(latest, row->day);
  }
  const bool hasTrips = !reading.has(Meaning::Odometer) && reading.has(Meaning::Trip);
  std::ranges::stable_sort(candidates, [&](const Candidate& a, const Candidate& b) {
    if (a.row->day != b.row->day || reading.isOwn || hasTrips) return a.row->day < b.row->day;
    return a.kilometres < b.kilometres;
  });
  if (!hasTrips) return candidates;
  const std::vector<Leg> legs = legsOf(rows, candidates);
  addUp(legs, startOf(legs, reading));
  return candidates;
}

std::string wholeText(const core::Ratio& value) {
  return std::to_string(core::toWhole32(value));
}

// The fields as they would be typed in.
core::EntryInput typedIn(const Candidate& candidate) {
  const LogRow& row = *candidate.row;
  core::EntryInput input;
  input.datum = row.day;
  input.kmOra = wholeText(candidate.kilometres);
  input.megjegyzes = row.note;
  input.alkatresz = row.part;
  input.tankoltLiter = core::plainText(core::toAmount(row.litres));
  input.tankoltKtg = wholeText(row.forints);
  input.megjKtg = wholeText(row.noteForints);
  input.alkatreszKtg = wholeText(row.partForints);
  input.olajcsere = row.isOilChange;
  input.szurocsere = row.isFilterChange;
  input.gyertyacsere = row.isPlugChange;
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

void noticeDay(core::Day day, core::Day today, std::set<Doubt>& doubts) {
  if (day > today) doubts.insert(Doubt::DayInFuture);
  if (day < kFirstCarDay) doubts.insert(Doubt::DayTooEarly);
}

void noticePrice(const NapiAdat& entry, std::set<Doubt>& doubts) {
  const core::Ratio litres = entry.TankoltLiter.ratio();
  if (litres <= 0 || entry.TankoltKtg == 0) return;
  const core::Ratio cost(entry.TankoltKtg);
  if (cost < litres * kCheapestLitre || cost > litres * kDearestLitre) doubts.insert(Doubt::PriceOdd);
}

PlannedEntry planned(const Candidate& candidate, const Reading& reading, const PlanContext& context) {
  const LogRow& row = *candidate.row;
  PlannedEntry entry{.line = row.line};
  entry.entry = row.own ? *row.own : core::toEntry(typedIn(candidate));
  if (!row.own && !row.kilometres && !row.trip) entry.doubts.insert(Doubt::OdometerTaken);
  noticeLoss(row.note, Doubt::NoteCut, Doubt::LettersLost, entry.doubts);
  noticeLoss(row.part, Doubt::PartCut, Doubt::PartLettersLost, entry.doubts);
  noticeDay(row.day, context.today, entry.doubts);
  const bool isPriceKnown = !reading.isOpen(Question::Currency) && !reading.isOpen(Question::Rate);
  if (!row.own && isPriceKnown) noticePrice(entry.entry, entry.doubts);
  if (row.isAfterMissed) entry.doubts.insert(Doubt::MissedBefore);
  if (row.isDamaged) entry.doubts.insert(Doubt::LettersDamaged);
  if (candidate.runsBackwards) entry.doubts.insert(Doubt::DayRunsBackwards);
  if (context.tankLitres > 0 && entry.entry.TankoltLiter.ratio() > context.tankLitres)
    entry.doubts.insert(Doubt::MoreThanTank);
  return entry;
}

// How far apart two numbers are may be more than 63 bits hold.
bool isNear(std::int64_t a, std::int64_t b, std::uint64_t most) {
  const auto [least, greatest] = std::minmax(a, b);
  return static_cast<std::uint64_t>(greatest) - static_cast<std::uint64_t>(least) <= most;
}

// Whether two entries are the same: another program may have rounded the reading to a mile and the litres to
// a tenth.
bool areSame(const NapiAdat& a, const NapiAdat& b) {
  constexpr std::uint64_t kTenth = 1'000;
  constexpr std::uint64_t kSameKilometre = 1;
  if (a.Datum != b.Datum || !isNear(a.KmOra, b.KmOra, kSameKilometre)) return false;
  if (a.TankoltLiter.isZero() != b.TankoltLiter.isZero()) return false;
  if (a.TankoltLiter.isZero())
    return a.Megjegyzes.asStored() == b.Megjegyzes.asStored() && a.MegjKtg == b.MegjKtg &&
           a.Alkatresz.asStored() == b.Alkatresz.asStored() && a.AlkatreszKtg == b.AlkatreszKtg;
  return isNear(a.TankoltLiter.tenThousandths, b.TankoltLiter.tenThousandths, kTenth - 1);
}

// Entries by their days, to be asked whether one is among them.
class KnownEntries {
 public:
  void add(const NapiAdat& entry) { byDay_.emplace(entry.Datum, entry); }
  bool has(const NapiAdat& entry) const {
    const auto [from, to] = byDay_.equal_range(entry.Datum);
    return std::any_of(from, to, [&](const auto& known) { return areSame(known.second, entry); });
  }

 private:
  std::multimap<double, NapiAdat> byDay_;
};

void findDuplicates(const core::Logbook& logbook, ImportPlan& plan) {
  KnownEntries there;
  KnownEntries inFile;
  for (int number = 1; number <= logbook.count(); ++number) there.add(logbook.record(number));
  for (PlannedEntry& planned : plan.entries) {
    const bool isThere = there.has(planned.entry);
    if (isThere) planned.doubts.insert(Doubt::AlreadyThere);
    if (!isThere && inFile.has(planned.entry)) planned.doubts.insert(Doubt::TwiceInFile);
    planned.isTaken =
        !planned.doubts.contains(Doubt::AlreadyThere) && !planned.doubts.contains(Doubt::TwiceInFile);
    inFile.add(planned.entry);
  }
}

// The entry behind a row that is left out: the next one down the file, or up where the latest stands first.
void noticeLeftOut(const std::vector<LogRow>& rows, ImportPlan& plan) {
  const bool isUpwards = isLatestFirst(rows);
  for (const UnreadRow& row : plan.unread) {
    if (!row.mayBeFillUp()) continue;
    PlannedEntry* behind = nullptr;
    for (PlannedEntry& planned : plan.entries) {
      if (isUpwards ? planned.line > row.line : planned.line < row.line) continue;
      const bool isNearer =
          behind == nullptr || (isUpwards ? planned.line > behind->line : planned.line < behind->line);
      if (isNearer) behind = &planned;
    }
    if (behind != nullptr) behind->doubts.insert(Doubt::LeftOutBefore);
  }
}

}  // namespace

std::vector<NapiAdat> ImportPlan::taken() const {
  std::vector<NapiAdat> taken;
  for (const PlannedEntry& planned : entries)
    if (planned.isTaken) taken.push_back(planned.entry);
  return taken;
}

ImportPlan planImport(const LogRows& rows, const Reading& reading, const PlanContext& context) {
  const bool keeps = reading.isOwn && reading.has(Meaning::Consumption);
  ImportPlan plan{.isOwn = keeps, .entries = {}, .unread = rows.unread, .whole = {}};
  const core::Logbook& logbook = context.logbook;
  for (const Candidate& candidate : inOrder(rows, reading, logbook.record(logbook.count()).KmOra)) {
    if (fits<std::int32_t>(candidate.kilometres))
      plan.entries.push_back(planned(candidate, reading, context));
    else
      plan.unread.push_back({.line = candidate.row->line, .why = UnreadRow::Why::FigureTooLarge});
  }
  std::ranges::stable_sort(plan.unread, {}, &UnreadRow::line);
  findDuplicates(logbook, plan);
  noticeLeftOut(rows.rows, plan);
  settle(plan, context);
  return plan;
}

void importEntries(core::FileSystem& files, const std::string& path, const core::Logbook& seen,
                   const std::vector<NapiAdat>& whole) {
  core::RecordFile file(files, path, NapiAdat::kLength);
  const core::Logbook now(file.read(1, file.count()));
  if (!std::ranges::equal(now.bytes(), seen.bytes()))
    throw core::Failure(core::FailureKind::FileChanged).file(path);
  file.replaceAll(core::Logbook::of(whole).bytes());
}

}  // namespace tarvik::exchange
