#include "app/Waiting.h"

#include <QMessageBox>
#include <algorithm>
#include <cstdlib>

#include "platform/desktop/DesktopPlatform.h"
#include "station/form1/PreguntaCierre.h"
#include "window/form1/MainWindow.h"
#include "window/form1/WaitSign.h"

namespace vintoral {

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kLook{100};
/// After this the operator is told what is waited for, in milliseconds.
constexpr std::int64_t kUntilTold = 1000;
/// What a station is given to end by itself, which may hang without having been found out yet.
constexpr milliseconds kPatience{1100};
/// Until the whole program is gone, from the moment at which it was to end: while the folder hangs, and where
/// all is well and a mail is given its 10 s to leave the house.
constexpr milliseconds kUntilGoneLate{1800}, kUntilGone{12'000};

}  // namespace

Waiting::Waiting(DesktopPlatform& devices, MainWindow& window)
    : devices_(devices),
      window_(window),
      rings_(devices.Thread.Watch().Descriptor(), QSocketNotifier::Read),
      patience_(kUntilGone) {
  QObject::connect(&rings_, &QSocketNotifier::activated, &rings_, [this] {
    devices_.Thread.Watch().Hear();
    Look();
    looks_.start(kLook);
  });
  QObject::connect(&looks_, &QTimer::timeout, &looks_, [this] { Look(); });
}

bool Waiting::SeeToClosing() {
  if (late_) Ask();
  return late_;
}

void Waiting::Look() {
  const std::optional<std::int64_t> busy = devices_.Thread.Watch().Busy();
  late_ = busy && *busy >= BusyWatch::kPatience;
  devices_.Screen.ShowLate(late_);
  if (!late_) looks_.stop();
  if (late_ && Withdraw && Withdraw()) Ask();
  // Long work says itself how far it is.
  if (late_ && *busy >= kUntilTold && !devices_.Screen.ShowsWork()) {
    window_.Appear();  // where the folder hangs in the middle of the start
    return window_.Waiting().ShowWait(*busy);
  }
  window_.Waiting().ShowNone();
}

void Waiting::Ask() {
  if (asking_) return;
  asking_ = true;
  QMessageBox& box = devices_.Screen.Ask(PreguntaCierre(), [this](Answer answer) {
    asking_ = false;
    if (answer == Answer::kYes) EndSoon();
  });
  box.setAttribute(Qt::WA_DeleteOnClose);
}

void Waiting::EndSoon() {
  GoneSoon();
  if (OnEnd) OnEnd();
}

void Waiting::GoneSoon() {
  ending_ = std::chrono::steady_clock::now();
  patience_ = late_ ? kUntilGoneLate : kUntilGone;
  QTimer::singleShot(kPatience, &rings_, [this] {
    if (!devices_.Thread.EndWithin(0)) std::_Exit(0);
  });
}

milliseconds Waiting::Left() const {
  if (!ending_) return patience_;
  const auto gone = std::chrono::steady_clock::now() - *ending_;
  return std::max(milliseconds(0), patience_ - std::chrono::duration_cast<milliseconds>(gone));
}

}  // namespace vintoral
