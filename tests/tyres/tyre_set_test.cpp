#include "tyres/tyre_set.h"

#include <gtest/gtest.h>

#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::tyres {
namespace {

using test::padded;

TyreSet sample() {
  return {.plate = core::FixedText<10>("ABC-123"),
          .kmWhenFitted = 120'000,  // 0x0001D4C0
          .season = kAllSeason,
          .type = core::FixedText<30>("Téli őrző"),
          .size = core::FixedText<15>("195/65 R15"),
          .maxKm = 40'000,  // 0x00009C40
          .onCar = kFitted,
          .kmRun = -2};
}

std::string sampleBytes() {
  return padded("ABC-123", 10) + std::string("\xC0\xD4\x01\x00", 4) + std::string("\x02\x00", 2) +
         padded("T\xE9li \xF5rz\xF5", 30) + padded("195/65 R15", 15) + std::string("\x40\x9C\x00\x00", 4) +
         std::string("\x01\x00", 2) + std::string("\xFE\xFF\xFF\xFF", 4);
}

TEST(TyreSetRecord, HasTheseSeventyOneBytes) {
  EXPECT_EQ(sampleBytes().size(), 71U);
  EXPECT_EQ(test::textOf(core::encoded(sample())), sampleBytes());
}

TEST(TyreSetRecord, ReadsBackWhatItWrote) {
  EXPECT_EQ(core::decoded<TyreSet>(core::encoded(sample())), sample());
}

}  // namespace
}  // namespace tarvik::tyres
