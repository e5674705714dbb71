#include "tyres/tyre_register.h"

#include "core/field_number.h"
#include "core/record_file.h"
#include "core/text.h"

namespace tarvik::tyres {
namespace {

constexpr char kFile[] = "Gumik.dat";
constexpr char kTemporary[] = "xx.dat";

// The screen's names of the fields that can fail, for a new set and for a change.
struct FieldNames {
  const char* maxKm;
  const char* kmWhenFitted;
  const char* kmRun;
};
constexpr FieldNames kNewFields{"txtGumiMaxKm", "txtGumiKmFelszerelKor", "txtGumiAzotaFutottKm"};
constexpr FieldNames kChangeFields{"txtMMaxKm", "txtMKmFelszKor", "txtMAzotaFutott"};

void fill(TyreSet& set, const TyreFields& typed, const FieldNames& names) {
  set.type = core::FixedText<30>(typed.type);
  set.size = core::FixedText<15>(typed.size);
  set.maxKm = core::requiredWhole32(typed.maxKm, names.maxKm);
  set.season = typed.season.value_or(set.season);
  set.kmWhenFitted = core::plainWhole32(typed.kmWhenFitted, names.kmWhenFitted);
  set.kmRun = core::plainWhole32(typed.kmRun, names.kmRun);
}

// The number of the first set on the vehicle's car; 0 when there is none.
int fittedSetOf(const TyreSets& sets, std::string_view plate) {
  for (int number = 1; number <= sets.count(); ++number) {
    const TyreSet set = sets.record(number);
    if (set.onCar == kFitted && set.plate.trimmed() == core::trimmed(plate)) return number;
  }
  return 0;
}

TyreSets allOf(const core::RecordFile& file) {
  return TyreSets(file.read(1, file.count()));
}

}  // namespace

TyreSets loadTyreSets(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<TyreSet>(files, folders.inProgram(kFile));
}

std::vector<TyreRow> TyreRegister::list(std::optional<std::string_view> plate) {
  listed_ = loadTyreSets(files_, folders_);
  if (listed_.count() > 0) buffer_ = listed_.record(listed_.count());
  return rowsOf(listed_, plate);
}

std::vector<TyreRow> TyreRegister::listOf(std::string_view plate) {
  return list(plate);
}

std::vector<TyreRow> TyreRegister::listAll() {
  return list(std::nullopt);
}

const TyreSet& TyreRegister::read(int number) {
  return buffer_ = core::loadRecord<TyreSet>(files_, folders_.inProgram(kFile), number);
}

void TyreRegister::record(const NewTyreSet& typed) {
  TyreSet set = buffer_;
  set.plate = core::FixedText<10>(typed.plate);
  set.onCar = typed.isFitted ? kFitted : kNotFitted;
  fill(set, typed.fields, kNewFields);
  core::RecordFile(files_, folders_.inProgram(kFile), TyreSet::kLength).append(core::encoded(set));
  buffer_ = set;
}

template <typename Edit>
void TyreRegister::rewrite(const core::SeenRecord& seen, Edit edit) {
  buffer_ = core::recordOf<TyreSet>(seen);
  TyreSet edited = buffer_;
  edit(edited);
  core::RecordFile(files_, folders_.inProgram(kFile), TyreSet::kLength).rewrite(seen, core::encoded(edited));
}

void TyreRegister::setFitted(const core::SeenRecord& seen, bool isFitted) {
  rewrite(seen, [&](TyreSet& set) { set.onCar = isFitted ? kFitted : kNotFitted; });
}

void TyreRegister::change(const core::SeenRecord& seen, const TyreFields& typed) {
  rewrite(seen, [&](TyreSet& set) { fill(set, typed, kChangeFields); });
}

void TyreRegister::remove(const core::SeenRecord& seen) {
  core::RecordFile(files_, folders_.inProgram(kFile), TyreSet::kLength)
      .remove(seen, folders_.inCurrent(kTemporary));
}

void addDistance(core::FileSystem& files, const core::DataFolders& folders, std::string_view plate,
                 const core::Ratio& distance) {
  const std::string path = folders.inProgram(kFile);
  const auto stored = core::loadRecords<TyreSet>(files, path);
  if (distance.isZero() || fittedSetOf(stored, plate) == 0) return;

  core::RecordFile file(files, path, TyreSet::kLength);
  const TyreSets sets = allOf(file);
  const int number = fittedSetOf(sets, plate);  // the file may have changed before it was locked
  if (number == 0) return;
  TyreSet set = sets.record(number);
  set.kmRun = core::fieldWhole32(set.kmRun + distance, kNewFields.kmRun);
  file.rewrite(sets.seen(number), core::encoded(set));
}

}  // namespace tarvik::tyres
