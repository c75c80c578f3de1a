// Tells whether a widget has been painted.
#pragma once

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QEvent>
#include <QWidget>
#include <utility>

namespace vintoral::bench {

class PaintWatch : public QObject {
 public:
  explicit PaintWatch(QWidget& widget) { widget.installEventFilter(this); }
  bool eventFilter(QObject* /*watched*/, QEvent* event) override {
    if (event->type() == QEvent::Paint) painted_ = true;
    return false;
  }
  /// Serves the window's events until it has been; false when that takes too long.
  bool Await() {
    constexpr int kLong = 1000;
    QElapsedTimer timer;
    timer.start();
    while (!painted_ && timer.elapsed() < kLong)
      QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    return Take();
  }
  /// Since the last call?
  bool Take() { return std::exchange(painted_, false); }

 private:
  bool painted_ = false;
};

}  // namespace vintoral::bench
