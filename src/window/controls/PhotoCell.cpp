#include "window/controls/PhotoCell.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kMargin = 1;  // of each cell, so that photos don't touch
constexpr QRgb kVeil = 0x80E9EDF1;

/// Dark letters within a bright line, or the other way round, are read on any ground.
void PaintOutlined(QPainter& painter, const QPointF& baseline, const QFont& font, const QString& text) {
  QPainterPath letters;
  letters.addText(baseline, font, text);
  const double line = std::max(3.0, font.pixelSize() / 6.0);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.strokePath(
      letters, QPen(QColor::fromRgb(theme::kDisplay), line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.fillPath(letters, QColor::fromRgb(theme::kDisplayText));
}

}  // namespace

PhotoCell::PhotoCell(QWidget* parent)
    : PictureView({QString(), false, false, PictureLoader::Turn::kInRow}, parent) {
  setMouseTracking(true);
}

void PhotoCell::ShowNumber(const QString& number) {
  number_ = number;
  setAccessibleName(number);
  update();
}

void PhotoCell::Dim(bool dimmed) {
  if (dimmed == dimmed_) return;
  dimmed_ = dimmed;
  update();
}

QRect PhotoCell::PictureRect() const {
  return rect().adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

void PhotoCell::PaintNumber(QPainter& painter, bool onPhoto) const {
  constexpr int kLeastPixels = 14, kMostPixels = 44;
  const int share = onPhoto ? height() / 4 : height() * 3 / 8;
  const QFont font = theme::TextFont(std::clamp(share, kLeastPixels, kMostPixels), QFont::Bold);
  if (onPhoto) {
    const double inset = font.pixelSize() / 3.0;
    const QRectF place = PictureRect();
    return PaintOutlined(painter, place.bottomLeft() + QPointF(inset, -inset), font, number_);
  }
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(theme::kText));
  painter.drawText(PictureRect(), Qt::AlignCenter | Qt::TextSingleLine, number_);
}

void PhotoCell::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(PictureRect(), QColor::fromRgb(theme::kPictureGround));
  const bool photo = PaintPicture(painter);
  PaintNumber(painter, photo || Loading());
  if (dimmed_) painter.fillRect(rect(), QColor::fromRgba(kVeil));
}

}  // namespace vintoral
