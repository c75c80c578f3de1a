// A picture, scaled to its place; a calm sign where there is none. A damaged file shows as none.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

#include "platform/Picture.h"
#include "platform/Pictures.h"

namespace vintoral {

class PictureLoader;

class PictureView : public QWidget {
 public:
  struct Look {
    QString placeholder;  ///< icon shown without a picture; empty for none
    bool fills = false;   ///< cut to fill its place, or whole with bars beside
    bool lasts = false;   ///< a picture stays until the next one is there
  };
  PictureView(Look look, QWidget* parent);

  /// A file is read through `loader`, which outlives the view; the same file again is read again.
  void ShowPicture(const Picture& picture, PictureLoader& loader);
  /// Is the file still being read?
  bool Loading() const { return loading_; }
  bool HasPicture() const { return !picture_.isNull(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Load();
  /// Its place in the pixels of the screen.
  PicturePlace Place() const;
  void Take(const QImage& image);
  void PaintPlaceholder(QPainter& painter) const;
  Look look_;
  Picture shown_;
  PictureLoader* loader_ = nullptr;
  QPixmap picture_;       ///< as it is painted
  bool stale_ = false;    ///< to be made when it is next painted
  bool loading_ = false;  ///< being read
  int request_ = 0;       ///< the newest reading; an older one is passed over when it arrives
};

}  // namespace vintoral
