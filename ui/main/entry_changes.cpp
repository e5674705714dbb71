#include "ui/main/entry_changes.h"

#include <utility>

#include "core/entry_editing.h"
#include "core/number_text.h"
#include "core/text.h"
#include "tyres/tyre_register.h"
#include "ui/base/change.h"
#include "ui/base/handlers.h"
#include "ui/base/message_boxes.h"
#include "ui/base/text.h"
#include "ui/look/undo_line.h"
#include "ui/main/entry_form.h"
#include "ui/main/logbook_pane.h"

namespace tarvik::ui {
namespace {

const QString kNotRecorded = QStringLiteral("Így nem rögzíthető...");

// What an entry is about, in a word: "tankolás", the part that was changed, or the note.
QString kindOf(bool hasFuel, const QString& part, const QString& note) {
  if (hasFuel) return QStringLiteral("tankolás");
  if (!isBlank(part)) return part.trimmed();
  return isBlank(note) ? QStringLiteral("bejegyzés") : note.trimmed();
}

QString dayAndKind(const core::EntryInput& input) {
  return toQt(core::shortDate(input.datum)) + QLatin1Char(' ') +
         kindOf(!core::plainNumber(input.tankoltLiter).isZero(), toQt(input.alkatresz),
                toQt(input.megjegyzes));
}

QString dayAndKind(const core::NapiAdat& entry) {
  return toQt(core::shortDateOfStored(entry.Datum)) + QLatin1Char(' ') +
         kindOf(!entry.TankoltLiter.isZero(), toQt(entry.Alkatresz.trimmed()),
                toQt(entry.Megjegyzes.trimmed()));
}

QString nameOf(const QString& action, const QString& day) {
  return action + QStringLiteral(", ") + day;
}

}  // namespace

EntryChanges::EntryChanges(Context& context, EntryForm& form, LogbookPane& pane, Plate plate,
                           PlateCheck refusesBlankPlate)
    : QObject(&form),
      context_(context),
      form_(form),
      pane_(pane),
      plate_(std::move(plate)),
      refusesBlankPlate_(std::move(refusesBlankPlate)) {
  onSignal(&form, &EntryForm::recordWanted, this, &EntryChanges::record);
  onSignal(&form, &EntryForm::modifyWanted, this, &EntryChanges::modify);
  onSignal(&form, &EntryForm::deleteWanted, this, &EntryChanges::remove);
}

std::string EntryChanges::plate() const {
  return toLogic(plate_());
}

bool EntryChanges::change(const QString& done, const std::function<void()>& make) {
  return carryOut(form_.window(), {.done = done, .make = make, .list = [this] { pane_.relistInPlace(); }});
}

// Who corrects the chosen entry and goes on with Enter means no second one. What does not convert is told
// when it is recorded.
bool EntryChanges::wouldDouble(const core::EntryInput& input) const {
  const ListedLogbook& listed = pane_.listed();
  const core::Logbook& logbook = listed.listing.logbook;
  bool isDouble = false;
  if (core::trimmed(plate()) == listed.plate)
    quietly([&] {
      isDouble = core::hasEntry(logbook, input) ||
                 (listed.selected > 0 && core::mayBeMeantFor(logbook.record(listed.selected), input));
    });
  return isDouble;
}

void EntryChanges::record() {
  if (form_.refusesBlankKm() || refusesBlankPlate_(kNotRecorded)) return;
  const core::EntryInput input = form_.input();
  if (!ask(form_.window(), QStringLiteral(" Rögzítés az adatállományban !"),
           QStringLiteral("Biztos JÓK az adatok ?\nMehet a rögzítés ?"),
           wouldDouble(input) ? DefaultAnswer::No : DefaultAnswer::Yes))
    return;
  form_.startTyping();
  const Step step(&form_, nameOf(QStringLiteral("rögzítés"), toQt(core::shortDate(input.datum))),
                  QStringLiteral("Rögzítve: ") + dayAndKind(input));
  Attempt tyres;
  const bool isDone = change(QStringLiteral("A bejegyzés rögzítve van."), [&] {
    const core::Ratio distance = core::recordEntry(context_.files, context_.folders, plate(), input);
    tyres = addDistanceToTyres(distance);
    form_.beginNext();
  });
  if (isDone && !tyres.isDone()) tell(form_.window(), tyres.text);
  if (isDone) pane_.markNewest();
}

// The entry is in the logbook by now, whatever becomes of the tyres.
Attempt EntryChanges::addDistanceToTyres(const core::Ratio& distance) {
  return attempted(
      [&] { tyres::addDistance(context_.files, context_.folders, plate(), distance); },
      {.failed =
           QStringLiteral("A bejegyzés rögzítve van, de a felszerelt gumi futott kilométere nem változott."),
       .unsure = QStringLiteral("A bejegyzés rögzítve van. Nézd meg a gumik listáján, hogy a felszerelt gumi "
                                "futott kilométere megváltozott-e!")});
}

void EntryChanges::modify() {
  if (form_.refusesBlankKm()) return;
  if (pane_.listed().selected == 0)
    return tellError(form_.window(), QStringLiteral(" H i b a !"),
                     QStringLiteral("Nincs kijelölve módosítandó tétel!\n"));
  if (refusesBlankPlate_(kNotRecorded)) return;
  const core::SeenRecord seen = pane_.seenEntry();
  if (!ask(form_.window(), QStringLiteral(" Módosítás az adatállományban !"),
           QStringLiteral("Biztos JÓK az adatok ?\nMehet a módosítás ?"), DefaultAnswer::No))
    return;
  const core::EntryInput input = core::withDefaults(form_.input());
  const Step step(&form_, nameOf(QStringLiteral("módosítás"), toQt(core::shortDate(input.datum))),
                  QStringLiteral("Módosítva: ") + dayAndKind(input));
  change(QStringLiteral("A bejegyzés módosítva van."), [&] {
    core::modifyEntry(context_.files, context_.folders, plate(), seen, input,
                      toLogic(pane_.consumptionText()));
    form_.showInput(input);
  });
}

void EntryChanges::remove() {
  if (pane_.listed().selected == 0) return;
  if (refusesBlankPlate_(QStringLiteral("Így nem törölhető..."))) return;
  core::openDeletion(context_.files, context_.folders, plate());
  const core::SeenRecord seen = pane_.seenEntry();
  const auto entry = core::recordOf<core::NapiAdat>(seen);
  const QString prompt = QStringLiteral("Biztos T Ö R Ö L H E T Ő\na %1 tétel? ")
                             .arg(toQt(core::shortDateOfStored(entry.Datum)));
  if (!ask(form_.window(), QStringLiteral(" TÖRLÉS az adatállományból !"), prompt, DefaultAnswer::No)) return;
  const Step step(&form_, nameOf(QStringLiteral("törlés"), toQt(core::shortDateOfStored(entry.Datum))),
                  QStringLiteral("Törölve: ") + dayAndKind(entry));
  change(QStringLiteral("A bejegyzés törölve van."),
         [&] { core::deleteEntry(context_.files, context_.folders, plate(), seen); });
  pane_.takeKeyboard();
}

}  // namespace tarvik::ui
