// A cell of a contact sheet: a photo with its number on it, or the number alone.
#pragma once

#include "window/controls/PictureView.h"

namespace vintoral {

class PhotoCell : public PictureView {
 public:
  explicit PhotoCell(QWidget* parent);

  void ShowNumber(const QString& number);
  const QString& Number() const { return number_; }
  /// It gives no answer for now.
  void Dim(bool dimmed);
  bool Dimmed() const { return dimmed_; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  QRect PictureRect() const override;

 private:
  void PaintNumber(QPainter& painter, bool onPhoto) const;
  QString number_;
  bool dimmed_ = false;
};

}  // namespace vintoral
