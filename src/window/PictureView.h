// A picture from a file, scaled to its place; a calm sign where there is none. A damaged file shows as none.
#pragma once

#include <QPixmap>
#include <QWidget>
#include <functional>

namespace vintoral {

class PictureView : public QWidget {
 public:
  struct Look {
    QString placeholder;  ///< icon shown without a picture; empty for none
    bool fills = false;   ///< cut to fill its place, or whole with bars beside
    bool framed = true;   ///< on a ground of its own with rounded corners
  };
  PictureView(Look look, QWidget* parent);

  /// Path of the file on this system; empty for none. The same path again reads the file again.
  void ShowPicture(const QString& file);
  bool HasPicture() const { return !file_.isEmpty() && !picture_.isNull(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  void Load();
  void PaintPlaceholder(QPainter& painter) const;
  Look look_;
  QString file_;
  QPixmap picture_;
  bool stale_ = false;  ///< to be read when it is next painted
};

}  // namespace vintoral
