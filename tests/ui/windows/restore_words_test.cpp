#include "ui/windows/restore_words.h"

#include <QTest>

#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

const core::DataFolders kFolders{.program = "/program", .current = "/household"};

QString titleOfFile(const core::DataFileKind& kind, const std::string& plate = {}) {
  return titleOf(core::SetFile{kind, plate, {}, {}}, kFolders);
}

QString titleAt(const std::string& place, std::size_t kind) {
  return titleOf(core::SetFile{core::kSharedFiles.at(kind), {}, {}, place}, kFolders);
}

core::SetComparison line(int entries, std::optional<int> now) {
  return {.file = {core::kSharedFiles[0], {}, {}, {}}, .entries = entries, .entriesNow = now};
}

}  // namespace

class RestoreWordsTest : public QObject {
  Q_OBJECT

 private slots:
  void aCopyIsCalledByItsDayOrByItsName() {
    QCOMPARE(titleOf({.name = "2026-03-20", .path = {}, .day = core::Day{46'101}}), "2026.03.20.");
    QCOMPARE(titleOf({.name = "2026-03-20 (2)", .path = {}, .day = core::Day{46'101}}), "2026.03.20. (2)");
    QCOMPARE(titleOf({.name = "regi", .path = {}}), "regi");
  }

  void aFileIsCalledByItsData() {
    const QStringList names{"Gépkocsik",
                            "Gumik",
                            "Javítások, szervizek",
                            "Kilométerhez kötött figyelmeztetések",
                            "Dátumhoz kötött figyelmeztetések",
                            "Alkatrészek",
                            "Megjegyzések",
                            "Indulási beállítások"};
    for (int kind = 0; kind < names.size(); ++kind)
      QCOMPARE(titleOfFile(core::kSharedFiles.at(static_cast<std::size_t>(kind))), names[kind]);
    QCOMPARE(titleOfFile(core::kLogbookFile, "ABC-123"), "ABC-123 naplója");
  }

  void aListBesideTheProgramSaysSoWhereTheHouseholdIsElsewhere() {
    QCOMPARE(titleAt("/program/megjegyz.dat", 6), "Megjegyzések (a program mappájában)");
    QCOMPARE(titleAt("/household/megjegyz.dat", 6), "Megjegyzések");
    QCOMPARE(titleAt("/program/Gumik.dat", 1), "Gumik");
  }

  void aDifferenceIsInEntriesOrInWhatTheyHold() {
    QCOMPARE(differenceOf(line(5, 3)), "2 bejegyzéssel több");
    QCOMPARE(differenceOf(line(3, 5)), "2 bejegyzéssel kevesebb");
    QCOMPARE(differenceOf(line(5, 5)), "ugyanannyi bejegyzés, más tartalommal");
    QCOMPARE(differenceOf(line(5, std::nullopt)), "5 bejegyzés, a mostani nem olvasható");
    core::SetComparison dated = line(5, 3);
    dated.lastDay = core::Day{46'101};
    QCOMPARE(differenceOf(dated), "2 bejegyzéssel több, utolsó nap: 2026.03.20.");
    dated.isSame = true;
    QCOMPARE(differenceOf(dated), "ugyanaz");
  }

  void aDamagedFileSaysWhatItCanGive() {
    core::SetComparison cut = line(5, 3);
    cut.state = core::SetFileState::Damaged;
    QCOMPARE(differenceOf(cut), "sérült: csonka tétel van a végén; 2 bejegyzéssel több");
    cut.state = core::SetFileState::Unreadable;
    QCOMPARE(differenceOf(cut), "sérült: nem olvasható");
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::RestoreWordsTest)
#include "restore_words_test.moc"
