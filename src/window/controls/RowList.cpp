#include "window/controls/RowList.h"

#include <QMouseEvent>
#include <QPainter>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kEdge = 1;

}  // namespace

RowList::RowList(int rowHeight, QWidget* parent) : QWidget(parent), rowHeight_(rowHeight) {
  setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  setMouseTracking(true);
}

void RowList::ShowRows(const QStringList& rows) {
  rows_ = rows;
  updateGeometry();
  update();
}

void RowList::ShowRow(int row) {
  row_ = row;
  update();
}

QSize RowList::sizeHint() const {
  const QFontMetrics metrics(theme::TextFont(theme::kTextPixels));
  int width = 0;
  for (const QString& row : rows_)
    width = std::max(width, metrics.horizontalAdvance(row));
  return {width + 2 * (theme::kTextInset + kEdge), static_cast<int>(rows_.size()) * rowHeight_ + 2 * kEdge};
}

QRect RowList::PlaceOf(int row) const {
  return {kEdge, kEdge + row * rowHeight_, width() - 2 * kEdge, rowHeight_};
}

int RowList::RowAt(const QPoint& point) const {
  if (!rect().contains(point) || point.y() < kEdge) return -1;
  const int row = (point.y() - kEdge) / rowHeight_;
  return row < rows_.size() ? row : -1;
}

void RowList::Point(int row) {
  if (row == pointed_) return;
  pointed_ = row;
  update();
}

void RowList::mousePressEvent(QMouseEvent* event) {
  pressed_ = event->button() == Qt::LeftButton ? RowAt(event->pos()) : -1;
}

void RowList::mouseReleaseEvent(QMouseEvent* event) {
  const int row = RowAt(event->pos());
  const bool chosen = event->button() == Qt::LeftButton && row >= 0 && row == pressed_;
  pressed_ = -1;
  if (chosen && onChosen) onChosen(row);
}

void RowList::mouseMoveEvent(QMouseEvent* event) {
  Point(RowAt(event->pos()));
}

void RowList::leaveEvent(QEvent* /*event*/) {
  Point(-1);
}

void RowList::PaintRow(QPainter& painter, int row) const {
  const QRect place = PlaceOf(row);
  if (row == row_ || row == pointed_)
    painter.fillRect(place, QColor::fromRgb(row == row_ ? theme::kAccentPale : theme::kWindow));
  painter.setPen(QColor::fromRgb(theme::kText));
  painter.drawText(place.adjusted(theme::kTextInset, 0, -theme::kTextInset, 0),
                   Qt::AlignVCenter | Qt::TextSingleLine, rows_[row]);
}

void RowList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), QColor::fromRgb(theme::kField));
  painter.setFont(theme::TextFont(theme::kTextPixels));
  for (int row = 0; row < rows_.size(); ++row)
    PaintRow(painter, row);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  if (hasFocus() && row_ >= 0 && row_ < rows_.size()) theme::PaintFocusRing(painter, PlaceOf(row_));
}

}  // namespace vintoral
