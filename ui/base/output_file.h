#pragma once

#include <QIODevice>
#include <cstdint>
#include <optional>
#include <string>

#include "core/failure.h"
#include "core/file_steps.h"
#include "core/file_system.h"

namespace tarvik::ui {

/// A new file that a document is written into. It grows under a name of its own in the folder of its place,
/// `tarvik.part`, and takes its place in one step when it is complete: a failed or cancelled document leaves
/// nothing behind and the file that was there before as it was. What a program that was killed left under
/// that name goes with the next document there. A link leads to the file that is replaced, whose permission
/// bits stay.
class OutputFile final : public QIODevice {
 public:
  /// Begins the file that is to have that path (UTF-8). Throws Failure(NotAFile) for a pipe or a device in
  /// its place, NotOwnFile for a link to nothing, FileBusy while another document is written in that folder,
  /// and OpenFailed, for a folder or a file without any write permission too.
  OutputFile(core::FileSystem& files, std::string path);
  /// Discards the file unless commit returned.
  ~OutputFile() override;

  /// The path as it was given.
  const std::string& path() const { return path_; }

  /// Whether a write was refused. The writers of documents do not look, so the one who drives them must.
  bool hasFailed() const { return failure_.has_value(); }

  /// Puts the complete file in its place, replacing what is there, with its contents safe on the disk.
  /// Throws Failure(WriteFailed) for the first write that was refused, SyncFailed or ReplaceFailed.
  void commit();

  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* data, qint64 maxSize) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  core::OpenFile begin();
  void findPlace();
  void removeLeftover();
  void keepFree(const core::OpenFile& file);
  core::Failure failed(core::FailureKind kind) const;

  core::FileSystem& files_;
  std::string path_;
  std::string place_;                  // behind the links
  std::optional<std::uint32_t> mode_;  // of what is replaced
  std::string unfinished_;
  core::OpenFile file_;
  std::int64_t written_ = 0;
  std::optional<core::Failure> failure_;
};

}  // namespace tarvik::ui
