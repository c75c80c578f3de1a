#include "window/form1/StayPanel.h"

#include <QGridLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr std::size_t kExit = 0, kEntry = 1;  // of LblIndicador

}  // namespace

StayPanel::StayPanel(Stage& stage, QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {
  auto* const rows = new QGridLayout(this);
  rows->setContentsMargins(10, 8, 10, 8);
  rows->setHorizontalSpacing(6);
  rows->setVerticalSpacing(3);
  rows->setColumnStretch(1, 1);
  BuildStamp(stage, kEntry, 0, *rows);
  BuildStamp(stage, kExit, 1, *rows);
  BuildStay(stage, *rows);
}

void StayPanel::BuildStamp(Stage& stage, std::size_t sign, std::size_t row, QGridLayout& rows) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.color = theme::kAccent;
  look.padding = theme::kTextInset;
  look.sample = QStringLiteral("ENT");
  auto* const indicator = new CaptionLabel(look, this);
  rows.addWidget(indicator, static_cast<int>(row), 0);
  Bind(stage, {"LblIndicador", sign}, *indicator);

  look.pixels = theme::kStrongPixels;
  look.weight = QFont::Bold;
  look.color = theme::kText;
  look.sample = QStringLiteral("00:00  (00/00/0000)");
  auto* const stamp = new CaptionLabel(look, this);
  rows.addWidget(stamp, static_cast<int>(row), 1);
  Bind(stage, sign == kEntry ? "LblFechaEnt" : "LblFechaSal", *stamp);
}

void StayPanel::BuildStay(Stage& stage, QGridLayout& rows) {
  CaptionLabel::Look look;
  look.pixels = theme::kStrongPixels;
  look.weight = QFont::Bold;
  look.padding = theme::kTextInset;
  look.sample = QStringLiteral("000D 00H 00M");
  auto* const stay = new CaptionLabel(look, this);
  rows.addWidget(stay, 2, 1);
  Bind(stage, {"LblInfo", 1}, *stay);

  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.color = theme::kMuted;
  look.sample = QStringLiteral("TIEMPO");
  auto* const caption = new CaptionLabel(look, this);
  caption->ShowCaption(QStringLiteral("TIEMPO"));
  rows.addWidget(caption, 2, 0);
}

}  // namespace vintoral
