#include "window/controls/Light.h"

#include <QPainter>
#include <algorithm>

namespace vintoral {

Light::Light(QSize size, QWidget* parent) : QWidget(parent), size_(size) {
  setFixedSize(size);
}

void Light::ShowColor(QColor color) {
  color_ = color;
  update();
}

void Light::ShowStrength(double strength) {
  if (strength == strength_) return;
  strength_ = strength;
  update();
}

void Light::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setOpacity(strength_);
  painter.setPen(color_.darker(150));
  painter.setBrush(color_);
  const double radius = std::min(width(), height()) / 2.0;
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), radius, radius);
}

}  // namespace vintoral
