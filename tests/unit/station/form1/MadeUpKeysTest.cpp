// Keys that the station presses itself: what stands on the screen, and the link watch, do what a key does.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

/// A main screen that writes down the keys that reach it.
class Listening : public Form1 {
 public:
  using Form1::Form1;
  bool Form_KeyDown(int KeyCode, int Shift) override {
    Keys.emplace_back(KeyCode, Shift);
    return Form1::Form_KeyDown(KeyCode, Shift);
  }
  std::vector<std::pair<int, int>> Keys;
};

class MadeUpKeysTest : public testing::Test {
 protected:
  MadeUpKeysTest() {
    station_.Answers = {Answer::kOk};
    form_.Form_Load();
    form_.Keys.clear();
  }
  MemoryStation station_;
  Listening form_{Platform{station_.Clock, station_.Screen, station_.Sound, station_.System, station_.Faulty,
                           station_.Pictures, station_.Printer, station_.Chance, station_.Camera,
                           station_.Mail}};
  Input hands_{form_.OpenForms};
};

TEST_F(MadeUpKeysTest, ThePointsAskForTheirReset) {
  form_.ImgPuntos.Visible = true;
  hands_.Click(form_.ImgPuntos);
  EXPECT_THAT(form_.Keys, ElementsAre(Pair('R', 3)));
}

TEST_F(MadeUpKeysTest, TheGeneratorsButtonsAskForTheNextNumber) {
  form_.CmdNumeroFicha.Visible = form_.CmdBarCode.Visible = true;
  form_.CmdNumeroFicha.Enabled = form_.CmdBarCode.Enabled = true;
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  hands_.Click(form_.CmdNumeroFicha);
  form_.LimpiarCampos();
  hands_.Click(form_.CmdBarCode);
  EXPECT_THAT(form_.Keys, ElementsAre(Pair(36, 0), Pair(36, 0)));
}

TEST_F(MadeUpKeysTest, TheGeneratorsButtonsAskForNoneWhereTheNumberIsHeld) {
  form_.CmdNumeroFicha.Visible = form_.CmdNumeroFicha.Enabled = true;
  form_.PctBoton[boton::kTiquetes].BorderStyle = 1;
  form_.TxtCampo[0].Locked = true;
  hands_.Click(form_.CmdNumeroFicha);
  EXPECT_THAT(form_.Keys, IsEmpty());
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(MadeUpKeysTest, TheCancelButtonIsEsc) {
  hands_.Click(form_.PctBoton[boton::kCancelar]);
  EXPECT_THAT(form_.Keys, ElementsAre(Pair(27, 0)));
}

TEST_F(MadeUpKeysTest, TheCameraButtonIsControlAndW) {
  hands_.Click(form_.PctBoton[boton::kCamara]);
  EXPECT_THAT(form_.Keys, ElementsAre(Pair('W', 2)));
}

TEST_F(MadeUpKeysTest, ConnectingStartsTheCamera) {
  AdvanceTime(station_.Clock, form_.OpenForms, 3000);
  EXPECT_THAT(form_.Keys, ElementsAre(Pair('W', 4)));
  AdvanceTime(station_.Clock, form_.OpenForms, 20'000);
  EXPECT_EQ(form_.Keys.size(), 1u);
}

}  // namespace
}  // namespace vintoral
