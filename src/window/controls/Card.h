// Areas of the window: a card with a hairline, the dark display of the amount.
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

}  // namespace vintoral
