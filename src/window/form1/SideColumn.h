// The right column: the live picture, the registered user below it, and the signs at its foot.
#pragma once

#include <QWidget>

namespace vintoral {

class Camera;
class CameraPanel;
class StatusPanel;
class UserCard;
struct Stage;

class SideColumn : public QWidget {
 public:
  SideColumn(Stage& stage, Camera& camera, QWidget* parent);
  QSize minimumSizeHint() const override;

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  CameraPanel* camera_;
  UserCard* user_;
  StatusPanel* status_;
};

}  // namespace vintoral
