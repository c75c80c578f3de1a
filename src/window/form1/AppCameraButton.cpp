#include "window/form1/AppCameraButton.h"

#include <QPainter>

#include "window/controls/Theme.h"
#include "window/form1/PictureSign.h"

namespace vintoral {

AppCameraButton::AppCameraButton(QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);
  setCursor(Qt::PointingHandCursor);
  setText(QStringLiteral("Abrir cámara"));
}

void AppCameraButton::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void AppCameraButton::leaveEvent(QEvent* /*event*/) {
  update();
}

void AppCameraButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool hover = underMouse();
  painter.setPen(QColor::fromRgb(isDown() ? theme::kAccent : hover ? theme::kBorder : theme::kPictureGround));
  painter.setBrush(QColor::fromRgb(isDown() ? theme::kAccentPale : theme::kPictureGround));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  PaintSign(painter, rect(), QStringLiteral("camera"), {text()});
}

}  // namespace vintoral
