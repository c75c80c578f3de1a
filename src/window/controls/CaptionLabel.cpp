#include "window/controls/CaptionLabel.h"

#include <QPainter>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kSmallestPixels = 10, kLargePixels = 28;

}  // namespace

CaptionLabel::CaptionLabel(const Look& look, QWidget* parent) : QWidget(parent), look_(look) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Preferred);
}

void CaptionLabel::ShowCaption(const QString& caption) {
  caption_ = caption;
  setAccessibleName(caption_);
  update();
}

void CaptionLabel::ShowGround(std::optional<QColor> ground) {
  ground_ = ground;
  update();
}

QFont CaptionLabel::FittingFont() const {
  const int room = width() - 2 * look_.padding;
  QFont font = theme::TextFont(look_.pixels, look_.weight);
  const int needed = QFontMetrics(font).horizontalAdvance(caption_);
  int pixels = std::min(look_.pixels, height() * 5 / 6);
  if (needed > room && needed > 0) pixels = std::min(pixels, look_.pixels * room / needed);
  font.setPixelSize(std::max(kSmallestPixels, pixels));
  return font;
}

bool CaptionLabel::Fits() const {
  if (caption_.isEmpty()) return true;
  const QFontMetrics metrics(FittingFont());
  return metrics.horizontalAdvance(caption_) <= width() - 2 * look_.padding && metrics.height() <= height();
}

// Reckoned, not measured: a font is loaded only when something is written in it.
QSize CaptionLabel::sizeHint() const {
  const int width = static_cast<int>(look_.sample.size()) * look_.pixels * 5 / 6;
  return {width + 2 * look_.padding, look_.pixels * 6 / 5 + 6};
}

QSize CaptionLabel::minimumSizeHint() const {
  // A large text may give way on a small screen, down to this.
  return {0, std::min(look_.pixels, kLargePixels) * 6 / 5};
}

void CaptionLabel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (ground_ || look_.outlined) {
    painter.setPen(look_.outlined ? QColor::fromRgb(theme::kLine) : QColor(Qt::transparent));
    painter.setBrush(ground_.value_or(QColor::fromRgb(theme::kField)));
    painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  }
  painter.setFont(FittingFont());
  painter.setPen(QColor::fromRgb(look_.color));
  painter.drawText(rect().adjusted(look_.padding, 0, -look_.padding, 0),
                   static_cast<int>(look_.alignment) | Qt::TextSingleLine, caption_);
}

}  // namespace vintoral
