// Areas of the window: a card with a hairline, the dark display of the amount, the frame of a grid cell.
#pragma once

#include <QColor>
#include <QWidget>

namespace vintoral {

/// A ground with rounded corners.
class Card : public QWidget {
 public:
  Card(QRgb ground, QRgb line, QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QRgb ground_;
  QRgb line_;
};

/// A dark frame that lets through what it surrounds.
class CellFrame : public QWidget {
 public:
  explicit CellFrame(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace vintoral
