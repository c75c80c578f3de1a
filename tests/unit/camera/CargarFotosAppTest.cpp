// Pictures that the outside camera program of a tablet left become those of the ficha that is saved.
#include <gtest/gtest.h>

#include "support/MemoryStation.h"
#include "support/Photos.h"
#include "support/Registers.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using test::PhotoOf;
using test::ShadeOf;

const String kEntrada = "Multimedia\\Imágenes ACT\\000007.jpg"_w;
const String kGuardada = "Multimedia\\Imágenes USR\\000001.jpg"_w;

class CargarFotosAppTest : public testing::Test {
 protected:
  CargarFotosAppTest() {
    station_.Camera.Installed.clear();
    station_.Disk.Put("/fotos/x.txt", "");
    station_.Disk.Put("Objetos\\AppCamera.INI", "[DIRAPP]\r\n\r\n[DIRPIC]\r\n/fotos\r\n");
    station_.StartConnected();
    RegistroUsuario user;
    user.Placa = "AAA";
    station_.Disk.Put(test::kUsr, test::Encoded(user) + test::Encoded(RegistroUsuario{}));
  }
  void Leave(std::string_view name, Rgb colour) {
    station_.Disk.Put("/fotos/" + std::string(name), PhotoOf(colour));
  }
  void Three() {
    Leave("c.jpg", test::kBlue);
    Leave("A.JPG", test::kRed);
    Leave("b.jpeg", test::kGreen);
  }
  char Dtl(std::string_view name) const {
    return ShadeOf(station_.Disk.Get("Multimedia\\Imágenes DTL\\"_w + String(name)));
  }
  char Shade(const String& path) const { return ShadeOf(station_.Disk.Get(path)); }
  std::size_t Left() const {
    return station_.Disk.List("/fotos", ".jpg").size() + station_.Disk.List("/fotos", ".jpeg").size();
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(CargarFotosAppTest, TheLastIsTheMainOneAndTheOthersAreNumbered) {
  Three();
  station_.Enter("7", "zzz");
  EXPECT_EQ(Shade(kEntrada), 'b');
  EXPECT_EQ(Dtl("ZZZ0007\\0007-0.jpg"), 'b');
  EXPECT_EQ(Dtl("ZZZ0007\\0007-1.jpg"), 'r');
  EXPECT_EQ(Dtl("ZZZ0007\\0007-2.jpg"), 'g');
  EXPECT_EQ(Dtl("ZZZ0007\\0007-3.jpg"), '?');
  EXPECT_EQ(Left(), 0u);
  EXPECT_EQ(form_.RutaFotoFicha, "/estacion\\Multimedia\\Imágenes ACT\\000007.jpg"_w);
  EXPECT_EQ(Shade("Multimedia\\Imágenes USR\\000003.jpg"_w), 'b');
}

TEST_F(CargarFotosAppTest, OfAKnownUserHisPhotoIsTheMainOneAndAllAreNumbered) {
  station_.Disk.Put(kGuardada, PhotoOf(test::kGreen));
  Leave("a.jpg", test::kRed);
  Leave("b.jpg", test::kBlue);
  station_.Enter("7", "aaa");
  EXPECT_EQ(Shade(kEntrada), 'g');
  EXPECT_EQ(Dtl("AAA0007\\0007-0.jpg"), '?');
  EXPECT_EQ(Dtl("AAA0007\\0007-1.jpg"), 'r');
  EXPECT_EQ(Dtl("AAA0007\\0007-2.jpg"), 'b');
  EXPECT_EQ(Shade(kGuardada), 'g');
}

TEST_F(CargarFotosAppTest, WithFaceMemoryTheNewPictureIsHis) {
  station_.Disk.Put(kGuardada, PhotoOf(test::kGreen));
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  Leave("a.jpg", test::kRed);
  station_.Enter("7", "aaa");
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_EQ(Shade(kGuardada), 'r');
  EXPECT_EQ(Dtl("AAA0007\\0007-0.jpg"), 'r');
}

TEST_F(CargarFotosAppTest, AnEmptyFolderLeavesNothing) {
  form_.RutaFotoFicha = "of another one"_w;
  station_.Disk.Put(kEntrada, PhotoOf(test::kGreen));
  station_.Enter("7", "zzz");
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_TRUE(form_.RutaFotoFicha.Empty());
  EXPECT_FALSE(station_.Disk.HasFolder("Multimedia\\Imágenes DTL\\ZZZ0007"_w));
  EXPECT_FALSE(station_.Disk.Exists("Multimedia\\Imágenes USR\\000003.jpg"_w));
}

TEST_F(CargarFotosAppTest, LinksAndOtherFilesAreLeftToTheProgram) {
  Leave("a.jpg", test::kRed);
  Leave("z.jpg", test::kBlue);
  station_.Disk.SetLink("/fotos/z.jpg");
  station_.Disk.Put("/fotos/zz.mp4", "film");
  station_.Enter("7", "zzz");
  EXPECT_EQ(Shade(kEntrada), 'r');
  EXPECT_TRUE(station_.Disk.Exists("/fotos/z.jpg") && station_.Disk.Exists("/fotos/zz.mp4"));
}

TEST_F(CargarFotosAppTest, APictureLeftByAnEarlierFichaOfThatNameGivesWay) {
  station_.Disk.Put("Multimedia\\Imágenes DTL\\ZZZ0007\\0007-1.jpg"_w, PhotoOf(test::kBlue));
  Leave("a.jpg", test::kRed);
  Leave("b.jpg", test::kGreen);
  station_.Enter("7", "zzz");
  EXPECT_EQ(Dtl("ZZZ0007\\0007-1.jpg"), 'r');
  EXPECT_EQ(Left(), 0u);
}

TEST_F(CargarFotosAppTest, OnAFullDiskThePicturesStayWhereTheyAre) {
  Three();
  station_.TypeNew("7", "zzz");
  station_.Answers = {Answer::kYes};
  station_.UnderBox = [this] { station_.Faulty.Set().failAllWrites = true; };
  station_.Hands.Key(keys::kInsert, 0);
  EXPECT_FALSE(station_.Slot(7).EnUso);
  EXPECT_EQ(Left(), 3u);
}

}  // namespace
}  // namespace vintoral
