#pragma once

#include <string>
#include <vector>

#include "print/page.h"
#include "print/ruled_table.h"

namespace tarvik::print {

/// A table of texts, such as a summary: a heading and ruled columns of one width, the first of names and the
/// others of figures, forty rows a page.
class TableDocument {
 public:
  /// Takes rows of as many cells as there are heads, and the heading (UTF-8, empty for none).
  TableDocument(std::vector<std::string> heads, std::vector<std::vector<std::string>> rows,
                std::string heading);

  /// Pages of the document, 0 without rows.
  int pageCount() const;

  /// The page of that number, 1 to pageCount().
  Page page(int number) const;

 private:
  std::vector<RuledColumn> columns() const;

  std::vector<std::string> heads_;
  std::vector<std::vector<std::string>> rows_;
  std::string heading_;
};

}  // namespace tarvik::print
