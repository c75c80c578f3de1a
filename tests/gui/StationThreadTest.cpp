// The station's thread by itself: what it serves when, and what time it is to it.
#include "platform/desktop/StationThread.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <QApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QProgressDialog>
#include <QTest>
#include <future>
#include <string>
#include <vector>

#include "gui/LockedClock.h"
#include "platform/desktop/DesktopScreen.h"

namespace vintoral::test {
namespace {

TEST(StationClocks, StandWhileTheStationWorks) {
  LockedClock machine(1000);
  StationClock clock(machine);
  clock.Run();
  machine.Set(1050);
  ASSERT_EQ(clock.Ticks(), 1050);
  clock.Stand();
  machine.Set(6050);
  EXPECT_EQ(clock.Ticks(), 1050);
  EXPECT_EQ(clock.Now().Milliseconds(), 1050);
  EXPECT_EQ(clock.Latest(), 6050);
}

TEST(StationClocks, GoOnFromWhereTheyStood) {
  LockedClock machine(1000);
  StationClock clock(machine);
  machine.Set(6000);
  ASSERT_EQ(clock.Ticks(), 1000);
  clock.Run();
  machine.Set(6010);
  EXPECT_EQ(clock.Ticks(), 1010);
  EXPECT_EQ(clock.Now().Milliseconds(), 6010);  // the wall has not stood
  clock.Run();
  EXPECT_EQ(clock.Ticks(), 1010);
  EXPECT_EQ(clock.OfMachine(6010), 1010);
}

TEST(StationClocks, MoveForwardAlone) {
  LockedClock machine(1000);
  StationClock clock(machine);
  machine.Set(5000);
  clock.MoveTo(3000);
  EXPECT_EQ(clock.Ticks(), 3000);
  EXPECT_EQ(clock.Now().Milliseconds(), 3000);
  clock.MoveTo(2000);
  EXPECT_EQ(clock.Ticks(), 3000);
  clock.MoveTo(9000);
  EXPECT_EQ(clock.Ticks(), 5000);
}

/// A station that notes what it does, with one timer.
class Threads : public testing::Test {
 protected:
  void Start(Seam::Step first = [] {}) {
    thread_.Start({.nextTick = [this] { return due_.load(); },
                   .runTicks =
                       [this] {
                         due_ = -1;
                         Note("tick");
                         if (OnTick) OnTick();
                       },
                   .ended = [this] { return ended_.load(); },
                   .publish = [](bool) {}},
                  std::move(first), [this] { over_ = true; });
    ASSERT_TRUE(Soon([&] { return thread_.Free() || held_; }));
  }
  ~Threads() override {
    ended_ = true;
    thread_.Wake();
    EXPECT_TRUE(thread_.EndWithin(5000));
  }
  /// Of the station's thread: what was done, and at what time of the station.
  void Note(const std::string& what) {
    const std::lock_guard lock(mutex_);
    done_.push_back(what + "@" + std::to_string(thread_.Time().Ticks()));
  }
  std::vector<std::string> Done() {
    const std::lock_guard lock(mutex_);
    return done_;
  }
  Seam::Step Noted(const std::string& what) {
    return [this, what] { Note(what); };
  }
  /// Works until it is let go.
  Seam::Step Hanging(const std::string& what) {
    return [this, what] {
      Note(what);
      hangs_.set_value();
      go_.get_future().wait();
    };
  }
  void WaitUntilItHangs() { hangs_.get_future().wait(); }
  void Go() { go_.set_value(); }
  void SetTime(std::int64_t ticks) {
    machine_.Set(ticks);
    thread_.Wake();
  }
  template <class Condition>
  static bool Soon(Condition condition) {
    constexpr int kLong = 5000;
    return QTest::qWaitFor(condition, kLong);
  }
  /// What must not happen would have by then.
  static void LetPass() { QTest::qWait(30); }

  LockedClock machine_{1000};
  StationThread thread_{machine_};
  std::atomic<std::int64_t> due_ = -1;
  std::atomic<bool> ended_ = false, held_ = false;
  std::function<void()> OnTick;
  bool over_ = false;

 private:
  std::mutex mutex_;
  std::vector<std::string> done_;
  std::promise<void> hangs_, go_;
};

using Log = std::vector<std::string>;

TEST_F(Threads, ServeWhatWasKeptAtItsTimeAndTheTicksBetween) {
  std::vector<std::pair<std::string, std::int64_t>> kept = {{"second", 1400}, {"third", 2000}};
  thread_.OnFree = [&] {
    if (kept.empty() || !thread_.Free()) return;
    const auto piece = kept.front();
    kept.erase(kept.begin());
    thread_.Give(Noted(piece.first), piece.second);
    thread_.Keep(kept.empty() ? std::nullopt : std::optional(kept.front().second));
  };
  due_ = 1500;
  Start();
  thread_.Give(Hanging("first"), 1000);
  WaitUntilItHangs();
  EXPECT_FALSE(thread_.Free());
  SetTime(9000);
  thread_.Keep(1400);
  LetPass();
  ASSERT_EQ(Done(), Log({"first@1000"}));
  Go();
  ASSERT_TRUE(Soon([&] { return Done().size() == 4; }));
  EXPECT_EQ(Done(), Log({"first@1000", "second@1400", "tick@1500", "third@2000"}));
}

TEST_F(Threads, TimersGoOnBehindAHang) {
  due_ = 1500;
  Start();
  thread_.Give(Hanging("first"), 1000);
  WaitUntilItHangs();
  SetTime(9000);
  Go();
  ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  LetPass();
  SetTime(9499);
  LetPass();
  EXPECT_EQ(Done(), Log({"first@1000"}));
  SetTime(9500);
  EXPECT_TRUE(Soon([&] { return Done().size() == 2; }));
  EXPECT_EQ(Done().back(), "tick@1500");
}

TEST_F(Threads, ATickIsNotHeldUpByWhatIsTold) {
  constexpr int kMany = 1000;
  std::atomic<int> told = 0;
  const Seam::Step again = [&] {
    if (++told == 3) due_ = 1000;
    if (told == 1 || told == 5) Note("told");
    if (told < kMany) return thread_.Tell(again);
    thread_.Tell([this] { held_ = true; });
  };
  Start();
  thread_.Tell(again);
  ASSERT_TRUE(Soon([&] { return held_.load(); }));
  EXPECT_EQ(Done(), Log({"told@1000", "tick@1000", "told@1000"}));
}

TEST_F(Threads, WhatIsToldIsNotHeldUpByTheTicksBehindAHang) {
  constexpr std::int64_t kSecondTick = 2000, kTyped = 9000;
  OnTick = [this] {
    if (const std::int64_t next = thread_.Time().Ticks() + 500; next < kTyped) due_ = next;
  };
  due_ = 1500;
  Start();
  thread_.Give(Hanging("first"), 1000);
  WaitUntilItHangs();
  SetTime(kTyped);
  thread_.Keep(kTyped);
  thread_.Tell(Noted("told"));
  Go();
  constexpr std::size_t kTicks = (kTyped - 1500) / 500;
  ASSERT_TRUE(Soon([&] { return Done().size() == 2 + kTicks; }));
  const Log done = Done();
  EXPECT_EQ(Log(done.begin(), done.begin() + 4),
            Log({"first@1000", "tick@1500", "told@" + std::to_string(kSecondTick), "tick@2000"}));
  EXPECT_EQ(done.back(), "tick@8500");
}

TEST_F(Threads, ABoxHoldsHandsWhileTicksAndNewsPass) {
  bool answered = false;
  Start();
  thread_.Give(
      [&] {
        Note("asked");
        held_ = true;
        thread_.Serve(Seam::Hands::kHeld, std::nullopt, [&] { return answered; });
        Note("answered");
      },
      1000);
  ASSERT_TRUE(Soon([&] { return held_.load(); }));
  LetPass();
  EXPECT_FALSE(thread_.Free());
  due_ = 1200;
  SetTime(1300);
  ASSERT_TRUE(Soon([&] { return Done().size() == 2; }));
  EXPECT_EQ(Done(), Log({"asked@1000", "tick@1300"}));
  thread_.Tell([&] { answered = true; });
  ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  EXPECT_EQ(Done().back(), "answered@1300");
}

TEST_F(Threads, AWaitServesHandsAndEndsInTime) {
  Start();
  thread_.Give(
      [&] {
        thread_.Serve(Seam::Hands::kServed, 300, [] { return false; });
        Note("waited");
      },
      1000);
  ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  SetTime(1100);
  thread_.Give(Noted("key"), 1100);
  ASSERT_TRUE(Soon([&] { return Done().size() == 1; }));
  SetTime(1299);
  LetPass();
  EXPECT_EQ(Done(), Log({"key@1100"}));
  SetTime(1300);
  ASSERT_TRUE(Soon([&] { return Done().size() == 2; }));
  EXPECT_EQ(Done().back(), "waited@1300");
}

// A piece that is kept is served inside a wait only if it was typed before that would have ended.
TEST_F(Threads, AWaitBehindAHangEndsBeforeWhatWasTypedLater) {
  std::optional<std::int64_t> kept = 1900;
  thread_.OnFree = [&] {
    if (!kept || !thread_.Free()) return;
    thread_.Give(Noted("key"), *std::exchange(kept, std::nullopt));
    thread_.Keep(std::nullopt);
  };
  Start();
  const Seam::Step hang = Hanging("first");
  thread_.Give(
      [&] {
        hang();
        thread_.Serve(Seam::Hands::kHeld, 300, [] { return false; });
        Note("waited");
      },
      1000);
  WaitUntilItHangs();
  SetTime(9000);
  thread_.Keep(kept);
  Go();
  ASSERT_TRUE(Soon([&] { return Done().size() == 3; }));
  EXPECT_EQ(Done(), Log({"first@1000", "waited@1300", "key@1900"}));
}

TEST_F(Threads, WhatWasGivenComesBackUntilItIsBegun) {
  OnTick = [this] {
    held_ = true;
    thread_.Serve(Seam::Hands::kHeld, std::nullopt, [&] { return !held_; });
  };
  due_ = 1000;
  Start();
  ASSERT_TRUE(Soon([&] { return held_.load(); }));
  EXPECT_FALSE(thread_.TakeBack());
  thread_.Give(Noted("key"), 1000);
  LetPass();
  ASSERT_EQ(Done(), Log({"tick@1000"}));
  EXPECT_TRUE(thread_.TakeBack());
  EXPECT_FALSE(thread_.TakeBack());
  thread_.Tell([this] { held_ = false; });
  ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  LetPass();
  EXPECT_EQ(Done(), Log({"tick@1000"}));
}

TEST_F(Threads, TheWindowIsToldInOrderOnItsOwnThread) {
  std::vector<int> told;
  bool here = true;
  const std::thread::id window = std::this_thread::get_id();
  Start();
  thread_.Tell([&] {
    for (int i = 0; i < 100; ++i) {
      thread_.ToWindow([&, i] {
        told.push_back(i);
        here = here && std::this_thread::get_id() == window;
      });
    }
  });
  ASSERT_TRUE(Soon([&] { return told.size() == 100; }));
  EXPECT_TRUE(here);
  EXPECT_TRUE(std::is_sorted(told.begin(), told.end()));
}

TEST_F(Threads, LongWorkLetsTicksAndNewsPassAndNoHands) {
  Start();
  due_ = 1200;
  thread_.Give(
      [&] {
        machine_.Set(1250);
        thread_.Tell(Noted("told"));
        thread_.Give(Noted("key"), 1250);
        thread_.Breathe();
        Note("worked");
      },
      1000);
  ASSERT_TRUE(Soon([&] { return Done().size() == 4; }));
  EXPECT_EQ(Done(), Log({"tick@1250", "told@1250", "worked@1250", "key@1250"}));
}

// The window shows how far the work is while the station goes on, and may have ended meanwhile.
TEST_F(Threads, TheProgressOfWorkIsShownBeforeItGoes) {
  constexpr int kRounds = 3;
  const String what = "Buscando…"_w;
  DesktopScreen screen(thread_);
  bool showing = false, cut = false;
  QPointer<QProgressDialog> dialog;
  std::atomic<bool> seen = false, worked = false;
  int ends = 0;
  const auto work = [&] {
    screen.Working(what, 0);
    while (!seen)
      std::this_thread::yield();
    thread_.ToWindow([&] {
      while (!worked)
        std::this_thread::yield();
      // What the window does next it does with all that follows here already waiting.
      showing = true;
      QMetaObject::invokeMethod(
          qApp, [&] { cut = cut || showing; }, Qt::QueuedConnection);
      QObject::connect(dialog, &QObject::destroyed, [&] { cut = cut || showing; });
    });
    screen.Working(what, 0.5);
    thread_.ToWindow([&] { showing = false; });
    screen.Worked();
    thread_.ToWindow([&] { ++ends; });
    worked = true;
  };
  Start();
  for (int round = 0; round < kRounds; ++round) {
    seen = worked = false;
    thread_.Give(work, 1000);
    ASSERT_TRUE(Soon([&] { return screen.ShowsWork(); }));
    for (QWidget* const top : QApplication::topLevelWidgets()) {
      if (auto* const progress = qobject_cast<QProgressDialog*>(top)) dialog = progress;
    }
    ASSERT_TRUE(dialog);
    seen = true;
    ASSERT_TRUE(Soon([&] { return ends > round; }));
    EXPECT_FALSE(dialog);
    EXPECT_FALSE(cut);
    ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  }
}

bool Rings(const BusyWatch& watch, int milliseconds) {
  pollfd bell{watch.Descriptor(), POLLIN, 0};
  return poll(&bell, 1, milliseconds) == 1;
}

TEST_F(Threads, WorkThatTakesLongRings) {
  Start();
  thread_.Give(Noted("short"), 1000);
  ASSERT_TRUE(Soon([&] { return Done().size() == 1 && thread_.Free(); }));
  EXPECT_EQ(thread_.Watch().Busy(), std::nullopt);
  EXPECT_FALSE(Rings(thread_.Watch(), static_cast<int>(BusyWatch::kPatience) + 100));
  thread_.Give(Hanging("long"), 1000);
  WaitUntilItHangs();
  EXPECT_FALSE(Rings(thread_.Watch(), 0));
  EXPECT_TRUE(Rings(thread_.Watch(), 5000));
  EXPECT_GE(thread_.Watch().Busy(), BusyWatch::kPatience - 1);
  thread_.Watch().Hear();
  EXPECT_FALSE(Rings(thread_.Watch(), 0));
  Go();
  ASSERT_TRUE(Soon([&] { return thread_.Free(); }));
  EXPECT_EQ(thread_.Watch().Busy(), std::nullopt);
}

TEST_F(Threads, TheEndIsWaitedForNoLongerThanSaid) {
  Start();
  thread_.Give(Hanging("first"), 1000);
  WaitUntilItHangs();
  ended_ = true;
  EXPECT_FALSE(thread_.EndWithin(50));
  EXPECT_FALSE(over_);
  Go();
  EXPECT_TRUE(thread_.EndWithin(5000));
  EXPECT_TRUE(Soon([&] { return over_; }));
}

}  // namespace
}  // namespace vintoral::test
