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

TEST(LookupTextRecord, ReadsBackWhatItWrote) {
  const LookupText written{.text = core::FixedText<50>(" Olajszűrő ")};
  EXPECT_EQ(core::decoded<LookupText>(core::encoded(written)), written);
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

TEST_F(LookupListTest, ATextOfFiftyCharactersIsWholeAndOneOfFiftyOneLosesItsLast) {
  std::string letters;
  for (int i = 0; i < 49; ++i) letters += "ő";
  append(kNotes, letters + "ű");
  append(kNotes, letters + "űx");
  const std::string stored = std::string(49, '\xF5') + "\xFB";
  EXPECT_EQ(current_.read("megjegyz.dat"), stored + stored);
}

TEST_F(LookupListTest, DeletingClosesTheGapAndLeavesNoTemporaryFile) {
  for (const char* text : {"A", "B", "C"}) append(kPartNames, text);
  remove(kPartNames, 2);
  EXPECT_EQ(current_.read("alkatr.dat"), padded("A", kWidth) + padded("C", kWidth));
  EXPECT_THAT(current_.names(), ElementsAre("alkatr.dat"));
}

TEST_F(LookupListTest, DeletingTheOnlyEntryLeavesAnEmptyFile) {
  append(kNotes, "A");
  remove(kNotes, 1);
  EXPECT_EQ(current_.read("megjegyz.dat"), "");
}

TEST_F(LookupListTest, DeletingWithoutASelectionLeavesTheListAsItIs) {
  append(kNotes, "A");
  remove(kNotes, 0);
  EXPECT_EQ(current_.read("megjegyz.dat"), padded("A", kWidth));
}

TEST_F(LookupListTest, EachDeletionHasItsOwnTemporaryFile) {
  append(kPartNames, "A");
  append(kNotes, "B");
  current_.write("alkx.dat", padded("old part", kWidth));
  current_.write("megjx.dat", padded("old note", kWidth));
  remove(kPartNames, 1);
  EXPECT_EQ(current_.read("alkatr.dat"), padded("old part", kWidth));
  EXPECT_THAT(current_.names(), ElementsAre("alkatr.dat", "megjegyz.dat", "megjx.dat"));
  remove(kNotes, 1);
  EXPECT_EQ(current_.read("megjegyz.dat"), padded("old note", kWidth));
  EXPECT_THAT(current_.names(), ElementsAre("alkatr.dat", "megjegyz.dat"));
}

TEST_F(LookupListTest, AListThatIsAFolderFailsAndNothingIsChanged) {
  current_.makeFolder("alkatr.dat");
  EXPECT_THROW(loadLookupTexts(files_, folders_, kPartNames), core::Failure);
  EXPECT_THROW(append(kPartNames, "A"), core::Failure);
  EXPECT_THROW(remove(kPartNames, 1), core::Failure);
  EXPECT_THAT(current_.names(), ElementsAre("alkatr.dat"));
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
