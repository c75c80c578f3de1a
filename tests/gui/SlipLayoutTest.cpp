// Where everything of a slip comes to stand on the paper of a queue.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Papers.h"

namespace vintoral::test {
namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::SizeIs;

TEST(SlipLayout, ARollIsAsLongAsTheSlip) {
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, Roll(80, 4));
  EXPECT_EQ(layout.paper.width, 226);
  EXPECT_EQ(layout.paper.length, std::ceil(document.Height() / 20.0));
  EXPECT_TRUE(layout.own);
  EXPECT_EQ(layout.scale, 1);
  EXPECT_DOUBLE_EQ(layout.left, Millimetres(4));
  ASSERT_THAT(layout.pages, SizeIs(1));
  EXPECT_THAT(layout.pages[0].items, SizeIs(20));
}

TEST(SlipLayout, MarginsOfARollComeOnTop) {
  QueuePaper roll = Roll(80, 4);
  roll.margins.top = 10;
  roll.margins.bottom = 20;
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, roll);
  EXPECT_EQ(layout.paper.length, std::ceil(document.Height() / 20.0 + 30));
  EXPECT_EQ(layout.top, 10);
  EXPECT_THAT(layout.pages, SizeIs(1));
}

TEST(SlipLayout, ARollTakesNoLengthBeyondItsLimits) {
  EXPECT_EQ(LayOut(Lines(1), Roll(80, 4)).paper.length, 36);
  QueuePaper roll = Roll(80, 4);
  roll.longest = 300.7;
  const SlipLayout layout = LayOut(Lines(100), roll);
  EXPECT_EQ(layout.paper.length, 300);
  EXPECT_THAT(layout.pages, SizeIs(4));
}

TEST(SlipLayout, WhatIsWiderThanThePaperIsMadeSmaller) {
  // 31 columns of 0.6 are 195.3 points, and 48 mm are 136.06.
  const PrintDocument document = Lines(20);
  const SlipLayout layout = LayOut(document, Roll(58, 5));
  EXPECT_NEAR(layout.scale, 136.06 / 195.3, 1e-4);
  EXPECT_NEAR(layout.paper.length, document.Height() / 20.0 * layout.scale, 1);
  EXPECT_THAT(layout.pages, SizeIs(1));
  EXPECT_EQ(LayOut(Lines(20, 5), Roll(58, 5)).scale, 1) << "and nothing is made larger";
}

TEST(SlipLayout, ThePaperOfCertainLengthsThatTakesTheSlip) {
  QueuePaper roll = Roll(80, 4);
  roll.longest = 0;
  roll.sizes = {{226.77, 283}, {226.77, 842}, {226.77, 566.93}, {300, 300}, {164, 500}};
  const auto lengthOf = [&](int lines) { return LayOut(Lines(lines), roll).paper.length; };
  EXPECT_EQ(lengthOf(20), 283);
  roll.sizes[0].length = Lines(20).Height() / 20.0;
  EXPECT_EQ(lengthOf(20), roll.sizes[0].length) << "to the last dot";
  roll.sizes[0].length = 283;
  EXPECT_DOUBLE_EQ(lengthOf(30), roll.standard.length);
  EXPECT_EQ(lengthOf(60), 842);
  EXPECT_EQ(lengthOf(200), 842);
  EXPECT_FALSE(LayOut(Lines(30), roll).own);
  EXPECT_TRUE(LayOut(Lines(60), roll).own);
}

TEST(SlipLayout, ASheetStaysAsItIs) {
  const SlipLayout layout = LayOut(Lines(20), A4());
  EXPECT_EQ(layout.paper, A4().standard);
  EXPECT_FALSE(layout.own);
  EXPECT_EQ(layout.left, 18);
  EXPECT_EQ(layout.top, 36);
  EXPECT_EQ(layout.scale, 1);
}

TEST(SlipLayout, ALongSlipGoesOnOverSheets) {
  const PrintDocument document = Lines(150);
  const SlipLayout layout = LayOut(document, A4());
  // 769.89 points take 64 lines of 11.9.
  ASSERT_THAT(layout.pages, SizeIs(3));
  EXPECT_THAT(layout.pages[0].items, SizeIs(64));
  EXPECT_THAT(layout.pages[1].items, SizeIs(64));
  EXPECT_THAT(layout.pages[2].items, SizeIs(22));
  EXPECT_EQ(layout.pages[1].top, layout.pages[1].items[0].y);
}

TEST(SlipLayout, APictureTallerThanASheetHasItsOwn) {
  PrintDocument document = Lines(2);
  document.PaintPicture(Picture("a.jpg"_w), 0, document.CurrentY, 2000, 900 * 20);
  document.CurrentY += 900 * 20;
  document.Print("below"_w);
  const SlipLayout layout = LayOut(document, A4());
  ASSERT_THAT(layout.pages, SizeIs(3));
  EXPECT_THAT(layout.pages[1].items, SizeIs(1));
  EXPECT_EQ(layout.pages[2].items[0].line, "below");
}

TEST(SlipLayout, LinesOfOneTextStandBelowOneAnother) {
  PrintDocument document;
  document.FontSize = 10;
  document.CurrentX = 100;
  document.Print("one\r\n\r\nthree"_w);
  const SlipLayout layout = LayOut(document, A4());
  ASSERT_THAT(layout.pages, SizeIs(1));
  const std::vector<SlipItem>& items = layout.pages[0].items;
  ASSERT_THAT(items, SizeIs(3));
  EXPECT_EQ(items[0].x, 100);
  EXPECT_EQ(items[2].x, 0);
  EXPECT_EQ(items[2].line, "three");
  EXPECT_EQ(items[2].y, 2 * LinePitch(fuente::kTexto, 10));
}

TEST(SlipLayout, BarsHaveTheirTypeOnlyWhileItIsThere) {
  PrintDocument document;
  const auto bars = [&] {
    document.FontName = String(fuente::kBarras);
    document.Print("*A*"_w);
  };
  bars();
  document.AddFontResource("Fuentes\\Vintoral.ttf");
  bars();
  document.FontName = String(fuente::kTexto);
  document.Print("A"_w);
  document.RemoveFontResource("Fuentes\\Vintoral.ttf");
  bars();
  std::vector<std::string> files;
  const SlipLayout layout = LayOut(document, A4());
  for (const SlipItem& item : layout.pages[0].items)
    files.emplace_back(item.barsFile);
  EXPECT_THAT(files, ElementsAre("", "Fuentes\\Vintoral.ttf", "", ""));
}

TEST(SlipLayout, AQueueThatTellsNothingOfItsPaperHasSheets) {
  const SlipLayout layout = LayOut(Lines(20), {.margins = {}, .sizes = {}});
  EXPECT_EQ(layout.paper, (PaperSize{595, 842}));
  EXPECT_EQ(layout.scale, 1);
  EXPECT_FALSE(layout.own);
}

TEST(SlipLayout, NothingOnItGivesNoPage) {
  EXPECT_THAT(LayOut(PrintDocument(), A4()).pages, SizeIs(0));
  EXPECT_THAT(LayOut(PrintDocument(), Roll(80, 4)).pages, SizeIs(0));
}

}  // namespace
}  // namespace vintoral::test
