#include <algorithm>
#include <iterator>
#include <tuple>

#include "station/LlenarTarifas.h"
#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

/// Hands over the lines of a file; nothing happens when it is missing. False when it can't be read.
template <class Take>
bool Load(Disk& disk, std::string_view file, Take take) {
  if (!disk.Exists(file)) return true;
  const std::optional<String> bytes = disk.ReadAll(file).PassOver();
  if (!bytes) return false;
  take(DecodificarLineas(*bytes));
  return true;
}

}  // namespace

void Form1::CargarTablas() {
  const auto tariffs = [this](const std::vector<String>& lines) { LlenarTarifas(*this, lines); };
  const auto extras = [this](const std::vector<String>& lines) {
    TablaExtras.clear();
    std::transform(lines.begin(), lines.end(), std::back_inserter(TablaExtras), LineaExtra);
  };
  const auto loads = [this](const std::vector<String>& lines) { TablaPrepago = lines; };
  // Up to the first that is there and can't be read.
  std::ignore = Load(platform_.disk, archivo::kTarifas, tariffs) &&
                Load(platform_.disk, archivo::kExtras, extras) &&
                Load(platform_.disk, archivo::kPrepago, loads);
}

}  // namespace vintoral
