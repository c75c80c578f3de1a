#include "window/form4/Form4Window.h"

#include <QGridLayout>
#include <QVBoxLayout>
#include <algorithm>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Card.h"
#include "window/controls/IconButton.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TickBox.h"
#include "window/controls/TickList.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 12;
constexpr int kPitch = 29;   // twenty rows fit below the title bar of the smallest screen
constexpr int kField = 26;   // of a quantity, between the lines above and below
constexpr int kFewRows = 8;  // a window with less would be all edges
constexpr int kHead = 24;
constexpr int kNamesWidth = 260, kQuantityWidth = 96, kValueWidth = 132;
constexpr int kTotalWidth = 300, kTotalHeight = 116;
constexpr int kSignEdge = 34, kSign = 22;
constexpr int kButtonHeight = 48;

enum Column { kNames, kQuantities, kValues, kBar, kColumns };

// The form's own: rows in view, digits of a quantity, TxtTotal of the whole sale, and LblItem.
constexpr std::size_t kFilas = 20, kDigitos = 3, kTotal = kFilas;
enum Item : std::size_t { kArticulo, kCantidad, kValor, kSuma };

CaptionLabel* NewCaption(const CaptionLabel::Look& look, QSize size, QWidget* parent) {
  auto* const label = new CaptionLabel(look, parent);
  label->setFixedSize(size);
  return label;
}

CaptionLabel::Look HeadLook(Qt::Alignment side) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.color = theme::kMuted;
  look.alignment = side | Qt::AlignVCenter;
  return look;
}

}  // namespace

Form4Window::Form4Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : DialogWindow(form, hands, owner) {
  Stage stage{mirror_, hands, pictures};
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  row->setSpacing(theme::kGap);
  auto* const card = new Card(theme::kCard, theme::kLine, this);
  row->addWidget(card);
  auto* const grid = new QGridLayout(card);
  grid->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  grid->setSpacing(0);
  BuildList(stage, *grid);
  auto* const column = new QVBoxLayout;
  column->setSpacing(theme::kGap);
  row->addLayout(column);
  BuildTotal(stage, *column);
  BuildInvoice(stage, *column);
  resize(sizeHint());
}

int Form4Window::Rows() {
  const std::size_t articles = mirror_.StateOf<ListState>("LstArticulo").rows->size();
  return static_cast<int>(std::min(articles, kFilas));
}

void Form4Window::BuildList(Stage& stage, QGridLayout& grid) {
  QWidget* const card = grid.parentWidget();
  const auto head = [&](std::size_t item, int column, Qt::Alignment side, int width) {
    auto* const label = NewCaption(HeadLook(side), {width, kHead}, card);
    grid.addWidget(label, 0, column);
    Bind(stage, {"LblItem", item}, *label);
  };
  const int rows = std::max(Rows(), kFewRows);
  // Below the other columns too: a row is one thing.
  auto* const list = new TickList(rows, kPitch, card);
  theme::CoverGround(*list);
  head(kArticulo, kNames, Qt::AlignLeft, kNamesWidth);
  head(kCantidad, kQuantities, Qt::AlignHCenter, kQuantityWidth);
  head(kValor, kValues, Qt::AlignRight, kValueWidth);
  grid.addWidget(list, 1, kNames, rows, kColumns);
  Bind(stage, "LstArticulo", *list);
  if (mirror_.StateOf<ListState>("LstArticulo").rows->size() > kFilas)
    grid.setColumnMinimumWidth(kBar, TickList::kBarWidth);
  for (int row = 0; row < rows; ++row)
    grid.setRowMinimumHeight(row + 1, kPitch);
  for (int row = 0; row < Rows(); ++row)
    BuildRow(stage, row, grid);
}

void Form4Window::BuildRow(Stage& stage, int row, QGridLayout& grid) {
  QWidget* const card = grid.parentWidget();
  const auto index = static_cast<std::size_t>(row);
  auto* const quantity = new TextField(card);
  quantity->SetWidthFor(static_cast<int>(kDigitos));
  quantity->setFixedHeight(kField);
  quantity->setAlignment(Qt::AlignRight);
  grid.addWidget(quantity, row + 1, kQuantities, Qt::AlignCenter);
  BindText(stage, {"CboCantidad", index}, *quantity);
  CaptionLabel::Look look;
  look.alignment = Qt::AlignRight | Qt::AlignVCenter;
  auto* const value = NewCaption(look, {kValueWidth, kPitch}, card);
  grid.addWidget(value, row + 1, kValues);
  BindText(stage, {"TxtTotal", index}, *value);
}

void Form4Window::BuildTotal(Stage& stage, QBoxLayout& column) {
  auto* const display = new Card(theme::kDisplay, theme::kDisplay, this);
  display->setFixedSize(kTotalWidth, kTotalHeight);
  column.addWidget(display);
  auto* const lines = new QVBoxLayout(display);
  lines->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  lines->setSpacing(0);
  CaptionLabel::Look look = HeadLook(Qt::AlignLeft);
  look.color = theme::kDisplayMuted;
  look.padding = 0;
  auto* const title = new CaptionLabel(look, display);
  title->setFixedHeight(kHead);
  lines->addWidget(title);
  Bind(stage, {"LblItem", kSuma}, *title);
  look.pixels = theme::kValuePixels;
  look.color = theme::kDisplayText;
  look.alignment = Qt::AlignRight | Qt::AlignVCenter;
  auto* const total = new CaptionLabel(look, display);
  lines->addWidget(total, 1);
  BindText(stage, {"TxtTotal", kTotal}, *total);
}

void Form4Window::BuildInvoice(Stage& stage, QBoxLayout& column) {
  auto* const card = new Card(theme::kCard, theme::kLine, this);
  column.addWidget(card);
  auto* const row = new QHBoxLayout(card);
  row->setContentsMargins(kMargin, theme::kGap, kMargin, theme::kGap);
  auto* const sign =
      new IconButton(QStringLiteral("ImgIndicador-5"), kSignEdge, kSign, IconButton::Kind::kSign, card);
  row->addWidget(sign);
  BindPlain(stage, "ImgIndicador", *sign);
  auto* const invoice = new TickBox(card);
  row->addWidget(invoice, 1);
  Bind(stage, "ChkFactura", *invoice);
  column.addStretch(1);
  auto* const sell = new PushButton(PushButton::Rank::kMain, this);
  sell->setFixedSize(kTotalWidth, kButtonHeight);
  column.addWidget(sell);
  Bind(stage, "CmdRegistrar", *sell);
}

}  // namespace vintoral
