#include "window/controls/PhotoCell.h"

#include <QPainter>
#include <algorithm>

#include "window/controls/OutlinedText.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kMargin = 1;  // of each cell, so that photos don't touch
constexpr QRgb kVeil = 0x80E9EDF1;

}  // namespace

PhotoCell::PhotoCell(QWidget* parent)
    : PictureView({QString(), false, false, PictureLoader::Turn::kInRow}, parent) {
  setAttribute(Qt::WA_OpaquePaintEvent);  // what lies behind fifty cells is not painted
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
  const int pixels = std::clamp(share, kLeastPixels, kMostPixels);
  if (onPhoto) {
    const double inset = pixels / 3.0 + 2;  // clear of the frame around the cell
    const QRectF place = PictureRect();
    return PaintOutlined(painter, place.bottomLeft() + QPointF(inset, -inset), pixels, number_);
  }
  painter.setFont(theme::TextFont(pixels, QFont::Bold));
  painter.setPen(QColor::fromRgb(theme::kText));
  painter.drawText(PictureRect(), Qt::AlignCenter | Qt::TextSingleLine, number_);
}

void PhotoCell::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor::fromRgb(theme::kWindow));
  painter.fillRect(PictureRect(), QColor::fromRgb(theme::kPictureGround));
  const bool photo = PaintPicture(painter);
  PaintNumber(painter, photo || Loading());
  if (dimmed_) painter.fillRect(rect(), QColor::fromRgba(kVeil));
}

}  // namespace vintoral
