#include "window/controls/Style.h"

#include <QCheckBox>
#include <QPainter>
#include <QStyleOption>
#include <algorithm>

#include "window/controls/Theme.h"

namespace vintoral {

namespace {

constexpr int kToolkitInset = 2;  // what an entry box adds by itself before its text
constexpr int kPadding = theme::kTextInset - kToolkitInset;
constexpr int kListRow = 30;     // of an open list: to be hit without aiming
constexpr int kArrowWidth = 28;  // of the part of a list that opens it

/// An outline with its ground; the ring takes the outline's place when the keyboard is here.
void PaintField(QPainter& painter, const QRect& area, const QStyleOption& option) {
  const bool focus = option.state & QStyle::State_HasFocus;
  const bool enabled = option.state & QStyle::State_Enabled;
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QColor::fromRgb(enabled ? theme::kBorder : theme::kLine));
  const bool open = enabled && !(option.state & QStyle::State_ReadOnly);
  painter.setBrush(open ? option.palette.base() : QBrush(QColor::fromRgb(theme::kWindow)));
  painter.drawRoundedRect(QRectF(area).adjusted(0.5, 0.5, -0.5, -0.5), theme::kRadius, theme::kRadius);
  const bool onDark = option.palette.window().color().lightness() < 128;
  if (focus) theme::PaintFocusRing(painter, area, onDark);
  painter.restore();
}

void PaintArrow(QPainter& painter, const QRect& area, const QColor& color) {
  const QPointF center = QRectF(area).center();
  const QPointF points[] = {center + QPointF(-4, -2), center + QPointF(0, 2.5), center + QPointF(4, -2)};
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(QPen(color, 1.75, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(points, 3);
  painter.restore();
}

}  // namespace

Style::Style() : QProxyStyle(QStringLiteral("Fusion")) {}

void Style::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                          const QWidget* widget) const {
  if (element == PE_PanelLineEdit) {
    const auto* const frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
    if (frame != nullptr && frame->lineWidth > 0) PaintField(*painter, option->rect, *option);
    return;
  }
  if (element == PE_FrameFocusRect && qobject_cast<const QCheckBox*>(widget) != nullptr) {
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    theme::PaintFocusRing(*painter, option->rect);
    return painter->restore();
  }
  QProxyStyle::drawPrimitive(element, option, painter, widget);
}

void Style::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                               const QWidget* widget) const {
  if (control != CC_ComboBox) return QProxyStyle::drawComplexControl(control, option, painter, widget);
  PaintField(*painter, option->rect, *option);
  PaintArrow(*painter, subControlRect(control, option, SC_ComboBoxArrow, widget),
             option->state & State_Enabled ? option->palette.text().color() : QColor::fromRgb(theme::kOff));
}

QRect Style::subElementRect(SubElement element, const QStyleOption* option, const QWidget* widget) const {
  // The text stands at the same place with and without an outline.
  if (element == SE_LineEditContents) return option->rect.adjusted(kPadding, 1, -kPadding, -1);
  return QProxyStyle::subElementRect(element, option, widget);
}

QRect Style::subControlRect(ComplexControl control, const QStyleOptionComplex* option, SubControl part,
                            const QWidget* widget) const {
  if (control == CC_ComboBox && part == SC_ComboBoxArrow)
    return option->rect.adjusted(option->rect.width() - kArrowWidth, 0, 0, 0);
  if (control == CC_ComboBox && part == SC_ComboBoxEditField)
    return option->rect.adjusted(theme::kTextInset - 1, 2, -kArrowWidth, -2);
  return QProxyStyle::subControlRect(control, option, part, widget);
}

QSize Style::sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                              const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_ItemViewItem) size.setHeight(std::max(size.height(), kListRow));
  return size;
}

int Style::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                     QStyleHintReturn* result) const {
  if (hint == SH_ComboBox_Popup) return 0;  // opens below, like a list
  if (hint == SH_ToolTip_WakeUpDelay) return 400;
  return QProxyStyle::styleHint(hint, option, widget, result);
}

}  // namespace vintoral
