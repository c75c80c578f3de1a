// Keys that wait while the station works: their order, and the time at which a box is answered.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QKeyEvent>
#include <atomic>
#include <thread>

#include "gui/DirectSeam.h"
#include "gui/LockedClock.h"
#include "platform/desktop/StationThread.h"
#include "platform/headless/VirtualClock.h"
#include "window/controls/InputQueue.h"

namespace vintoral::test {
namespace {

/// A station that is free or not, as a test says, and that begins what it was given when the test says so.
class HeldSeam : public DirectSeam {
 public:
  bool Free() const override { return free && !given; }
  void Give(Step step, std::int64_t /*at*/) override {
    EXPECT_FALSE(given) << "the piece before it is lost";
    given = std::move(step);
  }
  void Begin() { std::exchange(given, nullptr)(); }
  bool free = false;
  Step given;
};

class KeptKeys : public testing::Test {
 protected:
  void Press(char letter) {
    const QKeyEvent key(QEvent::KeyPress, letter, Qt::NoModifier, QString(QLatin1Char(letter)));
    clock_.Advance(100);
    queue_.Press(key, [this](const QKeyEvent& event) {
      queue_.Serve([this, text = event.text().toStdString()] { done_ += text; });
    });
  }
  void ServeAll() {
    for (queue_.Go(); seam_.given; queue_.Go())
      seam_.Begin();
  }
  VirtualClock clock_;
  HeldSeam seam_;
  InputQueue queue_{seam_, clock_};
  std::string done_;
};

// Bringing the window up to date before a key is delivered can make a widget tell something.
TEST_F(KeptKeys, NothingOvertakesTheKeyThatIsAboutToBeDelivered) {
  queue_.BeforeDelivery = [this] {
    if (done_.empty() && !seam_.given) queue_.Do([this] { done_ += "widget"; });
  };
  for (const char letter : {'P', '0', '1', '2'})
    Press(letter);
  EXPECT_EQ(done_, "");
  seam_.free = true;
  ServeAll();
  EXPECT_EQ(done_, "P012widget");
  EXPECT_FALSE(queue_.Keeps());
}

TEST_F(KeptKeys, NothingOvertakesTheKeyThatABoxTakes) {
  std::string inBox;
  Press('0');
  Press('1');
  ASSERT_EQ(done_, "");
  int shown = 0;
  queue_.ToBox = [&](const QKeyEvent* key) {
    if (key == nullptr || shown++ > 0) return false;
    inBox += key->text().toStdString();
    seam_.free = true;
    queue_.Do([this] { done_ += "widget"; });
    return true;
  };
  ServeAll();
  EXPECT_EQ(inBox, "0");
  EXPECT_EQ(done_, "1widget");
}

/// A station that has a box up, with a timer each 50 ms whose first tick hangs.
class BoxInAHang : public testing::Test {
 protected:
  BoxInAHang() {
    const auto ticks = [this] {
      done_ += "tick " + std::to_string(thread_.Time().Ticks()) + ";";
      due_ += 50;
      hangs_ = true;
      while (!goesOn_)
        std::this_thread::yield();
    };
    const auto first = [this] {
      thread_.Serve(Seam::Hands::kHeld, std::nullopt, [this] { return answered_; });
      ended_ = true;
    };
    thread_.Start({[this] { return due_; }, ticks, [this] { return ended_; }, [](bool) {}}, first, [] {});
  }
  ~BoxInAHang() override {
    goesOn_ = true;
    thread_.Answer([this] { answered_ = true; });
  }
  void Answer() {
    thread_.Answer([this] {
      done_ += "answer " + std::to_string(thread_.Time().Ticks()) + ";";
      answered_ = true;
    });
  }
  void PassTo(std::int64_t ticks) {
    clock_.Set(ticks);
    thread_.Wake();
  }
  void Hang() {
    thread_.Keep(50);  // the station may not wait yet: time that passes while it works would be lost to it
    PassTo(50);
    while (!hangs_)
      std::this_thread::yield();
    thread_.Keep(std::nullopt);
  }
  std::string Done() {
    goesOn_ = true;
    return thread_.EndWithin(5000) ? done_ : "it does not end";
  }

  LockedClock clock_{0};
  StationThread thread_{clock_};
  std::atomic<bool> hangs_ = false, goesOn_ = false;
  // Of the station's thread.
  std::int64_t due_ = 50;
  bool answered_ = false, ended_ = false;
  std::string done_;
};

TEST_F(BoxInAHang, IsAnsweredAtTheTimeOfTheAnswer) {
  Hang();
  PassTo(120);
  Answer();
  PassTo(200);
  EXPECT_EQ(Done(), "tick 50;tick 100;answer 120;");
}

TEST_F(BoxInAHang, IsAnsweredByAKeptKeyAtTheTimeOfTheKey) {
  Hang();
  PassTo(120);
  thread_.Keep(120);
  PassTo(300);
  Answer();
  thread_.Keep(260);  // the next one
  EXPECT_EQ(Done(), "tick 50;tick 100;answer 120;");
}

}  // namespace
}  // namespace vintoral::test
