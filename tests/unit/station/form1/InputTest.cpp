#include "station/form1/Input.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "support/MemoryStation.h"

namespace vintoral {
namespace {

using test::MemoryStation;

class InputTest : public testing::Test {
 protected:
  InputTest() { station_.StartConnected(); }

  /// The text that keys leave in a free text field.
  String Typed(std::initializer_list<std::pair<int, int>> keys) {
    TextBox& field = form_.TxtCampo[2];
    field.SetText({});
    form_.SetFocus(&field);
    for (const auto& [code, mask] : keys)
      hands_.Key(code, mask);
    return field.Text();
  }
  void Select(TextBox& box, std::size_t start, std::size_t length) {
    form_.SetFocus(&box);
    box.SelStart = start;
    box.SelLength = length;
  }
  void ExpectSelection(const TextBox& box, std::size_t start, std::size_t length) {
    EXPECT_EQ(box.SelStart, start);
    EXPECT_EQ(box.SelLength, length);
  }

  MemoryStation station_;
  Form1& form_ = station_.Form;
  Input& hands_ = station_.Hands;
  TextBox& number_ = form_.TxtCampo[0];
  TextBox& name_ = form_.TxtCampo[2];
};

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

TEST_F(InputTest, WithoutAFocusNothingIsTyped) {
  form_.SetFocus(nullptr);
  station_.Type("7");
  hands_.Key(keys::kRight, 0);
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

TEST_F(InputTest, TabWalksTheFieldsAndTheCategoryAndComesBack) {
  const std::vector<Control*> order = {&form_.TxtCampo[1], &form_.TxtCampo[2], &form_.TxtCampo[3],
                                       &form_.TxtCampo[4], &form_.TxtCampo[5], &form_.CboTarifa[1],
                                       &form_.TxtCampo[0]};
  for (const Control* next : order) {
    hands_.Key(keys::kTab, 0);
    ASSERT_NE(form_.Focus(), nullptr);
    EXPECT_EQ(form_.Focus()->Name, next->Name);
  }
}

TEST_F(InputTest, ShiftAndTabWalksBack) {
  hands_.Key(keys::kTab, keys::kShift);
  EXPECT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  hands_.Key(keys::kTab, keys::kShift);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[5]);
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
  EXPECT_EQ(form_.Focus(), &form_.CboTarifa[1]);
}

TEST_F(InputTest, TabSelectsWhatAFieldHolds) {
  form_.TxtCampo[1].SetText("ABC"_w);
  hands_.Key(keys::kTab, 0);
  ExpectSelection(form_.TxtCampo[1], 0, 3);
}

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

TEST_F(MinutesTest, EnterRefreshesTheGridAtOnce) {
  station_.Pass(10 * 60'000);
  form_.PctBoton[8].BorderStyle = 1;  // who has been inside for so many minutes
  form_.SetFocus(&minutes_);
  minutes_.SetText({});
  station_.Type("11\r");
  EXPECT_EQ(form_.TotalVista(), 0);
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

// ---- Enter
// ----------------------------------------------------------------------------------------------------

TEST_F(InputTest, EnterOnAFreeNumberOpensTheFormOfANewFicha) {
  station_.TypeAndEnter("7");
  EXPECT_TRUE(number_.Locked);
  EXPECT_TRUE(form_.PctBoton[5].Visible);
  EXPECT_FALSE(form_.PctBoton[6].Visible);
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(InputTest, EnterOnANumberOutOfRangeEmptiesTheField) {
  for (const char* typed : {"1001", "0", "99999999999999999999"}) {
    form_.SetFocus(&number_);
    station_.TypeAndEnter(typed);
    EXPECT_TRUE(number_.Text().Empty()) << typed;
    EXPECT_FALSE(number_.Locked) << typed;
    EXPECT_FALSE(form_.PctBoton[5].Visible) << typed;
  }
}

TEST_F(InputTest, TheEndsOfTheRangeAreFichas) {
  for (const char* typed : {"1", "1000", "0005"}) {
    station_.TypeAndEnter(typed);
    EXPECT_TRUE(form_.PctBoton[5].Visible) << typed;
    hands_.Key(27, 0);
  }
}

TEST_F(InputTest, EnterInAnEmptyNumberOpensNothing) {
  hands_.Key(keys::kEnter, 0);
  EXPECT_FALSE(number_.Locked);
  EXPECT_FALSE(form_.PctBoton[5].Visible);
  EXPECT_EQ(station_.Beeps(), 0);
}

TEST_F(InputTest, EnterOnATakenNumberShowsTheFicha) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("7");
  EXPECT_TRUE(form_.FichaEnPantalla());
  EXPECT_TRUE(form_.PctBoton[6].Visible);
  EXPECT_EQ(form_.LblCampo[1].Caption, "ABC"_w);
}

TEST_F(InputTest, EnterLeadsFromFieldToFieldToTheCategoryAndSaves) {
  station_.TypeAndEnter("7");
  for (std::size_t i = 1; i <= 5; ++i) {
    ASSERT_EQ(form_.Focus(), &form_.TxtCampo[i]) << i;
    station_.TypeAndEnter("dato " + std::to_string(i));
  }
  ASSERT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  station_.Answers = {Answer::kYes};
  hands_.Key(keys::kEnter, 0);
  const RegistroFicha ficha = station_.Slot(7);
  EXPECT_TRUE(ficha.EnUso);
  EXPECT_EQ(ficha.Placa.Trimmed(), "DATO 1"_w);
  EXPECT_EQ(ficha.Nombre.Trimmed(), "DATO 2"_w);
  EXPECT_EQ(ficha.Apellido.Trimmed(), "DATO 3"_w);
  EXPECT_EQ(ficha.Telefono.Trimmed(), "DATO 4"_w);
  EXPECT_EQ(ficha.Observacion.Trimmed(), "DATO 5"_w);
}

TEST_F(InputTest, AKnownPlateLeadsStraightToTheCategory) {
  RegistroUsuario user;
  user.Placa = "XYZ789";
  user.Nombre = "ANA";
  user.Categoria = "MOTOCICLETA";
  const auto bytes = user.Encode();
  station_.Disk.Put("Multimedia\\Vintoral.USR", {bytes.data(), bytes.size()});
  station_.TypeAndEnter("7");
  station_.TypeAndEnter("xyz789");
  EXPECT_EQ(form_.Focus(), &form_.CboTarifa[1]);
  EXPECT_EQ(name_.Text(), "ANA"_w);
  EXPECT_EQ(form_.CboTarifa[1].Text(), "MOTOCICLETA"_w);
  EXPECT_EQ(form_.NumeroUsuario, 1);
}

TEST_F(InputTest, APlateThatIsInsideIsRefusedAndTheScreenIsIdle) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Answers = {Answer::kOk};
  station_.TypeAndEnter("abc");
  ASSERT_FALSE(station_.Boxes.empty());
  EXPECT_EQ(station_.Boxes.back().title, "Vintoral - Ingreso Denegado"_w);
  EXPECT_EQ(station_.Boxes.back().icon, Icon::kCritical);
  EXPECT_EQ(station_.Boxes.back().text,
            "La información digitada ya se encuentra en uso por la ficha 0007."_w);
  EXPECT_TRUE(number_.Text().Empty());
  EXPECT_FALSE(number_.Locked);
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(InputTest, AClickOnTheNameActsAsEnterInThePlate) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Type("abc");
  station_.Answers = {Answer::kOk};
  hands_.Click(name_);
  EXPECT_EQ(station_.Boxes.back().title, "Vintoral - Ingreso Denegado"_w);
}

TEST_F(InputTest, AClickOnTheNameOfALockedPlateIsJustAClick) {
  station_.Enter("7", "ABC");
  station_.TypeAndEnter("8");
  station_.Type("abc");
  form_.TxtCampo[1].Locked = true;
  station_.Boxes.clear();
  hands_.Click(name_);
  EXPECT_TRUE(station_.Boxes.empty());
  EXPECT_EQ(form_.Focus(), &name_);
}

TEST_F(InputTest, EnterInTheCashRetires) {
  station_.Enter("7", "ABC");
  station_.Pass(37 * 60'000);
  station_.TypeAndEnter("7");
  station_.Pass(500);
  ASSERT_EQ(form_.Focus(), &form_.TxtEfectivo);
  station_.Answers = {Answer::kYes};
  hands_.Key(keys::kEnter, 0);
  EXPECT_FALSE(station_.Slot(7).EnUso);
  EXPECT_EQ(station_.History(2).ValorCobrado, Money::FromUnits(3700));
}

// ---- Labels
// ---------------------------------------------------------------------------------------------------

class LabelTest : public InputTest {
 protected:
  TextBox& label_ = form_.TxtEtiqueta[2];
  PictureBox& panel_ = form_.PctEtiqueta[2];
  /// Label 2 as the shared folder holds it.
  std::string Stored() { return station_.Disk.Get("Multimedia\\Vintoral.LBL").substr(40, 20); }
};

TEST_F(LabelTest, AClosedLabelTakesNoTyping) {
  form_.SetFocus(&label_);
  station_.Type("5");
  EXPECT_EQ(label_.Text(), "NOMBRE "_w);
}

TEST_F(LabelTest, AClickOnItsPanelOpensItWithItsTextSelected) {
  hands_.Click(panel_);
  EXPECT_FALSE(label_.Locked);
  EXPECT_EQ(form_.Focus(), &label_);
  ExpectSelection(label_, 0, 7);
}

TEST_F(LabelTest, SmallLettersShowInCapitals) {
  hands_.Click(panel_);
  station_.Type("señor"_w);
  EXPECT_EQ(label_.Text(), "SEÑOR"_w);
}

TEST_F(LabelTest, EnterEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.TypeAndEnter("cliente");
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(label_.Text(), "CLIENTE "_w);
  EXPECT_EQ(Stored(), "CLIENTE             ");
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(LabelTest, LeavingItEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.Type("socio");
  hands_.Click(form_.TxtCampo[1]);
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(Stored(), "SOCIO               ");
  EXPECT_EQ(form_.Focus(), &form_.TxtCampo[1]);
}

TEST_F(LabelTest, AClickOnTheToolBarEndsAndStoresIt) {
  hands_.Click(panel_);
  station_.Type("socio");
  hands_.Click(form_.PctBoton[5]);
  EXPECT_TRUE(label_.Locked);
  EXPECT_EQ(Stored(), "SOCIO               ");
  EXPECT_EQ(form_.Focus(), &number_);
}

TEST_F(LabelTest, BlanksAroundItAreNotStored) {
  hands_.Click(panel_);
  station_.TypeAndEnter("  socio  ");
  EXPECT_EQ(label_.Text(), "SOCIO "_w);
  EXPECT_EQ(Stored(), "SOCIO               ");
}

TEST_F(LabelTest, ItHoldsTwentyCharacters) {
  hands_.Click(panel_);
  station_.TypeAndEnter("ABCDEFGHIJKLMNOPQRSTUVWXYZ");
  EXPECT_EQ(Stored(), "ABCDEFGHIJKLMNOPQRST");
}

TEST_F(LabelTest, ADisabledControlTakesNoClick) {
  panel_.Enabled = false;
  hands_.Click(panel_);
  EXPECT_TRUE(label_.Locked);
}

}  // namespace
}  // namespace vintoral
