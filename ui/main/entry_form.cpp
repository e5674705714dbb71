#include "ui/main/entry_form.h"

#include <QEvent>
#include <QGridLayout>
#include <QLineEdit>
#include <QSignalBlocker>

#include "ui/base/change.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/look/access.h"
#include "ui/look/note_type_ahead.h"
#include "ui/look/undo_line.h"
#include "ui/main/entry_day.h"
#include "ui/main/reading_cue.h"
#include "ui_entry_form.h"

namespace tarvik::ui {

EntryForm::EntryForm(Context& context, QWidget* parent)
    : QWidget(parent), ui_(std::make_unique<Ui::EntryForm>()), context_(context) {
  ui_->setupUi(this);
  makeAccessible(*this);
  takeOutOfUse(*ui_->Command1);
  setUpFields();
  connectButtons();
}

EntryForm::~EntryForm() = default;

void EntryForm::setUpFields() {
  day_ = new EntryDay(context_.clock, *ui_->DTPicker1, *ui_->lbNemMai, *ui_->cmdMa);
  for (QLineEdit* field : {ui_->txKmOra, ui_->txTankoltLiter, ui_->txTankoltKtg, ui_->txAlkatreszKtg})
    connect(field, &QLineEdit::textChanged, this,
            [this, field] { guarded(window(), [&] { keepNumeric(field); }); });
  reading_ = new ReadingCue(*ui_->txKmOra, *ui_->FrameTank);
  for (QLineEdit* field : {ui_->txTankoltLiter, ui_->txTankoltKtg})
    connect(field, &QLineEdit::textChanged, this, [this] { guarded(window(), [this] { showPrice(); }); });
  ui_->txTankoltKtg->installEventFilter(this);
  new NoteTypeAhead(ui_->txMegjegyzes,
                    [this](const QString& typed, const QString& key) { return completedNote(typed, key); });
}

void EntryForm::connectButtons() {
  connect(ui_->cmd_rogzit, &QPushButton::clicked, this, [this] {
    day_->follow();
    emit recordWanted();
  });
  connect(ui_->cmd_modosit, &QPushButton::clicked, this, &EntryForm::modifyWanted);
  connect(ui_->cmd_del, &QPushButton::clicked, this, &EntryForm::deleteWanted);
  connect(ui_->cmd_lista, &QPushButton::clicked, this, &EntryForm::listWanted);
  connect(ui_->cmd_figyel, &QPushButton::clicked, this, &EntryForm::remindersWanted);
  connect(ui_->cmdAlkatresz, &QPushButton::clicked, this, [this] {
    guarded(window(),
            [this] { quickAdd(ui_->txAlkatresz, settings::kPartNames, QStringLiteral("alkatrész")); });
  });
  connect(ui_->cmdMegjegyzes, &QPushButton::clicked, this, [this] {
    guarded(window(),
            [this] { quickAdd(ui_->txMegjegyzes, settings::kNotes, QStringLiteral("megjegyzés")); });
  });
}

void EntryForm::load() {
  const auto fill = [this](QComboBox* field, const settings::LookupFile& list) {
    const auto texts = settings::loadLookupTexts(context_.files, context_.folders, list);
    for (int number = 1; number <= texts.count(); ++number)
      field->addItem(toQt(texts.record(number).text.asStored()));
  };
  guarded(window(), [&] { fill(ui_->txAlkatresz, settings::kPartNames); });
  ui_->txAlkatresz->setEditText({});
  guarded(window(), [&] { fill(ui_->txMegjegyzes, settings::kNotes); });
  ui_->txMegjegyzes->setEditText(QStringLiteral("Tankolás"));
  day_->showToday();
}

core::EntryInput EntryForm::input() const {
  return {.kmOra = toLogic(ui_->txKmOra->text()),
          .tankoltLiter = toLogic(ui_->txTankoltLiter->text()),
          .tankoltKtg = toLogic(ui_->txTankoltKtg->text()),
          .ftPerLiter = toLogic(ui_->lbFtperLiter->text()),
          .alkatresz = toLogic(ui_->txAlkatresz->currentText()),
          .alkatreszKtg = toLogic(ui_->txAlkatreszKtg->text()),
          .megjegyzes = toLogic(ui_->txMegjegyzes->currentText()),
          .megjKtg = toLogic(ui_->txMegjKtg->text()),
          .datum = toLogic(ui_->DTPicker1->date()),
          .teletank = ui_->ChkTeletank->isChecked(),
          .olajcsere = ui_->ChkOlajcsere->isChecked(),
          .szurocsere = ui_->ChkSzurocsere->isChecked(),
          .gyertyacsere = ui_->ChkGyertyacsere->isChecked()};
}

// The price follows the typing, not an entry that is shown.
void EntryForm::showInput(const core::EntryInput& input) {
  const QSignalBlocker quietLitres(ui_->txTankoltLiter);
  const QSignalBlocker quietCost(ui_->txTankoltKtg);
  ui_->txTankoltLiter->setText(toQt(input.tankoltLiter));
  ui_->txMegjKtg->setText(toQt(input.megjKtg));
  ui_->txAlkatresz->setEditText(toQt(input.alkatresz));
  ui_->txAlkatreszKtg->setText(toQt(input.alkatreszKtg));
  ui_->lbFtperLiter->setText(toQt(input.ftPerLiter));
  ui_->txKmOra->setText(toQt(input.kmOra));
  ui_->txMegjegyzes->setEditText(toQt(input.megjegyzes));
  ui_->txTankoltKtg->setText(toQt(input.tankoltKtg));
  ui_->ChkGyertyacsere->setChecked(input.gyertyacsere);
  ui_->ChkOlajcsere->setChecked(input.olajcsere);
  ui_->ChkSzurocsere->setChecked(input.szurocsere);
  ui_->ChkTeletank->setChecked(input.teletank);
  reading_->rest();
}

void EntryForm::showEntry(const core::ShownEntry& entry) {
  showInput(entry.input);
  if (entry.datum) day_->show(*entry.datum);
}

void EntryForm::MezoDel() {
  for (QLineEdit* field : {ui_->txTankoltLiter, ui_->txAlkatreszKtg, ui_->txKmOra, ui_->txTankoltKtg})
    field->clear();
  for (QComboBox* field : {ui_->txAlkatresz, ui_->txMegjegyzes}) field->setEditText({});
  ui_->lbFtperLiter->clear();
  for (QCheckBox* box : {ui_->ChkGyertyacsere, ui_->ChkOlajcsere, ui_->ChkSzurocsere, ui_->ChkTeletank})
    box->setChecked(false);
}

void EntryForm::beginNext() {
  ui_->txMegjKtg->setText(toQt(core::withDefaults(input()).megjKtg));
  MezoDel();
  ui_->ChkTeletank->setChecked(true);
}

bool EntryForm::refusesBlankKm() {
  if (!isBlank(ui_->txKmOra->text())) return false;
  tellError(window(), QStringLiteral(" H i b a !"),
            QStringLiteral("Nincs beírva kilométer óra állás!\nÍgy nem rögzíthető..."));
  startTyping();
  return true;
}

void EntryForm::startTyping(Qt::FocusReason reason) {
  ui_->txKmOra->setFocus(reason);
}

void EntryForm::setEarlier(const core::EarlierReadings& earlier) {
  reading_->setEarlier(earlier);
}

void EntryForm::setChosen(bool isChosen) {
  ui_->cmd_del->setEnabled(isChosen);
  ui_->cmd_modosit->setEnabled(isChosen);
}

QPushButton& EntryForm::chartButton() {
  return *ui_->cmdGrafikon;
}

// The Tab key goes by the lines.
void EntryForm::setNarrowTank(bool isNarrow) {
  QGridLayout& tank = *ui_->tankLayout;
  QWidget* const cue = ui_->lbNemMai;
  QWidget* const back = ui_->cmdMa;
  QWidget* const full = ui_->ChkTeletank;
  if (isNarrow) {
    tank.addWidget(full, 2, 0, 1, 2);
    tank.addWidget(cue, 2, 2, 1, 3, Qt::AlignRight | Qt::AlignVCenter);
    tank.addWidget(back, 2, 5, Qt::AlignLeft);
  } else {
    tank.addWidget(cue, 0, 6, 1, 2);
    tank.addWidget(back, 1, 6);
    tank.addWidget(full, 1, 7);
  }
  ui_->FrameTank->updateGeometry();
  setTabOrder(ui_->DTPicker1, isNarrow ? full : back);
}

int EntryForm::wideWidth() const {
  return ui_->entryBand->wideWidth();
}

void EntryForm::quickAdd(QComboBox* field, const settings::LookupFile& list, const QString& what) {
  if (!ask(window(), QStringLiteral(" Rögzítés az adatállományba !"),
           QStringLiteral("Biztos JÓ az adat ?\nMehet a rögzítés ?"), DefaultAnswer::Yes))
    return;
  const QString typed = field->currentText();
  const auto known = settings::loadLookupTexts(context_.files, context_.folders, list);
  for (const std::string& text : settings::matching(known, toLogic(typed))) {
    const QString prompt =
        QStringLiteral("Ez az %1 már szerepel az adatbázisban\n \n'' %2 ''  néven!\n \nMég is felveszed?");
    if (!ask(window(), QStringLiteral(" Meglévő megjegyzés!"), prompt.arg(what, toQt(text)),
             DefaultAnswer::No))
      return;
  }
  const Step step(this, QStringLiteral("felvétel, %1").arg(typed.trimmed()),
                  QStringLiteral("Felvéve: %1").arg(typed.trimmed()));
  carryOut(
      window(),
      {.done = QStringLiteral("A szöveg fel van véve."),
       .make = [&] { settings::appendLookupText(context_.files, context_.folders, list, toLogic(typed)); },
       .list = [&] { fillTexts(field, list); },
       .incomplete = QStringLiteral("A legördülő lista nem teljes.")});
  field->setFocus();
}

void EntryForm::follow(const core::Travelled& travelled) {
  for (const auto& [field, list] :
       {std::pair{ui_->txAlkatresz, &settings::kPartNames}, {ui_->txMegjegyzes, &settings::kNotes}})
    if (concerns(travelled, context_.folders.inCurrent(list->name))) fillTexts(field, *list);
}

// What is typed stays, whatever becomes of the list under it.
void EntryForm::fillTexts(QComboBox* field, const settings::LookupFile& list) {
  const QString typed = field->currentText();
  field->clear();
  field->setEditText(typed);
  const auto texts = settings::loadLookupTexts(context_.files, context_.folders, list);
  for (int number = 1; number <= texts.count(); ++number)
    field->addItem(toQt(texts.record(number).text.trimmed()));
  field->setEditText(typed);
}

std::optional<settings::CompletedNote> EntryForm::completedNote(const QString& typed, const QString& key) {
  std::optional<settings::CompletedNote> found;
  noteSearch_.run(window(), [&] {
    const auto notes = settings::loadLookupTexts(context_.files, context_.folders, settings::kNotes);
    found = settings::completedNote(notes, toLogic(typed), toLogic(key));
  });
  return found;
}

// The focus is the field's again, and the cursor where the stray letter was.
void EntryForm::keepNumeric(QLineEdit* field) {
  const QString text = field->text();
  const int cursor = field->cursorPosition();
  const core::TextAtCursor kept =
      core::numericPart({.before = toLogic(text.left(cursor)), .behind = toLogic(text.mid(cursor))},
                        field == ui_->txTankoltLiter ? core::Point::Comma : core::Point::Groups);
  const QString before = toQt(kept.before);
  if (before + toQt(kept.behind) == text) return;
  field->setText(before + toQt(kept.behind));
  field->setFocus();
  field->setCursorPosition(static_cast<int>(before.size()));
}

void EntryForm::showPrice() {
  const auto price =
      core::pricePerLitre(toLogic(ui_->txTankoltKtg->text()), toLogic(ui_->txTankoltLiter->text()));
  if (price) ui_->lbFtperLiter->setText(toQt(*price));
}

bool EntryForm::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::FocusOut) guarded(window(), [this] { showPrice(); });
  return QWidget::eventFilter(watched, event);
}

}  // namespace tarvik::ui
