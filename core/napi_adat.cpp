#include "core/napi_adat.h"

#include "core/failure.h"

namespace tarvik::core {

Day dayOfEntry(const NapiAdat& entry) {
  const std::optional<Day> day = dayFromStored(entry.Datum);
  if (!day) throw Failure(FailureKind::OutOfRange).field("Datum");
  return *day;
}

}  // namespace tarvik::core
