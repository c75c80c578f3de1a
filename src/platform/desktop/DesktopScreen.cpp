#include "platform/desktop/DesktopScreen.h"

#include <QApplication>
#include <QEventLoop>
#include <QMessageBox>
#include <QPointer>
#include <QProgressDialog>
#include <QPushButton>
#include <QSize>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <utility>

namespace vintoral {

namespace {

constexpr QSize kButtonSize{104, 36};  // to be hit without aiming

QString Caption(Answer answer) {
  switch (answer) {
    case Answer::kOk:
      return QStringLiteral("&Aceptar");
    case Answer::kYes:
      return QStringLiteral("&Sí");
    case Answer::kNo:
      return QStringLiteral("&No");
    case Answer::kCancel:
      return QStringLiteral("&Cancelar");
  }
  return {};
}

QMessageBox::Icon SignOf(Icon icon) {
  switch (icon) {
    case Icon::kNone:
      return QMessageBox::NoIcon;
    case Icon::kInformation:
      return QMessageBox::Information;
    case Icon::kQuestion:
      return QMessageBox::Question;
    case Icon::kExclamation:
      return QMessageBox::Warning;
    case Icon::kCritical:
      return QMessageBox::Critical;
  }
  return QMessageBox::NoIcon;
}

QString Utf16(const String& text) {
  return QString::fromStdString(text.ToUtf8());
}

using Button = std::pair<QPushButton*, Answer>;

/// The buttons, in screen order.
std::vector<Button> Build(QMessageBox& dialog, const Box& box) {
  dialog.setWindowTitle(Utf16(box.title));
  dialog.setTextFormat(Qt::PlainText);
  dialog.setText(Utf16(box.text));
  dialog.setIcon(SignOf(box.icon));
  std::vector<Button> buttons;
  for (const Answer answer : box.buttons) {
    // Buttons of one role stand in the order in which they are added.
    QPushButton* const button = dialog.addButton(Caption(answer), QMessageBox::ActionRole);
    button->setMinimumSize(kButtonSize);
    buttons.emplace_back(button, answer);
    if (answer == box.preselected) dialog.setDefaultButton(button);
    if (answer == HarmlessAnswer(box)) dialog.setEscapeButton(button);
  }
  return buttons;
}

Answer AnswerOf(const QMessageBox& dialog, const std::vector<Button>& buttons, const Box& box) {
  const auto pressed = std::find_if(buttons.begin(), buttons.end(), [&](const Button& button) {
    return button.first == dialog.clickedButton();
  });
  return pressed == buttons.end() ? HarmlessAnswer(box) : pressed->second;
}

}  // namespace

DesktopScreen::DesktopScreen() = default;
DesktopScreen::~DesktopScreen() = default;

Answer DesktopScreen::Show(const Box& box) {
  if (BeforeWaiting) BeforeWaiting();
  // It goes with the window that it belongs to, should that be closed beneath it.
  const QPointer<QMessageBox> dialog(new QMessageBox(Owner ? Owner() : nullptr));
  const std::vector<Button> buttons = Build(*dialog, box);
  if (OnShown) QTimer::singleShot(0, dialog, [&] { OnShown(*dialog, box); });
  const bool busy = busy_;
  Busy(false);  // the pointer that answers a box is an ordinary one
  dialog->exec();
  Busy(busy);
  const Answer answer = dialog ? AnswerOf(*dialog, buttons, box) : HarmlessAnswer(box);
  delete dialog;
  return answer;
}

void DesktopScreen::ShowModal(const ScreenForm& form) {
  if (BeforeWaiting) BeforeWaiting();
  const bool busy = busy_;
  Busy(false);
  QEventLoop loop;
  while (form.Shown())
    loop.processEvents(QEventLoop::WaitForMoreEvents);
  Busy(busy);
}

void DesktopScreen::Wait(std::int64_t milliseconds) {
  if (BeforeWaiting) BeforeWaiting();
  QEventLoop loop;
  QTimer::singleShot(std::chrono::milliseconds(milliseconds), Qt::PreciseTimer, &loop, &QEventLoop::quit);
  loop.exec();
}

bool DesktopScreen::Working(const String& what, double done) {
  constexpr int kSteps = 1000;
  constexpr std::chrono::milliseconds kUntilShown{500};
  if (!progress_) {
    if (BeforeWaiting) BeforeWaiting();
    progress_ =
        new QProgressDialog(Utf16(what), Caption(Answer::kCancel), 0, kSteps, Owner ? Owner() : nullptr);
    progress_->setWindowModality(Qt::ApplicationModal);  // which lets its setValue serve the events
    progress_->setMinimumDuration(static_cast<int>(kUntilShown.count()));
    progress_->setAutoReset(false);
    progress_->setAutoClose(false);
  }
  progress_->setValue(static_cast<int>(done * kSteps));
  return progress_ && !progress_->wasCanceled();
}

void DesktopScreen::Worked() {
  delete progress_;
}

void DesktopScreen::Beep() {
  QApplication::beep();
}

void DesktopScreen::Busy(bool busy) {
  if (busy == busy_) return;
  busy_ = busy;
  if (busy) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace vintoral
