#include "window/controls/MarkMargin.h"

#include <QHelpEvent>
#include <QPainter>
#include <QToolTip>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

/// A triangle with its exclamation mark, dark on light orange.
void PaintSign(QPainter& painter, QPointF center) {
  const QPointF corners[] = {center + QPointF(0, -6.5), center + QPointF(7, 6), center + QPointF(-7, 6)};
  painter.setPen(QPen(QColor::fromRgb(theme::kText), 1.25, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(QColor::fromRgb(theme::kWarning));
  painter.drawPolygon(corners, 3);
  painter.setPen(QPen(QColor::fromRgb(theme::kText), 1.75, Qt::SolidLine, Qt::RoundCap));
  painter.drawLine(center + QPointF(0, -2), center + QPointF(0, 1.5));
  painter.drawPoint(center + QPointF(0, 4.25));
}

}  // namespace

MarkMargin::MarkMargin(std::function<std::vector<Row>()> rows, QWidget* parent)
    : QWidget(parent), rows_(std::move(rows)) {}

void MarkMargin::ShowReasons(const QStringList& reasons) {
  if (reasons_ == reasons) return;
  reasons_ = reasons;
  update();
}

void MarkMargin::ShowCurrent(int line) {
  current_ = line;
  update();
}

std::optional<MarkMargin::Row> MarkMargin::RowAt(QPoint at) const {
  for (const Row& row : rows_())
    if (row.place.contains(at)) return row;
  return std::nullopt;
}

QString MarkMargin::ReasonAt(QPoint at) const {
  const std::optional<Row> row = RowAt(at);
  return row ? reasons_.value(row->line) : QString();
}

bool MarkMargin::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QWidget::event(event);
  const auto& help = *static_cast<QHelpEvent*>(event);
  const std::optional<Row> row = RowAt(help.pos());
  QToolTip::showText(help.globalPos(), ReasonAt(help.pos()), this, row ? row->place : QRect());
  return true;
}

void MarkMargin::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.fillRect(rect(), QColor::fromRgb(theme::kWindow));
  for (const Row& row : rows_()) {
    if (row.line == current_) painter.fillRect(row.place, QColor::fromRgb(theme::kAccentPale));
    if (!reasons_.value(row.line).isEmpty()) PaintSign(painter, QRectF(row.place).center());
  }
  painter.fillRect(QRect(width() - 1, 0, 1, height()), QColor::fromRgb(theme::kLine));
}

}  // namespace vintoral
