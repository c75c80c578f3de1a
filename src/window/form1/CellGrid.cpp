#include "window/form1/CellGrid.h"

#include <algorithm>

namespace vintoral {

CellGrid::CellGrid(const QRect& room, int columns) : columns_(columns) {
  const int rows = (kCells + columns - 1) / columns;
  const int width = std::min(room.width() / columns, room.height() / rows * 4 / 3);
  cell_ = QSize(width, width * 3 / 4);
  origin_ = room.topLeft() + QPoint((room.width() - columns * width) / 2, 0);
}

CellGrid CellGrid::Fitting(const QRect& room) {
  CellGrid best(room, 1);
  for (int columns = 2; columns <= kCells; ++columns) {
    const CellGrid next(room, columns);
    if (next.cell_.width() >= best.cell_.width()) best = next;
  }
  return best;
}

QRect CellGrid::Place(int cell) const {
  return {origin_ + QPoint(cell % columns_ * cell_.width(), cell / columns_ * cell_.height()), cell_};
}

}  // namespace vintoral
