#include "window/controls/TickList.h"

#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyleOptionButton>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kUsualWidth = 260;
constexpr int kTickEdge = 18;
constexpr int kWheelStep = 120, kRowsAStep = 3;

}  // namespace

TickList::TickList(int rows, int pitch, QWidget* parent)
    : QWidget(parent), inView_(rows), pitch_(pitch), bar_(new QScrollBar(Qt::Vertical, this)) {
  setFocusPolicy(Qt::NoFocus);  // the focus is the station's to give
  bar_->setFocusPolicy(Qt::NoFocus);
  bar_->setPageStep(inView_);
  bar_->hide();
  connect(bar_, &QScrollBar::valueChanged, this, &TickList::ScrollTo);
}

QSize TickList::sizeHint() const {
  return {kUsualWidth, inView_ * pitch_};
}

QRect TickList::Place(int place) const {
  const int bar = LastTop() > 0 ? kBarWidth : 0;
  return {0, place * pitch_, width() - bar, pitch_};
}

int TickList::LastTop() const {
  return std::max(0, static_cast<int>(rows_.size()) - inView_);
}

void TickList::ShowRows(const QStringList& rows) {
  rows_ = rows;
  told_.clear();  // it was told of other rows
  const QSignalBlocker quiet(bar_);
  bar_->setRange(0, LastTop());
  bar_->setVisible(LastTop() > 0);
  update();
}

void TickList::ShowTicks(const std::vector<bool>& ticks) {
  ticks_ = ticks;
  update();
}

void TickList::ShowRow(int row) {
  row_ = row;
  update();
}

void TickList::ShowTop(int top) {
  const auto told = std::find(told_.rbegin(), told_.rend(), top);
  // A top that nobody told is a word of the station's own.
  told_.erase(told_.begin(), told == told_.rend() ? told_.end() : told.base());
  if (told_.empty()) MoveTo(top);
}

void TickList::ScrollTo(int top) {
  const int wanted = std::clamp(top, 0, LastTop());
  if (wanted == top_ && told_.empty()) return;
  told_.push_back(wanted);
  MoveTo(wanted);
  if (onScrolled) onScrolled(wanted);
}

void TickList::MoveTo(int top) {
  top_ = top;
  const QSignalBlocker quiet(bar_);
  bar_->setValue(top);
  told_.empty() ? lower() : raise();
  update();
}

void TickList::resizeEvent(QResizeEvent* /*event*/) {
  bar_->setGeometry(width() - kBarWidth, 0, kBarWidth, height());
}

void TickList::mousePressEvent(QMouseEvent* event) {
  const int row = top_ + static_cast<int>(event->position().y()) / pitch_;
  if (event->button() != Qt::LeftButton || row >= rows_.size()) return;
  if (onPressed) onPressed(row);
}

void TickList::wheelEvent(QWheelEvent* event) {
  event->accept();
  ScrollTo(top_ - event->angleDelta().y() * kRowsAStep / kWheelStep);
}

void TickList::focusInEvent(QFocusEvent* /*event*/) {
  update();
}

void TickList::focusOutEvent(QFocusEvent* /*event*/) {
  update();
}

void TickList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setFont(theme::TextFont(theme::kTextPixels));
  const int last = std::min(inView_, static_cast<int>(rows_.size()) - top_);
  for (int place = 0; place < last; ++place)
    PaintRow(painter, place);
}

void TickList::PaintRow(QPainter& painter, int place) const {
  const int row = top_ + place;
  const QRect around = Place(place);
  const bool ticked = static_cast<std::size_t>(row) < ticks_.size() && ticks_[static_cast<std::size_t>(row)];
  if (ticked) painter.fillRect(around, QColor::fromRgb(theme::kAccentPale));
  PaintTick(painter, around, ticked);
  painter.setPen(QColor::fromRgb(theme::kText));
  painter.drawText(around.adjusted(kTickEdge + 2 * theme::kTextInset, 0, -theme::kTextInset, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, rows_[row]);
  if (row == row_ && hasFocus()) theme::PaintFocusRing(painter, QRectF(around));
}

void TickList::PaintTick(QPainter& painter, const QRect& row, bool ticked) const {
  QStyleOptionButton option;
  option.initFrom(this);
  option.rect = QRect(theme::kTextInset, row.center().y() - kTickEdge / 2 + 1, kTickEdge, kTickEdge);
  option.state = QStyle::State_Enabled | (ticked ? QStyle::State_On : QStyle::State_Off);
  style()->drawPrimitive(QStyle::PE_IndicatorCheckBox, &option, &painter, this);
}

}  // namespace vintoral
