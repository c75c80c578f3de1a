#include "window/controls/Icons.h"

#include <QHash>
#include <QPainter>
#include <QSvgRenderer>

namespace vintoral {

namespace {

QPixmap Draw(const QString& name, int pixels) {
  QSvgRenderer drawing(QStringLiteral(":/icons/%1.svg").arg(name));
  if (!drawing.isValid()) return {};
  QPixmap pixmap(pixels, pixels);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  drawing.render(&painter);
  return pixmap;
}

}  // namespace

QPixmap IconPixmap(const QString& name, int edge, qreal devicePixelRatio) {
  static QHash<std::pair<QString, int>, QPixmap> drawn;
  const int pixels = qRound(edge * devicePixelRatio);
  auto found = drawn.find({name, pixels});
  if (found == drawn.end()) {
    found = drawn.insert({name, pixels}, Draw(name, pixels));
    found->setDevicePixelRatio(devicePixelRatio);
  }
  return *found;
}

}  // namespace vintoral
