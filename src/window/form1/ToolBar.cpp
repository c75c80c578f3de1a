#include "window/form1/ToolBar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <algorithm>
#include <array>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Card.h"
#include "window/controls/IconButton.h"
#include "window/controls/Light.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kIconEdge = 28;
constexpr int kButtonGap = 4, kGroupGap = 14;

}  // namespace

ToolBar::ToolBar(Stage& stage, QWidget* parent) : QWidget(parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::kGap, 6, theme::kGap, 7);
  row->setSpacing(kButtonGap);
  BuildGroup(stage, {5, 6, 11}, *row);   // the ficha
  BuildGroup(stage, {4, 3}, *row);       // search and print
  BuildGroup(stage, {1, 2}, *row);       // pages
  BuildGroup(stage, {7, 8, 9}, *row);    // monitors
  BuildLights(stage, *row);              // what is on
  BuildGroup(stage, {10, 14}, *row);     // tickets and invoices
  BuildGroup(stage, {12, 13, 0}, *row);  // extras, menu, camera
  row->addStretch(1);
  BuildLink(stage, *row);
}

void ToolBar::BuildGroup(Stage& stage, std::initializer_list<std::size_t> buttons, QHBoxLayout& row) {
  for (const std::size_t index : buttons) {
    auto* const button = new IconButton(QStringLiteral("PctBoton-%1").arg(index), theme::kToolButton,
                                        kIconEdge, IconButton::Kind::kTool, this);
    row.addWidget(button);
    places_.push_back(button);
    Bind(stage, {"PctBoton", index}, *button);
  }
  row.addSpacing(kGroupGap - kButtonGap);
}

void ToolBar::BuildLights(Stage& stage, QHBoxLayout& row) {
  constexpr std::array<QRgb, 5> kColors = {0xFF2E9E5B, 0xFFE0A020, 0xFFC8503C, 0xFF7A5AA6, 0xFF1787BE};
  auto* const lights = new QWidget(this);
  auto* const column = new QHBoxLayout(lights);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(5);
  for (std::size_t i = 0; i < kColors.size(); ++i) {
    auto* const light = new Light(QSize(8, 22), lights);
    column->addWidget(light);
    places_.push_back(light);
    Bind(stage, {"PctBuscar", i}, *light, QColor::fromRgb(kColors[i]));
  }
  row.addWidget(lights);
  row.addSpacing(kGroupGap - kButtonGap);
}

void ToolBar::BuildLink(Stage& stage, QHBoxLayout& row) {
  CaptionLabel::Look look;
  look.pixels = theme::kStrongPixels;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignRight | Qt::AlignVCenter;
  look.sample = QStringLiteral("P00");
  auto* const station = new CaptionLabel(look, this);
  row.addWidget(station);
  Bind(stage, {"LblInfo", 2}, *station);
  for (const std::size_t bar : {0U, 1U, 2U}) {
    auto* const face = new Light(QSize(10, 34), this);
    row.addWidget(face);
    Bind(stage, {"LblConexion", bar}, *face);
  }
}

void ToolBar::PaintWells(QPainter& painter) const {
  // A button or a light that is not there now leaves a faint mark: the row has no holes.
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(QColor::fromRgb(theme::kWindow));
  for (const QWidget* const place : places_) {
    const double radius = std::min(theme::kRadius, std::min(place->width(), place->height()) / 2.0);
    painter.drawRoundedRect(QRectF(place->mapTo(this, QPointF(0, 0)), QSizeF(place->size())), radius, radius);
  }
}

void ToolBar::focusInEvent(QFocusEvent* /*event*/) {
  update();
}

void ToolBar::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

void ToolBar::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.fillRect(rect(), QColor::fromRgb(theme::kCard));
  painter.fillRect(0, height() - 1, width(), 1, QColor::fromRgb(theme::kLine));
  PaintWells(painter);
  if (hasFocus()) painter.fillRect(0, height() - 3, width(), 3, QColor::fromRgb(theme::kAccent));
}

}  // namespace vintoral
