#include "window/form1/ValuePanel.h"

#include <QGridLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

CaptionLabel* NewCaption(const QString& text, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.color = theme::kDisplayMuted;
  look.padding = 2;
  look.sample = text;
  auto* const caption = new CaptionLabel(look, parent);
  caption->ShowCaption(text);
  return caption;
}

CaptionLabel* NewAmount(int pixels, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = pixels;
  look.weight = QFont::Bold;
  look.color = theme::kDisplayText;
  look.alignment = Qt::AlignRight | Qt::AlignVCenter;
  look.padding = 4;
  look.sample = QStringLiteral("0000000");
  return new CaptionLabel(look, parent);
}

}  // namespace

ValuePanel::ValuePanel(Stage& stage, QWidget* parent) : Card(theme::kDisplay, theme::kDisplay, parent) {
  auto* const rows = new QGridLayout(this);
  rows->setContentsMargins(14, 8, 14, 10);
  rows->setHorizontalSpacing(10);
  rows->setVerticalSpacing(2);
  rows->setColumnStretch(0, 1);
  rows->setColumnStretch(1, 1);
  rows->setRowStretch(1, 1);
  BuildValue(stage, *rows);
  BuildCash(stage, *rows);
  BuildChange(stage, *rows);
}

void ValuePanel::BuildValue(Stage& stage, QGridLayout& rows) {
  auto* const value = NewAmount(theme::kValuePixels, this);
  rows.addWidget(NewCaption(QStringLiteral("VALOR"), this), 0, 0, 1, 2);
  rows.addWidget(value, 1, 0, 1, 2);
  Bind(stage, "LblValor", *value);
}

void ValuePanel::BuildCash(Stage& stage, QGridLayout& rows) {
  auto* const cash = new TextField(this);
  cash->setFont(theme::TextFont(theme::kAmountPixels, QFont::Bold));
  cash->setAlignment(Qt::AlignRight);
  cash->setMinimumHeight(34);
  theme::CoverGround(*cash, theme::kDisplay);
  rows.addWidget(NewCaption(QStringLiteral("EFECTIVO"), this), 2, 0);
  rows.addWidget(cash, 3, 0);
  Bind(stage, "TxtEfectivo", *cash);
}

void ValuePanel::BuildChange(Stage& stage, QGridLayout& rows) {
  auto* const change = NewAmount(theme::kAmountPixels, this);
  rows.addWidget(NewCaption(QStringLiteral("CAMBIO"), this), 2, 1);
  rows.addWidget(change, 3, 1);
  Bind(stage, "LblCambio", *change);
}

}  // namespace vintoral
