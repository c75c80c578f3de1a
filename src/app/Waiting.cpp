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
/// What a station that hangs is given to end by itself, and one that did not hang. The program is gone within
/// two seconds, of which its end may take as long once more.
constexpr milliseconds kPatience{900}, kPatienceWithOne{5000};

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
  QTimer::singleShot(late_ ? kPatience : kPatienceWithOne, [] { std::_Exit(0); });
  if (OnEnd) OnEnd();
}

}  // namespace vintoral
