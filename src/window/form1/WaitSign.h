// What the operator sees while the station waits for the shared folder: a calm line over the grid, and the
// bars of the link pulse. Nothing moves for it.
#pragma once

#include <QWidget>
#include <vector>

namespace vintoral {

class CaptionLabel;
class Light;

class WaitSign : public QWidget {
 public:
  /// Over the top of `grid`, which owns it.
  WaitSign(QWidget& grid, const std::vector<Light*>& bars);

  /// So long already.
  void ShowWait(std::int64_t milliseconds);
  void ShowNone();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void TakePlace();
  QWidget& grid_;
  std::vector<Light*> bars_;
  CaptionLabel* text_;
};

}  // namespace vintoral
