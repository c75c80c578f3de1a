#include "window/controls/DialogWindow.h"

#include <QCloseEvent>
#include <QScreen>

#include "window/controls/Hands.h"
#include "window/controls/InputFilter.h"

namespace vintoral {

DialogWindow::DialogWindow(const Snapshots::Taken& form, Hands& hands, QWidget* owner)
    : QWidget(owner, Qt::Dialog),
      mirror_(form),
      hands_(hands),
      filter_(new InputFilter(*this, mirror_, hands)) {
  setObjectName(QString::fromStdString(mirror_.Snapshot().name));
  mirror_.RestOn(*this);
}

void DialogWindow::Refresh() {
  mirror_.Copy();
  if (!mirror_.Snapshot().shown) return hide();
  mirror_.Show();
  if (!isVisible()) Appear();
}

void DialogWindow::Appear() {
  setWindowModality(mirror_.Snapshot().modal ? Qt::ApplicationModal : Qt::NonModal);
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
  hands_.CloseBox(mirror_.Snapshot().name);
}

}  // namespace vintoral
