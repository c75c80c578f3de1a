#include "window/form1/GridPanel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/ListField.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"
#include "window/form1/CellSheet.h"

namespace vintoral {

namespace {

constexpr int kHeadRow = 34;
constexpr int kCounterWidth = 48, kMinutesWidth = 200;

CaptionLabel* NewInfo(const QString& sample, int pixels, QRgb color, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = pixels;
  look.weight = QFont::Bold;
  look.color = color;
  look.padding = 4;
  look.sample = sample;
  return new CaptionLabel(look, parent);
}

}  // namespace

GridPanel::GridPanel(Stage& stage, QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addWidget(BuildHead(stage));
  column->addWidget(new CellSheet(stage, this), 1);
}

QWidget* GridPanel::BuildHead(Stage& stage) {
  constexpr int kIcon = 22;
  auto* const head = new QWidget(this);
  head->setFixedHeight(kHeadRow);
  auto* const row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(2);
  const auto icon = [&](const char* name) {
    auto* const button =
        new IconButton(QString::fromLatin1(name), kHeadRow, kIcon, IconButton::Kind::kPlain, head);
    row->addWidget(button);
    BindPlain(stage, name, *button);
  };
  auto* const count = NewInfo(QStringLiteral("1000 (1/20)"), theme::kStrongPixels, theme::kText, head);
  row->addWidget(count);
  Bind(stage, {"LblInfo", 0}, *count);
  icon("ImgContador");
  auto* const counter = NewInfo(QStringLiteral("0000"), theme::kTextPixels, theme::kAccent, head);
  counter->setFixedWidth(kCounterWidth);
  row->addWidget(counter);
  Bind(stage, {"LblInfo", 4}, *counter);
  row->addStretch(1);
  auto* const minutes = new ListField(true, head);
  minutes->setFixedWidth(kMinutesWidth);
  minutes->ShineWhenEnabled();
  row->addWidget(minutes);
  Bind(stage, "CboMinutos", *minutes);
  icon("ImgCambiarFondo");
  return head;
}

}  // namespace vintoral
