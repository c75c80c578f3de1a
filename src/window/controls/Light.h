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
  QSize sizeHint() const override { return size_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QSize size_;
  QColor color_;
};

}  // namespace vintoral
