// tarvik_make_demo LOG.csv FOLDER: fills an existing folder with the demonstration household.

#include <exception>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <string>
#include <vector>

#include "core/record_codec.h"
#include "core/record_list.h"
#include "tools/demo/household.h"
#include "tools/demo/logbook_writer.h"

namespace tarvik::demo {
namespace {

using Bytes = std::vector<std::byte>;

void append(Bytes& bytes, const Bytes& more) {
  bytes.insert(bytes.end(), more.begin(), more.end());
}

void writeFile(const std::filesystem::path& path, const Bytes& bytes) {
  std::ofstream file(path, std::ios::binary);
  file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
  file.close();
  if (!file) throw std::runtime_error("cannot write " + path.string());
}

Bytes vehicleRecord(const Car& car) {
  Bytes bytes(10);
  core::FixedText<8>(car.plate).write(bytes, 0);
  core::writeInt16(bytes, 8, car.tankLitres);
  return bytes;
}

Bytes settingsRecord(const std::string& plateAtStart) {
  Bytes bytes(12);
  core::writeInt16(bytes, 0, core::kFlagSet);
  core::FixedText<10>(plateAtStart).write(bytes, 2);
  return bytes;
}

Bytes lookupList(const std::vector<std::string>& texts) {
  Bytes all;
  for (const std::string& text : texts) {
    Bytes bytes(50);
    core::FixedText<50>(text).write(bytes, 0);
    append(all, bytes);
  }
  return all;
}

Bytes logbook(const Car& car) {
  Bytes all;
  for (const core::NapiAdat& entry : logbookOf(car.events)) append(all, core::encoded(entry));
  return all;
}

void makeHousehold(const std::filesystem::path& log, const std::filesystem::path& folder) {
  Bytes vehicles;
  for (const Car& car : household(log)) {
    append(vehicles, vehicleRecord(car));
    std::filesystem::create_directory(folder / car.plate);
    writeFile(folder / car.plate / "napiadat.dat", logbook(car));
  }
  writeFile(folder / "rendsz.dat", vehicles);
  writeFile(folder / "alkatr.dat", lookupList(partNames()));
  writeFile(folder / "megjegyz.dat", lookupList(noteTexts()));
  writeFile(folder / "set.dat", settingsRecord("KLM456"));
}

}  // namespace
}  // namespace tarvik::demo

int main(int argc, char** argv) {
  if (argc != 3) {
    std::cerr << "usage: tarvik_make_demo LOG.csv FOLDER\n";
    return 2;
  }
  try {
    tarvik::demo::makeHousehold(argv[1], argv[2]);
  } catch (const std::exception& error) {
    std::cerr << "tarvik_make_demo: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
