#include "platform/Printer.h"

#include <gtest/gtest.h>

namespace vintoral {
namespace {

const PrinterList kPrinters{{"Laser"_w, " Caja Ñ "_w, "caja ñ"_w, "POS-80"_w}, "Laser"_w};

TEST(ChoosePrinter, IsTheOneOfThatName) {
  EXPECT_EQ(ChoosePrinter(kPrinters, "POS-80"), "POS-80"_w);
}

TEST(ChoosePrinter, PassesOverCaseAndBlanksOnBothSides) {
  EXPECT_EQ(ChoosePrinter(kPrinters, "  pos-80   "), "POS-80"_w);
  // The name is the system's own, blanks included.
  EXPECT_EQ(ChoosePrinter({{" B "_w}, "A"_w}, "b"), " B "_w);
}

TEST(ChoosePrinter, IsTheFirstOfThoseWithTheName) {
  EXPECT_EQ(ChoosePrinter(kPrinters, "CAJA Ñ"_w), " Caja Ñ "_w);
}

TEST(ChoosePrinter, IsTheCurrentOneForANameThatIsNotThere) {
  EXPECT_EQ(ChoosePrinter(kPrinters, "POS"), "Laser"_w);
  EXPECT_EQ(ChoosePrinter(kPrinters, "POS-80 2"), "Laser"_w);
  EXPECT_EQ(ChoosePrinter(kPrinters, ""), "Laser"_w);
  EXPECT_EQ(ChoosePrinter(kPrinters, "POS  -80"), "Laser"_w);
}

TEST(ChoosePrinter, IsNoneWhereThereIsNone) {
  EXPECT_EQ(ChoosePrinter({}, "POS-80"), ""_w);
  EXPECT_EQ(ChoosePrinter({{"Laser"_w}, ""_w}, "POS-80"), ""_w);
}

}  // namespace
}  // namespace vintoral
