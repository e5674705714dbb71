#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <optional>

#include "core/failure.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {
namespace {

using core::FailureKind;

// Runs an operation; returns the failure that it was reported with.
std::optional<core::Failure> reported(const Operation& operation, core::FileSystem& files) {
  try {
    operation.run(files, kDiskFolders);
    return std::nullopt;
  } catch (const core::Failure& failure) {
    return failure;
  }
}

// What a person is told when such a call fails.
FailureKind kindFor(Call call) {
  switch (call) {
    case Call::Read:
      return FailureKind::ReadFailed;
    case Call::Write:
    case Call::Truncate:
    case Call::SetMode:
      return FailureKind::WriteFailed;
    case Call::WriteOut:
    case Call::Sync:
    case Call::SyncFolder:
      return FailureKind::SyncFailed;
    case Call::Rename:
      return FailureKind::ReplaceFailed;
    default:
      return FailureKind::OpenFailed;
  }
}

constexpr std::uint32_t kMode = 0640;

class FailingCallTest : public testing::TestWithParam<int> {
 protected:
  // Runs the operation once with a failure; false when it made fewer calls than that.
  bool runWith(const FailurePlan& plan) {
    MemoryFileSystem disk = before_;
    FailingFileSystem files(disk, plan);
    const std::optional<core::Failure> failure = reported(*operation_, files);
    if (!files.hasFailed()) return false;
    ++cases_;
    if (failure && failure->kind() != refusal_) expectReason(*failure, plan, files.lastFailed());
    EXPECT_EQ(disk.openFiles(), 0) << "a file stayed open";
    const std::string& now = disk.contents(file_);
    const bool isNew = now == new_;
    EXPECT_TRUE(isNew || isOld(now, plan)) << "neither old nor new";
    EXPECT_TRUE(isNew || failure) << "not done and not reported";
    EXPECT_EQ(disk.modeOf(file_), kMode) << "the permission bits";
    if (HasFailure()) return false;
    expectNextWorks(disk, isNew);
    return true;
  }

  // The first call that cannot be helped is the one that is told: after it, files are only put back.
  void expectReason(const core::Failure& failure, const FailurePlan& plan, Call failed) const {
    const bool isShort = plan.error == FailurePlan::kShortWrite;
    EXPECT_EQ(failure.systemError(), isShort ? ENOSPC : plan.error);
    if (plan.staysBroken) return;
    EXPECT_EQ(failure.kind(), kindFor(failed));
  }

  // A disk that stays broken cannot be cut back either: what then stays behind the last record is no record.
  bool isOld(const std::string& contents, const FailurePlan& plan) const {
    if (contents == old_) return true;
    return plan.staysBroken && contents.starts_with(old_) &&
           contents.size() - old_.size() < operation_->recordLength;
  }

  void expectNextWorks(MemoryFileSystem& disk, bool isNew) {
    const bool wasReported = reported(*operation_, disk).has_value();
    EXPECT_EQ(disk.openFiles(), 0);
    if (isNew) return;
    EXPECT_EQ(wasReported, refusal_.has_value()) << "the next operation";
    EXPECT_TRUE(disk.contents(file_) == new_) << "the next operation";
  }

  void prepare(const Operation& operation, int count) {
    operation_ = &operation;
    file_ = operation.file(kDiskFolders);
    before_ = preparedDisk(operation, count);
    before_.setModeOf(file_, kMode);
    old_ = before_.contents(file_);
    MemoryFileSystem disk = before_;
    const std::optional<core::Failure> refused = reported(operation, disk);
    refusal_ = refused ? std::optional(refused->kind()) : std::nullopt;
    new_ = disk.contents(file_);
  }

  const Operation* operation_ = nullptr;
  MemoryFileSystem before_;
  std::string old_;
  std::string new_;
  std::optional<FailureKind> refusal_;  // a record that is not there, a full file
  std::string file_;
  int cases_ = 0;
};

const std::vector<int> kErrors = {
    EIO, ENOSPC, EDQUOT, EACCES, EROFS, EXDEV, EBUSY, EINTR, FailurePlan::kShortWrite};

// In the longest files each failure moves megabytes; those that anything is made of stand for the others.
std::vector<int> errorsFor(int count) {
  if (count < 1'000) return kErrors;
  return {EIO, EXDEV, EINTR, FailurePlan::kShortWrite};
}

// A short write is asked for at every call and happens where that call is a write.
TEST_P(FailingCallTest, EndsOldOrNewAndIsReported) {
  for (const Operation& operation : operations(GetParam())) {
    prepare(operation, GetParam());
    MemoryFileSystem disk = before_;
    CountingFileSystem counting(disk);
    reported(operation, counting);
    int calls = 0;
    for (const int count : counting.counts()) calls += count;
    for (const int error : errorsFor(GetParam()))
      for (const bool staysBroken : {false, true})
        for (int nth = 1; nth <= calls; ++nth) {
          SCOPED_TRACE(testing::Message() << operation.name << ", call " << nth << ", errno " << error
                                          << (staysBroken ? ", from then on" : ", once"));
          runWith({nth, error, staysBroken});
          if (HasFailure()) return;
        }
  }
  std::printf("%d cases\n", cases_);
  EXPECT_GE(cases_, 1'000);
}

INSTANTIATE_TEST_SUITE_P(Files, FailingCallTest, testing::Values(0, 1, 105, 106, 32'767),
                         [](const auto& files) { return "With" + std::to_string(files.param) + "Records"; });

}  // namespace
}  // namespace tarvik::test
