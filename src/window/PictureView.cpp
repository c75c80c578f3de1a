#include "window/PictureView.h"

#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "window/Icons.h"
#include "window/Theme.h"

namespace vintoral {

PictureView::PictureView(Look look, QWidget* parent) : QWidget(parent), look_(std::move(look)) {}

void PictureView::ShowPicture(const QString& file) {
  file_ = file;
  picture_ = {};
  stale_ = !file.isEmpty();
  update();
}

void PictureView::resizeEvent(QResizeEvent* /*event*/) {
  stale_ = !file_.isEmpty();
}

void PictureView::Load() {
  stale_ = false;
  const QSize place = (QSizeF(size()) * devicePixelRatioF()).toSize();
  QImageReader reader(file_);
  reader.setAutoTransform(true);
  const QSize whole = reader.size();
  const auto mode = look_.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  // Scaled while it is decoded: a photo of many megapixels never stands in memory whole.
  if (whole.isValid()) reader.setScaledSize(whole.scaled(place, mode));
  picture_ = QPixmap::fromImageReader(&reader);
  picture_.setDevicePixelRatio(devicePixelRatioF());
}

void PictureView::PaintPlaceholder(QPainter& painter) const {
  if (look_.placeholder.isEmpty()) return;
  const int edge = std::clamp(std::min(width(), height()) / 4, 28, 96);
  painter.drawPixmap(QPoint((width() - edge) / 2, (height() - edge) / 2),
                     IconPixmap(look_.placeholder, edge, devicePixelRatioF()));
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  if (stale_) Load();
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  if (look_.framed) {
    QPainterPath corners;
    corners.addRoundedRect(QRectF(rect()), theme::kRadius, theme::kRadius);
    painter.setClipPath(corners);
    painter.fillRect(rect(), QColor::fromRgb(theme::kPictureGround));
  }
  if (picture_.isNull()) return PaintPlaceholder(painter);
  const QSizeF shown = picture_.deviceIndependentSize();
  painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), picture_);
}

}  // namespace vintoral
