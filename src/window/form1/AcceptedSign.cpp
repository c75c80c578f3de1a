#include "window/form1/AcceptedSign.h"

#include <QPainter>

#include "window/controls/Theme.h"

namespace vintoral {

AcceptedSign::AcceptedSign(QWidget* parent) : TextField(parent) {
  setFixedWidth(theme::kRowHeight);
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
}

void AcceptedSign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.setBrush(palette().base());
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  const QPointF center = QRectF(rect()).center();
  const QPointF tick[] = {center + QPointF(-7, 0.5), center + QPointF(-2, 5.5), center + QPointF(7.5, -5)};
  painter.setPen(QPen(QColor::fromRgb(theme::kAccepted), 3, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(tick, 3);
}

}  // namespace vintoral
