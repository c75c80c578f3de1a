// The photo of a ficha becomes its user's: the latest, and that of the first visit.
#include <gtest/gtest.h>

#include <string>

#include "support/MemoryStation.h"
#include "support/Photos.h"
#include "support/Registers.h"

namespace vintoral {
namespace {

using test::Encoded;
using test::kUsr;
using test::MemoryStation;

const String kEntrada = "Multimedia\\Imágenes ACT\\000007.jpg"_w;

String Latest(int user) {
  return "Multimedia\\Imágenes USR\\00000"_w + String(std::to_string(user)) + ".jpg"_w;
}
String First(int user) {
  return "Multimedia\\Imágenes INI\\00000"_w + String(std::to_string(user)) + ".jpg"_w;
}

/// Users AAA and BBB; the camera has just stored the photo of number 7.
class FotosUsuarioTest : public testing::Test {
 protected:
  FotosUsuarioTest() {
    station_.StartConnected();
    RegistroUsuario one, two;
    one.Placa = "AAA";
    two.Placa = "BBB";
    station_.Disk.Put(kUsr, Encoded(one) + Encoded(two));
    station_.Disk.Put(kEntrada, ofToday_);
  }
  void Enter(const char* plate, std::function<void()> meanwhile = nullptr) {
    station_.TypeNew("7", plate);
    form_.RutaFotoFicha = kEntrada;
    station_.UnderBox = std::move(meanwhile);
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
  }
  std::string Get(const String& photo) const { return station_.Disk.Get(photo); }

  const std::string ofToday_ = test::Photo();  // anything else is deleted when the grid shows it
  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(FotosUsuarioTest, OfANewOneIsBoth) {
  ASSERT_FALSE(station_.Disk.Exists(First(3)) || station_.Disk.Exists(Latest(3)));
  Enter("ccc");
  EXPECT_EQ(Get(First(3)), ofToday_);
  EXPECT_EQ(Get(Latest(3)), ofToday_);
  EXPECT_EQ(Get(kEntrada), ofToday_);
}

TEST_F(FotosUsuarioTest, OfAKnownOneIsTheLatestAlone) {
  station_.Disk.Put(First(1), "of long ago");
  station_.Disk.Put(Latest(1), "of last week");
  Enter("aaa");
  EXPECT_EQ(Get(First(1)), "of long ago");
  EXPECT_EQ(Get(Latest(1)), ofToday_);
}

TEST_F(FotosUsuarioTest, OfTheLastOneIsBothAtEachVisit) {
  station_.Disk.Put(First(2), "of long ago");
  Enter("bbb");
  EXPECT_EQ(Get(First(2)), ofToday_);
  EXPECT_EQ(Get(Latest(2)), ofToday_);
}

TEST_F(FotosUsuarioTest, IsThatOfTheUserWhoWasWritten) {
  Enter("ccc", [this] {
    RegistroUsuario theirs;
    theirs.Placa = "DDD";
    test::PutRecord(station_.Disk, kUsr, 3, theirs);
  });
  EXPECT_EQ(Get(Latest(4)), ofToday_);
  EXPECT_FALSE(station_.Disk.Exists(Latest(3)));
}

TEST_F(FotosUsuarioTest, ThatIsMissingLeavesTheOldOne) {
  ASSERT_TRUE(station_.Disk.Remove(kEntrada));
  station_.Disk.Put(Latest(1), "of last week");
  Enter("aaa");
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Get(Latest(1)), "of last week");
}

TEST_F(FotosUsuarioTest, OfAnotherVehicleIsNotHis) {
  station_.Disk.Put(Latest(1), "of last week");
  station_.Disk.Put("Multimedia\\Imágenes ACT\\000008.jpg"_w, "of number 8");
  station_.TypeNew("7", "aaa");
  form_.RutaFotoFicha = "Multimedia\\Imágenes ACT\\000008.jpg"_w;
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Get(Latest(1)), "of last week");
}

TEST_F(FotosUsuarioTest, WithoutAPlateIsNobodys) {
  station_.TypeAndEnter("7");
  form_.RutaFotoFicha = kEntrada;
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(Latest(0)) || station_.Disk.Exists(First(0)));
}

TEST_F(FotosUsuarioTest, OfAFichaThatDidNotComeInIsNobodys) {
  Enter("aaa", [this] { station_.Disk.SetReadOnly(test::kAct); });
  ASSERT_FALSE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(Latest(1)));
}

TEST_F(FotosUsuarioTest, WithoutRoomTheOldOneStays) {
  station_.Disk.Put(Latest(1), "of last week");
  // User, slot, photo.
  Enter("aaa", [this] { station_.Faulty.Set().failWrite = 3; });
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Get(Latest(1)), "of last week");
}

}  // namespace
}  // namespace vintoral
