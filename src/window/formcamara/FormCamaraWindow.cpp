#include "window/formcamara/FormCamaraWindow.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/ListField.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TitledCard.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12, kSpacing = 4;
constexpr int kLabelWidth = 150, kLimitsWidth = 110;
constexpr int kModesWidth = 280;  // for "1920 x 1080, 30 por segundo"
constexpr int kStepButton = 36;
constexpr int kValueLetters = 6;
constexpr std::size_t kMostControls = 12;

enum Column { kLabel, kLess, kValue, kMore, kLimits, kColumns };

CaptionLabel& NewLabel(Stage& stage, const ControlName& name, int width, QRgb color, QWidget* parent) {
  CaptionLabel::Look look;
  look.color = color;
  look.padding = 0;
  auto* const label = new CaptionLabel(look, parent);
  label->setFixedSize(width, theme::kRowHeight);
  Bind(stage, name, *label);
  return *label;
}

PushButton& NewStep(Stage& stage, const ControlName& name, QWidget* parent) {
  auto* const button = new PushButton(PushButton::Rank::kPlain, parent);
  button->setFixedSize(kStepButton, kStepButton);
  Bind(stage, name, *button);
  return *button;
}

}  // namespace

FormCamaraWindow::FormCamaraWindow(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures,
                                   QWidget* owner)
    : DialogWindow(form, hands, owner) {
  Stage stage{mirror_, hands, pictures};
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(theme::kGap);
  auto* const card = new Card(theme::kCard, theme::kLine, this);
  column->addWidget(card);
  auto* const rows = new QGridLayout(card);
  rows->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  rows->setHorizontalSpacing(theme::kGap);
  rows->setVerticalSpacing(kSpacing);
  BuildMode(stage, *rows);
  for (std::size_t i = 0; HasControl(i); ++i)
    BuildControl(stage, i, *rows);
  column->addStretch(1);
  BuildFoot(stage, *column);
  resize(sizeHint());
}

bool FormCamaraWindow::HasControl(std::size_t index) {
  if (index >= kMostControls) return false;
  return *mirror_.StateOf<LabelState>(ControlName("LblControl", index).text).visible;
}

void FormCamaraWindow::BuildMode(Stage& stage, QGridLayout& rows) {
  QWidget* const card = rows.parentWidget();
  CaptionLabel::Look look;
  look.pixels = theme::kStrongPixels;
  look.weight = QFont::Bold;
  look.padding = 0;
  auto* const name = new CaptionLabel(look, card);
  name->setFixedHeight(theme::kRowHeight);
  Bind(stage, "LblCamara", *name);
  rows.addWidget(name, 0, kLabel, 1, kColumns);
  rows.addWidget(&NewLabel(stage, "LblModo", kLabelWidth, theme::kText, card), 1, kLabel);
  auto* const modes = new ListField(false, card);
  modes->setMinimumWidth(kModesWidth);
  Bind(stage, "CboModo", *modes);
  rows.addWidget(modes, 1, kLess, 1, kColumns - kLess);
}

void FormCamaraWindow::BuildControl(Stage& stage, std::size_t index, QGridLayout& rows) {
  QWidget* const card = rows.parentWidget();
  const int row = rows.rowCount();
  rows.addWidget(&NewLabel(stage, {"LblControl", index}, kLabelWidth, theme::kText, card), row, kLabel);
  rows.addWidget(&NewStep(stage, {"CmdMenos", index}, card), row, kLess);
  auto* const value = new TextField(card);
  value->SetWidthFor(kValueLetters);
  Bind(stage, {"TxtControl", index}, *value);
  rows.addWidget(value, row, kValue);
  rows.addWidget(&NewStep(stage, {"CmdMas", index}, card), row, kMore);
  rows.addWidget(&NewLabel(stage, {"LblLimites", index}, kLimitsWidth, theme::kMuted, card), row, kLimits);
}

void FormCamaraWindow::BuildFoot(Stage& stage, QBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(theme::kGap);
  row->addStretch(1);
  column.addLayout(row);
  const auto add = [&](const char* name, PushButton::Rank rank) {
    auto* const button = new PushButton(rank, this);
    row->addWidget(button);
    Bind(stage, name, *button);
  };
  add("CmdGuardar", PushButton::Rank::kMain);
  add("CmdCancelar", PushButton::Rank::kPlain);
}

}  // namespace vintoral
