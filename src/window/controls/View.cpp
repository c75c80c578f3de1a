#include "window/controls/View.h"

#include <QWidget>

#include "window/controls/Text.h"

namespace vintoral {

View::View(Control& control, QWidget& widget) : control_(control), widget_(widget) {
  widget_.setObjectName(QString::fromStdString(control_.Name));
  widget_.setAttribute(Qt::WA_NoMousePropagation);  // a click belongs to one control
  // What is hidden keeps its place, so that nothing else moves.
  QSizePolicy policy = widget_.sizePolicy();
  policy.setRetainSizeWhenHidden(true);
  widget_.setSizePolicy(policy);
}

void View::Sync() {
  // What is hidden is brought up to date when it appears, and costs nothing until then.
  appears_ = visible_.Changed(control_.Visible) && control_.Visible;
  if (control_.Visible) ShowOwn();
  if (enabled_.Changed(control_.Enabled)) widget_.setEnabled(control_.Enabled);
  if (widget_.isHidden() == control_.Visible) widget_.setVisible(control_.Visible);
  if (toolTip_.Changed(control_.ToolTipText)) ShowToolTip();
}

void View::ShowToolTip() {
  const QString text = ToQString(TrimBlanks(control_.ToolTipText));
  // "<F4> Imprimir" would pass for rich text.
  widget_.setToolTip(text.isEmpty()
                         ? QString()
                         : QStringLiteral("<p style='white-space:pre'>%1</p>").arg(text.toHtmlEscaped()));
  if (!text.isEmpty()) widget_.setAccessibleName(text);
}

}  // namespace vintoral
