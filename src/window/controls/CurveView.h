// The value of a stay over its first day, for the category that is being edited.
#pragma once

#include <QWidget>
#include <vector>

#include "common/Money.h"

namespace vintoral {

class CurveView : public QWidget {
 public:
  explicit CurveView(QWidget* parent);

  /// One value for each minute from 0 to 24 hours; none for a category without a price. `category` empty: no
  /// category is being edited.
  void ShowCurve(const QString& category, const std::vector<Money>& values);
  /// The symbol beside each value.
  void ShowCurrency(const QString& currency);
  /// Whole units between the lines of an axis that reaches to `most`: 1, 2 or 5 with zeros, five steps at
  /// most.
  static std::int64_t AxisStep(std::int64_t most);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString InCurrency(const String& value) const;
  QRectF Plot() const;
  /// Of a stay of `minute` minutes at `value` on the plot.
  QPointF Place(const QRectF& plot, std::size_t minute, Money value) const;
  void PaintNothing(QPainter& painter) const;
  void PaintHead(QPainter& painter) const;
  void PaintValues(QPainter& painter) const;
  void PaintAxes(QPainter& painter, const QRectF& plot) const;
  void PaintLine(QPainter& painter, const QRectF& plot) const;

  QString category_;
  std::vector<Money> values_;
  QString currency_;
  std::int64_t step_ = 1;  ///< of the axis of values
  std::int64_t top_ = 1;   ///< its end
};

}  // namespace vintoral
