#pragma once

#include "exchange/csv_rows.h"

namespace tarvik::exchange {

/// Whether a row is named as a sum or an average: a cell says so alone, or the first one begins or ends with
/// it ("Összesen 400 l", "február összesen").
bool isTotal(const CsvRow& row);

/// The volumes of the rows of a file so far, by which a sum is known that nothing names.
class VolumesAbove {
 public:
  /// A row of that volume, in the units of the file.
  void add(double volume);
  /// A sum: another one counts from there.
  void beginPart() { part_ = {}; }
  /// Whether a volume is that of two rows and more, of those since the last sum or of all; it may be rounded
  /// to a whole number or to tenths.
  bool comeTo(double volume) const;

 private:
  struct Sum {
    double volume = 0;
    int rows = 0;

    void add(double more);
    bool comesTo(double other) const;
  };

  Sum part_;
  Sum all_;
};

}  // namespace tarvik::exchange
