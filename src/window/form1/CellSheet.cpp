#include "window/form1/CellSheet.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>

#include "window/controls/CaptionLabel.h"
#include "window/controls/CellFrame.h"
#include "window/controls/Hands.h"
#include "window/controls/Mirror.h"
#include "window/controls/PhotoCell.h"
#include "window/controls/Theme.h"
#include "window/controls/Views.h"

namespace vintoral {

namespace {

constexpr int kFocusRoom = 3;  // for the ring around all cells
constexpr int kGroundRow = 34;
constexpr int kPageBack = 1, kPageForward = 2, kSave = 5, kRetire = 6;  // of PctBoton

std::string ButtonName(int index) {
  return ControlName("PctBoton", static_cast<std::size_t>(index)).text;
}

}  // namespace

CellSheet::CellSheet(Stage& stage, QWidget* parent)
    : QWidget(parent),
      hands_(stage.hands),
      pointed_(stage.mirror.StateOf<ShapeState>("ShpCelda")),
      save_(stage.mirror.StateOf<ControlState>(ButtonName(kSave))),
      retire_(stage.mirror.StateOf<ControlState>(ButtonName(kRetire))),
      grid_(CellGrid::Fitting(QRect())) {
  Build(stage);
  for (QObject* const child : children()) {
    child->installEventFilter(this);
    if (auto* const widget = qobject_cast<QWidget*>(child)) widget->setMouseTracking(true);
  }
  stage.mirror.AfterViews([this] { FollowStation(); });
  stage.pictures.OnScreen = [this](const Picture& picture) { return PixmapOf(picture); };
}

void CellSheet::Build(Stage& stage) {
  BindPlain(stage, "FraFicha", *this);
  wallpaper_ = new PictureView({QString(), true, true}, this);
  Bind(stage, "ImgFondo", *wallpaper_);
  ground_ = new CaptionLabel({}, this);
  Bind(stage, "LblFondo", *ground_);
  auto* const drawing = new PictureView({}, this);
  Bind(stage, "PctFicha", *drawing);
  BuildCells(stage);
  auto* const shade = new QWidget(this);
  shade->setAttribute(Qt::WA_TransparentForMouseEvents);
  BindPlain(stage, "PctSeleccion", *shade);
  frame_ = new CellFrame(this);
  frame_->placeOf = [this](int cell) { return grid_.Place(cell); };
  Bind(stage, "ShpCelda", *frame_);
}

void CellSheet::BuildCells(Stage& stage) {
  for (std::size_t i = 0; i < cells_.size(); ++i) {
    cells_[i] = new PhotoCell(this);
    cells_[i]->setCursor(Qt::PointingHandCursor);
    Bind(stage, {"ImgFicha", i}, *cells_[i]);
  }
}

void CellSheet::resizeEvent(QResizeEvent* /*event*/) {
  Place();
}

void CellSheet::Place() {
  const QRect room = rect().adjusted(kFocusRoom, kFocusRoom, -kFocusRoom, -kFocusRoom);
  grid_ = CellGrid::Fitting(room);
  wallpaper_->setGeometry(room);
  ground_->setGeometry(room.left(), room.bottom() - kGroundRow, room.width(), kGroundRow);
  for (int i = 0; i < kCells; ++i)
    cells_[static_cast<std::size_t>(i)]->setGeometry(grid_.Place(i));
  frame_->Place();
}

void CellSheet::FollowStation() {
  DimCells(*save_.visible || *retire_.visible);
  if (leaves_) TellLeaveSoon();  // the box that was up may have been answered
}

void CellSheet::DimCells(bool dimmed) {
  if (dimmed == dimmed_) return;
  dimmed_ = dimmed;
  for (PhotoCell* const cell : cells_) {
    cell->Dim(dimmed);
    cell->setCursor(dimmed ? Qt::ArrowCursor : Qt::PointingHandCursor);
  }
}

QPixmap CellSheet::PixmapOf(const Picture& picture) const {
  for (const PhotoCell* const cell : cells_) {
    QPixmap pixmap = cell->PixmapOf(picture);
    if (!pixmap.isNull()) return pixmap;
  }
  return {};
}

int CellSheet::Pointed() const {
  return *pointed_.visible ? *pointed_.cell : -1;
}

int CellSheet::CellOf(const QObject* widget) const {
  const auto found = std::find(cells_.begin(), cells_.end(), widget);
  return found == cells_.end() ? -1 : static_cast<int>(found - cells_.begin());
}

ControlId CellSheet::Id(const char* control, int index) const {
  return {pointed_.id.form, ControlName(control, static_cast<std::size_t>(index)).text};
}

void CellSheet::Point(int cell) {
  hands_.Hover(Id("ImgFicha", cell));
}

void CellSheet::enterEvent(QEnterEvent* /*event*/) {
  leaves_ = false;
}

// A box that comes up takes the pointer away, but is not there yet when this is told.
void CellSheet::leaveEvent(QEvent* /*event*/) {
  leaves_ = true;
  TellLeaveSoon();
}

void CellSheet::TellLeaveSoon() {
  QMetaObject::invokeMethod(
      this, [this] { TellLeave(); }, Qt::QueuedConnection);
}

/// What a box asks about stays pointed at until it is answered.
void CellSheet::TellLeave() {
  if (!leaves_ || QApplication::activeModalWidget() != nullptr) return;
  leaves_ = false;
  hands_.Leave(pointed_.id.form);
}

/// The pointer moves within what it has entered, and the station may have gone on meanwhile.
void CellSheet::MouseOver(const QObject* watched) {
  const int cell = CellOf(watched);
  if (dimmed_ || cell == Pointed()) return;
  if (cell < 0) return hands_.Leave(pointed_.id.form);
  Point(cell);
}

bool CellSheet::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove) MouseOver(watched);
  if (event->type() != QEvent::Wheel) return false;
  wheelEvent(static_cast<QWheelEvent*>(event));
  return true;
}

void CellSheet::wheelEvent(QWheelEvent* event) {
  event->accept();
  TurnPages(event->angleDelta().y());
}

void CellSheet::TurnPages(int wheel) {
  constexpr int kNotch = 120;  // a notch of an ordinary wheel
  const bool turnedBack = wheel_ != 0 && (wheel > 0) != (wheel_ > 0);
  wheel_ = turnedBack ? wheel : wheel_ + wheel;
  while (std::abs(wheel_) >= kNotch) {
    const bool back = wheel_ > 0;
    wheel_ -= back ? kNotch : -kNotch;
    hands_.Click(Id("PctBoton", back ? kPageBack : kPageForward));
  }
}

bool CellSheet::TakeKey(const QKeyEvent& event) {
  switch (event.key()) {
    case Qt::Key_Left:
      return PointByKey(-1), true;
    case Qt::Key_Right:
      return PointByKey(1), true;
    case Qt::Key_Up:
      return PointByKey(-grid_.Columns()), true;
    case Qt::Key_Down:
      return PointByKey(grid_.Columns()), true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
      if (dimmed_ || Pointed() < 0) return false;
      return hands_.Click(Id("ImgFicha", Pointed())), true;
    default:
      return false;
  }
}

void CellSheet::PointByKey(int step) {
  const int cell = Pointed() < 0 ? 0 : Pointed() + step;
  const bool there = cell >= 0 && cell < kCells && !cells_[static_cast<std::size_t>(cell)]->isHidden();
  if (there && !dimmed_) Point(cell);
}

void CellSheet::focusInEvent(QFocusEvent* /*event*/) {
  update();
}

void CellSheet::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

void CellSheet::paintEvent(QPaintEvent* /*event*/) {
  if (!hasFocus()) return;
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  theme::PaintFocusRing(painter, rect());
}

}  // namespace vintoral
