#include "window/controls/DialogWindow.h"

#include <QCloseEvent>
#include <QScreen>

#include "window/controls/Hands.h"
#include "window/controls/InputFilter.h"

namespace vintoral {

DialogWindow::DialogWindow(Form& form, Hands& hands, QWidget* owner)
    : QWidget(owner, Qt::Dialog),
      mirror_(form),
      form_(form),
      hands_(hands),
      filter_(new InputFilter(*this, mirror_, hands)) {
  setObjectName(QString::fromStdString(form.Name()));
  setWindowTitle(owner->windowTitle());
  mirror_.RestOn(*this);
}

void DialogWindow::Refresh(bool modal) {
  if (!form_.Shown()) return hide();
  mirror_.Sync();
  if (!isVisible()) Appear(modal);
}

void DialogWindow::Appear(bool modal) {
  setWindowModality(modal ? Qt::ApplicationModal : Qt::NonModal);
  QRect place(QPoint(), size().boundedTo(screen()->availableSize()).expandedTo(minimumSizeHint()));
  place.moveCenter(parentWidget()->geometry().center());
  setGeometry(place);
  show();
}

void DialogWindow::Retire() {
  filter_->Close();
  setEnabled(false);  // the mouse may still hold something here
  hide();
  deleteLater();
}

void DialogWindow::closeEvent(QCloseEvent* event) {
  event->ignore();
  hands_.CloseBox(form_);
}

}  // namespace vintoral
