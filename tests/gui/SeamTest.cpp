// Where model and widgets meet: hands that name controls, and a mirror that takes and shows in two steps.
#include <gtest/gtest.h>

#include "gui/DirectSeam.h"
#include "platform/PosixDisk.h"
#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"
#include "platform/pictures/PictureDecoder.h"
#include "station/forms/Forms.h"
#include "support/TempFolder.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/Hands.h"
#include "window/controls/InputQueue.h"
#include "window/controls/Mirror.h"
#include "window/controls/PictureLoader.h"
#include "window/controls/TextField.h"
#include "window/controls/Views.h"

namespace vintoral::test {
namespace {

class Dialog : public Form {
 public:
  Dialog() : Form("Dialog") {
    Add(number, "TxtNumero(0)"), Add(name, "TxtNombre"), Add(sign, "LblSigno");
    for (Control* control : Controls()) {
      control->OnClick = [this, control] { done += control->Name + " clicked;"; };
      control->OnDoubleClick = [this, control] { done += control->Name + " clicked twice;"; };
      control->OnHover = [this, control] { done += control->Name + " hovered;"; };
    }
  }
  void Form_MouseMove() override { done += "left;"; }

  TextBox number, name;
  Label sign;
  std::string done;
};

class SeamParts : public testing::Test {
 protected:
  SeamParts() {
    forms_.Show(dialog_);
    seam_.Publish = [this] { ++rounds_; };
  }
  VirtualClock clock_;
  Recording events_;
  RecordingScreen screen_{events_, clock_};
  Form main_{"Main"};
  Forms forms_{main_, screen_, clock_};
  Dialog& dialog_ = forms_.Load(std::make_unique<Dialog>());
  int rounds_ = 0;
  DirectSeam seam_;
  InputQueue queue_{seam_, clock_};
  Hands hands_{forms_, seam_, queue_};
};

const ControlId kNumber{"Dialog", "TxtNumero(0)"}, kName{"Dialog", "TxtNombre"}, kSign{"Dialog", "LblSigno"};

TEST_F(SeamParts, HandsReachTheControlThatIsNamed) {
  hands_.Click(kSign);
  hands_.DoubleClick(kNumber);
  hands_.Hover(kName);
  hands_.Leave("Dialog");
  EXPECT_EQ(dialog_.done, "LblSigno clicked;TxtNumero(0) clicked twice;TxtNombre hovered;left;");
  EXPECT_EQ(rounds_, 4);
}

TEST_F(SeamParts, HandsMoveFocusAndCaret) {
  dialog_.name.SetText("ANA MARIA"_w);
  hands_.Focus(kName);
  EXPECT_EQ(dialog_.Focus(), &dialog_.name);
  hands_.MoveCaret(kName, 4, 5);
  EXPECT_EQ(dialog_.name.SelStart, 4U);
  EXPECT_EQ(dialog_.name.SelLength, 5U);
  EXPECT_EQ(rounds_, 2);
}

TEST_F(SeamParts, WhatIsDoneToAGoneFormFalls) {
  const Forms::Handling alive(forms_);
  hands_.CloseBox("Dialog");
  ASSERT_EQ(forms_.Find("Dialog"), nullptr);
  hands_.Click(kSign);
  hands_.Leave("Dialog");
  hands_.CloseBox("Dialog");
  EXPECT_EQ(dialog_.done, "");
  EXPECT_EQ(rounds_, 4);
}

TEST_F(SeamParts, WhatIsDoneToNoControlFalls) {
  hands_.Click({"Dialog", "LblOtro"});
  EXPECT_EQ(dialog_.done, "");
  EXPECT_EQ(rounds_, 1);
}

TEST_F(SeamParts, NothingIsDoneAfterTheEnd) {
  const Forms::Handling alive(forms_);
  forms_.End();
  hands_.Click(kSign);
  EXPECT_EQ(dialog_.done, "");
  EXPECT_EQ(rounds_, 1);
}

class SeamWindow : public SeamParts {
 protected:
  SeamWindow() {
    mirror_.RestOn(rest_);
    Bind(stage_, "LblSigno", sign_);
    Bind(stage_, {"TxtNumero", 0}, number_);
    Sync();
  }
  void Sync() {
    snapshots_.Take();
    mirror_.Show();
  }
  TempFolder folder_;
  PosixDisk disk_{folder_.Path()};
  PictureDecoder decoder_;
  PictureLoader pictures_{decoder_, disk_};
  QWidget window_;
  QWidget rest_{&window_};
  CaptionLabel sign_{{}, &window_};
  TextField number_{&window_};
  Snapshots snapshots_{forms_};
  Mirror mirror_{snapshots_.Find("Dialog")};
  Stage stage_{mirror_, hands_, pictures_};
};

TEST_F(SeamWindow, TakesAndShowsInTwoSteps) {
  ASSERT_EQ(sign_.Caption(), QString());
  dialog_.sign.Caption = "SAL"_w;
  mirror_.Show();
  EXPECT_EQ(sign_.Caption(), QString());
  snapshots_.Take();
  EXPECT_EQ(sign_.Caption(), QString());
  mirror_.Show();
  EXPECT_EQ(sign_.Caption(), QStringLiteral("SAL"));
}

TEST_F(SeamWindow, FollowsTheFocusThatWasTaken) {
  ASSERT_EQ(window_.focusWidget(), &rest_);
  dialog_.SetFocus(&dialog_.number);
  mirror_.Show();
  EXPECT_EQ(window_.focusWidget(), &rest_);
  Sync();
  EXPECT_EQ(window_.focusWidget(), &number_);
  dialog_.SetFocus(&dialog_.name);  // which nothing shows
  Sync();
  EXPECT_EQ(window_.focusWidget(), &number_);
  dialog_.SetFocus(nullptr);
  Sync();
  EXPECT_EQ(window_.focusWidget(), &rest_);
}

TEST_F(SeamWindow, KnowsWidgetsByTheNamesOfTheirControls) {
  EXPECT_EQ(mirror_.WidgetOf("TxtNumero(0)"), &number_);
  EXPECT_EQ(mirror_.WidgetOf("TxtNombre"), nullptr);
  EXPECT_EQ(number_.objectName(), QStringLiteral("TxtNumero(0)"));
  EXPECT_EQ(mirror_.Of(&number_)->State().id.control, "TxtNumero(0)");
  EXPECT_EQ(mirror_.Of(&window_), nullptr);
}

TEST_F(SeamWindow, OutlivesItsForm) {
  dialog_.sign.Caption = "SAL"_w;
  Sync();
  forms_.Unload(dialog_);
  Sync();
  EXPECT_EQ(sign_.Caption(), QStringLiteral("SAL"));
  EXPECT_FALSE(mirror_.Snapshot().shown);
}

TEST_F(SeamWindow, OfAnotherFormEndsTheProgram) {
  GTEST_FLAG_SET(death_test_style, "threadsafe");
  EXPECT_DEATH(Bind(stage_, "LblOtro", sign_), "Dialog has no LblOtro");
  EXPECT_DEATH(Bind(stage_, "lblSigno", sign_), "Dialog has no lblSigno");
  EXPECT_DEATH(Bind(stage_, "TxtNombre", sign_), "Dialog has no TxtNombre");  // a text box is no label
}

}  // namespace
}  // namespace vintoral::test
