#include <gtest/gtest.h>

#include <cerrno>
#include <cstdio>
#include <optional>

#include "core/failure.h"
#include "tests/safety/prepared_disk.h"
#include "tests/support/intercepted_file_system.h"

namespace tarvik::test {
namespace {

// Runs an operation; whether it was reported as failed.
bool isReported(const Operation& operation, core::FileSystem& files) {
  try {
    operation.run(files, kDiskFolders);
    return false;
  } catch (const core::Failure&) {
    return true;
  }
}

class FailingCallTest : public testing::TestWithParam<int> {
 protected:
  // Runs the operation once with a failure; false when it made fewer calls than that.
  bool runWith(const FailurePlan& plan) {
    MemoryFileSystem disk = before_;
    FailingFileSystem files(disk, plan);
    const bool wasReported = isReported(*operation_, files);
    if (!files.hasFailed()) return false;
    ++cases_;
    EXPECT_EQ(disk.openFiles(), 0) << "a file stayed open";
    const std::string& now = disk.contents(file_);
    const bool isNew = now == new_;
    EXPECT_TRUE(isNew || isOld(now, plan)) << "neither old nor new";
    EXPECT_TRUE(isNew || wasReported) << "not done and not reported";
    if (HasFailure()) return false;
    expectNextWorks(disk, isNew);
    return true;
  }

  // A disk that stays broken cannot be cut back either: what then stays behind the last record is no record.
  bool isOld(const std::string& contents, const FailurePlan& plan) const {
    if (contents == old_) return true;
    return plan.staysBroken && contents.starts_with(old_) &&
           contents.size() - old_.size() < operation_->recordLength;
  }

  void expectNextWorks(MemoryFileSystem& disk, bool isNew) {
    const bool wasReported = isReported(*operation_, disk);
    EXPECT_EQ(disk.openFiles(), 0);
    if (isNew) return;
    EXPECT_EQ(wasReported, isNewReported_) << "the next operation";
    EXPECT_TRUE(disk.contents(file_) == new_) << "the next operation";
  }

  void prepare(const Operation& operation, int count) {
    operation_ = &operation;
    file_ = operation.file(kDiskFolders);
    before_ = preparedDisk(operation, count);
    old_ = before_.contents(file_);
    MemoryFileSystem disk = before_;
    isNewReported_ = isReported(operation, disk);
    new_ = disk.contents(file_);
  }

  const Operation* operation_ = nullptr;
  MemoryFileSystem before_;
  std::string old_;
  std::string new_;
  bool isNewReported_ = false;  // it is refused: a record that is not there, a full file
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
    isReported(operation, counting);
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
