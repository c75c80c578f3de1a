#include "window/form2/Form2Window.h"

#include <QGridLayout>
#include <QVBoxLayout>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Card.h"
#include "window/controls/Hands.h"
#include "window/controls/Light.h"
#include "window/controls/ListField.h"
#include "window/controls/PushButton.h"
#include "window/controls/TextField.h"
#include "window/controls/Theme.h"
#include "window/controls/TickBox.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kMargin = 6, kCardMargin = 8, kSpacing = 4;
constexpr int kLabelWidth = 136, kFieldWidth = 178, kTimeWidth = 58;
constexpr QSize kMarker{128, 4};
/// To the edges of the main window, for the window manager's frame.
constexpr int kFromTheEdge = 2;

enum Column { kLabels, kFields };
/// TxtCampo: the times, the number, and five data fields behind it.
enum Field { kDesdeHora, kDesdeFecha, kHastaHora, kHastaFecha, kNumero, kCampos = kNumero + 6 };
/// LblEtiqueta: behind those of the number and the data fields.
enum Caption { kDesde = 6, kHasta, kCategoria };
enum Button { kIniciar, kLimpiar };

void AddLabel(Stage& stage, std::size_t index, QGridLayout& grid) {
  CaptionLabel::Look look;
  look.pixels = theme::kCaptionPixels;
  look.weight = QFont::Bold;
  look.padding = 0;
  auto* const label = new CaptionLabel(look, grid.parentWidget());
  label->setFixedSize(kLabelWidth, theme::kRowHeight);
  grid.addWidget(label, grid.rowCount(), kLabels);
  Bind(stage, {"LblEtiqueta", index}, *label);
}

TextField* NewField(Stage& stage, std::size_t index, QWidget* parent) {
  auto* const field = new TextField(parent);
  Bind(stage, {"TxtCampo", index}, *field);
  return field;
}

}  // namespace

Form2Window::Form2Window(const Snapshots::Taken& form, Hands& hands, PictureLoader& pictures, QWidget* owner)
    : DialogWindow(form, hands, owner), hands_(hands) {
  Stage stage{mirror_, hands, pictures};
  auto* const column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(theme::kGap);
  column->setSizeConstraint(QLayout::SetFixedSize);
  auto* const card = new Card(theme::kCard, theme::kLine, this);
  column->addWidget(card);
  auto* const grid = new QGridLayout(card);
  grid->setContentsMargins(kCardMargin, kCardMargin, kCardMargin, kCardMargin);
  grid->setHorizontalSpacing(kSpacing);
  grid->setVerticalSpacing(kSpacing);
  grid->setColumnMinimumWidth(kFields, kFieldWidth);
  BuildTimes(stage, *grid);
  BuildFields(stage, *grid);
  BuildCategory(stage, *grid);
  BuildFoot(stage, *column);
}

// What is found is looked at in the grid, and its data and photo beside it: the window lies in the corner
// below the photo, where the search has nothing to show.
void Form2Window::showEvent(QShowEvent* event) {
  DialogWindow::showEvent(event);
  adjustSize();
  const QPoint corner(parentWidget()->width() - width(), parentWidget()->height() - height());
  move(parentWidget()->mapToGlobal(corner - QPoint(kFromTheEdge, kFromTheEdge)));
}

void Form2Window::BuildTimes(Stage& stage, QGridLayout& grid) {
  for (const auto [label, time, date] :
       {std::array<std::size_t, 3>{kDesde, kDesdeHora, kDesdeFecha}, {kHasta, kHastaHora, kHastaFecha}}) {
    AddLabel(stage, label, grid);
    auto* const both = new QHBoxLayout;
    both->setSpacing(theme::kGap);
    TextField* const hour = NewField(stage, time, grid.parentWidget());
    hour->setFixedWidth(kTimeWidth);
    both->addWidget(hour);
    TextField* const day = NewField(stage, date, grid.parentWidget());
    day->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    both->addWidget(day);
    grid.addLayout(both, grid.rowCount() - 1, kFields);
  }
}

void Form2Window::BuildFields(Stage& stage, QGridLayout& grid) {
  for (std::size_t i = kNumero; i < kCampos; ++i) {
    AddLabel(stage, i - kNumero, grid);
    grid.addWidget(NewField(stage, i, grid.parentWidget()), grid.rowCount() - 1, kFields);
  }
}

void Form2Window::BuildCategory(Stage& stage, QGridLayout& grid) {
  AddLabel(stage, kCategoria, grid);
  auto* const categories = new ListField(false, grid.parentWidget());
  categories->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);  // whatever the length of its names
  grid.addWidget(categories, grid.rowCount() - 1, kFields);
  Bind(stage, "CboTarifa", *categories);
  auto* const inside = new TickBox(grid.parentWidget());
  grid.addWidget(inside, grid.rowCount(), kFields);
  Bind(stage, "ChkFichas", *inside);
}

void Form2Window::BuildFoot(Stage& stage, QBoxLayout& column) {
  auto* const row = new QHBoxLayout;
  row->setSpacing(theme::kGap);
  row->addStretch(1);
  column.addLayout(row);
  for (const auto& [index, rank] :
       {std::pair{kIniciar, PushButton::Rank::kMain}, std::pair{kLimpiar, PushButton::Rank::kPlain}}) {
    auto* const button = new PushButton(rank, this);
    row->addWidget(button);
    Bind(stage, {"PctBoton", static_cast<std::size_t>(index)}, *button);
  }
  auto* const marker = new Light(kMarker, this);
  column.addWidget(marker, 0, Qt::AlignRight);
  Bind(stage, "PctSeleccion", *marker, QColor::fromRgb(theme::kAccent));
}

// The pointer leaves by way of nothing that would tell it.
void Form2Window::leaveEvent(QEvent* event) {
  DialogWindow::leaveEvent(event);
  QMetaObject::invokeMethod(
      this, [this] { hands_.Leave(mirror_.Snapshot().name); }, Qt::QueuedConnection);
}

}  // namespace vintoral
