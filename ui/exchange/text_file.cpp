#include "ui/exchange/text_file.h"

#include <QHash>
#include <QStringDecoder>
#include <algorithm>
#include <array>
#include <cerrno>
#include <optional>
#include <span>
#include <string_view>

#include "core/failure.h"
#include "core/file_steps.h"
#include "core/text.h"
#include "ui/exchange/charset_guess.h"

namespace tarvik::ui {
namespace {

QByteArray readWhole(core::FileSystem& files, const core::OpenFile& file, std::int64_t size,
                     const std::string& path) {
  QByteArray bytes(static_cast<qsizetype>(size), Qt::Uninitialized);
  const auto room = std::as_writable_bytes(std::span(bytes.data(), static_cast<std::size_t>(size)));
  bytes.truncate(static_cast<qsizetype>(core::steps::readUpTo(files, file, room, 0, path)));
  return bytes;
}

// UTF-16 without a mark: Latin letters, digits and separators have a zero in every other byte.
std::optional<Encoding> unmarkedUtf16(const QByteArray& bytes) {
  std::array<qsizetype, 2> zeros{};
  for (qsizetype i = 0; i < bytes.size(); ++i)
    if (bytes[i] == '\0') ++zeros[static_cast<std::size_t>(i % 2)];
  const qsizetype most = bytes.size() / 4;
  if (zeros[1] > most && zeros[0] <= zeros[1] / 16) return Encoding::Utf16Le;
  if (zeros[0] > most && zeros[1] <= zeros[0] / 16) return Encoding::Utf16Be;
  return std::nullopt;
}

std::optional<Encoding> markedEncoding(const QByteArray& bytes) {
  if (bytes.startsWith("\xEF\xBB\xBF")) return Encoding::Utf8;
  if (bytes.startsWith("\xFF\xFE")) return Encoding::Utf16Le;
  if (bytes.startsWith("\xFE\xFF")) return Encoding::Utf16Be;
  return std::nullopt;
}

// How many bytes follow the first one of a letter in UTF-8; nothing for one that begins none.
std::optional<int> followingBytes(unsigned char first) {
  if (first < 0x80) return 0;
  if (first >= 0xC2 && first < 0xE0) return 1;
  if (first >= 0xE0 && first < 0xF0) return 2;
  if (first >= 0xF0 && first < 0xF5) return 3;
  return std::nullopt;
}

bool isWholeLetter(const QByteArray& bytes, qsizetype at, int following) {
  if (at + following >= bytes.size()) return false;
  for (qsizetype i = at + 1; i <= at + following; ++i)
    if ((static_cast<unsigned char>(bytes[i]) & 0xC0U) != 0x80) return false;
  return true;
}

// A few damaged letters do not make a file one of another encoding: in those hardly any pair of bytes is a
// letter.
bool isUtf8(const QByteArray& bytes) {
  qsizetype sound = 0;
  qsizetype damaged = 0;
  for (qsizetype i = 0; i < bytes.size(); ++i) {
    const auto following = followingBytes(static_cast<unsigned char>(bytes[i]));
    if (following == 0) continue;
    const bool isSound = following && isWholeLetter(bytes, i, *following);
    if (isSound) i += *following;
    ++(isSound ? sound : damaged);
  }
  return damaged == 0 || damaged <= sound;
}

bool hasOneOf(const QByteArray& bytes, std::string_view set) {
  return std::ranges::any_of(bytes, [&](char byte) { return set.find(byte) != std::string_view::npos; });
}

// The bytes that are letters of central Europe in Windows-1250 and rare signs in Windows-1252: ő ű Ő Ű ł ą ś
// ť Ť ż ľ Ź; and the other way round £ À Ê Ñ à ã å æ ê ñ ò Å Æ.
constexpr std::string_view kCentral = "\xF5\xFB\xD5\xDB\xB3\xB9\x9C\x9D\x8D\xBF\xBE\x8F";
constexpr std::string_view kWestern = "\xA3\xC0\xCA\xD1\xE0\xE3\xE5\xE6\xEA\xF1\xF2\xC5\xC6";

// The guess of the library counts for other alphabets; between the Latin ones, which share most letters,
// those that differ tell more than the few words of a log.
Encoding guessedEncoding(const QByteArray& bytes) {
  const std::string guess = guessedCharset(bytes);
  if (guess == "WINDOWS-1251") return Encoding::Windows1251;
  if (guess == "KOI8-R") return Encoding::Koi8;
  if (guess == "IBM852") return Encoding::Dos852;
  if (guess == "ISO-8859-2" && hasOneOf(bytes, "\xA9\xAB\xAE\xB1\xB5\xB6\xBB\xBE")) return Encoding::Latin2;
  return hasOneOf(bytes, kWestern) && !hasOneOf(bytes, kCentral) ? Encoding::Windows1252
                                                                 : Encoding::Windows1250;
}

struct CodePage {
  Encoding encoding;
  std::array<char16_t, 128> upperHalf;
};

constexpr CodePage kCodePages[] = {
#include "ui/exchange/code_pages.inc"
};

std::string decodedBy(const CodePage& page, const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text)
    if (character.unicode() >= 0x80) character = QChar(page.upperHalf[character.unicode() - 0x80]);
  return text.toStdString();
}

std::string decodedByQt(QStringConverter::Encoding encoding, const QByteArray& bytes) {
  QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);
  const QString text = decoder(bytes);
  return text.toStdString();
}

}  // namespace

QString nameOf(Encoding encoding) {
  static const QHash<Encoding, QString> names{
      {Encoding::Utf8, "UTF-8"},
      {Encoding::Windows1250, "közép-európai (Windows-1250)"},
      {Encoding::Windows1252, "nyugat-európai (Windows-1252)"},
      {Encoding::Latin2, "közép-európai (ISO 8859-2)"},
      {Encoding::Dos852, "közép-európai (DOS 852)"},
      {Encoding::Windows1251, "cirill (Windows-1251)"},
      {Encoding::Koi8, "cirill (KOI8-R)"},
      {Encoding::Utf16Le, "UTF-16 (LE)"},
      {Encoding::Utf16Be, "UTF-16 (BE)"},
  };
  return names.value(encoding);
}

Encoding encodingOf(const QByteArray& bytes) {
  if (const auto marked = markedEncoding(bytes)) return *marked;
  if (const auto wide = unmarkedUtf16(bytes)) return *wide;
  return isUtf8(bytes) ? Encoding::Utf8 : guessedEncoding(bytes);
}

std::string decodedText(const QByteArray& bytes, Encoding encoding) {
  if (encoding == Encoding::Utf8) return decodedByQt(QStringConverter::Utf8, bytes);
  if (encoding == Encoding::Utf16Le) return decodedByQt(QStringConverter::Utf16LE, bytes);
  if (encoding == Encoding::Utf16Be) return decodedByQt(QStringConverter::Utf16BE, bytes);
  const auto* page = std::ranges::find(kCodePages, encoding, &CodePage::encoding);
  if (page != std::end(kCodePages)) return decodedBy(*page, bytes);
  return core::fromCodePage({bytes.data(), static_cast<std::size_t>(bytes.size())});
}

TextFile readTextFile(core::FileSystem& files, const std::string& path) {
  const core::OpenFile file = core::steps::openIfThere(files, path);
  if (!file.isOpen()) throw core::Failure(core::FailureKind::OpenFailed).file(path).systemError(ENOENT);
  const core::FileStatus status = core::steps::statusOf(files, file, path);
  if (status.size > kLargestTextFile) return {TextFile::Fault::TooLarge, status.size};
  TextFile read{TextFile::Fault::None, status.size, readWhole(files, file, status.size, path)};
  if (read.bytes.startsWith("PK\3\4"))
    read.fault = TextFile::Fault::Zip;
  else if (decodedText(read.bytes).find('\0') != std::string::npos)
    read.fault = TextFile::Fault::NotText;
  return read;
}

}  // namespace tarvik::ui
