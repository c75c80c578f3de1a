// The dialog of the camera's settings as hands use it.
#include "camera/formcamara/FormCamara.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <limits>
#include <vector>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const char* kFile = "Recursos\\Vintoral.CFG";
constexpr CameraMode kSmall{640, 480, 30}, kLarge{1280, 720, 15};
constexpr std::size_t kBrightness = 0, kContrast = 1;
using Steps = std::vector<std::function<void()>>;

class FormCamaraTest : public testing::Test {
 protected:
  FormCamaraTest() {
    Options().modes = {kSmall, kLarge};
    Options().controls = {{"brightness", "Brillo"_w, 0, 255, 128}, {"contrast", "Contraste"_w, -64, 64, 0}};
  }
  CameraOptions& Options() { return station_.Camera.Cameras["CAMARA"_w].options; }
  /// Opens the dialog of a station that runs, and does `steps` in it.
  void Dialog(const Steps& steps) {
    if (form_.TotalFichas == 0) station_.StartConnected();
    station_.InDialog = {steps.begin(), steps.end()};
    hands_.Key('W', keys::kShift | keys::kAlt);
    EXPECT_THAT(station_.InDialog, IsEmpty());
    EXPECT_EQ(form_.OpenForms.Find("FormCamara"), nullptr);
  }
  FormCamara& Form() { return dynamic_cast<FormCamara&>(form_.OpenForms.Active()); }
  void Replace(std::size_t control, std::string_view text) {
    hands_.Focus(Form().TxtControl[control]);
    station_.Type(text);
  }
  void Press(int key) { hands_.Key(key, 0); }
  std::function<void()> Pressing(int key) {
    return [this, key] { Press(key); };
  }
  /// As the camera runs now.
  const CameraFormat& Now() const { return station_.Camera.Running.format; }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
};

TEST_F(FormCamaraTest, ShowsWhatTheCameraOffers) {
  Dialog({[this] {
            EXPECT_EQ(Form().LblCamara.Caption, "CAMARA"_w);
            EXPECT_THAT(Form().CboModo.List(),
                        ElementsAre("La del dispositivo"_w, "640 x 480, 30 por segundo"_w,
                                    "1280 x 720, 15 por segundo"_w));
            EXPECT_EQ(Form().CboModo.ListIndex(), 0);
            EXPECT_EQ(Form().LblControl[kContrast].Caption, "Contraste"_w);
            EXPECT_EQ(Form().TxtControl[kContrast].Text(), "0"_w);
            EXPECT_EQ(Form().LblLimites[kContrast].Caption, "-64 a 64"_w);
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "128"_w);
            EXPECT_TRUE(Form().TxtControl[kContrast].Visible);
            EXPECT_FALSE(Form().TxtControl[2].Visible);
            EXPECT_FALSE(Form().CmdMas[2].Visible);
            EXPECT_EQ(Form().Focus(), &Form().CboModo);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, ShowsWhatIsKeptOfTheCamera) {
  station_.Disk.Put(kFile, "1280x720@15 brightness=7 | CAMARA\r\n");
  Dialog({[this] {
            EXPECT_EQ(Form().CboModo.Text(), "1280 x 720, 15 por segundo"_w);
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "7"_w);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, ACameraWithoutModesHasNoListOfThem) {
  Options().modes.clear();
  Dialog({[this] {
            EXPECT_FALSE(Form().CboModo.Visible);
            EXPECT_FALSE(Form().LblModo.Visible);
            EXPECT_EQ(Form().Focus(), &Form().TxtControl[0]);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, MoreControlsThanRowsAreLeftOut) {
  Options().controls.assign(20, {"brightness", "Brillo"_w, 0, 255, 128});
  Dialog({[this] { EXPECT_TRUE(Form().TxtControl.back().Visible); }, Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, WithNothingToChooseTheCameraIsOnlyConnectedAnew) {
  Options() = {};
  station_.StartConnected();
  const int starts = station_.Camera.Starts;
  Dialog({});
  EXPECT_EQ(station_.Camera.Starts, starts + 1);
}

TEST_F(FormCamaraTest, WithTheCameraOffItBeeps) {
  station_.StartConnected();
  hands_.Key('W', keys::kControl | keys::kAlt);
  const int starts = station_.Camera.Starts;
  station_.Beeps();
  Dialog({});
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_EQ(station_.Camera.Starts, starts);
}

TEST_F(FormCamaraTest, AModeActsAtOnce) {
  Dialog({[this] {
            EXPECT_EQ(Now().mode, std::nullopt);
            ASSERT_TRUE(hands_.Select(Form().CboModo, 2));
            EXPECT_EQ(Now().mode, kLarge);
            ASSERT_TRUE(hands_.Select(Form().CboModo, 0));
            EXPECT_EQ(Now().mode, std::nullopt);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, AValueActsAsSoonAsItIsOne) {
  Dialog({[this] {
            Replace(kBrightness, "9");
            EXPECT_EQ(Now().controls.at("brightness"), 9);
            station_.Type("99");
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "999"_w);
            EXPECT_EQ(Now().controls.at("brightness"), 99);
            station_.Type("9");  // no room
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "999"_w);
            EXPECT_FALSE(Now().controls.contains("contrast"));
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, AnEmptyFieldChangesNothing) {
  Dialog({[this] {
            Replace(kBrightness, "5");
            Press(keys::kBackspace);
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), ""_w);
            EXPECT_EQ(Now().controls.at("brightness"), 5);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, OnlyWhatGoesBelowNothingTakesASign) {
  Dialog({[this] {
            Replace(kContrast, "-12");
            EXPECT_EQ(Now().controls.at("contrast"), -12);
            station_.Beeps();
            Replace(kBrightness, "-x3");
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "3"_w);
            EXPECT_EQ(station_.Beeps(), 2);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, ArrowsAndButtonsTakeSteps) {
  Dialog({[this] {
            hands_.Focus(Form().TxtControl[kBrightness]);
            Press(keys::kUp);  // a fiftieth of the range
            EXPECT_EQ(Form().TxtControl[kBrightness].Text(), "133"_w);
            EXPECT_EQ(Now().controls.at("brightness"), 133);
            Press(keys::kDown);
            Press(keys::kDown);
            EXPECT_EQ(Now().controls.at("brightness"), 123);
            hands_.Click(Form().CmdMas[kContrast]);
            hands_.Click(Form().CmdMas[kContrast]);
            hands_.Click(Form().CmdMenos[kContrast]);
            EXPECT_EQ(Now().controls.at("contrast"), 2);
            EXPECT_EQ(Form().Focus(), &Form().TxtControl[kBrightness]);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, StepsEndAtTheEnds) {
  Dialog({[this] {
            Replace(kBrightness, "253");
            Press(keys::kUp);
            EXPECT_EQ(Now().controls.at("brightness"), 255);
            Replace(kBrightness, "2");
            Press(keys::kDown);
            EXPECT_EQ(Now().controls.at("brightness"), 0);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, AControlOfTwoValuesTakesStepsOfOne) {
  Options().controls = {{"auto", "Automático"_w, 0, 1, 0}};
  Dialog({[this] {
            hands_.Click(Form().CmdMas[0]);
            EXPECT_EQ(Now().controls.at("auto"), 1);
          },
          Pressing(keys::kEscape)});
}

TEST_F(FormCamaraTest, EnterKeepsWhatWasChosen) {
  station_.Disk.Put(kFile, "320x240@5 | OTRA\r\n");
  Dialog({[this] {
    hands_.Select(Form().CboModo, 2);
    Replace(kBrightness, "200");
    EXPECT_EQ(station_.Disk.Get(kFile), "320x240@5 | OTRA\r\n");
    Press(keys::kEnter);
  }});
  EXPECT_EQ(station_.Disk.Get(kFile), "1280x720@15 brightness=200 | CAMARA\r\n320x240@5 | OTRA\r\n");
  // The camera was connected anew with it.
  EXPECT_EQ(Now().mode, kLarge);
  EXPECT_EQ(Now().controls.at("brightness"), 200);
}

TEST_F(FormCamaraTest, TheButtonKeepsItToo) {
  Dialog({[this] {
    hands_.Select(Form().CboModo, 1);
    hands_.Click(Form().CmdGuardar);
  }});
  EXPECT_EQ(station_.Disk.Get(kFile), "640x480@30 | CAMARA\r\n");
}

TEST_F(FormCamaraTest, WhatWasNotChangedIsNotWritten) {
  Dialog({Pressing(keys::kEnter)});
  EXPECT_FALSE(station_.Disk.Exists(kFile));
}

TEST_F(FormCamaraTest, EscPutsTheCameraBack) {
  station_.Disk.Put(kFile, "640x480@30 | CAMARA\r\n");
  Dialog({[this] {
    hands_.Select(Form().CboModo, 2);
    Replace(kBrightness, "200");
    ASSERT_EQ(Now().mode, kLarge);
    Press(keys::kEscape);
    EXPECT_EQ(Now().mode, kSmall);
    EXPECT_EQ(Now().controls, (std::map<std::string, int>{{"brightness", 128}}));
  }});
  EXPECT_EQ(station_.Disk.Get(kFile), "640x480@30 | CAMARA\r\n");
}

TEST_F(FormCamaraTest, EnterOnCancelPutsTheCameraBack) {
  Dialog({[this] {
    Replace(kBrightness, "200");
    hands_.Focus(Form().CmdCancelar);
    Press(keys::kEnter);
    EXPECT_EQ(Now().controls.at("brightness"), 128);
  }});
  EXPECT_FALSE(station_.Disk.Exists(kFile));
}

TEST_F(FormCamaraTest, TheCloseBoxPutsTheCameraBack) {
  Dialog({[this] {
    Replace(kBrightness, "200");
    hands_.CloseBox(Form());
    EXPECT_EQ(Now().controls.at("brightness"), 128);
  }});
  EXPECT_FALSE(station_.Disk.Exists(kFile));
}

TEST_F(FormCamaraTest, AnEndOfTheProgramConnectsNothing) {
  int starts = 0;
  Dialog({[this, &starts] {
    starts = station_.Camera.Starts;
    form_.CerrarSinPreguntar();
  }});
  EXPECT_TRUE(form_.Terminado());
  EXPECT_EQ(station_.Camera.Starts, starts);
  EXPECT_EQ(station_.Camera.State(), CameraState::kStopped);
}

TEST_F(FormCamaraTest, TheWidestRangeIsReachedFromEndToEnd) {
  constexpr int kLeast = std::numeric_limits<int>::min(), kMost = std::numeric_limits<int>::max();
  Options().controls = {{"wide", "Ancho"_w, kLeast, kMost, kMost}};
  Dialog({[this] {
            hands_.Click(Form().CmdMas[0]);
            EXPECT_EQ(Form().TxtControl[0].Text(), "2147483647"_w);
            hands_.Click(Form().CmdMenos[0]);
            EXPECT_EQ(Now().controls.at("wide"), 2147483647 - 85899345);  // 2^32 / 50, whole
            Replace(0, "-2147483648");
            EXPECT_EQ(Now().controls.at("wide"), -2147483647 - 1);
          },
          Pressing(keys::kEscape)});
}

}  // namespace
}  // namespace vintoral
