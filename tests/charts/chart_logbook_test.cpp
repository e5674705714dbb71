#include "charts/chart_logbook.h"

#include <gtest/gtest.h>

#include "core/machine_file_system.h"
#include "entries.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::test {
namespace {

class ChartLogbook : public testing::Test {
 protected:
  core::Logbook load(std::string_view plate) {
    return charts::chartLogbook(files_, {folder_.path(), folder_.path()}, plate);
  }

  TemporaryFolder folder_;
  core::MachineFileSystem files_;
};

TEST_F(ChartLogbook, HasTheEntriesOfTheTrimmedPlate) {
  folder_.makeFolder("ABC123");
  const core::NapiAdat entry = fuelling(stored(2013, 7, 5), 12'000, 5'000);
  folder_.write("ABC123/napiadat.dat", toText(core::encoded(entry)));
  ASSERT_EQ(load(" ABC123  ").count(), 1);
  EXPECT_EQ(load("ABC123").record(1), entry);
}

TEST_F(ChartLogbook, IsEmptyWithoutAUsablePlate) {
  for (const char* plate : {"", "   ", "..", "A/B"}) EXPECT_EQ(load(plate).count(), 0) << plate;
  EXPECT_TRUE(folder_.names().empty());
}

TEST_F(ChartLogbook, IsEmptyWithoutTheFolderAndMakesNone) {
  EXPECT_EQ(load("ABC123").count(), 0);
  EXPECT_TRUE(folder_.names().empty());
}

TEST_F(ChartLogbook, IsEmptyWithoutTheFile) {
  folder_.makeFolder("ABC123");
  EXPECT_EQ(load("ABC123").count(), 0);
}

}  // namespace
}  // namespace tarvik::test
