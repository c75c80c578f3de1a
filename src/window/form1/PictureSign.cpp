#include "window/form1/PictureSign.h"

#include <QFontMetrics>
#include <QPainter>
#include <algorithm>

#include "window/controls/Icons.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kLeastIcon = 28, kMostIcon = 96;
constexpr int kLine = 22, kInset = 8;

void PaintLine(QPainter& painter, const QRect& place, const QString& line, bool first) {
  const QFont font = theme::TextFont(first ? theme::kTextPixels : theme::kCaptionPixels,
                                     first ? QFont::Bold : QFont::Normal);
  painter.setFont(font);
  painter.setPen(QColor::fromRgb(theme::kMuted));
  painter.drawText(place, Qt::AlignCenter | Qt::TextSingleLine,
                   QFontMetrics(font).elidedText(line, Qt::ElideRight, place.width()));
}

}  // namespace

void PaintSign(QPainter& painter, const QRect& place, const QString& icon, const QStringList& lines) {
  const int edge = std::clamp(std::min(place.width(), place.height()) / 4, kLeastIcon, kMostIcon);
  const int height = edge + (lines.isEmpty() ? 0 : kInset + kLine * static_cast<int>(lines.size()));
  int top = place.center().y() - height / 2;
  painter.drawPixmap(QPoint(place.center().x() - edge / 2, top),
                     IconPixmap(icon, edge, painter.device()->devicePixelRatio()));
  top += edge + kInset;
  for (const QString& line : lines) {
    PaintLine(painter, {place.left() + kInset, top, place.width() - 2 * kInset, kLine}, line,
              line == lines.front());
    top += kLine;
  }
}

}  // namespace vintoral
