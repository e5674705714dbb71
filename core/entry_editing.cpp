#include "core/entry_editing.h"

#include <algorithm>

#include "core/failure.h"
#include "core/number_format.h"
#include "core/number_text.h"
#include "core/record_file.h"

namespace tarvik::core {
namespace {

bool isReference(const NapiAdat& entry) {
  return entry.Teletank == kFlagSet && !entry.TankoltLiter.isZero();
}

// The last full fill is rarely far: a few dozen entries are read from behind, and more only where it is not
// among them.
FullFillTrail trailOf(const RecordFile& file) {
  for (std::int64_t wanted = 64;; wanted *= 8) {
    const std::int64_t skipped = std::max<std::int64_t>(file.count() - wanted, 0);
    const Logbook entries(file.read(skipped + 1, file.count() - skipped));
    FullFillTrail trail(skipped);
    for (int number = 1; number <= entries.count(); ++number) trail.pass(entries.record(number));
    if (skipped == 0 || trail.hasPassedFullFill()) return trail;
  }
}

}  // namespace

void FullFillTrail::pass(const NapiAdat& entry) {
  if (++passed_ < 2) return;
  if (isReference(entry)) {
    reference_ = entry.KmOra;
    since_ = 0;
  } else {
    since_ = since_ + entry.TankoltLiter.ratio();
  }
}

std::optional<FullFillSearch> FullFillTrail::reach(const Ratio& litres, const Ratio& kmOra) const {
  if (!reference_) return FullFillSearch{};
  const Ratio distance = kmOra - *reference_;
  if (distance.isZero()) return std::nullopt;
  return FullFillSearch{distance, formatted((litres + since_) / (distance / 100), "##.00")};
}

std::optional<Logbook> foundLogbook(FileSystem& files, const DataFolders& folders, std::string_view plate) {
  if (!isUsablePlate(plate)) return std::nullopt;
  std::optional<ByteBlock> records = readRecordsIfFolder(files, folders.logbook(plate), NapiAdat::kLength);
  if (!records) return std::nullopt;
  return Logbook(*std::move(records));
}

Logbook loadLogbook(FileSystem& files, const DataFolders& folders, std::string_view plate) {
  return foundLogbook(files, folders, plate).value_or(Logbook());
}

Ratio recordEntry(FileSystem& files, const DataFolders& folders, const std::string& plate, EntryInput input) {
  if (plainNumber(input.tankoltLiter).isZero()) input.teletank = false;
  input = withDefaults(std::move(input));
  NapiAdat entry = toEntry(input);
  RecordFile file(files, folders.logbook(plate), NapiAdat::kLength);
  const auto found = trailOf(file).reach(requiredNumber(input.tankoltLiter, "txTankoltLiter"),
                                         requiredNumber(input.kmOra, "txKmOra"));
  if (!found) throw Failure(FailureKind::DivisionByZero).field("txKmOra");
  entry.Fogyasztas = storedConsumption(found->consumption);
  file.append(encoded(entry));
  return found->distance;
}

void modifyEntry(FileSystem& files, const DataFolders& folders, const std::string& plate,
                 const SeenRecord& seen, const EntryInput& input, std::string_view shownConsumption) {
  NapiAdat entry = toEntry(withDefaults(input));
  entry.Fogyasztas = storedConsumption(shownConsumption);
  RecordFile(files, folders.logbook(plate), NapiAdat::kLength).rewrite(seen, encoded(entry));
}

void openDeletion(FileSystem& files, const DataFolders& folders, const std::string& plate) {
  createIfMissing(files, folders.logbook(plate));
  createTemporaryIfMissing(files, folders.logbookTemporary(plate));
}

void deleteEntry(FileSystem& files, const DataFolders& folders, const std::string& plate,
                 const SeenRecord& seen) {
  RecordFile(files, folders.logbook(plate), NapiAdat::kLength).remove(seen, folders.logbookTemporary(plate));
}

}  // namespace tarvik::core
