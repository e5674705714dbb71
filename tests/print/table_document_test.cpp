#include "print/table_document.h"

#include <gtest/gtest.h>

namespace tarvik::print {
namespace {

TableDocument documentOf(int rows, std::string heading = "") {
  return {{"Év", "Km", "Liter"},
          std::vector<std::vector<std::string>>(static_cast<std::size_t>(rows), {"2013", "800", "83,00"}),
          std::move(heading)};
}

TEST(TableDocument, HasNamesAtTheLeftAndFiguresAtTheRightOfTheirColumns) {
  const Page page = documentOf(1, "KLM456").page(1);
  ASSERT_EQ(page.texts.size(), 7u);
  EXPECT_EQ(page.texts[0], (Text{10, 15, 12, "KLM456", 282}));
  EXPECT_EQ(page.texts[1], (Text{10, 26, 8, "Év", 88}));
  EXPECT_EQ(page.texts[2], (Text{100, 26, 8, "Km", 88, true}));
  EXPECT_EQ(page.texts[3], (Text{190, 26, 8, "Liter", 89, true}));
  EXPECT_EQ(page.texts[4], (Text{10, 30, 8, "2013", 88}));
  EXPECT_EQ(page.texts[5], (Text{100, 30, 8, "800", 88, true}));
  EXPECT_EQ(page.texts[6], (Text{190, 30, 8, "83,00", 89, true}));
}

TEST(TableDocument, IsRuledAroundEveryCell) {
  const Page page = documentOf(1).page(1);
  ASSERT_EQ(page.rules.size(), 7u);
  EXPECT_EQ(page.rules[0], (Rule{9, 25, 280, 25}));
  EXPECT_EQ(page.rules[1], (Rule{9, 29, 280, 29}));
  EXPECT_EQ(page.rules[2], (Rule{9, 33, 280, 33}));
  EXPECT_EQ(page.rules[3], (Rule{9, 25, 9, 33}));
  EXPECT_EQ(page.rules[4], (Rule{99, 25, 99, 33}));
  EXPECT_EQ(page.rules[5], (Rule{189, 25, 189, 33}));
  EXPECT_EQ(page.rules[6], (Rule{280, 25, 280, 33}));
}

TEST(TableDocument, HasFortyRowsAPageAndNoneWithoutRows) {
  EXPECT_EQ(documentOf(0).pageCount(), 0);
  EXPECT_EQ(documentOf(40).pageCount(), 1);
  const TableDocument document = documentOf(41);
  ASSERT_EQ(document.pageCount(), 2);
  EXPECT_EQ(document.page(1).texts.size(), 3u + 40 * 3);
  const Page second = document.page(2);
  ASSERT_EQ(second.texts.size(), 3u + 3);
  EXPECT_EQ(second.texts[3], (Text{10, 30, 8, "2013", 88}));
  EXPECT_EQ(second.rules[1], (Rule{9, 29, 280, 29}));
  EXPECT_EQ(second.rules[2], (Rule{9, 33, 280, 33}));
}

}  // namespace
}  // namespace tarvik::print
