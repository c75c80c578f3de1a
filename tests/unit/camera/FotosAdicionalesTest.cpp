// Photos beyond the one of the entrance: taken, turned over, renamed at the exit, deleted with a form that
// was not saved.
#include <gmock/gmock.h>

#include "support/MemoryStation.h"
#include "support/Photos.h"

namespace vintoral {
namespace {

using test::At;
using test::MemoryStation;
using test::ShadeOf;

constexpr std::string_view kDtl = "Multimedia\\Im\xE1genes DTL\\";

class FotosAdicionalesTest : public testing::Test {
 protected:
  FotosAdicionalesTest() {
    station_.StartConnected();
    Sees(test::Frame(test::kRed));
  }
  void Sees(std::shared_ptr<const cImage> frame) {
    station_.Camera.Cameras["CAMARA"_w].frame = std::move(frame);
  }
  static String Path(std::string_view name) { return String(kDtl) + String(name); }
  bool There(std::string_view name) const { return station_.Disk.Exists(Path(name)); }
  std::string Get(std::string_view name) const { return station_.Disk.Get(Path(name)); }
  void One() { form_.Form_KeyDown('A', keys::kControl); }
  void Ten() { form_.Form_KeyDown('X', keys::kControl); }
  bool Sign() const { return form_.ImgIndicador[indicador::kFotosAdicionales].Visible; }
  void Save() {
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kInsert, 0);
  }
  void Retire() {
    station_.Answers = {Answer::kYes};
    station_.Hands.Key(keys::kDelete, 0);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
};

TEST_F(FotosAdicionalesTest, OneIsTakenNumberedAndShown) {
  station_.TypeNew("7", "abc");
  ASSERT_TRUE(form_.PctFotoDetalle[0].Visible && form_.PctFotoDetalle[1].Visible);
  station_.Events.Take();
  One();
  EXPECT_THAT(station_.Heard(), testing::ElementsAre("Sonidos\\Vintoral-2.wav"_w));
  EXPECT_EQ(ShadeOf(Get("ABC0007\\0007-1.jpg")), 'r');
  EXPECT_EQ(form_.NumeroFotos, 1);
  EXPECT_EQ(form_.FotoActual, 1);
  EXPECT_EQ(form_.FotoContinua, 0);
  EXPECT_TRUE(Sign());
  EXPECT_TRUE(form_.Picture2.Visible && !form_.Picture1.Visible);
  EXPECT_EQ(station_.Waits, (std::vector<std::int64_t>{1000}));
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(FotosAdicionalesTest, TenFollowOneAnotherEachSecondAndGoOnCounting) {
  station_.TypeNew("7", "abc");
  One();
  station_.Waits.clear();
  station_.Events.Take();
  Ten();
  EXPECT_EQ(station_.Waits, std::vector<std::int64_t>(10, 1000));
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_EQ(form_.NumeroFotos, 11);
  EXPECT_TRUE(There("ABC0007\\0007-11.jpg"));
  EXPECT_FALSE(There("ABC0007\\0007-12.jpg"));
}

TEST_F(FotosAdicionalesTest, AFormWithoutAPlateHasAFolderOfItsNumber) {
  station_.TypeAndEnter("7");
  One();
  EXPECT_TRUE(There("0007\\0007-1.jpg"));
}

TEST_F(FotosAdicionalesTest, ThoseTakenBeforeThePlateGoWithIt) {
  station_.TypeAndEnter("7");
  One();
  station_.TypeAndEnter("abc");
  EXPECT_TRUE(There("ABC0007\\0007-1.jpg"));
  EXPECT_FALSE(station_.Disk.HasFolder(Path("0007")));
  EXPECT_EQ(form_.NumeroFotos, 1);
  One();
  EXPECT_TRUE(There("ABC0007\\0007-2.jpg"));
}

TEST_F(FotosAdicionalesTest, AnotherPlateBeginsToCountAnew) {
  form_.NumeroFotos = form_.FotoActual = 5;
  station_.TypeNew("7", "abc");
  EXPECT_EQ(form_.NumeroFotos, 0);
  EXPECT_EQ(form_.FotoActual, 0);
}

TEST_F(FotosAdicionalesTest, WithFaceMemoryTheyAreStamped) {
  station_.TypeNew("7", "abc");
  One();
  form_.ImgIndicador[indicador::kMemoriaRostros].Visible = true;
  One();
  const auto plain = test::Decoded(Get("ABC0007\\0007-1.jpg"));
  const auto stamped = test::Decoded(Get("ABC0007\\0007-2.jpg"));
  ASSERT_TRUE(plain != nullptr && stamped != nullptr);
  EXPECT_LT(test::PixelAt(*plain, 4, 5).green, 60);
  EXPECT_GT(test::PixelAt(*stamped, 4, 5).green, 150);
}

TEST_F(FotosAdicionalesTest, WithoutAFrameNothingIsCountedNorHeard) {
  station_.TypeNew("7", "abc");
  Sees(nullptr);
  station_.Events.Take();
  One();
  EXPECT_TRUE(station_.Heard().empty());
  EXPECT_EQ(form_.NumeroFotos, 0);
  EXPECT_FALSE(Sign());
}

TEST_F(FotosAdicionalesTest, OnADiskThatIsFullThereIsNoSignOfAPhoto) {
  station_.TypeNew("7", "abc");
  station_.Faulty.Set().failAllWrites = true;
  One();
  EXPECT_FALSE(Sign());
  EXPECT_EQ(form_.NumeroFotos, 0);
}

TEST_F(FotosAdicionalesTest, NoneWithoutAFormOrWithTheCameraOff) {
  One();
  Ten();
  EXPECT_TRUE(station_.Waits.empty());
  station_.TypeNew("7", "abc");
  form_.DesactivarCamara();
  One();
  Ten();
  EXPECT_TRUE(station_.Waits.empty());
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
}

TEST_F(FotosAdicionalesTest, TheCameraOffOffersNoButtons) {
  form_.DesactivarCamara();
  station_.TypeNew("7", "abc");
  EXPECT_FALSE(form_.PctFotoDetalle[0].Visible || form_.PctFotoDetalle[1].Visible);
}

TEST_F(FotosAdicionalesTest, ARowOfPhotosIsNotBegunTwice) {
  station_.TypeNew("7", "abc");
  station_.UnderWait = [this] { One(); };
  Ten();
  EXPECT_EQ(form_.NumeroFotos, 10);
}

TEST_F(FotosAdicionalesTest, EscEndsTheRowAndDeletesWhatIsNotSaved) {
  station_.TypeNew("7", "abc");
  One();
  station_.UnderWait = [this] { station_.Hands.Key(keys::kEscape, 0); };
  Ten();
  EXPECT_EQ(station_.Waits.size(), 2u);  // of the one, and the first of the ten
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
  EXPECT_EQ(form_.FotoContinua, 0);
}

TEST_F(FotosAdicionalesTest, EscLeavesTheFolderOfAFichaThatIsInside) {
  station_.Disk.Put(Path("ABC0007\\0007-1.jpg"), test::PhotoOf(test::kRed));
  station_.TypeNew("7", "abc");
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_TRUE(There("ABC0007\\0007-1.jpg"));
}

TEST_F(FotosAdicionalesTest, AFichaThatDoesntComeInLeavesNone) {
  station_.TypeNew("7", "abc");
  One();
  ASSERT_TRUE(There("ABC0007\\0007-1.jpg"));
  station_.UnderBox = [this] {
    RegistroFicha theirs;
    theirs.EnUso = true;
    theirs.Placa = "ZZZ";
    station_.PutSlot(7, theirs);
  };
  Save();
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
}

TEST_F(FotosAdicionalesTest, AFolderThatIsALinkIsNotFollowed) {
  station_.Disk.Put(Path("ABC0007\\0007-1.jpg"), "elsewhere");
  station_.Disk.SetLink(Path("ABC0007"));
  station_.TypeNew("7", "abc");
  One();
  EXPECT_EQ(Get("ABC0007\\0007-1.jpg"), "elsewhere");
  EXPECT_EQ(form_.NumeroFotos, 0);
}

TEST_F(FotosAdicionalesTest, WhatAnEarlierFichaOfThatNameLeftGetsANameOfItsOwn) {
  station_.Disk.Put(Path("ABC0007\\0007-1.jpg"), test::PhotoOf(test::kBlue));
  station_.TypeNew("7", "abc");
  One();
  EXPECT_EQ(ShadeOf(Get("ABC0007\\0007-1.jpg")), 'r');
  const std::vector<String> folders = station_.Disk.ListFolders("Multimedia\\Imágenes DTL"_w);
  ASSERT_EQ(folders.size(), 2u);
  const String& left = folders[0] == "ABC0007"_w ? folders[1] : folders[0];
  EXPECT_TRUE(left.Bytes().starts_with("ABC P01 20-11-2026 1400"));
  EXPECT_EQ(ShadeOf(station_.Disk.Get(String(kDtl) + left + "\\0007-1.jpg"_w)), 'b');
}

TEST_F(FotosAdicionalesTest, AFolderThatCantBeMovedIsWhereTheyStay) {
  station_.TypeNew("7", "abc");
  One();
  station_.Hands.ReplaceText(form_.TxtCampo[1], "xyz"_w);
  station_.Faulty.Set().failAllWrites = true;
  form_.AcomodarFotos();
  station_.Faulty.Repair();
  EXPECT_TRUE(There("ABC0007\\0007-1.jpg"));
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
}

TEST_F(FotosAdicionalesTest, SwitchingTheCameraOffEndsTheRow) {
  station_.TypeNew("7", "abc");
  station_.UnderWait = [this] { form_.DesactivarCamara(); };
  Ten();
  EXPECT_EQ(station_.Waits.size(), 1u);
  EXPECT_FALSE(form_.PctFotoDetalle[0].Visible || form_.PctFotoDetalle[1].Visible);
}

TEST_F(FotosAdicionalesTest, SavingKeepsThemUnderThePlateAsSaved) {
  station_.TypeNew("7", "abc");
  One();
  station_.Hands.ReplaceText(form_.TxtCampo[1], "xyz"_w);
  Save();
  EXPECT_TRUE(There("XYZ0007\\0007-1.jpg"));
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
  EXPECT_FALSE(Sign());
}

/// ABC is inside under number 7 with three additional photos: green, blue, red; the entrance was blue.
class FotosMostradasTest : public FotosAdicionalesTest {
 protected:
  FotosMostradasTest() {
    Sees(test::Frame(test::kBlue));
    station_.TypeNew("7", "abc");
    for (const Rgb colour : {test::kGreen, test::kBlue, test::kRed}) {
      Sees(test::Frame(colour));
      One();
    }
    Sees(test::Frame(test::kBlue));
    Save();
    station_.TypeAndEnter("7");
    station_.Events.Take();
  }
  std::string Shown() const {
    return form_.Picture2.Visible ? std::string(1, ShadeOf(station_.Disk.Get(form_.Picture2.Picture.Path())))
                                  : "live";
  }
};

TEST_F(FotosMostradasTest, AreCountedAndOffered) {
  EXPECT_TRUE(Sign() && form_.ImgFotoDetalle[0].Visible && form_.ImgFotoDetalle[1].Visible);
  EXPECT_TRUE(form_.PctUsuario[0].Enabled);
  EXPECT_EQ(form_.NumeroFotos, 3);
  EXPECT_EQ(form_.FotoActual, 0);
  EXPECT_EQ(Shown(), "b");
}

TEST_F(FotosMostradasTest, ForwardTurnsThemAndWrapsToTheFirst) {
  std::string seen;
  for (int i = 0; i < 4; ++i) {
    station_.Hands.Key(keys::kRight, 0);
    seen += Shown();
  }
  EXPECT_EQ(seen, "gbrg");
  EXPECT_EQ(form_.FotoActual, 1);
}

TEST_F(FotosMostradasTest, BackAtTheFirstLeadsToTheMainPicture) {
  station_.Hands.Click(form_.ImgFotoDetalle[1]);
  station_.Hands.Click(form_.ImgFotoDetalle[1]);
  station_.Hands.Click(form_.ImgFotoDetalle[0]);
  EXPECT_EQ(Shown(), "g");
  EXPECT_EQ(station_.Beeps(), 0);
  station_.Hands.Key(keys::kLeft, 0);
  EXPECT_EQ(form_.FotoActual, 0);
  EXPECT_EQ(Shown(), "b");
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(FotosMostradasTest, TheirPlaceStandsBetweenTheArrows) {
  EXPECT_TRUE(form_.LblFotoDetalle.Visible);
  EXPECT_EQ(form_.LblFotoDetalle.Caption, "3 fotos"_w);
  station_.Hands.Key(keys::kRight, 0);
  station_.Hands.Key(keys::kRight, 0);
  EXPECT_EQ(form_.LblFotoDetalle.Caption, "2 / 3"_w);
  station_.Hands.Key(keys::kLeft, 0);
  EXPECT_EQ(form_.LblFotoDetalle.Caption, "1 / 3"_w);
  station_.Hands.Key(keys::kLeft, 0);
  EXPECT_EQ(form_.LblFotoDetalle.Caption, "3 fotos"_w);
}

TEST_F(FotosMostradasTest, OneThatIsMissingIsToldOf) {
  station_.Hands.Key(keys::kRight, 0);
  station_.Disk.Remove(Path("ABC0007\\0007-2.jpg")).PassOver();
  station_.Hands.Key(keys::kRight, 0);
  EXPECT_EQ(Shown(), "live");
  EXPECT_EQ(form_.LblWebCamMsg.Caption, "SIN IMAGEN"_w);
}

TEST_F(FotosMostradasTest, LeavingTheFichaLeavesNoArrows) {
  station_.Hands.Key(keys::kEscape, 0);
  EXPECT_FALSE(Sign() || form_.ImgFotoDetalle[0].Visible || form_.ImgFotoDetalle[1].Visible);
  EXPECT_FALSE(form_.LblFotoDetalle.Visible);
  EXPECT_FALSE(form_.PctUsuario[0].Enabled);
  EXPECT_TRUE(There("ABC0007\\0007-3.jpg"));
}

TEST_F(FotosMostradasTest, TheExitGivesTheFolderItsFinalName) {
  Retire();
  // Saved at 14:00:03 and three waits of a second; the exit falls into the same minute.
  const Civil now = station_.Clock.Now().Parts();
  const String second = String(std::string(now.second < 10 ? "0" : "") + std::to_string(now.second));
  ASSERT_EQ(now.minute, 0);
  EXPECT_TRUE(station_.Disk.Exists(String(kDtl) + "ABC P01 20-11-2026 1400"_w + second + "\\0007-3.jpg"_w));
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
}

TEST_F(FotosAdicionalesTest, AFolderWithACopyOfTheMainPictureAloneGoesAtTheExit) {
  station_.TypeNew("7", "abc");
  Save();
  station_.Disk.Put(Path("ABC0007\\0007-0.jpg"), "main");
  form_.DesactivarCamara();
  station_.TypeAndEnter("7");
  Retire();
  ASSERT_EQ(station_.HistoryRows(), 2u);
  EXPECT_FALSE(station_.Disk.HasFolder(Path("ABC0007")));
}

TEST_F(FotosAdicionalesTest, AFolderWithMoreThanThatCopyStays) {
  station_.TypeNew("7", "abc");
  Save();
  station_.Disk.Put(Path("ABC0007\\0007-0.jpg"), "main");
  station_.Disk.Put(Path("ABC0007\\0007-2.jpg"), "second");
  form_.DesactivarCamara();
  station_.TypeAndEnter("7");
  Retire();
  EXPECT_TRUE(There("ABC0007\\0007-2.jpg"));
}

TEST_F(FotosAdicionalesTest, AFolderWithNeitherPictureStays) {
  station_.TypeNew("7", "abc");
  Save();
  station_.Disk.Put(Path("ABC0007\\0007-2.jpg"), "second");
  form_.DesactivarCamara();
  station_.TypeAndEnter("7");
  Retire();
  EXPECT_TRUE(There("ABC0007\\0007-2.jpg"));
}

TEST_F(FotosAdicionalesTest, APlateNeverLeadsOutOfTheFolder) {
  const std::vector<std::pair<String, std::string>> plates = {{"/"_w, "_0007"},
                                                              {"\\"_w, "_0007"},
                                                              {":"_w, "_0007"},
                                                              {"*?"_w, "__0007"},
                                                              {".."_w, "..0007"},
                                                              {"a/../../b"_w, "A_.._.._B0007"},
                                                              {"<|>\""_w, "____0007"},
                                                              {"a b "_w, "A B0007"},
                                                              {"ñandú"_w,
                                                               "\xD1"
                                                               "AND\xDA"
                                                               "0007"}};
  for (const auto& [plate, folder] : plates) {
    SCOPED_TRACE(folder);
    station_.TypeAndEnter("7");
    station_.Hands.ReplaceText(form_.TxtCampo[1], plate);
    One();
    EXPECT_TRUE(There(folder + "\\0007-1.jpg"));
    Save();
    ASSERT_TRUE(station_.Slot(7).EnUso);
    station_.TypeAndEnter("7");
    EXPECT_TRUE(Sign());
    Retire();
    EXPECT_FALSE(station_.Disk.HasFolder(Path(folder)));
    station_.Hands.Key(keys::kEscape, 0);
  }
}

}  // namespace
}  // namespace vintoral
