#include "platform/PrintDocument.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace vintoral {
namespace {

using testing::IsEmpty;
using testing::SizeIs;

using Kind = PrintOperation::Kind;

/// In the size of the slips: a character is 0.6 × 10.5 × 20 = 126 twips wide, a line is
/// 2320 / 2048 × 10.5 × 20 = 237.89, hence 238 high.
PrintDocument Slip() {
  PrintDocument document;
  document.FontSize = 10.5;
  return document;
}

TEST(PrintDocument, BeginsEmptyAtTheTopLeft) {
  const PrintDocument document;
  EXPECT_THAT(document.Operations(), IsEmpty());
  EXPECT_EQ(document.Width(), 0);
  EXPECT_EQ(document.Height(), 0);
  EXPECT_EQ(document.PrinterWanted, ""_w);
  EXPECT_EQ(PrintDocument("POS-80"_w).PrinterWanted, "POS-80"_w);
  EXPECT_EQ(document.FontName, "Courier New"_w);
}

TEST(PrintDocument, PrintsInThePresentTypeAndPlace) {
  PrintDocument document = Slip();
  document.FontBold = true;
  document.CurrentX = 252;
  document.CurrentY = 40;
  document.Print("AB"_w);
  ASSERT_THAT(document.Operations(), SizeIs(1));
  const PrintOperation& text = document.Operations()[0];
  EXPECT_EQ(text.kind, Kind::kText);
  EXPECT_EQ(text.text, "AB"_w);
  EXPECT_EQ(text.fontName, "Courier New"_w);
  EXPECT_EQ(text.fontSize, 10.5);
  EXPECT_TRUE(text.fontBold);
  EXPECT_EQ(text.x, 252);
  EXPECT_EQ(text.y, 40);
  EXPECT_EQ(text.width, 0);
  EXPECT_EQ(text.height, 0);
}

TEST(PrintDocument, ATextIsWhatItWasWhenItWasPrinted) {
  PrintDocument document = Slip();
  document.Print("A"_w);
  document.FontName = "Free 3 of 9"_w;
  document.FontSize = 31.5;
  document.FontBold = true;
  EXPECT_EQ(document.Operations()[0].fontName, "Courier New"_w);
  EXPECT_EQ(document.Operations()[0].fontSize, 10.5);
  EXPECT_FALSE(document.Operations()[0].fontBold);
}

TEST(PrintDocument, GoesToTheBeginningOfTheLineBelow) {
  PrintDocument document = Slip();
  document.CurrentX = 252;
  document.Print("A"_w);
  EXPECT_EQ(document.CurrentX, 0);
  EXPECT_EQ(document.CurrentY, 238);
  document.Print(""_w);
  EXPECT_EQ(document.CurrentY, 476);
  EXPECT_EQ(document.Operations()[1].x, 0);
  EXPECT_EQ(document.Operations()[1].y, 238);
  EXPECT_EQ(document.Height(), 476);
}

TEST(PrintDocument, ALinesHeightFollowsTheType) {
  PrintDocument document;
  document.FontSize = 8;  // 181.25
  document.Print("A"_w);
  EXPECT_EQ(document.CurrentY, 181);
  document.FontSize = 16;  // 362.5
  document.Print("A"_w);
  EXPECT_EQ(document.CurrentY, 181 + 363);
  document.FontName = "Free 3 of 9"_w;
  document.FontSize = 31.5;  // as high as its size: 630
  document.Print("A"_w);
  EXPECT_EQ(document.CurrentY, 181 + 363 + 630);
}

TEST(PrintDocument, LineBreaksWithinATextMakeLines) {
  PrintDocument document = Slip();
  document.Print("A\r\nB"_w);
  EXPECT_EQ(document.CurrentY, 2 * 238);
  document.Print("A\r\n"_w);  // the empty line behind the break, too
  EXPECT_EQ(document.CurrentY, 4 * 238);
  document.Print("\r\n\r\n"_w);
  EXPECT_EQ(document.CurrentY, 7 * 238);
  EXPECT_THAT(document.Operations(), SizeIs(3));
}

TEST(PrintDocument, HalfALineBreakIsACharacter) {
  PrintDocument document = Slip();
  document.Print("A\rB\nC\n\rD"_w);
  EXPECT_EQ(document.CurrentY, 238);
  EXPECT_EQ(document.Width(), 8 * 126);
}

TEST(PrintDocument, ATextIsAsWideAsItsLongestLine) {
  const PrintDocument document = Slip();
  EXPECT_EQ(document.TextWidth(""), 0);
  EXPECT_EQ(document.TextWidth("--"), 252);
  EXPECT_EQ(document.TextWidth("A\r\nABC\r\nAB"), 378);
  EXPECT_EQ(document.TextWidth("A B "), 504);
}

TEST(PrintDocument, WidthsFollowTheType) {
  PrintDocument document;
  document.FontSize = 8.5;  // 102
  EXPECT_EQ(document.TextWidth("AB"), 204);
  document.FontName = "Free 3 of 9"_w;
  document.FontSize = 31.5;  // 0.39 × 31.5 × 20 = 245.7, of fourteen 3439.8
  EXPECT_EQ(document.TextWidth("*ABC123456789*"), 3440);
  document.FontName = "Another"_w;
  document.FontSize = 10;
  EXPECT_EQ(document.TextWidth("AB"), 240);
}

TEST(PrintDocument, ACodeOfTwelveEndsWithinTheColumnsOfASlip) {
  PrintDocument document;
  for (const double size : {5.0, 6.0, 8.5, 10.5, 12.0}) {
    document.FontName = String(fuente::kTexto);
    document.FontSize = size;
    const Twips left = document.TextWidth("--"), columns = document.TextWidth(std::string(31, '-'));
    document.FontName = String(fuente::kBarras);
    document.FontSize = 3 * size;
    EXPECT_LT(left + document.TextWidth("*123456789012*"), columns) << size;
  }
}

TEST(PrintDocument, IsAsWideAsWhatReachesFurthest) {
  PrintDocument document = Slip();
  document.Print("A\r\nABC\r\nAB"_w);
  EXPECT_EQ(document.Width(), 378);
  document.CurrentX = 252;
  document.Print("AB"_w);
  EXPECT_EQ(document.Width(), 504);
  document.CurrentX = 252;
  document.Print("A\r\nABCDE"_w);  // the second line begins at the left edge
  EXPECT_EQ(document.Width(), 630);
  document.Print("AB"_w);
  EXPECT_EQ(document.Width(), 630);
}

TEST(PrintDocument, APictureHasItsPlaceAndLeavesThePrintingWhereItWas) {
  PrintDocument document = Slip();
  document.FontBold = true;
  document.CurrentX = 7;
  document.CurrentY = 100;
  const Picture photo("Multimedia\\0042.jpg"_w);
  document.PaintPicture(photo, 252, 100, 3360, 2520);
  EXPECT_EQ(document.CurrentX, 7);
  EXPECT_EQ(document.CurrentY, 100);
  ASSERT_THAT(document.Operations(), SizeIs(1));
  const PrintOperation& picture = document.Operations()[0];
  EXPECT_EQ(picture.kind, Kind::kPicture);
  EXPECT_EQ(picture.picture, photo);
  EXPECT_EQ(picture.x, 252);
  EXPECT_EQ(picture.y, 100);
  EXPECT_EQ(picture.width, 3360);
  EXPECT_EQ(picture.height, 2520);
  EXPECT_EQ(document.Width(), 3612);
}

TEST(PrintDocument, ReachesToTheFootOfAPictureThatNothingFollows) {
  PrintDocument document = Slip();
  document.PaintPicture(Picture("A"_w), 0, 100, 10, 500);
  EXPECT_EQ(document.Height(), 600);
  document.PaintPicture(Picture("A"_w), 0, 0, 5, 50);
  EXPECT_EQ(document.Height(), 600);
  EXPECT_EQ(document.Width(), 10);
  document.CurrentY = 500;
  document.Print("A"_w);
  EXPECT_EQ(document.Height(), 738);
}

TEST(PrintDocument, AFontComesAndGoesBetweenTheTexts) {
  PrintDocument document = Slip();
  document.AddFontResource("Fuentes\\Vintoral.ttf");
  document.Print("A"_w);
  document.RemoveFontResource("Fuentes\\Vintoral.ttf");
  ASSERT_THAT(document.Operations(), SizeIs(3));
  EXPECT_EQ(document.Operations()[0].kind, Kind::kAddFont);
  EXPECT_EQ(document.Operations()[0].text, "Fuentes\\Vintoral.ttf"_w);
  EXPECT_EQ(document.Operations()[1].kind, Kind::kText);
  EXPECT_EQ(document.Operations()[2].kind, Kind::kRemoveFont);
  EXPECT_EQ(document.Operations()[2].text, "Fuentes\\Vintoral.ttf"_w);
  EXPECT_EQ(document.Height(), 238);
}

TEST(PrintDocument, NoSizeRunsOverAKilometreOfPaper) {
  PrintDocument document;
  document.FontSize = 1e30;
  EXPECT_EQ(document.TextWidth("A"), 56'692'913);  // 1 km of 1440 twips to the inch of 2.54 cm
  document.Print("A"_w);
  EXPECT_EQ(document.CurrentY, 56'692'913);
}

TEST(MeasuresOf, AreThoseOfTheTwoTypes) {
  EXPECT_EQ(MeasuresOf("Courier New").advance, 0.6);
  EXPECT_EQ(MeasuresOf("Courier New").linePitch, 2320.0 / 2048);
  EXPECT_EQ(MeasuresOf("Courier New").ascent, 1705.0 / 2048);
  EXPECT_EQ(MeasuresOf("Free 3 of 9").advance, 0.39);
  EXPECT_EQ(MeasuresOf("Free 3 of 9").linePitch, 1);
  EXPECT_EQ(MeasuresOf("Free 3 of 9").ascent, 1);
  EXPECT_EQ(MeasuresOf("").advance, 0.6);
}

}  // namespace
}  // namespace vintoral
