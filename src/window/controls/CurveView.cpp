#include "window/controls/CurveView.h"

#include <QPainter>
#include <QPainterPath>
#include <algorithm>
#include <array>

#include "window/controls/Text.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kPadding = 14;
constexpr int kHeadHeight = 28;
constexpr int kValuesHeight = 40;
constexpr int kApart = 20;        // between the values and the plot
constexpr int kHoursHeight = 22;  // of the hours under the plot
constexpr std::size_t kHour = 60;
constexpr std::array<std::size_t, 3> kTold = {1 * kHour, 2 * kHour, 24 * kHour};

/// How many steps it takes to reach `most`.
std::int64_t StepsTo(std::int64_t most, std::int64_t step) {
  return most / step + (most % step == 0 ? 0 : 1);
}

}  // namespace

CurveView::CurveView(QWidget* parent) : QWidget(parent) {}

void CurveView::ShowCurve(const QString& category, const std::vector<Money>& values) {
  category_ = category;
  values_ = values;
  const Money most = values.empty() ? Money() : *std::max_element(values.begin(), values.end());
  const std::int64_t units = most.Units() + (most.Raw() % Money::kScale == 0 ? 0 : 1);
  step_ = AxisStep(units);
  top_ = std::max<std::int64_t>(1, StepsTo(units, step_)) * step_;
  update();
}

void CurveView::ShowCurrency(const QString& currency) {
  currency_ = currency;
  update();
}

std::int64_t CurveView::AxisStep(std::int64_t most) {
  constexpr std::int64_t kMostSteps = 5;
  for (std::int64_t ten = 1;; ten *= 10) {
    for (const std::int64_t step : {ten, 2 * ten, 5 * ten}) {
      if (StepsTo(most, step) <= kMostSteps) return step;
    }
  }
}

QSize CurveView::sizeHint() const {
  return {380, 320};
}

QSize CurveView::minimumSizeHint() const {
  return {260, 200};
}

QString CurveView::InCurrency(const String& value) const {
  return (currency_ + u' ' + ToQString(value)).trimmed();
}

QRectF CurveView::Plot() const {
  const QFontMetrics metrics(theme::TextFont(theme::kCaptionPixels));
  const int label = metrics.horizontalAdvance(InCurrency(Money::FromUnits(top_).Plain()));
  const QRectF inside = QRectF(rect()).adjusted(kPadding, kPadding, -kPadding, -kPadding);
  return inside.adjusted(label + 8, kHeadHeight + kValuesHeight + kApart, -6, -kHoursHeight);
}

QPointF CurveView::Place(const QRectF& plot, std::size_t minute, Money value) const {
  const double across = static_cast<double>(minute) / static_cast<double>(24 * kHour);
  const double up = static_cast<double>(value.Raw()) / static_cast<double>(top_) / Money::kScale;
  return {plot.left() + across * plot.width(), plot.bottom() - up * plot.height()};
}

void CurveView::PaintNothing(QPainter& painter) const {
  painter.setFont(theme::TextFont(theme::kTextPixels));
  painter.setPen(QColor::fromRgb(theme::kMuted));
  painter.drawText(rect(), Qt::AlignCenter,
                   category_.isEmpty() ? QStringLiteral("Sin categoría") : QStringLiteral("Sin precio"));
}

void CurveView::PaintHead(QPainter& painter) const {
  painter.setFont(theme::TextFont(theme::kStrongPixels, QFont::Bold));
  painter.setPen(QColor::fromRgb(theme::kText));
  const QRect place(kPadding, kPadding, width() - 2 * kPadding, kHeadHeight);
  const QString fitting = painter.fontMetrics().elidedText(category_, Qt::ElideRight, place.width());
  painter.drawText(place, Qt::AlignLeft | Qt::AlignTop | Qt::TextSingleLine, fitting);
}

void CurveView::PaintValues(QPainter& painter) const {
  const int part = (width() - 2 * kPadding) / static_cast<int>(kTold.size());
  QRect place(kPadding, kPadding + kHeadHeight, part, kValuesHeight);
  for (const std::size_t minute : kTold) {
    painter.setFont(theme::TextFont(theme::kCaptionPixels));
    painter.setPen(QColor::fromRgb(theme::kMuted));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignTop, QStringLiteral("%1 h").arg(minute / kHour));
    painter.setFont(theme::TextFont(theme::kTextPixels, QFont::Bold));
    painter.setPen(QColor::fromRgb(theme::kText));
    painter.drawText(place, Qt::AlignLeft | Qt::AlignBottom | Qt::TextSingleLine,
                     InCurrency(values_[minute].Plain()));
    place.translate(part, 0);
  }
}

void CurveView::PaintAxes(QPainter& painter, const QRectF& plot) const {
  constexpr std::size_t kQuarter = 6 * kHour;
  painter.setFont(theme::TextFont(theme::kCaptionPixels));
  const int line = painter.fontMetrics().height();
  for (std::int64_t value = 0; value <= top_; value += step_) {
    const double y = Place(plot, 0, Money::FromUnits(value)).y();
    painter.setPen(QColor::fromRgb(value == 0 ? theme::kBorder : theme::kLine));
    painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
    painter.setPen(QColor::fromRgb(theme::kMuted));
    painter.drawText(QRectF(0, y - line / 2.0, plot.left() - 8, line), Qt::AlignRight | Qt::AlignVCenter,
                     InCurrency(Money::FromUnits(value).Plain()));
  }
  for (std::size_t minute = 0; minute <= 24 * kHour; minute += kQuarter) {
    const double x = Place(plot, minute, Money()).x();
    painter.setPen(QColor::fromRgb(theme::kBorder));
    painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 4));
    painter.setPen(QColor::fromRgb(theme::kMuted));
    painter.drawText(QRectF(x - 24, plot.bottom() + 6, 48, line), Qt::AlignHCenter | Qt::AlignTop,
                     QString::number(minute / kHour));
  }
}

void CurveView::PaintLine(QPainter& painter, const QRectF& plot) const {
  QPolygonF line;
  for (std::size_t minute = 0; minute < values_.size(); ++minute)
    line << Place(plot, minute, values_[minute]);
  painter.setPen(QPen(QColor::fromRgb(theme::kAccent), 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  painter.drawPolyline(line);
  painter.setBrush(QColor::fromRgb(theme::kCard));
  for (const std::size_t minute : kTold)
    painter.drawEllipse(Place(plot, minute, values_[minute]), 3.5, 3.5);
}

void CurveView::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(theme::kLine));
  painter.setBrush(QColor::fromRgb(theme::kCard));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  PaintHead(painter);
  if (values_.size() <= kTold.back()) return PaintNothing(painter);
  const QRectF plot = Plot();
  PaintValues(painter);
  PaintAxes(painter, plot);
  PaintLine(painter, plot);
}

}  // namespace vintoral
