// Tells whether a widget has been painted.
#pragma once

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
  /// Since the last call?
  bool Take() { return std::exchange(painted_, false); }

 private:
  bool painted_ = false;
};

}  // namespace vintoral::bench
