// A light that is on or out, and a bar of the link: one colour, no text.
#pragma once

#include <QColor>
#include <QWidget>

namespace vintoral {

class Light : public QWidget {
 public:
  Light(QSize size, QWidget* parent);
  void ShowColor(QColor color);
  QColor Shown() const { return color_; }
  /// From 1, as it is shown, down to 0, its ground.
  void ShowStrength(double strength);
  QSize sizeHint() const override { return size_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize size_;
  QColor color_;
  double strength_ = 1;
};

}  // namespace vintoral
