// The photo of the exit: of what is on the screen, stamped, in the history's folder; and that of the entrance
// goes.
#include <gtest/gtest.h>

#include "station/form1/Sellos.h"
#include "support/MemoryStation.h"
#include "support/Photos.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using test::PixelAt;
using test::ShadeOf;

const String kEntrada = "Multimedia\\Imágenes ACT\\000007.jpg"_w;
const String kSalida = "Multimedia\\Imágenes HST\\000002.jpg"_w;  // row 1 is the blank one
/// Where the photo of the entrance is for a moment, when the exit is row 2.
const String kApartada = kEntrada + ".fila2"_w;

TEST(Sellos, SayStationTimeAndDate) {
  const String marca = "14:25  (31/12/2026)"_w;
  EXPECT_EQ(TextoSelloEntrada("01"_w, marca), "PE01 14:25 31/12/2026"_w);
  EXPECT_EQ(TextoSelloSalida("PS"_w, "02"_w, marca), "PS02 14:25 (31/12/2026)"_w);
}

/// ABC came in under number 7, and the camera saw red.
class FotoDeSalidaTest : public testing::Test {
 protected:
  FotoDeSalidaTest() {
    station_.StartConnected();
    station_.Camera.Cameras["CAMARA"_w].frame = test::Frame(test::kRed);
    station_.Enter("7", "abc");
    EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'r');
  }
  void Show() { station_.TypeAndEnter("7"); }
  void Retire() {
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kDelete, 0);
  }
  /// The middle of a letter that is stamped there: of the P's stem, and of the D's row below.
  bool StampedAt(int x, int y) const {
    const auto photo = test::Decoded(station_.Disk.Get(kSalida));
    return photo != nullptr && PixelAt(*photo, x + 1, y + 5).green > 150;
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(FotoDeSalidaTest, IsThatOfTheEntranceWithBothStamps) {
  Show();
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kSalida)), 'r');
  EXPECT_TRUE(StampedAt(5, 13));
  EXPECT_TRUE(StampedAt(5, 2));
  EXPECT_FALSE(station_.Disk.Exists(kEntrada));
}

TEST_F(FotoDeSalidaTest, WithFaceMemoryHasTheStampOfTheExitAlone) {
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  Show();
  Retire();
  EXPECT_TRUE(StampedAt(5, 13));
  EXPECT_FALSE(StampedAt(5, 2));
}

TEST_F(FotoDeSalidaTest, WithTheCameraOffBothStayAsTheyAre) {
  const std::string before = station_.Disk.Get(kEntrada);
  form_.DesactivarCamara();
  Show();
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_FALSE(station_.Disk.Exists(kSalida));
  EXPECT_EQ(station_.Disk.Get(kEntrada), before);
}

TEST_F(FotoDeSalidaTest, WithoutAPhotoThereIsNone) {
  station_.Disk.Remove(kEntrada).PassOver();
  Show();
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_FALSE(station_.Disk.Exists(kSalida));
}

TEST_F(FotoDeSalidaTest, TakesThePlaceOfOneThatAnEarlierHistoryLeft) {
  station_.Disk.Put(kSalida, "old");
  station_.Disk.SetReadOnly(kSalida);
  Show();
  Retire();
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kSalida)), 'r');
}

TEST_F(FotoDeSalidaTest, OfARowWithoutOneIsNotThatOfAnEarlierHistory) {
  station_.Disk.Put(kSalida, test::PhotoOf(test::kGreen));
  station_.Disk.Remove(kEntrada).PassOver();
  Show();
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_FALSE(station_.Disk.Exists(kSalida));
}

TEST_F(FotoDeSalidaTest, ThatCantBeReadIsTheFileOfTheEntranceAndNotOfAnEarlierHistory) {
  station_.Disk.Put(kSalida, test::PhotoOf(test::kGreen));
  Show();
  const std::string cut = station_.Disk.Get(kEntrada).substr(0, 500);
  station_.Disk.Put(kEntrada, cut);
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_NE(ShadeOf(station_.Disk.Get(kSalida)), 'g');
}

TEST_F(FotoDeSalidaTest, AFichaThatStaysInsideKeepsItsPhoto) {
  Show();
  station_.UnderBox = [this] { station_.Faulty.Set().failReserve = true; };
  Retire();
  station_.Faulty.Repair();
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'r');
  EXPECT_FALSE(station_.Disk.Exists(kSalida));
}

TEST_F(FotoDeSalidaTest, ARowThatCantBeWrittenPutsTheFichaBackWithItsPhoto) {
  Show();
  // Code, slot, row.
  station_.UnderBox = [this] { station_.Faulty.Set().failWrite = 2; };
  Retire();
  station_.Faulty.Repair();
  ASSERT_TRUE(station_.Slot(7).EnUso);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'r');
}

TEST_F(FotoDeSalidaTest, WithoutAHistoryNothingIsStoredAndNothingLost) {
  station_.Disk.Remove("Multimedia\\Vintoral.HST").PassOver();
  Show();
  Retire();
  ASSERT_FALSE(station_.Slot(7).EnUso);
  EXPECT_FALSE(station_.Disk.Exists("Multimedia\\Imágenes HST\\000007.jpg"_w) ||
               station_.Disk.Exists(kSalida));
  EXPECT_TRUE(station_.Disk.Exists(kEntrada));
}

TEST_F(FotoDeSalidaTest, ThatCantBeWrittenIsTheOneOfTheEntrance) {
  Show();
  // Slot, row, points, movement, photo.
  station_.UnderBox = [this] { station_.Faulty.Set().failWrite = 5; };
  Retire();
  station_.Faulty.Repair();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kSalida)), 'r');
  EXPECT_FALSE(StampedAt(5, 13));
  EXPECT_FALSE(station_.Disk.Exists(kEntrada));
}

TEST_F(FotoDeSalidaTest, TheNextVehicleKeepsItsOwn) {
  Show();
  station_.Disk.BeforeLocked("Multimedia\\Vintoral.HST",
                             [this] { station_.Disk.Put(kEntrada, test::PhotoOf(test::kBlue)); });
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'b');
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kSalida)), 'r');
}

TEST_F(FotoDeSalidaTest, TheNextVehicleKeepsItsOwnThatComesInTheLastMoment) {
  Show();
  station_.Disk.BeforeMoved(kEntrada, [this] { station_.Disk.Put(kEntrada, test::PhotoOf(test::kBlue)); });
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'b');
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kSalida)), 'r');
  EXPECT_FALSE(station_.Disk.Exists(kApartada));
}

TEST_F(FotoDeSalidaTest, OfTwoThatComeInTheLastMomentTheLastOneStays) {
  Show();
  station_.Disk.BeforeMoved(kEntrada, [this] { station_.Disk.Put(kEntrada, test::PhotoOf(test::kBlue)); });
  station_.Disk.BeforeMoved(kApartada, [this] { station_.Disk.Put(kEntrada, test::PhotoOf(test::kGreen)); });
  Retire();
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'g');
  EXPECT_FALSE(station_.Disk.Exists(kApartada));
}

TEST_F(FotoDeSalidaTest, ThatIsNotStoredLeavesTheOneOfTheEntranceWhereItIs) {
  Show();
  station_.Disk.RemoveFolder("Multimedia\\Imágenes HST"_w).PassOver();
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_EQ(ShadeOf(station_.Disk.Get(kEntrada)), 'r');
  EXPECT_FALSE(station_.Disk.Exists(kApartada));
}

TEST_F(FotoDeSalidaTest, AnswerNoLeavesTheFiles) {
  Show();
  station_.Answers = {Answer::kNo};
  station_.Hands.Key(keys::kDelete, 0);
  EXPECT_TRUE(station_.Disk.Exists(kEntrada));
  EXPECT_FALSE(station_.Disk.Exists(kSalida));
}

}  // namespace
}  // namespace vintoral
