#include "repairs/repair_rows.h"

#include "core/day.h"
#include "core/field_number.h"
#include "core/number_format.h"
#include "core/ratio.h"
#include "core/search.h"
#include "core/text.h"

namespace tarvik::repairs {
namespace {

// The filter with its texts as they are compared.
struct Keys {
  explicit Keys(const RepairFilter& filter)
      : plate(core::trimmed(filter.plate)),
        isAllVehicles(filter.isAllVehicles),
        description(core::upperCased(core::trimmed(filter.description))),
        part(core::upperCased(core::trimmed(filter.part))) {}

  bool keep(const Repair& repair) const {
    return (isAllVehicles || repair.plate.trimmed() == plate) &&
           core::holdsUpperCased(repair.description.asStored(), description) &&
           core::holdsUpperCased(repair.part.asStored(), part);
  }

  std::string plate;
  bool isAllVehicles;
  std::string description;
  std::string part;
};

RepairRow rowOf(const Repair& repair, int number) {
  return {.plate = repair.plate.asStored(),
          .date = core::shortDateOfStored(repair.date),
          .description = repair.description.trimmed(),
          .part = repair.part.trimmed(),
          .costFt = repair.costFt,
          .readingKm = repair.readingKm,
          .number = number};
}

}  // namespace

std::vector<RepairRow> rowsOf(const Repairs& repairs, const RepairFilter& filter) {
  const Keys keys(filter);
  std::vector<RepairRow> rows;
  for (int number = 1; number <= repairs.count(); ++number) {
    const Repair repair = repairs.record(number);
    if (keys.keep(repair)) rows.push_back(rowOf(repair, number));
  }
  return rows;
}

std::string searchedText(const Repair& repair) {
  return core::shortDateOfStored(repair.date) + '\n' + repair.description.trimmed() + '\n' +
         repair.part.trimmed();
}

std::string totalText(std::span<const RepairRow> rows) {
  core::Ratio total;
  for (const RepairRow& row : rows) total = core::fieldWhole32(total + row.costFt, "lbKoltseg");
  return core::formatted(total, "### ### ##0");
}

}  // namespace tarvik::repairs
