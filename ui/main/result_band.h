#pragma once

#include <memory>

#include "core/statistics.h"
#include "core/totals.h"
#include "ui/look/side_by_side.h"

namespace Ui {
class ResultBand;
}

namespace tarvik::ui {

/// What is worked out from the listed logbook: its totals, with a hint a day under the pointer, and beside or
/// below them the statistics of the entry chosen last.
class ResultBand : public SideBySide {
  Q_OBJECT

 public:
  /// Empty at first. The listing outlives the band.
  ResultBand(const core::Listing& listing, QWidget* parent);
  ~ResultBand() override;

  /// Brings the totals up to the listing, see core::updateTotals; what was worked out before a failure is
  /// shown. A figure that the listing does not give stays, dimmed.
  void showTotals();
  /// Empties the totals: what they are of is not listed any more.
  void forgetTotals();
  /// Shows what was found; what was not found leaves its label as it is.
  void showStatistics(const core::Statistics& found);

  /// The overall average consumption as it is shown, with its unit.
  QString averageText() const;
  /// The consumption of the entry chosen last as it is shown, or why there is none.
  QString consumptionText() const;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void showTexts(const core::Totals& found);
  void showHint(QObject* field);

  std::unique_ptr<Ui::ResultBand> ui_;
  const core::Listing& listing_;
};

}  // namespace tarvik::ui
