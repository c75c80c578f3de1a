#include "window/form1/GridPanel.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/IconButton.h"
#include "window/controls/ListField.h"
#include "window/controls/PictureView.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kColumns = 10, kRows = 5;
constexpr int kHeadRow = 34;
constexpr int kCounterWidth = 56, kMinutesWidth = 156;

CaptionLabel* NewInfo(const QString& sample, QRgb color, QWidget* parent) {
  CaptionLabel::Look look;
  look.pixels = theme::kTextPixels;
  look.weight = QFont::Bold;
  look.color = color;
  look.padding = 4;
  look.sample = sample;
  return new CaptionLabel(look, parent);
}

}  // namespace

CellSheet::CellSheet(Stage& stage, QWidget* parent) : QWidget(parent) {
  wallpaper_ = new PictureView({QString(), true, true}, this);
  Bind(stage, "ImgFondo", *wallpaper_);
  ground_ = NewInfo(QString(), theme::kMuted, this);
  Bind(stage, "LblFondo", *ground_);
  auto* const drawing = new PictureView({}, this);
  Bind(stage, "PctFicha", *drawing);
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    cells_[i] = new PictureView({}, this);
    Bind(stage, {"ImgFicha", i}, *cells_[i]);
  }
  shade_ = new QWidget(this);
  shade_->setAttribute(Qt::WA_TransparentForMouseEvents);
  BindPlain(stage, "PctSeleccion", *shade_);
  frame_ = new CellFrame(this);
  BindPlain(stage, "ShpCelda", *frame_);
}

QRect CellSheet::CellRect(int cell) const {
  if (cell < 0) return rect();
  const int column = cell % kColumns, row = cell / kColumns;
  const int left = width() * column / kColumns, top = height() * row / kRows;
  return {left, top, width() * (column + 1) / kColumns - left, height() * (row + 1) / kRows - top};
}

void CellSheet::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

void CellSheet::Place() {
  wallpaper_->setGeometry(rect());
  ground_->setGeometry(0, height() - kHeadRow, width(), kHeadRow);
  for (std::size_t i = 0; i < cells_.size(); ++i)
    cells_[i]->setGeometry(CellRect(static_cast<int>(i)).adjusted(2, 2, -2, -2));
  frame_->setGeometry(CellRect(-1));
}

GridPanel::GridPanel(Stage& stage, QWidget* parent) : QWidget(parent) {
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  column->addWidget(BuildHead(stage));
  auto* const frame = new QWidget(this);
  auto* const inside = new QVBoxLayout(frame);
  inside->setContentsMargins(0, 0, 0, 0);
  inside->addWidget(new CellSheet(stage, frame));
  column->addWidget(frame, 1);
  BindPlain(stage, "FraFicha", *frame);
}

QWidget* GridPanel::BuildHead(Stage& stage) {
  constexpr int kIcon = 22;
  auto* const head = new QWidget(this);
  head->setFixedHeight(kHeadRow);
  auto* const row = new QHBoxLayout(head);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(4);
  const auto icon = [&](const char* name) {
    auto* const button =
        new IconButton(QString::fromLatin1(name), kHeadRow, kIcon, IconButton::Kind::kPlain, head);
    row->addWidget(button);
    BindPlain(stage, name, *button);
  };
  auto* const count = NewInfo(QStringLiteral("1000 (1/20)"), theme::kText, head);
  row->addWidget(count);
  Bind(stage, {"LblInfo", 0}, *count);
  icon("ImgContador");
  auto* const counter = NewInfo(QStringLiteral("0000"), theme::kAccent, head);
  counter->setFixedWidth(kCounterWidth);
  row->addWidget(counter);
  Bind(stage, {"LblInfo", 4}, *counter);
  row->addStretch(1);
  auto* const minutes = new ListField(true, head);
  minutes->setFixedWidth(kMinutesWidth);
  row->addWidget(minutes);
  Bind(stage, "CboMinutos", *minutes);
  icon("ImgCambiarFondo");
  return head;
}

}  // namespace vintoral
