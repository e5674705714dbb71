#include "ui/main/result_band.h"

#include <QEvent>
#include <QLineEdit>

#include "ui/base/guarded.h"
#include "ui/base/text.h"
#include "ui/look/look.h"
#include "ui_result_band.h"

namespace tarvik::ui {
namespace {

void showText(QLabel* label, const std::optional<std::string>& text) {
  if (text) label->setText(toQt(*text));
}

// A figure that the listing does not give is an earlier one's: it stands back, and is told so.
void showTotal(QLineEdit& field, const std::optional<std::string>& text) {
  if (text) field.setText(toQt(*text));
  const bool isEarlier = !text && !field.text().isEmpty();
  showDimmed(field, isEarlier);
  field.setAccessibleDescription(isEarlier ? QStringLiteral("Egy korábbi lista adata") : QString());
}

}  // namespace

ResultBand::ResultBand(const core::Listing& listing, QWidget* parent)
    : SideBySide(parent), ui_(std::make_unique<Ui::ResultBand>()), listing_(listing) {
  ui_->setupUi(this);
  for (QLineEdit* field :
       {ui_->tx_teljes_ktg, ui_->ob_ktg, ui_->txAlkatreszKoltseg, ui_->tx_liter, ui_->tx_megtett_km})
    field->installEventFilter(this);
}

ResultBand::~ResultBand() = default;

void ResultBand::showTotals() {
  core::Totals found;
  try {
    core::updateTotals(listing_, found);
  } catch (...) {
    showTexts(found);
    throw;
  }
  showTexts(found);
}

void ResultBand::forgetTotals() {
  showTexts({"", "", "", "", "", ""});
}

void ResultBand::showTexts(const core::Totals& found) {
  showTotal(*ui_->tx_teljes_ktg, found.teljesKtg);
  showTotal(*ui_->ob_ktg, found.benzinKtg);
  showTotal(*ui_->txAlkatreszKoltseg, found.alkatreszKoltseg);
  showTotal(*ui_->tx_megtett_km, found.megtettKm);
  showTotal(*ui_->tx_liter, found.liter);
  showTotal(*ui_->tx_fogyaszt, found.fogyaszt);
}

void ResultBand::showStatistics(const core::Statistics& found) {
  showText(ui_->lbPillAtlag, found.pillAtlag);
  showText(ui_->lbDatum, found.datum);
  showText(ui_->lbKm, found.km);
  showText(ui_->lb_ft_km, found.ftPerKm);
}

QString ResultBand::averageText() const {
  return ui_->tx_fogyaszt->text();
}

QString ResultBand::consumptionText() const {
  return ui_->lbPillAtlag->text();
}

bool ResultBand::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Enter || event->type() == QEvent::MouseMove ||
      event->type() == QEvent::ToolTip)
    guarded(window(), [&] { showHint(watched); });
  return SideBySide::eventFilter(watched, event);
}

void ResultBand::showHint(QObject* field) {
  auto* edit = static_cast<QLineEdit*>(field);
  const std::string text = toLogic(edit->text());
  const auto hintOf = edit == ui_->tx_liter        ? &core::litresPerDay
                      : edit == ui_->tx_megtett_km ? &core::kmPerDay
                                                   : &core::costPerDay;
  if (const auto hint = hintOf(listing_, text)) edit->setToolTip(toQt(*hint));
}

}  // namespace tarvik::ui
