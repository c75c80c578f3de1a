// typed-gate SEED: the station in the current folder, on the offscreen platform, in a time that only passes
// when it is told to, under keys that are typed on command. It begins on 20/11/2026 at 13:59:57, with a
// camera that gives no picture and with the chance that SEED makes.
//
// A line of standard input, and what it does; each is answered {"ok": true, ...} or {"ok": false, "error":
// ...}:
//   {"do": "time", "at": 7000}       milliseconds since the start: every timer ticks at its own moment;
//                                    "passed": false while the station hangs, when time stands
//   {"do": "key", "at": 7100, "key": "Return", "text": "\r", "alt": true, "control": true, "shift": true}
//                                    a key goes down and up in the window that has the keyboard, whether the
//                                    station hangs or not
//   {"do": "settle", "within": 50}   waits, so many real milliseconds at the most, until the station has
//                                    served all, and waits for hands or for an answer, and all is shown:
//                                    "settled"
//   {"do": "shown", "name": "TxtCampo(0)"}    "text": what the control of that name in front shows
//   {"do": "close"}                  the window is closed by its frame
//   {"do": "state"}                  only tells what each answer tells: "kept" (a key is), "late", "box" (the
//                                    text of the box that is up, or null), "form" in front, "ended",
//                                    "behind" (milliseconds that the station's time has lost)
// It ends when the station has ended, and when its input does.
#include <fcntl.h>
#include <unistd.h>

#include <QApplication>
#include <QDir>
#include <QKeySequence>
#include <QLineEdit>
#include <QMessageBox>
#include <QPointer>
#include <QSocketNotifier>
#include <QTest>
#include <QWindow>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <nlohmann/json.hpp>
#include <thread>

#include "app/Station.h"
#include "app/Toolkit.h"
#include "platform/headless/GivenCamera.h"
#include "platform/headless/SeededRandom.h"
#include "support/OnePainter.h"
#include "window/controls/CaptionLabel.h"

namespace vintoral::test {
namespace {

using nlohmann::json;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

/// Passes when it is told to. Any thread may read it.
class ToldClock : public Clock {
 public:
  Moment Now() const override { return begin_.Plus(passed_); }
  /// From a start that is not 0: to the toolkit a key of time 0 has none.
  std::int64_t Ticks() const override { return kBegin + passed_; }
  void MoveTo(std::int64_t ticks) { passed_ = std::max<std::int64_t>(passed_, ticks - kBegin); }
  static std::int64_t TicksAt(std::int64_t sinceStart) { return kBegin + sinceStart; }

 private:
  static constexpr std::int64_t kBegin = 1'000'000;
  Moment begin_ = *Moment::From(
      {.year = 2026, .month = 11, .day = 20, .hour = 13, .minute = 59, .second = 57, .millisecond = 0});
  std::atomic<std::int64_t> passed_ = 0;
};

QMessageBox* BoxThatIsUp() {
  return qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
}

class TypedGate {
 public:
  explicit TypedGate(std::uint64_t seed);
  bool HasEnded() { return station_.HasEnded(); }

 private:
  std::string Prepared(std::uint64_t seed);
  void Read();
  void Serve(const std::string& line);
  json Do(const json& command);
  void MoveTo(std::int64_t at);
  bool Pass(std::int64_t at);
  void Key(const json& command);
  bool Settle(milliseconds patience);
  bool Waits() const;
  bool ComesToWait(steady_clock::time_point limit);
  bool IsSettled(steady_clock::time_point limit);
  json Shown(const std::string& name) const;
  json State();
  bool Ended() { return station_.Devices.Thread.EndWithin(0); }

  ToldClock clock_;
  SeededRandom chance_;
  GivenCamera camera_;
  Station station_;
  QSocketNotifier input_{STDIN_FILENO, QSocketNotifier::Read};
  std::string pending_;
  bool serving_ = false;
  std::int64_t behind_ = 0;  ///< of the station's clock when it came to rest last
  /// What the station answers as soon as it waits for something; it may still be asked when it hangs.
  struct Question {
    std::atomic<bool> answered = false;
    std::atomic<std::int64_t> next = -1;  ///< when a timer is due; -1: none runs
    std::atomic<std::int64_t> ticks = 0;
  };
  std::shared_ptr<const Question> Ask(milliseconds patience);
  std::shared_ptr<Question> asked_;
};

TypedGate::TypedGate(std::uint64_t seed)
    : station_(Prepared(seed), {.camera = &camera_, .clock = &clock_, .chance = &chance_}) {
  fcntl(STDIN_FILENO, F_SETFL, O_NONBLOCK);
  QObject::connect(&input_, &QSocketNotifier::activated, &input_, [this] { Read(); });
}

/// The station's folder, for a station that begins as soon as it is made.
std::string TypedGate::Prepared(std::uint64_t seed) {
  chance_.Seed(seed);
  camera_.Installed = {"CAMARA"_w};
  return QDir::currentPath().toStdString();
}

// A command may serve the window's events while it waits: the next line is its turn when that is through.
void TypedGate::Read() {
  std::array<char, 4096> bytes{};
  const ssize_t got = read(STDIN_FILENO, bytes.data(), bytes.size());
  if (got == 0) return input_.setEnabled(false), station_.EndWithoutAsking();
  if (got > 0) pending_.append(bytes.data(), static_cast<std::size_t>(got));
  if (serving_) return;
  serving_ = true;
  for (std::size_t end = pending_.find('\n'); end != std::string::npos; end = pending_.find('\n')) {
    const std::string line = pending_.substr(0, end);
    pending_.erase(0, end + 1);
    Serve(line);
  }
  serving_ = false;
}

void TypedGate::Serve(const std::string& line) {
  json answer;
  try {
    answer = Do(json::parse(line));
    answer.update(State());
    answer["ok"] = true;
  } catch (const std::exception& wrong) {
    answer = {{"ok", false}, {"error", wrong.what()}};
  }
  std::puts(answer.dump().c_str());
  std::fflush(stdout);
}

/// What the answer tells besides the state.
json TypedGate::Do(const json& command) {
  const std::string what = command.at("do");
  if (what == "time") return {{"passed", Pass(ToldClock::TicksAt(command.at("at")))}};
  if (what == "settle") return {{"settled", Settle(milliseconds(command.at("within")))}};
  if (what == "shown") return {{"text", Shown(command.at("name"))}};
  if (what == "key") Key(command);
  if (what == "close") station_.Window.close();
  return json::object();
}

/// Null while the station hangs.
std::shared_ptr<const TypedGate::Question> TypedGate::Ask(milliseconds patience) {
  if (asked_ && !asked_->answered) return nullptr;
  asked_ = std::make_shared<Question>();
  station_.Devices.Thread.Tell([this, asked = asked_] {
    asked->next = station_.Form.OpenForms.NextTick();
    asked->ticks = station_.Devices.Thread.Time().Ticks();
    asked->answered = true;
  });
  const steady_clock::time_point limit = steady_clock::now() + patience;
  while (!asked_->answered && !Ended() && steady_clock::now() < limit)
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  return asked_->answered ? asked_ : nullptr;
}

/// A real clock does not move in one leap between two looks at it. So the station is told before that it is
/// not later than this.
void TypedGate::MoveTo(std::int64_t at) {
  if (!station_.Queue.Keeps()) station_.Devices.Thread.Keep(at);
  clock_.MoveTo(at);
  station_.Devices.Thread.Wake();
}

/// Nothing that hands did is left to be served, as far as the window knows.
bool TypedGate::Waits() const {
  return !station_.Queue.Keeps() && (station_.Devices.Thread.Free() || BoxThatIsUp() != nullptr);
}

/// Has it come to wait for hands or for an answer by then? Without serving the window's events.
bool TypedGate::ComesToWait(steady_clock::time_point limit) {
  if (station_.Queue.Keeps() || (asked_ && !asked_->answered)) return Waits();
  while (!Waits() && !Ended() && steady_clock::now() < limit)
    std::this_thread::sleep_for(std::chrono::microseconds(20));
  return Waits();
}

/// Each timer finds the station at its own moment. False while the station hangs: then time stands.
bool TypedGate::Pass(std::int64_t at) {
  constexpr milliseconds kHangs{25}, kNothingCanHang{10'000};
  if (!ComesToWait(steady_clock::now() + kHangs)) return false;
  milliseconds patience = kHangs;
  for (;;) {
    const std::shared_ptr<const Question> answer = Ask(patience);
    if (!answer) return false;
    const bool ticksBefore = answer->next >= 0 && answer->next <= at;
    if (!ticksBefore && answer->ticks >= at) break;
    patience = ticksBefore ? kHangs : kNothingCanHang;
    MoveTo(ticksBefore ? answer->next.load() : at);
  }
  station_.Queue.Go();
  return true;
}

Qt::KeyboardModifiers ModifiersOf(const json& command) {
  Qt::KeyboardModifiers all;
  for (const auto& [name, modifier] :
       {std::pair{"alt", Qt::AltModifier}, {"control", Qt::ControlModifier}, {"shift", Qt::ShiftModifier}})
    all.setFlag(modifier, command.value(name, false));
  return all;
}

/// As the system sends it, with the time at which it was typed. QTest's own keys have the machine's.
void Send(const QPointer<QWindow>& window, const QKeyEvent& key) {
  if (!window) return;
  if (key.type() == QEvent::KeyPress &&
      qt_sendShortcutOverrideEvent(window, key.timestamp(), key.key(), key.modifiers(), key.text()))
    return;
  const std::unique_ptr<QKeyEvent> event(key.clone());
  if (window) QCoreApplication::sendEvent(window, event.get());
}

void TypedGate::Key(const json& command) {
  const std::int64_t at = ToldClock::TicksAt(command.at("at"));
  if (!Pass(at)) MoveTo(at);
  QWidget* const box = BoxThatIsUp();
  QWidget* const front = box != nullptr ? box : station_.Dialogs.Active();
  // There is no window manager that would.
  if (QApplication::activeWindow() != front) QApplication::setActiveWindow(front);
  const QPointer<QWindow> window(front->windowHandle());
  const QString name = QString::fromStdString(command.at("key")),
                text = QString::fromStdString(command.value("text", ""));
  const int code = QKeySequence(name)[0].key();
  for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
    QKeyEvent key(type, code, ModifiersOf(command), text);
    key.setTimestamp(static_cast<quint64>(at));
    Send(window, key);
  }
  station_.Queue.Go();
}

/// The station has answered a question that was put behind all else, and what it showed before is shown.
bool TypedGate::IsSettled(steady_clock::time_point limit) {
  struct Rest {
    std::int64_t next = -1, behind = 0;
    bool told = false;
  };
  const auto rest = std::make_shared<Rest>();
  StationThread& thread = station_.Devices.Thread;
  QCoreApplication::processEvents();
  if (!Waits()) return false;
  thread.Tell([this, rest, &thread] {
    rest->next = station_.Form.OpenForms.NextTick();
    rest->behind = clock_.Ticks() - thread.Time().Ticks();
    thread.ToWindow([rest] { rest->told = true; });
  });
  while (!rest->told && !Ended() && steady_clock::now() < limit) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::microseconds(50));
  }
  QCoreApplication::processEvents();
  const bool settled = rest->told && Waits() && (rest->next < 0 || rest->next > clock_.Ticks());
  if (settled) behind_ = rest->behind;
  return settled;
}

/// False when it has not come to rest by then.
bool TypedGate::Settle(milliseconds patience) {
  const steady_clock::time_point limit = steady_clock::now() + patience;
  while (!Ended() && !IsSettled(limit)) {
    if (steady_clock::now() > limit) return false;
  }
  return true;
}

json TypedGate::Shown(const std::string& name) const {
  auto* const face = station_.Dialogs.Active()->findChild<QWidget*>(QString::fromStdString(name));
  if (const auto* label = dynamic_cast<CaptionLabel*>(face)) return label->Caption().toStdString();
  if (const auto* field = dynamic_cast<QLineEdit*>(face)) return field->text().toStdString();
  throw std::invalid_argument("shows no text: " + name);
}

json TypedGate::State() {
  const QMessageBox* const box = BoxThatIsUp();
  return {{"kept", station_.Queue.Keeps()},
          {"late", station_.Waiting.Late()},
          {"box", box == nullptr ? json() : json(box->text().toStdString())},
          {"form", station_.Dialogs.Active()->objectName().toStdString()},
          {"behind", behind_},
          {"free", station_.Devices.Thread.Free()},
          {"ended", Ended()}};
}

}  // namespace
}  // namespace vintoral::test

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  vintoral::Toolkit application(argc, argv);
  vintoral::test::PaintWithOneThread();
  vintoral::test::TypedGate gate(argc > 1 ? std::strtoull(argv[1], nullptr, 10) : 1);
  const int result = QApplication::exec();
  if (!gate.HasEnded()) std::_Exit(result);
  return result;
}
