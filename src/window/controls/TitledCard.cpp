#include "window/controls/TitledCard.h"

#include <QPainter>

#include "window/controls/Theme.h"

namespace vintoral {

TitledCard::TitledCard(QWidget* parent) : Card(theme::kCard, theme::kLine, parent) {}

void TitledCard::ShowTitle(const QString& title) {
  title_ = title;
  setAccessibleName(title_);
  update();
}

void TitledCard::paintEvent(QPaintEvent* event) {
  Card::paintEvent(event);
  QPainter painter(this);
  painter.setFont(theme::TextFont(theme::kTextPixels, QFont::Bold));
  painter.setPen(QColor::fromRgb(theme::kMuted));
  const QRect above(kInside.left(), 0, width() - kInside.left() - kInside.right(), kInside.top());
  painter.drawText(above, Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, title_);
}

}  // namespace vintoral
