#include "window/controls/View.h"

#include <QWidget>

#include "window/controls/Text.h"

namespace vintoral {

View::View(ControlState& state, QWidget& widget) : state_(state), widget_(widget) {
  widget_.setObjectName(QString::fromStdString(state_.id.control));
  widget_.setAttribute(Qt::WA_NoMousePropagation);  // a click belongs to one control
  // What is hidden keeps its place, so that nothing else moves.
  QSizePolicy policy = widget_.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget_.setSizePolicy(policy);
}

void View::Show() {
  // What is hidden is brought up to date when it appears, and costs nothing until then.
  const bool visible = *state_.visible;
  appears_ = state_.visible.News() && visible;
  if (visible) ShowOwn();
  if (state_.enabled.News()) widget_.setEnabled(*state_.enabled);
  if (widget_.isHidden() == visible) widget_.setVisible(visible);
  if (state_.toolTip.News()) ShowToolTip();
}

void View::ShowToolTip() {
  const QString text = ToQString(TrimBlanks(*state_.toolTip));
  // "<F4> Imprimir" would pass for rich text.
  widget_.setToolTip(text.isEmpty()
                         ? QString()
                         : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()));
  if (!text.isEmpty()) widget_.setAccessibleName(text);
}

}  // namespace vintoral
