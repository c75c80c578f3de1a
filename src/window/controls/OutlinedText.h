// Text that is read on any picture: bright letters within a dark line.
#pragma once

#include <QString>

class QPainter;
class QPointF;

namespace vintoral {

/// From `baseline` on, `pixels` high. Each letter is drawn once for its size: a page has two hundred.
void PaintOutlined(QPainter& painter, const QPointF& baseline, int pixels, const QString& text);

/// The point of the screen's pixels that is nearest: what is drawn there is not spread over their borders.
QPointF OnPixel(const QPainter& painter, const QPointF& point);

}  // namespace vintoral
