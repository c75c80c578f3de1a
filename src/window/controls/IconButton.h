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
  /// A word beside the icon: the button is as wide as both.
  void ShowWord(const QString& word);
  QSize sizeHint() const override { return size(); }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;

 private:
  void PaintGround(QPainter& painter) const;
  void PaintWord(QPainter& painter) const;
  int WordStart() const { return height() - 1; }
  QString icon_;
  QString word_;
  int iconEdge_;
  Kind kind_;
  bool pressed_ = false;
};

}  // namespace vintoral
