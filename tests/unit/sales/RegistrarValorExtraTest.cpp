// What a sale leaves in the list of sales, and what it does where that can't be written.
#include <gmock/gmock.h>

#include <array>

#include "records/RegistroMixto.h"
#include "unit/sales/ExtrasFixture.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::Hex;
using test::Zeros;

/// What stands behind the list: the lock of functions with a password.
std::string Lock() {
  RegistroMixto lock;
  lock.CampoA = "12345"_w;
  lock.CampoB = "100000000000000000"_w;
  lock.Numero1 = -1;
  return Encoded(lock);
}

class RegistrarValorExtraTest : public test::ExtrasTest {
 protected:
  void PutList(const std::string& lines) {
    const std::string blank = ListaExtrasEnBlanco().Bytes();
    station_.Disk.Put(kExt, lines + blank.substr(lines.size()) + Lock());
  }
};

TEST_F(RegistrarValorExtraTest, LaysOutAFileThatIsMissingOrEmpty) {
  Sell(1, "3");
  const std::string first = List();
  ASSERT_EQ(first.size(), 230'000u);
  // 5000.0000 is 2FAF080; 14:05 is 1405, 57D.
  EXPECT_EQ(first.substr(0, 46), Hex("08 00 08 00") + "20/11/26" + Hex("08 00 0F 00") + "CAFE           " +
                                     Hex("00 00  80 F0 FA 02 00 00 00 00  7D 05  03 00") + Zeros(1));
  EXPECT_EQ(first.substr(46), ListaExtrasEnBlanco().Bytes().substr(46));
  station_.Disk.Put(kExt, "");
  Sell(1, "3");
  EXPECT_EQ(List(), first);
}

TEST_F(RegistrarValorExtraTest, TheNewestStandsFirstAndTheLockStays) {
  PutList("");
  Sell(0);
  Sell(2, "2");
  EXPECT_EQ(Line(1), Sold("CASCO MOTO", 2, Money::FromUnits(120'000)));
  EXPECT_EQ(Line(2), Sold("MINUTO", 1, Money::FromUnits(200)));
  EXPECT_EQ(Line(3), RegistroExtra{});
  EXPECT_EQ(List().substr(230'000), Lock());
}

TEST_F(RegistrarValorExtraTest, AMarkOfAShiftIsPushedDown) {
  RegistroExtra marked = Sold("CAFE", 1, Money::FromUnits(5000), 800);
  marked.MarcaTurnoExtra = true;
  PutList(Encoded(marked));
  Sell(0);
  EXPECT_FALSE(Line(1).MarcaTurnoExtra);
  EXPECT_EQ(Line(2), marked);
}

TEST_F(RegistrarValorExtraTest, TheTimeIsTheClocks) {
  station_.Clock.Set(test::At(0, 5));
  Sell(0);
  station_.Clock.Set(test::At(23, 59));
  Sell(0);
  EXPECT_EQ(Line(1).HoraVenta, 2359);
  EXPECT_EQ(Line(2).HoraVenta, 5);
}

TEST_F(RegistrarValorExtraTest, AListThatMayNotBeWrittenIsWrittenAllTheSame) {
  PutList("");
  station_.Disk.SetReadOnly(kExt);
  Sell(0);
  EXPECT_EQ(Line(1), Sold("MINUTO", 1, Money::FromUnits(200)));
}

TEST_F(RegistrarValorExtraTest, IsOnDiskWhenTheDialogCloses) {
  PutList("");
  Dialog([this] {
    Tick(0);
    const int before = station_.Disk.Syncs();
    Register();
    EXPECT_EQ(station_.Disk.Syncs(), before + 1);
    EXPECT_FALSE(station_.Faulty.Pending());
    EXPECT_EQ(form_.Form4, nullptr);
  });
}

class FailingSaleTest : public RegistrarValorExtraTest {
 protected:
  /// A sale under whatever goes wrong: not recorded, a line on standard error, no box, the dialog closed.
  void ExpectUnrecorded(const std::function<void()>& trouble) {
    station_.Disk.Put(kExt, before_);
    station_.Boxes.clear();
    std::string told;
    Dialog([&] {
      Tick(0);
      trouble();
      testing::internal::CaptureStderr();
      Register();
      told = testing::internal::GetCapturedStderr();
      station_.Faulty.Repair();
      EXPECT_EQ(form_.Form4, nullptr);
    });
    EXPECT_NE(told, "");
    EXPECT_EQ(List(), before_);
    EXPECT_TRUE(station_.Boxes.empty());
  }

  const std::string before_ =
      Encoded(Sold("CAFE", 1, Money::FromUnits(5000))) + ListaExtrasEnBlanco().Bytes().substr(46) + Lock();
};

TEST_F(FailingSaleTest, LeavesTheListAsItWas) {
  test::Faults& faults = station_.Faulty.Set();
  ExpectUnrecorded([&] { faults.failAllWrites = true; });
  ExpectUnrecorded([&] { faults.openReadOnly = true; });
  // What can't be read is not written over: it may be whole.
  ExpectUnrecorded([&] { faults.failRead = 1; });
  ExpectUnrecorded([&] { faults.goneAfter = 0; });
}

TEST_F(FailingSaleTest, AFolderInItsPlaceIsNoList) {
  ASSERT_TRUE(station_.Disk.CreateFolder(kExt));
  Sell(0);
  EXPECT_TRUE(station_.Disk.HasFolder(kExt));
  EXPECT_EQ(List(), "(missing)");
}

TEST_F(RegistrarValorExtraTest, ADamagedListTakesASaleOnTop) {
  constexpr std::array<std::size_t, 11> kLengths = {1,       45,      46,      47,      91,     229'999,
                                                    230'000, 230'001, 230'045, 230'046, 230'100};
  for (const std::size_t length : kLengths) {
    const std::string noise(length, '\x7F');
    station_.Disk.Put(kExt, noise);
    Sell(0);
    EXPECT_EQ(Line(1), Sold("MINUTO", 1, Money::FromUnits(200))) << length;
    EXPECT_EQ(List().size(), std::max<std::size_t>(length, 230'000)) << length;
    EXPECT_EQ(List().substr(230'000), noise.substr(std::min<std::size_t>(length, 230'000))) << length;
  }
}

TEST_F(RegistrarValorExtraTest, WithoutItsDialogNothingIsSold) {
  form_.RegistrarValorExtra();
  EXPECT_EQ(List(), "(missing)");
}

}  // namespace
}  // namespace vintoral
