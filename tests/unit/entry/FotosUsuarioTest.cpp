// The photo of the entrance, and how it becomes its user's: the latest, and that of the first visit.
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
using test::PhotoOf;
using test::ShadeOf;

const String kEntrada = "Multimedia\\Imágenes ACT\\000007.jpg"_w;
const String kFoto = "Sonidos\\Vintoral-2.wav"_w;
const String kHecho = "Sonidos\\Vintoral-4.wav"_w;

String Latest(int user) {
  return "Multimedia\\Imágenes USR\\00000"_w + String(std::to_string(user)) + ".jpg"_w;
}
String First(int user) {
  return "Multimedia\\Imágenes INI\\00000"_w + String(std::to_string(user)) + ".jpg"_w;
}

/// Users AAA and BBB; the camera sees red.
class FotosUsuarioTest : public testing::Test {
 protected:
  FotosUsuarioTest() {
    station_.StartConnected();
    RegistroUsuario one, two;
    one.Placa = "AAA";
    two.Placa = "BBB";
    station_.Disk.Put(kUsr, Encoded(one) + Encoded(two));
    Sees(test::Frame(test::kRed));
  }
  void Sees(std::shared_ptr<const cImage> frame) {
    station_.Camera.Cameras["CAMARA"_w].frame = std::move(frame);
  }
  void Enter(const char* plate, std::function<void()> meanwhile = nullptr) {
    station_.TypeNew("7", plate);
    station_.UnderBox = std::move(meanwhile);
    station_.Answers = {Answer::kYes};
    station_.Events.Take();
    station_.Hands.Key(keys::kInsert, 0);
  }
  std::string Get(const String& photo) const { return station_.Disk.Get(photo); }
  char Shade(const String& photo) const { return ShadeOf(Get(photo)); }
  bool Heard(const String& sound) {
    const std::vector<String> files = station_.Heard();
    return std::find(files.begin(), files.end(), sound) != files.end();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(FotosUsuarioTest, OfANewOneIsBoth) {
  ASSERT_FALSE(station_.Disk.Exists(First(3)) || station_.Disk.Exists(Latest(3)));
  Enter("ccc");
  EXPECT_TRUE(Heard(kFoto));
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_EQ(Get(First(3)), Get(kEntrada));
  EXPECT_EQ(Get(Latest(3)), Get(kEntrada));
  EXPECT_EQ(form_.RutaFotoFicha, "/estacion\\Multimedia\\Imágenes ACT\\000007.jpg"_w);
}

TEST_F(FotosUsuarioTest, IsThreeHundredAndTwentyByTwoHundredAndForty) {
  Sees(test::Frame(test::kRed, 1920, 1080));
  Enter("ccc");
  const auto photo = test::Decoded(Get(kEntrada));
  ASSERT_NE(photo, nullptr);
  EXPECT_EQ(photo->Width(), 320);
  EXPECT_EQ(photo->Height(), 240);
}

TEST_F(FotosUsuarioTest, OfAKnownOneWithoutAPhotoIsTheLatestAlone) {
  station_.Disk.Put(First(1), "of long ago");
  Enter("aaa");
  EXPECT_TRUE(Heard(kFoto));
  EXPECT_EQ(Get(First(1)), "of long ago");
  EXPECT_EQ(Shade(Latest(1)), 'r');
}

TEST_F(FotosUsuarioTest, OfAKnownOneStaysWhatItWas) {
  station_.Disk.Put(Latest(1), PhotoOf(test::kGreen));
  Enter("aaa", [this] { EXPECT_EQ(form_.Picture2.Picture.Path(), form_.ImgUsuario.Picture.Path()); });
  EXPECT_EQ(Shade(kEntrada), 'g');
  EXPECT_EQ(Shade(Latest(1)), 'g');
  const std::vector<String> heard = station_.Heard();
  EXPECT_EQ(std::count(heard.begin(), heard.end(), kFoto), 0);
  EXPECT_EQ(std::count(heard.begin(), heard.end(), kHecho), 1);
}

TEST_F(FotosUsuarioTest, WithFaceMemoryIsTakenAnewAndStamped) {
  station_.Disk.Put(Latest(1), PhotoOf(test::kGreen));
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  Enter("aaa");
  EXPECT_TRUE(Heard(kFoto));
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_EQ(Shade(Latest(1)), 'r');
  // "PE01 14:00 20/11/2026" from pixel (3, 0): the stem of the P is white at its third column.
  const auto photo = test::Decoded(Get(kEntrada));
  EXPECT_GT(test::PixelAt(*photo, 4, 5).green, 150);
  EXPECT_LT(test::PixelAt(*photo, 3 + 21 * 7 + 4, 5).green, 90);
}

TEST_F(FotosUsuarioTest, WithoutFaceMemoryIsNotStamped) {
  Enter("aaa");
  const auto photo = test::Decoded(Get(kEntrada));
  ASSERT_NE(photo, nullptr);
  for (int x = 0; x < 160; ++x)
    ASSERT_LT(test::PixelAt(*photo, x, 5).green, 60) << x;
}

TEST_F(FotosUsuarioTest, OfTheLastOneIsBothAtEachVisit) {
  station_.Disk.Put(First(2), "of long ago");
  Enter("bbb");
  EXPECT_EQ(Shade(First(2)), 'r');
  EXPECT_EQ(Shade(Latest(2)), 'r');
}

TEST_F(FotosUsuarioTest, IsThatOfTheUserWhoWasWritten) {
  Enter("ccc", [this] {
    RegistroUsuario theirs;
    theirs.Placa = "DDD";
    test::PutRecord(station_.Disk, kUsr, 3, theirs);
  });
  EXPECT_EQ(Shade(Latest(4)), 'r');
  EXPECT_FALSE(station_.Disk.Exists(Latest(3)));
}

TEST_F(FotosUsuarioTest, WithoutAFrameTheOldOnesStayAndNothingIsHeard) {
  Sees(nullptr);
  station_.Disk.Put(kEntrada, PhotoOf(test::kBlue));  // of whoever had this number before
  form_.RutaFotoFicha = "/estacion\\Multimedia\\Imágenes ACT\\000007.jpg"_w;
  Enter("ccc");
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_FALSE(Heard(kFoto));
  EXPECT_FALSE(station_.Disk.Exists(kEntrada));
  EXPECT_FALSE(station_.Disk.Exists(Latest(3)) || station_.Disk.Exists(First(3)));
  EXPECT_EQ(form_.RutaFotoFicha, "/estacion\\Multimedia\\Imágenes ACT\\000007.jpg"_w);
  EXPECT_EQ(form_.dspPreview.UltimoError, 600);
}

TEST_F(FotosUsuarioTest, ThatIsDamagedIsNotTakenOver) {
  station_.Disk.Put(Latest(1), "of last week");
  Enter("aaa");
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Get(Latest(1)), "of last week");
  EXPECT_FALSE(station_.Disk.Exists(kEntrada));
}

TEST_F(FotosUsuarioTest, WithoutAPlateIsNobodys) {
  station_.TypeAndEnter("7");
  station_.Answers = {Answer::kYes};
  station_.Hands.Key(keys::kInsert, 0);
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_FALSE(station_.Disk.Exists(Latest(0)) || station_.Disk.Exists(First(0)));
}

TEST_F(FotosUsuarioTest, OfAFichaThatDidNotComeInIsNobodys) {
  Enter("aaa", [this] { station_.Disk.SetReadOnly(test::kAct); });
  ASSERT_FALSE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(Latest(1)) || station_.Disk.Exists(kEntrada));
}

TEST_F(FotosUsuarioTest, WithoutRoomTheOldOneStays) {
  station_.Disk.Put(Latest(1), PhotoOf(test::kGreen));
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  // User, slot, photo, its copy.
  Enter("aaa", [this] { station_.Faulty.Set().failWrite = 4; });
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_EQ(Shade(Latest(1)), 'g');
}

TEST_F(FotosUsuarioTest, OfTheEntranceTakesThePlaceOfAReadOnlyOne) {
  station_.Disk.Put(kEntrada, PhotoOf(test::kBlue));
  station_.Disk.SetReadOnly(kEntrada);
  Enter("aaa");
  EXPECT_EQ(Shade(kEntrada), 'r');
}

TEST_F(FotosUsuarioTest, WithTheCameraOffNoneIsTaken) {
  form_.Form_KeyDown('W', keys::kControl | keys::kAlt);
  Enter("ccc");
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists(kEntrada));
  EXPECT_TRUE(form_.RutaFotoFicha.Empty());
}

}  // namespace
}  // namespace vintoral
