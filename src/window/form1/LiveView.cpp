#include "window/form1/LiveView.h"

#include <QCoreApplication>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QRegion>
#include <QWindow>
#include <atomic>

#include "window/controls/OutlinedText.h"
#include "window/controls/Theme.h"
#include "window/form1/PictureSign.h"

namespace vintoral {

namespace {

constexpr int kNameStays = 3000;  // milliseconds
constexpr int kNameInset = 10;

}  // namespace

/// What the camera's threads ring. The view may be gone by the time that the event loop hears it.
struct LiveView::Bell {
  std::atomic<bool> rung = false;
  LiveView* view;
};

LiveView::LiveView(Camera& camera, QWidget* parent)
    : QWidget(parent), camera_(camera), bell_(std::make_shared<Bell>()) {
  bell_->view = this;
  setAttribute(Qt::WA_OpaquePaintEvent);  // nothing behind a picture is painted fifteen times a second
  for (QTimer* timer : {&nameFades_, &silence_}) {
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, [this] { update(); });
  }
  nameFades_.setInterval(kNameStays);
  silence_.setInterval(Camera::kStale);
}

LiveView::~LiveView() {
  bell_->view = nullptr;
  camera_.Show(0, 0, nullptr);
}

void LiveView::ShowName(const QString& name) {
  name_ = name;
  nameFades_.start();
  silence_.start();  // another camera may take its time
  update();
}

bool LiveView::Seen() const {
  const QWindow* const handle = window()->windowHandle();
  return isVisible() && handle != nullptr && handle->isExposed();
}

QSize LiveView::PixelSize() const {
  const QSizeF pixels = QSizeF(size()) * devicePixelRatioF();
  return {static_cast<int>(pixels.width()), static_cast<int>(pixels.height())};
}

/// The camera gives pictures of the view's size while the view is seen, and none otherwise.
void LiveView::Follow() {
  const QSize wanted = Seen() ? PixelSize() : QSize(0, 0);
  if (wanted == asked_) return;
  asked_ = wanted;
  if (wanted.isEmpty()) return camera_.Show(0, 0, nullptr);
  silence_.start();
  camera_.Show(wanted.width(), wanted.height(), [bell = bell_] {
    if (bell->rung.exchange(true)) return;
    const auto hear = [bell] {
      bell->rung = false;
      if (bell->view != nullptr) bell->view->update();
    };
    QMetaObject::invokeMethod(qApp, hear, Qt::QueuedConnection);
  });
}

void LiveView::resizeEvent(QResizeEvent* /*event*/) {
  Follow();
}

void LiveView::showEvent(QShowEvent* /*event*/) {
  if (QWindow* const handle = window()->windowHandle()) handle->installEventFilter(this);
  Follow();
}

void LiveView::hideEvent(QHideEvent* /*event*/) {
  Follow();
}

bool LiveView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Expose) Follow();  // covered, minimised, or there again
  return QWidget::eventFilter(watched, event);
}

void LiveView::paintEvent(QPaintEvent* /*event*/) {
  Follow();  // the window may have come to a screen of finer pixels
  QPainter painter(this);
  const std::shared_ptr<const LivePicture> picture = camera_.Live();
  if (picture != nullptr) {
    silence_.start();
    PaintPicture(painter, *picture);
    if (nameFades_.isActive())
      PaintOutlined(painter, QPointF(kNameInset, height() - kNameInset), theme::kTextPixels, name_);
  } else {
    PaintNone(painter);
  }
  PaintCorners(painter);
}

/// Pixel for pixel: the camera has scaled it.
void LiveView::PaintPicture(QPainter& painter, const LivePicture& picture) const {
  const QImage image(picture.pixels.data(), picture.width, picture.height, picture.width * 4,
                     QImage::Format_RGB32);
  painter.save();
  painter.scale(1 / devicePixelRatioF(), 1 / devicePixelRatioF());
  const QSize place = PixelSize();
  const QPointF at = OnPixel(
      painter, QPointF((place.width() - image.width()) / 2.0, (place.height() - image.height()) / 2.0));
  const QRect all(QPoint(), place + QSize(1, 1));  // the last pixel may be half the view's
  for (const QRect& bar : QRegion(all) - QRegion(QRect(at.toPoint(), image.size())))
    painter.fillRect(bar, QColor::fromRgb(theme::kPictureGround));
  painter.drawImage(at, image);
  painter.restore();
}

/// In the first moments of a camera it only has not come yet.
void LiveView::PaintNone(QPainter& painter) const {
  painter.fillRect(rect(), QColor::fromRgb(theme::kPictureGround));
  const bool tells = !silence_.isActive();
  PaintSign(painter, rect(), QStringLiteral("camera-none"),
            tells ? QStringList{QStringLiteral("SIN SEÑAL"), name_} : QStringList());
}

void LiveView::PaintCorners(QPainter& painter) const {
  QPainterPath corners;
  corners.addRect(rect());
  corners.addRoundedRect(QRectF(rect()), theme::kRadius, theme::kRadius);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillPath(corners, QColor::fromRgb(theme::kWindow));
}

}  // namespace vintoral
