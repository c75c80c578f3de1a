#include "window/controls/OutlinedText.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>
#include <QPixmap>
#include <algorithm>
#include <cmath>
#include <map>
#include <tuple>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

using LetterKey = std::tuple<char16_t, int, double>;  // letter, pixels, those of the screen in each

struct Letter {
  QPixmap line, face;
  QPointF corner;  ///< from the start of its baseline to that of the pixmaps
  double advance = 0;
};

/// So large that every letter of the font has its baseline at the same height.
QRect Box(const QFontMetrics& metrics, QChar letter, int line) {
  return {-line, -metrics.ascent() - line, metrics.horizontalAdvance(letter) + 2 * line,
          metrics.height() + 2 * line};
}

QPixmap Transparent(const QSize& size, double ratio) {
  QPixmap pixmap((QSizeF(size) * ratio).toSize());
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  return pixmap;
}

Letter Draw(QChar letter, int pixels, double ratio) {
  const QFont font = theme::TextFont(pixels, QFont::Bold);
  const QFontMetrics metrics(font);
  const double line = std::max(3.0, pixels / 6.0);
  const QRect box = Box(metrics, letter, static_cast<int>(std::ceil(line)));
  QPainterPath shape;
  shape.addText(-box.left(), -box.top(), font, letter);
  Letter drawn{Transparent(box.size(), ratio), Transparent(box.size(), ratio), box.topLeft(),
               std::round(metrics.horizontalAdvance(letter) * ratio) / ratio};
  QPainter lines(&drawn.line), faces(&drawn.face);
  lines.setRenderHint(QPainter::Antialiasing);
  faces.setRenderHint(QPainter::Antialiasing);
  lines.strokePath(shape,
                   QPen(QColor::fromRgb(theme::kDisplay), line, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  faces.fillPath(shape, QColor::fromRgb(theme::kDisplayText));
  return drawn;
}

const Letter& Drawn(QChar letter, int pixels, double ratio) {
  static std::map<LetterKey, Letter> letters;
  const LetterKey key{letter.unicode(), pixels, ratio};
  auto found = letters.find(key);
  if (found == letters.end()) found = letters.emplace(key, Draw(letter, pixels, ratio)).first;
  return found->second;
}

}  // namespace

QPointF OnPixel(const QPainter& painter, const QPointF& point) {
  const QTransform device = painter.deviceTransform();
  return device.inverted().map(QPointF(device.map(point).toPoint()));
}

void PaintOutlined(QPainter& painter, const QPointF& baseline, int pixels, const QString& text) {
  const double ratio = painter.device()->devicePixelRatio();
  // No line may lie over the letter before it.
  for (const auto layer : {&Letter::line, &Letter::face}) {
    QPointF at = baseline;
    for (const QChar each : text) {
      const Letter& letter = Drawn(each, pixels, ratio);
      painter.drawPixmap(OnPixel(painter, at + letter.corner), letter.*layer);
      at.rx() += letter.advance;
    }
  }
}

}  // namespace vintoral
