#include "window/controls/IconButton.h"

#include <QPainter>

#include "window/controls/Icons.h"
#include "window/controls/Theme.h"

namespace vintoral {

IconButton::IconButton(QString icon, int edge, int iconEdge, Kind kind, QWidget* parent)
    : QAbstractButton(parent), icon_(std::move(icon)), iconEdge_(iconEdge), kind_(kind) {
  setFocusPolicy(Qt::NoFocus);
  setFixedSize(edge, edge);
}

void IconButton::ShowWord(const QString& word) {
  word_ = word;
  // Reckoned, not measured: a font is loaded only when something is written in it.
  const int letters = static_cast<int>(word_.size()) * theme::kCaptionPixels * 3 / 4;
  setFixedSize(WordStart() + letters, height());
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

void IconButton::PaintWord(QPainter& painter) const {
  painter.setFont(theme::TextFont(theme::kCaptionPixels));
  painter.setPen(QColor::fromRgb(theme::kText));
  painter.drawText(rect().adjusted(WordStart(), 0, 0, 0), Qt::AlignLeft | Qt::AlignVCenter, word_);
}

void IconButton::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  PaintGround(painter);
  if (!isEnabled()) painter.setOpacity(0.35);
  const QPixmap icon = IconPixmap(icon_, iconEdge_, devicePixelRatioF());
  const int inset = (height() - iconEdge_) / 2;
  painter.drawPixmap(QPoint(inset, inset), icon);
  if (!word_.isEmpty()) PaintWord(painter);
  if (hasFocus()) theme::PaintFocusRing(painter, rect());
}

}  // namespace vintoral
