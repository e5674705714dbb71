#include "settings/lookup_list.h"

#include <algorithm>

#include "core/record_file.h"
#include "core/text.h"

namespace tarvik::settings {
namespace {

std::string comparable(std::string_view text) {
  return core::upperCased(core::trimmed(text));
}

// UTF-8 has one byte a character that is no continuation byte (10xxxxxx).
std::size_t characterCount(std::string_view utf8) {
  return static_cast<std::size_t>(std::ranges::count_if(utf8, [](char c) { return (c & 0xC0) != 0x80; }));
}

}  // namespace

LookupTexts loadLookupTexts(core::FileSystem& files, const core::DataFolders& folders,
                            const LookupFile& list) {
  return core::loadRecords<LookupText>(files, folders.inCurrent(list.name));
}

void appendLookupText(core::FileSystem& files, const core::DataFolders& folders, const LookupFile& list,
                      std::string_view text) {
  core::RecordFile file(files, folders.inCurrent(list.name), LookupText::kLength);
  file.append(core::encoded(LookupText{.text = core::FixedText<50>(text)}));
}

void removeLookupText(core::FileSystem& files, const core::DataFolders& folders, const LookupFile& list,
                      const core::SeenRecord& seen) {
  core::RecordFile file(files, folders.inCurrent(list.name), LookupText::kLength);
  file.remove(seen, folders.inCurrent(list.temporary));
}

std::vector<std::string> matching(const LookupTexts& texts, std::string_view newText) {
  const std::string wanted = comparable(newText);
  std::vector<std::string> found;
  for (int number = 1; number <= texts.count(); ++number) {
    std::string existing = texts.record(number).text.trimmed();
    if (core::upperCased(existing).find(wanted) != std::string::npos) found.push_back(std::move(existing));
  }
  return found;
}

std::optional<CompletedNote> completedNote(const LookupTexts& notes, std::string_view textBeforeSelection,
                                           std::string_view key) {
  // A space at the end is one of the characters typed, one at the beginning is not.
  textBeforeSelection.remove_prefix(
      std::min(textBeforeSelection.find_first_not_of(' '), textBeforeSelection.size()));
  const std::string prefix = core::upperCased(textBeforeSelection) + core::upperCased(key);
  for (int number = notes.count(); number >= 1; --number) {
    std::string note = notes.record(number).text.trimmed();
    if (core::upperCased(note).starts_with(prefix))
      return CompletedNote{std::move(note), characterCount(prefix)};
  }
  return std::nullopt;
}

}  // namespace tarvik::settings
