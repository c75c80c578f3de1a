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
  int heightForWidth(int width) const override;
  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

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
