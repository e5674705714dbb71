#include "benchmarks/logbook.h"

#include <filesystem>
#include <fstream>

#include "core/day.h"
#include "reminders/figyel_rec.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"

namespace tarvik::bench {
namespace {

constexpr int kFirstYear = 1940;
constexpr std::int32_t kKmADay = 40;

reminders::FigyelRec reminderOf(int number) {
  return {.KmMulva = 2'000'000'000 + number,
          .KmAllas = 1'000,
          .RogzDatum = core::FixedText<10>("2013.07.05"),
          .Szoveg = core::FixedText<40>("Vezérműszíj cseréje"),
          .Rendszam = core::FixedText<10>(kPlate)};
}

template <typename R>
std::vector<std::byte> bytesOf(int count, R (*recordOf)(int)) {
  std::vector<std::byte> bytes(static_cast<std::size_t>(count) * R::kLength);
  for (int number = 1; number <= count; ++number)
    core::encode(recordOf(number),
                 std::span(bytes).subspan(static_cast<std::size_t>(number - 1) * R::kLength, R::kLength));
  return bytes;
}

}  // namespace

core::NapiAdat entryOf(int number) {
  const std::int64_t litres = 300'000 + number % 7 * 12'345;
  const bool hasPart = number % 10 == 0;
  return {.KmOra = 1'000 + number * kKmADay,
          .Datum = core::toStored(core::addDays(core::dayOf({kFirstYear, 1, 1}), number - 1)),
          .Teletank = core::toFlag(number % 3 != 0),
          .TankoltLiter = {litres},
          .TankoltKtg = static_cast<std::int32_t>(litres / 10'000 * 400),
          .AlkatreszKtg = hasPart ? 4'500 : 0,
          .FtPerLiter = {4'000'000},
          .Olajcsere = core::toFlag(number % 250 == 0),
          .Szurocsere = core::toFlag(number % 500 == 0),
          .Gyertyacsere = core::toFlag(number % 1'000 == 0),
          .Alkatresz = core::FixedText<50>(hasPart ? "Levegőszűrő" : ""),
          .MegjKtg = number % 25 == 0 ? 1'200 : 0,
          .Megjegyzes = core::FixedText<50>(number % 25 == 0 ? "Téli gumi felszerelése" : "Tankolás"),
          .Fogyasztas = {65'000 + number % 11 * 1'000}};
}

std::vector<std::byte> logbookBytes(int entries) {
  return bytesOf<core::NapiAdat>(entries, entryOf);
}

void writeFile(const std::string& path, const std::vector<std::byte>& bytes) {
  std::ofstream file(path, std::ios::binary | std::ios::trunc);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.exceptions(std::ios::failbit | std::ios::badbit);
  file.close();
}

void makeFolder(const std::string& path, int entries, int reminders) {
  std::filesystem::remove_all(path);
  std::filesystem::create_directories(path + "/" + kPlate);
  if (entries == 0) return;
  writeFile(path + "/" + kPlate + "/napiadat.dat", logbookBytes(entries));
  writeFile(path + "/figyel.dat", bytesOf<reminders::FigyelRec>(reminders, reminderOf));
  writeFile(path + "/rendsz.dat",
            core::encoded(settings::Vehicle{.plate = core::FixedText<8>(kPlate), .tankSize = 45}));
  writeFile(path + "/set.dat", core::encoded(settings::SetRecord{.remindersOn = core::kFlagSet,
                                                                 .plate = core::FixedText<10>(kPlate)}));
}

}  // namespace tarvik::bench
