#pragma once

#include <string>
#include <vector>

#include "core/amount.h"
#include "core/napi_adat.h"
#include "print/page.h"
#include "print/ruled_table.h"

namespace tarvik::print {

/// The rows that the logbook list shows, in the order in which it shows them.
struct ListedRows {
  std::vector<int> records;  ///< record number of each row, counted from 1
  std::string firstKmOra;    ///< odometer column of the first row as the list shows it
  std::string lastKmOra;     ///< the same of the last row
};

/// The print-out of the logbook list: a ruled table of the listed rows, forty a page, with the heading
/// and the column titles on each page and the totals of distance and fuel under the last row.
///
/// Pages are made when they are asked for, so that a long logbook takes no more memory than a short one.
class ListDocument {
 public:
  /// Takes the listed rows of a logbook, which must outlive the document, and the heading (UTF-8, empty
  /// for none). A record number that the logbook does not have prints as a record of zero bytes. Throws
  /// Failure(OutOfRange) when the litres of all rows together do not fit an amount.
  ListDocument(const core::Logbook& logbook, ListedRows rows, std::string heading);

  /// Pages of the document, 0 without rows.
  int pageCount() const;

  /// The page of that number, 1 to pageCount().
  Page page(int number) const;

 private:
  void addRows(Page& page, int first, int end) const;
  void addTotals(Page& page, int rowsOnPage) const;

  const core::Logbook& logbook_;
  ListedRows rows_;
  std::string heading_;
  core::Amount litres_;
};

}  // namespace tarvik::print
