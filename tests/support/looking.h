#pragma once

#include <string>
#include <vector>

#include "core/failure.h"

namespace tarvik::test {

/// Takes a step, and leaves out what the program refuses.
template <typename Step>
void attempt(Step step) {
  try {
    step();
  } catch (const core::Failure&) {
  }
}

/// A kind of record, and everything that the program shows of a file of it.
struct RecordKind {
  std::string name{};
  std::size_t length = 0;
  /// Decodes each record of the file, encodes it again, and works out all that the screens show of it: lists,
  /// totals, figures, charts, pages. A figure that the program refuses (Failure) is left out, as it is on
  /// the screens. Returns the texts of the list of all records, a text a record.
  std::vector<std::string> (*look)(const std::string& file) = nullptr;
};

/// All kinds of records: the eight files' seven.
const std::vector<RecordKind>& recordKinds();

/// Whether a text is UTF-8 throughout.
bool isUtf8(std::string_view text);

}  // namespace tarvik::test
