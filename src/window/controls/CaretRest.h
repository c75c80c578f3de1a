// The caret of a gate where nobody types stands still: blinking would wake the machine twice a second, all
// night.
#pragma once

#include <QObject>
#include <QTimer>

namespace vintoral {

class CaretRest : public QObject {
 public:
  /// Milliseconds without a key or a press of the mouse after which it stands still; it shows all the same.
  static constexpr int kUntilRest = 9000;

  /// Sees the keys of the whole application, its `parent`.
  explicit CaretRest(QObject* parent, int untilRest = kUntilRest);

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  int blinking_;  ///< milliseconds of one blink, as the system has it
  QTimer rest_;
};

}  // namespace vintoral
