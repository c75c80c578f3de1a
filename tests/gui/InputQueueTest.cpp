// What hands do while the station is busy: kept, served in its order, or thrown away.
#include <gtest/gtest.h>

#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>

#include "platform/headless/Recording.h"
#include "platform/headless/VirtualClock.h"
#include "station/forms/Forms.h"
#include "window/controls/Hands.h"
#include "window/controls/InputQueue.h"

namespace vintoral::test {
namespace {

/// A station that does what it was given when the test says so.
class HeldSeam : public Seam {
 public:
  bool Free() const override { return !Busy && !given_; }
  void Give(Step step, std::int64_t at) override {
    EXPECT_TRUE(Free()) << "one at a time";
    given_ = std::move(step);
    At = at;
  }
  bool TakeBack() override { return std::exchange(given_, nullptr) != nullptr; }
  void Keep(std::optional<std::int64_t> oldest) override { Oldest = oldest; }
  void Tell(Step step) override { step(); }
  void Answer(Step step) override { step(); }
  void ToWindow(Step step) override { step(); }
  void Serve(Hands, std::optional<std::int64_t>, const std::function<bool()>&) override {}
  void Breathe() override {}

  bool Has() const { return given_ != nullptr; }
  /// It begins what it was given, and is busy with it.
  void Begin() {
    Busy = true;
    std::exchange(given_, nullptr)();
  }

  bool Busy = false;
  std::int64_t At = -1;
  std::optional<std::int64_t> Oldest;

 private:
  Step given_;
};

constexpr std::int64_t kHand = 100, kReader = 10;  // milliseconds from key to key

class InputQueues : public testing::Test {
 protected:
  InputQueues() {
    queue_.Late = [this] { return late_; };
    queue_.Beep = [this] { ++beeps_; };
    queue_.ToBox = [this](const QKeyEvent* key) {
      if (box_ && key != nullptr) boxTook_ += key->text().toStdString();
      return box_;
    };
  }
  void Press(int key, const QString& text, std::int64_t gap = kHand) {
    clock_.Advance(gap);
    queue_.Press(QKeyEvent(QEvent::KeyPress, key, Qt::NoModifier, text), [this](const QKeyEvent& served) {
      queue_.Serve([this, text = served.text().toStdString()] { done_ += text; });
    });
  }
  void Type(const std::string& text, std::int64_t gap = kHand) {
    for (const char letter : text)
      Press(QChar(letter).toUpper().unicode(), QString(QChar(letter)), gap);
  }
  void Escape() { Press(Qt::Key_Escape, QStringLiteral("!")); }
  /// The station hangs, and the operator has been told.
  void Hang() { seam_.Busy = late_ = true; }
  void HoldEscape() {
    clock_.Advance(kHand);
    queue_.Press(QKeyEvent(QEvent::KeyPress, Qt::Key_Escape, Qt::NoModifier, QStringLiteral("!"), true),
                 [this](const QKeyEvent&) { queue_.Serve(Note("!")); });
  }
  Seam::Step Note(const std::string& what) {
    return [this, what] { done_ += what; };
  }
  /// Everything that was done by hands is served.
  std::string Served() {
    seam_.Busy = false;
    for (queue_.Go(); seam_.Has(); queue_.Go()) {
      seam_.Begin();
      seam_.Busy = false;
    }
    return done_;
  }

  VirtualClock clock_;
  HeldSeam seam_;
  InputQueue queue_{seam_, clock_};
  std::string done_, boxTook_;
  bool late_ = false, box_ = false;
  int beeps_ = 0;
};

TEST_F(InputQueues, AFreeStationIsGivenAtOnceWithTheTime) {
  Type("a");
  EXPECT_TRUE(seam_.Has());
  EXPECT_EQ(seam_.At, kHand);
  EXPECT_FALSE(queue_.Keeps());
  EXPECT_EQ(seam_.Oldest, std::nullopt);
}

TEST_F(InputQueues, OneAtATimeEachWithTheTimeAtWhichItWasTyped) {
  Type("abc");
  EXPECT_EQ(seam_.Oldest, 2 * kHand);
  clock_.Advance(5000);
  seam_.Begin();
  queue_.Go();
  EXPECT_EQ(done_, "a");
  EXPECT_FALSE(seam_.Has()) << "it is busy with it";
  seam_.Busy = false;
  queue_.Go();
  EXPECT_EQ(seam_.At, 2 * kHand);
  EXPECT_EQ(seam_.Oldest, 3 * kHand);
  EXPECT_EQ(Served(), "abc");
  EXPECT_FALSE(queue_.Keeps());
  EXPECT_EQ(seam_.Oldest, std::nullopt);
}

TEST_F(InputQueues, WhatAKeyMeansIsFoundOutWhenItsTurnHasCome) {
  seam_.Busy = true;
  std::string seen;
  queue_.BeforeDelivery = [&] { seen += "shown;"; };
  const QKeyEvent key(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier);
  queue_.Press(key, [&](const QKeyEvent& served) { seen += served.key() == Qt::Key_F5 ? "F5;" : "?;"; });
  EXPECT_EQ(seen, "");
  seam_.Busy = false;
  queue_.Go();
  EXPECT_EQ(seen, "shown;F5;");
}

TEST_F(InputQueues, AKeyThatIsOfNoUseDoesNotHoldTheNextOne) {
  seam_.Busy = true;
  queue_.Press(QKeyEvent(QEvent::KeyPress, Qt::Key_F5, Qt::NoModifier), [](const QKeyEvent&) {});
  Type("a");
  EXPECT_EQ(Served(), "a");
}

TEST_F(InputQueues, KeysAndPointerInTheirOrder) {
  seam_.Busy = true;
  Type("a");
  queue_.Do(Note("<click>"));
  Type("b");
  EXPECT_EQ(Served(), "a<click>b");
}

TEST_F(InputQueues, OfPlacesSideBySideTheLastCounts) {
  seam_.Busy = true;
  for (const char* place : {"<1>", "<2>", "<3>"})
    queue_.Do(Note(place), InputQueue::Kind::kPointer);
  Type("a");
  for (const char* place : {"<4>", "<5>"})
    queue_.Do(Note(place), InputQueue::Kind::kPointer);
  queue_.Do(Note("<click>"));
  EXPECT_EQ(Served(), "<3>a<5><click>");
}

TEST_F(InputQueues, ABoxTakesKeysAndWhatThePointerDidFalls) {
  seam_.Busy = true;
  Type("a");
  queue_.Do(Note("<click>"));
  Type("b");
  box_ = true;
  queue_.Reclaim();
  EXPECT_EQ(boxTook_, "ab");
  EXPECT_FALSE(queue_.Keeps());
  box_ = false;
  EXPECT_EQ(Served(), "");
}

TEST_F(InputQueues, ABoxThatGoesLeavesTheRest) {
  seam_.Busy = true;
  Type("abc");
  queue_.ToBox = [this](const QKeyEvent* key) {
    if (!boxTook_.empty()) return false;
    boxTook_ += key->text().toStdString();
    return true;
  };
  queue_.Reclaim();
  EXPECT_EQ(boxTook_, "a");
  EXPECT_EQ(Served(), "bc");
}

TEST_F(InputQueues, WhatTheStationHasNotBegunComesBackAndGoesFirst) {
  Type("ab");
  ASSERT_TRUE(seam_.Has());
  box_ = true;
  queue_.Reclaim();
  EXPECT_FALSE(seam_.Has());
  EXPECT_EQ(boxTook_, "ab");
}

TEST_F(InputQueues, WhatItHasBegunDoesNot) {
  Type("ab");
  seam_.Begin();
  box_ = true;
  queue_.Reclaim();
  EXPECT_EQ(done_, "a");
  EXPECT_EQ(boxTook_, "b");
}

TEST_F(InputQueues, EscIsAKeyLikeAnyOtherUntilTheOperatorIsTold) {
  seam_.Busy = true;
  Type("ab");
  Escape();
  EXPECT_EQ(beeps_, 0);
  EXPECT_EQ(Served(), "ab!");
}

TEST_F(InputQueues, EscThrowsAwayOnceTheOperatorIsTold) {
  seam_.Busy = true;
  Type("ab");
  queue_.Do(Note("<click>"));
  late_ = true;
  Escape();
  EXPECT_EQ(beeps_, 1);
  EXPECT_FALSE(queue_.Keeps());
  EXPECT_EQ(seam_.Oldest, std::nullopt);
  Type("c");
  EXPECT_EQ(Served(), "c");
}

TEST_F(InputQueues, EscTakesBackWhatTheStationHasNotBegun) {
  Type("a");
  ASSERT_TRUE(seam_.Has());
  late_ = true;
  Escape();
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), "");
}

TEST_F(InputQueues, EscDoesNotTakeBackWhatIsInView) {
  Type("a");
  queue_.Do(Note("<window>"), InputQueue::Kind::kView);
  Type("b");
  late_ = true;
  Escape();
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), "<window>");
}

TEST_F(InputQueues, EscThatIsHeldDownThrowsAwayOnce) {
  Hang();
  Type("ab");
  Escape();
  HoldEscape();
  HoldEscape();
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), "");
}

TEST_F(InputQueues, AClosingThatWaitsIsWithdrawnAndNothingElse) {
  seam_.Busy = true;
  Type("a");
  EXPECT_FALSE(queue_.Withdraw(InputQueue::Kind::kClosing));
  queue_.Do(Note("<close>"), InputQueue::Kind::kClosing);
  EXPECT_TRUE(queue_.Withdraw(InputQueue::Kind::kClosing));
  EXPECT_EQ(Served(), "a");
}

TEST_F(InputQueues, TheEndOfACodeIsNoAnswerToTheBoxThatItsBeginningBroughtUp) {
  seam_.Busy = true;
  Type("12", kReader);
  Press(Qt::Key_Return, QStringLiteral("E"), kReader);
  Press(Qt::Key_Return, QStringLiteral("e"));
  box_ = true;
  queue_.Reclaim();
  EXPECT_EQ(boxTook_, "1e") << "the hand's own answer, and what the guard of boxes sees to";
  box_ = false;
  EXPECT_EQ(Served(), "");
}

TEST_F(InputQueues, EscAnswersABoxHoweverSoonItFollows) {
  seam_.Busy = true;
  Type("1", kReader);
  Press(Qt::Key_Escape, QStringLiteral("!"), kReader);
  box_ = true;
  queue_.Reclaim();
  EXPECT_EQ(boxTook_, "1!");
}

TEST_F(InputQueues, EscWithNothingToThrowAwayIsKept) {
  Hang();
  Escape();
  EXPECT_EQ(beeps_, 0);
  EXPECT_EQ(Served(), "!");
}

TEST_F(InputQueues, EscBreaksOffWorkAndThrowsNothingAway) {
  Hang();
  Type("ab");
  int broken = 0;
  queue_.BreakOff = [&] { return ++broken > 0; };
  Escape();
  EXPECT_EQ(broken, 1);
  EXPECT_EQ(beeps_, 0);
  EXPECT_EQ(Served(), "ab");
}

TEST_F(InputQueues, MoreThanTwoHundredKeysBeep) {
  seam_.Busy = true;
  const std::string most(200, 'x');
  Type(most);
  queue_.Do(Note("<click>"));  // which is no key
  EXPECT_EQ(beeps_, 0);
  Type("y");
  EXPECT_EQ(beeps_, 1);
  Type("y");
  EXPECT_EQ(beeps_, 2);
  EXPECT_EQ(Served(), most + "<click>");
}

TEST_F(InputQueues, AfterOneThereIsRoomForOne) {
  seam_.Busy = true;
  Type(std::string(200, 'x'));
  seam_.Busy = false;
  queue_.Go();
  seam_.Begin();
  Type("yz");
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), std::string(200, 'x') + "y");
}

TEST_F(InputQueues, WhatIsThrownAwayMakesRoom) {
  Hang();
  Type(std::string(200, 'x'));
  Escape();
  Type(std::string(200, 'y'));
  EXPECT_EQ(beeps_, 1) << "that of Esc";
  EXPECT_EQ(Served(), std::string(200, 'y'));
}

TEST_F(InputQueues, AClosingThatIsWithdrawnLeavesTheKeysTheirRoom) {
  seam_.Busy = true;
  Type(std::string(199, 'x'));
  queue_.Do(Note("<close>"), InputQueue::Kind::kClosing);
  ASSERT_TRUE(queue_.Withdraw(InputQueue::Kind::kClosing));
  Type("y");
  EXPECT_EQ(beeps_, 0);
  Type("z");
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), std::string(199, 'x') + "y");
}

TEST_F(InputQueues, ACodeThatBeginsWithRoomIsKeptWhole) {
  seam_.Busy = true;
  Type(std::string(199, 'x'));
  clock_.Advance(kHand);
  Type("0123456789012\r", kReader);
  EXPECT_EQ(beeps_, 0);
  EXPECT_EQ(Served(), std::string(199, 'x') + "0123456789012\r");
}

TEST_F(InputQueues, ACodeThatFindsNoRoomIsRefusedWholeWithOneBeep) {
  seam_.Busy = true;
  Type(std::string(200, 'x'));
  clock_.Advance(kHand);
  Type("0123", kReader);
  // Room that comes in its midst is not for the rest of it.
  seam_.Busy = false;
  queue_.Go();
  seam_.Begin();
  Type("456789012\r", kReader);
  EXPECT_EQ(beeps_, 1);
  Type("z");
  EXPECT_EQ(beeps_, 1);
  EXPECT_EQ(Served(), std::string(200, 'x') + "z");
}

TEST_F(InputQueues, AKeyThatIsHeldDownIsNoCode) {
  seam_.Busy = true;
  for (int i = 0; i < 202; ++i) {
    clock_.Advance(40);
    queue_.Press(QKeyEvent(QEvent::KeyPress, Qt::Key_X, Qt::NoModifier, QStringLiteral("x"), i > 0),
                 [this](const QKeyEvent&) { queue_.Serve([this] { done_ += 'x'; }); });
  }
  EXPECT_EQ(beeps_, 2);
  EXPECT_EQ(Served(), std::string(200, 'x'));
}

TEST_F(InputQueues, AKeyThatOnlyModifiesTakesNoRoom) {
  Hang();
  for (const Qt::Key key : {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_AltGr, Qt::Key_CapsLock})
    Press(key, {});
  EXPECT_FALSE(queue_.Keeps());
  Escape();
  EXPECT_EQ(beeps_, 0) << "nothing was thrown away";
  EXPECT_EQ(Served(), "!");
}

TEST_F(InputQueues, FromWithinAKeyItIsServedAtOnce) {
  seam_.Busy = true;
  clock_.Advance(kHand);
  queue_.Press(QKeyEvent(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier),
               [this](const QKeyEvent&) { queue_.Do(Note("<row>")); });
  Type("a");
  seam_.Busy = false;
  queue_.Go();
  EXPECT_EQ(seam_.At, kHand) << "it is of the time of the key";
  EXPECT_EQ(Served(), "<row>a");
}

/// Keys that reach a form with a text.
class Clipboards : public InputQueues {
 protected:
  class Dialog : public Form {
   public:
    Dialog() : Form("Dialog") { Add(text, "TxtNombre"); }
    TextBox text;
  };
  Clipboards() {
    forms_.Show(dialog_);
    dialog_.SetFocus(&dialog_.text);
    QGuiApplication::clipboard()->setText(QStringLiteral("ANTES"));
  }
  ~Clipboards() override { QGuiApplication::clipboard()->clear(); }
  void Control(Qt::Key key, char character) {
    clock_.Advance(kHand);
    hands_.Key(QKeyEvent(QEvent::KeyPress, key, Qt::ControlModifier, QString(QChar(character))));
  }
  void Paste() { Control(Qt::Key_V, 22); }

  Recording events_;
  RecordingScreen screen_{events_, clock_};
  Form main_{"Main"};
  Forms forms_{main_, screen_, clock_};
  Dialog& dialog_ = forms_.Load(std::make_unique<Dialog>());
  Hands hands_{forms_, seam_, queue_};
};

TEST_F(Clipboards, APasteIsOfTheMomentInWhichItWasTyped) {
  seam_.Busy = true;
  Paste();
  QGuiApplication::clipboard()->setText(QStringLiteral("LUEGO"));
  EXPECT_EQ(dialog_.text.Text(), ""_w);
  Served();
  EXPECT_EQ(dialog_.text.Text(), "ANTES"_w);
}

TEST_F(Clipboards, BehindACopyThatIsKeptItIsOfThatCopy) {
  dialog_.text.SetText("COPIA"_w);
  dialog_.text.SelStart = 0;
  dialog_.text.SelLength = 5;
  seam_.Busy = true;
  Control(Qt::Key_X, 24);
  EXPECT_TRUE(queue_.KeepsCopy());
  Paste();
  Paste();
  Served();
  EXPECT_EQ(dialog_.text.Text(), "COPIACOPIA"_w);
  EXPECT_FALSE(queue_.KeepsCopy());
}

TEST_F(Clipboards, ACopyThatIsBeingServedCountsToo) {
  Control(Qt::Key_C, 3);
  ASSERT_TRUE(seam_.Has());
  ASSERT_FALSE(queue_.Keeps());
  EXPECT_TRUE(queue_.KeepsCopy());
  Served();
  EXPECT_FALSE(queue_.KeepsCopy());
}

}  // namespace
}  // namespace vintoral::test
