#include "app/system_clock.h"

#include <ctime>

namespace tarvik::app {

core::Day SystemClock::today() const {
  const std::time_t now = std::time(nullptr);
  std::tm local{};
  localtime_r(&now, &local);
  return core::dayOf({local.tm_year + 1900, local.tm_mon + 1, local.tm_mday});
}

}  // namespace tarvik::app
