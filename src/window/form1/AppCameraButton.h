// What stands in the live picture's place while the camera is off: opens the outside camera program.
#pragma once

#include <QAbstractButton>

namespace vintoral {

class AppCameraButton : public QAbstractButton {
 public:
  explicit AppCameraButton(QWidget* parent);

 protected:
  void paintEvent(QPaintEvent* event) override;
  void enterEvent(QEnterEvent* event) override;
  void leaveEvent(QEvent* event) override;
};

}  // namespace vintoral
