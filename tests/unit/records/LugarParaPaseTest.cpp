// Where the next pass goes.
#include <gtest/gtest.h>

#include "records/BuscarCodigo.h"
#include "support/Bytes.h"
#include "support/FaultyDisk.h"
#include "support/MemoryDisk.h"

namespace vintoral {
namespace {

using test::Blanks;
using test::FaultyDisk;
using test::MemoryDisk;
using test::Zeros;

constexpr const char* kWhole = "A1B2C3D4E5F6";

std::string Pass(const std::string& code) {
  return code + Blanks(50 - code.size()) + Blanks(20) + Zeros(1) + Blanks(20) + Zeros(2);
}
std::string Passes(int count) {
  std::string file;
  for (int i = 0; i < count; ++i)
    file += Pass(kWhole);
  return file;
}

class LugarParaPaseTest : public testing::Test {
 protected:
  Result<std::int64_t> Place(const std::string& file) {
    memory_.Put("CFR", file);
    return LugarParaPase({disk_, "CFR", OpenMode::kRead});
  }
  Result<bool> Free(const std::string& file, std::int64_t place) {
    memory_.Put("CFR", file);
    return LugarLibre({disk_, "CFR", OpenMode::kRead}, place);
  }
  MemoryDisk memory_;
  FaultyDisk disk_{memory_};
};

TEST_F(LugarParaPaseTest, TheFirstPassIsNumberOne) {
  EXPECT_EQ(Place(""), 1);
}

TEST_F(LugarParaPaseTest, BehindTheLastWhereNoneIsFree) {
  EXPECT_EQ(Place(Passes(2)), 3);
  EXPECT_EQ(Place(Passes(400)), 401);  // more than a block
}

TEST_F(LugarParaPaseTest, TheFirstFreeOneIsTakenAgain) {
  EXPECT_EQ(Place(Pass("")), 1);
  EXPECT_EQ(Place(Passes(2) + Pass("") + Pass(kWhole) + Pass("")), 3);
}

TEST_F(LugarParaPaseTest, ATornLastRecordIsOverwritten) {
  EXPECT_EQ(Place(Passes(2) + Pass(kWhole).substr(0, 92)), 3);
  EXPECT_EQ(Place(Passes(2) + "A"), 3);
}

TEST_F(LugarParaPaseTest, WhatIsLeftOfACodeAcrossTwoPagesIsFree) {
  // Record 45 begins at byte 4092, four bytes before the end of the first page.
  EXPECT_EQ(Place(Passes(44) + Pass("A1B2") + Passes(1)), 45);
  EXPECT_EQ(Place(Passes(44) + Pass("    C3D4E5F6") + Passes(1)), 45);
  EXPECT_EQ(Place(Passes(45)), 46);
}

TEST_F(LugarParaPaseTest, AShortCodeWithinOnePageIsSomebodys) {
  // Put there by other hands: 44 begins at 3999, 46 at 4185.
  EXPECT_EQ(Place(Passes(43) + Pass("A1B2")), 45);
  EXPECT_EQ(Place(Passes(45) + Pass("A1B2")), 47);
}

TEST_F(LugarParaPaseTest, ACodeThatEndsWithThePageStandsInOne) {
  // Record 133 begins 12 bytes before a page, record 1146 11 bytes before one.
  EXPECT_EQ(Place(Passes(132) + Pass("A1B2") + Passes(1)), 135);
  EXPECT_EQ(Place(Passes(1145) + Pass("A1B2C3D4E5F") + Passes(1)), 1146);
}

TEST_F(LugarParaPaseTest, FailingSystemHasNoPlace) {
  memory_.Put("CFR", Passes(1));
  const Register<RegistroPase> passes(disk_, "CFR", OpenMode::kRead);
  disk_.Set().failRead = 1;
  EXPECT_EQ(LugarParaPase(passes).Why().Error(), EIO);
  disk_.Set().failRead = 1;
  EXPECT_EQ(LugarLibre(passes, 1).Why().Error(), EIO);
  disk_.Set().failLength = true;
  EXPECT_EQ(LugarParaPase(passes).Why().Error(), EIO);
  EXPECT_EQ(LugarLibre(passes, 1).Why().Error(), EIO);
}

TEST_F(LugarParaPaseTest, APlaceIsFreeAsLongAsNobodyIsThere) {
  EXPECT_EQ(Free(Pass(kWhole) + Pass(""), 1), false);
  EXPECT_EQ(Free(Pass(kWhole) + Pass(""), 2), true);
  EXPECT_EQ(Free(Passes(44) + Pass("A1B2"), 45), true);
}

TEST_F(LugarParaPaseTest, BehindTheLastOnlyTheNextIsFree) {
  EXPECT_EQ(Free(Passes(2), 3), true);
  EXPECT_EQ(Free(Passes(2), 4), false);  // the register was cut meanwhile
  EXPECT_EQ(Free("", 1), true);
}

}  // namespace
}  // namespace vintoral
