#include "window/controls/Theme.h"

#include <QApplication>
#include <QFontDatabase>
#include <QPainter>
#include <QPalette>
#include <QPen>
#include <QWidget>
#include <algorithm>

#include "window/controls/CaretRest.h"
#include "window/controls/Style.h"

namespace vintoral::theme {

QFont TextFont(int pixels, QFont::Weight weight) {
  QFont font = QApplication::font();
  font.setPixelSize(pixels);
  font.setWeight(weight);
  return font;
}

QFont FixedFont(const QStringList& families, int pixels) {
  const auto found = std::find_if(families.begin(), families.end(),
                                  [](const QString& family) { return QFontDatabase::hasFamily(family); });
  QFont font = found == families.end() ? QFontDatabase::systemFont(QFontDatabase::FixedFont) : QFont(*found);
  font.setPixelSize(pixels);
  return font;
}

QColor FromModel(std::int32_t color) {
  return QColor(color & 0xFF, (color >> 8) & 0xFF, (color >> 16) & 0xFF);
}

void CoverGround(QWidget& widget, QRgb ground) {
  QPalette palette = widget.palette();
  palette.setColor(QPalette::Window, QColor::fromRgb(ground));
  widget.setPalette(palette);
  widget.setBackgroundRole(QPalette::Window);
  widget.setAutoFillBackground(true);
}

void PaintFocusRing(QPainter& painter, const QRectF& around, bool onDark) {
  const double width = onDark ? 3 : 2;
  painter.setPen(QPen(QColor::fromRgb(onDark ? kAccentBright : kAccent), width));
  painter.setBrush(Qt::NoBrush);
  painter.drawRoundedRect(around.adjusted(width / 2, width / 2, -width / 2, -width / 2), kRadius, kRadius);
}

namespace {

QPalette StationPalette() {
  QPalette palette;
  palette.setColor(QPalette::Window, QColor::fromRgb(kWindow));
  palette.setColor(QPalette::WindowText, QColor::fromRgb(kText));
  palette.setColor(QPalette::Base, QColor::fromRgb(kField));
  palette.setColor(QPalette::AlternateBase, QColor::fromRgb(kCard));
  palette.setColor(QPalette::Text, QColor::fromRgb(kText));
  palette.setColor(QPalette::Button, QColor::fromRgb(kCard));
  palette.setColor(QPalette::ButtonText, QColor::fromRgb(kText));
  palette.setColor(QPalette::Highlight, QColor::fromRgb(kAccent));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::ToolTipBase, QColor::fromRgb(kDisplay));
  palette.setColor(QPalette::ToolTipText, QColor::fromRgb(kDisplayText));
  palette.setColor(QPalette::Mid, QColor::fromRgb(kLine));
  palette.setColor(QPalette::Disabled, QPalette::Text, QColor::fromRgb(kMuted));
  palette.setColor(QPalette::Disabled, QPalette::ButtonText, QColor::fromRgb(kMuted));
  palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor::fromRgb(kMuted));
  return palette;
}

}  // namespace

void Apply(QApplication& application) {
  // The application owns both.
  application.setStyle(new Style);
  new CaretRest(&application);
  application.setPalette(StationPalette());
  application.setFont(TextFont(kTextPixels));
}

}  // namespace vintoral::theme
