#include "ui/base/output_file.h"

#include <QTest>
#include <algorithm>
#include <cerrno>

#include "core/machine_file_system.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

// A disk that takes a few bytes at a time, is interrupted first and is full at some point.
class SlowDisk final : public test::ForwardingFileSystem {
 public:
  std::int64_t write(int descriptor, std::span<const std::byte> data, std::int64_t offset) override {
    if (interruptions-- > 0) {
      errno = EINTR;
      return -1;
    }
    if (offset >= capacity) return 0;
    return ForwardingFileSystem::write(descriptor, data.first(std::min<std::size_t>(3, data.size())), offset);
  }

  int interruptions = 2;
  std::int64_t capacity = 1'000;
};

}  // namespace

class OutputFileTest : public QObject {
  Q_OBJECT

 private slots:
  void aCompleteFileTakesItsPlace() {
    test::TemporaryFolder folder;
    folder.write("list.pdf", "old");
    {
      OutputFile file(files_, folder / "list.pdf");
      file.write("new");
      file.commit();
    }
    QCOMPARE(folder.read("list.pdf"), std::string("new"));
    QCOMPARE(folder.names(), std::vector<std::string>{"list.pdf"});
  }

  void whatAnotherProgramHasUnderTheUnfinishedNameStays_data() {
    QTest::addColumn<bool>("completes");
    QTest::newRow("complete") << true;
    QTest::newRow("given up") << false;
  }
  void whatAnotherProgramHasUnderTheUnfinishedNameStays() {
    QFETCH(bool, completes);
    test::TemporaryFolder folder;
    folder.write("list.pdf.part", "a download");
    folder.write("list.pdf.part2", "another");
    {
      OutputFile file(files_, folder / "list.pdf");
      file.write("new");
      if (completes) file.commit();
    }
    QCOMPARE(folder.read("list.pdf.part"), std::string("a download"));
    QCOMPARE(folder.read("list.pdf.part2"), std::string("another"));
    QCOMPARE(folder.names().size(), completes ? std::size_t{3} : std::size_t{2});
  }

  void whatIsWrittenInPiecesAndInterruptedIsWhole() {
    test::TemporaryFolder folder;
    SlowDisk disk;
    OutputFile file(disk, folder / "list.pdf");
    QCOMPARE(file.write("eleven bytes"), qint64{12});
    QCOMPARE(file.write("!"), qint64{1});
    QVERIFY(!file.hasFailed());
    file.commit();
    QCOMPARE(folder.read("list.pdf"), std::string("eleven bytes!"));
  }

  void aDiskThatTakesNothingIsFull() {
    test::TemporaryFolder folder;
    SlowDisk disk;
    disk.capacity = 5;
    {
      OutputFile file(disk, folder / "list.pdf");
      QCOMPARE(file.write("eleven bytes"), qint64{-1});
      QVERIFY(file.hasFailed());
      QCOMPARE(file.write("!"), qint64{-1});
      try {
        file.commit();
        QFAIL("no failure");
      } catch (const core::Failure& failure) {
        QCOMPARE(failure.kind(), core::FailureKind::WriteFailed);
        QCOMPARE(failure.systemError(), ENOSPC);
        QCOMPARE(failure.file(), folder / "list.pdf");
      }
    }
    QVERIFY(folder.names().empty());
  }

  void itIsReadByNobody() {
    test::TemporaryFolder folder;
    OutputFile file(files_, folder / "list.pdf");
    QVERIFY(!file.isReadable());
    QCOMPARE(file.openMode(), QIODevice::WriteOnly | QIODevice::Unbuffered);
  }

  void aHundredNamesAreTriedAndNoMore() {
    test::TemporaryFolder folder;
    folder.write("list.pdf.part", "1");
    for (int number = 2; number <= 99; ++number)
      folder.write("list.pdf.part" + std::to_string(number), "taken");
    { const OutputFile file(files_, folder / "list.pdf"); }
    folder.write("list.pdf.part100", "taken");
    QVERIFY_EXCEPTION_THROWN(OutputFile(files_, folder / "list.pdf"), core::Failure);
  }

 private:
  core::MachineFileSystem files_;
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::OutputFileTest)
#include "output_file_test.moc"
