// What stands where a picture would: an icon, and what there is to say of it.
#pragma once

#include <QStringList>

class QPainter;
class QRect;

namespace vintoral {

/// Icon and lines in the middle of `place`, the first line in bold. What is too long for its line is cut.
void PaintSign(QPainter& painter, const QRect& place, const QString& icon, const QStringList& lines);

}  // namespace vintoral
