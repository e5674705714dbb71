#include "settings/lookup_list.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <vector>

#include "core/failure.h"
#include "core/machine_file_system.h"
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
  EXPECT_EQ(test::toText(core::encoded(LookupText{.text = core::FixedText<50>("Szűrő")})),
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

TEST(Matching, AnEntryThatContainsTheNewTextIsFoundWhateverTheCase) {
  EXPECT_THAT(matching(listOf({"OLAJSZŰRŐ BETÉT", "Ékszíj"}), "szűrő"), ElementsAre("OLAJSZŰRŐ BETÉT"));
}

TEST(Matching, AnEntryThatTheNewTextContainsIsNotFound) {
  EXPECT_THAT(matching(listOf({"SZŰRŐ"}), "Olajszűrő"), IsEmpty());
}

TEST(Matching, EveryMatchIsFoundInFileOrderAndTrimmed) {
  const LookupTexts texts = listOf({" Levegőszűrő", "Gyertya", "SZŰRŐ", "olajszűrő"});
  EXPECT_THAT(matching(texts, "  Szűrő "), ElementsAre("Levegőszűrő", "SZŰRŐ", "olajszűrő"));
}

TEST(Matching, ABlankNewTextIsContainedInEveryEntry) {
  EXPECT_THAT(matching(listOf({"A", "B"}), "  "), ElementsAre("A", "B"));
}

TEST(Matching, AnEmptyListHasNoMatch) {
  EXPECT_THAT(matching(LookupTexts(), "A"), IsEmpty());
}

TEST(CompletedNoteOf, TheLastMatchingNoteWins) {
  const LookupTexts notes = listOf({"TANKOLÁS", "TANKOLÁS + MOSÁS", "Mosás"});
  EXPECT_EQ(completedNote(notes, "Tank", "o"), (CompletedNote{"TANKOLÁS + MOSÁS", 5}));
}

TEST(CompletedNoteOf, AShorterNoteWinsWhenItIsTheLastOne) {
  const LookupTexts notes = listOf({"TANKOLÁS + MOSÁS", "TANKOLÁS"});
  EXPECT_EQ(completedNote(notes, "", "t"), (CompletedNote{"TANKOLÁS", 1}));
}

TEST(CompletedNoteOf, CaseIsSetAsideForAccentsTooAndCharactersAreCountedNotBytes) {
  const LookupTexts notes = listOf({"Őszi gumi"});
  EXPECT_EQ(completedNote(notes, "ős", "Z"), (CompletedNote{"Őszi gumi", 3}));
  EXPECT_EQ(completedNote(notes, "", "ő"), (CompletedNote{"Őszi gumi", 1}));
}

TEST(CompletedNoteOf, SpacesAroundTheTypedTextAndTheNoteDoNotCount) {
  EXPECT_EQ(completedNote(listOf({" Mosás"}), "  m", "o"), (CompletedNote{"Mosás", 2}));
}

TEST(CompletedNoteOf, ASpaceThatIsTypedBelongsToTheBeginning) {
  const LookupTexts notes = listOf({"Tankolás + mosás", "Tankolás"});
  EXPECT_EQ(completedNote(notes, "tankolás ", "+"), (CompletedNote{"Tankolás + mosás", 10}));
  EXPECT_EQ(completedNote(notes, "tankolás", " "), (CompletedNote{"Tankolás + mosás", 9}));
}

TEST(CompletedNoteOf, ANoteTypedWholeIsGivenWithNothingLeft) {
  EXPECT_EQ(completedNote(listOf({"Mosás"}), "mosá", "s"), (CompletedNote{"Mosás", 5}));
}

TEST(CompletedNoteOf, WithoutAMatchThereIsNone) {
  const LookupTexts notes = listOf({"Mosás", ""});
  EXPECT_EQ(completedNote(notes, "mosás", "s"), std::nullopt);
  EXPECT_EQ(completedNote(notes, "", "o"), std::nullopt);
  EXPECT_EQ(completedNote(LookupTexts(), "", "m"), std::nullopt);
}

}  // namespace
}  // namespace tarvik::settings
