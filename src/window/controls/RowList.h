// A list that stands open and whose rows do something when they are pressed.
#pragma once

#include <QStringList>
#include <QWidget>
#include <functional>

namespace vintoral {

class RowList : public QWidget {
 public:
  RowList(int rowHeight, QWidget* parent);

  std::function<void(int)> onChosen;  ///< a row was pressed

  void ShowRows(const QStringList& rows);
  /// The row that Enter would press; -1 for none.
  void ShowRow(int row);
  const QStringList& Rows() const { return rows_; }
  QRect PlaceOf(int row) const;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return sizeHint(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  int RowAt(const QPoint& point) const;
  void Point(int row);
  void PaintRow(QPainter& painter, int row) const;

  const int rowHeight_;
  QStringList rows_;
  int row_ = -1;
  int pointed_ = -1;
  int pressed_ = -1;
};

}  // namespace vintoral
