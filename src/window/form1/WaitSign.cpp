#include "window/form1/WaitSign.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <cmath>
#include <numbers>

#include "window/controls/CaptionLabel.h"
#include "window/controls/Light.h"
#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kHeight = 26;      // above the numbers in the first cells
constexpr int kBelowHead = 40;   // the counts over the photos stay legible
constexpr int kBeside = 3;       // as wide as the sheet of the cells
constexpr double kPulse = 1600;  // milliseconds from bright to bright
constexpr double kFaintest = 0.35;

double StrengthAt(std::int64_t milliseconds) {
  const double turn = 2 * std::numbers::pi * static_cast<double>(milliseconds) / kPulse;
  return kFaintest + (1 - kFaintest) * (1 + std::cos(turn)) / 2;
}

}  // namespace

WaitSign::WaitSign(QWidget& grid, const std::vector<Light*>& bars)
    : QWidget(&grid), grid_(grid), bars_(bars) {
  setObjectName(QStringLiteral("WaitSign"));
  setAttribute(Qt::WA_TransparentForMouseEvents);  // what lies under it can be pressed all the same
  CaptionLabel::Look look;
  look.pixels = theme::kTextPixels;
  look.weight = QFont::Bold;
  look.alignment = Qt::AlignCenter;
  text_ = new CaptionLabel(look, this);
  auto* const row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(text_);
  grid.installEventFilter(this);
  TakePlace();
  hide();
}

void WaitSign::ShowWait(std::int64_t milliseconds) {
  constexpr std::int64_t kSecond = 1000;
  text_->ShowCaption(QStringLiteral("Esperando la carpeta compartida… %1 s").arg(milliseconds / kSecond));
  for (Light* const bar : bars_)
    bar->ShowStrength(StrengthAt(milliseconds));
  if (isVisible()) return;
  raise();
  show();
}

void WaitSign::ShowNone() {
  for (Light* const bar : bars_)
    bar->ShowStrength(1);
  hide();
}

void WaitSign::TakePlace() {
  setGeometry(kBeside, kBelowHead, grid_.width() - 2 * kBeside, kHeight);
}

bool WaitSign::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Resize) TakePlace();
  return false;
}

void WaitSign::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(theme::kBorder));
  painter.setBrush(QColor::fromRgb(theme::kAccentPale));
  painter.drawRoundedRect(QRectF(rect()).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
}

}  // namespace vintoral
