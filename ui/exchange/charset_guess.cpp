#include "ui/exchange/charset_guess.h"

#include <uchardet.h>

#include <algorithm>
#include <memory>

namespace tarvik::ui {

std::string guessedCharset(const QByteArray& bytes) {
  constexpr qsizetype kEnough = 256 * 1024;
  const std::unique_ptr<uchardet, decltype(&uchardet_delete)> detector(uchardet_new(), &uchardet_delete);
  const auto size = static_cast<std::size_t>(std::min(bytes.size(), kEnough));
  if (!detector || uchardet_handle_data(detector.get(), bytes.data(), size) != 0) return {};
  uchardet_data_end(detector.get());
  return uchardet_get_charset(detector.get());
}

}  // namespace tarvik::ui
