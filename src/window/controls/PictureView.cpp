#include "window/controls/PictureView.h"

#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <algorithm>

#include "window/controls/Icons.h"
#include "window/controls/PictureLoader.h"
#include "window/controls/Theme.h"

namespace vintoral {

PictureView::PictureView(Look look, QWidget* parent) : QWidget(parent), look_(std::move(look)) {}

void PictureView::ShowPicture(const Picture& picture, PictureLoader& loader) {
  shown_ = picture;
  loader_ = &loader;
  ++request_;
  stale_ = loading_ = !picture.Empty();
  if (picture.Empty() || !look_.lasts) picture_ = {};
  update();
}

void PictureView::resizeEvent(QResizeEvent* /*event*/) {
  stale_ = !shown_.Empty();
}

PicturePlace PictureView::Place() const {
  const QSize pixels = (QSizeF(size()) * devicePixelRatioF()).toSize();
  return {pixels.width(), pixels.height(), look_.fills};
}

void PictureView::Load() {
  stale_ = false;
  if (shown_.Pixels()) return Take(ImageIn(Place(), *shown_.Pixels()));
  loading_ = true;
  const int request = ++request_;
  loader_->Load(shown_.Path(), Place(), [request, view = QPointer(this)](const QImage& image) {
    if (!view || view->request_ != request) return;
    view->Take(image);
    view->update();
  });
}

void PictureView::Take(const QImage& image) {
  loading_ = false;
  picture_ = QPixmap::fromImage(image);
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
  QPainterPath corners;
  corners.addRoundedRect(QRectF(rect()), theme::kRadius, theme::kRadius);
  painter.setClipPath(corners);
  painter.fillRect(rect(), QColor::fromRgb(theme::kPictureGround));
  if (!picture_.isNull()) {
    const QSizeF shown = picture_.deviceIndependentSize();
    painter.drawPixmap(QPointF((width() - shown.width()) / 2, (height() - shown.height()) / 2), picture_);
  } else if (!loading_) {
    PaintPlaceholder(painter);
  }
}

}  // namespace vintoral
