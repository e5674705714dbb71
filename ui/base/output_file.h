#pragma once

#include <QIODevice>
#include <memory>
#include <optional>
#include <string>

#include "core/failure.h"
#include "core/file_steps.h"
#include "core/file_system.h"

namespace tarvik::ui {

/// A new file that the toolkit writes a document into. It grows under a name of its own beside its place
/// and takes its place in one step when it is complete: a failed or cancelled document leaves nothing behind
/// and the file that was there before as it was.
class OutputFile final : public QIODevice {
 public:
  /// Begins the file that is to have that path (UTF-8). Throws Failure(OpenFailed).
  OutputFile(core::FileSystem& files, std::string path);
  /// Discards the file unless commit returned.
  ~OutputFile() override;

  /// Whether a write was refused. The toolkit's writers do not look, so the one who drives them must.
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
  core::Failure failed(core::FailureKind kind) const;

  core::FileSystem& files_;
  std::string path_;
  std::string unfinished_;
  core::OpenFile file_;
  std::int64_t written_ = 0;
  std::optional<core::Failure> failure_;
};

}  // namespace tarvik::ui
