#include "window/controls/SlipPhoto.h"

#include <QPainter>

#include "window/controls/Icons.h"
#include "window/controls/Theme.h"

namespace vintoral {

void SlipPhoto::ShowPale(bool pale) {
  pale_ = pale;
  update();
}

void SlipPhoto::paintEvent(QPaintEvent* /*event*/) {
  constexpr double kPale = 0.35;
  QPainter painter(this);
  if (pale_) painter.setOpacity(kPale);
  painter.fillRect(rect(), QColor::fromRgb(theme::kPictureGround));
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.drawRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5));
  const int edge = height() * 3 / 4;
  painter.drawPixmap(QPoint((width() - edge) / 2, height() - edge),
                     IconPixmap(QStringLiteral("person"), edge, devicePixelRatioF()));
}

}  // namespace vintoral
