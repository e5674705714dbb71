#include "ui/exchange/import_choices.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <algorithm>

#include "core/number_text.h"
#include "ui/base/text.h"
#include "ui/exchange/import_words.h"
#include "ui/look/figure_fields.h"

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

// No currency's code: the person knows which it is, and names its rate alone.
constexpr const char* kUnlisted = "other";

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

// A number from 0 up with a decimal comma, or a point as other programs write it.
std::optional<core::Ratio> typedNumber(const QLineEdit& field) {
  const QString typed = field.text().replace(QLatin1Char('.'), QLatin1Char(','));
  const auto number = core::localeNumber(toLogic(typed));
  return number && *number >= 0 ? number : std::nullopt;
}

// A reading is of whole kilometres: points before three digits group them, as in the cells of a file.
std::optional<core::Ratio> typedReading(const QLineEdit& field) {
  const auto grouped = exchange::readFigure(toLogic(field.text()), exchange::DecimalSign::Comma);
  return grouped && *grouped >= 0 ? grouped : typedNumber(field);
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
  addUnits();
  addWords();
  addMoney();
  addShape();
  fields_ = {{Question::Vehicle, vehicle_},       {Question::DayOrder, days_},
             {Question::DistanceUnit, distance_}, {Question::VolumeUnit, volume_},
             {Question::Gallon, volume_},         {Question::TripStart, tripReading_},
             {Question::FullWord, fullWord_},     {Question::Currency, currency_},
             {Question::Rate, rates_.front()},    {Question::DecimalSign, sign_}};
}

void ImportChoices::addUnits() {
  vehicle_ = addAnswer("cmbJarmu", QStringLiteral("Gépk&ocsi:"), {},
                       [this](int index) { choices_.vehicle = static_cast<std::size_t>(index); });
  days_ = addAnswer(
      "cmbNapok", QStringLiteral("&Dátumok sorrendje:"),
      {QStringLiteral("nap, hónap, év"), QStringLiteral("hónap, nap, év"), QStringLiteral("év, hónap, nap")},
      [this](int index) { choices_.dayOrder = static_cast<exchange::DayOrder>(index); });
  distance_ =
      addAnswer("cmbTavolsag", QStringLiteral("&Távolság:"),
                {QStringLiteral("kilométer"), QStringLiteral("mérföld (1,609 km)")},
                [this](int index) { choices_.distance = static_cast<exchange::DistanceUnit>(index); });
  volume_ = addAnswer("cmbMennyiseg", QStringLiteral("M&ennyiség:"),
                      {QStringLiteral("liter"), QStringLiteral("amerikai gallon (3,785 liter)"),
                       QStringLiteral("angol gallon (4,546 liter)")},
                      [this](int index) { choices_.volume = static_cast<exchange::VolumeUnit>(index); });
}

void ImportChoices::addWords() {
  tripStart_ = addAnswer("cmbKmKezdet", QStringLiteral("Km ó&ra állása:"),
                         {QStringLiteral("az első tankolás előtt"), QStringLiteral("az utolsó tankoláskor")},
                         [](int) {});
  tripStart_->setCurrentIndex(0);
  tripReading_ = addField("txKmKezdet", QStringLiteral("E&nnyit mutatott, km:"));
  fullWord_ = addAnswer("cmbTele", QStringLiteral("Te&le tank szava:"), {}, [this](int index) {
    choices_.fullWord = toLogic(fullWord_->itemData(index).toString());
  });
}

void ImportChoices::addMoney() {
  currency_ = addAnswer("cmbPenznem", QStringLiteral("&Pénznem:"), moneyNames(),
                        [this](int index) { choices_.currency = kMoney[index].code; });
  rates_.push_back(addField("txValto", QStringLiteral("&Váltószám:")));
  for (int i = 1; i < kMostRates; ++i)
    rates_.push_back(addField(QStringLiteral("txValto_%1").arg(i), QStringLiteral("&Váltószám:")));
}

void ImportChoices::addShape() {
  place_ = addBox("cmbHely", QStringLiteral("&Helye a naplóban:"),
                  {QStringLiteral("nap szerint a helyére"), QStringLiteral("a napló végére")},
                  [this](int) { emit placeChanged(); });
  place_->setCurrentIndex(0);
  sign_ = addAnswer("cmbTizedes", QStringLiteral("Ti&zedesjel:"),
                    {QStringLiteral("vessző (40,5)"), QStringLiteral("pont (40.5)")},
                    [this](int index) { choices_.sign = static_cast<exchange::DecimalSign>(index); });
  separator_ = addBox("cmbElvalaszto", QStringLiteral("Elvála&sztó:"),
                      {QStringLiteral("pontosvessző"), QStringLiteral("vessző"), QStringLiteral("tabulátor"),
                       QStringLiteral("függőleges vonal")},
                      [this](int) { emit shapeChanged(); });
  QStringList encodings;
  for (int i = 0; i < kEncodings; ++i) encodings.append(nameOf(static_cast<Encoding>(i)));
  encoding_ =
      addBox("cmbKodolas", QStringLiteral("&Kódolás:"), encodings, [this](int) { emit shapeChanged(); });
}

// The label's name is the field's, with lb for the letters of its kind.
void ImportChoices::addRow(const QString& name, int kindLetters, const QString& label, QWidget* field) {
  field->setObjectName(name);
  auto* text = new QLabel(label, this);
  text->setObjectName(QStringLiteral("lb") + name.mid(kindLetters));
  text->setBuddy(field);
  form_->addRow(text, field);
}

QComboBox* ImportChoices::addBox(const QString& name, const QString& label, const QStringList& items,
                                 const std::function<void(int)>& chosen) {
  auto* box = new QComboBox(this);
  box->setPlaceholderText(QStringLiteral("Válaszd ki!"));
  box->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  box->addItems(items);
  connect(box, &QComboBox::currentIndexChanged, this, [this, chosen](int index) {
    if (!isShowing_) chosen(index);
  });
  addRow(name, 3, label, box);
  return box;
}

// Only the field that was changed is an answer; what the others show was found out.
QComboBox* ImportChoices::addAnswer(const QString& name, const QString& label, const QStringList& items,
                                    const std::function<void(int)>& take) {
  return addBox(name, label, items, [this, take](int index) {
    if (index >= 0) take(index);
    takeTyped();
  });
}

QLineEdit* ImportChoices::addField(const QString& name, const QString& label) {
  auto* field = new QLineEdit(this);
  makeFigureFields({field}, QStringLiteral("9999999,99"));
  connect(field, &QLineEdit::textChanged, this, [this] {
    if (!isShowing_) takeTyped();
  });
  addRow(name, 2, label, field);
  return field;
}

void ImportChoices::takeTyped() {
  takeTrip();
  takeRates();
  emit choiceChanged();
}

void ImportChoices::takeTrip() {
  choices_.tripStart.reset();
  if (const auto reading = typedReading(*tripReading_))
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

}  // namespace tarvik::ui
