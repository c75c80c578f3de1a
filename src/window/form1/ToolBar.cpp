#include "window/form1/ToolBar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>
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
constexpr QSize kLight{36, 6};
constexpr int kLightGap = 2;

/// A light lies under the button that turns it on.
struct LightOf {
  std::size_t button;
  QRgb color;
};
constexpr std::array kLights = {LightOf{7, 0xFF2E9E5B}, LightOf{8, 0xFFE0A020}, LightOf{9, 0xFFC8503C},
                                LightOf{3, 0xFF7A5AA6}, LightOf{4, 0xFF1787BE}};

}  // namespace

ToolBar::ToolBar(Stage& stage, QWidget* parent) : QWidget(parent) {
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(theme::kGap, 5, theme::kGap, 3);
  row->setSpacing(kButtonGap);
  BuildGroup(stage, {5, 6, 11}, *row);   // the ficha
  BuildGroup(stage, {4, 3}, *row);       // search and print
  BuildGroup(stage, {1, 2}, *row);       // pages
  BuildGroup(stage, {7, 8, 9}, *row);    // monitors
  BuildGroup(stage, {10, 14}, *row);     // tickets and invoices
  BuildGroup(stage, {12, 13, 0}, *row);  // extras, menu, camera
  row->addStretch(1);
  BuildLink(stage, *row);
}

void ToolBar::BuildGroup(Stage& stage, std::initializer_list<std::size_t> buttons, QHBoxLayout& row) {
  for (const std::size_t index : buttons) {
    auto* const button = new IconButton(QStringLiteral("PctBoton-%1").arg(index), theme::kToolButton,
                                        kIconEdge, IconButton::Kind::kTool, this);
    auto* const column = new QVBoxLayout;
    column->setSpacing(kLightGap);
    column->addWidget(button);
    BuildLight(stage, index, *column);
    row.addLayout(column);
    places_.push_back(button);
    Bind(stage, {"PctBoton", index}, *button);
  }
  row.addSpacing(kGroupGap - kButtonGap);
}

void ToolBar::BuildLight(Stage& stage, std::size_t button, QVBoxLayout& column) {
  const auto lit = std::find_if(kLights.begin(), kLights.end(),
                                [&](const LightOf& each) { return each.button == button; });
  if (lit == kLights.end()) return column.addSpacing(kLight.height() + kLightGap);
  auto* const light = new Light(kLight, this);
  column.addWidget(light, 0, Qt::AlignHCenter);
  places_.push_back(light);
  Bind(stage, {"PctBuscar", static_cast<std::size_t>(lit - kLights.begin())}, *light,
       QColor::fromRgb(lit->color));
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
    bars_.push_back(face);
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
