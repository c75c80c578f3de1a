#include "window/form7/KeypadKey.h"

#include <QPainter>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kDigitWidth = 66, kWordWidth = 132, kHeight = 56;
constexpr int kMarkInset = 9;

}  // namespace

KeypadKey::KeypadKey(const QString& text, QWidget* parent) : QAbstractButton(parent) {
  setFocusPolicy(Qt::NoFocus);  // the keypad as a whole has the keyboard
  setText(text);
  setMinimumWidth(text.size() == 1 ? kDigitWidth : kWordWidth);
  setFixedHeight(kHeight);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);  // as wide together as the list above
}

void KeypadKey::ShowMarks(const QString& marks) {
  if (marks == marks_) return;
  marks_ = marks;
  update();
}

void KeypadKey::ShowReady(bool ready) {
  if (ready == ready_) return;
  ready_ = ready;
  update();
}

void KeypadKey::enterEvent(QEnterEvent* /*event*/) {
  update();
}

void KeypadKey::leaveEvent(QEvent* /*event*/) {
  update();
}

QColor KeypadKey::Ground() const {
  const QColor ground = QColor::fromRgb(ready_             ? theme::kAccent
                                        : marks_.isEmpty() ? theme::kField
                                                           : theme::kAccentPale);
  if (!isEnabled()) return QColor::fromRgb(theme::kWindow);
  if (isDown()) return ground.darker(115);
  return underMouse() ? ground.darker(105) : ground;
}

void KeypadKey::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const bool marked = ready_ || !marks_.isEmpty();
  painter.setPen(QColor::fromRgb(marked ? theme::kAccent : theme::kBorder));
  painter.setBrush(Ground());
  painter.drawRoundedRect(QRectF(rect()).adjusted(1.5, 1.5, -1.5, -1.5), theme::kRadius, theme::kRadius);
  if (!isEnabled()) painter.setOpacity(0.45);
  painter.setPen(QColor::fromRgb(ready_ ? theme::kDisplayText : theme::kText));
  const bool digit = text().size() == 1;
  painter.setFont(theme::TextFont(digit ? theme::kAmountPixels : theme::kTextPixels, QFont::Bold));
  painter.drawText(rect(), Qt::AlignCenter | Qt::TextSingleLine, text());
  painter.setPen(QColor::fromRgb(theme::kAccent));
  painter.setFont(theme::TextFont(theme::kCaptionPixels, QFont::Bold));
  painter.drawText(rect().adjusted(kMarkInset, kMarkInset / 2, 0, 0), Qt::AlignLeft | Qt::AlignTop, marks_);
}

}  // namespace vintoral
