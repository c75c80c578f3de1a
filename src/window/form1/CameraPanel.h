// The live picture, or the still of the ficha on display, with the arrows to its further photos.
#pragma once

#include <QWidget>

namespace vintoral {

class CaptionLabel;
class PictureView;
struct Stage;

class CameraPanel : public QWidget {
 public:
  CameraPanel(Stage& stage, QWidget* parent);
  /// The height at which the picture is four to three, as the cameras give it.
  static int HeightAt(int width);

 protected:
  void resizeEvent(QResizeEvent* event) override;

 private:
  void BuildPictures(Stage& stage);
  void BuildArrows(Stage& stage);
  QWidget* pictures_;
  CaptionLabel* message_ = nullptr;
  QWidget* arrows_;
};

}  // namespace vintoral
