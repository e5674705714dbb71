#include "ui/windows/riaszt.h"

#include <QShowEvent>

#include "reminders/km_alert.h"
#include "reminders/km_reminders.h"
#include "reminders/reminder_row.h"
#include "ui/base/change.h"
#include "ui/base/guarded.h"
#include "ui/base/handlers.h"
#include "ui/base/text.h"
#include "ui/lists/row_choice.h"
#include "ui/look/access.h"
#include "ui/look/dialog_parts.h"
#include "ui/look/enter_key.h"
#include "ui/look/figure_fields.h"
#include "ui/look/placement.h"
#include "ui/look/undo_line.h"
#include "ui/windows/reminder_parts.h"
#include "ui_riaszt.h"

namespace tarvik::ui {
namespace {

// The length of a line with a record number of four digits, and where its text begins.
constexpr int kLineCharacters = 63;
constexpr int kTextColumn = 12;

QFont fixedPitchFont(const QFont& like) {
  QFont font = like;
  font.setFamilies({QStringLiteral("Courier New"), QStringLiteral("Liberation Mono")});
  font.setStyleHint(QFont::Monospace);
  return font;
}

}  // namespace

riaszt::riaszt(Context& context, const QString& plate, QWidget* parent)
    : QDialog(parent), context_(context), plate_(toLogic(plate)), ui_(std::make_unique<Ui::riaszt>()) {
  ui_->setupUi(this);
  makeAccessible(*this);
  addClosingMenu(*this, ui_->mnu_bezar);
  prepareList();
  prepareFigures();
  choice_ = new RowChoice(ui_->List1, [this](int row) { return guarded(this, [&] { chooseLine(row); }); });
  onClick(this, ui_->cmd_torles, &riaszt::deleteChosen);
  connect(ui_->cmdBezar, &QPushButton::clicked, this, &QDialog::close);
  followEnterRule(*this);
  new UndoLine(context_, *this, *ui_->mainLayout,
               [this](const core::Travelled& travelled) { followChange(travelled); });
  keepWithinReach(*this);
  guarded(this, [this] { listLines(); });
  openInTheMiddle(*this);
}

riaszt::~riaszt() = default;

void riaszt::prepareList() {
  ui_->List1->setFont(fixedPitchFont(font()));
  const int character = QFontMetrics(ui_->List1->font()).horizontalAdvance(QLatin1Char('0'));
  const int border = ui_->List1->frameWidth() + style()->pixelMetric(QStyle::PM_FocusFrameHMargin) + 1;
  const int scrollBar = style()->pixelMetric(QStyle::PM_ScrollBarExtent);
  ui_->List1->setMinimumWidth(kLineCharacters * character + 2 * border + scrollBar);
  ui_->lbRogzDatuma->setMinimumWidth(kTextColumn * character + border);
}

// They can be read and copied, and the Tab key passes them by.
void riaszt::prepareFigures() {
  makeFigureFields(
      {ui_->tx_km_allas, ui_->tx_km_mulva, ui_->tx_megtett_km, ui_->tx_tullepve, ui_->tx_utolso_km},
      kLongestGrouped);
  QFont bold;
  bold.setBold(true);
  for (QLineEdit* figure : ui_->detailsBand->findChildren<QLineEdit*>()) {
    figure->setReadOnly(true);
    figure->setFocusPolicy(Qt::ClickFocus);
    figure->setFont(bold);
  }
}

void riaszt::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  if (!event->spontaneous()) ui_->List1->setCurrentRow(0);
}

void riaszt::listLines() {
  ui_->List1->clear();
  listed_ = reminders::loadKmReminders(context_.files, context_.folders);
  const std::int32_t reading = context_.state.currentReading;
  for (const std::string& line : listsEveryVehicle_ ? reminders::alertLinesOfAll(listed_, reading)
                                                    : reminders::alertLines(listed_, plate_, reading))
    ui_->List1->addItem(toQt(line));
}

void riaszt::chooseLine(int row) {
  const std::int16_t record = reminders::recordOfAlertLine(toLogic(ui_->List1->item(row)->text()));
  const reminders::FigyelRec reminder =
      reminders::loadKmReminders(context_.files, context_.folders).record(record);
  context_.state.alertSelection = record;
  fillField(ui_->tx_szoveg, reminder.Szoveg.asStored());
  fillField(ui_->tx_km_allas, reminders::grouped(reminder.KmAllas));
  fillField(ui_->tx_km_mulva, reminders::grouped(reminder.KmMulva));
  const auto figures = reminders::kmAlertFigures(reminder, context_.state.currentReading);
  fillField(ui_->tx_megtett_km, figures.runSince);
  fillField(ui_->tx_tullepve, figures.exceededBy);
  fillField(ui_->tx_utolso_km, figures.reading);
}

// What came back is chosen, as the first line is when the screen comes up.
void riaszt::followChange(const core::Travelled& travelled) {
  const std::string path = context_.folders.inCurrent("figyel.dat");
  if (!concerns(travelled, path)) return;
  choice_->keepPlace([this] { listLines(); });
  const int cameBack = recordThatCameBack(travelled, path);
  for (int row = 0; row < ui_->List1->count(); ++row)
    if (reminders::recordOfAlertLine(toLogic(ui_->List1->item(row)->text())) == cameBack)
      ui_->List1->setCurrentRow(row);
}

// Nobody is asked, the selection and the fields stay, and the list then has every vehicle's reminders.
void riaszt::deleteChosen() {
  if (context_.state.alertSelection == 0) return tellNothingSelected(this);
  const core::SeenRecord seen = listed_.seen(context_.state.alertSelection);
  const Step step(this, QStringLiteral("figyelmeztetés törlése"),
                  QStringLiteral("Törölve: %1").arg(reminderText<reminders::FigyelRec>(seen)));
  carryOut(this, {.done = QStringLiteral("A figyelmeztetés törölve van."),
                  .make =
                      [this] {
                        reminders::blankKmReminder(context_.files, context_.folders,
                                                   listed_.seen(context_.state.alertSelection));
                        listsEveryVehicle_ = true;
                      },
                  .forget = [this] { context_.state.alertSelection = 0; },
                  .list = [this] { choice_->keepPlace([this] { listLines(); }); }});
}

}  // namespace tarvik::ui
