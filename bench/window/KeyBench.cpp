#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Benches.h"
#include "House.h"
#include "PaintWatch.h"
#include "app/Station.h"
#include "app/Toolkit.h"

namespace vintoral::bench {

namespace {

void Type(QWidget& window, int key, const QString& text) {
  QTest::simulateEvent(window.windowHandle(), true, key, Qt::NoModifier, text, false);
}

}  // namespace

void MeasureKeys(int argc, char** argv, const std::string& folder) {
  Toolkit application(argc, argv);
  Station station(folder);
  if (!station.WaitUntilStarted()) return;
  int inside = 0;
  ShowHouse(station);
  station.Do([&] {
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
