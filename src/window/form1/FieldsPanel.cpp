#include "window/form1/FieldsPanel.h"

#include <QCheckBox>
#include <QGridLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/ListField.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr std::size_t kFields = 6;
constexpr int kCategoryRow = kFields, kOptionsRow = kCategoryRow + 1;

TextField* NewField(QWidget* parent) {
  auto* const field = new TextField(parent);
  field->setFont(theme::TextFont(theme::kTextPixels));
  field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  return field;
}

}  // namespace

FieldsPanel::FieldsPanel(Stage& stage, QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {
  auto* const rows = new QGridLayout(this);
  rows->setContentsMargins(10, 9, 10, 9);
  rows->setHorizontalSpacing(6);
  rows->setVerticalSpacing(4);
  rows->setColumnStretch(2, 1);
  for (std::size_t i = 0; i < kFields; ++i) {
    BuildLabel(stage, i, *rows);
    BuildField(stage, i, *rows);
  }
  BuildNumberTools(stage, *rows);
  BuildCategory(stage, *rows);
  BuildOptions(stage, *rows);
}

void FieldsPanel::BuildLabel(Stage& stage, std::size_t index, QGridLayout& rows) {
  auto* const panel = new QWidget(this);
  panel->setFixedWidth(theme::kLabelWidth);
  auto* const inside = new QHBoxLayout(panel);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* const label = new TextField(panel);
  label->setFont(theme::TextFont(theme::kCaptionPixels, QFont::Bold));
  label->BePlainWhenLocked();
  inside->addWidget(label);
  rows.addWidget(panel, static_cast<int>(index), 0);
  BindPlain(stage, {"PctEtiqueta", index}, *panel);
  Bind(stage, {"TxtEtiqueta", index}, *label);
}

void FieldsPanel::BuildField(Stage& stage, std::size_t index, QGridLayout& rows) {
  // The record's row and the entry box share one place: the box lies above.
  const bool number = index == 0;
  CaptionLabel::Look look;
  look.pixels = number ? theme::kStrongPixels : theme::kTextPixels;
  look.weight = QFont::Bold;
  look.outlined = true;
  look.padding = theme::kTextInset;
  auto* const row = new CaptionLabel(look, this);
  auto* const field = NewField(this);
  if (number) {
    constexpr int kNumberDigits = 8;
    field->setFont(theme::TextFont(theme::kStrongPixels, QFont::Bold));
    field->SetWidthFor(kNumberDigits);
    row->setFixedWidth(field->width());
  }
  rows.addWidget(row, static_cast<int>(index), 1, 1, number ? 1 : 2);
  rows.addWidget(field, static_cast<int>(index), 1, 1, number ? 1 : 2);
  Bind(stage, {"LblCampo", index}, *row);
  Bind(stage, {"TxtCampo", index}, *field);
}

void FieldsPanel::BuildNumberTools(Stage& stage, QGridLayout& rows) {
  constexpr int kEdge = 28, kIcon = 22;
  auto* const place = new QWidget(this);
  auto* const tools = new QGridLayout(place);
  tools->setContentsMargins(0, 0, 0, 0);
  tools->setHorizontalSpacing(6);
  const auto button = [&](const char* name) {
    auto* const face =
        new IconButton(QString::fromLatin1(name), kEdge, kIcon, IconButton::Kind::kTool, place);
    tools->addWidget(face, 0, 0);
    BindPlain(stage, name, *face);
  };
  button("CmdNumeroFicha");
  button("CmdBarCode");
  for (const char* const code : {"TxtBarCode", "TxtBarCodeOK"}) {
    auto* const field = NewField(place);
    tools->addWidget(field, 0, 1);
    Bind(stage, code, *field);
  }
  rows.addWidget(place, 0, 2);
}

void FieldsPanel::BuildCategory(Stage& stage, QGridLayout& rows) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.padding = theme::kTextInset;
  auto* const label = new CaptionLabel(look, this);
  label->setFixedWidth(theme::kLabelWidth);
  rows.addWidget(label, kCategoryRow, 0);
  Bind(stage, "LblCategoria", *label);
  for (const std::size_t list : {0U, 1U}) {
    auto* const field = new ListField(false, this);
    field->setFont(theme::TextFont(theme::kTextPixels));
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rows.addWidget(field, kCategoryRow, 1, 1, 2);
    Bind(stage, {"CboTarifa", list}, *field);
  }
}

void FieldsPanel::BuildOptions(Stage& stage, QGridLayout& rows) {
  auto* const invoice = new QCheckBox(QStringLiteral("Factura"), this);
  invoice->setFocusPolicy(Qt::NoFocus);
  rows.addWidget(invoice, kOptionsRow, 0);
  Bind(stage, "ChkFactura", *invoice);

  auto* const validity = new QWidget(this);
  auto* const inside = new QHBoxLayout(validity);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* const count = new TextField(validity);
  constexpr int kCountDigits = 3;
  count->SetWidthFor(kCountDigits);
  auto* const unit = new ListField(false, validity);
  inside->addStretch(1);
  inside->addWidget(count);
  inside->addWidget(unit);
  rows.addWidget(validity, kOptionsRow, 1, 1, 2);
  Bind(stage, "TxtMaxEntrada", *count);
  Bind(stage, "LstModEntrada", *unit);
}

}  // namespace vintoral
