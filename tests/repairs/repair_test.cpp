#include "repairs/repair.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::repairs {
namespace {

using test::padded;

Repair sample() {
  return {.plate = core::FixedText<10>("ABC-123"),
          .date = 41'460,  // 5 July 2013 = 0x40E43E8000000000
          .description = core::FixedText<80>("Fékbetét csere elöl"),
          .part = core::FixedText<80>("Első fékbetét"),
          .costFt = 24'500,       // 0x00005FB4
          .readingKm = 132'450};  // 0x00020562
}

std::string sampleBytes() {
  return padded("ABC-123", 10) + std::string("\x00\x00\x00\x00\x80\x3E\xE4\x40", 8) +
         padded("F\xE9kbet\xE9t csere el\xF6l", 80) + padded("Els\xF5 f\xE9kbet\xE9t", 80) +
         std::string("\xB4\x5F\x00\x00", 4) + std::string("\x62\x05\x02\x00", 4);
}

TEST(RepairRecord, HasThese186Bytes) {
  EXPECT_EQ(sampleBytes().size(), 186U);
  EXPECT_EQ(test::textOf(core::encoded(sample())), sampleBytes());
}

TEST(RepairRecord, ReadsBackWhatItWrote) {
  EXPECT_EQ(core::decoded<Repair>(core::encoded(sample())), sample());
}

}  // namespace
}  // namespace tarvik::repairs
