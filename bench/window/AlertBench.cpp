// The panic alert: how soon the first word is out, and what the screen does until the last.
#include <netinet/in.h>
#include <sys/socket.h>
#include <unistd.h>

#include <QApplication>
#include <QProcess>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <thread>
#include <vector>

#include "Benches.h"
#include "Median.h"
#include "app/Station.h"
#include "app/Toolkit.h"

namespace vintoral::bench {

namespace {

constexpr double kMillisecond = 1e6;

/// A relay that greets and then says nothing.
class SilentRelay {
 public:
  SilentRelay() : listener_(socket(AF_INET, SOCK_STREAM, 0)) {
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    const bool stands = bind(listener_, reinterpret_cast<sockaddr*>(&address), sizeof address) == 0 &&
                        listen(listener_, 1) == 0;
    if (!stands) std::perror("relay");
    socklen_t length = sizeof address;
    getsockname(listener_, reinterpret_cast<sockaddr*>(&address), &length);
    port_ = ntohs(address.sin_port);
    std::thread([this] { Talk(); }).detach();
  }
  int Port() const { return port_; }
  /// When the first byte came, 0 before.
  long long FirstByte() const { return first_; }

 private:
  void Talk() {
    constexpr std::string_view kGreeting = "220 bench ESMTP\r\n";
    const int line = accept(listener_, nullptr, nullptr);
    if (send(line, kGreeting.data(), kGreeting.size(), MSG_NOSIGNAL) < 0) return;
    char byte = 0;
    if (recv(line, &byte, 1, 0) == 1) first_ = Nanoseconds();
  }

  int listener_;
  int port_ = 0;
  std::atomic<long long> first_ = 0;
};

/// Starts the station of `folder`, armed, with this relay, and after a while presses F12; `during` runs all
/// the time, and ends the process when it has what it wants.
int Alert(int argc, char** argv, const std::string& folder,
          const std::function<void(Station&, const SilentRelay&, long long pressed)>& during) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  static SilentRelay relay;  // its thread stays to the end
  std::ofstream(folder + "/Objetos/Correo.INI")
      << "Servidor = 127.0.0.1\nPuerto = " << relay.Port() << "\nAutenticacion = no\n";
  station.Do([&] {
    station.Form.DatosCall[2] = "guardia@casa.example"_w;
    station.Form.ImgPanico.Visible = true;
  });
  constexpr int kUntilAllIsLoaded = 1000;
  QTest::qWait(kUntilAllIsLoaded);
  long long pressed = 0;
  QTimer watch;
  QObject::connect(&watch, &QTimer::timeout, [&] { during(station, relay, pressed); });
  watch.start(0);
  pressed = Nanoseconds();
  QTest::keyClick(station.Window.windowHandle(), Qt::Key_F12);
  QApplication::exec();
  return 1;
}

[[noreturn]] void Tell(double milliseconds) {
  std::printf("%.2f\n", milliseconds);
  std::fflush(stdout);
  std::_Exit(0);  // the alert has nowhere to go
}

std::vector<double> Ask(const std::string& self, const char* mode, const std::string& folder, int rounds) {
  std::vector<double> answers;
  for (int i = 0; i < rounds; ++i) {
    QProcess child;
    child.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    child.start(QString::fromStdString(self), {QString::fromLatin1(mode), QString::fromStdString(folder)});
    child.waitForFinished();
    answers.push_back(child.readAllStandardOutput().trimmed().toDouble());
  }
  return answers;
}

}  // namespace

int AlertTime(int argc, char** argv, const std::string& folder) {
  return Alert(argc, argv, folder, [](Station&, const SilentRelay& relay, long long pressed) {
    if (relay.FirstByte() != 0) Tell(static_cast<double>(relay.FirstByte() - pressed) / kMillisecond);
  });
}

int KeyDuringAlert(int argc, char** argv, const std::string& folder) {
  static std::vector<double> times;
  return Alert(argc, argv, folder, [](Station& station, const SilentRelay&, long long) {
    constexpr std::size_t kKeys = 1000;
    const bool erase = times.size() % 4 >= 2;
    const long long begun = Nanoseconds();
    QTest::simulateEvent(station.Window.windowHandle(), true, erase ? Qt::Key_Backspace : Qt::Key_7,
                         Qt::NoModifier, erase ? QString() : QStringLiteral("7"), false);
    station.Window.repaint();
    times.push_back(static_cast<double>(Nanoseconds() - begun) / kMillisecond);
    if (times.size() == kKeys) Tell(*std::max_element(times.begin(), times.end()));
  });
}

void MeasureAlerts(const std::string& self, const std::string& folder) {
  constexpr int kRounds = 9;
  const std::vector<double> first = Ask(self, "--alert-time", folder, kRounds);
  std::printf(
      "F12 to the relay's first byte, first alert of a process: median %.1f ms, longest %.1f ms (at most "
      "100)\n",
      Median(first), *std::max_element(first.begin(), first.end()));
  std::printf("a key while the relay says nothing, longest of 1000: %.1f ms (at most 100)\n",
              Ask(self, "--alert-key", folder, 1).front());
}

}  // namespace vintoral::bench
