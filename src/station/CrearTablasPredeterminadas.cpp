#include <array>
#include <string_view>

#include "station/form1/Archivos.h"
#include "station/form1/Form1.h"
#include "tariffs/Tablas.h"

namespace vintoral {
namespace {

struct Default {
  std::string_view file;
  std::vector<String> (*lines)();
};
constexpr std::array kDefaults = {Default{archivo::kTarifas, TarifasPredeterminadas},
                                  Default{archivo::kExtras, ExtrasPredeterminados},
                                  Default{archivo::kPrepago, PrepagoPredeterminado}};

}  // namespace

void Form1::CrearTablasPredeterminadas() {
  for (const Default& each : kDefaults) {
    if (platform_.disk.Exists(each.file)) continue;
    const Outcome made = platform_.disk.Replace(each.file, CodificarLineas(each.lines()));
    made.PassOver();
    if (!made) return;
  }
}

}  // namespace vintoral
