#include "window/controls/Card.h"

#include <QPainter>
#include <QPen>

#include "window/controls/Theme.h"

namespace vintoral {

Card::Card(QRgb ground, QRgb line, QWidget* parent) : QWidget(parent), ground_(ground), line_(line) {}

void Card::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(line_));
  painter.setBrush(QColor::fromRgb(ground_));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius + 2,
                          theme::kRadius + 2);
}

}  // namespace vintoral
