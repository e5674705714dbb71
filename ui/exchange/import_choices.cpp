#include "ui/exchange/import_choices.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLineEdit>
#include <algorithm>

#include "core/number_text.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"

namespace tarvik::ui {
namespace {

using exchange::Question;
using exchange::Reading;

constexpr int kMostRates = 4;
constexpr char kSeparators[] = {';', ',', '\t', '|'};

struct Money {
  const char* code;
  const char* name;
};

// The code of ISO 4217 for no currency: the person knows which it is, and names its rate alone.
constexpr const char* kUnlisted = "XXX";

constexpr Money kMoney[] = {{"HUF", "forint"},        {"EUR", "euró"},           {"USD", "amerikai dollár"},
                            {"GBP", "angol font"},    {"CHF", "svájci frank"},   {"CZK", "cseh korona"},
                            {"PLN", "lengyel zloty"}, {"RON", "román lej"},      {"RSD", "szerb dinár"},
                            {"UAH", "ukrán hrivnya"}, {kUnlisted, "más pénznem"}};

QStringList moneyNames() {
  QStringList names;
  for (const Money& money : kMoney)
    names.append(
        money.code == std::string(kUnlisted)
            ? QString::fromUtf8(money.name)
            : QStringLiteral("%1 (%2)").arg(QString::fromUtf8(money.name), QString::fromUtf8(money.code)));
  return names;
}

QString rateLabel(const std::string& currency) {
  if (currency == kUnlisted) return QStringLiteral("A fájl pénzneme hány &forint:");
  return QStringLiteral("1 %1 hány &forint:").arg(toQt(currency));
}

// A number above 0 with a decimal comma, or a point as other programs write it.
std::optional<core::Ratio> typedNumber(const QLineEdit& field) {
  const QString typed = field.text().replace(QLatin1Char('.'), QLatin1Char(','));
  const auto number = core::localeNumber(toLogic(typed));
  return number && *number >= 0 ? number : std::nullopt;
}

bool isAsked(const Reading& reading, Question question) {
  return std::ranges::find(reading.asked, question) != reading.asked.end();
}

void setItems(QComboBox& box, const QStringList& items) {
  QStringList shown;
  for (int i = 0; i < box.count(); ++i) shown.append(box.itemText(i));
  if (shown == items) return;
  box.clear();
  box.addItems(items);
}

}  // namespace

ImportChoices::ImportChoices(QWidget* parent) : QWidget(parent), form_(new QFormLayout(this)) {
  form_->setContentsMargins({});
  form_->setFieldGrowthPolicy(QFormLayout::FieldsStayAtSizeHint);
  form_->setRowWrapPolicy(QFormLayout::WrapLongRows);
  vehicle_ = addBox("cmbJarmu", QStringLiteral("Gépk&ocsi:"), {});
  days_ = addBox(
      "cmbNapok", QStringLiteral("&Dátumok sorrendje:"),
      {QStringLiteral("nap, hónap, év"), QStringLiteral("hónap, nap, év"), QStringLiteral("év, hónap, nap")});
  distance_ = addBox("cmbTavolsag", QStringLiteral("&Távolság:"),
                     {QStringLiteral("kilométer"), QStringLiteral("mérföld (1,609 km)")});
  volume_ = addBox("cmbMennyiseg", QStringLiteral("M&ennyiség:"),
                   {QStringLiteral("liter"), QStringLiteral("amerikai gallon (3,785 liter)"),
                    QStringLiteral("angol gallon (4,546 liter)")});
  setUpTrips();
  fullWord_ = addBox("cmbTele", QStringLiteral("Te&le tank szava:"), {});
  currency_ = addBox("cmbPenznem", QStringLiteral("&Pénznem:"), moneyNames());
  setUpRates();
  place_ = addBox("cmbHely", QStringLiteral("&Helye a naplóban:"),
                  {QStringLiteral("nap szerint a helyére"), QStringLiteral("a napló végére")});
  place_->setCurrentIndex(0);
  sign_ = addBox("cmbTizedes", QStringLiteral("Ti&zedesjel:"),
                 {QStringLiteral("vessző (40,5)"), QStringLiteral("pont (40.5)")});
  separator_ = addBox("cmbElvalaszto", QStringLiteral("Elvála&sztó:"),
                      {QStringLiteral("pontosvessző"), QStringLiteral("vessző"), QStringLiteral("tabulátor"),
                       QStringLiteral("függőleges vonal")});
  QStringList encodings;
  for (int i = 0; i < kEncodings; ++i) encodings.append(nameOf(static_cast<Encoding>(i)));
  encoding_ = addBox("cmbKodolas", QStringLiteral("&Kódolás:"), encodings);
  listen();
}

QComboBox* ImportChoices::addBox(const char* name, const QString& label, const QStringList& items) {
  auto* box = new QComboBox(this);
  box->setObjectName(QString::fromLatin1(name));
  box->setPlaceholderText(QStringLiteral("Válaszd ki!"));
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  box->addItems(items);
  box->setCurrentIndex(-1);
  auto* text = new QLabel(label, this);
  text->setObjectName(QStringLiteral("lb") + box->objectName().mid(3));
  text->setBuddy(box);
  form_->addRow(text, box);
  return box;
}

QLineEdit* ImportChoices::addField(const char* name, const QString& label) {
  auto* field = new QLineEdit(this);
  field->setObjectName(QString::fromLatin1(name));
  field->setProperty("longest", QStringLiteral("9999999,99"));
  field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
  auto* text = new QLabel(label, this);
  text->setObjectName(QStringLiteral("lb") + field->objectName().mid(2));
  text->setBuddy(field);
  form_->addRow(text, field);
  return field;
}

void ImportChoices::setUpRates() {
  for (int i = 0; i < kMostRates; ++i) {
    const QString name = i == 0 ? QStringLiteral("txValto") : QStringLiteral("txValto_%1").arg(i);
    rates_.push_back(addField(name.toLatin1().constData(), QStringLiteral("&Váltószám:")));
  }
}

void ImportChoices::setUpTrips() {
  tripStart_ = addBox("cmbKmKezdet", QStringLiteral("Km ó&ra állása:"),
                      {QStringLiteral("az első tankolás előtt"), QStringLiteral("az utolsó tankoláskor")});
  tripStart_->setCurrentIndex(0);
  tripReading_ = addField("txKmKezdet", QStringLiteral("E&nnyit mutatott, km:"));
}

void ImportChoices::listen() {
  for (QComboBox* box : {vehicle_, days_, distance_, volume_, fullWord_, currency_, sign_, tripStart_})
    connect(box, &QComboBox::currentIndexChanged, this, &ImportChoices::chosen);
  for (QLineEdit* field : rates_) connect(field, &QLineEdit::textChanged, this, &ImportChoices::chosen);
  connect(tripReading_, &QLineEdit::textChanged, this, &ImportChoices::chosen);
  for (QComboBox* box : {encoding_, separator_})
    connect(box, &QComboBox::currentIndexChanged, this, [this] {
      if (!isShowing_) emit shapeChanged();
    });
  connect(place_, &QComboBox::currentIndexChanged, this, [this] {
    if (!isShowing_) emit placeChanged();
  });
}

// Only the field that was changed is an answer; what the others show was found out.
void ImportChoices::chosen() {
  if (isShowing_) return;
  const QObject* field = sender();
  const auto* box = qobject_cast<const QComboBox*>(field);
  const int index = box == nullptr ? -1 : box->currentIndex();
  if (box == days_ && index >= 0) choices_.dayOrder = static_cast<exchange::DayOrder>(index);
  if (box == distance_ && index >= 0) choices_.distance = static_cast<exchange::DistanceUnit>(index);
  if (box == volume_ && index >= 0) choices_.volume = static_cast<exchange::VolumeUnit>(index);
  if (box == sign_ && index >= 0) choices_.sign = static_cast<exchange::DecimalSign>(index);
  if (box == vehicle_ && index >= 0) choices_.vehicle = static_cast<std::size_t>(index);
  if (box == currency_ && index >= 0) choices_.currency = kMoney[index].code;
  if (box == fullWord_ && index >= 0) choices_.fullWord = toLogic(box->currentData().toString());
  takeTrip();
  takeRates();
  emit choiceChanged();
}

void ImportChoices::takeTrip() {
  choices_.tripStart.reset();
  if (const auto reading = typedNumber(*tripReading_))
    choices_.tripStart = exchange::TripStart{tripStart_->currentIndex() == 0, *reading};
}

void ImportChoices::takeRates() {
  for (std::size_t i = 0; i < std::min(rates_.size(), reading_.currencies.size()); ++i) {
    const auto rate = typedNumber(*rates_[i]);
    if (rate && *rate > 0)
      choices_.rates[reading_.currencies[i]] = *rate;
    else
      choices_.rates.erase(reading_.currencies[i]);
  }
}

void ImportChoices::showRow(QWidget* field, bool isShown) {
  form_->setRowVisible(field, isShown);
}

void ImportChoices::showUnits(const Reading& reading) {
  const auto show = [&](QComboBox* box, Question question, int index) {
    box->setCurrentIndex(reading.isOpen(question) ? -1 : index);
  };
  show(days_, Question::DayOrder, static_cast<int>(reading.dayOrder));
  show(distance_, Question::DistanceUnit, static_cast<int>(reading.distance));
  const bool isGallonOpen = reading.isOpen(Question::Gallon) || reading.isOpen(Question::VolumeUnit);
  volume_->setCurrentIndex(isGallonOpen ? -1 : static_cast<int>(reading.volume));
  show(sign_, Question::DecimalSign, static_cast<int>(reading.sign));
  for (QComboBox* box : {distance_, volume_}) showRow(box, !reading.isOwn);
  const bool isTrip = isAsked(reading, Question::TripStart);
  showRow(tripStart_, isTrip);
  showRow(tripReading_, isTrip);
}

void ImportChoices::showMoney(const Reading& reading) {
  const auto* found =
      std::ranges::find(kMoney, reading.currency, [](const Money& money) { return std::string(money.code); });
  const int index =
      found == std::end(kMoney) ? static_cast<int>(std::size(kMoney)) - 1 : static_cast<int>(found - kMoney);
  currency_->setCurrentIndex(reading.isOpen(Question::Currency) ? -1 : index);
  showRow(currency_, reading.hasCosts && !reading.isOwn);
  for (std::size_t i = 0; i < rates_.size(); ++i) {
    const bool isShown = i < reading.currencies.size();
    showRow(rates_[i], isShown);
    if (isShown)
      qobject_cast<QLabel*>(form_->labelForField(rates_[i]))->setText(rateLabel(reading.currencies[i]));
  }
}

void ImportChoices::showVehicles(const Reading& reading) {
  QStringList names;
  for (const exchange::VehicleRows& vehicle : reading.vehicles) names.append(wordsOf(vehicle));
  if (!names.isEmpty()) names.append(QStringLiteral("minden sor"));
  setItems(*vehicle_, names);
  vehicle_->setCurrentIndex(reading.vehicle ? static_cast<int>(*reading.vehicle) : -1);
  showRow(vehicle_, !names.isEmpty());
}

void ImportChoices::showWords(const Reading& reading) {
  QStringList names;
  int full = -1;
  for (const exchange::FullWord& word : reading.fullWords) {
    if (word.isFull.value_or(false) && full < 0) full = static_cast<int>(names.size());
    const QString text =
        word.word.empty() ? QStringLiteral("(üres)") : QStringLiteral("„%1”").arg(toQt(word.word));
    names.append(QStringLiteral("%1 (%2 sor)").arg(text, toQt(std::to_string(word.rows))));
  }
  setItems(*fullWord_, names);
  for (int i = 0; i < fullWord_->count(); ++i)
    fullWord_->setItemData(i, toQt(reading.fullWords[static_cast<std::size_t>(i)].word));
  fullWord_->setCurrentIndex(reading.isOpen(Question::FullWord) ? -1 : full);
  showRow(fullWord_, !names.isEmpty());
}

void ImportChoices::show(const Reading& reading, const FileShape& shape, bool doPlacesDiffer) {
  isShowing_ = true;
  reading_ = reading;
  showUnits(reading);
  showMoney(reading);
  showVehicles(reading);
  showWords(reading);
  showRow(place_, doPlacesDiffer);
  encoding_->setCurrentIndex(static_cast<int>(shape.encoding));
  const auto* separator = std::ranges::find(kSeparators, shape.separator);
  separator_->setCurrentIndex(static_cast<int>(separator - kSeparators));
  isShowing_ = false;
}

FileShape ImportChoices::shape() const {
  return {static_cast<Encoding>(std::max(encoding_->currentIndex(), 0)),
          kSeparators[std::max(separator_->currentIndex(), 0)]};
}

exchange::Place ImportChoices::place() const {
  return place_->currentIndex() == 1 ? exchange::Place::AtEnd : exchange::Place::InOrder;
}

QWidget* ImportChoices::fieldOf(Question question) const {
  switch (question) {
    case Question::DayOrder:
      return days_;
    case Question::DecimalSign:
      return sign_;
    case Question::DistanceUnit:
      return distance_;
    case Question::VolumeUnit:
    case Question::Gallon:
      return volume_;
    case Question::FullWord:
      return fullWord_;
    case Question::Vehicle:
      return vehicle_;
    case Question::TripStart:
      return tripReading_;
    case Question::Currency:
      return currency_;
    case Question::Rate:
      return rates_.front();
    default:
      return nullptr;
  }
}

}  // namespace tarvik::ui
