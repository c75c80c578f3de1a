// The whole station, its model on a thread of its own.
#include "app/Station.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <chrono>
#include <filesystem>
#include <future>
#include <thread>

#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

/// A station's folder, and a home that has its shortcut: nobody is welcomed.
class Stations : public testing::Test {
 protected:
  Stations() {
    folder_.Put("home/Desktop/Vintoral.desktop", "[Desktop Entry]\n");
    // Starts beside a station that runs on this machine.
    folder_.Put("station/Recursos/Vintoral.RLD", "");
    qputenv("HOME", folder_.Path("home").c_str());
  }
  ~Stations() override { qputenv("HOME", home_); }

  const TempFolder folder_;

 private:
  const QByteArray home_ = qgetenv("HOME");
};

/// How often the widget of this name is painted while it lives.
class Paintings : public QObject {
 public:
  explicit Paintings(const char* widget) : widget_(QString::fromLatin1(widget)) {
    qApp->installEventFilter(this);
  }
  int Count() const { return count_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override {
    const auto* const widget = qobject_cast<QWidget*>(watched);
    if (event->type() == QEvent::Paint && widget != nullptr && widget->objectName() == widget_) ++count_;
    return false;
  }

 private:
  QString widget_;
  int count_ = 0;
};

TEST_F(Stations, ItsWindowIsPaintedOnceAtTheStart) {
  const Paintings paintings("PctBoton(0)");
  Station station(folder_.Path("station"));
  ASSERT_TRUE(station.WaitUntilStarted());
  station.Settle();
  EXPECT_EQ(paintings.Count(), 1);
}

TEST_F(Stations, ItsEndIsWaitedForBeforeItsModelGoes) {
  const std::string state = folder_.Path("station/Recursos/Vintoral.DAT");
  {
    Station station(folder_.Path("station"));
    ASSERT_TRUE(station.WaitUntilStarted());
    std::filesystem::remove(state);
    // Busy when it is asked to end.
    station.Devices.Thread.Tell([] { std::this_thread::sleep_for(std::chrono::milliseconds(300)); });
  }
  EXPECT_TRUE(std::filesystem::exists(state)) << "it was closed as any other";
}

TEST_F(Stations, TheEventLoopEndsWithIt) {
  constexpr int kNever = 10'000, kStillRuns = 3;
  Station station(folder_.Path("station"));
  ASSERT_TRUE(station.WaitUntilStarted());
  QTimer::singleShot(kNever, &station.Window, [] { QCoreApplication::exit(kStillRuns); });
  station.EndWithoutAsking();
  EXPECT_EQ(QCoreApplication::exec(), 0);
  EXPECT_TRUE(station.HasEnded());
}

TEST_F(Stations, ThatHangsIsWaitedForAMomentAndNoLonger) {
  using namespace std::chrono;
  Station station(folder_.Path("station"));
  ASSERT_TRUE(station.WaitUntilStarted());
  std::promise<void> answers;
  station.Devices.Thread.Tell([folder = answers.get_future().share()] { folder.wait(); });
  const auto asked = steady_clock::now();
  EXPECT_FALSE(station.HasEnded());
  EXPECT_GE(steady_clock::now() - asked, milliseconds(600));
  EXPECT_LT(steady_clock::now() - asked, seconds(2));
  answers.set_value();
}

TEST_F(Stations, ThatEndsInAMomentHasEnded) {
  Station station(folder_.Path("station"));
  ASSERT_TRUE(station.WaitUntilStarted());
  station.Devices.Thread.Tell([] { std::this_thread::sleep_for(std::chrono::milliseconds(200)); });
  station.Devices.Thread.Tell([&] { station.Form.CerrarSinPreguntar(); });
  EXPECT_TRUE(station.HasEnded());
}

}  // namespace
}  // namespace vintoral::test
