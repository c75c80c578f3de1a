// The whole station, its model on a thread of its own.
#include "app/Station.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <chrono>
#include <filesystem>
#include <thread>

#include "support/TempFolder.h"

namespace vintoral::test {
namespace {

TEST(Stations, ItsEndIsWaitedForBeforeItsModelGoes) {
  const TempFolder folder;
  folder.Put("home/Desktop/Vintoral.desktop", "[Desktop Entry]\n");
  folder.Put("station/Recursos/Vintoral.RLD", "");  // starts beside a station that runs on this machine
  const QByteArray home = qgetenv("HOME");
  qputenv("HOME", folder.Path("home").c_str());
  const std::string state = folder.Path("station/Recursos/Vintoral.DAT");
  {
    Station station(folder.Path("station"));
    ASSERT_TRUE(station.WaitUntilStarted());
    std::filesystem::remove(state);
    // Busy when it is asked to end.
    station.Devices.Thread.Tell([] { std::this_thread::sleep_for(std::chrono::milliseconds(300)); });
  }
  qputenv("HOME", home);
  // The station has asked the event loop to end; in the tests behind this one, no menu would wait for
  // anybody.
  QTimer::singleShot(0, qApp, &QCoreApplication::quit);
  QCoreApplication::exec();
  EXPECT_TRUE(std::filesystem::exists(state)) << "it was closed as any other";
}

}  // namespace
}  // namespace vintoral::test
