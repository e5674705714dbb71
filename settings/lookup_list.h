#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "core/data_folders.h"
#include "core/file_system.h"
#include "core/record_codec.h"
#include "core/record_list.h"

namespace tarvik::settings {

/// One entry of a lookup list: a part name or a note that the logbook's fields offer. 50 bytes.
struct LookupText {
  static constexpr std::size_t kLength = 50;

  core::FixedText<50> text;  ///< as typed

  /// In the order of the file.
  static constexpr std::tuple kFields{core::Field{"text", &LookupText::text}};

  friend bool operator==(const LookupText&, const LookupText&) = default;
};

/// A lookup list in file order.
using LookupTexts = core::RecordList<LookupText>;

/// Which lookup list: the names of its file and of the temporary file of a deletion, in the current folder.
struct LookupFile {
  const char* name;
  const char* temporary;
};

inline constexpr LookupFile kPartNames{"alkatr.dat", "alkx.dat"};
inline constexpr LookupFile kNotes{"megjegyz.dat", "megjx.dat"};

/// The whole list. A missing file is created empty. Throws as core::readRecords does.
LookupTexts loadLookupTexts(core::FileSystem& files, const core::DataFolders& folders,
                            const LookupFile& list);

/// Appends a text as typed, cut or padded to 50 characters. Throws as core::RecordFile does.
void appendLookupText(core::FileSystem& files, const core::DataFolders& folders, const LookupFile& list,
                      std::string_view text);

/// Removes a seen entry. Throws as core::RecordFile does: RecordChanged when it is no longer there.
void removeLookupText(core::FileSystem& files, const core::DataFolders& folders, const LookupFile& list,
                      const core::SeenRecord& seen);

/// The entries, trimmed and in file order, that contain the new text when case and the spaces around both
/// are set aside: the ones to ask about before the new text is added. The question goes this way round
/// only: "Olajszűrő" is not found by the entry "SZŰRŐ". A blank new text is contained in every entry.
std::vector<std::string> matching(const LookupTexts& texts, std::string_view newText);

/// A note that completes what is being typed.
struct CompletedNote {
  std::string note;                 ///< the note, trimmed
  std::size_t typedCharacters = 0;  ///< how many of its characters are typed already, the key included

  friend bool operator==(const CompletedNote&, const CompletedNote&) = default;
};

/// The note to offer when a key is typed behind a text: one that begins with the text and the key, case and
/// the spaces before the text aside. The last one in file order wins. key is one character.
std::optional<CompletedNote> completedNote(const LookupTexts& notes, std::string_view textBeforeSelection,
                                           std::string_view key);

}  // namespace tarvik::settings
