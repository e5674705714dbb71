#pragma once

#include <QByteArray>
#include <cstdint>
#include <string>

#include "core/file_system.h"

namespace tarvik::ui {

/// The largest text file that is read: a full logbook stays far below.
inline constexpr std::int64_t kLargestTextFile = 32 * 1024 * 1024;

/// A text file as it was read.
struct TextFile {
  enum class Fault {
    None,
    TooLarge,
    NotText,  ///< it holds zero bytes where a text has none
  };
  Fault fault = Fault::None;
  std::int64_t size = 0;  ///< bytes
  std::string text;       ///< UTF-8 without a mark
};

/// Reads a file of a person's choice and decodes it. Throws Failure(OpenFailed), NotAFile or ReadFailed.
TextFile readTextFile(core::FileSystem& files, const std::string& path);

/// The text of bytes whose encoding is found from all of them, in UTF-8: what a mark at the beginning says;
/// else UTF-16 where every other byte is zero; else UTF-8 where it is well formed; else Windows-1252 where
/// letters of the west and none of central Europe stand, and Windows-1250.
std::string decodedText(const QByteArray& bytes);

}  // namespace tarvik::ui
