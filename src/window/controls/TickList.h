// A list that stands open, each row with a tick: a press anywhere on a row turns its tick over, the wheel and
// the bar scroll. It shows as many rows as it was made for; what else stands in them is laid beside it.
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
  void ShowTop(int top);

  std::function<void(int)> onPressed;
  /// The first row in view is to be this one.
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
  void PaintRow(QPainter& painter, int place) const;
  void PaintTick(QPainter& painter, const QRect& row, bool ticked) const;

  int inView_;
  int pitch_;
  QStringList rows_;
  std::vector<bool> ticks_;
  int row_ = -1;
  int top_ = 0;
  QScrollBar* bar_;
};

}  // namespace vintoral
