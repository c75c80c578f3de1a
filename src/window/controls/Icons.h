// The drawn icons that come with the program.
#pragma once

#include <QPixmap>
#include <QString>

namespace vintoral {

/// The icon `name` (its file without ".svg") at `edge` device-independent pixels. Drawn once for each size;
/// empty when there is no such icon.
QPixmap IconPixmap(const QString& name, int edge, qreal devicePixelRatio);

}  // namespace vintoral
