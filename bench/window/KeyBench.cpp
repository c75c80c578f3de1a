#include <QApplication>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Benches.h"
#include "PaintWatch.h"
#include "app/Station.h"
#include "common/Numbers.h"
#include "records/Register.h"
#include "window/controls/Theme.h"

namespace vintoral::bench {

namespace {

constexpr int kFichas = 1000;

/// A full house, as it stands in the register.
void FillHouse(Station& station) {
  RegistroFicha ficha;
  ficha.EnUso = true;
  ficha.MarcaEntrada = StampOf(station.Devices.Clock.Now());
  ficha.MarcaSalida = "??";
  ficha.Categoria = station.Form.CboTarifa[1].Text();
  ficha.PorteriaEntrada = "01";
  ficha.PorteriaSalida = "??";
  Register<RegistroFicha> act(station.Devices.Disk, "Multimedia\\Vintoral.ACT", OpenMode::kReadWrite);
  for (int i = 1; i < kFichas; ++i) {
    ficha.Posicion = i;
    ficha.NumeroFicha = Digits(i, 4);
    ficha.Placa = "AAA"_w + Digits(i, 3);
    act.Write(i, ficha, false).PassOver();
  }
}

void Type(QWidget& window, int key, const QString& text) {
  QTest::simulateEvent(window.windowHandle(), true, key, Qt::NoModifier, text, false);
}

}  // namespace

void MeasureKeys(int argc, char** argv, const std::string& folder) {
  Station::PrepareToolkit();
  QApplication application(argc, argv);
  theme::Apply(application);
  Station station(folder);
  if (!station.WaitUntilStarted()) return;
  int inside = 0;
  station.Do([&] {
    FillHouse(station);
    station.Form.CargarArchivoACT();
    station.Form.ImprimirIndice();
    station.Form.TxtCampo[0].SetText(Digits(kFichas));  // the one slot that is free
    inside = station.Form.TotalVista();
  });
  Type(station.Window, Qt::Key_Return, QStringLiteral("\r"));
  station.Settle();

  QWidget& field = *station.Window.Shown().WidgetOf("TxtCampo(1)");
  PaintWatch watch(field);
  std::vector<double> times;
  constexpr int kKeys = 4000;
  int unpainted = 0;
  for (int i = 0; i < kKeys; ++i) {
    const bool erase = i % 20 >= 10;
    const long long begun = Nanoseconds();
    Type(station.Window, erase ? Qt::Key_Backspace : Qt::Key_A + i % 20,
         erase ? QString() : QStringLiteral("x"));
    if (!watch.Await()) ++unpainted;
    times.push_back(static_cast<double>(Nanoseconds() - begun) / 1e6);
  }
  std::sort(times.begin(), times.end());
  std::printf(
      "key to repaint, %d fichas inside: median %.2f ms, 99th percentile %.2f ms (at most 16), longest "
      "%.2f ms, %d of %d without a painting\n",
      inside, times[kKeys / 2], times[kKeys * 99 / 100], times.back(), unpainted, kKeys);
}

}  // namespace vintoral::bench
