#pragma once

#include "core/clock.h"

namespace tarvik::app {

/// The machine's clock in the user's time zone.
class SystemClock final : public core::Clock {
 public:
  core::Day today() const override;
};

}  // namespace tarvik::app
