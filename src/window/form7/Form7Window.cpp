#include "window/form7/Form7Window.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Text.h"
#include "window/controls/Theme.h"
#include "window/controls/TickList.h"
#include "window/controls/Views.h"
#include "window/form7/KeypadKey.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12;
constexpr int kTabHeight = 36, kRowHeight = 23;
constexpr std::size_t kTabs = 2;

CaptionLabel* NewTab(const Stage& stage, const ControlName& name, QWidget* parent) {
  CaptionLabel::Look look;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignCenter;
  look.padding = 16;
  look.sample = ToQString(*stage.mirror.StateOf<LabelState>(name.text).caption);
  look.outlined = true;
  auto* const tab = new CaptionLabel(look, parent);
  tab->setFixedSize(tab->sizeHint().width(), kTabHeight);
  tab->setCursor(Qt::PointingHandCursor);
  return tab;
}

}  // namespace

Form7Window::Form7Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : DialogWindow(form, hands, owner), title_(&mirror_.StateOf<LabelState>("LblTitulo")) {
  Stage stage{mirror_, hands, pictures};
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(theme::kGap);
  column->setSizeConstraint(QLayout::SetFixedSize);
  column->addWidget(panel_ = BuildPanel(stage));
  column->addWidget(BuildKeypad(stage));
  mirror_.AfterViews([this] {
    ShowMode();
    ShowMarks();
  });
  ShowMode();
}

QWidget* Form7Window::BuildPanel(Stage& stage) {
  auto* const panel = new QWidget(this);
  auto* const column = new QVBoxLayout(panel);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(theme::kGap);
  auto* const tabs = new QHBoxLayout;
  tabs->setSpacing(theme::kGap);
  column->addLayout(tabs);
  for (std::size_t tab = 0; tab < kTabs; ++tab) {
    CaptionLabel* const label = NewTab(stage, {"LblFuncion", tab}, panel);
    tabs->addWidget(label);
    Bind(stage, {"LblFuncion", tab}, *label);
  }
  tabs->addStretch(1);
  list_ = &mirror_.StateOf<ListState>("LstBloqueo");
  auto* const list = new TickList(static_cast<int>(list_->rows->size()), kRowHeight, panel);
  list->setFixedHeight(list->sizeHint().height());
  theme::CoverGround(*list, theme::kField);
  column->addWidget(list);
  Bind(stage, "LstBloqueo", *list);
  return panel;
}

/// Two rows of five digits, so that the list above has room on a small screen; what ends the typing beside
/// them.
QWidget* Form7Window::BuildKeypad(Stage& stage) {
  auto* const keypad = new QWidget(this);
  auto* const grid = new QGridLayout(keypad);
  grid->setContentsMargins(0, 0, 0, 0);
  grid->setSpacing(theme::kGap);
  constexpr int kColumns = 5;
  for (std::size_t key = 0; key < kKeys; ++key) {
    const ControlName name("ImgBoton", key);
    const auto& state = mirror_.StateOf<ImageState>(name.text);
    const bool digit = key < kDigits;
    keys_[key] = new KeypadKey(ToQString(TrimBlanks(digit ? *state.caption : *state.toolTip)), keypad);
    const int place = static_cast<int>((key + kDigits - 1) % kDigits);  // "1" first, "0" last
    if (digit) {
      grid->addWidget(keys_[key], place / kColumns, place % kColumns);
    } else {
      grid->addWidget(keys_[key], static_cast<int>(key - kDigits), kColumns);
    }
    BindPlain(stage, name, *keys_[key]);
  }
  for (std::size_t mark = 0; mark < marks_.size(); ++mark)
    marks_[mark] = &mirror_.StateOf<LabelState>(ControlName("LblSeleccion", mark).text);
  return keypad;
}

void Form7Window::ShowMode() {
  const bool panel = *list_->visible;
  setWindowTitle(ToQString(*title_->caption));
  if (panel_->isHidden() == panel) panel_->setVisible(panel);
}

void Form7Window::ShowMarks() {
  for (std::size_t key = 0; key < kDigits; ++key) {
    QStringList places;
    for (std::size_t mark = 0; mark < kLength; ++mark) {
      const bool here = *marks_[mark]->visible && ToQString(*marks_[mark]->caption) == keys_[key]->text();
      if (here) places << QString::number(mark + 1);
    }
    keys_[key]->ShowMarks(places.join(QLatin1Char(' ')));
  }
  keys_[kConfirm]->ShowReady(*marks_[kLength]->visible);
}

}  // namespace vintoral
