#include "common/Numbers.h"
#include "station/form1/Form1.h"

namespace vintoral {

bool Form1::ExisteFuncion(std::uint8_t bit, bool omitir) {
  const bool locked = ImgIndicador[indicador::kBloqueo].Visible;
  if (ContraseñaActual.Empty() || bit != 1 || omitir || !locked) return true;
  platform_.screen.Show({"Vintoral - Acceso Denegado"_w,
                         "Esta función ha sido bloqueada por el administrador."_w,
                         Icon::kExclamation,
                         {Answer::kOk},
                         Answer::kOk});
  return false;
}

bool Form1::Permite(int posicion) {
  if (posicion == 0) return true;
  const String digit = Mid(FuncionesBloqueadas, static_cast<std::size_t>(posicion), 1);
  return ExisteFuncion(static_cast<std::uint8_t>(LeadingInteger(digit)), false);
}

}  // namespace vintoral
