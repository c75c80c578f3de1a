// A picture from a file, scaled to its place; a calm sign where there is none. A damaged file shows as none.
//
// Files are read beside the event loop: a photo of many megapixels, or one on a slow share, delays no key.
#pragma once

#include <QImage>
#include <QPixmap>
#include <QWidget>

namespace vintoral {

class PictureView : public QWidget {
 public:
  struct Look {
    QString placeholder;  ///< icon shown without a picture; empty for none
    bool fills = false;   ///< cut to fill its place, or whole with bars beside
    bool lasts = false;   ///< a picture stays until the next one is there
  };
  PictureView(Look look, QWidget* parent);

  /// Path of the file on this system; empty for none. The same path again reads the file again.
  void ShowPicture(const QString& file);
  /// Is the file still being read?
  bool Loading() const { return loading_; }
  bool HasPicture() const { return !picture_.isNull(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Load();
  void Take(const QImage& image);
  void PaintPlaceholder(QPainter& painter) const;
  Look look_;
  QString file_;
  QPixmap picture_;
  bool stale_ = false;    ///< to be read when it is next painted
  bool loading_ = false;  ///< being read
  int request_ = 0;       ///< the newest reading; an older one is passed over when it arrives
};

}  // namespace vintoral
