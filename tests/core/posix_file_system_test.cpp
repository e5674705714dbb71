#include "core/machine_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <span>
#include <thread>

#include "core/record_file.h"
#include "tests/support/expect_failure.h"
#include "tests/support/posix_device.h"
#include "tests/support/temporary_folder.h"

// The real file system: how its files open, and what stands where a file should.

namespace tarvik::core {
namespace {

constexpr std::size_t kLength = 4;

TEST(PosixFileSystemTest, TellsFailuresAsTheSystemDoes) {
  MachineFileSystem files;
  FileStatus status;
  std::string resolved;
  EXPECT_EQ(files.status(-1, status), -1);
  EXPECT_EQ(errno, EBADF);
  EXPECT_EQ(files.statusOf("/nowhere/at/all", status), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(files.resolve("/nowhere/at/all", resolved), -1);
  EXPECT_EQ(errno, ENOENT);
  EXPECT_EQ(files.writeOut(-1), -1);
  EXPECT_EQ(errno, EBADF);
  files.pause(0);
}

sock_filter loaded(std::size_t place) {
  return BPF_STMT(BPF_LD | BPF_W | BPF_ABS, static_cast<unsigned>(place));
}

// For the calling thread.
void install(std::span<sock_filter> rules) {
  const sock_fprog program{.len = static_cast<unsigned short>(rules.size()), .filter = rules.data()};
  ASSERT_EQ(::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0), 0);
  ASSERT_EQ(::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program), 0);
}

// Makes a system call answer with an error.
void refuse(unsigned systemCall, unsigned error) {
  sock_filter rules[] = {
      loaded(offsetof(seccomp_data, nr)), BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, systemCall, 0, 1),
      BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | error), BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)};
  install(rules);
}

// Lets the writes of a file be ordered from its beginning to its end alone.
void refuseToOrderAPart() {
  sock_filter rules[] = {loaded(offsetof(seccomp_data, nr)),
                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_sync_file_range, 0, 4),
                         loaded(offsetof(seccomp_data, args[1])),
                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 0, 3),
                         loaded(offsetof(seccomp_data, args[2])),
                         BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 0, 1),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
                         BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EIO)};
  install(rules);
}

// What a call returns where this has been refused before, and errno with it.
template <typename Operation>
std::pair<int, int> resultAfter(const std::function<void()>& refusal, Operation operation) {
  std::pair<int, int> result{1, 0};
  std::thread([&] {
    refusal();
    errno = 0;
    result.first = operation();
    result.second = errno;
  }).join();
  return result;
}

// The same while the system refuses another call that it is made of.
template <typename Operation>
std::pair<int, int> resultWhileRefused(unsigned systemCall, int error, Operation operation) {
  return resultAfter([=] { refuse(systemCall, static_cast<unsigned>(error)); }, operation);
}

class PosixFileTest : public testing::Test {
 protected:
  test::TemporaryFolder folder_;
  MachineFileSystem files_;
};

TEST_F(PosixFileTest, ListsWhatLiesInAFolder) {
  folder_.makeFolder("Mentések");
  folder_.write(".rejtett", "");
  folder_.write("..x", "");
  folder_.write("Mentések/napiadat.dat", "");
  std::vector<std::string> names;
  EXPECT_EQ(files_.list(folder_ / "", names), 0);
  EXPECT_THAT(names, testing::UnorderedElementsAre("Mentések", ".rejtett", "..x"));
  EXPECT_EQ(files_.list(folder_ / "nowhere", names), -1);
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(PosixFileTest, TellsWhenAFileWasChangedLast) {
  folder_.write("data", "1");
  struct stat native {};
  ASSERT_EQ(::stat((folder_ / "data").c_str(), &native), 0);
  FileStatus status;
  ASSERT_EQ(files_.statusOf(folder_ / "data", status), 0);
  EXPECT_EQ(status.changed / 1'000'000'000, native.st_ctim.tv_sec);
  EXPECT_EQ(status.changed % 1'000'000'000, native.st_ctim.tv_nsec);
}

TEST_F(PosixFileTest, WritesThatCannotBeOrderedAreSynced) {
  const OpenFile file(files_, files_.open(folder_ / "data", OpenMode::Create));
  for (const int error : {ENOSYS, EINVAL, EOPNOTSUPP, EPERM, ESPIPE}) {
    const auto writeOut = [&] { return files_.writeOut(file.descriptor()); };
    EXPECT_EQ(resultWhileRefused(SYS_sync_file_range, error, writeOut).first, 0) << error;
  }
}

TEST_F(PosixFileTest, TheWritesOfAFileAreOrderedAllTogether) {
  const OpenFile file(files_, files_.open(folder_ / "data", OpenMode::Create));
  const auto writeOut = [&] { return files_.writeOut(file.descriptor()); };
  EXPECT_EQ(resultAfter(refuseToOrderAPart, writeOut).first, 0);
}

TEST_F(PosixFileTest, ADiskThatCannotTakeWritesIsNotSyncedInstead) {
  const OpenFile file(files_, files_.open(folder_ / "data", OpenMode::Create));
  const auto writeOut = [&] { return files_.writeOut(file.descriptor()); };
  EXPECT_EQ(resultWhileRefused(SYS_sync_file_range, EIO, writeOut), std::pair(-1, EIO));
}

TEST_F(PosixFileTest, AFolderWhoseFileSystemPromisesNothingIsSyncedAtOnce) {
  const auto sync = [&] { return files_.syncFolder(folder_.path()); };
  for (const int error : {EINVAL, ENOTSUP, ENOSYS})
    EXPECT_EQ(resultWhileRefused(SYS_fsync, error, sync).first, 0) << error;
}

TEST_F(PosixFileTest, AFolderThatCannotBeSyncedIsToldWithTheSystemsReason) {
  const auto sync = [&] { return files_.syncFolder(folder_.path()); };
  EXPECT_EQ(resultWhileRefused(SYS_fsync, EIO, sync), std::pair(-1, EIO));
  EXPECT_EQ(files_.syncFolder(folder_ / "gone"), -1);
  EXPECT_EQ(errno, ENOENT);
}

TEST_F(PosixFileTest, AFileWhoseSyncIsRefusedIsNotSynced) {
  const OpenFile file(files_, files_.open(folder_ / "data", OpenMode::Create));
  const auto sync = [&] { return files_.sync(file.descriptor()); };
  EXPECT_EQ(resultWhileRefused(SYS_fsync, EINVAL, sync), std::pair(-1, EINVAL));
}

TEST_F(PosixFileTest, OpensInAnUnknownModeToReadOnly) {
  folder_.write("data", "1234");
  const OpenFile file(files_, files_.open(folder_ / "data", static_cast<OpenMode>(99)));
  EXPECT_TRUE(file.isOpen());
  EXPECT_EQ(files_.truncate(file.descriptor(), 0), -1);
}

TEST_F(PosixFileTest, OpensWhatIsThereAsItIs) {
  folder_.write("data", "1234");
  for (const OpenMode mode : {OpenMode::Read, OpenMode::ReadItself, OpenMode::ReadWriteItself,
                              OpenMode::Create, OpenMode::CreateItself}) {
    EXPECT_TRUE(OpenFile(files_, files_.open(folder_ / "data", mode)).isOpen());
    EXPECT_EQ(folder_.read("data"), "1234");
  }
}

TEST_F(PosixFileTest, ANewFileIsMadeUnderAFreeNameOnly) {
  folder_.write("data", "1234");
  std::filesystem::create_symlink(folder_ / "elsewhere", folder_ / "link");
  for (const OpenMode mode : {OpenMode::CreateNew, OpenMode::CreatePrivate})
    for (const char* taken : {"data", "link"}) {
      EXPECT_EQ(files_.open(folder_ / taken, mode), -1) << taken;
      EXPECT_EQ(errno, EEXIST) << taken;
    }
  EXPECT_EQ(folder_.read("data"), "1234");
  EXPECT_FALSE(folder_.has("elsewhere"));
}

TEST_F(PosixFileTest, AFileThatIsToBeItselfIsNotWhatALinkLeadsTo) {
  folder_.write("data", "1234");
  std::filesystem::create_symlink(folder_ / "data", folder_ / "link");
  std::filesystem::create_symlink(folder_ / "elsewhere", folder_ / "nowhere");
  for (const OpenMode mode : {OpenMode::ReadItself, OpenMode::ReadWriteItself, OpenMode::CreateItself}) {
    EXPECT_TRUE(OpenFile(files_, files_.open(folder_ / "data", mode)).isOpen());
    for (const char* link : {"link", "nowhere"}) {
      EXPECT_EQ(files_.open(folder_ / link, mode), -1) << link;
      EXPECT_EQ(errno, ELOOP) << link;
    }
  }
  EXPECT_TRUE(OpenFile(files_, files_.open(folder_ / "new", OpenMode::CreateItself)).isOpen());
  EXPECT_FALSE(folder_.has("elsewhere"));
}

TEST_F(PosixFileTest, TellsWhoseAFileIs) {
  folder_.write("data", "");
  FileStatus status;
  EXPECT_EQ(files_.statusOf(folder_ / "data", status), 0);
  EXPECT_EQ(status.owner, ::geteuid());
  EXPECT_EQ(files_.statusOf("/", status), 0);
  EXPECT_EQ(status.owner, 0U);
}

TEST_F(PosixFileTest, APrivateFileIsItsOwnersAlone) {
  const mode_t mask = ::umask(0022);
  const OpenFile common(files_, files_.open(folder_ / "common", OpenMode::CreateNew));
  const OpenFile ours(files_, files_.open(folder_ / "ours", OpenMode::CreatePrivate));
  EXPECT_EQ(files_.makeFolder(folder_ / "sub"), 0);
  ::umask(mask);
  FileStatus status;
  EXPECT_EQ(files_.status(common.descriptor(), status), 0);
  EXPECT_EQ(status.mode, 0644U);
  EXPECT_EQ(files_.status(ours.descriptor(), status), 0);
  EXPECT_EQ(status.mode, 0600U);
  EXPECT_EQ(files_.statusOf(folder_ / "sub", status), 0);
  EXPECT_EQ(status.mode, 0755U);
}

TEST_F(PosixFileTest, TellsWhatKindOfThingHasAName) {
  folder_.write("data", "");
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  const auto kindOf = [&](const std::string& path) {
    FileStatus status;
    EXPECT_EQ(files_.statusOf(path, status), 0) << path;
    return status.kind;
  };
  EXPECT_EQ(kindOf(folder_ / "data"), FileKind::Regular);
  EXPECT_EQ(kindOf(folder_.path()), FileKind::Folder);
  EXPECT_EQ(kindOf(folder_ / "pipe"), FileKind::Other);
  EXPECT_EQ(kindOf("/dev/null"), FileKind::Other);
}

// A pipe would hold the program up for ever; a device would be replaced by a file.
TEST_F(PosixFileTest, APipeOrADeviceIsNeitherReadNorChanged) {
  ASSERT_EQ(::mkfifo((folder_ / "pipe").c_str(), 0600), 0);
  test::makeDevice(folder_ / "device");
  folder_.write("data", "AAAABBBB");
  for (const char* name : {"pipe", "device"}) {
    const std::string path = folder_ / name;
    test::expectFailure(FailureKind::NotAFile, [&] { readRecords(files_, path, kLength); });
    test::expectFailure(FailureKind::NotAFile, [&] { createIfMissing(files_, path); });
    test::expectFailure(FailureKind::NotAFile, [&] { RecordFile(files_, path, kLength); });
    test::expectFailure(FailureKind::NotAFile, [&] {
      RecordFile file(files_, folder_ / "data", kLength);
      file.remove(file.seen(1), std::filesystem::canonical(path));
    });
  }
  EXPECT_EQ(folder_.read("data"), "AAAABBBB");
  EXPECT_EQ(folder_.names(), (std::vector<std::string>{"data", "device", "pipe"}));
}

// What is left of an interrupted replacement may lead to a file of somebody, or be a second name of the data.
TEST_F(PosixFileTest, ALeftoverReplacementThatIsALinkOrASecondNameEmptiesNoFile) {
  const std::byte record[kLength] = {std::byte{'m'}, std::byte{'o'}, std::byte{'r'}, std::byte{'e'}};
  folder_.write("data", "old1");
  folder_.write("precious", "do not empty");
  std::filesystem::create_symlink("precious", folder_ / "data.tmp");
  RecordFile(files_, folder_ / "data", kLength).append(record);
  std::filesystem::create_hard_link(folder_ / "data", folder_ / "data.tmp");
  RecordFile(files_, folder_ / "data", kLength).append(record);
  EXPECT_EQ(folder_.read("data"), "old1moremore");
  EXPECT_EQ(folder_.read("precious"), "do not empty");
  EXPECT_EQ(folder_.names(), (std::vector<std::string>{"data", "precious"}));
}

// Limits the length of the files that this process writes.
class LengthLimit {
 public:
  explicit LengthLimit(rlim_t bytes) {
    ::getrlimit(RLIMIT_FSIZE, &before_);
    const rlimit limit{bytes, before_.rlim_max};
    ::setrlimit(RLIMIT_FSIZE, &limit);
  }
  ~LengthLimit() { ::setrlimit(RLIMIT_FSIZE, &before_); }
  LengthLimit(const LengthLimit&) = delete;
  LengthLimit& operator=(const LengthLimit&) = delete;

 private:
  rlimit before_{};
};

TEST_F(PosixFileTest, AFilePastTheLimitOnLengthsIsAFailedWriteAndNoEndOfTheProgram) {
  folder_.write("data", "AAAA");
  RecordFile file(files_, folder_ / "data", kLength);
  const std::byte record[kLength] = {};
  {
    const LengthLimit limit(kLength);
    test::expectSystemFailure(FailureKind::WriteFailed, EFBIG, [&] { file.append(record); });
  }
  EXPECT_EQ(folder_.read("data"), "AAAA");
}

}  // namespace
}  // namespace tarvik::core
