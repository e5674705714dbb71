#include "settings/lookup_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/failure.h"
#include "core/machine_file_system.h"
#include "tests/support/bytes.h"
#include "tests/support/temporary_folder.h"

namespace tarvik::settings {
namespace {

using test::padded;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::size_t kWidth = 50;

class LookupListTest : public testing::Test {
 protected:
  void append(const LookupFile& list, std::string_view text) {
    appendLookupText(files_, folders_, list, text);
  }
  void remove(const LookupFile& list, int number) {
    removeLookupText(files_, folders_, list, loadLookupTexts(files_, folders_, list).seen(number));
  }

  test::TemporaryFolder program_;
  test::TemporaryFolder current_;
  core::MachineFileSystem files_;
  core::DataFolders folders_{program_.path(), current_.path()};
};

LookupTexts listOf(std::initializer_list<const char*> texts) {
  std::vector<LookupText> records;
  for (const char* text : texts) records.push_back({.text = core::FixedText<50>(text)});
  return LookupTexts::of(records);
}

TEST(LookupTextRecord, HasTheseFiftyBytes) {
  EXPECT_EQ(test::textOf(core::encoded(LookupText{.text = core::FixedText<50>("Szűrő")})),
            padded("Sz\xFBr\xF5", kWidth));
}

TEST_F(LookupListTest, MissingFilesCountAsEmptyListsAndAreCreatedInTheCurrentFolder) {
  EXPECT_EQ(loadLookupTexts(files_, folders_, kPartNames).count(), 0);
  EXPECT_EQ(loadLookupTexts(files_, folders_, kNotes).count(), 0);
  EXPECT_THAT(current_.names(), ElementsAre("alkatr.dat", "megjegyz.dat"));
  EXPECT_THAT(program_.names(), IsEmpty());
}

TEST_F(LookupListTest, ATextIsAppendedAsTypedToItsOwnList) {
  append(kPartNames, " olajszűrő");
  append(kPartNames, "Ékszíj ");
  append(kNotes, "Mosás");
  EXPECT_EQ(current_.read("alkatr.dat"),
            padded(" olajsz\xFBr\xF5", kWidth) + padded("\xC9ksz\xEDj ", kWidth));
  EXPECT_EQ(current_.read("megjegyz.dat"), padded("Mos\xE1s", kWidth));
}

TEST_F(LookupListTest, ADeletionGoesThroughTheListsOwnTemporaryFile) {
  for (const auto& [list, temporary] : {std::pair(kPartNames, "alkx.dat"), std::pair(kNotes, "megjx.dat")}) {
    append(list, "A");
    append(list, "B");
    current_.makeFolder(temporary);
    EXPECT_THROW(remove(list, 1), core::Failure) << temporary;
    EXPECT_EQ(loadLookupTexts(files_, folders_, list).count(), 2) << temporary;
  }
}

TEST(Matching, EveryEntryThatContainsTheNewTextIsFoundInFileOrderAndTrimmedWhateverTheCase) {
  const LookupTexts texts = listOf({" Levegőszűrő", "Gyertya", "SZŰRŐ", "olajszűrő"});
  EXPECT_THAT(matching(texts, "  Szűrő "), ElementsAre("Levegőszűrő", "SZŰRŐ", "olajszűrő"));
  EXPECT_THAT(matching(listOf({"A", "B"}), "  "), ElementsAre("A", "B"));
  EXPECT_THAT(matching(LookupTexts(), "A"), IsEmpty());
}

TEST(Matching, AnEntryThatTheNewTextContainsIsNotFound) {
  EXPECT_THAT(matching(listOf({"SZŰRŐ"}), "Olajszűrő"), IsEmpty());
}

struct TypedNote {
  const char* rule;
  std::initializer_list<const char*> notes;
  const char* before;
  const char* typed;
  std::optional<CompletedNote> completed;
};

TEST(CompletedNote, IsTheLastNoteThatBeginsAsItWasTyped) {
  const TypedNote cases[] = {
      {"the last matching one",
       {"TANKOLÁS", "TANKOLÁS + MOSÁS", "Mosás"},
       "Tank",
       "o",
       {{"TANKOLÁS + MOSÁS", 5}}},
      {"a shorter one that is the last", {"TANKOLÁS + MOSÁS", "TANKOLÁS"}, "", "t", {{"TANKOLÁS", 1}}},
      {"characters are counted, not bytes", {"Őszi gumi"}, "ős", "Z", {{"Őszi gumi", 3}}},
      {"an accent's case is set aside", {"Őszi gumi"}, "", "ő", {{"Őszi gumi", 1}}},
      {"spaces around do not count", {" Mosás"}, "  m", "o", {{"Mosás", 2}}},
      {"a typed space does", {"Tankolás + mosás", "Tankolás"}, "tankolás ", "+", {{"Tankolás + mosás", 10}}},
      {"the space itself", {"Tankolás + mosás", "Tankolás"}, "tankolás", " ", {{"Tankolás + mosás", 9}}},
      {"one that is typed whole", {"Mosás"}, "mosá", "s", {{"Mosás", 5}}},
      {"more than there is", {"Mosás", ""}, "mosás", "s", std::nullopt},
      {"another beginning", {"Mosás", ""}, "", "o", std::nullopt},
      {"no notes", {}, "", "m", std::nullopt}};
  for (const TypedNote& one : cases)
    EXPECT_EQ(completedNote(listOf(one.notes), one.before, one.typed), one.completed) << one.rule;
}

}  // namespace
}  // namespace tarvik::settings
