#include "window/controls/IconButton.h"

#include <QPainter>

#include "window/controls/Icons.h"
#include "window/controls/Theme.h"

namespace vintoral {

IconButton::IconButton(QString icon, int edge, int iconEdge, Kind kind, QWidget* parent)
    : QAbstractButton(parent), icon_(std::move(icon)), edge_(edge), iconEdge_(iconEdge), kind_(kind) {
  setFocusPolicy(Qt::NoFocus);
  setFixedSize(edge, edge);
}

void IconButton::ShowPressed(bool pressed) {
  pressed_ = pressed;
  update();
}

void IconButton::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void IconButton::leaveEvent(QEvent* /*event*/) {
  update();
}

void IconButton::PaintGround(QPainter& painter) const {
  const bool hover = underMouse() && isEnabled();
  const bool down = pressed_ || isDown();
  if (kind_ == Kind::kSign || (kind_ == Kind::kPlain && !hover && !down)) return;
  painter.setPen(QPen(QColor::fromRgb(down    ? theme::kAccent
                                      : hover ? theme::kBorder
                                              : theme::kLine),
                      down ? 2 : 1));
  painter.setBrush(QColor::fromRgb(down ? theme::kAccentPale : hover ? theme::kField : theme::kCard));
  const double inset = down ? 1 : 0.5;
  painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), theme::kRadius,
                          theme::kRadius);
}

void IconButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintGround(painter);
  if (!isEnabled()) painter.setOpacity(0.35);
  const QPixmap icon = IconPixmap(icon_, iconEdge_, devicePixelRatioF());
  painter.drawPixmap(QPoint((width() - iconEdge_) / 2, (height() - iconEdge_) / 2), icon);
  if (hasFocus()) theme::PaintFocusRing(painter, rect());
}

}  // namespace vintoral
