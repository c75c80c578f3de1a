#include "window/form6/Form6Window.h"

#include <QStackedLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/CurveView.h"
#include "window/controls/PushButton.h"
#include "window/controls/Text.h"
#include "window/controls/TextEditor.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr QSize kUsualSize{1040, 560};
constexpr int kMargin = 12;
constexpr int kTabHeight = 36;
constexpr QSize kPlaceSize{204, 24};              // for "Línea 999, columna 100"
constexpr std::size_t kTabs = 3, kCurrency = 3;   // of LblFuncion
constexpr std::size_t kCancel = 0, kConfirm = 1;  // of CmdFuncion

/// What a label reads as designed.
QString CaptionOf(const Stage& stage, const ControlName& label) {
  return ToQString(*stage.mirror.StateOf<LabelState>(label.text).caption);
}

CaptionLabel* NewLabel(const CaptionLabel::Look& look, QWidget* parent) {
  auto* const label = new CaptionLabel(look, parent);
  label->setFixedSize(label->sizeHint().width(), kTabHeight);
  return label;
}

CaptionLabel* NewTab(const QString& sample, QWidget* parent) {
  CaptionLabel::Look look;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignCenter;
  look.padding = 16;
  look.sample = sample;
  look.outlined = true;
  CaptionLabel* const label = NewLabel(look, parent);
  label->setCursor(Qt::PointingHandCursor);
  return label;
}

CaptionLabel* NewCaption(const QString& sample, QRgb color, QWidget* parent) {
  CaptionLabel::Look look;
  look.color = color;
  look.sample = sample;
  return NewLabel(look, parent);
}

}  // namespace

Form6Window::Form6Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : DialogWindow(form, hands, owner),
      curve_(new CurveView(this)),
      place_(NewCaption(QString(), theme::kMuted, this)),
      remark_(new CaptionLabel({}, this)) {
  place_->setObjectName(QStringLiteral("place"));
  remark_->setObjectName(QStringLiteral("remark"));
  Stage stage{mirror_, hands, pictures};
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(theme::kGap);
  const auto row = [&](int stretch) -> QHBoxLayout& {
    auto* const made = new QHBoxLayout;
    made->setSpacing(theme::kGap);
    column->addLayout(made, stretch);
    return *made;
  };
  BuildTabs(stage, row(0));
  BuildTexts(stage, row(1));
  BuildPlace(row(0));
  BuildFoot(stage, row(0));
  resize(kUsualSize);
}

void Form6Window::BuildTabs(Stage& stage, QHBoxLayout& row) {
  for (std::size_t tab = 0; tab < kTabs; ++tab) {
    CaptionLabel* const label = NewTab(CaptionOf(stage, {"LblFuncion", tab}), this);
    row.addWidget(label);
    Bind(stage, {"LblFuncion", tab}, *label);
  }
  row.addStretch(1);
  CaptionLabel* const caption = NewCaption(CaptionOf(stage, {"LblFuncion", kCurrency}), theme::kText, this);
  row.addWidget(caption);
  Bind(stage, {"LblFuncion", kCurrency}, *caption);
  auto* const currency = new TextField(this);
  currency->SetWidthFor(static_cast<int>(mirror_.StateOf<TextBoxState>("TxtMoneda").maxLength));
  theme::CoverGround(*currency, theme::kWindow);
  row.addWidget(currency);
  connect(currency, &QLineEdit::textChanged, curve_, &CurveView::ShowCurrency);
  Bind(stage, "TxtMoneda", *currency);
}

void Form6Window::BuildTexts(Stage& stage, QHBoxLayout& row) {
  auto* const texts = new QWidget(this);
  auto* const stack = new QStackedLayout(texts);
  stack->setStackingMode(QStackedLayout::StackAll);
  for (std::size_t tab = 0; tab < kTabs; ++tab) {
    auto* const editor = new TextEditor(texts);
    theme::CoverGround(*editor, theme::kWindow);
    stack->addWidget(editor);
    editor->onPlace = [this](std::size_t line, std::size_t column, const QString& remark) {
      ShowPlace(line, column, remark);
    };
    Bind(stage, {"TxtTarifas", tab}, *editor);
  }
  row.addWidget(texts, 3);
  row.addWidget(curve_, 2);
  Bind(stage, "PctCurva", *curve_);
}

void Form6Window::BuildPlace(QHBoxLayout& row) {
  place_->setFixedSize(kPlaceSize);
  remark_->setFixedHeight(kPlaceSize.height());
  row.addWidget(place_);
  row.addWidget(remark_, 1);
}

void Form6Window::BuildFoot(Stage& stage, QHBoxLayout& row) {
  CaptionLabel* const examples = NewCaption(CaptionOf(stage, "LblEjemplo"), theme::kAccent, this);
  examples->setCursor(Qt::PointingHandCursor);
  row.addWidget(examples);
  row.addStretch(1);
  Bind(stage, "LblEjemplo", *examples);
  for (const std::size_t command : {kConfirm, kCancel}) {
    const bool main = command == kConfirm;
    auto* const button = new PushButton(main ? PushButton::Rank::kMain : PushButton::Rank::kPlain, this);
    row.addWidget(button);
    Bind(stage, {"CmdFuncion", command}, *button);
  }
}

void Form6Window::ShowPlace(std::size_t line, std::size_t column, const QString& remark) {
  place_->ShowCaption(QStringLiteral("Línea %1, columna %2").arg(line).arg(column));
  remark_->ShowCaption(remark);
}

}  // namespace vintoral
