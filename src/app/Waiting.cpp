#include "app/Waiting.h"

#include <QMessageBox>
#include <chrono>
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
/// What a station is given to end by itself, which may hang without having been found out yet; and what one
/// that has ended is given to put its devices away.
constexpr milliseconds kPatience{1100}, kPatienceWithDevices{5000};

}  // namespace

Waiting::Waiting(DesktopPlatform& devices, MainWindow& window)
    : devices_(devices), window_(window), rings_(devices.Thread.Watch().Descriptor(), QSocketNotifier::Read) {
  QObject::connect(&rings_, &QSocketNotifier::activated, &rings_, [this] {
    devices_.Thread.Watch().Hear();
    Look();
    looks_.start(kLook);
  });
  QObject::connect(&looks_, &QTimer::timeout, &looks_, [this] { Look(); });
  window_.OnClose = [this] {
    if (!late_) return false;
    Ask();
    return true;
  };
}

void Waiting::Look() {
  const std::optional<std::int64_t> busy = devices_.Thread.Watch().Busy();
  late_ = busy && *busy >= BusyWatch::kPatience;
  devices_.Screen.ShowLate(late_);
  if (!late_) looks_.stop();
  // Long work says itself how far it is.
  if (late_ && *busy >= kUntilTold && !devices_.Screen.ShowsWork()) return window_.Waiting().ShowWait(*busy);
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
  QTimer::singleShot(kPatience, &rings_, [this] {
    if (!devices_.Thread.EndWithin(0)) std::_Exit(0);
  });
  QTimer::singleShot(kPatienceWithDevices, [] { std::_Exit(0); });
}

}  // namespace vintoral
