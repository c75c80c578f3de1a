// The live picture of the camera in use, or a sign that none comes. It asks for pictures only while it can be
// seen.
#pragma once

#include <QString>
#include <QTimer>
#include <QWidget>
#include <memory>

#include "platform/Camera.h"

namespace vintoral {

class LiveView : public QWidget {
 public:
  /// `camera` outlives the view.
  LiveView(Camera& camera, QWidget* parent);
  ~LiveView() override;

  /// The camera's name, which stands on the picture for a moment: whoever changes cameras sees which one
  /// came.
  void ShowName(const QString& name);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  struct Bell;
  bool Seen() const;
  QSize PixelSize() const;
  void Follow();
  void PaintPicture(QPainter& painter, const LivePicture& picture) const;
  void PaintNone(QPainter& painter) const;
  void PaintCorners(QPainter& painter) const;

  Camera& camera_;
  std::shared_ptr<Bell> bell_;
  QSize asked_;  ///< the size of the pictures that the camera was asked for, in pixels of the screen
  QString name_;
  QTimer nameFades_;  ///< runs while the name stands on the picture
  QTimer silence_;    ///< runs out when no picture has come for long
};

}  // namespace vintoral
