// A list that stands open, each row with a tick: a press anywhere on a row turns its tick over, the wheel and
// the bar scroll. It shows as many rows as it was made for; what else stands in them is laid over it, and is
// the station's. The list scrolls at once; until the station has come there too it covers what would stand in
// the wrong rows.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>
#include <vector>

class QScrollBar;

namespace vintoral {

class TickList : public QWidget {
 public:
  static constexpr int kBarWidth = 16;
  /// `rows` in view, each as high as `pitch`.
  TickList(int rows, int pitch, QWidget* parent);

  void ShowRows(const QStringList& rows);
  void ShowTicks(const std::vector<bool>& ticks);
  /// The row that has the keyboard while the list has it; -1 for none.
  void ShowRow(int row);
  /// The first row in view, as the station knows it.
  void ShowTop(int top);

  std::function<void(int)> onPressed;
  /// The first row in view is this one, and is to be so for the station too.
  std::function<void(int)> onScrolled;

  int Top() const { return top_; }
  /// Where a row of those in view stands, from 0.
  QRect Place(int place) const;
  QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void wheelEvent(QWheelEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  int LastTop() const;
  void ScrollTo(int top);
  void MoveTo(int top);
  void PaintRow(QPainter& painter, int place) const;
  void PaintTick(QPainter& painter, const QRect& row, bool ticked) const;

  int inView_;
  int pitch_;
  QStringList rows_;
  std::vector<bool> ticks_;
  int row_ = -1;
  int top_ = 0;
  std::vector<int> told_;  ///< the tops that the station has yet to come to
  QScrollBar* bar_;
};

}  // namespace vintoral
