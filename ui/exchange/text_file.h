#pragma once

#include <QByteArray>
#include <QString>
#include <cstdint>
#include <string>

#include "core/file_system.h"

namespace tarvik::ui {

/// The largest text file that is read: a full logbook stays far below.
inline constexpr std::int64_t kLargestTextFile = 32 * 1024 * 1024;

/// How the letters of a text file are stored.
enum class Encoding { Utf8, Windows1250, Windows1252, Latin2, Dos852, Windows1251, Koi8, Utf16Le, Utf16Be };
inline constexpr int kEncodings = static_cast<int>(Encoding::Utf16Be) + 1;

/// What an encoding is called.
QString nameOf(Encoding encoding);

/// A text file as it was read.
struct TextFile {
  enum class Fault {
    None,
    TooLarge,
    Zip,      ///< a packed folder, or a workbook, which is one
    NotText,  ///< it holds zero bytes where a text has none
  };
  Fault fault = Fault::None;
  std::int64_t size = 0;  ///< bytes
  QByteArray bytes{};
};

/// Reads a file of a person's choice. Throws Failure(OpenFailed), NotAFile or ReadFailed.
TextFile readTextFile(core::FileSystem& files, const std::string& path);

/// The encoding of bytes, found from all of them: what a mark at the beginning says; else UTF-16 where every
/// other byte is zero; else UTF-8 where it is well formed but for a few letters; else a guess by how letters
/// follow each other.
Encoding encodingOf(const QByteArray& bytes);

/// The text of bytes in UTF-8 without a mark. What is no letter of the encoding becomes U+FFFD.
std::string decodedText(const QByteArray& bytes, Encoding encoding);
inline std::string decodedText(const QByteArray& bytes) {
  return decodedText(bytes, encodingOf(bytes));
}

}  // namespace tarvik::ui
