#include "window/controls/CellFrame.h"

#include <QPainter>
#include <QPen>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

void PaintRing(QPainter& painter, const QRectF& around, double width, QRgb color) {
  const double inset = width / 2;
  painter.setPen(QPen(QColor::fromRgb(color), width, Qt::SolidLine, Qt::SquareCap, Qt::MiterJoin));
  painter.drawRect(around.adjusted(inset, inset, -inset, -inset));
}

}  // namespace

CellFrame::CellFrame(QWidget* parent) : QWidget(parent) {
  setAttribute(Qt::WA_TransparentForMouseEvents);
}

void CellFrame::Surround(int cell) {
  cell_ = cell;
  Place();
}

void CellFrame::Place() {
  setGeometry(cell_ < 0 ? parentWidget()->rect() : placeOf(cell_));
  update();
}

void CellFrame::paintEvent(QPaintEvent* /*event*/) {
  if (cell_ < 0) return;
  constexpr double kDark = 4, kBright = 2;
  QPainter painter(this);
  PaintRing(painter, rect(), kDark, theme::kAccent);
  PaintRing(painter, QRectF(rect()).adjusted(kDark, kDark, -kDark, -kDark), kBright, theme::kField);
}

}  // namespace vintoral
