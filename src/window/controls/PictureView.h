// A picture, scaled to its place; a calm sign where there is none. A damaged file shows as none.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "window/controls/PictureLoader.h"

namespace vintoral {

class PictureView : public QWidget {
 public:
  struct Look {
    QString placeholder;  ///< icon shown without a picture; empty for none
    bool fills = false;   ///< cut to fill its place, or whole with bars beside
    bool lasts = false;   ///< a picture stays until the next one is there
    PictureLoader::Turn turn = PictureLoader::Turn::kFirst;
  };
  PictureView(Look look, QWidget* parent);

  /// A file is read through `loader`, which outlives the view. The same file again is read again, unless it
  /// carries the mark of the one that is shown.
  void ShowPicture(const Picture& picture, PictureLoader& loader);
  /// Is the file still being read?
  bool Loading() const { return loading_; }
  bool HasPicture() const { return !pixmap_.isNull(); }
  /// What is painted of `picture`; null when another is shown.
  QPixmap PixmapOf(const Picture& picture) const;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void hideEvent(QHideEvent* event) override;

  /// Where in the widget the picture stands.
  virtual QRect PictureRect() const { return rect(); }
  /// The picture as far as it is there; false when there is none.
  bool PaintPicture(QPainter& painter);

 private:
  void Load();
  PicturePlace Place() const;
  QSize PlaceSize() const;
  /// The size at which a picture of these proportions stands in its place.
  QSize FittedSize(const QSize& size) const;
  void Take(const QImage& image, PictureFault fault);
  void TryAgain();
  void Drop();
  void PaintPlaceholder(QPainter& painter) const;
  Look look_;
  Picture shown_;
  PictureLoader* loader_ = nullptr;
  QPixmap pixmap_;
  bool isOfShown_ = false;  ///< the pixmap is of the picture shown, not of one that lasts
  QSize readFor_;           ///< the place that it was, or is being, read for; empty: not yet
  bool loading_ = false;
  PictureLoader::Reading reading_;
};

}  // namespace vintoral
