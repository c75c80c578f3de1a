#include "station/forms/Controls.h"

#include <gtest/gtest.h>

#include "platform/headless/VirtualClock.h"

namespace vintoral {
namespace {

/// A text box that counts its change events.
class TextBoxTest : public testing::Test {
 protected:
  TextBoxTest() {
    box_.OnChange = [this] { ++changes_; };
  }
  void Given(const String& text, std::size_t start = 0, std::size_t length = 0) {
    box_.SetText(text);
    box_.SelStart = start;
    box_.SelLength = length;
    changes_ = 0;
  }

  TextBox box_;
  int changes_ = 0;
};

TEST_F(TextBoxTest, TheChangeEventFollowsOnceAndOnlyWhenTheTextReallyChanged) {
  box_.SetText("7"_w);
  EXPECT_EQ(changes_, 1);
  box_.SetText("7"_w);
  EXPECT_EQ(changes_, 1);
  box_.SetText({});
  EXPECT_EQ(changes_, 2);
}

TEST_F(TextBoxTest, ALimitThatDependsOnTheTextFollowsIt) {
  box_.LimitRule = [](std::string_view text) {
    return text.find(',') == std::string_view::npos ? std::size_t{2} : std::size_t{4};
  };
  Given("12"_w, 2);
  box_.Insert("3"_w);
  EXPECT_EQ(box_.Text(), "12"_w);
  EXPECT_EQ(box_.MaxLength, 2u);
  EXPECT_EQ(changes_, 0);
  box_.Insert(","_w);
  box_.Insert("345"_w);
  EXPECT_EQ(box_.Text(), "12,3"_w);
  EXPECT_EQ(box_.MaxLength, 4u);
  // Pasted over all of it, the new text counts and not the old one.
  box_.SelectAll();
  box_.Insert("9,75"_w);
  EXPECT_EQ(box_.Text(), "9,75"_w);
  box_.Select(1, 1);
  changes_ = 0;
  box_.EraseForward();
  EXPECT_EQ(box_.Text(), "97"_w);
  EXPECT_EQ(box_.MaxLength, 2u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, CaseAloneIsAChange) {
  Given("abc"_w);
  box_.SetText("ABC"_w);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, TheEventSeesTheNewText) {
  String seen;
  box_.OnChange = [&] { seen = box_.Text(); };
  box_.SetText("12"_w);
  EXPECT_EQ(seen, "12"_w);
}

TEST_F(TextBoxTest, ATextFromTheProgramPutsTheCaretAtTheStart) {
  Given("abc"_w, 2, 1);
  box_.SetText("xyz"_w);
  EXPECT_EQ(box_.SelStart, 0u);
  EXPECT_EQ(box_.SelLength, 0u);
}

TEST_F(TextBoxTest, TypingGoesInAtTheCaretWhichMovesBehindIt) {
  Given("AC"_w, 1);
  box_.Insert("B"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(box_.SelStart, 2u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, TypingEndsWhereTheBoxIsFull) {
  box_.MaxLength = 4;
  Given("ABC"_w, 1);
  box_.Insert("xyz"_w);
  EXPECT_EQ(box_.Text(), "AxBC"_w);
  box_.Insert("z"_w);
  EXPECT_EQ(box_.Text(), "AxBC"_w);
  Given("ABCDEF"_w, 0);  // the program may put in more
  box_.Insert("z"_w);
  EXPECT_EQ(box_.Text(), "ABCDEF"_w);
}

TEST_F(TextBoxTest, TypingReplacesTheSelection) {
  Given("ABCDE"_w, 1, 3);
  box_.Insert("x"_w);
  EXPECT_EQ(box_.Text(), "AxE"_w);
  EXPECT_EQ(box_.SelStart, 2u);
  EXPECT_EQ(box_.SelLength, 0u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, TheSameTextOverTheSelectionIsNoChange) {
  Given("ABC"_w, 1, 1);
  box_.Insert("B"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(box_.SelStart, 2u);
  EXPECT_EQ(changes_, 0);
}

TEST_F(TextBoxTest, ASelectionBeyondTheTextEndsWithIt) {
  Given("AB"_w, 9, 9);
  box_.Insert("C"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  Given("AB"_w, 1, 9);
  box_.Insert("C"_w);
  EXPECT_EQ(box_.Text(), "AC"_w);
}

TEST_F(TextBoxTest, AFullBoxTakesNoMore) {
  box_.MaxLength = 3;
  Given("ABC"_w, 3);
  box_.Insert("D"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(changes_, 0);
}

TEST_F(TextBoxTest, APasteIsCutAtTheRoomThatTheSelectionLeaves) {
  box_.MaxLength = 4;
  Given("ABCD"_w, 1, 2);
  box_.Insert("12345"_w);
  EXPECT_EQ(box_.Text(), "A12D"_w);
  EXPECT_EQ(box_.SelStart, 3u);
}

TEST_F(TextBoxTest, TheProgramMayWriteMoreThanTheOperator) {
  box_.MaxLength = 2;
  box_.SetText("ABC"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  box_.SelStart = 3;
  box_.Insert("D"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
}

TEST_F(TextBoxTest, BackspaceTakesTheCharacterBeforeTheCaret) {
  Given("ABC"_w, 2);
  box_.EraseBackward();
  EXPECT_EQ(box_.Text(), "AC"_w);
  EXPECT_EQ(box_.SelStart, 1u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, BackspaceAtTheStartDoesNothing) {
  Given("ABC"_w);
  box_.EraseBackward();
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(changes_, 0);
}

TEST_F(TextBoxTest, DeleteTakesTheCharacterBehindTheCaret) {
  Given("ABC"_w, 1);
  box_.EraseForward();
  EXPECT_EQ(box_.Text(), "AC"_w);
  EXPECT_EQ(box_.SelStart, 1u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, DeleteAtTheEndDoesNothing) {
  Given("ABC"_w, 3);
  box_.EraseForward();
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(changes_, 0);
}

TEST_F(TextBoxTest, BackspaceAndDeleteTakeTheSelectionAlone) {
  Given("ABCDE"_w, 1, 3);
  box_.EraseBackward();
  EXPECT_EQ(box_.Text(), "AE"_w);
  EXPECT_EQ(box_.SelStart, 1u);
  Given("ABCDE"_w, 1, 3);
  box_.EraseForward();
  EXPECT_EQ(box_.Text(), "AE"_w);
  EXPECT_EQ(box_.SelLength, 0u);
}

TEST_F(TextBoxTest, CapitalsKeepCaretAndSelectionAndRaiseNoEvent) {
  Given("añbcÿ"_w, 2, 1);
  box_.RaiseToCapitals();
  EXPECT_EQ(box_.Text(), "AÑBCŸ"_w);
  EXPECT_EQ(box_.SelStart, 2u);
  EXPECT_EQ(box_.SelLength, 1u);
  EXPECT_EQ(changes_, 0);
}

TEST_F(TextBoxTest, ATextRaisedWhileItIsTypedChangesOnce) {
  box_.OnChange = [this] {
    ++changes_;
    box_.RaiseToCapitals();
  };
  Given("AC"_w, 1);
  box_.Insert("b"_w);
  EXPECT_EQ(box_.Text(), "ABC"_w);
  EXPECT_EQ(box_.SelStart, 2u);
  EXPECT_EQ(changes_, 1);
}

TEST_F(TextBoxTest, AllOfATextIsSelectedFromItsStart) {
  Given("ABC"_w, 3);
  box_.SelectAll();
  EXPECT_EQ(box_.SelStart, 0u);
  EXPECT_EQ(box_.SelLength, 3u);
}

class ComboBoxTest : public testing::Test {
 protected:
  ComboBoxTest() {
    for (const String& item : {"AUTOMOVIL"_w, "MOTOCICLETA"_w, "CAMIÓN"_w})
      list_.AddItem(item);
  }
  ComboBox list_;
};

TEST_F(ComboBoxTest, NothingIsSelectedAtFirst) {
  EXPECT_EQ(list_.ListIndex(), -1);
  EXPECT_EQ(list_.Text(), ""_w);
}

TEST_F(ComboBoxTest, AnItemGivesItsText) {
  list_.Select(1);
  EXPECT_EQ(list_.ListIndex(), 1);
  EXPECT_EQ(list_.Text(), "MOTOCICLETA"_w);
}

TEST_F(ComboBoxTest, AnItemThatIsNotThereSelectsNone) {
  for (const int index : {-1, 3, 100}) {
    list_.Select(0);
    list_.Select(index);
    EXPECT_EQ(list_.ListIndex(), -1) << index;
    EXPECT_EQ(list_.Text(), ""_w) << index;
  }
}

TEST_F(ComboBoxTest, ATextSelectsTheItemThatEqualsItWhateverTheCase) {
  list_.SetText("camión"_w);
  EXPECT_EQ(list_.ListIndex(), 2);
  EXPECT_EQ(list_.Text(), "camión"_w);
}

TEST_F(ComboBoxTest, AFreeTextSelectsNone) {
  list_.Select(0);
  list_.SetText("AUTO"_w);
  EXPECT_EQ(list_.ListIndex(), -1);
  EXPECT_EQ(list_.Text(), "AUTO"_w);
}

TEST_F(ComboBoxTest, ClearingLeavesNeitherItemsNorText) {
  list_.Select(1);
  list_.Clear();
  EXPECT_TRUE(list_.List().empty());
  EXPECT_EQ(list_.ListIndex(), -1);
  EXPECT_EQ(list_.Text(), ""_w);
}

TEST(Control, TheTagIsReadAsTheNumberAtItsStart) {
  Label label;
  EXPECT_EQ(label.TagNumber(), 0);
  label.Tag = "15 Min."_w;
  EXPECT_EQ(label.TagNumber(), 15);
  label.Tag = "-3"_w;
  EXPECT_EQ(label.TagNumber(), -3);
}

TEST(Control, TakesTheFocusOnlyWhenShownEnabledAndOfAKindThatCan) {
  TextBox box;
  EXPECT_TRUE(box.TakesFocus());
  box.Visible = false;
  EXPECT_FALSE(box.TakesFocus());
  box.Visible = true;
  box.Enabled = false;
  EXPECT_FALSE(box.TakesFocus());
  EXPECT_FALSE(Label().TakesFocus());
  EXPECT_FALSE(PictureBox().TakesFocus());
}

class TimerTest : public testing::Test {
 protected:
  TimerTest() {
    timer_.Enabled = false;
    timer_.UseClock(clock_);
    timer_.SetInterval(1000);
  }
  void Run() { timer_.SetEnabled(true); }

  VirtualClock clock_;
  Timer timer_;
};

TEST_F(TimerTest, RunsWhenItIsOnAndHasAnInterval) {
  EXPECT_FALSE(timer_.Running());
  Run();
  EXPECT_TRUE(timer_.Running());
  timer_.SetInterval(0);
  EXPECT_FALSE(timer_.Running());
}

TEST_F(TimerTest, TheFirstTickIsOneIntervalAfterItIsTurnedOn) {
  clock_.Advance(250);
  Run();
  EXPECT_EQ(timer_.Due(), 1250);
}

TEST_F(TimerTest, OffAndOnStartsTheWaitAfresh) {
  Run();
  clock_.Advance(600);
  timer_.SetEnabled(false);
  EXPECT_FALSE(timer_.Running());
  timer_.SetEnabled(true);
  EXPECT_EQ(timer_.Due(), 1600);
}

TEST_F(TimerTest, RestartStartsTheWaitAfreshWhetherItRanOrNot) {
  timer_.Restart();
  EXPECT_TRUE(timer_.Running());
  clock_.Advance(900);
  timer_.Restart();
  EXPECT_EQ(timer_.Due(), 1900);
}

TEST_F(TimerTest, TurningOnWhatIsOnChangesNothing) {
  Run();
  clock_.Advance(600);
  timer_.SetEnabled(true);
  EXPECT_EQ(timer_.Due(), 1000);
}

TEST_F(TimerTest, ANewIntervalStartsTheWaitAfresh) {
  Run();
  clock_.Advance(600);
  timer_.SetInterval(100);
  EXPECT_EQ(timer_.Due(), 700);
}

TEST_F(TimerTest, TheSameIntervalChangesNothing) {
  Run();
  clock_.Advance(600);
  timer_.SetInterval(1000);
  EXPECT_EQ(timer_.Due(), 1000);
}

TEST_F(TimerTest, TicksKeepTheirRhythm) {
  Run();
  clock_.Advance(1300);
  timer_.Advance();
  EXPECT_EQ(timer_.Due(), 2000);
}

TEST_F(TimerTest, LateTicksAreNotCaughtUpWith) {
  Run();
  clock_.Advance(5500);
  timer_.Advance();
  EXPECT_EQ(timer_.Due(), 6500);
}

TEST_F(TimerTest, SettingTheWallClockMovesNoTick) {
  Run();
  clock_.Set(Moment::FromMilliseconds(1'000'000'000));
  EXPECT_EQ(timer_.Due() - clock_.Ticks(), 1000);
}

}  // namespace
}  // namespace vintoral
