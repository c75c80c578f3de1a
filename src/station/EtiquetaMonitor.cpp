#include <array>
#include <string_view>

#include "common/Numbers.h"
#include "station/form1/Form1.h"
#include "station/form1/Monitor.h"

namespace vintoral {
namespace {

struct Suffix {
  boton::Index monitor;
  std::string_view text;
};
constexpr std::array kSuffixes = {Suffix{boton::kUltimosEnIngresar, " Min. ATRAS"},
                                  Suffix{boton::kTiempoDePermanencia, " Min. ADENTRO"},
                                  Suffix{boton::kUltimosEnSalir, " Min. AFUERA"}};

}  // namespace

void Form1::EtiquetaMonitor() {
  for (const String& item : CboMinutos.List()) {
    if (ContainsNoCase(item, " Min.")) return;
  }
  for (const Suffix& each : kSuffixes) {
    PictureBox& button = PctBoton[each.monitor];
    if (!IsPressed(button)) continue;
    const std::int64_t minutes = LeadingInteger(CboMinutos.Text());
    button.Tag = Digits(minutes);
    // The item stays the one that is selected: the arrows go on from there.
    CboMinutos.SetText(button.Tag + " Minutos"_w);
    return CboMinutos.ShowInstead(button.Tag + String(each.text));
  }
}

}  // namespace vintoral
