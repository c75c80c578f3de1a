#include "window/form9/Form9Window.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "records/Piezas.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/Card.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12;
constexpr int kLabelWidth = 90;
constexpr int kArmWidth = 176;  // for "ACTIVAR ALERTA"
constexpr int kLetters = 48;    // as many as a value holds
constexpr std::size_t kFirstAddress = 2;

}  // namespace

Form9Window::Form9Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
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
  rows->setVerticalSpacing(theme::kGap);
  for (std::size_t i = 0; i < kValoresEnPiezas; ++i)
    BuildRow(stage, i, *rows);
  column->addStretch(1);
  auto* const arm = new PushButton(PushButton::Rank::kMain, this);
  arm->setFixedWidth(kArmWidth);
  column->addWidget(arm, 0, Qt::AlignRight);
  Bind(stage, "CmdPanico", *arm);
  resize(sizeHint());
}

void Form9Window::BuildRow(Stage& stage, std::size_t index, QGridLayout& rows) {
  QWidget* const card = rows.parentWidget();
  // What the mail says stands apart from who gets it.
  const int row = rows.rowCount() + (index == kFirstAddress ? 1 : 0);
  if (index == kFirstAddress) rows.setRowMinimumHeight(row - 1, theme::kGap);
  CaptionLabel::Look look;
  look.padding = 0;
  auto* const label = new CaptionLabel(look, card);
  label->setFixedSize(kLabelWidth, theme::kRowHeight);
  Bind(stage, {"LblCall", index}, *label);
  rows.addWidget(label, row, 0);
  auto* const text = new TextField(card);
  text->SetWidthFor(kLetters);
  Bind(stage, {"TxtCall", index}, *text);
  rows.addWidget(text, row, 1);
}

}  // namespace vintoral
