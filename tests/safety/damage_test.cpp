#include <gtest/gtest.h>

#include "tests/support/looking.h"
#include "tests/support/operations.h"

// Damaged files: nothing that is done with them may crash, hang or be undefined (the sanitizers watch), and
// every record that can be read is shown.

namespace tarvik::test {
namespace {

// A sound file of the kind with so many records, as the operations on that file have it.
std::string soundFile(const RecordKind& kind, int count) {
  for (const Operation& operation : operations(count))
    if (operation.recordLength == kind.length &&
        (kind.name != "DateReminders" || operation.name == "recordDateReminder"))
      return fileOf(operation, count);
  return {};
}

// Reminders without a text are deleted ones and are not shown.
bool showsEveryRecord(const RecordKind& kind) {
  return !kind.name.ends_with("Reminders");
}

class DamageTest : public testing::TestWithParam<RecordKind> {
 protected:
  void look(const std::string& file) const {
    const std::vector<std::string> shown = GetParam().look(file);
    const std::size_t records = std::min<std::size_t>(file.size() / GetParam().length, 32'767);
    if (showsEveryRecord(GetParam())) {
      EXPECT_EQ(shown.size(), records);
    }
    EXPECT_LE(shown.size(), records);
    for (const std::string& text : shown) ASSERT_TRUE(isUtf8(text)) << text;
  }
};

TEST_P(DamageTest, AnyValueOfAnyByte) {
  constexpr int kRecords = 3;
  const std::size_t length = GetParam().length;
  std::string file = soundFile(GetParam(), kRecords);
  ASSERT_EQ(file.size(), length * kRecords);
  for (std::size_t at = length; at < 2 * length; ++at) {
    const char sound = file[at];
    for (int value = 0; value < 256; ++value) {
      file[at] = static_cast<char>(value);
      look(file);
      if (HasFatalFailure()) return;
    }
    file[at] = sound;
  }
}

// One byte of a number rarely makes an extreme one; eight do.
TEST_P(DamageTest, ExtremesOfAnyEightBytes) {
  const std::string extremes[] = {std::string("\0\0\0\0\0\0\0\0", 8),
                                  std::string(8, '\xFF'),
                                  std::string("\xFF\xFF\xFF\xFF\xFF\xFF\xFF\x7F", 8),
                                  std::string("\0\0\0\0\0\0\0\x80", 8),
                                  std::string("\0\0\0\0\0\0\xF0\x7F", 8),
                                  std::string("\xFF\xFF\xFF\x7F\xFF\xFF\xFF\x7F", 8),
                                  std::string("\0\0\0\x80\0\0\0\x80", 8)};
  const std::size_t length = GetParam().length;
  const std::string sound = soundFile(GetParam(), 4);
  for (std::size_t at = length; at + 8 <= 2 * length; ++at)
    for (const std::string& extreme : extremes) {
      std::string file = sound;
      file.replace(at, 8, extreme);
      look(file);
      file.replace(at + length, 8, extreme);
      look(file);
    }
}

TEST_P(DamageTest, AnyLengthOfTwentyRecords) {
  const std::string file = soundFile(GetParam(), 20);
  for (std::size_t length = 0; length <= file.size(); ++length) look(file.substr(0, length));
}

TEST_P(DamageTest, ATailOfZeros) {
  const std::string sound = soundFile(GetParam(), 20);
  for (const std::size_t zeros : {std::size_t{1}, GetParam().length - 1, GetParam().length, std::size_t{512},
                                  std::size_t{4096}, 100 * GetParam().length})
    look(sound + std::string(zeros, '\0'));
  for (std::size_t kept = 0; kept < sound.size(); kept += 97)
    look(sound.substr(0, kept) + std::string(sound.size() - kept, '\0'));
}

TEST_P(DamageTest, AnyCountOfRecords) {
  for (const int count : {0, 1, 32'766, 32'767, 32'768}) look(soundFile(GetParam(), count));
}

INSTANTIATE_TEST_SUITE_P(Files, DamageTest, testing::ValuesIn(recordKinds()),
                         [](const auto& kind) { return kind.param.name; });

}  // namespace
}  // namespace tarvik::test
