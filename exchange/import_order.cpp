#include <algorithm>
#include <optional>

#include "core/entry_editing.h"
#include "core/number_text.h"
#include "exchange/import_plan.h"
#include "exchange/numbers.h"

// How the entries of an import stand among those of the logbook, and what each gets from the ones before it.

namespace tarvik::exchange {
namespace {

using core::NapiAdat;

// A place in the logbook as it would be: an entry that is there, or one of the plan.
struct Slot {
  int number = 0;  // of the logbook; 0: of the plan
  PlannedEntry* planned = nullptr;
};

bool isBefore(const NapiAdat& a, const NapiAdat& b) {
  return a.Datum < b.Datum || (a.Datum == b.Datum && a.KmOra < b.KmOra);
}

std::vector<Slot> slotsAtEnd(ImportPlan& plan, const core::Logbook& logbook) {
  std::vector<Slot> slots;
  for (int number = 1; number <= logbook.count(); ++number) slots.push_back({.number = number});
  for (PlannedEntry& planned : plan.entries) slots.push_back({.planned = &planned});
  return slots;
}

// The entries that are there keep their order; each new one comes before the first that is later.
std::vector<Slot> slotsInOrder(ImportPlan& plan, const core::Logbook& logbook) {
  std::vector<Slot> slots;
  auto next = plan.entries.begin();
  for (int number = 1; number <= logbook.count(); ++number) {
    const NapiAdat there = logbook.record(number);
    for (; next != plan.entries.end() && isBefore(next->entry, there); ++next)
      slots.push_back({.planned = &*next});
    slots.push_back({.number = number});
  }
  for (; next != plan.entries.end(); ++next) slots.push_back({.planned = &*next});
  return slots;
}

// The consumption as a typed entry gets it; nothing where it would be refused because it has no distance, or
// more litres than a record can tell.
std::optional<core::Amount> consumptionOf(const core::FullFillTrail& trail, const NapiAdat& entry) {
  const auto found = trail.reach(entry.TankoltLiter.ratio(), entry.KmOra);
  if (!found || !fits<std::int64_t>(core::localeNumber(found->consumption).value_or(0), kPartsOfAmount))
    return std::nullopt;
  return core::storedConsumption(found->consumption);
}

// The consumptions of the logbook's entries as they would be worked out today.
std::vector<std::optional<core::Amount>> consumptionsOf(const core::Logbook& logbook) {
  std::vector<std::optional<core::Amount>> found;
  core::FullFillTrail trail;
  for (int number = 1; number <= logbook.count(); ++number) {
    const NapiAdat entry = logbook.record(number);
    found.push_back(consumptionOf(trail, entry));
    trail.pass(entry);
  }
  return found;
}

bool isOdd(core::Amount consumption) {
  if (consumption.isZero()) return false;
  return consumption.ratio() < kLeastConsumption || consumption.ratio() > kGreatestConsumption;
}

// Goes along the logbook as it would be.
class Walk {
 public:
  Walk(ImportPlan& plan, const core::Logbook& logbook)
      : plan_(plan), logbook_(logbook), before_(consumptionsOf(logbook)) {
    plan_.whole.clear();
    plan_.changed = 0;
  }

  void go(const std::vector<Slot>& slots) {
    for (const Slot& slot : slots) slot.planned == nullptr ? passOld(slot.number) : passNew(*slot.planned);
  }

 private:
  void passOld(int number) {
    NapiAdat entry = logbook_.record(number);
    const auto now = consumptionOf(trail_, entry);
    const auto& then = before_[static_cast<std::size_t>(number - 1)];
    if (now != then && now.value_or(core::Amount{}) != entry.Fogyasztas) {
      entry.Fogyasztas = now.value_or(core::Amount{});
      ++plan_.changed;
    }
    pass(entry);
  }

  void passNew(PlannedEntry& planned) {
    noticeUnticked(planned);
    compareReadings(planned);
    if (!plan_.isOwn) workOut(planned);
    if (!planned.isTaken) {
      leftOut_ = leftOut_ || (!isDouble(planned) && !planned.entry.TankoltLiter.isZero());
      return;
    }
    if (!planned.entry.TankoltLiter.isZero()) leftOut_ = false;
    pass(planned.entry);
  }

  static bool isDouble(const PlannedEntry& planned) {
    return planned.doubts.contains(Doubt::AlreadyThere) || planned.doubts.contains(Doubt::TwiceInFile);
  }

  // An entry that the person left out counts like a row that could not be read.
  void noticeUnticked(PlannedEntry& planned) const {
    planned.doubts.erase(Doubt::UntickedBefore);
    if (leftOut_ && !planned.entry.TankoltLiter.isZero()) planned.doubts.insert(Doubt::UntickedBefore);
  }

  // Fuel was taken that is not known of, or the readings are not those of one way.
  static bool hasGapBefore(const std::set<Doubt>& doubts) {
    return std::ranges::any_of(doubts, [](Doubt doubt) {
      return doubt == Doubt::MissedBefore || doubt == Doubt::LeftOutBefore ||
             doubt == Doubt::UntickedBefore || doubt == Doubt::OdometerFalls || doubt == Doubt::OdometerJumps;
    });
  }

  void compareReadings(PlannedEntry& planned) {
    planned.doubts.erase(Doubt::OdometerFalls);
    planned.doubts.erase(Doubt::OdometerJumps);
    planned.distance = reading_ ? std::int64_t{planned.entry.KmOra} - *reading_ : 0;
    if (planned.distance < 0) planned.doubts.insert(Doubt::OdometerFalls);
    if (planned.distance > kGreatestStep) planned.doubts.insert(Doubt::OdometerJumps);
  }

  void workOut(PlannedEntry& planned) {
    if (hasGapBefore(planned.doubts)) trail_.breakOff();
    planned.doubts.erase(Doubt::NoConsumption);
    planned.doubts.erase(Doubt::ConsumptionOdd);
    const auto found = consumptionOf(trail_, planned.entry);
    planned.entry.Fogyasztas = found.value_or(core::Amount{});
    if (!found && !isDouble(planned)) planned.doubts.insert(Doubt::NoConsumption);
    if (isOdd(planned.entry.Fogyasztas)) planned.doubts.insert(Doubt::ConsumptionOdd);
  }

  void pass(const NapiAdat& entry) {
    trail_.pass(entry);
    reading_ = entry.KmOra;
    plan_.whole.push_back(entry);
  }

  ImportPlan& plan_;
  const core::Logbook& logbook_;
  std::vector<std::optional<core::Amount>> before_;
  core::FullFillTrail trail_;
  std::optional<std::int32_t> reading_;
  bool leftOut_ = false;
};

bool doDiffer(std::vector<Slot> a, std::vector<Slot> b) {
  for (std::vector<Slot>* slots : {&a, &b})
    std::erase_if(*slots, [](const Slot& slot) { return slot.planned != nullptr && !slot.planned->isTaken; });
  return !std::ranges::equal(a, b, {}, &Slot::planned, &Slot::planned);
}

}  // namespace

void settle(ImportPlan& plan, const PlanContext& context) {
  const std::vector<Slot> atEnd = slotsAtEnd(plan, context.logbook);
  const std::vector<Slot> inOrder = slotsInOrder(plan, context.logbook);
  plan.doPlacesDiffer = doDiffer(atEnd, inOrder);
  Walk(plan, context.logbook).go(context.place == Place::AtEnd ? atEnd : inOrder);
}

}  // namespace tarvik::exchange
