// How dialogs come and go, and which form hands and time reach.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "platform/headless/PassTime.h"
#include "unit/station/forms/FormsFixture.h"

namespace vintoral {
namespace {

using test::FormsTest;
using test::TestForm;
using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(FormsTest, TheMainFormIsLoadedShownAndActive) {
  EXPECT_THAT(forms_.Loaded(), ElementsAre(&main_));
  EXPECT_TRUE(main_.Shown());
  EXPECT_EQ(&forms_.Active(), &main_);
  EXPECT_TRUE(forms_.Reaches(main_));
  EXPECT_EQ(forms_.Find("form1"), &main_);
  EXPECT_EQ(forms_.Find("Form2"), nullptr);
}

TEST_F(FormsTest, ALoadedFormIsThereButNotShown) {
  TestForm& form = Load("Form7");
  EXPECT_THAT(forms_.Loaded(), ElementsAre(&main_, &form));
  EXPECT_EQ(forms_.Find("FORM7"), &form);
  EXPECT_FALSE(form.Shown());
  EXPECT_FALSE(forms_.Reaches(form));
  EXPECT_EQ(&forms_.Active(), &main_);
  forms_.Activate(form);
  EXPECT_EQ(&forms_.Active(), &main_);
}

TEST_F(FormsTest, AModalFormHoldsAllOthersUntilItGoes) {
  TestForm& form = Load("Form6");
  EXPECT_FALSE(forms_.IsModal(form));
  steps_ = {[&] {
              ASSERT_NE(screen_.Innermost(), nullptr);
              EXPECT_TRUE(forms_.IsModal(form));
              EXPECT_FALSE(forms_.IsModal(main_));
              EXPECT_EQ(screen_.Innermost()->form, &form);
              EXPECT_EQ(screen_.Shown(), nullptr);
              EXPECT_EQ(&forms_.Active(), &form);
              EXPECT_TRUE(forms_.Reaches(form));
              EXPECT_FALSE(forms_.Reaches(main_));
              forms_.Activate(main_);
              EXPECT_EQ(&forms_.Active(), &form);
            },
            [&] {
              forms_.Hide(form);
              EXPECT_FALSE(forms_.IsModal(form));
              forms_.Unload(form);
            }};
  forms_.ShowModal(form);
  EXPECT_THAT(steps_, IsEmpty());
  EXPECT_EQ(screen_.Innermost(), nullptr);
  EXPECT_EQ(&forms_.Active(), &main_);
  EXPECT_THAT(forms_.Loaded(), ElementsAre(&main_));
  EXPECT_THAT(log_, ElementsAre("Form6 unload", "Form6 freed"));
}

TEST_F(FormsTest, AModalFormOverAnotherGivesBackToIt) {
  TestForm& under = Load("Form5");
  TestForm& over = Load("Form4");
  steps_ = {[&] { forms_.ShowModal(over); },
            [&] {
              EXPECT_EQ(&forms_.Active(), &over);
              EXPECT_FALSE(forms_.Reaches(under));
              forms_.Unload(over);
            },
            [&] {
              EXPECT_EQ(&forms_.Active(), &under);
              forms_.Unload(under);
            }};
  forms_.ShowModal(under);
  EXPECT_THAT(steps_, IsEmpty());
}

TEST_F(FormsTest, AHiddenModalFormStaysLoadedAsItWas) {
  TestForm& form = Load("Form7");
  form.Texts[0].SetText("123"_w);
  steps_ = {[&] { forms_.Hide(form); }};
  forms_.ShowModal(form);
  EXPECT_EQ(forms_.Find("Form7"), &form);
  EXPECT_EQ(&forms_.Active(), &main_);
  steps_ = {[&] { EXPECT_EQ(form.Texts[0].Text(), "123"_w); }, [&] { forms_.Hide(form); }};
  forms_.ShowModal(form);
  EXPECT_THAT(steps_, IsEmpty());
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(FormsTest, AFormThatIsShownAlreadyIsNotShownTwice) {
  TestForm& form = Load("Form6");
  steps_ = {[&] { forms_.ShowModal(form); }, [&] { forms_.Unload(form); }};
  forms_.ShowModal(form);
  EXPECT_THAT(steps_, IsEmpty());
}

TEST_F(FormsTest, AModelessFormTakesTurnsWithTheMainOne) {
  TestForm& form = Load("Form2");
  forms_.Show(form);
  EXPECT_EQ(screen_.Innermost(), nullptr);
  EXPECT_EQ(&forms_.Active(), &form);
  EXPECT_TRUE(forms_.Reaches(main_));
  hands_.Focus(main_.Texts[0]);
  EXPECT_EQ(&forms_.Active(), &main_);
  hands_.Click(form.Caption);
  EXPECT_EQ(&forms_.Active(), &form);
  forms_.Hide(form);
  EXPECT_EQ(&forms_.Active(), &main_);
}

TEST_F(FormsTest, UnloadingTheActiveFormMakesTheMainOneActive) {
  TestForm& form = Load("Form2");
  forms_.Show(form);
  forms_.Unload(form);
  EXPECT_EQ(&forms_.Active(), &main_);
  EXPECT_THAT(log_, ElementsAre("Form2 unload", "Form2 freed"));
}

TEST_F(FormsTest, AFormThatUnloadsItselfLivesUntilItsEventIsThrough) {
  TestForm& form = Load("Form2");
  forms_.Show(form);
  form.Button.OnClick = [&] {
    forms_.Unload(form);
    log_.emplace_back("clicked");
  };
  hands_.Click(form.Button);
  EXPECT_THAT(log_, ElementsAre("Form2 unload", "clicked", "Form2 freed"));
}

TEST_F(FormsTest, TheMainFormIsNotUnloaded) {
  forms_.Unload(main_);
  EXPECT_TRUE(main_.Shown());
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(FormsTest, AllDialogsAreUnloadedTheLastFirst) {
  Load("Form2");
  Load("Form7");
  forms_.UnloadDialogs();
  EXPECT_THAT(log_, ElementsAre("Form7 unload", "Form7 freed", "Form2 unload", "Form2 freed"));
}

TEST_F(FormsTest, TheCloseBoxOfADialogUnloadsItUnlessItRefuses) {
  TestForm& form = Load("Form2");
  forms_.Show(form);
  form.Refuses = true;
  hands_.CloseBox(form);
  EXPECT_EQ(forms_.Find("Form2"), &form);
  form.Refuses = false;
  hands_.CloseBox(form);
  EXPECT_EQ(forms_.Find("Form2"), nullptr);
}

TEST_F(FormsTest, TheCloseBoxOfAHeldFormDoesNothing) {
  TestForm& held = Load("Form2");
  forms_.Show(held);
  TestForm& modal = Load("Form6");
  steps_ = {[&] { hands_.CloseBox(held); }, [&] { hands_.CloseBox(modal); }};
  forms_.ShowModal(modal);
  EXPECT_EQ(forms_.Find("Form2"), &held);
  EXPECT_EQ(forms_.Find("Form6"), nullptr);
}

TEST_F(FormsTest, TheEndUnloadsEverythingAndStopsTheTimers) {
  TestForm& form = Load("Form6");
  main_.Clock.SetInterval(500);
  main_.Clock.SetEnabled(true);
  steps_ = {[&] { forms_.End(); }};
  forms_.ShowModal(form);
  EXPECT_TRUE(forms_.Ended());
  EXPECT_EQ(forms_.NextTick(), -1);
  EXPECT_FALSE(main_.Clock.Enabled);
  EXPECT_THAT(log_, ElementsAre("Form6 unload", "Form6 freed"));
  main_.Clock.SetEnabled(true);
  EXPECT_EQ(forms_.NextTick(), -1);
  TestForm& late = Load("Form7");
  forms_.ShowModal(late);
  forms_.Show(late);
  EXPECT_FALSE(late.Shown());
}

// ---- Timers
// ---------------------------------------------------------------------------------------------------

TEST_F(FormsTest, TheTimersOfAllFormsTickInOrderOfTime) {
  std::vector<std::string> ticks;
  TestForm& form = Load("Form3");
  for (TestForm* each : {&main_, &form}) {
    each->Clock.OnTick = [&ticks, each] { ticks.push_back(each->Name()); };
    each->Clock.SetInterval(each == &main_ ? 300 : 200);
    each->Clock.SetEnabled(true);
  }
  EXPECT_EQ(forms_.NextTick(), 200);
  AdvanceTime(clock_, forms_, 600);
  EXPECT_THAT(ticks, ElementsAre("Form3", "Form1", "Form3", "Form1", "Form3"));
  forms_.Unload(form);
  EXPECT_EQ(forms_.NextTick(), 900);
}

TEST_F(FormsTest, AWaitLastsAsLongAsItWasAskedTo) {
  steps_ = {[&] {
              ASSERT_NE(screen_.Innermost(), nullptr);
              EXPECT_EQ(screen_.Innermost()->until, 2000);
              AdvanceTime(clock_, forms_, 1999);
            },
            [&] { AdvanceTime(clock_, forms_, 1); }};
  screen_.Wait(2000);
  EXPECT_THAT(steps_, IsEmpty());
  EXPECT_EQ(screen_.Innermost(), nullptr);
}

TEST_F(FormsTest, ABoxUnderAWaitIsStillAnswered) {
  const Box box{"Título"_w, "Texto"_w, Icon::kQuestion, {Answer::kYes, Answer::kNo}, Answer::kNo};
  steps_ = {[&] { screen_.Wait(100); },
            [&] {
              EXPECT_EQ(screen_.Shown(), &box);
              EXPECT_TRUE(screen_.Answer(Answer::kYes));
              EXPECT_EQ(screen_.Shown(), nullptr);  // it has its answer: nobody is held by it any more
              EXPECT_FALSE(screen_.Answer(Answer::kNo));
            },
            [&] { clock_.Advance(100); }};
  EXPECT_EQ(screen_.Show(box), Answer::kYes);
  EXPECT_THAT(steps_, IsEmpty());
}

TEST_F(FormsTest, ABoxUnderADialogWaitsForItsTurn) {
  const Box box{"Título"_w, "Texto"_w, Icon::kQuestion, {Answer::kYes, Answer::kNo}, Answer::kNo};
  TestForm& form = Load("Form6");
  steps_ = {[&] { forms_.ShowModal(form); },
            [&] {
              EXPECT_EQ(screen_.Shown(), nullptr);
              EXPECT_FALSE(screen_.Answer(Answer::kYes));
              forms_.Unload(form);
            },
            [&] { EXPECT_TRUE(screen_.Answer(Answer::kNo)); }};
  EXPECT_EQ(screen_.Show(box), Answer::kNo);
  EXPECT_THAT(steps_, IsEmpty());
}

// ---- Time that is asked for
// -----------------------------------------------------------------------------------

TEST_F(FormsTest, TimePassesToTheEndOfAWaitAndTheRestAfterIt) {
  std::optional<std::int64_t> left;
  steps_ = {[&] {
    left = PassTime(clock_, forms_, screen_.Innermost(), 5000);
    EXPECT_EQ(clock_.Ticks(), 2000);
  }};
  screen_.Wait(2000);
  ASSERT_EQ(left, 5000);
  EXPECT_EQ(PassTime(clock_, forms_, screen_.Innermost(), *left), std::nullopt);
  EXPECT_EQ(clock_.Ticks(), 5000);
}

TEST_F(FormsTest, AControlIsToldWhenTheFocusComes) {
  TestForm& form = Load("Form6");
  std::string told;
  form.Texts[0].OnLostFocus = [&] { told += "left "; };
  form.Texts[1].OnGotFocus = [&] { told += "came "; };
  form.SetFocus(&form.Texts[0]);
  form.SetFocus(&form.Texts[1]);
  EXPECT_EQ(told, "left came ");
  form.SetFocus(&form.Texts[1]);
  EXPECT_EQ(told, "left came ");
}

TEST_F(FormsTest, TimePassesWholeUnderABoxAndADialog) {
  TestForm& form = Load("Form6");
  steps_ = {[&] {
    EXPECT_EQ(PassTime(clock_, forms_, screen_.Innermost(), 700), std::nullopt);
    forms_.Unload(form);
  }};
  forms_.ShowModal(form);
  const Box box{"Título"_w, "Texto"_w};
  steps_ = {[&] {
    EXPECT_EQ(PassTime(clock_, forms_, screen_.Innermost(), 900), std::nullopt);
    EXPECT_TRUE(screen_.Answer(Answer::kOk));
  }};
  screen_.Show(box);
  EXPECT_EQ(clock_.Ticks(), 900);
}

TEST_F(FormsTest, NoTimeIsLeftToPassAfterTheEnd) {
  main_.Clock.OnTick = [this] { forms_.End(); };
  main_.Clock.SetInterval(100);
  main_.Clock.SetEnabled(true);
  steps_ = {[&] {
    EXPECT_EQ(PassTime(clock_, forms_, screen_.Innermost(), 5000), std::nullopt);
    screen_.Close();
  }};
  screen_.Wait(2000);
  EXPECT_THAT(steps_, IsEmpty());
}

}  // namespace
}  // namespace vintoral
