#include "settings/vehicles.h"

#include "core/failure.h"
#include "core/field_number.h"
#include "core/number_text.h"
#include "core/ratio.h"
#include "core/record_file.h"
#include "core/text.h"

namespace tarvik::settings {
namespace {

constexpr const char* kFileName = "rendsz.dat";
constexpr const char* kTemporaryName = "rendszxx.dat";

std::int16_t wholeLitres(std::string_view tankText) {
  return core::inField("txTank", [&] { return core::toWhole16(core::plainNumber(tankText)); });
}

// The vehicle is recorded by now, so nothing here fails: without its folder the logbook says what is missing.
void makeVehicleFolder(core::FileSystem& files, const core::DataFolders& folders,
                       std::string_view plateText) {
  if (!core::isUsablePlate(plateText)) return;
  if (files.makeFolder(folders.vehicleFolder(plateText)) == 0) files.syncFolder(folders.program);
}

}  // namespace

Vehicles loadVehicles(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<Vehicle>(files, folders.inCurrent(kFileName));
}

Vehicles loadVehiclesOfProgramFolder(core::FileSystem& files, const core::DataFolders& folders) {
  return core::loadRecords<Vehicle>(files, folders.inProgram(kFileName));
}

bool isTankSizeMissing(std::string_view tankText) {
  return core::plainNumber(tankText).isZero();
}

bool isPlateMissing(std::string_view plateText) {
  return core::trimmed(plateText).empty();
}

void addVehicle(core::FileSystem& files, const core::DataFolders& folders, std::string_view plateText,
                std::string_view tankText) {
  const Vehicle vehicle{.plate = core::FixedText<8>(plateText), .tankSize = wholeLitres(tankText)};
  core::RecordFile(files, folders.inCurrent(kFileName), Vehicle::kLength).append(core::encoded(vehicle));
  makeVehicleFolder(files, folders, plateText);
}

void removeVehicle(core::FileSystem& files, const core::DataFolders& folders, const core::SeenRecord& seen) {
  core::RecordFile file(files, folders.inCurrent(kFileName), Vehicle::kLength);
  file.remove(seen, folders.inCurrent(kTemporaryName));
}

std::int16_t tankSizeOf(const Vehicles& vehicles, std::string_view plate) {
  const std::string_view wanted = core::trimmed(plate);
  for (int number = vehicles.count(); number >= 1; --number) {
    const Vehicle vehicle = vehicles.record(number);
    if (vehicle.plate.trimmed() == wanted) return vehicle.tankSize;
  }
  return 0;
}

std::string listText(const Vehicle& vehicle) {
  return vehicle.plate.asStored() + " - " + std::to_string(vehicle.tankSize);
}

}  // namespace tarvik::settings
