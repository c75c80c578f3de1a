// What reaches fields whole, and what keys do in lists.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "station/forms/Input.h"
#include "unit/station/forms/HandsFixture.h"

namespace vintoral {
namespace {

using test::InputTest;

// ---- Pasting and replacing
// ------------------------------------------------------------------------------------

TEST_F(InputTest, APasteIsFilteredAndBeepsOnce) {
  hands_.Paste("N. 12-34"_w);
  EXPECT_EQ(number_.Text(), "1234"_w);
  EXPECT_EQ(station_.Beeps(), 1);
}

TEST_F(InputTest, APasteOfWhatTheFieldTakesIsSilentAndOneChange) {
  int changes = 0;
  number_.OnChange = [&] { ++changes; };
  hands_.Paste("1234"_w);
  EXPECT_EQ(changes, 1);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(InputTest, LineEndsAndControlCharactersAreNotPasted) {
  form_.SetFocus(&name_);
  hands_.Paste("ANA\r\nMARÍA\t\b"_w);
  EXPECT_EQ(name_.Text(), "ANAMARÍA"_w);
}

TEST_F(InputTest, APasteGoesInPlaceOfTheSelection) {
  name_.SetText("ABCD"_w);
  Select(name_, 1, 2);
  hands_.Paste("xyz"_w);
  EXPECT_EQ(name_.Text(), "AXYZD"_w);
  ExpectSelection(name_, 4, 0);
}

TEST_F(InputTest, AReplacementGoesThroughTheRulesAndLeavesTheFocus) {
  name_.SetText("OLD"_w);
  hands_.ReplaceText(name_, "nueva"_w);
  EXPECT_EQ(name_.Text(), "NUEVA"_w);
  EXPECT_EQ(form_.Focus(), &number_);
  hands_.ReplaceText(number_, "9x"_w);
  EXPECT_EQ(number_.Text(), "9"_w);
}

TEST_F(InputTest, AListTakesATextThatIsAnItem) {
  hands_.ReplaceText(form_.CboTarifa[1], "motocicleta"_w);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
  hands_.ReplaceText(form_.CboTarifa[1], "TRANVIA"_w);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
}

// ---- Lists
// ----------------------------------------------------------------------------------------------------

class CategoryTest : public InputTest {
 protected:
  CategoryTest() {
    list_.Clear();
    for (const String& item : {"AUTO"_w, "BICICLETA"_w, "ÁRBOL"_w, "ARRIENDO"_w})
      list_.AddItem(item);
    form_.SetFocus(&list_);
  }
  ComboBox& list_ = form_.CboTarifa[1];
};

TEST_F(CategoryTest, ALetterGoesToTheNextItemThatBeginsWithIt) {
  station_.Type("a");
  EXPECT_EQ(list_.ListIndex(), 0);
  station_.Type("A");
  EXPECT_EQ(list_.ListIndex(), 3);
  station_.Type("a");
  EXPECT_EQ(list_.ListIndex(), 0);
  station_.Type("b");
  EXPECT_EQ(list_.ListIndex(), 1);
}

TEST_F(CategoryTest, AnAccentedLetterHasItsCaseToo) {
  station_.Type("á"_w);
  EXPECT_EQ(list_.ListIndex(), 2);
}

TEST_F(CategoryTest, ALetterWithoutAnItemChangesNothing) {
  list_.Select(1);
  station_.Type("z");
  EXPECT_EQ(list_.ListIndex(), 1);
  station_.Type("\x03");
  EXPECT_EQ(list_.ListIndex(), 1);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(CategoryTest, ArrowsMoveInTheListAndStopAtItsEnds) {
  hands_.Key(keys::kDown, 0);
  EXPECT_EQ(list_.ListIndex(), 0);
  hands_.Key(keys::kUp, 0);
  EXPECT_EQ(list_.ListIndex(), 0);
  for (int i = 0; i < 9; ++i)
    hands_.Key(keys::kDown, 0);
  EXPECT_EQ(list_.ListIndex(), 3);
}

TEST_F(CategoryTest, AnEmptyListTakesAnyKey) {
  list_.Clear();
  station_.Type("a");
  hands_.Key(keys::kDown, 0);
  EXPECT_EQ(list_.ListIndex(), -1);
}

TEST_F(InputTest, AnItemIsChosenByItsIndex) {
  EXPECT_TRUE(hands_.Select(form_.CboTarifa[1], 1));
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 1);
  EXPECT_FALSE(hands_.Select(form_.CboTarifa[1], -1));
  EXPECT_FALSE(hands_.Select(form_.CboTarifa[1], 1000));
  EXPECT_EQ(form_.CboTarifa[1].ListIndex(), 1);
  EXPECT_TRUE(hands_.Select(form_.LstModEntrada, 1));
  EXPECT_EQ(form_.LstModEntrada.ListIndex, 1);
  EXPECT_FALSE(hands_.Select(form_.LstModEntrada, 2));
  EXPECT_FALSE(hands_.Select(form_.LblFechaEnt, 0));
}

TEST_F(InputTest, ATickBoxIsSetByHandAndBySpace) {
  EXPECT_TRUE(hands_.Check(form_.ChkFactura, 1));
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  EXPECT_FALSE(hands_.Check(form_.ChkFactura, 2));
  EXPECT_FALSE(hands_.Check(form_.LblFechaEnt, 1));
  EXPECT_EQ(form_.ChkFactura.Value, 1);
  form_.ChkFactura.Visible = true;
  form_.SetFocus(&form_.ChkFactura);
  hands_.Key(keys::kSpace, 0);
  EXPECT_EQ(form_.ChkFactura.Value, 0);
}

// ---- The minutes of a monitor
// ---------------------------------------------------------------------------------

class MinutesTest : public InputTest {
 protected:
  MinutesTest() {
    station_.Enter("7", "ABC");
    minutes_.Enabled = true;
    form_.SetFocus(&minutes_);
  }
  ComboBox& minutes_ = form_.CboMinutos;
};

TEST_F(MinutesTest, ADigitOverTheWrittenMinutesStartsANewNumber) {
  minutes_.SetText("15 Min. ATRAS"_w);
  station_.Type("45");
  EXPECT_EQ(minutes_.Text(), "45"_w);
}

TEST_F(MinutesTest, ADigitOverAnItemOfTheListStartsANewNumber) {
  minutes_.Select(0);
  station_.Type("7");
  EXPECT_EQ(minutes_.Text(), "7"_w);
}

TEST_F(MinutesTest, WhatIsNoDigitLeavesTheWrittenMinutes) {
  minutes_.SetText("15 Min. ATRAS"_w);
  station_.Type("x");
  EXPECT_EQ(minutes_.Text(), "15 Min. ATRAS"_w);
  EXPECT_EQ(station_.Beeps(), 1);
  station_.Type("\b");
  EXPECT_EQ(minutes_.Text(), "15 Min. ATRA"_w);
}

TEST_F(MinutesTest, AnythingElseBeepsAndIsDropped) {
  minutes_.SetText("4"_w);
  station_.Type("a ,");
  EXPECT_EQ(minutes_.Text(), "4"_w);
  EXPECT_EQ(station_.Beeps(), 3);
}

TEST_F(MinutesTest, BackspaceTakesTheLastCharacterAndStopsAtNone) {
  minutes_.SetText("45"_w);
  station_.Type("\b");
  EXPECT_EQ(minutes_.Text(), "4"_w);
  station_.Type("\b\b");
  EXPECT_EQ(minutes_.Text(), ""_w);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(MinutesTest, TypingGoesInWhereTheCaretStands) {
  minutes_.SetText("45"_w);
  hands_.Key(keys::kLeft, 0);
  station_.Type("7");
  EXPECT_EQ(minutes_.Text(), "475"_w);
  hands_.MoveCaret(minutes_, 0, 1);
  station_.Type("1");
  EXPECT_EQ(minutes_.Text(), "175"_w);
  hands_.ControlKey(keys::kHome, 0);
  hands_.ControlKey(keys::kDelete, 0);
  EXPECT_EQ(minutes_.Text(), "75"_w);
  EXPECT_EQ(minutes_.ListIndex(), -1);
}

TEST_F(MinutesTest, WhatIsNoDigitIsDroppedFromAPasteToo) {
  minutes_.SetText({});
  hands_.Paste("a 4-5 Min."_w);
  EXPECT_EQ(minutes_.Text(), "45"_w);
  EXPECT_EQ(station_.Beeps(), 1);
  hands_.ReplaceText(minutes_, "x20"_w);
  EXPECT_EQ(minutes_.Text(), "20"_w);
}

TEST_F(MinutesTest, AnItemThatIsSetIsChosen) {
  hands_.ReplaceText(minutes_, "30 minutos"_w);
  EXPECT_EQ(minutes_.ListIndex(), 1);
  EXPECT_EQ(minutes_.Text(), "30 Minutos"_w);
}

TEST_F(MinutesTest, EnterRefreshesTheGridAtOnce) {
  station_.Pass(10 * 60'000);
  form_.PctBoton[8].BorderStyle = 1;  // who has been inside for so many minutes
  form_.SetFocus(&minutes_);
  minutes_.SetText({});
  station_.Type("11\r");
  EXPECT_EQ(form_.TotalVista(), 0);
  form_.SetFocus(&minutes_);
  minutes_.SetText({});
  station_.Type("10\r");
  EXPECT_EQ(form_.TotalVista(), 1);
}

TEST_F(MinutesTest, ChoosingAnItemRefreshesTheGridAtOnce) {
  station_.Pass(20 * 60'000);
  form_.PctBoton[8].BorderStyle = 1;
  hands_.Select(minutes_, 1);  // 30
  EXPECT_EQ(form_.TotalVista(), 0);
  hands_.Select(minutes_, 0);  // 15
  EXPECT_EQ(form_.TotalVista(), 1);
}

}  // namespace
}  // namespace vintoral
