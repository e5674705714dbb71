#include "charts/captions.h"

#include <gtest/gtest.h>

namespace tarvik::test {
namespace {

using charts::chartTitle;
using charts::pointDescription;

TEST(ChartTitle, IsTheChartsOwn) {
  EXPECT_EQ(chartTitle(1), "Pillanatnyi fogyasztások");
  EXPECT_EQ(chartTitle(2), "Üzemanyag árak");
  EXPECT_EQ(chartTitle(3), "Havi tankolási költségek");
  EXPECT_EQ(chartTitle(4), "Havi megtett kilométer");
  EXPECT_EQ(chartTitle(5), "Havi tankolt üzemanyag");
  EXPECT_EQ(chartTitle(6), "Havi átlagfogyasztás");
  EXPECT_EQ(chartTitle(7), "100 km költség változásai.");
}

TEST(ChartCaptions, TellTheUnitOfEachChart) {
  EXPECT_EQ(charts::chartUnit(1), "liter/100 km");
  EXPECT_EQ(charts::chartUnit(2), "Ft/liter");
  EXPECT_EQ(charts::chartUnit(3), "Ft");
  EXPECT_EQ(charts::chartUnit(4), "km");
  EXPECT_EQ(charts::chartUnit(5), "liter");
  EXPECT_EQ(charts::chartUnit(6), "liter/100 km");
  EXPECT_EQ(charts::chartUnit(7), "Ft/100 km");
  EXPECT_EQ(charts::chartUnit(0), "");
}

TEST(ChartCaptions, NameAFileOfEachChart) {
  EXPECT_EQ(charts::chartFileName(1), "pillanatnyi_fogyasztasok");
  EXPECT_EQ(charts::chartFileName(2), "uzemanyag_arak");
  EXPECT_EQ(charts::chartFileName(3), "havi_tankolasi_koltsegek");
  EXPECT_EQ(charts::chartFileName(4), "havi_megtett_km");
  EXPECT_EQ(charts::chartFileName(5), "havi_tankolt_uzemanyag");
  EXPECT_EQ(charts::chartFileName(6), "havi_atlagfogyasztas");
  EXPECT_EQ(charts::chartFileName(7), "100_km_koltsege");
  EXPECT_EQ(charts::chartFileName(0), "");
}

TEST(ChartTitle, IsEmptyWithoutAChart) {
  for (int choice : {-1, 0, 8}) EXPECT_EQ(chartTitle(choice), "") << choice;
}

TEST(PointDescription, SaysWhatThePointIs) {
  EXPECT_EQ(pointDescription(1, "2013.07.05.", {76'251}), "Pillanatnyi fogyasztás: 2013.07.05. - 7,63 liter");
  EXPECT_EQ(pointDescription(2, "2013.07.05.", {4'259'000}), "Üzemanyag ár: 2013.07.05. - 425,90 Ft.");
  EXPECT_EQ(pointDescription(3, "2013. 7. hó", {205'000'000}),
            "Havi üzemanyag költség: 2013. 7. hó - 20\u00A0500,00 Ft.");
  EXPECT_EQ(pointDescription(4, "2013. 7. hó", {12'340'000}),
            "Havi megtett km.: 2013. 7. hó - 1\u00A0234,00 Km.");
  EXPECT_EQ(pointDescription(5, "2013. 7. hó", {1'234'567}),
            "Havi tankolt üzemanyag: 2013. 7. hó - 123,46 liter");
  EXPECT_EQ(pointDescription(6, "2013. 7. hó", {46'000}),
            "Havi átlagfogyasztás: 2013. 7. hó - 4,60 liter/100 km.");
  EXPECT_EQ(pointDescription(7, "2013. 7. hó", {29'813'000}),
            "100 km költség változásai.: 2013. 7. hó - 2\u00A0981,30 Ft/100 Km");
}

TEST(PointDescription, ShowsZeroWithoutAWholeDigitAndMinusFirst) {
  EXPECT_EQ(pointDescription(2, "1", {0}), "Üzemanyag ár: 1 - ,00 Ft.");
  EXPECT_EQ(pointDescription(4, "1", {-10'000'000}), "Havi megtett km.: 1 - -1\u00A0000,00 Km.");
}

TEST(PointDescription, IsEmptyWithoutAChart) {
  for (int choice : {-1, 0, 8}) EXPECT_EQ(pointDescription(choice, "1", {10'000}), "") << choice;
}

}  // namespace
}  // namespace tarvik::test
