#include "ui/base/output_file.h"

#include <cerrno>
#include <span>
#include <utility>

namespace tarvik::ui {
namespace {

constexpr int kNames = 100;

// A name beside the file that nothing has yet; what is there under such a name may be somebody's.
std::string unfinishedName(const std::string& path, int number) {
  return path + ".part" + (number == 1 ? std::string() : std::to_string(number));
}

}  // namespace

using core::Failure;
using core::FailureKind;

OutputFile::OutputFile(core::FileSystem& files, std::string path)
    : files_(files), path_(std::move(path)), file_(begin()) {
  if (!file_.isOpen()) throw failed(FailureKind::OpenFailed);
  open(QIODevice::WriteOnly | QIODevice::Unbuffered);
}

core::OpenFile OutputFile::begin() {
  int descriptor = -1;
  for (int number = 1; descriptor < 0 && number <= kNames; ++number) {
    unfinished_ = unfinishedName(path_, number);
    descriptor = files_.open(unfinished_, core::OpenMode::CreateNew);
    if (descriptor < 0 && errno != EEXIST) break;
  }
  return {files_, descriptor};
}

OutputFile::~OutputFile() {
  if (unfinished_.empty()) return;
  file_.close();
  files_.remove(unfinished_);
}

void OutputFile::commit() {
  if (failure_) throw *failure_;
  if (files_.sync(file_.descriptor()) != 0) throw failed(FailureKind::SyncFailed);
  close();
  file_.close();
  if (files_.rename(unfinished_, path_) != 0) throw failed(FailureKind::ReplaceFailed);
  unfinished_.clear();
}

qint64 OutputFile::readData(char*, qint64) {
  return -1;
}

qint64 OutputFile::writeData(const char* data, qint64 size) {
  auto rest = std::as_bytes(std::span(data, static_cast<std::size_t>(size)));
  while (!failure_ && !rest.empty()) {
    const std::int64_t put = files_.write(file_.descriptor(), rest, written_);
    if (put < 0 && errno == EINTR) continue;
    if (put == 0) errno = ENOSPC;
    if (put <= 0) {
      failure_ = failed(FailureKind::WriteFailed);
      break;
    }
    written_ += put;
    rest = rest.subspan(static_cast<std::size_t>(put));
  }
  return failure_ ? -1 : size;
}

// The file is named as the person knows it.
Failure OutputFile::failed(FailureKind kind) const {
  const int error = errno;
  return std::move(Failure(kind).file(path_).systemError(error));
}

}  // namespace tarvik::ui
