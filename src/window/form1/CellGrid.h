// Where the cells of the contact sheet lie.
#pragma once

#include <QRect>

namespace vintoral {

inline constexpr int kCells = 50;

/// Columns of cells of four to three, row by row from the top left, without a gap.
class CellGrid {
 public:
  /// As large as all cells can be that they fit into `room`.
  static CellGrid Fitting(const QRect& room);

  int Columns() const { return columns_; }
  QSize Cell() const { return cell_; }
  QRect Place(int cell) const;

 private:
  CellGrid(const QRect& room, int columns);
  int columns_;
  QSize cell_;
  QPoint origin_;
};

}  // namespace vintoral
