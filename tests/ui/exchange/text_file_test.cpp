#include "ui/exchange/text_file.h"

#include <QTest>
#include <cerrno>
#include <filesystem>

#include "core/failure.h"
#include "core/machine_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

QString decoded(const QByteArray& bytes) {
  return QString::fromStdString(decodedText(bytes));
}

}  // namespace

class TextFileTest : public QObject {
  Q_OBJECT

 private slots:
  void aMarkSaysTheEncoding() {
    QCOMPARE(decoded("\xEF\xBB\xBF\xC5\x91"), "ő");
    QCOMPARE(decoded(QByteArray("\xFF\xFE\x51\x01\x61\x00", 6)), "őa");
    QCOMPARE(decoded(QByteArray("\xFE\xFF\x01\x51\x00\x61", 6)), "őa");
  }

  void withoutAMarkUtf8IsWhatIsWellFormed() {
    QCOMPARE(decoded(""), "");
    QCOMPARE(decoded("Km \xC5\x91r"), "Km őr");
    QCOMPARE(decoded("Vid\xE9"), "Vidé");  // half a letter: Windows-1250
    for (const char* letter : {"\u0080", "\u07FF", "\u0800", "\uFFFD", "\U00010000", "\U0010FFFF"})
      QCOMPARE(decoded(letter), QString::fromUtf8(letter));  // the first and the last of two to four bytes
  }

  void oneDamagedLetterDoesNotMakeItAnotherEncoding() {
    QCOMPARE(decoded("K\xC3\xA9k \xC5\x91r \xE9 j\xC3\xB3"), QString::fromUtf8("Kék őr \uFFFD jó"));
    QCOMPARE(encodingOf("K\xE9k \xF5r j\xF3"), Encoding::Windows1250);
  }

  void cyrillicLettersAreGuessedByHowTheyFollowEachOther() {
    const QByteArray bytes(
        "\xC4\xE0\xF2\xE0;\xCF\xF0\xEE\xE1\xE5\xE3;\xCB\xE8\xF2\xF0\xFB;\xD1\xF2\xEE\xE8\xEC\xEE\xF1\xF2\xFC;"
        "\xCF\xEE\xEB\xED\xFB\xE9 \xE1\xE0\xEA;\xCA\xEE\xEC\xEC\xE5\xED\xF2\xE0\xF0\xE8\xE9");
    QCOMPARE(encodingOf(bytes), Encoding::Windows1251);
    QCOMPARE(decoded(bytes), QString::fromUtf8("Дата;Пробег;Литры;Стоимость;Полный бак;Комментарий"));
  }

  void otherSystemsAreGuessedByTheirLettersToo() {
    const std::tuple<Encoding, QByteArray, const char*> texts[] = {
        {Encoding::Koi8, "\xE4\xC1\xD4\xC1;\xEC\xC9\xD4\xD2\xD9;\xF0\xCF\xCC\xCE\xD9\xCA \xC2\xC1\xCB",
         "Дата;Литры;Полный бак"},
        {Encoding::Dos852,
         "Datum;Litry;Pln\xA0 n\xA0"
         "dr\xA7",
         "Datum;Litry;Plná nádrž"},
        {Encoding::Latin2,
         "Pln\xE1 n\xE1"
         "dr\xBE;V\xFDm\xECna oleje",
         "Plná nádrž;Výměna oleje"},
        {Encoding::Windows1250, "Mennyis\xE9g;taxi", "Mennyiség;taxi"}};  // the same letters in Latin 2
    for (const auto& [encoding, bytes, text] : texts) {
      QCOMPARE(encodingOf(bytes), encoding);
      QCOMPARE(decoded(bytes), text);
    }
  }

  void everyEncodingCanBeChosen() {
    const auto as = [](Encoding encoding, const char* bytes) {
      return QString::fromStdString(decodedText(bytes, encoding));
    };
    QCOMPARE(as(Encoding::Latin2, "\xF5\xFB"), QString::fromUtf8("őű"));
    QCOMPARE(as(Encoding::Dos852, "\x8B\xFB"), QString::fromUtf8("őű"));
    QCOMPARE(as(Encoding::Koi8, "\xC1"), QString::fromUtf8("а"));
    QCOMPARE(as(Encoding::Windows1252, "\x80"), QString::fromUtf8("€"));
  }

  void zeroBytesInEveryOtherPlaceAreUtf16() {
    QCOMPARE(decoded(QByteArray("a\0b\0;\0\x51\x01", 8)), "ab;ő");
    QCOMPARE(decoded(QByteArray("\0a\0b\0;\x01\x51", 8)), "ab;ő");
  }

  void aQuarterOfZeroBytesIsNotEnough() {
    const QByteArray little("a\0\x51\x01z\0\x51\x01", 8);
    QCOMPARE(decoded(little), QString::fromUtf8(little));
    const QByteArray big("\0a\x01\x51\0z\x01\x51", 8);
    QCOMPARE(decoded(big), QString::fromUtf8(big));
  }

  void aSixteenthOfZeroBytesMayStandInTheOtherPlaces() {
    const QByteArray letters = QByteArray("a\0", 2).repeated(15);
    const QByteArray zero("\0\0", 2);
    QCOMPARE(decoded(letters + zero), QString(15, 'a') + QChar(u'\0'));  // 16 on one side, 1 on the other
    const QByteArray fewer = letters.chopped(2) + zero;
    QCOMPARE(decoded(fewer), QString::fromUtf8(fewer));
    const QByteArray turned = QByteArray("\0a", 2).repeated(15);
    QCOMPARE(decoded(turned + zero), QString(15, 'a') + QChar(u'\0'));
    const QByteArray fewerTurned = turned.chopped(2) + zero;
    QCOMPARE(decoded(fewerTurned), QString::fromUtf8(fewerTurned));
  }

  void lettersOfCentralEuropeAreWindows1250() {
    QCOMPARE(decoded("\xF5t\xFBz \xE1"), "őtűz á");
    QCOMPARE(decoded("taxi \xF0"), "taxi đ");
    QCOMPARE(decoded("Stra\xDF"
                     "e \x80"),
             "Straße €");
  }

  void lettersOfTheWestAreWindows1252() {
    const std::pair<const char*, const char*> letters[] = {
        {"\xA3", "£"}, {"\xC0", "À"}, {"\xCA", "Ê"}, {"\xD1", "Ñ"}, {"\xE0", "à"},
        {"\xE3", "ã"}, {"\xE5", "å"}, {"\xE6", "æ"}, {"\xEA", "ê"}, {"\xF1", "ñ"},
        {"\xF2", "ò"}, {"\xC5", "Å"}, {"\xC6", "Æ"}};
    QCOMPARE(decoded("taxi \xA3"), "taxi £");
    for (const auto& [bytes, text] : letters) QCOMPARE(decoded(QByteArray(bytes) + " "), QString(text) + " ");
  }

  void aSingleLetterOfCentralEuropeMakesTheWholeTextWindows1250() {
    for (const char* letter :
         {"\xF5", "\xFB", "\xD5", "\xDB", "\xB3", "\xB9", "\x9C", "\x9D", "\x8D", "\xBF", "\xBE", "\x8F"})
      QVERIFY2(decoded(QByteArray("\xA3 ") + letter).startsWith("Ł "), letter);
  }

  void theSignsOfWindows1252AreTheirs() {
    const std::pair<const char*, const char*> rows[] = {
        {"\x80\x82\x83\x84\x85\x86\x87", "€‚ƒ„…†‡"},
        {"\x88\x89\x8A\x8B\x8C\x8E", "ˆ‰Š‹ŒŽ"},
        {"\x91\x92\x93\x94\x95\x96\x97", "‘’“”•–—"},
        {"\x98\x99\x9A\x9B\x9E\x9F\xA0\x7F", "˜™š›žŸ\u00a0\u007f"},
        {"\x81\x90", "\ufffd\ufffd"}};  // nothing has these
    for (const auto& [bytes, text] : rows)
      QCOMPARE(decoded(QByteArray("\xA3") + bytes), QStringLiteral("£") + QString::fromUtf8(text));
  }

  void aFileIsReadAsItIs() {
    const test::TemporaryFolder folder;
    core::MachineFileSystem files;
    folder.write("log.csv", "\xF5r;1\n");
    const TextFile read = readTextFile(files, folder / "log.csv");
    QCOMPARE(read.fault, TextFile::Fault::None);
    QCOMPARE(read.size, 5);
    QCOMPARE(decodedText(read.bytes), std::string("őr;1\n"));
    folder.write("empty.csv", "");
    QCOMPARE(readTextFile(files, folder / "empty.csv").fault, TextFile::Fault::None);
  }

  void zeroBytesAreNoText() {
    const test::TemporaryFolder folder;
    core::MachineFileSystem files;
    folder.write("log.csv", std::string("abcdefgh\0i", 10));
    QCOMPARE(readTextFile(files, folder / "log.csv").fault, TextFile::Fault::NotText);
  }

  void aFileOf32MegabytesIsReadAndAByteMoreIsNot() {
    const test::TemporaryFolder folder;
    core::MachineFileSystem files;
    constexpr std::int64_t kMost = 33'554'432;
    folder.write("log.csv", std::string(kMost, 'a'));
    const TextFile read = readTextFile(files, folder / "log.csv");
    QCOMPARE(read.fault, TextFile::Fault::None);
    QCOMPARE(read.size, kMost);
    QCOMPARE(static_cast<std::int64_t>(read.bytes.size()), kMost);
    std::filesystem::resize_file(folder / "log.csv", kMost + 1);
    const TextFile refused = readTextFile(files, folder / "log.csv");
    QCOMPARE(refused.fault, TextFile::Fault::TooLarge);
    QCOMPARE(refused.size, kMost + 1);
    QVERIFY(refused.bytes.isEmpty());
  }

  void aFileThatIsGoneIsToldAsOne() {
    const test::TemporaryFolder folder;
    core::MachineFileSystem files;
    try {
      readTextFile(files, folder / "log.csv");
      QFAIL("it was read");
    } catch (const core::Failure& failure) {
      QCOMPARE(failure.kind(), core::FailureKind::OpenFailed);
      QCOMPARE(failure.systemError(), ENOENT);
      QCOMPARE(failure.file(), folder / "log.csv");
    }
  }
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::TextFileTest)
#include "text_file_test.moc"
