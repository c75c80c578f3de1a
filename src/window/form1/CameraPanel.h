// The live picture, or the still of the ficha on display, with the arrows to its further photos and the
// buttons that take some.
#pragma once

#include <QWidget>

namespace vintoral {

class Camera;
class CaptionLabel;
struct Stage;

class CameraPanel : public QWidget {
 public:
  CameraPanel(Stage& stage, Camera& camera, QWidget* parent);
  /// The height at which the picture is four to three, as the cameras give it.
  static int HeightAt(int width);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildPictures(Stage& stage, Camera& camera);
  void BuildArrows(Stage& stage);
  QWidget* pictures_;
  CaptionLabel* message_ = nullptr;
  QWidget* arrows_;
  CaptionLabel* place_ = nullptr;
};

}  // namespace vintoral
