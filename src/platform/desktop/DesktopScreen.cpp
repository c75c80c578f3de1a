#include "platform/desktop/DesktopScreen.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QProgressBar>
#include <QProgressDialog>
#include <QPushButton>
#include <QShortcutEvent>
#include <QSize>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <utility>

namespace vintoral {

namespace {

constexpr QSize kButtonSize{104, 36};  // to be hit without aiming
constexpr int kSteps = 1000;           // of the progress of long work

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

/// Alt and its letter press it at once. The toolkit's own would stay down for a tenth of a second, and keep
/// whatever is typed meanwhile from the station.
class BoxButton : public QPushButton {
 public:
  using QPushButton::QPushButton;

 protected:
  bool event(QEvent* event) override {
    if (event->type() != QEvent::Shortcut || static_cast<QShortcutEvent*>(event)->isAmbiguous())
      return QPushButton::event(event);
    click();
    return true;
  }
};

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
    auto* const button = new BoxButton(Caption(answer), &dialog);
    dialog.addButton(button, QMessageBox::ActionRole);
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

/// The button that Alt and a letter press.
QAbstractButton* ButtonOf(const QMessageBox& dialog, const QKeyEvent& key) {
  if (!(key.modifiers() & Qt::AltModifier)) return nullptr;
  for (QAbstractButton* const button : dialog.buttons()) {
    if (QKeySequence::mnemonic(button->text()) == QKeySequence(Qt::ALT | key.key())) return button;
  }
  return nullptr;
}

}  // namespace

/// Long work under way. The station's thread says how far it is; the window's shows that, and breaks it off.
struct DesktopScreen::Work {
  std::atomic<bool> brokenOff = false;
  int shown = -1;  ///< how far, the last time that the window was told; of the station's thread
};

DesktopScreen::DesktopScreen(Seam& seam) : seam_(seam) {}
DesktopScreen::~DesktopScreen() = default;

Answer DesktopScreen::Show(const Box& box) {
  if (BeforeWaiting) BeforeWaiting();
  const auto answer = std::make_shared<std::optional<Answer>>();
  const auto dialog = std::make_shared<QPointer<QMessageBox>>();
  const bool busy = busy_;
  Busy(false);  // the pointer that answers a box is an ordinary one
  seam_.ToWindow([this, box, answer, dialog] {
    *dialog = &Raise(box, [this, box, answer](Answer given) {
      if (OnAnswered) OnAnswered(box, given);
      seam_.Answer([answer, given] { *answer = given; });
    });
    if (OnUp) OnUp();
  });
  seam_.Serve(Seam::Hands::kHeld, std::nullopt, [&] { return answer->has_value(); });
  seam_.ToWindow([dialog] { delete *dialog; });
  Busy(busy);
  return answer->value_or(HarmlessAnswer(box));
}

QMessageBox& DesktopScreen::Ask(const Box& box, std::function<void(Answer)> answered) {
  own_ = &Raise(box, [this, answered = std::move(answered)](Answer answer) {
    own_ = nullptr;
    ShowPointer();
    answered(answer);
  });
  ShowPointer();
  return *own_;
}

QMessageBox& DesktopScreen::Raise(const Box& box, std::function<void(Answer)> answered) {
  // It goes with the window that it belongs to, should that be closed beneath it.
  auto* const dialog = new QMessageBox(Owner ? Owner() : nullptr);
  const std::vector<Button> buttons = Build(*dialog, box);
  dialog->setWindowModality(Qt::ApplicationModal);
  const auto tell = [once = std::make_shared<bool>(false), answered = std::move(answered)](Answer answer) {
    if (!std::exchange(*once, true)) answered(answer);
  };
  QObject::connect(dialog, &QDialog::finished, dialog, [=] { tell(AnswerOf(*dialog, buttons, box)); });
  QObject::connect(dialog, &QObject::destroyed, [=] { tell(HarmlessAnswer(box)); });
  if (OnShown) QTimer::singleShot(0, dialog, [this, dialog, box] { OnShown(*dialog, box); });
  dialog->show();
  return *dialog;
}

bool DesktopScreen::ToBox(const QKeyEvent* key) {
  const QPointer<QMessageBox> box(qobject_cast<QMessageBox*>(QApplication::activeModalWidget()));
  if (!box || box == own_) return false;
  if (key == nullptr) return true;
  if (QAbstractButton* const button = ButtonOf(*box, *key)) return button->click(), true;
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    if (!box || !box->isVisible()) break;
    QKeyEvent event(type, key->key(), key->modifiers(), key->text());
    event.setTimestamp(key->timestamp());
    QCoreApplication::sendEvent(box->windowHandle(), &event);
  }
  return true;
}

void DesktopScreen::ShowModal(const ScreenForm& form) {
  if (BeforeWaiting) BeforeWaiting();
  const bool busy = busy_;
  Busy(false);
  seam_.Serve(Seam::Hands::kServed, std::nullopt, [&] { return !form.Shown(); });
  Busy(busy);
}

void DesktopScreen::Wait(std::int64_t milliseconds) {
  if (BeforeWaiting) BeforeWaiting();
  seam_.Serve(Seam::Hands::kServed, milliseconds, [] { return false; });
}

bool DesktopScreen::Working(const String& what, double done) {
  if (!work_) {
    if (BeforeWaiting) BeforeWaiting();
    work_ = std::make_shared<Work>();
    seam_.ToWindow([this, what, work = work_] { ShowWork(what, work); });
  }
  const int step = static_cast<int>(done * kSteps);
  if (std::exchange(work_->shown, step) != step) {
    // The bar's own: that of the dialog runs events, and with them what the station says next.
    seam_.ToWindow([this, step] {
      if (progress_) progress_->findChild<QProgressBar*>()->setValue(step);
    });
  }
  seam_.Breathe();
  return !work_->brokenOff;
}

void DesktopScreen::ShowWork(const String& what, const std::shared_ptr<Work>& work) {
  constexpr std::chrono::milliseconds kUntilShown{500};
  delete progress_;
  progress_ =
      new QProgressDialog(Utf16(what), Caption(Answer::kCancel), 0, kSteps, Owner ? Owner() : nullptr);
  progress_->setWindowModality(Qt::ApplicationModal);
  progress_->setAutoReset(false);
  progress_->setAutoClose(false);
  shownWork_ = work;
  const auto breakOff = [work] { work->brokenOff = true; };
  // The dialog's own patience begins with its own values, which it is not given.
  QTimer::singleShot(kUntilShown, progress_, [progress = progress_.data()] {
    if (!progress->wasCanceled()) progress->show();
  });
  QObject::connect(progress_, &QProgressDialog::canceled, breakOff);
  QObject::connect(progress_, &QObject::destroyed, breakOff);
}

bool DesktopScreen::BreakOff() {
  const std::shared_ptr<Work> work = shownWork_.lock();
  if (work == nullptr || !progress_ || work->brokenOff.exchange(true)) return false;
  progress_->cancel();
  return true;
}

bool DesktopScreen::ShowsWork() const {
  return progress_ && progress_->isVisible();
}

void DesktopScreen::Worked() {
  if (!std::exchange(work_, nullptr)) return;
  seam_.ToWindow([this] { delete progress_; });
}

void DesktopScreen::Beep() {
  seam_.ToWindow([] { QApplication::beep(); });
}

void DesktopScreen::Busy(bool busy) {
  if (std::exchange(busy_, busy) == busy) return;
  seam_.ToWindow([this, busy] {
    shownBusy_ = busy;
    ShowPointer();
  });
}

void DesktopScreen::ShowLate(bool late) {
  late_ = late;
  ShowPointer();
}

void DesktopScreen::ShowPointer() {
  const bool hourglass = (shownBusy_ || late_) && !own_;  // it would lie over the question's buttons
  if (std::exchange(hourglass_, hourglass) == hourglass) return;
  if (hourglass) {
    QApplication::setOverrideCursor(Qt::WaitCursor);
  } else {
    QApplication::restoreOverrideCursor();
  }
}

}  // namespace vintoral
