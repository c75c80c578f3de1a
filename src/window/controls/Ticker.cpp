#include "window/controls/Ticker.h"

#include <algorithm>

namespace vintoral {

Ticker::Ticker(Form1& form, std::function<void()> afterwards)
    : form_(form), afterwards_(std::move(afterwards)) {
  timer_.setSingleShot(true);
  timer_.setTimerType(Qt::PreciseTimer);
  QObject::connect(&timer_, &QTimer::timeout, &timer_, [this] { Tick(); });
}

void Ticker::Arm() {
  const std::int64_t due = form_.SiguienteTick();
  if (due == due_ && timer_.isActive()) return;
  due_ = due;
  if (due < 0) return timer_.stop();
  const std::int64_t wait = std::max<std::int64_t>(0, due - form_.Devices().clock.Ticks());
  timer_.start(std::chrono::milliseconds(wait));
}

void Ticker::Tick() {
  // A tick may wait in a box: its own timer must run on meanwhile.
  form_.EjecutarTicks();
  afterwards_();
}

}  // namespace vintoral
