#include <gtest/gtest.h>

#include "reminders/reminder_row.h"
#include "tests/reminders/builders.h"
#include "tests/support/bytes.h"
#include "tests/support/expect_failure.h"

namespace tarvik::reminders {
namespace {

using test::padded;

TEST(FigyelRecBytes, AreThese68) {
  const FigyelRec reminder{.KmMulva = 5000,
                           .KmAllas = 123456,
                           .RogzDatum = core::FixedText<10>("2013.07.05."),
                           .Szoveg = core::FixedText<40>("Fűtő, őszi"),
                           .Rendszam = core::FixedText<10>("ABC-123")};
  const std::string expected = std::string("\x88\x13\x00\x00\x40\xE2\x01\x00", 8) + "2013.07.05" +
                               padded("F\xFBt\xF5, \xF5szi", 40) + "ABC-123   ";
  EXPECT_EQ(expected.size(), 68U);
  EXPECT_EQ(test::textOf(core::encoded(reminder)), expected);
  EXPECT_EQ(core::decoded<FigyelRec>(core::encoded(reminder)), reminder);
}

TEST(FigyelRecBytes, KeepNegativeFigures) {
  const FigyelRec reminder = test::kmReminder(-1, -2, "x", "A");
  EXPECT_EQ(test::textOf(core::encoded(reminder)).substr(0, 8), "\xFE\xFF\xFF\xFF\xFF\xFF\xFF\xFF");
  EXPECT_EQ(core::decoded<FigyelRec>(core::encoded(reminder)), reminder);
}

TEST(FigyDatumRecBytes, AreThese68) {
  const FigyDatumRec reminder{.Mikor = 41460.0,
                              .Beirva = core::FixedText<10>("2013.06.01."),
                              .Szoveg = core::FixedText<40>("Műszaki"),
                              .Rendszam = core::FixedText<10>("ABC-123")};
  const std::string expected = std::string("\x00\x00\x00\x00\x80\x3E\xE4\x40", 8) + "2013.06.01" +
                               padded("M\xFBszaki", 40) + "ABC-123   ";
  EXPECT_EQ(expected.size(), 68U);
  EXPECT_EQ(test::textOf(core::encoded(reminder)), expected);
  EXPECT_EQ(core::decoded<FigyDatumRec>(core::encoded(reminder)), reminder);
}

TEST(RecordNumber, IsReadFromTheHiddenText) {
  EXPECT_EQ(recordNumber("1"), 1);
  EXPECT_EQ(recordNumber("32767"), 32767);
  EXPECT_EQ(recordNumber(" "), 0);
  EXPECT_EQ(recordNumber(""), 0);
  test::expectFailure(core::FailureKind::OutOfRange, [] { recordNumber("32768"); });
}

TEST(GroupedNumber, HasSpacesBetweenThrees) {
  EXPECT_EQ(grouped(0), "");
  EXPECT_EQ(grouped(999), "999");
  EXPECT_EQ(grouped(12500), "12 500");
  EXPECT_EQ(grouped(-1500), "-1 500");
  EXPECT_EQ(grouped(123456789), "123 456 789");
  EXPECT_EQ(grouped(2147483647), "2147 483 647");
}

}  // namespace
}  // namespace tarvik::reminders
