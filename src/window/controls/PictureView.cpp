#include "window/controls/PictureView.h"

#include <QCoreApplication>
#include <QImageReader>
#include <QPainter>
#include <QPainterPath>
#include <QPointer>
#include <QThreadPool>
#include <algorithm>

#include "window/controls/Icons.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

/// Scaled while it is decoded: the whole picture never stands in memory.
QImage Read(const QString& file, QSize place, Qt::AspectRatioMode mode) {
  QImageReader reader(file);
  reader.setAutoTransform(true);
  const QSize whole = reader.size();
  if (whole.isValid()) reader.setScaledSize(whole.scaled(place, mode));
  return reader.read();
}

}  // namespace

PictureView::PictureView(Look look, QWidget* parent) : QWidget(parent), look_(std::move(look)) {}

void PictureView::ShowPicture(const QString& file) {
  file_ = file;
  ++request_;
  stale_ = loading_ = !file.isEmpty();
  if (file.isEmpty() || !look_.lasts) picture_ = {};
  update();
}

void PictureView::resizeEvent(QResizeEvent* /*event*/) {
  stale_ = !file_.isEmpty();
}

void PictureView::Load() {
  stale_ = false;
  loading_ = true;
  const int request = ++request_;
  const QSize place = (QSizeF(size()) * devicePixelRatioF()).toSize();
  const auto mode = look_.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio;
  QThreadPool::globalInstance()->start([file = file_, place, mode, request, view = QPointer(this)] {
    const QImage image = Read(file, place, mode);
    const auto arrive = [image, request, view] {
      if (view && view->request_ == request) view->Take(image);
    };
    QMetaObject::invokeMethod(QCoreApplication::instance(), arrive, Qt::QueuedConnection);
  });
}

void PictureView::Take(const QImage& image) {
  loading_ = false;
  picture_ = QPixmap::fromImage(image);
  picture_.setDevicePixelRatio(devicePixelRatioF());
  update();
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
