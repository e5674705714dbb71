#pragma once

#include "core/dated_copies.h"
#include "core/history.h"

namespace tarvik::core {

/// What stands between a change and its regret: before the first change of a day all data files are copied,
/// and each change can be taken back while the program runs. It watches the file system as long as it lives.
class SafetyNet final : public ChangeWatcher {
 public:
  SafetyNet(FileSystem& files, const DataFolders& folders, const Clock& clock)
      : files_(files), copies_(files, folders, clock) {
    files_.watch(this);
  }
  SafetyNet(const SafetyNet&) = delete;
  SafetyNet& operator=(const SafetyNet&) = delete;
  ~SafetyNet() override {
    if (files_.watcher() == this) files_.watch(nullptr);
  }

  History& history() { return history_; }
  DatedCopies& copies() { return copies_; }

  bool knows(const std::string& path, const FileStatus& status) const override {
    return history_.knows(path, status);
  }
  void announce(const AnnouncedChange& change) override {
    if (!change.piece.isEmpty()) copies_.beforeChange();
    history_.announce(change);
  }
  void made(const std::string& path, const FileStatus& status) noexcept override {
    history_.made(path, status);
  }
  void abandoned() noexcept override { history_.abandoned(); }

 private:
  FileSystem& files_;
  DatedCopies copies_;
  History history_;
};

}  // namespace tarvik::core
