#include "charts/monthly_points.h"

#include "core/day.h"

namespace tarvik::charts {
namespace {

constexpr int kNoMonthYet = 0;
constexpr int kUnreadableMonth = -1;

// The month number of an entry with the label that it gives to its bucket.
struct Month {
  int number = kUnreadableMonth;
  std::string label = "?";
};

Month monthOf(const core::NapiAdat& entry) {
  const auto day = core::dayFromStored(entry.Datum);
  if (!day) return {};
  const core::CalendarDate date = core::calendarDate(*day);
  return {date.month, std::to_string(date.year) + ". " + std::to_string(date.month) + ". hó"};
}

// The buckets in the making. The first one stands before all that are shown.
class Buckets {
 public:
  explicit Buckets(const MonthlyRule& rule) : rule_(rule) {}

  void openNext() {
    points_.emplace_back();
    total_ = {};
  }

  void add(const core::NapiAdat& fuelling, const std::string& label) {
    total_.sum = total_.sum + rule_.contribution(fuelling);
    ++total_.fuellings;
    points_.back() = {label, rule_.value(total_, fuelling)};
  }

  std::vector<ChartPoint> takeShown() {
    points_.erase(points_.begin());
    return std::move(points_);
  }

 private:
  const MonthlyRule& rule_;
  std::vector<ChartPoint> points_ = std::vector<ChartPoint>(1);
  MonthTotal total_;
};

}  // namespace

std::vector<ChartPoint> monthlyPoints(const core::Logbook& logbook, RecordRange range,
                                      const MonthlyRule& rule) {
  Buckets buckets(rule);
  int previousMonth = kNoMonthYet;
  for (int number = range.first; number <= range.last; ++number) {
    const core::NapiAdat entry = logbook.record(number);
    const Month month = monthOf(entry);
    if (entry.TankoltKtg >= 1) {
      if (number != 1 && month.number != previousMonth) buckets.openNext();
      buckets.add(entry, month.label);
    }
    previousMonth = month.number;
  }
  return buckets.takeShown();
}

}  // namespace tarvik::charts
