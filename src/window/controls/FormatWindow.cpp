#include "window/controls/FormatWindow.h"

#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Hands.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/PushButton.h"
#include "window/controls/SlipPaper.h"
#include "window/controls/SlipText.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TickBox.h"
#include "window/controls/TitledCard.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12, kSideWidth = 312, kSizeWidth = 104;
constexpr int kSampleWidth = 164;  // for "Imprimir prueba"
constexpr int kFields = 5;
constexpr int kTitleBar = 40;
constexpr std::size_t kHeader = 0, kPreview = 1, kFooter = 2;  // of TxtEtiqueta
constexpr std::size_t kFormatFrame = 0, kPrinterFrame = 1;     // of FraCheck
constexpr QSize kMarker{128, 4};

}  // namespace

FormatWindow::FormatWindow(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures,
                           QWidget* owner)
    : DialogWindow(form, hands, owner), hands_(hands), ground_(new QWidget(this)) {
  Stage stage{mirror_, hands, pictures};
  BindPlain(stage, "LblFondo", *ground_);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(theme::kGap);
}

SlipPaper& FormatWindow::BuildSlip(Stage& stage, int lines, int fields) {
  auto* const card = new TitledCard(this);
  Bind(stage, {"FraCheck", kFormatFrame}, *card);
  auto* const inside = new QVBoxLayout(card);
  inside->setContentsMargins(TitledCard::kInside);
  auto* const paper = new SlipPaper(lines, card);
  inside->addWidget(paper);
  Bind(stage, {"TxtEtiqueta", kHeader}, paper->Header());
  Bind(stage, {"TxtEtiqueta", kPreview}, paper->Preview());
  Bind(stage, {"TxtEtiqueta", kFooter}, paper->Footer());
  for (int i = 0; i < kFields; ++i) {
    const ControlName name("ChkEtiqueta", static_cast<std::size_t>(i) + 1);
    paper->PutBeside(NewTick(stage, name, *paper), fields + i);
  }
  layout()->addWidget(card);
  return *paper;
}

QBoxLayout& FormatWindow::BuildPrinter(Stage& stage) {
  auto* const side = new QVBoxLayout;
  side->setSpacing(theme::kGap);
  static_cast<QBoxLayout*>(layout())->addLayout(side);
  auto* const card = new TitledCard(this);
  card->setFixedWidth(kSideWidth);
  Bind(stage, {"FraCheck", kPrinterFrame}, *card);
  auto* const inside = new QVBoxLayout(card);
  inside->setContentsMargins(TitledCard::kInside);
  inside->setSpacing(theme::kGap);
  auto* const printers = new ListField(false, card);
  inside->addWidget(printers);
  Bind(stage, "CboImpresora", *printers);
  BuildSize(stage, *card, *inside);
  side->addWidget(card);
  side->addStretch(1);
  BuildButtons(stage, *side);
  return *inside;
}

void FormatWindow::BuildSize(Stage& stage, QWidget& card, QBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  CaptionLabel::Look look;
  look.padding = 0;
  auto* const caption = new CaptionLabel(look, &card);
  row->addWidget(caption, 1);
  Bind(stage, "LblDimFuente", *caption);
  auto* const sizes = new ListField(true, &card);
  sizes->setFixedWidth(kSizeWidth);
  row->addWidget(sizes);
  Bind(stage, "CboDimFuente", *sizes);
  column.addLayout(row);
}

void FormatWindow::BuildButtons(Stage& stage, QBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(theme::kGap);
  row->addStretch(1);
  auto* const save = new PushButton(PushButton::Rank::kMain, this);
  row->addWidget(save);
  Bind(stage, "PctBoton", *save);
  auto* const sample = new PushButton(PushButton::Rank::kPlain, this);
  sample->setFixedWidth(kSampleWidth);
  row->addWidget(sample);
  Bind(stage, "CmdPrueba", *sample);
  column.addLayout(row);
  auto* const below = new QHBoxLayout;
  auto* const marker = new Light(kMarker, this);
  below->addStretch(1);
  below->addWidget(marker);
  below->addSpacing(kSampleWidth + theme::kGap);
  Bind(stage, "PctSeleccion", *marker, QColor::fromRgb(theme::kAccent));
  column.addLayout(below);
}

void FormatWindow::TakeUsualSize() {
  const QSize usual = layout()->sizeHint();
  const int room = screen()->availableSize().height() - kTitleBar;
  resize(usual.width(), std::clamp(room, minimumSizeHint().height(), usual.height()));
}

TickBox& FormatWindow::NewTick(Stage& stage, const ControlName& name, QWidget& parent) {
  auto* const tick = new TickBox(&parent);
  Bind(stage, name, *tick);
  return *tick;
}

TextField& FormatWindow::NewField(Stage& stage, const ControlName& name, SlipPaper& paper) {
  auto* const field = new TextField(&paper);
  theme::CoverGround(*field, theme::kField);
  Bind(stage, name, *field);
  return *field;
}

void FormatWindow::resizeEvent(QResizeEvent* event) {
  DialogWindow::resizeEvent(event);
  ground_->setGeometry(rect());
}

// The pointer leaves by way of nothing that would tell it. What the station makes of it may wait in a box.
void FormatWindow::leaveEvent(QEvent* event) {
  DialogWindow::leaveEvent(event);
  QMetaObject::invokeMethod(
      this, [this] { hands_.Leave(mirror_.Snapshot().name); }, Qt::QueuedConnection);
}

}  // namespace vintoral
