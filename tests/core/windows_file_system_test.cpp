#include <gtest/gtest.h>
#include <windows.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>

#include "core/machine_file_system.h"
#include "core/record_file.h"
#include "core/windows_errors.h"
#include "core/windows_paths.h"
#include "tests/support/expect_failure.h"
#include "tests/support/temporary_folder.h"

// The file system of Windows: names, sharing, locks and replacing beside other programs.

namespace tarvik::core {
namespace {

using test::expectFailure;
using test::expectSystemFailure;

constexpr std::size_t kLength = 4;
constexpr DWORD kAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

std::span<const std::byte> bytes(std::string_view text) {
  return std::as_bytes(std::span(text.data(), text.size()));
}

// A file as another program holds it open.
class OtherProgram {
 public:
  OtherProgram(const std::string& path, DWORD share)
      : file_(CreateFileW(std::filesystem::path(path).c_str(), GENERIC_READ, share, nullptr, OPEN_EXISTING, 0,
                          nullptr)) {}
  ~OtherProgram() { CloseHandle(file_); }
  OtherProgram(const OtherProgram&) = delete;
  OtherProgram& operator=(const OtherProgram&) = delete;

  bool isOpen() const { return file_ != INVALID_HANDLE_VALUE; }
  std::string read() const {
    std::string contents(100, '\0');
    DWORD got = 0;
    SetFilePointer(file_, 0, nullptr, FILE_BEGIN);
    if (!ReadFile(file_, contents.data(), 100, &got, nullptr)) return "cannot be read";
    return contents.substr(0, got);
  }

 private:
  HANDLE file_;
};

class WindowsFileSystemTest : public testing::Test {
 protected:
  OpenFile opened(const std::string& path, OpenMode mode) {
    return OpenFile(files_, files_.open(path, mode));
  }
  // The errno of a file that cannot be opened.
  int errorOf(const std::string& path, OpenMode mode) {
    EXPECT_EQ(files_.open(path, mode), -1) << path;
    return errno;
  }
  void rewrite(std::string_view record) {
    RecordFile file(files_, path_, kLength);
    file.rewrite(file.seen(1), bytes(record));
  }

  test::TemporaryFolder folder_;
  MachineFileSystem files_;
  std::string path_ = folder_ / "data.dat";
};

using Names = std::vector<std::string>;

TEST_F(WindowsFileSystemTest, ErrorsAreTheNumbersThatTheProgramKnows) {
  folder_.makeFolder("folder");
  folder_.write("data.dat", "AAAA");
  EXPECT_EQ(errorOf(folder_ / "gone", OpenMode::Read), ENOENT);
  EXPECT_EQ(errorOf(folder_ / "gone/gone", OpenMode::Create), ENOENT);
  EXPECT_EQ(errorOf(path_, OpenMode::CreateNew), EEXIST);
  EXPECT_EQ(errorOf(folder_ / "folder", OpenMode::Create), EISDIR);
  EXPECT_EQ(files_.sync(-1), -1);
  EXPECT_EQ(errno, EBADF);
  EXPECT_EQ(files_.makeFolder(folder_ / "folder"), -1);
  EXPECT_EQ(errno, EEXIST);
}

TEST_F(WindowsFileSystemTest, EveryErrorOfADiskHasItsNumber) {
  EXPECT_EQ(errnoOfWindows(ERROR_DISK_FULL), ENOSPC);
  EXPECT_EQ(errnoOfWindows(ERROR_WRITE_PROTECT), EROFS);
  EXPECT_EQ(errnoOfWindows(ERROR_ACCESS_DENIED), EACCES);
  EXPECT_EQ(errnoOfWindows(ERROR_SHARING_VIOLATION), EWOULDBLOCK);
  EXPECT_EQ(errnoOfWindows(ERROR_LOCK_VIOLATION), EWOULDBLOCK);
  EXPECT_EQ(errnoOfWindows(ERROR_NOT_READY), EIO);
  EXPECT_EQ(errnoOfWindows(ERROR_CRC), EIO);
}

// Only where it is unknown the older call is tried; a refusal is told.
TEST_F(WindowsFileSystemTest, ACallThatADiskDoesNotKnowIsToldFromOneThatItRefuses) {
  constexpr long kFileSystemLimitation = 665;
  for (const long unknown : {ERROR_INVALID_PARAMETER, ERROR_NOT_SUPPORTED, ERROR_INVALID_FUNCTION,
                             ERROR_CALL_NOT_IMPLEMENTED, ERROR_INVALID_LEVEL, kFileSystemLimitation})
    EXPECT_TRUE(isUnknownCall(static_cast<DWORD>(unknown))) << unknown;
  for (const long refused :
       {ERROR_SUCCESS, ERROR_ACCESS_DENIED, ERROR_SHARING_VIOLATION, ERROR_LOCK_VIOLATION,
        ERROR_USER_MAPPED_FILE, ERROR_DISK_FULL, ERROR_HANDLE_DISK_FULL, ERROR_WRITE_PROTECT, ERROR_NOT_READY,
        ERROR_CRC, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND, ERROR_NOT_SAME_DEVICE, ERROR_INVALID_HANDLE})
    EXPECT_FALSE(isUnknownCall(static_cast<DWORD>(refused))) << refused;
}

TEST_F(WindowsFileSystemTest, NamesAreKeptLetterByLetter) {
  const std::string path = folder_ / "Őri út – 日本.dat";
  { const OpenFile file = opened(path, OpenMode::CreateNew); }
  const auto wide = std::filesystem::path(folder_.path()) / L"\u0150ri \u00FAt \u2013 \u65E5\u672C.dat";
  EXPECT_TRUE(std::filesystem::exists(wide));
}

TEST_F(WindowsFileSystemTest, AFolderIsListedRenamedAndGoesWhenItIsEmpty) {
  const std::string sets = folder_ / "Mentések";
  const std::string set = sets + "/2026-03-21";
  ASSERT_EQ(files_.makeFolder(sets), 0);
  ASSERT_EQ(files_.makeFolder(set + ".tmp"), 0);
  ASSERT_EQ(files_.rename(set + ".tmp", set), 0);
  files_.close(files_.open(sets + "/zár", OpenMode::Create));
  Names names;
  ASSERT_EQ(files_.list(sets, names), 0);
  std::ranges::sort(names);
  EXPECT_EQ(names, (Names{"2026-03-21", "zár"}));
  EXPECT_EQ(files_.removeFolder(sets), -1);
  EXPECT_EQ(errno, ENOTEMPTY);
  EXPECT_EQ(files_.removeFolder(set), 0);
  names.clear();
  EXPECT_EQ(files_.list(set, names), -1);
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(WindowsFileSystemTest, APathIsResolvedAsTheProgramWritesPaths) {
  folder_.write("data.dat", "");
  std::string resolved;
  ASSERT_EQ(files_.resolve(path_, resolved), 0);
  EXPECT_EQ(resolved.find('\\'), std::string::npos) << resolved;
  EXPECT_TRUE(resolved.ends_with("/data.dat")) << resolved;
  EXPECT_EQ(resolved.substr(1, 2), ":/") << resolved;
}

TEST_F(WindowsFileSystemTest, AFileThatIsToBeItselfIsNotWhatALinkLeadsTo) {
  const std::filesystem::path link(folder_ / "link.dat");
  if (!CreateSymbolicLinkW(link.c_str(), std::filesystem::path(path_).c_str(),
                           SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE) ||
      GetFileAttributesW(link.c_str()) == INVALID_FILE_ATTRIBUTES)
    GTEST_SKIP() << "no links can be made here: not tested";
  folder_.write("data.dat", "AAAA");
  for (const OpenMode mode : {OpenMode::ReadItself, OpenMode::ReadWriteItself, OpenMode::CreateItself}) {
    EXPECT_EQ(errorOf(folder_ / "link.dat", mode), ELOOP);
    EXPECT_TRUE(opened(path_, mode).isOpen());
  }
  EXPECT_TRUE(opened(folder_ / "link.dat", OpenMode::Read).isOpen());
}

TEST_F(WindowsFileSystemTest, APathIsMarkedWhereItIsLongerThanTheSystemTakes) {
  const std::wstring letters(245, L'x');
  const std::string plain(245, 'x');
  EXPECT_EQ(systemPath("C:" + plain), L"C:" + letters);
  EXPECT_EQ(systemPath("C:/" + plain), L"\\\\?\\C:\\" + letters);
  EXPECT_EQ(systemPath("C:/" + plain + "/ő"), L"\\\\?\\C:\\" + letters + L"\\ő");
  EXPECT_EQ(systemPath("//server/" + plain), L"\\\\?\\UNC\\server\\" + letters);
  EXPECT_EQ(systemPath("//?/C:/" + plain), L"\\\\?\\C:\\" + letters);
  EXPECT_EQ(systemPath(plain + "/x"), letters + L"/x");
  EXPECT_EQ(systemPath(plain + "/xx"), letters + L"\\xx");
}

TEST_F(WindowsFileSystemTest, AFileInAPathOf400LettersIsRecordedAndReplaced) {
  std::string folder = folder_.path();
  while (folder.size() < 400) {
    folder += "/egy nagyon hosszú nevű mappa a többiben";
    ASSERT_EQ(files_.makeFolder(folder), 0) << errno;
  }
  path_ = folder + "/data";
  std::string real;
  if (files_.resolve(folder, real) != 0) GTEST_SKIP() << "this system resolves no long path: not tested";
  RecordFile(files_, path_, kLength).append(bytes("1234"));
  rewrite("5678");
  EXPECT_EQ(files_.resolve(path_, real), 0);
  EXPECT_TRUE(real.ends_with("/egy nagyon hosszú nevű mappa a többiben/data")) << real;
  FileStatus status;
  EXPECT_EQ(files_.statusOf(path_, status), 0);
  EXPECT_EQ(status.size, 4);
  EXPECT_EQ(files_.remove(path_), 0);
}

TEST_F(WindowsFileSystemTest, ReadsWritesAndCutsAtItsOffsets) {
  const OpenFile file = opened(path_, OpenMode::Create);
  EXPECT_EQ(files_.write(file.descriptor(), bytes("AAAABBBB"), 0), 8);
  EXPECT_EQ(files_.write(file.descriptor(), bytes("xx"), 2), 2);
  EXPECT_EQ(files_.truncate(file.descriptor(), 10), 0);
  EXPECT_EQ(folder_.read("data.dat"), std::string("AAxxBBBB\0\0", 10));
  std::byte buffer[4];
  EXPECT_EQ(files_.read(file.descriptor(), buffer, 8), 2);
  EXPECT_EQ(files_.read(file.descriptor(), buffer, 10), 0);
  EXPECT_EQ(files_.read(file.descriptor(), buffer, 100), 0);
}

TEST_F(WindowsFileSystemTest, AFileForReadingAloneSaysSoAndIsRefused) {
  folder_.write("data.dat", "AAAA");
  FileStatus status;
  {
    const OpenFile file = opened(path_, OpenMode::ReadWriteItself);
    ASSERT_EQ(files_.setMode(file.descriptor(), 0444), 0);
  }
  ASSERT_EQ(files_.statusOf(path_, status), 0);
  EXPECT_EQ(status.mode, 0444U);
  expectFailure(FailureKind::OpenFailed, [&] { rewrite("XXXX"); });
  EXPECT_EQ(folder_.read("data.dat"), "AAAA");
  SetFileAttributesW(std::filesystem::path(path_).c_str(), FILE_ATTRIBUTE_NORMAL);
}

TEST_F(WindowsFileSystemTest, AFileThatMayBeWrittenAgainKeepsItsTimes) {
  folder_.write("data.dat", "AAAA");
  const OpenFile file = opened(path_, OpenMode::ReadWriteItself);
  const auto written = std::filesystem::last_write_time(path_);
  ASSERT_EQ(files_.setMode(file.descriptor(), 0444), 0);
  ASSERT_EQ(files_.setMode(file.descriptor(), 0644), 0);
  FileStatus status;
  ASSERT_EQ(files_.status(file.descriptor(), status), 0);
  EXPECT_EQ(status.mode, 0666U);
  EXPECT_EQ(std::filesystem::last_write_time(path_), written);
}

TEST_F(WindowsFileSystemTest, WhatIsOpenHereIsOpenToEveryOtherProgram) {
  folder_.write("data.dat", "AAAA");
  const RecordFile file(files_, path_, kLength);
  const OtherProgram reader(path_, kAll);
  ASSERT_TRUE(reader.isOpen());
  EXPECT_EQ(reader.read(), "AAAA");
}

TEST_F(WindowsFileSystemTest, ALockIsOneProgramsAtATimeAndHindersNoReader) {
  folder_.write("data.dat", "AAAA");
  const OpenFile second = opened(path_, OpenMode::ReadWriteItself);
  {
    const OpenFile first = opened(path_, OpenMode::ReadWriteItself);
    ASSERT_EQ(files_.tryLock(first.descriptor()), 0);
    EXPECT_EQ(files_.tryLock(second.descriptor()), -1);
    EXPECT_EQ(errno, EWOULDBLOCK);
    EXPECT_EQ(OtherProgram(path_, kAll).read(), "AAAA");
  }
  EXPECT_EQ(files_.tryLock(second.descriptor()), 0);
}

TEST_F(WindowsFileSystemTest, AFileThatIsHeldWithoutSharingIsBusyAndUnchanged) {
  folder_.write("data.dat", "AAAA");
  {
    const OtherProgram holder(path_, 0);
    ASSERT_TRUE(holder.isOpen());
    expectSystemFailure(FailureKind::OpenFailed, EWOULDBLOCK, [&] { rewrite("XXXX"); });
  }
  EXPECT_EQ(folder_.read("data.dat"), "AAAA");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(WindowsFileSystemTest, AFileWhoseDeletionIsNotSharedIsToldAndUnchanged) {
  folder_.write("data.dat", "AAAA");
  {
    const OtherProgram holder(path_, FILE_SHARE_READ | FILE_SHARE_WRITE);
    ASSERT_TRUE(holder.isOpen());
    expectSystemFailure(FailureKind::ReplaceFailed, EWOULDBLOCK, [&] { rewrite("XXXX"); });
    EXPECT_EQ(holder.read(), "AAAA");
  }
  EXPECT_EQ(folder_.read("data.dat"), "AAAA");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
  rewrite("XXXX");
  EXPECT_EQ(folder_.read("data.dat"), "XXXX");
}

// A system or disk that knows no replacing of open files refuses; either way the file is whole.
TEST_F(WindowsFileSystemTest, AReaderThatSharesDeletionKeepsWhatItHas) {
  folder_.write("data.dat", "AAAA");
  bool isReplaced = true;
  {
    const OtherProgram reader(path_, kAll);
    try {
      rewrite("XXXX");
    } catch (const Failure& failure) {
      EXPECT_EQ(failure.kind(), FailureKind::ReplaceFailed);
      EXPECT_EQ(failure.systemError(), EWOULDBLOCK);
      isReplaced = false;
    }
    EXPECT_EQ(reader.read(), "AAAA");
  }
  EXPECT_EQ(folder_.read("data.dat"), isReplaced ? "XXXX" : "AAAA");
  EXPECT_EQ(folder_.names(), Names{"data.dat"});
}

TEST_F(WindowsFileSystemTest, ManyChangesThroughOneOpenFileAllArrive) {
  RecordFile file(files_, path_, kLength);
  for (const char* record : {"AAAA", "BBBB", "CCCC"}) file.append(bytes(record));
  file.rewrite(file.seen(2), bytes("XXXX"));
  file.remove(file.seen(1), folder_ / "datax.dat");
  EXPECT_EQ(folder_.read("data.dat"), "XXXXCCCC");
}

}  // namespace
}  // namespace tarvik::core
