#include "core/napi_adat.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <vector>

#include "core/failure.h"
#include "tests/support/expect_failure.h"

namespace tarvik::core {
namespace {

using Bytes = std::vector<std::byte>;

// Two hexadecimal digits a byte, spaces between them ignored.
Bytes fromHex(std::string_view hex) {
  Bytes bytes;
  int digits = 0;
  for (const char c : hex) {
    if (c == ' ') continue;
    const int digit = c <= '9' ? c - '0' : c - 'A' + 10;
    if (++digits % 2 == 1)
      bytes.push_back(static_cast<std::byte>(digit << 4));
    else
      bytes.back() |= static_cast<std::byte>(digit);
  }
  return bytes;
}

std::string spaces(int count) {
  std::string hex;
  for (int i = 0; i < count; ++i) hex += "20";
  return hex;
}

NapiAdat goldenEntry() {
  return {.KmOra = 123'456,
          .Datum = 41'460,
          .Teletank = -1,
          .TankoltLiter = {405'000},
          .TankoltKtg = 17'010,
          .AlkatreszKtg = -2'500,
          .FtPerLiter = {4'200'000},
          .Olajcsere = -1,
          .Szurocsere = 0,
          .Gyertyacsere = 1,
          .Alkatresz = FixedText<50>("Olajszűrő"),
          .MegjKtg = -1,
          .Megjegyzes = FixedText<50>("Árvíztűrő tükörfúrógép"),
          .Fogyasztas = {-75'000}};
}

// The entry above as it lies in a file, worked out by hand from the field encodings.
Bytes goldenBytes() {
  return fromHex(
      "40 E2 01 00"                            // KmOra 123,456 = 1E240 hex
      "00 00 00 00 80 3E E4 40"                // Datum 5 July 2013 = 41,460 = 1.0100 0011 1110 1 × 2^15
      "FF FF"                                  // Teletank set
      "08 2E 06 00 00 00 00 00"                // TankoltLiter 40.5 = 405,000 = 62E08 hex
      "72 42 00 00"                            // TankoltKtg 17,010 = 4272 hex
      "3C F6 FF FF"                            // AlkatreszKtg -2,500 = FFFFFFFF - 9C3 hex
      "40 16 40 00 00 00 00 00"                // FtPerLiter 420 = 4,200,000 = 401640 hex
      "FF FF"                                  // Olajcsere set
      "00 00"                                  // Szurocsere clear
      "01 00"                                  // Gyertyacsere 1, a damaged flag
      "4F 6C 61 6A 73 7A FB 72 F5" +           // Alkatresz "Olajszűrő"
      spaces(41) +                             //
      "FF FF FF FF"                            // MegjKtg -1
      "C1 72 76 ED 7A 74 FB 72 F5 20"          // Megjegyzes "Árvíztűrő "
      "74 FC 6B F6 72 66 FA 72 F3 67 E9 70" +  // "tükörfúrógép"
      spaces(28) +                             //
      "08 DB FE FF FF FF FF FF");              // Fogyasztas -7.5 = -75,000 = -124F8 hex
}

TEST(NapiAdat, GoldenBytesAreWrittenAndRead) {
  ASSERT_EQ(goldenBytes().size(), 156u);
  EXPECT_EQ(encoded(goldenEntry()), goldenBytes());
  EXPECT_EQ(core::decoded<NapiAdat>(goldenBytes()), goldenEntry());
}

TEST(Logbook, KeepsTheOrderOfRecording) {
  const std::array<NapiAdat, 3> entries = {NapiAdat{.KmOra = 30}, NapiAdat{.KmOra = 10},
                                           NapiAdat{.KmOra = 20}};
  const Logbook logbook = Logbook::of(entries);
  ASSERT_EQ(logbook.count(), 3);
  EXPECT_EQ(logbook.record(1).KmOra, 30);
  EXPECT_EQ(logbook.record(2).KmOra, 10);
  EXPECT_EQ(logbook.record(3).KmOra, 20);
}

TEST(Logbook, RecordOutsideItIsZeroBytes) {
  const Logbook logbook = Logbook::of(std::array{goldenEntry()});
  EXPECT_EQ(logbook.record(1), goldenEntry());
  EXPECT_EQ(logbook.record(0), NapiAdat{});
  EXPECT_EQ(logbook.record(-1), NapiAdat{});
  EXPECT_EQ(logbook.record(2), NapiAdat{});
  EXPECT_EQ(Logbook().count(), 0);
  EXPECT_EQ(Logbook().record(1), NapiAdat{});
}

TEST(Logbook, PartialRecordAtTheEndDoesNotCount) {
  ByteBlock block = ByteBlock::ofSize(2 * NapiAdat::kLength - 1);
  std::ranges::fill(block.span(), std::byte{0});
  const Logbook logbook(std::move(block));
  EXPECT_EQ(logbook.count(), 1);
}

TEST(NapiAdatDay, IsTheStoredOneAndADamagedOneIsToldByItsField) {
  NapiAdat entry;
  entry.Datum = 41'460;
  EXPECT_EQ(dayOfEntry(entry), Day{41'460});
  entry.Datum = 1e300;
  test::expectFieldFailure(FailureKind::OutOfRange, "Datum", [&] { dayOfEntry(entry); });
}

}  // namespace
}  // namespace tarvik::core
