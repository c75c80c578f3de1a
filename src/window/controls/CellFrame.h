// The frame around a cell of a sheet: to be seen on any photo, and in nobody's way.
#pragma once

#include <QWidget>
#include <functional>

namespace vintoral {

class CellFrame : public QWidget {
 public:
  explicit CellFrame(QWidget* parent);
  /// Where a cell lies on the parent.
  std::function<QRect(int)> placeOf;

  /// -1 surrounds nothing.
  void Surround(int cell);
  /// The cells have moved.
  void Place();
  int Cell() const { return cell_; }

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  int cell_ = -1;
};

}  // namespace vintoral
