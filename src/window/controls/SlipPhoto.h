// What stands for a photo on a slip.
#pragma once

#include <QWidget>

namespace vintoral {

class SlipPhoto : public QWidget {
 public:
  explicit SlipPhoto(QWidget* parent) : QWidget(parent) {}
  /// It will not be printed.
  void ShowPale(bool pale);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  bool pale_ = false;
};

}  // namespace vintoral
