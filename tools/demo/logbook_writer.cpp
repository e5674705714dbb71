#include "tools/demo/logbook_writer.h"

#include "core/ratio.h"
#include "core/record_codec.h"

namespace tarvik::demo {
namespace {

using core::Amount;
using core::NapiAdat;
using core::Ratio;

Amount roundedToHundredths(const Ratio& value) {
  return core::toAmount(Ratio(core::roundedAwayFromZero(value, 2), 100));
}

bool isReferenceFullFill(const NapiAdat& entry) {
  return entry.Teletank == core::kFlagSet && !entry.TankoltLiter.isZero();
}

// All fuel since the last full fill over the distance from it. The first entry of a logbook is never
// such a reference, and a figure below 1 is not recorded: both are the program's established rules.
Amount consumption(const std::vector<NapiAdat>& before, const Event& event) {
  Amount litres = event.litres;
  for (std::size_t number = before.size(); number > 1; --number) {
    const NapiAdat& entry = before[number - 1];
    if (!isReferenceFullFill(entry)) {
      litres = litres + entry.TankoltLiter;
      continue;
    }
    const Ratio distance = event.km - entry.KmOra;
    const Amount figure = roundedToHundredths(litres.ratio() / (distance / Ratio(100)));
    return figure < Amount{10'000} ? Amount{} : figure;
  }
  return {};
}

std::int16_t serviceFlag(const Event& event, char letter) {
  return core::toFlag(event.service.find(letter) != std::string::npos);
}

NapiAdat entryOf(const Event& event) {
  NapiAdat entry;
  entry.KmOra = event.km;
  entry.Datum = core::toStored(event.day);
  entry.Teletank = core::toFlag(event.isFull && !event.litres.isZero());
  entry.TankoltLiter = event.litres;
  entry.TankoltKtg = event.fuelCost;
  entry.AlkatreszKtg = event.partCost;
  if (!event.litres.isZero())
    entry.FtPerLiter = roundedToHundredths(Ratio(event.fuelCost) / event.litres.ratio());
  entry.Olajcsere = serviceFlag(event, 'o');
  entry.Szurocsere = serviceFlag(event, 's');
  entry.Gyertyacsere = serviceFlag(event, 'g');
  entry.Alkatresz = core::FixedText<50>(event.part);
  entry.MegjKtg = event.noteCost;
  entry.Megjegyzes = core::FixedText<50>(event.note);
  return entry;
}

}  // namespace

std::vector<NapiAdat> logbookOf(const std::vector<Event>& events) {
  std::vector<NapiAdat> entries;
  for (const Event& event : events) {
    NapiAdat entry = entryOf(event);
    entry.Fogyasztas = consumption(entries, event);
    entries.push_back(entry);
  }
  return entries;
}

}  // namespace tarvik::demo
