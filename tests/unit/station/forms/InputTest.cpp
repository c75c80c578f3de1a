// What keys make in fields: characters, the caret, the way from field to field.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "station/forms/Input.h"
#include "unit/station/forms/HandsFixture.h"

namespace vintoral {
namespace {

using test::InputTest;

// ---- From keys to characters
// ----------------------------------------------------------------------------------

TEST_F(InputTest, LettersAndDigitsMakeTheirCharacters) {
  EXPECT_EQ(Typed({{'A', 0}, {'7', 0}, {'Z', 1}}), "A7Z"_w);
}

TEST_F(InputTest, SmallLettersReachAFieldThatKeepsThem) {
  form_.TxtCampo[2].OnChange = nullptr;
  EXPECT_EQ(Typed({{'A', 0}, {'A', 1}}), "aA"_w);
}

TEST_F(InputTest, TheNumberPadMakesDigits) {
  EXPECT_EQ(Typed({{96, 0}, {100, 0}, {105, 0}}), "049"_w);
}

TEST_F(InputTest, TheSpaceBarMakesABlank) {
  EXPECT_EQ(Typed({{'A', 0}, {32, 0}, {'B', 0}}), "A B"_w);
}

TEST_F(InputTest, ControlAndAltMakeNoLetter) {
  EXPECT_EQ(Typed({{'D', 2}, {'D', 4}, {'D', 6}, {'1', 4}}), ""_w);
}

TEST_F(InputTest, KeysWithoutACharacterMakeNone) {
  EXPECT_EQ(Typed({{16, 0}, {17, 0}, {20, 0}, {117, 0}, {122, 0}}), ""_w);
}

TEST_F(InputTest, BackspaceErases) {
  EXPECT_EQ(Typed({{'A', 0}, {'B', 0}, {8, 0}}), "A"_w);
}

TEST_F(InputTest, ControlAndALetterMakesAControlCharacterThatTheNumberDropsOrBeepsAt) {
  hands_.Key('X', 2);  // 24
  EXPECT_EQ(station_.Beeps(), 0);
  hands_.Key('D', 2);  // 4
  EXPECT_EQ(station_.Beeps(), 1);
  EXPECT_TRUE(number_.Text().Empty());
}

TEST_F(InputTest, ACommandDoesNotReachTheField) {
  station_.Type("7");
  hands_.Key(27, 0);
  EXPECT_TRUE(number_.Text().Empty());
  EXPECT_EQ(station_.Beeps(), 0);
}

// ---- Typing by the field's rules
// ------------------------------------------------------------------------------

TEST_F(InputTest, TheNumberTakesDigitsAndBeepsAtTheRest) {
  station_.Type("1a2-3");
  EXPECT_EQ(number_.Text(), "123"_w);
  EXPECT_EQ(station_.Beeps(), 2);
}

TEST_F(InputTest, TextsAreRaisedToCapitalsWithTheCaretKept) {
  name_.SetText("JOSÉ"_w);
  Select(name_, 2, 0);
  station_.Type("ñ"_w);
  EXPECT_EQ(name_.Text(), "JOÑSÉ"_w);
  ExpectSelection(name_, 3, 0);
}

TEST_F(InputTest, ATextEndsAtItsTwentiethCharacter) {
  form_.SetFocus(&name_);
  station_.Type("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(name_.Text(), "ABCDEFGHIJKLMNOPQRST"_w);
}

TEST_F(InputTest, ALockedFieldTakesNothing) {
  name_.SetText("ANA"_w);
  name_.Locked = true;
  Select(name_, 0, 0);
  station_.Type("X");
  hands_.Key(keys::kDelete, 0);
  hands_.Key(keys::kBackspace, 0);
  hands_.Paste("Y"_w);
  hands_.ReplaceText(name_, "Z"_w);
  EXPECT_EQ(name_.Text(), "ANA"_w);
}

TEST_F(InputTest, AHiddenOrDisabledFieldTakesNothing) {
  form_.SetFocus(&name_);
  name_.Visible = false;
  station_.Type("X");
  hands_.Paste("X"_w);
  name_.Visible = true;
  name_.Enabled = false;
  station_.Type("X");
  hands_.Paste("X"_w);
  EXPECT_TRUE(name_.Text().Empty());
}

TEST_F(InputTest, WithoutAFocusArrowsGoNowhere) {
  form_.SetFocus(nullptr);
  hands_.Key(keys::kRight, 0);
  hands_.Key(keys::kEnter, 0);
  EXPECT_EQ(form_.Focus(), nullptr);
}

TEST_F(InputTest, WhereNoFieldTakesTypingNothingIsTyped) {
  for (TextBox& field : form_.TxtCampo)
    field.Locked = true;
  form_.SetFocus(nullptr);
  station_.Type("7");
  EXPECT_TRUE(number_.Text().Empty());
  EXPECT_EQ(form_.Focus(), nullptr);
}

TEST_F(InputTest, DeleteErasesForward) {
  name_.SetText("ANA"_w);
  Select(name_, 1, 0);
  hands_.Key(keys::kDelete, 0);
  EXPECT_EQ(name_.Text(), "AA"_w);
}

// ---- Caret and selection
// --------------------------------------------------------------------------------------

TEST_F(InputTest, ArrowsMoveTheCaretAndStopAtTheEnds) {
  name_.SetText("AB"_w);
  Select(name_, 0, 0);
  hands_.Key(keys::kLeft, 0);
  ExpectSelection(name_, 0, 0);
  hands_.Key(keys::kRight, 0);
  ExpectSelection(name_, 1, 0);
  hands_.Key(keys::kRight, 0);
  hands_.Key(keys::kRight, 0);
  ExpectSelection(name_, 2, 0);
  hands_.Key(keys::kLeft, 0);
  ExpectSelection(name_, 1, 0);
}

TEST_F(InputTest, AnArrowEndsASelectionAtItsSide) {
  name_.SetText("ABCDE"_w);
  Select(name_, 1, 3);
  hands_.Key(keys::kLeft, 0);
  ExpectSelection(name_, 1, 0);
  Select(name_, 1, 3);
  hands_.Key(keys::kRight, 0);
  ExpectSelection(name_, 4, 0);
}

TEST_F(InputTest, HomeAndEndGoToTheEnds) {
  name_.SetText("ABCDE"_w);
  Select(name_, 2, 2);
  hands_.ControlKey(keys::kHome, 0);
  ExpectSelection(name_, 0, 0);
  Select(name_, 2, 2);
  hands_.ControlKey(keys::kEnd, 0);
  ExpectSelection(name_, 5, 0);
}

TEST_F(InputTest, ShiftWithHomeAndEndSelectsToTheEnds) {
  name_.SetText("ABCDE"_w);
  Select(name_, 2, 0);
  hands_.ControlKey(keys::kHome, keys::kShift);
  ExpectSelection(name_, 0, 2);
  Select(name_, 2, 0);
  hands_.ControlKey(keys::kEnd, keys::kShift);
  ExpectSelection(name_, 2, 3);
}

TEST_F(InputTest, TheMouseCantPutTheCaretBeyondTheText) {
  name_.SetText("ABC"_w);
  hands_.MoveCaret(name_, 9, 4);
  ExpectSelection(name_, 3, 0);
  hands_.MoveCaret(name_, 1, 9);
  ExpectSelection(name_, 1, 2);
}

TEST_F(InputTest, ADoubleClickSelectsAllOfAField) {
  name_.SetText("ANA"_w);
  hands_.DoubleClick(name_);
  EXPECT_EQ(form_.Focus(), &name_);
  ExpectSelection(name_, 0, 3);
}

// ---- Tab
// ------------------------------------------------------------------------------------------------------

TEST_F(InputTest, TabWalksTheFieldsTheCategoryAndTheGridAndComesBack) {
  const std::vector<Control*> order = {&form_.TxtCampo[1], &form_.TxtCampo[2], &form_.TxtCampo[3],
                                       &form_.TxtCampo[4], &form_.TxtCampo[5], &form_.CboTarifa[1],
                                       &form_.FraFicha,    &form_.TxtCampo[0]};
  for (const Control* next : order) {
    hands_.Key(keys::kTab, 0);
    ASSERT_NE(form_.Focus(), nullptr);
    EXPECT_EQ(form_.Focus()->Name, next->Name);
  }
}

TEST_F(InputTest, ShiftAndTabWalksBack) {
  for (const Control* before :
       {static_cast<Control*>(&form_.FraFicha), static_cast<Control*>(&form_.CboTarifa[1]),
        static_cast<Control*>(&form_.TxtCampo[5])}) {
    hands_.Key(keys::kTab, keys::kShift);
    EXPECT_EQ(form_.Focus(), before);
  }
}

TEST_F(InputTest, TabPassesOverWhatTakesNoFocus) {
  form_.TxtCampo[1].Visible = false;
  form_.TxtCampo[2].Enabled = false;
  hands_.Key(keys::kTab, 0);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[3]);
}

TEST_F(InputTest, TabFromTheToolBarBeginsAtAnEnd) {
  form_.SetFocus(nullptr);
  hands_.Key(keys::kTab, 0);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[0]);
  form_.SetFocus(nullptr);
  hands_.Key(keys::kTab, keys::kShift);
  EXPECT_EQ(form_.Focus(), &form_.FraFicha);
}

TEST_F(InputTest, TabSelectsWhatAFieldHolds) {
  form_.TxtCampo[1].SetText("ABC"_w);
  hands_.Key(keys::kTab, 0);
  ExpectSelection(form_.TxtCampo[1], 0, 3);
}

}  // namespace
}  // namespace vintoral
