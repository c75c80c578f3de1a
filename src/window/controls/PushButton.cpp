#include "window/controls/PushButton.h"

#include <QPainter>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr QSize kSize{128, 38};  // to be hit without aiming

}  // namespace

PushButton::PushButton(Rank rank, QWidget* parent) : QAbstractButton(parent), rank_(rank) {
  setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  setFixedSize(kSize);
}

void PushButton::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void PushButton::leaveEvent(QEvent* /*event*/) {
  update();
}

QColor PushButton::Ground() const {
  const QColor ground = QColor::fromRgb(rank_ == Rank::kMain ? theme::kAccent : theme::kField);
  if (isDown()) return ground.darker(115);
  return underMouse() ? ground.darker(105) : ground;
}

void PushButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(rank_ == Rank::kMain ? theme::kAccent : theme::kBorder));
  painter.setBrush(Ground());
  // The ring of the keyboard stands apart from the ground, which may have its colour.
  painter.drawRoundedRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -3.5), theme::kRadius, theme::kRadius);
  painter.setPen(QColor::fromRgb(rank_ == Rank::kMain ? theme::kDisplayText : theme::kText));
  painter.setFont(theme::TextFont(theme::kTextPixels, QFont::Bold));
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
  if (hasFocus()) theme::PaintFocusRing(painter, rect());
}

}  // namespace vintoral
