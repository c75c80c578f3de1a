#include <QTest>
#include <algorithm>
#include <cstdio>
#include <random>
#include <vector>

#include "Benches.h"
#include "PaintWatch.h"
#include "app/Station.h"
#include "app/Toolkit.h"
#include "common/Numbers.h"
#include "records/Register.h"
#include "records/RegistroCodigo.h"
#include "window/controls/CaptionLabel.h"
#include "window/controls/Text.h"

namespace vintoral::bench {

namespace {

constexpr int kInside = 999;  // who came before has left one slot free
constexpr int kScans = 1000;

/// Twelve characters of which no two numbers have the same.
String CodeOf(int number) {
  return "GATE9B0X"_w + Digits(number, 4);
}

void PutCodes(Station& station) {
  Register<RegistroCodigo> codes(station.Devices.Disk, station.Form.RutaCompartida("Vintoral.CDB"),
                                 OpenMode::kReadWrite);
  for (int number = 1; number <= kInside; ++number) {
    RegistroCodigo code;
    code.CodigoBarras = CodeOf(number);
    code.FichaCodigo = Digits(number, 4);
    codes.Write(number, code, false).PassOver();
  }
}

void Press(QWidget& window, int key, const QString& text) {
  QTest::simulateEvent(window.windowHandle(), true, key, Qt::NoModifier, text, false);
}

/// From the first of the reader's keys to the painted ficha, in milliseconds.
double Scan(Station& station, int number) {
  const long long begun = Nanoseconds();
  const String code = CodeOf(number);
  for (const char character : code.Bytes())
    Press(station.Window, character, QString(QLatin1Char(character)));
  station.Settle();
  return static_cast<double>(Nanoseconds() - begun) / 1e6;
}

}  // namespace

int ScanTimes(int argc, char** argv, const std::string& folder) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return 1;
  int inside = 0;
  station.Do([&] {
    PutCodes(station);
    station.Form.CargarArchivoACT();
    station.Form.ImprimirIndice();
    station.Form.ActivarTiquetes();
    station.Form.CambiarModoFicha();
    inside = station.Form.TotalVista();
  });

  PaintWatch watch(*station.Window.Shown().WidgetOf("LblCampo(1)"));
  std::mt19937 random(7);
  std::uniform_int_distribution<int> anyone(1, kInside);
  std::vector<double> times;
  int missed = 0;
  for (int i = 0; i < kScans; ++i) {
    QCoreApplication::processEvents();
    watch.Take();
    const int number = anyone(random);
    times.push_back(Scan(station, number));
    const auto& label = static_cast<const CaptionLabel&>(*station.Window.Shown().WidgetOf("LblCampo(0)"));
    const bool shown = label.Caption() == ToQString(Digits(number, 4)) && watch.Take();
    if (!shown) ++missed;
    Press(station.Window, Qt::Key_Escape, {});
    station.Settle();
  }
  std::sort(times.begin(), times.end());
  std::printf(
      "a scan to the ficha on display, %d fichas inside: median %.2f ms, 99th percentile %.2f ms (at most "
      "30), "
      "longest %.2f ms, %d of %d missed\n",
      inside, times[kScans / 2], times[kScans * 99 / 100], times.back(), missed, kScans);
  return missed == 0 ? 0 : 1;
}

}  // namespace vintoral::bench
