#include "window/form1/FieldsPanel.h"

#include <QGridLayout>
#include <QPainter>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/ListField.h"
#include "window/controls/Mirror.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TickBox.h"
#include "window/controls/Views.h"
#include "window/form1/AcceptedSign.h"

namespace vintoral {

namespace {

constexpr std::size_t kFields = 6;
// One row is free for the options while they are a band.
constexpr int kNumberRow = 0, kBandRow = 1, kFirstRow = kBandRow + 1;
constexpr int kCategoryRow = kFirstRow + kFields - 1, kOptionsRow = kCategoryRow + 1;
constexpr int kLabels = 0, kBoxes = 1, kTools = 2, kColumns = 3;
// Of the options.
constexpr int kCode = 0, kSign = 1, kSpace = 2, kValidity = 3;
constexpr int kOptionGap = 4;
constexpr Qt::Alignment kLeft = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int kMargin = 10;

int RowOf(std::size_t field) {
  return field == 0 ? kNumberRow : kFirstRow + static_cast<int>(field) - 1;
}

TextField* NewField(QWidget* parent) {
  auto* const field = new TextField(parent);
  field->setFont(theme::TextFont(theme::kTextPixels));
  field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
  return field;
}

/// What a pass has left can't be changed, but is what everybody reads.
void StayLegibleWhenClosed(QWidget& widget) {
  QPalette palette = widget.palette();
  for (const QPalette::ColorRole role : {QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, QColor::fromRgb(theme::kText));
  widget.setPalette(palette);
}

/// Large, in one pitch, and wide enough for a whole code. The font is loaded only by who works with codes.
void BeCode(TextField& field) {
  constexpr int kCodeLength = 12;
  QFont font = theme::FixedFont({QStringLiteral("Liberation Mono")}, theme::kCodePixels);
  font.setWeight(QFont::Bold);
  field.setFont(font);
  field.setFixedWidth(field.fontMetrics().horizontalAdvance(QString(kCodeLength, u'0')) +
                      2 * theme::kTextInset + 2);
}

}  // namespace

FieldsPanel::FieldsPanel(Stage& stage, QWidget* parent)
    : Card(theme::kCard, theme::kLine, parent),
      rows_(new QGridLayout(this)),
      options_(new QWidget(this)),
      inOptions_(new QGridLayout(options_)) {
  rows_->setContentsMargins(kMargin, 9, kMargin, 9);
  rows_->setHorizontalSpacing(6);
  rows_->setVerticalSpacing(4);
  rows_->setColumnStretch(kTools, 1);
  for (std::size_t i = 0; i < kFields; ++i) {
    BuildLabel(stage, i);
    BuildField(stage, i);
  }
  BuildNumberTools(stage);
  BuildCategory(stage);
  BuildOptions(stage);
  FollowMode(stage);
}

void FieldsPanel::BuildLabel(Stage& stage, std::size_t index) {
  auto* const panel = new QWidget(this);
  panel->setFixedWidth(theme::kLabelWidth);
  auto* const inside = new QHBoxLayout(panel);
  inside->setContentsMargins(0, 0, 0, 0);
  auto* const label = new TextField(panel);
  label->setFont(theme::TextFont(theme::kCaptionPixels, QFont::Bold));
  label->BePlainWhenLocked();
  inside->addWidget(label);
  rows_->addWidget(panel, RowOf(index), kLabels);
  BindPlain(stage, {"PctEtiqueta", index}, *panel);
  Bind(stage, {"TxtEtiqueta", index}, *label);
}

void FieldsPanel::BuildField(Stage& stage, std::size_t index) {
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
  rows_->addWidget(row, RowOf(index), kBoxes, 1, number ? 1 : 2);
  rows_->addWidget(field, RowOf(index), kBoxes, 1, number ? 1 : 2);
  Bind(stage, {"LblCampo", index}, *row);
  Bind(stage, {"TxtCampo", index}, *field);
}

void FieldsPanel::BuildNumberTools(Stage& stage) {
  constexpr int kEdge = 28, kIcon = 22;
  // The one of the codes is worked all day, and says what it does.
  auto* const number =
      new IconButton(QStringLiteral("CmdNumeroFicha"), kEdge, kIcon, IconButton::Kind::kTool, this);
  auto* const code =
      new IconButton(QStringLiteral("CmdBarCode"), kEdge, kIcon, IconButton::Kind::kTool, this);
  code->ShowWord(QStringLiteral("Nuevo"));
  for (IconButton* const button : {number, code})
    rows_->addWidget(button, kNumberRow, kTools, kLeft);
  BindPlain(stage, "CmdNumeroFicha", *number);
  BindPlain(stage, "CmdBarCode", *code);
}

void FieldsPanel::BuildCategory(Stage& stage) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.padding = theme::kTextInset;
  auto* const label = new CaptionLabel(look, this);
  label->setFixedWidth(theme::kLabelWidth);
  rows_->addWidget(label, kCategoryRow, kLabels);
  Bind(stage, "LblCategoria", *label);
  for (const std::size_t list : {0U, 1U}) {
    auto* const field = new ListField(false, this);
    field->setFont(theme::TextFont(theme::kTextPixels));
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    rows_->addWidget(field, kCategoryRow, kBoxes, 1, 2);
    Bind(stage, {"CboTarifa", list}, *field);
  }
}

void FieldsPanel::BuildOptions(Stage& stage) {
  inOptions_->setContentsMargins(0, 0, 0, 0);
  inOptions_->setHorizontalSpacing(kOptionGap);
  inOptions_->setColumnStretch(kSpace, 1);
  BuildCode(stage);
  BuildValidity(stage);
  invoice_ = new TickBox(options_);
  invoice_->setText(QStringLiteral("Factura"));
  Bind(stage, "ChkFactura", *invoice_);
  inOptions_->addWidget(invoice_, 0, kCode, kLeft);
  onBand_.append(invoice_);
  rows_->addWidget(options_, kOptionsRow, kLabels, 1, kColumns);
}

void FieldsPanel::BuildCode(Stage& stage) {
  code_ = NewField(options_);
  auto* const sign = new AcceptedSign(options_);
  inOptions_->addWidget(code_, 0, kCode);
  inOptions_->addWidget(sign, 0, kSign);
  onBand_.append({code_, sign});
  Bind(stage, "TxtBarCode", *code_);
  Bind(stage, "TxtBarCodeOK", *sign);
}

void FieldsPanel::BuildValidity(Stage& stage) {
  constexpr int kCountDigits = 3, kUnitWidth = 96;
  auto* const place = new QWidget(options_);
  auto* const row = new QHBoxLayout(place);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(kOptionGap);
  auto* const count = NewField(place);
  count->setFont(theme::TextFont(theme::kTextPixels, QFont::Bold));
  count->SetWidthFor(kCountDigits);
  auto* const unit = new ListField(false, place);
  unit->setFont(theme::TextFont(theme::kTextPixels));
  unit->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Expanding);
  unit->setFixedWidth(kUnitWidth);
  for (QWidget* const box : {static_cast<QWidget*>(count), static_cast<QWidget*>(unit)}) {
    StayLegibleWhenClosed(*box);
    row->addWidget(box);
  }
  inOptions_->addWidget(place, 0, kValidity);
  onBand_.append({count, unit});
  Bind(stage, "TxtMaxEntrada", *count);
  Bind(stage, "LstModEntrada", *unit);
}

void FieldsPanel::FollowMode(Stage& stage) {
  const auto& generator = stage.mirror.StateOf<ButtonState>("CmdBarCode");
  stage.mirror.AfterViews([this, &generator] {
    if (*generator.visible != codes_) ShowCodes(*generator.visible);
  });
}

void FieldsPanel::ShowCodes(bool codes) {
  codes_ = codes;
  if (codes) BeCode(*code_);
  rows_->addWidget(options_, codes ? kBandRow : kOptionsRow, kLabels, 1, kColumns);
  // A ticket that is asked for an invoice has been sold: the validity's place is free.
  inOptions_->addWidget(invoice_, 0, codes ? kValidity : kCode, kLeft);
  for (QWidget* const widget : onBand_)
    theme::CoverGround(*widget, codes ? theme::kAccentPale : theme::kCard);
  update();
}

void FieldsPanel::paintEvent(QPaintEvent* event) {
  Card::paintEvent(event);
  if (!codes_) return;
  QPainter painter(this);
  constexpr int kAbove = 2;
  painter.fillRect(QRect(1, options_->y() - kAbove, width() - 2, options_->height() + 2 * kAbove),
                   QColor::fromRgb(theme::kAccentPale));
}

}  // namespace vintoral
