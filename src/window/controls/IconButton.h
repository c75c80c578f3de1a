// A button or a sign that is an icon: the tool bar, the generator, the indicators.
#pragma once

#include <QAbstractButton>

namespace vintoral {

class IconButton : public QAbstractButton {
 public:
  enum class Kind { kTool, kPlain, kSign };  ///< on a raised ground; on none; not for pressing
  IconButton(QString icon, int edge, int iconEdge, Kind kind, QWidget* parent);

  /// Held in, as a function that is on.
  void ShowPressed(bool pressed);
  bool Pressed() const { return pressed_; }
  QSize sizeHint() const override { return {edge_, edge_}; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void PaintGround(QPainter& painter) const;
  QString icon_;
  int edge_;
  int iconEdge_;
  Kind kind_;
  bool pressed_ = false;
};

}  // namespace vintoral
