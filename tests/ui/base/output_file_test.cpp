#include "ui/base/output_file.h"

#include <sys/stat.h>

#include <QTest>
#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <functional>
#include <optional>
#include <utility>

#include "core/machine_file_system.h"
#include "tests/support/forwarding_file_system.h"
#include "tests/support/posix_device.h"
#include "tests/support/temporary_folder.h"
#include "tests/ui/screen_test.h"

namespace tarvik::ui {
namespace {

namespace fs = std::filesystem;

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

// A disk on which nothing goes any more once the program is dead; its locks went with it.
class KillableDisk final : public test::ForwardingFileSystem {
 public:
  int remove(const std::string& path) override {
    return std::exchange(isDead, false) ? 0 : ForwardingFileSystem::remove(path);
  }
  bool isDead = false;
};

// A disk on which another program takes a new file for a leftover as soon as it is there.
class NameThief final : public test::ForwardingFileSystem {
 public:
  explicit NameThief(const test::TemporaryFolder& folder) : folder_(folder) {}
  int tryLock(int descriptor) override {
    fs::remove(folder_ / "tarvik.part");
    folder_.write("tarvik.part", "of another program");
    return ForwardingFileSystem::tryLock(descriptor);
  }

 private:
  const test::TemporaryFolder& folder_;
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

  void whatAKilledProgramLeftGoesWithTheNextDocumentOfTheFolder() {
    test::TemporaryFolder folder;
    folder.write("list.pdf.part", "a download");
    for (const char* text : {"new", "newer"}) {
      folder.write("tarvik.part", "half a doc");
      write(folder / "other.csv", text);
      QCOMPARE(folder.read("other.csv"), std::string(text));
    }
    QCOMPARE(folder.names(), (std::vector<std::string>{"list.pdf.part", "other.csv"}));
    QCOMPARE(folder.read("list.pdf.part"), std::string("a download"));
  }

  void aKilledProgramLeavesOneUnfinishedFile() {
    test::TemporaryFolder folder;
    KillableDisk disk;
    for (const char* name : {"one.pdf", "two.pdf"}) {
      OutputFile file(disk, folder / name);
      file.write("half");
      disk.isDead = true;  // what it still does reaches no disk
      file.close();
    }
    QCOMPARE(folder.names(), std::vector<std::string>{"tarvik.part"});
  }

  void twoDocumentsInOneFolderAreNotMixed() {
    test::TemporaryFolder folder;
    OutputFile first(files_, folder / "one.pdf");
    first.write("first");
    QCOMPARE(failureOf([&] { write(folder / "two.pdf", "second"); }), core::FailureKind::FileBusy);
    first.commit();
    write(folder / "two.pdf", "second");
    QCOMPARE(folder.read("one.pdf"), std::string("first"));
    QCOMPARE(folder.read("two.pdf"), std::string("second"));
  }

  void whatTookTheUnfinishedFilesNameIsNotGivenToTheDocument() {
    test::TemporaryFolder folder;
    NameThief disk(folder);
    QCOMPARE(failureOf([&] { OutputFile(disk, folder / "list.pdf"); }), core::FailureKind::FileBusy);
    QCOMPARE(folder.read("tarvik.part"), std::string("of another program"));
  }

  void theFileBehindALinkIsReplacedAndTheLinkStays() {
    test::TemporaryFolder folder;
    folder.makeFolder("far");
    folder.write("far/list.pdf", "old");
    fs::create_symlink("far/list.pdf", folder / "link.pdf");
    write(folder / "link.pdf", "new");
    QCOMPARE(folder.read("far/list.pdf"), std::string("new"));
    QVERIFY(fs::is_symlink(folder / "link.pdf"));
    QCOMPARE(folder.names(), (std::vector<std::string>{"far", "far/list.pdf", "link.pdf"}));
  }

  void whatIsNoFileIsRefusedAndStays_data() {
    QTest::addColumn<QString>("what");
    QTest::addColumn<int>("kind");
    QTest::newRow("a pipe") << "pipe" << int(core::FailureKind::NotAFile);
    QTest::newRow("a link to a device") << "device" << int(core::FailureKind::NotAFile);
    QTest::newRow("a link to nothing") << "nowhere" << int(core::FailureKind::NotOwnFile);
    QTest::newRow("a folder") << "folder" << int(core::FailureKind::OpenFailed);
    QTest::newRow("a file that nobody may write") << "readonly" << int(core::FailureKind::OpenFailed);
    QTest::newRow("a path through a file") << "readonly/list.pdf" << int(core::FailureKind::OpenFailed);
  }
  void whatIsNoFileIsRefusedAndStays() {
    QFETCH(QString, what);
    QFETCH(int, kind);
    test::TemporaryFolder folder;
    QCOMPARE(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    test::makeDevice(folder / "taker");
    fs::create_symlink("taker", folder / "device");
    fs::create_symlink("gone", folder / "nowhere");
    folder.makeFolder("folder");
    folder.write("readonly", "old");
    fs::permissions(folder / "readonly", fs::perms{0444});
    const auto before = folder.names();
    const auto refused = failureOf([&] { write(folder / what.toStdString(), "new"); });
    QVERIFY(refused.has_value());
    QCOMPARE(int(*refused), kind);
    QCOMPARE(folder.names(), before);
    QCOMPARE(folder.read("readonly"), std::string("old"));
  }

  void theBitsOfWhatIsReplacedStayAndNobodyElseReadsItBefore() {
    test::TemporaryFolder folder;
    folder.write("list.pdf", "old");
    for (const unsigned bits : {0640U, 0666U, 0600U}) {
      fs::permissions(folder / "list.pdf", fs::perms{bits});
      OutputFile file(files_, folder / "list.pdf");
      file.write("new");
      QCOMPARE(unsigned(fs::status(folder / "tarvik.part").permissions()), 0600U);
      file.commit();
      QCOMPARE(unsigned(fs::status(folder / "list.pdf").permissions()), bits);
    }
  }

  void aNameOf255BytesIsWritten() {
    test::TemporaryFolder folder;
    const std::string name = QString(251, QLatin1Char('x')).append(".pdf").toStdString();
    write(folder / name, "old");
    write(folder / name, "new");
    QCOMPARE(folder.read(name), std::string("new"));
    QCOMPARE(folder.names(), std::vector<std::string>{name});
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

 private:
  void write(const std::string& path, const char* text) {
    OutputFile file(files_, path);
    file.write(text);
    file.commit();
  }
  static std::optional<core::FailureKind> failureOf(const std::function<void()>& act) {
    try {
      act();
      return std::nullopt;
    } catch (const core::Failure& failure) {
      return failure.kind();
    }
  }

  core::MachineFileSystem files_;
};

}  // namespace tarvik::ui

TARVIK_SCREEN_TEST(tarvik::ui::OutputFileTest)
#include "output_file_test.moc"
