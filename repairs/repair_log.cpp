#include "repairs/repair_log.h"

#include "core/field_number.h"
#include "core/record_file.h"

namespace tarvik::repairs {
namespace {

constexpr char kFile[] = "Szerviz.dat";
constexpr char kTemporary[] = "xx.dat";

}  // namespace

Repairs loadRepairs(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<Repair>(files, folders.inProgram(kFile));
}

std::vector<RepairRow> RepairLog::listFiltered(const RepairFilter& filter) {
  listed_ = loadRepairs(files_, folders_);
  return rowsOf(listed_, filter);
}

Repair RepairLog::read(int number) const {
  return core::loadRecord<Repair>(files_, folders_.inProgram(kFile), number);
}

void RepairLog::record(const NewRepair& typed) const {
  const Repair repair{.plate = core::FixedText<10>(typed.plate),
                      .date = core::toStored(typed.date),
                      .description = core::FixedText<80>(typed.description),
                      .part = core::FixedText<80>(typed.part),
                      .costFt = core::plainWhole32(typed.cost, "txtSzervizKoltseg"),
                      .readingKm = core::plainWhole32(typed.reading, "txtKMora")};
  core::RecordFile(files_, folders_.inProgram(kFile), Repair::kLength).append(core::encoded(repair));
}

void RepairLog::remove(const core::SeenRecord& seen) const {
  core::RecordFile(files_, folders_.inProgram(kFile), Repair::kLength)
      .remove(seen, folders_.inCurrent(kTemporary));
}

}  // namespace tarvik::repairs
