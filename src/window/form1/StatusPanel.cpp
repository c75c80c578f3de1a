#include "window/form1/StatusPanel.h"

#include <QHBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kEdge = 30, kIcon = 24;
constexpr std::size_t kIndicators = 6;

}  // namespace

StatusPanel::StatusPanel(Stage& stage, QWidget* parent) : QWidget(parent) {
  auto* const rows = new QVBoxLayout(this);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(2);
  rows->addLayout(BuildAlert(stage));
  rows->addLayout(BuildIndicators(stage));
}

QHBoxLayout* StatusPanel::BuildAlert(Stage& stage) {
  auto* const row = new QHBoxLayout;
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignRight | Qt::AlignVCenter;
  look.sample = QStringLiteral("IMPOSIBLE ENVIAR");
  auto* const mail = new CaptionLabel(look, this);
  row->addWidget(mail, 1);
  Bind(stage, {"LblInfo", 3}, *mail);
  auto* const panic =
      new IconButton(QStringLiteral("ImgPanico"), kEdge, kIcon, IconButton::Kind::kPlain, this);
  row->addWidget(panic);
  BindPlain(stage, "ImgPanico", *panic);
  return row;
}

QHBoxLayout* StatusPanel::BuildIndicators(Stage& stage) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(4);
  row->addStretch(1);
  for (std::size_t i = 0; i < kIndicators; ++i) {
    auto* const sign =
        new IconButton(QStringLiteral("ImgIndicador-%1").arg(i), kEdge, kIcon, IconButton::Kind::kSign, this);
    row->addWidget(sign);
    BindPlain(stage, {"ImgIndicador", i}, *sign);
  }
  return row;
}

}  // namespace vintoral
