#include <QApplication>
#include <QFile>
#include <QMainWindow>
#include <QProcess>
#include <QTcpServer>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <ctime>
#include <vector>

#include "Benches.h"
#include "Median.h"
#include "app/Station.h"
#include "app/Toolkit.h"

namespace vintoral::bench {

namespace {

using bench::Median;

void PrintIdle() {
  QCoreApplication::processEvents();  // the first painting, and all that follows it
  std::printf("%lld\n", Nanoseconds());
}

double StartToIdle(const std::string& self, const QStringList& arguments) {
  QProcess child;
  child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
  const long long begun = Nanoseconds();
  child.start(QString::fromStdString(self), arguments);
  child.waitForFinished();
  constexpr double kMillisecond = 1e6;
  return static_cast<double>(child.readAllStandardOutput().trimmed().toLongLong() - begun) / kMillisecond;
}

}  // namespace

long long Nanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_MONOTONIC, &time);
  return time.tv_sec * 1'000'000'000LL + time.tv_nsec;
}

int ShowEmpty(int argc, char** argv) {
  QApplication application(argc, argv);
  QMainWindow window;
  window.showMaximized();
  PrintIdle();
  return 0;
}

int ShowStation(int argc, char** argv, const std::string& folder, bool first) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  PrintIdle();
  constexpr int kUntilStockIsTaken = 5000;
  if (first) QTest::qWait(kUntilStockIsTaken);
  return 0;
}

void CompareStarts(const std::string& self, const std::string& folder) {
  constexpr int kRounds = 21;
  const QStringList empty{QStringLiteral("--empty")};
  const QStringList station{QStringLiteral("--station"), QString::fromStdString(folder)};
  // The first start makes the folder, and fills the system's caches.
  StartToIdle(self, {QStringLiteral("--first"), QString::fromStdString(folder)});
  StartToIdle(self, station);
  std::vector<double> emptyTimes, stationTimes;
  for (int i = 0; i < kRounds; ++i) {
    emptyTimes.push_back(StartToIdle(self, empty));
    stationTimes.push_back(StartToIdle(self, station));
  }
  std::printf("start to idle: station %.1f ms, empty window %.1f ms, ratio %.2f (at most 2.5)\n",
              Median(stationTimes), Median(emptyTimes), Median(stationTimes) / Median(emptyTimes));
}

void CompareStartsWithCamera(const std::string& self, const std::string& folder) {
  constexpr int kRounds = 15;
  QTcpServer silent;  // the system takes connections for it, and nobody answers
  silent.listen(QHostAddress::LocalHost);
  QFile cameras(QString::fromStdString(folder) + QStringLiteral("/Objetos/Camaras.INI"));
  const QStringList station{QStringLiteral("--station"), QString::fromStdString(folder)};
  std::vector<double> with, without;
  for (int i = 0; i < kRounds; ++i) {
    cameras.remove();
    without.push_back(StartToIdle(self, station));
    if (!cameras.open(QIODevice::WriteOnly)) return;
    cameras.write(QStringLiteral("Patio = rtsp://127.0.0.1:%1/film\r\n").arg(silent.serverPort()).toLatin1());
    cameras.close();
    with.push_back(StartToIdle(self, station));
  }
  cameras.remove();
  std::printf(
      "start to idle with a camera that does not answer: %.1f ms, without %.1f ms, ratio %.2f (at most "
      "1.1)\n",
      Median(with), Median(without), Median(with) / Median(without));
}

}  // namespace vintoral::bench
