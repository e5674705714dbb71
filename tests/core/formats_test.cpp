#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <vector>

#include "core/napi_adat.h"
#include "reminders/figy_datum_rec.h"
#include "reminders/figyel_rec.h"
#include "repairs/repair.h"
#include "settings/lookup_list.h"
#include "settings/start_settings.h"
#include "settings/vehicles.h"
#include "tyres/tyre_set.h"

namespace tarvik {
namespace {

// "offset width name" of each field that the page of a file names, in the page's order.
std::vector<std::string> fieldsOnPage(const std::string& page) {
  std::ifstream text(std::filesystem::path(TARVIK_FORMATS) / page);
  std::vector<std::string> fields;
  for (std::string line; std::getline(text, line);) {
    int offset = 0;
    int width = 0;
    std::array<char, 40> name{};
    if (std::sscanf(line.c_str(), "| %d | %d | `%39[A-Za-z]`", &offset, &width, name.data()) == 3)
      fields.push_back(std::to_string(offset) + " " + std::to_string(width) + " " + name.data());
  }
  return fields;
}

template <typename R>
std::vector<std::string> fieldsOf() {
  std::vector<std::string> fields;
  core::eachField<R>([&](const auto& field, std::size_t offset) {
    fields.push_back(std::to_string(offset) + " " + std::to_string(field.kWidth) + " " + field.name);
  });
  return fields;
}

TEST(FormatPages, NameEachFieldAtItsPlace) {
  EXPECT_EQ(fieldsOnPage("napiadat.md"), fieldsOf<core::NapiAdat>());
  EXPECT_EQ(fieldsOnPage("figyel.md"), fieldsOf<reminders::FigyelRec>());
  EXPECT_EQ(fieldsOnPage("figyDatum.md"), fieldsOf<reminders::FigyDatumRec>());
  EXPECT_EQ(fieldsOnPage("Gumik.md"), fieldsOf<tyres::TyreSet>());
  EXPECT_EQ(fieldsOnPage("Szerviz.md"), fieldsOf<repairs::Repair>());
  EXPECT_EQ(fieldsOnPage("rendsz.md"), fieldsOf<settings::Vehicle>());
  EXPECT_EQ(fieldsOnPage("alkatr.md"), fieldsOf<settings::LookupText>());
  EXPECT_EQ(fieldsOnPage("megjegyz.md"), fieldsOf<settings::LookupText>());
  EXPECT_EQ(fieldsOnPage("set.md"), fieldsOf<settings::SetRecord>());
}

}  // namespace
}  // namespace tarvik
