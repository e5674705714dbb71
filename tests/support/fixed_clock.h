#pragma once

#include "core/clock.h"

namespace tarvik::test {

/// A clock that stands on one day until a test moves it.
class FixedClock final : public core::Clock {
 public:
  explicit FixedClock(core::CalendarDate date) : day(core::dayOf(date)) {}
  core::Day today() const override { return day; }

  core::Day day;
};

}  // namespace tarvik::test
