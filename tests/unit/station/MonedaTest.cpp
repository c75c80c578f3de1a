// The currency symbol and its file.
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"
#include "tariffs/form6/Form6.h"

namespace vintoral {
namespace {

using test::MemoryStation;

constexpr const char* kDvs = "Recursos\\Vintoral.DVS";

class MonedaTest : public testing::Test {
 protected:
  MonedaTest() { station_.Start(); }
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(MonedaTest, AMissingFileIsMadeWithTheDefault) {
  ASSERT_TRUE(station_.Disk.Remove(kDvs));
  form_.Moneda = "COP"_w;
  form_.CargarMoneda();
  EXPECT_EQ(form_.Moneda, "$"_w);
  EXPECT_EQ(station_.Disk.Get(kDvs), "$\r\n");
}

TEST_F(MonedaTest, TheFirstLineCountsAndTenCharactersOfIt) {
  station_.Disk.Put(kDvs, "ABCDEFGHIJK\r\nEUR\r\n");
  form_.CargarMoneda();
  EXPECT_EQ(form_.Moneda, "ABCDEFGHIJ"_w);
}

TEST_F(MonedaTest, AFileThatCannotBeReadStaysAndTheDefaultStands) {
  station_.Disk.Put(kDvs, "COP\r\n");
  form_.Moneda = "EUR"_w;
  station_.Faulty.Set().failRead = 1;
  form_.CargarMoneda();
  EXPECT_EQ(form_.Moneda, "$"_w);
  EXPECT_EQ(station_.Disk.Get(kDvs), "COP\r\n");
}

TEST_F(MonedaTest, AReadOnlyFileIsReadAndWrittenAnew) {
  station_.Disk.Put(kDvs, "COP\r\n");
  station_.Disk.SetReadOnly(kDvs);
  form_.CargarMoneda();
  EXPECT_EQ(form_.Moneda, "COP"_w);
  form_.OpenForms.Load(std::make_unique<Form6>(form_));
  form_.Form6->TxtMoneda.SetText("US$"_w);
  form_.CopiarMoneda();
  EXPECT_EQ(form_.Moneda, "US$"_w);
  EXPECT_EQ(station_.Disk.Get(kDvs), "US$\r\n");
}

TEST(Moneda, ThatCannotBeReadIsToldAndLeftAlone) {
  MemoryStation station;
  station.Disk.Put(kDvs, "COP\r\n");
  station.Start();
  ASSERT_EQ(station.Form.Moneda, "COP"_w);
  station.Faulty.Set().failRead = 1;
  testing::internal::CaptureStderr();
  station.Form.CargarMoneda();
  EXPECT_EQ(testing::internal::GetCapturedStderr(),
            "vintoral: read Recursos\\Vintoral.DVS: Input/output error\n");
  EXPECT_EQ(station.Form.Moneda, "$"_w);
  EXPECT_EQ(station.Disk.Get(kDvs), "COP\r\n");
}

TEST(Moneda, MissingFileIsMadeInSilence) {
  MemoryStation station;
  station.Start();
  ASSERT_TRUE(station.Disk.Remove(kDvs));
  station.Form.Moneda = "COP"_w;
  testing::internal::CaptureStderr();
  station.Form.CargarMoneda();
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
  EXPECT_EQ(station.Form.Moneda, "$"_w);
  EXPECT_EQ(station.Disk.Get(kDvs), "$\r\n");
}

}  // namespace
}  // namespace vintoral
