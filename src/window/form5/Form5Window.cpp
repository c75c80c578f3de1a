#include "window/form5/Form5Window.h"

#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/PushButton.h"
#include "window/controls/RowList.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12;
constexpr int kRowHeight = 34, kTitleHeight = 36;
constexpr QSize kButtonSize{210, 42};
constexpr std::size_t kButtons = 7;

}  // namespace

Form5Window::Form5Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : DialogWindow(form, hands, owner) {
  Stage stage{mirror_, hands, pictures};
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(theme::kGap);
  column->setSizeConstraint(QLayout::SetFixedSize);
  CaptionLabel::Look look;
  look.pixels = theme::kStrongPixels;
  look.weight = QFont::Bold;
  look.padding = 0;
  auto* const title = new CaptionLabel(look, this);
  title->setFixedHeight(kTitleHeight);
  Bind(stage, "LblMenu", *title);
  column->addWidget(title);
  auto* const row = new QHBoxLayout;
  row->setSpacing(2 * theme::kGap);
  column->addLayout(row);
  BuildList(stage, *row);
  BuildButtons(stage, *row);
}

void Form5Window::BuildList(Stage& stage, QBoxLayout& row) {
  auto* const list = new RowList(kRowHeight, this);
  Bind(stage, "LstMenu", *list);
  row.addWidget(list);
}

void Form5Window::BuildButtons(Stage& stage, QBoxLayout& row) {
  auto* const column = new QVBoxLayout;
  column->setSpacing(theme::kGap);
  row.addLayout(column);
  for (std::size_t i = 0; i < kButtons; ++i) {
    auto* const button = new PushButton(PushButton::Rank::kPlain, this);
    button->setFixedSize(kButtonSize);
    Bind(stage, {"CmdMenu", i}, *button);
    column->addWidget(button);
  }
  column->addStretch(1);
}

}  // namespace vintoral
