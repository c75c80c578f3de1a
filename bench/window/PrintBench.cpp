#include <QApplication>
#include <QTest>
#include <algorithm>
#include <cstdio>
#include <vector>

#include "Benches.h"
#include "platform/desktop/DesktopPlatform.h"

namespace vintoral::bench {

namespace {

constexpr int kSlips = 100;
constexpr int kRest =
    100;  // milliseconds; on the two processors of a gate a spooler takes as long for a slip

/// An entry's, with photo, code and twelve lines of text at both ends.
PrintDocument TypicalSlip() {
  PrintDocument slip;
  slip.FontSize = 10.5;
  for (int i = 0; i < 12; ++i)
    slip.Print("    PLACA : ABC123             "_w);
  slip.PaintPicture(Picture("Fotos\\Bench.jpg"_w), 252, slip.CurrentY, 3360, 2520);
  slip.CurrentY += 2520;
  slip.CurrentX = slip.TextWidth("--");
  slip.AddFontResource("Fuentes\\Vintoral.ttf");
  slip.FontName = String(fuente::kBarras);
  slip.FontSize = 3 * 10.5;
  slip.Print("*ABC123456789*"_w);
  slip.RemoveFontResource("Fuentes\\Vintoral.ttf");
  slip.FontName = String(fuente::kTexto);
  slip.FontSize = 10.5;
  for (int i = 0; i < 12; ++i)
    slip.Print(String(31, '-'));
  return slip;
}

template <class Work>
double Milliseconds(Work work) {
  const long long begun = Nanoseconds();
  work();
  constexpr double kMillisecond = 1e6;
  return static_cast<double>(Nanoseconds() - begun) / kMillisecond;
}

double Percentile99(std::vector<double> values) {
  std::sort(values.begin(), values.end());
  return values[values.size() * 99 / 100];
}

}  // namespace

int PrintTimes(int argc, char** argv, const std::string& folder) {
  const QApplication application(argc, argv);
  DesktopPlatform platform(folder);
  std::vector<double> slips, lists;
  for (int i = 0; i < kSlips; ++i) {
    slips.push_back(Milliseconds([&] { platform.Printer.EndDoc(TypicalSlip()); }));
    if (i % 10 == 0) lists.push_back(Milliseconds([&] { platform.Printer.Printers(); }));
    QTest::qWait(kRest);
  }
  std::printf("%.4f %.1f\n", Percentile99(slips), *std::max_element(lists.begin(), lists.end()));
  return 0;
}

}  // namespace vintoral::bench
