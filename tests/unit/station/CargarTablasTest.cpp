// Tariff files that can be read, and files that can't.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string Record(std::string text) {
  text.resize(100, ' ');
  return text;
}

class CargarTablasTest : public testing::Test {
 protected:
  CargarTablasTest() {
    station_.Disk.Put("Recursos\\Vintoral.EMP", Record(" auto") + Record(" 1m = 5*"));
    station_.Disk.Put("Recursos\\Vintoral.XTR", Record(" cafe = 5"));
    station_.Disk.Put("Recursos\\Vintoral.RJE", Record(" 120 = mil"));
  }
  /// Loads on a disk of which this read fails; 0 for none. What goes to standard error.
  std::string LoadFailing(int read) {
    station_.Faulty.Set().failRead = read;
    testing::internal::CaptureStderr();
    form_.CargarTablas();
    return testing::internal::GetCapturedStderr();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(CargarTablasTest, EachTableHasItsLines) {
  EXPECT_EQ(LoadFailing(0), "");
  EXPECT_THAT(form_.TablaTarifas, ElementsAre("AUTO"_w, "1M = 5*"_w));
  EXPECT_THAT(form_.CboTarifa[1].List(), ElementsAre("AUTO"_w));
  EXPECT_EQ(form_.CboTarifa[1].Text(), "AUTO"_w);
  EXPECT_THAT(form_.TablaExtras, ElementsAre("CAFE = 5"_w));
  EXPECT_THAT(form_.TablaPrepago, ElementsAre(String(Record(" 120 = mil"))));
}

TEST_F(CargarTablasTest, WithoutTheTariffsNothingIsLoaded) {
  EXPECT_EQ(LoadFailing(1), "vintoral: read Recursos\\Vintoral.EMP: Input/output error\n");
  EXPECT_THAT(form_.TablaTarifas, IsEmpty());
  EXPECT_THAT(form_.CboTarifa[1].List(), IsEmpty());
  EXPECT_EQ(form_.CboTarifa[1].Text(), ""_w);
  EXPECT_THAT(form_.TablaExtras, IsEmpty());
  EXPECT_THAT(form_.TablaPrepago, IsEmpty());
}

TEST_F(CargarTablasTest, WithoutTheExtrasTheTariffsAreThereAndTheLoadsAreNot) {
  EXPECT_EQ(LoadFailing(2), "vintoral: read Recursos\\Vintoral.XTR: Input/output error\n");
  EXPECT_THAT(form_.TablaTarifas, SizeIs(2));
  EXPECT_EQ(form_.CboTarifa[1].Text(), "AUTO"_w);
  EXPECT_THAT(form_.TablaExtras, IsEmpty());
  EXPECT_THAT(form_.TablaPrepago, IsEmpty());
}

TEST_F(CargarTablasTest, WithoutTheLoadsTheOthersAreThere) {
  EXPECT_EQ(LoadFailing(3), "vintoral: read Recursos\\Vintoral.RJE: Input/output error\n");
  EXPECT_THAT(form_.TablaTarifas, SizeIs(2));
  EXPECT_THAT(form_.TablaExtras, SizeIs(1));
  EXPECT_THAT(form_.TablaPrepago, IsEmpty());
}

TEST_F(CargarTablasTest, AFileThatIsMissingIsPassedOver) {
  ASSERT_TRUE(station_.Disk.Remove("Recursos\\Vintoral.EMP"));
  EXPECT_EQ(LoadFailing(0), "");
  EXPECT_THAT(form_.TablaTarifas, IsEmpty());
  EXPECT_THAT(form_.TablaExtras, SizeIs(1));
  EXPECT_THAT(form_.TablaPrepago, SizeIs(1));
}

TEST_F(CargarTablasTest, AnEmptyTariffHasNoCategory) {
  station_.Disk.Put("Recursos\\Vintoral.EMP", "");
  EXPECT_EQ(LoadFailing(0), "");
  EXPECT_THAT(form_.TablaTarifas, IsEmpty());
  EXPECT_THAT(form_.CboTarifa[1].List(), IsEmpty());
  EXPECT_EQ(form_.CboTarifa[1].Text(), ""_w);
  EXPECT_THAT(form_.TablaExtras, SizeIs(1));
}

TEST_F(CargarTablasTest, ALineOfAZeroByteIsACategory) {
  const String zero(1, '\0');
  station_.Disk.Put("Recursos\\Vintoral.EMP", Record(zero.Bytes()));
  EXPECT_EQ(LoadFailing(0), "");
  EXPECT_THAT(form_.TablaTarifas, ElementsAre(zero));
  EXPECT_THAT(form_.CboTarifa[1].List(), ElementsAre(zero));
}

}  // namespace
}  // namespace vintoral
