// tarvik_make_demo LOG.csv FOLDER TODAY: fills an existing folder with the demonstration household as it is
// on the day given (2013.07.05.).

#include <exception>
#include <filesystem>
#include <iostream>
#include <stdexcept>
#include <string>

#include "core/data_folders.h"
#include "core/day.h"
#include "core/entry_editing.h"
#include "core/entry_input.h"
#include "core/failure.h"
#include "core/machine_file_system.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tools/demo/household.h"
#include "tools/demo/registers.h"

namespace tarvik::demo {
namespace {

bool hasService(const Event& event, char letter) {
  return event.service.find(letter) != std::string::npos;
}

// What a person would have typed.
core::EntryInput inputOf(const Event& event) {
  core::EntryInput input;
  input.kmOra = std::to_string(event.km);
  input.tankoltLiter = core::plainText(event.litres);
  input.tankoltKtg = std::to_string(event.fuelCost);
  input.ftPerLiter = core::pricePerLitre(input.tankoltKtg, input.tankoltLiter).value_or("");
  input.alkatresz = event.part;
  input.alkatreszKtg = std::to_string(event.partCost);
  input.megjegyzes = event.note;
  input.megjKtg = std::to_string(event.noteCost);
  input.datum = event.day;
  input.teletank = event.isFull;
  input.olajcsere = hasService(event, 'o');
  input.szurocsere = hasService(event, 's');
  input.gyertyacsere = hasService(event, 'g');
  return input;
}

/// Fills a household's folder by the program's own operations, one after the other.
class Maker {
 public:
  explicit Maker(const std::filesystem::path& folder) : folders_{folder.string(), folder.string()} {}

  void add(const Car& car) {
    settings::addVehicle(files_, folders_, car.plate, std::to_string(car.tankLitres));
    for (const Event& event : car.events) core::recordEntry(files_, folders_, car.plate, inputOf(event));
  }

  void addLookupTexts() {
    for (const auto& name : partNames())
      settings::appendLookupText(files_, folders_, settings::kPartNames, name);
    for (const auto& text : noteTexts()) settings::appendLookupText(files_, folders_, settings::kNotes, text);
  }

  void addRegisters(core::Day today) {
    tyres::TyreRegister tyreRegister(files_, folders_);
    for (const auto& set : tyreSets()) tyreRegister.record(set);
    const repairs::RepairLog repairLog(files_, folders_);
    for (const auto& entry : repairEntries(today)) repairLog.record(entry);
  }

  void addReminders(core::Day today) {
    for (const auto& [on, entry] : kmReminders(today))
      reminders::recordKmReminder(files_, folders_, entry, on);
    for (const auto& [on, entry] : dateReminders(today))
      reminders::recordDateReminder(files_, folders_, entry, on);
  }

  void chooseAtStart(const std::string& plate) {
    settings::saveStartSettings(files_, folders_,
                                {.remindersOn = core::kFlagSet, .plate = core::FixedText<10>(plate)});
  }

 private:
  core::MachineFileSystem files_;
  core::DataFolders folders_;
};

core::Day dayOfArgument(const char* text) {
  const auto day = core::dayFromShortDate(text);
  if (!day) throw std::runtime_error(std::string("no day: ") + text);
  return *day;
}

void makeHousehold(const std::filesystem::path& log, const std::filesystem::path& folder, core::Day today) {
  if (!std::filesystem::is_directory(folder)) throw std::runtime_error("no such folder: " + folder.string());
  Maker maker(folder);
  for (const Car& car : household(log, today)) maker.add(car);
  maker.addLookupTexts();
  maker.addRegisters(today);
  maker.addReminders(today);
  maker.chooseAtStart("KLM456");
}

}  // namespace
}  // namespace tarvik::demo

int main(int argc, char** argv) {
  if (argc != 4) {
    std::cerr << "usage: tarvik_make_demo LOG.csv FOLDER TODAY\n";
    return 2;
  }
  try {
    tarvik::demo::makeHousehold(argv[1], argv[2], tarvik::demo::dayOfArgument(argv[3]));
  } catch (const tarvik::core::Failure& failure) {
    std::cerr << "tarvik_make_demo: failed at " << failure.file() << ' ' << failure.field()
              << (failure.systemError() == 0 ? "" : ": ")
              << (failure.systemError() == 0 ? "" : std::strerror(failure.systemError())) << '\n';
    return 1;
  } catch (const std::exception& error) {
    std::cerr << "tarvik_make_demo: " << error.what() << '\n';
    return 1;
  }
  return 0;
}
