#include "ui/base/change_news.h"

#include <algorithm>

namespace tarvik::ui {

int recordThatCameBack(const core::Travelled& travelled, const std::string& path) {
  const auto found = std::ranges::find(travelled.files, path, &core::TravelledFile::path);
  if (found == travelled.files.end() || found->inserted == 0) return 0;
  return static_cast<int>(found->at / found->recordLength) + 1;
}

bool concerns(const core::Travelled& travelled, const std::string& path) {
  return std::ranges::find(travelled.files, path, &core::TravelledFile::path) != travelled.files.end();
}

}  // namespace tarvik::ui
