#pragma once

#include <QIODevice>
#include <memory>
#include <optional>
#include <string>

#include "core/failure.h"
#include "core/file_system.h"
#include "core/record_file.h"

namespace tarvik::ui {

/// A new file that the toolkit writes a document into. It is removed again unless it is moved to its final
/// name: a failed or cancelled document leaves nothing behind.
class OutputFile final : public QIODevice {
 public:
  /// Makes the file, emptying one that is there. Throws Failure(OpenFailed).
  OutputFile(core::FileSystem& files, std::string path);
  ~OutputFile() override;

  /// Whether a write was refused. The toolkit's writers do not look, so the one who drives them must.
  bool hasFailed() const { return failure_.has_value(); }

  /// Ends the writing, with the document safe on the disk. Throws what the first refused write did not
  /// tell (WriteFailed), or SyncFailed.
  void finish();

  /// Gives the finished file its final name, replacing what has it, and keeps it. Throws
  /// Failure(ReplaceFailed).
  void moveTo(const std::string& path);

  bool isSequential() const override { return true; }

 protected:
  qint64 readData(char* data, qint64 maxSize) override;
  qint64 writeData(const char* data, qint64 size) override;

 private:
  core::FileSystem& files_;
  std::string path_;
  core::OpenFile file_;
  std::int64_t written_ = 0;
  std::optional<core::Failure> failure_;
};

}  // namespace tarvik::ui
