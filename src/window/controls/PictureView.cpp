#include "window/controls/PictureView.h"

#include <QPainter>
#include <QPainterPath>
#include <QTimer>
#include <algorithm>
#include <utility>

#include "window/controls/Icons.h"
#include "window/controls/OutlinedText.h"
#include "window/controls/Theme.h"

namespace vintoral {

PictureView::PictureView(Look look, QWidget* parent) : QWidget(parent), look_(std::move(look)) {}

void PictureView::ShowPicture(const Picture& picture, PictureLoader& loader) {
  const bool known = picture.Mark() != FileMark{} || picture.Pixels() != nullptr;
  if (known && picture == shown_ && !readFor_.isEmpty()) return;
  loader_ = &loader;
  const bool lasts = look_.lasts && !picture.Empty();
  if (!lasts) Drop();
  shown_ = picture;
  reading_.reset();
  readFor_ = {};
  loading_ = !picture.Empty();
  isOfShown_ = !lasts;
  if (!lasts && known) pixmap_ = loader.Find(picture);
  update();
}

QPixmap PictureView::PixmapOf(const Picture& picture) const {
  return isOfShown_ && picture == shown_ ? pixmap_ : QPixmap();
}

void PictureView::Drop() {
  if (isOfShown_ && !pixmap_.isNull()) loader_->LetGo(shown_, pixmap_);
  pixmap_ = {};
}

void PictureView::hideEvent(QHideEvent* /*event*/) {
  if (!isHidden()) return;  // the window is out of sight, and comes back as it was
  Drop();
  reading_.reset();
  readFor_ = {};
  loading_ = !shown_.Empty();
}

QSize PictureView::PlaceSize() const {
  const QSizeF pixels = QSizeF(PictureRect().size()) * devicePixelRatioF();
  return {static_cast<int>(pixels.width()), static_cast<int>(pixels.height())};
}

PicturePlace PictureView::Place() const {
  return {readFor_.width(), readFor_.height(), look_.fills};
}

QSize PictureView::FittedSize(const QSize& size) const {
  return size.scaled(PlaceSize(), look_.fills ? Qt::KeepAspectRatioByExpanding : Qt::KeepAspectRatio);
}

void PictureView::Load() {
  readFor_ = PlaceSize();
  reading_.reset();
  if (shown_.Pixels()) return Take(ImageIn(Place(), *shown_.Pixels()), PictureFault::kNone);
  loading_ = !isOfShown_ || pixmap_.isNull() || FittedSize(pixmap_.size()) != pixmap_.size();
  if (!loading_) return;
  reading_ = loader_->Load(shown_, Place(), look_.turn, [this](const QImage& image, PictureFault fault) {
    Take(image, fault);
    update();
  });
}

void PictureView::Take(const QImage& image, PictureFault fault) {
  loading_ = false;
  isOfShown_ = true;
  pixmap_ = QPixmap::fromImage(image);
  // The file was there when somebody looked; a share that is away for a moment comes back.
  if (fault == PictureFault::kNotRead && shown_.Mark() != FileMark{}) TryAgain();
}

void PictureView::TryAgain() {
  constexpr int kPause = 2000;
  QTimer::singleShot(kPause, this, [this, wanted = std::weak_ptr<void>(reading_)] {
    if (wanted.expired()) return;
    readFor_ = {};
    update();
  });
}

bool PictureView::PaintPicture(QPainter& painter) {
  if (!shown_.Empty() && readFor_ != PlaceSize()) Load();
  if (pixmap_.isNull()) return false;
  const QSize fitted = FittedSize(pixmap_.size());
  const QRectF place = PictureRect();
  const QSizeF size = QSizeF(fitted) / devicePixelRatioF();
  const QPointF at = OnPixel(painter, place.center() - QPointF(size.width() / 2, size.height() / 2));
  if (fitted == pixmap_.size()) {
    pixmap_.setDevicePixelRatio(devicePixelRatioF());
    painter.drawPixmap(at, pixmap_);
  } else {
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawPixmap(QRectF(at, size), pixmap_, QRectF(pixmap_.rect()));
  }
  return true;
}

void PictureView::PaintPlaceholder(QPainter& painter) const {
  if (look_.placeholder.isEmpty()) return;
  const int edge = std::clamp(std::min(width(), height()) / 4, 28, 96);
  painter.drawPixmap(QPoint((width() - edge) / 2, (height() - edge) / 2),
                     IconPixmap(look_.placeholder, edge, devicePixelRatioF()));
}

void PictureView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  QPainterPath corners;
  corners.addRoundedRect(QRectF(rect()), theme::kRadius, theme::kRadius);
  painter.setClipPath(corners);
  painter.fillRect(rect(), QColor::fromRgb(theme::kPictureGround));
  if (!PaintPicture(painter) && !loading_) PaintPlaceholder(painter);
}

}  // namespace vintoral
