#include "ui/exchange/text_file.h"

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
std::optional<QStringConverter::Encoding> unmarkedUtf16(const QByteArray& bytes) {
  std::array<qsizetype, 2> zeros{};
  for (qsizetype i = 0; i < bytes.size(); ++i)
    if (bytes[i] == '\0') ++zeros[static_cast<std::size_t>(i % 2)];
  const qsizetype most = bytes.size() / 4;
  if (zeros[1] > most && zeros[0] <= zeros[1] / 16) return QStringConverter::Utf16LE;
  if (zeros[0] > most && zeros[1] <= zeros[0] / 16) return QStringConverter::Utf16BE;
  return std::nullopt;
}

std::string decodedAs(QStringConverter::Encoding encoding, const QByteArray& bytes, bool& isSound) {
  QStringDecoder decoder(encoding, QStringConverter::Flag::Stateless);  // half a letter at the end is a fault
  const QString text = decoder(bytes);
  isSound = !decoder.hasError();
  return text.toStdString();
}

bool hasOneOf(const QByteArray& bytes, std::string_view set) {
  return std::ranges::any_of(bytes, [&](char byte) { return set.find(byte) != std::string_view::npos; });
}

// The bytes that are letters of central Europe in Windows-1250 and rare signs in Windows-1252: ő ű Ő Ű ł ą ś
// ť Ť ż ľ Ź; and the other way round £ À Ê Ñ à ã å æ ê ñ ò Å Æ.
constexpr std::string_view kCentral = "\xF5\xFB\xD5\xDB\xB3\xB9\x9C\x9D\x8D\xBF\xBE\x8F";
constexpr std::string_view kWestern = "\xA3\xC0\xCA\xD1\xE0\xE3\xE5\xE6\xEA\xF1\xF2\xC5\xC6";

// Windows-1252 is Latin-1 but for the bytes 80 to 9F, eight a row.
constexpr std::array<char16_t, 32> kWestern80 = {
    0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,  // 80
    0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,  // 88
    0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,  // 90
    0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178,  // 98
};

std::string decodedAsWestern(const QByteArray& bytes) {
  QString text = QString::fromLatin1(bytes);
  for (QChar& character : text)
    if (character.unicode() >= 0x80 && character.unicode() < 0xA0)
      character = QChar(kWestern80[character.unicode() - 0x80]);
  return text.toStdString();
}

}  // namespace

std::string decodedText(const QByteArray& bytes) {
  bool isSound = false;
  auto encoding = QStringConverter::encodingForData(bytes);
  if (!encoding) encoding = unmarkedUtf16(bytes);
  std::string text = decodedAs(encoding.value_or(QStringConverter::Utf8), bytes, isSound);
  if (isSound || encoding) return text;
  if (hasOneOf(bytes, kWestern) && !hasOneOf(bytes, kCentral)) return decodedAsWestern(bytes);
  return core::fromCodePage({bytes.data(), static_cast<std::size_t>(bytes.size())});
}

TextFile readTextFile(core::FileSystem& files, const std::string& path) {
  const core::OpenFile file = core::steps::openIfThere(files, path);
  if (!file.isOpen()) throw core::Failure(core::FailureKind::OpenFailed).file(path).systemError(ENOENT);
  const core::FileStatus status = core::steps::statusOf(files, file, path);
  if (status.size > kLargestTextFile) return {TextFile::Fault::TooLarge, status.size, {}};
  TextFile read{TextFile::Fault::None, status.size, decodedText(readWhole(files, file, status.size, path))};
  if (read.text.find('\0') != std::string::npos) read.fault = TextFile::Fault::NotText;
  return read;
}

}  // namespace tarvik::ui
