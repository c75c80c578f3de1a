#include "window/controls/Ticker.h"

#include <algorithm>

#include "station/forms/Forms.h"

namespace vintoral {

Ticker::Ticker(Forms& forms, const Clock& clock, std::function<void()> afterwards)
    : forms_(forms), clock_(clock), afterwards_(std::move(afterwards)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
}

void Ticker::Arm() {
  const std::int64_t due = forms_.NextTick();
  if (due == due_ && timer_.isActive()) return;
  due_ = due;
  if (due < 0) return timer_.stop();
  const std::int64_t wait = std::max<std::int64_t>(0, due - clock_.Ticks());
  timer_.start(std::chrono::milliseconds(wait));
}

void Ticker::Tick() {
  // A tick may wait in a box: its own timer must run on meanwhile.
  forms_.RunTicks();
  afterwards_();
}

}  // namespace vintoral
