// A station and its window on one thread: what hands do is done when they do it, and what the station waits
// for is waited for in a loop of the window's own.
#pragma once

#include <QCoreApplication>
#include <QEventLoop>
#include <QTimer>
#include <deque>
#include <utility>

#include "platform/Seam.h"

namespace vintoral::test {

class DirectSeam : public Seam {
 public:
  /// After each piece: what has changed is to be shown.
  std::function<void()> Publish = [] {};
  std::function<bool()> Ended = [] { return false; };
  /// The station is free again.
  std::function<void()> OnFree = [] {};

  /// The station hangs: what hands do is kept.
  bool Hangs = false;

  bool Free() const override { return serves_ && !Hangs; }
  void Give(Step step, std::int64_t /*at*/) override {
    const bool serves = std::exchange(serves_, false), inStep = std::exchange(inStep_, true);
    step();
    inStep_ = inStep;
    Publish();
    while (!told_.empty()) {
      const Step next = std::exchange(told_, {}).front();
      next();
    }
    serves_ = serves;
    if (serves_) OnFree();
  }
  bool TakeBack() override { return false; }
  void Keep(std::optional<std::int64_t> /*oldest*/) override {}
  void Tell(Step step) override {
    if (inStep_) return told_.push_back(std::move(step));
    step();
    Publish();
  }
  void Answer(Step step) override { Tell(std::move(step)); }
  void ToWindow(Step step) override { step(); }
  void Serve(Hands hands, std::optional<std::int64_t> milliseconds,
             const std::function<bool()>& over) override {
    const bool serves = std::exchange(serves_, hands == Hands::kServed),
               inStep = std::exchange(inStep_, false);
    Publish();
    if (serves_) OnFree();
    bool passed = false;
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    QObject::connect(&timer, &QTimer::timeout, [&] { passed = true; });
    if (milliseconds) timer.start(static_cast<int>(*milliseconds));
    while (!over() && !Ended() && !passed)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    inStep_ = inStep;
    serves_ = serves;
  }
  void Breathe() override { QCoreApplication::processEvents(); }

 private:
  std::deque<Step> told_;
  bool serves_ = true;
  bool inStep_ = false;
};

}  // namespace vintoral::test
