// What hands do in a form that nobody knows by name: wired events, and each kind of control.
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "unit/station/forms/FormsFixture.h"

namespace vintoral {
namespace {

using test::FormsTest;
using test::TestForm;
using testing::ElementsAre;
using testing::IsEmpty;

class FormInputTest : public FormsTest {
 protected:
  FormInputTest() {
    main_.List.List = {"A"_w, "B"_w, "C"_w};
    main_.List.OnChoose = [this] { Tell("chosen " + std::to_string(main_.List.ListIndex)); };
    main_.List.OnPress = [this] { Tell("pressed " + std::to_string(main_.List.ListIndex)); };
    main_.List.OnTick = [this](std::size_t row) { Tell("ticked " + std::to_string(row)); };
    main_.List.OnScroll = [this] { Tell("scrolled " + std::to_string(main_.List.TopIndex)); };
  }
  void Tell(const std::string& what) { told_.push_back(what); }
  void Type(std::string_view text) {
    for (const char character : text)
      hands_.Character(character);
  }
  std::vector<std::string> told_;
  ListBox& list_ = main_.List;
  TextBox& line_ = main_.Texts[0];
  TextBox& lines_ = main_.Texts[1];
};

// ---- The way of a key
// ------------------------------------------------------------------------------------------

TEST_F(FormInputTest, AKeyReachesTheActiveFormFirstAndThenItsFocus) {
  main_.SetFocus(&line_);
  hands_.Key('A', 0);
  main_.CommandKey = 'B';
  hands_.Key('B', keys::kShift);
  EXPECT_EQ(line_.Text(), "a"_w);
  EXPECT_THAT(log_, ElementsAre("Form1 command 1"));
}

TEST_F(FormInputTest, KeysGoToTheModalFormAlone) {
  TestForm& form = Load("Form6");
  main_.SetFocus(&line_);
  form.SetFocus(&form.Texts[0]);
  steps_ = {[&] {
              hands_.Key('A', 0);
              hands_.Character('x');
              hands_.Paste("y"_w);
              EXPECT_EQ(form.Texts[0].Text(), "axy"_w);
              hands_.Click(main_.Button);
              hands_.Focus(main_.Tick);
              hands_.ReplaceText(line_, "z"_w);
              EXPECT_FALSE(hands_.Select(list_, 1));
              EXPECT_FALSE(hands_.Check(main_.Tick, 1));
            },
            [&] { hands_.Key(keys::kEscape, 0); }};
  form.OnCommand = [&] { forms_.Unload(form); };
  main_.Button.OnClick = [this] { Tell("clicked"); };
  forms_.ShowModal(form);
  EXPECT_TRUE(line_.Text().Empty());
  EXPECT_EQ(main_.Focus(), &line_);
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(FormInputTest, NothingIsTakenAfterTheEnd) {
  main_.SetFocus(&line_);
  forms_.End();
  EXPECT_TRUE(hands_.KeyDown('A', 0));
  hands_.Character('x');
  hands_.Paste("x"_w);
  hands_.ControlKey(keys::kTab, 0);
  hands_.Leave(main_);
  EXPECT_TRUE(line_.Text().Empty());
  EXPECT_EQ(main_.Focus(), &line_);
  EXPECT_THAT(log_, IsEmpty());
}

TEST_F(FormInputTest, ControlAndALetterMakeItsControlCharacterWithShiftToo) {
  EXPECT_EQ(CharacterOf('X', keys::kControl), 24);
  EXPECT_EQ(CharacterOf('X', keys::kControl | keys::kShift), 24);
  EXPECT_EQ(CharacterOf('X', keys::kControl | keys::kAlt), 0);
  EXPECT_EQ(CharacterOf('1', keys::kControl), 0);
  EXPECT_EQ(CharacterOf('1', keys::kShift), 0);
}

// ---- Clicks and the pointer
// ------------------------------------------------------------------------------------

TEST_F(FormInputTest, AClickFocusesAndThenDoesWhatIsWired) {
  main_.Button.OnClick = [this] { Tell("clicked on " + main_.Focus()->Name); };
  hands_.Click(main_.Button);
  EXPECT_THAT(told_, ElementsAre("clicked on CmdTest"));
}

TEST_F(FormInputTest, HiddenAndDisabledControlsTakeNoClick) {
  main_.SetFocus(&line_);
  main_.Button.OnClick = main_.Button.OnDoubleClick = [this] { Tell("clicked"); };
  main_.Button.Visible = false;
  hands_.Click(main_.Button);
  hands_.DoubleClick(main_.Button);
  main_.Button.Visible = true;
  main_.Button.Enabled = false;
  hands_.Click(main_.Button);
  hands_.DoubleClick(main_.Button);
  EXPECT_THAT(told_, IsEmpty());
  EXPECT_EQ(main_.Focus(), &line_);
  main_.Button.Enabled = true;
  hands_.DoubleClick(main_.Button);
  EXPECT_THAT(told_, ElementsAre("clicked"));
}

TEST_F(FormInputTest, EnterAndTheSpaceBarPressAButton) {
  main_.Button.OnClick = [this] { Tell("clicked"); };
  main_.SetFocus(&main_.Button);
  hands_.Key(keys::kEnter, 0);
  hands_.Key(keys::kSpace, 0);
  EXPECT_THAT(told_, ElementsAre("clicked", "clicked"));
}

TEST_F(FormInputTest, ThePointerIsToldOverAControlAndWhenItLeaves) {
  main_.Caption.OnHover = [this] { Tell("over"); };
  hands_.Hover(main_.Caption);
  hands_.Hover(main_.Button);
  hands_.Leave(main_);
  EXPECT_THAT(told_, ElementsAre("over"));
  EXPECT_THAT(log_, ElementsAre("Form1 left"));
}

// ---- Lists
// ----------------------------------------------------------------------------------------------------

TEST_F(FormInputTest, APressOnARowChoosesAndActs) {
  EXPECT_TRUE(hands_.Select(list_, 2));
  EXPECT_FALSE(hands_.Select(list_, 3));
  EXPECT_FALSE(hands_.Select(list_, -1));
  EXPECT_THAT(told_, ElementsAre("chosen 2", "pressed 2"));
}

TEST_F(FormInputTest, ArrowsMoveInTheRowsAndEnterPresses) {
  main_.SetFocus(&list_);
  hands_.Key(keys::kDown, 0);
  hands_.Key(keys::kDown, 0);
  hands_.Key(keys::kUp, 0);
  hands_.Key(keys::kUp, 0);  // at the first already
  hands_.Key(keys::kEnter, 0);
  EXPECT_THAT(told_, ElementsAre("chosen 0", "chosen 1", "chosen 0", "pressed 0"));
}

TEST_F(FormInputTest, PagesAndEndsOfAListStopAtItsRows) {
  main_.SetFocus(&list_);
  for (const int key : {keys::kEnd, keys::kHome, keys::kPageDown, keys::kPageUp})
    hands_.ControlKey(key, 0);
  EXPECT_THAT(told_, ElementsAre("chosen 2", "chosen 0", "chosen 2", "chosen 0"));
  list_.List.clear();
  hands_.ControlKey(keys::kDown, 0);
  EXPECT_EQ(list_.ListIndex, 0);
}

TEST_F(FormInputTest, TicksAreTurnedByHandAndByTheSpaceBar) {
  list_.Checked = {false, false, true};
  EXPECT_TRUE(hands_.Tick(list_, 1, 1));
  EXPECT_FALSE(hands_.Tick(list_, 3, 1));
  EXPECT_FALSE(hands_.Tick(list_, -1, 1));
  EXPECT_FALSE(hands_.Tick(list_, 0, 2));
  EXPECT_FALSE(hands_.Tick(line_, 0, 1));
  EXPECT_EQ(list_.Checked, (std::vector<bool>{false, true, true}));
  main_.SetFocus(&list_);
  list_.ListIndex = 2;
  hands_.Key(keys::kSpace, 0);
  EXPECT_EQ(list_.Checked, (std::vector<bool>{false, true, false}));
  EXPECT_THAT(told_, ElementsAre("ticked 1", "ticked 2"));
}

TEST_F(FormInputTest, TheSpaceBarTicksNoRowThatHasNoTick) {
  main_.SetFocus(&list_);
  hands_.Key(keys::kSpace, 0);  // no row
  list_.ListIndex = 1;
  hands_.Key(keys::kSpace, 0);  // no ticks
  EXPECT_THAT(told_, IsEmpty());
}

TEST_F(FormInputTest, InAListOfSeveralChoicesAPressTurnsTheChoiceOver) {
  list_.Checked = {false, false, false};
  EXPECT_TRUE(hands_.Select(list_, 1));
  EXPECT_EQ(list_.Checked, (std::vector<bool>{false, false, false}));
  list_.SeveralChoices = true;
  EXPECT_TRUE(hands_.Select(list_, 1));
  EXPECT_TRUE(hands_.Select(list_, 2));
  EXPECT_EQ(list_.Checked, (std::vector<bool>{false, true, true}));
  EXPECT_TRUE(hands_.Select(list_, 1));
  EXPECT_EQ(list_.Checked, (std::vector<bool>{false, false, true}));
}

TEST_F(FormInputTest, AListScrollsToAnyOfItsRows) {
  EXPECT_TRUE(hands_.Scroll(list_, 2));
  EXPECT_FALSE(hands_.Scroll(list_, 3));
  EXPECT_FALSE(hands_.Scroll(list_, -1));
  EXPECT_FALSE(hands_.Scroll(line_, 0));
  EXPECT_EQ(list_.TopIndex, 2);
  EXPECT_THAT(told_, ElementsAre("scrolled 2"));
}

TEST_F(FormInputTest, OneOptionOfAPanelIsChosenAndTheOthersAreNot) {
  main_.Options[0].Value = true;
  main_.Others[1].Value = true;
  main_.Options[2].OnClick = [this] { Tell("option"); };
  hands_.Click(main_.Options[2]);
  EXPECT_FALSE(main_.Options[0].Value);
  EXPECT_TRUE(main_.Options[2].Value);
  EXPECT_TRUE(main_.Others[1].Value);  // of another panel
  EXPECT_FALSE(hands_.Check(main_.Options[2], 0));
  main_.SetFocus(&main_.Options[1]);
  hands_.Key(keys::kSpace, 0);
  EXPECT_TRUE(main_.Options[1].Value);
  EXPECT_THAT(told_, ElementsAre("option"));
}

TEST_F(FormInputTest, ATickBoxTurnsOverWithAClickAndTellsOfIt) {
  main_.Tick.OnClick = [this] { Tell("tick " + std::to_string(main_.Tick.Value)); };
  hands_.Click(main_.Tick);
  hands_.Click(main_.Tick);
  EXPECT_THAT(told_, ElementsAre("tick 1", "tick 0"));
}

// ---- Texts of many lines
// --------------------------------------------------------------------------------------

TEST_F(FormInputTest, EnterBeginsALineInATextOfMany) {
  main_.SetFocus(&lines_);
  Type("ab\rc");
  EXPECT_EQ(lines_.Text(), "ab\r\nc"_w);
  EXPECT_EQ(lines_.SelStart, 5u);
  lines_.Locked = true;
  Type("\r");
  EXPECT_EQ(lines_.Text(), "ab\r\nc"_w);
}

TEST_F(FormInputTest, ALineEndIsErasedWhole) {
  main_.SetFocus(&lines_);
  lines_.SetText("ab\r\nc"_w);
  lines_.Select(4, 0);
  Type("\b");
  EXPECT_EQ(lines_.Text(), "abc"_w);
  lines_.SetText("ab\r\nc"_w);
  lines_.Select(2, 0);
  hands_.Key(keys::kDelete, 0);
  EXPECT_EQ(lines_.Text(), "abc"_w);
}

TEST_F(FormInputTest, ArrowsMoveOverLines) {
  main_.SetFocus(&lines_);
  lines_.SetText("abcd\r\nx\r\nefgh"_w);
  int told = 0;
  lines_.OnCaret = [&] { ++told; };
  lines_.Select(3, 0);
  hands_.Key(keys::kDown, 0);
  EXPECT_EQ(lines_.Caret(), 7u);  // the end of the short line
  hands_.Key(keys::kDown, 0);
  EXPECT_EQ(lines_.Caret(), 10u);
  hands_.Key(keys::kUp, 0);
  hands_.Key(keys::kLeft, 0);
  hands_.Key(keys::kLeft, 0);
  EXPECT_EQ(lines_.Caret(), 4u);  // over both characters of a line end
  hands_.ControlKey(keys::kHome, 0);
  EXPECT_EQ(lines_.Caret(), 0u);
  hands_.ControlKey(keys::kEnd, 0);
  EXPECT_EQ(lines_.Caret(), 4u);
  hands_.ControlKey(keys::kEnd, keys::kControl);
  EXPECT_EQ(lines_.Caret(), 13u);
  hands_.ControlKey(keys::kHome, keys::kControl);
  EXPECT_EQ(lines_.Caret(), 0u);
  hands_.ControlKey(keys::kPageDown, 0);
  EXPECT_EQ(lines_.Caret(), 9u);
  hands_.ControlKey(keys::kPageUp, 0);
  EXPECT_EQ(lines_.Caret(), 0u);
  EXPECT_EQ(told, 11);
}

TEST_F(FormInputTest, ShiftAndAnArrowSelectFromWhereTheCaretStood) {
  main_.SetFocus(&line_);
  line_.SetText("ABCDE"_w);
  line_.Select(2, 0);
  hands_.Key(keys::kRight, keys::kShift);
  hands_.Key(keys::kRight, keys::kShift);
  EXPECT_EQ(line_.SelStart, 2u);
  EXPECT_EQ(line_.SelLength, 2u);
  for (int i = 0; i < 3; ++i)
    hands_.Key(keys::kLeft, keys::kShift);
  EXPECT_EQ(line_.SelStart, 1u);
  EXPECT_EQ(line_.SelLength, 1u);
  EXPECT_EQ(line_.Caret(), 1u);
}

TEST_F(FormInputTest, APasteKeepsItsLinesWhateverEndsThem) {
  main_.SetFocus(&lines_);
  hands_.Paste("a\nb\r\nc\rd\te\x01"_w);
  EXPECT_EQ(lines_.Text(), "a\r\nb\r\nc\r\nd\te"_w);
}

// ---- The clipboard
// --------------------------------------------------------------------------------------------

TEST_F(FormInputTest, CopyingAndCuttingGoByTheRulesOfTheField) {
  main_.SetFocus(&line_);
  line_.SetText("ABCDE"_w);
  line_.Select(1, 3);
  EXPECT_EQ(hands_.CopyKey(false), "BCD"_w);
  EXPECT_EQ(line_.Text(), "ABCDE"_w);
  EXPECT_EQ(hands_.CopyKey(true), "BCD"_w);
  EXPECT_EQ(line_.Text(), "AE"_w);
  EXPECT_EQ(hands_.CopyKey(true), ""_w);
  EXPECT_EQ(line_.Text(), "AE"_w);
  line_.SelectAll();
  line_.Locked = true;
  EXPECT_EQ(hands_.CopyKey(true), "AE"_w);
  EXPECT_EQ(line_.Text(), "AE"_w);
  line_.KeyRule = [](char) { return KeyVerdict::kDrop; };
  EXPECT_EQ(hands_.CopyKey(false), std::nullopt);
  main_.SetFocus(&main_.Button);
  EXPECT_EQ(hands_.CopyKey(false), std::nullopt);
}

TEST_F(FormInputTest, PastingByKeyGoesByTheRulesOfTheField) {
  main_.SetFocus(&line_);
  EXPECT_TRUE(hands_.PasteKey("ab"_w));
  EXPECT_EQ(line_.Text(), "ab"_w);
  line_.KeyRule = [](char character) { return character == 22 ? KeyVerdict::kBeep : KeyVerdict::kPass; };
  EXPECT_FALSE(hands_.PasteKey("cd"_w));
  EXPECT_EQ(line_.Text(), "ab"_w);
}

TEST_F(FormInputTest, ControlAndAMarkAll) {
  main_.SetFocus(&line_);
  line_.SetText("ABC"_w);
  hands_.Key('A', keys::kControl);
  EXPECT_EQ(line_.SelLength, 3u);
  EXPECT_EQ(line_.Text(), "ABC"_w);
}

// ---- What stays where it is
// -----------------------------------------------------------------------------------

TEST_F(FormInputTest, KeysDoNothingInAFocusThatIsHiddenOrDisabled) {
  line_.SetText("ABC"_w);
  main_.SetFocus(&line_);
  for (bool Control::*shown : {&Control::Visible, &Control::Enabled}) {
    line_.*shown = false;
    line_.SelectAll();
    hands_.ControlKey(keys::kDelete, 0);
    EXPECT_EQ(hands_.CopyKey(true), std::nullopt);
    EXPECT_EQ(line_.Text(), "ABC"_w);
    line_.*shown = true;
  }
  hands_.ControlKey(keys::kDelete, 0);
  EXPECT_EQ(line_.Text(), ""_w);
}

TEST_F(FormInputTest, AKeyThatMovesTheFocusTypesNothingThere) {
  main_.SetFocus(&main_.Button);
  main_.Button.OnClick = [this] { main_.SetFocus(&line_); };
  hands_.Key(keys::kSpace, 0);
  EXPECT_EQ(main_.Focus(), &line_);
  EXPECT_TRUE(line_.Text().Empty());
}

TEST_F(FormInputTest, AReplacementLeavesTheFocusWhereItsChangeHasLedIt) {
  main_.SetFocus(&main_.Button);
  hands_.ReplaceText(line_, "a"_w);
  EXPECT_EQ(main_.Focus(), &main_.Button);
  line_.OnChange = [this] { main_.SetFocus(&lines_); };
  hands_.ReplaceText(line_, "b"_w);
  EXPECT_EQ(main_.Focus(), &lines_);
}

TEST_F(FormInputTest, ChoosingInAModelessFormMakesItActive) {
  TestForm& form = Load("Form2");
  forms_.Show(form);
  form.List.List = {"A"_w, "B"_w};
  form.List.Checked = {false, false};
  const std::vector<std::function<void()>> uses = {[&] { static_cast<void>(hands_.Select(form.List, 1)); },
                                                   [&] { static_cast<void>(hands_.Check(form.Tick, 1)); },
                                                   [&] { static_cast<void>(hands_.Tick(form.List, 0, 1)); },
                                                   [&] { static_cast<void>(hands_.Scroll(form.List, 1)); },
                                                   [&] { hands_.ReplaceText(form.Texts[0], "x"_w); }};
  for (const auto& use : uses) {
    forms_.Activate(main_);
    ASSERT_EQ(&forms_.Active(), &main_);
    use();
    EXPECT_EQ(&forms_.Active(), &form);
  }
}

// ---- Tab in a form that ends in a field
// -------------------------------------------------------------------------

class TwoFields : public Form {
 public:
  TwoFields() : Form("FormX") {
    Add(Caption, "LblX");
    Add(Texts, "TxtX");
  }
  Label Caption;
  std::array<TextBox, 2> Texts;
};

TEST(MoveFocus, FromNowhereBeginsAtTheFirstField) {
  TwoFields form;
  ASSERT_EQ(form.Focus(), nullptr);
  form.MoveFocus(false);
  EXPECT_EQ(form.Focus(), &form.Texts[0]);
}

TEST(MoveFocus, InTheOnlyFieldMarksItsTextAgain) {
  TwoFields form;
  form.Texts[1].Enabled = false;
  form.SetFocus(&form.Texts[0]);
  form.Texts[0].SetText("ABC"_w);
  ASSERT_EQ(form.Texts[0].SelLength, 0u);
  form.MoveFocus(false);
  EXPECT_EQ(form.Focus(), &form.Texts[0]);
  EXPECT_EQ(form.Texts[0].SelLength, 3u);
}

}  // namespace
}  // namespace vintoral
