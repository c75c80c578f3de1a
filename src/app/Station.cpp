#include "app/Station.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>
#include <algorithm>
#include <chrono>
#include <thread>

#include "station/form1/PreguntaCierre.h"

namespace vintoral {

namespace {

Platform With(const Platform& all, const Station::Instead& instead) {
  Random& chance = instead.chance == nullptr ? all.random : *instead.chance;
  Camera& camera = instead.camera == nullptr ? all.camera : *instead.camera;
  return {all.clock,    all.screen,  all.sound, all.system, all.disk,
          all.pictures, all.printer, chance,    camera,     all.mail};
}

/// Serves the window's events until then. The station's thread does not tell of everything.
template <class Condition>
void ServeUntil(Condition over) {
  while (!over()) {
    QCoreApplication::processEvents();
    std::this_thread::sleep_for(std::chrono::microseconds(50));
  }
}

}  // namespace

Station::Station(const std::string& folder) : Station(folder, Instead{}) {}

Station::Station(const std::string& folder, const Instead& instead)
    : Devices(folder, instead.clock),
      Form(With(Devices.Devices(), instead)),
      Taken(Form.OpenForms),
      Queue(Devices.Thread, instead.clock == nullptr ? Devices.Clock : *instead.clock),
      Hands(Form.OpenForms, Devices.Thread, Queue),
      beginning_(*this),
      Window(Taken.Now().loaded.front(), Hands, {Devices.Pictures, Devices.Disk, Form.Devices().camera}),
      Dialogs(Taken, Window),
      Waiting(Devices, Window) {
  Join();
}

Station::~Station() {
  StationThread& thread = Devices.Thread;
  if (thread.EndWithin(0)) return;
  thread.Tell([this] { Form.CerrarSinPreguntar(); });
  // The model that it works on goes before the thread does.
  constexpr std::int64_t kLook = 1000;
  while (!thread.EndWithin(kLook)) {
  }
}

/// What the window asks of whom.
void Station::Join() {
  DesktopScreen& screen = Devices.Screen;
  screen.Owner = [this] { return Dialogs.Active(); };
  screen.OnUp = [this] { Queue.Reclaim(); };
  // The station's own question comes up too while it does not know yet that the folder hangs.
  screen.OnAnswered = [this](const Box& box, Answer answer) {
    if (answer == Answer::kYes && box == PreguntaCierre()) Waiting.GoneSoon();
  };
  Queue.BeforeDelivery = [this] {
    if (news_.exchange(false)) Window.Refresh();
  };
  Queue.ToBox = [&screen](const QKeyEvent* key) { return screen.ToBox(key); };
  Queue.BreakOff = [&screen] { return screen.BreakOff(); };
  Queue.Late = [this] { return Waiting.Late(); };
  Queue.Beep = [] { QApplication::beep(); };
  Hands.SeesToClosing = [this] { return Waiting.SeeToClosing(); };
  Waiting.Withdraw = [this] { return Queue.Withdraw(InputQueue::Kind::kClosing); };
  Waiting.OnEnd = [this] { Devices.Thread.Tell([this] { Form.CerrarSinPreguntar(); }); };
  Window.Pictures().OnDamaged = [this](const Picture& picture) {
    Devices.Thread.Tell([this, picture] {
      if (!Form.Terminado()) Form.FotoDanada(picture.Path(), picture.Mark());
    });
  };
}

void Station::Start() {
  Forms& forms = Form.OpenForms;
  Devices.Thread.OnFree = [this] { Queue.Go(); };
  Devices.Screen.BeforeWaiting = [this] {
    Taken.Take();
    Devices.Thread.ToWindow([this] { Window.Appear(); });
  };
  Devices.Thread.Start(
      {.nextTick = [&forms] { return forms.NextTick(); },
       .runTicks = [&forms] { forms.RunTicks(); },
       .ended = [&forms] { return forms.Ended(); },
       .publish =
           [this](bool handsDid) {
             if (Taken.Take() || handsDid) ShowSoon();
           }},
      [this] {
        Form.Form_Load();
        // Behind the showing of what came of it: a window that is up already would be painted twice.
        Devices.Thread.Tell([this] {
          if (!Form.Terminado()) Devices.Thread.ToWindow([this] { Begin(); });
        });
      },
      [this] {
        over_ = true;
        QCoreApplication::exit(0);
      });
}

bool Station::HasEnded() {
  constexpr int kUntilGone = 600;  // milliseconds, in all
  QElapsedTimer timer;
  timer.start();
  const auto left = [&] { return std::max(0, kUntilGone - static_cast<int>(timer.elapsed())); };
  if (!Devices.Thread.EndWithin(left()) || !Window.Pictures().EndWithin(left())) return false;
  while (!Devices.Disk.NothingBehind() && left() > 0)
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  return Devices.Disk.NothingBehind();
}

void Station::ShowSoon() {
  if (news_.exchange(true)) return;
  Devices.Thread.ToWindow([this] {
    if (!news_.exchange(false)) return;
    Window.Refresh();
    if (Waiting.Late()) Waiting.Look();
  });
}

void Station::Begin() {
  Window.Appear();
  // Each widget that shows itself asks to be painted: behind the first painting all would be painted twice.
  QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
  started_ = true;
  // Loading the libraries of sound, printing and cameras beside the first painting would hold that up.
  constexpr int kUntilPainted = 100;
  QTimer::singleShot(kUntilPainted, &Window, [this] {
    Devices.Sound.Begin();
    Devices.Printer.Begin();
    Devices.Camera.Begin();
  });
}

bool Station::WaitUntilStarted() {
  ServeUntil([this] { return started_ || over_; });
  return !over_;
}

void Station::Do(const std::function<void()>& step) {
  bool done = false;
  Devices.Thread.Tell([&] {
    step();
    // Behind the showing of what came of it.
    Devices.Thread.Tell([&] { Devices.Thread.ToWindow([&] { done = true; }); });
  });
  ServeUntil([&] { return done || over_; });
}

void Station::Settle() {
  ServeUntil([this] { return (!Queue.Keeps() && Devices.Thread.Free() && !news_) || over_; });
  QCoreApplication::processEvents();
}

}  // namespace vintoral
