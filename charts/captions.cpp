#include "charts/captions.h"

#include <array>
#include <string_view>

#include "core/number_format.h"

namespace tarvik::charts {
namespace {

struct Captions {
  std::string_view title;
  std::string_view fileName;
  std::string_view unit;
  std::string_view prefix;
  std::string_view format;
  std::string_view suffix;
};

constexpr std::string_view kLitres = R"(###,###.00\ \l\i\t\e\r)";
constexpr std::string_view kForints = R"(###,###.00\ \F\t\.)";
constexpr std::string_view kKilometres = R"(###,###.00\ \K\m\.)";
constexpr std::string_view kForintsWithoutPoint = R"(###,###.00\ \F\t\)";

// By the number of the choice; 0 is no chart.
constexpr std::array<Captions, 8> kCaptions{{
    {},
    {"Pillanatnyi fogyasztások", "pillanatnyi_fogyasztasok", "liter/100 km",
     "Pillanatnyi fogyasztás: ", kLitres, ""},
    {"Üzemanyag árak", "uzemanyag_arak", "Ft/liter", "Üzemanyag ár: ", kForints, ""},
    {"Havi tankolási költségek", "havi_tankolasi_koltsegek", "Ft", "Havi üzemanyag költség: ", kForints, ""},
    {"Havi megtett kilométer", "havi_megtett_km", "km", "Havi megtett km.: ", kKilometres, ""},
    {"Havi tankolt üzemanyag", "havi_tankolt_uzemanyag", "liter", "Havi tankolt üzemanyag: ", kLitres, ""},
    {"Havi átlagfogyasztás", "havi_atlagfogyasztas", "liter/100 km", "Havi átlagfogyasztás: ", kLitres,
     "/100 km."},
    {"100 km költség változásai.", "100_km_koltsege", "Ft/100 km",
     "100 km költség változásai.: ", kForintsWithoutPoint, "/100 Km"},
}};

const Captions& captionsOf(int choice) {
  const bool known = choice > 0 && choice < static_cast<int>(kCaptions.size());
  return kCaptions[known ? static_cast<std::size_t>(choice) : 0];
}

}  // namespace

std::string chartTitle(int choice) {
  return std::string(captionsOf(choice).title);
}

std::string chartFileName(int choice) {
  return std::string(captionsOf(choice).fileName);
}

std::string chartUnit(int choice) {
  return std::string(captionsOf(choice).unit);
}

std::string pointDescription(int choice, const std::string& label, core::Amount value) {
  const Captions& captions = captionsOf(choice);
  if (captions.format.empty()) return {};
  return std::string(captions.prefix) + label + " - " + core::formatted(value.ratio(), captions.format) +
         std::string(captions.suffix);
}

}  // namespace tarvik::charts
